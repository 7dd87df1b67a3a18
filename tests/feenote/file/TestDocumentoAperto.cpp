// Opening a fee-note file: parties, reference, password, files of earlier editions, templates.
#include "file_prova.h"

#include "platform/system/file.h"

using namespace Qt::StringLiterals;

namespace {

const QString AvvisoProtetta = u"Attenzione, la parcella è protetta! Le modifiche potranno essere salvate\n"
                               "solo dopo aver specificato la chiave di protezione."_s;

}  // namespace

class TestDocumentoAperto : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void cliente();
    void clienteAssente();
    void controparte();
    void riferimento();
    void riferimentoVuoto_data();
    void riferimentoVuoto();
    void password();
    void passwordCheNonSiDecodifica();
    void passwordCodificata_data();
    void passwordCodificata();
    void passwordDecodificata_data();
    void passwordDecodificata();
    void tipoApplicatoPerUltimo();
    void vecchioSenzaSpeseGen();
    void vecchioSenzaRiferimento();
    void vecchioSenzaColonneDiStampa();
    void modelloTieneLAttributo();
    void modelloVecchioTieneLAttributo();
    void ricaricaDaSeStessa();
    void tariffeSenzaSpeseGen();
};
PROVA(TestDocumentoAperto);

void TestDocumentoAperto::cliente()
{
    const Studio Ufficio;
    Registratore Messaggi;
    Parcella Nota;
    NuovaParcella(Nota);
    Nota.IDCli = Ufficio.AggiungiCliente(u"Rossi Mario Maria"_s);
    Nota.txtCliente.Testo = u"Rossi"_s;
    Parcella Letta = Riletta(Ufficio, Nota);
    QCOMPARE(Letta.txtCliente.Testo, u"Rossi Mario Maria"_s);  // the archive's present name
    QCOMPARE(Letta.txtDatiStaCli.Testo, u"Rossi Mario Maria"_s);

    OpenDatabase(sessione::ArchivioCliCon).Execute(u"UPDATE clienti SET Nominativo=NULL"_s);
    CaricaDati(Letta, Ufficio.File(u"nota.mdb"_s));
    QCOMPARE(Letta.txtCliente.Testo, u"Rossi"_s);  // no name there: the stored one fills the box
}

void TestDocumentoAperto::clienteAssente()
{
    const Studio Ufficio;
    Registratore Messaggi;
    Parcella Nota;
    NuovaParcella(Nota);
    Nota.IDCli = 77;
    Nota.IDCon = 88;
    Nota.txtCliente.Testo = u"Rossi"_s;
    Messaggi.Attendi(u"Il cliente associato alla parcella non è stato trovato!"_s, vbOK, u"Errore:"_s);
    Messaggi.Attendi(u"La controparte associata alla parcella non è stata trovata!"_s, vbOK, u"Errore:"_s);
    const Parcella Letta = Riletta(Ufficio, Nota);
    QCOMPARE(Letta.IDCli, 77);
    QCOMPARE(Letta.IDCon, 88);
    QCOMPARE(Letta.txtCliente.Testo, u"Rossi"_s);
    QCOMPARE(Letta.txtControp.Testo, QString());
}

void TestDocumentoAperto::controparte()
{
    const Studio Ufficio;
    Registratore Messaggi;
    Parcella Nota;
    NuovaParcella(Nota);
    Nota.IDCon = Ufficio.AggiungiControparte(u"Bianchi Srl"_s, u"BIANCHI S.R.L."_s);
    QCOMPARE(Riletta(Ufficio, Nota).txtControp.Testo, u"BIANCHI S.R.L."_s);
}

void TestDocumentoAperto::riferimento()
{
    const Studio Ufficio;
    Registratore Messaggi;
    Parcella Nota;
    NuovaParcella(Nota);
    sessione::RichiestaPV2.ID = u"2024/7"_s;
    const QString File = Ufficio.File(u"nota.mdb"_s);
    ScriviNota(File, Nota);
    QCOMPARE(Parametro(File, u"NsRif"_s).toString(), u"2024/7"_s);
    // Reading alone leaves the session as it is.
    sessione::RichiestaPV2 = {};
    CaricaDati(Nota, File);
    QCOMPARE(Nota.NsRif, u"2024/7"_s);
    QCOMPARE(sessione::RichiestaPV2.ID, QString());
}

