#include "platform/system/deposito.h"

#include "platform/base/paginacodice.h"

#include <QByteArrayView>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr int Esadecimale = 16;

bool BiancoNelDeposito(char Byte)
{
    return Byte == ' ' || Byte == '\t';
}

QByteArrayView SenzaBianchi(QByteArrayView Testo)
{
    while (!Testo.isEmpty() && BiancoNelDeposito(Testo.front()))
        Testo = Testo.sliced(1);
    while (!Testo.isEmpty() && BiancoNelDeposito(Testo.back()))
        Testo.chop(1);
    return Testo;
}

/// What a name spells: "%41" is "A", "%U20AC" the euro sign, a backslash parts a path.
QString NomeLetto(QByteArrayView Byte)
{
    const QString Scritto = QString::fromUtf8(Byte);
    QString Nome;
    for (qsizetype i = 0; i < Scritto.size(); ++i) {
        const bool Lungo = Scritto[i] == u'%' && i + 1 < Scritto.size() && Scritto[i + 1] == u'U';
        const qsizetype Cifre = Lungo ? 4 : 2;
        const qsizetype Inizio = i + (Lungo ? 2 : 1);
        bool Numero = false;
        const ushort Codice = Scritto[i] == u'%' && Inizio + Cifre <= Scritto.size()
                                  ? QStringView(Scritto).sliced(Inizio, Cifre).toUShort(&Numero, Esadecimale)
                                  : ushort(0);
        if (Numero) {
            Nome += QChar(Codice);
            i = Inizio + Cifre - 1;
        } else {
            Nome += Scritto[i] == u'\\' ? QChar(u'/') : Scritto[i];
        }
    }
    return Nome;
}

QByteArray NomeCodificato(const QString& Nome)
{
    QByteArray Scritto;
    for (const QChar Segno : Nome) {
        const ushort Codice = Segno.unicode();
        const bool Piano = (Codice < 0x80 && (Segno.isLetterOrNumber() || u"_-."_s.contains(Segno)));
        if (Piano)
            Scritto += char(Codice);
        else if (Segno == u'/')
            Scritto += '\\';
        else
            Scritto +=
                (Codice > 0xFF ? "%U" : "%") +
                QByteArray::number(Codice, Esadecimale).rightJustified(Codice > 0xFF ? 4 : 2, '0').toUpper();
    }
    return Scritto;
}

// ---- lines ----------------------------------------------------------------------------------------

struct Riga
{
    QByteArrayView Intera;  ///< with its end
    bool Titolo = false;
    QByteArrayView Nome = {};  ///< of a section, or of a key
    QByteArrayView Testo = {};
};

/// The line that begins the rest of a store. A heading that is left open ends with its line.
Riga PrimaRiga(QByteArrayView Resto)
{
    const auto* Fine =
        std::find_if(Resto.begin(), Resto.end(), [](char C) { return C == '\n' || C == '\r'; });
    const qsizetype Lunga = Fine - Resto.begin();
    const qsizetype ConFine = Lunga + (Resto.sliced(Lunga).startsWith("\r\n") ? 2
                                       : Fine == Resto.end()                  ? 0
                                                                              : 1);
    Riga Letta{Resto.first(ConFine)};
    const QByteArrayView Testo = SenzaBianchi(Resto.first(Lunga));
    if (Testo.startsWith(';'))
        return Letta;
    if (Testo.startsWith('[')) {
        const qsizetype Chiusa = Testo.indexOf(']');
        Letta.Titolo = true;
        Letta.Nome = SenzaBianchi(Chiusa < 0 ? Testo.sliced(1) : Testo.sliced(1, Chiusa - 1));
        return Letta;
    }
    const qsizetype Uguale = Testo.indexOf('=');
    if (Uguale > 0) {
        Letta.Nome = SenzaBianchi(Testo.first(Uguale));
        Letta.Testo = SenzaBianchi(Testo.sliced(Uguale + 1));
    }
    return Letta;
}

