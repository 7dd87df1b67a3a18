#include "calculators/windows/finestretermini.h"

#include "calculators/modTermini.h"
#include "calculators/norme/etadati.h"
#include "calculators/windows/etamostrata.h"
#include "calculators/windows/finestracalcolo.h"
#include "calculators/windows/sceltanorme.h"
#include "core/aperture.h"
#include "core/modErrori.h"
#include "core/sessione.h"
#include "platform/base/regionale.h"
#include "platform/calendar/calendario.h"
#include "platform/kit/annuncio.h"
#include "platform/kit/aspetto.h"
#include "platform/kit/campo.h"
#include "platform/kit/collega.h"
#include "platform/kit/lettere.h"
#include "platform/kit/mascheradata.h"
#include "platform/system/orologio.h"

#include <QAbstractButton>
#include <QCheckBox>
#include <QComboBox>
#include <QDialog>
#include <QFormLayout>
#include <QLabel>
#include <QPushButton>
#include <QRegularExpression>
#include <QShortcut>
#include <QSignalBlocker>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

/// Enabling and calendar by a text of the date box.
void Segui(const CampiTermini& Campi, const QString& Testo)
{
    AbilitaSabato(Campi, Testo);
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
    Campi.lblSettembre->setText(AvvisoSettembre.toString());  // for its room
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
    Campi.Calendario->ImpostaRegole(
        {[Norme = Campi.Norme](const QDate& Giorno) { return Norme->Festivo(Giorno); },
         [Norme = Campi.Norme, Spunta = Campi.chkSosp](const QDate& Giorno) {
             return Spunta->isChecked() && Norme->Sospeso(Giorno);
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

void AbilitaSabato(const CampiTermini& Campi, const QString& Testo)
{
    // Both options rest where the links of a chain say it themselves.
    const bool Conta = Campi.chkSosp->isEnabled();
    if (Campi.Norme->InVigore())
        Campi.chkSabato->setEnabled(Conta);
    else if (const auto Ammesso = SabatoAmmesso(Testo))
        Campi.chkSabato->setEnabled(*Ammesso && Conta);
}

void ScriviRisultato(const CampiTermini& Campi, const QString& Testo, const QString& Avviso)
{
    QPalette Colori;
    Colori.setColor(Campi.lblSettembre->foregroundRole(), aspetto::Sbagliato());
    Campi.lblSettembre->setPalette(Colori);
    if (!Avviso.isEmpty())
        Campi.lblSettembre->setText(Avviso);
    Campi.lblSettembre->setVisible(!Avviso.isEmpty());
    Campi.lblRisult->setText(Testo);
    Campi.lblRisult->setAccessibleName(Testo.isEmpty() ? u"Risultato"_s
                                                       : (Testo + u' ' + AvvisoMostrato(Campi)).simplified());
    Campi.cmdCopia->setEnabled(!Testo.isEmpty());
    if (!Testo.isEmpty())
        AnnunciaRisultato(Campi.lblRisult);
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

void MostraNorme(const CampiNorme& Campi, SceltaNorme& Scelta)
{
    const bool InVigore = Scelta.InVigore();
    if (InVigore && Campi.cmbMateria->count() == 0) {
        const QSignalBlocker Zitta(Campi.cmbMateria);
        Campi.cmbMateria->addItem(u"materia ordinaria"_s);
        for (const NormaMateria& Materia : Scelta.Lette()->Materie())
            Campi.cmbMateria->addItem(Materia.Testo, Materia.Codice);
    }
    constexpr int LettereMateria = 32;
    LimitaLista(Campi.cmbMateria, LettereMateria);
    Campi.cmbMateria->setVisible(InVigore);
    Campi.lblEta->setVisible(InVigore);
    if (InVigore)
        MostraEta(Campi.lblEta, EtaNorme(*Scelta.Lette(), Oggi()));
}

QString MateriaScelta(const CampiNorme& Campi, const SceltaNorme& Scelta)
{
    return Scelta.InVigore() ? Campi.cmbMateria->currentData().toString() : QString();
}

RigaInizio::RigaInizio(QFormLayout* Modulo, int Riga, const std::function<void()>& Cambiato)
    : lblInizio(new QLabel(u"Causa iniziata il:"_s)), mskInizio(new MascheraData)
{
    lblInizio->setObjectName(u"lblInizio"_s);
    mskInizio->setObjectName(u"mskInizio"_s);
    mskInizio->setToolTip(u"Facoltativa: dice quale rito vale, quello precedente o quello riformato"_s);
    lblInizio->setBuddy(mskInizio);
    constexpr int LargaData = 112;  // as the boxes of dates beside it
    mskInizio->setMaximumWidth(LargaData);
    aspetto::MisuraConLeLettere({mskInizio});
    Modulo->insertRow(Riga, lblInizio, mskInizio);
    AlLasciaSempre(mskInizio, [Casella = mskInizio] {
        Casella->CompletaAnno();
        return true;
    });
    Collega(mskInizio, &QLineEdit::textEdited, mskInizio, Cambiato);
    Mostra(false);
}

void RigaInizio::Mostra(bool Serve)
{
    lblInizio->setVisible(Serve);
    mskInizio->setVisible(Serve);
    if (!Serve)
        Svuota();
}

void RigaInizio::Svuota()
{
    mskInizio->ImpostaTesto({});
}

bool RigaInizio::Valida() const
{
    const QString Testo = mskInizio->Testo();
    if (mskInizio->isHidden() || Data() || !Testo.contains(QRegularExpression(u"\\d"_s)))
        return true;
    MsgErrore(u"Il giorno in cui la causa è iniziata non è una data valida!"_s);
    RidaiFuoco(mskInizio);
    return false;
}

std::optional<QDate> RigaInizio::Data() const
{
    return mskInizio->isHidden() ? std::nullopt : LeggiData(SenzaSecolo(mskInizio->Testo()));
}

bool ChiedeInizio(const TermineRicorrente& Termine)
{
    return Termine.Misura == MisuraVigenza::Procedimento;
}

bool ChiedeInizio(const Norme& Insieme, const CatenaTermini& Catena)
{
    return std::ranges::any_of(Catena.Anelli, [&](const AnelloCatena& Anello) {
        const TermineRicorrente* Termine = TrovaTermine(Insieme, Anello.Termine);
        return Termine && ChiedeInizio(*Termine);
    });
}

QString NoteDi(const QList<TermineContato>& Termini)
{
    QStringList Avvisi;
    for (const TermineContato& Termine : Termini)
        for (QString Nota : Termine.Esito.Note) {
            Nota.front() = Nota.front().toUpper();
            if (!Avvisi.contains(Nota))
                Avvisi << Nota;
        }
    return Avvisi.join(u'\n');
}

QString TestoCatena(const QList<TermineContato>& Termini, bool Breve)
{
    QStringList Righe;
    for (const TermineContato& Termine : Termini)
        Righe << (Breve ? RigaScadenza(Termine) : NomeTermine(Termine) + u": "_s + TestoScadenza(Termine));
    return Righe.join(u'\n');
}

QString EsitoInRiga(const QList<TermineContato>& Termini)
{
    if (Termini.isEmpty())
        return {};
    if (Termini.size() == 1)
        return TestoScadenza(Termini.first());
    QStringList Giorni;
    for (const TermineContato& Termine : Termini)
        Giorni << Format(Termine.Esito.Scadenza, u"dd/mm/yyyy");
    return Giorni.join(u", "_s);
}

CampoRicordato CampoDecorrenza(const CampiTermini& Campi)
{
    CampoRicordato Data = CampoDi(Campi.mskDecorr);
    Data.Scrivi = [Campi, Scrivi = Data.Scrivi](const QString& Valore) {
        const bool Scritta = Scrivi(Valore);
        AbilitaSabato(Campi, SenzaSecolo(Campi.mskDecorr->Testo()));
        return Scritta;
    };
    return Data;
}

CampoRicordato CampoMateria(QComboBox* cmbMateria)
{
    CampoRicordato Campo = CampoDi(cmbMateria);
    Campo.Leggi = [cmbMateria] { return cmbMateria->currentData().toString(); };
    return Campo;
}

QStringList RigheEta(SceltaNorme& Scelta)
{
    return Scelta.InVigore() ? RigheEta(std::optional(EtaNorme(*Scelta.Lette(), Oggi()))) : QStringList();
}

QList<ParteStrada> PartiDi(const QList<TermineContato>& Termini)
{
    QList<ParteStrada> Tutte;
    for (const TermineContato& Termine : Termini)
        Tutte << ParteDi(Termine);
    return Tutte;
}

void LimitaLista(QComboBox* Lista, int Lettere)
{
    Lista->setMaximumWidth(Lista->fontMetrics().averageCharWidth() * Lettere);
}

void TastoRapido(QDialog* Modulo, Qt::Key Lettera, const std::function<void()>& Procedura)
{
    auto* Scorciatoia = new QShortcut(QKeySequence(Qt::CTRL | Lettera), Modulo);
    Collega(Scorciatoia, &QShortcut::activated, Modulo, Procedura);
}
