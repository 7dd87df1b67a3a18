// A start over damaged settings: one sentence with their file, the program goes on, nothing that it stores by
// itself takes their place, and no number is given twice; the settings that are saved then do.
#include "core/dannoricordato.h"
#include "core/settings/tavolosetup.h"

#include "core/app/avvio.h"
#include "core/modAvvio.h"
#include "core/modTrasmissioni.h"
#include "feenote/modNumeraFattura.h"
#include "platform/kit/aspetto.h"
#include "supporto/danni.h"
#include "supporto/guasti.h"

#include <QScopeGuard>

#include <memory>

class TestImpostazioniGuasteAllAvvio : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();
    void unaFraseEPoiSiPuoSalvare_data();
    void unaFraseEPoiSiPuoSalvare();
    void ilConsiglioEQuelloDelDanno_data();
    void ilConsiglioEQuelloDelDanno();
    void archivioENoteRestanoQuelliDelPrimoUso_data() { unaFraseEPoiSiPuoSalvare_data(); }
    void archivioENoteRestanoQuelliDelPrimoUso();
    void unPercorsoDiRipiegoNonSiConserva();
    void ilRipiegoConfermatoSiConserva_data();
    void ilRipiegoConfermatoSiConserva();
    void laCartellaCreataSiConserva();
    void dietroIlRiavvioSiChiede_data() { unaFraseEPoiSiPuoSalvare_data(); }
    void dietroIlRiavvioSiChiede();
    void ilDannoIncontratoInCorsoSiRicorda_data();
    void ilDannoIncontratoInCorsoSiRicorda();
    void diCioCheTornaIlDannoSiDimentica_data();
    void diCioCheTornaIlDannoSiDimentica();
    void tornateDietroIlRiavvioNonSiChiede();
    void unPrimoUsoNonDiceNulla();

private:
    static QString CartellaDocumenti() { return CartellaSpeciale(5) + Barra(u"Calcanova"_s); }
    void Memorizza();

    std::unique_ptr<TavoloSetup> T;
};
PROVA(TestImpostazioniGuasteAllAvvio);

void TestImpostazioniGuasteAllAvvio::init()
{
    T = std::make_unique<TavoloSetup>();
    QDir(CartellaDocumenti()).removeRecursively();
    Aperture.ApriParcella = [](const QString&, int, const QString&) { return 0; };
    Scena::Salva(u"ProgFatt"_s, u"41"_s);
    Scena::Salva(u"ProgTrasm"_s, u"17"_s);
}

void TestImpostazioniGuasteAllAvvio::cleanup()
{
    T.reset();
    QDir Cartella(CartellaFile(Scena::FileImpostazioni()));
    for (const QString& Nome : Cartella.entryList({u"KR5.ini*"_s}, QDir::Files))
        Cartella.remove(Nome);
    QDir(Scena::FileImpostazioni()).removeRecursively();
    QDir(CartellaDocumenti()).removeRecursively();
}

void TestImpostazioniGuasteAllAvvio::Memorizza()
{
    T->Apri(0);
    for (const char* Nome : {"txtNomeStudio", "txtIndStudio", "txtCittaStudio", "txtEMail"})
        T->Campo(QString::fromLatin1(Nome))->setText(u"nuovo"_s);
    for (const char* Contatore : {"txtNumFatt", "txtProgTrasm"})
        T->Campo(QString::fromLatin1(Contatore))->setText(u"41"_s);
    T->Premi(u"cmdSaveImpost"_s);
}

void TestImpostazioniGuasteAllAvvio::unaFraseEPoiSiPuoSalvare_data()
{
    QTest::addColumn<int>("Come");

    for (const int Come : DanniVisibili())
        QTest::newRow(NomiDanni[size_t(Come)]) << Come;
}

