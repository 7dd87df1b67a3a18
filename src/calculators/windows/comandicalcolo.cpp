#include "calculators/windows/comandicalcolo.h"

#include "calculators/windows/frmUltimiCalcoli.h"
#include "calculators/windows/importoconpunti.h"
#include "core/modErrori.h"
#include "platform/kit/appunti.h"
#include "platform/kit/campo.h"
#include "platform/kit/mascheradata.h"
#include "platform/system/orologio.h"
#include "print/windows/frmPrint.h"

#include <QAbstractButton>
#include <QAction>
#include <QComboBox>
#include <QDialog>
#include <QLayout>
#include <QLineEdit>
#include <QToolTip>

#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

const QString Spuntato = u"1"_s;

/// The code of the current entry where the list has codes, else its text.
QString VoceDi(const QComboBox* Lista)
{
    const QString Codice = Lista->currentData().toString();
    return Codice.isEmpty() ? Lista->currentText() : Codice;
}

bool ScegliVoce(QComboBox* Lista, const QString& Voce)
{
    // An entry of a file that lacks the field: a list with nothing chosen is none that its window knows.
    int Quale = Voce.isEmpty() ? 0 : Lista->findData(Voce);
    if (Quale < 0)
        Quale = Lista->findText(Voce, Qt::MatchExactly | Qt::MatchCaseSensitive);
    if (Quale < 0)
        return false;
    if (Lista->count() == 0)
        Quale = -1;
    Lista->setCurrentIndex(Quale);
    // The list may not keep the choice: norms in force that cannot be read leave the program's own.
    return Lista->currentIndex() == Quale;
}

/// True when a calculation keeps all that another one has, and adds to it.
bool Prosegue(const QMap<QString, QString>& Nuovo, const QMap<QString, QString>& Vecchio)
{
    return !Vecchio.isEmpty() &&
           std::all_of(Vecchio.keyValueBegin(), Vecchio.keyValueEnd(),
                       [&](const auto& Campo) { return Nuovo.value(Campo.first) == Campo.second; });
}

}  // namespace

CampoRicordato CampoDi(QWidget* Controllo)
{
    const QString Nome = Controllo->objectName();
    if (auto* Data = qobject_cast<MascheraData*>(Controllo))
        return {Nome, [Data] { return Data->Vuota() ? QString() : Data->Testo(); },
                [Data](const QString& Valore) {
                    Data->ImpostaTesto(Valore);
                    return true;
                }};
    if (auto* Casella = qobject_cast<QLineEdit*>(Controllo))
        return {Nome, [Casella] { return TestoDigitato(Casella); },
                [Casella](const QString& Valore) {
                    Casella->setText(Valore);
                    return true;
                }};
    if (auto* Lista = qobject_cast<QComboBox*>(Controllo))
        return {Nome, [Lista] { return VoceDi(Lista); },
                [Lista](const QString& Valore) { return ScegliVoce(Lista, Valore); }};
    auto* Spunta = qobject_cast<QAbstractButton*>(Controllo);
    return {Nome, [Spunta] { return Spunta->isChecked() ? Spuntato : QString(); },
            [Spunta](const QString& Valore) {
                // An option is let go by the one that is chosen.
                if (!Spunta->autoExclusive() || Valore == Spuntato)
                    Spunta->setChecked(Valore == Spuntato);
                return true;
            }};
}

ComandiCalcolo::ComandiCalcolo(QDialog* Finestra, ParteDelCalcolo Della)
    : QObject(Finestra), Modulo(Finestra), Parte(std::move(Della))
{}

QList<VoceMenu> ComandiCalcolo::Voci(bool HaStampa)
{
    const VoceMenu Scheda{u"mnuScheda"_s, HaStampa ? u"Scheda"_s : u"Stampa"_s,
                          HaStampa ? QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_P)
                                   : QKeySequence(QKeySequence::Print),
                          [this] { mnuScheda_Click(); }};
    return {Scheda,
            {u"mnuCopiaTabella"_s, u"Copia tabella"_s, QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_C),
             [this] { mnuCopiaTabella_Click(); }},
            {u"mnuUltimi"_s, u"Ultimi calcoli"_s, QKeySequence(Qt::CTRL | Qt::Key_L),
             [this] { mnuUltimi_Click(); }}};
}

void ComandiCalcolo::Aggiorna()
{
    const bool Calcolato = !Parte.Esito().isEmpty();
    for (const auto& Nome : {u"mnuScheda"_s, u"mnuCopiaTabella"_s})
        if (auto* Azione = Modulo->findChild<QAction*>(Nome))
            Azione->setEnabled(Calcolato);
}

QMap<QString, QString> ComandiCalcolo::Scritti() const
{
    QMap<QString, QString> Tutti;
    for (const CampoRicordato& Campo : Parte.Campi)
        if (const QString Valore = Campo.Leggi(); !Valore.isEmpty())
            Tutti.insert(Campo.Nome, Valore);
    return Tutti;
}

void ComandiCalcolo::Ricorda(bool Rifatto)
{
    static bool Riferito = false;
    const QString Esito = Parte.Esito();
    const QMap<QString, QString> Campi = Scritti();
    if (Esito.isEmpty() || (Campi == Ricordati && !Rifatto))
        return;
    try {
        RicordaCalcolo(Parte.Quale, {Parte.Nome(), Esito, Adesso(), Campi, false},
                       Parte.Continua && Prosegue(Campi, Ricordati) ? Ricordati : QMap<QString, QString>{});
        Ricordati = Campi;
        Riferito = false;
    } catch (...) {
        if (!std::exchange(Riferito, true))
            RiferisciCorrente(0);
    }
}

void ComandiCalcolo::RicordaDopo()
{
    QMetaObject::invokeMethod(
        this, [this] { Ricorda(); }, Qt::QueuedConnection);
}

void ComandiCalcolo::Riprendi(const CalcoloRicordato& Calcolo)
{
    Parte.Prepara();
    for (const CampoRicordato& Campo : std::as_const(Parte.Campi))
        if (const QString Valore = Calcolo.Campi.value(Campo.Nome); !Campo.Scrivi(Valore)) {
            // Half of a calculation would be taken for another one.
            Parte.Prepara();
            MsgErrore(u"Il calcolo non si può riprendere: \"%1\" non è più in elenco."_s.arg(Valore));
            return;
        }
    Ricordati.clear();  // what is taken up carries nothing on, whatever was on view
    Parte.Calcola();
}

void ComandiCalcolo::mnuScheda_Click()
{
    if (!ConcludiCampo())
        return;
    Ricorda();
    MostraStampa(Parte.Suffisso, [this](Superficie& vp) { return StampaScheda(vp, Parte.Scheda()); });
}

void ComandiCalcolo::mnuCopiaTabella_Click()
{
    if (!ConcludiCampo())
        return;
    const QList<QStringList> Righe = RigheScheda(Parte.Scheda());
    if (Righe.isEmpty())
        return;
    Ricorda();
    CopiaTabella(TestoRighe(Righe), Righe);
    const QWidget* Menu = Modulo->layout()->menuBar();
    QToolTip::showText(Menu->mapToGlobal(Menu->rect().bottomLeft()), u"Copiato"_s, Modulo);
}

void ComandiCalcolo::mnuUltimi_Click()
{
    if (!ConcludiCampo())
        return;
    Ricorda();
    auto* Elenco = new frmUltimiCalcoli(Modulo, Parte.Quale);
    Elenco->Scelto = [this](const CalcoloRicordato& Calcolo) { Riprendi(Calcolo); };
    Elenco->Mostra();
}
