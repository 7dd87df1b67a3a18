// Two programs on the same notes, and one killed at any moment: what is on screen or on the disk is not lost.
#include "tavolo.h"

#include "core/posti.h"
#include "platform/base/numerierrore.h"
#include "platform/database/database.h"
#include "platform/system/attese.h"
#include "platform/system/file.h"
#include "platform/system/percorsi.h"
#include "supporto/altroprogramma.h"

#include <QLockFile>
#include <QRandomGenerator>

using namespace Qt::StringLiterals;

namespace {

/// The other program works in the user folder of this one.
class Altro : public AltroProgramma
{
public:
    explicit Altro(const QString& Parte) : AltroProgramma(u"TestDueProgrammi"_s, Parte, sessione::UserFolder)
    {}
};

QString File(const QString& Nome)
{
    return sessione::UserFolder + Nome;
}

QString FileNota()
{
    return File(u"Pratica.mdb"_s);
}

void Segnala(const QString& Nome)
{
    Altro::Segnala(File(Nome));
}

bool Aspetta(const QString& Nome)
{
    return Altro::Aspetta(File(Nome));
}

QStringList Nascosti(const QString& Cartella)
{
    return QDir(Cartella).entryList({u".~*"_s}, QDir::Files | QDir::Hidden);
}

/// The mark of one step of the program that is going to be killed, in two places that must agree.
void Segna(Parcella& Nota, int Passo)
{
    Nota.txtCliente.Testo = QString::number(Passo);
    Nota.xAcconti.Azzera(AccColonne);
    for (int Riga = 0; Riga < Passo % 50; ++Riga)
        RigaAcconto(Nota, u"E"_s, double(Passo), 0.0, 0.0);
}

/// The step that a note holds, -1 when its two marks do not agree.
int Passo(const Parcella& Nota)
{
    const int Letto = Nota.txtCliente.Testo.toInt();
    const bool Intera = Nota.xAcconti.Righe() == Letto % 50;
    return Intera ? Letto : -1;
}

// ---- the parts of the other program

void ParteSalva(frmParcelle* F, Registratore& Voce)
{
    Scrivi(Controllo<QLineEdit>(F, "txtCliente"), u"Altrui"_s);
    Voce.AttendiSalva(FileNota());
    Voce.Attendi(u"La parcella Pratica.mdb è stata salvata correttamente!"_s);
    QVERIFY(F->SalvaParcella(false));
}

/// Keeps the note in a transaction that is never ended.
void ParteTiene(const QString& Inizio)
{
    const Database Nota = OpenDatabase(FileNota());
    Nota.Execute(Inizio);
    Nota.Execute(u"UPDATE ParcellaParam SET Cliente='a metà'"_s);
    Segnala(u"pronto"_s);
    QTest::qWait(60000);
}

/// Shows the question about a copy and takes its time to answer.
void ParteOffre()
{
    Messaggi Lenti;
    Lenti.BoxPulsanti = [](const QString&, int, const QString&, const QStringList&) {
        Segnala(u"domanda"_s);
        return Aspetta(u"rispondi"_s) ? vbYes : vbCancel;
    };
    const Messaggi Prima = InstallaMessaggi(Lenti);
    OffriRecupero();
    Segnala(u"recuperata"_s);
    QTest::qWait(60000);
    InstallaMessaggi(Prima);
}

/// Works on a note until it is killed; what "conferme" tells is safe.
void ParteLavora(frmParcelle* F, Registratore& Voce)
{
    Voce.Tollera();
    QFile Conferme(File(u"conferme"_s));
    QVERIFY(Conferme.open(QIODevice::WriteOnly | QIODevice::Append));
    for (int n = 1; n < 100000; ++n) {
        Segna(F->Nota, n);
        F->SetModificata(true);
        const bool Davvero = n % 3 == 0;
        Voce.AttendiSalva(Davvero ? FileNota() : QString());  // a dialog that is cancelled leaves a copy
        QCOMPARE(F->SalvaParcella(false), Davvero);
        Conferme.write(QByteArray::number(n) + '\n');
        Conferme.flush();
    }
}

}  // namespace

class TestDueProgrammi : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup();
    void lAltro();
    void lAltroHaSalvatoNelFrattempo();
    void lAltroSparisceAMetaScrittura();
    void lAltroTieneTutto();
    void lAltroTieneLaNotaAssociata();
    void laStessaCopiaNonSiOffreDueVolte();
    void uccisoInUnMomentoQualsiasi_data();
    void uccisoInUnMomentoQualsiasi();

private:
    void ApriPratica();

    std::unique_ptr<Tavolo> T;
    frmParcelle* F = nullptr;
};
PROVA(TestDueProgrammi);

void TestDueProgrammi::init()
{
    T = std::make_unique<Tavolo>();
    if (!Altro::Cartella().isEmpty())
        sessione::UserFolder = Altro::Cartella();
    attese::BlocchiMs = 100;
    attese::TurnoMs = 100;
}

