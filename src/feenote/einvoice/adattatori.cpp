#include "feenote/einvoice/adattatori.h"

#include "addressbook/modClienti.h"
#include "core/modControlli.h"
#include "core/modRegimi.h"
#include "core/modSede.h"
#include "core/sessione.h"
#include "feenote/codicifattura.h"
#include "feenote/einvoice/composizione.h"
#include "feenote/einvoice/parti.h"
#include "feenote/modDatiStampa.h"
#include "feenote/modEmessi.h"
#include "feenote/modFatturaXml.h"
#include "feenote/parcella.h"
#include "platform/base/regionale.h"
#include "platform/base/segni.h"
#include "platform/base/testopiano.h"

#include <QList>
#include <QStringList>

#include <algorithm>
#include <array>
#include <optional>
#include <tuple>

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype LettereSigle = 6;  ///< of family name and first name

/// A country's VAT numbers behind its two letters: "#" a digit, "?" a digit or a letter, anything else
/// itself.
struct FormaPartita
{
    QStringView Lettere;
    QStringView Nazione;
    QStringView Forme;  ///< between blanks
};

// Those of the Union, and of the neighbours whose numbers begin so too.
constexpr std::array FormePartite{
    FormaPartita{u"AT", u"AT", u"U########"},
    FormaPartita{u"BE", u"BE", u"##########"},
    FormaPartita{u"BG", u"BG", u"######### ##########"},
    FormaPartita{u"CH", u"CH", u"E######### E#########MWST E#########TVA E#########IVA"},
    FormaPartita{u"CY", u"CY", u"########?"},
    FormaPartita{u"CZ", u"CZ", u"######## ######### ##########"},
    FormaPartita{u"DE", u"DE", u"#########"},
    FormaPartita{u"DK", u"DK", u"########"},
    FormaPartita{u"EE", u"EE", u"#########"},
    FormaPartita{u"EL", u"GR", u"#########"},
    FormaPartita{u"GR", u"GR", u"#########"},
    FormaPartita{u"ES", u"ES", u"?#######?"},
    FormaPartita{u"FI", u"FI", u"########"},
    FormaPartita{u"FR", u"FR", u"??#########"},
    FormaPartita{u"GB", u"GB", u"######### ############"},
    FormaPartita{u"HR", u"HR", u"###########"},
    FormaPartita{u"HU", u"HU", u"########"},
    FormaPartita{u"IE", u"IE", u"#######? #?#####? #######??"},
    FormaPartita{u"LT", u"LT", u"######### ############"},
    FormaPartita{u"LU", u"LU", u"########"},
    FormaPartita{u"LV", u"LV", u"###########"},
    FormaPartita{u"MT", u"MT", u"########"},
    FormaPartita{u"NL", u"NL", u"#########B##"},
    FormaPartita{u"NO", u"NO", u"######### #########MVA"},
    FormaPartita{u"PL", u"PL", u"##########"},
    FormaPartita{u"PT", u"PT", u"#########"},
    FormaPartita{u"RO", u"RO", u"###### ####### ######## ######### ##########"},
    FormaPartita{u"SE", u"SE", u"############"},
    FormaPartita{u"SI", u"SI", u"########"},
    FormaPartita{u"SK", u"SK", u"##########"},
    FormaPartita{u"SM", u"SM", u"#####"},
    FormaPartita{u"XI", u"GB", u"######### ############"},
};

bool HaForma(QStringView Numero, QStringView Forma)
{
    return std::ranges::equal(Numero, Forma, [](QChar C, QChar Segno) {
        return Segno == u'#' ? ECifra(C) : Segno == u'?' ? ECifra(C) || EMaiuscola(C) : C == Segno;
    });
}

/// The country of a VAT number that begins with its letters and has its form. Anything else that stands in
/// the box, a fiscal code in the wrong one above all, tells of no country.
QString PaeseDellaPartita(const QString& PIva)
{
    QString Testo = PIva.toUpper();
    Testo.removeIf([](QChar C) { return C.isSpace() || C == u'.' || C == u'-'; });
    const QStringView Numero = QStringView(Testo).mid(2);
    const auto Trovata = std::ranges::find_if(FormePartite, [&](const FormaPartita& Una) {
        return Testo.startsWith(Una.Lettere) &&
               std::ranges::any_of(Una.Forme.split(u' '),
                                   [&](QStringView Forma) { return HaForma(Numero, Forma); });
    });
    return Trovata != FormePartite.end() ? Trovata->Nazione.toString() : QString();
}

