// What writes a file is killed behind each of its calls, and at moments drawn at random: the former content
// or the new one is there, whole, and the next save or start leaves nothing beside it and waits for nobody.
#include "feenote/file/file_prova.h"
#include "vittima.h"

#include "addressbook/exchange/annullo.h"
#include "addressbook/exchange/colonneimporta.h"
#include "addressbook/exchange/importa.h"
#include "feenote/file/modRecupero.h"
#include "platform/base/errore.h"
#include "platform/system/file.h"
#include "platform/system/impostazioni.h"
#include "platform/system/percorsi.h"
#include "platform/system/profilo.h"

#include <QCoreApplication>
#include <QDir>

#include <algorithm>
#include <memory>

using namespace Qt::StringLiterals;

namespace {

constexpr auto VariabileParte = "CALCANOVA_PROVA_PARTE";
constexpr auto VariabileCartella = "CALCANOVA_PROVA_CARTELLA";

/// Rows of a note, so that half of them would show.
constexpr int Linee = 60;

Parcella NotaDetta(const QString& Detta)
{
    Parcella Nota = NotaPiena();
    Nota.txtOggetto.Testo = Detta;
    while (Nota.xDiritti.Righe() < Linee)
        Nota.xDiritti.AggiungiRiga();
    for (int i = 0; i < Nota.xDiritti.Righe(); ++i)
        Nota.xDiritti(i, 1) = Detta;
    return Nota;
}

/// What a note says, if it says it in every row; otherwise what is wrong with it.
QString DettoDa(const QString& File)
{
    if (!EsisteFile(File))
        return {};
    try {
        const Database Nota = OpenDatabase(File, true);
        const QString Detta = Nota.OpenRecordset(u"ParcellaParam"_s).Value(u"Oggetto"_s).toString();
        int Quante = 0;
        for (Recordset Righe = Nota.OpenRecordset(u"ParcellaRighe"_s); !Righe.Eof(); Righe.MoveNext())
            if (Righe.Value(u"OnoDir"_s).toString() == u"D") {
                ++Quante;
                if (Righe.Value(u"Descr"_s).toString() != Detta)
                    return u"mista"_s;
            }
        return Quante == Linee ? Detta : u"con %1 righe"_s.arg(Quante);
    } catch (const Errore& Guasto) {
        return u"illeggibile: "_s + Guasto.Descrizione;
    }
}

/// One thing that is written, and what may be there behind a kill.
struct Impresa
{
    QString Nome;
    /// Lays out what is there before.
    void (*Prepara)(const QString& Cartella);
    /// What the victim does.
    void (*Fa)(const QString& Cartella);
    /// Empty for what was there before or what the victim makes of it; a sentence for anything else.
    QString (*Difetto)(const QString& Cartella);
    /// What a later run of the program leaves in the folder, and nothing else.
    QStringList Rimane;
    /// What calcanova-cli is called with where it is the victim; "%1" stands for the folder.
    QStringList Riga = {};
};

QString NonUna(const QString& Trovata, const QStringList& Ammesse)
{
    return Ammesse.contains(Trovata) ? QString() : u"trovato «%1»"_s.arg(Trovata);
}

QByteArray Descrizione(const QString& Oggetto)
{
    return R"({"categoria":"CIV","autorita":"Tribunale ordinario","valore":"30.000,00","precarica":true,"oggetto":")" +
           Oggetto.toUtf8() + "\"}";
}

/// What a note of the command line says, where all that it is made of is there.
QString DettoPrecaricata(const QString& File)
{
    try {
        const Database Nota = OpenDatabase(File, true);
        return Nota.OpenRecordset(u"ParcellaRighe"_s).RecordCount() < 4
                   ? u"senza righe"_s
                   : Nota.OpenRecordset(u"ParcellaParam"_s).Value(u"Oggetto"_s).toString();
    } catch (const Errore& Guasto) {
        return u"illeggibile: "_s + Guasto.Descrizione;
    }
}

