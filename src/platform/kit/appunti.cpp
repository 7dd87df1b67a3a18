#include "platform/kit/appunti.h"

#include "platform/base/segni.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QMimeData>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

/// "1.000,00", "-5", "12,5%": what stands at the right of its cell. A date does not.
bool ENumero(const QString& Cella)
{
    bool Cifre = false;
    for (const QChar C : Cella.trimmed()) {
        if (ECifra(C))
            Cifre = true;
        else if (!u".,-+%€ "_s.contains(C))
            return false;
    }
    return Cifre;
}

qsizetype Colonne(const QList<QStringList>& Righe)
{
    qsizetype Massime = 1;
    for (const QStringList& Riga : Righe)
        Massime = std::max(Massime, Riga.size());
    return Massime;
}

QString Html(const QList<QStringList>& Righe)
{
    const qsizetype Tutte = Colonne(Righe);
    QString Pagina =
        u"<html><head><meta charset=\"utf-8\"></head><body><table border=\"1\" cellspacing=\"0\" "
        "cellpadding=\"4\">"_s;
    for (const QStringList& Riga : Righe) {
        Pagina += u"<tr>"_s;
        for (qsizetype i = 0; i < Riga.size(); ++i) {
            Pagina += u"<td"_s;
            if (i + 1 == Riga.size() && Riga.size() < Tutte)
                Pagina += u" colspan=\"%1\""_s.arg(Tutte - i);
            if (ENumero(Riga[i]))
                Pagina += u" align=\"right\""_s;
            Pagina += u'>' + Riga[i].toHtmlEscaped().replace(u'\n', u"<br>"_s) + u"</td>"_s;
        }
        Pagina += u"</tr>"_s;
    }
    return Pagina + u"</table></body></html>"_s;
}

/// A text of rich text: seven bits, whatever the letters.
QByteArray InRtf(const QString& Testo)
{
    QByteArray Byte;
    for (const QChar C : Testo) {
        if (C == u'\\' || C == u'{' || C == u'}')
            Byte += '\\';
        if (C == u'\n')
            Byte += "\\line ";
        else if (C.unicode() < 0x20)
            Byte += ' ';
        else if (C.unicode() < 0x80)
            Byte += C.toLatin1();
        else
            // The number is signed and has 16 bits; "?" is what a reader without it shows.
            Byte += "\\u" + QByteArray::number(qint16(C.unicode())) + '?';
    }
    return Byte;
}

QByteArray Rtf(const QList<QStringList>& Righe)
{
    constexpr qsizetype LarghezzaTwip = 9600;  // between the margins of a letter
    const qsizetype Tutte = Colonne(Righe);
    QByteArray Testo = "{\\rtf1\\ansi\\ansicpg1252\\deff0{\\fonttbl{\\f0\\fswiss Arial;}}\\f0\\fs20\n";
    for (const QStringList& Riga : Righe) {
        Testo += "\\trowd\\trgaph70";
        for (qsizetype i = 0; i < Riga.size(); ++i) {
            const qsizetype Fino = i + 1 == Riga.size() ? Tutte : i + 1;
            for (const char* Lato : {"\\clbrdrt", "\\clbrdrl", "\\clbrdrb", "\\clbrdrr"})
                Testo += QByteArray(Lato) + "\\brdrs\\brdrw10";
            Testo += "\\cellx" + QByteArray::number(LarghezzaTwip * Fino / Tutte);
        }
        Testo += '\n';
        for (const QString& Cella : Riga)
            Testo += QByteArray("\\pard\\intbl") + (ENumero(Cella) ? "\\qr " : "\\ql ") + InRtf(Cella) +
                     "\\cell\n";
        Testo += "\\row\n";
    }
    return Testo + "\\pard\\par}";
}

}  // namespace

std::unique_ptr<QMimeData> DatiTabella(const QString& Piano, const QList<QStringList>& Righe)
{
    auto Dati = std::make_unique<QMimeData>();
    Dati->setText(Piano);
    // A row without cells is none in any of the forms.
    QList<QStringList> Piene = Righe;
    Piene.removeIf([](const QStringList& Riga) { return Riga.isEmpty(); });
    if (Piene.isEmpty())
        return Dati;
    Dati->setHtml(Html(Piene));
    Dati->setData(u"text/rtf"_s, Rtf(Piene));
    return Dati;
}

void CopiaTabella(const QString& Piano, const QList<QStringList>& Righe)
{
    QGuiApplication::clipboard()->setMimeData(DatiTabella(Piano, Righe).release());
}
