// Terms as a calendar file, byte by byte and read back by a library of somebody else's.
#include "calculators/agenda.h"

#include "platform/system/file.h"
#include "platform/system/orologio.h"
#include "supporto/guasti.h"
#include "supporto/prova.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QTimeZone>

using namespace Qt::StringLiterals;

namespace {

VoceAgenda Appello()
{
    return {QDate(2026, 10, 5),
            u"Appello"_s,
            u"art. 325 c.p.c."_s,
            u"Rossi"_s,
            {u"Decorrenza: 20/07/2026"_s, u"30 giorni"_s},
            u"CPC-325-A 20/07/2026"_s};
}

/// What the library makes of a file with these terms; an empty object, and a failed test, where it refuses
/// it.
QJsonObject Letto(const QList<VoceAgenda>& Voci)
{
    const QString File = NuovaCartella() + u"prova.ics"_s;
    ScriviFile(File, ScriviIcs(Voci));
    QProcess Lettore;
    // The system's own, since it is there that its packages are found.
    Lettore.start(u"/usr/bin/python3"_s, {FileDiProva(u"calculators/leggi_ics.py"_s), File});
    if (!Lettore.waitForFinished() || Lettore.exitCode() != 0) {
        QTest::qFail(qPrintable(u"python3-icalendar, che ./test installa: "_s +
                                QString::fromUtf8(Lettore.readAllStandardError()) + Lettore.errorString()),
                     __FILE__, __LINE__);
        return {};
    }
    return QJsonDocument::fromJson(Lettore.readAllStandardOutput()).object();
}

QList<QJsonObject> Eventi(const QList<VoceAgenda>& Voci)
{
    QList<QJsonObject> Tutti;
    const QJsonArray Lettura = Letto(Voci)[u"eventi"].toArray();
    for (const auto& Evento : Lettura)
        Tutti << Evento.toObject();
    return Tutti;
}

QString Uid(const VoceAgenda& Voce)
{
    for (const QByteArray& Riga : ScriviIcs({Voce}).split('\n'))
        if (Riga.startsWith("UID:"))
            return QString::fromLatin1(Riga.mid(4).trimmed());
    return {};
}

}  // namespace

class TestAgenda : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();
    void unTermine();
    void unaCatena();
    void testiDifficili_data();
    void testiDifficili();
    void righeCorteENienteLettereSpezzate_data();
    void righeCorteENienteLettereSpezzate();
    void barraDavantiAllaEnne();
    void soloRigheConCrLf();
    void giorniAiLimiti_data();
    void giorniAiLimiti();
    void fuoriDalCalendario_data();
    void fuoriDalCalendario();
    void lIdentitaNonCambiaColGiorno();
    void identitaDiverse_data();
    void identitaDiverse();
    void terminiUguali();
    void senzaNote();
    void testoDaIncollare();
    void nomeDelFile_data();
    void nomeDelFile();
    void salva();
    void salvaDoveNonSiPuo();
};
PROVA(TestAgenda);

void TestAgenda::init()
{
    InstallaOrologio([] { return QDateTime(QDate(2026, 11, 22), QTime(9, 5, 7), Qt::UTC); });
}

void TestAgenda::cleanup()
{
    InstallaOrologio({});
}

void TestAgenda::unTermine()
{
    const QJsonObject Tutto = Letto({Appello()});
    QCOMPARE(Tutto[u"versione"].toString(), u"2.0"_s);
    QCOMPARE(Tutto[u"eventi"].toArray().size(), 1);
    const QJsonObject Evento = Tutto[u"eventi"].toArray().first().toObject();
    QCOMPARE(Evento[u"titolo"].toString(), u"Rossi - Appello (art. 325 c.p.c.)"_s);
    QCOMPARE(Evento[u"descrizione"].toString(), u"Decorrenza: 20/07/2026\n30 giorni"_s);
    // A day without an hour: the event lasts it whole.
    QCOMPARE(Evento[u"giorno"].toString(), u"2026-10-05"_s);
    QCOMPARE(Evento[u"fine"].toString(), u"2026-10-06"_s);
    QCOMPARE(Evento[u"timbro"].toString(), u"2026-11-22T09:05:07+00:00"_s);
    QCOMPARE(Evento[u"allarmi"].toArray(), (QJsonArray{7, 3, 1}));
    QCOMPARE(Evento[u"azioni"].toArray(), QJsonArray{u"DISPLAY"_s});
    QCOMPARE(Evento[u"annunci"].toArray(), (QJsonArray{u"Tra 7 giorni: Rossi - Appello (art. 325 c.p.c.)"_s,
                                                       u"Tra 3 giorni: Rossi - Appello (art. 325 c.p.c.)"_s,
                                                       u"Domani: Rossi - Appello (art. 325 c.p.c.)"_s}));
    QVERIFY(Evento[u"uid"].toString().endsWith(u"@calcanova"));
}