bool SiLeggeCome(QByteArrayView Scritto, const QString& Nome)
{
    return NomeLetto(Scritto).compare(Nome, Qt::CaseInsensitive) == 0;
}

template <class F>
void ScorriRighe(const QByteArray& Deposito, F&& Prendi)
{
    // Some editors put the mark of UTF-8 before the first line.
    QByteArrayView Resto = Deposito;
    if (Resto.startsWith(MarcaUtf8)) {
        Prendi(Riga{Resto.first(MarcaUtf8.size())});
        Resto = Resto.sliced(MarcaUtf8.size());
    }
    while (!Resto.isEmpty()) {
        const Riga Letta = PrimaRiga(Resto);
        Prendi(Letta);
        Resto = Resto.sliced(Letta.Intera.size());
    }
}

// ---- texts ----------------------------------------------------------------------------------------

QChar SegnoDi(QChar Lettera)
{
    switch (Lettera.unicode()) {
    case u'a':
        return QChar(7);
    case u'b':
        return QChar(8);
    case u'f':
        return QChar(12);
    case u'n':
        return u'\n';
    case u'r':
        return u'\r';
    case u't':
        return u'\t';
    case u'v':
        return QChar(11);
    default:
        return Lettera;
    }
}

/// Reads a text sign by sign: quotes, escapes, lists.
class Lettura
{
public:
    explicit Lettura(const QString& Da) : Scritto(Da) {}

    QString Tutto()
    {
        while (Posto < Scritto.size()) {
            const QChar Segno = Scritto[Posto++];
            if (Segno == u'\\') {
                Scioglie();
                InizioVoce = Letto.size();  // a blank that is spelled belongs to the text
            } else if (Segno == u'"') {
                Virgolette = !Virgolette;
                Citata = true;
                if (!Virgolette)
                    SaltaBianchi();
            } else if (Segno == u';' && !Virgolette) {
                break;
            } else if (Segno == u',' && !Virgolette) {
                ChiudiVoce();
                Letto += u',';
                InizioVoce = Letto.size();
                Citata = false;
                SaltaBianchi();
            } else {
                Letto += Segno;
            }
        }
        ChiudiVoce();
        return Letto;
    }

private:
    void SaltaBianchi()
    {
        while (Posto < Scritto.size() && (Scritto[Posto] == u' ' || Scritto[Posto] == u'\t'))
            ++Posto;
    }
    /// Blanks at the end of a text without quotes are none of it.
    void ChiudiVoce()
    {
        while (!Citata && Letto.size() > InizioVoce && (Letto.back() == u' ' || Letto.back() == u'\t'))
            Letto.chop(1);
    }
    /// Behind a backslash.
    void Scioglie()
    {
        if (Posto == Scritto.size())
            return;
        const QChar Segno = Scritto[Posto++];
        constexpr int Ottale = 8;
        if (Segno == u'x') {
            Numero(Esadecimale);
        } else if (Segno >= u'0' && Segno <= u'7') {
            --Posto;
            Numero(Ottale);
        } else {
            Letto += SegnoDi(Segno);
        }
    }
    void Numero(int Base)
    {
        uint Codice = 0;
        for (; Posto < Scritto.size(); ++Posto) {
            bool Cifra = false;
            const uint Valore = QStringView(Scritto).sliced(Posto, 1).toUInt(&Cifra, Base);
            if (!Cifra)
                break;
            Codice = Codice * uint(Base) + Valore;
        }
        Letto += QChar(ushort(Codice));
    }

    const QString& Scritto;
    QString Letto;
    qsizetype Posto = 0;
    qsizetype InizioVoce = 0;
    bool Virgolette = false;
    bool Citata = false;
};

