#include "print/writers/testortf.h"

#include "platform/base/paginacodice.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

void ScriviCodice(char16_t Codice, QByteArray& Uscita)
{
    Uscita += rtf::Parola("\\u", static_cast<qint16>(Codice)) + '?';
}

/// A character beyond ASCII: by its code in 1252 where it has one.
void ScriviOltre(QChar C, QByteArray& Uscita)
{
    const QByteArray Byte = Cp1252(QString(C));
    const auto Codice = static_cast<unsigned char>(Byte.front());
    if (Codice >= 0x80)
        Uscita += "\\'" + QByteArray::number(Codice, 16);
    else
        ScriviCodice(C.unicode(), Uscita);
}

/// What a reader without the font takes in its place.
QByteArray Famiglia(const QString& Nome)
{
    if (Nome.contains("Arial"_L1) || Nome.contains("Sans"_L1))
        return "\\fswiss";
    return Nome.contains("Courier"_L1) ? "\\fmodern" : "\\froman";
}

}  // namespace

QByteArray rtf::Parola(const char* Nome, int Valore)
{
    return QByteArray(Nome) + QByteArray::number(Valore);
}

void rtf::ScriviTesto(const QString& Testo, QByteArray& Uscita)
{
    QChar Precedente;
    for (const QChar C : SenzaControlli(Testo)) {
        // Between two plain blanks some readers put one of their own, and what blanks push would go too far.
        const QChar Scritto = C == u' ' && Precedente == u' ' ? QChar(QChar::Nbsp) : C;
        Precedente = Scritto;
        switch (Scritto.unicode()) {
        case u'\\':
        case u'{':
        case u'}':
            Uscita += '\\';
            Uscita += static_cast<char>(Scritto.unicode());
            break;
        case u'\n':
        case QChar::LineSeparator:
        case QChar::ParagraphSeparator:
            Uscita += "\\line ";
            break;
        case u'\t':
            Uscita += "\\tab ";
            break;
        case QChar::Nbsp:
            Uscita += "\\~";
            break;
        default:
            if (Scritto.unicode() < 0x80)
                Uscita += static_cast<char>(Scritto.unicode());
            else
                ScriviOltre(Scritto, Uscita);
        }
    }
}

int rtf::TabellaFont::operator()(const QString& Nome)
{
    const auto Noto = std::ranges::find(Nomi, Nome);
    if (Noto != Nomi.end())
        return static_cast<int>(Noto - Nomi.begin());
    Nomi.push_back(Nome);
    return static_cast<int>(Nomi.size()) - 1;
}

QByteArray rtf::TabellaFont::Scritta() const
{
    QByteArray Uscita = "{\\fonttbl";
    for (std::size_t i = 0; i < Nomi.size(); ++i) {
        Uscita += Parola("{\\f", static_cast<int>(i)) + Famiglia(Nomi[i]) + "\\fcharset0 ";
        ScriviTesto(QString(Nomi[i]).remove(u';'), Uscita);
        Uscita += ";}";
    }
    return Uscita + "}";
}
