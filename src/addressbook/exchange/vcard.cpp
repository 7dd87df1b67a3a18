// Reading of cards.
#include "addressbook/exchange/vcard.h"

#include "addressbook/exchange/testoestraneo.h"
#include "platform/base/paginacodice.h"
#include "platform/base/regionale.h"

#include <QDate>
#include <QHash>
#include <QSet>

#include <algorithm>
#include <array>
#include <optional>

using namespace Qt::StringLiterals;

namespace {

/// One property of a card.
struct Proprieta
{
    QString Nome;      ///< in capitals, without its group
    QStringList Tipi;  ///< in small letters
    QByteArray Grezzo;
    bool Stampabile = false;  ///< quoted-printable
    QByteArray Carattere;     ///< its own character set, empty: the file's
};

// What nobody imports into an archive of names, and what may be large.
constexpr std::array<QStringView, 12> Saltate{u"PHOTO",  u"LOGO",         u"SOUND",  u"KEY",
                                              u"AGENT",  u"PRODID",       u"UID",    u"REV",
                                              u"SOURCE", u"CLIENTPIDMAP", u"MAILER", u"SORT-STRING"};

// Those of them that somebody may miss.
constexpr std::array<QStringView, 5> Allegate{u"PHOTO", u"LOGO", u"SOUND", u"KEY", u"AGENT"};

/// A property that is a column of the archive under another name. Blanks and signs play no part in the name.
struct Sinonimo
{
    QStringView Nome;
    QStringView Campo;
};

constexpr std::array AltriNomi{
    Sinonimo{u"CODICEFISCALE", u"CodFis"},
    Sinonimo{u"CODFIS", u"CodFis"},
    Sinonimo{u"CODFISCALE", u"CodFis"},
    Sinonimo{u"CF", u"CodFis"},
    Sinonimo{u"FISCALCODE", u"CodFis"},
    Sinonimo{u"TAXCODE", u"CodFis"},
    Sinonimo{u"PARTITAIVA", u"PIva"},
    Sinonimo{u"PIVA", u"PIva"},
    Sinonimo{u"VAT", u"PIva"},
    Sinonimo{u"VATNUMBER", u"PIva"},
    Sinonimo{u"VATID", u"PIva"},
    Sinonimo{u"PEC", u"Pec"},
    Sinonimo{u"CODICEDESTINATARIO", u"CodDestinatario"},
    Sinonimo{u"CODDESTINATARIO", u"CodDestinatario"},
    Sinonimo{u"SDI", u"CodDestinatario"},
    Sinonimo{u"TIPOSOGGETTO", u"TipoSoggetto"},
    Sinonimo{u"COMUNENASCITA", u"ComuneNascita"},
    Sinonimo{u"BIRTHPLACE", u"ComuneNascita"},
    Sinonimo{u"RAPPRLEGALE", u"RapprLegale"},
    Sinonimo{u"RAPPRESENTANTELEGALE", u"RapprLegale"},
    Sinonimo{u"LEGALERAPPRESENTANTE", u"RapprLegale"},
};

// ---- lines --------------------------------------------------------------------------------------

/// The lines of a file, those that go on in the next one put together. A soft break of quoted-printable text
/// does that too; a blank behind it is one of the text.
class Linee
{
public:
    explicit Linee(const QByteArray& DiByte) : Byte(DiByte) {}

    /// Bytes behind this line.
    [[nodiscard]] qsizetype Letti() const { return Posto; }

    bool Prossima(QByteArray& Linea)
    {
        if (!Una(Linea))
            return false;
        std::optional<bool> Stampabile;  // once the name and its parameters are whole
        qsizetype Guardati = 0;
        for (QByteArray Seguito;;) {
            if (const qsizetype DuePunti = Stampabile ? -1 : Linea.indexOf(':', Guardati); DuePunti >= 0)
                Stampabile = Linea.first(DuePunti).toUpper().contains("QUOTED-PRINTABLE");
            Guardati = Linea.size();
            if (Stampabile.value_or(false) && Linea.endsWith('=')) {
                Linea.chop(1);
                if (!Una(Seguito))
                    return true;
                Linea += Seguito;
            } else if (Posto < Byte.size() && (Byte[Posto] == ' ' || Byte[Posto] == '\t')) {
                (void)Una(Seguito);
                Linea += QByteArrayView(Seguito).sliced(1);
            } else {
                return true;
            }
        }
    }

private:
    bool Una(QByteArray& Linea)
    {
        if (Posto >= Byte.size())
            return false;
        qsizetype Fine = Posto;
        while (Fine < Byte.size() && Byte[Fine] != '\n' && Byte[Fine] != '\r')
            ++Fine;
        Linea = Byte.sliced(Posto, Fine - Posto);
        if (Fine + 1 < Byte.size() && Byte[Fine] == '\r' && Byte[Fine + 1] == '\n')
            ++Fine;
        Posto = Fine + 1;
        return true;
    }

