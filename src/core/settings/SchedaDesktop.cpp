#include "core/settings/SchedaDesktop.h"

#include "core/impostazioni.h"
#include "core/modErrori.h"
#include "core/settings/frmIcons.h"
#include "platform/kit/aspetto.h"
#include "platform/kit/collega.h"
#include "platform/kit/predefinito.h"
#include "platform/kit/scelta.h"
#include "platform/kit/suggerimento.h"
#include "platform/system/messaggi.h"

#include "core/settings/ui_SchedaDesktop.h"

#include <QHeaderView>
#include <QScrollBar>
#include <QShortcut>
#include <QTableView>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

struct VoceColore
{
    QStringView Chiave;
    QStringView Nome;
};

/// In the order of ColoreDesktop. The border's key has two spellings, which the store does not tell apart.
constexpr std::array<VoceColore, ColoriDesktop> VociColore{
    VoceColore{u"ColoreSfondoDesktop", u"Colore sfondo"},
    VoceColore{u"ColoreEtichette", u"Colore testo icone"},
    VoceColore{u"ColoreEtichetteBordo", u"Colore bordo icone"},
    VoceColore{u"ColoreEtichettaSel", u"Colore testo selez."},
};

ColonnaGriglia Colonna(const QString& Titolo, ColonnaIcona Campo, int Caratteri)
{
    ColonnaGriglia Fatta;
    Fatta.Titolo = Titolo;
    Fatta.Campo = Campo;
    Fatta.Caratteri = Caratteri;
    Fatta.Stira = Campo == IconaCollegamento;
    return Fatta;
}

QList<ColonnaGriglia> Colonne()
{
    constexpr int Larga = 13;
    constexpr int Stretta = 10;
    return {Colonna(u"Titolo"_s, IconaTitolo, Larga), Colonna(u"Programma/Link"_s, IconaCollegamento, Larga),
            Colonna(u"Icona"_s, IconaFigura, Stretta)};
}

/// Moves rows, which keep their order, so that the first of them takes the number `Meta`, counted without
/// them; a number past the others puts them at the end.
/// @return the number that the first of them has now
int SpostaRighe(TabellaRighe& Tabella, QList<int> Quali, int Meta)
{
    std::sort(Quali.begin(), Quali.end());
    QList<QVariantList> Tolte;
    for (const int Riga : std::as_const(Quali)) {
        Tolte.append(QVariantList());
        for (int c = 0; c < Tabella.Colonne(); ++c)
            Tolte.back().append(Tabella(Riga, c));
    }
    // From the highest down: those still to go keep their numbers.
    std::for_each(Quali.crbegin(), Quali.crend(), [&Tabella](int Riga) { Tabella.EliminaRiga(Riga); });
    Meta = std::min(Meta, Tabella.Righe());
    Tabella.InserisciRighe(Meta, int(Tolte.size()));
    for (int i = 0; i < int(Tolte.size()); ++i)
        for (int c = 0; c < Tabella.Colonne(); ++c)
            Tabella(Meta + i, c) = Tolte[i][c];
    return Meta;
}

/// Shown without ".jpg".
QString SenzaEstensione(const QString& File)
{
    return File.section(u'.', 0, -2);
}

}  // namespace

SchedaDesktop::SchedaDesktop(QWidget* Padre) : QWidget(Padre), ui(std::make_unique<Ui::SchedaDesktop>())
{
    ui->setupUi(this);
    AlScegliere(ui->cmbTemplates, [this](int Voce, ModoScelta) { cmbTemplates_Click(Voce); });
    AlScegliere(ui->cmbSfondi, [this](int Voce, ModoScelta) { cmbSfondi_Click(Voce); });
    const auto Premuto = &QAbstractButton::clicked;
    Collega(ui->cmdNessuna, Premuto, this, [this] { cmbSfondi_Click(-1); });
    for (int i = 0; i < ColoriDesktop; ++i)
        Collega(findChild<QAbstractButton*>(u"cmdColor_%1"_s.arg(i)), Premuto, this,
                [this, i] { cmdColor_Click(i); });

    ui->tdbIcone->setAccessibleName(u"Icone personali"_s);
    ui->tdbIcone->ImpostaColonne(Colonne());
    ui->tdbIcone->FraseVuota(u"Nessuna icona personale: \"Aggiungi...\" ne crea una."_s);
    ui->tdbIcone->Lega(&Icone);
    ui->tdbIcone->setMinimumWidth(ui->tdbIcone->LarghezzaIntera());
    Collega(ui->tdbIcone, &Griglia::DoppioClic, this, [this](int Riga) { ModificaIcona(Riga); });
    Collega(ui->tdbIcone, &Griglia::Cancella, this,
            [this] { EliminaIcona(ui->tdbIcone->RigaCorrente().value_or(-1)); });
    Collega(ui->tdbIcone, &Griglia::RigaCambiata, this, [this] { AbilitaPulsanti(); });
    TieneInvio(ui->tdbIcone->Vista());  // it opens the icon
    ui->tdbIcone->ConsentiTrascina(true);
    Collega(ui->tdbIcone, &Griglia::Trascinata, this,
            [this](int Meta) { SpostaIcone(ui->tdbIcone->Selezione(), Meta); });
    Collega(ui->cmdAddIco, Premuto, this, [this] { ModificaIcona(-1); });
    Collega(ui->cmdModIco, Premuto, this, [this] {
        if (const auto Riga = ui->tdbIcone->RigaCorrente())
            ModificaIcona(*Riga);
    });
    Collega(ui->cmdDelIco, Premuto, this,
            [this] { EliminaIcona(ui->tdbIcone->RigaCorrente().value_or(-1)); });
    for (const int Passo : {-1, 1}) {
        auto* Tasti = new QShortcut(QKeySequence(Qt::ALT | (Passo < 0 ? Qt::Key_Up : Qt::Key_Down)),
                                    ui->tdbIcone, nullptr, nullptr, Qt::WidgetWithChildrenShortcut);
        Collega(Tasti, &QShortcut::activated, this, [this, Passo] { SpostaIcona(Passo); });
    }
}