void TestAgenda::unaCatena()
{
    QList<VoceAgenda> Catena(3, Appello());
    for (int i = 0; i < 3; ++i) {
        Catena[i].Atto = u"Memoria %1"_s.arg(i + 1);
        Catena[i].Giorno = Catena[i].Giorno.addDays(20 * i);
    }
    const QList<QJsonObject> Letti = Eventi(Catena);
    QCOMPARE(Letti.size(), 3);
    QSet<QString> Identita;
    for (int i = 0; i < 3; ++i) {
        QCOMPARE(Letti[i][u"titolo"].toString(), u"Rossi - Memoria %1 (art. 325 c.p.c.)"_s.arg(i + 1));
        QCOMPARE(Letti[i][u"giorno"].toString(), Catena[i].Giorno.toString(Qt::ISODate));
        QCOMPARE(Letti[i][u"allarmi"].toArray(), (QJsonArray{7, 3, 1}));
        Identita << Letti[i][u"uid"].toString();
    }
    QCOMPARE(Identita.size(), 3);
}

void TestAgenda::testiDifficili_data()
{
    QTest::addColumn<QString>("Atto");
    QTest::addColumn<QString>("Titolo");
    QTest::newRow("virgole e punti e virgola")
        << u"deposito, notifica; poi altro"_s << u"deposito, notifica; poi altro"_s;
    QTest::newRow("barre rovesciate") << u"C:\\atti\\"_s << u"C:\\atti\\"_s;
    QTest::newRow("due punti e virgolette") << u"art. 1: \"nuovo\""_s << u"art. 1: \"nuovo\""_s;
    QTest::newRow("accenti") << u"Opposizione perché così è"_s << u"Opposizione perché così è"_s;
    QTest::newRow("fuori dal primo piano") << u"\U0001D11E"_s.repeated(40) << u"\U0001D11E"_s.repeated(40);
    QTest::newRow("una riga che ne imita altre")
        << u"x\r\nEND:VEVENT\r\nBEGIN:VEVENT"_s << u"x END:VEVENT BEGIN:VEVENT"_s;
    QTest::newRow("controlli") << u"a\u0001b\u007Fc\u0000d"_s << u"abcd"_s;
    QTest::newRow("lungo") << u"parola "_s.repeated(200).trimmed() << u"parola "_s.repeated(200).trimmed();
    QTest::newRow("una parola sola lunghissima") << QString(500, u'è') << QString(500, u'è');
}

void TestAgenda::testiDifficili()
{
    QFETCH(QString, Atto);
    QFETCH(QString, Titolo);
    VoceAgenda Voce = Appello();
    Voce.Pratica.clear();
    Voce.Articolo.clear();
    Voce.Atto = Atto;
    Voce.Note = {Titolo, u"seconda; riga, ancora\\"_s};
    const QList<QJsonObject> Letti = Eventi({Voce});
    QCOMPARE(Letti.size(), 1);
    QCOMPARE(Letti.first()[u"titolo"].toString(), Titolo);
    QCOMPARE(Letti.first()[u"descrizione"].toString(), Titolo + u"\nseconda; riga, ancora\\"_s);
}

void TestAgenda::righeCorteENienteLettereSpezzate_data()
{
    QTest::addColumn<QString>("Lettera");
    QTest::newRow("un byte") << u"a"_s;
    QTest::newRow("due byte") << u"è"_s;
    QTest::newRow("tre byte") << u"€"_s;
    QTest::newRow("quattro byte") << u"\U0001D11E"_s;
}

// Every length around the fold: 75 bytes are one line, 76 two.
void TestAgenda::righeCorteENienteLettereSpezzate()
{
    QFETCH(QString, Lettera);
    for (int Quante = 1; Quante <= 160; ++Quante) {
        VoceAgenda Voce;
        Voce.Giorno = QDate(2026, 1, 1);
        Voce.Atto = Lettera.repeated(Quante);
        QByteArray Intero;
        qsizetype Piegate = 0;
        for (const QByteArray& Riga : ScriviIcs({Voce}).split('\n')) {
            QByteArray Pulita = Riga;
            if (Pulita.endsWith('\r'))
                Pulita.chop(1);
            QVERIFY2(Pulita.size() <= 75, Pulita.constData());
            QCOMPARE(QString::fromUtf8(Pulita).toUtf8(), Pulita);
            QVERIFY(!QString::fromUtf8(Pulita).contains(QChar::ReplacementCharacter));
            if (Pulita.startsWith("SUMMARY:"))
                Intero = Pulita;
            else if (!Intero.isEmpty() && Pulita.startsWith(' ')) {
                Intero += Pulita.mid(1);
                ++Piegate;
            } else if (!Intero.isEmpty())
                break;
        }
        const QByteArray Atteso = "SUMMARY:" + Voce.Atto.toUtf8();
        QCOMPARE(Intero, Atteso);
        if (Atteso.size() <= 75)
            QCOMPARE(Piegate, 0);
        else
            QVERIFY(Piegate > 0);
    }
}