void TestImpostazioniGuasteAllAvvio::unaFraseEPoiSiPuoSalvare()
{
    QFETCH(int, Come);
    const QString File = Scena::FileImpostazioni();
    Rovina(File, Come);
    const bool SiLegge = Come != Cartella && Come != Illeggibile;
    const auto Contenuto = [&] { return SiLegge ? LeggiFile(File) : QByteArray(); };
    const QByteArray Rovinato = Contenuto();
    Registratore Box;
    Box.Tollera();
    Main(u"-low"_s);
    QCOMPARE(Box.Mostrati().size(), 1);
    QVERIFY2(Box.UltimoTesto().contains(File), qPrintable(Box.UltimoTesto()));

    // Windows that open and close, and what the program remembers.
    QWidget Finestra;
    aspetto::RicordaPosto(&Finestra, u"prova"_s);
    RicordaImpostazioni({{u"FormWidth"_s, u"9000"_s}});
    RicordaMutata(u"NoteRecenti"_s, [](const QString&) { return u"x"_s; });
    QCOMPARE(Box.Mostrati().size(), 1);
    QCOMPARE(Contenuto(), Rovinato);

    // Invoices and their files are not numbered from the beginning.
    Parcella Nota;
    QVERIFY(!NumeraFattura(Nota));
    QCOMPARE(Nota.DatiPar(DatoNumFatt), QString());
    QVERIFY2(Box.UltimoTesto().contains(File), qPrintable(Box.UltimoTesto()));
    QCOMPARE(NumeroErrore([] { (void)PrendiTrasmissione(); }), 75);
    if (!SiLegge)
        return;  // nothing is written there before it can be read

    Memorizza();
    QCOMPARE(Box.UltimoTesto(), u"Le impostazioni sono state memorizzate!"_s);
    QCOMPARE(FraseImpostazioniGuaste(), QString());
    QCOMPARE(Scena::Parametro(u"StudioNome"_s), u"nuovo"_s);
    QCOMPARE(EsisteFile(File + u".guasto"_s), !Rovinato.isEmpty());
    if (!Rovinato.isEmpty())
        QCOMPARE(LeggiFile(File + u".guasto"_s), Rovinato);
}

void TestImpostazioniGuasteAllAvvio::ilConsiglioEQuelloDelDanno_data()
{
    QTest::addColumn<int>("Come");
    QTest::addColumn<QByteArray>("Testo");  // in the file's place, where that is the damage
    QTest::addColumn<QString>("Frase");
    QTest::addColumn<QString>("Consiglio");

    const QString Memorizzarle =
        u"Quel che vi manca vale come mai impostato: prima di stampare e di numerare fatture controllare le "
        u"impostazioni, anche nei numeri, nelle cartelle e nell'archivio, e memorizzarle."_s;
    const QString Copia = u" Il file di ora resta accanto, con «.guasto» in fondo al nome."_s;
    const QString Leggibile =
        u"Nessuna impostazione vale e nessuna si può memorizzare: rendere leggibile il file e riavviare il "
        u"programma. Se invece lo si toglie, rifare le impostazioni, anche nei numeri, nelle cartelle e "
        u"nell'archivio."_s;
    QTest::newRow("cut in half") << int(Troncato) << QByteArray() << u"è troncato"_s << Memorizzarle + Copia;
    QTest::newRow("something else") << int(Danni) << "altro"_ba << u"è danneggiato"_s << Memorizzarle + Copia;
    QTest::newRow("emptied") << int(Svuotato) << QByteArray() << u"è vuoto"_s << Memorizzarle;
    QTest::newRow("too large")
        << int(Danni) << QByteArray(5 << 20, 'x') << u"è troppo grande per contenere impostazioni"_s
        << u"Nessuna impostazione vale e nessuna si può memorizzare: togliere il file, riavviare il programma e rifare le impostazioni, anche nei numeri, nelle cartelle e nell'archivio."_s;
    if (DanniVisibili().contains(Illeggibile))
        QTest::newRow("without permission")
            << int(Illeggibile) << QByteArray() << u"non si legge: "_s + DescrizioneErrore(75) << Leggibile;
    QTest::newRow("a folder in its place")
        << int(Cartella) << QByteArray() << u"non si legge: al suo posto c'è una cartella"_s
        << u"Nessuna impostazione vale e nessuna si può memorizzare: togliere la cartella, riavviare il programma e rifare le impostazioni, anche nei numeri, nelle cartelle e nell'archivio."_s;
}

