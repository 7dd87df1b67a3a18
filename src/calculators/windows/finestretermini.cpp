#include "calculators/windows/finestretermini.h"

#include "calculators/modTermini.h"
#include "core/aperture.h"
#include "core/modErrori.h"
#include "core/sessione.h"
#include "platform/base/regionale.h"
#include "platform/kit/aspetto.h"
#include "platform/kit/campo.h"
#include "platform/kit/collega.h"
#include "platform/kit/lettere.h"
#include "platform/kit/mascheradata.h"

#include <QComboBox>
#include <QDialog>
#include <QFormLayout>
#include <QLabel>
#include <QRegularExpression>
#include <QShortcut>

#include <algorithm>

using namespace Qt::StringLiterals;

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

bool HaAvvertenze()
{
    return bool(Aperture.PaginaWeb);
}

void ApriAvvertenze(const QString& Titolo)
{
    Invoca(Aperture.PaginaWeb, sessione::PercorsoProg + u"avvertenzetermini.htm"_s, Titolo);
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
        Giorni << Format(Termine.Esito.Scadenza, ModelloData);
    return Giorni.join(u", "_s);
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
