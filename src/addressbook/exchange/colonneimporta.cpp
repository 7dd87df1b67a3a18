#include "addressbook/exchange/colonneimporta.h"

#include "addressbook/modRubrica.h"
#include "platform/base/testopiano.h"

#include <QHash>
#include <QMap>
#include <QSet>

#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

namespace {

/// The titles that mean a field, letters and digits alone, between blanks.
struct Sinonimi
{
    QStringView Chiave;
    QStringView Titoli;
};

constexpr std::array TabellaColonne{
    Sinonimi{
        u"Nominativo",
        u"nominativo nominativi ragionesociale ragsociale ragsoc denominazione intestazione intestatario "
        "cliente controparte cognomeenome cognomenome nomeecognome nomecognome nomecompleto soggetto "
        "anagrafica ditta nomevisualizzato visualizzacome name fullname displayname"},
    Sinonimi{parte::Cognome, u"cognome surname lastname familyname"},
    Sinonimi{parte::Nome, u"nome nomeproprio nomedibattesimo firstname givenname"},
    Sinonimi{parte::Organizzazione,
             u"organizzazione azienda societa ente nomeazienda nomesocieta company organization "
             "organizationname organization1name"},
    Sinonimi{u"Controp", u"controp nomeinparcella"},
    Sinonimi{u"Indirizzo",
             u"indirizzo via residenza domicilio sede sedelegale indirizzocompleto indirizzoresidenza "
             "indirizzodiresidenza indirizzosede indirizzoufficio indirizzocasa viaabitazione viaufficio "
             "address street streetaddress homestreet businessstreet address1street"},
    Sinonimi{parte::Civico, u"civico numerocivico ncivico numciv nciv"},
    Sinonimi{u"Cap", u"cap codicepostale codpostale codiceavviamentopostale zip zipcode postalcode "
                     "homepostalcode businesspostalcode address1postalcode"},
    Sinonimi{u"Citta", u"citta comune localita cittaresidenza cittadiresidenza comuneresidenza "
                       "comunediresidenza paese city town homecity businesscity address1city"},
    Sinonimi{u"Prov", u"prov provincia pr pv siglaprovincia provresidenza provinciaresidenza "
                      "provinciadiresidenza"},
    Sinonimi{u"Nazione",
             u"nazione stato nazioneresidenza statoresidenza paeseresidenza country countryregion "
             "homecountry businesscountry address1country"},
    Sinonimi{u"TipoSoggetto", u"tiposoggetto tipocliente tipoanagrafica naturagiuridica"},
    Sinonimi{u"CodFis", u"codfis codfisc codicefiscale cf codfiscale cfiscale codicefisc taxcode fiscalcode"},
    Sinonimi{u"PIva", u"piva partitaiva partiva pariva iva numeropartitaiva vat vatnumber vatid"},
    Sinonimi{u"DataNascita", u"datanascita datadinascita dtnascita natoil natoail nascita compleanno "
                             "birthday birthdate dateofbirth"},
    Sinonimi{u"ComuneNascita",
             u"comunenascita comunedinascita luogonascita luogodinascita natoa cittanascita "
             "cittadinascita birthplace"},
    Sinonimi{u"Telefono", u"telefono tel telefono1 tel1 telefonofisso fisso telefonocasa telefonoabitazione "
                          "telefonoufficio telufficio telcasa numeroditelefono numerotelefono "
                          "recapitotelefonico telefonoprincipale phone homephone businessphone phone1value"},
    Sinonimi{u"Cellulare", u"cellulare cell cellulare1 cell1 telefonocellulare telcellulare telcell "
                           "telefonino telefonomobile mobile mobilephone"},
    Sinonimi{u"Email", u"email mail email1 mail1 postaelettronica indirizzoemail indirizzomail "
                       "indirizzodipostaelettronica emailaddress email1value mailordinaria"},
    Sinonimi{u"Pec", u"pec emailpec mailpec pecmail indirizzopec postacertificata "
                     "postaelettronicacertificata domiciliodigitale"},
    Sinonimi{u"CodDestinatario",
             u"coddestinatario codicedestinatario coddest sdi codicesdi codsdi codiceunivoco "
             "codiceunivocoufficio codicedestinatariosdi"},
    Sinonimi{u"RapprLegale", u"rapprlegale rappresentantelegale legalerappresentante legalerappr "
                             "rappresentante amministratore"},
    // No field of the delivered archive, but one of some offices' own.
    Sinonimi{u"Titolo", u"titolo titoli titoloonorifico trattamento appellativo qualifica prefisso "
                        "prefissonome honorific honorificprefix nameprefix"},
    Sinonimi{u"Note", u"note nota annotazioni annotazione osservazioni commenti commento notes comments"},
};

/// Letters and digits of a title, without case and accents.
QString Nudo(const QString& Titolo)
{
    QString Piano = TestoPiano(Titolo);
    Piano.removeIf([](QChar C) { return !C.isLetterOrNumber(); });
    return Piano;
}

/// The field, or the part, that a bare title means; empty for none.
QString ChiaveDi(const QString& Nuda)
{
    static const QHash<QString, QString> Tutti = [] {
        QHash<QString, QString> Nuovi;
        for (const Sinonimi& Voce : TabellaColonne)
            for (const QStringView Titolo : Voce.Titoli.split(u' ', Qt::SkipEmptyParts))
                Nuovi.insert(Titolo.toString(), Voce.Chiave.toString());
        return Nuovi;
    }();
    return Tutti.value(Nuda);
}

/// The heading of a field, whether it shows or not.
QString Titolo(const Campo& Descritto)
{
    Campo Mostrato = Descritto;
    Mostrato.Description.replace(u"V=N"_s, u"V=Y"_s);
    const auto Colonna = ColonnaDi(Mostrato);
    return Colonna && !Colonna->Titolo.isEmpty() ? Colonna->Titolo : Descritto.Name;
}

bool HaCampo(const QList<Campo>& Campi, QStringView Nome)
{
    return std::ranges::any_of(Campi, [&](const Campo& Uno) {
        return !EChiave(Uno) && Uno.Name.compare(Nome, Qt::CaseInsensitive) == 0;
    });
}

/// The field of a key: the one of its name, else one that an office has called by another word for it.
QList<Campo>::const_iterator CampoPer(const QString& Chiave, const QList<Campo>& Campi)
{
    const auto DelNome = std::ranges::find_if(
        Campi, [&](const Campo& Uno) { return Uno.Name.compare(Chiave, Qt::CaseInsensitive) == 0; });
    if (DelNome != Campi.end() || Chiave.isEmpty())
        return DelNome;
    return std::ranges::find_if(Campi, [&](const Campo& Uno) { return ChiaveDi(Nudo(Uno.Name)) == Chiave; });
}

}  // namespace

