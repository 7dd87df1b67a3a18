// What is pasted: any text goes into a date, an amount, a percentage and a cell of a grid. A date's box keeps
// its mask, an amount's box leaves only with a number, a cell says what it took.
#include "finestre.h"
#include "fonte.h"

#include "platform/base/regionale.h"
#include "platform/base/tabellarighe.h"
#include "platform/grid/griglia.h"
#include "platform/kit/campo.h"
#include "platform/kit/mascheradata.h"

#include <QApplication>
#include <QClipboard>
#include <QKeyEvent>
#include <QLineEdit>
#include <QTableView>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

constexpr int MassimoCella = 30;

void Premi(QWidget* Dove, int Tasto, Qt::KeyboardModifiers Modificatori = Qt::NoModifier,
           const QString& Testo = {})
{
    for (const QEvent::Type Tipo : {QEvent::KeyPress, QEvent::KeyRelease}) {
        QKeyEvent Evento(Tipo, Tasto, Modificatori, Testo);
        QApplication::sendEvent(Dove, &Evento);
    }
}

/// A window with a box of each kind and a grid of two rows.
struct Tavolo
{
    QWidget Finestra;
    MascheraData* Data = new MascheraData;
    QLineEdit* Importo = new QLineEdit;
    QLineEdit* Percento = new QLineEdit;
    Griglia* Lista = new Griglia;
    TabellaRighe Righe{2};

    Tavolo()
    {
        auto* Pila = new QVBoxLayout(&Finestra);
        for (QWidget* Uno : {static_cast<QWidget*>(Data), static_cast<QWidget*>(Importo),
                             static_cast<QWidget*>(Percento), static_cast<QWidget*>(Lista)})
            Pila->addWidget(Uno);
        CampoNumericoSempre(Importo, [] { return true; });
        CampoPercento(Percento, [] { return true; });
        ColonnaGriglia Prima;
        Prima.Titolo = u"Testo"_s;
        Prima.Modificabile = true;
        Prima.Massimo = MassimoCella;
        Prima.Maiuscole = true;
        ColonnaGriglia Seconda = Prima;
        Seconda.Campo = 1;
        Seconda.Filtro = u"d"_s;
        Lista->ImpostaColonne({Prima, Seconda});
        Righe.AggiungiRiga();
        Righe.AggiungiRiga();
        Lista->Lega(&Righe);
        Finestra.show();
        Finestra.activateWindow();
    }
};

void Incolla(QWidget* Dove)
{
    Dove->setFocus();
    Premi(Dove, Qt::Key_V, Qt::ControlModifier, u"\u0016"_s);
}

void IncollaInCella(Tavolo& Uno, int Colonna)
{
    QTableView* Vista = Uno.Lista->Vista();
    Vista->setFocus();
    Uno.Lista->ImpostaRigaCorrente(0, Colonna);
    Premi(Vista, Qt::Key_F2);
    auto* Cella = Vista->viewport()->findChild<QLineEdit*>(u"cella"_s);
    Pretendi(Cella != nullptr && Uno.Lista->InModifica());
    Incolla(Cella);
    Pretendi(Cella->text().size() <= MassimoCella);
    if (!Uno.Lista->Concludi())
        Premi(Cella, Qt::Key_Escape);
    Pretendi(!Uno.Lista->InModifica());
    QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);  // the editor that was closed
    const QString Presa = CStr(Uno.Righe(0, Colonna));
    Pretendi(Presa.size() <= MassimoCella);
}

void Prova(const QByteArray& Dati)
{
    PreparaFinestre();
    static auto* Uno = new Tavolo;
    QApplication::clipboard()->setText(QString::fromUtf8(Dati.left(4000)));

    Uno->Data->ImpostaTesto({});
    Incolla(Uno->Data);
    const QString Scritta = Uno->Data->Testo();
    Pretendi(Scritta.size() == 10 && Scritta[2] == u'/' && Scritta[5] == u'/');
    for (const QChar Segno : Scritta)
        Pretendi(Segno.isDigit() || Segno == u'/' || Segno == u'_');
    Uno->Data->CompletaAnno();
    Pretendi(Uno->Data->Testo().size() == 10);

    for (QLineEdit* Campo : {Uno->Importo, Uno->Percento}) {
        Campo->clear();
        Incolla(Campo);
        (void)TastiRifiutati(Campo);
        (void)ConcludiCampo();
    }
    for (int Colonna = 0; Colonna < 2; ++Colonna)
        IncollaInCella(*Uno, Colonna);
    Pretendi(Uno->Righe.Righe() == 2);
    QApplication::sendPostedEvents();
}

}  // namespace

BERSAGLIO(fuzz_appunti, Prova);
