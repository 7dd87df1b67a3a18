// What writes a file is killed behind each of its calls, and at moments drawn at random: the former content
// or the new one is there, whole, and the next save or start leaves nothing beside it and waits for nobody.
#include "feenote/file/file_prova.h"
#include "uccisioni/imprese.h"
#include "vittima.h"

#include "feenote/file/modRecupero.h"
#include "platform/base/errore.h"
#include "platform/system/file.h"
#include "supporto/maschera.h"

#include <QCoreApplication>
#include <QDir>

#include <algorithm>
#include <memory>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

constexpr auto VariabileParte = "CALCANOVA_PROVA_PARTE";
constexpr auto VariabileCartella = "CALCANOVA_PROVA_CARTELLA";

const QList<Impresa>& Imprese()
{
    static const QList<Impresa> Tutte =
        ImpreseNote() + ImpreseArchivi() + ImpreseUscite() + ImpreseProgramma();
    return Tutte;
}

/// What is wrong, also where it keeps the judge from looking.
QString DifettoDi(const Impresa& Una, const QString& Cartella)
{
    try {
        return Una.Difetto(Cartella);
    } catch (const Errore& Guasto) {
        return u"non si può guardare: "_s + Guasto.Descrizione;
    }
}

/// Everything below a folder, hidden files too; names from the folder on.
QStringList ContenutoIntero(const QString& Cartella)
{
    QStringList Trovati;
    for (const QString& Nome : ContenutoDi(Cartella)) {
        Trovati += Nome;
        if (QFileInfo(Cartella + Nome).isDir())
            for (const QString& Sotto : ContenutoIntero(Cartella + Nome + u'/'))
                Trovati += Nome + u'/' + Sotto;
    }
    return Trovati;
}

}  // namespace

class TestUccisioniFile : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void laVittima();
    void dietroOgniChiamata_data();
    void dietroOgniChiamata();
    void inUnMomentoQualunque_data();
    void inUnMomentoQualunque();
    void cleanup() { CasaDiPrima(); }

private:
    void Prepara(const Impresa& Una, const QString& Cartella) const;
    void Avvia(Vittima& Chi, const Impresa& Una, const QString& Cartella) const;
    /// The program once more, left alive: it leaves what it should and nothing else.
    void VivaPulisce(const Impresa& Una, const QString& Cartella);

    qint64 Indisturbata = 0;  ///< the program by itself, with nothing to wait for
    qint64 PiuLenta = 0;
};
PROVA(TestUccisioniFile);

/// The part of the other program; in the first one nothing.
void TestUccisioniFile::laVittima()
{
    const int Quale = qEnvironmentVariableIntValue(VariabileParte) - 1;
    if (Quale < 0)
        return;
    const QString Cartella = qEnvironmentVariable(VariabileCartella);
    const Studio Ufficio;
    Registratore Messaggi;
    Messaggi.Tollera();
    ConCasaIn(Cartella);
    const SenzaMaschera Aperta;
    Imprese()[Quale].Fa(Cartella);
}

void TestUccisioniFile::Prepara(const Impresa& Una, const QString& Cartella) const
{
    const Studio Ufficio;
    Registratore Messaggi;
    Messaggi.Tollera();
    ConCasaIn(Cartella);
    Una.Prepara(Cartella);
    LasciaRecupero();
}

void TestUccisioniFile::Avvia(Vittima& Chi, const Impresa& Una, const QString& Cartella) const
{
    const auto Quale = std::ranges::find(Imprese(), Una.Nome, &Impresa::Nome) - Imprese().begin();
    Chi.Con(QString::fromLatin1(VariabileParte), QString::number(Quale + 1));
    Chi.Con(QString::fromLatin1(VariabileCartella), Cartella);
    Chi.Con(u"TMPDIR"_s, CartellaDiProva());
    Chi.Con(u"XDG_CONFIG_HOME"_s, Cartella.chopped(1));
    Chi.Con(u"XDG_DATA_HOME"_s, Cartella + u"dati"_s);
    if (!Una.Riga.isEmpty()) {
        QStringList Argomenti = Una.Riga;
        for (QString& Argomento : Argomenti)
            Argomento.replace(u"%1"_s, Cartella);
        Chi.Avvia(ProgrammaDiProva() + u"calcanova-cli"_s, Argomenti);
        return;
    }
    Chi.Avvia(QCoreApplication::applicationFilePath(), {u"TestUccisioniFile"_s, u"laVittima"_s});
}