QList<MetaColonna> MeteDi(const QList<Campo>& Campi)
{
    QList<MetaColonna> Mete{{QString(), u"(non importare)"_s}};
    for (const Campo& Uno : Campi) {
        if (EChiave(Uno))
            continue;
        Mete.append({Uno.Name, Titolo(Uno)});
        const auto E = [&](QStringView Nome) { return Uno.Name.compare(Nome, Qt::CaseInsensitive) == 0; };
        if (E(u"Nominativo"))
            Mete.append({{parte::Cognome.toString(), u"Nominativo: cognome"_s},
                         {parte::Nome.toString(), u"Nominativo: nome"_s},
                         {parte::Organizzazione.toString(), u"Nominativo: organizzazione"_s}});
        if (E(u"Indirizzo"))
            Mete.append({parte::Civico.toString(), u"Indirizzo: numero civico"_s});
    }
    return Mete;
}

QStringList AbbinaColonne(const QStringList& Titoli, const QList<Campo>& Campi)
{
    QStringList Chiavi(Titoli.size());
    QSet<QString> Prese;
    const auto Prendi = [&](qsizetype Colonna, const QString& Chiave) {
        if (Chiave.isEmpty() || !Chiavi[Colonna].isEmpty() || Prese.contains(Chiave))
            return;
        Chiavi[Colonna] = Chiave;
        Prese.insert(Chiave);
    };
    QStringList Nudi;
    for (const QString& Uno : Titoli)
        Nudi.append(Nudo(Uno));
    // The archive's own words come before those that other programs use.
    for (const Campo& Uno : Campi)
        for (const QString& Parola : {Nudo(Uno.Name), Nudo(Titolo(Uno))})
            if (const qsizetype Colonna = Nudi.indexOf(Parola); Colonna >= 0 && !EChiave(Uno))
                Prendi(Colonna, Uno.Name);
    for (qsizetype i = 0; i < Nudi.size(); ++i) {
        const QString Chiave = ChiaveDi(Nudi[i]);
        const auto Vero = CampoPer(Chiave, Campi);
        const bool DelNome =
            Chiave == parte::Cognome || Chiave == parte::Nome || Chiave == parte::Organizzazione;
        if (Vero != Campi.end() && !EChiave(*Vero))
            Prendi(i, Vero->Name);
        else if ((DelNome && HaCampo(Campi, u"Nominativo")) ||
                 (Chiave == parte::Civico && HaCampo(Campi, u"Indirizzo")))
            Prendi(i, Chiave);
    }
    // "Nome" alone is the whole name.
    const bool Intero = Prese.contains(u"Nominativo"_s) || Prese.contains(parte::Cognome.toString());
    if (!Intero && Prese.contains(parte::Nome.toString()))
        Chiavi[Chiavi.indexOf(parte::Nome)] = u"Nominativo"_s;
    return Chiavi;
}

