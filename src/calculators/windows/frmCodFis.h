// The fiscal code of a person, with the municipality completed while it is typed.
#pragma once

#include "calculators/modComuni.h"
#include "calculators/modLeggiCodFis.h"
#include "calculators/modScheda.h"

#include <QDialog>

#include <memory>
#include <optional>

class ComandiCalcolo;
class QCompleter;
class QStringListModel;

namespace Ui {
class frmCodFis;
}

struct CampoRicordato;
struct ParteDelCalcolo;

class frmCodFis : public QDialog
{
    Q_OBJECT

public:
    frmCodFis();
    ~frmCodFis() override;

    void Mostra();

    void cmdElabora_Click();
    /// Empties all boxes.
    void mnuNew_Click();
    /// Reads the code that is typed, and says what it holds or what is wrong with it.
    void txtLetto_Change();
    void txtLetto_Invio();
    /// The municipality after a key that changed its text.
    void txtComune_Change(const QString& Testo);

protected:
    void changeEvent(QEvent* Evento) override;
    bool eventFilter(QObject* Oggetto, QEvent* Evento) override;

private:
    void Collegamenti();
    void Load();
    void CreaElenco();
    void Cambiato();
    void ScriviCodice(const QString& Codice);
    void ProponiComuni();
    void MostraElenco(const QStringList& Nomi);
    void txtComune_Scelto(const QString& Nome);
    void txtComune_Lasciato();
    void txtComune_Invio();
    void MostraComune();
    void Colora();
    void MostraLettura();
    [[nodiscard]] QString ComuneLetto() const;
    [[nodiscard]] bool ValeLettura() const;
    [[nodiscard]] QString TestoCopia() const;
    [[nodiscard]] ParteDelCalcolo ParteComandi();
    [[nodiscard]] QList<CampoRicordato> CampiRicordati();
    [[nodiscard]] SchedaCalcolo Scheda() const;
    [[nodiscard]] QStringList EtaComuni() const;

    std::unique_ptr<Ui::frmCodFis> ui;
    std::optional<ArchivioComuni> Comuni;  ///< open as long as the form; none when it could not be opened
    CampoComune Campo;                     ///< what the municipality field knows and shows
    QCompleter* Elenco = nullptr;          ///< the list beside the field
    QStringListModel* NomiElenco = nullptr;
    QString Segnato;            ///< the row that is marked in the list, or was when a click closed it
    bool ElencoAtteso = false;  ///< the list comes when the field has the focus again
    bool DataSbagliata = false;
    ComandiCalcolo* Comandi = nullptr;
    LetturaCodFis Lettura;  ///< of the code that is typed
    bool NelLetto = false;  ///< the box of the code to be read has the focus, or had it last
};