// By its bytes: the library takes the end of an escaped backslash and an n for a line break.
void TestAgenda::barraDavantiAllaEnne()
{
    VoceAgenda Voce = Appello();
    Voce.Pratica.clear();
    Voce.Articolo.clear();
    Voce.Atto = u"C:\\nuovi"_s;
    QVERIFY(ScriviIcs({Voce}).contains("\r\nSUMMARY:C:\\\\nuovi\r\n"));
}

void TestAgenda::soloRigheConCrLf()
{
    VoceAgenda Voce = Appello();
    Voce.Note = {u"una\rdue\ntre\r\nquattro"_s};
    const QByteArray Byte = ScriviIcs({Voce});
    QVERIFY(Byte.endsWith("END:VCALENDAR\r\n"));
    QCOMPARE(Byte.count('\n'), Byte.count("\r\n"));
    QCOMPARE(Byte.count('\r'), Byte.count("\r\n"));
    QVERIFY(!Byte.contains("\r\n\r\n"));
    QCOMPARE(Eventi({Voce}).value(0)[u"descrizione"].toString(), u"una\ndue\ntre\nquattro"_s);
}

void TestAgenda::giorniAiLimiti_data()
{
    QTest::addColumn<QDate>("Giorno");
    QTest::addColumn<QString>("Inizio");
    QTest::addColumn<QString>("Fine");
    QTest::newRow("il primo") << QDate(100, 1, 1) << u"0100-01-01"_s << u"0100-01-02"_s;
    QTest::newRow("29 febbraio") << QDate(2028, 2, 29) << u"2028-02-29"_s << u"2028-03-01"_s;
    QTest::newRow("San Silvestro") << QDate(2026, 12, 31) << u"2026-12-31"_s << u"2027-01-01"_s;
    QTest::newRow("l'ultimo, senza un giorno dopo") << QDate(9999, 12, 31) << u"9999-12-31"_s << QString();
}

void TestAgenda::giorniAiLimiti()
{
    QFETCH(QDate, Giorno);
    QFETCH(QString, Inizio);
    QFETCH(QString, Fine);
    VoceAgenda Voce = Appello();
    Voce.Giorno = Giorno;
    const QJsonObject Evento = Eventi({Voce}).value(0);
    QCOMPARE(Evento[u"giorno"].toString(), Inizio);
    QCOMPARE(Evento[u"fine"].toString(), Fine);
}

void TestAgenda::fuoriDalCalendario_data()
{
    QTest::addColumn<QDate>("Giorno");
    QTest::newRow("nessuna data") << QDate();
    QTest::newRow("prima dell'anno 100") << QDate(99, 12, 31);
    QTest::newRow("dopo il 9999") << QDate(10000, 1, 1);
}

void TestAgenda::fuoriDalCalendario()
{
    QFETCH(QDate, Giorno);
    VoceAgenda Voce = Appello();
    Voce.Giorno = Giorno;
    QVERIFY(NumeroErrore([&] { (void)ScriviIcs({Appello(), Voce}); }) != 0);
    QVERIFY(NumeroErrore([&] { (void)ScriviIcs({}); }) != 0);
}

// A term reckoned anew, to another day, is the same event: the calendar moves it and keeps no former date.
void TestAgenda::lIdentitaNonCambiaColGiorno()
{
    VoceAgenda Spostata = Appello();
    Spostata.Giorno = Spostata.Giorno.addDays(3);
    Spostata.Note = {u"altre note"_s};
    QCOMPARE(Uid(Spostata), Uid(Appello()));
    QCOMPARE(Uid(Appello()), u"%1"_s.arg(Uid(Appello())));
    QVERIFY(Uid(Appello()).size() > 20);
}

