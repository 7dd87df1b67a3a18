// The real window is killed while it writes an electronic invoice, behind each call of that act and at
// random: no file is there that neither its note nor the recovery copy knows, and the next session writes no
// second one unasked.
#include "guasti/fatturabile.h"
#include "uccisioni/fatture.h"
#include "uccisioni/imprese.h"
#include "uccisioni/pilotata.h"

#include "feenote/file/modRecupero.h"
#include "platform/system/file.h"
#include "platform/system/impostazioni.h"

#include <QDir>

using namespace Qt::StringLiterals;

namespace {

constexpr int Pazienza = 20000;

QString Ini(const QString& In)
{
    return In + u"Calcanova/KR5.ini"_s;
}

/// An office of its own with a note that is ready to be invoiced.
void Prepara(const QString& In)
{
    Posa(In + u"DatiStudio.mdb"_s, fatturabile::Fatturabile().Archivio);
    for (const QString& Nome : {u"note"_s, u"fatture"_s, u"utente"_s, u"Calcanova"_s})
        QDir().mkpath(In + Nome);
    Posa(In + u"note/n.mdb"_s, fatturabile::Fatturabile().Nota);
    Posa(Ini(In), fatturabile::DelloStudio);
    for (const auto& [Nome, Valore] : {std::pair(u"CercaAgg"_s, u"N"_s),
                                       {u"UserFolder"_s, In + u"utente/"_s},
                                       {u"ParcellePath"_s, In + u"note/"_s},
                                       {u"ArchivioCliCon"_s, In + u"DatiStudio.mdb"_s},
                                       {u"CartellaFattureXml"_s, In + u"fatture"_s}})
        SaveSetting(u"KR5"_s, u"Parametri"_s, Nome, Valore);
    ScriviFile(In + u"utente/avvisokr5.ini"_s, "[avvisokr5]\nletto=S\n");
    ScriviFile(In + u"conto"_s, QByteArray("0 0").leftJustified(24));
}

QList<int> Conto(const QString& In)
{
    const QList<QByteArray> Detti = LeggiFile(In + u"conto"_s).trimmed().split(' ');
    return {Detti.value(0).toInt(), Detti.value(1).toInt()};
}

QStringList Fatture(const QString& In)
{
    return QDir(In + u"fatture"_s).entryList({u"*.xml"_s}, QDir::Files);
}

/// What the note and the copies that would be offered know of.
QStringList Noti(const QString& In)
{
    QStringList Tutti{fatture::Segnata(In + u"note/n.mdb"_s)};
    for (const CopiaRecupero& Copia : NoteDaRecuperare())
        Tutti += fatture::Segnata(Copia.File);
    return Tutti;
}

QString Difetto(const QString& In)
{
    const QStringList Scritte = Fatture(In);
    if (Scritte.size() > 1)
        return u"scritta due volte: "_s + Scritte.join(u", "_s);
    const int Preso = fatture::Contatore(Ini(In));
    if (Preso < 0 || !Contenuto(Ini(In)).contains("Via della Prova"))
        return u"impostazioni perdute"_s;
    return Scritte.isEmpty()
               ? QString()
               : fatture::Difetto(Contenuto(In + u"fatture/"_s + Scritte.first()), Noti(In), Preso);
}

}  // namespace

class TestUccisioniFattura : public QObject
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
    void Avvia(Vittima& Chi, const QString& In, const QString& Compito, const QStringList& Argomenti);
    /// The note opens by its file.
    QStringList Nota(const QString& In) const { return {u"PV2|E|"_s + In + u"note/n.mdb"_s}; }
    /// What a kill has left, and what the next session makes of it.
    void Guarda(const QString& In, const QString& Dove);

    const Studio Ufficio;
    Registratore Messaggi;
    qint64 Prima = 0;  ///< what a start to the act takes that no kill came before
    qint64 PiuLenta = 0;
};
PROVA(TestUccisioniFattura);

QString TestUccisioniFattura::Casa()
{
    const QString In = NuovaCartella();
    ConCasaIn(In);
    sessione::UserFolder = In + u"utente/"_s;
    Prepara(In);
    return In;
}

void TestUccisioniFattura::Avvia(Vittima& Chi, const QString& In, const QString& Compito,
                                 const QStringList& Argomenti)
{
    ConPilotaIn(Chi, In, Compito);
    Chi.Avvia(ProgrammaDiProva() + u"calcanova"_s, Argomenti);
}

