#include "platform/preview/stampante.h"

#include "platform/base/errore.h"
#include "platform/document/misura.h"
#include "platform/preview/vistastampa.h"
#include "platform/system/file.h"
#include "platform/system/fileinmemoria.h"
#include "platform/system/messaggi.h"
#include "platform/system/percorsi.h"
#include "platform/system/shell.h"

#include <QCoreApplication>
#include <QPageLayout>
#include <QPainter>
#include <QPrinter>
#include <QPrinterInfo>
#include <QScopeGuard>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

Stampanti DelSistema()
{
    return {[] { return QPrinterInfo::availablePrinterNames(); },
            [](const QPrinter& Scelta) {
                return Scelta.outputFormat() != QPrinter::NativeFormat ||
                       QPrinterInfo::availablePrinterNames().contains(Scelta.printerName());
            }};
}

Stampanti& Installate()
{
    static Stampanti Tabella = DelSistema();
    return Tabella;
}

/// The printer that was chosen last, with its paper. It goes with the application: its plugin does too.
std::unique_ptr<QPrinter>& Ricordata()
{
    static std::unique_ptr<QPrinter> Unica;
    static const bool Legata = [] {
        qAddPostRoutine([] { Ricordata().reset(); });
        return true;
    }();
    Q_UNUSED(Legata)
    return Unica;
}

/// True between a choice and its printing.
bool DaStampare = false;

/// A printer as a new document finds it: its paper is remembered, pages and copies are not.
QPrinter& Preparata(int Pagine)
{
    std::unique_ptr<QPrinter>& Suo = Ricordata();
    if (!Suo || !Installate().Risponde(*Suo))
        Suo = std::make_unique<QPrinter>(QPrinter::HighResolution);
    Suo->setFullPage(true);  // the document's margins are measured from the sheet's edge
    Suo->setPrintRange(QPrinter::AllPages);
    Suo->setFromTo(1, Pagine);  // what the dialog offers
    Suo->setCopyCount(1);
    return *Suo;
}

Carta FoglioDi(const QPrinter& Scelta)
{
    const QSizeF Mm = Scelta.pageLayout().fullRect(QPageLayout::Millimeter).size();
    return Mm.isEmpty() ? Carta() : Carta{Mm.width(), Mm.height()};
}

QList<int> Intervallo(int Da, int A, int Pagine)
{
    QList<int> Sue;
    for (int Pagina = std::max(Da, 1); Pagina <= std::min(A, Pagine); ++Pagina)
        Sue.append(Pagina);
    return Sue;
}

QList<int> PagineChieste(const QPrinter& Scelta, int Pagine, int InVista)
{
    switch (Scelta.printRange()) {
    case QPrinter::CurrentPage:
        return Intervallo(InVista, InVista, Pagine);
    case QPrinter::PageRange:
        break;
    default:
        return Intervallo(1, Pagine, Pagine);
    }
    QList<int> Sue;
    for (const QPageRanges::Range& Tratto : Scelta.pageRanges().toRangeList())
        Sue += Intervallo(Tratto.from, Tratto.to, Pagine);
    return Sue;
}

/// Pages in the order in which they leave the printer, copies included where it makes none itself.
QList<int> PagineInUscita(const QPrinter& Scelta, int Pagine, int InVista)
{
    QList<int> Sue = PagineChieste(Scelta, Pagine, InVista);
    if (Scelta.pageOrder() == QPrinter::LastPageFirst)
        std::ranges::reverse(Sue);
    if (Scelta.supportsMultipleCopies() || Scelta.copyCount() < 2)
        return Sue;
    QList<int> ConCopie;
    if (Scelta.collateCopies()) {
        for (int Copia = 0; Copia < Scelta.copyCount(); ++Copia)
            ConCopie += Sue;
        return ConCopie;
    }
    for (const int Pagina : std::as_const(Sue))
        ConCopie += QList<int>(Scelta.copyCount(), Pagina);
    return ConCopie;
}

[[noreturn]] void StampanteAssente(const QString& Nome)
{
    throw Errore(errori::Stampante, Nome.isEmpty()
                                        ? u"Errore della stampante"_s
                                        : u"La stampante %1 non risponde o non è più installata"_s.arg(Nome));
}

