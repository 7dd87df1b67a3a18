#include "feenote/einvoice/schematipi.h"

#include "platform/base/segni.h"

#include <QDate>
#include <QRegularExpression>

#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

namespace {

using enum FormaValore;

constexpr TipoValore Codici(QStringView Nome, QStringView Elencati)
{
    return {.Nome = Nome, .Forma = Elenco, .Codici = Elencati};
}

constexpr TipoValore Decimali(QStringView Nome, bool Segno, int Intere, int Minimo, int Massimo,
                              int ValoreMassimo = 0)
{
    return {.Nome = Nome,
            .Forma = Decimale,
            .Minimo = 1,
            .Massimo = Intere,
            .MinimoDecimali = Minimo,
            .MassimoDecimali = Massimo,
            .Segno = Segno,
            .ValoreMassimo = ValoreMassimo};
}

constexpr std::array Valori{
    // ---- texts
    TipoValore{u"CodiceType", Libero, 1, 28},
    TipoValore{u"CodEORIType", Libero, 13, 17},
    TipoValore{u"TitoloType", Titolo, 2, 10},
    TipoValore{u"String10Type", Base, 1, 10},
    TipoValore{u"String15Type", Base, 1, 15},
    TipoValore{u"String20Type", Base, 1, 20},
    TipoValore{u"String35Type", Base, 1, 35},
    TipoValore{u"String60Type", Base, 1, 60},
    TipoValore{u"String80Type", Base, 1, 80},
    TipoValore{u"String100Type", Base, 1, 100},
    TipoValore{u"NumeroCivicoType", Base, 1, 8},
    TipoValore{u"TelFaxType", Base, 5, 12},
    TipoValore{u"String35LatinExtType", Normale, 1, 35},
    TipoValore{u"String60LatinType", Latino, 1, 60},
    TipoValore{u"String80LatinType", Latino, 1, 80},
    TipoValore{u"String100LatinType", Latino, 1, 100},
    TipoValore{u"String200LatinType", Latino, 1, 200},
    TipoValore{u"String1000LatinType", Latino, 1, 1000},

    // ---- codes with a form
    TipoValore{u"CodiceDestinatarioType", Alfanumerico, 6, 7},
    TipoValore{u"CodiceFiscaleType", Alfanumerico, 11, 16},
    TipoValore{u"CodiceFiscalePFType", Alfanumerico, 16, 16},
    TipoValore{u"ProvinciaType", Maiuscole, 2, 2},
    TipoValore{u"NazioneType", Maiuscole, 2, 2},
    TipoValore{u"DivisaType", Maiuscole, 3, 3},
    TipoValore{u"TipoResaType", Maiuscole, 3, 3},
    TipoValore{u"CAPType", Cifre, 5, 5},
    TipoValore{u"ABIType", Cifre, 5, 5},
    TipoValore{u"CABType", Cifre, 5, 5},
    TipoValore{u"IBANType", Iban},
    TipoValore{u"BICType", Bic},
    TipoValore{u"EmailType", Posta, 0, 256},
    TipoValore{u"EmailContattiType", PostaContatti, 7, 256},

    // ---- codes of a list
    Codici(u"FormatoTrasmissioneType", u"FPA12 FPR12"),
    Codici(u"SoggettoEmittenteType", u"CC TZ"),
    Codici(u"RegimeFiscaleType",
           u"RF01 RF02 RF04 RF05 RF06 RF07 RF08 RF09 RF10 RF11 RF12 RF13 RF14 RF15 RF16 "
           "RF17 RF18 RF19 RF20"),
    Codici(u"SocioUnicoType", u"SU SM"),
    Codici(u"StatoLiquidazioneType", u"LS LN"),
    Codici(u"TipoDocumentoType",
           u"TD01 TD02 TD03 TD04 TD05 TD06 TD16 TD17 TD18 TD19 TD20 TD21 TD22 TD23 TD24 TD25 "
           "TD26 TD27 TD28 TD29"),
    Codici(u"TipoRitenutaType", u"RT01 RT02 RT03 RT04 RT05 RT06"),
    Codici(u"CausalePagamentoType", u"A B C D E G H I L M N O P Q R S T U V W X Y Z L1 M1 M2 O1 V1 ZO"),
    Codici(u"BolloVirtualeType", u"SI"),
    Codici(u"TipoCassaType",
           u"TC01 TC02 TC03 TC04 TC05 TC06 TC07 TC08 TC09 TC10 TC11 TC12 TC13 TC14 TC15 TC16 TC17 "
           "TC18 TC19 TC20 TC21 TC22"),
    Codici(u"RitenutaType", u"SI"),
    Codici(u"NaturaType",
           u"N1 N2 N2.1 N2.2 N3 N3.1 N3.2 N3.3 N3.4 N3.5 N3.6 N4 N5 N6 N6.1 N6.2 N6.3 N6.4 N6.5 N6.6 "
           "N6.7 N6.8 N6.9 N7"),
    Codici(u"TipoScontoMaggiorazioneType", u"SC MG"),
    Codici(u"Art73Type", u"SI"),
    Codici(u"TipoCessionePrestazioneType", u"SC PR AB AC"),
    Codici(u"EsigibilitaIVAType", u"D I S"),
    Codici(u"CondizioniPagamentoType", u"TP01 TP02 TP03"),
    Codici(u"ModalitaPagamentoType",
           u"MP01 MP02 MP03 MP04 MP05 MP06 MP07 MP08 MP09 MP10 MP11 MP12 MP13 MP14 MP15 "
           "MP16 MP17 MP18 MP19 MP20 MP21 MP22 MP23"),

    // ---- numbers
    Decimali(u"PesoType", false, 4, 1, 2),
    Decimali(u"QuantitaType", false, 12, 2, 8),
    Decimali(u"Amount2DecimalType", true, 11, 2, 2),
    Decimali(u"Amount8DecimalType", true, 11, 2, 8),
    Decimali(u"RateType", false, 3, 2, 2, 100),
    TipoValore{u"RiferimentoNumeroLineaType", Intero, 1, 9999},
    TipoValore{u"NumeroLineaType", Intero, 1, 9999},
    TipoValore{u"NumeroColliType", Intero, 1, 9999},
    TipoValore{u"RiferimentoFaseType", Intero, 1, 999},
    TipoValore{u"GiorniTerminePagamentoType", Intero, 0, 999},

    // ---- days, bytes
    TipoValore{u"DataFatturaType", Data, 1970},  // the first year
    TipoValore{u"xs:date", Data},
    TipoValore{u"xs:dateTime", DataOra},
    TipoValore{u"xs:base64Binary", Base64},
};

// ---- blanks, as each form takes them

bool Bianco(QChar C)
{
    return C == u' ' || C == u'\t' || C == u'\n' || C == u'\r';
}

QString SenzaBianchi(const QString& Testo)
{
    qsizetype Da = 0;
    qsizetype A = Testo.size();
    while (Da < A && Bianco(Testo[Da]))
        ++Da;
    while (A > Da && Bianco(Testo[A - 1]))
        --A;
    return Testo.sliced(Da, A - Da);
}

/// Blanks at the ends do not count, those within count once; nothing here has any within but a title.
QString Stretto(const QString& Testo)
{
    QString Risultato;
    for (const QChar C : SenzaBianchi(Testo))
        if (!Bianco(C))
            Risultato += C;
        else if (!Risultato.endsWith(u' '))
            Risultato += u' ';
    return Risultato;
}

// ---- the forms

bool TuttiFra(const QString& Testo, char16_t Ultimo)
{
    return std::ranges::all_of(Testo, [Ultimo](QChar C) { return C.unicode() <= Ultimo; });
}

/// Characters, not their halves.
qsizetype Quanti(const QString& Testo)
{
    return std::ranges::count_if(Testo, [](QChar C) { return !C.isLowSurrogate(); });
}

bool LungoGiusto(const TipoValore& Tipo, const QString& Testo)
{
    const qsizetype Lungo = Quanti(Testo);
    return Lungo >= Tipo.Minimo && Lungo <= Tipo.Massimo;
}

bool Maiuscola(QChar C)
{
    return C >= u'A' && C <= u'Z';
}

bool Alfanum(QChar C)
{
    return ECifra(C) || Maiuscola(C);
}

template <class Prova>
bool Tutti(const TipoValore& Tipo, const QString& Testo, Prova Ammesso)
{
    return LungoGiusto(Tipo, Testo) && std::ranges::all_of(Testo, Ammesso);
}

bool EDecimale(const TipoValore& Tipo, const QString& Testo)
{
    const QString Cifre = Tipo.Segno && Testo.startsWith(u'-') ? Testo.sliced(1) : Testo;
    const qsizetype Punto = Cifre.indexOf(u'.');
    if (Punto < Tipo.Minimo || Punto > Tipo.Massimo)
        return false;
    const qsizetype Dietro = Cifre.size() - Punto - 1;
    if (Dietro < Tipo.MinimoDecimali || Dietro > Tipo.MassimoDecimali)
        return false;
    for (qsizetype i = 0; i < Cifre.size(); ++i)
        if (i != Punto && !ECifra(Cifre[i]))
            return false;
    return Tipo.ValoreMassimo == 0 || Cifre.toDouble() <= Tipo.ValoreMassimo;
}

bool EIntero(const TipoValore& Tipo, const QString& Testo)
{
    const QString Cifre = Testo.startsWith(u'+') || Testo.startsWith(u'-') ? Testo.sliced(1) : Testo;
    if (Cifre.isEmpty() || !std::ranges::all_of(Cifre, ECifra))
        return false;
    const double Valore = Testo.toDouble();
    return Valore >= Tipo.Minimo && Valore <= Tipo.Massimo;
}

/// "Z" or hours and minutes from the meridian, or nothing.
bool EFuso(QStringView Testo)
{
    constexpr qsizetype Lungo = 6;
    constexpr int UltimaOra = 14;
    if (Testo.isEmpty() || Testo == u"Z")
        return true;
    if (Testo.size() != Lungo || (Testo[0] != u'+' && Testo[0] != u'-') || Testo[3] != u':' ||
        !ECifra(Testo[1]) || !ECifra(Testo[2]) || !ECifra(Testo[4]) || !ECifra(Testo[5]))
        return false;
    const int Ore = Testo.sliced(1, 2).toInt();
    const int Minuti = Testo.sliced(4, 2).toInt();
    return Minuti < 60 && (Ore < UltimaOra || (Ore == UltimaOra && Minuti == 0));
}

/// The ten characters "2026-01-15" as a day, null for anything else. Years of more digits are none here.
QDate Giorno(QStringView Testo)
{
    for (qsizetype i = 0; i < Testo.size(); ++i)
        if (i == 4 || i == 7 ? Testo[i] != u'-' : !ECifra(Testo[i]))
            return {};
    return Testo.size() == 10
               ? QDate(Testo.first(4).toInt(), Testo.sliced(5, 2).toInt(), Testo.sliced(8, 2).toInt())
               : QDate();
}

bool EData(const TipoValore& Tipo, const QString& Testo)
{
    constexpr qsizetype Lungo = 10;
    if (Testo.size() < Lungo)
        return false;
    const QDate Letto = Giorno(QStringView(Testo).first(Lungo));
    return Letto.isValid() && Letto.year() >= Tipo.Minimo && EFuso(QStringView(Testo).sliced(Lungo));
}

bool EDataOra(const QString& Testo)
{
    static const QRegularExpression Forma(
        u"^(\\d{4}-\\d{2}-\\d{2})T(\\d{2}):(\\d{2}):(\\d{2})(\\.\\d+)?(Z|[+-]\\d{2}:\\d{2})?$"_s);
    const QRegularExpressionMatch Trovato = Forma.match(Testo);
    if (!Trovato.hasMatch() || Testo.endsWith(u'\n') || !Giorno(Trovato.captured(1)).isValid())
        return false;
    const int Ore = Trovato.captured(2).toInt();
    const int Minuti = Trovato.captured(3).toInt();
    const int Secondi = Trovato.captured(4).toInt();
    const bool Mezzanotte = Ore == 24 && Minuti == 0 && Secondi == 0;
    return (Ore < 24 || Mezzanotte) && Minuti < 60 && Secondi < 60 && EFuso(Trovato.captured(6));
}

bool EBase64(const QString& Testo)
{
    qsizetype Cifre = 0;
    qsizetype Uguali = 0;
    QChar Ultima;
    for (const QChar C : Testo) {
        if (Bianco(C))
            continue;
        const bool Sua = Alfanum(C) || (C >= u'a' && C <= u'z') || C == u'+' || C == u'/';
        if (Sua && Uguali == 0) {
            ++Cifre;
            Ultima = C;
        } else if (C == u'=' && Uguali < 2) {
            ++Uguali;
        } else {
            return false;
        }
    }
    // The bits that the last sign has beyond whole bytes are 0.
    const bool Resto = Uguali == 0 || (Uguali == 1 && u"AEIMQUYcgkosw048"_s.contains(Ultima)) ||
                       (Uguali == 2 && u"AQgw"_s.contains(Ultima));
    return (Cifre + Uguali) % 4 == 0 && Resto && (Uguali == 0 || Cifre > 0);
}

bool EIban(const QString& Testo)
{
    constexpr qsizetype Minimo = 15;
    constexpr qsizetype Massimo = 34;
    const auto Lettera = [](QChar C) { return Maiuscola(C) || (C >= u'a' && C <= u'z'); };
    return Testo.size() >= Minimo && Testo.size() <= Massimo && Lettera(Testo[0]) && Lettera(Testo[1]) &&
           ECifra(Testo[2]) && ECifra(Testo[3]) &&
           std::ranges::all_of(Testo, [&](QChar C) { return Lettera(C) || ECifra(C); });
}

bool EBic(const QString& Testo)
{
    constexpr qsizetype Breve = 8;
    constexpr qsizetype Lungo = 11;
    if ((Testo.size() != Breve && Testo.size() != Lungo) || !std::ranges::all_of(Testo, Alfanum) ||
        !std::all_of(Testo.cbegin(), Testo.cbegin() + 6, Maiuscola))
        return false;
    return Testo[6] != u'0' && Testo[6] != u'1' && Testo[7] != u'O';
}

/// The signs that the schema takes in the words of an address: all but blanks, brackets, the sign itself and
/// the point that divides them.
bool EParolaPosta(QStringView Testo)
{
    static const QString Esclusi = u"\"(),.:;<>@[\\]"_s;
    return !Testo.isEmpty() &&
           std::ranges::all_of(Testo, [](QChar C) { return C > u' ' && C <= u'~' && !Esclusi.contains(C); });
}

bool EPosta(const QString& Testo)
{
    // Addresses between quotes and on bare machines, which the schema takes too, exist nowhere.
    const qsizetype Chiocciola = Testo.indexOf(u'@');
    if (Chiocciola < 1)
        return false;
    for (const QStringView Lato :
         {QStringView(Testo).first(Chiocciola), QStringView(Testo).sliced(Chiocciola + 1)})
        for (const QStringView Parola : Lato.split(u'.'))
            if (!EParolaPosta(Parola))
                return false;
    return true;
}

bool EPostaContatti(const QString& Testo)
{
    // Something, the sign, something, points, something; all on one line.
    const qsizetype Chiocciola = Testo.indexOf(u'@', 1);
    const qsizetype Punto = Testo.size() < 2 ? -1 : Testo.lastIndexOf(u'.', Testo.size() - 2);
    return Chiocciola > 0 && Punto >= Chiocciola + 2 && !Testo.contains(u'\n') && !Testo.contains(u'\r');
}

}  // namespace