void TestDocumentoAperto::riferimentoVuoto_data()
{
    QTest::addColumn<QVariant>("NsRif");
    QTest::newRow("Null") << QVariant();
    QTest::newRow("vuoto") << QVariant(QString());
    QTest::newRow("spazi") << QVariant(u"  "_s);
    QTest::newRow("zero") << QVariant(u"0"_s);
}

void TestDocumentoAperto::riferimentoVuoto()
{
    QFETCH(QVariant, NsRif);
    const Studio Ufficio;
    Registratore Messaggi;
    Parcella Nota;
    NuovaParcella(Nota);
    const QString File = Ufficio.File(u"nota.mdb"_s);
    ScriviNota(File, Nota);
    EseguiSu(File, u"UPDATE ParcellaParam SET NsRif=?"_s, {NsRif});
    CaricaDati(Nota, File);
    QCOMPARE(Nota.NsRif, QString());
}

void TestDocumentoAperto::password()
{
    const Studio Ufficio;
    Registratore Messaggi;
    Parcella Nota = NotaPiena();
    Nota.Psw = u"->>aB1"_s;
    const QString File = Ufficio.File(u"nota.mdb"_s);
    ScriviNota(File, Nota);
    QCOMPARE(Parametro(File, u"Psw"_s).toString(), u"097066049"_s);
    QCOMPARE(LeggiPsw(File), u"aB1"_s);

    Parcella Letta;
    Messaggi.Attendi(AvvisoProtetta, vbOK, u"Messaggio:"_s);
    CaricaDati(Letta, File);
    QCOMPARE(Messaggi.Ultimo().Bandiere, vbInformation);
    QCOMPARE(Letta.Psw, u"aB1"_s);
    QCOMPARE(Letta.xOnorari.Righe(), 4);  // all of it is there

    // The password goes with every further save, under another name too.
    const QString Copia = Ufficio.File(u"copia.mdb"_s);
    ScriviNota(Copia, Letta);
    QCOMPARE(LeggiPsw(Copia), u"aB1"_s);

    NuovaParcella(Nota);
    ScriviNota(File, Nota);
    QCOMPARE(LeggiPsw(File), QString());
}

// Somebody else's hand: it opens with the padlock, and every further save keeps it.
void TestDocumentoAperto::passwordCheNonSiDecodifica()
{
    const Studio Ufficio;
    Registratore Messaggi;
    const QString File = Ufficio.File(u"nota.mdb"_s);
    ScriviNota(File, NotaPiena());
    EseguiSu(File, u"UPDATE ParcellaParam SET Psw='abc'"_s);
    Parcella Letta;
    Messaggi.Attendi(AvvisoProtetta, vbOK, u"Messaggio:"_s);
    CaricaDati(Letta, File);
    QCOMPARE(Letta.Psw, u"abc"_s);
    for (const QString& Dove : {File, Ufficio.File(u"copia.mdb"_s)}) {
        ScriviNota(Dove, Letta);
        QCOMPARE(LeggiPsw(Dove), u"abc"_s);
    }
}

void TestDocumentoAperto::passwordCodificata_data()
{
    QTest::addColumn<QString>("Psw");
    QTest::addColumn<QString>("Cifre");
    QTest::newRow("vuota") << QString() << QString();
    QTest::newRow("una lettera") << u"A"_s << u"065"_s;
    QTest::newRow("sei caratteri") << u"abcXYZ"_s << u"097098099088089090"_s;
    QTest::newRow("il settimo non conta") << u"abcXYZ7"_s << u"097098099088089090"_s;
    QTest::newRow("accento ed euro") << u"è€"_s << u"232128"_s;
    QTest::newRow("fuori dalla tabella") << u"aЖb"_s << u"097063098"_s;
}

