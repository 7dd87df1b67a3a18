#include "core/modIcone.h"

#include "core/CIni.h"
#include "core/inidanneggiato.h"
#include "core/sessione.h"
#include "platform/base/errore.h"
#include "platform/base/paginacodice.h"
#include "platform/system/file.h"
#include "platform/system/percorsi.h"
#include "platform/system/profilo.h"
#include "platform/system/shell.h"

#include <QRegularExpression>

#include <algorithm>
#include <array>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

const QString Sezione = u"desktop"_s;

/// Names of the three keys of an icon, in the order of the columns.
constexpr std::array<QStringView, ColonneIcona> Code{u"", u"_c", u"_i"};

QString NellaCartella(const QString& Cartella)
{
    return Cartella.isEmpty() ? QString() : TrovaFile(Barra(Cartella) + u"kr5.ini"_s);
}

/// The file that is read.
QString FileIcone()
{
    const QString Utente = NellaCartella(sessione::UserFolder);
    return EsisteFile(Utente) ? Utente : NellaCartella(sessione::PercorsoProg);
}

/// "L", a number, and one of the three endings.
bool ChiaveDiIcona(const QString& Chiave)
{
    static const QRegularExpression Forma(u"^L\\d+(_c|_i)?$"_s, QRegularExpression::CaseInsensitiveOption);
    return Forma.match(Chiave).hasMatch();
}

QList<std::pair<QString, QString>> Righe(const TabellaRighe& Icone)
{
    QList<std::pair<QString, QString>> Fatte;
    int Numero = 0;
    for (int Riga = 0; Riga < Icone.Righe(); ++Riga) {
        if (Icone(Riga, IconaTitolo).toString().trimmed().isEmpty() ||
            Icone(Riga, IconaCollegamento).toString().trimmed().isEmpty())
            continue;
        for (int c = 0; c < ColonneIcona; ++c) {
            QString Valore = Icone(Riga, c).toString().trimmed();
            // Without a picture the icon, and all behind it, would be gone at the next read.
            if (c == IconaFigura && Valore.isEmpty())
                Valore = FiguraPredefinita.toString();
            Fatte.append({u'L' + QString::number(Numero) + Code[size_t(c)].toString(), Valore});
        }
        ++Numero;
    }
    return Fatte;
}

/// Of a file whose numbers have a gap the icons behind it are not read, and the next write takes them out:
/// whoever has written them finds them beside it.
/// @param Ora what stands there
/// @throws Errore when they can be kept nowhere
void ConservaOltreIlVuoto(const QString& File, const QByteArray& Ora)
{
    const auto Intera = [&](int Numero) {
        return std::ranges::all_of(Code, [&](QStringView Coda) {
            return !ValoreDelProfilo(Ora, Sezione, u'L' + QString::number(Numero) + Coda.toString())
                        .isEmpty();
        });
    };
    int Lette = 0;
    while (Intera(Lette))
        ++Lette;
    if (std::ranges::any_of(ChiaviDelProfilo(Ora, Sezione), [&](const QString& Chiave) {
            return ChiaveDiIcona(Chiave) && Chiave.sliced(1).section(u'_', 0, 0).toLongLong() >= Lette &&
                   !ValoreDelProfilo(Ora, Sezione, Chiave).isEmpty();
        }))
        ConservaGuasto(File, Ora);
}

QString FraseIconeGuaste(const QString& File)
{
    return u"Il file \"%1\" è danneggiato o incompleto: le icone che mancano sulla scrivania vi "
           u"erano scritte. Rimetterlo da una copia, o rifarle nelle impostazioni, scheda \"Desktop\"."_s.arg(
               File);
}

/// What an opener answered. @throws Errore of that number, which names the target, unless it is 0
void VerificaApertura(int Esito, const QString& Destinazione)
{
    if (Esito != 0)
        throw Errore(Esito, DescrizioneErrore(Esito) + u": "_s + Destinazione);
}

/// A file or folder of this name, in the program folder where the name says no other; empty when there is
/// none.
QString Trovata(const QString& Destinazione)
{
    const QString Intero = PercorsoIntero(Destinazione, sessione::PercorsoProg);
    return EsisteFile(Intero) || EsisteCartella(Intero) ? Intero : QString();
}

}  // namespace

