// A copy of an invoice that was taken back, and documents that this program does not know: what the
// accountant's rows say of them.
#include "bancostorni.h"

#include "feenote/modAcconti.h"
#include "feenote/modDuplica.h"

#include <QFile>

using namespace Qt::StringLiterals;
using enum StatoNota;

class TestStorniCopiati : public QObject, private BancoStorni
{
    Q_OBJECT
private Q_SLOTS:
    void init() { Prepara(); }
    void cleanup() { Sgombra(); }
    void copiata();
    void copiaSola();
    void documentoNonNoto_data();
    void documentoNonNoto();
};
PROVA(TestStorniCopiati);

void TestStorniCopiati::copiata()
{
    Parcella Una = Nota();
    Emetti(Una, u"12"_s);
    Una.xOnorari(0, OnoImporto) = 100.0;
    Emetti(Una, u"13"_s, true);
    Scrivi(Una);
    const QStringList Prima = Tabella();
    QVERIFY(QFile::copy(Cartella + u"una.mdb"_s, Cartella + u"altra.mdb"_s));
    Leggi();
    QCOMPARE(Tabella().size(), 4);
    QStringList ConFigure;
    for (const QString& Riga : Tabella())
        if (!Riga.contains(u"(copia)"_s))
            ConFigure += Riga;
    QCOMPARE(ConFigure, Prima);
    QVERIFY(Tabella().contains(u"Fattura analitica (copia)|12||||"_s));
    QVERIFY(Tabella().contains(u"Nota di credito della fattura 12 (copia)|13||||"_s));
    QCOMPARE(SommaAperto(Note).Aperto, 1313.21);
    QCOMPARE(SommaAperto(Note).Copie, 2);
    // The file of before the credit note: its invoice is the copy, and what was taken back is so.
    Parcella Vecchia = Nota();
    Emetti(Vecchia, u"12"_s);
    Scrivi(Vecchia, u"altra.mdb"_s);
    QFile Indietro(Cartella + u"altra.mdb"_s);
    QVERIFY(Indietro.open(QIODevice::ReadWrite));
    QVERIFY(
        Indietro.setFileTime(QDateTime::currentDateTime().addDays(-9), QFileDevice::FileModificationTime));
    Indietro.close();
    Leggi();
    QCOMPARE(SommaAperto(Note).Aperto, 1313.21);
    QCOMPARE(SommaAperto(Note).Copie, 1);
}

