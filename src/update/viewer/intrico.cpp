#include "update/viewer/intrico.h"

#include <QByteArrayList>

#include <algorithm>
#include <array>

namespace {

constexpr qsizetype MassimiAnnidati = 32;
constexpr qsizetype MassimeTabelle = 6;
constexpr int MassimaCampata = 200;
constexpr qint64 MassimeCelle = 20000;
constexpr qint64 MassimiPosti = 2'000'000;

/// Elements without content.
constexpr std::array<QByteArrayView, 11> Vuoti{"br",   "hr",   "img",   "meta", "link", "input",
                                               "base", "area", "param", "col",  "wbr"};
/// Elements that the next one of their kind closes.
constexpr std::array<QByteArrayView, 7> Successivi{"p", "li", "td", "th", "tr", "dt", "dd"};
/// Elements whose content is no page.
constexpr std::array<QByteArrayView, 3> Muti{"style", "script", "title"};

template <size_t N>
bool Fra(const std::array<QByteArrayView, N>& Nomi, const QByteArray& Nome)
{
    return std::ranges::find(Nomi, QByteArrayView(Nome)) != Nomi.end();
}

/// Names may be spelled with entities.
bool DiNome(char C)
{
    return C == '&' || C == '#' || C == ';' || (C >= 'a' && C <= 'z') || (C >= 'A' && C <= 'Z') ||
           (C >= '0' && C <= '9') || C == ':' || C == '-';
}

/// Walks the tags of a page.
class Lettore
{
public:
    explicit Lettore(const QByteArray& Html) : Pagina(Html) {}

    bool Troppo()
    {
        while (!Colma && (Posto = Pagina.indexOf('<', Posto)) >= 0)
            Tag();
        return Colma;
    }

private:
    void Tag()
    {
        if (Pagina.mid(Posto, 4) == "<!--") {
            Salta("-->");
            return;
        }
        ++Posto;
        SaltaBianchi();
        const bool Chiude = Posto < Pagina.size() && Pagina[Posto] == '/';
        Posto += Chiude;
        const QByteArray Nome = Parola();
        bool Finito = false;
        Attributi(Finito);
        if (Nome.isEmpty() || Fra(Vuoti, Nome))
            return;
        if (!Chiude)
            ContaCelle(Nome);
        if (Chiude)
            Chiudi(Nome);
        else if (Fra(Muti, Nome))
            Salta("</" + Nome);
        else if (!Finito)
            Apri(Nome);
    }

    QByteArray Parola()
    {
        const qsizetype Da = Posto;
        while (Posto < Pagina.size() && DiNome(Pagina[Posto]))
            ++Posto;
        return Pagina.sliced(Da, Posto - Da).toLower();
    }

    /// Up to the end of the tag. @param Finito it ends with "/>"
    void Attributi(bool& Finito)
    {
        while (Posto < Pagina.size() && Pagina[Posto] != '>') {
            if (Pagina[Posto] == '/') {
                Finito = true;
                ++Posto;
                continue;
            }
            const QByteArray Nome = Parola();
            if (Nome.isEmpty()) {
                SaltaTesto();
                continue;
            }
            Finito = false;
            Colma = Colma || Nome.contains('&');  // no page of ours hides an attribute
            SaltaBianchi();
            if (Posto >= Pagina.size() || Pagina[Posto] != '=')
                continue;
            ++Posto;
            SaltaBianchi();
            const QByteArray Valore = Testo();
            if (Nome == "rowspan" || Nome == "colspan")
                Campata(Valore);
        }
        Posto = std::min(Posto + 1, Pagina.size());
    }

    void SaltaBianchi()
    {
        while (Posto < Pagina.size() && std::isspace(static_cast<unsigned char>(Pagina[Posto])))
            ++Posto;
    }
    void SaltaTesto()
    {
        const char C = Pagina[Posto];
        if (C == '"' || C == '\'')
            (void)Testo();
        else
            ++Posto;
    }

    QByteArray Testo()
    {
        if (Posto >= Pagina.size())
            return {};
        const char C = Pagina[Posto];
        if (C != '"' && C != '\'') {
            const qsizetype Da = Posto;
            while (Posto < Pagina.size() && Pagina[Posto] != '>' &&
                   !std::isspace(static_cast<unsigned char>(Pagina[Posto])))
                ++Posto;
            return Pagina.sliced(Da, Posto - Da);
        }
        const qsizetype Da = ++Posto;
        const qsizetype Fine = Pagina.indexOf(C, Da);
        Posto = Fine < 0 ? Pagina.size() : Fine + 1;
        return Pagina.sliced(Da, (Fine < 0 ? Pagina.size() : Fine) - Da);
    }

    /// The layout keeps a place for each column of the widest row in each row, whether a cell stands there or
    /// not.
    void ContaCelle(const QByteArray& Nome)
    {
        if (Nome == "tr") {
            ++Righe;
            InRiga = 0;
        } else if (Nome == "td" || Nome == "th") {
            Colonne = std::max(Colonne, ++InRiga);
        }
        Colma = Colma || (Righe + MassimaCampata) * Colonne > MassimiPosti;
    }

    /// A number in disguise is no number of ours.
    void Campata(const QByteArray& Valore)
    {
        bool Numero = false;
        const int Quante = Valore.trimmed().toInt(&Numero);
        Celle += Quante;
        InRiga += Quante;
        Colma = Colma || (Numero && Quante > MassimaCampata) || Celle > MassimeCelle ||
                Valore.contains('&') || (!Numero && Valore.size() > 3);
    }

    void Apri(const QByteArray& Nome)
    {
        if (!Aperti.isEmpty() && Aperti.last() == Nome && Fra(Successivi, Nome))
            return;
        Aperti.append(Nome);
        Colma = Colma || Aperti.size() > MassimiAnnidati ||
                (Nome == "table" && Aperti.count(Nome) > MassimeTabelle);
    }
    void Chiudi(const QByteArray& Nome)
    {
        const qsizetype Aperto = Aperti.lastIndexOf(Nome);
        if (Aperto >= 0)
            Aperti.resize(Aperto);
    }
    void Salta(const QByteArray& Fine)
    {
        const QByteArray Minuscola = Fine.toLower();
        while (Posto < Pagina.size() && Pagina.mid(Posto, Fine.size()).toLower() != Minuscola)
            ++Posto;
        // A comment ends behind its end, an element with a tag that is read like the others.
        if (Minuscola == "-->")
            Posto = std::min(Posto + Fine.size(), Pagina.size());
    }

    const QByteArray& Pagina;
    QByteArrayList Aperti;
    qsizetype Posto = 0;
    qint64 Celle = 0;    ///< that others span
    qint64 Righe = 0;    ///< of all tables
    qint64 Colonne = 0;  ///< of the widest row
    qint64 InRiga = 0;
    bool Colma = false;
};

}  // namespace

bool Intricata(const QByteArray& Html)
{
    return Lettore(Html).Troppo();
}
