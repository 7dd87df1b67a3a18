// The save: names, overwriting, and everything that keeps a file from being written.
#include "salvataggi.h"

#include "core/comandi.h"
#include "core/posti.h"
#include "platform/kit/messaggi_qt.h"
#include "platform/system/attese.h"
#include "platform/system/file.h"
#include "platform/system/guasti.h"

#include <QMessageBox>
#include <QPushButton>
#include <QRadioButton>
#include <QScopeGuard>
#include <QScopedValueRollback>
#include <QTimer>

#include <filesystem>

using namespace Qt::StringLiterals;
using namespace salvataggi;

namespace {

QString Rinominata(const QString& Nome)
{
    return u"La parcella, essendo associato ad una pratica, deve iniziare col codice seguito dal trattino!\n"
           u"Il nome della parcella è stato modificato in: "_s +
           Nome;
}

}  // namespace

class TestSalvataggi : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup();
    void nomiRifiutati_data();
    void nomiRifiutati();
    void lEstensioneSiAggiunge();
    void nomeSenzaCartella();
    void conLaPratica_data();
    void conLaPratica();
    void ilCodiceNonEUnaCartella();
    void ilCodiceConSegniVietati();
    void sovrascritturaChiede();
    void lePropriaNonChiede();
    void cioCheCambiaDietroIlMessaggio();
    void dueFinestreSulloStessoFile();
    void sopraUnaNotaAperta();
    void laSecondaFinestraNonHaModifiche();
    void nonSiScrive_data();
    void nonSiScrive();
    void discoPieno();
    void occupatoDaUnAltro();
    void fileDiSolaLettura();
    void unaltroFileCheNonEUnaNota();
    void ilFuocoTornaDovEra_data();
    void ilFuocoTornaDovEra();

private:
    /// What the user had before a save that does not come about, untouched.
    void ComePrima(const Parcella& Prima) const
    {
        QVERIFY(F->Nota == Prima);
        QCOMPARE(F->windowTitle(), u"Nuova parcella"_s);
        QCOMPARE(InfoParcelle[1].Nome, u"Nuova parcella"_s);
        QVERIFY(InfoParcelle[1].Modificata && Controllo(F, "pctSave")->isVisible());
    }

    std::unique_ptr<Tavolo> T;
    frmParcelle* F = nullptr;
};
PROVA(TestSalvataggi);

void TestSalvataggi::init()
{
    T = std::make_unique<Tavolo>();
    F = T->Apri();
    QVERIFY(F);
}

void TestSalvataggi::cleanup()
{
    guasti::LimitePagine = 0;
    T.reset();
}

void TestSalvataggi::nomiRifiutati_data()
{
    QTest::addColumn<QString>("Nome");
    QTest::newRow("data con i punti") << u"Rossi 1.2.2024"_s;
    QTest::newRow("data con i punti ed estensione") << u"Rossi 1.2.2024.mdb"_s;
    QTest::newRow("estensione maiuscola") << u"Rossi.MDB"_s;
    QTest::newRow("estensione mista") << u"Rossi.Mdb"_s;
    QTest::newRow("quadra aperta") << u"Rossi[1"_s;
    QTest::newRow("quadra chiusa") << u"Rossi]"_s;
    QTest::newRow("esclamativo") << u"Rossi!"_s;
    QTest::newRow("solo estensione") << u".mdb"_s;
    QTest::newRow("un punto") << u"."_s;
    QTest::newRow("due punti") << u".."_s;
    QTest::newRow("una cartella") << u"sotto/"_s;
}

void TestSalvataggi::nomiRifiutati()
{
    QFETCH(QString, Nome);
    Tocca(F);
    const Parcella Prima = F->Nota;
    const QStringList File = QDir(T->Ufficio.Cartella()).entryList(QDir::AllEntries | QDir::Hidden);
    T->Voce.AttendiSalva(T->Ufficio.File(Nome));
    T->Voce.Attendi(NomeSbagliato(), vbOK, u"Errore:"_s);
    EseguiComando(u"save"_s, 1, {});
    QCOMPARE(T->Voce.Ultimo().Bandiere, vbCritical);
    ComePrima(Prima);
    QCOMPARE(QDir(T->Ufficio.Cartella()).entryList(QDir::AllEntries | QDir::Hidden), File);
}

