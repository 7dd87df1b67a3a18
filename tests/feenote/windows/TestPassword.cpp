// The password of a note: set, asked for, kept.
#include "salvataggi.h"

#include "core/aperture.h"
#include "core/comandi.h"
#include "core/posti.h"
#include "feenote/file/modSalvataggio.h"
#include "platform/kit/messaggi_qt.h"
#include "platform/system/file.h"

#include <QInputDialog>
#include <QTimer>

using namespace Qt::StringLiterals;
using namespace salvataggi;

namespace {

const QString Protetta = u"Attenzione, la parcella è protetta! Le modifiche potranno essere salvate\n"
                         u"solo dopo aver specificato la chiave di protezione."_s;
const QString ChiediNuova =
    u"Immettere la password per la protezione della parcella:\n"
    u"(Attenzione saranno presi in considerazione solo i primi 6 caratteri inseriti!)"_s;
const QString ChiediPsw = u"Specificare la password per modificare la parcella:"_s;
const QString Sbagliata = u"La password immessa non è corretta!\nL'operazione non è stata effettuata."_s;

QString Impostata(const QString& Psw)
{
    return u"E' stata impostata la password: "_s + Psw +
           u"\nLa protezione diverrà operativa al salvataggio della parcella."_s;
}

}  // namespace

class TestPassword : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup();
    void proteggi();
    void proteggiDiNuovo();
    void primaSiGuardaIlCampo_data();
    void primaSiGuardaIlCampo();
    void laRispostaVuotaNonFaNulla();
    void contanoSeiCaratteri_data();
    void contanoSeiCaratteri();
    void sbagliataLasciaIlFileComE_data();
    void sbagliataLasciaIlFileComE();
    void giustaSovrascrive();
    void sullaPropriaSiChiedeOgniVolta();
    void conUnAltroNomeNonSiChiedeEResta();
    void restaAttraversoLeRiaperture_data();
    void restaAttraversoLeRiaperture();
    void protettaSiApreESiStampa();
    void fuoriDallaTabellaDeiCaratteri();
    void cosaVuolDireSenzaPassword_data();
    void cosaVuolDireSenzaPassword();
    void decifrataMaleChiedeSempre();
    void ancheSenzaFinestra();
    void laFinestraDiImmissione();

private:
    void Proteggi(const QString& Digitata, const QString& Detta)
    {
        T->Voce.AttendiImmissione(ChiediNuova, Digitata);
        T->Voce.Attendi(Impostata(Detta), vbOK, u"Messaggio:"_s);
        EseguiComando(u"lock"_s, 1, {});
    }
    /// A protected note of the client Rossi, by the window; the window then holds a new note.
    [[nodiscard]] QString SalvaProtetta(const QString& Psw)
    {
        Tocca(F);
        Proteggi(Psw, Psw.left(6));
        const QString File = SalvaCome(*T, u"chiusa.mdb"_s);
        F->Nuova({});
        return File;
    }

    std::unique_ptr<Tavolo> T;
    frmParcelle* F = nullptr;
};
PROVA(TestPassword);

void TestPassword::init()
{
    T = std::make_unique<Tavolo>();
    F = T->Apri();
    QVERIFY(F);
    Aperture.Proteggi = [](int Indice) { Parcelle(Indice)->Proteggi(); };
}

void TestPassword::cleanup()
{
    T.reset();
}

void TestPassword::proteggi()
{
    QVERIFY(!F->Nota.Modificata);
    Proteggi(u"abc"_s, u"abc"_s);
    QCOMPARE(T->Voce.Mostrato(0).Titolo, u"Proteggi parcella"_s);
    QCOMPARE(T->Voce.Mostrato(0).Testo, ChiediNuova);
    QCOMPARE(T->Voce.Ultimo().Bandiere, vbInformation);
    QCOMPARE(F->Nota.Psw, u"->>abc"_s);
    QVERIFY(Controllo(F, "pctLock")->isVisible());
    QVERIFY2(InfoParcelle[1].Modificata, "altrimenti non si potrebbe salvare");
    const QString File = SalvaCome(*T, u"vuota e chiusa.mdb"_s);
    QCOMPARE(Parametro(File, u"Psw"_s).toString(), u"097098099"_s);
    QCOMPARE(F->Nota.Psw, u"abc"_s);
    QVERIFY(Controllo(F, "pctLock")->isVisible());
}

void TestPassword::proteggiDiNuovo()
{
    Proteggi(u"abc"_s, u"abc"_s);
    for (int i = 0; i < 2; ++i) {
        T->Voce.Attendi(u"La password di protezione è già impostata!"_s, vbOK, u"Errore:"_s);
        EseguiComando(u"lock"_s, 1, {});
        QCOMPARE(T->Voce.Ultimo().Bandiere, vbCritical);
        QCOMPARE(F->Nota.Psw, i == 0 ? u"->>abc"_s : u"abc"_s);
        if (i == 0)
            SalvaCome(*T, u"chiusa.mdb"_s);
    }
}

