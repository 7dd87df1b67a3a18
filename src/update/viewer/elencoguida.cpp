#include "update/viewer/elencoguida.h"

#include "platform/base/testopiano.h"
#include "platform/system/file.h"
#include "platform/system/percorsi.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype PrimaDelBrano = 40;
constexpr qsizetype LungoBrano = 150;

bool Contiene(const QString& Piano, const QStringList& Parole)
{
    return std::ranges::all_of(Parole, [&](const QString& Parola) { return Piano.contains(Parola); });
}

/// Some words of a text around the first of those looked for, cut between words.
QString Intorno(const QString& Testo, const QStringList& Parole)
{
    const QString Piano = TestoPiano(Testo);
    qsizetype Da = 0;
    // Where the comparison has made several letters of one, places differ: the beginning serves then.
    if (Piano.size() == Testo.size())
        Da = std::max<qsizetype>(0, Piano.indexOf(Parole.first()) - PrimaDelBrano);
    if (Da > 0)
        Da = Testo.indexOf(u' ', Da) + 1;
    if (Testo.size() <= Da + LungoBrano)
        return (Da > 0 ? u"… "_s : QString()) + Testo.mid(Da);
    const qsizetype A = std::max(Da + 1, Testo.lastIndexOf(u' ', Da + LungoBrano));
    return (Da > 0 ? u"… "_s : QString()) + Testo.mid(Da, A - Da) + u" …"_s;
}

}  // namespace

ElencoGuida::ElencoGuida(const QString& Cartella)
{
    const QString File = TrovaFile(Barra(Cartella) + u"elenco.txt"_s);
    if (!EsisteFile(File))
        return;
    for (const QString& Riga : QString::fromUtf8(LeggiFile(File)).split(u'\n', Qt::SkipEmptyParts))
        Aggiungi(Riga.split(u'\t'));
}

void ElencoGuida::Aggiungi(const QStringList& Parti)
{
    const QString Genere = Parti.value(0);
    if (Genere == u"C") {
        Capitolo = Parti.value(1);
    } else if (Genere == u"P" && Parti.size() == 3) {
        Tutte.push_back({Capitolo, Parti[1], Parti[2]});
    } else if (Genere == u"S" && Parti.size() == 4 && !Tutte.empty()) {
        const QString Suo = Parti[1].contains(u'#') ? Parti[2] : QString();
        Sezioni.push_back({Tutte.size() - 1, Parti[1], Suo, Parti[3],
                           TestoPiano(Tutte.back().Titolo + u' ' + Suo + u' ' + Parti[3])});
    }
}

QList<TrovatoGuida> ElencoGuida::Cerca(const QString& Testo) const
{
    const QStringList Parole = TestoPiano(Testo).split(u' ', Qt::SkipEmptyParts);
    if (Parole.isEmpty())
        return {};
    std::vector<std::pair<int, const Sezione*>> Scelte;
    for (const Sezione& Sua : Sezioni) {
        if (!Contiene(Sua.Piano, Parole))
            continue;
        const int Rango = Contiene(TestoPiano(Tutte[Sua.Pagina].Titolo), Parole) ? 0
                          : Contiene(TestoPiano(Sua.Titolo), Parole)             ? 1
                                                                                 : 2;
        Scelte.emplace_back(Rango, &Sua);
    }
    std::ranges::stable_sort(Scelte, {}, &std::pair<int, const Sezione*>::first);
    QList<TrovatoGuida> Trovati;
    for (const auto& [Rango, Sua] : Scelte)
        Trovati.append({Sua->Meta, Tutte[Sua->Pagina].Titolo, Sua->Titolo, Intorno(Sua->Testo, Parole)});
    return Trovati;
}
