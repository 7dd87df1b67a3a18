// Tab 0: parties, subject, parameters of the proceeding, percent variation.
#include "feenote/windows/frmParcelle.h"

#include "feenote/modParametri.h"
#include "feenote/modParti.h"
#include "feenote/modVariazione.h"
#include "feenote/windows/mostra.h"
#include "platform/kit/campo.h"
#include "platform/kit/collega.h"
#include "platform/kit/scelta.h"
#include "ui_SchedaDatiBase.h"

#include <QButtonGroup>
#include <QFocusEvent>
#include <QHelpEvent>
#include <QRegularExpressionValidator>
#include <QToolTip>

using namespace Qt::StringLiterals;

namespace {

/// A text box of the note that needs no rule of its own.
struct CasellaTesto
{
    QLineEdit* Ui::SchedaDatiBase::*Box;
    ParteNota Quale;
};

constexpr std::array CaselleTesto{
    CasellaTesto{&Ui::SchedaDatiBase::txtCliente, ParteNota::Cliente},
    CasellaTesto{&Ui::SchedaDatiBase::txtControp, ParteNota::Controparte},
    CasellaTesto{&Ui::SchedaDatiBase::txtOggetto, ParteNota::Oggetto},
};

/// A text that its box cuts shows its beginning once it is left, and is read whole in the tooltip.
class TestoIntero : public QObject
{
public:
    explicit TestoIntero(QLineEdit* Campo) : QObject(Campo), Box(Campo) { Campo->installEventFilter(this); }

    bool eventFilter(QObject* Oggetto, QEvent* Evento) override
    {
        // Of a name that was typed to its end one reads the beginning afterwards.
        if (Evento->type() == QEvent::FocusOut && LasciaDavvero(*static_cast<QFocusEvent*>(Evento)))
            Box->setCursorPosition(0);
        if (Evento->type() != QEvent::ToolTip)
            return QObject::eventFilter(Oggetto, Evento);
        constexpr int Margini = 8;
        constexpr qsizetype Massimo = 500;
        const QString Testo = Box->text();
        if (Box->fontMetrics().horizontalAdvance(Testo) > Box->width() - Margini)
            QToolTip::showText(static_cast<QHelpEvent*>(Evento)->globalPos(),
                               u"<p>"_s + Testo.left(Massimo).toHtmlEscaped() + u"</p>"_s, Box);
        else
            QToolTip::hideText();
        return true;
    }

private:
    QLineEdit* Box;
};

QButtonGroup* RiunisciOpzioni(QWidget* Scheda)
{
    auto* Gruppo = new QButtonGroup(Scheda);
    for (int i = 0; i < NumAumRid; ++i)
        Gruppo->addButton(Scheda->findChild<QAbstractButton*>(u"optAumRid_%1"_s.arg(i)), i);
    Gruppo->setObjectName(u"optAumRid"_s);
    return Gruppo;
}

QStringList TestiAutorita(const Parcella& Nota)
{
    QStringList Testi;
    for (const Autorita& Voce : Nota.ListaAutorita)
        Testi.append(Voce.DesAut);
    return Testi;
}

QStringList TestiScaglioni(const Parcella& Nota)
{
    QStringList Testi;
    for (const ScaglioneValore& Voce : Nota.ListaScaglioni)
        Testi.append(Voce.DesVal);
    return Testi;
}

}  // namespace

void frmParcelle::CollegaDatiBase()
{
    uiBase->cmbCateg->addItems(VociCategoria());
    uiBase->cmbCateg->setCurrentIndex(NessunaVoce);
    for (const CasellaTesto& Voce : CaselleTesto) {
        QLineEdit* Box = (*uiBase).*Voce.Box;
        ::Collega(Box, &QLineEdit::textEdited, this, [this, Voce](const QString& Testo) {
            CambiaParte(Nota, Voce.Quale, Testo);
            SetModificata(Nota.Modificata);
            MostraCliCon();
        });
        FiltraTasti(Box, {});
        new TestoIntero(Box);
    }

    // With lines in the note a change asks, refuses or reckons anew: the user first goes where he wants.
    const auto ConRighe = [this] { return !Nota.xOnorari.Vuota() || !Nota.xDiritti.Vuota(); };
    const auto Parametro = [=, this](QComboBox* Lista, auto Cambia) {
        AlScegliere(
            Lista, [=, this](int Scelta, ModoScelta) { Applica([&] { Cambia(Nota, Scelta); }); }, ConRighe);
    };
    Parametro(uiBase->cmbCateg, CambiaCategoria);
    Parametro(uiBase->cmbAutor, CambiaAutorita);
    Parametro(uiBase->cmbValore, CambiaScaglione);
    ::Collega(uiBase->txtImporto, &QLineEdit::textEdited, this, [this](const QString& Testo) {
        Nota.txtImporto.Testo = Testo;
        SetModificata(true);
    });
    mostra::LarghezzaImporto(uiBase->txtImporto);
    // A box that a rule has emptied, or whose bracket went with the category, is left like one typed in.
    CampoNumericoSempre(uiBase->txtImporto, [this] {
        if (uiBase->txtImporto->isModified() || ImportoInSospeso(Nota))
            Applica([&] { LasciaImporto(Nota); });
        return true;
    });
    CollegaVariazione();
}

