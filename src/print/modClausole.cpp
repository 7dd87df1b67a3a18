#include "print/modClausole.h"

#include "core/modErrori.h"
#include "core/sessione.h"
#include "platform/base/numerierrore.h"
#include "platform/base/paginacodice.h"
#include "platform/document/lettorertf.h"
#include "platform/document/setacciortf.h"
#include "platform/system/file.h"
#include "platform/system/messaggi.h"
#include "platform/system/percorsi.h"
#include "print/modTestata.h"

#include <QFileInfo>
#include <QSet>
#include <QStringDecoder>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

/// Files that other programs call documents: archives, and those of older word processors.
bool DiAltraSpecie(QByteArrayView Inizio)
{
    return Inizio.startsWith("PK\x03\x04") || Inizio.startsWith("\xD0\xCF\x11\xE0");
}

/// Plain text: UTF-8 where it is that, else 1252.
QString TestoSemplice(QByteArray Byte)
{
    if (Byte.startsWith(MarcaUtf8))
        Byte.remove(0, MarcaUtf8.size());
    QStringDecoder Lettore(QStringDecoder::Utf8);
    QString Testo = Lettore(Byte);
    return Lettore.hasError() ? DaCp1252(Byte) : Testo;
}

bool SoloBianchi(const QByteArray& Byte)
{
    return std::ranges::all_of(Byte, [](char C) { return C == ' ' || (C >= '\t' && C <= '\r'); });
}

/// What a word processor saves of an empty page is all fonts and styles; more than this is no empty page.
constexpr qsizetype MassimoSenzaTesto = qsizetype(1) << 18;

bool SenzaParole(const QString& Rtf)
{
    return std::ranges::all_of(LeggiRtf(Rtf), [](const BloccoDocumento& Blocco) {
        const auto* Riga = std::get_if<Paragrafo>(&Blocco);
        return Riga && Riga->Testo().trimmed().isEmpty();
    });
}

/// The whole file but for the pictures of a rich text, and what keeps it from being printed.
Clausole Leggi(const QString& Percorso)
{
    SetaccioRtf Setaccio;
    QByteArray Byte;
    bool Rtf = false;
    bool Primo = true;
    LeggiAPezzi(Percorso, [&](QByteArrayView Pezzo) {
        if (std::exchange(Primo, false))
            Rtf = ComeRtf(DaCp1252(Pezzo.first(std::min<qsizetype>(Pezzo.size(), 4096)).toByteArray())) ||
                  ComeRtf(TestoSemplice(Pezzo.first(std::min<qsizetype>(Pezzo.size(), 4096)).toByteArray()));
        if (Rtf)
            Setaccio.Passa(Pezzo);
        else
            Byte += Pezzo;
        return !Setaccio.Finito() && (Rtf ? Setaccio.Resto() : Byte).size() <= MassimoTesto;
    });
    const QByteArray& Letti = Rtf ? Setaccio.Resto() : Byte;
    if (DiAltraSpecie(Letti) || (Rtf ? Setaccio.ConZeri() : Letti.contains('\0')))
        return {EsitoClausole::NonTesto, {}};
    if (Letti.size() > MassimoTesto)
        return {EsitoClausole::Troppe, {}};
    if (SoloBianchi(Letti))
        return {EsitoClausole::Vuote, {}};
    if (Rtf && !Setaccio.Finito())
        return {EsitoClausole::Tronche, {}};
    const QString Testo = Rtf ? DaCp1252(Letti) : TestoSemplice(Letti);
    if (Rtf && Letti.size() <= MassimoSenzaTesto && SenzaParole(Testo))
        return {EsitoClausole::SenzaParole, {}};
    return {EsitoClausole::Lette, Testo};
}

// ---- where the files stand

QString FileProprio(const QString& Nome)
{
    return sessione::UserFolder.isEmpty()
               ? QString()
               : TrovaFile(Barra(sessione::UserFolder) + Barra(u"clausole"_s) + Nome);
}

QString FileFornito(const QString& Nome)
{
    return TrovaFile(sessione::PercorsoProg + Barra(u"doc"_s) + Nome);
}

// ---- what the user is shown

