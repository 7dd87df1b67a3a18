#include "supporto/guasti.h"
#include "supporto/prova.h"

#include "core/sessione.h"
#include "platform/base/errore.h"
#include "tariffs/modTariffe.h"

using namespace Qt::StringLiterals;

class TestTariffe : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup();
    void trovaIlFileInOgniCaso();
    void autoritaInOrdine_data();
    void autoritaInOrdine();
    void autoritaSecondoLaColonnaDellOrdine();
    void autoritaConPrecarica();
    void autoritaSenzaRighe();
    void compatibili_data();
    void compatibili();
    void scaglioniPerMateria_data();
    void scaglioniPerMateria();
    void scaglioniNellOrdineDellaTabella();
    void scaglioniFinoAVentuno();
    void ilVentiduesimoScaglioneFallisce();
    void dirittiValoriConIlLoroIndice();
    void leMaiuscoleNonContano();
    void catalogoCivileHaSempreLaVoceLibera_data();
    void catalogoCivileHaSempreLaVoceLibera();
    void catalogoInOrdineDiVisualizzazione_data();
    void catalogoInOrdineDiVisualizzazione();
    void penaleESpeseSecondoLaColonnaDellOrdine();
    void ordineZeroNascondeDoveSiFiltra_data();
    void ordineZeroNascondeDoveSiFiltra();
    void categoriaSconosciutaHaLeSoleSpese();
    void criteri_data();
    void criteri();
    void ritrovaLaVoce_data();
    void ritrovaLaVoce();
    void importi();
    void importiPenaliPerUfficio();
    void formule();
    void fileInservibile_data();
    void fileInservibile();

private:
    [[nodiscard]] static Database CopiaScrivibile();
};
PROVA(TestTariffe);

namespace {

QStringList Colonna(Recordset Righe, const QString& Nome)
{
    QStringList Valori;
    for (Righe.MoveFirst(); !Righe.Eof(); Righe.MoveNext())
        Valori.append(Righe.Value(Nome).toString());
    return Valori;
}

/// The whole list; what stopped the reading is thrown.
template <class Riga>
QList<Riga> Intero(const Letti<Riga>& Elenco)
{
    if (Elenco.Guasto)
        throw *Elenco.Guasto;
    return Elenco.Voci;
}

QList<Autorita> Enti(const QString& Categ)
{
    return Intero(LeggiAutorita(Dm140, Categ));
}

QList<ScaglioneValore> Scaglioni(const QString& Categ)
{
    return Intero(LeggiScaglioni(Dm140, Categ));
}

}  // namespace

void TestTariffe::init()
{
    AzzeraSessione();
    sessione::PercorsoProg = ProgrammaDiProva();
}

void TestTariffe::cleanup()
{
    AzzeraSessione();
}

/// A copy of the delivered database that the session reads from now on.
Database TestTariffe::CopiaScrivibile()
{
    const QString Cartella = NuovaCartella();
    QFile::copy(PercorsoTariffe(Dm140), Cartella + u"parcelle.mdb"_s);
    sessione::PercorsoProg = Cartella;
    return OpenDatabase(Cartella + u"parcelle.mdb"_s);
}

void TestTariffe::trovaIlFileInOgniCaso()
{
    const QString Cartella = NuovaCartella();
    QVERIFY(QFile::copy(PercorsoTariffe(Dm140), Cartella + u"Parcelle.MDB"_s));
    sessione::PercorsoProg = Cartella;
    QCOMPARE(PercorsoTariffe(Dm140), Cartella + u"Parcelle.MDB"_s);
    QCOMPARE(Enti(u"STR"_s).size(), 3);
}

// ---- Authorities ---------------------------------------------------------------------------------