    const QByteArray& Byte;
    qsizetype Posto = 0;
};

void LeggiParametro(Proprieta& In, const QByteArray& Parametro)
{
    const qsizetype Uguale = Parametro.indexOf('=');
    const QByteArray Nome = Uguale < 0 ? QByteArray() : Parametro.first(Uguale).trimmed().toUpper();
    QByteArray Valore = (Uguale < 0 ? Parametro : Parametro.sliced(Uguale + 1)).trimmed();
    Valore.replace('"', "");
    if (Nome == "CHARSET")
        In.Carattere = Valore.toUpper();
    else if (Nome == "ENCODING" || Nome.isEmpty()) {
        if (Valore.toUpper() == "QUOTED-PRINTABLE")
            In.Stampabile = true;
        else if (Nome.isEmpty())
            In.Tipi.append(QString::fromLatin1(Valore.toLower()));
    } else if (Nome == "TYPE")
        for (const QByteArray& Tipo : Valore.toLower().split(','))
            In.Tipi.append(QString::fromLatin1(Tipo.trimmed()));
}

/// A line taken apart; none for one that is no property.
std::optional<Proprieta> LeggiProprieta(const QByteArray& Linea)
{
    Proprieta Letta;
    QByteArrayList Pezzi;
    bool Virgolette = false;
    qsizetype Da = 0;
    qsizetype i = 0;
    for (; i < Linea.size() && (Virgolette || Linea[i] != ':'); ++i) {
        if (Linea[i] == '"')
            Virgolette = !Virgolette;
        else if (Linea[i] == ';' && !Virgolette) {
            Pezzi.append(Linea.sliced(Da, i - Da));
            Da = i + 1;
        }
    }
    if (i >= Linea.size())
        return std::nullopt;
    Pezzi.append(Linea.sliced(Da, i - Da));
    const QByteArray Nome = Pezzi.takeFirst().trimmed().toUpper();
    Letta.Nome = QString::fromLatin1(Nome.sliced(Nome.lastIndexOf('.') + 1));
    Letta.Grezzo = Linea.sliced(i + 1);
    for (const QByteArray& Parametro : std::as_const(Pezzi))
        LeggiParametro(Letta, Parametro);
    return Letta.Nome.isEmpty() ? std::nullopt : std::optional(Letta);
}

// ---- values -------------------------------------------------------------------------------------

int Esadecimale(char C)
{
    if (C >= '0' && C <= '9')
        return C - '0';
    const char Grande = char(C & ~0x20);
    constexpr int Dieci = 10;
    return Grande >= 'A' && Grande <= 'F' ? Grande - 'A' + Dieci : -1;
}

QByteArray DaStampabile(const QByteArray& Scritto)
{
    QByteArray Letto;
    for (qsizetype i = 0; i < Scritto.size(); ++i) {
        const int Alto = Scritto[i] == '=' && i + 2 < Scritto.size() ? Esadecimale(Scritto[i + 1]) : -1;
        const int Basso = Alto >= 0 ? Esadecimale(Scritto[i + 2]) : -1;
        if (Basso < 0) {
            Letto += Scritto[i];
            continue;
        }
        Letto += char(Alto << 4 | Basso);
        i += 2;
    }
    return Letto;
}

QString TestoDi(const Proprieta& Letta)
{
    const QByteArray Byte = Letta.Stampabile ? DaStampabile(Letta.Grezzo) : Letta.Grezzo;
    const bool DelFile = Letta.Carattere.isEmpty() || Letta.Carattere == "UTF-8" || Letta.Carattere == "UTF8";
    return DelFile && Byte.isValidUtf8() ? QString::fromUtf8(Byte) : DaCp1252(Byte);
}

/// The parts of a value between a sign; a sign behind a backslash is no end of a part.
QStringList Parti(const QString& Valore, QChar Fra)
{
    QStringList Tutte(1);
    for (qsizetype i = 0; i < Valore.size(); ++i) {
        if (Valore[i] == Fra) {
            Tutte.append(QString());
            continue;
        }
        Tutte.last() += Valore[i];
        if (Valore[i] == u'\\' && i + 1 < Valore.size())
            Tutte.last() += Valore[++i];
    }
    return Tutte;
}

QString SenzaBarre(const QString& Valore)
{
    QString Letto;
    for (qsizetype i = 0; i < Valore.size(); ++i) {
        if (Valore[i] != u'\\' || i + 1 == Valore.size()) {
            Letto += Valore[i];
            continue;
        }
        const QChar Dopo = Valore[++i];
        Letto += Dopo == u'n' || Dopo == u'N' ? QChar(u'\n') : Dopo;
    }
    Letto.replace(u"\r\n"_s, u"\n"_s);
    Letto.replace(u'\r', u'\n');
    return SenzaControlli(Letto).trimmed();
}

/// The texts of the parts of a value between ";", each of which may be a list between ",". Old cards write
/// the comma of a text as it is.
/// @param Fra between the texts of a list
QStringList Componenti(const Proprieta& Letta, const QString& Fra)
{
    QStringList Tutte;
    for (const QString& Parte : Parti(TestoDi(Letta), u';')) {
        QStringList Voci;
        for (const QString& Voce : Parti(Parte, u','))
            if (const QString Testo = SenzaBarre(Voce); !Testo.isEmpty())
                Voci.append(Testo);
        Tutte.append(Voci.join(Fra));
    }
    return Tutte;
}

QString Uniti(const QStringList& Pezzi, QChar Fra = u' ')
{
    QStringList Pieni = Pezzi;
    Pieni.removeAll(QString());
    return Pieni.join(Fra);
}

/// A date as the archive reads it, gg/mm/aaaa; a text that is none comes back as it is.
QString Giorno(QString Testo)
{
    constexpr qsizetype Compatta = 8;
    constexpr qsizetype ConTratti = 10;
    const QString Intero = Testo;
    if (const qsizetype Ora = Testo.indexOf(u'T'); Ora > 0)
        Testo.truncate(Ora);
    if (Testo.size() == Compatta)
        Testo.insert(6, u'-').insert(4, u'-');
    const QDate Letto = Testo.size() == ConTratti ? QDate::fromString(Testo, Qt::ISODate) : QDate();
    return Letto.isValid() ? Format(Letto, ModelloData) : Intero;
}

bool EPec(const Proprieta& Letta, const QString& Indirizzo)
{
    if (Letta.Tipi.contains(u"pec"_s) || Letta.Tipi.contains(u"x-pec"_s))
        return true;
    const QStringList Dominio = Indirizzo.section(u'@', -1).toLower().split(u'.');
    return Dominio.contains(u"pec"_s) || Dominio.contains(u"legalmail"_s);
}

[[noreturn]] void TroppoLungo(int Numero)
{
    RifiutaFile(u"Nella scheda %1 un testo ha più di %2 caratteri: accorciarlo e ripetere."_s.arg(Numero).arg(
        Format(double(limiti::CaratteriCella), u"#,##0")));
}

// ---- a card -------------------------------------------------------------------------------------

/// The values of one card by column.
class Scheda
{
public:
    /// @param Numero of the card in its file
    void Prendi(const Proprieta& Letta, int Numero)
    {
        constexpr int MassimoGrezzo = 9;  // bytes of a character, quoted
        const QString& Nome = Letta.Nome;
        Annessi = Annessi || std::ranges::find(Allegate, QStringView(Nome)) != Allegate.end();
        if (Nome == u"VERSION" || std::ranges::find(Saltate, QStringView(Nome)) != Saltate.end())
            return;
        if (Letta.Grezzo.size() > MassimoGrezzo * limiti::CaratteriCella)
            TroppoLungo(Numero);
        if (Nome == u"N")
            Persone(Componenti(Letta, u" "_s));
        else if (Nome == u"FN")
            Mostrato = Semplice(Letta);
        else if (Nome == u"ORG")
            Ente = Uniti(Componenti(Letta, u", "_s));
        else if (Nome == u"KIND")
            Societa = Semplice(Letta).toLower() == u"org";
        else if (Nome == u"ADR")
            Indirizzo(Componenti(Letta, u", "_s));
        else if (Nome == u"TEL")
            Telefono(Letta);
        else if (Nome == u"EMAIL") {
            const QString Testo = Semplice(Letta);
            Metti(EPec(Letta, Testo) ? u"Pec"_s : u"Email"_s, Testo);
        } else if (Nome == u"BDAY")
            Metti(u"DataNascita"_s, Giorno(Semplice(Letta)));
        else if (Nome == u"NOTE")
            Metti(u"Note"_s, Semplice(Letta));
        else
            Altra(Letta);
    }

