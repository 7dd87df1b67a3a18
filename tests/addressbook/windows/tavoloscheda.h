// What the tests of the card share: a browser's window, an archive, a card on it, and hands.
#pragma once

#include "addressbook/archivio_schede.h"
#include "addressbook/windows/frmScheda.h"
#include "addressbook/windows/lineamodifiche.h"
#include "platform/kit/aspetto.h"
#include "platform/system/shell.h"
#include "supporto/guasti.h"
#include "supporto/mani.h"
#include "supporto/registratore.h"

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPointer>
#include <QPushButton>
#include <QScreen>
#include <QScrollArea>
#include <QScrollBar>
#include <QSignalSpy>
#include <QTableView>
#include <QToolButton>
#include <QVBoxLayout>

#include <memory>

/// A browser with its line of unsaved changes, and the card that it opens on the rows of an archive.
class TavoloScheda
{
public:
    void Apparecchia();
    void Sparecchia();

    frmScheda& Apri(const QString& Modo, int ID = 1);
    frmScheda& ApriPresto(const QString& Modo);
    static ColonnaGriglia Colonna(const QString& Nome, const QString& Titolo = {});
    QLineEdit* Casella(const QString& Nome) const;
    QWidget* Box(const QString& Nome) const;
    void Battere(const QString& Nome, const QString& Testo) const;
    void Premuto(const char* Chiave) const { Clic(Controllo<QToolButton>(Scheda, Chiave)); }
    QVariant NelFile(const QString& Quale, int ID = 1) const;
    QString Avviso() const { return Controllo<QLabel>(Scheda, "lblAvviso")->text(); }

    Database Db;
    Recordset Righe;
    QList<ColonnaGriglia> Colonne;
    std::unique_ptr<QWidget> Browser;
    LineaModifiche* Linea = nullptr;
    QPointer<frmScheda> Scheda;
    std::unique_ptr<Registratore> Voce;
    QList<bool> Chiusure;
};

inline void TavoloScheda::Apparecchia()
{
    Voce = std::make_unique<Registratore>();
    Db = ArchivioSchede();
    Righe = Db.OpenRecordset(QStringLiteral("clienti"));
    Colonne.clear();
    for (const Campo& Descritto : Righe.Campi())
        Colonne += Colonna(Descritto.Name);
    Browser = std::make_unique<QWidget>();
    Browser->resize(400, 300);
    auto* Disposizione = new QVBoxLayout(Browser.get());
    Linea = new LineaModifiche;
    Disposizione->addWidget(Linea);
    Disposizione->addStretch();
    QVERIFY(MostraAttiva(*Browser));
    Chiusure.clear();
}

inline void TavoloScheda::Sparecchia()
{
    delete Scheda;
    Browser.reset();
    Righe.Close();
    Db = {};
    Voce.reset();
}

inline ColonnaGriglia TavoloScheda::Colonna(const QString& Nome, const QString& Titolo)
{
    ColonnaGriglia Nuova;
    Nuova.NomeCampo = Nome;
    Nuova.Titolo = Titolo.isEmpty() ? Nome : Titolo;
    return Nuova;
}

/// On view, but perhaps not yet with the focus.
inline frmScheda& TavoloScheda::ApriPresto(const QString& Modo)
{
    Scheda = new frmScheda(Browser.get());
    Scheda->ImpostaModalità(Modo);
    Scheda->Consegna(Righe, Colonne);
    Linea->Segui(Righe);
    QObject::connect(Scheda.data(), &frmScheda::Chiusa, Browser.get(), [this](bool Salvata) {
        Chiusure += Salvata;
        Linea->Aggiorna();
    });
    (void)Scheda->Carica();
    return *Scheda;
}

inline frmScheda& TavoloScheda::Apri(const QString& Modo, int ID)
{
    Righe.FindFirst(QStringLiteral("ID=%1").arg(ID));
    frmScheda& Nuova = ApriPresto(Modo);
    QApplication::setActiveWindow(&Nuova);
    if (!QTest::qWaitForWindowActive(&Nuova))
        QTest::qFail("not active", __FILE__, __LINE__);
    return Nuova;
}

inline QWidget* TavoloScheda::Box(const QString& Nome) const
{
    for (QWidget* Figlio : Scheda->findChildren<QWidget*>())
        if (Figlio->property("Tag").toString() == Nome)
            return Figlio;
    QTest::qFail(qPrintable(Nome), __FILE__, __LINE__);
    return nullptr;
}

inline QLineEdit* TavoloScheda::Casella(const QString& Nome) const
{
    return qobject_cast<QLineEdit*>(Box(Nome));
}

/// Types over what a box holds, and stays in it.
inline void TavoloScheda::Battere(const QString& Nome, const QString& Testo) const
{
    QLineEdit* Dove = Casella(Nome);
    Dove->setFocus();
    Dove->selectAll();
    if (Testo.isEmpty())
        Premi(Qt::Key_Delete);
    else
        Digita(Testo);
}

inline QVariant TavoloScheda::NelFile(const QString& Quale, int ID) const
{
    return Db.OpenRecordset(QStringLiteral("SELECT * FROM clienti WHERE ID=?"), {ID}).Value(Quale);
}
