// Rich text: any bytes give paragraphs that keep the reader's promises, and both exports of them are sound.
#include "platform/base/paginacodice.h"
#include "platform/document/lettorertf.h"
#include "print/writers/scrittorehtml.h"
#include "print/writers/scrittorertf.h"

#include <QXmlStreamReader>

#include <algorithm>

namespace {

void Pretendi(bool Vero)
{
    if (!Vero)
        __builtin_trap();
}

bool Stampabile(const QString& Testo)
{
    return std::all_of(Testo.begin(), Testo.end(),
                       [](QChar C) {
                           return C == u'\t' || C == u'\n' ||
                                  (C.unicode() >= 0x20 && (C.unicode() < 0x7F || C.unicode() >= 0xA0));
                       }) &&
           Testo.isValidUtf16();
}

void Controlla(const std::vector<Paragrafo>& Letti)
{
    qsizetype Caratteri = 0;
    Pretendi(Letti.size() <= MassimoParagrafiRtf + 1);
    for (const Paragrafo& Uno : Letti) {
        Pretendi(Uno.Spazi.SinistroCm >= 0.0 && Uno.Spazi.SinistroCm + Uno.Spazi.PrimaRigaCm >= 0.0);
        Pretendi(Uno.Spazi.SopraPunti >= 0.0 && Uno.Spazi.SottoPunti >= 0.0 && Uno.Spazi.DestroCm >= 0.0);
        for (const Tratto& Pezzo : Uno.Tratti) {
            Pretendi(!Pezzo.Testo.isEmpty() && Stampabile(Pezzo.Testo));
            Pretendi(Pezzo.Font.Punti >= 1.0 && Pezzo.Font.Punti <= 200.0);
            Caratteri += Pezzo.Testo.size();
        }
    }
    Pretendi(Caratteri <= 3 * MassimoCaratteriRtf);  // capitals may be longer than what they are made of
}

/// Line separators become line breaks, and signs of symbol fonts what they show: all else is read as written.
bool TornaUguale(const QString& Testo)
{
    return std::none_of(Testo.begin(), Testo.end(), [](QChar C) {
        return C == QChar::LineSeparator || C == QChar::ParagraphSeparator || C.unicode() >> 8 == 0xF0;
    });
}

/// In a run of blanks the writer makes every other one hard, which a word processor shows alike.
QString ConSpaziUguali(QString Testo)
{
    return Testo.replace(QChar(QChar::Nbsp), QLatin1Char(' '));
}

void Riscrivi(const std::vector<Paragrafo>& Letti)
{
    Documento Doc;
    for (const Paragrafo& Uno : Letti)
        Doc.Blocchi.emplace_back(Uno);
    const std::vector<Paragrafo> Ancora = LeggiRtf(QString::fromLatin1(ScriviRtf(Doc)));
    Pretendi(Ancora.size() == Letti.size());
    for (std::size_t i = 0; i < Letti.size(); ++i)
        Pretendi(!TornaUguale(Letti[i].Testo()) ||
                 ConSpaziUguali(Ancora[i].Testo()) == ConSpaziUguali(Letti[i].Testo()));

    QXmlStreamReader Pagina(ScriviHtml(Doc));
    while (!Pagina.atEnd())
        Pagina.readNext();
    Pretendi(!Pagina.hasError());
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* Dati, size_t Quanti)
{
    const QByteArray Byte(reinterpret_cast<const char*>(Dati), static_cast<qsizetype>(Quanti));
    const QString Testo = DaCp1252(Byte);
    const std::vector<Paragrafo> Letti =
        LeggiRtf(Testo.startsWith(u"{\\rtf") ? Testo : QStringLiteral("{\\rtf1") + Testo);
    Controlla(Letti);
    Riscrivi(Letti);
    return 0;
}
