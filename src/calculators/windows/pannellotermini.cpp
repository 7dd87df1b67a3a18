#include "calculators/windows/pannellotermini.h"

#include "calculators/modTermini.h"
#include "calculators/norme/etadati.h"
#include "calculators/windows/etamostrata.h"
#include "calculators/windows/finestracalcolo.h"
#include "calculators/windows/frmAgenda.h"
#include "calculators/windows/frmStrada.h"
#include "core/modErrori.h"
#include "platform/base/regionale.h"
#include "platform/calendar/calendario.h"
#include "platform/kit/annuncio.h"
#include "platform/kit/aspetto.h"
#include "platform/kit/campo.h"
#include "platform/kit/collega.h"
#include "platform/kit/mascheradata.h"
#include "platform/system/orologio.h"
#include "platform/system/shell.h"

#include <QAbstractButton>
#include <QCheckBox>
#include <QComboBox>
#include <QDialog>
#include <QLabel>
#include <QPushButton>
#include <QSignalBlocker>

using namespace Qt::StringLiterals;

PannelloTermini::PannelloTermini(QDialog* Padre, const CampiTermini& Suoi, QFormLayout* Modulo, int Riga,
                                 ParteTermini Della)
    : QObject(Padre), Finestra(Padre), Campi(Suoi), Parte(std::move(Della)),
      Scelta(Suoi.cmbNorme,
             [this] {
                 MostraNorme();
                 Parte.NormeCambiate();
                 Campi.Calendario->Ridisegna();
                 FaiPosto(Finestra);
             }),
      DataInizio(Modulo, Riga, Parte.Pulisci)
{}

QList<VoceMenu> PannelloTermini::Comandi(ParteDelCalcolo Calcolo)
{
    Calcolo.Esito = [this] { return EsitoInRiga(Termini); };
    Calcolo.Scheda = [this] { return Scheda(); };
    Calcolo.Suffisso = Parte.Suffisso;
    ComandiSuoi = new ComandiCalcolo(Finestra, std::move(Calcolo));
    return ComandiSuoi->Voci(true);
}

void PannelloTermini::Prepara(double Ingrandimento, int Righe)
{
    QLabel* Risultato = Campi.lblRisult;
    QFont Grande = Risultato->font();
    Grande.setPointSizeF(Grande.pointSizeF() * Ingrandimento);
    Risultato->setFont(Grande);
    // The label itself knows the height of its lines, which at a fractional scale is no multiple of one.
    Risultato->setText(QString(Righe - 1, u'\n') + u'X');
    Risultato->setMinimumHeight(Risultato->sizeHint().height());
    Risultato->clear();
    Risultato->parentWidget()->setBackgroundRole(QPalette::Base);
    Campi.lblSettembre->setText(AvvisoSettembre.toString());  // for its room
    NonSpostare(Campi.lblSettembre);
    Campi.lblSettembre->hide();
    Campi.cmdCopia->setIcon(aspetto::Icona(u"copia"_s));
}

void PannelloTermini::Collegamenti(const std::function<void()>& Cambiato)
{
    Collega(Campi.mskDecorr, &QLineEdit::textEdited, Campi.mskDecorr, [this, Cambiato] {
        Cambiato();
        Segui(Campi.mskDecorr->Testo());
    });
    AlLascia(Campi.mskDecorr, [this] {
        Segui(Decorrenza());
        return true;
    });
    Campi.Calendario->ImpostaRegole(
        {[this](const QDate& Giorno) { return Scelta.Festivo(Giorno); },
         [this](const QDate& Giorno) { return Campi.chkSosp->isChecked() && Scelta.Sospeso(Giorno); }});
    // A date picked on the calendar goes into the box, which gets the focus.
    Collega(Campi.Calendario, &CalendarioMensile::DataScelta, Campi.mskDecorr,
            [this, Cambiato](const QDate& Data) {
                Campi.mskDecorr->ImpostaData(Data);
                Cambiato();
                Segui(Campi.mskDecorr->Testo());
                Campi.mskDecorr->setFocus();
            });
    Collega(Campi.cmbMateria, &QComboBox::currentIndexChanged, Finestra, [this] { Parte.Pulisci(); });
    Collega(Campi.cmdStrada, &QPushButton::clicked, Finestra, [this] { ApriStrada(); });
    Collega(Campi.cmdAgenda, &QPushButton::clicked, Finestra, [this] { ApriAgenda(); });
    TastoRapido(Finestra, Qt::Key_D, [this] { ApriStrada(); });
    TastoRapido(Finestra, Qt::Key_G, [this] { ApriAgenda(); });
    ComandiSuoi->Aggiorna();
}

