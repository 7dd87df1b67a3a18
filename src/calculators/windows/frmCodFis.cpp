#include "calculators/windows/frmCodFis.h"

#include "calculators/modCodFis.h"
#include "calculators/modSchede.h"
#include "calculators/windows/comandicalcolo.h"
#include "calculators/windows/finestracalcolo.h"
#include "core/modControlli.h"
#include "core/modErrori.h"
#include "platform/kit/annuncio.h"
#include "platform/kit/aspetto.h"
#include "platform/kit/campo.h"
#include "platform/kit/collega.h"
#include "platform/system/orologio.h"

#include "calculators/windows/ui_frmCodFis.h"
#include "platform/base/errore.h"

#include <QAbstractItemView>
#include <QCompleter>
#include <QKeyEvent>
#include <QStringListModel>

using namespace Qt::StringLiterals;

namespace {

constexpr int VociElenco = 12;

/// The text of a box in dark red or in the palette's own colour.
void Tingi(QLineEdit* Casella, bool Sbagliato)
{
    QPalette Colori;
    if (Sbagliato)
        Colori.setColor(QPalette::Text, aspetto::Sbagliato());
    Casella->setPalette(Colori);
}

/// A code is read letter by letter.
QFont Spaziato(QFont Carattere)
{
    Carattere.setLetterSpacing(QFont::AbsoluteSpacing, 1);
    return Carattere;
}

}  // namespace

frmCodFis::frmCodFis() : ui(std::make_unique<Ui::frmCodFis>())
{
    ui->setupUi(this);
    ui->cmdCopia->setIcon(aspetto::Icona(u"copia"_s));
    ui->cmdElabora->setIcon(aspetto::Icona(u"codfis"_s));
    PreparaCifra(ui->txtCodiceFiscale);
    SfondoPannello(ui->fraRisultato);
    ui->txtCodiceFiscale->setFont(Spaziato(ui->txtCodiceFiscale->font()));
    ui->txtLetto->setFont(Spaziato(ui->txtLetto->font()));
    ui->cmdCopiaLettura->setIcon(aspetto::Icona(u"copia"_s));
    constexpr int RigheLette = 3;
    ui->lblLettura->setMinimumHeight(RigheLette * fontMetrics().lineSpacing());
    ui->lblNoteLettura->setMinimumHeight(fontMetrics().lineSpacing());
    SfondoPannello(ui->fraLettura);
    Comandi = new ComandiCalcolo(this, ParteComandi());
    ImpostaMenu(this, QList<VoceMenu>{{u"mnuNew"_s, u"Nuovo calcolo"_s, QKeySequence::New,
                                       [this] { mnuNew_Click(); }}} +
                          Comandi->Voci());
    PreparaModulo(this, u"codfis"_s);
    CreaElenco();
    Load();
    Collegamenti();
    txtLetto_Change();
}

frmCodFis::~frmCodFis() = default;

void frmCodFis::CreaElenco()
{
    NomiElenco = new QStringListModel(this);
    Elenco = new QCompleter(NomiElenco, this);
    // The names come already chosen: the field itself completes by a rule of its own.
    Elenco->setCompletionMode(QCompleter::UnfilteredPopupCompletion);
    Elenco->setMaxVisibleItems(VociElenco);
    Elenco->setWidget(ui->txtComune);
    Elenco->popup()->setObjectName(u"lstComuni"_s);
    Elenco->popup()->setAccessibleName(u"Comuni che iniziano così"_s);
    Elenco->popup()->installEventFilter(this);
    ui->txtComune->installEventFilter(this);
    Collega(Elenco->popup()->selectionModel(), &QItemSelectionModel::selectionChanged, this, [this] {
        const QModelIndexList Righe = Elenco->popup()->selectionModel()->selectedIndexes();
        if (Elenco->popup()->isVisible())
            Segnato = Righe.isEmpty() ? QString() : Righe.first().data().toString();
    });
}