SchedaDesktop::~SchedaDesktop() = default;

void SchedaDesktop::Carica()
{
    for (size_t i = 0; i < Colori.size(); ++i) {
        const QString Chiave = VociColore[i].Chiave.toString();
        // A stored text that is no colour shows the default.
        Colori[i] = LeggiColore(ValoreConservato(Chiave))
                        .value_or(LeggiColore(PredefinitoDi(VoceDi(Chiave))).value_or(0));
    }
    Immagine = ValoreConservato(chiavi::SfondoDesktop);
    LoadImg();
    LoadTemplates();
    MostraAspetto();
    Icone = LeggiIcone();
    IconeLette = Icone;
    ui->tdbIcone->Rilega();
    AbilitaPulsanti();
}

ValoriScheda SchedaDesktop::Valori() const
{
    ValoriScheda Fatti{{chiavi::SfondoDesktop.toString(), Immagine}};
    for (size_t i = 0; i < Colori.size(); ++i)
        Fatti.append({VociColore[i].Chiave.toString(), QString::number(Colori[i])});
    return Fatti;
}

bool SchedaDesktop::SalvaIcone()
{
    // A save that is about other things does not undo what somebody else has changed meanwhile, nor writes an
    // empty list over a file that could not be read for a moment.
    if (!IconeCambiate() && LeggiIcone() != IconeLette)
        return true;
    if (!ScriviIconeUtente(Icone, IconeCambiate()))
        return false;
    IconeLette = Icone;
    IconeUtente = Icone;
    return true;
}

// ---- looks --------------------------------------------------------------------------------------

void SchedaDesktop::LoadImg()
{
    Sfondi = LeggiSfondi();
    ui->cmbSfondi->clear();
    for (const QString& File : Sfondi)
        ui->cmbSfondi->addItem(SenzaEstensione(File));
    ui->cmbSfondi->setPlaceholderText(u"nessuna"_s);
    SuggerisciLeggibile(ui->cmbSfondi);
}

void SchedaDesktop::LoadTemplates()
{
    Modelli = LeggiModelli();
    ui->cmbTemplates->clear();
    for (const ModelloAspetto& Modello : Modelli)
        ui->cmbTemplates->addItem(Modello.Nome);
    ui->cmbTemplates->setEnabled(!Modelli.isEmpty());
}

void SchedaDesktop::cmbTemplates_Click(int Voce)
{
    if (Voce < 0 || Voce >= Modelli.size())
        return;
    const ModelloAspetto& Modello = Modelli[Voce];
    for (size_t i = 0; i < Colori.size(); ++i)
        Colori[i] = Modello.Colori[i].value_or(Colori[i]);
    if (const QString File = TrovaSfondo(Sfondi, Modello.Immagine); !File.isEmpty())
        Immagine = File;
    MostraAspetto();
    // A template that is short of a value is not in force, but it is what the user has chosen.
    ui->cmbTemplates->setCurrentIndex(Voce);
}

void SchedaDesktop::cmbSfondi_Click(int Voce)
{
    Immagine = Sfondi.value(Voce);
    MostraAspetto();
}

void SchedaDesktop::cmdColor_Click(int Quale)
{
    const std::optional<int> Scelto = DialogoColore(Colori.at(size_t(Quale)));
    if (!Scelto)
        return;
    Colori.at(size_t(Quale)) = *Scelto;
    MostraAspetto();
}