/// What belongs to the norms that count: the matters that the suspension spares, and how far they are known.
void PannelloTermini::MostraNorme()
{
    const bool InVigore = Scelta.InVigore();
    if (InVigore && Campi.cmbMateria->count() == 0) {
        const QSignalBlocker Zitta(Campi.cmbMateria);
        Campi.cmbMateria->addItem(u"materia ordinaria"_s);
        for (const NormaMateria& Una : Scelta.Lette()->Materie())
            Campi.cmbMateria->addItem(Una.Testo, Una.Codice);
    }
    constexpr int LettereMateria = 32;
    LimitaLista(Campi.cmbMateria, LettereMateria);
    Campi.cmbMateria->setVisible(InVigore);
    Campi.lblEta->setVisible(InVigore);
    if (InVigore)
        MostraEta(Campi.lblEta, EtaNorme(*Scelta.Lette(), Oggi()));
}

void PannelloTermini::Calcola(const std::function<bool()>& Procedura)
{
    if (!DataInizio.Valida())
        return;
    (void)ConcludiCampo();  // a shortcut calculates without leaving the box
    bool Calcolato = false;
    Protetta([&] { Calcolato = Procedura(); });
    if (Calcolato)
        VaiSullaData(Campi.mskDecorr);
    else
        RidaiFuoco(Campi.mskDecorr);
}

void PannelloTermini::Mostra(const QList<TermineContato>& Calcolati, const QString& Testo,
                             const QString& Avviso)
{
    Termini = Calcolati;
    Campanello();
    Scrivi(Testo, Avviso);
    Abilita();
    if (Campi.cmdScadenza)
        Campi.cmdScadenza->show();
    Campi.Calendario->ImpostaData(Termini.first().Esito.Scadenza);
    SegnaGiorni();
    FaiPosto(Finestra);
    ComandiSuoi->Ricorda(true);
}

void PannelloTermini::Togli()
{
    Termini.clear();
    Abilita();
    // A road of a result that is no more would be taken for that of the next one.
    if (Strade)
        Strade->close();
    if (Campi.cmdScadenza)
        Campi.cmdScadenza->hide();
    Scrivi({}, {});
    SegnaGiorni();
}

void PannelloTermini::Scrivi(const QString& Testo, const QString& Avviso)
{
    QPalette Colori;
    Colori.setColor(Campi.lblSettembre->foregroundRole(), aspetto::Sbagliato());
    Campi.lblSettembre->setPalette(Colori);
    if (!Avviso.isEmpty())
        Campi.lblSettembre->setText(Avviso);
    Campi.lblSettembre->setVisible(!Avviso.isEmpty());
    Campi.lblRisult->setText(Testo);
    Campi.lblRisult->setAccessibleName(Testo.isEmpty() ? u"Risultato"_s
                                                       : (Testo + u' ' + AvvisoMostrato()).simplified());
    Campi.cmdCopia->setEnabled(!Testo.isEmpty());
    if (!Testo.isEmpty())
        AnnunciaRisultato(Campi.lblRisult);
}

