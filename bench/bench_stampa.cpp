// The pro-forma note of a long case, from the record to plain text, to pages and to a PDF.
#include "misura.h"

#include "feenote/parcella.h"
#include "platform/document/superficie.h"
#include "platform/pages/impaginazione.h"
#include "platform/pages/senzaschermo.h"
#include "print/modStampe.h"
#include "print/writers/scrittoretesto.h"

#include <QImage>
#include <QPainter>

#include <limits>

using namespace Qt::StringLiterals;

namespace {

/// Fees with their triples, 59 a page, and expenses, payments and summary for two and a half.
Parcella NotaDiPagine(int Pagine)
{
    constexpr int OnorariPerPagina = 59;
    Parcella Nota;
    Nota.Pronta = true;
    Nota.CodCateg = u"CIV"_s;
    Nota.txtImporto.Testo = u"30.000,00"_s;
    Nota.chkMinMax.Attiva = Nota.chkAcconti.Attiva = true;
    for (int i = 0; i < Pagine * OnorariPerPagina - 150; ++i) {
        const int Riga = Nota.xOnorari.AggiungiRiga();
        Nota.xOnorari(Riga, OnoDescr) = u"Esame e studio degli atti della controparte, voce %1"_s.arg(i);
        Nota.xOnorari(Riga, OnoQta) = 1.0;
        for (const int Colonna : {OnoImporto, OnoMedio, OnoMin, OnoMax})
            Nota.xOnorari(Riga, Colonna) = 1000.0 + i;
    }
    for (int i = 0; i < 60; ++i) {
        const int Riga = Nota.xDiritti.AggiungiRiga();
        Nota.xDiritti(Riga, DirDescr) = u"Diritti di copia"_s;
        Nota.xDiritti(Riga, DirImponibile) = 12.5;
        Nota.xDiritti(Riga, DirEsente) = 3.68;
    }
    for (int i = 0; i < 20; ++i) {
        const int Riga = Nota.xAcconti.AggiungiRiga();
        Nota.xAcconti(Riga, AccDescr) = u"Acconto"_s;
        Nota.xAcconti(Riga, AccValuta) = i % 2 == 0 ? u"E"_s : u"L"_s;
        Nota.xAcconti(Riga, AccCorrispettivi) = 250000.0;
    }
    return Nota;
}

/// One page with everything that a short case has.
Parcella NotaBreve()
{
    Parcella Nota;
    Nota.Pronta = true;
    Nota.CodCateg = u"CIV"_s;
    Nota.txtImporto.Testo = u"30.000,00"_s;
    for (const char16_t* Fase : {u"Fase di studio", u"Fase introduttiva", u"Fase decisoria"}) {
        const int Riga = Nota.xOnorari.AggiungiRiga();
        Nota.xOnorari(Riga, OnoDescr) = QString::fromUtf16(Fase);
        Nota.xOnorari(Riga, OnoImporto) = 1200.0;
    }
    return Nota;
}

double CinquePagineComeTesto()
{
    const Parcella Nota = NotaDiPagine(5);
    Superficie vp;
    return MedianaMs(9, [&] {
        if (Anteprima(vp, Nota, StampaPrenotula))
            Consuma(static_cast<double>(ScriviTesto(vp.Contenuto()).size()));
    });
}
const RegistraMisura Registrata(u"compose five pages as text"_s, 5.0, CinquePagineComeTesto);

/// Milliseconds of what is done with a note of so many pages, composition included; not a number when it has
/// another number of pages than its name says.
double SuPagine(int Pagine, const std::function<void(const Impaginazione&)>& Azione)
{
    int Quanti = 1;
    char Nome[] = "calcanova-bench";
    char* Argomenti[] = {Nome, nullptr};
    const std::unique_ptr<QCoreApplication> Programma = ApplicazioneSenzaSchermo(Quanti, Argomenti);
    const Parcella Nota = Pagine == 1 ? NotaBreve() : NotaDiPagine(Pagine);
    Superficie vp;
    int Fatte = 0;
    const double Ms = MedianaMs(9, [&] {
        if (!Anteprima(vp, Nota, StampaPrenotula))
            return;
        const Impaginazione Fatta(vp.Contenuto());
        Fatte = Fatta.NumeroPagine();
        Azione(Fatta);
    });
    return Fatte == Pagine ? Ms : std::numeric_limits<double>::quiet_NaN();
}

double Impagina(int Pagine)
{
    return SuPagine(Pagine, [](const Impaginazione& Fatta) { Consuma(Fatta.NumeroPagine()); });
}

double PrimaVista()
{
    QImage Foglio(794, 1123, QImage::Format_RGB32);  // A4 at 96 dots an inch
    return SuPagine(1, [&](const Impaginazione& Fatta) {
        Foglio.fill(Qt::white);
        QPainter Pittore(&Foglio);
        Pittore.scale(96.0 / 25.4, 96.0 / 25.4);
        Fatta.DisegnaPagina(Pittore, 1);
    });
}

double PdfDiCinquePagine()
{
    return SuPagine(5, [](const Impaginazione& Fatta) {
        Consuma(static_cast<double>(Fatta.Pdf(u"Prenotula"_s).size()));
    });
}

const RegistraMisura UnaPagina(u"compose and lay out one page"_s, 20.0, [] { return Impagina(1); });
const RegistraMisura UnaVista(u"compose, lay out and paint one page"_s, 20.0, PrimaVista);
const RegistraMisura CinquePagine(u"compose and lay out 5 pages"_s, 30.0, [] { return Impagina(5); });
const RegistraMisura TrentaPagine(u"compose and lay out 30 pages"_s, 100.0, [] { return Impagina(30); });
const RegistraMisura CentoPagine(u"compose and lay out 100 pages"_s, 300.0, [] { return Impagina(100); });
const RegistraMisura CinquePdf(u"compose, lay out and write 5 pages as PDF"_s, 60.0, PdfDiCinquePagine);

}  // namespace
