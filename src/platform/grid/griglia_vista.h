// The table view inside a grid: keys, mouse and the rule that a row must let itself be left.
#pragma once

#include <QElapsedTimer>
#include <QHash>
#include <QTableView>

#include <functional>
#include <optional>

class CellaAperta;
class Griglia;
class ModelloGriglia;
class SelettoreRighe;

class VistaGriglia : public QTableView
{
public:
    explicit VistaGriglia(Griglia* Intera);

    [[nodiscard]] ModelloGriglia* Modello() const { return Righe; }
    [[nodiscard]] SelettoreRighe* Selettore() const { return Sinistra; }
    [[nodiscard]] CellaAperta* Cella() const { return Aperta; }

    /// The current row of the source, none on the empty row.
    [[nodiscard]] std::optional<int> RigaVera() const;
    /// Commits the open cell and asks LasciaRiga of a row that was written to.
    [[nodiscard]] bool Concludi();
    /// Makes a row current for the user. @return false when the row before does not let itself be left
    [[nodiscard]] bool VaiARiga(int Riga);
    /// The same for code, whatever an open cell and the row before say. `Colonna` -1 keeps the column.
    void PortaA(int Riga, int Colonna);
    /// Goes to the next (previous) cell that can be written. @return false when there is none
    [[nodiscard]] bool ProssimaCella(bool Avanti);
    /// Opens the first cell of the empty row.
    void IniziaRiga();
    /// What may be done to the rows goes on without questions while it runs.
    void SenzaDomande(const std::function<void()>& Fai);
    void SegnaSporca(int Riga) { Sporca = Riga; }
    void DimenticaSporca() { Sporca.reset(); }
    /// Lets go of an open cell and of a row to be asked about that are no more.
    void RigheCambiate();
    void SegnaRepaint();

    /// Widths from the descriptions of the columns.
    void LarghezzeIniziali();
    /// Gives the columns that stretch the room that is left.
    void Stira();
    void AltezzaRighe();
    /// At which every column on view is whole, those that stretch at their narrowest.
    [[nodiscard]] int LarghezzaColonne() const;
    /// Widens a column to this at least; one that stretches has it as its narrowest from now on.
    void EsigiLarghezza(int Colonna, int Almeno);
    /// Makes columns as narrow as their titles, cells and footers allow; those that stretch take the room.
    void StringiAlContenuto(const QList<int>& Colonne);
    /// Width of a column, hidden or not.
    [[nodiscard]] int LarghezzaPiena(int Colonna) const;
    void ImpostaLarghezza(int Colonna, int Larghezza);
    /// Shows or hides a column; its width waits for it.
    void MostraColonna(int Colonna, bool Visibile);
    /// Puts the columns into an order, all of them named from the left.
    void ImpostaOrdine(const QList<int>& Colonne);

    /// What the form says of a row in its tool tip; empty none.
    [[nodiscard]] QString SuggerimentoDi(int Riga) const;

    QString Frase;              ///< shown while there are no rows
    bool ConComandi = false;    ///< the form takes commands on rows
    bool Evidente = true;       ///< the current row is tinted
    bool ColonneMosse = false;  ///< by the user, who has dragged a title or its edge

    void keyboardSearch(const QString& Cerca) override;

protected:
    bool event(QEvent* Evento) override;
    void keyPressEvent(QKeyEvent* Evento) override;
    void inputMethodEvent(QInputMethodEvent* Evento) override;
    void mousePressEvent(QMouseEvent* Evento) override;
    void mouseMoveEvent(QMouseEvent* Evento) override;
    void contextMenuEvent(QContextMenuEvent* Evento) override;
    void focusInEvent(QFocusEvent* Evento) override;
    void focusOutEvent(QFocusEvent* Evento) override;
    void paintEvent(QPaintEvent* Evento) override;
    void resizeEvent(QResizeEvent* Evento) override;
    void scrollContentsBy(int X, int Y) override;

private:
    /// Width that the description of a column asks for.
    [[nodiscard]] int LarghezzaChiesta(int Colonna) const;
    /// Width at which the title of a column is not cut.
    [[nodiscard]] int LarghezzaTitolo(int Colonna) const;
    /// How narrow a column that stretches may become.
    [[nodiscard]] int LarghezzaStretta(int Colonna) const;
    [[nodiscard]] bool PuoAndare(const QModelIndex& Verso);
    [[nodiscard]] bool LasciaRiga(int Riga);
    [[nodiscard]] QList<int> ColonneScrivibili() const;
    [[nodiscard]] QList<int> OrdineColonne() const;
    void ColonnaSpostata();
    bool TastoComando(const QKeyEvent& Evento);
    bool TastoRighe(const QKeyEvent& Evento);
    bool LetteraCercata(const QKeyEvent& Evento);
    bool EstendiSelezione(int Passo);
    void Invio();
    void DoppioClicSu(const QModelIndex& Dove);

    Griglia* Padrona;
    ModelloGriglia* Righe;
    SelettoreRighe* Sinistra;
    CellaAperta* Aperta;
    std::optional<int> Sporca;  ///< row written to and not yet let go by LasciaRiga
    bool InDomanda = false;
    int ZittaDomande = 0;
    QHash<int, int> LarghezzeNascoste;  ///< of the columns that are hidden
    QHash<int, int> LarghezzeMinime;    ///< of the columns that stretch, besides their own
    QList<int> OrdinePrima;             ///< columns from the left, before the user drags one
    bool Ordinando = false;             ///< columns are moved by code
    bool Stirando = false;
    QString Lettere;  ///< typed one after the other, to be sought
    QElapsedTimer UltimaLettera;
};
