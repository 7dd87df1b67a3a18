// The finder: controls, keys, what is done with a row.
#include "feenote/finder/windows/frmTrovaParcella.h"

#include "core/aperture.h"
#include "core/modErrori.h"
#include "core/parametri.h"
#include "core/sessione.h"
#include "feenote/finder/modGestione.h"
#include "feenote/windows/noteaperte.h"
#include "platform/base/errore.h"
#include "platform/base/regionale.h"
#include "platform/grid/griglia.h"
#include "platform/kit/aspetto.h"
#include "platform/kit/barra.h"
#include "platform/kit/campo.h"
#include "platform/kit/collega.h"
#include "platform/kit/davanti.h"
#include "platform/kit/suggerimento.h"
#include "platform/system/cartelle.h"
#include "platform/system/file.h"
#include "platform/system/messaggi.h"
#include "platform/system/percorsi.h"
#include "platform/system/shell.h"

#include "feenote/finder/windows/ui_frmTrovaParcella.h"

#include <QAction>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QMenu>
#include <QShortcut>
#include <QTableView>
#include <QToolButton>

#include <array>

using namespace Qt::StringLiterals;

namespace {

const QString NomePosto = u"frmTrovaParcella"_s;
const QString ChiaveLarghezze = u"Disposizione_tdbParcelle"_s;
constexpr QStringView Multipla = u"multiple";

/// A button of the toolbar.
struct TastoTrova
{
    QStringView Chiave;
    QStringView Icona;
    QStringView Scritta;
    QStringView Suggerimento;
};

constexpr std::array Tasti{
    TastoTrova{u"selez", u"select", u"Seleziona", u"Sceglie la parcella da associare (Invio)"},
    TastoTrova{u"open", u"open", u"Apri", u"Apre la parcella (Invio)"},
    TastoTrova{u"rename", u"rename", u"Rinomina", u"Rinomina la parcella (F2)"},
    TastoTrova{u"delete", u"delete", u"Elimina", u"Elimina la parcella (Canc)"},
    TastoTrova{u"csv", u"esporta", u"Esporta CSV...",
               u"Scrive le parcelle mostrate in un foglio per il commercialista (Ctrl+E)"},
};

/// An entry of the drop-down: one of the two folders.
struct VoceCartelle
{
    QStringView Chiave;
    QStringView Testo;
};

constexpr std::array Cartelle{
    VoceCartelle{u"openpar", u"Apri da parcelle salvate"},
    VoceCartelle{u"openmod", u"Apri da modelli"},
};

}  // namespace

frmTrovaParcella::frmTrovaParcella() : ui(std::make_unique<Ui::frmTrovaParcella>())
{
    ui->setupUi(this);
    setWindowFlags(Qt::Window | Qt::WindowTitleHint | Qt::WindowSystemMenuHint |
                   Qt::WindowMinimizeButtonHint | Qt::WindowMaximizeButtonHint | Qt::WindowCloseButtonHint);
    setWindowIcon(aspetto::Icona(u"open"_s));
    panRicerca = new QLabel;
    panRicerca->setObjectName(u"panRicerca"_s);
    panMostrate = new QLabel;
    panMostrate->setObjectName(u"panMostrate"_s);
    panRicerca->setContentsMargins(aspetto::Bordo - 2, 0, 0, 0);  // under the grid's edge
    ui->barSearch->addWidget(panRicerca, 1);
    ui->barSearch->addPermanentWidget(panMostrate);
    CostruisciBarra();
    CostruisciGriglia();
    aspetto::AssegnaMnemonici(this);
    aspetto::AssegnaNomiAccessibili(this);
    CollegaControlli();
    CollegaStato();
    CollegaTasti();
    Raccolta.setInterval(20);
    Collega(&Raccolta, &QTimer::timeout, this, [this] { Raccogli(); });
    aspetto::RicordaPostoDi(this, NomePosto);
    ui->tdbParcelle->ImpostaLarghezze(Impostazione(ChiaveLarghezze));
}

