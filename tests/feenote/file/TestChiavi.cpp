// Lines saved when the catalogues of two categories had keys in common.
#include "file_prova.h"

using namespace Qt::StringLiterals;

class TestChiavi : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void disgiunte();
    void tradotte_data();
    void tradotte();
    void ricalcolanoComeLaVoce();
    void senzaTabellaRestano();
    void chiaveAncoraPresenteResta();
    void fileDOggiNonSiTraduce();

private:
    /// A note of earlier times with one line, and the key that the line has once it is read.
    static QString ChiaveLetta(const Studio& Ufficio, const Parcella& Nota, const QString& Chiave)
    {
        const QString File = Ufficio.File(u"nota.mdb"_s);
        ScriviNota(File, Nota);
        EseguiSu(File, u"DROP TABLE \"_Calcanova\""_s);
        EseguiSu(File, u"UPDATE ParcellaRighe SET CodOnoDir=?"_s, {Chiave});
        Parcella Letta;
        CaricaDati(Letta, File);
        return Letta.xOnorari(0, OnoCodVoce).toString();
    }
};
PROVA(TestChiavi);

void TestChiavi::disgiunte()
{
    const Studio Ufficio;
    const Database Tariffe = ApriTariffe(Dm140);
    QMap<QString, QSet<QString>> Categorie;
    for (const auto& [Tabella, Colonna] :
         {std::pair{u"OnorariCiv"_s, u"CodOno"_s}, std::pair{u"OnorariPen"_s, u"IDOno"_s},
          std::pair{u"OnorariStra"_s, u"IDOno"_s}}) {
        Recordset Righe = Tariffe.OpenRecordset(Tabella);
        for (; !Righe.Eof(); Righe.MoveNext()) {
            if (Righe.Value(u"NVoce"_s).toString() != u"999")
                Categorie[Righe.Value(Colonna).toString()].insert(Tabella);
        }
    }
    QCOMPARE(Categorie.size(), 11 + 5 + 19);
    for (auto Chiave = Categorie.begin(); Chiave != Categorie.end(); ++Chiave)
        QVERIFY2(Chiave->size() == 1, qPrintable(Chiave.key()));
}

void TestChiavi::tradotte_data()
{
    QTest::addColumn<int>("Categoria");
    QTest::addColumn<QString>("Prima");
    QTest::addColumn<QString>("Dopo");
    QTest::newRow("civile, come sta") << int(CategCivile) << u"3"_s << u"3"_s;
    QTest::newRow("penale, prima") << int(CategPenale) << u"1"_s << u"101"_s;
    QTest::newRow("penale, ultima") << int(CategPenale) << u"5"_s << u"105"_s;
    QTest::newRow("penale, di nessuna voce") << int(CategPenale) << u"6"_s << u"6"_s;
    QTest::newRow("stragiudiziale, prima") << int(CategStragiudiziale) << u"1"_s << u"201"_s;
    QTest::newRow("stragiudiziale, ultima") << int(CategStragiudiziale) << u"19"_s << u"219"_s;
    QTest::newRow("voce libera") << int(CategPenale) << u"999"_s << u"999"_s;
    QTest::newRow("già nuova") << int(CategPenale) << u"103"_s << u"103"_s;
    QTest::newRow("nessuna") << int(CategPenale) << QString() << QString();
}

void TestChiavi::tradotte()
{
    QFETCH(int, Categoria);
    QFETCH(QString, Prima);
    const Studio Ufficio;
    Registratore Messaggi;
    Parcella Nota = Categoria == CategCivile   ? NotaCivile()
                    : Categoria == CategPenale ? NotaPenale()
                                               : NotaStragiudiziale();
    RigaOnorario(Nota, u"una"_s, 100);
    QTEST(ChiaveLetta(Ufficio, Nota, Prima), "Dopo");
}

void TestChiavi::ricalcolanoComeLaVoce()
{
    const Studio Ufficio;
    Registratore Messaggi;
    Parcella Nota = NotaPenale();
    RigaOnorario(Nota, u"Fase decisoria"_s, 1);
    QCOMPARE(ChiaveLetta(Ufficio, Nota, u"4"_s), u"104"_s);
    Parcella Letta;
    CaricaDati(Letta, Ufficio.File(u"nota.mdb"_s));
    Letta.RicalcoloNecessario = true;
    Catalogo Voci;
    LoadOnoDir(Letta, Voci);
    QCOMPARE(Importi(Letta, 0), QList<double>({900, 900, 270, 1350}));
}

void TestChiavi::senzaTabellaRestano()
{
    const Studio Ufficio;
    Registratore Messaggi;
    Ufficio.TariffeProprie().Execute(u"DROP TABLE ChiaviPrecedenti"_s);
    Parcella Nota = NotaPenale();
    RigaOnorario(Nota, u"una"_s, 100);
    QCOMPARE(ChiaveLetta(Ufficio, Nota, u"4"_s), u"4"_s);
}

void TestChiavi::chiaveAncoraPresenteResta()
{
    const Studio Ufficio;
    Registratore Messaggi;
    Ufficio.TariffeProprie().Execute(u"UPDATE OnorariPen SET IDOno=4 WHERE IDOno=104"_s);
    Parcella Nota = NotaPenale();
    RigaOnorario(Nota, u"una"_s, 100);
    QCOMPARE(ChiaveLetta(Ufficio, Nota, u"4"_s), u"4"_s);
}

// A civil line left in a criminal note is told apart from an old criminal one: the file says whose keys it
// has.
void TestChiavi::fileDOggiNonSiTraduce()
{
    const Studio Ufficio;
    Registratore Messaggi;
    Parcella Nota = NotaPenale();
    RigaOnorario(Nota, u"Fase decisoria civile"_s, 1500, 4, 4);
    QCOMPARE(Riletta(Ufficio, Nota).xOnorari(0, OnoCodVoce).toString(), u"4"_s);
}

#include "TestChiavi.moc"