    /// All values; the name is told from what the card holds of it.
    [[nodiscard]] QList<std::pair<QString, QString>> Finita()
    {
        const bool SoloEnte = Persona.isEmpty() && (Mostrato.isEmpty() || Mostrato == Ente);
        const bool Organizzazione = !Ente.isEmpty() && (Societa || SoloEnte);
        const QString Nome = Organizzazione ? Ente : !Persona.isEmpty() ? Persona : Mostrato;
        QList<std::pair<QString, QString>> Tutti{{u"Nominativo"_s, Nome}};
        if (!Organizzazione && !Ente.isEmpty())
            Tutti.append({u"Organizzazione"_s, Ente});
        return Tutti + Valori;
    }

    /// It has pictures, sounds, keys or another card, which are left out.
    [[nodiscard]] bool ConAnnessi() const { return Annessi; }

private:
    static QString Semplice(const Proprieta& Letta) { return SenzaBarre(TestoDi(Letta)); }

    /// A second value of a column goes into one of its own.
    void Metti(const QString& Colonna, const QString& Testo)
    {
        if (Testo.isEmpty())
            return;
        const int Volte = ++Quante[Colonna];
        Valori.append({Volte == 1 ? Colonna : Colonna + u' ' + QString::number(Volte), Testo});
    }