frmTrovaParcella::~frmTrovaParcella() = default;

// ---- controls -----------------------------------------------------------------------------------

void frmTrovaParcella::CostruisciBarra()
{
    auto* Tendina = new QMenu(this);
    for (const VoceCartelle& Voce : Cartelle) {
        const QString Chiave = Voce.Chiave.toString();
        QAction* Azione = Tendina->addAction(Voce.Testo.toString());
        Azione->setObjectName(u"menu_"_s + Chiave);
        Collega(Azione, &QAction::triggered, this, [this, Chiave] { barTrova_ButtonMenuClick(Chiave); });
    }
    for (const TastoTrova& Descritto : Tasti) {
        const QString Chiave = Descritto.Chiave.toString();
        QAction* Azione = AggiungiTasto(ui->barTrova, Chiave, Descritto.Suggerimento.toString(),
                                        Descritto.Scritta.toString());
        Azione->setIcon(aspetto::Icona(Descritto.Icona.toString()));
        if (Chiave == u"selez" || Chiave == u"open") {
            Azione->setMenu(Tendina);
            qobject_cast<QToolButton*>(ui->barTrova->widgetForAction(Azione))
                ->setPopupMode(QToolButton::MenuButtonPopup);
        }
        Collega(Azione, &QAction::triggered, this, [this, Chiave] { barTrova_ButtonClick(Chiave); });
    }
    Seleziona = ui->barTrova->findChild<QAction*>(u"selez"_s);
    Apri = ui->barTrova->findChild<QAction*>(u"open"_s);
}

void frmTrovaParcella::CostruisciGriglia()
{
    const auto Colonna = [this](const QString& Titolo, int Campo, int Caratteri) {
        ColonnaGriglia Nuova;
        Nuova.Titolo = Titolo;
        Nuova.Campo = Campo;
        Nuova.Caratteri = Caratteri;
        Nuova.Mostra = [this, Campo](const QVariant&, int Riga) {
            return Riga < Righe.Righe() ? Righe.Cella(Riga, Campo) : QString();
        };
        return Nuova;
    };
    QList<ColonnaGriglia> Colonne{
        Colonna(u"Nome parcella"_s, TrovaNome, 23),
        Colonna(u"Data"_s, TrovaData, 10),
        Colonna(u"Cliente"_s, TrovaCliente, 18),
        Colonna(u"Controparte"_s, TrovaControparte, 14),
        Colonna(u"Dimensione"_s, TrovaDimensione, 10),
        Colonna(u"Nella cartella"_s, TrovaCartella, 12),
        Colonna(u"Stato"_s, TrovaStato, 9),
    };
    Colonne[TrovaDimensione].Allinea = Qt::AlignRight;
    Colonne[TrovaCartella].Stira = true;
    Colonne[TrovaNome].Immagine = [this](int Riga) { return ImmagineDi(Riga); };
    ui->tdbParcelle->ImpostaColonne(Colonne);
    ui->tdbParcelle->Lega(Righe.Tabella());
    ui->tdbParcelle->Suggerimento = [this](int Riga) { return SuggerimentoDi(Riga); };
    ui->tdbParcelle->CercaLettere = [this](const QString& Lettere) {
        const int Da = ui->tdbParcelle->RigaCorrente().value_or(0) + (Lettere.size() == 1 ? 1 : 0);
        if (const auto Trovata = Righe.CercaIniziali(Lettere, Da))
            ui->tdbParcelle->ImpostaRigaCorrente(*Trovata);
    };
    QHeaderView* Testata = ui->tdbParcelle->Vista()->horizontalHeader();
    Testata->setSortIndicatorShown(true);
    Testata->setSortIndicator(TrovaNome, Qt::AscendingOrder);
}