void TestAgenda::identitaDiverse_data()
{
    QTest::addColumn<VoceAgenda>("Altra");
    VoceAgenda Altra = Appello();
    Altra.Pratica = u"Bianchi"_s;
    QTest::newRow("altra pratica") << Altra;
    Altra = Appello();
    Altra.Atto = u"Ricorso"_s;
    QTest::newRow("altro atto") << Altra;
    Altra = Appello();
    Altra.Articolo = u"art. 327 c.p.c."_s;
    QTest::newRow("altro articolo") << Altra;
    Altra = Appello();
    Altra.Chiave = u"CPC-325-A 21/07/2026"_s;
    QTest::newRow("altra decorrenza") << Altra;
    Altra = Appello();
    Altra.Atto += Altra.Articolo;
    Altra.Articolo.clear();
    QTest::newRow("le stesse lettere divise altrimenti") << Altra;
}

void TestAgenda::identitaDiverse()
{
    QFETCH(VoceAgenda, Altra);
    QVERIFY(Uid(Altra) != Uid(Appello()));
}

void TestAgenda::terminiUguali()
{
    const QList<QJsonObject> Letti = Eventi({Appello(), Appello(), Appello()});
    QCOMPARE(Letti.size(), 3);
    QSet<QString> Identita;
    for (const QJsonObject& Evento : Letti)
        Identita << Evento[u"uid"].toString();
    QCOMPARE(Identita.size(), 3);
    QVERIFY(Identita.contains(Uid(Appello())));
}

void TestAgenda::senzaNote()
{
    VoceAgenda Voce = Appello();
    Voce.Note.clear();
    const QList<QJsonObject> Letti = Eventi({Voce});
    QCOMPARE(Letti.size(), 1);
    QVERIFY(Letti.first()[u"descrizione"].isNull());
}

void TestAgenda::testoDaIncollare()
{
    VoceAgenda Dopo = Appello();
    Dopo.Giorno = QDate(2027, 1, 2);
    Dopo.Pratica = u"  "_s;
    VoceAgenda Terza = Appello();
    Terza.Atto = u"Deposito\ndell'atto"_s;
    Terza.Articolo.clear();
    QCOMPARE(TestoAgenda({Dopo, Appello(), Terza}), u"lunedì 05/10/2026: Rossi - Appello (art. 325 c.p.c.)\n"
                                                    u"lunedì 05/10/2026: Rossi - Deposito dell'atto\n"
                                                    u"sabato 02/01/2027: Appello (art. 325 c.p.c.)"_s);
    QCOMPARE(TestoAgenda({}), QString());
}

void TestAgenda::nomeDelFile_data()
{
    QTest::addColumn<VoceAgenda>("Voce");
    QTest::addColumn<QString>("Nome");
    QTest::newRow("pratica e atto") << Appello() << u"Rossi - Appello (art. 325 c.p.c.).ics"_s;
    VoceAgenda Voce = Appello();
    Voce.Pratica = u"Rossi/Bianchi: 12?"_s;
    QTest::newRow("segni che un nome non tiene")
        << Voce << u"Rossi-Bianchi- 12- - Appello (art. 325 c.p.c.).ics"_s;
    Voce.Pratica = u"a"_s + u"\U0001D11E"_s.repeated(60);
    QTest::newRow("lungo, senza mezze lettere") << Voce << u"a"_s + u"\U0001D11E"_s.repeated(39) + u".ics"_s;
}

void TestAgenda::nomeDelFile()
{
    QFETCH(VoceAgenda, Voce);
    QFETCH(QString, Nome);
    QCOMPARE(NomeFileIcs({Voce}), Nome);
    QCOMPARE(NomeFileIcs({}), u"scadenze.ics"_s);
}

void TestAgenda::salva()
{
    const QString Cartella = NuovaCartella();
    const QString File = SalvaIcs(Cartella + u"agenda"_s, {Appello()});
    QCOMPARE(File, Cartella + u"agenda.ics"_s);
    QCOMPARE(LeggiFile(File), ScriviIcs({Appello()}));
    QCOMPARE(SalvaIcs(Cartella + u"AGENDA.ICS"_s, {Appello()}), Cartella + u"AGENDA.ICS"_s);
    QVERIFY(EsisteFile(Cartella + u"AGENDA.ICS"_s));
}

// Nothing of what cannot be written is left, and what was there stays.
void TestAgenda::salvaDoveNonSiPuo()
{
    const QString File = NuovaCartella() + u"agenda.ics"_s;
    ScriviFile(File, "prima");
    QVERIFY(NumeroErrore([&] { (void)SalvaIcs(File, {}); }) != 0);
    QCOMPARE(LeggiFile(File), QByteArray("prima"));
    QVERIFY(NumeroErrore([&] { (void)SalvaIcs(NuovaCartella() + u"manca/agenda.ics"_s, {Appello()}); }) != 0);
}

#include "TestAgenda.moc"