void TestImpostazioniGuasteAllAvvio::ilConsiglioEQuelloDelDanno()
{
    QFETCH(int, Come);
    QFETCH(QByteArray, Testo);
    QFETCH(QString, Frase);
    QFETCH(QString, Consiglio);
    const QString File = Scena::FileImpostazioni();
    if (Testo.isEmpty())
        Rovina(File, Come);
    else
        ScriviFile(File, Testo);
    Registratore Box;
    Box.Attendi(u"Il file delle impostazioni %1 %2.\n%3"_s.arg(File, Frase, Consiglio), vbOK, u"Errore:"_s);
    QVERIFY(AvvisaImpostazioniGuaste());
    // The advice can be followed: what it says of a save is so.
    const bool SiSalva = Consiglio.contains(u"memorizzarle"_s);
    QCOMPARE(NumeroErrore([] { SalvaImpostazioni({{u"a"_s, u"1"_s}}); }), SiSalva ? 0 : 75);
    QCOMPARE(EsisteFile(File + u".guasto"_s), Consiglio.contains(u".guasto"_s));
}

/// The paths were in the file: the ones beside the program would be another archive, and no note.
void TestImpostazioniGuasteAllAvvio::archivioENoteRestanoQuelliDelPrimoUso()
{
    QFETCH(int, Come);
    const QString Archivio = CartellaDocumenti() + u"DatiStudio.mdb"_s;
    const QString Parcelle = CartellaDocumenti() + Barra(u"Parcelle"_s);
    CreaCartella(Parcelle + u"Modelli"_s);
    QVERIFY(QFile::copy(ProgrammaDiProva() + u"DatiStudio.mdb"_s, Archivio));
    const QByteArray Prima = LeggiFile(Scena::FileImpostazioni());
    Rovina(Scena::FileImpostazioni(), Come);
    Registratore Box;
    Box.Tollera();
    Main(u"-low"_s);
    QVERIFY2(Box.UltimoTesto().contains(u"nelle cartelle e nell'archivio"_s), qPrintable(Box.UltimoTesto()));
    QCOMPARE(sessione::ArchivioCliCon, Archivio);
    QCOMPARE(sessione::ParcellePath, Parcelle);
    QCOMPARE(sessione::ModelliPath, Parcelle + Barra(u"Modelli"_s));
    if (Come == Cartella || Come == Illeggibile)
        return;  // nothing is written there before it can be read

    Memorizza();
    QCOMPARE(FraseImpostazioniGuaste(), QString());
    QCOMPARE(Scena::Parametro(u"ArchivioCliCon"_s), Archivio);
    QCOMPARE(Scena::Parametro(u"ParcellePath"_s), Parcelle);
    QCOMPARE(sessione::ArchivioCliCon, Archivio);
    // Sound settings without these keys are those of an office that works beside the program.
    ScriviFile(Scena::FileImpostazioni(), Prima);
    ImpostaVariabili();
    QCOMPARE(sessione::ArchivioCliCon, T->Programma + u"DatiStudio.mdb"_s);
    QCOMPARE(sessione::ParcellePath, T->Programma);
}

void TestImpostazioniGuasteAllAvvio::unPercorsoDiRipiegoNonSiConserva()
{
    Rovina(Scena::FileImpostazioni(), Svuotato);
    Registratore Box;
    Box.Tollera();
    Main(u"-low"_s);
    T->Apri(0);
    const QString Scelta = NuovaCartella();
    T->Campo(u"txtParcellePath"_s)->setText(Scelta);
    QVERIFY(!T->Campo(u"txtArchivioCliCon"_s)->text().isEmpty());
    Memorizza();
    QCOMPARE(Box.UltimoTesto(), u"Le impostazioni sono state memorizzate!"_s);
    QCOMPARE(Scena::Parametro(u"ArchivioCliCon"_s), QString());
    QCOMPARE(Scena::Parametro(u"ParcellePath"_s), Scelta);
    // The same press once more is no other decision.
    T->Premi(u"cmdSaveImpost"_s);
    QCOMPARE(Scena::Parametro(u"ArchivioCliCon"_s), QString());
    // What a sound file does not hold is stored as it is shown, as ever.
    T->Premi(u"cmdChiudi"_s);
    T->Apri(0);
    T->Premi(u"cmdSaveImpost"_s);
    QCOMPARE(Scena::Parametro(u"ArchivioCliCon"_s), T->Campo(u"txtArchivioCliCon"_s)->text());
}

