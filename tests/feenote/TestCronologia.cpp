// Steps back and again over the record: what makes one, what it is called, what it leaves alone.
#include "supporto/prova.h"

#include "feenote/modAcconti.h"
#include "feenote/modCronologia.h"
#include "feenote/modDatiStampa.h"
#include "feenote/modOnorari.h"
#include "feenote/modParametri.h"
#include "feenote/modParti.h"
#include "feenote/nota_prova.h"

using namespace Qt::StringLiterals;

class TestCronologia : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup() { Ufficio.reset(); }
    void nomi_data();
    void nomi();
    void ilNomeDatoAlPasso();
    void avantiEIndietro();
    void unaModificaToglieIlRitorno();
    void leLettereSonoUnPasso();
    void leLettereTolteNonSonoUnPasso();
    void cinquantaPassi();
    void ilFileNonSiTocca();
    void ilSegnoDiModifica();
    void unAltroDocumentoNonLascia_data();
    void unAltroDocumentoNonLascia();
    void unAltroNomeNonLascia();
    void lAssociazioneNonLascia();
    void cambiataDaSolaNonHaPassi();
    void lettereDiverseSonoPassiDiversi();
    void leRigheRimesse();
    void ilDocumentoInVistaNonHaPassi();

private:
    void Fai(const std::function<void(Parcella&)>& Cosa)
    {
        Cosa(Nota);
        Storia.Segna(Nota);
    }

    std::unique_ptr<Studio> Ufficio;
    Parcella Nota;
    Cronologia Storia;
};
PROVA(TestCronologia);

void TestCronologia::init()
{
    Ufficio = std::make_unique<Studio>();
    Nota = NotaCivile();
    SetModificata(Nota, false);
    Storia = {};
    Storia.Comincia(Nota, true);
}

void TestCronologia::nomi_data()
{
    QTest::addColumn<std::function<void(Parcella&)>>("Cosa");
    QTest::addColumn<QString>("Nome");
    const auto Riga = [](const char* Che, const QString& Nome, const std::function<void(Parcella&)>& Cosa) {
        QTest::newRow(Che) << Cosa << Nome;
    };
    Riga("client", u"cliente"_s, [](Parcella& N) { CambiaParte(N, ParteNota::Cliente, u"Verdi"_s); });
    Riga("counterparty", u"controparte"_s,
         [](Parcella& N) { CambiaParte(N, ParteNota::Controparte, u"V"_s); });
    Riga("subject", u"oggetto"_s, [](Parcella& N) { CambiaParte(N, ParteNota::Oggetto, u"Lite"_s); });
    Riga("category", u"categoria"_s, [](Parcella& N) { CambiaCategoria(N, CategPenale); });
    Riga("line", u"nuova riga degli onorari"_s, [](Parcella& N) { RigaOnorario(N, u"a"_s, 1, 1, 1); });
    Riga("lines", u"nuove righe delle spese"_s, [](Parcella& N) {
        (void)N.xDiritti.AggiungiRiga();
        (void)N.xDiritti.AggiungiRiga();
    });
    Riga("payment", u"nuova riga degli acconti"_s, [](Parcella& N) { (void)N.xAcconti.AggiungiRiga(); });
    Riga("percent", u"percentuale"_s, [](Parcella& N) { N.txtIVA.Testo = u"4"_s; });
    Riga("tick", u"spese e imposte"_s, [](Parcella& N) { N.chkRA.Attiva = !N.chkRA.Attiva; });
    Riga("number", u"dati di stampa"_s, [](Parcella& N) { N.txtDatiPar[DatoNumFatt] = u"7"_s; });
    Riga("variation", u"variazione"_s, [](Parcella& N) { N.AumRidVarP = 30; });
    Riga("one page", u"opzioni di stampa"_s, [](Parcella& N) { N.UnaPagina = !N.UnaPagina; });
    Riga("switch", u"opzioni di stampa"_s, [](Parcella& N) { N.chkMinMax.Attiva = !N.chkMinMax.Attiva; });
    Riga("kind of invoice", u"fattura elettronica"_s, [](Parcella& N) { N.FatturaXml.Tipo = u"TD06"_s; });
    Riga("nothing", QString(), [](Parcella&) {});
    Riga("focus", QString(), [](Parcella& N) { N.Fuoco = CampoNota::Cliente; });
    Riga("lists", QString(), [](Parcella& N) { N.ListaVariazioni.clear(); });
}

