#include "feenote/einvoice/lettura.h"

#include "platform/base/paginacodice.h"

#include <QRegularExpression>
#include <QStringDecoder>
#include <QXmlStreamReader>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

/// The name of the encoding that a file is in: its mark, else its first sign, else what it declares, else
/// UTF-8.
QByteArray NomeCodifica(const QByteArray& Byte)
{
    if (Byte.startsWith("\xFF\xFE") || Byte.startsWith(QByteArrayView("<\0", 2)))
        return "UTF-16LE"_ba;
    if (Byte.startsWith("\xFE\xFF") || Byte.startsWith(QByteArrayView("\0<", 2)))
        return "UTF-16BE"_ba;
    if (Byte.startsWith(MarcaUtf8))
        return "UTF-8"_ba;
    constexpr qsizetype Dichiarazione = 200;
    static const QRegularExpression Forma(
        u"^\\s*<\\?xml[^>]*encoding\\s*=\\s*[\"']([A-Za-z0-9._:+-]{1,40})[\"']"_s);
    const QString Testa = QString::fromLatin1(Byte.first(std::min(Byte.size(), Dichiarazione)));
    const QString Nome = Forma.match(Testa).captured(1);
    return Nome.isEmpty() ? "UTF-8"_ba : Nome.toLatin1();
}

/// Encodings that are taken: those in which a sign of XML is itself, so that nothing hides in another.
bool CodificaNota(const QByteArray& Nome)
{
    static const QRegularExpression Forma(
        u"^(utf-?8|utf-?16(le|be)?|us-ascii|ascii|latin-?1|iso[-_]?8859[-_]\\d+|windows-125\\d|cp-?125\\d)$"_s,
        QRegularExpression::CaseInsensitiveOption);
    return Forma.match(QString::fromLatin1(Nome)).hasMatch();
}

/// More attributes than a file has in one element. The parser compares each with all before it, and would be
/// at work for minutes. An equals sign and a quote are counted from one "<" to the next, which no value
/// holds.
bool TroppiAttributi(const QString& Testo)
{
    int Quanti = 0;
    bool Uguale = false;
    for (const QChar Segno : Testo) {
        if (Segno == u'<')
            Quanti = 0;
        if ((Segno == u'"' || Segno == u'\'') && Uguale && ++Quanti > limiti_fattura::AttributiPerElemento)
            return true;
        Uguale = Segno == u'=' || (Uguale && Segno.isSpace());
    }
    return false;
}

/// Builds the tree while the reader goes through the file; nothing calls itself.
class Costruttore
{
public:
    explicit Costruttore(const QString& Testo) : Lettore(Testo) {}

    LetturaXml Leggi()
    {
        while (!Lettore.atEnd() && Letta.Guasto.isEmpty())
            Prendi(Lettore.readNext());
        if (Letta.Guasto.isEmpty() && Lettore.hasError())
            Rifiuta(u"Il file non è XML ben formato."_s);
        if (!Letta.Guasto.isEmpty())
            Letta.Albero.Nodi.clear();
        return std::move(Letta);
    }

private:
    void Rifiuta(const QString& Frase)
    {
        Letta.Guasto = Frase;
        Letta.Linea = Lettore.lineNumber();
    }

    void Prendi(QXmlStreamReader::TokenType Genere)
    {
        switch (Genere) {
        case QXmlStreamReader::DTD:
        case QXmlStreamReader::EntityReference:
            Rifiuta(u"Il file dichiara un tipo di documento o entità proprie, che una fattura non ha."_s);
            break;
        case QXmlStreamReader::StartElement:
            Apri();
            break;
        case QXmlStreamReader::EndElement:
            Ultimi.pop_back();
            Aperti.pop_back();
            break;
        case QXmlStreamReader::Characters:
            if (!Aperti.empty())
                Nodi()[size_t(Aperti.back())].Testo += Lettore.text();
            break;
        default:
            break;  // the declaration, comments, instructions
        }
    }

