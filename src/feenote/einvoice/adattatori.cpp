#include "feenote/einvoice/adattatori.h"

#include "addressbook/modClienti.h"
#include "core/modRegimi.h"
#include "core/modSede.h"
#include "core/sessione.h"
#include "feenote/einvoice/composizione.h"
#include "feenote/parcella.h"
#include "platform/base/regionale.h"
#include "platform/base/testopiano.h"

#include <QList>
#include <QStringList>

#include <tuple>

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype CaratteriPersona = 16;
constexpr qsizetype LettereNome = 3;

QString Lettere(const QString& Nome, bool Vocali)
{
    QString Scelte;
    for (const QChar C : TestoPiano(Nome).toUpper())
        if (C >= u'A' && C <= u'Z' && QStringView(u"AEIOU").contains(C) == Vocali)
            Scelte += C;
    return Scelte;
}

/// The three letters of a name in a fiscal code, D.M. 23 December 1976: of a first name of four consonants or
/// more the second one is left out.
QString TreLettere(const QString& Nome, bool Proprio)
{
    QString Consonanti = Lettere(Nome, false);
    if (Proprio && Consonanti.size() > LettereNome)
        Consonanti.remove(1, 1);
    return (Consonanti + Lettere(Nome, true) + u"XXX"_s).left(LettereNome);
}

/// The two letters in front of a VAT number of another country; Greece writes its own.
QString PaeseDellaPartita(const QString& PIva)
{
    const QString Testo = PIva.trimmed().toUpper();
    const auto Lettera = [&](qsizetype i) { return Testo[i] >= u'A' && Testo[i] <= u'Z'; };
    if (Testo.size() <= 2 || !Lettera(0) || !Lettera(1))
        return {};
    const QString Paese = Testo.first(2);
    return Paese == u"EL" ? u"GR"_s : Paese;
}

QString NazioneDi(const DatiCliente& Riga)
{
    const QString Detta = Riga.Nazione.isEmpty() ? PaeseDellaPartita(Riga.PIva) : Riga.Nazione;
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
    Studio.Email = StudioMail;
    return Studio;
}

std::pair<QString, QString> CognomeENome(const QString& Nominativo, const QString& CodFis)
{
    const QString Codice = CodFis.simplified().remove(u' ').toUpper();
    const QStringList Parole = Nominativo.simplified().split(u' ', Qt::SkipEmptyParts);
    if (Codice.size() != CaratteriPersona)
        return {};
    QList<std::pair<QString, QString>> Trovati;
    const auto Prova = [&](const QString& Cognome, const QString& Nome) {
        const std::pair Coppia(Cognome, Nome);
        if (TreLettere(Cognome, false) + TreLettere(Nome, true) == Codice.first(2 * LettereNome) &&
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
    Scelta.Formato = Pubblica ? u"FPA12"_s : u"FPR12"_s;
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