    /// Family name, given names, others; what stands before and behind a name is no part of it, because the
    /// archive is in the order of family names.
    void Persone(const QStringList& Parti)
    {
        constexpr int DelNome = 3;
        Persona = Uniti(Parti.mid(0, DelNome));
        Metti(u"Titolo"_s, Uniti(Parti.mid(DelNome, 2)));
    }

    void Indirizzo(const QStringList& Parti)
    {
        enum { Casella, Interno, Via, Citta, Prov, Cap, Stato };
        const auto Parte = [&](int Quale) { return Parti.value(Quale); };
        Metti(u"Indirizzo"_s, Uniti({Parte(Via), Parte(Interno), Parte(Casella)}));
        Metti(u"Citta"_s, Parte(Citta));
        Metti(u"Prov"_s, Parte(Prov));
        Metti(u"Cap"_s, Parte(Cap));
        if (const QString Dove = Parte(Stato); Dove.compare(u"Italia", Qt::CaseInsensitive) != 0 &&
                                               Dove.compare(u"Italy", Qt::CaseInsensitive) != 0)
            Metti(u"Stato"_s, Dove);
    }

    void Telefono(const Proprieta& Letta)
    {
        QString Testo = Semplice(Letta);
        if (Testo.startsWith(u"tel:", Qt::CaseInsensitive))
            Testo.remove(0, 4);
        const auto Ha = [&](QStringView Tipo) { return Letta.Tipi.contains(Tipo); };
        Metti(Ha(u"fax") ? u"Fax"_s : Ha(u"cell") ? u"Cellulare"_s : u"Telefono"_s, Testo);
    }

    void Altra(const Proprieta& Letta)
    {
        QString Nome = Letta.Nome;
        if (Nome.startsWith(u"X-"))
            Nome.remove(0, 2);
        QString Nudo = Nome;
        Nudo.remove(u'-');
        const auto* Trovato = std::ranges::find(AltriNomi, QStringView(Nudo), &Sinonimo::Nome);
        Metti(Trovato != AltriNomi.end() ? Trovato->Campo.toString() : Nome, Semplice(Letta));
    }