    void Apri()
    {
        if (Aperti.size() >= size_t(limiti_fattura::Profondita) ||
            Nodi().size() >= size_t(limiti_fattura::Elementi)) {
            Rifiuta(u"Il file ha troppi elementi, o troppo annidati, per una fattura."_s);
            return;
        }
        NodoXml Nuovo;
        Nuovo.Nome = Lettore.name().toString();
        Nuovo.Spazio = Lettore.namespaceUri().toString();
        for (const QXmlStreamAttribute& Attributo : Lettore.attributes()) {
            const QString Davanti = Attributo.namespaceUri().toString();
            Nuovo.Attributi.append({Davanti.isEmpty() ? Attributo.name().toString()
                                                      : Davanti + u' ' + Attributo.name().toString(),
                                    Attributo.value().toString()});
        }
        Nuovo.Linea = Lettore.lineNumber();
        const int Numero = int(Nodi().size());
        if (!Aperti.empty()) {
            Nuovo.Padre = Aperti.back();
            if (Ultimi.back() == AlberoXml::Nessuno)
                Nodi()[size_t(Nuovo.Padre)].Primo = Numero;
            else
                Nodi()[size_t(Ultimi.back())].Seguente = Numero;
            Ultimi.back() = Numero;
        }
        Nodi().push_back(std::move(Nuovo));
        Aperti.push_back(Numero);
        Ultimi.push_back(AlberoXml::Nessuno);
    }

    std::vector<NodoXml>& Nodi() { return Letta.Albero.Nodi; }

    QXmlStreamReader Lettore;
    LetturaXml Letta;
    std::vector<int> Aperti;
    std::vector<int> Ultimi;  ///< the last element in each of those
};

}  // namespace

QList<int> AlberoXml::Figli(int Nodo, QStringView Nome) const
{
    QList<int> Trovati;
    if (Nodo == Nessuno)
        return Trovati;
    for (int Figlio = (*this)[Nodo].Primo; Figlio != Nessuno; Figlio = (*this)[Figlio].Seguente)
        if (Nome.isEmpty() || (*this)[Figlio].Nome == Nome)
            Trovati += Figlio;
    return Trovati;
}

int AlberoXml::Trova(int Nodo, QStringView Percorso) const
{
    int Trovato = Nodo;
    for (const QStringView Nome : Percorso.split(u'/'))
        Trovato = Figli(Trovato, Nome).value(0, Nessuno);
    return Trovato;
}

QString AlberoXml::Valore(int Nodo, QStringView Percorso) const
{
    const int Trovato = Trova(Nodo, Percorso);
    return Trovato == Nessuno ? QString() : (*this)[Trovato].Testo.trimmed();
}

QString AlberoXml::PercorsoDi(int Nodo) const
{
    QStringList Nomi;
    for (int Quale = Nodo; Quale != Nessuno && (*this)[Quale].Padre != Nessuno;
         Quale = (*this)[Quale].Padre) {
        const QList<int> Uguali = Figli((*this)[Quale].Padre, (*this)[Quale].Nome);
        const QString Numero =
            Uguali.size() > 1 ? u'[' + QString::number(Uguali.indexOf(Quale) + 1) + u']' : QString();
        Nomi.prepend((*this)[Quale].Nome + Numero);
    }
    return Nomi.join(u'/');
}

LetturaXml LeggiXml(const QByteArray& Byte)
{
    const QByteArray Codifica = NomeCodifica(Byte);
    QStringDecoder Decodifica =
        CodificaNota(Codifica) ? QStringDecoder(Codifica.constData()) : QStringDecoder();
    if (!Decodifica.isValid())
        return {
            {}, u"La codifica dichiarata dal file non si legge qui: %1"_s.arg(QLatin1String(Codifica)), 1};
    const QString Testo = Decodifica(Byte);
    if (Decodifica.hasError())
        return {{}, u"Il testo del file non è nella sua codifica: %1"_s.arg(QLatin1String(Codifica)), 1};
    if (TroppiAttributi(Testo))
        return {{}, u"Il file ha un elemento con troppi attributi per una fattura."_s, 0};
    return Costruttore(Testo).Leggi();
}