void TestPassword::primaSiGuardaIlCampo_data()
{
    QTest::addColumn<bool>("Protetta");
    QTest::addColumn<QString>("Messaggio");

    QTest::newRow("the closed window still holds the password")
        << true << u"La password di protezione è già impostata!"_s;
    QTest::newRow("without one it is asked whether a note is on screen")
        << false << u"Occorre prima selezionare una parcella!"_s;
}

void TestPassword::primaSiGuardaIlCampo()
{
    QFETCH(bool, Protetta);
    QFETCH(QString, Messaggio);
    if (Protetta) {
        Proteggi(u"abc"_s, u"abc"_s);
        SalvaCome(*T, u"chiusa.mdb"_s);
    }
    QVERIFY(F->close());
    const QString Aveva = F->Nota.Psw;
    T->Voce.Attendi(Messaggio, vbOK, u"Errore:"_s);
    EseguiComando(u"lock"_s, 1, {});
    QCOMPARE(T->Voce.Ultimo().Bandiere, vbCritical);
    QCOMPARE(F->Nota.Psw, Aveva);
    QVERIFY(InfoParcelle[1].Libera && !F->isVisible());
}

void TestPassword::laRispostaVuotaNonFaNulla()
{
    T->Voce.AttendiImmissione(ChiediNuova, {});
    EseguiComando(u"lock"_s, 1, {});
    QVERIFY(F->Nota.Psw.isEmpty() && !F->Nota.Modificata && !InfoParcelle[1].Modificata);
    QVERIFY(!Controllo(F, "pctLock")->isVisible());
}

void TestPassword::contanoSeiCaratteri_data()
{
    QTest::addColumn<QString>("Digitata");
    QTest::addColumn<QString>("Tenuta");
    QTest::addColumn<QString>("Cifre");
    QTest::newRow("sei") << u"123456"_s << u"123456"_s << u"049050051052053054"_s;
    QTest::newRow("otto") << u"12345678"_s << u"123456"_s << u"049050051052053054"_s;
    QTest::newRow("accento e maiuscola") << u"Perché?"_s << u"Perché"_s << u"080101114099104233"_s;
    // A letter of two units would be cut in half, and nobody could type the half again.
    QTest::newRow("due unità a cavallo del sesto") << u"abcde😀f"_s << u"abcde"_s << u"097098099100101"_s;
}

void TestPassword::contanoSeiCaratteri()
{
    QFETCH(QString, Digitata);
    QFETCH(QString, Tenuta);
    QFETCH(QString, Cifre);
    Proteggi(Digitata, Tenuta);
    QCOMPARE(F->Nota.Psw, u"->>"_s + Tenuta);
    const QString File = SalvaCome(*T, u"sei.mdb"_s);
    QCOMPARE(Parametro(File, u"Psw"_s).toString(), Cifre);
    T->Voce.AttendiImmissione(ChiediPsw, Tenuta);
    QVERIFY(ControllaPsw(File));
    if (Digitata == Tenuta)
        return;
    T->Voce.AttendiImmissione(ChiediPsw, Digitata);
    T->Voce.Attendi(Sbagliata);
    QVERIFY2(!ControllaPsw(File), "si confronta con ciò che è stato detto");
}

void TestPassword::sbagliataLasciaIlFileComE_data()
{
    QTest::addColumn<QString>("Risposta");
    QTest::newRow("vuota") << QString();
    QTest::newRow("un'altra") << u"altra"_s;
    QTest::newRow("minuscola") << u"segret"_s;
    QTest::newRow("con uno spazio") << u"Segre "_s;
    QTest::newRow("più lunga") << u"Segreta"_s;
    QTest::newRow("le cifre del file") << u"083101103114101116"_s;
}

void TestPassword::sbagliataLasciaIlFileComE()
{
    QFETCH(QString, Risposta);
    const QString File = SalvaProtetta(u"Segret"_s);
    const QByteArray Prima = LeggiFile(File);
    Tocca(F, u"Ladro"_s);
    const QString Titolo = F->windowTitle();
    const qsizetype Detti = T->Voce.Mostrati().size();
    T->Voce.AttendiSalva(File);
    T->Voce.AttendiImmissione(ChiediPsw, Risposta);
    if (!Risposta.isEmpty())
        T->Voce.Attendi(Sbagliata, vbOK, u"Errore:"_s);
    EseguiComando(u"save"_s, 1, {});
    // Nothing more is said than the answer deserves: no line that the save was not done.
    QCOMPARE(T->Voce.Mostrati().size() - Detti, Risposta.isEmpty() ? 1 : 2);
    QCOMPARE(T->Voce.Mostrato(Detti).Titolo, u"Immissione password"_s);
    QVERIFY(Risposta.isEmpty() || T->Voce.Ultimo().Bandiere == vbCritical);
    QCOMPARE(LeggiFile(File), Prima);
    QVERIFY(F->Nota.Modificata && F->Nota.Percorso.isEmpty());
    QCOMPARE(F->windowTitle(), Titolo);
}

