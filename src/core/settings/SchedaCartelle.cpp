#include "core/settings/SchedaCartelle.h"

#include "core/aperture.h"
#include "core/impostazioni.h"
#include "core/indirizzi.h"
#include "core/modAvvio.h"
#include "core/modErrori.h"
#include "core/parametri.h"
#include "core/settings/filtrofile.h"
#include "core/settings/frmSfoglia.h"
#include "platform/kit/aspetto.h"
#include "platform/kit/campo.h"
#include "platform/kit/collega.h"
#include "platform/system/aparte.h"
#include "platform/system/file.h"
#include "platform/system/messaggi.h"
#include "platform/system/percorsi.h"
#include "platform/system/permessi.h"
#include "platform/system/shell.h"

#include "core/settings/ui_SchedaCartelle.h"

#include <array>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

enum class Genere { Cartella, Archivio, Programma };

/// A box, the key that it shows, and what it names; its place is the number of its buttons.
struct Percorso
{
    QLineEdit* Ui::SchedaCartelle::*Campo;
    QStringView Chiave;
    Genere Cosa;
};

constexpr std::array Percorsi{
    Percorso{&Ui::SchedaCartelle::txtDirectoryProc, chiavi::PercorsoProcedura, Genere::Cartella},
    Percorso{&Ui::SchedaCartelle::txtArchivioCliCon, chiavi::ArchivioCliCon, Genere::Archivio},
    Percorso{&Ui::SchedaCartelle::txtParcellePath, chiavi::ParcellePath, Genere::Cartella},
    Percorso{&Ui::SchedaCartelle::txtCartellaUtente, chiavi::UserFolder, Genere::Cartella},
    Percorso{&Ui::SchedaCartelle::txtWordProcessor, chiavi::WP, Genere::Programma},
};
constexpr int Parcelle = 2;

/// Stored where no word processor was chosen.
const QString SenzaProgramma = u"-1"_s;

QString Mostrato(QStringView Chiave)
{
    // The session's default is the program folder where "Parcelle" is missing; here the folder is proposed.
    if (Chiave == chiavi::ParcellePath) {
        const QString Conservata = Impostazione(Chiave.toString());
        return Conservata.isEmpty() ? CartellaParcelleProposta() : Conservata;
    }
    const QString Valore = ValoreConservato(Chiave);
    return Chiave == chiavi::WP && Valore == SenzaProgramma ? QString() : Valore;
}

QString DaConservare(QStringView Chiave, const QString& Testo)
{
    if (Chiave == chiavi::ArchivioCliCon)
        return PercorsoArchivio(Testo);
    return Chiave == chiavi::WP && Testo.isEmpty() ? SenzaProgramma : Testo;
}

bool ProgrammaNonScelto(QStringView Chiave, const QString& Testo)
{
    return Chiave == chiavi::PercorsoProcedura && Barra(Testo) == CartellaEseguibile() &&
           Impostazione(Chiave.toString()).isEmpty();
}

/// Asked for behind the last key: each would ask a disk for a folder of another name.
constexpr int PausaMs = 300;

/// True for what is named and is not there. What a disk does not answer for counts as there.
bool Manca(Genere Cosa, const QString& Testo)
{
    if (Testo.isEmpty())
        return false;
    if (Cosa == Genere::Cartella)
        return !EsisteCartellaEntro(Testo);
    const QString File = Cosa == Genere::Archivio ? PercorsoArchivio(Testo) : Testo;
    // A disk that has said no answers for names in other letters too.
    return EsisteFileEntro(File) == false && !EsisteFile(TrovaFile(File));
}

}  // namespace

SchedaCartelle::SchedaCartelle(QWidget* Padre) : QWidget(Padre), ui(std::make_unique<Ui::SchedaCartelle>())
{
    ui->setupUi(this);
    Pausa.setSingleShot(true);
    Pausa.setInterval(PausaMs);
    Collega(&Pausa, &QTimer::timeout, this, [this] { SegnaMancanti(); });
    for (int i = 0; i < int(Percorsi.size()); ++i) {
        QLineEdit* const Campo = ui.get()->*Percorsi[size_t(i)].Campo;
        Collega(Campo, &QLineEdit::textEdited, this, [this, i] {
            Ripieghi[size_t(i)].clear();
            Pausa.start();
        });
        Collega(Campo, &QLineEdit::textChanged, this, [this, i] {
            Cambiate.insert(i);
            if (!Pausa.isActive())
                SegnaMancanti();
        });
        Collega(findChild<QAbstractButton*>(u"cmdSelDir_%1"_s.arg(i)), &QAbstractButton::clicked, this,
                [this, i] { cmdSelDir_Click(i); });
        if (const auto* Crea = findChild<QAbstractButton*>(u"cmdCrea_%1"_s.arg(i)))
            Collega(Crea, &QAbstractButton::clicked, this, [this, i] { cmdCrea_Click(i); });
        auto* Avviso = findChild<QLabel*>(u"lblManca_%1"_s.arg(i));
        QPalette Colori = Avviso->palette();
        Colori.setColor(QPalette::WindowText, aspetto::Sbagliato());
        Avviso->setPalette(Colori);
    }
    Collega(ui->cmdImporta, &QAbstractButton::clicked, this, [] { Aperture.Apri(u"importa"); });
    constexpr double Grigio = 0.7;
    QPalette Colori = ui->lblSenzaServer->palette();
    Colori.setColor(QPalette::WindowText, aspetto::Mischia(Colori.color(QPalette::WindowText),
                                                           Colori.color(QPalette::Window), Grigio));
    ui->lblSenzaServer->setPalette(Colori);
}