void TestSalvataggi::lEstensioneSiAggiunge()
{
    Tocca(F);
    T->Voce.AttendiSalva(T->Ufficio.File(u"Rossi mdb"_s));
    T->Voce.Attendi(Salvata(u"Rossi mdb.mdb"_s));
    EseguiComando(u"save"_s, 1, {});
    QVERIFY(QFile::exists(T->Ufficio.File(u"Rossi mdb.mdb"_s)));
    QCOMPARE(F->windowTitle(), u"rossi mdb"_s);
}

void TestSalvataggi::nomeSenzaCartella()
{
    const QString Qui = QDir::currentPath();
    const QString Altrove = NuovaCartella();
    QDir::setCurrent(Altrove);
    const auto Torna = qScopeGuard([&] { QDir::setCurrent(Qui); });
    Tocca(F);
    T->Voce.AttendiSalva(u"Rossi"_s);
    T->Voce.Attendi(Salvata(u"Rossi.mdb"_s));
    EseguiComando(u"save"_s, 1, {});
    QCOMPARE(F->Nota.Percorso, sessione::ParcellePath + u"Rossi.mdb"_s);
    QVERIFY(QFile::exists(sessione::ParcellePath + u"Rossi.mdb"_s));
    // From a note that has a file the folder is that file's.
    Tocca(F, u"Verdi"_s);
    QDir().mkpath(T->Ufficio.File(u"altre/"_s));
    Salva(*T, T->Ufficio.File(u"altre/Verdi.mdb"_s));
    Tocca(F, u"Bianchi"_s);
    T->Voce.AttendiSalva(u"Bianchi"_s);
    T->Voce.Attendi(Salvata(u"Bianchi.mdb"_s));
    EseguiComando(u"save"_s, 1, {});
    QCOMPARE(F->Nota.Percorso, T->Ufficio.File(u"altre/Bianchi.mdb"_s));
    QCOMPARE(QDir(Altrove).entryList(QDir::Files), QStringList());
}

void TestSalvataggi::conLaPratica_data()
{
    QTest::addColumn<QString>("Scelto");
    QTest::addColumn<QString>("Nome");
    QTest::newRow("senza codice") << u"Rossi.mdb"_s << u"AB12-Rossi.mdb"_s;
    QTest::newRow("codice senza trattino") << u"AB12 Rossi"_s << u"AB12-AB12 Rossi.mdb"_s;
    QTest::newRow("codice in mezzo") << u"Rossi AB12-"_s << u"AB12-Rossi AB12-.mdb"_s;
    QTest::newRow("col codice") << u"AB12-Rossi"_s << u"AB12-Rossi.mdb"_s;
    QTest::newRow("minuscolo") << u"ab12-Rossi"_s << u"ab12-Rossi.mdb"_s;
    QTest::newRow("il codice solo") << u"AB12-"_s << u"AB12-.mdb"_s;
}

void TestSalvataggi::conLaPratica()
{
    QFETCH(QString, Scelto);
    QFETCH(QString, Nome);
    sessione::RichiestaPV2.ID = u"AB12"_s;
    Tocca(F);
    T->Voce.AttendiSalva(T->Ufficio.File(Scelto));
    if (!Nome.startsWith(Scelto)) {
        T->Voce.Attendi(Rinominata(Nome), vbOK, u"Errore salvataggio:"_s);
    }
    T->Voce.Attendi(Salvata(Nome));
    EseguiComando(u"save"_s, 1, {});
    QCOMPARE(T->Voce.InizioDialogo(), sessione::ParcellePath + u"AB12-"_s);
    QCOMPARE(F->Nota.Percorso, T->Ufficio.File(Nome));
    QCOMPARE(Parametro(T->Ufficio.File(Nome), u"NsRif"_s).toString(), u"AB12"_s);
}

void TestSalvataggi::ilCodiceNonEUnaCartella()
{
    sessione::RichiestaPV2.ID = u"12/2026"_s;
    Tocca(F);
    T->Voce.AttendiSalva(T->Ufficio.File(u"Rossi.mdb"_s));
    T->Voce.Attendi(Rinominata(u"12-2026-Rossi.mdb"_s));
    T->Voce.Attendi(Salvata(u"12-2026-Rossi.mdb"_s));
    EseguiComando(u"save"_s, 1, {});
    QCOMPARE(T->Voce.InizioDialogo(), sessione::ParcellePath + u"12-2026-"_s);
    QCOMPARE(Parametro(T->Ufficio.File(u"12-2026-Rossi.mdb"_s), u"NsRif"_s).toString(), u"12/2026"_s);
}