void TestCronologia::nomi()
{
    QFETCH(const std::function<void(Parcella&)>, Cosa);
    QFETCH(const QString, Nome);
    const Parcella Prima = Nota;
    Fai(Cosa);
    QCOMPARE(Storia.NomeAnnulla(), Nome);
    QCOMPARE(NomeModifica(Prima, Nota), Nome);
    QCOMPARE(Storia.Annulla(Nota), !Nome.isEmpty());
    QCOMPARE(NomeModifica(Prima, Nota), QString());
    if (!Nome.isEmpty())
        QVERIFY(Nota == Prima);
}

/// A command that knows what it does names its step; one that has done nothing makes none.
void TestCronologia::ilNomeDatoAlPasso()
{
    Nota.xDiritti(Nota.xDiritti.AggiungiRiga(), DirEsente) = 27.0;
    Storia.Segna(Nota, u"anticipazione esente"_s);
    QCOMPARE(Storia.NomeAnnulla(), u"anticipazione esente"_s);
    Storia.Segna(Nota, u"un'altra volta"_s);
    QCOMPARE(Storia.NomeAnnulla(), u"anticipazione esente"_s);
    QVERIFY(Storia.Annulla(Nota));
    QVERIFY(Nota.xDiritti.Vuota());
    QCOMPARE(Storia.NomeRipeti(), u"anticipazione esente"_s);
    QVERIFY(!Storia.Annulla(Nota));
}

void TestCronologia::avantiEIndietro()
{
    for (const QString& Quale : {u"a"_s, u"b"_s, u"c"_s})
        Fai([&](Parcella& N) { RigaOnorario(N, Quale, 10, 1, 1); });
    Fai([](Parcella& N) { N.xOnorari(1, OnoImporto) = 77.0; });
    QCOMPARE(Storia.NomeAnnulla(), u"cella degli onorari"_s);
    Fai([](Parcella& N) { N.xOnorari.EliminaRiga(0); });
    QCOMPARE(Storia.NomeAnnulla(), u"riga tolta degli onorari"_s);
    const Parcella Dopo = Nota;

    QVERIFY(Storia.Annulla(Nota));
    QCOMPARE(Nota.xOnorari.Righe(), 3);
    QCOMPARE(Nota.xOnorari(1, OnoImporto).toDouble(), 77.0);
    QVERIFY(Storia.Annulla(Nota));
    QCOMPARE(Nota.xOnorari(1, OnoImporto).toDouble(), 10.0);
    QCOMPARE(Storia.NomeRipeti(), u"cella degli onorari"_s);
    QVERIFY(Storia.Ripeti(Nota));
    QVERIFY(Storia.Ripeti(Nota));
    QVERIFY(Nota == Dopo);
    QVERIFY(!Storia.Ripeti(Nota));
    for (int i = 0; i < 5; ++i)
        QVERIFY(Storia.Annulla(Nota));
    QVERIFY(!Storia.Annulla(Nota));
    QVERIFY(Nota.xOnorari.Vuota());
}

void TestCronologia::unaModificaToglieIlRitorno()
{
    Fai([](Parcella& N) { RigaOnorario(N, u"a"_s, 10, 1, 1); });
    QVERIFY(Storia.Annulla(Nota));
    QVERIFY(!Storia.NomeRipeti().isEmpty());
    Fai([](Parcella& N) { N.chkCP.Attiva = !N.chkCP.Attiva; });
    QCOMPARE(Storia.NomeRipeti(), QString());
}

void TestCronologia::leLettereSonoUnPasso()
{
    for (const QString& Testo : {u"V"_s, u"Ve"_s, u"Ver"_s})
        Fai([&](Parcella& N) { CambiaParte(N, ParteNota::Cliente, Testo); });
    Storia.ChiudiTesto();
    Fai([](Parcella& N) { CambiaParte(N, ParteNota::Cliente, u"Verdi"_s); });
    QVERIFY(Storia.Annulla(Nota));
    QCOMPARE(Nota.txtCliente.Testo, u"Ver"_s);
    QVERIFY(Storia.Annulla(Nota));
    QCOMPARE(Nota.txtCliente.Testo, NotaCivile().txtCliente.Testo);
    QVERIFY(!Storia.Annulla(Nota));
}