std::optional<QString> TestoLetto(QByteArrayView Byte)
{
    const QString Scritto = QString::fromUtf8(Byte);
    QString Letto = Lettura(Scritto).Tutto();
    if (!Letto.startsWith(u'@'))
        return Letto;
    if (Letto.startsWith(u"@@"))
        return Letto.sliced(1);
    // Other things than texts, as a library writes them that keeps its settings in such a file.
    for (const QStringView Genere : {u"@String(", u"@ByteArray("})
        if (Letto.startsWith(Genere) && Letto.endsWith(u')'))
            return Letto.sliced(Genere.size()).chopped(1);
    return Letto.endsWith(u')') ? std::nullopt : std::optional(Letto);
}

QByteArray TestoScritto(const QString& Testo)
{
    QString Scritto = Testo.startsWith(u'@') ? u"@"_s : QString();
    bool TraVirgolette = Testo.startsWith(u' ') || Testo.endsWith(u' ');
    bool Numero = false;  // what stands before is a number, and a digit behind it would be taken for its own
    for (const QChar Segno : Testo) {
        const ushort Codice = Segno.unicode();
        const bool Cifra = (Codice >= '0' && Codice <= '9') || (Codice >= 'a' && Codice <= 'f') ||
                           (Codice >= 'A' && Codice <= 'F');
        const bool DaNumero =
            (Codice < 0x20 && !u"\n\r\t"_s.contains(Segno)) || Codice == 0x7F || (Numero && Cifra);
        Numero = DaNumero;
        if (DaNumero) {
            Scritto += u"\\x"_s + QString::number(Codice, Esadecimale);
        } else if (Segno == u'\n') {
            Scritto += u"\\n"_s;
        } else if (Segno == u'\r') {
            Scritto += u"\\r"_s;
        } else if (Segno == u'\t') {
            Scritto += u"\\t"_s;
        } else if (Segno == u'"' || Segno == u'\\') {
            Scritto += u'\\';
            Scritto += Segno;
        } else {
            TraVirgolette = TraVirgolette || Segno == u',' || Segno == u';' || Segno == u'=';
            Scritto += Segno;
        }
    }
    return (TraVirgolette ? u'"' + Scritto + u'"' : Scritto).toUtf8();
}

/// The end of line that the store uses.
QByteArray FineRigaDelDeposito(const QByteArray& Deposito)
{
    return Deposito.contains("\r\n") ? "\r\n"_ba : "\n"_ba;
}

constexpr QByteArrayView Inizio = "; L'ultima riga, \"; fine\", dice che queste impostazioni sono intere";
constexpr QByteArrayView Fine = "; fine";

bool Piena(const Riga& Letta)
{
    return Letta.Intera != MarcaUtf8 && !SenzaBianchi(Letta.Intera).trimmed().isEmpty();
}

bool Dice(const Riga& Letta, QByteArrayView Segno)
{
    return SenzaBianchi(Letta.Intera).trimmed() == Segno;
}

}  // namespace

DannoDeposito DannoDelDeposito(const QByteArray& Deposito)
{
    bool Pieno = false;
    bool Estranee = false;
    bool Sezioni = false;
    bool Cominciato = false;
    bool Finito = false;
    ScorriRighe(Deposito, [&](const Riga& Letta) {
        Pieno = Pieno || Piena(Letta);
        Estranee = Estranee || (Piena(Letta) && !Dice(Letta, Inizio) && !Dice(Letta, Fine));
        Sezioni = Sezioni || Letta.Titolo;
        Cominciato = Cominciato || Dice(Letta, Inizio);
        Finito = Finito || Dice(Letta, Fine);
    });
    if (!Pieno)
        return DannoDeposito::Vuoto;
    if (Cominciato && !Finito)
        return DannoDeposito::Troncato;
    const bool Solo = Cominciato && !Estranee;  // a whole store that holds nothing yet
    return Sezioni || Solo ? DannoDeposito::Nessuno : DannoDeposito::Estraneo;
}

QByteArray SenzaRigaTronca(const QByteArray& Deposito)
{
    if (Deposito.endsWith('\n') || Deposito.endsWith('\r') ||
        DannoDelDeposito(Deposito) != DannoDeposito::Troncato)
        return Deposito;
    return Deposito.first(std::max(Deposito.lastIndexOf('\n'), Deposito.lastIndexOf('\r')) + 1);
}

