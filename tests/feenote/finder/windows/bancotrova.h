// What the tests of the finder's form share: an office with a folder of notes, the form, hands for its list.
#pragma once

#include "feenote/windows/tavolo.h"

#include "feenote/finder/finder_prova.h"
#include "feenote/finder/windows/frmTrovaParcella.h"

#include <QHeaderView>

#include <memory>

/// Inherited by a class of tests, which calls Prepara and Sgombra around each of them.
class BancoTrova
{
protected:
    void Prepara()
    {
        T = std::make_unique<Tavolo>();
        Note = T->Ufficio.File(QStringLiteral("note/"));
        sessione::ParcellePath = Note;
        SalvaNota(Note + QStringLiteral("rossi 10.mdb"), QStringLiteral("Rossi Mario"),
                  QStringLiteral("Bianchi"));
        QDir().mkpath(Note + QStringLiteral("vecchie"));
        for (const QString& Nome : {QStringLiteral("rossi 9.mdb"), QStringLiteral("vecchie/neri.mdb")})
            QVERIFY(QFile::copy(Note + QStringLiteral("rossi 10.mdb"), Note + Nome));
        SalvaNota(Note + QStringLiteral("verdi.mdb"), QStringLiteral("Perché Anna"));
        AperteDaQui.clear();
        Aperture.ApriParcella = [this](const QString& File, int Socio, const QString& ID) {
            AperteDaQui += File;
            ApriParcella(File, Socio, ID);
        };
        F = std::make_unique<frmTrovaParcella>();
        Aperture.RinfrescaTrova = [this] { F->RinfrescaTrova(); };
    }
    void Sgombra()
    {
        F.reset();
        T.reset();
    }

    /// Waits for the end of the walk.
    void Finita()
    {
        constexpr int AttesaMs = 30000;  // ten thousand files on a busy machine
        QTRY_VERIFY_WITH_TIMEOUT(!F->InRicerca(), AttesaMs);
        Respiro();
    }
    /// What a window manager does with a window that comes up.
    void Davanti()
    {
        QApplication::setActiveWindow(F.get());
        QVERIFY(QTest::qWaitForWindowActive(F.get()));
    }
    void Apri(int Quale = 0, const QString& Cartella = {})
    {
        (void)F->OpenParcMod(Quale, Cartella, 0, {});
        Davanti();
        Finita();
    }
    Griglia* Lista() const { return Controllo<Griglia>(F.get(), "tdbParcelle"); }
    QLineEdit* Testo() const { return Controllo<QLineEdit>(F.get(), "txtDesPar"); }
    QLineEdit* Percorso() const { return Controllo<QLineEdit>(F.get(), "txtSearchPath"); }
    QString Stato() const { return Controllo<QLabel>(F.get(), "panRicerca")->text(); }
    QString Mostrate() const { return Controllo<QLabel>(F.get(), "panMostrate")->text(); }
    QStringList Nomi() const
    {
        QStringList Tutti;
        for (int Riga = 0; Riga < Lista()->Righe(); ++Riga)
            Tutti += Cella(Riga, TrovaNome);
        return Tutti;
    }
    QString Cella(int Riga, int Colonna) const
    {
        return Lista()->Vista()->model()->index(Riga, Colonna).data().toString();
    }
    int RigaDi(const QString& Nome) const { return int(Nomi().indexOf(Nome)); }
    QString Corrente() const
    {
        const auto Riga = Lista()->RigaCorrente();
        return Riga ? Cella(*Riga, TrovaNome) : QString();
    }
    void Doppio(const QString& Nome)
    {
        QVERIFY2(RigaDi(Nome) >= 0, qPrintable(Nome));
        Lista()->ImpostaRigaCorrente(RigaDi(Nome));
        DoppioClic(Lista(), RigaDi(Nome));
        if (F->isVisible())
            Finita();
    }
    void VaiSu(const QString& Nome)
    {
        QVERIFY2(RigaDi(Nome) >= 0, qPrintable(Nome));
        Lista()->setFocus();
        Lista()->ImpostaRigaCorrente(RigaDi(Nome));
    }
    void ClicTitolo(int Colonna)
    {
        QHeaderView* Testata = Lista()->Vista()->horizontalHeader();
        const QPoint Dove(Testata->sectionViewportPosition(Colonna) + 20, Testata->height() / 2);
        QTest::mouseClick(Testata->viewport(), Qt::LeftButton, Qt::NoModifier, Dove);
    }
    QRadioButton* Opzione(int Quale) const
    {
        return Controllo<QRadioButton>(F.get(), qPrintable(QStringLiteral("optFolder_%1").arg(Quale)));
    }

    std::unique_ptr<Tavolo> T;
    std::unique_ptr<frmTrovaParcella> F;
    QString Note;
    QStringList AperteDaQui;
};