void TestPassword::giustaSovrascrive()
{
    const QString File = SalvaProtetta(u"segret"_s);
    Tocca(F, u"Erede"_s);
    T->Voce.AttendiSalva(File);
    T->Voce.AttendiImmissione(ChiediPsw, u"segret"_s);
    T->Voce.Attendi(GiaEsiste(u"chiusa.mdb"_s), vbYes, u"Domanda:"_s);
    T->Voce.Attendi(Salvata(u"chiusa.mdb"_s));
    EseguiComando(u"save"_s, 1, {});
    QCOMPARE(Cliente(File), u"Erede"_s);
    QVERIFY2(LeggiPsw(File).isEmpty(), "la nuova nota non ne aveva una");
}

void TestPassword::sullaPropriaSiChiedeOgniVolta()
{
    Tocca(F);
    Proteggi(u"abc"_s, u"abc"_s);
    const QString File = SalvaCome(*T, u"chiusa.mdb"_s);
    for (const QString& Nome : {u"Verdi"_s, u"Bianchi"_s}) {
        Tocca(F, Nome);
        T->Voce.AttendiSalva(File);
        T->Voce.AttendiImmissione(ChiediPsw, u"abc"_s);
        T->Voce.Attendi(Salvata(u"chiusa.mdb"_s));  // its own file: whether to replace it is no question
        EseguiComando(u"save"_s, 1, {});
        QCOMPARE(Cliente(File), Nome);
        QCOMPARE(LeggiPsw(File), u"abc"_s);
    }
}

void TestPassword::conUnAltroNomeNonSiChiedeEResta()
{
    Tocca(F);
    Proteggi(u"abc"_s, u"abc"_s);
    const QString Prima = SalvaCome(*T, u"prima.mdb"_s);
    Tocca(F, u"Verdi"_s);
    const QString Copia = SalvaCome(*T, u"copia.mdb"_s);
    QCOMPARE(LeggiPsw(Copia), u"abc"_s);
    QCOMPARE(LeggiPsw(Prima), u"abc"_s);
    QCOMPARE(Cliente(Prima), u"Rossi"_s);
}

void TestPassword::restaAttraversoLeRiaperture_data()
{
    QTest::addColumn<QString>("Psw");
    QTest::newRow("semplice") << u"abc"_s;
    // The mark of a password not yet saved, typed as a password: its characters are the user's own.
    QTest::newRow("il segno e altro") << u"->>ab"_s;
    QTest::newRow("il segno da solo") << u"->>"_s;
    QTest::newRow("due volte il segno") << u"->>->>"_s;
}

void TestPassword::restaAttraversoLeRiaperture()
{
    QFETCH(QString, Psw);
    const QString File = SalvaProtetta(Psw);
    for (const QString& Nome : {u"Verdi"_s, u"Bianchi"_s, u"Neri"_s}) {
        QCOMPARE(LeggiPsw(File), Psw);
        T->Voce.Attendi(Protetta, vbOK, u"Messaggio:"_s);
        F->Carica(File);
        QVERIFY(Controllo(F, "pctLock")->isVisible());
        Tocca(F, Nome);
        T->Voce.AttendiSalva(File);
        T->Voce.AttendiImmissione(ChiediPsw, Psw);
        T->Voce.Attendi(Salvata(u"chiusa.mdb"_s));
        EseguiComando(u"save"_s, 1, {});
        QCOMPARE(Cliente(File), Nome);
    }
    // And twice in one window, whose field then holds the saved one.
    Tocca(F, u"Gialli"_s);
    QCOMPARE(LeggiPsw(SalvaCome(*T, u"copia.mdb"_s)), Psw);
}

void TestPassword::protettaSiApreESiStampa()
{
    CompilaCivile(F);
    ClicScheda(F, SchedaListaOnorari);
    ClicScheda(F, SchedaBase);
    const QString File = SalvaProtetta(u"abc"_s);
    QVERIFY(F->close());
    T->Voce.Attendi(Protetta, vbOK, u"Messaggio:"_s);
    QCOMPARE(T->Apri(File), F);
    QVERIFY(Controllo(F, "pctLock")->isVisible());
    QCOMPARE(Controllo<QLineEdit>(F, "txtCliente")->text(), u"Rossi"_s);
    ClicScheda(F, SchedaDiStampa);
    Scegli(Controllo<QComboBox>(F, "cmbTipoStampa"), StampaPrenotula);
    QVERIFY2(!Controllo<QLabel>(F, "txtPage")->text().isEmpty(), "composta senza chiedere nulla");
    QVERIFY(!F->Nota.Modificata);
    QVERIFY(F->close());
}

