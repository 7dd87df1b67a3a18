// The viewer with folders of its own.
#pragma once

#include "core/CIni.h"
#include "core/aperture.h"
#include "core/modErrori.h"
#include "core/sessione.h"
#include "platform/kit/aspetto.h"
#include "platform/kit/collega.h"
#include "platform/system/file.h"
#include "platform/system/impostazioni.h"
#include "platform/system/orologio.h"
#include "platform/system/percorsi.h"
#include "platform/system/shell.h"
#include "supporto/finestre.h"
#include "supporto/prova.h"
#include "supporto/registratore.h"
#include "update/viewer/frmWeb.h"
#include "update/viewer/intrico.h"
#include "update/viewer/pagina.h"
#include "update/viewer/stilepagina.h"

#include <QAbstractTextDocumentLayout>
#include <QCheckBox>
#include <QDir>
#include <QDirIterator>
#include <QImage>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScopeGuard>
#include <QScrollBar>
#include <QTextBlock>
#include <QTextFragment>
#include <QToolButton>
#include <QWheelEvent>
#include <memory>

using namespace Qt::StringLiterals;

/// A viewer whose pages a test writes, and what it asked of the shell.
class BancoWeb
{
protected:
    void Prepara();
    void Sgombra();

    void Scrivi(const QString& Nome, const QByteArray& Contenuto) const
    {
        ScriviFile(Prog + Nome, Contenuto);
    }
    void Mostra(const QString& Nome)
    {
        W->Indirizzo = Prog + Nome;
        W->Titolo = u"Titolo"_s;
        W->Mostra();
    }
    template <class T>
    T* Trova(const QString& Nome) const
    {
        return W->findChild<T*>(Nome);
    }
    [[nodiscard]] Pagina* Web1() const { return Trova<Pagina>(u"Web1"_s); }

    QString Prog;
    QString Utente;
    std::unique_ptr<frmWeb> W;
    Shell Precedente;
    QStringList Aperti;
    int EsitoApertura = 0;
};

inline void BancoWeb::Prepara()
{
    AzzeraSessione();
    Registratore::AlMostrare() = BoxDavanti;
    Prog = NuovaCartella();
    Utente = NuovaCartella();
    sessione::PercorsoProg = Prog;
    sessione::UserFolder = Utente;
    Aperti.clear();
    EsitoApertura = 0;
    Shell Nuova;
    Nuova.ApriIndirizzo = [this](const QString& Indirizzo) {
        Aperti << Indirizzo;
        return EsitoApertura;
    };
    Nuova.ApriPdf = [this](const QString& File, int) {
        Aperti << NomeFile(File);
        return 0;
    };
    Nuova.ApriFile = [this](const QString& File) {
        Aperti << u"file "_s + NomeFile(File);
        return 0;
    };
    Nuova.HaProgramma = [](const QString&) { return true; };
    Precedente = InstallaShell(std::move(Nuova));
    InstallaUltimaRete([](const Errore& Guasto) { GestioneErrori(Guasto); });
    InstallaOrologio([] { return QDateTime(QDate(2026, 3, 9), QTime(10, 0)); });
    Scrivi(u"uno.htm"_s, "<h1>Prima</h1><p>testo di prova</p>");
    Scrivi(u"due.htm"_s, "<h1>Seconda</h1>");
    W = std::make_unique<frmWeb>();
}

inline void BancoWeb::Sgombra()
{
    W.reset();
    Registratore::AlMostrare() = {};
    InstallaUltimaRete(nullptr);
    InstallaOrologio(nullptr);
    InstallaShell(std::move(Precedente));
    AzzeraSessione();
}
