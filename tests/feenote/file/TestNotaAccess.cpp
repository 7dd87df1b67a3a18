// Notes and templates in Access format: read as they are, replaced by native ones at the first save.
#include "feenote/file/file_prova.h"
#include "feenote/file/modMultipla.h"
#include "feenote/file/modNotaJson.h"
#include "platform/accesso/accesso.h"
#include "platform/base/numerierrore.h"
#include "platform/database/fileincopia.h"
#include "platform/system/file.h"
#include "platform/system/guasti.h"
#include "platform/system/percorsi.h"
#include "supporto/altroprogramma.h"
#include "supporto/scrittoreaccess.h"

#include <QDir>
#include <QScopedValueRollback>

#include <memory>

using namespace Qt::StringLiterals;

class TestNotaAccess : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void siLegge_data();
    void siLegge();
    void senzaColonnaSiAggiornaLaCopia();
    void dueProgrammiLaAggiornano();
    void lAltro();
    void ilModelloRestaProtetto();
    void laPassword();
    void associata();
    void alPrimoSalvataggioIlVecchioResta();
    void ilVecchioTieneIPermessi();
    void quelCheUnSalvataggioUccisoLascia();
    void laConversioneCheViveResta_data();
    void laConversioneCheViveResta();
    void piuVecchiInsieme();
    void colNomeNuovoIlVecchioNonSiTocca();
    void seNonSiPuoTenereIlVecchioNonSiSalva();
    void lArchivioDelleTariffeSiRifiuta();

private:
    QByteArray Byte() const { return LeggiFile(File); }
    QStringList Presenti() const
    {
        return QDir(CartellaFile(File)).entryList({u"nota*"_s}, QDir::Files, QDir::Name);
    }

    std::unique_ptr<Studio> Ufficio;
    std::unique_ptr<Registratore> Box;
    QString File;
    FileScritto Come;
    QByteArray Attesa;  ///< what the same note says of itself as a native file
};
PROVA(TestNotaAccess);

void TestNotaAccess::init()
{
    Ufficio = std::make_unique<Studio>();
    Box = std::make_unique<Registratore>();
    const QString Nativa = Ufficio->File(u"nativa.mdb"_s);
    ScriviNota(Nativa, NotaPiena());
    // The former program keeps nothing beside its three tables.
    EseguiSu(Nativa, u"DROP TABLE \"_Calcanova\""_s);
    Parcella Letta;
    CaricaDati(Letta, Nativa);
    Attesa = DescriviNota(Letta);
    Come = AccessDa(Nativa);
    File = ScriviAccess(Ufficio->File(u"nota.mdb"_s), Come);
}

void TestNotaAccess::cleanup()
{
    Box.reset();
    Ufficio.reset();
}

void TestNotaAccess::siLegge_data()
{
    QTest::addColumn<EdizioneAccess>("Edizione");
    QTest::newRow("jet3") << EdizioneAccess::Jet3;
    QTest::newRow("jet4") << EdizioneAccess::Jet4;
    QTest::newRow("ace") << EdizioneAccess::Ace2019;
}

void TestNotaAccess::siLegge()
{
    QFETCH(EdizioneAccess, Edizione);
    Come.Edizione = Edizione;
    ScriviAccess(File, Come);
    const QByteArray Prima = Byte();
    Parcella Letta;
    CaricaDati(Letta, File);
    QCOMPARE(DescriviNota(Letta), Attesa);
    QCOMPARE(Letta.Percorso, File);
    QVERIFY(Letta.xOnorari.Righe() > 0);
    QCOMPARE(Byte(), Prima);
    QCOMPARE(Presenti(), QStringList{u"nota.mdb"_s});
}

void TestNotaAccess::senzaColonnaSiAggiornaLaCopia()
{
    for (TabellaScritta& Tabella : Come.Tabelle) {
        for (qsizetype i = Tabella.Colonne.size(); i-- > 0;) {
            if (Tabella.Colonne[i].Nome != u"SpeseGen")
                continue;
            Tabella.Colonne.remove(i);
            for (RigaScritta& Riga : Tabella.Righe)
                Riga.remove(i);
        }
    }
    ScriviAccess(File, Come);
    const QByteArray Prima = Byte();
    Parcella Letta;
    CaricaDati(Letta, File);
    QCOMPARE(Letta.txtCliente.Testo, u"Rossi Mario"_s);
    QVERIFY(!Letta.chkSpeseGen.Attiva);
    QCOMPARE(Byte(), Prima);
    QVERIFY(EsisteCampo(CopiaNativa(File), u"ParcellaParam"_s, u"SpeseGen"_s));
}