void frmTrovaParcella::CollegaControlli()
{
    SuggerisciLeggibile(ui->txtDesPar);
    Collega(ui->cmdTrova, &QAbstractButton::clicked, this, [this] { cmdTrova_Click(); });
    Collega(ui->cmdSfoglia, &QAbstractButton::clicked, this, [this] { cmdSfoglia_Click(); });
    for (int i = Parcelle; i <= Libera; ++i)
        Collega(optFolder(i), &QAbstractButton::clicked, this, [this, i] { optFolder_Click(i); });
    Collega(ui->chkSubDir, &QAbstractButton::clicked, this, [this] { TrovaParc(Presente); });
    Collega(ui->txtDesPar, &QLineEdit::textChanged, this, [this] { txtDesPar_Change(); });
    Griglia* Lista = ui->tdbParcelle;
    Collega(Lista, &Griglia::DoppioClic, this, &frmTrovaParcella::tdbParcelle_DblClick);
    Collega(Lista, &Griglia::ClicTitolo, this, &frmTrovaParcella::tdbParcelle_HeadClick);
    Collega(Lista, &Griglia::Cancella, this, [this] { Cancella(); });
    Collega(Lista, &Griglia::RigaCambiata, this, [this] {
        Mosso = Mosso || !InMostra;
        AbilitaBarra();
    });
}

void frmTrovaParcella::CollegaTasti()
{
    ui->tdbParcelle->Vista()->installEventFilter(this);
    ui->txtDesPar->installEventFilter(this);
    ui->txtSearchPath->installEventFilter(this);
    const auto Tasto = [this](const QKeySequence& Sequenza, const std::function<void()>& Fai) {
        auto* Scorciatoia = new QShortcut(Sequenza, this);
        Collega(Scorciatoia, &QShortcut::activated, this, Fai);
    };
    Tasto(Qt::Key_F5, [this] { Avvia(Scopo::Rinfresca); });
    Tasto(QKeySequence::Find, [this] {
        ui->txtDesPar->setFocus(Qt::ShortcutFocusReason);
        ui->txtDesPar->selectAll();
    });
    Tasto(Qt::CTRL | Qt::Key_E, [this] { EsportaCsv(); });
    // Sorting by the keyboard asks nothing: nobody presses these by mistake.
    for (int Colonna = 0; Colonna < TrovaColonne; ++Colonna)
        Tasto(QKeySequence(Qt::CTRL | Qt::Key(Qt::Key_1 + Colonna)), [this, Colonna] { OrdinaPer(Colonna); });
}

QRadioButton* frmTrovaParcella::optFolder(int Indice) const
{
    return Indice == Parcelle ? ui->optFolder_0 : Indice == Modelli ? ui->optFolder_1 : ui->optFolder_2;
}

void frmTrovaParcella::ImpostaSelettore(int Indice)
{
    Selezionato = Indice;
    optFolder(Indice)->setChecked(true);
    // The two folders of the program have their place in the settings, not here.
    ui->txtSearchPath->setReadOnly(Indice != Libera);
    if (Indice == Parcelle)
        setWindowTitle(u"Apri da parcelle salvate"_s);
    else if (Indice == Modelli)
        setWindowTitle(u"Apri da modelli"_s);
}

void frmTrovaParcella::AbilitaBarra()
{
    const bool Nota = NotaCorrente();
    Seleziona->setVisible(Parent == Multipla);
    Apri->setVisible(Parent != Multipla);
    ui->barTrova->findChild<QAction*>(u"rename"_s)->setEnabled(Nota);
    ui->barTrova->findChild<QAction*>(u"delete"_s)->setEnabled(Nota);
    ui->barTrova->findChild<QAction*>(u"csv"_s)->setEnabled(!InRicerca() && Righe.Note() > 0);
}

