// The electronic invoice beside the print data: what is missing, what is chosen, what the recipient will
// read, the file.
#pragma once

#include "feenote/einvoice/composizione.h"
#include "feenote/modEmessi.h"
#include "feenote/parcella.h"

#include <QWidget>

#include <memory>
#include <optional>

class CorniceNota;

namespace Ui {
class PannelloFattura;
}

/// It stands in the place of the printed page. Nothing is composed while it is hidden.
class PannelloFattura : public QWidget
{
    Q_OBJECT

public:
    /// @param Dati the note shown, which lives as long as the panel
    PannelloFattura(Parcella& Dati, CorniceNota& Finestra, QWidget* Padre);
    ~PannelloFattura() override;

    /// Another note is in the window, or none: what was composed for the former one goes.
    void NuovaNota();
    /// It comes up: an archive that lacks columns is told, once a session.
    void Entra();
    /// Writes the controls from the record, and composes the invoice anew.
    void Mostra();
    /// The box of a choice; null for a field that stands elsewhere.
    [[nodiscard]] QWidget* CasellaDi(CampoFattura Dove) const;

Q_SIGNALS:
    /// The user goes back to the printed page.
    void Chiuso();

private:
    // ---- PannelloFattura.cpp: controls, what is missing
    void CreaElenchi();
    void CollegaScelte();
    void CollegaComandi();
    void MostraScelte();
    void MostraMancanze();
    void MostraStato();
    void Raccogli();  ///< the choices on view go into the record
    void Scegli();    ///< the same, and what comes of it is shown
    void VaiAllaRiga(int Riga);
    [[nodiscard]] Composizione Componi(const Parcella& Di, const QString& Progressivo = {}) const;
    void ComponiTutto();  ///< the one in hand, and what it is in the place of a discarded one
    /// The file can be written, be it only in the place of the discarded one.
    [[nodiscard]] bool SiScrive() const { return Composta.Completa() || Scartata; }

    // ---- PannelloFattura_File.cpp: columns, file, check
    void ChiediColonne();
    void cmdSalvaXml_Click();
    void cmdControllaXml_Click();
    void Scrivi(const QString& Cartella, int Atteso, const QString& GiaNoto, bool AlSuoPosto);
    /// What the note's file says of a file of this invoice; empty where it says nothing.
    [[nodiscard]] DatiFatturaXml ScrittaDaAltri() const;

    Parcella& Nota;
    CorniceNota& Cornice;
    std::unique_ptr<Ui::PannelloFattura> ui;
    Composizione Composta;
    /// The one whose place this one may take, where a file can be written that does; and that file.
    std::optional<NumeroEmesso> Scartata;
    Composizione AlPosto;
    QStringList ColonneBloccate;  ///< headings that an archive lacks and cannot get
};

/// Archives are asked about anew, as in a new session; serves tests.
void DimenticaArchiviChiesti();
