#include "core/posti.h"
#include "supporto/guasti.h"
#include "supporto/prova.h"
#include "supporto/registratore.h"

#include "campioni.h"
#include "platform/system/percorsi.h"
#include "platform/system/shell.h"
#include "print/modEsporta.h"

#include <QFile>

using namespace Qt::StringLiterals;

namespace {

/// One note in place 1, a user folder of its own, and what the system was asked for.
class Banco
{
public:
    Banco()
    {
        campioni::ImpostaStudio();
        sessione::UserFolder = NuovaCartella();
        AzzeraParcelle();
        InfoParcelle.push_back({false, false, u"rossi"_s});
        Shell Servizi;
        Servizi.ApriFile = [this](const QString& File) {
            Aperti += File;
            return 0;
        };
        Servizi.Avvia = [this](const QString& Programma, const QStringList& Argomenti,
                               const QString& Cartella) {
            Avviati += Programma + u'|' + Argomenti.join(u'|') + u'|' + Cartella;
            return EsitoAvvio;
        };
        Servizi.Clessidra = [this](bool Attiva) { Puntatore += Attiva ? u'+' : u'-'; };
        Precedente = InstallaShell(std::move(Servizi));
    }
    ~Banco()
    {
        InstallaShell(std::move(Precedente));
        AzzeraParcelle();
        AzzeraSessione();
        LimitaDisco(0);
    }
    Banco(const Banco&) = delete;
    Banco& operator=(const Banco&) = delete;

    std::optional<Errore> Componi(const std::optional<QString>& Invio = {}, int Tipo = StampaPrenotula)
    {
        return AnteprimaConEsportazione(vp, Nota, Tipo, 1, Invio);
    }
    void Word()
    {
        EsportaInWord(1, [this] { return Componi(); });
    }
    [[nodiscard]] QString File() const { return Barra(sessione::UserFolder + u"doc"_s) + u"rossi.doc"_s; }

    Superficie vp;
    Parcella Nota = campioni::Civile();
    QStringList Aperti;
    QStringList Avviati;
    QString Puntatore;
    int EsitoAvvio = 0;

private:
    Shell Precedente;
};

const QString InUso =
    u"Attenzione, il documento rossi.doc è già aperto da un'altra applicazione e non può essere "
    u"aggiornato.\nChiudere il documento e riprovare."_s;
const QString NonTrovato = u"Attenzione, il documento rossi.doc non è stato trovato!"_s;
const QString SenzaCompagna = u"Non trovato percorso cartella Parcelle PV2!\n"
                              u"Verificare le impostazioni nel pannello 'Personalizzazione' di PV2"_s;

}  // namespace

Q_DECLARE_METATYPE(std::function<void(const Banco&)>)

class TestEsporta : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void formati();
    void soloQuandoCambia();
    void guastiDelDisco();
    void apertoAltrove();
    void composizioneConEsportazione();
    void nonPronta();
    void ridisegnoMuto_data();
    void ridisegnoMuto();
    void nomeDellaNota();
    void invio();
    void invioSenzaCartella();
    void invioCheNonRiesce();
    void word();
    void wordInUso_data();
    void wordInUso();
    void wordMancante();
    void wordNonAggiornato();
    void wordComposizioneFallita();
    void editor();
    void editorCheNonParte();
};
PROVA(TestEsporta);

void TestEsporta::formati()
{
    Banco B;
    QVERIFY(!B.Componi());
    const Documento& Doc = B.vp.Contenuto();
    QVERIFY(DocumentoEsportato(Doc, FormatoEsportazione::Word, {}).startsWith("{\\rtf1"));
    QVERIFY(DocumentoEsportato(Doc, FormatoEsportazione::Html, {}).startsWith("<!DOCTYPE html>"));
    QCOMPARE(NumeroErrore([&] { (void)DocumentoEsportato(Doc, FormatoEsportazione(7), {}); }), 5);
}