void TestDocumentoAperto::passwordCodificata()
{
    QFETCH(QString, Psw);
    QTEST(CodificaPsw(Psw), "Cifre");
}

void TestDocumentoAperto::passwordDecodificata_data()
{
    QTest::addColumn<QString>("Cifre");
    QTest::addColumn<QString>("Psw");
    QTest::newRow("andata e ritorno") << u"232128097"_s << u"è€a"_s;
    QTest::newRow("pezzo monco in fondo") << u"09709"_s << u"a"_s;
    QTest::newRow("lettere") << u"097x98"_s << u"a"_s;
    QTest::newRow("segni e spazi non sono cifre") << u"097+98 98"_s << u"a"_s;
    QTest::newRow("oltre 255") << u"097256098"_s << u"a"_s;
    QTest::newRow("troppo lunga") << QString(u"097"_s).repeated(50) << u"aaaaaa"_s;
}

void TestDocumentoAperto::passwordDecodificata()
{
    QFETCH(QString, Cifre);
    QTEST(DecodificaPsw(Cifre), "Psw");
}

void TestDocumentoAperto::tipoApplicatoPerUltimo()
{
    const Studio Ufficio;
    Registratore Messaggi;
    Parcella Nota = NotaPiena();
    ScegliTipoStampa(Nota, StampaFatturaSintetica);
    const QString File = Ufficio.File(u"nota.mdb"_s);
    ScriviNota(File, Nota);
    EseguiSu(File, u"UPDATE ParcellaParam SET VisMinMax=1"_s);
    Parcella Letta;
    CaricaDati(Letta, File);
    QCOMPARE(Letta.cmbTipoStampa, int(StampaFatturaSintetica));
    QVERIFY(!Letta.chkMinMax.Attiva && Letta.chkAcconti.Attiva);
    ScegliTipoStampa(Letta, StampaPrenotula);
    QVERIFY(Letta.chkMinMax.Attiva && !Letta.chkAcconti.Attiva);  // what the file said was remembered first

    EseguiSu(File, u"UPDATE ParcellaParam SET TipoStampa=4"_s);
    CaricaDati(Letta, File);
    QVERIFY(!Letta.chkIva.Attiva && !Letta.chkRA.Abilitata);
    ScegliTipoStampa(Letta, StampaPrenotula);
    QCOMPARE(Letta.txtIVA.Testo + u' ' + Letta.txtSpeGen.Testo, u"21 12,5"_s);
}

void TestDocumentoAperto::vecchioSenzaSpeseGen()
{
    const Studio Ufficio;
    Registratore Messaggi;
    const QString File = Ufficio.File(u"nota.mdb"_s);
    ScriviNota(File, NotaPiena());
    EseguiSu(File, u"ALTER TABLE ParcellaParam DROP COLUMN SpeseGen"_s);
    QVERIFY(!EsisteCampo(File, u"ParcellaParam"_s, u"SpeseGen"_s));
    Parcella Letta;
    CaricaDati(Letta, File);
    QVERIFY(EsisteCampo(File, u"ParcellaParam"_s, u"SpeseGen"_s));
    QVERIFY(!Parametro(File, u"SpeseGen"_s).isValid());
    QVERIFY(!Letta.chkSpeseGen.Attiva);
    QCOMPARE(Letta.txtSpeGen.Testo, QString());
    QVERIFY(Letta.chkIva.Attiva);
    QCOMPARE(Letta.xOnorari.Righe(), 4);
}

void TestDocumentoAperto::vecchioSenzaRiferimento()
{
    const Studio Ufficio;
    Registratore Messaggi;
    const QString File = Ufficio.File(u"nota.mdb"_s);
    ScriviNota(File, NotaPiena());
    EseguiSu(File, u"ALTER TABLE ParcellaParam DROP COLUMN NsRif"_s);
    Parcella Letta;
    CaricaDati(Letta, File);
    QCOMPARE(Letta.NsRif, QString());
    QVERIFY(!EsisteCampo(File, u"ParcellaParam"_s, u"NsRif"_s));  // only the general expenses are added
}

