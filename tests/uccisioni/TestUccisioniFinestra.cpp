// The real window is killed while it is written in and saves: its note and its recovery copies are whole, and
// they are there.
#include "feenote/file/file_prova.h"
#include "uccisioni/pilotata.h"

#include "feenote/file/modRecupero.h"
#include "platform/system/file.h"
#include "platform/system/impostazioni.h"

#include <QDir>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr int Ripetizioni = 40;
constexpr int PazienzaMs = 40000;

QString Versione(int Quale)
{
    return u"versione %1 "_s.arg(Quale).repeated(Ripetizioni).trimmed();
}

/// The number of what a note says; 0 before anything was written, -1 for half of something.
int VersioneDi(const QString& File)
{
    const QString Oggetto =
        OpenDatabase(File, true).OpenRecordset(u"ParcellaParam"_s).Value(u"Oggetto"_s).toString().trimmed();
    if (Oggetto == u"prima")
        return 0;
    const int Numero = Oggetto.section(u' ', 1, 1).toInt();
    return Numero > 0 && Oggetto == Versione(Numero) ? Numero : -1;
}

}  // namespace

class TestUccisioniFinestra : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void mentreSiScrive();
    void laModificaNonSalvata();

private:
    void Avvia(Vittima& Chi, const QString& Compito = {}) const;
    [[nodiscard]] int Scritto() const { return LeggiFile(Conto).trimmed().split(' ').value(0).toInt(); }
    [[nodiscard]] int Salvato() const { return LeggiFile(Conto).trimmed().split(' ').value(1).toInt(); }

    const Studio Ufficio;
    Registratore Messaggi;
    QString Casa, Note, File, Conto;
};
PROVA(TestUccisioniFinestra);

void TestUccisioniFinestra::init()
{
    Messaggi.Tollera();
    Casa = NuovaCartella();
    Note = Casa + u"note/"_s;
    QDir().mkpath(Note);
    File = Note + u"n.mdb"_s;
    Conto = Casa + u"conto"_s;
    Parcella Prima = NotaPiena();
    Prima.txtOggetto.Testo = u"prima"_s;
    ScriviNota(File, Prima);
    sessione::UserFolder = Casa + u"utente/"_s;
    ScriviFile(Conto, QByteArray("0 0").leftJustified(24));
    const auto Imposta = [](const QString& Nome, const QString& Valore) {
        SaveSetting(u"KR5"_s, u"Parametri"_s, Nome, Valore);
    };
    Imposta(u"StudioNome"_s, u"Studio Prova"_s);
    Imposta(u"CercaAgg"_s, u"N"_s);
    Imposta(u"UserFolder"_s, sessione::UserFolder);
    Imposta(u"ParcellePath"_s, Note);
    Imposta(u"ArchivioCliCon"_s, sessione::ArchivioCliCon);
    QDir().mkpath(sessione::UserFolder);
    ScriviFile(sessione::UserFolder + u"avvisokr5.ini"_s, "[avvisokr5]\nletto=S\n");
}

void TestUccisioniFinestra::Avvia(Vittima& Chi, const QString& Compito) const
{
    ConPilota(Chi, Conto, Compito);
    Chi.Con(u"XDG_RUNTIME_DIR"_s, Casa + u"nessuna/sessione"_s);
    Chi.Avvia(ProgrammaDiProva() + u"calcanova"_s, {u"PV2|E|"_s + File});
}

/// Who does not save has his change in the copy, behind the pause that a copy may take.
void TestUccisioniFinestra::laModificaNonSalvata()
{
    Vittima Chi;
    Avvia(Chi, u"scrive"_s);
    QVERIFY(QTest::qWaitFor([&] { return !Chi.Vive() || Scritto() > 0; }, PazienzaMs));
    QVERIFY2(Chi.Vive(), Chi.Detto().constData());
    const QString Copie = sessione::UserFolder + u"recupero/"_s;
    QVERIFY2(QTest::qWaitFor(
                 [&] {
                     const QStringList Nomi = QDir(Copie).entryList({u"*.mdb"_s}, QDir::Files);
                     return std::ranges::any_of(Nomi,
                                                [&](const QString& N) { return VersioneDi(Copie + N) == 1; });
                 },
                 PazienzaMs),
             "no copy of what was written");
    Chi.Uccidi();
    QCOMPARE(VersioneDi(File), 0);
    const QList<CopiaRecupero> Trovate = NoteDaRecuperare();
    QCOMPARE(Trovate.size(), 1);
    QCOMPARE(VersioneDi(Trovate.first().File), 1);
    Parcella Ripresa;
    RecuperaNota(Ripresa, Trovate.first());
    QCOMPARE(Ripresa.Percorso, File);
    EliminaCopia(Trovate.first());
    (void)NoteDaRecuperare();
    QCOMPARE(ContenutoDi(sessione::UserFolder + u"recupero"_s), QStringList());
}

