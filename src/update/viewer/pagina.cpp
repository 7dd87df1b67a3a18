#include "update/viewer/pagina.h"

#include "core/comandi.h"
#include "core/modLancio.h"
#include "core/sessione.h"
#include "platform/base/errore.h"
#include "platform/kit/aspetto.h"
#include "platform/kit/collega.h"
#include "platform/system/file.h"
#include "platform/system/percorsi.h"
#include "platform/system/shell.h"
#include "update/viewer/intrico.h"
#include "update/viewer/stilepagina.h"

#include <QBuffer>
#include <QFileInfo>
#include <QImageReader>
#include <QPagedPaintDevice>
#include <QScrollBar>
#include <QStringDecoder>
#include <QTextDocument>
#include <QWheelEvent>

#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

namespace {

constexpr qint64 MassimaPagina = qint64(1) << 20;
constexpr qint64 MassimaFigura = qint64(4) << 20;
constexpr int MassimoLatoFigura = 4096;
constexpr int PassoMinimo = -4;
constexpr int PassoMassimo = 12;
constexpr int Margine = 12;
constexpr qsizetype MassimiSegni = 500;

bool Remoto(const QUrl& Indirizzo)
{
    return Indirizzo.scheme() == u"http" || Indirizzo.scheme() == u"https" || Indirizzo.scheme() == u"mailto";
}

/// A link out of the program folder, by whatever road, leads nowhere.
bool DelProgramma(const QString& File)
{
    const QString Cartella = QFileInfo(sessione::PercorsoProg).canonicalFilePath();
    return !Cartella.isEmpty() && QFileInfo(File).canonicalFilePath().startsWith(Cartella + u'/');
}

/// The commands that a page may run: windows that only show something, and the settings, which ask for a
/// save.
constexpr std::array<QStringView, 5> ComandiDiPagina{u"about", u"docum", u"readme", u"setup", u"upgrade"};

bool HaEstensione(const QString& File, std::initializer_list<QStringView> Estensioni)
{
    const QString Sua = QFileInfo(File).suffix();
    return std::ranges::any_of(Estensioni,
                               [&](QStringView Una) { return Sua.compare(Una, Qt::CaseInsensitive) == 0; });
}

/// An empty picture stands for one that may not be shown: nothing at all would let the toolkit look for the
/// file by itself.
QImage Figura(const QString& File)
{
    QImage Nessuna(1, 1, QImage::Format_ARGB32);
    Nessuna.fill(Qt::transparent);
    if (File.isEmpty())
        return Nessuna;
    QByteArray Contenuto = LeggiFile(File, MassimaFigura);
    QBuffer Memoria(&Contenuto);
    QImageReader Lettore(&Memoria);
    const QSize Misura = Lettore.size();
    if (!Misura.isValid() || Misura.width() > MassimoLatoFigura || Misura.height() > MassimoLatoFigura)
        return Nessuna;
    const QImage Letta = Lettore.read();
    return Letta.isNull() ? Nessuna : Letta;
}

}  // namespace

Pagina::Pagina(QWidget* Padre) : QTextBrowser(Padre)
{
    setOpenLinks(false);
    document()->setDocumentMargin(Margine);
    document()->setDefaultStyleSheet(FoglioDiStile());
    Collega(this, &QTextBrowser::anchorClicked, this,
            [this](const QUrl& Collegamento) { (void)Segui(Collegamento); });
}

bool Pagina::Naviga(const QString& Indirizzo)
{
    const QUrl Url(Indirizzo);
    if (Remoto(Url))
        return Segui(Url);
    const qsizetype Segno = EsisteFile(TrovaFile(Indirizzo)) ? -1 : Indirizzo.lastIndexOf(u'#');
    const QString File = Segno < 0 ? Indirizzo : Indirizzo.left(Segno);
    QUrl Locale = QUrl::fromLocalFile(QFileInfo(TrovaFile(File)).absoluteFilePath());
    if (Segno >= 0)
        Locale.setFragment(Indirizzo.mid(Segno + 1));
    return Segui(Locale);
}

bool Pagina::Segui(const QUrl& Collegamento)
{
    if (Remoto(Collegamento)) {
        if (const int Esito = ApriIndirizzoConSistema(Collegamento.toString(QUrl::FullyEncoded)))
            throw Errore(Esito);
        return false;
    }
    if (Collegamento.scheme() == u"comando" &&
        std::ranges::find(ComandiDiPagina, Collegamento.path()) != ComandiDiPagina.end()) {
        EseguiComando(Collegamento.path(), 0, {});
        return false;
    }
    if (!Collegamento.isLocalFile())
        throw Errore(errori::NomeNonValido);
    const QString File = TrovaFile(Collegamento.toLocalFile());
    if (!EsisteFile(File))
        throw Errore(errori::FileMancante);
    if (!DelProgramma(File))
        throw Errore(errori::Autorizzazione);
    if (HaEstensione(File, {u"pdf"})) {
        ApriPDF(File);
        return false;
    }
    if (!HaEstensione(File, {u"htm", u"html"}))
        throw Errore(errori::Autorizzazione);
    QUrl Trovato = QUrl::fromLocalFile(File);
    Trovato.setFragment(Collegamento.fragment());
    Mostra(Trovato);
    return true;
}

