// A note of 10,000 honoraria and as many expenses, from its file to the screen, to paper and back.
#include "misura.h"
#include "notalunga.h"

#include "core/aperture.h"
#include "core/app/programma.h"
#include "core/comandi.h"
#include "core/modAvvio.h"
#include "core/posti.h"
#include "core/sessione.h"
#include "feenote/file/modPosaFile.h"
#include "feenote/modInterruttori.h"
#include "feenote/modNuovaParcella.h"
#include "feenote/windows/finestre.h"
#include "feenote/windows/frmParcelle.h"
#include "platform/grid/griglia.h"
#include "platform/kit/servizi_qt.h"
#include "platform/pages/impaginazione.h"
#include "platform/preview/vistastampa.h"
#include "platform/system/messaggi.h"
#include "print/modStampe.h"
#include "print/writers/scrittoretesto.h"

#include <QCoreApplication>
#include <QTableView>
#include <QTemporaryDir>
#include <QTest>

#include <cstdio>
#include <limits>

using namespace Qt::StringLiterals;

namespace {

constexpr auto NonMisurabile = std::numeric_limits<double>::quiet_NaN();
constexpr int RigheLunghe = 10'000;
constexpr int Volte = 5;

QString FileLungo()
{
    static const QTemporaryDir Cartella;
    const QString File = Cartella.filePath(u"lunga.mdb"_s);
    if (QFile::exists(File))
        return File;
    sessione::PercorsoProg = QStringLiteral(CARTELLA_PROGRAMMA "/");
    Parcella Nota;
    NuovaParcella(Nota);
    RiempiNota(Nota, RigheLunghe);
    ScegliTipoStampa(Nota, StampaPrenotula);
    ScriviNota(File, Nota);
    return File;
}

void LasciaDipingere()
{
    QCoreApplication::sendPostedEvents();
    QCoreApplication::processEvents();
}

frmParcelle* ApriLunga(const QString& File)
{
    ApriParcella(File, 0, {});
    LasciaDipingere();
    frmParcelle* Finestra = Parcelle(1);
    return Finestra && Finestra->Nota.xOnorari.Righe() == RigheLunghe ? Finestra : nullptr;
}

double Apri(const QString& File)
{
    QList<double> Durate;
    for (int i = 0; i < Volte; ++i) {
        const frmParcelle* Finestra = nullptr;
        Durate.append(DurataMs([&] { Finestra = ApriLunga(File); }));
        if (!Finestra || !ChiudiParcella(1))
            return NonMisurabile;
    }
    return Mediana(std::move(Durate));
}

/// With the document that is composed behind it.
double Salva(const QString& File)
{
    frmParcelle* Finestra = ApriLunga(File);
    QList<double> Durate;
    for (int i = 0; Finestra && i < Volte; ++i) {
        Finestra->SetModificata(true);
        Durate.append(DurataMs([&] {
            EseguiComando(u"savepar"_s, 1, {});
            LasciaDipingere();
        }));
        if (Finestra->Nota.Modificata)
            return NonMisurabile;
    }
    return Mediana(std::move(Durate));
}

/// The document on the print tab, from the click on the tab to its first page.
double Componi(const QString& File)
{
    frmParcelle* Finestra = ApriLunga(File);
    if (!Finestra)
        return NonMisurabile;
    const double Ms = MedianaMs(Volte, [&] {
        Finestra->VaiAllaScheda(SchedaBase);
        Finestra->VaiAllaScheda(SchedaDiStampa);
        LasciaDipingere();
    });
    const auto* Vista = Finestra->findChild<VistaStampa*>(u"vp"_s);
    return Vista && Vista->NumeroPagine() > 100 ? Ms : NonMisurabile;
}

template <class Scrittura>
double Scrivi(const QString& File, Scrittura Fai)
{
    frmParcelle* Finestra = ApriLunga(File);
    Superficie vp;
    double Byte = 0.0;
    const double Ms = MedianaMs(Volte, [&] {
        if (Finestra && Anteprima(vp, Finestra->Nota, StampaPrenotula))
            Byte = Fai(vp.Contenuto());
    });
    return Byte > 100'000 ? Ms : NonMisurabile;
}

double Testo(const QString& File)
{
    return Scrivi(File, [](const Documento& Doc) { return double(ScriviTesto(Doc).size()); });
}

double Pdf(const QString& File)
{
    return Scrivi(File,
                  [](const Documento& Doc) { return double(Impaginazione(Doc).Pdf(u"Prenotula"_s).size()); });
}

/// A page of the lines further down.
double Scorri(const QString& File)
{
    frmParcelle* Finestra = ApriLunga(File);
    if (!Finestra)
        return NonMisurabile;
    Finestra->VaiAllaScheda(SchedaListaSpese);
    LasciaDipingere();
    auto* Spese = Finestra->findChild<Griglia*>(u"tdbDir"_s);
    QTableView* Vista = Spese->Vista();
    Spese->ImpostaRigaCorrente(0, 0);
    LasciaDipingere();
    const int Prima = Vista->rowAt(0);
    constexpr int Pagine = 50;
    const double Ms = MedianaMs(Pagine, [&] {
        QTest::keyClick(Vista, Qt::Key_PageDown);
        LasciaDipingere();
    });
    return Vista->rowAt(0) > Prima + Pagine ? Ms : NonMisurabile;
}

int Lunga(int& argc, char** argv)
{
    Applicazione Programma(argc, argv);
    PreparaProgramma();
    ImpostaVariabili();
    sessione::PercorsoProg = QStringLiteral(CARTELLA_PROGRAMMA "/");
    Aperture.UltimaParcellaChiusa = {};  // no desktop, which would ask for the data of the office
    Messaggi Mute;
    Mute.Box = [](const QString&, int, const QString&) { return vbYes; };
    const QString File = QString::fromLocal8Bit(argc > 3 ? argv[3] : "");
    Mute.SalvaFile = [File](const QString&, const QString&, const QString&) { return File; };
    InstallaMessaggi(std::move(Mute));
    const QString Quale = QString::fromLatin1(argc > 2 ? argv[2] : "");
    const std::pair<QStringView, double (*)(const QString&)> Quali[] = {
        {u"apri", Apri},   {u"salva", Salva}, {u"componi", Componi},
        {u"testo", Testo}, {u"pdf", Pdf},     {u"scorri", Scorri}};
    for (const auto& [Nome, Misura] : Quali)
        if (Nome == Quale)
            std::puts(qPrintable(QString::number(Misura(File), 'g', 10)));
    return 0;
}
const RegistraRuolo RuoloLunga(u"--lunga"_s, Lunga);

std::function<double()> DellaLunga(const QString& Quale)
{
    return [Quale] {
        bool Riuscita = false;
        const double Valore = EseguiRuolo({u"--lunga"_s, Quale, FileLungo()}).toDouble(&Riuscita);
        return Riuscita ? Valore : NonMisurabile;
    };
}

const RegistraMisura LungaApri(u"10,000 lines: open the note"_s, 1000.0, DellaLunga(u"apri"_s), 55.0);
const RegistraMisura LungaSalva(u"10,000 lines: save it, with its document"_s, 2000.0, DellaLunga(u"salva"_s),
                                215.0);
const RegistraMisura LungaComponi(u"10,000 lines: the print tab"_s, 1000.0, DellaLunga(u"componi"_s), 230.0);
const RegistraMisura LungaTesto(u"10,000 lines: compose as text"_s, 300.0, DellaLunga(u"testo"_s), 80.0);
const RegistraMisura LungaPdf(u"10,000 lines: compose, lay out and write as PDF"_s, 2000.0,
                              DellaLunga(u"pdf"_s), 230.0);
const RegistraMisura LungaScorri(u"10,000 lines: scroll by a page"_s, 20.0, DellaLunga(u"scorri"_s), 55.0);

}  // namespace