void Dipingi(QPrinter& Scelta, const Impaginazione& Fatta, const QList<int>& Sue)
{
    QPainter Pittore;
    if (!Pittore.begin(&Scelta))
        StampanteAssente(Scelta.printerName());
    const double PuntiMm = Scelta.resolution() / MmPerPollice;
    bool Prima = true;
    for (const int Pagina : Sue) {
        if (!Prima && !Scelta.newPage())
            StampanteAssente(Scelta.printerName());
        Prima = false;
        Pittore.save();
        Pittore.scale(PuntiMm, PuntiMm);
        Fatta.DisegnaPagina(Pittore, Pagina);
        Pittore.restore();
    }
    if (!Pittore.end() || Scelta.printerState() == QPrinter::Error)
        StampanteAssente(Scelta.printerName());
}

/// The toolkit writes a file where it stands, for everybody to read, and says nothing of a full disk: it gets
/// one in memory, and the place is taken as every other file takes its own.
void DipingiPdf(QPrinter& Scelta, const Impaginazione& Fatta, const QList<int>& Sue)
{
    const QString Percorso = Scelta.outputFileName();
    const FileInMemoria Intero;
    {
        const auto Rimetti = qScopeGuard([&] { Scelta.setOutputFileName(Percorso); });
        Scelta.setOutputFileName(Intero.Nome());
        Dipingi(Scelta, Fatta, Sue);
    }
    const QByteArray Byte = Intero.Contenuto();
    if (!Byte.trimmed().endsWith("%%EOF"))
        throw Errore(errori::Memoria);
    ScriviFile(Percorso, Byte, Lettori::Cartella);
}

QString ConEstensionePdf(const QString& Percorso)
{
    return Percorso.endsWith(".pdf"_L1, Qt::CaseInsensitive) ? Percorso : Percorso + u".pdf"_s;
}

}  // namespace

Stampanti InstallaStampanti(Stampanti Nuove)
{
    DaStampare = false;
    Ricordata().reset();
    return std::exchange(Installate(), std::move(Nuove));
}

int PrintDialog(VistaStampa& Vista)
{
    DaStampare = false;
    if (Installate().Nomi().isEmpty()) {
        MsgBox(
            u"Nessuna stampante installata.\nInstallare una stampante, oppure salvare il documento in PDF."_s,
            vbExclamation, TitoloAvvertenza.toString());
        return 0;
    }
    DaStampare = DialogoStampante(Preparata(Vista.NumeroPagine()));
    return DaStampare ? 1 : 0;
}

bool PrintDoc(VistaStampa& Vista, const QString& Titolo)
{
    if (!std::exchange(DaStampare, false))
        return false;
    const ClessidraAccesa Attesa;
    QPrinter& Scelta = *Ricordata();
    if (!Installate().Risponde(Scelta)) {
        const QString Nome = Scelta.printerName();
        Ricordata().reset();  // the next dialog begins with a printer that is there
        StampanteAssente(Nome);
    }
    const Carta Foglio = FoglioDi(Scelta);
    const Impaginazione Fatta(Vista.Foglio().Contenuto(), Foglio);
    const QList<int> Sue = PagineInUscita(Scelta, Fatta.NumeroPagine(), Vista.PaginaInVista());
    if (Sue.isEmpty()) {
        const QString Quante =
            Fatta.NumeroPagine() == 1 ? u"una pagina"_s : u"%1 pagine"_s.arg(Fatta.NumeroPagine());
        MsgBox(
            u"Il documento ha %1: fra quelle scelte non ce n'è alcuna, e non è stato stampato."_s.arg(Quante),
            vbInformation, TitoloMessaggio.toString());
        return false;
    }
    Scelta.setDocName(Titolo);
    if (Scelta.outputFormat() == QPrinter::PdfFormat && !Scelta.outputFileName().isEmpty())
        DipingiPdf(Scelta, Fatta, Sue);
    else
        Dipingi(Scelta, Fatta, Sue);
    Vista.ImpostaCarta(Foglio);
    return true;
}

QString EsportaPdf(const VistaStampa& Vista, const QString& Cartella, const QString& Nome)
{
    const QString Scelto = DialogoSalva(u"Salva in PDF"_s, PercorsoNativo(Barra(Cartella) + Nome + u".pdf"_s),
                                        u"Documenti PDF (*.pdf)|*.pdf"_s);
    if (Scelto.isEmpty())
        return {};
    QString Percorso = ConEstensionePdf(PercorsoNativo(Scelto));
    if (EsisteFile(Percorso) &&
        MsgBox(u"Il documento "_s + NomeFile(Percorso) + u" esiste già: si vuole sostituirlo?"_s,
               vbYesNo + vbQuestion + vbDefaultButton2, TitoloDomanda.toString()) != vbYes)
        return {};
    const ClessidraAccesa Attesa;
    Vista.Pagine().ScriviPdf(Percorso, Nome);
    return Percorso;
}
