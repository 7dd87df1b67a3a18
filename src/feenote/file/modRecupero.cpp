#include "feenote/file/modRecupero.h"

#include "core/cartellautente.h"
#include "core/sessione.h"
#include "feenote/file/modLettura.h"
#include "feenote/file/modPosaFile.h"
#include "platform/base/errore.h"
#include "platform/system/blocco.h"
#include "platform/system/cartelle.h"
#include "platform/system/file.h"
#include "platform/system/percorsi.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QJsonDocument>
#include <QJsonObject>
#include <QRegularExpression>

#include <algorithm>
#include <memory>

using namespace Qt::StringLiterals;

namespace {

constexpr auto TipoCopia = ".mdb"_L1;
constexpr auto TipoLato = ".json"_L1;
constexpr auto TipoBlocco = ".lock"_L1;
constexpr auto TipoPrenotata = ".presa"_L1;

QString Cartella()
{
    return CartellaUtente(u"recupero"_s);
}

/// "<pid>-<start in ms>": a process number comes back, the moment does not.
const QString& Sigla()
{
    static const QString Testo = QString::number(QCoreApplication::applicationPid()) + u'-' +
                                 QString::number(QDateTime::currentMSecsSinceEpoch());
    return Testo;
}

std::unique_ptr<FileBlocco>& BloccoProprio()
{
    static std::unique_ptr<FileBlocco> Tenuto;
    return Tenuto;
}

std::unique_ptr<FileBlocco> ApriBlocco(const QString& Di)
{
    return std::make_unique<FileBlocco>(Cartella() + Di + TipoBlocco);
}

void PrendiBloccoProprio()
{
    auto Nuovo = ApriBlocco(Sigla());
    // The settings may have moved the user folder meanwhile: its copies need a lock there.
    if (BloccoProprio() && BloccoProprio()->Percorso() == Nuovo->Percorso())
        return;
    if (Nuovo->Prendi(0) != FileBlocco::Esito::Preso)
        throw Errore(errori::Autorizzazione);
    BloccoProprio() = std::move(Nuovo);
}

QString Radice(int Posto)
{
    return Cartella() + Sigla() + u'-' + QString::number(Posto);
}

void Rimuovi(const QString& Base)
{
    // The copy goes first, because a side file without its copy is never offered.
    ScartaFile(Base + TipoCopia);
    ScartaFile(Base + TipoLato);
}

QString SenzaTipo(const CopiaRecupero& Copia)
{
    return Copia.File.chopped(TipoCopia.size());
}

QString Pid(const QString& DiSigla)
{
    return DiSigla.section(u'-', 0, 0);
}

/// Two locks of one process number: the older one's process is dead, whoever bears the number today.
bool Superata(const QString& Una, const QStringList& Tutte)
{
    return std::ranges::any_of(Tutte, [&](const QString& Altra) {
        return Pid(Altra) == Pid(Una) &&
               Altra.section(u'-', 1).toLongLong() > Una.section(u'-', 1).toLongLong();
    });
}

/// Marks of processes that still live.
QStringList SigleVive()
{
    QStringList Tutte;
    for (const QString& Nome : NomiDeiFile(Cartella(), TipoBlocco))
        Tutte.append(Nome.chopped(TipoBlocco.size()));
    QStringList Vive;
    for (const QString& Una : std::as_const(Tutte)) {
        const bool Nostra = Una == Sigla() && BloccoProprio();
        if (Nostra || (!Superata(Una, Tutte) && ApriBlocco(Una)->Prendi(0) != FileBlocco::Esito::Preso))
            Vive.append(Una);
        else
            ScartaFile(Cartella() + Una + TipoBlocco);
    }
    return Vive;
}

/// What stands beside a copy; nothing of what cannot be read.
QJsonObject LeggiLato(const QString& File)
{
    constexpr qint64 Massimo = qint64(64) << 10;
    try {
        return QJsonDocument::fromJson(LeggiFile(File, Massimo)).object();
    } catch (const Errore&) {
        return {};
    }
}

/// A time and a size as the side file holds them: numbers of JSON keep every millisecond and every byte.
ImprontaNota LeggiImpronta(const QJsonObject& Dati)
{
    if (!Dati[u"FileMs"_s].isDouble() || !Dati[u"FileByte"_s].isDouble())
        return {};
    return {QDateTime::fromMSecsSinceEpoch(Dati[u"FileMs"_s].toInteger()), Dati[u"FileByte"_s].toInteger()};
}

CopiaRecupero Leggi(const QString& File)
{
    CopiaRecupero Trovata;
    Trovata.File = File;
    Trovata.Nome = u"Nuova parcella"_s;
    Trovata.Quando = QFileInfo(File).lastModified();
    const QJsonObject Dati = LeggiLato(File.chopped(TipoCopia.size()) + TipoLato);
    Trovata.Percorso = Dati[u"Percorso"_s].toString();
    Trovata.Nome = Dati[u"Nome"_s].toString(Trovata.Nome);
    Trovata.Impronta = LeggiImpronta(Dati);
    Trovata.Ricalcolo = Dati[u"Ricalcolo"_s].toBool();
    return Trovata;
}

/// Removes what dead processes left beside their copies: unfinished files, and those of a copy that is no
/// more.
void TogliResti(const QStringList& Vive)
{
    static const QRegularExpression Forma(u"^(\\.~)?((\\d+-\\d+)-\\d+)(\\..+)$"_s);
    const QStringList Nomi = NomiDeiFile(Cartella());
    for (const QString& Nome : Nomi) {
        const QRegularExpressionMatch Parti = Forma.match(Nome);
        if (!Parti.hasMatch() || Vive.contains(Parti.captured(3)))
            continue;
        const QString Tipo = Parti.captured(4);
        const bool DiUnaCopia = (Tipo == TipoCopia || Tipo == TipoLato || Tipo == TipoPrenotata) &&
                                Nomi.contains(Parti.captured(2) + TipoCopia);
        if (!Parti.captured(1).isEmpty() || !DiUnaCopia)
            ScartaFile(Cartella() + Nome);
    }
}

}  // namespace