    QString Persona;
    QString Mostrato;
    QString Ente;
    bool Societa = false;
    bool Annessi = false;
    QHash<QString, int> Quante;
    QList<std::pair<QString, QString>> Valori;
};

// ---- the table ----------------------------------------------------------------------------------

/// Rows that grow columns as the cards need them.
class Raccolta
{
public:
    void Aggiungi(const QList<std::pair<QString, QString>>& Valori, int Numero)
    {
        QStringList Riga(Tabella.Titoli.size());
        for (const auto& [Colonna, Testo] : Valori) {
            if (Testo.size() > limiti::CaratteriCella)
                TroppoLungo(Numero);
            const int Posto = PostoDi(Colonna);
            if (Posto >= Riga.size())
                Riga.resize(Posto + 1);
            Riga[Posto] = Testo;
        }
        Celle += Riga.size();
        if (Tabella.Righe.size() >= size_t(limiti::Righe) || Celle > limiti::Celle)
            RifiutaFile(u"Il file ha troppe schede per una sola volta: dividerlo e importarne una parte alla "
                        "volta."_s);
        Tabella.Righe.push_back(Riga);
        Tabella.Numeri.push_back(Numero);
    }

    void AggiungiAnnessi() { ++Annesse; }

    TabellaEstranea Finita()
    {
        if (Annesse > 0)
            Tabella.Avvisi.append(u"tralasciati immagini, suoni, chiavi e schede annesse di "_s +
                                  (Annesse == 1 ? u"1 scheda"_s : Format(Annesse, u"#,##0") + u" schede"_s));
        for (QStringList& Riga : Tabella.Righe)
            Riga.resize(Tabella.Titoli.size());
        if (qsizetype(Tabella.Righe.size()) * Tabella.Titoli.size() > 2 * limiti::Celle)
            RifiutaFile(
                u"Il file ha troppe proprietà diverse: dividerlo e importarne una parte alla volta."_s);
        return std::move(Tabella);
    }

private:
    int PostoDi(const QString& Colonna)
    {
        const auto Trovato = Posti.constFind(Colonna);
        if (Trovato != Posti.cend())
            return *Trovato;
        if (Tabella.Titoli.size() >= limiti::Colonne)
            RifiutaFile(u"Il file ha più di %1 proprietà diverse: dividerlo e importarne una parte alla "
                        "volta."_s.arg(Format(limiti::Colonne, u"#,##0")));
        Tabella.Titoli.append(Colonna);
        Posti.insert(Colonna, int(Tabella.Titoli.size()) - 1);
        return int(Tabella.Titoli.size()) - 1;
    }

    TabellaEstranea Tabella{.Titoli = {}, .Righe = {}, .Numeri = {}, .Unita = u"scheda"_s};
    QHash<QString, int> Posti;
    qsizetype Celle = 0;
    int Annesse = 0;
};

}  // namespace

TabellaEstranea LeggiVcard(const QByteArray& Byte, const AvanzamentoLettura& Prosegui)
{
    // Texts of Windows-1252 stay as they are: each property says its own characters.
    CodificaTesto Codifica = CodificaTesto::Automatica;
    const QString Intero = LeggiTestoEstraneo(Byte, CodificaTesto::Automatica, &Codifica);
    const qsizetype Marca = Byte.startsWith(MarcaUtf8) ? MarcaUtf8.size() : 0;
    const QByteArray Testo = Codifica == CodificaTesto::Windows1252 ? Byte.sliced(Marca) : Intero.toUtf8();
    Raccolta Tutte;
    Scheda Aperta;
    int Dentro = 0;  // cards within cards are somebody's agents
    int Numero = 0;
    Linee Righe(Testo);
    PassiDiLettura Passi(Prosegui, Testo.size());
    for (QByteArray Linea; Righe.Prossima(Linea);) {
        Passi.A(Righe.Letti());
        const std::optional<Proprieta> Letta = LeggiProprieta(Linea);
        if (!Letta)
            continue;
        const bool DiScheda = Letta->Grezzo.trimmed().toUpper() == "VCARD";
        if (Letta->Nome == u"BEGIN" && DiScheda) {
            if (++Dentro == 1) {
                Aperta = {};
                ++Numero;
            }
        } else if (Letta->Nome == u"END" && DiScheda && Dentro > 0) {
            if (--Dentro == 0) {
                Tutte.Aggiungi(Aperta.Finita(), Numero);
                if (Aperta.ConAnnessi())
                    Tutte.AggiungiAnnessi();
            }
        } else if (Dentro == 1) {
            Aperta.Prendi(*Letta, Numero);
        }
    }
    if (Dentro > 0)
        RifiutaFile(u"Il file finisce a metà della scheda %1: è incompleto, ripetere l'esportazione dal "
                    "programma d'origine."_s.arg(Numero));
    if (Numero == 0)
        RifiutaFile(u"Il file non contiene schede vCard: scegliere un file .vcf esportato da una rubrica."_s);
    return Tutte.Finita();
}
