// Two programs on one folder of notes: one lists it, while the other saves, renames, deletes, or keeps a note
// to itself.
#include "bancotrova.h"

#include "core/posti.h"
#include "platform/base/numerierrore.h"
#include "platform/database/database.h"
#include "platform/system/attese.h"
#include "platform/system/file.h"
#include "supporto/altroprogramma.h"

#include <QRegularExpression>

using namespace Qt::StringLiterals;

class TestTrovaDueProgrammi : public QObject, private BancoTrova
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();
    void lAltro();
    void mentreLAltroLavora();
    void lAltroHaCancellato();
    void lAltroHaRinominatoLaNotaAperta();
    void lAltroHaCancellatoLaNotaAperta();
    void lAltroTieneUnaNota();

private:
    /// The other program, in the office of this one.
    class Altro : public AltroProgramma
    {
    public:
        explicit Altro(const QString& Parte)
            : AltroProgramma(u"TestTrovaDueProgrammi"_s, Parte, sessione::ParcellePath)
        {}
    };
    [[nodiscard]] QString Segno(const QString& Nome) const { return Note + Nome; }
    void Rinomina(const QString& Nome, const QString& Nuovo);
    void Cancella(const QString& Nome);
    void SalvaMia(frmParcelle* Finestra, const QString& Nome);
    void ParteLavora();
};
PROVA(TestTrovaDueProgrammi);

void TestTrovaDueProgrammi::init()
{
    Prepara();
    if (!Altro::Cartella().isEmpty())
        sessione::ParcellePath = Note = Altro::Cartella();
    attese::BlocchiMs = 100;
    attese::TurnoMs = 3000;
}

void TestTrovaDueProgrammi::cleanup()
{
    attese::BlocchiMs = 3000;
    Sgombra();
}

// ---- hands

void TestTrovaDueProgrammi::Rinomina(const QString& Nome, const QString& Nuovo)
{
    VaiSu(Nome);
    T->Voce.AttendiImmissione(u"Immettere il nuovo nome da assegnare alla parcella:"_s, Nuovo);
    T->Voce.Attendi(u"La parcella è stata rinominata!"_s, vbOK, u"Messaggio:"_s);
    Premi(Qt::Key_F2);
}

void TestTrovaDueProgrammi::Cancella(const QString& Nome)
{
    VaiSu(Nome);
    T->Voce.Attendi(u"Confermi la cancellazione della parcella: '%1'?"_s.arg(Nome), vbYes, u"Domanda:"_s);
    T->Voce.Attendi(u"La parcella è stata eliminata!"_s, vbOK, u"Messaggio:"_s);
    Premi(Qt::Key_Delete);
}

void TestTrovaDueProgrammi::SalvaMia(frmParcelle* Finestra, const QString& Nome)
{
    Finestra->SetModificata(true);
    T->Voce.AttendiSalva(Note + Nome);
    T->Voce.Attendi(u"La parcella %1 è stata salvata correttamente!"_s.arg(Nome));
    QVERIFY(Finestra->SalvaParcella(false));
}

// ---- the parts of the other program

constexpr int Giri = 8;

/// Saves a note, gives it another name, deletes every other one.
void TestTrovaDueProgrammi::ParteLavora()
{
    frmParcelle* Mia = T->Apri();
    QVERIFY(Mia);
    Scrivi(Controllo<QLineEdit>(Mia, "txtCliente"), u"Altrui"_s);
    for (int Giro = 0; Giro < Giri; ++Giro) {
        const QString Nome = QString::number(Giro);
        // The window follows its file: each round begins with a name of its own.
        Mia->Nota.Percorso.clear();
        SalvaMia(Mia, u"giro %1.mdb"_s.arg(Nome));
        Apri();
        Rinomina(u"giro "_s + Nome, u"mosso "_s + Nome);
        if (Giro % 2 == 0)
            Cancella(u"mosso "_s + Nome);
    }
    Mia->SetModificata(false);
}

/// Not a test of its own: what the other program does.
void TestTrovaDueProgrammi::lAltro()
{
    const QString Parte = Altro::Parte();
    if (Parte.isEmpty())
        return;
    if (Parte == u"lavora") {
        ParteLavora();
        Altro::Segnala(Segno(u"fatto"_s));
    } else if (Parte == u"cancella") {
        Apri();
        Cancella(u"verdi"_s);
    } else if (Parte == u"rinomina") {
        Apri();
        Rinomina(u"verdi"_s, u"gialli"_s);
    } else {
        QCOMPARE(Parte, u"tiene"_s);
        const Database Nota = OpenDatabase(Note + u"verdi.mdb"_s);
        Nota.Execute(u"BEGIN EXCLUSIVE"_s);
        Altro::Segnala(Segno(u"pronto"_s));
        QTest::qWait(60000);
    }
}

// ---- this one

