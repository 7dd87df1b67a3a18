#include "platform/grid/griglia_modello.h"

#include "platform/base/errore.h"
#include "platform/base/regionale.h"

#include <algorithm>

void ModelloGriglia::ImpostaColonne(const QList<ColonnaGriglia>& ColonneNuove)
{
    beginResetModel();
    ListaColonne = ColonneNuove;
    endResetModel();
}

void ModelloGriglia::Lega(TabellaRighe* Nuova)
{
    beginResetModel();
    Tabella = Nuova;
    Origine = Lettura = Recordset();
    Vere = RigheFonte();
    endResetModel();
}

void ModelloGriglia::Lega(const Recordset& RigheNuove)
{
    beginResetModel();
    Tabella = nullptr;
    Origine = RigheNuove;
    Lettura = Origine.Clone();
    Vere = RigheFonte();
    endResetModel();
}

int ModelloGriglia::RigheFonte() const
{
    return Tabella ? Tabella->Righe() : Lettura.RecordCount();
}

void ModelloGriglia::Rilega()
{
    // The keys are shared until one of the two changes them, so that this costs nothing.
    if (!Tabella)
        Lettura = Origine.Clone();
    MostraRighe(RigheFonte());
    if (rowCount() > 0 && columnCount() > 0)
        Q_EMIT dataChanged(index(0, 0), index(rowCount() - 1, columnCount() - 1));
}

/// What has changed may stand anywhere; to the views it is enough that the end moves.
void ModelloGriglia::MostraRighe(int NuoveVere)
{
    const int Prima = rowCount();
    const int Dopo = NuoveVere + (Prima - Vere);
    if (Dopo > Prima) {
        beginInsertRows({}, Prima, Dopo - 1);
        Vere = NuoveVere;
        endInsertRows();
    } else if (Dopo < Prima) {
        beginRemoveRows({}, Dopo, Prima - 1);
        Vere = NuoveVere;
        endRemoveRows();
    }
}

void ModelloGriglia::ConsentiNuove(bool Si)
{
    if (Si == Nuove)
        return;
    beginResetModel();
    Nuove = Si;
    endResetModel();
}

quint64 ModelloGriglia::Chiave(int Riga) const
{
    if (Riga < 0 || RigaVuota(Riga))
        return 0;
    if (!Tabella)
        return quint64(Riga) + 1;
    return Riga < Tabella->Righe() ? Tabella->Chiave(Riga) : 0;  // the table may be ahead of its view
}

QList<int> ModelloGriglia::RigheDi(const QList<quint64>& Chiavi) const
{
    if (Tabella)
        return Tabella->RigheDi(Chiavi);
    QList<int> Trovate;
    for (const quint64 Chiave : Chiavi)
        if (Chiave > 0 && Chiave <= quint64(Vere))
            Trovate += int(Chiave - 1);
    return Trovate;
}

bool ModelloGriglia::Modificabile(int Colonna) const
{
    return Tabella && Colonna >= 0 && Colonna < ListaColonne.size() && ListaColonne[Colonna].Modificabile;
}

bool ModelloGriglia::HaModificabili() const
{
    return Tabella && std::any_of(ListaColonne.cbegin(), ListaColonne.cend(),
                                  [](const ColonnaGriglia& C) { return C.Modificabile; });
}

QVariant ModelloGriglia::Valore(int Riga, int Colonna) const
{
    // The source may have lost rows, and Rilega be still to come.
    if (Riga < 0 || Riga >= std::min(Vere, RigheFonte()))
        return {};
    const ColonnaGriglia& Descritta = ListaColonne[Colonna];
    if (Tabella)
        return Descritta.Campo < Tabella->Colonne() ? (*std::as_const(Tabella))(Riga, Descritta.Campo)
                                                    : QVariant();
    if (!Pausa.hasExpired())
        return {};
    try {
        if (Lettura.AbsolutePosition() != Riga)
            Lettura.ImpostaAbsolutePosition(Riga);
        return Lettura.Value(Descritta.NomeCampo);
    } catch (const Errore& Guasto) {
        // Each try waits for the lock of another program, and a screen has hundreds of cells.
        constexpr int PausaMs = 1000;
        if (Guasto.Numero == errori::DatiBloccati)
            Pausa.setRemainingTime(PausaMs);
        return {};  // a row that is gone shows nothing: painting is no place for a message
    }
}

QString ModelloGriglia::Testo(int Riga, int Colonna) const
{
    if (RigaVuota(Riga))
        return {};
    const QVariant Cella = Valore(Riga, Colonna);
    const auto& Mostra = ListaColonne[Colonna].Mostra;
    return Mostra ? Mostra(Cella, Riga) : CStr(Cella);
}

QString ModelloGriglia::Segno(int Riga, int Colonna) const
{
    const auto& Di = ListaColonne[Colonna].Segno;
    // The source may have lost rows, and Rilega be still to come.
    return Di && Riga >= 0 && Riga < std::min(Vere, RigheFonte()) ? Di(Riga) : QString();
}

int ModelloGriglia::AggiungiRiga()
{
    return Tabella->AggiungiRiga();
}

void ModelloGriglia::Scrivi(int Riga, int Colonna, const QVariant& Valore)
{
    (*Tabella)(Riga, ListaColonne[Colonna].Campo) = Valore;
}

int ModelloGriglia::rowCount(const QModelIndex& Padre) const
{
    return Padre.isValid() ? 0 : Vere + (Nuove && Tabella ? 1 : 0);
}

int ModelloGriglia::columnCount(const QModelIndex& Padre) const
{
    return Padre.isValid() ? 0 : int(ListaColonne.size());
}

QVariant ModelloGriglia::data(const QModelIndex& Cella, int Ruolo) const
{
    if (!Cella.isValid())
        return {};
    switch (Ruolo) {
    case Qt::DisplayRole:
        return Testo(Cella.row(), Cella.column());
    case Qt::AccessibleDescriptionRole:
        return Segno(Cella.row(), Cella.column());
    case Qt::TextAlignmentRole:
        return int(ListaColonne[Cella.column()].Allinea | Qt::AlignVCenter);
    case Qt::DecorationRole: {
        const auto& Immagine = ListaColonne[Cella.column()].Immagine;
        return Immagine && !RigaVuota(Cella.row()) ? QVariant(Immagine(Cella.row())) : QVariant();
    }
    default:
        return {};
    }
}

QVariant ModelloGriglia::headerData(int Sezione, Qt::Orientation Verso, int Ruolo) const
{
    if (Verso == Qt::Vertical)
        return Ruolo == Qt::DisplayRole ? QVariant(QString()) : QVariant();
    if (Sezione < 0 || Sezione >= ListaColonne.size())
        return {};
    switch (Ruolo) {
    case Qt::DisplayRole:
        return ListaColonne[Sezione].Titolo;
    case Qt::TextAlignmentRole:
        return int(ListaColonne[Sezione].Allinea | Qt::AlignVCenter);
    case Qt::ToolTipRole:
    case Qt::AccessibleDescriptionRole:
        return ListaColonne[Sezione].Spiegazione;
    default:
        return {};
    }
}

Qt::ItemFlags ModelloGriglia::flags(const QModelIndex& Cella) const
{
    if (!Cella.isValid())
        return Qt::NoItemFlags;
    const Qt::ItemFlags Base = Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemNeverHasChildren;
    return Modificabile(Cella.column()) ? Base | Qt::ItemIsEditable : Base;
}
