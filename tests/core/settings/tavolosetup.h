// The settings form in tests: filled so that a save goes through, its controls by their names.
#pragma once

#include "core/app/scena.h"
#include "platform/system/file.h"

#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QTabWidget>

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

    QString Programma;
    QString Utente;
    frmSetup* Modulo = nullptr;

private:
    Scena Palco;

public:
    [[nodiscard]] Scena& S() { return Palco; }
};
