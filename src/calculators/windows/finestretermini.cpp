#include "calculators/windows/finestretermini.h"

#include "calculators/modTermini.h"
#include "calculators/windows/finestracalcolo.h"
#include "core/aperture.h"
#include "core/modErrori.h"
#include "core/sessione.h"
#include "platform/base/regionale.h"
#include "platform/calendar/calendario.h"
#include "platform/kit/aspetto.h"
#include "platform/kit/campo.h"
#include "platform/kit/collega.h"
#include "platform/kit/mascheradata.h"

#include <QAbstractButton>
#include <QCheckBox>
#include <QLabel>

using namespace Qt::StringLiterals;

namespace {

/// Enabling and calendar by a text of the date box.
void Segui(const CampiTermini& Campi, const QString& Testo)
{
    if (const auto Ammesso = SabatoAmmesso(Testo))
        Campi.chkSabato->setEnabled(*Ammesso);
    if (const auto Decorrenza = LeggiData(Testo))
        Campi.Calendario->ImpostaData(*Decorrenza);
}

}  // namespace

void PreparaPannello(const CampiTermini& Campi, double Ingrandimento, int Righe)
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
    Campi.lblSettembre->setText(AvvisoSettembre.toString());
    NonSpostare(Campi.lblSettembre);
    Campi.lblSettembre->hide();
    Campi.cmdCopia->setIcon(aspetto::Icona(u"copia"_s));
}

void CollegaDecorrenza(const CampiTermini& Campi, const std::function<void()>& Pulisci)
{
    Collega(Campi.mskDecorr, &QLineEdit::textEdited, Campi.mskDecorr, [Campi, Pulisci] {
        Pulisci();
        Segui(Campi, Campi.mskDecorr->Testo());
    });
    AlLascia(Campi.mskDecorr, [Campi] {
        Segui(Campi, SenzaSecolo(Campi.mskDecorr->Testo()));
        return true;
    });
    Campi.Calendario->ImpostaRegole({[](const QDate& Giorno) { return IsFestivo(Giorno); },
                                     [Spunta = Campi.chkSosp](const QDate& Giorno) {
                                         return Spunta->isChecked() && GiornoSospeso(Giorno);
                                     }});
}

void PrendiData(const CampiTermini& Campi, const QDate& Data, const std::function<void()>& Pulisci)
{
    Campi.mskDecorr->ImpostaData(Data);
    Pulisci();
    Segui(Campi, Campi.mskDecorr->Testo());
    Campi.mskDecorr->setFocus();
}

void AlternaCalendario(const CampiTermini& Campi)
{
    Campi.Calendario->setVisible(!Campi.Calendario->isVisible());
    Campi.mskDecorr->setFocus();
}

void SegnaGiorni(const CampiTermini& Campi, const QList<QDate>& Scadenze)
{
    Campi.Calendario->Segna(LeggiData(SenzaSecolo(Campi.mskDecorr->Testo())), Scadenze);
}

void ScriviRisultato(const CampiTermini& Campi, const QString& Testo, bool Settembre)
{
    QPalette Colori;
    Colori.setColor(Campi.lblSettembre->foregroundRole(), aspetto::Sbagliato());
    Campi.lblSettembre->setPalette(Colori);
    Campi.lblSettembre->setVisible(Settembre);
    Campi.lblRisult->setText(Testo);
    Campi.lblRisult->setAccessibleName(Testo.isEmpty() ? u"Risultato"_s
                                                       : (Testo + u' ' + AvvisoMostrato(Campi)).simplified());
    Campi.cmdCopia->setEnabled(!Testo.isEmpty());
    if (!Testo.isEmpty())
        Annuncia(Campi.lblRisult);
}

QString AvvisoMostrato(const CampiTermini& Campi)
{
    return Campi.lblSettembre->isHidden() ? QString() : Campi.lblSettembre->text();
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
    (void)ConcludiCampo();  // a shortcut calculates without leaving the box
    bool Calcolato = false;
    Protetta([&] { Calcolato = Calcola(); });
    if (Calcolato)
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
