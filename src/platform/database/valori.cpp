#include "platform/database/valori.h"

#include "platform/base/errore.h"
#include "platform/base/regionale.h"

#include <QDateTime>
#include <QRegularExpression>

#include <array>
#include <cmath>
#include <limits>

using namespace Qt::StringLiterals;

namespace {

struct Parola
{
    QStringView Nome;
    TipoCampo Tipo;
};

// First words of declarations: ours, and those of the classic SQL that upgrades of old files use.
constexpr std::array Parole{
    Parola{u"BOOLEAN", TipoCampo::Booleano}, Parola{u"BIT", TipoCampo::Booleano},
    Parola{u"YESNO", TipoCampo::Booleano},   Parola{u"LOGICAL", TipoCampo::Booleano},
    Parola{u"BYTE", TipoCampo::Byte},        Parola{u"TINYINT", TipoCampo::Byte},
    Parola{u"SMALLINT", TipoCampo::Intero},  Parola{u"SHORT", TipoCampo::Intero},
    Parola{u"INTEGER", TipoCampo::Lungo},    Parola{u"INT", TipoCampo::Lungo},
    Parola{u"LONG", TipoCampo::Lungo},       Parola{u"COUNTER", TipoCampo::Lungo},
    Parola{u"CURRENCY", TipoCampo::Valuta},  Parola{u"MONEY", TipoCampo::Valuta},
    Parola{u"SINGLE", TipoCampo::Singolo},   Parola{u"DOUBLE", TipoCampo::Doppio},
    Parola{u"DATETIME", TipoCampo::Data},    Parola{u"DATE", TipoCampo::Data},
    Parola{u"TIMESTAMP", TipoCampo::Data},   Parola{u"LONGTEXT", TipoCampo::Memo},
    Parola{u"MEMO", TipoCampo::Memo},        Parola{u"CLOB", TipoCampo::Memo},
};

constexpr int TestoSenzaMisura = 255;

/// SQLite's rules of affinity, for words that are in no table.
TipoCampo PerAffinita(const QString& Dichiarata)
{
    const auto Contiene = [&](QStringView Pezzo) { return Dichiarata.contains(Pezzo); };
    if (Contiene(u"INT"))
        return TipoCampo::Lungo;
    if (Contiene(u"CHAR") || Contiene(u"CLOB") || Contiene(u"TEXT"))
        return TipoCampo::Testo;
    return Dichiarata.isEmpty() || Contiene(u"BLOB") ? TipoCampo::Memo : TipoCampo::Doppio;
}

int Misura(const QString& Dichiarata)
{
    static const QRegularExpression Tonde(u"\\(\\s*(\\d{1,6})\\s*\\)"_s);
    const QRegularExpressionMatch Trovata = Tonde.match(Dichiarata);
    return Trovata.hasMatch() ? Trovata.capturedView(1).toInt() : TestoSenzaMisura;
}

[[noreturn]] void Rifiuta(int Numero, const Campo& Colonna)
{
    throw Errore(Numero, DescrizioneErrore(Numero) + u": "_s + Colonna.Name);
}

double NumeroPer(const Campo& Colonna, const QVariant& Valore)
{
    if (Valore.typeId() == QMetaType::Bool)
        return Valore.toBool() ? -1.0 : 0.0;
    if (Valore.typeId() == QMetaType::Float)
        return DaSingolo(Valore.toFloat());
    if (ENumero(Valore))
        return Valore.toDouble();
    if (Valore.typeId() != QMetaType::QString)
        Rifiuta(errori::TipoDelValore, Colonna);
    try {
        return CDbl(Valore.toString());
    } catch (const Errore&) {
        Rifiuta(errori::TipoDelValore, Colonna);
    }
}

QVariant InteroPer(const Campo& Colonna, const QVariant& Valore)
{
    const double Intero = Round(NumeroPer(Colonna, Valore));
    if (!(Intero >= std::numeric_limits<int>::min() && Intero <= std::numeric_limits<int>::max()))
        Rifiuta(errori::TipoDelValore, Colonna);
    return int(Intero);
}

QVariant FinitoPer(const Campo& Colonna, const QVariant& Valore)
{
    const double Numero = NumeroPer(Colonna, Valore);
    if (!std::isfinite(Numero))
        Rifiuta(errori::TipoDelValore, Colonna);
    return Numero;
}

QVariant DataPer(const Campo& Colonna, const QVariant& Valore)
{
    if (Valore.typeId() == QMetaType::QDate || Valore.typeId() == QMetaType::QDateTime)
        return Valore;
    const std::optional<QDate> Letta =
        Valore.typeId() == QMetaType::QString ? LeggiData(Valore.toString()) : std::nullopt;
    if (!Letta)
        Rifiuta(errori::TipoDelValore, Colonna);
    return *Letta;
}

QVariant TestoPer(const Campo& Colonna, const QVariant& Valore)
{
    if (ENumero(Valore) && !std::isfinite(Valore.toDouble()))
        Rifiuta(errori::TipoDelValore, Colonna);
    const QString Testo = CStr(Valore);
    if (Colonna.Type == TipoCampo::Testo && Colonna.Size > 0 && Testo.size() > Colonna.Size)
        Rifiuta(3163, Colonna);
    return Testo;
}

bool ENullo(const QVariant& Valore)
{
    return Valore.isNull() || (Valore.typeId() == QMetaType::QDate && !Valore.toDate().isValid()) ||
           (Valore.typeId() == QMetaType::QDateTime && !Valore.toDateTime().isValid());
}

}  // namespace