void TestTariffe::autoritaInOrdine_data()
{
    QTest::addColumn<QString>("Categ");
    QTest::addColumn<QList<int>>("Numeri");

    QTest::newRow("civile") << u"CIV"_s << QList<int>{1, 13, 2, 14, 15, 12, 3, 4, 5, 6, 7, 8, 9, 10, 11, 16};
    QTest::newRow("penale") << u"PEN"_s << QList<int>{21, 22, 23, 24, 25, 26, 27, 28, 29, 30};
    QTest::newRow("stragiudiziale") << u"STR"_s << QList<int>{41, 42, 43};
}

void TestTariffe::autoritaInOrdine()
{
    QFETCH(QString, Categ);
    QList<int> Numeri;
    for (const Autorita& Una : Enti(Categ))
        Numeri.append(Una.IDAut);
    QTEST(Numeri, "Numeri");
}

void TestTariffe::autoritaSecondoLaColonnaDellOrdine()
{
    CopiaScrivibile().Execute(u"UPDATE Autorità SET IDX=100-IDX"_s);
    QCOMPARE(Enti(u"STR"_s).first().IDAut, 43);
    QCOMPARE(Enti(u"STR"_s).last().IDAut, 41);
}

void TestTariffe::autoritaConPrecarica()
{
    const QList<Autorita> Civili = Enti(u"CIV"_s);
    QCOMPARE(Civili[0], (Autorita{1, u"Giudice di pace"_s, true}));
    QCOMPARE(Civili[1], (Autorita{13, u"Giudice di pace - ingiunzione e precetto"_s, false}));
}

void TestTariffe::autoritaSenzaRighe()
{
    QVERIFY(Enti(u"TAV"_s).isEmpty());
    QVERIFY(Enti(u"' OR '1'='1"_s).isEmpty());
}

void TestTariffe::compatibili_data()
{
    QTest::addColumn<int>("IDAut");
    QTest::addColumn<QString>("Categ");
    QTest::addColumn<bool>("Trovata");
    QTest::addColumn<QString>("Elenco");

    QTest::newRow("elenco chiuso fra virgole") << 13 << u"CIV"_s << true << u",13,14,"_s;
    QTest::newRow("tutte") << 23 << u"PEN"_s << true << u"*"_s;
    QTest::newRow("numero di un'altra categoria") << 23 << u"CIV"_s << false << QString();
    QTest::newRow("numero che non esiste") << 99 << u"CIV"_s << false << QString();
}

void TestTariffe::compatibili()
{
    QFETCH(int, IDAut);
    QFETCH(QString, Categ);
    const std::optional<QString> Letto = LeggiCompatib(Dm140, IDAut, Categ);
    QTEST(Letto.has_value(), "Trovata");
    QTEST(Letto.value_or(QString()), "Elenco");
}

// ---- Brackets ------------------------------------------------------------------------------------

void TestTariffe::scaglioniPerMateria_data()
{
    QTest::addColumn<QString>("Categ");
    QTest::addColumn<int>("Quanti");
    QTest::addColumn<bool>("PrimoRichiesto");

    QTest::newRow("civile") << u"CIV"_s << 8 << false;
    QTest::newRow("penale, gli stessi del civile") << u"PEN"_s << 8 << false;
    QTest::newRow("stragiudiziale") << u"STR"_s << 7 << true;
}

void TestTariffe::scaglioniPerMateria()
{
    QFETCH(QString, Categ);
    QFETCH(int, Quanti);
    const QList<ScaglioneValore> Letti = Scaglioni(Categ);
    QCOMPARE(Letti.size(), Quanti);
    QTEST(Letti[0].RicValore, "PrimoRichiesto");
    QCOMPARE(Letti[2].NumSca, 3);
    QCOMPARE(Letti[2].DaVal, 25000.01);
    QCOMPARE(Letti[2].AVal, 50000.0);
    QCOMPARE(Letti[2].DesVal, u"da € 25.000,01 a € 50.000,00"_s);
    QCOMPARE(Letti[6].RicValore, true);
    if (Quanti == 8) {
        QCOMPARE(Letti[7].NumSca, ScaglioneIndeterminato);
        QCOMPARE(Letti[7].DesVal.left(20), u"Valore Indeterminato"_s);
    }
}

