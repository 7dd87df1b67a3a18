// The note's file and its electronic invoice: which is written first, and who else has written it.
#include "fattura.h"
#include "salvataggi.h"

#include "feenote/file/modLettura.h"
#include "feenote/file/modSalvataggio.h"
#include "feenote/modAcconti.h"
#include "feenote/modFatturaXml.h"
#include "feenote/modRighe.h"
#include "feenote/modStorno.h"
#include "platform/system/file.h"
#include "platform/system/guasti.h"

#include <QDir>
#include <QScopeGuard>

using namespace Qt::StringLiterals;

class TestFatturaSegnata : public QObject, private BancoFattura
{
    Q_OBJECT
private Q_SLOTS:
    void init() { PreparaFattura(); }
    void cleanup()
    {
        guasti::PrimaDellaCartella = nullptr;
        Sgombra();
    }
    void laNotaLoSaPrima();
    void conModificheLoSaLaCopia_data();
    void conModificheLoSaLaCopia();
    void nonConfermata_data();
    void nonConfermata();
    void scrittaDaUnAltroPosto_data();
    void scrittaDaUnAltroPosto();
    void leSueDiPrimaNonSonoDiAltri();
    void alPostoDiUnaScartata_data();
    void alPostoDiUnaScartata();
    void alPostoDiUnaPagata_data();
    void alPostoDiUnaPagata();
    void diNuovoUnaDiPrima();
};
PROVA(TestFatturaSegnata);

/// The note's file says that the invoice was written before it is; where it cannot be, it says so no more.
void TestFatturaSegnata::laNotaLoSaPrima()
{
    const QString Dove = salvataggi::SalvaCome(*T, u"rossi.mdb"_s);
    QVERIFY(ChiudiParcella(1));
    const QDateTime Prima = DataFile(Dove).addSecs(-3600);
    ImpostaDataFile(Dove, Prima);
    F = T->Apri(Dove);
    QVERIFY(F);
    ClicScheda(F, SchedaDiStampa);
    ApriPannello();
    const StatoTenuto Era = F->Nota.Stato;
    T->Voce.AttendiSalva(T->Ufficio.File(u"nessuna/IT%1_00001.xml"_s.arg(CodiceStudio)));
    T->Voce.Tollera();
    Clic(Controllo(F, "cmdSalvaXml"));
    QVERIFY2(T->Voce.UltimoTesto().startsWith(u"La fattura elettronica non è stata scritta: "_s) &&
                 !T->Voce.UltimoTesto().contains(u"dà per scritta"_s),
             qPrintable(T->Voce.UltimoTesto()));
    QVERIFY2(DataFile(Dove) > Prima, "it was marked, and the mark was taken back");
    QVERIFY(!F->Nota.Modificata);
    QCOMPARE(F->Nota.FatturaXml, DatiFatturaXml());
    QCOMPARE(F->Nota.Stato, Era);
    Parcella Letta;
    CaricaDati(Letta, Dove);
    QCOMPARE(Letta.FatturaXml, DatiFatturaXml());
    QCOMPARE(Letta.Stato, Era);
    T->Voce.Sparecchia();
    const QString Nome = u"IT%1_00002.xml"_s.arg(CodiceStudio);
    T->Voce.AttendiSalva(T->Ufficio.File(Nome));
    T->Voce.Attendi(u"La fattura elettronica è stata scritta nel file %1."_s.arg(Nome));
    Clic(Controllo(F, "cmdSalvaXml"));
    CaricaDati(Letta, Dove);
    QCOMPARE(Letta.FatturaXml.Progressivo, u"00002"_s);
}

void TestFatturaSegnata::conModificheLoSaLaCopia_data()
{
    QTest::addColumn<bool>("Salvata");
    QTest::newRow("saved, then changed") << true;
    QTest::newRow("never saved") << false;
}