std::span<const TipoValore> TipiValore()
{
    return Valori;
}

const TipoValore* TipoValoreDi(QStringView Nome)
{
    const auto Tipo = std::ranges::find(Valori, Nome, &TipoValore::Nome);
    return Tipo == Valori.end() ? nullptr : &*Tipo;
}

bool ValoreValido(const TipoValore& Tipo, const QString& Valore)
{
    constexpr char16_t UltimoBase = 0x7F;
    constexpr char16_t UltimoLatino = 0xFF;
    switch (Tipo.Forma) {
    case Libero:
    case Normale:
        return LungoGiusto(Tipo, Valore);
    case Latino:
        return LungoGiusto(Tipo, Valore) && TuttiFra(Valore, UltimoLatino);
    case Base:
        return LungoGiusto(Tipo, Valore) && TuttiFra(Valore, UltimoBase);
    case Titolo:
        return LungoGiusto(Tipo, Stretto(Valore)) && TuttiFra(Valore, UltimoBase);
    case Elenco:
        return !Valore.isEmpty() && !Valore.contains(u' ') &&
               (u' ' + Tipo.Codici.toString() + u' ').contains(u' ' + Valore + u' ');
    case Maiuscole:
        return Tutti(Tipo, Valore, Maiuscola);
    case Alfanumerico:
        return Tutti(Tipo, Valore, Alfanum);
    case Cifre:
        return Tutti(Tipo, Valore, ECifra);
    case Decimale:
        return EDecimale(Tipo, SenzaBianchi(Valore));
    case Intero:
        return EIntero(Tipo, SenzaBianchi(Valore));
    case Data:
        return EData(Tipo, SenzaBianchi(Valore));
    case DataOra:
        return EDataOra(SenzaBianchi(Valore));
    case Base64:
        return EBase64(Valore);
    case Iban:
        return EIban(Valore);
    case Bic:
        return EBic(Valore);
    case Posta:
        return LungoGiusto(Tipo, Stretto(Valore)) && EPosta(SenzaBianchi(Valore));
    case PostaContatti:
        return LungoGiusto(Tipo, Valore) && EPostaContatti(Valore);
    }
    return false;
}

