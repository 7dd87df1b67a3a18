// The card: its controls, keys and boxes.
#include "addressbook/windows/frmScheda.h"

#include "addressbook/modScheda.h"
#include "core/modErrori.h"
#include "platform/base/errore.h"
#include "platform/kit/aspetto.h"
#include "platform/kit/barra.h"
#include "platform/kit/campo.h"
#include "platform/kit/collega.h"
#include "platform/kit/trattieni.h"

#include "addressbook/windows/ui_frmScheda.h"

#include <QAction>
#include <QLabel>
#include <QLineEdit>
#include <QPalette>
#include <QPlainTextEdit>
#include <QScopedValueRollback>
#include <QScreen>
#include <QShortcut>
#include <QStyle>
#include <QToolButton>

#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

namespace {

const QString NomePosto = u"frmScheda"_s;

/// Height of a label with its box, and of what stands around them.
constexpr int TwipCoppia = 360;
constexpr int TwipIntorno = 800;
constexpr int RigheMemo = 3;

/// A button of the toolbar.
struct TastoScheda
{
    QStringView Chiave;
    QStringView Icona;
    QStringView Scritta;
    QStringView Suggerimento;
};

constexpr std::array TastiScheda{
    TastoScheda{u"do", u"save", u"Salva", u"Salva la scheda (F10)"},
    TastoScheda{u"undo", u"annulla", u"Annulla", u"Annulla le modifiche e chiude"},
    TastoScheda{u"print", u"print", u"Stampa", u"Stampa la scheda"},
    TastoScheda{u"off", u"exit", u"Chiudi", u"Chiude la scheda; le modifiche restano in sospeso"},
};

/// What cannot be typed into has the colour of the window around it.
void MostraBloccato(QWidget* Box)
{
    QPalette Colori = Box->palette();
    Colori.setColor(QPalette::Base, Colori.color(QPalette::Window));
    Box->setPalette(Colori);
}

}  // namespace

// ---- one box ------------------------------------------------------------------------------------

QWidget* frmScheda::Coppia::Box() const
{
    return Riga ? static_cast<QWidget*>(Riga) : Memo;
}

QString frmScheda::Coppia::Testo() const
{
    return Riga ? Riga->text() : Memo->toPlainText();
}

void frmScheda::Coppia::Mostra(const QString& Testo) const
{
    if (!Riga) {
        Memo->setPlainText(Testo);
        Memo->document()->setModified(false);
        return;
    }
    // A longer text than the field takes, written by another program, is not cut.
    if (Colonna.Type == TipoCampo::Testo && Colonna.Size > 0)
        Riga->setMaxLength(std::max(Colonna.Size, int(Testo.size())));
    Riga->setText(Testo);
    Riga->setCursorPosition(0);
    Riga->setModified(false);
}

// ---- controls -----------------------------------------------------------------------------------

frmScheda::frmScheda(QWidget* Parent) : QDialog(Parent), ui(std::make_unique<Ui::frmScheda>())
{
    ui->setupUi(this);
    setWindowModality(Qt::WindowModal);
    TrattieniDietroIBox(this);
    setWindowIcon(aspetto::Icona(u"clienti"_s));
    CostruisciBarra();
    CollegaTasti();
    aspetto::RicordaPostoDi(this, NomePosto);
}

frmScheda::~frmScheda() = default;

void frmScheda::Consegna(const Recordset& Condivise, const QList<ColonnaGriglia>& DellaGriglia)
{
    Righe = Condivise;
    Colonne = DellaGriglia;
}

void frmScheda::CostruisciBarra()
{
    for (const TastoScheda& Descritto : TastiScheda) {
        const QString Chiave = Descritto.Chiave.toString();
        QAction* Azione = AggiungiTasto(ui->barScheda, Chiave, Descritto.Suggerimento.toString(),
                                        Descritto.Scritta.toString());
        Azione->setIcon(aspetto::Icona(Descritto.Icona.toString()));
        Collega(Azione, &QAction::triggered, this, [this, Chiave] { barScheda_ButtonClick(Chiave); });
    }
    ui->barScheda->findChild<QAction*>(u"print"_s)->setEnabled(false);
}

void frmScheda::CollegaTasti()
{
    const auto Tasto = [this](const QKeySequence& Sequenza, const std::function<void()>& Fai) {
        Collega(new QShortcut(Sequenza, this), &QShortcut::activated, this, Fai);
    };
    const auto Concludi = [this] {
        if (InScrittura())
            barScheda_ButtonClick(u"do"_s);
    };
    Tasto(Qt::Key_F10, Concludi);
    Tasto(QKeySequence::Save, Concludi);
    Tasto(Qt::CTRL | Qt::Key_Return, Concludi);
    Tasto(Qt::CTRL | Qt::Key_Enter, Concludi);
}

/// The neighbouring rows, where only to look at: while writing the keys page through a memo.
void frmScheda::CollegaVicine()
{
    for (const auto& [Tasto, Dopo] : {std::pair(Qt::Key_PageDown, true), std::pair(Qt::Key_PageUp, false)})
        Collega(new QShortcut(Tasto, this), &QShortcut::activated, this,
                [this, Dopo = Dopo] { Vicina(Dopo); });
}

