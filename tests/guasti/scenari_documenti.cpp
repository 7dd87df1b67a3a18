// Exports, the PDF and the electronic invoice of a note.
#include "guasti/scenari.h"

#include "feenote/einvoice/fattura_prova.h"
#include "supporto/prova.h"

#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>

#include <memory>

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

/// An invoice that is complete, and where it goes.
FatturaElettronica Fattura()
{
    using namespace fattura_prova;
    return Componi({.Onorari = {100000}, .SpeseGen = 1500, .CP = 400, .IVA = 2200, .RA = 2000}, Avvocato(),
                   Societa())
        .Fattura;
}

QString FileFattura(const Posto& Dove)
{
    return Dove.Cartella + NomeFileFattura(Fattura());
}

/// A file that was not there: whole, or not there.
Scenario DellaFattura()
{
    return {.Nome = u"fattura-elettronica"_s,
            .Attese = {Apri, Scrivi, Sincronizza, Chiudi},
            .Prepara = [](const Posto&) {},
            .Atto =
                [](const Posto& Dove, const std::function<void()>& Comincia) {
                    const FatturaElettronica Intera = Fattura();
                    Comincia();
                    return Svolgi([&] {
                        if (!QFile::exists(FileFattura(Dove)))
                            SalvaFattura(FileFattura(Dove), Intera, fattura_prova::Giorno);
                    });
                },
            .Guarda =
                [](const Posto& Dove, const Uscita&) {
                    if (!QFile::exists(FileFattura(Dove)))
                        return Trovato::Prima;
                    return Contenuto(FileFattura(Dove)) == XmlFattura(Fattura()) ? Trovato::Nuovo
                                                                                 : Trovato::Rotto;
                },
            .Ammessi = {u"ITRSSMRA80A01H501U_0000A\\.xml"_s},
            .DicePerche = true};
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
    return Tutti;
}