void TestUccisioniFile::VivaPulisce(const Impresa& Una, const QString& Cartella)
{
    // A signature that was never written leaves an empty lock, which counts for a second.
    QElapsedTimer Orologio;
    if (Una.Poi)
        Una.Poi(Cartella);
    Orologio.start();
    Vittima Viva;
    Avvia(Viva, Una, Cartella);
    QVERIFY(Viva.AspettaLaFine());
    const qint64 Durata = Orologio.elapsed();
    PiuLenta = std::max(PiuLenta, Durata);
    QVERIFY2(Durata - Indisturbata < MassimaAttesaMs,
             qPrintable(u"%1: %2 ms, senza uccisioni %3"_s.arg(Una.Nome).arg(Durata).arg(Indisturbata)));
    QVERIFY2(Viva.Riuscita(), Viva.Detto().constData());
    const Studio Ufficio;
    Registratore Messaggi;
    Messaggi.Tollera();
    QCOMPARE(DifettoDi(Una, Cartella), QString());
    if (Una.Infine)
        QCOMPARE(Una.Infine(Cartella), QString());
    if (Una.Infine || !Una.Rimane.isEmpty()) {
        QStringList Rimasti = ContenutoIntero(Cartella);
        QStringList Attesi = Una.Rimane;
        Rimasti.sort();
        Attesi.sort();
        QCOMPARE(Rimasti.join(u'\n'), Attesi.join(u'\n'));
    } else {
        // Recovery copies: none once they are dealt with. An empty lock may be somebody's who is about to
        // sign it, for a second, and the copies behind it are not offered so long.
        const auto Rimasto = [&] {
            for (const CopiaRecupero& Copia : NoteDaRecuperare())
                EliminaCopia(Copia);
            return ContenutoIntero(Cartella).join(u'\n');
        };
        QTRY_COMPARE_WITH_TIMEOUT(Rimasto(), u"recupero"_s, int(MassimaAttesaMs));
    }
}

void TestUccisioniFile::dietroOgniChiamata_data()
{
    QTest::addColumn<int>("Quale");
    for (int i = 0; i < Imprese().size(); ++i)
        if (UccisioniChieste() > 0 || !Imprese()[i].SoloChieste)
            QTest::newRow(qPrintable(Imprese()[i].Nome)) << i;
}

void TestUccisioniFile::dietroOgniChiamata()
{
    QFETCH(int, Quale);
    const Impresa& Una = Imprese()[Quale];
    const QString Conto = NuovaCartella() + u"conto"_s;
    int Tutte = 0;
    {
        const QString Cartella = NuovaCartella();
        Prepara(Una, Cartella);
        Vittima Intera(Cartella.chopped(1), Conto, 0);
        QElapsedTimer Orologio;
        Orologio.start();
        Avvia(Intera, Una, Cartella);
        QVERIFY(Intera.AspettaLaFine());
        Indisturbata = Orologio.elapsed();
        QVERIFY2(Intera.Riuscita(), Intera.Detto().constData());
        Tutte = Contate(Conto);
        QVERIFY2(Tutte > 0, "calls that nobody counts");
    }
    // Each of them where kills are asked for, otherwise a few spread over all.
    constexpr int Poche = 2;
    const int Passo = UccisioniChieste() > 0 ? 1 : (Tutte + Poche - 1) / Poche;
    // The first call makes a lock that nobody has signed yet, for which the next program waits a second: one
    // of them shows it.
    const int Prima =
        UccisioniChieste() > 0 || Quale == 0 ? 1 : 1 + (int(Seme() % uint(Passo)) + Passo / 2) % Passo;
    int Uccise = 0;
    for (int Alla = Prima; Alla <= Tutte; Alla += Passo) {
        const QString Cartella = NuovaCartella();
        Prepara(Una, Cartella);
        Vittima Chi(Cartella.chopped(1), Conto, Alla);
        Avvia(Chi, Una, Cartella);
        QVERIFY(Chi.AspettaLaFine());
        // One that lives has made fewer calls than were counted, and what it was to do.
        const bool InMeno = Una.APezzi && Chi.Riuscita() && Contate(Conto) < Alla;
        QVERIFY2(Chi.Uccisa() || InMeno, qPrintable(u"viva alla chiamata %1"_s.arg(Alla)));
        Uccise += Chi.Uccisa() ? 1 : 0;
        {
            const Studio Ufficio;
            Registratore Messaggi;
            Messaggi.Tollera();
            const QString Difetto = DifettoDi(Una, Cartella);
            QVERIFY2(Difetto.isEmpty(), qPrintable(u"chiamata %1: %2"_s.arg(Alla).arg(Difetto)));
        }
        VivaPulisce(Una, Cartella);
        if (QTest::currentTestFailed()) {
            qWarning("chiamata %d di %d", Alla, Tutte);
            return;
        }
        QDir(Cartella).removeRecursively();
    }
    QVERIFY(Uccise > 0);
    if (UccisioniChieste() > 0)
        qInfo("%s: %d uccisioni su %d chiamate, la ripresa piu' lenta %lld ms", qPrintable(Una.Nome), Uccise,
              Tutte, PiuLenta);
}