void TestCronologia::leLettereTolteNonSonoUnPasso()
{
    const QString Prima = Nota.txtOggetto.Testo;
    Fai([&](Parcella& N) { CambiaParte(N, ParteNota::Oggetto, Prima + u'x'); });
    QCOMPARE(Storia.NomeAnnulla(), u"oggetto"_s);
    Fai([&](Parcella& N) { CambiaParte(N, ParteNota::Oggetto, Prima); });
    QCOMPARE(Storia.NomeAnnulla(), QString());
}

void TestCronologia::cinquantaPassi()
{
    for (int i = 0; i < 60; ++i)
        Fai([&](Parcella& N) { RigaOnorario(N, QString::number(i), 1, 1, 1); });
    int Quanti = 0;
    while (Storia.Annulla(Nota))
        ++Quanti;
    QCOMPARE(Quanti, 50);
    QCOMPARE(Nota.xOnorari.Righe(), 10);
}

void TestCronologia::ilFileNonSiTocca()
{
    Fai([](Parcella& N) { N.chkCP.Attiva = !N.chkCP.Attiva; });
    // Saved under another name meanwhile, protected, its invoice written.
    Nota.Percorso = u"/altrove/nota.mdb"_s;
    Nota.Nome = u"nota"_s;
    Nota.Psw = u"segreta"_s;
    Nota.IDMultipla = 3;
    Nota.FatturaXml.File = u"IT01234567897_00001.xml"_s;
    Nota.FatturaXml.Progressivo = u"00001"_s;
    QVERIFY(Storia.Annulla(Nota));
    QVERIFY2(Nota.Modificata, "the password and the written invoice are in no file yet");
    QCOMPARE(Nota.Percorso, u"/altrove/nota.mdb"_s);
    QCOMPARE(Nota.Nome, u"nota"_s);
    QCOMPARE(Nota.Psw, u"segreta"_s);
    QCOMPARE(Nota.IDMultipla, 3);
    QCOMPARE(Nota.FatturaXml.File, u"IT01234567897_00001.xml"_s);
    QCOMPARE(Nota.FatturaXml.Progressivo, u"00001"_s);
}

void TestCronologia::ilSegnoDiModifica()
{
    Fai([](Parcella& N) { RigaOnorario(N, u"a"_s, 10, 1, 1); });
    Nota.Modificata = false;
    Storia.SegnaSalvata(Nota);
    QVERIFY(Storia.Annulla(Nota));
    QVERIFY2(Nota.Modificata, "the file holds the line");
    QVERIFY(Storia.Ripeti(Nota));
    QVERIFY2(!Nota.Modificata, "the record is what the file holds");
    Storia.Comincia(Nota, false);
    Fai([](Parcella& N) { RigaOnorario(N, u"b"_s, 10, 1, 1); });
    QVERIFY(Storia.Annulla(Nota));
    QVERIFY2(Nota.Modificata, "a recovered note is in no file");
}

void TestCronologia::unAltroDocumentoNonLascia_data()
{
    QTest::addColumn<int>("Tipo");
    for (int Tipo = 0; Tipo < VociTipoStampa().size(); ++Tipo)
        QTest::newRow(qPrintable(VociTipoStampa()[Tipo])) << Tipo;
}

/// Looking at another document is no change, before or behind one; its own ticks and wording are none either.
void TestCronologia::unAltroDocumentoNonLascia()
{
    QFETCH(int, Tipo);
    Fai([&](Parcella& N) { ScegliDocumento(N, Tipo); });
    QVERIFY(!Nota.Modificata);
    const auto CambiaEAnnulla = [&] {
        Fai([](Parcella& N) { RigaOnorario(N, u"a"_s, 10, 1, 1); });
        SetModificata(Nota, true);
        QVERIFY(Storia.Annulla(Nota));
        QVERIFY2(!Nota.Modificata, "the line has gone");
    };
    CambiaEAnnulla();
    // The window keeps its page behind the step.
    ScegliDocumento(Nota, StampaPreventivo);
    Storia.Allinea(Nota);
    CambiaEAnnulla();
    // With changes it stays what it is.
    Fai([](Parcella& N) { RigaOnorario(N, u"a"_s, 10, 1, 1); });
    SetModificata(Nota, true);
    Fai([&](Parcella& N) { ScegliDocumento(N, Tipo); });
    Fai([](Parcella& N) { CambiaParte(N, ParteNota::Oggetto, u"Lite"_s); });
    QVERIFY(Storia.Annulla(Nota));
    QVERIFY2(Nota.Modificata, "the line is in no file");
}