bool frmScheda::Carica()
{
    if (!Protetta([this] {
            Comincia();
            CreaCoppie();
            Riempi();
        })) {
        Annulla();
        return false;
    }
    for (const QStringView Chiave : {u"do", u"undo"})
        ui->barScheda->findChild<QAction*>(Chiave.toString())->setVisible(InScrittura());
    if (!InScrittura()) {
        ui->barScheda->findChild<QAction*>(u"off"_s)->setToolTip(u"Chiude la scheda (Esc)"_s);
        CollegaVicine();
    }
    aspetto::AssegnaMnemonici(this);
    aspetto::AssegnaNomiAccessibili(this);
    OrdinaFuoco();
    Dimensiona();
    show();
    return true;
}

/// A new row, the edit of the current one, or a look at it.
void frmScheda::Comincia()
{
    if (Modo == u"new")
        Righe.AddNew();
    else if (Modo == u"edit")
        Righe.Edit();
    else
        Righe.ImpostaBookmark(Righe.Bookmark());  // reads the row anew
}

void frmScheda::CreaCoppie()
{
    const QList<Campo> Campi = Righe.Campi();
    for (const ColonnaGriglia& Colonna : std::as_const(Colonne)) {
        if (!Colonna.Visibile)
            continue;
        const Campo* Descritto = TrovaCampo(Campi, Colonna.NomeCampo);
        if (!Descritto)
            throw Errore(errori::ElementoMancante,
                         DescrizioneErrore(errori::ElementoMancante) + u": "_s + Colonna.NomeCampo);
        CreaCoppia(*Descritto, Colonna.Titolo);
    }
    ui->coppie->setRowStretch(int(Coppie.size()), 1);
    ui->coppie->setColumnStretch(1, 1);
}

void frmScheda::CreaCoppia(const Campo& Colonna, const QString& Titolo)
{
    const int Numero = int(Coppie.size());
    Coppia Nuova;
    Nuova.Colonna = Colonna;
    Nuova.Bloccata = !InScrittura() || Colonna.Contatore;
    if (Colonna.Type == TipoCampo::Memo)
        Nuova.Memo = CreaMemo();
    else
        Nuova.Riga = CreaRiga(Colonna);
    QWidget* Box = Nuova.Box();
    Box->setObjectName(u"txtFieldData_%1"_s.arg(Numero));
    Box->setProperty("Tag", Colonna.Name);
    Box->installEventFilter(this);

    QString Scritta = Titolo;
    auto* Etichetta = new QLabel(Scritta.replace(u'&', u"&&"_s) + u':');
    Etichetta->setObjectName(u"lblFieldName_%1"_s.arg(Numero));
    Etichetta->setBuddy(Box);
    ui->coppie->addWidget(Etichetta, Numero, 0,
                          Qt::AlignRight | (Nuova.Memo ? Qt::AlignTop : Qt::AlignVCenter));
    ui->coppie->addWidget(Box, Numero, 1);
    if (Nuova.Riga) {
        Nuova.Riga->setReadOnly(Nuova.Bloccata);
        Nuova.Segno = Nuova.Riga->addAction(aspetto::Icona(u"info"_s), QLineEdit::TrailingPosition);
        Nuova.Segno->setVisible(false);
        for (QToolButton* Bottone : Nuova.Riga->findChildren<QToolButton*>())
            Bottone->setAccessibleName(u"Avviso"_s);
        Collega(Nuova.Riga, &QLineEdit::textEdited, this, [this, Numero] {
            RitiraAvviso(Numero);
            Cambiata(Numero + 1);
        });
    } else {
        Nuova.Memo->setReadOnly(Nuova.Bloccata);
        Collega(Nuova.Memo, &QPlainTextEdit::textChanged, this, [this, Numero] {
            if (!InRiempimento)
                Cambiata(Numero + 1);
        });
    }
    if (Nuova.Bloccata)
        MostraBloccato(Box);
    if (!Nuova.Bloccata)
        AlLasciaSempre(Box, [this] {
            const bool Scritto = ScriviPendente();
            MostraAvvisi();
            return Scritto;
        });
    else if (InScrittura())
        Box->setFocusPolicy(Qt::ClickFocus);  // a counter has nothing to be typed
    Coppie.push_back(std::move(Nuova));
}

QLineEdit* frmScheda::CreaRiga(const Campo& Colonna)
{
    auto* Nuova = new QLineEdit;
    const int Larghezza = aspetto::Pixel(GetFieldWidth(int(Colonna.Type)));
    Nuova->setMinimumWidth(Larghezza);
    if (Colonna.Type != TipoCampo::Testo)
        Nuova->setMaximumWidth(Larghezza);
    return Nuova;
}

