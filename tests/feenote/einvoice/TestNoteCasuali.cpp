// Notes of random figures as electronic invoices: sums reckoned a second time in whole cents, the schema by
// another program.
#include "fattura_prova.h"

#include <QRandomGenerator>

using namespace Qt::StringLiterals;
using namespace fattura_prova;

namespace {

/// CALCANOVA_FATTURE is how many notes an ordinary run makes, CALCANOVA_SEME where it begins.
int DallAmbiente(const char* Nome, int Altrimenti)
{
    bool Letto = false;
    const int Numero = qEnvironmentVariableIntValue(Nome, &Letto);
    return Letto ? Numero : Altrimenti;
}

/// Amounts of every size, the small ones often: half cents are among those.
qint64 Importo(QRandomGenerator& Caso)
{
    static const QList<qint64> Grandezze{10, 1000, 100000, 10000000, 1000000000};
    return Caso.bounded(Grandezze[Caso.bounded(int(Grandezze.size()))] + 1);
}

int Percento(QRandomGenerator& Caso, const QList<int>& Usuali)
{
    const int Quale = Caso.bounded(6);
    return Quale == 0 ? 0 : Quale == 1 ? Caso.bounded(100, 10001) : Usuali[Caso.bounded(int(Usuali.size()))];
}

Cifre NotaCasuale(QRandomGenerator& Caso)
{
    Cifre Nuove;
    for (int i = Caso.bounded(4); i > 0; --i)
        Nuove.Onorari += Caso.bounded(20) == 0 ? -Importo(Caso) : Importo(Caso);
    for (int i = Caso.bounded(4); i > 0; --i)
        Nuove.Spese += {Caso.bounded(2) == 0 ? 0 : Importo(Caso), Caso.bounded(2) == 0 ? 0 : Importo(Caso)};
    for (int i = Caso.bounded(3); i > 0; --i)
        Nuove.Acconti += {Importo(Caso) / 10, Caso.bounded(2) == 0 ? 0 : Importo(Caso) / 10,
                          Caso.bounded(2) == 0 ? 0 : Importo(Caso) / 10};
    Nuove.SpeseGen = Percento(Caso, {1250, 1500, 1000});
    Nuove.CP = Percento(Caso, {400, 200});
    Nuove.Agevolato = Caso.bounded(4) == 0;
    if (!Nuove.Agevolato) {
        Nuove.IVA = Percento(Caso, {2200, 2100, 2000, 1000, 400});
        Nuove.RA = Percento(Caso, {2000, 3000, 2300});
        Nuove.PerCassa = Caso.bounded(4) == 0;
    }
    Nuove.Esposti = Caso.bounded(3) != 0;
    Nuove.Tipo = Caso.bounded(2) == 0 ? StampaFatturaSintetica : StampaFatturaAnalitica;
    return Nuove;
}

/// Whether the figures can be an invoice at all, in this test's own words.
bool Esprimibile(const Totali& Attesi, bool ConIva)
{
    return Attesi.Base >= 0 && Attesi.Totale > 0 && Attesi.Netto >= 0 && (ConIva || Attesi.Base >= 0);
}

}  // namespace

class TestNoteCasuali : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void leSommeTornano();
};
PROVA(TestNoteCasuali);

void TestNoteCasuali::leSommeTornano()
{
    const int Quante = DallAmbiente("CALCANOVA_FATTURE", 250);
    const int Seme = DallAmbiente("CALCANOVA_SEME", 22);
    const QString Cartella = NuovaCartella();
    QStringList File;
    int Rifiutate = 0;
    for (int i = 0; i < Quante; ++i) {
        QRandomGenerator Caso(quint32(Seme + i));
        const Cifre Note = NotaCasuale(Caso);
        const Totali Attesi = Calcola(Note);
        const QByteArray Dove = "seed " + QByteArray::number(Seme + i);
        const Composizione Fatta =
            Componi(Note, Avvocato(Note.Agevolato ? u"RF19"_s : u"RF01"_s), Societa(), [&](SceltaFattura& S) {
                if (!Note.Agevolato && Note.IVA == 0)
                    S.Natura = u"N4"_s;
            });
        QVERIFY2(Fatta.Completa() == Esprimibile(Attesi, Note.IVA != 0),
                 Dove + qPrintable(u": "_s + Frasi(Fatta.Mancanze).join(u' ')));
        if (!Fatta.Completa()) {
            ++Rifiutate;
            continue;
        }
        const QString Nome = Cartella + QString::number(i) + u".xml"_s;
        SalvaFattura(Nome, Fatta.Fattura, Giorno);
        const QByteArray Byte = Contenuto(Nome);
        QVERIFY2(SommeTornano(Byte).isEmpty(), Dove + qPrintable(u": "_s + SommeTornano(Byte)));
        const QString Diverso = TotaliTornano(Byte, Attesi, Attesi.Netto);
        QVERIFY2(Diverso.isEmpty(), Dove + qPrintable(u": "_s + Diverso));
        File += Nome;
    }
    ConvalidaTutti(File);
    QVERIFY2(File.size() > Quante / 3 && (Quante < 100 || Rifiutate > 0), "the notes are no fair choice");
    qInfo("%d notes, %d of them no invoice", Quante, Rifiutate);
}

#include "TestNoteCasuali.moc"