/// Leaves a file as a write that was cut off leaves it: half of it changed, its journal beside it.
void LasciaAMeta(const QString& File)
{
    const QString Giornale = u"-journal"_s;
    const QString Copia = File + u".a-meta"_s;
    {
        const Database Nota = OpenDatabase(File);
        const Transazione Aperta(Nota);
        Nota.Execute(u"PRAGMA cache_size=1"_s);
        Nota.Execute(u"UPDATE ParcellaRighe SET Descr=printf('%.4000c', 'x')"_s);
        QFile::copy(File, Copia);
        QFile::copy(File + Giornale, Copia + Giornale);
    }
    QFile::remove(File);
    QFile::rename(Copia, File);
    QFile::rename(Copia + Giornale, File + Giornale);
}

void PreparaArchivio(const QString& Cartella)
{
    QFile::copy(ProgrammaDiProva() + u"DatiStudio.mdb"_s, Cartella + u"DatiStudio.mdb"_s);
    QFile::setPermissions(Cartella + u"DatiStudio.mdb"_s, QFile::ReadOwner | QFile::WriteOwner);
    Recordset Righe = OpenDatabase(Cartella + u"DatiStudio.mdb"_s).OpenRecordset(u"clienti"_s);
    Righe.AddNew();
    Righe.ImpostaValue(u"Nominativo"_s, u"prima"_s);
    Righe.ImpostaValue(u"Indirizzo"_s, u"prima"_s);
    Righe.Update();
}

QString DifettoArchivio(const QString& Cartella)
{
    Recordset Righe = OpenDatabase(Cartella + u"DatiStudio.mdb"_s).OpenRecordset(u"clienti"_s);
    if (Righe.RecordCount() != 1)
        return u"%1 clienti"_s.arg(Righe.RecordCount());
    return NonUna(Righe.Value(u"Nominativo"_s).toString() + u'/' + Righe.Value(u"Indirizzo"_s).toString(),
                  {u"prima/prima"_s, u"dopo/dopo"_s});
}

QString ImpostazioniTrovate()
{
    return GetSetting(u"Uccise"_s, u"Parametri"_s, u"uno"_s) + u'/' +
           GetSetting(u"Uccise"_s, u"Parametri"_s, u"due"_s) + u'/' +
           GetSetting(u"Uccise"_s, u"Parametri"_s, u"lunga"_s).left(5);
}

void SalvaImpostazioni(const QString& Valore)
{
    SaveSettings(u"Uccise"_s, u"Parametri"_s,
                 {{u"uno"_s, Valore}, {u"due"_s, Valore}, {u"lunga"_s, Valore.repeated(2000)}});
}

/// The store stands in the folder of the user's settings, which is that of the row here.
void ConImpostazioniIn(const QString& Cartella)
{
    qputenv("XDG_CONFIG_HOME", QFile::encodeName(Cartella.chopped(1)));
}

QString DifettoCopia(const QString& Cartella)
{
    sessione::UserFolder = Cartella;
    for (const CopiaRecupero& Copia : NoteDaRecuperare())
        if (const QString Difetto = NonUna(DettoDa(Copia.File), {u"prima"_s, u"dopo"_s}); !Difetto.isEmpty())
            return Difetto;
    return {};
}

/// What names come into the archive.
TabellaEstranea DaImportare()
{
    TabellaEstranea Tabella;
    Tabella.Titoli = {u"Nominativo"_s, u"Indirizzo"_s};
    for (int i = 0; i < Linee; ++i) {
        Tabella.Righe.push_back({u"dopo %1"_s.arg(i), u"dopo"_s.repeated(50)});
        Tabella.Numeri.push_back(i + 1);
    }
    return Tabella;
}