void TestImpostazioniGuasteAllAvvio::ilRipiegoConfermatoSiConserva_data()
{
    QTest::addColumn<bool>("Scelto");
    QTest::addColumn<bool>("Prima");  // of the first save

    QTest::newRow("picked") << true << true;
    QTest::newRow("typed") << false << true;
    QTest::newRow("picked behind a save") << true << false;
    QTest::newRow("typed behind a save") << false << false;
}

/// The archive really lies beside the program: whoever says so by hand is not asked twice.
void TestImpostazioniGuasteAllAvvio::ilRipiegoConfermatoSiConserva()
{
    QFETCH(bool, Scelto);
    QFETCH(bool, Prima);
    Rovina(Scena::FileImpostazioni(), Svuotato);
    Registratore Box;
    Box.Tollera();
    Main(u"-low"_s);
    T->Apri(frmSetup::SchedaSetup);
    if (!Prima) {
        Memorizza();
        QCOMPARE(Scena::Parametro(u"ArchivioCliCon"_s), QString());
    }
    T->Modulo->ChangeTab(frmSetup::SchedaSetup);
    const QString Archivio = T->Campo(u"txtArchivioCliCon"_s)->text();
    if (Scelto) {
        Box.AttendiApri(Archivio);
        T->Premi(u"cmdSelDir_1"_s);
    } else {
        T->Scrivi(u"txtArchivioCliCon"_s, Archivio);
    }
    QCOMPARE(T->Campo(u"txtArchivioCliCon"_s)->text(), Archivio);
    for (int Volta = 0; Volta < 2; ++Volta) {
        Memorizza();
        QCOMPARE(Box.UltimoTesto(), u"Le impostazioni sono state memorizzate!"_s);
        QCOMPARE(Scena::Parametro(u"ArchivioCliCon"_s), Archivio);
    }
}

/// The folder of notes that is proposed where none is known is chosen by whoever has it made.
void TestImpostazioniGuasteAllAvvio::laCartellaCreataSiConserva()
{
    Rovina(Scena::FileImpostazioni(), Svuotato);
    Registratore Box;
    Box.Tollera();
    Main(u"-low"_s);
    T->Apri(frmSetup::SchedaSetup);
    const QString Proposta = T->Campo(u"txtParcellePath"_s)->text();
    QVERIFY(!EsisteCartella(Proposta));
    const auto Via = qScopeGuard([&] { QDir(Proposta).removeRecursively(); });
    Memorizza();
    QCOMPARE(Scena::Parametro(u"ParcellePath"_s), QString());
    T->Modulo->ChangeTab(frmSetup::SchedaSetup);
    QTRY_VERIFY(T->Trova<QWidget>(u"cmdCrea_2"_s)->isVisible());
    T->Premi(u"cmdCrea_2"_s);
    QVERIFY(EsisteCartella(Proposta));
    Memorizza();
    QCOMPARE(Scena::Parametro(u"ParcellePath"_s), Proposta);
}

