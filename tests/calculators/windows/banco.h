// What the tests of the calculators' windows share: a fixed day, folders, everything opened written down.
#pragma once

#include "calculators/ultimicalcoli.h"
#include "core/aperture.h"
#include "core/modErrori.h"
#include "core/sessione.h"
#include "platform/database/database.h"
#include "platform/kit/campo.h"
#include "platform/kit/collega.h"
#include "platform/kit/mascheradata.h"
#include "platform/system/attese.h"
#include "platform/system/cartelle.h"
#include "platform/system/guasti.h"
#include "platform/system/orologio.h"
#include "platform/system/percorsi.h"
#include "platform/system/shell.h"
#include "supporto/mani.h"
#include "supporto/prova.h"
#include "supporto/registratore.h"

#include <QApplication>
#include <QClipboard>
#include <QComboBox>
#include <QDir>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPointer>
#include <QPushButton>
#include <QRadioButton>
#include <QTableView>
#include <QToolButton>

/// A desk with the delivered program on it, on 21 November 2026. Its windows go with it.
class Banco
{
public:
    Banco()
    {
        using namespace Qt::StringLiterals;
        AzzeraSessione();
        sessione::PercorsoProg = ProgrammaDiProva();
        sessione::UserFolder = NuovaCartella();
        ScartaFile(FileCalcoli());
        ScartaFile(FileCalcoliGuasto());
        Aperture = {};
        Aperture.Aggiorna = [this](const QString& Parola) { Aperti << u"aggiorna [%1]"_s.arg(Parola); };
        Aperture.PaginaWeb = [this](const QString& Pagina, const QString& Titolo) {
            Aperti << u"pagina "_s + Pagina + u" | "_s + Titolo;
        };
        InstallaUltimaRete([](const Errore& Guasto) { GestioneErrori(Guasto); });
        InstallaOrologio([] { return QDateTime(QDate(2026, 11, 21), QTime(10, 0)); });
        Shell Nuova;
        Nuova.ApriFile = [this](const QString& File) {
            Aperti << u"file "_s + NomeFile(File);
            return Esito;
        };
        Nuova.ApriPdf = [this](const QString& File, int) {
            Aperti << u"pdf "_s + NomeFile(File);
            return Esito;
        };
        Nuova.HaProgramma = [this](const QString&) { return Lettore; };
        Nuova.Campanello = [this] { ++Campanelli; };
        Precedente = InstallaShell(std::move(Nuova));
        QApplication::clipboard()->clear();
    }
    ~Banco()
    {
        for (QWidget* Finestra : QApplication::topLevelWidgets())
            Finestra->close();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        InstallaShell(std::move(Precedente));
        InstallaOrologio({});
        InstallaUltimaRete({});
        attese::BlocchiMs = 3000;
        Aperture = {};
        AzzeraSessione();
    }
    Banco(const Banco&) = delete;
    Banco& operator=(const Banco&) = delete;

    /// Lays the delivered rate archive into the user folder.
    void ConTassi() const { QVERIFY(QFile::copy(ProgrammaDiProva() + QStringLiteral("Tassi.dat"), Tassi())); }
    [[nodiscard]] QString Tassi() const { return sessione::UserFolder + QStringLiteral("Tassi.dat"); }

    Registratore Voce;
    QStringList Aperti;
    int Esito = 0;        ///< what the system answers when it is asked to open a file
    bool Lettore = true;  ///< whether the system has a program for a document
    int Campanelli = 0;

private:
    Shell Precedente;
};

/// Makes a window of its own, in front. It goes when it is closed.
template <class Modulo>
Modulo* Apri()
{
    auto* Finestra = new Modulo;
    Finestra->Mostra();
    return MostraAttiva(*Finestra) ? Finestra : nullptr;
}

/// Moves a window, closes it and makes it anew. It is as small as it can be: the screen of the tests is
/// narrow.
/// @return where the new one came up
template <class Modulo>
QPoint Riaperta(QPointer<Modulo>& Finestra, const QPoint& Posto)
{
    Finestra->setGeometry(QRect(Posto, Finestra->minimumSizeHint()));
    Chiudi(Finestra);
    Finestra = Apri<Modulo>();
    return Finestra ? Finestra->geometry().topLeft() : QPoint();
}

/// Chooses an entry of a list by the arrows.
inline void Scegli(const QWidget* Finestra, const char* Nome, int Indice)
{
    ScegliConFrecce(Controllo<QComboBox>(Finestra, Nome), Indice);
}