void TestTrovaDueProgrammi::mentreLAltroLavora()
{
    static const QRegularExpression Noti(u"^(\\[vecchie\\]|rossi 9|rossi 10|verdi|(giro|mosso) \\d)$"_s);
    Apri();
    Altro Programma(u"lavora"_s);
    int Elenchi = 0;
    bool VisteAltrui = false;
    const auto Guarda = [&] {
        Premi(Qt::Key_F5);
        Finita();
        ++Elenchi;
        for (int Riga = 0; Riga < Lista()->Righe(); ++Riga) {
            const QString Nome = Cella(Riga, TrovaNome);
            QVERIFY2(Noti.match(Nome).hasMatch(), qPrintable(Nome));
            const QString Cliente = Cella(Riga, TrovaCliente);
            const bool Sua = Nome.startsWith(u"giro") || Nome.startsWith(u"mosso");
            QVERIFY2(!Sua || Cliente == u"Altrui" || Cliente.isEmpty(), qPrintable(Cliente));
            VisteAltrui = VisteAltrui || Sua;
        }
        QVERIFY(RigaDi(u"verdi"_s) >= 0);
    };
    while (!QFile::exists(Segno(u"fatto"_s)) && !QTest::currentTestFailed() && Elenchi < 5000)
        Guarda();
    QVERIFY2(Programma.Finito(), "one of its checks has failed");
    QVERIFY2(Elenchi > 2 && VisteAltrui, "the two have worked one behind the other");
    Guarda();
    QStringList Attesi{u"[vecchie]"_s};
    for (int Giro = 1; Giro < Giri; Giro += 2)
        Attesi += u"mosso %1"_s.arg(Giro);
    Attesi += {u"rossi 9"_s, u"rossi 10"_s, u"verdi"_s};
    QCOMPARE(Nomi(), Attesi);
    QCOMPARE(Cella(1, TrovaCliente), u"Altrui"_s);
}

void TestTrovaDueProgrammi::lAltroHaCancellato()
{
    Apri();
    QVERIFY(Altro(u"cancella"_s).Finito());
    T->Voce.Attendi(u"Errore: File non trovato (53)"_s, vbOK, u"Errore:"_s);
    Doppio(u"verdi"_s);
    QVERIFY(F->isVisible() && AperteDaQui.isEmpty());
    QCOMPARE(Nomi(), (QStringList{u"[vecchie]"_s, u"rossi 9"_s, u"rossi 10"_s}));
}

void TestTrovaDueProgrammi::lAltroHaRinominatoLaNotaAperta()
{
    frmParcelle* Mia = T->Apri(Note + u"verdi.mdb"_s);
    Scrivi(Controllo<QLineEdit>(Mia, "txtCliente"), u"Mio"_s);
    QVERIFY(Altro(u"rinomina"_s).Finito());
    QCOMPARE(Mia->Nota.txtCliente.Testo, u"Mio"_s);
    SalvaMia(Mia, u"verdi.mdb"_s);
    Apri();
    QCOMPARE(Nomi(), (QStringList{u"[vecchie]"_s, u"gialli"_s, u"rossi 9"_s, u"rossi 10"_s, u"verdi"_s}));
    QCOMPARE(Cella(RigaDi(u"gialli"_s), TrovaCliente), u"Perché Anna"_s);
    QCOMPARE(Cella(RigaDi(u"verdi"_s), TrovaCliente), u"Mio"_s);
}

void TestTrovaDueProgrammi::lAltroHaCancellatoLaNotaAperta()
{
    frmParcelle* Mia = T->Apri(Note + u"verdi.mdb"_s);
    QVERIFY(Altro(u"cancella"_s).Finito());
    QCOMPARE(Mia->Nota.txtCliente.Testo, u"Perché Anna"_s);
    SalvaMia(Mia, u"verdi.mdb"_s);
    Apri();
    QCOMPARE(Cella(RigaDi(u"verdi"_s), TrovaCliente), u"Perché Anna"_s);
}

void TestTrovaDueProgrammi::lAltroTieneUnaNota()
{
    {
        const Altro Programma(u"tiene"_s);
        QVERIFY(Altro::Aspetta(Segno(u"pronto"_s)));
        Apri();
        const int Riga = RigaDi(u"verdi"_s);
        QVERIFY2(Riga >= 0, "a note is one, whoever has it");
        QCOMPARE(Cella(Riga, TrovaCliente), QString());
        QVERIFY(Lista()->Suggerimento(Riga).contains(u"In uso da un altro programma"));
        QCOMPARE(Cella(RigaDi(u"rossi 9"_s), TrovaCliente), u"Rossi Mario"_s);
        // Nothing is done to it, since nobody knows whether it is protected.
        VaiSu(u"verdi"_s);
        const QString Guasto = u"Errore: "_s + DescrizioneErrore(3260) + u" (3260)"_s;
        for (const Qt::Key Tasto : {Qt::Key_Delete, Qt::Key_F2}) {
            T->Voce.Attendi(Guasto, vbOK, u"Errore:"_s);
            VaiSu(u"verdi"_s);
            Premi(Tasto);
            Finita();
            QVERIFY(EsisteFile(Note + u"verdi.mdb"_s));
        }
    }
    Premi(Qt::Key_F5);
    Finita();
    QCOMPARE(Cella(RigaDi(u"verdi"_s), TrovaCliente), u"Perché Anna"_s);
}

#include "TestTrovaDueProgrammi.moc"