/// What a note with changes cannot keep in its file its recovery copy keeps, before the invoice is there;
/// where it cannot be written, the copy knows of none.
void TestFatturaSegnata::conModificheLoSaLaCopia()
{
    QFETCH(bool, Salvata);
    if (Salvata) {
        salvataggi::SalvaCome(*T, u"rossi.mdb"_s);
        F->SetModificata(true);
    }
    ApriPannello();
    const QString Cartella = sessione::UserFolder + u"recupero/"_s;
    const auto DettoDallaCopia = [&] {
        const QStringList Copie = QDir(Cartella).entryList({u"*.mdb"_s}, QDir::Files);
        Parcella Letta;
        if (Copie.size() == 1)
            CaricaDati(Letta, Cartella + Copie.first());
        return Letta.FatturaXml.File;
    };
    T->Voce.AttendiSalva(T->Ufficio.File(u"nessuna/IT%1_00001.xml"_s.arg(CodiceStudio)));
    T->Voce.Tollera();
    Clic(Controllo(F, "cmdSalvaXml"));
    QVERIFY(T->Voce.UltimoTesto().startsWith(u"La fattura elettronica non è stata scritta: "_s));
    QCOMPARE(QDir(Cartella).entryList({u"*.mdb"_s}, QDir::Files).size(), 1);
    QCOMPARE(DettoDallaCopia(), QString());
    T->Voce.Sparecchia();
    const QString Nome = u"IT%1_00002.xml"_s.arg(CodiceStudio);
    const QString File = T->Ufficio.File(Nome);
    QString Detto;
    guasti::PrimaDellaCartella = [&](const QString& Quale) {
        if (Quale == File)
            Detto = DettoDallaCopia();
        return true;
    };
    SalvaIn(T->Ufficio.Cartella(), 2);
    QCOMPARE(Detto, Nome);
}

void TestFatturaSegnata::nonConfermata_data()
{
    QTest::addColumn<bool>("Resta");
    QTest::newRow("il file si toglie") << false;
    QTest::newRow("il file resta") << true;
}

/// The disk has not confirmed the file: the note says that it was written where it is there, and only there.
void TestFatturaSegnata::nonConfermata()
{
    QFETCH(bool, Resta);
    const QString Dove = salvataggi::SalvaCome(*T, u"rossi.mdb"_s);
    ApriPannello();
    const QString File = T->Ufficio.File(u"IT%1_00001.xml"_s.arg(CodiceStudio));
    guasti::PrimaDellaCartella = [&](const QString& Quale) {
        if (Quale != File)
            return true;
        if (Resta) {  // as a share that gives the file back under the same name
            const QByteArray Byte = LeggiFile(Quale);
            QFile Suo(Quale);
            if (Suo.remove() && Suo.open(QIODevice::WriteOnly))
                Suo.write(Byte);
        }
        return false;
    };
    T->Voce.AttendiSalva(File);
    T->Voce.Tollera();
    Clic(Controllo(F, "cmdSalvaXml"));
    const QString Detto = T->Voce.UltimoTesto();
    QVERIFY2(Detto.startsWith(Resta ? u"La fattura elettronica è stata scritta nel file "_s
                                    : u"La fattura elettronica non è stata scritta: "_s),
             qPrintable(Detto));
    QCOMPARE(Detto.contains(u"\nIl disco però non lo ha confermato"_s), Resta);
    QCOMPARE(EsisteFile(File), Resta);
    Parcella Letta;
    CaricaDati(Letta, Dove);
    QCOMPARE(Letta.FatturaXml.File, Resta ? NomeFile(File) : QString());
    QCOMPARE(F->Nota.FatturaXml, Letta.FatturaXml);
}

void TestFatturaSegnata::scrittaDaUnAltroPosto_data()
{
    QTest::addColumn<bool>("NelDialogo");
    QTest::newRow("before") << false;
    QTest::newRow("while the dialog is up") << true;
}

