// The road of a result: what each date rests on, step by step, beside a calendar in the same colours.
#pragma once

#include "calculators/modSchedaStrada.h"
#include "platform/base/tabellarighe.h"

#include <QDialog>

#include <functional>
#include <memory>
#include <optional>

struct SegnoCalendario;

namespace Ui {
class frmStrada;
}

class frmStrada : public QDialog
{
    Q_OBJECT

public:
    explicit frmStrada(QWidget* Padre);
    ~frmStrada() override;

    /// Shows the road of a term, or of several that were reckoned together.
    /// @param DelCalcolo the sheet of its window, which is printed here too
    /// @param SuffissoStampa behind the caption of the print window, ": calcolo termini"
    /// @param Festivo the holidays that the calendar marks
    void Mostra(const QList<ParteStrada>& Nuove, const SchedaCalcolo& DelCalcolo,
                const QString& SuffissoStampa, const std::function<bool(const QDate& Giorno)>& Festivo);

private:
    /// Where a row of the table comes from.
    struct RigaPasso
    {
        qsizetype Parte = 0;
        qsizetype Passo = -1;  ///< -1: the title of the part
    };

    void Collegamenti();
    void Colonne();
    void Elenca();
    void MostraRiga(int Riga);
    void mnuStampa_Click();
    [[nodiscard]] QString TestoCopia() const;

    std::unique_ptr<Ui::frmStrada> ui;
    QList<ParteStrada> Parti;
    SchedaCalcolo Scheda;
    QString Suffisso;
    QList<RigaPasso> Posti;
    TabellaRighe Righe;
    qsizetype ParteMostrata = -1;
};

/// The kind of days that a calendar shows for a step, as its place in SegniStrada; -1 none.
[[nodiscard]] int SegnoPasso(GenerePasso Genere);
/// The kinds of days of a road, as its calendar names and paints them.
[[nodiscard]] QList<SegnoCalendario> SegniStrada();
