#include "calculators/windows/frmStrada.h"

#include "calculators/windows/finestracalcolo.h"
#include "platform/base/regionale.h"
#include "platform/calendar/calendario.h"
#include "platform/grid/griglia.h"
#include "platform/kit/aspetto.h"
#include "platform/kit/collega.h"
#include "platform/kit/lettere.h"
#include "print/windows/frmPrint.h"

#include "calculators/windows/ui_frmStrada.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

enum ColonnaStrada { ColDate, ColGiorni, ColPasso, ColNormaStrada, NumColonneStrada };

// In the order of the count; the places are those of SegniStrada.
enum SegnoStrada { SegnoContati, SegnoComune, SegnoRecuperati, SegnoLibero, SegnoSpostati };

bool ESospensione(GenerePasso Genere)
{
    return Genere == GenerePasso::Sospensione || Genere == GenerePasso::InizioDifferito;
}

bool Comprende(const PassoStrada& Passo, const QDate& Giorno)
{
    const auto [Dal, Al] = std::minmax(Passo.Da, Passo.A);
    return Giorno >= Dal && Giorno <= Al;
}

bool HaSospeso(const Strada& Passi, const QDate& Giorno)
{
    return std::ranges::any_of(Passi, [&](const PassoStrada& Passo) {
        return ESospensione(Passo.Genere) && Comprende(Passo, Giorno);
    });
}

/// A step as a sentence: the columns of the table may be too narrow for its norm.
QString TestoPasso(const PassoStrada& Passo)
{
    const QString Norma = NormaPasso(Passo);
    return DescrizionePasso(Passo) + (Norma.isEmpty() ? QString() : u": "_s + Norma);
}

/// The kind of a day by the steps of a road: the last step that touches it, since a due date that moves is
/// the last thing that happens to a day.
int SegnoDi(const Strada& Passi, const QDate& Giorno)
{
    int Quale = -1;
    for (const PassoStrada& Passo : Passi) {
        const int Segno = SegnoPasso(Passo.Genere);
        // Months begin on the day that is not counted.
        const bool Primo = Segno == SegnoComune && Giorno == Passo.Da;
        if (Segno >= 0 && !Primo && Comprende(Passo, Giorno))
            Quale = Segno;
        if (ESospensione(Passo.Genere) && Comprende(Passo, Giorno))
            Quale = -1;
    }
    return Quale;
}

}  // namespace

int SegnoPasso(GenerePasso Genere)
{
    switch (Genere) {
    case GenerePasso::GiorniContati:
        return SegnoContati;
    case GenerePasso::Calendario:
        return SegnoComune;
    case GenerePasso::GiorniRecuperati:
        return SegnoRecuperati;
    case GenerePasso::GiornoLibero:
        return SegnoLibero;
    case GenerePasso::Festivo:
    case GenerePasso::Domenica:
    case GenerePasso::Sabato:
        return SegnoSpostati;
    default:
        return -1;
    }
}

QList<SegnoCalendario> SegniStrada()
{
    return {{u"Contato"_s, u'c', QColor(0x2E, 0x75, 0xB6)},
            {u"A calendario"_s, u'm', QColor(0x2E, 0x9A, 0x8F)},
            {u"Recuperato"_s, u'r', QColor(0x7A, 0x4F, 0xB5)},
            {u"Giorno libero"_s, u'l', QColor(0x5B, 0x8C, 0x3E)},
            {u"Spostato"_s, u's', QColor(0xC0, 0x4F, 0x4F)}};
}

frmStrada::frmStrada(QWidget* Padre) : QDialog(Padre), ui(std::make_unique<Ui::frmStrada>())
{
    ui->setupUi(this);
    aspetto::MisuraConLeLettere({ui->tdbStrada});
    Colonne();
    ui->Calendario->ImpostaSegni(SegniStrada(), [this](const QDate& Giorno) {
        return ParteMostrata >= 0 ? SegnoDi(Parti[ParteMostrata].Passi, Giorno) : -1;
    });
    ui->cmdCopia->setIcon(aspetto::Icona(u"copia"_s));
    ui->cmdStampa->setIcon(aspetto::Icona(u"print"_s));
    PreparaModulo(this, u"termini"_s);
    Collegamenti();
}

frmStrada::~frmStrada() = default;

