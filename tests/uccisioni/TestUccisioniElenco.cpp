// The real window is killed while a note is deleted in its browser of notes, behind each call of that act and
// at random: the note is there whole and among the last ones, or gone; the others stay, and so do their
// copies.
#include "feenote/file/file_prova.h"
#include "guasti/posa.h"
#include "uccisioni/imprese.h"
#include "uccisioni/pilotata.h"

#include "core/modRecenti.h"
#include "core/parametri.h"
#include "feenote/file/modRecupero.h"
#include "platform/base/errore.h"
#include "platform/system/file.h"
#include "platform/system/impostazioni.h"

#include <QDir>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr int Pazienza = 20000;

/// What a note says; empty where there is none.
QString Detto(const QString& File)
{
    try {
        return EsisteFile(File) ? Parametro(File, u"Oggetto"_s).toString().section(u' ', 0, 1) : QString();
    } catch (const Errore& Guasto) {
        return u"illeggibile: "_s + Guasto.Descrizione;
    }
}

/// Two notes, both worked on lately.
void Prepara(const QString& In)
{
    for (const QString& Nome : {u"note"_s, u"utente"_s, u"Calcanova"_s})
        QDir().mkpath(In + Nome);
    QFile::copy(ProgrammaDiProva() + u"DatiStudio.mdb"_s, In + u"DatiStudio.mdb"_s);
    for (const auto& [Nome, Valore] : {std::pair(u"CercaAgg"_s, u"N"_s),
                                       {u"StudioNome"_s, u"Studio Prova"_s},
                                       {u"UserFolder"_s, In + u"utente/"_s},
                                       {u"ParcellePath"_s, In + u"note/"_s},
                                       {u"ArchivioCliCon"_s, In + u"DatiStudio.mdb"_s}})
        SaveSetting(u"KR5"_s, u"Parametri"_s, Nome, Valore);
    Parcella Nota = NotaPiena();
    for (const QString& Nome : {u"m"_s, u"n"_s}) {
        Nota.txtOggetto.Testo = Nome + u" prima"_s;
        const QString File = In + u"note/%1.mdb"_s.arg(Nome);
        ScriviNota(File, Nota);
        RicordaRecente({File, u"Rossi"_s, u"Fattura"_s, 100.0, QDate(2026, 11, 21)});
    }
    ScriviFile(In + u"utente/avvisokr5.ini"_s, "[avvisokr5]\nletto=S\n");
    ScriviFile(In + u"conto"_s, QByteArray("0 0").leftJustified(24));
}

QList<int> Conto(const QString& In)
{
    const QList<QByteArray> Detti = LeggiFile(In + u"conto"_s).trimmed().split(' ');
    return {Detti.value(0).toInt(), Detti.value(1).toInt()};
}

QString Difetto(const QString& In)
{
    if (Impostazione(u"StudioNome"_s) != u"Studio Prova")
        return u"impostazioni perdute"_s;
    if (Detto(In + u"note/m.mdb"_s) != u"m prima")
        return u"l'altra nota dice «%1»"_s.arg(Detto(In + u"note/m.mdb"_s));
    QStringList Ultime;
    for (const NotaRecente& Una : NoteRecenti())
        Ultime += NomeRecente(Una);
    if (!Ultime.contains(u"m"_s))
        return u"l'altra nota non è più tra le ultime"_s;
    const QString Trovata = Detto(In + u"note/n.mdb"_s);
    return Trovata.isEmpty() ? QString()
                             : NonUna(Trovata + (Ultime.contains(u"n"_s) ? u", ultima"_s : QString()),
                                      {u"n prima, ultima"_s});
}

}  // namespace

class TestUccisioniElenco : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init() { Messaggi.Tollera(); }
    void cleanup() { CasaDiPrima(); }
    void dietroOgniChiamata_data();
    void dietroOgniChiamata();
    void inUnMomentoQualunque_data() { dietroOgniChiamata_data(); }
    void inUnMomentoQualunque();

private:
    /// Lays a folder out, which is the home from now on.
    QString Casa();
    /// @param Nota the one in view
    void Avvia(Vittima& Chi, const QString& In, const QString& Compito, const QString& Nota);
    /// What a kill has left, and what the next session makes of it.
    void Guarda(const QString& In, const QString& Dove, const QString& Nota);

    const Studio Ufficio;
    Registratore Messaggi;
    qint64 Prima = 0;  ///< what a start to the act takes that no kill came before
    qint64 PiuLenta = 0;
};
PROVA(TestUccisioniElenco);

QString TestUccisioniElenco::Casa()
{
    const QString In = NuovaCartella();
    ConCasaIn(In);
    sessione::UserFolder = In + u"utente/"_s;
    Prepara(In);
    return In;
}

void TestUccisioniElenco::Avvia(Vittima& Chi, const QString& In, const QString& Compito, const QString& Nota)
{
    ConPilotaIn(Chi, In, Compito);
    Chi.Avvia(ProgrammaDiProva() + u"calcanova"_s, {u"PV2|E|%1note/%2.mdb"_s.arg(In, Nota)});
}

