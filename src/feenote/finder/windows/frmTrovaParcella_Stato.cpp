// The finder: notes by their state, what is open of them, the accountant's file.
#include "feenote/finder/windows/frmTrovaParcella.h"

#include "core/modErrori.h"
#include "feenote/finder/windows/ui_frmTrovaParcella.h"
#include "platform/base/regionale.h"
#include "platform/kit/aspetto.h"
#include "platform/kit/campo.h"
#include "platform/kit/collega.h"
#include "platform/kit/scelta.h"
#include "platform/system/cartelle.h"
#include "platform/system/esportato.h"
#include "platform/system/file.h"
#include "platform/system/messaggi.h"
#include "platform/system/orologio.h"
#include "platform/system/percorsi.h"
#include "platform/system/shell.h"

#include <QMenu>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

/// More than these no menu shows without scrolling; the file has them all.
constexpr qsizetype MassimiNelMenu = 30;
/// Letters of a name that a button shows.
constexpr qsizetype MassimoNelTasto = 28;

QString ConCsv(const QString& File)
{
    return File.endsWith(u".csv", Qt::CaseInsensitive) ? File : File + u".csv"_s;
}

}  // namespace

void frmTrovaParcella::CollegaStato()
{
    ui->cmbStato->addItems(VociFiltroStato());
    AlScegliere(ui->cmbStato, [this](int Quale, ModoScelta) { cmbStato_Click(Quale); });
    ui->cmdPerCliente->setMenu(new QMenu(ui->cmdPerCliente));
    ui->cmdPerCliente->setEnabled(false);
    ui->cmdUnCliente->setIcon(aspetto::Icona(u"chiudi"_s));
    Collega(ui->cmdUnCliente, &QAbstractButton::clicked, this, [this] { FiltraSolo({}, {}); });
}

void frmTrovaParcella::cmbStato_Click(int Quale)
{
    const QString Corrente = PercorsoCorrente();
    Righe.FiltraStato(FiltroStato(Quale));
    MostraFiltrate(Corrente);
}

void frmTrovaParcella::SoloDelCliente(const std::optional<ClienteNota>& Chi, const QString& Nome)
{
    Solo = Chi;
    const QString Detto = Nome.size() > MassimoNelTasto ? Nome.left(MassimoNelTasto - 1) + u'…' : Nome;
    ui->cmdUnCliente->setText(u"Solo "_s + QString(Detto).replace(u'&', u"&&"_s));
    const QString Intero = u"Restano le parcelle di un cliente solo: "_s + Nome +
                           u". Premere per rivedere quelle di tutti i clienti"_s;
    ui->cmdUnCliente->setToolTip(Intero);
    ui->cmdUnCliente->setAccessibleName(u"Solo "_s + Nome + u": togli il filtro"_s);
    ui->cmdUnCliente->setVisible(Chi.has_value());
}

void frmTrovaParcella::FiltraSolo(const std::optional<ClienteNota>& Chi, const QString& Nome)
{
    const QString Corrente = PercorsoCorrente();
    ui->tdbParcelle->setFocus(Qt::OtherFocusReason);  // the button goes
    SoloDelCliente(Chi, Nome);
    Righe.FiltraCliente(Solo);
    MostraFiltrate(Corrente);
}

void frmTrovaParcella::MostraAperto()
{
    if (InRicerca() && Motivo != Scopo::Rinfresca) {
        ui->lblAperto->clear();
        ui->cmdPerCliente->setEnabled(false);
        return;
    }
    const ApertoTutto Somma = SommaAperto(Righe.NoteMostrate(), Righe.NoteTutte());
    const bool Niente = Somma.Note == 0 && Somma.Ignote == 0;
    QStringList Frasi{Niente ? u"Niente da incassare tra le parcelle mostrate"_s : FraseAperto(Somma)};
    if (const QString Parziale = FraseParziale(Conto); !Parziale.isEmpty())
        Frasi += Parziale;
    ui->lblAperto->setText(Frasi.join(u"; "_s) + (Niente ? u"."_s : QString()));
    ui->lblAperto->setToolTip(ui->lblAperto->text());
    RiempiPerCliente(Somma);
}

void frmTrovaParcella::RiempiPerCliente(const ApertoTutto& Somma)
{
    QMenu* Tendina = ui->cmdPerCliente->menu();
    Tendina->clear();
    ui->cmdPerCliente->setEnabled(!Somma.Clienti.isEmpty() || Solo);
    if (Solo)
        Collega(Tendina->addAction(u"Tutti i clienti"_s), &QAction::triggered, this,
                [this] { FiltraSolo({}, {}); });
    for (const ApertoCliente& Uno : Somma.Clienti.first(std::min(MassimiNelMenu, Somma.Clienti.size()))) {
        const QString Chi = Uno.Cliente.isEmpty() ? u"Senza cliente"_s : Uno.Cliente;
        QAction* Voce = Tendina->addAction(QString(Chi).replace(u'&', u"&&"_s) + u'\t' + FraseAperto(Uno));
        Collega(Voce, &QAction::triggered, this,
                [this, Chi, Quello = Uno.Chi()] { FiltraSolo(Quello, Chi); });
    }
    if (const qsizetype Altri = Somma.Clienti.size() - MassimiNelMenu; Altri > 0)
        Tendina->addAction(Altri == 1 ? u"e un altro"_s : u"e altri %1"_s.arg(Altri))->setEnabled(false);
}

void frmTrovaParcella::EsportaCsv()
{
    if (InRicerca() || Righe.Note() == 0)
        return;
    const QString Detto = DialogoSalva(u"Esporta le parcelle"_s,
                                       CartellaSpeciale(CartellaDocumenti) + u"Scadenzario "_s +
                                           Format(Oggi(), u"dd-mm-yyyy") + u".csv"_s,
                                       u"Foglio di calcolo CSV (*.csv)|*.csv"_s);
    if (Detto.isEmpty())
        return;
    const QString File = ConCsv(PercorsoNativo(Detto));
    if (!Sostituibile(File))
        return;
    // The rows may have been listed anew behind the questions: those of now are written.
    const std::vector<const VoceTrova*> Note = Righe.NoteMostrate();
    const auto SoloModelli = std::ranges::count_if(Note, [](const VoceTrova* Nota) { return Nota->Modello; });
    const auto Quante = std::ssize(Note) - SoloModelli;
    QString Manca = FraseParziale(Conto);
    if (!Protetta([&] {
            const ClessidraAccesa Attesa;
            ScriviFile(File,
                       CsvScadenzario(
                           Note, [this](int Chi) { return Nomi.Codici(Chi); }, Righe.NoteTutte()),
                       Lettori::SoloUtente);
            if (Nomi.Guasto())
                Manca +=
                    (Manca.isEmpty() ? QString() : u"; "_s) +
                    u"mancano codici fiscali e partite IVA, perché l'archivio dei clienti %1 non si legge"_s
                        .arg(Nomi.FileArchivio());
            Nomi.Chiudi();
        }))
        return;
    MostraEsportato(
        (Quante == 1 ? u"1 parcella esportata"_s : Format(int(Quante), u"#,##0") + u" parcelle esportate"_s) +
            u" in \""_s + NomeFile(File) + u"\"."_s +
            (Manca.isEmpty() ? QString() : u"\nAttenzione, il foglio non è completo: "_s + Manca + u'.'),
        File);
}