// The dialog proposes a name that the save then takes, the next one too.
void TestSalvataggi::ilCodiceConSegniVietati()
{
    sessione::RichiestaPV2.ID = u"20[24].15!"_s;
    Tocca(F);
    T->Voce.AttendiSalva(T->Ufficio.File(u"20-24--15--Neri.mdb"_s));
    T->Voce.Attendi(Salvata(u"20-24--15--Neri.mdb"_s));
    EseguiComando(u"save"_s, 1, {});
    QCOMPARE(T->Voce.InizioDialogo(), sessione::ParcellePath + u"20-24--15--"_s);
    QCOMPARE(Parametro(T->Ufficio.File(u"20-24--15--Neri.mdb"_s), u"NsRif"_s).toString(), u"20[24].15!"_s);
    Tocca(F, u"Bianchi"_s);
    T->Voce.AttendiSalva(T->Ufficio.File(u"20-24--15--Neri.mdb"_s));
    T->Voce.Attendi(Salvata(u"20-24--15--Neri.mdb"_s));
    EseguiComando(u"save"_s, 1, {});
}

void TestSalvataggi::sovrascritturaChiede()
{
    Tocca(F);
    const QString Altra = SalvaCome(*T, u"altra.mdb"_s);
    F->Nuova({});
    Tocca(F, u"Bianchi"_s);
    T->Voce.AttendiSalva(Altra);
    T->Voce.Attendi(GiaEsiste(u"altra.mdb"_s), vbNo, u"Domanda:"_s);
    EseguiComando(u"save"_s, 1, {});
    QCOMPARE(T->Voce.Ultimo().Bandiere, vbYesNo + vbQuestion);
    QVERIFY(F->Nota.Modificata);
    QCOMPARE(Cliente(Altra), u"Rossi"_s);

    T->Voce.AttendiSalva(Altra);
    T->Voce.Attendi(GiaEsiste(u"altra.mdb"_s), vbYes);
    T->Voce.Attendi(Salvata(u"altra.mdb"_s));
    EseguiComando(u"save"_s, 1, {});
    QCOMPARE(Cliente(Altra), u"Bianchi"_s);
}

void TestSalvataggi::lePropriaNonChiede()
{
    Tocca(F);
    const QString File = SalvaCome(*T, u"mia.mdb"_s);
    Tocca(F, u"Verdi"_s);
    SalvaCome(*T, u"mia.mdb"_s);
    QCOMPARE(T->Voce.InizioDialogo(), File);
    QCOMPARE(Cliente(File), u"Verdi"_s);
}

/// The click of a mnemonic comes a tenth of a second behind its key: with the save's message open already.
void TestSalvataggi::cioCheCambiaDietroIlMessaggio()
{
    Tocca(F);
    auto* Opzione = Controllo<QRadioButton>(F, "optAumRid_7");
    QVERIFY(Opzione);
    T->Voce.AttendiSalva(T->Ufficio.File(u"rossi"_s));
    T->Voce.Attendi(u"La parcella rossi.mdb è stata salvata correttamente!"_s);
    {
        const auto Tardi = [&] {
            if (!F->Nota.Percorso.isEmpty())  // the message, not the dialog before it
                Opzione->click();
        };
        const QScopedValueRollback Spia(Registratore::AlMostrare(), std::function<void()>(Tardi));
        EseguiComando(u"save"_s, 1, {});
    }
    QCOMPARE(F->Nota.AumRidIdx, 7);
    QVERIFY(F->Nota.Modificata);
    QVERIFY(InfoParcelle[1].Modificata);
    QVERIFY(Controllo(F, "pctSave")->isVisible());
}

void TestSalvataggi::dueFinestreSulloStessoFile()
{
    Tocca(F);
    const QString File = SalvaCome(*T, u"nota.mdb"_s);
    const frmParcelle* Altra = T->Apri(File, 2);
    QVERIFY(Altra && Altra != F);
    Tocca(Altra, u"Verdi"_s);
    QVERIFY(MostraAttiva(*F));
    Tocca(F, u"Bianchi"_s);
    Salva(*T, File, false, 2);
    QCOMPARE(Cliente(File), u"Verdi"_s);
    Salva(*T, File, false, 1);  // nobody minds, and the last one wins
    QCOMPARE(Cliente(File), u"Bianchi"_s);
}

