// An office in which keys are pressed, and what stands before the keys of a window.
#pragma once

#include "tuttelefinestre.h"

#include "feenote/finder/finder_prova.h"
#include "feenote/finder/windows/frmTrovaParcella.h"
#include "platform/preview/vistastampa.h"

#include <QContextMenuEvent>
#include <QLabel>
#include <QWindow>

/// An office, and the hands of who sits before it.
class BancoTasti
{
public:
    explicit BancoTasti(QString Quali) : Tasti(std::move(Quali)) {}
    ~BancoTasti()
    {
        for (QWidget* Finestra : QApplication::topLevelWidgets())
            if (Finestra->isVisible() && qobject_cast<QDialog*>(Finestra))
                Finestra->close();
        Respiro();
    }

    /// Presses keys as the display server hands them to the window in front: shortcuts first, then the
    /// control.
    static void Batti(const QString& Quali)
    {
        const QKeyCombination Uno = QKeySequence(Quali, QKeySequence::PortableText)[0];
        const QWidget* Davanti = QApplication::activePopupWidget();
        if (!Davanti)
            Davanti = QApplication::activeWindow();
        QVERIFY2(Davanti && Davanti->windowHandle(), "nessuna finestra ha i tasti");
        const QString Testo = Uno.key() == Qt::Key_Space ? u" "_s : QString();
        // The display sends another key for Tab with Shift.
        const bool Indietro = Uno.key() == Qt::Key_Tab && Uno.keyboardModifiers().testFlag(Qt::ShiftModifier);
        QTest::sendKeyEvent(QTest::Click, Davanti->windowHandle(), Indietro ? Qt::Key_Backtab : Uno.key(),
                            Testo, Uno.keyboardModifiers());
        // The display's own plugin makes a wish for a menu of this key.
        if (Uno.key() == Qt::Key_Menu) {
            QWidget* Qui = QApplication::focusWidget();
            QContextMenuEvent Voglia(QContextMenuEvent::Keyboard, Qui->rect().center(),
                                     Qui->mapToGlobal(Qui->rect().center()));
            QCoreApplication::sendEvent(Qui, &Voglia);
        }
        for (int i = 0; i < Giri; ++i)
            Respiro();
    }
    /// Those of the row.
    void Batti() const { Batti(Tasti); }
    /// Those of the row, where they open a window that holds the others back. @return its class
    QString Aperta() const
    {
        QString Classe;
        QTimer::singleShot(0, qApp, [&Classe] {
            if (QWidget* Modale = QApplication::activeModalWidget()) {
                Classe = QString::fromLatin1(Modale->metaObject()->className());
                Modale->close();
            }
        });
        Batti();
        return Classe;
    }

