#include "calculators/windows/pannellovigente.h"

#include "calculators/modContributo.h"
#include "calculators/windows/etamostrata.h"
#include "calculators/windows/finestracalcolo.h"
#include "platform/base/errore.h"
#include "platform/base/regionale.h"
#include "platform/grid/griglia.h"
#include "platform/kit/annuncio.h"
#include "platform/kit/aspetto.h"
#include "platform/kit/campo.h"
#include "platform/kit/collega.h"
#include "platform/kit/lettere.h"
#include "platform/system/orologio.h"

#include "calculators/windows/ui_PannelloVigente.h"

#include <QLabel>
#include <QSignalBlocker>
#include <QTableView>

#include <array>

using namespace Qt::StringLiterals;

namespace {

enum ColonnaPassi { ColPassaggio, ColEuro, ColNorma, NumColonnePassi };

QString Euro(double Importo)
{
    return Format(Importo, ModelloImporto);
}

/// A rule that is not in force on that day says so in its row.
QString TestoDi(const PassoContributo& Passo)
{
    return Passo.Nota.isEmpty() ? Passo.Testo : Passo.Testo + u" ("_s + Passo.Nota + u')';
}

QString NormaDi(const PassoContributo& Passo)
{
    return Passo.NonRiscontrato ? Passo.Norma + u": criterio non riscontrato"_s : Passo.Norma;
}

}  // namespace

PannelloVigente::PannelloVigente(QWidget* Padre) : QWidget(Padre), ui(std::make_unique<Ui::PannelloVigente>())
{
    ui->setupUi(this);
    aspetto::MisuraConLeLettere({ui->mskDeposito, ui->cmbProcedimento, ui->fraEsito, ui->tdbVigente});
    setObjectName(u"fraVigente"_s);
    for (const QStringView Voce : VociGrado)
        ui->cmbGrado->addItem(Voce.toString());
    ui->cmdCopiaVigente->setIcon(aspetto::Icona(u"copia"_s));
    constexpr int BordoCasella = 16;
    ui->txtValoreVigente->setFixedWidth(
        ui->txtValoreVigente->fontMetrics().horizontalAdvance(u"999.999.999,99"_s) + BordoCasella);
    ui->txtRicorrenti->setFixedWidth(ui->txtRicorrenti->fontMetrics().horizontalAdvance(u"0000"_s) +
                                     BordoCasella);
    PreparaCifra(ui->lblVigente);
    SfondoPannello(ui->fraEsito);
    Colonne();
    Collegamenti();
    Svuota();
}

PannelloVigente::~PannelloVigente() = default;

void PannelloVigente::Colonne()
{
    const auto Colonna = [](const QString& Titolo, int Campo, int Caratteri, Qt::Alignment Allinea) {
        ColonnaGriglia Nuova;
        Nuova.Titolo = Titolo;
        Nuova.Campo = Campo;
        Nuova.Caratteri = Caratteri;
        Nuova.Allinea = Allinea;
        Nuova.Stira = Campo == ColNorma;
        return Nuova;
    };
    Righe.Azzera(NumColonnePassi);
    ui->tdbVigente->ImpostaColonne({Colonna(u"Come si arriva all'importo"_s, ColPassaggio, 36, Qt::AlignLeft),
                                    Colonna(u"Euro"_s, ColEuro, 11, Qt::AlignRight),
                                    Colonna(u"Norma"_s, ColNorma, 24, Qt::AlignLeft)});
    ui->tdbVigente->FraseVuota(u"Scegliere il procedimento e scrivere il valore."_s);
    ui->tdbVigente->Lega(&Righe);
    ui->tdbVigente->Suggerimento = [this](int Riga) {
        if (Riga < 0 || Riga >= Passi.size())
            return QString();
        const PassoContributo& Passo = Passi[Riga];
        return TestoDi(Passo) + u'\n' + NormaDi(Passo);
    };
}

