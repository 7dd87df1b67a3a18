#include "platform/kit/messaggi_qt.h"

#include "platform/base/errore.h"
#include "platform/kit/aspetto.h"
#include "platform/system/file.h"
#include "platform/system/percorsi.h"

#include <QApplication>
#include <QColorDialog>
#include <QFile>
#include <QFileDialog>
#include <QFileIconProvider>
#include <QHeaderView>
#include <QInputDialog>
#include <QLabel>
#include <QMessageBox>
#include <QPointer>
#include <QPrintDialog>
#include <QPrinter>
#include <QPushButton>
#include <QRegularExpression>
#include <QSettings>
#include <QTreeView>

#include <algorithm>
#include <array>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

struct Risposta
{
    QMessageBox::StandardButton Pulsante;
    int Codice;
};

// In the order in which the boxes show them, which is that of a caller's own captions.
constexpr std::array Risposte{
    Risposta{QMessageBox::Ok, vbOK},
    Risposta{QMessageBox::Yes, vbYes},
    Risposta{QMessageBox::No, vbNo},
    Risposta{QMessageBox::Cancel, vbCancel},
};

QMessageBox::StandardButtons Pulsanti(int Bandiere)
{
    switch (PulsantiDi(Bandiere)) {
    case vbOKCancel:
        return QMessageBox::Ok | QMessageBox::Cancel;
    case vbYesNoCancel:
        return QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel;
    case vbYesNo:
        return QMessageBox::Yes | QMessageBox::No;
    default:
        return QMessageBox::Ok;
    }
}

QMessageBox::Icon Simbolo(int Bandiere)
{
    switch (IconaDi(Bandiere)) {
    case vbCritical:
        return QMessageBox::Critical;
    case vbQuestion:
        return QMessageBox::Question;
    case vbExclamation:
        return QMessageBox::Warning;
    case vbInformation:
        return QMessageBox::Information;
    default:
        return QMessageBox::NoIcon;
    }
}

/// The window that a box belongs to; none when the program has no active one.
QWidget* Sopra()
{
    QWidget* Modale = QApplication::activeModalWidget();
    return Modale ? Modale : QApplication::activeWindow();
}

/// The plain pointer while a box is open, whatever long work stands behind it.
class PuntatoreNormale
{
public:
    PuntatoreNormale() : DaCoprire(QApplication::overrideCursor() != nullptr)
    {
        if (DaCoprire)
            QApplication::setOverrideCursor(Qt::ArrowCursor);
    }
    ~PuntatoreNormale()
    {
        if (DaCoprire)
            QApplication::restoreOverrideCursor();
    }
    Q_DISABLE_COPY_MOVE(PuntatoreNormale)

private:
    bool DaCoprire;
};

/// A dialog of its own life: the window below it may go while it is open, and takes it along.
template <class Dialogo>
class DialogoSopra
{
public:
    template <class... Argomenti>
    explicit DialogoSopra(Argomenti&&... Valori) : Vero(new Dialogo(std::forward<Argomenti>(Valori)...))
    {}
    ~DialogoSopra() { delete Vero; }
    Q_DISABLE_COPY_MOVE(DialogoSopra)

    Dialogo* operator->() const { return Vero; }
    Dialogo& operator*() const { return *Vero; }

private:
    QPointer<Dialogo> Vero;
};

int MostraBox(const QString& Testo, int Bandiere, const QString& Titolo, const QStringList& Scritte)
{
    const PuntatoreNormale Puntatore;
    const DialogoSopra<QMessageBox> Box(Simbolo(Bandiere), Titolo, QString(), Pulsanti(Bandiere), Sopra());
    Box->setTextFormat(Qt::PlainText);
    Box->setText(Testo);
    qsizetype Posto = 0;
    int SenzaRisposta = vbCancel;
    for (const Risposta& Voce : Risposte) {
        QAbstractButton* Pulsante = Box->button(Voce.Pulsante);
        if (!Pulsante)
            continue;
        if (Posto < Scritte.size())
            Pulsante->setText(Scritte[Posto]);
        if (Posto == ((Bandiere & vbDefaultButton2) != 0 ? 1 : 0))
            Box->setDefaultButton(static_cast<QPushButton*>(Pulsante));
        SenzaRisposta = Voce.Codice;  // the last button is the one that changes nothing
        ++Posto;
    }
    const int Premuto = Box->exec();  // none of the buttons when the box went with its window
    for (const Risposta& Voce : Risposte)
        if (Premuto == Voce.Pulsante)
            return Voce.Codice;
    return SenzaRisposta;
}