void frmParcelle::CollegaVariazione()
{
    QButtonGroup* Opzioni = RiunisciOpzioni(uiBase->fraAumenti->parentWidget());
    ::Collega(Opzioni, &QButtonGroup::idClicked, this,
              [this](int Scelta) { Applica([&] { ScegliAumRid(Nota, Scelta); }); });
    uiBase->cmbAumRid->addItems({u"+"_s, u"-"_s});
    uiBase->cmbAumRid->setCurrentIndex(NessunaVoce);
    ::Collega(uiBase->cmbAumRid, &QComboBox::activated, this, [this](int Scelta) {
        // With no percent yet the sign waits for one: leaving an empty box would take it away again.
        Applica([&] {
            CambiaSegnoAumRid(Nota, Scelta);
            if (!Nota.txtAumRid.Testo.isEmpty())
                LasciaAumRid(Nota);
        });
    });
    // What is pasted is whole digits too: a sign of its own would turn the one of the list round.
    FiltraTasti(uiBase->txtAumRid, u"1234567890"_s);
    uiBase->txtAumRid->setValidator(
        new QRegularExpressionValidator(QRegularExpression(u"[0-9]*"_s), uiBase->txtAumRid));
    ::Collega(uiBase->txtAumRid, &QLineEdit::textEdited, this,
              [this](const QString& Testo) { Applica([&] { CambiaTestoAumRid(Nota, Testo); }); });
    // A limit that a refusal has put into the box is no edit of the user's, and yet comes into force.
    AlLasciaSempre(uiBase->txtAumRid, [this] {
        if (!VariazioneInSospeso(Nota))
            return true;
        bool Accettata = true;
        Applica([&] {
            LasciaAumRid(Nota);
            Accettata = Nota.Fuoco != CampoNota::Variazione;
        });
        return Accettata;
    });
}

QWidget* frmParcelle::CasellaDi(CampoNota Campo) const
{
    switch (Campo) {
    case CampoNota::Nessuno:
        return nullptr;
    case CampoNota::Categoria:
        return uiBase->cmbCateg;
    case CampoNota::Autorita:
        return uiBase->cmbAutor;
    case CampoNota::Valore:
        return uiBase->txtImporto;
    case CampoNota::Variazione:
        return uiBase->txtAumRid;
    case CampoNota::Cliente:
        return uiBase->txtCliente;
    case CampoNota::Controparte:
        return uiBase->txtControp;
    case CampoNota::Oggetto:
        return uiBase->txtOggetto;
    }
    return nullptr;
}

void frmParcelle::MostraDatiBase()
{
    for (const CasellaTesto& Voce : CaselleTesto)
        mostra::Testo((*uiBase).*Voce.Box, ParteScritta(Nota, Voce.Quale));
    const bool Collegata = !Nota.NsRif.isEmpty();
    uiBase->lblRif_0->setVisible(Collegata);
    uiBase->lblRif_1->setVisible(Collegata);
    uiBase->lblRif_1->setText(Nota.NsRif);

    mostra::Elenco(uiBase->cmbCateg, VociCategoria(), Nota.cmbCateg, true);
    mostra::Elenco(uiBase->cmbAutor, TestiAutorita(Nota), Nota.cmbAutor, Nota.cmbAutorAbilitata);
    mostra::Elenco(uiBase->cmbValore, TestiScaglioni(Nota), Nota.cmbValore, Nota.cmbValoreAbilitata);
    mostra::Testo(uiBase->txtImporto, Nota.txtImporto);

    mostra::Opzioni(findChild<QButtonGroup*>(u"optAumRid"_s), Nota.AumRidIdx);
    mostra::Elenco(uiBase->cmbAumRid, {u"+"_s, u"-"_s}, Nota.cmbAumRid, Nota.cmbAumRidAbilitata);
    mostra::Testo(uiBase->txtAumRid, Nota.txtAumRid);
}