void TestDocumentoAperto::vecchioSenzaColonneDiStampa()
{
    const Studio Ufficio;
    Registratore Messaggi;
    const QString File = Ufficio.File(u"nota.mdb"_s);
    ScriviNota(File, NotaPiena());
    for (const QString& Colonna : {u"TipoStampa"_s, u"Testo1"_s, u"VisMinMax"_s, u"IVA"_s, u"RA"_s,
                                   u"Oggetto"_s, u"Cliente"_s, u"DataFatt"_s, u"NumFatt"_s, u"DepGiud"_s})
        EseguiSu(File, u"ALTER TABLE ParcellaParam DROP COLUMN "_s + Colonna);
    Parcella Letta;
    CaricaDati(Letta, File);
    // What is missing stays as a new note has it; all the rest is read.
    QCOMPARE(Letta.cmbTipoStampa, NessunaVoce);
    QVERIFY(!Letta.chkMinMax.Attiva);
    QVERIFY(Letta.chkIva.Attiva && !Letta.chkRA.Attiva);
    QCOMPARE(Letta.txtIVA.Testo, u"21"_s);
    QCOMPARE(Letta.txtOggetto.Testo + Letta.txtCliente.Testo, QString());
    QCOMPARE(Letta.txtControp.Testo, u"Bianchi Srl"_s);
    QCOMPARE(Letta.DatiPar(DatoTestoInferiore), u"sotto"_s);
    QCOMPARE(Letta.DatiPar(DatoDepRuolo), u"77/2024"_s);
    QVERIFY(Letta.chkSpeseGen.Attiva);
}

void TestDocumentoAperto::modelloTieneLAttributo()
{
    const Studio Ufficio;
    Registratore Messaggi;
    const QString File = Ufficio.File(u"modello.mdb"_s);
    ScriviNota(File, NotaPiena(), true);
    QVERIFY(SolaLettura(File));
    Parcella Letta;
    CaricaDati(Letta, File);
    QVERIFY(SolaLettura(File));
    QCOMPARE(Letta.xOnorari.Righe(), 4);
}

void TestDocumentoAperto::modelloVecchioTieneLAttributo()
{
    const Studio Ufficio;
    Registratore Messaggi;
    const QString File = Ufficio.File(u"modello.mdb"_s);
    ScriviNota(File, NotaPiena());
    EseguiSu(File, u"ALTER TABLE ParcellaParam DROP COLUMN SpeseGen"_s);
    ImpostaSolaLettura(File, true);
    Parcella Letta;
    CaricaDati(Letta, File);
    QVERIFY(EsisteCampo(File, u"ParcellaParam"_s, u"SpeseGen"_s));
    QVERIFY(SolaLettura(File));
}

void TestDocumentoAperto::ricaricaDaSeStessa()
{
    const Studio Ufficio;
    Registratore Messaggi;
    Parcella Letta = Riletta(Ufficio, NotaPiena());
    CaricaDati(Letta, Letta.Percorso);
    QCOMPARE(Letta.Percorso, Ufficio.File(u"nota.mdb"_s));
    QCOMPARE(Letta.xOnorari.Righe(), 4);  // and not eight
}

void TestDocumentoAperto::tariffeSenzaSpeseGen()
{
    const Studio Ufficio;
    Registratore Messaggi;
    Ufficio.TariffeProprie().Execute(u"ALTER TABLE ParcellaParam DROP COLUMN SpeseGen"_s);
    Parcella Nota = NotaPiena();
    const Parcella Letta = Riletta(Ufficio, Nota);
    QVERIFY(EsisteCampo(Ufficio.File(u"parcelle.mdb"_s), u"ParcellaParam"_s, u"SpeseGen"_s));
    QCOMPARE(Letta.txtSpeGen.Testo, u"12,5"_s);
}

#include "TestDocumentoAperto.moc"