void TestDueProgrammi::cleanup()
{
    attese::BlocchiMs = 3000;
    attese::TurnoMs = 3000;
    T.reset();
}

/// Not a test of its own: what the other program does.
void TestDueProgrammi::lAltro()
{
    const QString Parte = Altro::Parte();
    if (Parte.isEmpty())
        return;
    if (Parte == u"salva") {
        ParteSalva(T->Apri(FileNota()), T->Voce);
    } else if (Parte == u"tiene") {
        ParteTiene(u"BEGIN IMMEDIATE"_s);
    } else if (Parte == u"tiene tutto") {
        ParteTiene(u"BEGIN EXCLUSIVE"_s);
    } else if (Parte == u"offre") {
        ParteOffre();
    } else {
        QCOMPARE(Parte, u"lavora"_s);
        ParteLavora(T->Apri(), T->Voce);
    }
}

/// A saved note on screen, changed and not saved.
void TestDueProgrammi::ApriPratica()
{
    Parcella Salvata = NotaCivile();
    Salvata.txtCliente.Testo = u"Rossi"_s;
    ScriviNota(FileNota(), Salvata);
    F = T->Apri(FileNota());
    QVERIFY(F);
    Scrivi(Controllo<QLineEdit>(F, "txtCliente"), u"Mio"_s);
}

void TestDueProgrammi::lAltroHaSalvatoNelFrattempo()
{
    ApriPratica();
    QVERIFY(Altro(u"salva"_s).Finito());
    QCOMPARE(Cliente(FileNota()), u"Altrui"_s);
    QCOMPARE(Controllo<QLineEdit>(F, "txtCliente")->text(), u"Mio"_s);
    QVERIFY(F->Nota.Modificata);
    T->Voce.AttendiSalva(FileNota());
    T->Voce.Attendi(u"La parcella Pratica.mdb è stata salvata correttamente!"_s);
    QVERIFY(F->SalvaParcella(false));
    QVERIFY2(Cliente(FileNota()) == u"Mio", "l'ultimo salvataggio vince");
}

void TestDueProgrammi::lAltroSparisceAMetaScrittura()
{
    ApriPratica();
    {
        Altro Programma(u"tiene"_s);
        QVERIFY(Aspetta(u"pronto"_s));
        T->Voce.AttendiSalva(FileNota());
        T->Voce.Attendi(u"Codice errore: 3260\n"_s + DescrizioneErrore(3260), vbOK, u"Errore:"_s);
        QVERIFY(!F->SalvaParcella(false));
        QVERIFY(F->Nota.Modificata);
        QCOMPARE(Controllo<QLineEdit>(F, "txtCliente")->text(), u"Mio"_s);
        QCOMPARE(Nascosti(sessione::UserFolder), QStringList());
    }
    T->Voce.AttendiSalva(FileNota());
    T->Voce.Attendi(u"La parcella Pratica.mdb è stata salvata correttamente!"_s);
    QVERIFY(F->SalvaParcella(false));
    QVERIFY2(!QFile::exists(FileNota() + u"-journal"_s), "un giornale altrui guasterebbe il file nuovo");
    QCOMPARE(Cliente(FileNota()), u"Mio"_s);
}

void TestDueProgrammi::lAltroTieneTutto()
{
    ApriPratica();
    const Altro Programma(u"tiene tutto"_s);
    QVERIFY(Aspetta(u"pronto"_s));
    T->Voce.AttendiSalva(FileNota());
    T->Voce.Attendi(u"Codice errore: 3260\n"_s + DescrizioneErrore(3260), vbOK, u"Errore:"_s);
    QVERIFY(!F->SalvaParcella(false));
    QVERIFY(F->Nota.Modificata);

    T->Voce.Attendi(u"Errore: "_s + DescrizioneErrore(3260) + u" (3260)"_s, vbOK, u"Errore:"_s);
    ApriParcella(FileNota(), 0, {});
    QVERIFY(Parcelle(2)->Nota.Percorso.isEmpty());
    QCOMPARE(InfoParcelle[2].Nome, u"pratica"_s);
    QCOMPARE(F->Nota.txtCliente.Testo, u"Mio"_s);
}