/// Shown without the note that counts a copy has its figures, and is summed once; the older of two copies is
/// one too many.
void TestStorniCopiati::copiaSola()
{
    Parcella Una = Nota();
    Emetti(Una, u"12"_s);
    Una.xOnorari(0, OnoImporto) = 100.0;
    Emetti(Una, u"13"_s, true);
    Scrivi(Una);
    for (const int Giorni : {9, 5}) {
        const QString Copia = Cartella + u"copia %1.mdb"_s.arg(Giorni);
        QVERIFY(QFile::copy(Cartella + u"una.mdb"_s, Copia));
        QFile Indietro(Copia);
        QVERIFY(Indietro.open(QIODevice::ReadWrite));
        QVERIFY(Indietro.setFileTime(QDateTime::currentDateTime().addDays(-Giorni),
                                     QFileDevice::FileModificationTime));
    }
    Leggi();
    QCOMPARE(Righe[0].Nome, u"copia 5"_s);
    QCOMPARE(Righe[1].Nome, u"copia 9"_s);
    const std::vector<const VoceTrova*> Tutte = std::exchange(Note, {});
    const auto Mostra = [&](const std::vector<const VoceTrova*>& Quali) {
        QStringList Trovate;
        for (const QStringList& Celle : RigheScadenzario(
                 Quali, [](int) { return CodiciCliente(); }, Tutte))
            Trovate += QStringList{Celle[17], Celle[3], Celle[9], Celle[14], Celle[15], Celle[16]}.join(u'|');
        return Trovate;
    };
    const auto Di = [](const QString& Nome) {
        return QStringList{Nome + u"|Fattura analitica (copia)|1150,00|1459,12|0,00|1313,21"_s,
                           Nome + u"|Nota di credito della fattura 12 (copia)|-115,00|-145,91|0,00|0,00"_s};
    };
    QCOMPARE(Mostra({Tutte[1]}), Di(u"copia 9"_s));
    QCOMPARE(SommaAperto({Tutte[1]}, Tutte),
             (ApertoTutto{1313.21, 1, 0, 0, {{Righe[1].Cliente, 1313.21, 1}}}));
    const QStringList DiTroppo{u"copia 9|Fattura analitica (copia)||||"_s,
                               u"copia 9|Nota di credito della fattura 12 (copia)||||"_s};
    QCOMPARE(Mostra({Tutte[0], Tutte[1]}), Di(u"copia 5"_s) + DiTroppo);
    QCOMPARE(SommaAperto({Tutte[0], Tutte[1]}, Tutte),
             (ApertoTutto{1313.21, 1, 0, 2, {{Righe[0].Cliente, 1313.21, 1}}}));
    QCOMPARE(SommaAperto(Tutte), (ApertoTutto{1313.21, 1, 0, 4, {{Righe[0].Cliente, 1313.21, 1}}}));
    // The rows say so.
    ElencoTrova Elenco;
    Elenco.Azzera(false);
    for (const VoceTrova& Riga : Righe)
        Elenco.Aggiungi(VoceTrova(Riga));
    QCOMPARE(Elenco.CopiaDi(0), QString());  // they are arriving
    Elenco.Ordina();
    Elenco.Filtra(u"copia"_s);
    QCOMPARE(Elenco.Righe(), 2);
    QCOMPARE(Elenco.Cella(0, TrovaStato), u"Copia"_s);
    QCOMPARE(Elenco.Cella(0, TrovaNome), u"copia 5"_s);
    QCOMPARE(Elenco.CopiaDi(1), Cartella + u"una.mdb"_s);
    Elenco.Filtra(u"una"_s);
    QCOMPARE(Elenco.Cella(0, TrovaStato), u"Fatturata"_s);
    QCOMPARE(Elenco.CopiaDi(0), QString());
    // What counted goes.
    Elenco.Togli(Cartella + u"una.mdb"_s);
    Elenco.Filtra({});
    QCOMPARE(Elenco.Cella(0, TrovaStato), u"Fatturata"_s);
    QCOMPARE(Elenco.CopiaDi(1), Cartella + u"copia 5.mdb"_s);
    Elenco.Rinomina(Cartella + u"copia 5.mdb"_s, Cartella + u"a.mdb"_s);
    QCOMPARE(Elenco.CopiaDi(1), Cartella + u"a.mdb"_s);
}

void TestStorniCopiati::documentoNonNoto_data()
{
    QTest::addColumn<QString>("Voce");
    QTest::addColumn<QString>("Tabella1");
    QTest::addColumn<QString>("Tabella2");
    QTest::newRow("the invoice") << u"Stato.Emesso.1"_s << u"Fattura analitica|||||"_s
                                 << u"Nota di credito della fattura 12|13|-115,00|-145,91|0,00|0,00"_s;
    QTest::newRow("its credit note") << u"Stato.Importi"_s << u"Fattura analitica|12|1150,00|1459,12|0,00|"_s
                                     << u"Nota di credito della fattura 12|13||||0,00"_s;
}

/// Figures that cannot be read are not 0: what is open is not known, and is said so.
void TestStorniCopiati::documentoNonNoto()
{
    QFETCH(QString, Voce);
    Parcella Una = Nota();
    Emetti(Una, u"12"_s);
    Una.xOnorari(0, OnoImporto) = 100.0;
    Emetti(Una, u"13"_s, true);
    Scrivi(Una);
    EseguiSu(Cartella + u"una.mdb"_s, u"UPDATE \"_Calcanova\" SET Valore=? WHERE Nome=?"_s, {u"x;y"_s, Voce});
    Leggi();
    QTEST(Tabella().value(0), "Tabella1");
    QTEST(Tabella().value(1), "Tabella2");
    QCOMPARE(ApertoDi(Righe[0]), std::nullopt);
    QCOMPARE(SommaAperto(Note), (ApertoTutto{0, 0, 1, 0, {}}));
    QCOMPARE(FraseAperto(SommaAperto(Note)), u"Aperto non noto: 1 parcella senza importo"_s);
    QVERIFY(FrasiDocumenti(Righe[0]).join(u'\n').contains(u": importo non noto"_s));
    QVERIFY(PassaStato(FiltroStato::DaIncassare, Righe[0]));
    QCOMPARE(NoteDaIncassare(Note).size(), 1);
}

/// The credit note that is begun and not written has taken number and day out of the record; the invoice that
/// stands keeps them.

#include "TestStorniCopiati.moc"