void TestTariffe::scaglioniNellOrdineDellaTabella()
{
    const Database Base = CopiaScrivibile();
    Base.Execute(u"INSERT INTO Scaglioni (Materia, NumSca, DesVal) VALUES ('S', 0, 'in fondo')"_s);
    const QList<ScaglioneValore> Letti = Scaglioni(u"STR"_s);
    QCOMPARE(Letti.last(), (ScaglioneValore{u"in fondo"_s, 0, 0.0, 0.0, false}));
}

void TestTariffe::scaglioniFinoAVentuno()
{
    const Database Base = CopiaScrivibile();
    for (int n = 8; n <= MassimoScaglioni; ++n)
        Base.Execute(u"INSERT INTO Scaglioni (Materia, NumSca) VALUES ('S', ?)"_s, {n});
    QCOMPARE(Scaglioni(u"STR"_s).size(), 21);
}

void TestTariffe::ilVentiduesimoScaglioneFallisce()
{
    const Database Base = CopiaScrivibile();
    for (int n = 8; n <= MassimoScaglioni + 1; ++n)
        Base.Execute(u"INSERT INTO Scaglioni (Materia, NumSca) VALUES ('S', ?)"_s, {n});
    const Letti<ScaglioneValore> Elenco = LeggiScaglioni(Dm140, u"STR"_s);
    QCOMPARE(Elenco.Guasto->Numero, 9);
    QCOMPARE(Elenco.Voci.size(), 21);  // what was read stands
    QCOMPARE(Elenco.Voci.last().NumSca, 21);
}

void TestTariffe::dirittiValoriConIlLoroIndice()
{
    CopiaScrivibile().Execute(
        u"INSERT INTO DirittiValori (CodDir, NumSca, Valore) VALUES (7, 1, 5), (3, 1, 4)"_s);
    Recordset Valori = ApriDirittiValori(Dm140);
    QCOMPARE(Valori.Value(u"CodDir"_s).toInt(), 3);
    Valori.Seek(u"="_s, 7);
    QVERIFY(!Valori.NoMatch());
    QCOMPARE(Valori.Value(u"Valore"_s).toDouble(), 5.0);
}

void TestTariffe::leMaiuscoleNonContano()
{
    const Database Base = CopiaScrivibile();
    Base.Execute(u"UPDATE Autorità SET TipoAut='str' WHERE TipoAut='STR'"_s);
    Base.Execute(u"UPDATE Scaglioni SET Materia='s' WHERE Materia='S'"_s);
    Base.Execute(u"UPDATE ChiaviPrecedenti SET Categoria='str' WHERE Categoria='STR'"_s);
    QCOMPARE(Enti(u"STR"_s).size(), 3);
    QVERIFY(LeggiCompatib(Dm140, 41, u"STR"_s));
    QCOMPARE(Scaglioni(u"STR"_s).size(), 7);
    QCOMPARE(LeggiChiaviPrecedenti(Dm140, u"STR"_s).size(), 19);
}

// ---- Catalogues ----------------------------------------------------------------------------------

void TestTariffe::catalogoCivileHaSempreLaVoceLibera_data()
{
    QTest::addColumn<int>("IDAut");
    for (int IDAut = 1; IDAut <= 16; ++IDAut)
        QTest::addRow("autorità %d", IDAut) << IDAut;
    QTest::newRow("autorità senza righe") << 77;
}

void TestTariffe::catalogoCivileHaSempreLaVoceLibera()
{
    QFETCH(int, IDAut);
    const Recordset Voci = ApriCatalogo(Dm140, u"CIV"_s, IDAut).datOno;
    const QStringList Numeri = Colonna(Voci, u"NVoce"_s);
    QCOMPARE(Numeri.count(u"999"_s), 1);
    QCOMPARE(Numeri.last(), u"999"_s);
    for (const QString& Altra : Colonna(Voci, u"IDAutor"_s).mid(0, Numeri.size() - 1))
        QCOMPARE(Altra.toInt(), IDAut);
    QCOMPARE(Numeri.size() > 1, IDAut != 77);
}

