#include "demo/copione.h"

#include "core/app/avvio.h"
#include "core/desktop/frmMain.h"
#include "core/desktop/frmStudio.h"
#include "core/desktop/iconastudio.h"
#include "core/posti.h"
#include "core/sessione.h"
#include "demo/mani.h"
#include "feenote/finder/windows/frmTrovaParcella.h"
#include "feenote/modTotali.h"
#include "feenote/windows/finestre.h"
#include "feenote/windows/frmParcelle.h"
#include "platform/base/errore.h"
#include "platform/base/regionale.h"
#include "platform/grid/griglia.h"
#include "platform/kit/singola.h"
#include "platform/pages/impaginazione.h"
#include "platform/preview/vistastampa.h"
#include "platform/system/file.h"
#include "platform/system/messaggi.h"
#include "print/modStampe.h"
#include "print/writers/scrittoretesto.h"

#include <QCheckBox>
#include <QComboBox>
#include <QImage>
#include <QLabel>
#include <QLineEdit>
#include <QPainter>
#include <QTabBar>
#include <QTabWidget>
#include <QToolButton>

#include <cstdio>

using namespace Qt::StringLiterals;
using namespace mani;

namespace {

const QString NomeNota = u"rossi contro edilnova"_s;

// What a screen of 1366 x 768 leaves a frame with its caption and the task bar.
constexpr int LarghezzaCornice = 1340;
constexpr int AltezzaCornice = 700;

/// The windows answer for the user only where a person would have to: which file, and every box by its first
/// button. The boxes themselves are seen in the window's own tests.
class Risposte
{
public:
    explicit Risposte(const QString& Cartella)
    {
        Messaggi Tavola;
        Tavola.Box = [this](const QString& Testo, int Bandiere, const QString&) {
            // cppcheck-suppress useInitializationList ; it is assigned when a box comes, not here
            Ultimo = Testo;
            return (Bandiere & vbYesNo) == vbYesNo ? vbYes : vbOK;
        };
        Tavola.SalvaFile = [Cartella](const QString&, const QString&, const QString& Filtro) {
            return Cartella + NomeNota + (Filtro.contains(u"pdf"_s) ? u".pdf"_s : u".mdb"_s);
        };
        Prima = InstallaMessaggi(std::move(Tavola));
    }
    ~Risposte() { InstallaMessaggi(std::move(Prima)); }
    Risposte(const Risposte&) = delete;
    Risposte& operator=(const Risposte&) = delete;

    QString Ultimo;  ///< text of the last box

private:
    Messaggi Prima;
};

class Copione
{
public:
    explicit Copione(const QString& Dove) : Cartella(Dove), Voce(Dove) {}

    void Recita()
    {
        Scrivania();
        NuovaNota();
        Parametri();
        Onorari();
        Spese();
        Acconti();
        Salva();
        Riapri();
        Anteprima();
        Pdf();
        Testo();
    }

private:
    /// One line for the step, one picture of the window.
    void Passo(const QString& Detto, QWidget& Finestra)
    {
        mani::Lascia();
        const QString Immagine =
            u"%1-%2.png"_s.arg(++Numero, 2, 10, QChar(u'0')).arg(Detto.section(u':', 0, 0).toLower());
        if (!Finestra.grab().save(Cartella + Immagine))
            Ferma(u"non si scrive %1"_s.arg(Immagine));
        Di(Detto + u"  ["_s + Immagine + u']');
    }

    static void Di(const QString& Riga)
    {
        std::fputs((Riga + u'\n').toUtf8().constData(), stdout);
        std::fflush(stdout);
    }

    static frmMain& Cornice() { return Singola<frmMain>(); }

    QString Netto() const
    {
        return Format(CatenaFiscale(Nota->Nota, StampaPrenotula).Netto, ModelloImporto) + u" €"_s;
    }

    void VaiA(int Scheda)
    {
        QTabBar* Linguette = Controllo<QTabWidget>(*Nota, u"tabParcelle"_s).tabBar();
        Clic(*Linguette, Linguette->tabRect(Scheda).center());
        if (Nota->Scheda() != Scheda)
            Ferma(u"la scheda %1 non si apre"_s.arg(Scheda));
    }