void PannelloVigente::Collegamenti()
{
    const auto Ricalcola = [this] { Calcola(); };
    FiltraTasti(ui->txtValoreVigente, u","_s);
    FiltraTasti(ui->txtRicorrenti, u"0123456789"_s);
    AlLasciaSempre(ui->mskDeposito, [this] {
        ui->mskDeposito->CompletaAnno();
        return true;
    });
    AlLasciaSempre(ui->txtValoreVigente, [this] {
        ui->txtValoreVigente->setText(::ValoreLasciato(ui->txtValoreVigente->text()));
        if (ValoreLasciato)
            ValoreLasciato();
        return true;
    });
    Collega(ui->cmbProcedimento, &QComboBox::currentIndexChanged, this, [this] { CambiaProcedimento(); });
    Collega(ui->cmbGrado, &QComboBox::currentIndexChanged, this, Ricalcola);
    for (QLineEdit* Casella :
         std::initializer_list<QLineEdit*>{ui->mskDeposito, ui->txtValoreVigente, ui->txtRicorrenti})
        Collega(Casella, &QLineEdit::textChanged, this, Ricalcola);
    for (const QCheckBox* Spunta :
         {ui->chkDimezzato, ui->chkImprese, ui->chkOmessi, ui->chkRespinta, ui->chkNotifiche})
        Collega(Spunta, &QCheckBox::toggled, this, Ricalcola);
    CopiaConClic(
        ui->cmdCopiaVigente, [this] { return TestoCopia(); }, [this] { return RigheCopia(); });
}

void PannelloVigente::Imposta(std::shared_ptr<const Norme> DiLegge)
{
    if (Insieme == DiLegge)
        return;
    Insieme = std::move(DiLegge);
    Procedimenti = ProcedimentiContributo(*Insieme);
    {
        const QSignalBlocker Zitta(ui->cmbProcedimento);
        ui->cmbProcedimento->clear();
        for (const ProcedimentoContributo& Uno : std::as_const(Procedimenti))
            ui->cmbProcedimento->addItem(Uno.Categoria);
        ui->cmbProcedimento->setCurrentIndex(0);
    }
    MostraEta(ui->lblEta, EtaNorme(*Insieme, Oggi()));
    CambiaProcedimento();
}

void PannelloVigente::Svuota()
{
    ui->mskDeposito->ImpostaData(Oggi());
    ui->txtValoreVigente->clear();
    ui->txtRicorrenti->setText(u"1"_s);
    ui->cmbGrado->setCurrentIndex(0);
    for (QCheckBox* Spunta : {ui->chkDimezzato, ui->chkImprese, ui->chkOmessi, ui->chkRespinta})
        Spunta->setChecked(false);
    ui->chkNotifiche->setChecked(true);
    Calcola();
}

const ProcedimentoContributo* PannelloVigente::Procedimento() const
{
    const int Quale = ui->cmbProcedimento->currentIndex();
    return Quale >= 0 && Quale < Procedimenti.size() ? &Procedimenti[Quale] : nullptr;
}

/// What a proceeding does not ask for rests.
void PannelloVigente::CambiaProcedimento()
{
    if (const ProcedimentoContributo* Scelto = Procedimento()) {
        for (QWidget* Campo : std::initializer_list<QWidget*>{ui->lblValoreVigente, ui->txtValoreVigente})
            Campo->setEnabled(Scelto->AValore);
        for (QWidget* Campo : std::initializer_list<QWidget*>{ui->lblGrado, ui->cmbGrado})
            Campo->setEnabled(Scelto->ConGradi);
        for (QWidget* Campo : std::initializer_list<QWidget*>{ui->lblRicorrenti, ui->txtRicorrenti})
            Campo->setEnabled(Scelto->PerCiascuno);
        ui->chkNotifiche->setEnabled(Scelto->ConNotifiche);
        ui->cmbProcedimento->setToolTip(Scelto->Categoria);
    }
    Calcola();
}