SceltaColonna SceltaDi(const QStringList& Titoli, int Posto, const QString& Chiave)
{
    const QString Titolo = Titoli.value(Posto);
    return {.Titolo = Titolo,
            .Volta = int(std::count(Titoli.begin(), Titoli.begin() + Posto, Titolo)),
            .Posto = Posto,
            .Colonne = int(Titoli.size()),
            .Chiave = Chiave};
}

QStringList AbbinaConScelte(const QStringList& Titoli, const QList<Campo>& Campi,
                            const QList<SceltaColonna>& Scelte, bool PerPosto)
{
    const auto Colonna = [&](const SceltaColonna& Scelta) -> qsizetype {
        qsizetype Posto = -1;
        for (int Volta = 0; Volta <= Scelta.Volta; ++Volta)
            if (Posto = Titoli.indexOf(Scelta.Titolo, Posto + 1); Posto < 0)
                break;
        const bool StessoPosto = PerPosto && Scelta.Colonne == Titoli.size();
        return Posto < 0 && StessoPosto ? Scelta.Posto : Posto;
    };
    QMap<qsizetype, QString> AMano;
    for (const SceltaColonna& Scelta : Scelte)
        if (const qsizetype Posto = Colonna(Scelta); Posto >= 0)
            AMano[Posto] = Scelta.Chiave;
    const QList<QString> Prese = AMano.values();
    QStringList Chiavi = AbbinaColonne(Titoli, Campi);
    for (qsizetype i = 0; i < Chiavi.size(); ++i)
        if (AMano.contains(i))
            Chiavi[i] = AMano[i];
        else if (Prese.contains(Chiavi[i]))
            Chiavi[i].clear();
    return Chiavi;
}

bool SembranoTitoli(const QStringList& Testi)
{
    return std::ranges::any_of(Testi, [](const QString& Uno) { return !ChiaveDi(Nudo(Uno)).isEmpty(); });
}