/// Who says yes to the name of a note that is open keeps both: nothing but its window holds the first one
/// now.
void TestSalvataggi::sopraUnaNotaAperta()
{
    Tocca(F);
    const QString File = SalvaCome(*T, u"nota.mdb"_s);
    QVERIFY(!F->Nota.Modificata);
    frmParcelle* Altra = T->Apri({}, 2);
    QVERIFY(Altra && Altra != F);
    Tocca(Altra, u"Verdi"_s);
    T->Voce.AttendiSalva(File);
    T->Voce.Attendi(GiaEsiste(u"nota.mdb"_s), vbYes);
    T->Voce.Attendi(Salvata(u"nota.mdb"_s));
    EseguiComando(u"savepar"_s, 2, {});
    QCOMPARE(Cliente(File), u"Verdi"_s);
    QVERIFY(!Altra->Nota.Modificata);
    QVERIFY(F->Nota.Modificata && Controllo(F, "pctSave")->isVisible());

    QVERIFY(MostraAttiva(*F));
    T->Voce.Sparecchia();
    T->Voce.Attendi(
        u"La parcella nota.mdb è stata cambiata da altri dopo che è stata aperta.\nSostituirla con questa?"_s,
        vbNo);
    QVERIFY(!F->SalvaSulPosto());
    QCOMPARE(Cliente(File), u"Verdi"_s);
    QVERIFY(F->Nota.Modificata);
}

/// A note in two windows is one note: the window that nobody has touched has nothing to save.
void TestSalvataggi::laSecondaFinestraNonHaModifiche()
{
    Tocca(F);
    const QString File = SalvaCome(*T, u"nota.mdb"_s);
    const frmParcelle* Altra = T->Apri(File, 2);
    QVERIFY(Altra && Altra != F);
    Tocca(Altra, u"Verdi"_s);
    Salva(*T, File, false, 2);
    QCOMPARE(Cliente(File), u"Verdi"_s);
    QVERIFY(!F->Nota.Modificata);
    QVERIFY(ChiudiParcella(1));
    QCOMPARE(Cliente(File), u"Verdi"_s);
}

void TestSalvataggi::nonSiScrive_data()
{
    QTest::addColumn<QString>("Percorso");
    QTest::addColumn<int>("Errore");
    QTest::newRow("cartella che non c'è") << u"manca/Rossi.mdb"_s << 3044;
    QTest::newRow("un file al posto della cartella") << u"DatiStudio.mdb/Rossi.mdb"_s << 3044;
    QTest::newRow("cartella di sola lettura") << u"chiusa/Rossi.mdb"_s << 75;
    QTest::newRow("una cartella con quel nome") << u"cartella.mdb"_s << 75;
    QTest::newRow("la stessa senza estensione") << u"cartella"_s << 75;
    QTest::newRow("nome troppo lungo") << QString(300, u'a') + u".mdb"_s << 52;
    QTest::newRow("lungo in byte") << QString(120, u'è') + u".mdb"_s << 52;
    QTest::newRow("percorso troppo lungo") << QString(5000, u'a') + u"/Rossi.mdb"_s << 3044;
}

