// Exports, the PDF and the electronic invoice of a note.
#include "guasti/fatturabile.h"
#include "guasti/scenari.h"

#include "core/sessione.h"
#include "feenote/einvoice/controlli.h"
#include "feenote/file/memorianota.h"
#include "feenote/file/modPosaFile.h"
#include "platform/base/errore.h"
#include "platform/database/database.h"
#include "platform/system/orologio.h"
#include "supporto/prova.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>

#include <memory>
#include <optional>
#include <utility>

using namespace Qt::StringLiterals;
using namespace registro;

namespace {

constexpr auto Vecchio = "il documento di prima\n";

/// Bytes without what tells one run from the next: times and identifiers.
QByteArray SenzaTempi(const QByteArray& Byte)
{
    static const QRegularExpression Tempi(
        u"D:\\d{14}[^)]*|\\d{4}-\\d\\d-\\d\\dT[0-9:.+Z-]*|[0-9a-fA-F]{8}-[0-9a-fA-F-]{27}|<[0-9a-fA-F]{32}>"_s);
    return QString::fromLatin1(Byte).remove(Tempi).toLatin1();
}

QStringList Stampa(const Posto& Dove, const QString& Fine)
{
    return {ProgrammaDiProva() + u"calcanova-cli"_s,
            u"--programma"_s,
            ProgrammaDiProva(),
            u"--utente"_s,
            Dove.Fuori,
            u"stampa"_s,
            Dove.Fuori + u"nota.mdb"_s,
            u"0"_s,
            Dove.Cartella + u"documento."_s + Fine};
}

Scenario Di(const QString& Fine, const QByteArray& Nota)
{
    const auto Giusto = std::make_shared<QByteArray>();
    return {.Nome = u"documento-"_s + Fine,
            .Attese = {Apri, Scrivi, Sincronizza, Rinomina, Chiudi, Permessi},
            .Prepara =
                [Fine, Nota](const Posto& Dove) {
                    Posa(Dove.Fuori + u"nota.mdb"_s, Nota);
                    const QString File = Dove.Cartella + u"documento."_s + Fine;
                    Posa(File, Vecchio);
                    QFile::setPermissions(File, QFile::ReadOwner | QFile::WriteOwner);
                },
            .Comando = [Fine](const Posto& Dove) { return Stampa(Dove, Fine); },
            .Guarda =
                [Fine, Giusto](const Posto& Dove, const Uscita& Vista) {
                    const QString File = Dove.Cartella + u"documento."_s + Fine;
                    const QByteArray Byte = SenzaTempi(Contenuto(File));
                    // The first one, without a fault, says what the document is.
                    if (Giusto->isEmpty() && Vista.Conti.Guasti == 0)
                        *Giusto = Byte;
                    const QFile::Permissions Altri =
                        QFile::ReadGroup | QFile::WriteGroup | QFile::ReadOther | QFile::WriteOther;
                    if (QFile::permissions(File) & Altri)
                        return Trovato::Rotto;
                    if (Byte == Vecchio)
                        return Trovato::Prima;
                    return Byte == *Giusto && Byte.size() > 1000 ? Trovato::Nuovo : Trovato::Rotto;
                },
            .Ammessi = {u"documento\\."_s + Fine},
            .InBreve = Fine == u"txt",
            .DicePerche = true};
}

// ---- the electronic invoice -------------------------------------------------------------------------

using namespace fatturabile;

QString Nota(const Posto& Dove)
{
    return Dove.Cartella + u"nota.mdb"_s;
}

QString Xml(const Posto& Dove)
{
    return Dove.Cartella + u"fattura.xml"_s;
}

/// The file that the note says has been written; nothing where it cannot be read.
std::optional<QString> Segnata(const Posto& Dove)
{
    try {
        Parcella Letta;
        ApplicaMemoria(Letta, LeggiMemoria(OpenDatabase(Nota(Dove), true)));
        return Letta.FatturaXml.File;
    } catch (const Errore&) {
        return std::nullopt;
    }
}

/// Behind an attempt comes the next invoice: one that was written is sent, a mark without its file taken
/// back.
QStringList Fattura(const Posto& Dove)
{
    qputenv("XDG_CONFIG_HOME", QFile::encodeName(Dove.Cartella.chopped(1)));
    QFile::remove(Xml(Dove));
    if (Segnata(Dove).value_or(QString()) != QString())
        Posa(Nota(Dove), Fatturabile().Nota);
    return {ProgrammaDiProva() + u"calcanova-cli"_s,
            u"--programma"_s,
            ProgrammaDiProva(),
            u"--utente"_s,
            Dove.Fuori,
            u"--archivio"_s,
            Dove.Fuori + u"DatiStudio.mdb"_s,
            u"fattura"_s,
            Nota(Dove),
            Xml(Dove)};
}

/// Whole settings count as lost, or an undisturbed run has read them and their damage is noted still.
bool DannoRimasto(const Posto& Dove, const Uscita& Vista)
{
    return DannoFalso(Dove) ||
           (Vista.Conti.Guasti == 0 && QFile::exists(Dove.Cartella + u"Calcanova/KR5.ini.danno"_s));
}

/// The number is taken, the note marked, the file written; a mark whose file was refused is taken back.
Trovato GuardaFattura(const Posto& Dove, const Uscita& Vista)
{
    const auto Nel = Segnata(Dove);
    const QString Deposito = QString::fromUtf8(Contenuto(Dove.Cartella + u"Calcanova/KR5.ini"_s));
    const auto Numero =
        QRegularExpression(u"^progtrasm=(\\d+)$"_s,
                           QRegularExpression::MultilineOption | QRegularExpression::CaseInsensitiveOption)
            .match(Deposito);
    if (!Nel || !Numero.hasMatch() || !Deposito.contains(u"Via della Prova"_s) || DannoRimasto(Dove, Vista))
        return Trovato::Rotto;
    if (!QFile::exists(Xml(Dove)))
        return Nel->isEmpty() || Vista.Frasi.contains(u"la parcella la dà per scritta"_s) ? Trovato::Prima
                                                                                          : Trovato::Rotto;
    const QByteArray Byte = Contenuto(Xml(Dove));
    const QString Progressivo = u"%1"_s.arg(Numero.captured(1).toInt(), 5, 36, QLatin1Char('0')).toUpper();
    const bool Intera = ControllaFattura(Byte, {}, Oggi()).isEmpty() &&
                        Byte.contains("<ProgressivoInvio>" + Progressivo.toLatin1() + "<");
    const bool Detta = Vista.Frasi.contains(u"La parcella non ricorda il file scritto"_s);
    return Intera && (Detta || Nel->endsWith(u'_' + Progressivo + u".xml"_s)) ? Trovato::Nuovo
                                                                              : Trovato::Rotto;
}

Scenario DellaFattura()
{
    return {.Nome = u"fattura-elettronica"_s,
            .Attese = {Apri, Scrivi, Sincronizza, Rinomina, Chiudi},
            .Prepara =
                [](const Posto& Dove) {
                    Posa(Dove.Fuori + u"DatiStudio.mdb"_s, Fatturabile().Archivio);
                    Posa(Nota(Dove), Fatturabile().Nota);
                    QDir().mkpath(Dove.Cartella + u"Calcanova"_s);
                    Posa(Dove.Cartella + u"Calcanova/KR5.ini"_s, DelloStudio);
                },
            .Comando = Fattura,
            .Guarda = GuardaFattura,
            .Ammessi = {u"nota\\.mdb|fattura\\.xml|Calcanova|Calcanova/KR5\\.ini(\\.danno)?"_s},
            .Spazza = [](const Posto& Dove) { TogliRestiDiNote(Dove.Cartella); },
            .InBreve = true,
            .Avverte = u"La parcella non ricorda il file scritto"_s};
}

// ---- the same through the note's window ---------------------------------------------------------------

/// They stand beside the notes, where the program proposes a folder in any case.
QStringList XmlScritti(const Posto& Dove)
{
    return QDir(Dove.Cartella).entryList({u"IT*.xml"_s}, QDir::Files);
}

void PosaFinestra(const Posto& Dove)
{
    Posa(Dove.Fuori + u"DatiStudio.mdb"_s, Fatturabile().Archivio);
    Posa(Nota(Dove), Fatturabile().Nota);
    for (const QString& Nome : {u"Calcanova"_s, u"utente"_s})
        QDir().mkpath(Dove.Cartella + Nome);
    const QByteArray In = Dove.Cartella.toUtf8();
    Posa(Dove.Cartella + u"Calcanova/KR5.ini"_s, QByteArray(DelloStudio) + "cercaagg=N\nuserfolder=\"" + In +
                                                     "utente/\"\nparcellepath=\"" + In +
                                                     "\"\narchivioclicon=\"" + Dove.Fuori.toUtf8() +
                                                     "DatiStudio.mdb\"\ncartellafatturexml=\"" + In + "\"\n");
    Posa(Dove.Cartella + u"utente/avvisokr5.ini"_s, "[avvisokr5]\nletto=S\n");
}

/// The program with somebody at its window, who writes the invoice and leaves. Behind an attempt it finds
/// what that one has left, and he writes it again.
QStringList Finestra(const Posto& Dove, bool Modifiche)
{
    qputenv("XDG_CONFIG_HOME", QFile::encodeName(Dove.Cartella.chopped(1)));
    qputenv("XDG_DATA_HOME", QFile::encodeName(Dove.Fuori + u"dati"_s));
    qputenv("XDG_RUNTIME_DIR", QFile::encodeName(Dove.Fuori + u"nessuna/sessione"_s));
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qputenv("QT_PLUGIN_PATH", PLUGIN_PILOTA);
    qputenv("QT_QPA_GENERIC_PLUGINS", "pilota");
    qputenv("CALCANOVA_PILOTA", QFile::encodeName(Dove.Fuori + u"quanto"_s));
    qputenv("CALCANOVA_PILOTA_FA", Modifiche ? "cambia e fattura" : "fattura");
    qputenv("CALCANOVA_PILOTA_FINE", "1");
    qputenv("CALCANOVA_PILOTA_ANCORA", "1");
    qputenv(VarPoi, "1");
    Posa(Dove.Fuori + u"quanto"_s, "0 0");
    return {ProgrammaDiProva() + u"calcanova"_s, u"PV2|E|"_s + Nota(Dove)};
}

/// What the recovery copy knows of.
bool LoSaLaCopia(const Posto& Dove, const QString& Fine)
{
    const QString Cartella = Dove.Cartella + u"utente/recupero/"_s;
    for (const QString& Nome : QDir(Cartella).entryList({u"*.mdb"_s}, QDir::Files)) {
        try {
            Parcella Letta;
            ApplicaMemoria(Letta, LeggiMemoria(OpenDatabase(Cartella + Nome, true)));
            if (Letta.FatturaXml.File.endsWith(Fine))
                return true;
        } catch (const Errore&) {
            return false;
        }
    }
    return false;
}

/// What the attempt before has left: the next one writes a second file, and unasked only where the user was
/// told that nothing but the first one itself knows of it.
struct Lasciato
{
    QStringList Scritte;
    bool Detto = false;
};

Trovato GuardaFinestra(const Posto& Dove, const Uscita& Vista, Lasciato& Ultimo)
{
    const Lasciato Prima = Vista.Conti.Guasti > 0 ? Lasciato() : std::exchange(Ultimo, {});
    const auto Nel = Segnata(Dove);
    const QString Deposito = QString::fromUtf8(Contenuto(Dove.Cartella + u"Calcanova/KR5.ini"_s));
    QStringList Scritte = XmlScritti(Dove);
    if (Vista.Conti.Guasti > 0)
        Ultimo = {Scritte, Vista.Frasi.contains(u"lo ricorderà quando sarà salvata"_s)};
    for (const QString& Nome : Prima.Scritte)
        if (!Scritte.removeOne(Nome))
            return Trovato::Rotto;
    if (!Prima.Scritte.isEmpty() && !Prima.Detto && !Vista.Frasi.contains(u"Scriverla di nuovo"_s))
        return Trovato::Rotto;
    const auto Numero =
        QRegularExpression(u"^progtrasm=(\\d+)$"_s,
                           QRegularExpression::MultilineOption | QRegularExpression::CaseInsensitiveOption)
            .match(Deposito);
    if (!Nel || !Numero.hasMatch() || !Deposito.contains(u"Via della Prova"_s) || Scritte.size() > 1 ||
        DannoRimasto(Dove, Vista))
        return Trovato::Rotto;
    if (Scritte.isEmpty())
        return Nel->isEmpty() || Vista.Frasi.contains(u"la dà per scritta"_s) ? Trovato::Prima
                                                                              : Trovato::Rotto;
    const QByteArray Byte = Contenuto(Dove.Cartella + Scritte.first());
    const QString Progressivo = u"%1"_s.arg(Numero.captured(1).toInt(), 5, 36, QLatin1Char('0')).toUpper();
    const QString Fine = u'_' + Progressivo + u".xml"_s;
    const bool Intera = ControllaFattura(Byte, {}, Oggi()).isEmpty() &&
                        Byte.contains("<ProgressivoInvio>" + Progressivo.toLatin1() + "<");
    const bool Saputo = Nel->endsWith(Fine) || LoSaLaCopia(Dove, Fine);
    // Where the disk refuses the copy too, the user is told that the note does not know yet.
    const bool Detto = Vista.Conti.Guasti > 0 && Vista.Frasi.contains(u"lo ricorderà quando sarà salvata"_s);
    return Intera && (Saputo || Detto) ? Trovato::Nuovo : Trovato::Rotto;
}

Scenario DallaFinestra(bool Modifiche)
{
    const auto Ultimo = std::make_shared<Lasciato>();
    return {
        .Nome = Modifiche ? u"fattura-finestra-modificata"_s : u"fattura-finestra"_s,
        .Attese = {Apri, Scrivi, Sincronizza, Rinomina, Chiudi},
        .Prepara = PosaFinestra,
        .Comando = [=](const Posto& Dove) { return Finestra(Dove, Modifiche); },
        .Guarda = [Ultimo](const Posto& Dove,
                           const Uscita& Vista) { return GuardaFinestra(Dove, Vista, *Ultimo); },
        .Ammessi =
            {u"nota\\.mdb|IT[^/]*\\.xml|Calcanova(/KR5\\.ini(\\.danno)?)?|QtProject\\.conf"_s,
             u"utente(/(avvisokr5\\.ini|Tassi\\.dat|doc(/nota\\.doc)?|recupero(/[^/~]*\\.(mdb|json|lock))?))?"_s},
        .Spazza =
            [](const Posto& Dove) {
                TogliRestiDiNote(Dove.Cartella);
                TogliRestiDiNote(Dove.Cartella + u"utente/recupero/"_s);
            },
        // Of a copy or a lock that no disk confirms the window says nothing; what is known of the invoice
        // is looked at.
        .SenzaPromessa = true};
}

}  // namespace

QList<Scenario> ScenariDocumenti()
{
    // The note is made once, by the program itself.
    const QString Cartella = NuovaCartella();
    const QString Comando =
        u"\"%1calcanova-cli\" --programma \"%1\" --utente \"%2\" crea \"%3\" \"%2nota.mdb\" >\"%2detto\""_s
            .arg(ProgrammaDiProva(), Cartella, SorgenteDiProva(u"dati/esempi/civile.json"_s));
    if (std::system(QFile::encodeName(Comando).constData()) != 0)
        qFatal("the note of the documents cannot be made");
    const QByteArray Nota = Contenuto(Cartella + u"nota.mdb"_s);
    QList<Scenario> Tutti;
    for (const QString& Fine : {u"txt"_s, u"doc"_s, u"htm"_s, u"pdf"_s})
        Tutti.append(Di(Fine, Nota));
    Tutti.append(DellaFattura());
    Tutti.append(DallaFinestra(false));
    Tutti.append(DallaFinestra(true));
    return Tutti;
}