void TestUccisioniFattura::Guarda(const QString& In, const QString& Dove)
{
    const QString Trovato = Difetto(In);
    QVERIFY2(Trovato.isEmpty(), qPrintable(Dove + u": "_s + Trovato));
    const bool CE = !Fatture(In).isEmpty();
    // The copy is offered, and taken; without one the user opens the note.
    const bool Copia = !NoteDaRecuperare().isEmpty();
    LasciaRecupero();
    Invecchia(In);
    ScriviFile(In + u"conto"_s, QByteArray("0 0").leftJustified(24));
    Vittima Viva;
    QElapsedTimer Orologio;
    Orologio.start();
    Avvia(Viva, In, u"fattura"_s, Copia ? QStringList() : Nota(In));
    QVERIFY2(QTest::qWaitFor([&] { return !Viva.Vive() || Conto(In)[0] == 2; }, Pazienza), qPrintable(Dove));
    PiuLenta = std::max(PiuLenta, Orologio.elapsed() - Prima);
    QVERIFY2(QTest::qWaitFor([&] { return !Viva.Vive() || Conto(In)[1] > 0; }, Pazienza), qPrintable(Dove));
    PiuLenta = std::max(PiuLenta, Orologio.elapsed() - Prima);
    QVERIFY2(Viva.Vive(), (Dove.toUtf8() + ": " + Viva.Detto()).constData());
    QVERIFY2(PiuLenta < MassimaAttesaMs, qPrintable(Dove + u": attesi %1 ms"_s.arg(PiuLenta)));
    Viva.Uccidi();
    QVERIFY2(!CE || Conto(In)[1] == 2, qPrintable(Dove + u": scritta, e non lo si chiede"_s));
    QVERIFY2(Conto(In)[1] == 2 || !Fatture(In).isEmpty(), qPrintable(Dove + u": non riesce più"_s));
    if (Conto(In)[1] == 1)
        QCOMPARE(ContenutoDi(In + u"fatture"_s), Fatture(In));
    QCOMPARE(ContenutoDi(In + u"note"_s), QStringList{u"n.mdb"_s});
    const QString Poi = Difetto(In);
    QVERIFY2(Poi.isEmpty(), qPrintable(Dove + u", poi: "_s + Poi));
    QDir(In).removeRecursively();
}

void TestUccisioniFattura::dietroOgniChiamata_data()
{
    QTest::addColumn<QString>("Compito");
    QTest::newRow("salvata") << u"fattura"_s;
    QTest::newRow("con modifiche") << u"cambia e fattura"_s;
}

void TestUccisioniFattura::dietroOgniChiamata()
{
    QFETCH(QString, Compito);
    const QString File = NuovaCartella() + u"chiamate"_s;
    int Tutte = 0;
    {
        const QString In = Casa();
        Vittima Intera(In.chopped(1), File, 0);
        QElapsedTimer Orologio;
        Orologio.start();
        Avvia(Intera, In, Compito, Nota(In));
        QVERIFY(QTest::qWaitFor([&] { return !Intera.Vive() || Conto(In)[1] > 0; }, Pazienza));
        Prima = Orologio.elapsed();
        QVERIFY2(Intera.Vive(), Intera.Detto().constData());
        Tutte = Contate(File);
        Intera.Uccidi();
        QCOMPARE(Conto(In), QList<int>({2, 1}));
        QCOMPARE(Fatture(In).size(), 1);
        QVERIFY2(Tutte > 0, "calls that nobody counts");
        Guarda(In, u"intera"_s);
    }
    constexpr int Poche = 3;
    const int Passo = UccisioniChieste() > 0 ? 1 : (Tutte + Poche - 1) / Poche;
    int Uccise = 0;
    for (int Alla = UccisioniChieste() > 0 ? 1 : (Passo + 1) / 2; Alla <= Tutte; Alla += Passo) {
        const QString Dove = u"chiamata %1 di %2"_s.arg(Alla).arg(Tutte);
        const QString In = Casa();
        Vittima Chi(In.chopped(1), File, Alla);
        Avvia(Chi, In, Compito, Nota(In));
        QVERIFY2(Chi.AspettaLaFine() && Chi.Uccisa(), qPrintable(Dove));
        ++Uccise;
        Guarda(In, Dove);
        if (QTest::currentTestFailed())
            return;
    }
    if (UccisioniChieste() > 0)
        qInfo("fattura dalla finestra: %d uccisioni su %d chiamate, la ripresa piu' lenta %lld ms in piu'",
              Uccise, Tutte, PiuLenta);
}

void TestUccisioniFattura::inUnMomentoQualunque()
{
    QFETCH(QString, Compito);
    constexpr int UnoOgni = 200;
    const int Volte = std::max(1, UccisioniChieste() / UnoOgni);
    QRandomGenerator Caso(Seme());
    for (int Volta = 0; Volta < Volte; ++Volta) {
        const QString In = Casa();
        Vittima Chi;
        QElapsedTimer Orologio;
        Orologio.start();
        Avvia(Chi, In, Compito, Nota(In));
        QVERIFY(QTest::qWaitFor([&] { return !Chi.Vive() || Conto(In)[0] == 2; }, Pazienza));
        if (Prima == 0)
            Prima = Orologio.elapsed();
        QVERIFY2(Chi.Vive(), Chi.Detto().constData());
        constexpr int AlPiuUs = 150'000;
        const int Momento = Caso.bounded(AlPiuUs);
        ::usleep(useconds_t(Momento));
        Chi.Uccidi();
        Guarda(In, u"seme %1, volta %2, %3 us"_s.arg(Seme()).arg(Volta).arg(Momento));
        if (QTest::currentTestFailed())
            return;
    }
}

#include "TestUccisioniFattura.moc"