void frmCodFis::Load()
{
    ui->cboSesso->addItems({u"M"_s, u"F"_s});
    ui->cboSesso->setCurrentIndex(0);
    try {
        Comuni.emplace(PercorsoComuni());
        // The names are read now, so that the first key does not wait for them.
        (void)Comuni->Proponi(u"A"_s, 1);
    } catch (...) {
        FasMsg(ErroreCorrente());
    }
}

void frmCodFis::Collegamenti()
{
    for (QLineEdit* Casella :
         std::initializer_list<QLineEdit*>{ui->txtCognome, ui->txtNome, ui->txtDataNascita, ui->txtComune})
        Collega(Casella, &QLineEdit::textChanged, this, &frmCodFis::Cambiato);
    Collega(ui->cboSesso, &QComboBox::currentIndexChanged, this, &frmCodFis::Cambiato);

    AlLasciaSempre(ui->txtDataNascita, [this] {
        ui->txtDataNascita->CompletaAnno();
        DataSbagliata = !ui->txtDataNascita->Data();
        Colora();
        return true;
    });
    AlLasciaSempre(ui->txtComune, [this] {
        txtComune_Lasciato();
        return true;
    });
    Collega(ui->txtComune, &QLineEdit::textEdited, this, &frmCodFis::txtComune_Change);
    Collega(ui->txtComune, &QLineEdit::returnPressed, this, &frmCodFis::txtComune_Invio);
    Collega(Elenco, qOverload<const QString&>(&QCompleter::activated), this, [this](const QString& Nome) {
        // Enter with nothing marked hands over the first row, which nobody has chosen.
        if (Elenco->popup()->selectionModel()->hasSelection())
            txtComune_Scelto(Nome);
    });
    Collega(ui->cmdElabora, &QPushButton::clicked, this, &frmCodFis::cmdElabora_Click);

    // The last field has an Enter of its own: its list may be open.
    CatenaInvio({ui->txtCognome, ui->txtNome, ui->txtDataNascita, ui->cboSesso},
                [this] { ui->txtComune->setFocus(Qt::TabFocusReason); });
    CopiaConClic(ui->cmdCopia, [this] { return ui->txtCodiceFiscale->text(); });
    CopiaConTasto(this, ui->cmdCopia, [this] { return TestoCopia(); });
    for (QWidget* Casella : std::initializer_list<QWidget*>{ui->txtCognome, ui->txtNome, ui->txtDataNascita,
                                                            ui->cboSesso, ui->txtCodiceFiscale, ui->txtLetto})
        Casella->installEventFilter(this);
    CopiaConClic(
        ui->cmdCopiaLettura, [this] { return RigheLettura(Lettura, ComuneLetto()).join(u'\n'); },
        [this] { return RigheScheda(SchedaLettura(Lettura, ComuneLetto(), {})); });
    Collega(ui->txtLetto, &QLineEdit::textChanged, this, [this] { txtLetto_Change(); });
    AlLasciaSempre(ui->txtLetto, [this] {
        MostraLettura();
        if (Lettura.Letto())
            Comandi->Ricorda();
        return true;
    });
    ScriviCodice({});
}

void frmCodFis::Mostra()
{
    if (MostraModulo(this))
        ui->txtCognome->setFocus();
}

void frmCodFis::changeEvent(QEvent* Evento)
{
    QDialog::changeEvent(Evento);
    if (Evento->type() == QEvent::PaletteChange && Comandi)
        Colora();
}

bool frmCodFis::eventFilter(QObject* Oggetto, QEvent* Evento)
{
    // The first filter of the list: Esc refuses what is marked in it.
    if (Oggetto == Elenco->popup() && Evento->type() == QEvent::KeyPress &&
        static_cast<QKeyEvent*>(Evento)->key() == Qt::Key_Escape)
        Segnato.clear();
    if (Evento->type() == QEvent::FocusIn && Oggetto != Elenco->popup()) {
        NelLetto = Oggetto == ui->txtLetto;
        Comandi->Aggiorna();
    }
    if (Oggetto == ui->txtLetto && Evento->type() == QEvent::KeyPress &&
        EInvio(static_cast<QKeyEvent*>(Evento)->key())) {
        txtLetto_Invio();
        return true;  // the dialog would press the button of the other half
    }
    if (Oggetto == ui->txtComune && Evento->type() == QEvent::FocusIn && ElencoAtteso)
        QMetaObject::invokeMethod(this, &frmCodFis::ProponiComuni, Qt::QueuedConnection);
    return QDialog::eventFilter(Oggetto, Evento);
}