QString NazioneDi(const DatiCliente& Riga)
{
    QString Detta = Riga.Nazione.isEmpty() ? PaeseDellaPartita(Riga.PIva) : Riga.Nazione;
    if (!Detta.isEmpty())
        return Detta;
    // Abroad, and nobody says where: no country has this code, and the composition asks for one.
    return SoggettoDi(Riga) == TipoSoggetto::Estero ? u"??"_s : Italia.toString();
}

GenereCliente GenereDi(const DatiCliente& Riga)
{
    switch (SoggettoDi(Riga)) {
    case TipoSoggetto::Persona:
        return GenereCliente::Persona;
    case TipoSoggetto::Amministrazione:
        return GenereCliente::PubblicaAmministrazione;
    case TipoSoggetto::Societa:
        return GenereCliente::Societa;
    case TipoSoggetto::Estero:
        break;
    }
    return ESocieta(Riga) || !Riga.PIva.isEmpty() ? GenereCliente::Societa : GenereCliente::Persona;
}

}  // namespace

Cedente CedenteDaImpostazioni()
{
    using namespace sessione;
    Cedente Studio;
    const QString Tipo = tipostudio::Noto(TipoStudio);
    Studio.Genere = Tipo == tipostudio::Persona        ? GenereStudio::PersonaFisica
                    : Tipo == tipostudio::Associazione ? GenereStudio::Associazione
                                                       : GenereStudio::Societa;
    Studio.PartitaIva = StudioPIva;
    Studio.CodiceFiscale = StudioCodFisc;
    if (Studio.Genere == GenereStudio::PersonaFisica) {
        Studio.Nome = StudioTitolareNome;
        Studio.Cognome = StudioTitolareCognome;
    }
    if (Studio.Nome.isEmpty() || Studio.Cognome.isEmpty())
        Studio.Denominazione = StudioNome;
    Studio.Indirizzo = {.Indirizzo = StudioVia,
                        .NumeroCivico = StudioCivico,
                        .Cap = StudioCap,
                        .Comune = StudioComune,
                        .Provincia = StudioProv,
                        .Nazione = Italia.toString()};
    Studio.Regime = RegimeFiscale;
    Studio.Iban = Iban;
    Studio.Email = StudioPec.isEmpty() ? StudioMail : StudioPec;
    return Studio;
}

std::pair<QString, QString> CognomeENome(const QString& Nominativo, const QString& CodFis)
{
    const QString Codice = CodFis.simplified().remove(u' ').toUpper();
    const QStringList Parole = Nominativo.simplified().split(u' ', Qt::SkipEmptyParts);
    if (Codice.size() != LettereCodFis)
        return {};
    QList<std::pair<QString, QString>> Trovati;
    const auto Prova = [&](const QString& Cognome, const QString& Nome) {
        const std::pair Coppia(Cognome, Nome);
        if (SiglaCognome(TestoPiano(Cognome)) + SiglaNome(TestoPiano(Nome)) == Codice.first(LettereSigle) &&
            !Trovati.contains(Coppia))
            Trovati.append(Coppia);
    };
    for (qsizetype i = 1; i < Parole.size(); ++i) {
        const QString Prima = Parole.first(i).join(u' ');
        const QString Dopo = Parole.sliced(i).join(u' ');
        Prova(Prima, Dopo);
        Prova(Dopo, Prima);
    }
    return Trovati.size() == 1 ? Trovati.first() : std::pair<QString, QString>();
}

