#include "creadati/archivio_studio.h"

#include "addressbook/modColonneFattura.h"
#include "creadati/scrittura.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

Campo Chiave()
{
    Campo ID = CampoDi(TipoCampo::Lungo, u"ID"_s, u"L=N.,S=2"_s);
    ID.Contatore = true;
    return ID;
}

/// In a description "L" is the heading and "S" the width in characters; a heading holds no comma and no
/// equals sign, at which the description is cut.
QList<Campo> ColonneRecapiti()
{
    const QList<Campo> Fattura = ColonneFattura();
    const auto Della = [&](const QString& Nome) { return *std::ranges::find(Fattura, Nome, &Campo::Name); };
    return {
        Della(u"Indirizzo"_s),
        Della(u"Cap"_s),
        Della(u"Citta"_s),
        Della(u"Prov"_s),
        Della(u"Nazione"_s),
        Della(u"CodFis"_s),
        Della(u"PIva"_s),
        CampoDi(TipoCampo::Data, u"DataNascita"_s, u"L=Data di nascita,S=10"_s),
        CampoTesto(u"ComuneNascita"_s, 60, u"L=Comune di nascita,S=20"_s),
        CampoTesto(u"Telefono"_s, 30, u"L=Telefono,S=13"_s),
        CampoTesto(u"Cellulare"_s, 30, u"L=Cellulare,S=13"_s),
        CampoTesto(u"Email"_s, 254, u"L=E-mail,S=30"_s),
        Della(u"Pec"_s),
        Della(u"CodDestinatario"_s),
        Della(u"TipoSoggetto"_s),
        CampoTesto(u"RapprLegale"_s, 100, u"L=Legale rappresentante,S=30"_s),
        CampoDi(TipoCampo::Memo, u"Note"_s, u"L=Note,S=30"_s),
    };
}

Campo Nominativo()
{
    return CampoTesto(u"Nominativo"_s, 150, u"L=Nominativo,S=40"_s);
}

void CreaArchivio(const Database& Db, const QString& Nome, const QList<Campo>& Colonne)
{
    Crea(Db, {Nome, Colonne});
    Db.CreaIndice(Nome, u"Nominativo"_s, {u"Nominativo"_s});
}

}  // namespace

void ScriviArchivioStudio(const QString& Percorso)
{
    const Database Db = CreateDatabase(Percorso);
    CreaArchivio(Db, u"clienti"_s, QList<Campo>{Chiave(), Nominativo()} + ColonneRecapiti());
    // The name of a counterparty as its fee notes show it. It goes with the archive's, which alone is seen,
    // so that nobody reads two names of one counterparty.
    const Campo Controp = CampoTesto(u"Controp"_s, 150, u"V=N,L=Nome in parcella,S=30"_s);
    CreaArchivio(Db, u"controparti"_s, QList<Campo>{Chiave(), Nominativo(), Controp} + ColonneRecapiti());
}