std::optional<RichiestaContributo> PannelloVigente::Richiesta()
{
    const ProcedimentoContributo* Scelto = Procedimento();
    if (!Scelto)
        return std::nullopt;
    RichiestaContributo Chiesto;
    Chiesto.Procedimento = Scelto->Codice;
    const auto Deposito = ui->mskDeposito->Data();
    if (!Deposito) {
        MostraErrore(u"La data del deposito non è una data valida."_s);
        return std::nullopt;
    }
    Chiesto.Deposito = *Deposito;
    if (Scelto->AValore) {
        const QString Testo = ui->txtValoreVigente->text().trimmed();
        if (Testo.isEmpty())
            return std::nullopt;
        if (!IsNumeric(Testo)) {
            MostraErrore(u"Immettere un valore numerico!"_s);
            return std::nullopt;
        }
        Chiesto.ValoreEuro = CDbl(Testo);
    }
    if (Scelto->ConGradi)
        Chiesto.Grado = GradoGiudizio(ui->cmbGrado->currentIndex());
    Chiesto.Dimezzato = ui->chkDimezzato->isChecked();
    Chiesto.Imprese = ui->chkImprese->isChecked();
    Chiesto.OmessiDati = ui->chkOmessi->isChecked();
    Chiesto.Respinta = ui->chkRespinta->isChecked();
    Chiesto.Notifiche = ui->chkNotifiche->isChecked();
    if (Scelto->PerCiascuno)
        Chiesto.Ricorrenti = std::max(ui->txtRicorrenti->text().toInt(), 1);
    return Chiesto;
}

/// The amount follows what is typed; what cannot be reckoned says so in its place, without a box.
void PannelloVigente::Calcola()
{
    Mostra({});
    if (!Insieme)
        return;
    const auto Chiesto = Richiesta();
    if (!Chiesto)
        return;
    try {
        Mostra(ContributoVigente(*Insieme, *Chiesto));
    } catch (const Errore& Guasto) {
        MostraErrore(Guasto.Descrizione + u'.');
    }
}

void PannelloVigente::Mostra(const EsitoContributo& Esito)
{
    Ultimo = Esito;
    Passi = Esito.Passi;
    Righe.Azzera(NumColonnePassi);
    for (const PassoContributo& Passo : std::as_const(Passi)) {
        const int Riga = Righe.AggiungiRiga();
        Righe(Riga, ColPassaggio) = TestoDi(Passo);
        Righe(Riga, ColEuro) = Euro(Passo.Euro);
        Righe(Riga, ColNorma) = NormaDi(Passo);
    }
    ui->tdbVigente->Rilega();
    const bool Trovato = !Passi.isEmpty();
    MostraCifra(ui->lblVigente, ui->lblDidVigente, Trovato ? Euro(Esito.ContributoEuro) : QString());
    QStringList Sotto;
    if (Trovato && Esito.AggiunteEuro > 0)
        Sotto << u"In tutto "_s + Euro(Esito.TotaleEuro()) + u" con quanto si versa in più."_s;
    if (Trovato && Esito.MinimoEuro)
        Sotto << u"Minimo per l'iscrizione a ruolo "_s + Euro(*Esito.MinimoEuro) + u'.';
    ui->lblTotaleVigente->setText(Sotto.join(u'\n'));
    ui->lblNoteVigente->setPalette({});
    // How old the norms are stands below, for every day.
    QStringList Note = Esito.Note;
    Note.removeIf([this](const QString& Nota) { return ui->lblEta->text().startsWith(Nota); });
    ui->lblNoteVigente->setText(Note.join(u'\n'));
    ui->cmdCopiaVigente->setEnabled(Trovato);
    Q_EMIT Calcolato();
    if (Trovato && isVisible())
        AnnunciaRisultato(ui->lblVigente);
}

void PannelloVigente::MostraErrore(const QString& Frase)
{
    QPalette Colori;
    Colori.setColor(ui->lblNoteVigente->foregroundRole(), aspetto::Sbagliato());
    ui->lblNoteVigente->setPalette(Colori);
    ui->lblNoteVigente->setText(Frase);
}

QString PannelloVigente::Importo() const
{
    return ui->lblVigente->text();
}