/// Two places have the note open: what one has written the other asks about, or does not write again.
void TestFatturaSegnata::scrittaDaUnAltroPosto()
{
    QFETCH(bool, NelDialogo);
    const QString Dove = salvataggi::SalvaCome(*T, u"rossi.mdb"_s);
    ApriPannello();
    const auto AltroPosto = [&] {
        Parcella Sua = F->Nota;
        SegnaFatturaScritta(Sua, u"suo.xml"_s, u"00009"_s);
        QCOMPARE(ScriviSoloFattura(Sua, [] { return true; }), EsitoStato::Scritto);
        ImpostaDataFile(Dove, DataFile(Dove).addSecs(60));
    };
    if (!NelDialogo)
        AltroPosto();
    QStringList Detti;
    Messaggi Nuovi;
    Nuovi.SalvaFile = [&](const QString&, const QString& Inizio, const QString&) {
        AltroPosto();
        return Inizio;
    };
    Nuovi.Box = [&](const QString& Testo, int, const QString&) {
        Detti += Testo;
        return vbNo;
    };
    const Messaggi Prima = InstallaMessaggi(Nuovi);
    const auto Torna = qScopeGuard([&] { InstallaMessaggi(Prima); });
    Clic(Controllo(F, "cmdSalvaXml"));
    QCOMPARE(Detti,
             QStringList{NelDialogo ? u"La fattura è stata scritta intanto da un altro programma, "
                                      "come suo.xml: non viene scritta di nuovo!"_s
                                    : u"La fattura è già stata scritta il %1 come suo.xml.\nScriverla "
                                      "di nuovo, con un altro nome?"_s.arg(Format(Oggi(), u"dd/mm/yyyy"))});
    QCOMPARE(QDir(T->Ufficio.Cartella()).entryList({u"IT*.xml"_s}, QDir::Files).size(), 0);
    QVERIFY(!F->Nota.Modificata);
    QVERIFY(F->Nota.FatturaXml.File.isEmpty());
}

/// The file holds the first mark, the note a later one that was not saved: neither is another's.
void TestFatturaSegnata::leSueDiPrimaNonSonoDiAltri()
{
    const QString Dove = salvataggi::SalvaCome(*T, u"rossi.mdb"_s);
    ApriPannello();
    const auto Nome = [](int Numero) { return u"IT%1_0000%2.xml"_s.arg(CodiceStudio).arg(Numero); };
    T->Voce.AttendiSalva(T->Ufficio.File(Nome(1)));
    T->Voce.Attendi(u"La fattura elettronica è stata scritta nel file %1."_s.arg(Nome(1)));
    Clic(Controllo(F, "cmdSalvaXml"));
    F->SetModificata(true);
    for (const int Numero : {2, 3}) {
        T->Voce.Attendi(
            u"La fattura è già stata scritta il %1 come %2.\nScriverla di nuovo, con un altro nome?"_s.arg(
                Format(Oggi(), u"dd/mm/yyyy"), Nome(Numero - 1)),
            vbYes, u"Domanda:"_s);
        SalvaIn(T->Ufficio.Cartella(), Numero);
    }
    QCOMPARE(FatturaNelFile(F->Nota).File, Nome(1));
    QCOMPARE(F->Nota.FatturaXml.File, Nome(3));
}

void TestFatturaSegnata::alPostoDiUnaScartata_data()
{
    QTest::addColumn<int>("Risposta");
    QTest::addColumn<bool>("SiScrive");
    QTest::newRow("yes") << vbYes << true;
    QTest::newRow("no") << vbNo << true;
    QTest::newRow("yes, but no file") << vbYes << false;
}

/// Only the user knows whether the former file was discarded.
void TestFatturaSegnata::alPostoDiUnaScartata()
{
    QFETCH(int, Risposta);
    QFETCH(bool, SiScrive);
    ApriPannello();
    SalvaIn(T->Ufficio.Cartella(), 1);
    const StatoTenuto Prima = F->Nota.Stato;
    Scrivi(Controllo<QLineEdit>(F, "txtDatiPar_11"), u"13"_s);
    ApriPannello();
    T->Voce.Attendi(
        u"La fattura %1 del %2 ha già il suo file.\nÈ stata scartata, e questa ne prende il posto? "
        u"Rispondendo No valgono tutte e due."_s.arg(Prima.Numero, Prima.Data),
        Risposta, u"Domanda:"_s);
    if (SiScrive) {
        SalvaIn(T->Ufficio.Cartella(), 2);
        QCOMPARE(F->Nota.Stato.Emessi.size(), Risposta == vbYes ? 0 : 1);
        QCOMPARE(F->Nota.Stato.Numero, u"13"_s);
        return;
    }
    T->Voce.AttendiSalva(T->Ufficio.File(u"nessuna/IT%1_00002.xml"_s.arg(CodiceStudio)));
    T->Voce.Tollera();
    Clic(Controllo(F, "cmdSalvaXml"));
    QCOMPARE(F->Nota.Stato, Prima);
}