void TestPassword::fuoriDallaTabellaDeiCaratteri()
{
    const QString File = SalvaProtetta(u"Жук"_s);
    QCOMPARE(Parametro(File, u"Psw"_s).toString(), u"063063063"_s);
    T->Voce.AttendiImmissione(ChiediPsw, u"Жук"_s);
    QVERIFY2(ControllaPsw(File), "chi l'ha impostata la sa");
    T->Voce.AttendiImmissione(ChiediPsw, u"Жу"_s);
    T->Voce.Attendi(Sbagliata);
    QVERIFY(!ControllaPsw(File));
    T->Voce.AttendiImmissione(ChiediPsw, u"abc"_s);
    T->Voce.Attendi(Sbagliata);
    QVERIFY(!ControllaPsw(File));
}

void TestPassword::cosaVuolDireSenzaPassword_data()
{
    QTest::addColumn<QVariant>("Psw");
    QTest::newRow("Null") << QVariant();
    QTest::newRow("vuota") << QVariant(QString());
    QTest::newRow("spazi") << QVariant(u"   "_s);
    QTest::newRow("zero") << QVariant(u"0"_s);
}

void TestPassword::cosaVuolDireSenzaPassword()
{
    QFETCH(QVariant, Psw);
    Tocca(F);
    const QString File = SalvaCome(*T, u"nota.mdb"_s);
    EseguiSu(File, u"UPDATE ParcellaParam SET Psw=?"_s, {Psw});
    QVERIFY(ControllaPsw(File));  // a question would fail the test
    Tocca(F, u"Verdi"_s);
    SalvaCome(*T, u"nota.mdb"_s);
    QCOMPARE(Cliente(File), u"Verdi"_s);
}

void TestPassword::decifrataMaleChiedeSempre()
{
    Tocca(F);
    const QString File = SalvaCome(*T, u"nota.mdb"_s);
    EseguiSu(File, u"UPDATE ParcellaParam SET Psw='9'"_s);
    T->Voce.AttendiImmissione(ChiediPsw, {});
    QVERIFY(!ControllaPsw(File));
    T->Voce.AttendiImmissione(ChiediPsw, u"abc"_s);
    T->Voce.Attendi(Sbagliata);
    QVERIFY(!ControllaPsw(File));
}

void TestPassword::ancheSenzaFinestra()
{
    // Whoever deletes or renames a note has its path alone.
    const QString File = T->Ufficio.File(u"altrui.mdb"_s);
    Parcella Altrui = NotaCivile();
    ScriviNota(File, Altrui);
    QVERIFY(ControllaPsw(File));
    Altrui.Psw = u"->>Zz9"_s;
    ScriviNota(File, Altrui);
    T->Voce.AttendiImmissione(ChiediPsw, u"Zz9"_s);
    QVERIFY(ControllaPsw(File));
    QCOMPARE(T->Voce.Ultimo().Titolo, u"Immissione password"_s);
    QCOMPARE(FileAperti(File), 0);
    QCOMPARE(NumeroErrore([&] { (void)ControllaPsw(T->Ufficio.File(u"manca.mdb"_s)); }), 3024);
}

void TestPassword::laFinestraDiImmissione()
{
    const Messaggi Prima = InstallaMessaggi(MessaggiQt());
    QString Titolo;
    QString Testo;
    QWidget* Aperta = nullptr;
    QTimer::singleShot(0, this, [&] {
        auto* Box = qobject_cast<QInputDialog*>(QApplication::activeModalWidget());
        QVERIFY(Box);
        Titolo = Box->windowTitle();
        Testo = Box->labelText();
        Aperta = Box->parentWidget();
        Box->setTextValue(u"abc"_s);
        Box->reject();
    });
    Controllo(F, "txtCliente")->setFocus();
    EseguiComando(u"lock"_s, 1, {});
    InstallaMessaggi(Prima);
    QCOMPARE(Titolo, u"Proteggi parcella"_s);
    QCOMPARE(Testo, ChiediNuova);
    QCOMPARE(Aperta, F);
    QVERIFY2(F->Nota.Psw.isEmpty() && !F->Nota.Modificata, "annullata");
    QCOMPARE(F->focusWidget(), Controllo(F, "txtCliente"));
}

#include "TestPassword.moc"