QIcon frmTrovaParcella::ImmagineDi(int Riga) const
{
    static const QIcon Su = aspetto::Icona(u"up"_s);
    static const QIcon Cartella = aspetto::Icona(u"cartella"_s);
    static const QIcon Nota = aspetto::Icona(u"parcella"_s);
    static const QIcon Modello = aspetto::Icona(u"modello"_s);
    static const QIcon Aperta = aspetto::Icona(u"aperta"_s);
    if (Riga >= Righe.Righe())
        return {};
    const VoceTrova& Voce = Righe.Voce(Riga);
    if (Voce.Genere != GenereVoce::Nota)
        return Voce.Genere == GenereVoce::Torna ? Su : Cartella;
    if (Aperte.contains(Voce.Percorso))
        return Aperta;
    return Voce.Modello ? Modello : Nota;
}

QString frmTrovaParcella::SuggerimentoDi(int Riga) const
{
    if (Riga >= Righe.Righe())
        return {};
    const VoceTrova& Voce = Righe.Voce(Riga);
    if (Voce.Genere != GenereVoce::Nota)
        return Voce.Percorso;
    QStringList Frasi{Voce.Percorso};
    if (!Voce.Dati.Oggetto.isEmpty())
        Frasi += u"Oggetto: "_s + Voce.Dati.Oggetto;
    if (const StatoNota Stato = StatoMostrato(Voce); Stato != StatoNota::Ignoto) {
        const QString& Dal = Voce.Dati.Stato.Dal;
        Frasi += ParolaStato(Voce) + (Dal.isEmpty() ? QString() : u" dal "_s + Dal);
        if (const QString Altra = Righe.CopiaDi(Riga); !Altra.isEmpty())
            Frasi += u"È una copia: i suoi importi contano in "_s + Altra;
        if (const auto Aperto = ApertoDi(Voce); !Aperto)
            Frasi += u"Aperto: non noto, gli importi nel file non si leggono"_s;
        else if (*Aperto > 0)
            Frasi += u"Aperto: "_s + Format(*Aperto, ModelloImporto);
        Frasi += FrasiDocumenti(Voce);
    } else if (!Voce.Modello && !Voce.Illeggibile) {
        Frasi += u"È di una versione precedente: il suo stato non è noto"_s;
    }
    if (Voce.Modello)
        Frasi += u"È un modello (sola lettura)"_s;
    if (Voce.Illeggibile)
        Frasi += u"In uso da un altro programma"_s;
    if (Aperte.contains(Voce.Percorso))
        Frasi += u"È già aperta in una finestra"_s;
    Frasi += ui->tdbParcelle->toolTip();
    return Frasi.join(u'\n');
}

// ---- opening the form ---------------------------------------------------------------------------

QString frmTrovaParcella::OpenParcMod(int Quale, const QString& Cartella, int Destinazione,
                                      const QString& Chiamata)
{
    const bool PerAltra = Chiamata == Multipla;
    if (PerAltra && isVisible())
        hide();  // it comes back holding its caller back
    {
        const ClessidraAccesa Attesa;
        Parent = Chiamata;
        IndiceDestinazione = Destinazione;
        FileScelto.clear();
        Cercato.clear();
        ui->txtDesPar->clear();
        ui->cmbStato->setCurrentIndex(int(FiltroStato::Tutte));
        SoloDelCliente({}, {});
        VaiAllaRadice(Quale, Cartella);
        AbilitaBarra();
    }
    if (PerAltra) {
        EseguiDavanti(this);
        setModal(false);
        return FileScelto;
    }
    PortaDavanti(this);
    ui->txtDesPar->setFocus();
    return {};
}

void frmTrovaParcella::VaiAllaRadice(int Quale, const QString& Cartella)
{
    RicordaVeduta();
    ImpostaSelettore(Quale);
    const QString& Inizio = Quale == Parcelle  ? sessione::ParcellePath
                            : Quale == Modelli ? sessione::ModelliPath
                                               : Cartella;
    Radice = Barra(Inizio);
    Elenca(Radice);
}

void frmTrovaParcella::optFolder_Click(int Indice)
{
    VaiAllaRadice(Indice, ui->txtSearchPath->text());
    if (Indice == Libera)
        ui->txtSearchPath->setFocus();
}