void ImportaNomi(const QString& Cartella)
{
    const Database Db = OpenDatabase(Cartella + u"DatiStudio.mdb"_s);
    const TabellaEstranea Da = DaImportare();
    ImportaNominativi Opera(Db, u"clienti"_s, Da, AbbinaColonne(Da.Titoli, Db.Campi(u"clienti"_s)),
                            Doppioni::Salta);
    if (!Opera.Prepara() || !Opera.Scrivi(u"nomi.csv"_s))
        throw Errore(errori::Imprevisto);
}

/// All names or none, and where they are there the way back too.
QString DifettoImportati(const QString& Cartella)
{
    const QString File = Cartella + u"DatiStudio.mdb"_s;
    const int Quanti = OpenDatabase(File).OpenRecordset(u"clienti"_s).RecordCount();
    if (Quanti != 1 && Quanti != 1 + Linee)
        return u"%1 clienti"_s.arg(Quanti);
    if (UltimaImportazione(File).has_value() != (Quanti > 1))
        return Quanti > 1 ? u"senza ritorno"_s : u"un'importazione che non c'è stata"_s;
    if (Quanti == 1)
        return {};
    const QString Prova = NuovaCartella();
    for (const QString& Nome : ContenutoDi(Cartella))
        QFile::copy(Cartella + Nome, Prova + Nome);
    AnnullaImportazione(Prova + u"DatiStudio.mdb"_s);
    return DifettoArchivio(Prova);
}

