#include "calculators/windows/frmUltimiCalcoli.h"

#include "calculators/windows/finestracalcolo.h"
#include "core/modErrori.h"
#include "core/sessione.h"
#include "platform/grid/griglia.h"
#include "platform/kit/aspetto.h"
#include "platform/kit/collega.h"
#include "platform/kit/lettere.h"
#include "platform/system/file.h"
#include "platform/system/messaggi.h"

#include "calculators/windows/ui_frmUltimiCalcoli.h"

#include <QShortcut>

using namespace Qt::StringLiterals;

namespace {

enum ColonnaCalcoli { ColNome, ColEsito, ColQuando, NumColonne };

}  // namespace

frmUltimiCalcoli::frmUltimiCalcoli(QWidget* Padre, Calcolatrice DiChi)
    : QDialog(Padre), ui(std::make_unique<Ui::frmUltimiCalcoli>()), Quale(DiChi)
{
    ui->setupUi(this);
    aspetto::MisuraConLeLettere({ui->tdbCalcoli});
    Colonne();
    ui->cmdRinomina->setIcon(aspetto::Icona(u"rename"_s));
    ui->cmdElimina->setIcon(aspetto::Icona(u"delete"_s));
    ui->chkRicorda->setChecked(sessione::RicordaCalcoli);
    PreparaModulo(this, u"ripeti"_s);
    setWindowModality(Qt::WindowModal);
    Collegamenti();
}

frmUltimiCalcoli::~frmUltimiCalcoli() = default;

void frmUltimiCalcoli::Colonne()
{
    const auto Colonna = [](const QString& Titolo, int Campo, int Caratteri) {
        ColonnaGriglia Nuova;
        Nuova.Titolo = Titolo;
        Nuova.Campo = Campo;
        Nuova.Caratteri = Caratteri;
        Nuova.Stira = Campo == ColNome;
        return Nuova;
    };
    Righe.Azzera(NumColonne);
    ui->tdbCalcoli->ImpostaColonne({Colonna(u"Calcolo"_s, ColNome, 30), Colonna(u"Risultato"_s, ColEsito, 34),
                                    Colonna(u"Quando"_s, ColQuando, 17)});
    ui->tdbCalcoli->FraseVuota(u"Nessun calcolo in elenco: ne entra uno a ogni risultato."_s);
    ui->tdbCalcoli->Lega(&Righe);
    ui->tdbCalcoli->Suggerimento = [this](int Riga) {
        return Riga >= 0 && Riga < Calcoli.size() ? Calcoli[Riga].Nome + u'\n' + Calcoli[Riga].Esito
                                                  : QString();
    };
}

void frmUltimiCalcoli::Collegamenti()
{
    Collega(ui->tdbCalcoli, &Griglia::RigaCambiata, this, [this] { Abilita(); });
    Collega(ui->tdbCalcoli, &Griglia::DoppioClic, this, [this] { cmdRiprendi_Click(); });
    Collega(ui->tdbCalcoli, &Griglia::Cancella, this, [this] { cmdElimina_Click(); });
    Collega(ui->cmdRiprendi, &QPushButton::clicked, this, [this] { cmdRiprendi_Click(); });
    Collega(ui->cmdRinomina, &QPushButton::clicked, this, [this] { cmdRinomina_Click(); });
    Collega(ui->cmdElimina, &QPushButton::clicked, this, [this] { cmdElimina_Click(); });
    Collega(ui->cmdSvuota, &QPushButton::clicked, this, [this] { cmdSvuota_Click(); });
    Collega(ui->cmdChiudi, &QPushButton::clicked, this, [this] { close(); });
    Collega(ui->chkRicorda, &QCheckBox::clicked, this, [this](bool Si) {
        // What cannot be stored is no choice.
        if (!Protetta([Si] { ImpostaRicordo(Si); }))
            ui->chkRicorda->setChecked(sessione::RicordaCalcoli);
    });
    auto* Rinomina = new QShortcut(QKeySequence(Qt::Key_F2), this);
    Collega(Rinomina, &QShortcut::activated, this, [this] { cmdRinomina_Click(); });
}

void frmUltimiCalcoli::Mostra()
{
    if (!MostraModulo(this))
        return;
    Elenca();
    ui->tdbCalcoli->ImpostaRigaCorrente(0);
    if (Calcoli.isEmpty())
        ui->cmdChiudi->setFocus();
    else
        ui->tdbCalcoli->setFocus();
}

void frmUltimiCalcoli::Elenca()
{
    Protetta([this] { Calcoli = UltimiCalcoli(Quale); });
    Righe.Azzera(NumColonne);
    for (const CalcoloRicordato& Calcolo : std::as_const(Calcoli)) {
        const int Riga = Righe.AggiungiRiga();
        Righe(Riga, ColNome) = Calcolo.Nome;
        Righe(Riga, ColEsito) = Calcolo.Esito;
        Righe(Riga, ColQuando) = Calcolo.Quando.toString(u"dd/MM/yyyy HH:mm"_s);
    }
    ui->tdbCalcoli->Rilega();
    Abilita();
}

void frmUltimiCalcoli::Abilita()
{
    for (QPushButton* Pulsante : {ui->cmdRiprendi, ui->cmdRinomina, ui->cmdElimina})
        Pulsante->setEnabled(Corrente());
    ui->cmdSvuota->setEnabled(!Calcoli.isEmpty());
}

const CalcoloRicordato* frmUltimiCalcoli::Corrente() const
{
    const auto Riga = ui->tdbCalcoli->RigaCorrente();
    return Riga && *Riga < Calcoli.size() ? &Calcoli[*Riga] : nullptr;
}

void frmUltimiCalcoli::cmdRiprendi_Click()
{
    if (!Corrente())
        return;
    const CalcoloRicordato Preso = *Corrente();
    const auto AlScelto = Scelto;
    close();
    if (AlScelto)
        AlScelto(Preso);
}

void frmUltimiCalcoli::cmdRinomina_Click()
{
    if (!Corrente())
        return;
    const CalcoloRicordato Calcolo = *Corrente();
    const QString Nome = InputBox(u"Nome del calcolo:"_s, u"Ultimi calcoli"_s, Calcolo.Nome).trimmed();
    if (Nome.isEmpty())
        return;
    Protetta([&] { RinominaCalcolo(Quale, Calcolo.Campi, Nome); });
    Elenca();
}

void frmUltimiCalcoli::cmdElimina_Click()
{
    if (!Corrente())
        return;
    Protetta([this] { DimenticaCalcolo(Quale, Corrente()->Campi); });
    Elenca();
    if (Calcoli.isEmpty())
        ui->cmdChiudi->setFocus();
}

void frmUltimiCalcoli::cmdSvuota_Click()
{
    // A list put aside holds those of all calculators: nobody loses them unasked.
    const QString Anche = EsisteFile(FileCalcoliGuasto())
                              ? u"\nSi cancella anche l'elenco danneggiato che era stato messo da parte."_s
                              : QString();
    if (MsgBox(u"Confermi la cancellazione di tutti i calcoli in elenco?"_s + Anche, vbYesNo + vbQuestion,
               TitoloDomanda.toString()) != vbYes)
        return;
    Protetta([this] { SvuotaCalcoli(Quale); });
    Elenca();
    ui->cmdChiudi->setFocus();
}

#include "moc_frmUltimiCalcoli.cpp"