void frmTrovaParcella::cmdSfoglia_Click()
{
    if (!Aperture.ScegliCartella)
        return;
    const QString Cartella = Aperture.ScegliCartella(u"Cerca le parcelle nella cartella"_s, Presente);
    if (!Cartella.isEmpty())
        VaiAllaRadice(Libera, Cartella);
}

void frmTrovaParcella::barTrova_ButtonMenuClick(const QString& Chiave)
{
    VaiAllaRadice(Chiave == u"openmod" ? Modelli : Parcelle, {});
}

void frmTrovaParcella::barTrova_ButtonClick(const QString& Chiave)
{
    if (Chiave == u"rename")
        Rename();
    else if (Chiave == u"delete")
        Cancella();
    else if (Chiave == u"csv")
        EsportaCsv();
    else if (const auto Riga = ui->tdbParcelle->RigaCorrente())
        tdbParcelle_DblClick(*Riga);
}

// ---- rows ---------------------------------------------------------------------------------------

void frmTrovaParcella::tdbParcelle_DblClick(int Riga)
{
    if (Riga < 0 || Riga >= Righe.Righe())
        return;
    const VoceTrova Voce = Righe.Voce(Riga);
    switch (Voce.Genere) {
    case GenereVoce::Torna:
        Sali();
        break;
    case GenereVoce::Cartella:
        RicordaVeduta();
        EntraIn(Voce.Percorso);
        break;
    case GenereVoce::Nota:
        Scegli(Voce.Percorso);
        break;
    }
}

void frmTrovaParcella::EntraIn(const QString& Cartella)
{
    ImpostaSelettore(Libera);
    Elenca(Cartella);
    ui->tdbParcelle->setFocus();
}

void frmTrovaParcella::Sali()
{
    const QString Sotto = Presente;
    const QString Sopra = CartellaSuperiore(Presente);
    if (Sopra.isEmpty())
        return;
    // Above the folder where the search began that one is its place no more.
    const bool Oltre = Presente == Radice;
    RicordaVeduta();
    if (Oltre)
        Radice = Sopra;
    EntraIn(Sopra);
    RigaAttesa = Sotto;
}

void frmTrovaParcella::Scegli(const QString& File)
{
    // It may have gone since it was listed; a window without it would help nobody.
    if (!EsisteFile(File)) {
        GestioneErrori(Errore(errori::FileMancante));
        Avvia(Scopo::Rinfresca);
        return;
    }
    if (Parent == Multipla) {
        FileScelto = File;
        accept();
        return;
    }
    hide();
    Invoca(Aperture.ApriParcella, File, 0, QString());
}

void frmTrovaParcella::tdbParcelle_HeadClick(int Colonna)
{
    const QString Titolo = ui->tdbParcelle->Vista()->model()->headerData(Colonna, Qt::Horizontal).toString();
    if (MsgBox(u"Desideri ordinare le parcelle per la colonna "_s + Titolo + u"?"_s, vbYesNo + vbQuestion,
               TitoloDomanda.toString()) == vbYes)
        OrdinaPer(Colonna);
    else
        SegnaOrdine();
}

void frmTrovaParcella::OrdinaPer(int Colonna)
{
    const bool Crescente = Righe.Colonna() != Colonna || !Righe.Crescente();
    if (InRicerca() && Motivo != Scopo::Rinfresca) {
        Righe.ScegliOrdine(Colonna, Crescente);  // once all of them are there
        SegnaOrdine();
        return;
    }
    const QString Corrente = PercorsoCorrente();
    Righe.Ordina(Colonna, Crescente);
    Rimostra(Corrente, 0);
}

