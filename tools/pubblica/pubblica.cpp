#include "pubblica/pubblica.h"

#include "core/versione.h"
#include "platform/base/errore.h"
#include "platform/base/paginacodice.h"
#include "platform/base/regionale.h"
#include "platform/network/firma.h"
#include "platform/system/file.h"
#include "platform/system/percorsi.h"
#include "pubblica/paginesito.h"
#include "update/controllotassi.h"
#include "update/scarico.h"
#include "update/versioni.h"

#include <QCryptographicHash>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QMap>

#include <optional>

using namespace Qt::StringLiterals;

namespace {

constexpr QStringView Uso =
    u"Uso: pubblica chiavi <cartella>\n"
    u"     pubblica cartella <cartella> --chiave <file> --versione <n.n.n> --tassi <file>\n"
    u"              [--data <gg/mm/aaaa>] [--nota <testo>] [--programma <cartella>]\n"
    u"              [<installatore .exe o .deb>...]\n";

/// What is to be published.
struct Ordine
{
    QString Uscita;
    QMap<QString, QString> Opzioni;
    QStringList Installatori;
};

/// Wrong words on the command line.
struct UsoErrato
{};

[[noreturn]] void Rifiuta(const QString& Frase)
{
    throw Errore(errori::Argomento, Frase);
}

Ordine LeggiOrdine(const QStringList& Argomenti)
{
    const QStringList Note{u"--chiave"_s, u"--versione"_s, u"--tassi"_s,
                           u"--data"_s,   u"--nota"_s,     u"--programma"_s};
    Ordine Letto;
    for (qsizetype i = 0; i < Argomenti.size(); ++i) {
        const QString& Parola = Argomenti[i];
        if (Note.contains(Parola) && i + 1 < Argomenti.size())
            Letto.Opzioni[Parola] = Argomenti[++i];
        else if (Parola.startsWith(u"--"))
            throw UsoErrato{};
        else if (Letto.Uscita.isEmpty())
            Letto.Uscita = Barra(Parola);
        else
            Letto.Installatori << Parola;
    }
    for (const auto& Serve : {u"--chiave"_s, u"--versione"_s, u"--tassi"_s})
        if (Letto.Opzioni.value(Serve).isEmpty())
            throw UsoErrato{};
    if (Letto.Uscita.isEmpty())
        throw UsoErrato{};
    return Letto;
}

/// The three lines, read back as the program will: what it would not understand is refused.
QByteArray TreRighe(const Ordine& Dato)
{
    const QString Tassi = Dato.Opzioni[u"--tassi"_s];
    const QString Data = Dato.Opzioni.value(u"--data"_s, Format(DataFile(Tassi).date(), ModelloData));
    const QString Nota = Dato.Opzioni.value(u"--nota"_s);
    if (DaCp1252(Cp1252(Nota)) != Nota)
        Rifiuta(u"La nota contiene caratteri che l'elenco delle versioni non può contenere."_s);
    const QByteArray Righe = Cp1252(u"versione=[%1]\r\n%2 tassi e indici\r\nnota=%3\r\n"_s.arg(
        Dato.Opzioni[u"--versione"_s], Data, Nota));
    const Versioni Lette = LeggiVersioni(Righe);
    if (Lette.Versione != Dato.Opzioni[u"--versione"_s])
        Rifiuta(u"La versione deve essere di tre numeri, per esempio 3.0.15."_s);
    if (!Lette.DataTassi || Format(*Lette.DataTassi, ModelloData) != Data)
        Rifiuta(u"La data deve essere nella forma gg/mm/aaaa."_s);
    if (Lette.Nota != Nota)
        Rifiuta(u"La nota deve stare in una riga di 500 caratteri."_s);
    return Righe;
}

/// The name of an installer in the folder. @throws Errore 5 for an ending that no system of the program's has
QString NomePubblicato(const QString& Installatore, const QString& Versione)
{
    for (const QString& Fine : {u".exe"_s, u".deb"_s})
        if (Installatore.endsWith(Fine))
            return u"upgrade"_s + Versione + Fine;
    Rifiuta(u"L'installatore deve essere un file .exe o .deb: "_s + Installatore);
}

QByteArray Sha256Di(const QString& File)
{
    QCryptographicHash Somma(QCryptographicHash::Sha256);
    LeggiAPezzi(File, [&](QByteArrayView Pezzo) {
        Somma.addData(Pezzo);
        return true;
    });
    return Somma.result();
}

/// Copies a file into the folder and gives its line of the list.
QByteArray Posa(const QString& Origine, const QString& Cartella, const QString& Nome, qint64 MassimoByte)
{
    const QString Nuovo = Cartella + Nome + u".nuovo"_s;
    qint64 Byte = 0;
    CopiaFile(Origine, Nuovo, MassimoByte, [&](qint64 Copiati) {
        Byte = Copiati;
        return true;
    });
    ImpostaDataFile(Nuovo, DataFile(Origine));
    SostituisciFile(Nuovo, Cartella + Nome);
    return RigaElenco({Nome, Byte, Sha256Di(Cartella + Nome)}).toLatin1() + "\r\n";
}

/// A file that the program would not bring to its end is refused. @throws Errore 5, 53
void PretendiMisura(const QString& File, qint64 MassimoByte)
{
    if (!EsisteFile(File))
        throw Errore(errori::FileMancante);
    if (QFileInfo(PercorsoNativo(File)).size() > MassimoByte)
        Rifiuta(u"Il file supera i %1 MB che il programma accetta: %2"_s.arg(MassimoByte >> 20).arg(File));
}

/// Whoever is told of a newer version wants its installer; the rates alone go with the version in use.
void PretendiInstallatore(const Ordine& Dato)
{
    if (Dato.Installatori.isEmpty() && Dato.Opzioni[u"--versione"_s] != VersioneProgramma())
        Rifiuta(u"Una versione nuova si pubblica con il suo installatore; per i soli tassi la versione è "
                u"quella in uso, %1."_s.arg(VersioneProgramma()));
}

void Chiavi(const QString& Cartella)
{
    const QString Pubblica = Cartella + u"calcanova.pub"_s;
    const QString Segreta = Cartella + u"calcanova.key"_s;
    if (EsisteFile(Pubblica) || EsisteFile(Segreta))
        Rifiuta(u"La cartella contiene già delle chiavi: "_s + Cartella);
    CreaCartella(Cartella);
    const CoppiaChiavi Nuove = NuoveChiavi();
    // Nobody else may read the secret half, not even for the moment of its writing.
    const QString Chiusa = Cartella + u"calcanova.key.d"_s;
    CreaCartellaPrivata(Chiusa);
    ScriviFile(Barra(Chiusa) + u"chiave"_s, Nuove.Segreta + '\n');
    QFile::setPermissions(Barra(Chiusa) + u"chiave"_s, QFile::ReadOwner | QFile::WriteOwner);
    SostituisciFile(Barra(Chiusa) + u"chiave"_s, Segreta);
    QDir().rmdir(Chiusa);
    ScriviFile(Pubblica, Nuove.Pubblica + '\n');
}

void Cartella(const Ordine& Dato)
{
    const QString Segreta = QString::fromLatin1(LeggiFile(Dato.Opzioni[u"--chiave"_s], 1000));
    const QString Tassi = Dato.Opzioni[u"--tassi"_s];
    PretendiMisura(Tassi, MassimoTassi);
    if (const QString Difetto = DifettoTassi(Tassi, {}); !Difetto.isEmpty())
        Rifiuta(u"L'archivio dei tassi non va bene: "_s + Difetto + u'.');
    QByteArray Elenco = TreRighe(Dato);
    PretendiInstallatore(Dato);
    QMap<QString, QString> Installatori;
    for (const QString& Uno : Dato.Installatori) {
        PretendiMisura(Uno, MassimoInstallatore);
        Installatori[NomePubblicato(Uno, Dato.Opzioni[u"--versione"_s])] = Uno;
    }
    (void)FirmaByte({}, Segreta.toLatin1());  // a key that is none is refused before anything is written

    const QString Meta = Dato.Uscita + Barra(u"kr5"_s) + Barra(u"setup"_s);
    CreaCartella(Meta);
    Elenco += Posa(Tassi, Meta, NomeTassi.toString(), MassimoTassi);
    for (auto Uno = Installatori.cbegin(); Uno != Installatori.cend(); ++Uno)
        Elenco += Posa(Uno.value(), Meta, Uno.key(), MassimoInstallatore);
    if (const QString Programma = Dato.Opzioni.value(u"--programma"_s); !Programma.isEmpty())
        ScriviPagineSito(Programma, Dato.Uscita, Dato.Opzioni[u"--versione"_s],
                         Dato.Opzioni.value(u"--nota"_s));
    // The announcement comes last: until then the former one stands.
    ScriviFile(Meta + u"versioni.txt.sig"_s, FirmaByte(Elenco, Segreta.toLatin1()) + "\r\n");
    ScriviFile(Meta + u"versioni.txt"_s, Elenco);
}

}  // namespace

int Pubblica(const QStringList& Argomenti, QTextStream& Detto, QTextStream& Errori)
{
    try {
        if (Argomenti.value(0) == u"chiavi" && Argomenti.size() == 2) {
            Chiavi(Barra(Argomenti[1]));
            Detto << u"calcanova.pub va accanto al programma; calcanova.key resta a chi pubblica.\n"_s;
            return 0;
        }
        if (Argomenti.value(0) == u"cartella") {
            Cartella(LeggiOrdine(Argomenti.mid(1)));
            return 0;
        }
    } catch (const UsoErrato&) {
        Errori << Uso;
        return 2;
    } catch (...) {
        Errori << ErroreCorrente().Descrizione << u'\n';
        return 1;
    }
    Errori << Uso;
    return 2;
}