/// A code on view is of the person in the boxes, or there is none.
void frmCodFis::Cambiato()
{
    ui->cmdElabora->setEnabled(true);
    ScriviCodice({});
}

void frmCodFis::ScriviCodice(const QString& Codice)
{
    ui->txtCodiceFiscale->setText(Codice);
    ui->cmdCopia->setEnabled(!Codice.isEmpty());
    Comandi->Aggiorna();
    if (!Codice.isEmpty())
        AnnunciaRisultato(ui->txtCodiceFiscale);
}

void frmCodFis::cmdElabora_Click()
{
    if (!ConcludiCampo() || !ui->cmdElabora->isEnabled())
        return;
    const auto Nascita = ui->txtDataNascita->Data();
    if (!Nascita) {
        MsgErrore(u"La data di nascita non e' valida."_s);
        RidaiFuoco(ui->txtDataNascita);
        return;
    }
    ScriviCodice(CalcoloCodFis(ui->txtCognome->text(), ui->txtNome->text(), *Nascita,
                               ui->cboSesso->currentText(), Campo.CodComune.trimmed()));
    NelLetto = false;
    Comandi->Ricorda(true);
    LasciaSelezione();
}

void frmCodFis::mnuNew_Click()
{
    for (QLineEdit* Casella : {ui->txtCognome, ui->txtNome, ui->txtComune, ui->txtLetto})
        Casella->clear();
    ui->txtDataNascita->ImpostaTesto({});
    ui->cboSesso->setCurrentIndex(0);
    Campo = {};
    DataSbagliata = false;
    MostraComune();
    ScriviCodice({});
    ui->txtCognome->setFocus();
}

// ---- municipality -------------------------------------------------------------------------------

void frmCodFis::txtComune_Change(const QString& Testo)
{
    if (!Comuni)
        return;
    Segnato.clear();
    Campo.Testo = Testo;
    CercaComune(*Comuni, Campo);
    MostraComune();
    if (Campo.RidaiFuoco)
        ui->txtComune->setFocus(Qt::OtherFocusReason);
    ProponiComuni();
}

/// Text, selection and colour as the lookup left them; beside them the province found.
void frmCodFis::MostraComune()
{
    if (Campo.Selezione >= 0) {
        ui->txtComune->setText(Campo.Testo);
        ui->txtComune->setSelection(Campo.Selezione, int(Campo.Testo.size()) - Campo.Selezione);
    }
    const bool Noto = !Campo.CodComune.isEmpty() && Campo.CodComune != u"?";
    ui->lblProvincia->setText(Noto ? u"%1  %2"_s.arg(Campo.Provincia, Campo.CodComune) : QString());
    Colora();
}

void frmCodFis::Colora()
{
    Tingi(ui->txtComune, Campo.Rosso);
    Tingi(ui->txtDataNascita, DataSbagliata);
    MostraLettura();
}

/// The list for what has been typed. Behind a message the window gets the focus back later, and a list that
/// comes before would go at once.
void frmCodFis::ProponiComuni()
{
    ElencoAtteso = !ui->txtComune->hasFocus() || !isActiveWindow();
    if (ElencoAtteso || !Comuni)
        return;
    const QStringList Nomi = Comuni->Proponi(Campo.Tag, VociElenco);
    const bool Completo = Nomi.size() == 1 && Nomi.first() == ui->txtComune->text();
    if (Nomi.isEmpty() || Completo)
        Elenco->popup()->hide();
    else
        MostraElenco(Nomi);
}

void frmCodFis::MostraElenco(const QStringList& Nomi)
{
    NomiElenco->setStringList(Nomi);
    Elenco->complete();
    // The list makes its first row current, which looks marked although nobody has marked it.
    Elenco->popup()->selectionModel()->clear();
}

