// Files that are nearly right: whatever bytes come, the readers give rows or one sentence.
#include "addressbook/exchange/csv.h"
#include "addressbook/exchange/tabellaestranea.h"
#include "addressbook/exchange/vcard.h"
#include "platform/base/errore.h"
#include "platform/base/fogliocsv.h"
#include "platform/system/cartelle.h"
#include "platform/system/file.h"
#include "supporto/prova.h"

#include <QRandomGenerator>

using namespace Qt::StringLiterals;

class TestMutanti : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void righe();
    void schede();

private:
    /// How many; CALCANOVA_MUTANTI asks for more.
    static int Quanti()
    {
        const int Chiesti = qEnvironmentVariableIntValue("CALCANOVA_MUTANTI");
        return Chiesti > 0 ? Chiesti : 2000;
    }
    /// Runs the mutants of the seeds of a target through a reader.
    static void Prova(const QString& Bersaglio, const std::function<QString(const QByteArray&)>& Leggi);
};
PROVA(TestMutanti);

namespace {

/// Some bytes changed, put in, taken out, doubled.
QByteArray Mutante(QByteArray Byte, QRandomGenerator& Caso)
{
    constexpr int MassimoPassi = 8;
    constexpr qsizetype MassimoPezzo = 40;
    static const QByteArray Segni("\"';,\t\r\n=:\\ \0\xFF\x80", 14);
    for (int Passi = Caso.bounded(1, MassimoPassi); Passi > 0 && !Byte.isEmpty(); --Passi) {
        const qsizetype Dove = Caso.bounded(int(Byte.size()));
        const qsizetype Lungo = std::min<qsizetype>(Byte.size() - Dove, Caso.bounded(1, int(MassimoPezzo)));
        switch (Caso.bounded(5)) {
        case 0:
            Byte[Dove] = char(Caso.bounded(256));
            break;
        case 1:
            Byte.insert(Dove, Segni[Caso.bounded(int(Segni.size()))]);
            break;
        case 2:
            Byte.remove(Dove, Lungo);
            break;
        case 3:
            Byte.insert(Dove, QByteArray(Byte.sliced(Dove, Lungo)));
            break;
        default:
            Byte.truncate(Dove);
        }
    }
    return Byte;
}

}  // namespace

void TestMutanti::Prova(const QString& Bersaglio, const std::function<QString(const QByteArray&)>& Leggi)
{
    const QString Cartella = SorgenteDiProva(u"fuzz/semi/"_s + Bersaglio + u'/');
    QByteArrayList Semi;
    for (const QString& Nome : NomiDeiFile(Cartella))
        Semi.append(LeggiFile(Cartella + Nome));
    QVERIFY(Semi.size() >= 3);
    QRandomGenerator Caso(20261122);
    int Letti = 0;
    int Rifiutati = 0;
    for (int i = 0; i < Quanti(); ++i) {
        const QByteArray Byte = Mutante(Semi[Caso.bounded(int(Semi.size()))], Caso);
        try {
            const QString Difetto = Leggi(Byte);
            QVERIFY2(Difetto.isEmpty(),
                     qPrintable(Difetto + u" "_s + QString::fromLatin1(Byte.toPercentEncoding())));
            ++Letti;
        } catch (const Errore& Guasto) {
            QCOMPARE(Guasto.Numero, NumeroFileRifiutato);
            QVERIFY(!Guasto.Descrizione.isEmpty());
            ++Rifiutati;
        }
    }
    QVERIFY2(Letti > 100 && Rifiutati > 100, qPrintable(u"%1 %2"_s.arg(Letti).arg(Rifiutati)));
}

/// What was read is written and read again as it is.
void TestMutanti::righe()
{
    Prova(u"fuzz_csv"_s, [](const QByteArray& Byte) -> QString {
        const RigheCsv Lette = LeggiCsv(Byte);
        if (Lette.Righe.size() != Lette.Linee.size())
            return u"lines"_s;
        for (const QStringList& Riga : Lette.Righe)
            for (const QString& Cella : Riga)
                if (!Cella.isValidUtf16())
                    return {};  // half a character does not come back
        if (Lette.Righe.empty())
            return {};
        const RigheCsv Ancora =
            LeggiCsv(ScriviCsv(Lette.Righe), {.Separatore = u';', .Codifica = CodificaTesto::Utf8});
        return Ancora.Righe == Lette.Righe ? QString() : u"not the same again"_s;
    });
}

/// What was read makes a card that is one.
void TestMutanti::schede()
{
    Prova(u"fuzz_vcard"_s, [](const QByteArray& Byte) -> QString {
        const TabellaEstranea Lette = LeggiVcard(Byte);
        for (const QStringList& Riga : Lette.Righe) {
            if (Riga.size() != Lette.Titoli.size())
                return u"a row of another length"_s;
            ValoriNominativo Valori;
            for (qsizetype i = 0; i < Riga.size(); ++i)
                Valori.append({Lette.Titoli[i], Riga[i]});
            const QByteArray Scheda = SchedaVcard(Valori, false);
            if (!Scheda.isEmpty() && LeggiVcard(Scheda).Righe.size() != 1)
                return u"no card again"_s;
        }
        return {};
    });
}

#include "TestMutanti.moc"