QByteArray DepositoIntero(const QByteArray& Deposito)
{
    const QByteArray FineRiga = FineRigaDelDeposito(Deposito);
    QByteArray Righe;
    QByteArray Marca;
    ScorriRighe(Deposito, [&](const Riga& Letta) {
        if (Letta.Intera == MarcaUtf8)
            Marca += Letta.Intera;
        else if (!Dice(Letta, Inizio) && !Dice(Letta, Fine))
            Righe += Letta.Intera;
    });
    if (!Righe.isEmpty() && !Righe.endsWith('\n') && !Righe.endsWith('\r'))
        Righe += FineRiga;
    return Marca + Inizio.toByteArray() + FineRiga + Righe + Fine.toByteArray() + FineRiga;
}

std::optional<QString> ValoreDelDeposito(const QByteArray& Deposito, const QString& Sezione,
                                         const QString& Chiave)
{
    bool Dentro = false;
    bool Presente = false;
    QByteArrayView Ultimo;
    const QByteArray Righe = SenzaRigaTronca(Deposito);
    ScorriRighe(Righe, [&](const Riga& Letta) {
        if (Letta.Titolo) {
            Dentro = SiLeggeCome(Letta.Nome, Sezione);
        } else if (Dentro && !Letta.Nome.isEmpty() && SiLeggeCome(Letta.Nome, Chiave)) {
            Presente = true;
            Ultimo = Letta.Testo;
        }
    });
    return Presente ? TestoLetto(Ultimo) : std::nullopt;
}

QByteArray ConValoriNelDeposito(const QByteArray& Deposito, const QString& Sezione,
                                const QList<std::pair<QString, QString>>& Valori)
{
    const QByteArray FineRiga = FineRigaDelDeposito(Deposito);
    QList<std::pair<QString, QString>> Mancanti = Valori;
    QByteArray Nuovo;
    bool Dentro = false;
    qsizetype FineSezione = -1;  // behind the last written line of the first section of the name
    bool Prima = true;
    const auto RigaDi = [&](const std::pair<QString, QString>& Voce) {
        return NomeCodificato(Voce.first.toLower()) + '=' + TestoScritto(Voce.second) + FineRiga;
    };
    ScorriRighe(Deposito, [&](const Riga& Letta) {
        const auto Di = [&](const std::pair<QString, QString>& Voce) {
            return SiLeggeCome(Letta.Nome, Voce.first);
        };
        if (Letta.Titolo) {
            Prima = Prima && FineSezione < 0;
            Dentro = SiLeggeCome(Letta.Nome, Sezione);
        }
        if (!Letta.Titolo && Dentro && std::ranges::any_of(Valori, Di)) {
            const auto Voce = std::ranges::find_if(Mancanti, Di);
            if (Voce == Mancanti.end())
                return;  // of several lines of a key the new one is the only one
            Nuovo += RigaDi(*Voce);
            Mancanti.erase(Voce);
        } else {
            Nuovo += Letta.Intera;
        }
        if (Dentro && Prima && !SenzaBianchi(Letta.Intera).trimmed().isEmpty())
            FineSezione = Nuovo.size();
    });
    if (Mancanti.isEmpty())
        return Nuovo;
    QByteArray Righe;
    for (const auto& Voce : std::as_const(Mancanti))
        Righe += RigaDi(Voce);
    if (FineSezione < 0) {
        Righe.prepend('[' + NomeCodificato(Sezione) + ']' + FineRiga);
        FineSezione = Nuovo.size();
    }
    const bool RigaAperta =
        FineSezione > 0 && Nuovo[FineSezione - 1] != '\n' && Nuovo[FineSezione - 1] != '\r';
    return Nuovo.insert(FineSezione, RigaAperta ? FineRiga + Righe : Righe);
}
