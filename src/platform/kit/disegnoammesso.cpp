#include "platform/kit/disegnoammesso.h"

#include <QHash>
#include <QRegularExpression>
#include <QStringList>
#include <QXmlStreamReader>

#include <vector>

using namespace Qt::StringLiterals;

namespace {

constexpr int MassimaProfondita = 64;
constexpr int MassimiRichiami = 64;
/// What is drawn in all, each part as often as it comes: an element, and 32 bytes of what it says, count one.
constexpr double MassimoPeso = 24'000;
constexpr double BytePerPeso = 32;
const QString Doppio = u"dà due volte lo stesso nome"_s;

/// An element as it counts: how much is drawn by it.
struct Elemento
{
    QString Richiamo;  ///< of a <use>, the name of what it repeats
    std::vector<std::size_t> Figli;
    double Proprio = 1.0;  ///< of the element alone
    double Peso = 0.0;     ///< 0 not reckoned yet, below 0 being reckoned
};

/// True for a text that names something outside the drawing, or has dashes.
QString DifettoValore(QStringView Nome, const QString& Valore)
{
    static const QRegularExpression Fuori(u"url\\(\\s*['\"]?\\s*[^#'\"\\s]|@import"_s,
                                          QRegularExpression::CaseInsensitiveOption);
    static const QRegularExpression Tratteggio(u"stroke-dasharray\\s*:\\s*(?!none|\\s)"_s,
                                               QRegularExpression::CaseInsensitiveOption);
    if (Fuori.match(Valore).hasMatch())
        return u"contiene rimandi ad altri file"_s;
    const bool Tratti = Nome.compare("stroke-dasharray"_L1, Qt::CaseInsensitive) == 0
                            ? Valore.trimmed().compare("none"_L1, Qt::CaseInsensitive) != 0
                            : Tratteggio.match(Valore).hasMatch();
    return Tratti ? u"contiene linee tratteggiate"_s : QString();
}

/// A style can write its words by codes too, and hide them between comments.
QString DifettoStile(const QString& Scritto)
{
    return Scritto.contains(u'\\') || Scritto.contains("/*"_L1) ? u"contiene segni che nascondono altro"_s
                                                                : DifettoValore({}, Scritto);
}

class Esame
{
public:
    explicit Esame(const QByteArray& Svg) : Lettore(Svg) {}

    QString Difetto()
    {
        Tutti.emplace_back();
        Aperti.push_back(0);
        while (!Lettore.atEnd() && Trovato.isEmpty())
            Passo();
        if (!Trovato.isEmpty())
            return Trovato;
        if (Lettore.hasError() || Tutti.size() < 2)
            return u"non è un disegno SVG intero"_s;
        return Peso(0) > MassimoPeso ? u"ripete le sue parti troppe volte"_s : QString();
    }

private:
    void Passo()
    {
        switch (Lettore.readNext()) {
        case QXmlStreamReader::DTD:
            if (Lettore.text().contains(u'['))
                Trovato = u"contiene dichiarazioni di entità"_s;
            break;
        case QXmlStreamReader::EntityReference:
            Trovato = u"contiene entità sconosciute"_s;
            break;
        case QXmlStreamReader::ProcessingInstruction:
            if (Lettore.processingInstructionTarget().compare("xml-stylesheet"_L1, Qt::CaseInsensitive) == 0)
                Trovato = u"contiene rimandi ad altri file"_s;
            break;
        case QXmlStreamReader::StartElement:
            Apri();
            break;
        case QXmlStreamReader::EndElement:
            Aperti.pop_back();
            if (Lettore.name().compare("style"_L1, Qt::CaseInsensitive) == 0)
                InStile = false;
            break;
        case QXmlStreamReader::Characters:
            Tutti[Aperti.back()].Proprio += double(Lettore.text().size()) / BytePerPeso;
            if (InStile)
                Trovato = DifettoStile(Lettore.text().toString());
            break;
        default:
            break;
        }
    }

    void Apri()
    {
        static const QStringList Vietati{
            u"image"_s,        u"script"_s,       u"foreignobject"_s, u"feimage"_s, u"iframe"_s,
            u"video"_s,        u"audio"_s,        u"set"_s,           u"animate"_s, u"animatetransform"_s,
            u"animatecolor"_s, u"animatemotion"_s};
        const QString Nome = Lettore.name().toString().toLower();
        if (Tutti.size() == 1 && Nome != u"svg")
            Trovato = u"non è un disegno SVG intero"_s;
        else if (Vietati.contains(Nome))
            Trovato = u"contiene immagini, animazioni o programmi (\"%1\")"_s.arg(Nome);
        else if (Aperti.size() > MassimaProfondita)
            Trovato = u"ha parti dentro parti senza fine"_s;
        if (InStile)
            Trovato = u"contiene segni che nascondono altro"_s;
        InStile = Nome == u"style";
        Elemento Nuovo;
        QString Id;
        for (const QXmlStreamAttribute& Voce : Lettore.attributes()) {
            if (!Trovato.isEmpty())
                return;
            const QString Valore = Voce.value().toString();
            if (Voce.name().compare("href"_L1, Qt::CaseInsensitive) == 0) {
                if (!Valore.startsWith(u'#'))
                    Trovato = u"contiene rimandi ad altri file"_s;
                else if (!Nuovo.Richiamo.isEmpty())
                    Trovato = Doppio;
                else if (Nome == u"use")
                    Nuovo.Richiamo = Valore.sliced(1);
            } else if (Voce.name() == "id"_L1) {
                Id = Valore;
            } else if (Voce.prefix().isEmpty()) {  // the others are notes of the program that drew it
                Nuovo.Proprio += double(Valore.size()) / BytePerPeso;
                Trovato =
                    Voce.name() == "style"_L1 ? DifettoStile(Valore) : DifettoValore(Voce.name(), Valore);
            }
        }
        if (!Nuovo.Richiamo.isEmpty() && ++Richiami > MassimiRichiami)
            Trovato = u"ripete le sue parti troppe volte"_s;
        // Of two of one name the drawing might take the other one.
        if (PerNome.contains(Id))
            Trovato = Doppio;
        if (!Id.isEmpty())
            PerNome.insert(Id, Tutti.size());
        Tutti[Aperti.back()].Figli.push_back(Tutti.size());
        Aperti.push_back(Tutti.size());
        Tutti.push_back(std::move(Nuovo));
    }

    /// Elements that are drawn by one; beyond all bounds for one that repeats itself.
    double Peso(std::size_t Quale)
    {
        if (Tutti[Quale].Peso < 0.0)
            return MassimoPeso + 1.0;
        if (Tutti[Quale].Peso > 0.0)
            return Tutti[Quale].Peso;
        Tutti[Quale].Peso = -1.0;
        double Somma = Tutti[Quale].Proprio;
        for (const std::size_t Figlio : Tutti[Quale].Figli)
            Somma += Peso(Figlio);
        if (const auto Voluto = PerNome.find(Tutti[Quale].Richiamo); Voluto != PerNome.end())
            Somma += Peso(*Voluto);
        return Tutti[Quale].Peso = Somma;
    }

    QXmlStreamReader Lettore;
    std::vector<Elemento> Tutti;
    std::vector<std::size_t> Aperti;  ///< from the outermost to the one in hand
    QHash<QString, std::size_t> PerNome;
    int Richiami = 0;
    bool InStile = false;  ///< in the text of a sheet of styles
    QString Trovato;
};

}  // namespace

QString DifettoDisegno(const QByteArray& Svg)
{
    return Esame(Svg).Difetto();
}