/// What is advised is to take away what stands there and to start anew: that start finds nothing, as a first
/// use does, and the next invoice would be number 1.
void TestImpostazioniGuasteAllAvvio::dietroIlRiavvioSiChiede()
{
    QFETCH(int, Come);
    const QString File = Scena::FileImpostazioni();
    Rovina(File, Come);
    {
        Registratore Box;
        Box.Tollera();
        Main(u"-low"_s);
    }
    QVERIFY(QFile::remove(File) || QDir().rmdir(File));
    AzzeraSessione();
    Registratore Box;
    Main(u"-low"_s);
    QCOMPARE(Box.Mostrati().size(), 0);

    // Sound and empty, they number no invoice and no file of one from the beginning.
    QCOMPARE(FraseImpostazioniGuaste(), QString());
    Box.Attendi(u"Dopo il guasto delle impostazioni il numero dell'ultima fattura non si conosce!\n"
                u"Indicarlo nelle impostazioni e memorizzarle, oppure indicare il numero a mano."_s,
                vbOK, u"Errore:"_s);
    Parcella Nota;
    QVERIFY(!NumeraFattura(Nota));
    QCOMPARE(Nota.DatiPar(DatoNumFatt), QString());
    QCOMPARE(NumeroErrore([] { (void)ProssimaTrasmissione(); }), int(errori::Imprevisto));
    QCOMPARE(NumeroErrore([] { (void)PrendiTrasmissione(); }), int(errori::Imprevisto));
    QCOMPARE(Scena::Parametro(u"ProgTrasm"_s), QString());

    T->Apri(0);
    for (const char* Nome : {"txtNomeStudio", "txtIndStudio", "txtCittaStudio", "txtEMail"})
        T->Campo(QString::fromLatin1(Nome))->setText(u"nuovo"_s);
    Box.Attendi(u"Con le impostazioni di prima possono essere andati persi i numeri dell'ultima fattura e "
                u"dell'ultimo "
                u"file XML: "
                u"con 0 si potrebbero ripetere numeri già usati.\nMemorizzarli ugualmente?"_s,
                vbYes);
    T->Memorizza(Box);
    QCOMPARE(Scena::Parametro(u"ProgFatt"_s), u"0"_s);
    QVERIFY(!EsisteFile(File + u".danno"_s));
    // Who has stored them has said where they begin.
    QVERIFY(NumeraFattura(Nota));
    QCOMPARE(Nota.DatiPar(DatoNumFatt), u"1"_s);
    QCOMPARE(PrendiTrasmissione(), 1);
}

void TestImpostazioniGuasteAllAvvio::ilDannoIncontratoInCorsoSiRicorda_data()
{
    QTest::addColumn<QString>("Chi");
    QTest::addColumn<int>("Come");
    for (const char* Chi : {"the number of an invoice", "its step", "the number of a file", "a setting",
                            "a setting that is changed", "what is stored in passing"})
        for (const int Come : DanniVisibili())
            QTest::addRow("%s: %s", Chi, NomiDanni[size_t(Come)]) << QString::fromLatin1(Chi) << Come;
    // In the place of the others they are stored.
    QTest::addRow("all settings: %s", NomiDanni[size_t(Cartella)]) << u"all settings"_s << int(Cartella);
}

/// The start found the settings sound; who takes the file away upon the sentence of a later moment asks for
/// no number from the beginning either.
void TestImpostazioniGuasteAllAvvio::ilDannoIncontratoInCorsoSiRicorda()
{
    QFETCH(QString, Chi);
    QFETCH(int, Come);
    const QString File = Scena::FileImpostazioni();
    {
        const Registratore Box;
        Main(u"-low"_s);
    }
    QVERIFY(!EsisteFile(File + u".danno"_s));
    RicordaImpostazioni({{u"Prova"_s, u"1"_s}});
    Rovina(File, Come);
    {
        Registratore Box;
        Box.Tollera();
        if (Chi == u"its step")
            Box.Attendi(u"Procedo all'aggiornamento del progressivo?"_s, vbYes);
        Parcella Nota;
        if (Chi == u"the number of an invoice")
            QVERIFY(!NumeraFattura(Nota));
        else if (Chi == u"its step")
            QCOMPARE(NumeroErrore([] { AggiornaProgFatt(); }), 75);
        else if (Chi == u"the number of a file")
            QCOMPARE(NumeroErrore([] { (void)PrendiTrasmissione(); }), 75);
        else if (Chi == u"a setting")
            QCOMPARE(NumeroErrore([] { SalvaImpostazione(u"Prova"_s, u"2"_s); }), 75);
        else if (Chi == u"all settings")
            QCOMPARE(NumeroErrore([] { SalvaImpostazioni({{u"Prova"_s, u"2"_s}}); }), 75);
        else if (Chi == u"a setting that is changed")
            QCOMPARE(
                NumeroErrore([] { MutaImpostazione(u"Prova"_s, [](const QString&) { return u"2"_s; }); }),
                75);
        else
            QCOMPARE(NumeroErrore([] { RicordaImpostazioni({{u"Prova"_s, u"2"_s}}); }), 75);
    }
    QVERIFY(QFile::remove(File) || QDir().rmdir(File));
    AzzeraSessione();
    Registratore Box;
    Main(u"-low"_s);
    Box.Attendi(u"Dopo il guasto delle impostazioni il numero dell'ultima fattura non si conosce!\n"
                u"Indicarlo nelle impostazioni e memorizzarle, oppure indicare il numero a mano."_s,
                vbOK, u"Errore:"_s);
    Parcella Nota;
    QVERIFY(!NumeraFattura(Nota));
    QCOMPARE(NumeroErrore([] { (void)PrendiTrasmissione(); }), int(errori::Imprevisto));
}