/// A name taken from the list: its row, as if it had been typed whole.
void frmCodFis::txtComune_Scelto(const QString& Nome)
{
    Segnato.clear();
    const auto Trovato = Comuni->Trova(Nome);
    if (!Trovato)
        return;
    Campo = {Trovato->Nome, Trovato->Nome, -1, false, false, Trovato->Codice, Trovato->Provincia};
    ui->txtComune->setText(Campo.Testo);
    MostraComune();
}

/// However the field is left, a row that is marked counts.
void frmCodFis::txtComune_Lasciato()
{
    ElencoAtteso = false;
    if (const QString Nome = Segnato; !Nome.isEmpty())
        txtComune_Scelto(Nome);
    Elenco->popup()->hide();
}

/// Enter takes what is marked in the list, else it calculates.
void frmCodFis::txtComune_Invio()
{
    QAbstractItemView* Lista = Elenco->popup();
    if (Lista->isVisible() && Lista->selectionModel()->hasSelection())
        return;
    Lista->hide();
    cmdElabora_Click();
}

// ---- a code that is read --------------------------------------------------------------------------

void frmCodFis::txtLetto_Invio()
{
    ui->txtLetto->selectAll();
    MostraLettura();
    if (Lettura.Letto())
        Comandi->Ricorda(true);
}

void frmCodFis::txtLetto_Change()
{
    const bool Prima = Lettura.Letto();
    Lettura = LeggiCodFis(ui->txtLetto->text(), Oggi());
    MostraLettura();
    Comandi->Aggiorna();
    FaiPosto(this);
    if (Lettura.Letto() && !Prima)
        AnnunciaRisultato(ui->lblLettura);
}

/// What the code says, in the room of three lines; a code that is still being typed is not blamed for being
/// short.
void frmCodFis::MostraLettura()
{
    const int Mancano = LettereCodFis - int(Lettura.Codice.size());
    const bool InCorso = ui->txtLetto->hasFocus() && Mancano > 0 && CodFisInCorso(Lettura.Codice);
    QStringList Righe = RigheLettura(Lettura, ComuneLetto());
    if (Lettura.Codice.isEmpty())
        Righe << u"Scrivere o incollare un codice: qui si leggono nascita, sesso e comune."_s;
    else if (InCorso)
        Righe << (Mancano == 1 ? u"Manca un carattere."_s : u"Mancano %1 caratteri."_s.arg(Mancano));
    QStringList Note = NoteLettura(Lettura);
    if (!InCorso && !Lettura.Difetto.isEmpty())
        Note << Lettura.Difetto;
    const bool Sbagliato = !Note.isEmpty() && !Lettura.Torna;
    ui->lblLettura->setText(Righe.join(u'\n'));
    ui->lblNoteLettura->setText(Note.join(u'\n'));
    QPalette Colori;
    if (Sbagliato)
        Colori.setColor(ui->lblNoteLettura->foregroundRole(), aspetto::Sbagliato());
    ui->lblNoteLettura->setPalette(Colori);
    Tingi(ui->txtLetto, Sbagliato);
    ui->txtLetto->setAccessibleDescription((Righe + Note).join(u' '));
    ui->lblLettura->setAccessibleName((Righe + Note).join(u' '));
    ui->cmdCopiaLettura->setEnabled(Lettura.Letto());
}

/// The town of the code that is typed; empty for one that is in no row.
QString frmCodFis::ComuneLetto() const
{
    return Comuni && Lettura.Letto() ? FraseComuni(Comuni->DelCodice(Lettura.CodiceComune)) : QString();
}

/// Of the two halves of the window the code that is read counts: the focus is or was there, or there is no
/// other.
bool frmCodFis::ValeLettura() const
{
    return Lettura.Letto() && (NelLetto || ui->txtCodiceFiscale->text().isEmpty());
}