QString Chiedi(const QString& Testo, const QString& Titolo, const QString& Predefinito)
{
    const PuntatoreNormale Puntatore;
    const DialogoSopra<QInputDialog> Box(Sopra());
    Box->setWindowTitle(Titolo);
    Box->setLabelText(Testo);
    Box->setTextValue(Predefinito);
    for (QLabel* Scritta : Box->findChildren<QLabel*>())
        Scritta->setTextFormat(Qt::PlainText);
    return Box->exec() == QDialog::Accepted ? Box->textValue() : QString();
}

/// "Name (*.x)|*.x|..." or Qt's own form, as Qt's.
QString FiltroQt(const QString& Filtro)
{
    if (!Filtro.contains(u'|'))
        return Filtro;
    const QStringList Parti = Filtro.split(u'|');
    QStringList Voci;
    for (qsizetype i = 0; i + 1 < Parti.size(); i += 2) {
        // The patterns stand in the name too; Qt would read those, and in blanks rather than semicolons.
        const QString Nome = Parti[i].section(u'(', 0, 0).trimmed();
        Voci += Nome + u" ("_s + QString(Parti[i + 1]).replace(u';', u' ') + u')';
    }
    return Voci.join(u";;"_s);
}

/// What a file is, in Italian: Qt's translation lacks these words.
class FigureFile : public QFileIconProvider
{
public:
    [[nodiscard]] QString type(const QFileInfo& Voce) const override
    {
        if (Voce.isDir())
            return u"Cartella"_s;
        return Voce.suffix().isEmpty() ? u"File"_s : u"File "_s + Voce.suffix().toUpper();
    }
};

/// The toolkit notes in a file of its own which folders its dialogs have shown, and folders are named for
/// clients and matters. It lets the system say who reads a new one, and leaves one that is there as open as
/// it is: the file stands before each dialog, for nobody else to read. The folder is every program's, and
/// nothing else in it is touched.
void ChiudiRicordi()
{
#ifndef Q_OS_WIN
    const QString File = QSettings(QSettings::UserScope, u"QtProject"_s).fileName();
    try {
        CreaCartellaDiUtente(CartellaFile(File));
        if (QFile Ricordi(File);
            !Ricordi.open(QIODevice::WriteOnly | QIODevice::NewOnly, QFile::ReadOwner | QFile::WriteOwner))
            DaiPermessi(File, {}, Lettori::SoloUtente);
    } catch (const Errore&) {
        // Where the user may not write, the toolkit writes nothing.
    }
#endif
}

/// Columns as wide as their titles, which are longer than the English ones that Qt counts on. A dialog of the
/// system's own has none.
void AllargaColonne(const QFileDialog& Dialogo)
{
    const auto* Elenco = Dialogo.findChild<QTreeView*>(u"treeView"_s);
    if (!Elenco)
        return;
    QHeaderView* Titoli = Elenco->header();
    for (int i = 0; i < Titoli->count(); ++i)
        Titoli->resizeSection(i, std::max(Titoli->sectionSize(i), Titoli->sectionSizeHint(i)));
}

/// A chosen path with the platform's separators; empty when cancelled.
QString Sfoglia(QFileDialog& Dialogo, const QString& Iniziale)
{
    const PuntatoreNormale Puntatore;
    static FigureFile Figure;  // the dialog's own thread may ask it until the program ends
    Dialogo.setIconProvider(&Figure);
    AllargaColonne(Dialogo);
    if (EsisteCartella(Iniziale)) {
        Dialogo.setDirectory(Iniziale);
    } else {
        Dialogo.setDirectory(CartellaFile(Iniziale));
        Dialogo.selectFile(NomeFile(Iniziale));
    }
    if (Dialogo.exec() != QDialog::Accepted || Dialogo.selectedFiles().isEmpty())
        return {};
    return PercorsoNativo(Dialogo.selectedFiles().constFirst());
}