/// Why nothing of a file can be printed; empty for one that can, or that is not there.
QString Ragione(EsitoClausole Esito)
{
    switch (Esito) {
    case EsitoClausole::Illeggibili:
        return u"il file non si può leggere"_s;
    case EsitoClausole::Troppe:
        return u"il file contiene troppo testo"_s;
    case EsitoClausole::NonTesto:
        return u"il file non è un testo RTF"_s;
    case EsitoClausole::Vuote:
        return u"il file è vuoto"_s;
    case EsitoClausole::Tronche:
        return u"il file è troncato"_s;
    case EsitoClausole::Lette:
    case EsitoClausole::Mancano:
    case EsitoClausole::SenzaParole:
        break;
    }
    return {};
}

/// Files without a word, and those of them that the user was shown already.
struct Avvisi
{
    QSet<QString> DaMostrare, Mostrati;
};

Avvisi& AvvisiClausole()
{
    static Avvisi Unici;
    return Unici;
}

void Registra(const QString& Nome, EsitoClausole Esito)
{
    Avvisi& Tutti = AvvisiClausole();
    if (Esito != EsitoClausole::SenzaParole)
        Tutti.Mostrati.remove(Nome);
    else if (!Tutti.Mostrati.contains(Nome))
        Tutti.DaMostrare.insert(Nome);
}

}  // namespace

Clausole LeggiClausole(const QString& Percorso)
{
    try {
        return Leggi(TrovaFile(PercorsoNativo(Percorso)));
    } catch (const Errore& Guasto) {
        return {Guasto.Numero == errori::FileMancante ? EsitoClausole::Mancano : EsitoClausole::Illeggibili,
                {}};
    }
}

QString NomeClausole(int Tipo, const Parcella& Nota)
{
    if (Tipo != StampaContratto && Tipo != StampaInformativa)
        return {};
    const QString Documento = Tipo == StampaContratto ? u"Contratto"_s : u"ResaInformazione"_s;
    return Documento + (Nota.optContrTipo == 1 ? u"PersonaGiuridica.rtf"_s : u"PersonaFisica.rtf"_s);
}

QString FileClausole(const QString& Nome)
{
    QString Propria = FileProprio(Nome);
    // Whatever stands in its place, the delivered text is not the office's.
    return !Propria.isEmpty() && QFileInfo::exists(Propria) ? Propria : FileFornito(Nome);
}

QString ClausoleDaModificare(const QString& Nome)
{
    QString Propria = FileProprio(Nome);
    if (EsisteFile(Propria))
        return Propria;
    const QString Fornita = FileFornito(Nome);
    if (!EsisteFile(Fornita))
        throw Errore(errori::FileMancante, DescrizioneErrore(errori::FileMancante) + u": "_s + Fornita);
    CreaCartellaDiUtente(CartellaFile(Propria));
    // Another window may have made it meanwhile: nothing that the office has written is replaced.
    (void)CreaFile(Propria, LeggiFile(Fornita), Lettori::Cartella);
    return Propria;
}

void StampaClausole(Superficie& vp, const Parcella& Nota, int Tipo)
{
    const QString Nome = NomeClausole(Tipo, Nota);
    const QString File = FileClausole(Nome);
    const Clausole Lette = LeggiClausole(File);
    Registra(Nome, Lette.Esito);
    if (const QString Perche = Ragione(Lette.Esito); !Perche.isEmpty())
        throw ClausoleGuaste(
            Lette.Esito == EsitoClausole::Illeggibili ? errori::Accesso : errori::FileRifiutato,
            u"Il documento non si compone: le clausole di %1 non si possono stampare, %2: %3"_s.arg(
                Nome, Perche, File));
    if (Lette.Testo.isEmpty())
        return;
    vp.Paragraph(Lette.Testo);
    RigaVuota(vp);
}

void AvvisaClausole()
{
    Avvisi& Tutti = AvvisiClausole();
    for (const QString& Nome : std::exchange(Tutti.DaMostrare, {})) {
        Tutti.Mostrati.insert(Nome);
        MsgErrore(u"Attenzione, le clausole di %1 non sono state stampate: il file non contiene testo."_s.arg(
            Nome));
    }
}