void TestSalvataggi::nonSiScrive()
{
    QFETCH(QString, Percorso);
    QFETCH(int, Errore);
    const QString Chiusa = T->Ufficio.File(u"chiusa"_s);
    QDir().mkpath(Chiusa);
    QDir().mkpath(T->Ufficio.File(u"cartella.mdb"_s));
    QFile::setPermissions(Chiusa, QFile::ReadOwner | QFile::ExeOwner);
    Tocca(F);
    const Parcella Prima = F->Nota;
    const QStringList File = QDir(T->Ufficio.Cartella()).entryList(QDir::AllEntries | QDir::Hidden);
    T->Voce.AttendiSalva(T->Ufficio.File(Percorso));
    T->Voce.Attendi(Guasto(Errore), vbOK, u"Errore:"_s);
    EseguiComando(u"save"_s, 1, {});
    QFile::setPermissions(Chiusa, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    QCOMPARE(T->Voce.Ultimo().Bandiere, vbCritical);
    ComePrima(Prima);
    QCOMPARE(QDir(T->Ufficio.Cartella()).entryList(QDir::AllEntries | QDir::Hidden), File);
    SalvaCome(*T, QString(200, u'a') + u".mdb"_s);  // and elsewhere the note can still be saved
}

void TestSalvataggi::discoPieno()
{
    Tocca(F);
    const QString File = SalvaCome(*T, u"nota.mdb"_s);
    Tocca(F, u"Verdi"_s);
    F->Nota.Psw = u"->>abc"_s;
    guasti::LimitePagine = 3;
    T->Voce.AttendiSalva(File);
    T->Voce.Attendi(Guasto(3026), vbOK, u"Errore:"_s);
    EseguiComando(u"save"_s, 1, {});
    guasti::LimitePagine = 0;
    QVERIFY2(Cliente(File) == u"Rossi", "la versione di prima resta");
    QVERIFY(F->Nota.Modificata && InfoParcelle[1].Modificata);
    QCOMPARE(F->Nota.Psw, u"->>abc"_s);
    QCOMPARE(F->Nota.txtCliente.Testo, u"Verdi"_s);
}

void TestSalvataggi::occupatoDaUnAltro()
{
    Tocca(F);
    const QString File = SalvaCome(*T, u"nota.mdb"_s);
    Tocca(F, u"Verdi"_s);
    // Another name of the same file gets a connection of its own, as another program would.
    const QString Suo = NuovaCartella() + u"suo.mdb"_s;
    std::filesystem::create_hard_link(File.toStdString(), Suo.toStdString());
    attese::BlocchiMs = 50;
    {
        const Database Altro = OpenDatabase(Suo);
        const Transazione Sua(Altro);
        Altro.Execute(u"UPDATE ParcellaParam SET Oggetto='suo'"_s);
        T->Voce.AttendiSalva(File);
        T->Voce.Attendi(Guasto(3260), vbOK, u"Errore:"_s);
        EseguiComando(u"save"_s, 1, {});
    }
    attese::BlocchiMs = 3000;
    QCOMPARE(Cliente(File), u"Rossi"_s);
    QVERIFY(F->Nota.Modificata);
    Salva(*T, File);  // once he has finished
    QCOMPARE(Cliente(File), u"Verdi"_s);
}

void TestSalvataggi::fileDiSolaLettura()
{
    Tocca(F);
    const QString File = SalvaCome(*T, u"nota.mdb"_s);
    ImpostaSolaLettura(File, true);
    Tocca(F, u"Verdi"_s);
    T->Voce.AttendiSalva(File);
    T->Voce.Attendi(NonSovrascrivibile(u"nota.mdb"_s), vbOK, u"Errore:"_s);
    EseguiComando(u"save"_s, 1, {});
    QVERIFY(F->Nota.Modificata);
    QCOMPARE(F->Nota.txtCliente.Testo, u"Verdi"_s);
    QCOMPARE(Cliente(File), u"Rossi"_s);
}

void TestSalvataggi::unaltroFileCheNonEUnaNota()
{
    Tocca(F);
    const QString Lettera = T->Ufficio.File(u"lettera.mdb"_s);
    ScriviFile(Lettera, "Egregio collega");
    T->Voce.AttendiSalva(Lettera);
    T->Voce.Attendi(Guasto(3343) + u": "_s + Lettera, vbOK, u"Errore:"_s);
    EseguiComando(u"save"_s, 1, {});
    QCOMPARE(LeggiFile(Lettera), QByteArray("Egregio collega"));
    QVERIFY(F->Nota.Modificata);
}

void TestSalvataggi::ilFuocoTornaDovEra_data()
{
    QTest::addColumn<QString>("Nome");
    QTest::addColumn<QString>("Messaggio");
    QTest::newRow("nome rifiutato") << u"a.b"_s << NomeSbagliato();
    QTest::newRow("cartella che non c'è") << u"manca/a"_s << Guasto(3044);
    QTest::newRow("annullato") << QString() << QString();
}

void TestSalvataggi::ilFuocoTornaDovEra()
{
    QFETCH(QString, Nome);
    QFETCH(QString, Messaggio);
    Tocca(F);
    auto* Oggetto = Controllo<QLineEdit>(F, "txtOggetto");
    Scrivi(Oggetto, u"Sfratto"_s);
    Messaggi Veri = MessaggiQt();
    Veri.SalvaFile = [&](const QString&, const QString&, const QString&) {
        return Nome.isEmpty() ? QString() : T->Ufficio.File(Nome);
    };
    const Messaggi Prima = InstallaMessaggi(Veri);
    QString Letto;
    if (!Messaggio.isEmpty())
        QTimer::singleShot(0, this, [&] {
            auto* Box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
            QVERIFY(Box);
            Letto = Box->text();
            QTest::keyClick(Box, Qt::Key_Return);
        });
    EseguiComando(u"save"_s, 1, {});
    InstallaMessaggi(Prima);
    QCOMPARE(Letto, Messaggio);
    QCOMPARE(F->focusWidget(), Oggetto);
    QCOMPARE(Oggetto->text(), u"Sfratto"_s);
    QVERIFY(F->Nota.Modificata);
}

#include "TestSalvataggi.moc"