/// Not a test of its own: a program that has just given a note its column, and is about to say so.
void TestNotaAccess::lAltro()
{
    if (AltroProgramma::Parte().isEmpty())
        return;
    const Database Db = OpenDatabase(AltroProgramma::Cartella() + u"vecchia.mdb"_s);
    Transazione Tutto(Db);
    Db.Execute(u"ALTER TABLE ParcellaParam ADD SpeseGen INTEGER"_s);
    AltroProgramma::Segnala(AltroProgramma::Cartella() + u"aggiunge"_s);
    QTest::qWait(500);
    Tutto.Conferma();
}

/// Two programs open one old note: both read it, and it gets its column once.
void TestNotaAccess::dueProgrammiLaAggiornano()
{
    const QString Insieme = NuovaCartella();
    const QString Vecchia = Insieme + u"vecchia.mdb"_s;
    ScriviNota(Vecchia, NotaPiena());
    EseguiSu(Vecchia, u"ALTER TABLE ParcellaParam DROP COLUMN SpeseGen"_s);
    AltroProgramma Altro(u"TestNotaAccess"_s, u"aggiunge"_s, Insieme);
    QVERIFY(AltroProgramma::Aspetta(Insieme + u"aggiunge"_s));
    Parcella Letta;
    CaricaDati(Letta, Vecchia);
    QCOMPARE(Letta.txtCliente.Testo, u"Rossi Mario"_s);
    QVERIFY(Altro.Finito());
}

void TestNotaAccess::ilModelloRestaProtetto()
{
    ImpostaSolaLettura(File, true);
    Parcella Letta;
    CaricaDati(Letta, File);
    QVERIFY(SolaLettura(File));
    QVERIFY(EDiAccess(File));
}

void TestNotaAccess::laPassword()
{
    for (TabellaScritta& Tabella : Come.Tabelle)
        for (qsizetype i = 0; i < Tabella.Colonne.size(); ++i)
            if (Tabella.Colonne[i].Nome == u"Psw")
                Tabella.Righe[0][i] = u"097098067"_s;
    ScriviAccess(File, Come);
    QCOMPARE(LeggiPsw(File), u"abC"_s);
}

void TestNotaAccess::associata()
{
    const QByteArray Prima = Byte();
    const NotaAssociata Dati = LeggiMulti(File);
    QCOMPARE(Dati.OggettoMulti, u"Sfratto & c.d. \"morosità\""_s);
    QCOMPARE(Dati.TotSpeseImpMulti, 10.5);
    QCOMPARE(Byte(), Prima);
}

void TestNotaAccess::alPrimoSalvataggioIlVecchioResta()
{
    const QByteArray Prima = Byte();
    const QDateTime Quando = QDateTime(QDate(2011, 5, 4), QTime(10, 0), Qt::UTC);
    ImpostaDataFile(File, Quando);
    Parcella Nota;
    CaricaDati(Nota, File);
    Nota.txtCliente.Testo = u"Verdi Anna"_s;
    ScriviNota(File, Nota);
    QCOMPARE(Presenti(), (QStringList{u"nota.mdb"_s, u"nota.mdb.access"_s}));
    QCOMPARE(LeggiFile(File + u".access"_s), Prima);
    QCOMPARE(DataFile(File + u".access"_s).toUTC(), Quando);
    QVERIFY(!EDiAccess(File));
    Parcella Riletta;
    CaricaDati(Riletta, File);
    QCOMPARE(Riletta.txtCliente.Testo, u"Verdi Anna"_s);
    // From now on it is a note like any other.
    ScriviNota(File, Nota);
    QCOMPARE(Presenti(), (QStringList{u"nota.mdb"_s, u"nota.mdb.access"_s}));
    QCOMPARE(LeggiFile(File + u".access"_s), Prima);
}

void TestNotaAccess::ilVecchioTieneIPermessi()
{
    constexpr QFile::Permissions Suoi = QFile::ReadOwner | QFile::WriteOwner;
    constexpr QFile::Permissions Altrui =
        QFile::ReadGroup | QFile::WriteGroup | QFile::ReadOther | QFile::WriteOther;
    QVERIFY(QFile::setPermissions(File, Suoi));
    Parcella Nota;
    CaricaDati(Nota, File);
    ScriviNota(File, Nota);
    QCOMPARE(QFile::permissions(File + u".access"_s) & Altrui, QFile::Permissions());
    QCOMPARE(QFile::permissions(File) & Altrui, QFile::Permissions());
}

void TestNotaAccess::quelCheUnSalvataggioUccisoLascia()
{
    const QString Resto = CartellaFile(File) + u".~nota.mdb.tmp-access"_s;
    QVERIFY(QFile::copy(File, Resto));
    TogliRestiDiNote(CartellaFile(File));
    QVERIFY(!QFile::exists(Resto));
    QVERIFY(EDiAccess(File));
}

