// The browser of one table of an archive: clients or counterparties.
#pragma once

#include "addressbook/modRubrica.h"
#include "addressbook/richiesta.h"
#include "addressbook/testirubrica.h"

#include <QDialog>
#include <QHash>
#include <QPointer>
#include <QTimer>

#include <functional>
#include <memory>
#include <optional>
#include <vector>

class QAction;
class QLabel;
class frmRicerche;
class frmScheda;

namespace Ui {
class frmRubrica;
}

/// Modeless; there is one for the desktop and one for each note that has asked (rubriche.h). Its recordset
/// stays open as long as it does, and the card and the search work on it.
class frmRubrica : public QDialog
{
    Q_OBJECT

public:
    frmRubrica();
    ~frmRubrica() override;

    /// Shows a table of an archive, then runs MenuStart. On a browser that is open already it takes the place
    /// of what is on view, after an open card has been answered.
    /// @return false when the rows could not be opened, which was reported, or the user stays on the card
    bool Apri(const RichiestaRubrica& Chiesta);

    /// Builds the columns of the grid from the fields of the rows.
    void GridFromDB(const Database& DiArchivio, const Recordset& Nominativi);
    /// Appends one column to those of the grid.
    void AddGrigCol(const QString& Nome, const QString& Titolo, int Size, const QString& Formato,
                    const QString& Maschera);

    /// Runs a command: "new", "edit", "view", "delete", "search", "selez", whatever their case. Another word,
    /// or one whose button is hidden or disabled, does nothing. A filter that waits for its texts comes into
    /// force first.
    void Comando(const QString& Parola);
    void tdbRubrica_HeadClick(int Colonna);

    /// Asks about an open card and about changes that are not saved.
    /// @return false when the user stays with them
    [[nodiscard]] bool Congeda();
    /// The archive was written to as a whole, or is another file under its name: the table is opened anew,
    /// without order and filter; where the same file has only more rows, or none, they stay. To be called
    /// when Congeda has answered true.
    void RileggiTabella(bool Stessa);
    /// The note that asked has gone: the browser goes too, unless the user stays on an open card; nothing can
    /// be chosen any more then.
    void LasciaNota();

    /// Place of the note that asked, 0 the desktop.
    [[nodiscard]] int Tag() const { return Richiesta.Indice; }
    [[nodiscard]] const RichiestaRubrica& Chiesta() const { return Richiesta; }
    /// The rows on view; their current row is the grid's.
    [[nodiscard]] const Recordset& RigheMostrate() const { return Righe; }

public Q_SLOTS:
    void reject() override;

protected:
    bool eventFilter(QObject* Oggetto, QEvent* Evento) override;
    void changeEvent(QEvent* Evento) override;
    void showEvent(QShowEvent* Evento) override;
    void hideEvent(QHideEvent* Evento) override;

private:
    /// The column by which the rows are ordered.
    struct Ordine
    {
        ColonnaRubrica Per;
        bool Discendente = false;
    };
    /// A deleted row, until the window closes.
    struct RigaTolta
    {
        QString File;
        QString Tabella;
        QVariantList Celle;
    };

    // ---- frmRubrica.cpp: controls, keys, opening
    void CostruisciBarra();
    void CollegaControlli();
    void CollegaTasti();
    QAction* Tasto(const QString& Chiave) const;
    void MostraRichiesta();
    void CambiaArchivio(const QString& Tabella);
    void VaiAllaRigaLegata();
    void AvviaMenu();
    void OffriConversione();
    void ApriMenu(int Riga, const QPoint& Punto);

    // ---- frmRubrica_Righe.cpp: rows, columns, order, filter
    [[nodiscard]] Recordset ApriRighe(const std::optional<Ordine>& In) const;
    void ApriTabella();
    void Rileggi();
    void AllineaTutte();
    void MostraRighe(const QVariant& Segno, int Altrimenti = 0);
    void Riallinea();
    void VaiAllaRiga(int Posto);
    void GrigliaMossa(int Riga);
    void SegnaOrdine();
    void ContaRighe();
    void Abilita();
    void Filtra(bool Aspetta = false);
    void ApplicaFiltro(const Filtro& Nuovo);
    void RidaiTesto();
    void TogliFiltro();
    void LeggiTesti();
    [[nodiscard]] bool FiltroInAttesa() const;
    [[nodiscard]] bool FiltroConcluso(bool DellaRiga);
    [[nodiscard]] bool Impegnata() const;
    [[nodiscard]] bool Consenti();
    [[nodiscard]] QVariant SegnoCorrente() const;
    [[nodiscard]] bool HaRiga() const;
    void RicordaLarghezze();
    void CopiaRighe(QList<int> Numeri) const;

    // ---- frmRubrica_Comandi.cpp: what is done with a row
    void ApriScheda(const QString& Modo);
    void FuocoSulCampo(const QString& Campo);
    void SchedaChiusa(bool Salvata);
    void Salvata();
    void Elimina();
    void Rimetti();
    void ApriRicerca();
    void Ripeti(bool Indietro);
    [[nodiscard]] frmRicerche& Ricerca();
    void ApriImporta();
    void Esporta();
    void Seleziona();
    void Esegui(const std::function<void()>& Azione);

    RichiestaRubrica Richiesta;
    QString TabellaInVista;
    Database Archivio;
    bool DaOffrire = false;  ///< to make it one of this program's, once the browser has the focus
    bool InAccess = false;  ///< the archive is a file of Access: its native copy is on view, to be read alone
    Recordset Tutte;        ///< rows of the table
    Recordset Righe;        ///< those that the filter leaves: without one the same, cursor and all
    QList<ColonnaRubrica> Colonne;
    std::optional<Ordine> InOrdine;
    QHash<QString, bool> Versi;  ///< by column: true when its last click has ordered downwards
    Filtro Vaglio;               ///< the filter in force
    QString TestoVaglio;         ///< as it was typed
    TestiRubrica Testi;
    QTimer Lettura;             ///< reads the texts of the filter while nothing else happens
    quint64 VersioneRighe = 0;  ///< of the archive when the rows were read
    bool InMostra = false;      ///< the grid's row is moved by code
    bool InCorso = false;       ///< a command runs, or asks
    std::vector<RigaTolta> Tolte;

    QPointer<frmScheda> Scheda;
    QPointer<frmRicerche> Cercatore;
    QLabel* datNom = nullptr;  ///< how many rows there are
    QLabel* lblArchivio = nullptr;
    std::unique_ptr<Ui::frmRubrica> ui;
};