SchedaCartelle::~SchedaCartelle() = default;

QLineEdit* SchedaCartelle::CasellaProgramma() const
{
    return ui->txtDirectoryProc;
}

QLineEdit* SchedaCartelle::CasellaArchivio() const
{
    return ui->txtArchivioCliCon;
}

QLineEdit* SchedaCartelle::CasellaParcelle() const
{
    return ui->txtParcellePath;
}

void SchedaCartelle::Carica()
{
    Pausa.start();  // all of them are asked for together, below
    const bool Guaste = !FraseImpostazioniGuaste().isEmpty();
    for (int i = 0; i < int(Percorsi.size()); ++i) {
        const Percorso& Voce = Percorsi[size_t(i)];
        MostraIntero(ui.get()->*Voce.Campo, Mostrato(Voce.Chiave));
        Cambiate.insert(i);
        const bool Perduta = Guaste && Impostazione(Voce.Chiave.toString()).isEmpty() &&
                             RitrovatoDelPrimoUso(Voce.Chiave).isEmpty();
        Ripieghi[size_t(i)] = Perduta ? Mostrato(Voce.Chiave) : QString();
    }
    ArchivioLetto = ui->txtArchivioCliCon->text();
    ui->chkCercaAgg->setChecked(ValoreConservato(chiavi::CercaAgg) == u"S");
    ui->cmdImporta->setVisible(Aperture.Ha(u"importa"));
    const bool Server = !indirizzi::Server().isEmpty();
    ui->lblSenzaServer->setVisible(!Server);
    ui->chkCercaAgg->setAccessibleDescription(Server ? QString() : ui->lblSenzaServer->text());
    SegnaMancanti();
}

void SchedaCartelle::Ricarica()
{
    const auto Prima = Ripieghi;
    Carica();
    for (size_t i = 0; i < Percorsi.size(); ++i) {
        const Percorso& Voce = Percorsi[i];
        if (Impostazione(Voce.Chiave.toString()).isEmpty() && Mostrato(Voce.Chiave) == Prima[i])
            Ripieghi[i] = Prima[i];
    }
}

ValoriScheda SchedaCartelle::Valori() const
{
    ValoriScheda Fatti;
    for (size_t i = 0; i < Percorsi.size(); ++i) {
        const Percorso& Voce = Percorsi[i];
        const QString Testo = (ui.get()->*Voce.Campo)->text().trimmed();
        const bool Ripiego = !Ripieghi[i].isEmpty() && Testo == Ripieghi[i];
        if (!Ripiego && !ProgrammaNonScelto(Voce.Chiave, Testo))
            Fatti.append({Voce.Chiave.toString(), DaConservare(Voce.Chiave, Testo)});
    }
    Fatti.append({chiavi::CercaAgg.toString(), ui->chkCercaAgg->isChecked() ? u"S"_s : u"N"_s});
    return Fatti;
}

void SchedaCartelle::SegueArchivio()
{
    const QString Prima = std::exchange(ArchivioLetto, Mostrato(chiavi::ArchivioCliCon));
    if (ui->txtArchivioCliCon->text() == Prima)
        MostraIntero(ui->txtArchivioCliCon, ArchivioLetto);
}

void SchedaCartelle::SegnaMancanti()
{
    Pausa.stop();
    const QSet<int> Adesso = std::exchange(Cambiate, {});
    for (const int i : Adesso) {
        const Percorso& Voce = Percorsi[size_t(i)];
        const bool Assente = Manca(Voce.Cosa, (ui.get()->*Voce.Campo)->text().trimmed());
        findChild<QLabel*>(u"lblManca_%1"_s.arg(i))->setVisible(Assente);
        if (auto* Crea = findChild<QAbstractButton*>(u"cmdCrea_%1"_s.arg(i)))
            Crea->setVisible(Assente);
    }
}

void SchedaCartelle::cmdSelDir_Click(int Quale)
{
    const Percorso& Voce = Percorsi.at(size_t(Quale));
    QLineEdit* Campo = ui.get()->*Voce.Campo;
    QString Scelto;
    switch (Voce.Cosa) {
    case Genere::Cartella:
        Scelto = frmSfoglia(this).Scegli(u"Scegli la cartella"_s, Campo->text());
        break;
    case Genere::Archivio:
        Scelto = DialogoApri(u"Scegli l'archivio"_s, PercorsoArchivio(Campo->text()),
                             u"Applicazione (*.mdb)|*.mdb"_s);
        break;
    case Genere::Programma:
        Scelto = DialogoApri(u"Scegli il word processor"_s, Campo->text(),
                             FiltroProgrammi(u"Applicazione (*.exe)|*.exe"_s));
        break;
    }
    if (!Scelto.isEmpty()) {
        Ripieghi.at(size_t(Quale)).clear();
        Campo->setText(Scelto);
    }
    Campo->setFocus();
}

void SchedaCartelle::cmdCrea_Click(int Quale)
{
    const QString Cartella = (ui.get()->*Percorsi.at(size_t(Quale)).Campo)->text().trimmed();
    // Without "Modelli" the templates would go beside the program.
    const bool Fatta = Protetta(
        [&] { CreaCartellaDiUtente(Quale == Parcelle ? Barra(Cartella) + u"Modelli"_s : Cartella); });
    if (Fatta)
        Ripieghi.at(size_t(Quale)).clear();  // who makes a folder wants this one
    Cambiate.insert(Quale);
    SegnaMancanti();
    (ui.get()->*Percorsi.at(size_t(Quale)).Campo)->setFocus();
}

#include "moc_SchedaCartelle.cpp"