const QList<Impresa>& Imprese()
{
    static const QList<Impresa> Tutte{
        {u"nota nuova"_s,
         [](const QString&) {},
         [](const QString& In) { ScriviNota(In + u"n.mdb"_s, NotaDetta(u"dopo"_s)); },
         [](const QString& In) {
             return NonUna(DettoDa(In + u"n.mdb"_s), {u""_s, u"dopo"_s});
         },
         {u"n.mdb"_s}},
        {u"nota cambiata"_s,
         [](const QString& In) { ScriviNota(In + u"n.mdb"_s, NotaDetta(u"prima"_s)); },
         [](const QString& In) { ScriviNota(In + u"n.mdb"_s, NotaDetta(u"dopo"_s)); },
         [](const QString& In) {
             return NonUna(DettoDa(In + u"n.mdb"_s), {u"prima"_s, u"dopo"_s});
         },
         {u"n.mdb"_s}},
        {u"modello di ieri"_s,
         [](const QString& In) {
             ScriviNota(In + u"n.mdb"_s, NotaDetta(u"prima"_s));
             EseguiSu(In + u"n.mdb"_s, u"ALTER TABLE ParcellaParam DROP COLUMN SpeseGen"_s);
             ImpostaSolaLettura(In + u"n.mdb"_s, true);
         },
         [](const QString& In) {
             TogliRestiDiNote(In);  // a completed one is not written again, so that the start has to
             Parcella Letta;
             CaricaDati(Letta, In + u"n.mdb"_s);
         },
         [](const QString& In) {
             if (!SolaLettura(In + u"n.mdb"_s))
                 return u"senza il suo attributo"_s;
             return NonUna(DettoDa(In + u"n.mdb"_s), {u"prima"_s});
         },
         {u"n.mdb"_s}},
        {u"modello scritto a meta'"_s,
         [](const QString& In) {
             ScriviNota(In + u"n.mdb"_s, NotaDetta(u"prima"_s));
             LasciaAMeta(In + u"n.mdb"_s);
             ImpostaSolaLettura(In + u"n.mdb"_s, true);
         },
         [](const QString& In) {
             TogliRestiDiNote(In);  // a mended one is not written again
             Parcella Letta;
             CaricaDati(Letta, In + u"n.mdb"_s);
         },
         [](const QString& In) {
             if (!SolaLettura(In + u"n.mdb"_s))
                 return u"senza il suo attributo"_s;
             return NonUna(DettoDa(In + u"n.mdb"_s), {u"prima"_s});
         },
         {u"n.mdb"_s}},
        {u"archivio"_s,
         PreparaArchivio,
         [](const QString& In) {
             Recordset Righe = OpenDatabase(In + u"DatiStudio.mdb"_s).OpenRecordset(u"clienti"_s);
             Righe.Edit();
             Righe.ImpostaValue(u"Nominativo"_s, u"dopo"_s);
             Righe.ImpostaValue(u"Indirizzo"_s, u"dopo"_s);
             Righe.Update();
         },
         DifettoArchivio,
         {u"DatiStudio.mdb"_s}},
        {u"importazione"_s,
         PreparaArchivio,
         ImportaNomi,
         DifettoImportati,
         {u"DatiStudio.mdb"_s, u"DatiStudio.mdb.prima"_s, u"DatiStudio.mdb.prima.json"_s}},
        {u"impostazioni"_s,
         [](const QString& In) {
             ConImpostazioniIn(In);
             SalvaImpostazioni(u"prima"_s);
         },
         [](const QString&) { SalvaImpostazioni(u"dopo"_s); },
         [](const QString& In) {
             ConImpostazioniIn(In);
             return NonUna(ImpostazioniTrovate(), {u"prima/prima/prima"_s, u"dopo/dopo/dopod"_s});
         },
         {u"Calcanova"_s, u"Calcanova/Uccise.ini"_s}},
        {u"kr5.ini"_s,
         [](const QString& In) {
             (void)WritePrivateProfileString(u"desktop"_s, u"L1"_s, u"prima"_s, In + u"kr5.ini"_s);
         },
         [](const QString& In) {
             (void)WritePrivateProfileString(u"desktop"_s, u"L1"_s, u"dopo"_s, In + u"kr5.ini"_s);
         },
         [](const QString& In) {
             return NonUna(GetPrivateProfileString(u"desktop"_s, u"L1"_s, {}, 100, In + u"kr5.ini"_s),
                           {u"prima"_s, u"dopo"_s});
         },
         {u"kr5.ini"_s}},
        {u"copia di recupero"_s,
         [](const QString& In) {
             sessione::UserFolder = In;
             AggiornaCopia(NotaDetta(u"prima"_s), 1);
         },
         [](const QString& In) {
             sessione::UserFolder = In;
             AggiornaCopia(NotaDetta(u"prima"_s), 2);
             AggiornaCopia(NotaDetta(u"dopo"_s), 2);
         },
         DifettoCopia,
         {}},
        {u"calcanova-cli crea"_s,
         [](const QString& In) {
             ScriviNota(In + u"n.mdb"_s, NotaDetta(u"prima"_s));
             ScriviFile(In + u"d.json"_s, Descrizione(u"dopo"_s));
         },
         {},
         [](const QString& In) {
             return NonUna(DettoPrecaricata(In + u"n.mdb"_s), {u"prima"_s, u"dopo"_s});
         },
         {u"d.json"_s, u"n.mdb"_s},
         {u"crea"_s, u"%1d.json"_s, u"%1n.mdb"_s}},
        {u"calcanova-cli stampa"_s,
         [](const QString& In) {
             ScriviNota(In + u"n.mdb"_s, NotaDetta(u"prima"_s));
             ScriviFile(In + u"n.doc"_s, "prima");
         },
         {},
         [](const QString& In) {
             const QByteArray Trovato = LeggiFile(In + u"n.doc"_s);
             const bool Intero = Trovato.startsWith("{\\rtf") && Trovato.trimmed().endsWith('}');
             return Trovato == "prima" || Intero ? QString() : u"documento a meta'"_s;
         },
         {u"n.doc"_s, u"n.mdb"_s},
         {u"stampa"_s, u"%1n.mdb"_s, u"0"_s, u"%1n.doc"_s}},
    };
    return Tutte;
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

private:
    void Prepara(const Impresa& Una, const QString& Cartella) const;
    void Avvia(Vittima& Chi, const Impresa& Una, const QString& Cartella) const;
    /// The program once more, left alive: it leaves what it should and nothing else.
    void VivaPulisce(const Impresa& Una, const QString& Cartella);

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
    ConImpostazioniIn(Cartella);
    Imprese()[Quale].Fa(Cartella);
}