void TestTariffe::catalogoInOrdineDiVisualizzazione_data()
{
    QTest::addColumn<QString>("Categ");
    QTest::addColumn<int>("IDAut");
    QTest::addColumn<QString>("Chiave");
    QTest::addColumn<QString>("Codici");

    QTest::newRow("tribunale") << u"CIV"_s << 2 << u"CodOno"_s << u"1 2 3 4 999"_s;
    QTest::newRow("cassazione, senza istruttoria") << u"CIV"_s << 8 << u"CodOno"_s << u"1 2 4 999"_s;
    QTest::newRow("ingiunzione e precetto") << u"CIV"_s << 14 << u"CodOno"_s << u"19 20 999"_s;
    QTest::newRow("penale") << u"PEN"_s << 23 << u"IDOno"_s << u"101 102 103 104 105 999"_s;
    QTest::newRow("stragiudiziale")
        << u"STR"_s << 41 << u"IDOno"_s
        << u"201 202 203 204 205 206 207 208 209 210 211 212 213 214 215 216 217 218 219 "
           u"999"_s;
}

void TestTariffe::catalogoInOrdineDiVisualizzazione()
{
    QFETCH(QString, Categ);
    QFETCH(int, IDAut);
    const Catalogo Aperto = ApriCatalogo(Dm140, Categ, IDAut);
    QTEST(Aperto.ChiaveOno, "Chiave");
    QTEST(Colonna(Aperto.datOno, Aperto.ChiaveOno).join(u' '), "Codici");
    QCOMPARE(Aperto.datDir.RecordCount(), 40);
}

// The delivered rows lie in order already: turned round, only the column can bring them out so.
void TestTariffe::penaleESpeseSecondoLaColonnaDellOrdine()
{
    const Database Base = CopiaScrivibile();
    Base.Execute(u"UPDATE OnorariPen SET NVis=1000-NVis"_s);
    Base.Execute(u"UPDATE Diritti SET NVis=1000-NVis"_s);
    const Catalogo Aperto = ApriCatalogo(Dm140, u"PEN"_s, 23);
    QCOMPARE(Colonna(Aperto.datOno, u"IDOno"_s).join(u' '), u"999 105 104 103 102 101"_s);
    QCOMPARE(Colonna(Aperto.datDir, u"IDDir"_s).first(), u"40"_s);
}

void TestTariffe::ordineZeroNascondeDoveSiFiltra_data()
{
    QTest::addColumn<QString>("Modifica");
    QTest::addColumn<QString>("Categ");
    QTest::addColumn<bool>("Spese");
    QTest::addColumn<QString>("Codice");
    QTest::addColumn<bool>("SiVede");

    QTest::newRow("civile") << u"UPDATE OnorariCiv SET NVis=0 WHERE IDAutor=2 AND CodOno='4'"_s << u"CIV"_s
                            << false << u"4"_s << true;
    QTest::newRow("penale") << u"UPDATE OnorariPen SET NVis=0 WHERE IDOno=104"_s << u"PEN"_s << false
                            << u"104"_s << false;
    QTest::newRow("stragiudiziale") << u"UPDATE OnorariStra SET NVis=0 WHERE IDOno=204"_s << u"STR"_s << false
                                    << u"204"_s << true;
    QTest::newRow("spese") << u"UPDATE Diritti SET NVis=0 WHERE IDDir=4"_s << u"CIV"_s << true << u"4"_s
                           << false;
}

void TestTariffe::ordineZeroNascondeDoveSiFiltra()
{
    QFETCH(QString, Modifica);
    QFETCH(QString, Categ);
    QFETCH(bool, Spese);
    QFETCH(QString, Codice);
    QFETCH(bool, SiVede);
    QCOMPARE(CopiaScrivibile().Execute(Modifica), 1);
    const Catalogo Aperto = ApriCatalogo(Dm140, Categ, 2);
    const QStringList Codici =
        Spese ? Colonna(Aperto.datDir, u"IDDir"_s) : Colonna(Aperto.datOno, Aperto.ChiaveOno);
    QCOMPARE(Codici.contains(Codice), SiVede);
    if (SiVede)
        QCOMPARE(Codici.first(), Codice);
}

