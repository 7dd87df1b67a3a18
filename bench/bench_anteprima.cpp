// The preview as its reader meets it, in a process of its own as every window is.
#include "misura.h"

#include "feenote/parcella.h"
#include "platform/kit/servizi_qt.h"
#include "platform/preview/vistastampa.h"
#include "print/modStampe.h"

#include <QAbstractScrollArea>
#include <QEvent>
#include <QWidget>

#include <cstdio>
#include <limits>

using namespace Qt::StringLiterals;

namespace {

constexpr auto NonMisurabile = std::numeric_limits<double>::quiet_NaN();

/// A note that takes a page to its last lines.
Parcella NotaDiUnaPagina()
{
    Parcella Nota;
    Nota.Pronta = true;
    Nota.CodCateg = u"CIV"_s;
    Nota.txtImporto.Testo = u"30.000,00"_s;
    for (int i = 0; i < 30; ++i) {
        const int Riga = Nota.xOnorari.AggiungiRiga();
        Nota.xOnorari(Riga, OnoDescr) = u"Esame e studio degli atti della controparte, voce %1"_s.arg(i);
        Nota.xOnorari(Riga, OnoQta) = 1.0;
        Nota.xOnorari(Riga, OnoImporto) = 1000.0 + i;
    }
    return Nota;
}

/// Counts how often the sheets were painted.
class ContaPitture : public QObject
{
public:
    explicit ContaPitture(QWidget* Tela) { Tela->installEventFilter(this); }
    bool eventFilter(QObject*, QEvent* Evento) override
    {
        Quante += Evento->type() == QEvent::Paint ? 1 : 0;
        return false;
    }
    int Quante = 0;
};

/// Composed, laid out and painted: what the reader waits for when a choice on the form changes.
double PrimaPagina()
{
    const Parcella Nota = NotaDiUnaPagina();
    VistaStampa vp;
    vp.resize(760, 640);
    vp.show();
    QCoreApplication::processEvents();
    QWidget* Tela = vp.findChild<QAbstractScrollArea*>()->viewport();
    ContaPitture Pitture(Tela);
    constexpr int Volte = 9;
    const double Ms = MedianaMs(Volte, [&] {
        Anteprima(vp.Foglio(), Nota, StampaPrenotula);
        vp.Aggiorna();
        Tela->repaint();
    });
    return vp.NumeroPagine() == 1 && Pitture.Quante >= Volte ? Ms : NonMisurabile;
}

int Anteprime(int& argc, char** argv)
{
    Applicazione Programma(argc, argv);
    std::puts(qPrintable(QString::number(PrimaPagina(), 'g', 10)));
    return 0;
}
const RegistraRuolo RuoloAnteprima(u"--anteprima"_s, Anteprime);

double MisuraAnteprima()
{
    bool Riuscita = false;
    const double Ms = EseguiRuolo({u"--anteprima"_s}).toDouble(&Riuscita);
    return Riuscita ? Ms : NonMisurabile;
}
const RegistraMisura RegistrataAnteprima(u"first preview of a page"_s, 20.0, MisuraAnteprima);

}  // namespace