void AggiornaCopia(const Parcella& Nota, int Posto, const ImprontaNota& Impronta)
{
    if (sessione::UserFolder.isEmpty())
        return;
    CreaCartellaPrivata(Cartella());
    PrendiBloccoProprio();
    QJsonObject Dati{
        {u"Percorso"_s, Nota.Percorso}, {u"Nome"_s, Nota.Nome}, {u"Ricalcolo"_s, Nota.RicalcoloNecessario}};
    if (Impronta.Byte >= 0) {
        Dati.insert(u"FileMs"_s, Impronta.Quando.toMSecsSinceEpoch());
        Dati.insert(u"FileByte"_s, Impronta.Byte);
    }
    ScriviAppoggio(Radice(Posto) + TipoLato, QJsonDocument(Dati).toJson(), Lettori::SoloUtente);
    ScriviNota(Radice(Posto) + TipoCopia, Nota, false, Lettori::SoloUtente);
}

void TogliCopia(int Posto)
{
    if (sessione::UserFolder.isEmpty())
        return;
    Rimuovi(Radice(Posto));
}

QList<CopiaRecupero> NoteDaRecuperare()
{
    if (sessione::UserFolder.isEmpty())
        return {};
    const QStringList Vive = SigleVive();
    TogliResti(Vive);
    QList<CopiaRecupero> Trovate;
    for (const QString& Nome : NomiDeiFile(Cartella(), TipoCopia)) {
        const bool Intera = !Nome.startsWith(u'.') && Nome.count(u'-') >= 2;
        if (Intera && !Vive.contains(Nome.section(u'-', 0, 1)))
            Trovate.append(Leggi(Cartella() + Nome));
    }
    std::ranges::stable_sort(Trovate, {}, &CopiaRecupero::Quando);
    return Trovate;
}

void RecuperaNota(Parcella& Nota, const CopiaRecupero& Copia)
{
    CaricaDati(Nota, Copia.File);
    Nota.Percorso = Copia.Percorso;
    Nota.Nome = Copia.Nome;
    Nota.RicalcoloNecessario = Copia.Ricalcolo;
    SetModificata(Nota, true);
}

void EliminaCopia(const CopiaRecupero& Copia)
{
    Rimuovi(SenzaTipo(Copia));
}

PrenotazioneCopia::PrenotazioneCopia(const CopiaRecupero& Copia) : Segno(SenzaTipo(Copia) + TipoPrenotata)
{
    // A folder that refuses the lock refuses it to everybody: better offered twice than never.
    const bool Libera = Segno.Prendi(0) != FileBlocco::Esito::Altrui;
    Ottenuta = Libera && EsisteFile(Copia.File);
}

void LasciaRecupero()
{
    BloccoProprio().reset();
}