void TestTariffe::categoriaSconosciutaHaLeSoleSpese()
{
    const Catalogo Aperto = ApriCatalogo(Dm140, QString(), 2);
    QVERIFY(!Aperto.datOno.Aperto());
    QCOMPARE(Aperto.datDir.RecordCount(), 40);
}

// ---- Items ---------------------------------------------------------------------------------------

void TestTariffe::criteri_data()
{
    QTest::addColumn<QString>("Categ");
    QTest::addColumn<QVariant>("Codice");
    QTest::addColumn<QString>("Criterio");

    QTest::newRow("civile, testo") << u"CIV"_s << QVariant(u"5"_s) << u"CodOno=5 and IDAutor=15"_s;
    QTest::newRow("civile, numero") << u"CIV"_s << QVariant(5) << u"CodOno=5 and IDAutor=15"_s;
    QTest::newRow("penale") << u"PEN"_s << QVariant(5.0) << u"IDOno=5"_s;
    QTest::newRow("stragiudiziale") << u"STR"_s << QVariant(u"12"_s) << u"IDOno=12"_s;
    QTest::newRow("codice di lettere") << u"PEN"_s << QVariant(u"A1"_s) << u"IDOno='A1'"_s;
    QTest::newRow("importo incollato") << u"PEN"_s << QVariant(u"1.200,50"_s) << u"IDOno='1.200,50'"_s;
    QTest::newRow("apostrofo raddoppiato") << u"PEN"_s << QVariant(u"d'ufficio"_s) << u"IDOno='d''ufficio'"_s;
    QTest::newRow("vuoto") << u"PEN"_s << QVariant() << u"IDOno=''"_s;
    QTest::newRow("a capo in fondo") << u"PEN"_s << QVariant(u"5\n"_s) << u"IDOno='5\n'"_s;
}

void TestTariffe::criteri()
{
    QFETCH(QString, Categ);
    QFETCH(QVariant, Codice);
    QTEST(CriterioVoce(Categ, Categ == u"CIV" ? u"CodOno"_s : u"IDOno"_s, Codice, 15), "Criterio");
}

void TestTariffe::ritrovaLaVoce_data()
{
    QTest::addColumn<QString>("Categ");
    QTest::addColumn<int>("IDAut");
    QTest::addColumn<QVariant>("Codice");
    QTest::addColumn<QString>("Descrizione");

    QTest::newRow("codice di testo trovato come numero")
        << u"CIV"_s << 15 << QVariant(5) << u"Fase esecutiva mobiliare"_s;
    QTest::newRow("codice con lo zero davanti")
        << u"CIV"_s << 15 << QVariant(u"05"_s) << u"Fase esecutiva mobiliare"_s;
    QTest::newRow("prestazione che l'ufficio non ha") << u"CIV"_s << 8 << QVariant(3) << QString();
    QTest::newRow("voce libera: sta sotto nessun ufficio") << u"CIV"_s << 8 << QVariant(999) << QString();
    QTest::newRow("penale") << u"PEN"_s << 23 << QVariant(u"104"_s) << u"Fase decisoria"_s;
    QTest::newRow("codice di lettere") << u"PEN"_s << 23 << QVariant(u"A1"_s) << QString();
}

void TestTariffe::ritrovaLaVoce()
{
    QFETCH(QString, Categ);
    QFETCH(int, IDAut);
    QFETCH(QVariant, Codice);
    QFETCH(QString, Descrizione);
    Catalogo Aperto = ApriCatalogo(Dm140, Categ, IDAut);
    Aperto.datOno.FindFirst(CriterioVoce(Categ, Aperto.ChiaveOno, Codice, IDAut));
    QCOMPARE(Aperto.datOno.NoMatch(), Descrizione.isEmpty());
    if (!Descrizione.isEmpty())
        QCOMPARE(Aperto.datOno.Value(u"DescrOno"_s).toString(), Descrizione);
}

