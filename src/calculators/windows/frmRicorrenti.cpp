#include "calculators/windows/frmRicorrenti.h"

#include "calculators/windows/finestracalcolo.h"
#include "platform/base/regionale.h"
#include "platform/grid/griglia.h"
#include "platform/kit/aspetto.h"
#include "platform/kit/campo.h"
#include "platform/kit/collega.h"

#include "calculators/windows/ui_frmRicorrenti.h"
#include "platform/kit/lettere.h"

#include <QKeyEvent>
#include <QShortcut>
#include <QTableView>

using namespace Qt::StringLiterals;

namespace {

enum ColonnaTermini { ColAtto, ColMisura, ColEvento, ColArticolo, ColRito, NumColonneTermini };

QString Maiuscola(QString Testo)
{
    if (!Testo.isEmpty())
        Testo.front() = Testo.front().toUpper();
    return Testo;
}

QString SospensioneIn(const TermineRicorrente& Termine)
{
    if (!Termine.Sospeso)
        return u"Sospensione feriale: "_s + CriterioNonRiscontrato.toString();
    return *Termine.Sospeso ? u"Sospeso nel periodo feriale"_s : u"Non sospeso nel periodo feriale"_s;
}

}  // namespace

frmRicorrenti::frmRicorrenti(QWidget* Padre, std::shared_ptr<const Norme> DaNorme)
    : QDialog(Padre), ui(std::make_unique<Ui::frmRicorrenti>()), Insieme(std::move(DaNorme))
{
    ui->setupUi(this);
    aspetto::MisuraConLeLettere({ui->tdbRicorrenti});
    Colonne();
    PreparaModulo(this, u"termini"_s);
    setWindowModality(Qt::WindowModal);
    Collegamenti();
}

frmRicorrenti::~frmRicorrenti() = default;

void frmRicorrenti::Colonne()
{
    const auto Colonna = [](const QString& Titolo, int Campo, int Caratteri) {
        ColonnaGriglia Nuova;
        Nuova.Titolo = Titolo;
        Nuova.Campo = Campo;
        Nuova.Caratteri = Caratteri;
        Nuova.Stira = Campo == ColAtto;
        return Nuova;
    };
    Righe.Azzera(NumColonneTermini);
    ui->tdbRicorrenti->ImpostaColonne({Colonna(u"Atto"_s, ColAtto, 26), Colonna(u"Termine"_s, ColMisura, 15),
                                       Colonna(u"Da"_s, ColEvento, 24),
                                       Colonna(u"Articolo"_s, ColArticolo, 19),
                                       Colonna(u"Rito"_s, ColRito, 12)});
    ui->tdbRicorrenti->FraseVuota(u"Nessun termine ha le parole o l'articolo cercati."_s);
    ui->tdbRicorrenti->Lega(&Righe);
    ui->tdbRicorrenti->Suggerimento = [this](int Riga) {
        return Riga >= 0 && Riga < Voci.size() ? Descrizione(Voci[Riga]) : QString();
    };
    // Letters typed on the list begin another search.
    ui->tdbRicorrenti->CercaLettere = [this](const QString& Lettere) {
        ui->txtCerca->setFocus(Qt::ShortcutFocusReason);
        ui->txtCerca->setText(Lettere);
    };
}

void frmRicorrenti::Collegamenti()
{
    ui->txtCerca->installEventFilter(this);
    Collega(ui->txtCerca, &QLineEdit::textChanged, this, [this] { Elenca(); });
    Collega(ui->tdbRicorrenti, &Griglia::RigaCambiata, this, [this] { MostraVoce(); });
    Collega(ui->tdbRicorrenti, &Griglia::DoppioClic, this, [this] { cmdScegli_Click(); });
    Collega(ui->cmdScegli, &QPushButton::clicked, this, [this] { cmdScegli_Click(); });
    Collega(ui->cmdChiudi, &QPushButton::clicked, this, [this] { close(); });
    auto* Cerca = new QShortcut(QKeySequence::Find, this);
    Collega(Cerca, &QShortcut::activated, this, [this] {
        ui->txtCerca->setFocus(Qt::ShortcutFocusReason);
        ui->txtCerca->selectAll();
    });
}

void frmRicorrenti::Mostra()
{
    if (!MostraModulo(this))
        return;
    Elenca();
    ui->txtCerca->setFocus();
}

/// From the field Down goes into the list, Enter takes the row that stands first in it.
bool frmRicorrenti::eventFilter(QObject* Oggetto, QEvent* Evento)
{
    if (Oggetto != ui->txtCerca || Evento->type() != QEvent::KeyPress)
        return QDialog::eventFilter(Oggetto, Evento);
    const int Tasto = static_cast<QKeyEvent*>(Evento)->key();
    if (Tasto == Qt::Key_Down) {
        ui->tdbRicorrenti->setFocus(Qt::TabFocusReason);
        return true;
    }
    if (!EInvio(Tasto))
        return false;
    cmdScegli_Click();
    return true;
}