/// The ending of a kind of files that has one, ".vcf".
QString FineDelTipo(const QString& Tipo)
{
    static const QRegularExpression Unica(uR"(\(\*(\.\w+)\)$)"_s);
    return Unica.match(Tipo).captured(1);
}

/// A kind that the user has chosen besides the first gives a name its ending, unless it has that of any kind.
QString ConFineDelTipo(const QFileDialog& Dialogo, const QString& Scelto)
{
    const QStringList Tipi = Dialogo.nameFilters();
    const QString Fine = FineDelTipo(Dialogo.selectedNameFilter());
    const bool Finito = std::ranges::any_of(Tipi, [&Scelto](const QString& Tipo) {
        const QString Sua = FineDelTipo(Tipo);
        return !Sua.isEmpty() && Scelto.endsWith(Sua, Qt::CaseInsensitive);
    });
    const bool Altro = Tipi.size() > 1 && Dialogo.selectedNameFilter() != Tipi.constFirst();
    return Scelto.isEmpty() || Finito || !Altro ? Scelto : Scelto + Fine;
}

QString ScegliFile(QFileDialog::AcceptMode Modo, const QString& Titolo, const QString& Iniziale,
                   const QString& Filtro)
{
    ChiudiRicordi();
    const DialogoSopra<QFileDialog> Dialogo(Sopra(), Titolo, QString(), FiltroQt(Filtro));
    Dialogo->setAcceptMode(Modo);
    Dialogo->setFileMode(Modo == QFileDialog::AcceptOpen ? QFileDialog::ExistingFile : QFileDialog::AnyFile);
    // Whether a file may be replaced is the saving procedure's own question.
    Dialogo->setOption(QFileDialog::DontConfirmOverwrite);
    const QString Scelto = Sfoglia(*Dialogo, Iniziale);
    return Modo == QFileDialog::AcceptSave ? ConFineDelTipo(*Dialogo, Scelto) : Scelto;
}

std::optional<int> ScegliColore(int Iniziale)
{
    ChiudiRicordi();
    const PuntatoreNormale Puntatore;
    const DialogoSopra<QColorDialog> Dialogo(aspetto::DaBgr(Iniziale), Sopra());
    if (Dialogo->exec() != QDialog::Accepted)
        return std::nullopt;
    return aspetto::ABgr(Dialogo->selectedColor());
}

bool ScegliStampante(QPrinter& Scelta)
{
    ChiudiRicordi();
    const PuntatoreNormale Puntatore;
    const DialogoSopra<QPrintDialog> Dialogo(&Scelta, Sopra());
    Dialogo->setWindowTitle(u"Stampa"_s);
    Dialogo->setOption(QAbstractPrintDialog::PrintCurrentPage);
    Dialogo->setMinMax(1, std::max(1, Scelta.toPage()));
    return Dialogo->exec() == QDialog::Accepted;
}

}  // namespace

Messaggi MessaggiQt()
{
    Messaggi Tabella;
    Tabella.Box = [](const QString& Testo, int Bandiere, const QString& Titolo) {
        return MostraBox(Testo, Bandiere, Titolo, {});
    };
    Tabella.BoxPulsanti = MostraBox;
    Tabella.Immissione = Chiedi;
    Tabella.ApriFile = [](const QString& Titolo, const QString& Iniziale, const QString& Filtro) {
        return ScegliFile(QFileDialog::AcceptOpen, Titolo, Iniziale, Filtro);
    };
    Tabella.SalvaFile = [](const QString& Titolo, const QString& Iniziale, const QString& Filtro) {
        return ScegliFile(QFileDialog::AcceptSave, Titolo, Iniziale, Filtro);
    };
    Tabella.ScegliColore = ScegliColore;
    Tabella.ScegliStampante = ScegliStampante;
    return Tabella;
}