void TestFatturaSegnata::alPostoDiUnaPagata_data()
{
    QTest::addColumn<double>("Parte");  // of what it asked for without taxes
    QTest::addColumn<int>("Risposta");
    QTest::newRow("whole, yes") << 1.0 << vbYes;
    QTest::newRow("whole, no") << 1.0 << vbNo;
    QTest::newRow("half, yes") << 0.5 << vbYes;
    QTest::newRow("half, no") << 0.5 << vbNo;
}

/// What was paid leaves less of a next invoice, or nothing, and all of the one that takes the former's place:
/// the question says what is sent.
void TestFatturaSegnata::alPostoDiUnaPagata()
{
    QFETCH(double, Parte);
    QFETCH(int, Risposta);
    const bool Intera = Parte == 1.0;
    ApriPannello();
    SalvaIn(T->Ufficio.Cartella(), 1);
    const StatoTenuto Prima = F->Nota.Stato;
    const double Totale = Prima.Importi->Totale;
    const Catena Conti = CatenaFiscale(RaccogliFattura(F->Nota, StampaFatturaAnalitica));
    F->Nota.xAcconti(NuovoAcconto(F->Nota), AccCorrispettivi) = Arrotonda2(Conti.Imponibile * Parte);
    Scrivi(Controllo<QLineEdit>(F, "txtDatiPar_11"), u"13"_s);
    ApriPannello();
    const double Resto = CatenaFiscale(RaccogliFattura(F->Nota, StampaFatturaAnalitica)).Totale;
    QCOMPARE(Resto == 0.0, Intera);
    QVERIFY(Controllo(F, "cmdSalvaXml")->isEnabled());
    QCOMPARE(Stato().contains(u"Se la fattura 12 del %1 è stata scartata"_s.arg(Prima.Data)), Intera);
    const QString Sempre =
        u"La fattura 12 del %1 ha già il suo file.\nÈ stata scartata, e questa ne prende il "
        u"posto? Rispondendo Sì il file è di %2 euro, "_s.arg(Prima.Data, TestoImporto(Totale));
    T->Voce.Attendi(
        Sempre + (Intera ? u"rispondendo No non si scrive."_s
                         : u"rispondendo No è di %1 euro e valgono tutte e due."_s.arg(TestoImporto(Resto))),
        Risposta, u"Domanda:"_s);
    if (Intera && Risposta == vbNo) {
        Clic(Controllo(F, "cmdSalvaXml"));
        QCOMPARE(QDir(T->Ufficio.Cartella()).entryList({u"IT*.xml"_s}, QDir::Files).size(), 1);
        return;
    }
    SalvaIn(T->Ufficio.Cartella(), 2);
    QCOMPARE(F->Nota.Stato.Emessi.size(), Risposta == vbYes ? 0 : 1);
    QCOMPARE(F->Nota.Stato.Importi->Totale, Risposta == vbYes ? Totale : Resto);
}

/// The one before the last has its file too.
void TestFatturaSegnata::diNuovoUnaDiPrima()
{
    ApriPannello();
    SalvaIn(T->Ufficio.Cartella(), 1);
    Scrivi(Controllo<QLineEdit>(F, "txtDatiPar_11"), u"13"_s);
    F->Nota.xOnorari(0, OnoImporto) = 1250.0;
    ApriPannello();
    SalvaIn(T->Ufficio.Cartella(), 2);
    QCOMPARE(F->Nota.Stato.Emessi.size(), 1);
    // The one before the last has its file too.
    Scrivi(Controllo<QLineEdit>(F, "txtDatiPar_11"), u"12"_s);
    ApriPannello();
    QVERIFY2(Stato().startsWith(u"La fattura 12 è già stata scritta come file. "_s), qPrintable(Stato()));
    T->Voce.Attendi(u"La fattura 12 è già stata scritta come file.\nScriverla di nuovo, con un altro nome?"_s,
                    vbNo, u"Domanda:"_s);
    Clic(Controllo(F, "cmdSalvaXml"));
    QCOMPARE(Impostazione(u"ProgTrasm"_s), u"2"_s);
}

#include "TestFatturaSegnata.moc"