void TestEsporta::soloQuandoCambia()
{
    Banco B;
    QVERIFY(!B.Componi());
    const Documento Doc = B.vp.Contenuto();
    const QString File = NuovaCartella() + u"a.doc"_s;
    QVERIFY(EsportaDocumento(Doc, File, FormatoEsportazione::Word, u"A"_s));
    QVERIFY(!EsportaDocumento(Doc, File, FormatoEsportazione::Word, u"A"_s));
    QVERIFY(EsportaDocumento(Doc, File, FormatoEsportazione::Word, u"B"_s));
    // One that only begins alike is another.
    ScriviFile(File, LeggiFile(File) + ' ');
    QVERIFY(EsportaDocumento(Doc, File, FormatoEsportazione::Word, u"B"_s));
    QCOMPARE(LeggiFile(File), DocumentoEsportato(Doc, FormatoEsportazione::Word, u"B"_s));
}

void TestEsporta::guastiDelDisco()
{
    Banco B;
    const Documento Doc;
    const auto Scrivi = [&](const QString& File) {
        return NumeroErrore([&] { EsportaDocumento(Doc, File, FormatoEsportazione::Word, {}); });
    };
    const QString Cartella = NuovaCartella();
    QCOMPARE(Scrivi(Cartella + u"manca/a.doc"_s), 76);
    CreaCartella(Cartella + u"a.doc"_s);
    QCOMPARE(Scrivi(Cartella + u"a.doc"_s), 75);

    const QString Protetto = Cartella + u"b.doc"_s;
    ScriviFile(Protetto, "vecchio");
    ImpostaSolaLettura(Protetto, true);
    QCOMPARE(Scrivi(Protetto), 75);
    QCOMPARE(LeggiFile(Protetto), "vecchio"_ba);
    ImpostaSolaLettura(Protetto, false);
    LimitaDisco(10);
    QCOMPARE(Scrivi(Protetto), 61);
    QCOMPARE(LeggiFile(Protetto), "vecchio"_ba);
    LimitaDisco(0);
    QCOMPARE(Scrivi(Protetto), 0);
}

/// A redraw leaves alone the file that somebody reads in a word processor, and says nothing.
void TestEsporta::apertoAltrove()
{
    Banco B;
    Registratore Voce;
    QVERIFY(!B.Componi());
    const QByteArray Prima = LeggiFile(B.File());
    const QString Segno = CartellaFile(B.File()) + u".~lock.rossi.doc#"_s;
    ScriviFile(Segno, "neri");
    B.Nota.txtDatiStaOgg.Testo = u"sfratto"_s;
    const auto Esito = B.Componi();
    QVERIFY(Esito);
    QCOMPARE(Esito->Numero, 70);
    QCOMPARE(LeggiFile(B.File()), Prima);
    QVERIFY(campioni::TestiBlocchi(B.vp.Contenuto()).contains(u"Oggetto: sfratto"_s));
    // Closed there, it is brought up to date.
    QVERIFY(QFile::remove(Segno));
    QVERIFY(!B.Componi());
    QVERIFY(LeggiFile(B.File()).contains("sfratto"));
}

void TestEsporta::composizioneConEsportazione()
{
    Banco B;
    QVERIFY(!EsisteFile(B.File()));
    QVERIFY(!B.Componi());
    QCOMPARE(B.vp.ExportFile, B.File());
    QCOMPARE(B.vp.ExportFormat, 4);
    const QByteArray Prima = LeggiFile(B.File());
    QVERIFY(Prima.contains("{\\title Prenotula - rossi}"));
    QVERIFY(Prima.contains("recupero di un credito commerciale"));
    B.Nota.txtDatiStaOgg.Testo = u"sfratto"_s;
    QVERIFY(!B.Componi());
    QVERIFY(LeggiFile(B.File()).contains("sfratto"));
    // The paper of the printer.
    QVERIFY(!AnteprimaConEsportazione(B.vp, B.Nota, StampaPrenotula, 1, {}, {215.9, 279.4}));
    QVERIFY(LeggiFile(B.File()).contains("\\paperw12240"));
}

void TestEsporta::nonPronta()
{
    Banco B;
    B.Nota.Pronta = false;
    QVERIFY(!B.Componi());
    QVERIFY(!B.Componi(NuovaCartella()));
    QVERIFY(!EsisteCartella(sessione::UserFolder + u"doc"_s));
    QVERIFY(B.vp.ExportFile.isEmpty());
}

