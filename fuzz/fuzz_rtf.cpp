// Rich text: any bytes give paragraphs that keep the reader's promises, and both exports of them are sound.
#include "bersaglio.h"

#include "platform/base/paginacodice.h"
#include "platform/document/lettorertf.h"
#include "platform/document/setacciortf.h"
#include "print/writers/scrittorehtml.h"
#include "print/writers/scrittorertf.h"

#include <QXmlStreamReader>

#include <algorithm>

namespace {

bool Stampabile(const QString& Testo)
{
    return std::all_of(Testo.begin(), Testo.end(),
                       [](QChar C) {
                           return C == u'\t' || C == u'\n' ||
                                  (C.unicode() >= 0x20 && (C.unicode() < 0x7F || C.unicode() >= 0xA0));
                       }) &&
           Testo.isValidUtf16();
}

void ControllaParagrafo(const Paragrafo& Letto, qsizetype& Caratteri)
{
    Pretendi(Letto.Spazi.SinistroCm >= 0.0 && Letto.Spazi.SinistroCm + Letto.Spazi.PrimaRigaCm >= 0.0);
    Pretendi(Letto.Spazi.SopraPunti >= 0.0 && Letto.Spazi.SottoPunti >= 0.0 && Letto.Spazi.DestroCm >= 0.0);
    Pretendi(Letto.Righe.Multipla >= 1.0 && Letto.Righe.AlmenoPunti >= 0.0 && Letto.Righe.EsattaPunti >= 0.0);
    Pretendi(Letto.Fermi.size() <= MassimoFermiRtf);
    Pretendi(std::ranges::is_sorted(Letto.Fermi, {}, &Fermo::Cm));
    for (const Tratto& Pezzo : Letto.Tratti) {
        Pretendi(!Pezzo.Testo.isEmpty() && Stampabile(Pezzo.Testo));
        Pretendi(Pezzo.Font.Punti >= 1.0 && Pezzo.Font.Punti <= 200.0);
        Caratteri += Pezzo.Testo.size();
    }
}

/// Every row has all columns, spans end with the last one, and no column is without width.
void ControllaTabella(const Tabella& Letta, qsizetype& Caratteri)
{
    Pretendi(!Letta.LarghezzeCm.empty() && !Letta.Righe.empty());
    Pretendi(std::ranges::all_of(Letta.LarghezzeCm, [](double Cm) { return Cm > 0.0 && Cm < 200.0; }));
    for (const std::vector<Cella>& Riga : Letta.Righe) {
        Pretendi(Riga.size() == Letta.LarghezzeCm.size());
        std::size_t Coperte = 0;
        for (std::size_t i = 0; i < Riga.size(); i += static_cast<std::size_t>(Riga[i].Unione)) {
            Pretendi(Riga[i].Unione >= 1);
            Coperte += static_cast<std::size_t>(Riga[i].Unione);
            for (const Paragrafo& Dentro : Riga[i].Paragrafi)
                ControllaParagrafo(Dentro, Caratteri);
        }
        Pretendi(Coperte == Riga.size());
    }
}

void Controlla(const std::vector<BloccoDocumento>& Letti)
{
    qsizetype Caratteri = 0;
    Pretendi(Letti.size() <= 2 * MassimoParagrafiRtf);
    for (const BloccoDocumento& Blocco : Letti) {
        if (const auto* Letto = std::get_if<Paragrafo>(&Blocco))
            ControllaParagrafo(*Letto, Caratteri);
        else
            ControllaTabella(std::get<Tabella>(Blocco), Caratteri);
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

/// All text of the blocks: an end of row for each paragraph and each line of one, since a justified line with
/// breaks is written as several; blank rows do not count, as tables that touch are kept apart by one.
QString TestoDi(const std::vector<BloccoDocumento>& Blocchi)
{
    QStringList Righe;
    const auto Aggiungi = [&](const QString& Testo) {
        for (const QString& Riga : Testo.split(QLatin1Char('\n')))
            if (!Riga.isEmpty())
                Righe += Riga;
    };
    for (const BloccoDocumento& Blocco : Blocchi) {
        if (const auto* Letto = std::get_if<Paragrafo>(&Blocco))
            Aggiungi(Letto->Testo());
        else
            for (const std::vector<Cella>& Riga : std::get<Tabella>(Blocco).Righe)
                for (const Cella& Singola : Riga)
                    Aggiungi(Singola.Testo);
    }
    return ConSpaziUguali(Righe.join(QLatin1Char('\n')));
}

void Riscrivi(const std::vector<BloccoDocumento>& Letti)
{
    Documento Doc;
    Doc.Blocchi = Letti;
    const QString Testo = TestoDi(Letti);
    const std::vector<BloccoDocumento> Ancora = LeggiRtf(QString::fromLatin1(ScriviRtf(Doc)));
    // What fills the reader to its bounds may not fit into it again.
    const bool Intero = Letti.size() < MassimoParagrafiRtf / 100 && Testo.size() < MassimoCaratteriRtf / 100;
    Pretendi(!Intero || !TornaUguale(Testo) || TestoDi(Ancora) == Testo);

    QXmlStreamReader Pagina(ScriviHtml(Doc));
    while (!Pagina.atEnd())
        Pagina.readNext();
    Pretendi(!Pagina.hasError());
}

void Prova(const QByteArray& Byte)
{
    const QString Testo = DaCp1252(Byte);
    const std::vector<BloccoDocumento> Letti =
        LeggiRtf(ComeRtf(Testo) ? Testo : QStringLiteral("{\\rtf1") + Testo);
    Controlla(Letti);
    Riscrivi(Letti);

    // Cut anywhere, a file lets the same text pass.
    SetaccioRtf Intero;
    Intero.Passa(Byte);
    SetaccioRtf Diviso;
    Diviso.Passa(QByteArrayView(Byte).first(Byte.size() / 3));
    Diviso.Passa(QByteArrayView(Byte).sliced(Byte.size() / 3));
    Pretendi(Intero.Resto() == Diviso.Resto() && Intero.Resto().size() <= Byte.size());
}

}  // namespace

BERSAGLIO(fuzz_rtf, Prova);