    /// The window that a command opens, in front.
    static QWidget* Apri(const QString& Parola)
    {
        QWidgetList Prima = QApplication::topLevelWidgets();
        Prima.removeIf([](const QWidget* Finestra) { return !Finestra->isVisible(); });
        EseguiComando(Parola, 0, {});
        for (int i = 0; i < Giri; ++i)
            Respiro();
        for (QWidget* Finestra : QApplication::topLevelWidgets())
            if (Finestra->isVisible() && !Prima.contains(Finestra) && MostraAttiva(*Finestra))
                return Finestra;
        QTest::qFail(qPrintable(Parola), __FILE__, __LINE__);
        return nullptr;
    }
    /// The one that a button of a window opens.
    static QWidget* Figlia(QWidget* Da, const char* Bottone, const QString& Classe)
    {
        QTest::mouseClick(Controllo<QWidget>(Da, Bottone), Qt::LeftButton);
        Respiro();
        QWidget* Aperta = InVistaDi(Classe);
        if (!Aperta || !MostraAttiva(*Aperta))
            QTest::qFail(qPrintable(Classe), __FILE__, __LINE__);
        return Aperta;
    }
    /// A note in the frame, in front.
    static frmParcelle* Nota()
    {
        Aperture.ApriParcella({}, 0, {});
        frmParcelle* Aperta = Parcelle(1);
        if (!Aperta || !MostraAttiva(Singola<frmMain>()))
            QTest::qFail("nessuna parcella", __FILE__, __LINE__);
        Aperta->parentWidget()->showMaximized();
        return Aperta;
    }
    /// A civil note on one of its other tabs.
    static frmParcelle* Nota(int Scheda)
    {
        frmParcelle* Aperta = Nota();
        ::Scegli(Controllo<QComboBox>(Aperta, "cmbCateg"), 0);
        ::Scegli(Controllo<QComboBox>(Aperta, "cmbAutor"), 1);
        Scrivi(Aperta, "txtImporto", u"30000"_s);
        Premi(Qt::Key_Tab);
        Aperta->VaiAllaScheda(Scheda);
        for (int i = 0; i < Giri; ++i)
            Respiro();
        return Aperta;
    }
    /// Its honoraria, three at least; the cursor stands on the first one's text.
    static Griglia* Onorari()
    {
        frmParcelle* Aperta = Nota(SchedaListaOnorari);
        auto* Righe = Controllo<Griglia>(Aperta, "tdbOnor");
        for (int Voce = 0; Righe->Righe() < 3 && Voce < 6; ++Voce)
            DoppioClic(Controllo<Griglia>(Aperta, "tdbListaOno"), Voce);
        Righe->setFocus();
        Righe->ImpostaRigaCorrente(0, 1);
        return Righe;
    }
    /// Its invoice on the print tab, the keys with the page.
    static VistaStampa* Fattura()
    {
        Griglia* Righe = Onorari();
        frmParcelle* Aperta = Parcelle(1);
        if (Righe->Righe() == 0)
            QTest::qFail("nessun onorario", __FILE__, __LINE__);
        Aperta->VaiAllaScheda(SchedaDiStampa);
        Respiro();
        ::Scegli(Controllo<QComboBox>(Aperta, "cmbTipoStampa"), StampaFatturaAnalitica);
        Respiro();
        auto* Vista = Controllo<VistaStampa>(Aperta, "vp");
        Controllo<QWidget>(Vista, "fogliStampa")->setFocus();
        return Vista;
    }
    /// The same with a search that has found several places and the keys back on the page.
    static VistaStampa* Cercata()
    {
        VistaStampa* Vista = Fattura();
        Batti(u"Ctrl+F"_s);
        Digita(u"a"_s);
        Respiro();
        Controllo<QWidget>(Vista, "fogliStampa")->setFocus();
        return Vista;
    }
    /// "2 di 9": what the search stands on.
    static int Occorrenza(const VistaStampa* Vista, int Parte = 0)
    {
        return Controllo<QLabel>(Vista, "lblRicerca")->text().split(u" di "_s).value(Parte).toInt();
    }
    /// The saved notes: a folder with one in it, and one more.
    static frmTrovaParcella* Trova()
    {
        SalvaNota(sessione::ParcellePath + u"rossi.mdb"_s, u"Rossi"_s);
        SalvaNota(sessione::ParcellePath + u"vecchie/neri.mdb"_s, u"Neri"_s);
        auto* Modulo = qobject_cast<frmTrovaParcella*>(Apri(u"open"_s));
        Ferma(Modulo);
        auto* Lista = Controllo<Griglia>(Modulo, "tdbParcelle");
        Lista->setFocus();
        Lista->ImpostaRigaCorrente(int(Nomi(Modulo).indexOf(u"rossi"_s)));
        return Modulo;
    }
    static void Ferma(const frmTrovaParcella* Modulo)
    {
        QTRY_VERIFY(!Modulo->InRicerca());
        Respiro();
    }
    static QStringList Nomi(const frmTrovaParcella* Modulo)
    {
        const QAbstractItemModel* Righe = Controllo<Griglia>(Modulo, "tdbParcelle")->Vista()->model();
        QStringList Tutti;
        for (int Riga = 0; Riga < Righe->rowCount(); ++Riga)
            Tutti += Righe->index(Riga, TrovaNome).data().toString();
        return Tutti;
    }
    /// The terms with sixty days counted from 1 July.
    static QWidget* Termini()
    {
        QWidget* Modulo = Apri(u"termini"_s);
        Controllo<QWidget>(Modulo, "mskDecorr")->setFocus();
        Digita(u"01072026"_s);
        Scrivi(Modulo, "txtIncrNum", u"60"_s);
        QTest::mouseClick(Controllo<QWidget>(Modulo, "cmdEsegui"), Qt::LeftButton);
        return Modulo;
    }
    /// The list of the last terms, with these in it.
    static QWidget* Ultimi()
    {
        QWidget* Modulo = Termini();
        Batti(u"Ctrl+N"_s);
        Batti(u"Ctrl+L"_s);
        QWidget* Elenco = InVistaDi(u"frmUltimiCalcoli"_s);
        if (!Elenco || !MostraAttiva(*Elenco) || !TestoDi(Modulo, "txtIncrNum").isEmpty())
            QTest::qFail("ultimi calcoli", __FILE__, __LINE__);
        return Elenco;
    }
    /// The user's icons in the settings: one.
    static Griglia* Icone()
    {
        TabellaRighe Una(ColonneIcona);
        const int Riga = Una.AggiungiRiga();
        Una(Riga, IconaTitolo) = u"Sito"_s;
        Una(Riga, IconaCollegamento) = u"www.x.example"_s;
        Una(Riga, IconaFigura) = FiguraPredefinita.toString();
        // In the user's folder, as soon as it has such a file: the program's own is everybody's.
        ScriviFile(Barra(sessione::UserFolder) + u"kr5.ini"_s, "[desktop]\r\n");
        if (!ScriviIconeUtente(Una))
            QTest::qFail("icone", __FILE__, __LINE__);
        auto& Modulo = Singola<frmSetup>();
        Modulo.Mostra(3);
        if (!MostraAttiva(Modulo))
            QTest::qFail("impostazioni", __FILE__, __LINE__);
        auto* Righe = Controllo<Griglia>(&Modulo, "tdbIcone");
        Righe->setFocus();
        Righe->ImpostaRigaCorrente(0);
        return Righe;
    }
    /// The party's box with the client of the archive linked.
    static frmParcelle* Collegata()
    {
        frmParcelle* Aperta = Nota();
        Controllo<QWidget>(Aperta, "txtCliente")->setFocus();
        Digita(u"Bian"_s);
        for (int i = 0; i < Giri; ++i)
            Respiro();
        Batti(u"Down"_s);
        Batti(u"Return"_s);
        if (TestoDi(Aperta, "txtCliente") != u"Bianchi Mario")
            QTest::qFail("cliente", __FILE__, __LINE__);
        Controllo<QWidget>(Aperta, "txtCliente")->setFocus();
        return Aperta;
    }

    const QString Tasti;
    Finestre F;
    Registratore Box;

private:
    static constexpr int Giri = 6;
};
