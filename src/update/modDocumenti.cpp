#include "update/modDocumenti.h"

#include "core/modErrori.h"
#include "core/sessione.h"
#include "platform/base/errore.h"
#include "platform/base/paginacodice.h"
#include "platform/base/testopiano.h"
#include "platform/system/cartelle.h"
#include "platform/system/file.h"
#include "platform/system/percorsi.h"
#include "platform/system/shell.h"

#include <QFileInfo>
#include <QSet>
#include <QStringDecoder>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr QStringView Estensioni = u"DOC_XLS_PDF";
constexpr qsizetype LettereEstensione = 3;
constexpr qint64 MassimoElenco = qint64(1) << 20;

/// A catalogue may have been written by any editor: UTF-8 when it is valid as such.
QString TestoElenco(const QByteArray& Byte)
{
    QStringDecoder Lettore(QStringDecoder::Utf8);
    QString Testo = Lettore(Byte);
    if (Lettore.hasError())
        Testo = DaCp1252(Byte);
    return Testo;
}

/// The file of a plain name in the folder, whatever its case; empty when there is none, and when a link would
/// lead out of the folder.
QString FileDi(const QString& Cartella, const QString& Nome)
{
    if (Nome.contains(u'/') || Nome.contains(u'\\') || Nome.contains(QChar(0)))
        return {};
    const QString File = TrovaFile(Cartella + Nome);
    if (!EsisteFile(File))
        return {};
    const QString Qui = QFileInfo(Cartella).canonicalFilePath();
    return QFileInfo(QFileInfo(File).canonicalFilePath()).path() == Qui ? File : QString();
}

VoceDocumento VoceDi(const QString& File)
{
    const QString Intero = NomeFile(File);
    const qsizetype Punto = Intero.lastIndexOf(u'.');
    if (Punto <= 0)
        return {File, Intero, {}};
    return {File, Intero.left(Punto), Intero.mid(Punto + 1).toUpper()};
}

/// @throws Errore as LeggiFile, with the catalogue's name
QByteArray LeggiElenco(const QString& Elenco)
{
    try {
        return LeggiFile(Elenco, MassimoElenco);
    } catch (const Errore& Guasto) {
        throw Errore(Guasto.Numero, Guasto.Descrizione + u": "_s + Elenco);
    }
}

QList<VoceDocumento> DaElenco(const QString& Cartella, const QString& Elenco)
{
    QList<VoceDocumento> Trovati;
    QSet<QString> Visti;
    for (const QString& Riga : TestoElenco(LeggiElenco(Elenco)).replace(u'\r', u'\n').split(u'\n')) {
        const QString Nome = Riga.trimmed();
        const QString File = Nome.isEmpty() ? QString() : FileDi(Cartella, Nome);
        if (File.isEmpty() || Visti.contains(File))
            continue;
        Visti.insert(File);
        Trovati.append(VoceDi(File));
    }
    return Trovati;
}

QList<VoceDocumento> DaCartella(const QString& Cartella)
{
    QList<VoceDocumento> Trovati;
    ScorriCartella(Cartella, [&](VoceCartella&& Voce) {
        const QString Fine = Voce.Nome.right(LettereEstensione).toUpper();
        if (!Voce.Cartella && Fine.size() == LettereEstensione && Estensioni.contains(Fine))
            if (const QString File = FileDi(Cartella, Voce.Nome); !File.isEmpty())
                Trovati.append(VoceDi(File));
        return true;
    });
    std::ranges::sort(Trovati, [](const VoceDocumento& Prima, const VoceDocumento& Seconda) {
        const int Ordine = QString::localeAwareCompare(TestoPiano(Prima.Nome), TestoPiano(Seconda.Nome));
        return Ordine != 0 ? Ordine < 0 : Prima.File < Seconda.File;
    });
    return Trovati;
}

}  // namespace

QString CartellaDocum()
{
    return sessione::PercorsoProg + Barra(u"docum"_s);
}

QList<VoceDocumento> ElencoDocumenti(const QString& Cartella)
{
    const QString Intera = Barra(Cartella);
    if (!EsisteCartella(Intera))
        return {};
    const QString Elenco = TrovaFile(Intera + u"elenco.txt"_s);
    return EsisteFile(Elenco) || EsisteCartella(Elenco) ? DaElenco(Intera, Elenco) : DaCartella(Intera);
}

bool TrovatoNelDocumento(const VoceDocumento& Voce, const QString& Testo)
{
    const QString Dove = TestoPiano(Voce.Nome + u' ' + Voce.Tipo);
    return std::ranges::all_of(TestoPiano(Testo).split(u' ', Qt::SkipEmptyParts),
                               [&](const QString& Parola) { return Dove.contains(Parola); });
}

QString ContoDocumenti(qsizetype Mostrati, qsizetype Tutti)
{
    const QString Nome = Tutti == 1 ? u"documento"_s : u"documenti"_s;
    if (Mostrati == Tutti)
        return QString::number(Tutti) + u' ' + Nome;
    return u"%1 di %2 %3"_s.arg(Mostrati).arg(Tutti).arg(Nome);
}

void ApriDocumento(const VoceDocumento& Voce)
{
    const QString Nome = NomeFile(Voce.File);
    if (!EsisteFile(Voce.File))
        throw Errore(errori::FileMancante, u"%1: %2"_s.arg(DescrizioneErrore(errori::FileMancante), Nome));
    // The desktop does not report that it has no reader for the file.
    if (!HaProgramma(Voce.File))
        throw Errore(errori::NessunProgramma,
                     u"Nessun programma di questo computer apre il documento "_s + Nome);
    VerificaEsito(ApriConSistema(Voce.File));
}