QString frmRicorrenti::Articoli(const CatenaTermini& Catena) const
{
    QStringList Nomi;
    for (const AnelloCatena& Anello : Catena.Anelli)
        if (const TermineRicorrente* Termine = TrovaTermine(*Insieme, Anello.Termine);
            Termine && !Nomi.contains(Termine->Articolo))
            Nomi << Termine->Articolo;
    return Nomi.join(u", "_s);
}

void frmRicorrenti::Elenca()
{
    Voci.clear();
    Righe.Azzera(NumColonneTermini);
    const QString Cercato = ui->txtCerca->text();
    for (const CatenaTermini& Catena : Insieme->Catene()) {
        // A chain answers to its own words and to those of its terms.
        TermineRicorrente Parole;
        Parole.Codice = Catena.Codice;
        Parole.Atto = Catena.Titolo;
        Parole.Evento = Catena.Evento;
        Parole.Articolo = Articoli(Catena);
        if (TermineRisponde(Parole, Cercato))
            Aggiungi({&Catena, nullptr});
    }
    for (const TermineRicorrente* Termine : CercaTermini(*Insieme, Cercato))
        Aggiungi({nullptr, Termine});
    ui->tdbRicorrenti->Rilega();
    ui->tdbRicorrenti->ImpostaRigaCorrente(0);
    ui->lblConto->setText(Voci.size() == 1 ? u"1 voce"_s : QString::number(Voci.size()) + u" voci"_s);
    MostraVoce();
}

void frmRicorrenti::Aggiungi(const Voce& Nuova)
{
    Voci.append(Nuova);
    const int Riga = Righe.AggiungiRiga();
    if (Nuova.Catena) {
        Righe(Riga, ColAtto) = Maiuscola(Nuova.Catena->Titolo);
        Righe(Riga, ColMisura) = u"catena di "_s + QString::number(Nuova.Catena->Anelli.size());
        Righe(Riga, ColEvento) = Nuova.Catena->Evento;
        Righe(Riga, ColArticolo) = Articoli(*Nuova.Catena);
        return;
    }
    Righe(Riga, ColAtto) = Maiuscola(Nuova.Termine->Atto);
    Righe(Riga, ColMisura) = MisuraTermine(*Nuova.Termine);
    Righe(Riga, ColEvento) = Nuova.Termine->Evento;
    Righe(Riga, ColArticolo) = Nuova.Termine->Articolo;
    Righe(Riga, ColRito) = Nuova.Termine->Rito;
}

frmRicorrenti::Voce frmRicorrenti::Corrente() const
{
    const auto Riga = ui->tdbRicorrenti->RigaCorrente();
    return Riga && *Riga < Voci.size() ? Voci[*Riga] : Voce{};
}

QString frmRicorrenti::Descrizione(const Voce& Quale) const
{
    if (Quale.Catena) {
        QStringList Anelli;
        for (const AnelloCatena& Anello : Quale.Catena->Anelli)
            if (const TermineRicorrente* Termine = TrovaTermine(*Insieme, Anello.Termine))
                Anelli << Termine->Atto + u" ("_s + MisuraTermine(*Termine) + u')';
        return Maiuscola(Quale.Catena->Titolo) + u": "_s + Anelli.join(u"; "_s);
    }
    if (!Quale.Termine)
        return {};
    const TermineRicorrente& Termine = *Quale.Termine;
    QStringList Parti{Maiuscola(Termine.Atto) + u", "_s + Termine.Articolo};
    if (!Termine.Regola)
        Parti << SospensioneIn(Termine);
    if (const QString Vale = TestoVigenza(Termine.Quando); !Vale.isEmpty())
        Parti << (Termine.Misura == MisuraVigenza::Procedimento ? u"Vale per i procedimenti cominciati "_s
                                                                : u"Vale "_s) +
                     Vale;
    if (!Termine.Nota.isEmpty())
        Parti << Maiuscola(Termine.Nota);
    QString Testo;
    for (const QString& Parte : Parti)
        Testo += (Testo.isEmpty() ? u""_s : u" "_s) + Parte + (Parte.endsWith(u'.') ? u""_s : u"."_s);
    return Testo;
}

void frmRicorrenti::MostraVoce()
{
    const Voce Qui = Corrente();
    ui->lblDettaglio->setText(Descrizione(Qui));
    ui->cmdScegli->setEnabled(Qui.Catena || (Qui.Termine && !Qui.Termine->Regola));
}

void frmRicorrenti::cmdScegli_Click()
{
    const Voce Presa = Corrente();
    if (!ui->cmdScegli->isEnabled())
        return;
    // The rows live as long as the norms, whatever becomes of this window.
    const auto Tenute = Insieme;
    const auto AlTermine = TermineScelto;
    const auto AllaCatena = CatenaScelta;
    close();
    if (Presa.Catena && AllaCatena)
        AllaCatena(*Presa.Catena);
    else if (Presa.Termine && AlTermine)
        AlTermine(*Presa.Termine);
}

#include "moc_frmRicorrenti.cpp"