    void Scrivania()
    {
        Main({});
        auto& Studio = Singola<frmStudio>();
        Attiva(Studio);
        Passo(u"Scrivania: Calcanova è pronto"_s, Studio);
    }

    void NuovaNota()
    {
        Clic(*Singola<frmStudio>().imgMenu(0));
        Nota = Parcelle(1);
        if (!Nota || !Nota->isVisible())
            Ferma(u"la nuova parcella non si apre"_s);
        Cornice().resize(LarghezzaCornice, AltezzaCornice);
        Attiva(Cornice());
        Passo(u"Nuova: parcella vuota nella cornice"_s, Cornice());
    }

    void Parametri()
    {
        Scrivi(Controllo<QLineEdit>(*Nota, u"txtCliente"_s), u"Rossi Maria"_s);
        Scrivi(Controllo<QLineEdit>(*Nota, u"txtControp"_s), u"Edilnova S.r.l."_s);
        Scrivi(Controllo<QLineEdit>(*Nota, u"txtOggetto"_s), u"Risoluzione di contratto di appalto"_s);
        Scegli(Controllo<QComboBox>(*Nota, u"cmbCateg"_s), VociCategoria().first());
        Scegli(Controllo<QComboBox>(*Nota, u"cmbAutor"_s), u"Tribunale ordinario"_s);
        Scrivi(Controllo<QLineEdit>(*Nota, u"txtImporto"_s), u"30000"_s);
        Passo(u"Parametri: "_s + Controllo<QLabel>(*Nota, u"lblDatiBase"_s).text(), Cornice());
    }

    void Onorari()
    {
        VaiA(SchedaListaOnorari);
        auto& Catalogo = Controllo<Griglia>(*Nota, u"tdbListaOno"_s);
        auto& Righe = Controllo<Griglia>(*Nota, u"tdbOnor"_s);
        if (Righe.Righe() == 0)
            Ferma(u"le voci dell'autorità non sono state precaricate"_s);
        DoppioClic(Catalogo, Catalogo.Righe() - 1);
        ScriviCella(Righe, Righe.Righe() - 1, OnoImporto, u"150"_s);
        ScriviCella(Righe, 0, OnoData, u"05032024"_s);
        Passo(u"Onorari: %1 voci, in tutto %2 €"_s.arg(Righe.Righe()).arg(Righe.TestoPie(OnoImporto)),
              Cornice());
    }

    void Spese()
    {
        VaiA(SchedaListaSpese);
        auto& Catalogo = Controllo<Griglia>(*Nota, u"tdbListaDir"_s);
        auto& Righe = Controllo<Griglia>(*Nota, u"tdbDir"_s);
        DoppioClic(Catalogo, 0);
        DoppioClic(Catalogo, 1);
        ScriviCella(Righe, 0, DirImponibile, u"98,5"_s);
        ScriviCella(Righe, 1, DirEsente, u"27"_s);
        Passo(u"Spese: %1 righe"_s.arg(Righe.Righe()), Cornice());
    }

    void Acconti()
    {
        VaiA(SchedaImposte);
        auto& Righe = Controllo<Griglia>(*Nota, u"tdbAcconti"_s);
        ScriviCella(Righe, 0, AccDescr, u"Fondo spese"_s);
        ScriviCella(Righe, 0, AccCorrispettivi, u"500"_s);
        for (const QString& Nome : {u"chkSpeseGen"_s, u"chkCP"_s, u"chkIva"_s, u"chkRA"_s, u"chkAcconti"_s})
            if (auto& Segno = Controllo<QCheckBox>(*Nota, Nome); !Segno.isChecked())
                Clic(Segno);
        Passo(u"Acconti: netto dovuto "_s + Netto(), Cornice());
    }

    void Salva()
    {
        Clic(Controllo<QToolButton>(*Nota, u"pctSave"_s));
        if (!EsisteFile(Cartella + NomeNota + u".mdb"_s))
            Ferma(u"la parcella non è stata salvata: "_s + Voce.Ultimo);
        Passo(u"Salvata: "_s + Voce.Ultimo, Cornice());
    }