/// Settings that only could not be read have lost nothing, were it a number that they never had.
void TestImpostazioniGuasteAllAvvio::tornateDietroIlRiavvioNonSiChiede()
{
    const QString File = Scena::FileImpostazioni();
    Scena::Salva(u"ProgTrasm"_s, {});
    const QByteArray Intere = LeggiFile(File);
    Rovina(File, Cartella);
    {
        Registratore Box;
        Box.Tollera();
        Main(u"-low"_s);
    }
    QVERIFY(QDir().rmdir(File));
    ScriviFile(File, Intere);
    AzzeraSessione();
    Registratore Box;
    Main(u"-low"_s);
    QCOMPARE(ProssimaTrasmissione(), 1);
    T->Apri(0);
    T->Memorizza(Box);
    QCOMPARE(Scena::Parametro(u"ProgFatt"_s), u"41"_s);
    QCOMPARE(Scena::Parametro(u"ProgTrasm"_s), u"0"_s);
}

void TestImpostazioniGuasteAllAvvio::unPrimoUsoNonDiceNulla()
{
    QVERIFY(QFile::remove(Scena::FileImpostazioni()));
    const Registratore Box;
    QVERIFY(!AvvisaImpostazioniGuaste());
    QCOMPARE(Box.Mostrati().size(), 0);
}

void TestImpostazioniGuasteAllAvvio::diCioCheTornaIlDannoSiDimentica_data()
{
    QTest::addColumn<int>("Come");
    QTest::addColumn<QString>("Nome");
    QTest::addColumn<bool>("NotaIlleggibile");
    QTest::addColumn<bool>("SiRicorda");
    QTest::addRow("out of reach") << int(Cartella) << u"Studio Bianchi"_s << false << false;
    QTest::addRow("out of reach, of no office") << int(Cartella) << QString() << false << true;
    QTest::addRow("lost") << int(Svuotato) << u"Studio Bianchi"_s << false << true;
    QTest::addRow("a note that cannot be read") << int(Svuotato) << u"Studio Bianchi"_s << true << true;
}

/// A file that could not be read, and is there again at the next start, has lost nothing; one that was
/// emptied may come back as an older one.
void TestImpostazioniGuasteAllAvvio::diCioCheTornaIlDannoSiDimentica()
{
    QFETCH(int, Come);
    QFETCH(QString, Nome);
    QFETCH(bool, NotaIlleggibile);
    QFETCH(bool, SiRicorda);
    const QString File = Scena::FileImpostazioni();
    SalvaImpostazioni({{u"StudioNome"_s, Nome}});
    QVERIFY(QFile::copy(File, File + u".intero"_s));
    Rovina(File, Come);
    {
        Registratore Box;
        Box.Tollera();
        Main(u"-low"_s);
    }
    QVERIFY(EsisteFile(File + u".danno"_s));
    if (NotaIlleggibile) {
        // Too long for what it may hold: nobody may read it, the superuser neither.
        QFile Nota(File + u".danno"_s);
        QVERIFY(Nota.open(QIODevice::Append));
        QCOMPARE(Nota.write(QByteArray(1000, '\n')), 1000);
    }
    QVERIFY(QFile::remove(File) || QDir().rmdir(File));
    QVERIFY(QFile::rename(File + u".intero"_s, File));
    AzzeraSessione();
    Registratore Box;
    Box.Tollera();
    Main(u"-low"_s);
    QCOMPARE(EsisteFile(File + u".danno"_s), SiRicorda);
    QCOMPARE(ContatorePerso(u"MaiScritto"_s), SiRicorda);
}

#include "TestImpostazioniGuasteAllAvvio.moc"
