// The settings form in tests: filled so that a save goes through, its controls by their names.
#pragma once

#include "core/app/scena.h"
#include "core/settings/frmIcons.h"
#include "platform/system/file.h"

#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QTabWidget>
#include <QTimer>

#include <functional>

/// A stage with the form open on a tab, and a program folder of its own.
class TavoloSetup
{
public:
    TavoloSetup()
    {
        Programma = NuovaCartella();
        ScriviFile(Programma + u"parcelle.mdb"_s, "x");
        for (const QString& Sotto : {u"sfondi"_s, u"icone"_s}) {
            CreaCartella(Programma + Sotto);
            for (const QFileInfo& File : QDir(ProgrammaDiProva() + Sotto).entryInfoList(QDir::Files))
                ScriviFile(Programma + Barra(Sotto) + File.fileName(), LeggiFile(File.filePath()));
        }
        Utente = NuovaCartella();
        Salva(u"PercorsoProcedura"_s, Programma);
        Salva(u"UserFolder"_s, Utente);
        for (const QString& Chiave : {u"StudioNome"_s, u"StudioIndir"_s, u"StudioCitta"_s, u"StudioMail"_s})
            Salva(Chiave, u"x"_s);
        ImpostaVariabili();
    }

    static void Salva(const QString& Chiave, const QString& Valore) { Scena::Salva(Chiave, Valore); }
    static QString Parametro(const QString& Chiave) { return Scena::Parametro(Chiave); }

    frmSetup& Apri(int Scheda)
    {
        Modulo = &Singola<frmSetup>();
        Modulo->Mostra(Scheda);
        (void)QTest::qWaitForWindowActive(Modulo);
        return *Modulo;
    }

    template <class Controllo>
    [[nodiscard]] Controllo* Trova(const QString& Nome) const
    {
        return Modulo->findChild<Controllo*>(Nome);
    }
    [[nodiscard]] QLineEdit* Campo(const QString& Nome) const { return Trova<QLineEdit>(Nome); }
    void Premi(const QString& Pulsante) const
    {
        QTest::mouseClick(Trova<QAbstractButton>(Pulsante), Qt::LeftButton);
    }
    /// Types a text into a box in the place of what it holds.
    void Scrivi(const QString& Nome, const QString& Testo) const
    {
        Campo(Nome)->setFocus();
        Campo(Nome)->selectAll();
        Testo.isEmpty() ? ::Premi(Qt::Key_Delete) : Digita(Testo);
    }
    void Memorizza(Registratore& Box) const
    {
        Box.Attendi(u"Le impostazioni sono state memorizzate!"_s, vbOK, u"Messaggio:"_s);
        Premi(u"cmdSaveImpost"_s);
    }

    /// A file of icons with two of them.
    static QByteArray DueIcone()
    {
        return "[desktop]\r\nL0=Sito\r\nL0_c=www.x.example\r\nL0_i=sito.gif\r\n"
               "L1=Agenda\r\nL1_c=/opt/agenda\r\nL1_i=agenda.gif\r\n";
    }
    /// Runs something in the editor of icons, which comes up next.
    static void NellEditor(const std::function<void(frmIcons&)>& Fai)
    {
        QTimer::singleShot(0, qApp, [Fai] {
            auto* Editor = qobject_cast<frmIcons*>(QApplication::activeModalWidget());
            QVERIFY(Editor);
            QVERIFY(QTest::qWaitForWindowActive(Editor));
            Fai(*Editor);
            if (Editor->isVisible())
                Editor->reject();
        });
    }
    /// Types a title and a target into it.
    static void Riempi(frmIcons& Editor, const QString& Titolo, const QString& Destinazione)
    {
        Editor.findChild<QLineEdit*>(u"txtTitIco"_s)->setText(Titolo);
        auto* Campo = Editor.findChild<QLineEdit*>(u"txtCollegIco"_s);
        Campo->clear();
        QTest::keyClicks(Campo, Destinazione);
    }

    QString Programma;
    QString Utente;
    frmSetup* Modulo = nullptr;

private:
    Scena Palco;

public:
    [[nodiscard]] Scena& S() { return Palco; }
};
