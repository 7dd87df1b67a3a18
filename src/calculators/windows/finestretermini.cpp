#include "calculators/windows/finestretermini.h"

#include "core/aperture.h"
#include "core/modErrori.h"
#include "core/sessione.h"
#include "platform/kit/aspetto.h"
#include "platform/kit/campo.h"
#include "platform/kit/mascheradata.h"

#include <QAbstractButton>
#include <QAccessible>
#include <QLabel>

using namespace Qt::StringLiterals;

void PreparaPannello(QLabel* Risultato, QAbstractButton* Copia, double Ingrandimento, int Righe)
{
    QFont Grande = Risultato->font();
    Grande.setPointSizeF(Grande.pointSizeF() * Ingrandimento);
    Risultato->setFont(Grande);
    // The label itself knows the height of its lines, which at a fractional scale is no multiple of one.
    Risultato->setText(QString(Righe - 1, u'\n') + u'X');
    Risultato->setMinimumHeight(Risultato->sizeHint().height());
    Risultato->clear();
    Risultato->parentWidget()->setBackgroundRole(QPalette::Base);
    Copia->setIcon(aspetto::Icona(u"copia"_s));
}

void ScriviRisultato(QLabel* Risultato, QAbstractButton* Copia, const QString& Testo)
{
    Risultato->setText(Testo);
    Risultato->setAccessibleName(Testo.isEmpty() ? u"Risultato"_s : Testo.simplified());
    Copia->setEnabled(!Testo.isEmpty());
    if (Testo.isEmpty())
        return;
    QAccessibleEvent Annuncio(Risultato, QAccessible::Alert);
    QAccessible::updateAccessibility(&Annuncio);
}

void NonSpostare(QWidget* Oggetto)
{
    QSizePolicy Misura = Oggetto->sizePolicy();
    Misura.setRetainSizeWhenHidden(true);
    Oggetto->setSizePolicy(Misura);
}

void VaiSullaData(MascheraData* Data)
{
    Data->setFocus(Qt::OtherFocusReason);
    Data->setCursorPosition(0);  // deselects
}

void CalcolaDallaData(MascheraData* Data, const std::function<bool()>& Calcola)
{
    bool Fatto = false;
    Protetta([&] { Fatto = Calcola(); });
    if (Fatto)
        VaiSullaData(Data);
    else
        RidaiFuoco(Data);
}

bool HaAvvertenze()
{
    return bool(Aperture.PaginaWeb);
}

void ApriAvvertenze(const QString& Titolo)
{
    if (Aperture.PaginaWeb)
        Aperture.PaginaWeb(sessione::PercorsoProg + u"avvertenzetermini.htm"_s, Titolo);
}
