#include "creadati/scrittura.h"

#include "platform/database/criterio.h"

using namespace Qt::StringLiterals;

Campo CampoTesto(const QString& Nome, int Caratteri, const QString& Descrizione)
{
    return {Nome, TipoCampo::Testo, Caratteri, Descrizione, false};
}

Campo CampoDi(TipoCampo Tipo, const QString& Nome, const QString& Descrizione)
{
    return {Nome, Tipo, 0, Descrizione, false};
}

void Crea(const Database& Db, const TabellaNuova& Tabella)
{
    Db.CreaTabella(Tabella.Nome, Tabella.Colonne);
}

void AggiungiRiga(const Database& Db, const TabellaNuova& Tabella, const QVariantList& Valori)
{
    Q_ASSERT(Valori.size() == Tabella.Colonne.size());
    QStringList Nomi;
    for (const Campo& Colonna : Tabella.Colonne)
        Nomi.append(Identificatore(Colonna.Name));
    QVariantList Celle = Valori;
    for (QVariant& Cella : Celle) {
        if (Cella.typeId() == QMetaType::QString && Cella.toString().isEmpty())
            Cella = QVariant();
    }
    const QString Segni = QStringList(Nomi.size(), u"?"_s).join(u", "_s);
    Db.Execute(
        u"INSERT INTO %1 (%2) VALUES (%3)"_s.arg(Identificatore(Tabella.Nome), Nomi.join(u", "_s), Segni),
        Celle);
}