void Pagina::Mostra(const QUrl& Indirizzo)
{
    // Read once more by the toolkit: what it cannot digest is refused before the page on view is gone.
    const QString File = Indirizzo.toLocalFile();
    try {
        if (Intricata(LeggiFile(File, MassimaPagina)))
            throw Errore(errori::Memoria);
    } catch (const Errore& Guasto) {
        throw Errore(Guasto.Numero,
                     (Guasto.Numero == errori::Memoria ? u"Pagina troppo grande o troppo intricata: %1"_s
                                                       : u"La pagina %1 non si può leggere"_s)
                         .arg(NomeFile(File)));
    }
    setExtraSelections({});
    setSource(Indirizzo, QTextDocument::HtmlResource);
}

void Pagina::TornaAllAncora()
{
    if (source().hasFragment())
        scrollToAnchor(source().fragment());
}

QVariant Pagina::loadResource(int Tipo, const QUrl& Nome)
{
    const QUrl Intero = source().resolved(Nome);
    const QString File = Intero.isLocalFile() ? TrovaFile(Intero.toLocalFile()) : QString();
    const bool Lecito = EsisteFile(File) && DelProgramma(File);
    try {
        if (Tipo == QTextDocument::ImageResource)
            return Figura(Lecito ? File : QString());
        // Of a page without a letter the toolkit says in its own words that there is none.
        const QByteArray Letta = Lecito ? LeggiFile(File, MassimaPagina) : QByteArray();
        return Letta.isEmpty() ? QByteArray(" ") : Letta;
    } catch (const Errore&) {
        // A file that went or grew since it was looked at: an empty page, not half of one.
        return Tipo == QTextDocument::ImageResource ? QVariant(Figura({})) : QVariant(QByteArray(" "));
    }
}

bool Pagina::Cerca(const QString& Testo, bool Indietro)
{
    if (Testo.isEmpty())
        return false;
    const QTextDocument::FindFlags Verso =
        Indietro ? QTextDocument::FindFlags(QTextDocument::FindBackward) : QTextDocument::FindFlags();
    QTextCursor Trovato = document()->find(Testo, textCursor(), Verso);
    if (Trovato.isNull()) {
        QTextCursor Capo(document());
        if (Indietro)
            Capo.movePosition(QTextCursor::End);
        Trovato = document()->find(Testo, Capo, Verso);
    }
    if (Trovato.isNull())
        return false;
    setTextCursor(Trovato);
    return true;
}

void Pagina::Evidenzia(const QStringList& Parole)
{
    QList<QTextEdit::ExtraSelection> Segnate;
    for (const QString& Parola : Parole)
        for (QTextCursor Qui = document()->find(Parola, 0); !Qui.isNull() && Segnate.size() < MassimiSegni;
             Qui = document()->find(Parola, Qui)) {
            QTextEdit::ExtraSelection Segno;
            Segno.cursor = Qui;
            Segno.format.setBackground(aspetto::RigaSelezionata());
            Segno.format.setForeground(aspetto::TestoRigaSelezionata());
            Segnate.append(Segno);
        }
    setExtraSelections(Segnate);
}

void Pagina::Ingrandisci(int Passi)
{
    const int Nuovo = std::clamp(Passo + Passi, PassoMinimo, PassoMassimo);
    zoomIn(Nuovo - Passo);
    Passo = Nuovo;
}

void Pagina::GrandezzaNormale()
{
    Ingrandisci(-Passo);
}

void Pagina::Stampa(QPagedPaintDevice& Dove)
{
    // The document on view has the colours of the palette in it: the paper's is read anew.
    QTextDocument Carta(this);
    QFont Carattere = font();
    constexpr int PuntiSuCarta = 10;
    Carattere.setPointSize(PuntiSuCarta);
    Carta.setDefaultFont(Carattere);
    Carta.setDefaultStyleSheet(FoglioDiStileSuCarta());
    Carta.setBaseUrl(source());
    const QByteArray Letta = loadResource(QTextDocument::HtmlResource, source()).toByteArray();
    Carta.setHtml(QStringDecoder::decoderForHtml(Letta)(Letta));
    Carta.setMetaInformation(QTextDocument::DocumentTitle, documentTitle());
    Carta.print(&Dove);
}

void Pagina::wheelEvent(QWheelEvent* Evento)
{
    // The toolkit's own zoom has no ends.
    if (!(Evento->modifiers() & Qt::ControlModifier)) {
        QTextBrowser::wheelEvent(Evento);
        return;
    }
    if (Evento->angleDelta().y() != 0)
        Ingrandisci(Evento->angleDelta().y() > 0 ? 1 : -1);
    Evento->accept();
}

void Pagina::changeEvent(QEvent* Evento)
{
    QTextBrowser::changeEvent(Evento);
    if (Evento->type() == QEvent::PaletteChange)
        Ridisegna();
}

void Pagina::Ridisegna()
{
    document()->setDefaultStyleSheet(FoglioDiStile());
    if (source().isEmpty())
        return;
    const int Riga = verticalScrollBar()->value();
    reload();
    verticalScrollBar()->setValue(Riga);
}

#include "moc_pagina.cpp"