void TestUccisioniFinestra::mentreSiScrive()
{
    // Of a note that was given another name since: no save will ever take this away, but a start does.
    const QString Resto = Note + u".~vecchia.mdb.tmp"_s;
    ScriviFile(Resto, "a meta'");

    QRandomGenerator Caso(Seme());
    const int Volte = UccisioniChieste() > 0 ? std::max(2, UccisioniChieste() / 10) : 2;
    int Scritte = 0;
    int Salvate = 0;
    int Copie = 0;
    qint64 Prima = 0;
    for (int Volta = 0; Volta < Volte; ++Volta) {
        const QString Dove = u"seme %1, volta %2"_s.arg(Seme()).arg(Volta);
        ScriviFile(Conto, QByteArray("0 0").leftJustified(24));
        {
            Vittima Chi;
            QElapsedTimer Orologio;
            Orologio.start();
            Avvia(Chi);
            QVERIFY2(QTest::qWaitFor([&] { return !Chi.Vive() || Scritto() > 0; }, PazienzaMs),
                     qPrintable(Dove));
            QVERIFY2(Chi.Vive(), Chi.Detto().constData());
            // A start behind a kill is no slower than the first one was.
            const qint64 Durata = Orologio.elapsed();
            Prima = Volta == 0 ? Durata : Prima;
            QVERIFY2(Durata - Prima < MassimaAttesaMs,
                     qPrintable(Dove + u": attesi %1 ms"_s.arg(Durata - Prima)));
            // Whoever never saves is no proof.
            if (Volta == Volte - 1)
                QVERIFY2(QTest::qWaitFor([&] { return !Chi.Vive() || Salvato() > 0; }, PazienzaMs),
                         qPrintable(Dove));
            const int AlPiuMs = qEnvironmentVariable("CALCANOVA_ATTESA", u"1200"_s).toInt();
            QTest::qWait(Caso.bounded(AlPiuMs));
            QVERIFY2(Chi.Vive(), Chi.Detto().constData());
            Chi.Uccidi();
            // Of a session without a run-time folder, of an old lock, of an offscreen display: nobody asked.
            QCOMPARE(Chi.Detto(), QByteArray());
        }
        QVERIFY2(!EsisteFile(Resto), "the start has swept");
        // What was said to be saved is there, or something younger; nothing else ever was.
        const int Scritti = Scritto();
        const int Salvati = Salvato();
        const int Trovato = VersioneDi(File);
        QVERIFY2(Trovato >= 0, qPrintable(Dove + u": la nota e' a meta'"_s));
        // The program is killed between a word of its and the next: the file may be one save ahead of what it
        // said.
        QVERIFY2(Salvati == 0 || (Trovato >= Salvati && Trovato <= Scritti + 1),
                 qPrintable(Dove + u": salvata %1, trovata %2, scritta %3"_s.arg(Salvati).arg(Trovato).arg(
                                       Scritti)));
        Scritte += Scritti;
        Salvate += Salvati / 2;
        const QList<CopiaRecupero> Trovate = NoteDaRecuperare();
        QVERIFY2(Trovate.size() <= 1, qPrintable(Dove));
        for (const CopiaRecupero& Copia : Trovate) {
            QVERIFY2(VersioneDi(Copia.File) >= 0, qPrintable(Dove + u": la copia e' a meta'"_s));
            Parcella Ripresa;
            RecuperaNota(Ripresa, Copia);
            QCOMPARE(Ripresa.Percorso, File);
            EliminaCopia(Copia);
            ++Copie;
        }
        (void)NoteDaRecuperare();
        QCOMPARE(ContenutoDi(sessione::UserFolder + u"recupero"_s), QStringList());
    }
    QVERIFY(Salvate > 0);
    // What the last one left beside the note goes at the next start, and here.
    TogliRestiDiNote(Note);
    QCOMPARE(ContenutoDi(Note), QStringList{u"n.mdb"_s});
    if (UccisioniChieste() > 0)
        qInfo("finestra: %d uccisioni (seme %u), %d cambiamenti, %d salvataggi detti, %d copie riprese",
              Volte, Seme(), Scritte, Salvate, Copie);
}

#include "TestUccisioniFinestra.moc"