QString Dichiarazione(const Campo& Colonna)
{
    switch (Colonna.Type) {
    case TipoCampo::Booleano:
        return u"BOOLEAN DEFAULT 0"_s;  // a truth value that nobody set is false
    case TipoCampo::Byte:
        return u"TINYINT"_s;
    case TipoCampo::Intero:
        return u"SMALLINT"_s;
    case TipoCampo::Lungo:
        return u"INTEGER"_s;
    case TipoCampo::Valuta:
        return u"CURRENCY REAL"_s;
    case TipoCampo::Singolo:
        return u"SINGLE REAL"_s;
    case TipoCampo::Doppio:
        return u"DOUBLE REAL"_s;
    case TipoCampo::Data:
        return u"DATETIME TEXT"_s;
    case TipoCampo::Testo:
        return u"TEXT(%1)"_s.arg(Colonna.Size > 0 ? Colonna.Size : TestoSenzaMisura);
    case TipoCampo::Memo:
        break;
    }
    return u"LONGTEXT"_s;
}

Campo CampoDaDichiarazione(const QString& Nome, const QString& Dichiarata)
{
    const QString Maiuscola = Dichiarata.toUpper().trimmed();
    const auto FineParola = std::ranges::find_if_not(Maiuscola, [](QChar C) { return C.isLetterOrNumber(); });
    const QStringView Prima(Maiuscola.begin(), FineParola);
    const auto Nota = std::ranges::find(Parole, Prima, &Parola::Nome);
    Campo Colonna;
    Colonna.Name = Nome;
    Colonna.Type = Nota != Parole.end() ? Nota->Tipo : PerAffinita(Maiuscola);
    Colonna.Size = Colonna.Type == TipoCampo::Testo ? Misura(Maiuscola) : 0;
    return Colonna;
}

std::optional<TipoCampo> TipoDaCodice(qint64 Codice)
{
    const bool Noto = (Codice >= 1 && Codice <= 8) || Codice == 10 || Codice == 12;
    return Noto ? std::optional(TipoCampo(int(Codice))) : std::nullopt;
}

bool EDiTesto(TipoCampo Tipo)
{
    return Tipo == TipoCampo::Testo || Tipo == TipoCampo::Memo;
}

QVariant PerColonna(const Campo& Colonna, const QVariant& Valore)
{
    if (ENullo(Valore))
        return {};
    switch (Colonna.Type) {
    case TipoCampo::Booleano:
        return NumeroPer(Colonna, Valore) != 0.0;
    case TipoCampo::Byte:
    case TipoCampo::Intero:
    case TipoCampo::Lungo:
        return InteroPer(Colonna, Valore);
    case TipoCampo::Valuta:
    case TipoCampo::Singolo:
    case TipoCampo::Doppio:
        return FinitoPer(Colonna, Valore);
    case TipoCampo::Data:
        return DataPer(Colonna, Valore);
    case TipoCampo::Testo:
    case TipoCampo::Memo:
        break;
    }
    return TestoPer(Colonna, Valore);
}

QString DataIso(const QDate& Giorno)
{
    return Giorno.toString(Qt::ISODate);
}

QString DataIso(const QDateTime& Quando)
{
    const bool ConOra = Quando.time() != QTime(0, 0);
    return ConOra ? Quando.toString(u"yyyy-MM-ddTHH:mm:ss") : DataIso(Quando.date());
}

QVariant LeggiDataIso(const QString& Testo)
{
    constexpr qsizetype LungoGiorno = 10;
    const QDate Giorno = QDate::fromString(Testo.left(LungoGiorno), Qt::ISODate);
    if (!Giorno.isValid())
        return {};
    if (Testo.size() == LungoGiorno)
        return Giorno;
    // Between day and time stands a "T" or, in files of other tools, a blank.
    const QTime Ora = QTime::fromString(Testo.mid(LungoGiorno + 1), Qt::ISODate);
    if (!Ora.isValid())
        return {};
    return Ora == QTime(0, 0) ? QVariant(Giorno) : QVariant(QDateTime(Giorno, Ora));
}

double DaSingolo(float Valore)
{
    constexpr int CifreSicure = 7;
    return std::isfinite(Valore) ? QByteArray::number(double(Valore), 'g', CifreSicure).toDouble()
                                 : double(Valore);
}