/// The amount and how it came about, as lines of a letter.
QString PannelloVigente::TestoCopia() const
{
    if (Passi.isEmpty())
        return {};
    QStringList Testo{u"Contributo unificato al "_s + Format(*ui->mskDeposito->Data(), ModelloData) +
                      u": "_s + Importo()};
    for (const PassoContributo& Passo : Passi)
        Testo << QStringList{TestoDi(Passo), Euro(Passo.Euro), NormaDi(Passo)}.join(u'\t');
    for (const QLabel* Sotto : {ui->lblTotaleVigente, ui->lblNoteVigente})
        if (!Sotto->text().isEmpty())
            Testo << Sotto->text();
    return Testo.join(u'\n');
}

QList<SpesaDiLegge> PannelloVigente::Spese() const
{
    const auto Giorno = ui->mskDeposito->Data();
    QList<SpesaDiLegge> Tutte;
    if (!Giorno)
        return Tutte;
    if (Ultimo.ContributoEuro > 0)
        Tutte.append({VoceDiLegge::Contributo, Ultimo.ContributoEuro, *Giorno});
    if (Ultimo.NotificheEuro > 0)
        Tutte.append({VoceDiLegge::Anticipazione, Ultimo.NotificheEuro, *Giorno});
    return Tutte;
}

void PannelloVigente::AggiungiAccanto(QWidget* Cosa)
{
    ui->rigaCifra->addWidget(Cosa);
    setTabOrder(ui->cmdCopiaVigente, Cosa);
    setTabOrder(Cosa, ui->tdbVigente->Vista());
}

QString PannelloVigente::FuoriDalleSpese() const
{
    const double Altro = Ultimo.AggiunteEuro - Ultimo.NotificheEuro;
    return Altro > 0 ? u"; resta fuori l'imposta di registro, "_s + Euro(Altro) : QString();
}

/// The same as rows of a table.
QList<QStringList> PannelloVigente::RigheCopia() const
{
    SchedaCalcolo Scheda;
    if (!Passi.isEmpty())
        Scheda.Sezioni << Sezione();
    return RigheScheda(Scheda);
}

QString PannelloVigente::Chiesto() const
{
    const ProcedimentoContributo* Scelto = Procedimento();
    if (!Scelto)
        return {};
    const QString Valore = ui->txtValoreVigente->text();
    return Scelto->AValore && !Valore.isEmpty() ? Scelto->Categoria + u", valore "_s + Valore
                                                : Scelto->Categoria;
}

SezioneScheda PannelloVigente::Sezione() const
{
    SezioneScheda Parte;
    if (Passi.isEmpty())
        return Parte;
    Parte.Titolo = u"Importi in vigore: "_s + Chiesto();
    Parte.Risultato = u"Contributo unificato al "_s + Format(*ui->mskDeposito->Data(), ModelloData) +
                      u": "_s + Importo() + u" euro"_s;
    Parte.Tabella.Colonne = {{u"Come si arriva all'importo"_s, u"8.4cm"_s},
                             {u"Euro"_s, u"2.6cm"_s, Allineamento::Destra},
                             {u"Norma"_s, u"6.4cm"_s}};
    for (const PassoContributo& Passo : Passi)
        Parte.Tabella.Righe << QStringList{TestoDi(Passo), Euro(Passo.Euro), NormaDi(Passo)};
    for (const QLabel* Sotto : {ui->lblTotaleVigente, ui->lblNoteVigente})
        if (!Sotto->text().isEmpty())
            Parte.Note << Sotto->text().split(u'\n');
    return Parte;
}

QStringList PannelloVigente::EtaNote() const
{
    return Insieme ? RigheEta(EtaNorme(*Insieme, Oggi())) : QStringList();
}

QList<QWidget*> PannelloVigente::Campi() const
{
    return {ui->cmbProcedimento, ui->mskDeposito, ui->txtValoreVigente, ui->cmbGrado,    ui->txtRicorrenti,
            ui->chkDimezzato,    ui->chkImprese,  ui->chkOmessi,        ui->chkRespinta, ui->chkNotifiche};
}

#include "moc_pannellovigente.cpp"