void TestEsporta::ridisegnoMuto_data()
{
    QTest::addColumn<std::function<void(const Banco&)>>("Ostacolo");
    QTest::addColumn<int>("Numero");

    const auto Riga = [](const char* Nome, int Numero, const std::function<void(const Banco&)>& Ostacolo) {
        QTest::newRow(Nome) << Ostacolo << Numero;
    };
    Riga("a folder that cannot be made", 75,
         [](const Banco&) { ScriviFile(sessione::UserFolder + u"doc"_s, "no folder"); });
    Riga("a user folder that is a file", 75, [](const Banco&) {
        ScriviFile(sessione::UserFolder + u"utente"_s, "no folder");
        sessione::UserFolder += u"utente/"_s;
    });
    Riga("a file that is read only", 75, [](const Banco& B) {
        CreaCartella(sessione::UserFolder + u"doc"_s);
        ScriviFile(B.File(), "vecchio");
        ImpostaSolaLettura(B.File(), true);
    });
    Riga("a folder of that name", 75, [](const Banco& B) {
        CreaCartella(sessione::UserFolder + u"doc"_s);
        CreaCartella(B.File());
    });
    Riga("a full disk", 61, [](const Banco&) { LimitaDisco(100); });
    Riga("a name too long for the disk", 75, [](const Banco&) { InfoParcelle[1].Nome = QString(300, u'x'); });
}

void TestEsporta::ridisegnoMuto()
{
    QFETCH(std::function<void(const Banco&)>, Ostacolo);
    QFETCH(int, Numero);
    Banco B;
    Registratore Voce;  // a box would fail the test
    Ostacolo(B);
    const auto Esito = B.Componi();
    QVERIFY(Esito);
    QCOMPARE(Esito->Numero, Numero);
    QVERIFY(!B.vp.Contenuto().Blocchi.empty());
}

void TestEsporta::nomeDellaNota()
{
    Banco B;
    InfoParcelle[1].Nome = u"Nuova parcella:2"_s;
    QCOMPARE(SteloDocumento(1), u"Nuova parcella-2"_s);
    QCOMPARE(FileDocumento(1), Barra(sessione::UserFolder + u"doc"_s) + u"Nuova parcella-2.doc"_s);
    // Every sign that some system refuses in a name; the export finds its place all the same.
    InfoParcelle[1].Nome = u"a\\b/c:d*e?f\"g<h>i|j {k} è"_s;
    QCOMPARE(SteloDocumento(1), u"a-b-c-d-e-f-g-h-i-j {k} è"_s);
    QVERIFY(!B.Componi());
    QVERIFY(LeggiFile(FileDocumento(1)).contains("{\\title Prenotula - a-b-c-d-e-f-g-h-i-j \\{k\\} \\'e8}"));
    QCOMPARE(SteloDocumento(0), QString());
    QCOMPARE(SteloDocumento(2), QString());
}

void TestEsporta::invio()
{
    Banco B;
    const QString Cartella = NuovaCartella();
    QVERIFY(!B.Componi(Cartella));
    QCOMPARE(B.vp.ExportFormat, 3);
    QVERIFY(LeggiFile(Cartella + u"rossi.htm"_s).startsWith("<!DOCTYPE html>"));
    QVERIFY(!EsisteFile(B.File()));
    // The next redraw is for the office again.
    QVERIFY(!B.Componi());
    QVERIFY(EsisteFile(B.File()));
}

void TestEsporta::invioSenzaCartella()
{
    Banco B;
    Registratore Voce;
    Voce.Attendi(SenzaCompagna);
    QVERIFY(!B.Componi(QString()));
    QVERIFY(!B.vp.Contenuto().Blocchi.empty());
    QVERIFY(!EsisteFile(B.File()));  // no target was ever set

    // The last target stays.
    QVERIFY(!B.Componi());
    B.Nota.txtDatiStaOgg.Testo = u"sfratto"_s;
    Voce.Attendi(SenzaCompagna);
    QVERIFY(!B.Componi(QString()));
    QVERIFY(LeggiFile(B.File()).contains("sfratto"));
}