void frmStrada::Colonne()
{
    const auto Colonna = [](const QString& Titolo, int Campo, int Caratteri,
                            Qt::Alignment Allinea = Qt::AlignLeft) {
        ColonnaGriglia Nuova;
        Nuova.Titolo = Titolo;
        Nuova.Campo = Campo;
        Nuova.Caratteri = Caratteri;
        Nuova.Allinea = Allinea;
        Nuova.Stira = Campo == ColNormaStrada;
        return Nuova;
    };
    Righe.Azzera(NumColonneStrada);
    ui->tdbStrada->ImpostaColonne(
        {Colonna(u"Date"_s, ColDate, 21), Colonna(u"Giorni"_s, ColGiorni, 6, Qt::AlignRight),
         Colonna(u"Che cosa"_s, ColPasso, 23), Colonna(u"Norma"_s, ColNormaStrada, 12)});
    ui->tdbStrada->Lega(&Righe);
    ui->tdbStrada->Suggerimento = [this](int Riga) {
        return Riga >= 0 && Riga < Righe.Righe()
                   ? Righe(Riga, ColPasso).toString() + u'\n' + Righe(Riga, ColNormaStrada).toString()
                   : QString();
    };
}

void frmStrada::Collegamenti()
{
    Collega(ui->tdbStrada, &Griglia::RigaCambiata, this, [this](int Riga) { MostraRiga(Riga); });
    Collega(ui->cmdStampa, &QPushButton::clicked, this, [this] { mnuStampa_Click(); });
    Collega(ui->cmdChiudi, &QPushButton::clicked, this, [this] { close(); });
    CopiaRisultato(
        this, ui->cmdCopia, [this] { return TestoCopia(); }, [this] { return RigheScheda(Scheda); });
}

void frmStrada::Mostra(const QList<ParteStrada>& Nuove, const SchedaCalcolo& DelCalcolo,
                       const QString& SuffissoStampa, const std::function<bool(const QDate& Giorno)>& Festivo)
{
    Parti = Nuove;
    Scheda = DelCalcolo;
    Suffisso = SuffissoStampa;
    // Suspended are the days that this term has left out, and no others.
    ui->Calendario->ImpostaRegole({Festivo, [this](const QDate& Giorno) {
                                       return ParteMostrata >= 0 &&
                                              HaSospeso(Parti[ParteMostrata].Passi, Giorno);
                                   }});
    Elenca();
    MostraModulo(this);
    ui->tdbStrada->ImpostaRigaCorrente(0);
    MostraRiga(0);
    ui->tdbStrada->setFocus();
}

void frmStrada::Elenca()
{
    Righe.Azzera(NumColonneStrada);
    Posti.clear();
    const auto Aggiungi = [this](const RigaPasso& Posto, const std::array<QString, NumColonneStrada>& Celle) {
        Posti.append(Posto);
        const int Riga = Righe.AggiungiRiga();
        for (int Colonna = 0; Colonna < NumColonneStrada; ++Colonna)
            Righe(Riga, Colonna) = Celle[size_t(Colonna)];
    };
    QStringList Avvisi;
    for (qsizetype i = 0; i < Parti.size(); ++i) {
        const ParteStrada& Una = Parti[i];
        if (Parti.size() > 1)
            Aggiungi({i, -1}, {QString(), QString(), Una.Titolo, Una.Risultato});
        for (qsizetype j = 0; j < Una.Passi.size(); ++j) {
            const PassoStrada& Passo = Una.Passi[j];
            Aggiungi({i, j}, {DatePasso(Passo), Passo.Giorni > 0 ? CStr(Passo.Giorni) : QString(),
                              DescrizionePasso(Passo), NormaPasso(Passo)});
        }
        for (const QString& Nota : Una.Note)
            if (!Avvisi.contains(Nota))
                Avvisi << Nota;
    }
    ui->tdbStrada->Rilega();
    ui->lblNote->setText(Avvisi.join(u'\n'));
    ui->lblNote->setVisible(!Avvisi.isEmpty());
    ParteMostrata = -1;
}

/// The title follows the row, and the calendar goes to its first day, in the colours of its term alone: those
/// of terms that run side by side would lie on each other.
void frmStrada::MostraRiga(int Riga)
{
    if (Riga < 0 || Riga >= Posti.size())
        return;
    const RigaPasso& Posto = Posti[Riga];
    const ParteStrada& Una = Parti[Posto.Parte];
    ParteMostrata = Posto.Parte;
    ui->lblTermine->setText(Una.Titolo);
    ui->lblScadenza->setText(Una.Risultato);
    ui->lblPasso->setText(Posto.Passo < 0 ? QString() : TestoPasso(Una.Passi[Posto.Passo]));
    const PassoStrada& Fine = Una.Passi.last();
    ui->Calendario->Segna(Una.Passi.first().Da, {Fine.A});
    ui->Calendario->ImpostaData(Posto.Passo < 0 ? Fine.A : Una.Passi[Posto.Passo].Da);
}

void frmStrada::mnuStampa_Click()
{
    MostraStampa(Suffisso, [this](Superficie& vp) { return StampaScheda(vp, Scheda); });
}

QString frmStrada::TestoCopia() const
{
    return TestoParti(Parti);
}

#include "moc_frmStrada.cpp"