/// What Ctrl+C takes: what a code says where the focus is in it or no other one is on view.
QString frmCodFis::TestoCopia() const
{
    const bool DelLetto = ui->txtLetto->hasFocus() && Lettura.Letto();
    return DelLetto ? RigheLettura(Lettura, ComuneLetto()).join(u'\n') : ui->txtCodiceFiscale->text();
}

// ---- sheet and list -------------------------------------------------------------------------------

ParteDelCalcolo frmCodFis::ParteComandi()
{
    ParteDelCalcolo Parte;
    Parte.Quale = Calcolatrice::CodiceFiscale;
    Parte.Campi = CampiRicordati();
    Parte.Nome = [this] {
        const QString Persona = (ui->txtCognome->text() + u' ' + ui->txtNome->text()).simplified();
        return ValeLettura()       ? u"Lettura di "_s + Lettura.Codice
               : Persona.isEmpty() ? ui->txtCodiceFiscale->text()
                                   : Persona;
    };
    Parte.Esito = [this] {
        if (!ValeLettura())
            return ui->txtCodiceFiscale->text();
        QStringList Detto{FraseNascita(Lettura), FraseSesso(Lettura), ComuneLetto()};
        if (!Lettura.Torna)
            Detto << u"ultima lettera errata"_s;
        Detto.removeAll(QString());
        return Detto.join(u", "_s);
    };
    Parte.Scheda = [this] { return Scheda(); };
    Parte.Suffisso = u": codice fiscale"_s;
    Parte.Prepara = [this] { mnuNew_Click(); };
    Parte.Calcola = [this] {
        if (!ValeLettura()) {
            cmdElabora_Click();
            return;
        }
        ui->txtLetto->setFocus();
        NelLetto = true;
        Comandi->Ricorda(true);
    };
    return Parte;
}

/// The person's boxes belong to a code that is computed, the other one to a code that is read: they are two
/// calculations.
QList<CampoRicordato> frmCodFis::CampiRicordati()
{
    QList<CampoRicordato> Campi;
    for (QWidget* Casella : std::initializer_list<QWidget*>{ui->txtCognome, ui->txtNome, ui->txtDataNascita,
                                                            ui->cboSesso, ui->txtComune})
        Campi << CampoDi(Casella);
    // The codes that the lookup has found, or not found.
    const auto Codice = [this](const QString& Nome, QString CampoComune::*Quale) {
        return CampoRicordato{Nome, [this, Quale] { return Campo.*Quale; },
                              [this, Quale](const QString& Valore) {
                                  Campo.Testo = Campo.Tag = ui->txtComune->text();
                                  Campo.*Quale = Valore;
                                  MostraComune();
                                  return true;
                              }};
    };
    Campi << Codice(u"codComune"_s, &CampoComune::CodComune)
          << Codice(u"provincia"_s, &CampoComune::Provincia);
    for (CampoRicordato& DellaPersona : Campi)
        DellaPersona.Leggi = [this, Leggi = DellaPersona.Leggi] {
            return ValeLettura() ? QString() : Leggi();
        };
    CampoRicordato Letto = CampoDi(ui->txtLetto);
    Letto.Leggi = [this] { return ValeLettura() ? Lettura.Codice : QString(); };
    return Campi << Letto;
}

SchedaCalcolo frmCodFis::Scheda() const
{
    if (ValeLettura() || ui->txtCodiceFiscale->text().isEmpty())
        return SchedaLettura(Lettura, ComuneLetto(), EtaComuni());
    return SchedaCodFis({ui->txtCognome->text(), ui->txtNome->text(), ui->txtDataNascita->Testo(),
                         ui->cboSesso->currentText(),
                         (ui->txtComune->text() + u"  "_s + ui->lblProvincia->text()).trimmed(),
                         ui->txtCodiceFiscale->text()},
                        ui->lblAvvertenza->text(), EtaComuni());
}

QStringList frmCodFis::EtaComuni() const
{
    const QString Al = Comuni ? Comuni->Al() : QString();
    return Al.isEmpty() ? QStringList() : QStringList{u"Elenco dei comuni e degli stati esteri al "_s + Al};
}

#include "moc_frmCodFis.cpp"