void TestUccisioniFile::inUnMomentoQualunque_data()
{
    dietroOgniChiamata_data();
}

void TestUccisioniFile::inUnMomentoQualunque()
{
    QFETCH(int, Quale);
    const Impresa& Una = Imprese()[Quale];
    const bool Programma = !Una.Riga.isEmpty();
    // An ordinary run draws one moment for each; programs that have to start take their time.
    constexpr int UnoOgni = 40;
    const int Volte = std::max(1, Programma ? UccisioniChieste() / UnoOgni
                                            : UccisioniChieste() / int(Imprese().size() - 2));
    QRandomGenerator Caso(Seme());
    const QString Cartella = NuovaCartella();
    Prepara(Una, Cartella);
    int Uccise = 0;
    bool Cominciata = false;
    {
        const Studio Ufficio;
        Registratore Messaggi;
        Messaggi.Tollera();
        const auto Mano = [&]() -> std::unique_ptr<Uccidibile> {
            if (Una.DaCapo && std::exchange(Cominciata, true)) {
                QDir(Cartella).removeRecursively();
                QDir().mkpath(Cartella);
                Una.Prepara(Cartella);
            } else if (Una.Poi) {
                Una.Poi(Cartella);
            }
            if (!Programma)
                return std::make_unique<Figlio>([&] { Una.Fa(Cartella); });
            auto Chi = std::make_unique<Vittima>();
            Avvia(*Chi, Una, Cartella);
            return Chi;
        };
        // How long one takes on this machine, so that the moments fall into its work.
        const auto Prima = Mano();
        QElapsedTimer Orologio;
        Orologio.start();
        QVERIFY(Prima->AspettaLaFine());
        Indisturbata = Orologio.elapsed();
        qint64 Durata = Orologio.nsecsElapsed() / 1000 + 1;
        for (int Volta = 0; Uccise < Volte && Volta < 4 * Volte + 20; ++Volta) {
            const auto Chi = Mano();
            const qint64 Momento = Caso.bounded(Durata);
            if (Chi->FinitaEntro(Momento)) {
                Durata = std::max<qint64>(500, Durata * 9 / 10);
                continue;
            }
            Chi->Uccidi();
            Durata = Durata * 101 / 100 + 1;
            ++Uccise;
            const QString Difetto = DifettoDi(Una, Cartella);
            QVERIFY2(Difetto.isEmpty(),
                     qPrintable(
                         u"seme %1, volta %2, %3 us: %4"_s.arg(Seme()).arg(Volta).arg(Momento).arg(Difetto)));
        }
    }
    QVERIFY2(Uccise == Volte, qPrintable(u"%1 su %2"_s.arg(Uccise).arg(Volte)));
    VivaPulisce(Una, Cartella);
    if (UccisioniChieste() > 0)
        qInfo("%s: %d uccisioni a caso (seme %u), la ripresa %lld ms", qPrintable(Una.Nome), Uccise, Seme(),
              PiuLenta);
}

#include "TestUccisioniFile.moc"