void SchedaDesktop::MostraAspetto()
{
    const QString File = TrovaSfondo(Sfondi, Immagine);
    ui->cmbSfondi->setCurrentIndex(int(Sfondi.indexOf(File)));
    ui->cmdNessuna->setEnabled(!Immagine.isEmpty());
    for (int i = 0; i < ColoriDesktop; ++i)
        MostraColore(i);
    ui->imgPreview->Mostra(FileSfondo(File), Colori);
    MostraModello();
}

void SchedaDesktop::MostraColore(int Quale)
{
    const QColor Tinta = aspetto::DaBgr(Colori[size_t(Quale)]);
    auto* Campione = findChild<QWidget*>(u"lblSfondo_%1"_s.arg(Quale));
    QPalette Tavolozza = Campione->palette();
    Tavolozza.setColor(Campione->backgroundRole(), Tinta);
    Campione->setPalette(Tavolozza);
    const QString Nome = VociColore[size_t(Quale)].Nome.toString();
    auto* Pulsante = findChild<QWidget*>(u"cmdColor_%1"_s.arg(Quale));
    Pulsante->setAccessibleName(Nome);
    Pulsante->setAccessibleDescription(Tinta.name());
    Campione->setToolTip(Nome + u": "_s + Tinta.name());
}

void SchedaDesktop::MostraModello()
{
    int Trovato = -1;
    for (int i = 0; i < int(Modelli.size()) && Trovato < 0; ++i)
        if (InVigore(Modelli[i]))
            Trovato = i;
    ui->cmbTemplates->setCurrentIndex(Trovato);
}

bool SchedaDesktop::InVigore(const ModelloAspetto& Modello) const
{
    for (size_t i = 0; i < Colori.size(); ++i)
        if (Modello.Colori[i] != Colori[i])
            return false;
    const QString File = TrovaSfondo(Sfondi, Modello.Immagine);
    return !File.isEmpty() && File == TrovaSfondo(Sfondi, Immagine);
}

// ---- icons --------------------------------------------------------------------------------------

void SchedaDesktop::AbilitaPulsanti()
{
    const bool Corrente = ui->tdbIcone->RigaCorrente().has_value();
    ui->cmdModIco->setEnabled(Corrente);
    ui->cmdDelIco->setEnabled(Corrente);
}

std::optional<int> SchedaDesktop::RigaDi(int SullaScrivania) const
{
    if (SullaScrivania < 0 || SullaScrivania >= IconeUtente.Righe())
        return std::nullopt;
    const auto Uguale = [&](int Riga) {
        for (int c = 0; c < ColonneIcona; ++c)
            if (Icone(Riga, c) != IconeUtente(SullaScrivania, c))
                return false;
        return true;
    };
    // Of two that are alike the one in its own place.
    if (SullaScrivania < Icone.Righe() && Uguale(SullaScrivania))
        return SullaScrivania;
    for (int Riga = 0; Riga < Icone.Righe(); ++Riga)
        if (Uguale(Riga))
            return Riga;
    return std::nullopt;
}

void SchedaDesktop::ModificaIcona(int Riga)
{
    if (Riga >= Icone.Righe())
        return;
    frmIcons Modulo(Icone, Riga, this);
    if (Modulo.exec() != QDialog::Accepted)
        return;
    ui->tdbIcone->Rilega();
    ui->tdbIcone->ImpostaRigaCorrente(Modulo.Riga());
    AbilitaPulsanti();
}

void SchedaDesktop::EliminaIcona(int Riga)
{
    if (Riga < 0 || Riga >= Icone.Righe())
        return;
    const QString Domanda =
        u"Confermi la cancellazione dell'icona "_s + Icone(Riga, IconaTitolo).toString() + u'?';
    if (MsgBox(Domanda, vbYesNo + vbQuestion, TitoloDomanda.toString()) != vbYes)
        return;
    Icone.EliminaRiga(Riga);
    ui->tdbIcone->Rilega();
    AbilitaPulsanti();
}

void SchedaDesktop::SpostaIcona(int Passo)
{
    const int Riga = ui->tdbIcone->RigaCorrente().value_or(-1);
    const int Meta = Riga + Passo;
    if (Riga >= 0 && Meta >= 0 && Meta < Icone.Righe())
        SpostaIcone({Riga}, Meta);
}

void SchedaDesktop::SpostaIcone(const QList<int>& Quali, int Meta)
{
    if (Quali.isEmpty())
        return;
    const int Prima = SpostaRighe(Icone, Quali, Meta);
    ui->tdbIcone->AzzeraSelezione();
    ui->tdbIcone->Rilega();
    ui->tdbIcone->ImpostaRigaCorrente(Prima);
}

#include "moc_SchedaDesktop.cpp"