TabellaRighe LeggiIcone()
{
    CIni File;
    File.ImpostaFileName(FileIcone());
    File.ImpostaApplicationKey(Sezione);
    TabellaRighe Icone(ColonneIcona);
    const Lettura Esito = EsaminaIni(File.FileName(), Sezione);
    if (Esito == Lettura::Assente || Esito == Lettura::Illeggibile)
        return Icone;
    for (int n = 0;; ++n) {
        std::array<QString, ColonneIcona> Valori;
        for (int c = 0; c < ColonneIcona; ++c)
            Valori[size_t(c)] = File.GetValue(u'L' + QString::number(n) + Code[size_t(c)].toString());
        if (std::ranges::any_of(Valori, &QString::isEmpty)) {
            const bool Iniziata = std::ranges::any_of(Valori, [](const QString& V) { return !V.isEmpty(); });
            if (Esito == Lettura::Guasta || (Esito == Lettura::Troncata && Iniziata))
                DiDelFile(File.FileName(), FraseIconeGuaste(File.FileName()));
            return Icone;
        }
        const int Riga = Icone.AggiungiRiga();
        for (int c = 0; c < ColonneIcona; ++c)
            Icone(Riga, c) = Valori[size_t(c)];
    }
}

void LeggiIconeUtente()
{
    IconeUtente = LeggiIcone();
}

bool ScriviIconeUtente(const TabellaRighe& Icone, bool Cambiate)
{
    const QList<std::pair<QString, QString>> Nuove = Righe(Icone);
    const QString Letto = FileIcone();
    if (Nuove.isEmpty() && !EsisteFile(Letto) && !EsisteCartella(Letto))
        return true;  // nothing to take out of it, and nothing to put into it
    const auto Conserva = [&](const QByteArray& Ora) { ConservaOltreIlVuoto(Letto, Ora); };
    if (!Letto.isEmpty() && SostituisciChiavi(Sezione, ChiaveDiIcona, Nuove, Letto, Conserva))
        return true;
    if (!Cambiate)
        return false;  // a copy would keep from the user what is changed in the program folder later
    const QString Utente = NellaCartella(sessione::UserFolder);
    return !Utente.isEmpty() && Utente != Letto && SostituisciChiavi(Sezione, ChiaveDiIcona, Nuove, Utente);
}

bool ELink(const QString& Destinazione)
{
    return Destinazione.startsWith(u"http", Qt::CaseInsensitive) ||
           Destinazione.startsWith(u"www", Qt::CaseInsensitive);
}

bool Conservabile(const QString& Testo)
{
    return DaCp1252(Cp1252(Testo)) == Testo;
}

void ApriDestinazione(const QString& Destinazione)
{
    if (ELink(Destinazione) || Destinazione.startsWith(u"mailto:", Qt::CaseInsensitive)) {
        const bool SenzaProtocollo = Destinazione.startsWith(u"www", Qt::CaseInsensitive);
        VerificaApertura(
            ApriIndirizzoConSistema(SenzaProtocollo ? u"http://"_s + Destinazione : Destinazione),
            Destinazione);
        return;
    }
    const QString Presente = Trovata(Destinazione);
    const QString Programma = Presente.isEmpty() ? TrovaProgramma(Destinazione) : Presente;
    if (Programma.isEmpty())
        throw Errore(errori::FileMancante, DescrizioneErrore(errori::FileMancante) + u": "_s + Destinazione);
    // What is no program although it may be run, as on a disk without such a mark, has an association.
    if (EProgramma(Programma) && AvviaProgramma(Programma, {}, sessione::PercorsoProg) == 0)
        return;
    VerificaApertura(ApriConSistema(Programma), Destinazione);
}

QPoint PostoIcona(int Riga)
{
    constexpr int PrimaX = 136;
    constexpr int PrimaY = 312;
    constexpr int Margine = 32;
    constexpr int Passo = 100;
    constexpr int UltimaX = 600;
    QPoint Posto(PrimaX, PrimaY);
    for (int i = 0; i < Riga; ++i) {
        // The icon that passes the edge is the last of its row: the seventh begins the next one.
        if (Posto.x() > UltimaX)
            Posto = {Margine, Posto.y() + Passo};
        else
            Posto.rx() += Passo;
    }
    return Posto;
}

QPoint PostoFisso(int Indice, int Quante)
{
    constexpr int Righe = 3;
    constexpr int Alto = 12;
    constexpr int Passo = 100;
    const int PerRiga = std::max(5, (Quante + Righe - 1) / Righe);
    return {PostoIcona(0).x() + Indice % PerRiga * Passo, Alto + Indice / PerRiga * Passo};
}