Cessionario CessionarioDaRiga(const DatiCliente& Riga)
{
    Cessionario Cliente;
    Cliente.Genere = GenereDi(Riga);
    Cliente.PartitaIva = Riga.PIva;
    Cliente.CodiceFiscale = Riga.CodFis;
    Cliente.Denominazione = Riga.Nominativo;
    if (Cliente.Genere == GenereCliente::Persona)
        std::tie(Cliente.Cognome, Cliente.Nome) = CognomeENome(Riga.Nominativo, Riga.CodFis);
    if (!Cliente.Cognome.isEmpty())
        Cliente.Denominazione.clear();
    Cliente.Indirizzo.Nazione = NazioneDi(Riga);
    // Abroad a number stands where its own custom puts it.
    const PartiIndirizzo Via =
        Cliente.Estero()
            ? PartiIndirizzo{.Via = Riga.Indirizzo, .Civico = {}, .Cap = {}, .Comune = {}, .Prov = {}}
            : SpezzaVia(Riga.Indirizzo);
    constexpr qsizetype MassimoCivico = 8;
    const bool Diviso = Via.Civico.size() <= MassimoCivico;
    Cliente.Indirizzo.Indirizzo = Diviso ? Via.Via : Riga.Indirizzo;
    Cliente.Indirizzo.NumeroCivico = Diviso ? Via.Civico : QString();
    Cliente.Indirizzo.Cap = Riga.Cap;
    Cliente.Indirizzo.Comune = Riga.Citta;
    Cliente.Indirizzo.Provincia = Riga.Prov;
    Cliente.CodiceDestinatario = Riga.CodDestinatario;
    Cliente.Pec = Riga.Pec;
    return Cliente;
}

Cessionario CessionarioDellaNota(const Parcella& Nota)
{
    const std::optional<DatiCliente> Riga = Nota.IDCli > 0 ? LeggiCliente(Nota.IDCli) : std::nullopt;
    return Riga ? CessionarioDaRiga(*Riga) : Cessionario();
}

SceltaFattura SceltaDellaNota(const Parcella& Nota, const Cessionario& Cliente)
{
    const DatiFatturaXml& Tenuti = Nota.FatturaXml;
    SceltaFattura Scelta = SceltaDaNota(Nota);
    if (!Tenuti.Tipo.isEmpty())
        Scelta.Tipo = Tenuti.Tipo;
    const bool Pubblica = Tenuti.Destinatario.isEmpty()
                              ? Cliente.Genere == GenereCliente::PubblicaAmministrazione
                              : Tenuti.Destinatario == u"PA";
    Scelta.Formato = (Pubblica ? FormatoPubblica : FormatoPrivati).toString();
    Scelta.ScissionePagamenti = Tenuti.Scissione;
    Scelta.BolloAddebitato = Tenuti.BolloAddebitato;
    Scelta.Natura = Tenuti.Natura;
    if (Tenuti.Modalita == u"-")
        Scelta.Modalita.clear();
    else if (!Tenuti.Modalita.isEmpty())
        Scelta.Modalita = Tenuti.Modalita;
    Scelta.Scadenza = LeggiData(Tenuti.Scadenza).value_or(QDate());
    if (!Tenuti.CitataNumero.trimmed().isEmpty())
        Scelta.Collegate = {{.Numero = Tenuti.CitataNumero.trimmed(),
                             .Data = LeggiData(Tenuti.CitataData).value_or(QDate()),
                             .Cup = {},
                             .Cig = {}}};
    if (!(Tenuti.ContrattoNumero + Tenuti.Cup + Tenuti.Cig).trimmed().isEmpty())
        Scelta.Contratto = DocumentoCitato{.Numero = Tenuti.ContrattoNumero.trimmed(),
                                           .Data = {},
                                           .Cup = Tenuti.Cup.trimmed(),
                                           .Cig = Tenuti.Cig.trimmed()};
    return Scelta;
}