void TestUccisioniElenco::Guarda(const QString& In, const QString& Dove, const QString& Nota)
{
    const QString Trovato = Difetto(In);
    QVERIFY2(Trovato.isEmpty(), qPrintable(Dove + u": "_s + Trovato));
    const bool Tolta = !EsisteFile(In + u"note/n.mdb"_s);
    // A change that was not saved outlives the file; here its user wants nothing of it.
    QStringList Cambiate;
    for (const CopiaRecupero& Copia : NoteDaRecuperare()) {
        Cambiate += Detto(Copia.File);
        EliminaCopia(Copia);
    }
    const QString Cambiata = Nota == u"n" ? u"versione 1"_s : QString();
    QVERIFY2(Cambiate.join(u',') == Cambiata, qPrintable(Dove + u", copie: "_s + Cambiate.join(u',')));
    LasciaRecupero();
    ScriviFile(In + u"conto"_s, QByteArray("0 0").leftJustified(24));
    Vittima Viva;
    QElapsedTimer Orologio;
    Orologio.start();
    Avvia(Viva, In, u"cancella"_s, u"m"_s);
    QVERIFY2(QTest::qWaitFor([&] { return !Viva.Vive() || Conto(In)[1] > 0; }, Pazienza), qPrintable(Dove));
    PiuLenta = std::max(PiuLenta, Orologio.elapsed() - Prima);
    QVERIFY2(Viva.Vive(), (Dove.toUtf8() + ": " + Viva.Detto()).constData());
    QVERIFY2(PiuLenta < MassimaAttesaMs, qPrintable(Dove + u": attesi %1 ms"_s.arg(PiuLenta)));
    Viva.Uccidi();
    QVERIFY2((Conto(In)[1] == 2) == Tolta, qPrintable(Dove + u": nell'elenco c'è altro"_s));
    QCOMPARE(ContenutoDi(In + u"note"_s), QStringList{u"m.mdb"_s});
    const QString Poi = Difetto(In);
    QVERIFY2(Poi.isEmpty(), qPrintable(Dove + u", poi: "_s + Poi));
    QDir(In).removeRecursively();
}

void TestUccisioniElenco::dietroOgniChiamata_data()
{
    QTest::addColumn<QString>("Compito");
    QTest::addColumn<QString>("Nota");
    QTest::newRow("un'altra in vista") << u"cancella"_s << u"m"_s;
    QTest::newRow("in vista, con modifiche") << u"cambia e cancella"_s << u"n"_s;
}

void TestUccisioniElenco::dietroOgniChiamata()
{
    QFETCH(QString, Compito);
    QFETCH(QString, Nota);
    const QString File = NuovaCartella() + u"chiamate"_s;
    int Tutte = 0;
    {
        const QString In = Casa();
        Vittima Intera(In.chopped(1), File, 0);
        QElapsedTimer Orologio;
        Orologio.start();
        Avvia(Intera, In, Compito, Nota);
        QVERIFY(QTest::qWaitFor([&] { return !Intera.Vive() || Conto(In)[1] > 0; }, Pazienza));
        Prima = Orologio.elapsed();
        QVERIFY2(Intera.Vive(), Intera.Detto().constData());
        Tutte = Contate(File);
        Intera.Uccidi();
        QCOMPARE(Conto(In), QList<int>({2, 1}));
        QCOMPARE(Detto(In + u"note/n.mdb"_s), QString());
        QVERIFY2(Tutte > 0, "calls that nobody counts");
        Guarda(In, u"intera"_s, Nota);
        if (QTest::currentTestFailed())
            return;
    }
    constexpr int Poche = 3;
    const int Passo = UccisioniChieste() > 0 ? 1 : (Tutte + Poche - 1) / Poche;
    int Uccise = 0;
    for (int Alla = UccisioniChieste() > 0 ? 1 : (Passo + 1) / 2; Alla <= Tutte; Alla += Passo) {
        const QString Dove = u"chiamata %1 di %2"_s.arg(Alla).arg(Tutte);
        const QString In = Casa();
        Vittima Chi(In.chopped(1), File, Alla);
        Avvia(Chi, In, Compito, Nota);
        QVERIFY2(Chi.AspettaLaFine() && Chi.Uccisa(), qPrintable(Dove));
        ++Uccise;
        Guarda(In, Dove, Nota);
        if (QTest::currentTestFailed())
            return;
    }
    if (UccisioniChieste() > 0)
        qInfo("cancellata dalla finestra: %d uccisioni su %d chiamate, la ripresa piu' lenta %lld ms in piu'",
              Uccise, Tutte, PiuLenta);
}

void TestUccisioniElenco::inUnMomentoQualunque()
{
    QFETCH(QString, Compito);
    QFETCH(QString, Nota);
    constexpr int UnoOgni = 200;
    const int Volte = std::max(1, UccisioniChieste() / UnoOgni);
    QRandomGenerator Caso(Seme());
    int Tolte = 0;
    for (int Volta = 0; Volta < Volte; ++Volta) {
        const QString In = Casa();
        Vittima Chi;
        QElapsedTimer Orologio;
        Orologio.start();
        Avvia(Chi, In, Compito, Nota);
        constexpr int OgniUs = 1000;
        while (Conto(In)[0] != 2 && Orologio.elapsed() < Pazienza && !Chi.FinitaEntro(OgniUs)) {
        }
        if (Prima == 0)
            Prima = Orologio.elapsed();
        QVERIFY2(Chi.Vive() && Conto(In)[0] == 2, Chi.Detto().constData());
        constexpr int AlPiuUs = 8'000;
        const int Momento = Caso.bounded(AlPiuUs);
        ::usleep(useconds_t(Momento));
        Chi.Uccidi();
        Tolte += EsisteFile(In + u"note/n.mdb"_s) ? 0 : 1;
        Guarda(In, u"seme %1, volta %2, %3 us"_s.arg(Seme()).arg(Volta).arg(Momento), Nota);
        if (QTest::currentTestFailed())
            return;
    }
    if (UccisioniChieste() > 0)
        qInfo(
            "cancellata dalla finestra: %d uccisioni a caso (seme %u), %d volte tolta, la ripresa piu' lenta "
            "%lld ms in piu'",
            Volte, Seme(), Tolte, PiuLenta);
}

#include "TestUccisioniElenco.moc"