void frmTrovaParcella::Cancella()
{
    const VoceTrova* Nota = NotaCorrente();
    if (!Nota)
        return;
    const VoceTrova Voce = *Nota;
    const int Riga = ui->tdbParcelle->RigaCorrente().value_or(0);
    try {
        CancellaNota(Voce.Percorso, [&] {
            NotaCancellata(Voce.Percorso);
            Righe.Togli(Voce.Percorso);
            --Conto.Archivi;
            Conto.Byte -= Voce.Byte;
            Rimostra({}, 0);
            ui->tdbParcelle->ImpostaRigaCorrente(std::min(Riga, std::max(0, Righe.Righe() - 1)));
            if (InRicerca())
                RifaiDopo = true;  // it may have been seen before it went
            else
                MostraEsito();
        });
    } catch (const Errore& Guasto) {
        GestioneErrori(Guasto);
        Avvia(Scopo::Rinfresca);  // what stands there may be another than was listed
    }
}

void frmTrovaParcella::Rename()
{
    const VoceTrova* Nota = NotaCorrente();
    if (!Nota)
        return;
    const QString File = Nota->Percorso;
    try {
        RinominaNota(File, [&](const QString& Nuovo) {
            NotaRinominata(File, Nuovo);
            Aperte = NoteAperte();
            RifaiDopo = RifaiDopo || InRicerca();  // which may have seen it by the name of before
            Righe.Rinomina(File, Nuovo);
            ui->tdbParcelle->Rilega();
        });
    } catch (const Errore& Guasto) {
        GestioneErrori(Guasto);
        Avvia(Scopo::Rinfresca);
    }
}

// ---- keys ---------------------------------------------------------------------------------------

bool frmTrovaParcella::TastoGriglia(const QKeyEvent& Evento)
{
    switch (Evento.key()) {
    case Qt::Key_Backspace:
        Sali();
        return true;
    case Qt::Key_F2:
        Rename();
        return true;
    default:
        return false;
    }
}

bool frmTrovaParcella::TastoTesto(const QKeyEvent& Evento)
{
    if (EInvio(Evento.key())) {
        cmdTrova_Click();
        return true;
    }
    if (Evento.key() == Qt::Key_Down) {
        ui->tdbParcelle->setFocus(Qt::TabFocusReason);
        return true;
    }
    return false;
}

bool frmTrovaParcella::eventFilter(QObject* Oggetto, QEvent* Evento)
{
    if (Evento->type() != QEvent::KeyPress)
        return QDialog::eventFilter(Oggetto, Evento);
    const auto& Tasto = *static_cast<QKeyEvent*>(Evento);
    if (Oggetto == ui->txtDesPar)
        return TastoTesto(Tasto);
    if (Oggetto == ui->tdbParcelle->Vista())
        return TastoGriglia(Tasto);
    if (Oggetto == ui->txtSearchPath && EInvio(Tasto.key())) {
        if (Selezionato == Libera)
            VaiAllaRadice(Libera, ui->txtSearchPath->text().trimmed());
        return true;
    }
    return false;
}

void frmTrovaParcella::keyPressEvent(QKeyEvent* Evento)
{
    const bool Ferma =
        Evento->key() == Qt::Key_Escape || Evento->key() == Qt::Key_Pause || Evento->key() == Qt::Key_Cancel;
    if (Ferma && InRicerca()) {
        Interrompi();
        Evento->accept();
        return;
    }
    QDialog::keyPressEvent(Evento);
}

/// Closed: the order of names comes back. A note that is opened only hides the form.
void frmTrovaParcella::reject()
{
    Righe.Ordina(TrovaNome, true);
    QDialog::reject();
}

/// A word typed at once finds the note.
void frmTrovaParcella::showEvent(QShowEvent* Evento)
{
    QDialog::showEvent(Evento);
    if (!Evento->spontaneous())
        ui->txtDesPar->setFocus();
}

void frmTrovaParcella::hideEvent(QHideEvent* Evento)
{
    if (!Evento->spontaneous()) {
        SmettiRicerca();
        // No message where the widths cannot be stored: the next showing uses the former ones.
        if (ui->tdbParcelle->ColonneMosse())
            Protetta([this] { SalvaImpostazione(ChiaveLarghezze, ui->tdbParcelle->Larghezze()); },
                     errori::Accesso);
    }
    QDialog::hideEvent(Evento);
}

#include "moc_frmTrovaParcella.cpp"