void TestUccisioniFile::Prepara(const Impresa& Una, const QString& Cartella) const
{
    const Studio Ufficio;
    Registratore Messaggi;
    Messaggi.Tollera();
    Una.Prepara(Cartella);
    LasciaRecupero();
}

void TestUccisioniFile::Avvia(Vittima& Chi, const Impresa& Una, const QString& Cartella) const
{
    const auto Quale = std::ranges::find(Imprese(), Una.Nome, &Impresa::Nome) - Imprese().begin();
    Chi.Con(QString::fromLatin1(VariabileParte), QString::number(Quale + 1));
    Chi.Con(QString::fromLatin1(VariabileCartella), Cartella);
    Chi.Con(u"TMPDIR"_s, CartellaDiProva());
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
    Orologio.start();
    Vittima Viva;
    Avvia(Viva, Una, Cartella);
    QVERIFY(Viva.AspettaLaFine());
    PiuLenta = std::max(PiuLenta, Orologio.elapsed());
    QVERIFY2(Viva.Riuscita(), Viva.Detto().constData());
    const Studio Ufficio;
    Registratore Messaggi;
    Messaggi.Tollera();
    QCOMPARE(Una.Difetto(Cartella), QString());
    if (!Una.Rimane.isEmpty())
        QCOMPARE(ContenutoIntero(Cartella), Una.Rimane);
    else {
        // Recovery copies: none once they are dealt with. An empty lock may be somebody's who is about to
        // sign it, for a second, and the copies behind it are not offered so long.
        const auto Rimasto = [&] {
            for (const CopiaRecupero& Copia : NoteDaRecuperare())
                EliminaCopia(Copia);
            return ContenutoIntero(Cartella).join(u'\n');
        };
        QTRY_COMPARE_WITH_TIMEOUT(Rimasto(), u"recupero"_s, 5000);
    }
}

void TestUccisioniFile::dietroOgniChiamata_data()
{
    QTest::addColumn<int>("Quale");
    for (int i = 0; i < Imprese().size(); ++i)
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
        Avvia(Intera, Una, Cartella);
        QVERIFY(Intera.AspettaLaFine());
        QVERIFY2(Intera.Riuscita(), Intera.Detto().constData());
        Tutte = LeggiFile(Conto).toInt();
        QVERIFY2(Tutte > 3, "calls that nobody counts");
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
        QVERIFY2(Chi.Uccisa(), qPrintable(u"viva alla chiamata %1"_s.arg(Alla)));
        ++Uccise;
        {
            const Studio Ufficio;
            Registratore Messaggi;
            Messaggi.Tollera();
            const QString Difetto = Una.Difetto(Cartella);
            QVERIFY2(Difetto.isEmpty(), qPrintable(u"chiamata %1: %2"_s.arg(Alla).arg(Difetto)));
        }
        VivaPulisce(Una, Cartella);
        if (QTest::currentTestFailed()) {
            qWarning("chiamata %d di %d", Alla, Tutte);
            return;
        }
        QDir(Cartella).removeRecursively();
    }
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
    {
        const Studio Ufficio;
        Registratore Messaggi;
        Messaggi.Tollera();
        const auto Mano = [&]() -> std::unique_ptr<Uccidibile> {
            if (!Programma)
                return std::make_unique<Figlio>([&] { Una.Fa(Cartella); });
            auto Chi = std::make_unique<Vittima>();
            Avvia(*Chi, Una, Cartella);
            return Chi;
        };
        // How long one takes on this machine, so that the moments fall into its work.
        QElapsedTimer Orologio;
        Orologio.start();
        QVERIFY(Mano()->AspettaLaFine());
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
            const QString Difetto = Una.Difetto(Cartella);
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