QPlainTextEdit* frmScheda::CreaMemo()
{
    auto* Nuovo = new QPlainTextEdit;
    Nuovo->setTabChangesFocus(true);
    Nuovo->setMinimumWidth(aspetto::Pixel(GetFieldWidth(int(TipoCampo::Memo))));
    const int Bordi = 2 * (Nuovo->frameWidth() + int(Nuovo->document()->documentMargin()) + 1);
    Nuovo->setMinimumHeight(RigheMemo * Nuovo->fontMetrics().lineSpacing() + Bordi);
    Nuovo->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    return Nuovo;
}

/// Downwards through the boxes, then the toolbar.
void frmScheda::OrdinaFuoco()
{
    QWidget* Prima = nullptr;
    for (const Coppia& Di : Coppie) {
        if (Prima)
            QWidget::setTabOrder(Prima, Di.Box());
        Prima = Di.Box();
    }
    for (const TastoScheda& Descritto : TastiScheda) {
        auto* Bottone = ui->barScheda->findChild<QToolButton*>(u"barScheda_"_s + Descritto.Chiave.toString());
        if (Prima)
            QWidget::setTabOrder(Prima, Bottone);
        Prima = Bottone;
    }
    const auto Primo = std::ranges::find_if(
        Coppie, [](const Coppia& Di) { return Di.Box()->focusPolicy() != Qt::ClickFocus; });
    if (Primo != Coppie.end())
        Primo->Box()->setFocus(Qt::OtherFocusReason);
}

void frmScheda::FuocoSul(const QString& Campo)
{
    const auto Voce = std::ranges::find_if(
        Coppie, [&](const Coppia& Di) { return Di.Colonna.Name.compare(Campo, Qt::CaseInsensitive) == 0; });
    if (Voce == Coppie.end())
        return;
    ui->areaScheda->ensureWidgetVisible(Voce->Box());
    RidaiFuoco(Voce->Box());
}

/// The first size: as high as its columns, more where memo boxes or a large font ask for it; the screen's
/// bounds are seen to when it comes up.
void frmScheda::Dimensiona()
{
    const int Passo = aspetto::Pixel(TwipCoppia);
    for (int i = 0; i < int(Coppie.size()); ++i)
        ui->coppie->setRowMinimumHeight(i, Passo);
    ui->areaScheda->setMinimumHeight(Passo);
    ui->lblAvviso->setFixedHeight(ui->lblAvviso->fontMetrics().height() + 4);
    const QSize Pagina = ui->pagina->layout()->minimumSize();
    const int Intorno = ui->barScheda->sizeHint().height() + ui->lblAvviso->height();
    const int Alta =
        std::max(aspetto::Pixel(int(Colonne.size()) * TwipCoppia + TwipIntorno), Pagina.height() + Intorno);
    // Where the screen is too low for it, the boxes keep their width beside the bar that scrolls them.
    constexpr int CorniceComune = 40;
    const bool Scorre = Alta + CorniceComune > screen()->availableGeometry().height();
    const int Barra = Scorre ? style()->pixelMetric(QStyle::PM_ScrollBarExtent) : 0;
    resize(std::max(Pagina.width() + Barra, ui->barScheda->sizeHint().width()), Alta);
}

// ---- what the boxes show ------------------------------------------------------------------------

void frmScheda::Riempi()
{
    for (const Coppia& Di : Coppie)
        RiempiCoppia(Di);
    Indice = 0;
    MostraAvvisi();
    Titola();
}

void frmScheda::RiempiCoppia(const Coppia& Di)
{
    const QScopedValueRollback Guardia(InRiempimento, true);
    Di.Mostra(TestoScheda(Righe.Value(Di.Colonna.Name)));
}

/// The line at the foot speaks of the box that has the focus, else of the first that there is something to
/// say of; each box says its own in its tool tip.
void frmScheda::MostraAvvisi()
{
    QString Primo;
    for (const Coppia& Di : Coppie) {
        const QString Avviso = AvvisoScheda(Di.Colonna.Name, Di.Testo());
        Di.Box()->setToolTip(Avviso);
        if (Di.Segno)
            Di.Segno->setVisible(!Avviso.isEmpty());
        if (!Avviso.isEmpty() && (Primo.isEmpty() || Di.Box()->hasFocus()))
            Primo = Avviso;
    }
    ui->lblAvviso->setText(Primo);
    ui->lblAvviso->setAccessibleName(Primo);
}

/// What has been put right is not told any longer; what is still being written is not judged before its end.
void frmScheda::RitiraAvviso(int Numero)
{
    const Coppia& Di = Coppie[size_t(Numero)];
    if (!Di.Box()->toolTip().isEmpty() && AvvisoScheda(Di.Colonna.Name, Di.Testo()).isEmpty())
        MostraAvvisi();
}

void frmScheda::Titola()
{
    QString Nome;
    if (Modo != u"new" && TrovaCampo(Righe.Campi(), u"Nominativo"_s))
        Nome = Righe.Value(u"Nominativo"_s, QString()).toString().trimmed();
    setWindowTitle(DidascaliaScheda(Modo) + (Nome.isEmpty() ? QString() : u" - "_s + Nome));
}

#include "moc_frmScheda.cpp"