/// What cannot be read is told once; the note goes on with what it had.
void TestDueProgrammi::lAltroTieneLaNotaAssociata()
{
    ScriviNota(FileNota(), NotaPiena());
    const QString Mia = T->Ufficio.File(u"mia.mdb"_s);
    ScriviNota(Mia, NotaCivile());
    F = T->Apri(Mia);
    ClicScheda(F, SchedaImposte);
    QString Scelta;
    Aperture.TrovaParcella = [&](int, const QString&, int, const QString&) { return Scelta; };
    const auto Associa = [&](const QString& File) {
        Scelta = File;
        Clic(Controllo(F, "cmdOpenPar"));
    };
    const QString Libera = T->Ufficio.File(u"libera.mdb"_s);
    ScriviNota(Libera, NotaPiena());
    const QString Occupata = u"Errore: "_s + DescrizioneErrore(3260) + u" (3260)"_s;
    {
        const Altro Programma(u"tiene tutto"_s);
        QVERIFY(Aspetta(u"pronto"_s));
        T->Voce.Attendi(Occupata, vbOK, u"Errore:"_s);
        Associa(FileNota());
        QVERIFY(!F->Nota.Multipla());
        QCOMPARE(TestoDi(F, "lblSpese"), u"Esenti: 0"_s);
        Associa(Libera);
        QCOMPARE(TestoDi(F, "lblSpese"), u"Esenti: 27,00"_s);
        T->Voce.Attendi(Occupata, vbOK, u"Errore:"_s);
        Associa(FileNota());
        QCOMPARE(TestoDi(F, "txtParcMultipla"), u"libera"_s);
        QCOMPARE(TestoDi(F, "lblSpese"), u"Esenti: 27,00"_s);
    }
    QFile::remove(File(u"pronto"_s));
    Associa(FileNota());
    QCOMPARE(TestoDi(F, "txtParcMultipla"), u"Pratica"_s);
    {
        QFile Scritta(FileNota());
        QVERIFY(
            Scritta.open(QIODevice::ReadWrite) &&
            Scritta.setFileTime(QDateTime::currentDateTime().addSecs(60), QFileDevice::FileModificationTime));
    }
    const Altro Programma(u"tiene tutto"_s);
    QVERIFY(Aspetta(u"pronto"_s));
    T->Voce.Attendi(Occupata, vbOK, u"Errore:"_s);
    ClicScheda(F, SchedaDiStampa);
    ClicScheda(F, SchedaImposte);
    ClicScheda(F, SchedaDiStampa);
    QCOMPARE(TestoDi(F, "lblSpese"), u"Esenti: 27,00"_s);
}

void TestDueProgrammi::laStessaCopiaNonSiOffreDueVolte()
{
    const QString Copie = Barra(sessione::UserFolder + u"recupero"_s);
    QDir().mkpath(Copie);
    Parcella Persa = NotaCivile();
    Persa.txtCliente.Testo = u"Rossi"_s;
    ScriviNota(Copie + u"99999999-1-1.mdb"_s, Persa);
    {
        const Altro Programma(u"offre"_s);
        QVERIFY(Aspetta(u"domanda"_s));
        QCOMPARE(NoteDaRecuperare().size(), 1);
        OffriRecupero();  // a box would fail the test: the other program has the copy
        Segnala(u"rispondi"_s);
        QVERIFY(Aspetta(u"recuperata"_s));
        QVERIFY2(NoteDaRecuperare().isEmpty(), "la nota è dell'altro, e con lui la sua copia");
    }
    const QList<CopiaRecupero> Rimaste = NoteDaRecuperare();
    QCOMPARE(Rimaste.size(), 1);
    Parcella Letta;
    RecuperaNota(Letta, Rimaste.first());
    QCOMPARE(Letta.txtCliente.Testo, u"Rossi"_s);
}

void TestDueProgrammi::uccisoInUnMomentoQualsiasi_data()
{
    QTest::addColumn<int>("Millisecondi");
    for (int Volta = 0; Volta < 8; ++Volta) {
        const int Quando = QRandomGenerator::global()->bounded(120);
        QTest::addRow("volta %d, dopo %d ms", Volta, Quando) << Quando;
    }
}

void TestDueProgrammi::uccisoInUnMomentoQualsiasi()
{
    QFETCH(int, Millisecondi);
    {
        Altro Programma(u"lavora"_s);
        QVERIFY(Aspetta(u"conferme"_s));
        QTest::qSleep(Millisecondi);
        Programma.Uccidi();
    }
    const QByteArray Conferme = LeggiFile(File(u"conferme"_s));
    const int Sicuro = Conferme.left(Conferme.lastIndexOf('\n')).split('\n').last().toInt();

    int Migliore = 0;
    const QList<CopiaRecupero> Trovate = NoteDaRecuperare();
    for (const CopiaRecupero& Copia : Trovate) {
        Parcella Letta;
        RecuperaNota(Letta, Copia);
        QVERIFY2(Passo(Letta) > 0, "la copia è intera");
        Migliore = std::max(Migliore, Passo(Letta));
    }
    if (QFile::exists(FileNota())) {
        Parcella Letta;
        CaricaDati(Letta, FileNota());
        QVERIFY2(Passo(Letta) > 0, "il file è intero");
        Migliore = std::max(Migliore, Passo(Letta));
    }
    QVERIFY2(Migliore >= Sicuro, qPrintable(u"%1 su %2"_s.arg(Migliore).arg(Sicuro)));
    QVERIFY(Trovate.size() <= 1);
    QCOMPARE(Nascosti(sessione::UserFolder + u"recupero"_s), QStringList());

    // What the dead program was building hinders no save, and goes with it; a turn that it had not signed yet
    // is waited for.
    attese::TurnoMs = 3000;
    Parcella Nuova = NotaCivile();
    ScriviNota(FileNota(), Nuova);
    QCOMPARE(Nascosti(sessione::UserFolder), QStringList());
}

#include "TestDueProgrammi.moc"