    void Riapri()
    {
        const QString Prima = Netto();
        if (!ChiudiParcella(1))
            Ferma(u"la parcella non si chiude"_s);
        mani::Lascia();
        Trova();
        Nota = Parcelle(1);
        Attiva(Cornice());
        if (Netto() != Prima)
            Ferma(u"riaperta vale %1, era %2"_s.arg(Netto(), Prima));
        Passo(u"Riaperta: netto dovuto "_s + Netto(), Cornice());
    }

    /// The finder lists the folder; a word is typed, and the note that it leaves is opened.
    void Trova()
    {
        auto& Modulo = Singola<frmTrovaParcella>();
        (void)Modulo.OpenParcMod(frmTrovaParcella::Libera, Cartella, 0, {});
        Attiva(Modulo);
        while (Modulo.InRicerca())
            mani::Lascia();
        Digita(u"edilnova"_s);
        Passo(u"Trova: parcelle nella cartella "_s + QString::number(Modulo.Elenco().Note()), Modulo);
        const auto& Lista = Controllo<Griglia>(Modulo, u"tdbParcelle"_s);
        DoppioClic(Lista, Lista.RigaCorrente().value_or(0));
        if (!ParcellaAperta())
            Ferma(u"il trova non apre la parcella"_s);
    }

    void Anteprima()
    {
        VaiA(SchedaDiStampa);
        Scegli(Controllo<QComboBox>(*Nota, u"cmbTipoStampa"_s), VociTipoStampa().at(StampaPrenotula));
        Scrivi(Controllo<QLineEdit>(*Nota, u"txtDatiPar_0"_s), u"12"_s);
        Scrivi(Controllo<QLineEdit>(*Nota, u"txtDatiPar_1"_s), u"15/03/2024"_s);
        auto& Vista = Controllo<VistaStampa>(*Nota, u"vp"_s);
        Passo(u"Anteprima: pagine "_s + QString::number(Vista.NumeroPagine()), Cornice());
        Pagine(Impaginazione(Vista.Foglio().Contenuto()));
    }

    /// The pages as they leave the printer, on white paper.
    void Pagine(const Impaginazione& Impaginata)
    {
        constexpr double PuntiPerMm = 110.0 / 25.4;
        for (int Pagina = 1; Pagina <= Impaginata.NumeroPagine(); ++Pagina) {
            QImage Foglio((Impaginata.DimensioneMm() * PuntiPerMm).toSize(), QImage::Format_RGB32);
            Foglio.fill(Qt::white);
            QPainter Pittore(&Foglio);
            Pittore.setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing);
            Pittore.scale(PuntiPerMm, PuntiPerMm);
            Impaginata.DisegnaPagina(Pittore, Pagina);
            Pittore.end();
            const QString Nome = u"pagina-%1.png"_s.arg(Pagina);
            if (!Foglio.save(Cartella + Nome))
                Ferma(u"non si scrive %1"_s.arg(Nome));
        }
    }

    void Pdf()
    {
        Clic(Controllo<QToolButton>(*Nota, u"barPrint_pdf"_s));
        const QString File = Cartella + NomeNota + u".pdf"_s;
        if (!EsisteFile(File))
            Ferma(u"il PDF non è stato scritto: "_s + Voce.Ultimo);
        Di(u"PDF: "_s + File);
    }

    void Testo()
    {
        const QString File = Cartella + NomeNota + u".txt"_s;
        ScriviFile(File, ScriviTesto(Controllo<VistaStampa>(*Nota, u"vp"_s).Foglio().Contenuto()).toUtf8());
        Di(u"Testo: "_s + File);
    }

    QString Cartella;
    Risposte Voce;
    frmParcelle* Nota = nullptr;
    int Numero = 0;
};

}  // namespace

bool Recita(const QString& Cartella)
{
    try {
        Copione(Cartella).Recita();
        return true;
    } catch (const Errore& Guasto) {
        std::fputs((u"La dimostrazione si è fermata: "_s + Guasto.Descrizione + u'\n').toUtf8().constData(),
                   stderr);
        return false;
    }
}
