// What the writer of Access files is made of. Nothing but its sources includes this.
#pragma once

#include "supporto/scrittoreaccess.h"

#include <QByteArray>
#include <QList>
#include <QString>
#include <QVariant>

namespace formatoaccess {

// Whole numbers of two, four and eight bytes, the lowest one first, behind what is there.
void Due(QByteArray& A, quint32 Valore);
void Quattro(QByteArray& A, quint32 Valore);
void Otto(QByteArray& A, quint64 Valore);
// The same in the place of what is there.
void MettiDue(QByteArray& In, qsizetype Dove, quint32 Valore);
void MettiQuattro(QByteArray& In, qsizetype Dove, quint32 Valore);

/// The cipher of the head, and of files that were encoded.
void Rc4(quint32 Chiave, char* Byte, qsizetype Quanti);

/// True for columns whose cells have lengths of their own.
[[nodiscard]] bool Variabile(int Tipo);
/// Bytes of a cell of the other ones.
[[nodiscard]] int ByteFissi(int Tipo);

/// A file while it grows, page by page.
class Scrittore
{
public:
    explicit Scrittore(const FileScritto& DaScrivere)
        : Come(DaScrivere), Vecchio(DaScrivere.Edizione == EdizioneAccess::Jet3),
          Lunga(BytePerPagina(DaScrivere.Edizione)), Conto(Vecchio ? 8 : 12)
    {}
    QByteArray Tutto();

private:
    [[nodiscard]] QByteArray Vuota(int Genere) const;
    quint32 Nuova(int Genere = 2);
    [[nodiscard]] QByteArray Testa() const;
    [[nodiscard]] QByteArray TestoNudo(const QString& Testo) const;
    /// As Access stores it: letters of Latin in one byte, the others between two zeros.
    [[nodiscard]] QByteArray TestoStretto(const QString& Testo) const;
    /// Bytes on pages of their own; the head of the cell that names them.
    QByteArray CellaMemo(const QByteArray& Byte);
    quint32 PaginaMemo(const QByteArray& Byte);
    QByteArray Cella(const ColonnaScritta& Colonna, const QVariant& Valore);
    static double Giorni(const QVariant& Valore);
    QByteArray Riga(const TabellaScritta& Tabella, const RigaScritta& Valori);
    /// Puts rows on pages of a table; a row's place is its page and number.
    quint32 Aggiungi(QList<quint32>& Proprie, quint32 Tabella, const QByteArray& Byte, quint32 Segni);
    /// A row with the map of a table's pages, on a page of its own.
    quint32 Mappa(const QList<quint32>& Proprie, bool Grande);
    void Nome(QByteArray& A, const QString& Testo) const;
    void Scrivi(const TabellaScritta& Tabella, quint32 Dove);
    [[nodiscard]] QByteArray DefinizioneDi(const TabellaScritta& Tabella, quint32 MappaRighe) const;
    /// What the table's row in the list of objects holds of its fields: their descriptions.
    [[nodiscard]] QByteArray ProprietaDi(const TabellaScritta& Tabella) const;

    const FileScritto& Come;
    bool Vecchio;
    qsizetype Lunga;
    qsizetype Conto;  ///< where a page of rows has their number
    QList<QByteArray> Pagine;
};

}  // namespace formatoaccess