bool ValoreValido(QStringView Tipo, const QString& Valore)
{
    const TipoValore* Suo = TipoValoreDi(Tipo);
    return Suo && ValoreValido(*Suo, Valore);
}

QString RichiestaDi(const TipoValore& Tipo)
{
    const auto Fra = [](int Minimo, int Massimo) {
        return Minimo == Massimo ? QString::number(Minimo) : u"da %1 a %2"_s.arg(Minimo).arg(Massimo);
    };
    const QString Lungo = Fra(Tipo.Minimo, Tipo.Massimo);
    switch (Tipo.Forma) {
    case Libero:
    case Normale:
        return u"un testo (caratteri: %1)"_s.arg(Lungo);
    case Latino:
        return u"un testo senza lettere straniere (caratteri: %1)"_s.arg(Lungo);
    case Base:
    case Titolo:
        return u"un testo senza accenti (caratteri: %1)"_s.arg(Lungo);
    case Elenco:
        return u"uno dei codici %1"_s.arg(Tipo.Codici);
    case Maiuscole:
        return u"lettere maiuscole (%1)"_s.arg(Lungo);
    case Alfanumerico:
        return u"lettere maiuscole e cifre (%1)"_s.arg(Lungo);
    case Cifre:
        return u"cifre (%1)"_s.arg(Lungo);
    case Decimale:
        return u"un numero con il punto (decimali: %1)"_s.arg(Fra(Tipo.MinimoDecimali, Tipo.MassimoDecimali));
    case Intero:
        return u"un numero intero %1"_s.arg(Lungo);
    case Data:
        return Tipo.Minimo > 0 ? u"una data aaaa-mm-gg, dal %1"_s.arg(Tipo.Minimo) : u"una data aaaa-mm-gg"_s;
    case DataOra:
        return u"una data con l'ora"_s;
    case Base64:
        return u"un allegato in base 64"_s;
    case Iban:
        return u"un IBAN"_s;
    case Bic:
        return u"un BIC"_s;
    case Posta:
    case PostaContatti:
        return u"un indirizzo di posta"_s;
    }
    return {};
}