void PannelloTermini::Abilita()
{
    for (QPushButton* Pulsante : {Campi.cmdStrada, Campi.cmdAgenda})
        Pulsante->setEnabled(!Termini.isEmpty());
    ComandiSuoi->Aggiorna();
}

/// The start date and the due dates on the calendar.
void PannelloTermini::SegnaGiorni()
{
    QList<QDate> Giorni;
    for (const TermineContato& Termine : std::as_const(Termini))
        Giorni << Termine.Esito.Scadenza;
    Campi.Calendario->Segna(LeggiData(Decorrenza()), Giorni);
}

void PannelloTermini::AlternaCalendario()
{
    Campi.Calendario->setVisible(!Campi.Calendario->isVisible());
    Campi.mskDecorr->setFocus();
}

/// Enabling and calendar by a text of the date box.
void PannelloTermini::Segui(const QString& Testo)
{
    AbilitaSabato(Testo);
    if (const auto Data = LeggiData(Testo))
        Campi.Calendario->ImpostaData(*Data);
}

void PannelloTermini::AbilitaSabato()
{
    AbilitaSabato(Decorrenza());
}

void PannelloTermini::AbilitaSabato(const QString& Testo)
{
    // Both options rest where the links of a chain say it themselves.
    const bool Conta = Campi.chkSosp->isEnabled();
    if (Scelta.InVigore())
        Campi.chkSabato->setEnabled(Conta);
    else if (const auto Ammesso = SabatoAmmesso(Testo))
        Campi.chkSabato->setEnabled(*Ammesso && Conta);
}

QString PannelloTermini::Decorrenza() const
{
    return SenzaSecolo(Campi.mskDecorr->Testo());
}

QString PannelloTermini::Materia() const
{
    return Scelta.InVigore() ? Campi.cmbMateria->currentData().toString() : QString();
}

QString PannelloTermini::AvvisoMostrato() const
{
    return Campi.lblSettembre->isHidden() ? QString() : Campi.lblSettembre->text();
}

void PannelloTermini::ApriStrada()
{
    if (Termini.isEmpty())
        return;
    if (!Strade)
        Strade = new frmStrada(Finestra);
    Strade->Mostra(PartiDi(Termini), Scheda(), Parte.Suffisso,
                   [this](const QDate& Giorno) { return Scelta.Festivo(Giorno); });
}

void PannelloTermini::ApriAgenda()
{
    if (!Termini.isEmpty())
        (new frmAgenda(Finestra, Termini, Scelta.Insieme()))->Mostra();
}

SchedaCalcolo PannelloTermini::Scheda()
{
    QStringList Chieste = Parte.Chieste();
    if (const auto Quando = DataInizio.Data())
        Chieste << u"Causa iniziata il: "_s + Format(*Quando, ModelloData);
    if (!Materia().isEmpty())
        Chieste << u"Materia: "_s + Campi.cmbMateria->currentText();
    Chieste << RigaNorme(Scelta.Insieme());
    QStringList Eta;
    if (Scelta.InVigore())
        Eta = RigheEta(std::optional(EtaNorme(*Scelta.Lette(), Oggi())));
    SchedaCalcolo Tutta = SchedaStrada(Chieste, PartiDi(Termini), Eta);
    if (!Parte.TitoloScheda.isEmpty())
        Tutta.Titolo = Parte.TitoloScheda;
    return Tutta;
}

CampoRicordato PannelloTermini::CampoDecorrenza()
{
    CampoRicordato Data = CampoDi(Campi.mskDecorr);
    Data.Scrivi = [this, ScriviData = Data.Scrivi](const QString& Valore) {
        const bool Scritta = ScriviData(Valore);
        AbilitaSabato();
        return Scritta;
    };
    return Data;
}

CampoRicordato PannelloTermini::CampoMateria() const
{
    CampoRicordato Campo = CampoDi(Campi.cmbMateria);
    Campo.Leggi = [Lista = Campi.cmbMateria] { return Lista->currentData().toString(); };
    return Campo;
}