void TestEsporta::invioCheNonRiesce()
{
    Banco B;
    Registratore Voce;
    Voce.Attendi(u"Errore: "_s + DescrizioneErrore(76) + u" (76)"_s);
    const auto Esito = B.Componi(NuovaCartella() + u"manca"_s);
    QVERIFY(Esito);
    QCOMPARE(Esito->Numero, 76);
}

void TestEsporta::word()
{
    Banco B;
    Registratore Voce;
    B.Word();
    QCOMPARE(B.Aperti, QStringList{B.File()});
    QVERIFY(EsisteFile(B.File()));
    QCOMPARE(B.Puntatore, u"+-"_s);
}

void TestEsporta::wordInUso_data()
{
    QTest::addColumn<bool>("Protetto");
    QTest::addColumn<bool>("Aperto");
    QTest::newRow("read-only") << true << false;
    QTest::newRow("open in a word processor") << false << true;
    QTest::newRow("free") << false << false;
}

void TestEsporta::wordInUso()
{
    QFETCH(bool, Protetto);
    QFETCH(bool, Aperto);
    Banco B;
    Registratore Voce;
    CreaCartella(sessione::UserFolder + u"doc"_s);
    ScriviFile(B.File(), "vecchio");
    if (Aperto)
        ScriviFile(CartellaFile(B.File()) + u".~lock.rossi.doc#"_s, "neri");
    ImpostaSolaLettura(B.File(), Protetto);
    const bool Rifiutato = Protetto || Aperto;
    if (Rifiutato)
        Voce.Attendi(InUso, vbOK, u"Errore:"_s);
    B.Word();
    ImpostaSolaLettura(B.File(), false);
    // The preview is as it was, and nothing is opened.
    QCOMPARE(B.vp.Contenuto().Blocchi.empty(), Rifiutato);
    QCOMPARE(B.Aperti.isEmpty(), Rifiutato);
    QCOMPARE(LeggiFile(B.File()) == "vecchio", Rifiutato);
    QCOMPARE(B.Puntatore, u"+-"_s);
}

void TestEsporta::wordMancante()
{
    Banco B;
    Registratore Voce;
    ScriviFile(sessione::UserFolder + u"doc"_s, "no folder");
    Voce.Attendi(NonTrovato, vbOK, u"Errore:"_s);
    B.Word();
    QVERIFY(B.Aperti.isEmpty());
    QCOMPARE(B.Puntatore, u"+-"_s);
}

void TestEsporta::wordNonAggiornato()
{
    Banco B;
    Registratore Voce;
    CreaCartella(sessione::UserFolder + u"doc"_s);
    ScriviFile(B.File(), "vecchio");
    LimitaDisco(20);
    Voce.Attendi(u"Errore: "_s + DescrizioneErrore(61) + u" (61)"_s);
    B.Word();
    QVERIFY(B.Aperti.isEmpty());
    QCOMPARE(LeggiFile(B.File()), "vecchio"_ba);
}

void TestEsporta::wordComposizioneFallita()
{
    Banco B;
    Registratore Voce;
    CreaCartella(sessione::UserFolder + u"doc"_s);
    ScriviFile(B.File(), "vecchio");
    Voce.Attendi(u"Errore: "_s + DescrizioneErrore(13) + u" (13)"_s);
    EsportaInWord(1, []() -> std::optional<Errore> { throw Errore(13); });
    QVERIFY(B.Aperti.isEmpty());
    QVERIFY(B.Puntatore.endsWith(u'-'));
}

void TestEsporta::editor()
{
    Banco B;
    Registratore Voce;
    sessione::WP.clear();
    AvviaEditor(1);
    QVERIFY(B.Avviati.isEmpty());
    sessione::WP = u"/opt/editor di testi"_s;
    AvviaEditor(1);
    QCOMPARE(B.Avviati, QStringList{u"/opt/editor di testi|"_s + B.File() + u'|' +
                                    Barra(sessione::UserFolder + u"doc"_s)});
}

void TestEsporta::editorCheNonParte()
{
    Banco B;
    Registratore Voce;
    B.EsitoAvvio = 53;
    sessione::WP = u"manca"_s;
    Voce.Attendi(u"Si è verificato un errore nell'apertura"_s, vbOK, u"Errore!"_s);
    AvviaEditor(1);
}

#include "TestEsporta.moc"