QList<MancanzaFattura> MancanzeDelleScelte(const Parcella& Nota)
{
    const DatiFatturaXml& Tenuti = Nota.FatturaXml;
    // An empty box is no date on purpose.
    const auto NonData = [](const QString& Testo) { return !Testo.trimmed().isEmpty() && !LeggiData(Testo); };
    QList<MancanzaFattura> Dette;
    if (NonData(Tenuti.Scadenza))
        Dette.append({u"La scadenza non è una data: %1"_s.arg(Tenuti.Scadenza.trimmed()),
                      CampoFattura::SceltaScadenza});
    const bool Numero = !Tenuti.CitataNumero.trimmed().isEmpty();
    const bool Data = !Tenuti.CitataData.trimmed().isEmpty();
    if (NonData(Tenuti.CitataData))
        Dette.append({u"La data della fattura citata non è una data: %1"_s.arg(Tenuti.CitataData.trimmed()),
                      CampoFattura::SceltaCollegata});
    else if (Numero != Data)
        Dette.append(
            {Numero ? u"Manca la data della fattura citata"_s : u"Manca il numero della fattura citata"_s,
             CampoFattura::SceltaCollegata});
    return Dette;
}

Composizione ComponiDellaNota(const Parcella& Nota, const QString& Progressivo, const QDate& Oggi)
{
    const Cessionario Cliente = CessionarioDellaNota(Nota);
    SceltaFattura Scelta = SceltaDellaNota(Nota, Cliente);
    Scelta.Progressivo = Progressivo;
    Composizione Fatta = ComponiFatturaElettronica(Nota, CedenteDaImpostazioni(), Cliente, Scelta, Oggi);
    // Of one fault one sentence: the one that knows what was typed.
    const QList<MancanzaFattura> Scritte = MancanzeDelleScelte(Nota);
    Fatta.Mancanze.removeIf([&](const MancanzaFattura& Detta) {
        return std::ranges::any_of(Scritte,
                                   [&](const MancanzaFattura& Altra) { return Altra.Dove == Detta.Dove; });
    });
    Fatta.Mancanze += Scritte;
    return Fatta;
}

namespace {

/// The invoice of the note that its credit note in hand cites.
std::optional<NumeroEmesso> FatturaCitata(const Parcella& Nota)
{
    const auto Giorno = LeggiData(Nota.FatturaXml.CitataData);
    const NumeroEmesso Citata{Nota.FatturaXml.CitataNumero.simplified(),
                              Giorno ? Format(*Giorno, u"dd/mm/yyyy") : QString()};
    if (const NumeroEmesso Ultima{Nota.Stato.Numero, Nota.Stato.Data};
        !Nota.Stato.Storno && !Ultima.Numero.isEmpty() && Ultima == Citata)
        return Ultima;
    for (const DocumentoEmesso& Uno : Nota.Stato.Emessi)
        if (const NumeroEmesso Sua{Uno.Numero, Uno.Data};
            !Uno.Storno && !Uno.Numero.isEmpty() && Sua == Citata)
            return Sua;
    return std::nullopt;
}

}  // namespace

bool CambiaTipoFattura(Parcella& Nota, const QString& Tipo)
{
    DatiFatturaXml& Tenuti = Nota.FatturaXml;
    const bool Prima = Tenuti.Tipo == codici::NotaDiCredito;
    if (Tenuti.Tipo == Tipo)
        return false;
    const QString Numero = Nota.DatiPar(DatoNumFatt);
    const QString Data = Nota.DatiPar(DatoDataFatt);
    const auto Riscrivi = [&](const QString& NuovoNumero, const QString& NuovaData) {
        CambiaDatiPar(Nota, DatoNumFatt, NuovoNumero);
        CambiaDatiPar(Nota, DatoDataFatt, NuovaData);
    };
    if (Tipo == codici::NotaDiCredito && FatturaGiaScritta(Nota) &&
        (Tenuti.CitataNumero + Tenuti.CitataData).isEmpty()) {
        Tenuti.CitataNumero = SceltaDaNota(Nota).Numero;
        Tenuti.CitataData = Data;
        Riscrivi({}, {});
    } else if (Prima && Numero.isEmpty() && Data.isEmpty() && !Tenuti.DiFattura.isEmpty()) {
        const NumeroEmesso Sua = FatturaCitata(Nota).value_or(
            NumeroEmesso{Tenuti.DiFattura.section(u'|', 0, 0), Tenuti.DiFattura.section(u'|', 1)});
        Riscrivi(Sua.Numero, Sua.Data);
        Tenuti.CitataNumero.clear();
        Tenuti.CitataData.clear();
    }
    Tenuti.Tipo = Tipo;
    SetModificata(Nota, true);
    return true;
}
