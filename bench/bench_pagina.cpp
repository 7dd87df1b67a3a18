// How the document stands on its page: a logo above it, tightened to one page; what that costs the reader of
// the preview, and whoever writes in a note of 1,000 lines that asks for it.
#include "misura.h"
#include "notalunga.h"

#include "core/app/programma.h"
#include "core/modAvvio.h"
#include "core/modLogo.h"
#include "core/sessione.h"
#include "feenote/modInterruttori.h"
#include "feenote/windows/finestre.h"
#include "feenote/windows/frmParcelle.h"
#include "platform/base/errore.h"
#include "platform/kit/servizi_qt.h"
#include "platform/preview/vistastampa.h"
#include "platform/system/cartelle.h"
#include "platform/system/messaggi.h"
#include "print/modEsporta.h"
#include "print/modStampe.h"

#include <QAbstractScrollArea>
#include <QBuffer>
#include <QImage>
#include <QLineEdit>
#include <QTest>

#include <cstdio>
#include <limits>

using namespace Qt::StringLiterals;

namespace {

constexpr auto NonMisurabile = std::numeric_limits<double>::quiet_NaN();
constexpr int RigheLunghe = 1000;

/// A photograph as large as the program keeps one.
QByteArray Foto()
{
    constexpr int Grana = 37;
    QImage Figura(logo::PixelLarghezza, logo::PixelAltezza, QImage::Format_RGB32);
    for (int y = 0; y < Figura.height(); ++y)
        for (int x = 0; x < Figura.width(); ++x)
            Figura.setPixel(x, y, qRgb(x * y % Grana * 6, x / 16, y / 12));
    QByteArray Byte;
    QBuffer Uscita(&Byte);
    Uscita.open(QIODevice::WriteOnly);
    Figura.save(&Uscita, "png");
    return Byte;
}

void ConLogo()
{
    sessione::LogoImpronta = logo::Conserva(Foto());
    sessione::LogoPosto = u"S"_s;
    sessione::LogoAltezza = 2.0F;
}

Parcella NotaDi(int Righe)
{
    Parcella Nota;
    Nota.Pronta = true;
    Nota.CodCateg = u"CIV"_s;
    Nota.txtImporto.Testo = u"30.000,00"_s;
    for (int i = 0; i < Righe; ++i) {
        const int Riga = Nota.xOnorari.AggiungiRiga();
        Nota.xOnorari(Riga, OnoDescr) = u"Esame e studio degli atti della controparte, voce %1"_s.arg(i);
        Nota.xOnorari(Riga, OnoQta) = 1.0;
        Nota.xOnorari(Riga, OnoImporto) = 1000.0 + i;
    }
    return Nota;
}

/// Composed, written for the word processor, laid out and painted: what follows each change on the print tab.
double Vista(Parcella Nota, int Pagine)
{
    sessione::UserFolder = CartellaDati();
    VistaStampa vp;
    vp.resize(760, 640);
    vp.show();
    QCoreApplication::processEvents();
    QWidget* Tela = vp.findChild<QAbstractScrollArea*>()->viewport();
    int Volta = 0;
    const double Ms = MedianaMs(15, [&] {
        Nota.xOnorari(0, OnoImporto) = 500.0 + ++Volta;
        AnteprimaConEsportazione(vp.Foglio(), Nota, StampaPrenotula, u"misura"_s);
        vp.Aggiorna();
        Tela->repaint();
    });
    return vp.NumeroPagine() == Pagine ? Ms : NonMisurabile;
}

double VistaConLogo()
{
    ConLogo();
    return Vista(NotaDi(25), 1);
}

/// @param Grado at least so far is the document tightened
double VistaStretta(int Righe, int Grado)
{
    Parcella Nota = NotaDi(Righe);
    Superficie vp;
    Anteprima(vp, Nota, StampaPrenotula);
    const bool DuePagine = Impaginazione(vp.Contenuto()).NumeroPagine() == 2;
    Nota.UnaPagina = true;
    Anteprima(vp, Nota, StampaPrenotula);
    return DuePagine && Impaginazione(vp.Contenuto()).Grado() >= Grado ? Vista(Nota, 1) : NonMisurabile;
}

void LasciaDipingere()
{
    QCoreApplication::sendPostedEvents();
    QCoreApplication::processEvents();
}

frmParcelle* NotaLunga()
{
    ConLogo();
    ApriParcella({}, 0, {});
    frmParcelle* Finestra = Parcelle(1);
    RiempiNota(Finestra->Nota, RigheLunghe);
    ScegliTipoStampa(Finestra->Nota, StampaPrenotula);
    Finestra->Nota.UnaPagina = true;
    Finestra->MostraTutto();
    Finestra->VaiAllaScheda(SchedaDiStampa);
    LasciaDipingere();
    return Finestra;
}

/// A letter in the subject of the case, with another tab in view.
double Tasto()
{
    frmParcelle* Finestra = NotaLunga();
    Finestra->VaiAllaScheda(SchedaBase);
    LasciaDipingere();
    auto* Oggetto = Finestra->findChild<QLineEdit*>(u"txtOggetto"_s);
    if (!Oggetto)
        return NonMisurabile;
    Oggetto->setFocus();
    const double Ms = MedianaMs(21, [&] {
        QTest::keyClick(Oggetto, Qt::Key_X);
        LasciaDipingere();
    });
    return Finestra->Nota.txtOggetto.Testo.size() > 20 ? Ms : NonMisurabile;
}

/// A letter in the date of the document, before the box is left.
double TastoNellaData()
{
    frmParcelle* Finestra = NotaLunga();
    auto* Data = Finestra->findChild<QLineEdit*>(u"txtDatiPar_1"_s);
    Data->setFocus();
    return MedianaMs(21, [&] {
        QTest::keyClick(Data, Data->text().isEmpty() ? Qt::Key_X : Qt::Key_Backspace);
        LasciaDipingere();
    });
}

double Entra()
{
    frmParcelle* Finestra = NotaLunga();
    const auto* Vista = Finestra->findChild<VistaStampa*>(u"vp"_s);
    const double Ms = MedianaMs(9, [&] {
        Finestra->VaiAllaScheda(SchedaBase);
        Finestra->Nota.xOnorari(0, OnoImporto) = Finestra->Nota.xOnorari(0, OnoImporto).toDouble() + 1.0;
        Finestra->VaiAllaScheda(SchedaDiStampa);
        LasciaDipingere();
    });
    return Vista->NumeroPagine() > 10 ? Ms : NonMisurabile;
}

int Pagina(int& argc, char** argv)
{
    Applicazione Programma(argc, argv);
    PreparaProgramma();
    ImpostaVariabili();
    sessione::PercorsoProg = QStringLiteral(CARTELLA_PROGRAMMA "/");
    Messaggi Mute;
    Mute.Box = [](const QString&, int, const QString&) { return vbYes; };
    InstallaMessaggi(std::move(Mute));
    const QString Quale = QString::fromLatin1(argc > 2 ? argv[2] : "");
    const std::pair<QStringView, std::function<double()>> Quali[] = {
        {u"logo", VistaConLogo},
        {u"vicina", [] { return VistaStretta(38, 1); }},
        {u"minore", [] { return VistaStretta(46, 2 * PassiStrettezza + 1); }},
        {u"tasto", Tasto},
        {u"data", TastoNellaData},
        {u"entra", Entra}};
    for (const auto& [Nome, Misura] : Quali)
        if (Nome == Quale)
            std::puts(qPrintable(QString::number(Misura(), 'g', 10)));
    return 0;
}
const RegistraRuolo RuoloPagina(u"--pagina"_s, Pagina);

std::function<double()> SullaPagina(const QString& Quale)
{
    return [Quale] {
        bool Riuscita = false;
        const double Valore = EseguiRuolo({u"--pagina"_s, Quale}).toDouble(&Riuscita);
        return Riuscita ? Valore : NonMisurabile;
    };
}

const RegistraMisura Logo(u"preview of a page with a logo"_s, 20.0, SullaPagina(u"logo"_s));
const RegistraMisura Vicina(u"preview of one page, its rows nearer"_s, 20.0, SullaPagina(u"vicina"_s));
const RegistraMisura Minore(u"preview of one page, its letters smaller"_s, 30.0, SullaPagina(u"minore"_s));
const RegistraMisura LungaTasto(u"1,000 lines, one page asked: a key on another tab"_s, 16.0,
                                SullaPagina(u"tasto"_s));
const RegistraMisura LungaData(u"1,000 lines, one page asked: a key on the print tab"_s, 16.0,
                               SullaPagina(u"data"_s));
const RegistraMisura LungaEntra(u"1,000 lines, one page asked: the print tab"_s, 100.0,
                                SullaPagina(u"entra"_s));

}  // namespace