/// The finder renames the file: it holds what it held. Deleted, it holds nothing.
void TestCronologia::unAltroNomeNonLascia()
{
    Nota.Percorso = u"/note/rossi.mdb"_s;
    Storia.SegnaSalvata(Nota);
    Fai([](Parcella& N) { RigaOnorario(N, u"a"_s, 10, 1, 1); });
    Nota.Percorso = u"/note/bianchi.mdb"_s;
    QVERIFY(Storia.Annulla(Nota));
    QVERIFY(!Nota.Modificata);
    QVERIFY(Storia.Ripeti(Nota));
    Nota.Percorso.clear();
    QVERIFY(Storia.Annulla(Nota));
    QVERIFY(Nota.Modificata);
}

/// Another note is associated, or gets another name: that marks nothing, and a step back is the whole way.
void TestCronologia::lAssociazioneNonLascia()
{
    Fai([](Parcella& N) { RigaOnorario(N, u"a"_s, 10, 1, 1); });
    SetModificata(Nota, true);
    Nota.txtParcMultipla = u"altra"_s;
    Nota.txtPathParcMult = u"/note/altra.mdb"_s;
    Nota.optMultiAntPos = 1;
    Nota.chkMultiParam = !Nota.chkMultiParam;
    QVERIFY(Storia.Annulla(Nota));
    QVERIFY(!Nota.Modificata);
    QCOMPARE(Nota.txtPathParcMult, u"/note/altra.mdb"_s);
}

void TestCronologia::cambiataDaSolaNonHaPassi()
{
    Fai([](Parcella& N) { CambiaParte(N, ParteNota::Oggetto, u"Lite"_s); });
    Nota.txtCliente.Testo = u"Altro nome in archivio"_s;
    Storia.Dimentica(Nota);
    QCOMPARE(Storia.NomeAnnulla(), QString());
    QVERIFY2(!Storia.Annulla(Nota), "no step leads back behind what came from elsewhere");
    Fai([](Parcella& N) { N.chkCP.Attiva = !N.chkCP.Attiva; });
    QVERIFY(Storia.Annulla(Nota));
    QCOMPARE(Nota.txtCliente.Testo, u"Altro nome in archivio"_s);
    QVERIFY(Nota.Modificata);
}

void TestCronologia::lettereDiverseSonoPassiDiversi()
{
    Fai([](Parcella& N) { N.FatturaXml.Cig = u"A"_s; });
    Fai([](Parcella& N) { N.FatturaXml.Cig = u"AB"_s; });
    Fai([](Parcella& N) { N.txtIVA.Testo = u"4"_s; });
    Fai([](Parcella& N) { N.txtDatiStaCli.Testo = u"Rossi Ada"_s; });
    Fai([](Parcella& N) { N.txtCliente.Testo = u"Rossi Ada"_s; });  // on leaving the print's box
    QVERIFY(Storia.Annulla(Nota));
    QCOMPARE(Nota.txtDatiStaCli.Testo, NotaCivile().txtDatiStaCli.Testo);
    QVERIFY(Storia.Annulla(Nota));
    QCOMPARE(Nota.FatturaXml.Cig, u"AB"_s);
    QVERIFY(Storia.Annulla(Nota));
    QCOMPARE(Nota.FatturaXml.Cig, QString());
    QVERIFY(!Storia.Annulla(Nota));
}

void TestCronologia::leRigheRimesse()
{
    Fai([](Parcella& N) { RigaOnorario(N, u"a"_s, 10, 1, 1); });
    QVERIFY(!Storia.UltimaRimessa());
    Storia.SegnaRimessa();
    QVERIFY(Storia.UltimaRimessa());
    QVERIFY(Storia.Annulla(Nota) && Storia.Ripeti(Nota));
    QVERIFY(Storia.UltimaRimessa());
    Fai([](Parcella& N) { RigaOnorario(N, u"b"_s, 10, 1, 1); });
    QVERIFY(!Storia.UltimaRimessa());
}

void TestCronologia::ilDocumentoInVistaNonHaPassi()
{
    Fai([](Parcella& N) {
        N.cmbTipoStampa = N.cmbTipoStampa == 0 ? 1 : 0;
        N.txtDatiStaCli.Testo = u"worded in another form"_s;
    });
    QCOMPARE(Storia.NomeAnnulla(), QString());
}

#include "TestCronologia.moc"