/// Another program of the office starts, and sweeps the folder, while old notes are converted into it.
void TestNotaAccess::laConversioneCheViveResta_data()
{
    QTest::addColumn<bool>("Aperta");
    QTest::newRow("closed") << false;
    QTest::newRow("somebody has it open") << true;
}

void TestNotaAccess::laConversioneCheViveResta()
{
    QFETCH(bool, Aperta);
    const QString A = NuovaCartella();
    if (Aperta)
        ScriviFile(CartellaFile(File) + u"nota.ldb"_s, "x");
    // What another process's conversion has left goes, at whatever step it was killed.
    const QString Morta = A + u".~999999.morta.mdb.tmp"_s;
    const auto Lascia = [&] {
        for (const QString& Coda : {u""_s, u".letto"_s, u".letto-wal"_s, u"-shm"_s, u"-journal"_s})
            ScriviFile(Morta + Coda, "x");
        ScriviFile(A + u".~999999.DatiStudio.mdb.nuovo.tmp"_s, "x");
    };
    int Viste = 0;
    Lascia();
    const auto Rapporto = ConvertiAccess(File, A + u"nuova.mdb"_s, {.Prosegui = [&](qint64) {
                                             ++Viste;
                                             TogliRestiDiNote(A);
                                             return true;
                                         }});
    QVERIFY(Rapporto);
    QVERIFY(Viste > 0);
    QVERIFY(!Rapporto->Tabelle.isEmpty());
    QCOMPARE(ContenutoDi(A), QStringList{u"nuova.mdb"_s});
    const FileInCopia Viva(A + u"viva.mdb"_s);
    ScriviFile(Viva.Percorso(), "x");
    ScriviFile(Viva.Letto(), "x");
    Lascia();
    TogliRestiDiNote(A);
    QVERIFY(EsisteFile(Viva.Percorso()) && EsisteFile(Viva.Letto()));
    QCOMPARE(ContenutoDi(A).filter(u"999999"_s), QStringList());
}

/// Somebody has put the old file back: neither of the old ones is lost.
void TestNotaAccess::piuVecchiInsieme()
{
    Parcella Nota;
    CaricaDati(Nota, File);
    const QByteArray Primo = Byte();
    ScriviNota(File, Nota);
    Come.Tabelle[0].Righe[0] = RigaScritta(Come.Tabelle[0].Colonne.size());
    ScriviAccess(File, Come);
    const QByteArray Secondo = Byte();
    ScriviNota(File, Nota);
    QCOMPARE(Presenti(), (QStringList{u"nota.mdb"_s, u"nota.mdb.access"_s, u"nota.mdb.access.2"_s}));
    QCOMPARE(LeggiFile(File + u".access"_s), Primo);
    QCOMPARE(LeggiFile(File + u".access.2"_s), Secondo);
}

void TestNotaAccess::colNomeNuovoIlVecchioNonSiTocca()
{
    const QByteArray Prima = Byte();
    Parcella Nota;
    CaricaDati(Nota, File);
    ScriviNota(Ufficio->File(u"nota2.mdb"_s), Nota);
    QCOMPARE(Presenti(), (QStringList{u"nota.mdb"_s, u"nota2.mdb"_s}));
    QCOMPARE(Byte(), Prima);
}

void TestNotaAccess::seNonSiPuoTenereIlVecchioNonSiSalva()
{
    const QByteArray Prima = Byte();
    Parcella Nota;
    CaricaDati(Nota, File);
    const QScopedValueRollback Disco(guasti::PrimaDelDisco,
                                     std::function<bool(const QString&)>(
                                         [](const QString& Nome) { return !Nome.endsWith(u"-access"_s); }));
    QVERIFY(NumeroErrore([&] { ScriviNota(File, Nota); }) != 0);
    QCOMPARE(Presenti(), QStringList{u"nota.mdb"_s});
    QCOMPARE(Byte(), Prima);
}

/// Only the program's own tariffs are ever used.
void TestNotaAccess::lArchivioDelleTariffeSiRifiuta()
{
    const QString Cartella = NuovaCartella();
    ScriviAccess(Cartella + u"parcelle.mdb"_s, AccessDa(ProgrammaDiProva() + u"parcelle.mdb"_s));
    QVERIFY(EDiAccess(Cartella + u"parcelle.mdb"_s));
    const QScopedValueRollback Programma(sessione::PercorsoProg, Cartella);
    const ErroreVisto Guasto = ErroreDi([&] { (void)ApriTariffe(Dm140); });
    QCOMPARE(Guasto.Numero, errori::FormatoDatabase);
}

#include "TestNotaAccess.moc"