void TestTariffe::importi()
{
    CopiaScrivibile().Execute(u"UPDATE OnorariCiv SET \"4Max\"=NULL WHERE IDAutor=2 AND CodOno='1'"_s);
    const Recordset Studio = ApriCatalogo(Dm140, u"CIV"_s, 2).datOno;
    QCOMPARE(ImportoCatalogo(Studio, 3, u"Med"_s), 1200.0);
    QCOMPARE(ImportoCatalogo(Studio, 3, u"Min"_s), 600.0);
    QCOMPARE(ImportoCatalogo(Studio, 3, u"Max"_s), 1920.0);
    QCOMPARE(ImportoCatalogo(Studio, 4, u"Max"_s), 0.0);
    QCOMPARE(NumeroErrore([&] { (void)ImportoCatalogo(Studio, 11, u"Med"_s); }), 3265);
}

void TestTariffe::importiPenaliPerUfficio()
{
    const Recordset Studio = ApriCatalogo(Dm140, u"PEN"_s, 23).datOno;
    QCOMPARE(ImportoCatalogo(Studio, 23, u"Med"_s), 300.0);
    QCOMPARE(ImportoCatalogo(Studio, 29, u"Max"_s), 3120.0);
    QCOMPARE(NumeroErrore([&] { (void)ImportoCatalogo(Studio, 3, u"Med"_s); }), 3265);
}

void TestTariffe::formule()
{
    Recordset Voci = ApriCatalogo(Dm140, u"STR"_s, 41).datOno;
    Voci.FindFirst(u"IDOno=206"_s);
    QCOMPARE(FormulaCatalogo(Voci, 2, u"Max"_s), u"550+(x-5000)*0.06"_s);
    Voci.MoveLast();
    QCOMPARE(Voci.Value(u"NVoce"_s).toString(), u"999"_s);
    QCOMPARE(FormulaCatalogo(Voci, 2, u"Max"_s), QString());
    QCOMPARE(NumeroErrore([&] { (void)FormulaCatalogo(Voci, 8, u"Min"_s); }), 3265);
}

// ---- Files that do not serve ---------------------------------------------------------------------

void TestTariffe::fileInservibile_data()
{
    QTest::addColumn<QString>("Che");
    QTest::addColumn<int>("Numero");

    QTest::newRow("mancante") << u"mancante"_s << 3024;
    QTest::newRow("vuoto") << u"vuoto"_s << 3343;
    QTest::newRow("di testo") << u"testo"_s << 3343;
    QTest::newRow("base senza le tabelle") << u"base"_s << 3078;
}

void TestTariffe::fileInservibile()
{
    QFETCH(QString, Che);
    QFETCH(int, Numero);
    sessione::PercorsoProg = NuovaCartella();
    const QString Percorso = PercorsoTariffe(Dm140);
    if (Che == u"base") {
        (void)CreateDatabase(Percorso);
    } else if (Che != u"mancante") {
        QFile File(Percorso);
        QVERIFY(File.open(QIODevice::WriteOnly));
        File.write(Che == u"vuoto" ? QByteArray() : QByteArray(5000, 'a'));
    }
    QCOMPARE(NumeroErrore([] { (void)Enti(u"CIV"_s); }), Numero);
    QCOMPARE(NumeroErrore([] { (void)LeggiCompatib(Dm140, 1, u"CIV"_s); }), Numero);
    QCOMPARE(NumeroErrore([] { (void)Scaglioni(u"CIV"_s); }), Numero);
    QCOMPARE(NumeroErrore([] { (void)ApriCatalogo(Dm140, u"CIV"_s, 2); }), Numero);
}

#include "TestTariffe.moc"
