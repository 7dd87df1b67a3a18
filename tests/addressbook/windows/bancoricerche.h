// The search dialog over rows of a file.
#pragma once

#include "addressbook/archivio_schede.h"
#include "addressbook/windows/frmRicerche.h"
#include "platform/system/shell.h"
#include "supporto/mani.h"
#include "supporto/registratore.h"

#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QLineEdit>
#include <QMenu>
#include <QPushButton>
#include <QScreen>
#include <QSignalSpy>
#include <memory>

using namespace Qt::StringLiterals;

/// Rows of a file, the dialog over them, and hands to use it.
class BancoRicerche
{
protected:
    void PreparaTutto();
    void Prepara();
    void Sgombra();

    void Apri();
    QComboBox* Campo() const { return Controllo<QComboBox>(F, "cmbCampo"); }
    QComboBox* Oper() const { return Controllo<QComboBox>(F, "cmbOper"); }
    QLineEdit* Valore() const { return Controllo<QLineEdit>(F, "txtValore"); }
    QPushButton* Primo() const { return Controllo<QPushButton>(F, "cmdFind_0"); }
    QPushButton* Successivo() const { return Controllo<QPushButton>(F, "cmdFind_1"); }
    void ScegliCampo(const QString& Nome) const { Scegli(Campo(), Campo()->findText(Nome)); }
    int Corrente() const { return Righe.Value(u"ID"_s).toInt(); }

    Database Db;
    Recordset Righe;
    std::unique_ptr<QWidget> Browser;
    frmRicerche* F = nullptr;
    std::unique_ptr<Registratore> Voce;
    Shell Prima;
    int Campane = 0;
    QStringList Puntatore;
};

inline void BancoRicerche::PreparaTutto()
{
    // Nothing is remembered yet: the first field is chosen.
    Prepara();
    Apri();
    QCOMPARE(Campo()->currentIndex(), 0);
    QCOMPARE(Oper()->count(), 8);
    Sgombra();
}

inline void BancoRicerche::Prepara()
{
    Voce = std::make_unique<Registratore>();
    Campane = 0;
    Puntatore.clear();
    Shell Nuova;
    Nuova.Campanello = [this] { ++Campane; };
    Nuova.Clessidra = [this](bool Attiva) { Puntatore += Attiva ? u"si"_s : u"no"_s; };
    Prima = InstallaShell(Nuova);
    Db = ArchivioSchede();
    Righe = Db.OpenRecordset(u"clienti"_s);
    Browser = std::make_unique<QWidget>();
    Browser->setGeometry(0, 0, 300, 200);
    QVERIFY(MostraAttiva(*Browser));
    F = new frmRicerche(Browser.get());
    F->ImpostaRecordSource(Righe);
}

inline void BancoRicerche::Sgombra()
{
    Browser.reset();
    InstallaShell(Prima);
    Righe.Close();
    Db = {};
    Voce.reset();
}

inline void BancoRicerche::Apri()
{
    F->Apri();
    QApplication::setActiveWindow(F);
    if (!QTest::qWaitForWindowActive(F))
        QTest::qFail("not active", __FILE__, __LINE__);
}
