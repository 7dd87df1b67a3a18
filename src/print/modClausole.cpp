#include "print/modClausole.h"

#include "core/modErrori.h"
#include "core/sessione.h"
#include "platform/base/errore.h"
#include "platform/base/paginacodice.h"
#include "platform/document/lettorertf.h"
#include "platform/document/setacciortf.h"
#include "platform/system/file.h"
#include "platform/system/messaggi.h"
#include "platform/system/percorsi.h"
#include "print/modTestata.h"

#include <QFileInfo>
#include <QHash>
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

/// True of what begins as a rich text does, be there blanks or the mark of UTF-8 before it.
bool IniziaComeRtf(QByteArrayView Pezzo)
{
    constexpr qsizetype Testa = 4096;
    const QByteArray Inizio = Pezzo.first(std::min(Pezzo.size(), Testa)).toByteArray();
    return ComeRtf(DaCp1252(Inizio)) || ComeRtf(TestoSemplice(Inizio));
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
    bool InUtf8 = false;  // what no word processor writes: a plain editor has saved it anew
    bool Primo = true;
    int Oltre = 0;  // pieces behind the end
    LeggiAPezzi(Percorso, [&](QByteArrayView Pezzo) {
        if (std::exchange(Primo, false)) {
            InUtf8 = Pezzo.startsWith(MarcaUtf8);
            Rtf = IniziaComeRtf(Pezzo);
            // Letter by letter in 1252 what stands before it would be text, and the rest no rich text.
            if (Rtf)
                Pezzo = Pezzo.sliced(Pezzo.indexOf('{'));
        }
        if (Rtf)
            Setaccio.Passa(Pezzo);
        else
            Byte += Pezzo;
        Oltre += Setaccio.Finito() ? 1 : 0;
        return Oltre < 2 && (Rtf ? Setaccio.Resto() : Byte).size() <= MassimoTesto;
    });
    const QByteArray& Letti = Rtf ? Setaccio.Resto() : Byte;
    if (DiAltraSpecie(Letti) || (Rtf ? Setaccio.ConZeri() : Letti.contains('\0')))
        return {EsitoClausole::NonTesto, {}};
    if (Letti.size() > MassimoTesto)
        return {EsitoClausole::Troppe, {}};
    const QString Testo = Rtf && !InUtf8 ? DaCp1252(Letti) : TestoSemplice(Letti);
    if (Testo.trimmed().isEmpty())
        return {EsitoClausole::Vuote, {}};
    const bool Muto = Rtf && Letti.size() <= MassimoSenzaTesto && SenzaParole(Testo);
    if (Rtf && !Setaccio.Finito())
        return {EsitoClausole::Tronche, Muto ? QString() : Testo};
    if (Rtf && Setaccio.Prosegue())
        return {EsitoClausole::Spezzate, Muto ? QString() : Testo};
    return Muto ? Clausole{EsitoClausole::Bianche, {}} : Clausole{EsitoClausole::Lette, Testo};
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

/// Something stands there, be it a link to what is gone.
bool Presente(const QString& Percorso)
{
    const QFileInfo Posto(Percorso);
    return Posto.exists() || Posto.isSymLink();
}

/// A folder that cannot be looked into, or a link to one that is gone: what the office keeps there is not
/// known.
bool Irraggiungibile(const QString& Cartella)
{
    const QFileInfo Posto(Cartella.chopped(1));  // behind its bar a link is never seen
    return Posto.isSymLink() ? !Posto.exists() : Posto.isDir() && !Posto.isExecutable();
}

// ---- what the user is shown

QString Ragione(EsitoClausole Esito)
{
    switch (Esito) {
    case EsitoClausole::Illeggibili:
        return u"il file non si può leggere"_s;
    case EsitoClausole::Troppe:
        return u"il file contiene troppo testo"_s;
    case EsitoClausole::NonTesto:
        return u"il file non è un testo RTF"_s;
    case EsitoClausole::Bianche:
        return u"il file non contiene testo"_s;
    case EsitoClausole::Vuote:
        return u"il file è vuoto"_s;
    case EsitoClausole::Spezzate:
        return u"nel file una parentesi graffa di troppo chiude il testo prima della fine"_s;
    case EsitoClausole::Tronche:
        return u"il file è troncato"_s;
    case EsitoClausole::Lette:
    case EsitoClausole::Mancano:
        break;
    }
    return {};
}

/// What the user is to know of a file.
struct Avviso
{
    QString Frase;
    bool Guasto = true;
};

/// Files whose clauses were not printed whole, and those of them that he was shown already.
struct Avvisi
{
    QHash<QString, Avviso> DaMostrare;
    QSet<QString> Mostrati;
};

Avvisi& AvvisiClausole()
{
    static Avvisi Unici;
    return Unici;
}

/// @return what is to be known of clauses that are not printed whole; empty for those that are, or are
/// missing
QString Frase(const QString& Nome, const Clausole& Lette)
{
    const QString Perche = Ragione(Lette.Esito);
    return Perche.isEmpty() ? QString()
                            : u"le clausole di "_s + Nome +
                                  (Lette.Testo.isEmpty() ? u" non sono state stampate: "_s
                                                         : u" sono state stampate solo in parte: "_s) +
                                  Perche + u'.';
}

void Registra(const QString& Nome, const Clausole& Lette)
{
    Avvisi& Tutti = AvvisiClausole();
    const QString Perche = Frase(Nome, Lette);
    if (Perche.isEmpty())
        Tutti.Mostrati.remove(Nome);
    else if (!Tutti.Mostrati.contains(Nome))
        Tutti.DaMostrare.insert(Nome, {u"Attenzione, "_s + Perche, Lette.Esito != EsitoClausole::Bianche});
}

}  // namespace

Clausole LeggiClausole(const QString& Percorso)
{
    try {
        return Leggi(TrovaFile(PercorsoNativo(Percorso)));
    } catch (const Errore& Guasto) {
        const bool Mancano = Guasto.Numero == errori::FileMancante && !Presente(Percorso) &&
                             !Irraggiungibile(CartellaFile(Percorso));
        return {Mancano ? EsitoClausole::Mancano : EsitoClausole::Illeggibili, {}};
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
    return !Propria.isEmpty() && (Presente(Propria) || Irraggiungibile(CartellaFile(Propria)))
               ? Propria
               : FileFornito(Nome);
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
    const Clausole Lette = LeggiClausole(FileClausole(Nome));
    Registra(Nome, Lette);
    if (Lette.Esito != EsitoClausole::Bianche)
        vp.Manca = Frase(Nome, Lette);
    if (Lette.Testo.isEmpty())
        return;
    vp.Paragraph(Lette.Testo);
    RigaVuota(vp);
}

void AvvisaClausole()
{
    Avvisi& Tutti = AvvisiClausole();
    const QHash<QString, Avviso> Nuovi = std::exchange(Tutti.DaMostrare, {});
    for (const auto& [Nome, Detto] : Nuovi.asKeyValueRange()) {
        Tutti.Mostrati.insert(Nome);
        if (Detto.Guasto)
            MsgErrore(Detto.Frase);
        else
            MsgBox(Detto.Frase, vbExclamation, TitoloAvvertenza.toString());
    }
}
