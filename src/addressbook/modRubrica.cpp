#include "addressbook/modRubrica.h"

#include "core/modAiuti.h"
#include "core/sessione.h"
#include "platform/base/errore.h"
#include "platform/base/regionale.h"
#include "platform/system/file.h"
#include "platform/system/percorsi.h"

#include <QDate>

#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

namespace {

constexpr int SizeData = 10;
constexpr int SizeBooleano = 1;

const QString NomeChiave = u"ID"_s;
const QString NomeNominativo = u"Nominativo"_s;

int SizePredefinita(const Campo& Descritto)
{
    switch (Descritto.Type) {
    case TipoCampo::Testo:
        return Descritto.Size;
    case TipoCampo::Data:
        return SizeData;
    case TipoCampo::Booleano:
        return SizeBooleano;
    default:
        return 0;
    }
}

bool EData(const QVariant& Valore)
{
    return Valore.typeId() == QMetaType::QDate || Valore.typeId() == QMetaType::QDateTime;
}

QString ConFormato(const QVariant& Valore, const QString& Formato)
{
    if (EData(Valore))
        return Format(Valore.toDate(), Formato);
    return ENumero(Valore) ? Format(Valore.toDouble(), Formato) : CStr(Valore);
}

QString FraNome(QString Nome)
{
    return u'"' + Nome.replace(u'"', u"\"\""_s) + u'"';
}

bool Uguali(const QString& A, const QString& B)
{
    return A.compare(B, Qt::CaseInsensitive) == 0;
}

}  // namespace

std::optional<ColonnaRubrica> ColonnaDi(const Campo& Descritto)
{
    ColonnaRubrica Colonna{.Nome = Descritto.Name,
                           .Titolo = Descritto.Name,
                           .Size = SizePredefinita(Descritto),
                           .Tipo = Descritto.Type};
    bool Visibile = true;
    for (const auto& [Grezza, Intero] : ParseCoppie(Descritto.Description)) {
        const QString Chiave = Grezza.trimmed();
        const QString Valore = Intero.trimmed();
        if (Chiave == u"V"_s) {
            Visibile = Valore == u"Y"_s;
        } else if (Chiave == u"L"_s) {
            Colonna.Titolo = Valore;
        } else if (Chiave == u"S"_s) {
            bool Numero = false;
            const int Size = Valore.toInt(&Numero);
            Colonna.Size = Numero ? Size : SizePredefinita(Descritto);
        } else if (Chiave == u"F"_s) {
            Colonna.Formato = Valore;
        } else if (Chiave == u"M"_s) {
            Colonna.Maschera = Valore;
        }
    }
    return Visibile ? std::optional(Colonna) : std::nullopt;
}

QList<ColonnaRubrica> ColonneRubrica(const QList<Campo>& Campi)
{
    QList<ColonnaRubrica> Colonne;
    for (const Campo& Descritto : Campi)
        if (auto Colonna = ColonnaDi(Descritto))
            Colonne.append(std::move(*Colonna));
    return Colonne;
}

int LarghezzaTwip(int Size)
{
    struct Fascia
    {
        int Sotto;
        int Twip;
    };
    constexpr std::array Fasce{Fascia{3, 800}, Fascia{8, 1000}, Fascia{14, 2000}};
    constexpr int Piena = 3000;
    const auto Trovata = std::ranges::upper_bound(Fasce, Size, {}, &Fascia::Sotto);
    return Trovata != Fasce.end() ? Trovata->Twip : Piena;
}

QString TestoCella(const QVariant& Valore, const ColonnaRubrica& Colonna)
{
    if (Valore.typeId() == QMetaType::Bool)
        return Valore.toBool() ? u"Sì"_s : u"No"_s;
    if (Colonna.Formato.isEmpty() || Valore.isNull())
        return CStr(Valore);
    try {
        return ConFormato(Valore, Colonna.Formato);
    } catch (const Errore&) {
        return CStr(Valore);  // the description of an archive may hold any pattern
    }
}

QString FileRubrica(const QString& DataSource)
{
    return DataSource.isEmpty() ? TrovaFile(Barra(sessione::PercorsoProg) + u"rubrica.mdb"_s) : DataSource;
}

bool DellaSessione(const QString& DataSource)
{
    return PercorsoNativo(FileRubrica(DataSource)) == PercorsoNativo(FileRubrica(sessione::ArchivioCliCon));
}

QString SqlRubrica(const QString& Tabella)
{
    return u"SELECT * FROM "_s + FraNome(Tabella);
}

QString SqlRubrica(const QString& Tabella, const ColonnaRubrica& Per, bool Discendente)
{
    const bool Testo = Per.Tipo == TipoCampo::Testo || Per.Tipo == TipoCampo::Memo;
    return SqlRubrica(Tabella) + u" ORDER BY "_s + FraNome(Per.Nome) +
           (Testo ? u" COLLATE SenzaAccenti"_s : QString()) + (Discendente ? u" DESC"_s : u" ASC"_s);
}

bool HaColonna(const QList<Campo>& Campi, const QString& Nome)
{
    return std::ranges::any_of(Campi, [&](const Campo& Uno) { return Uguali(Uno.Name, Nome); });
}

bool EChiave(const Campo& Descritto)
{
    return Descritto.Contatore || Uguali(Descritto.Name, NomeChiave);
}

qint64 UltimaChiave(const Recordset& Righe)
{
    constexpr int Porzione = 4000;
    const QList<Campo> Campi = Righe.Campi();
    const auto Chiave = std::ranges::find_if(Campi, EChiave);
    if (Chiave == Campi.end())
        return 0;
    qint64 Massima = 0;
    std::optional<qint64> Letta;
    do
        Letta = Righe.Scorri({Chiave->Name}, Letta, Porzione, [&](const RigaScorsa& Riga) {
            Massima = std::max(Massima, Riga.Valore(0).toLongLong());
        });
    while (Letta);
    return Massima;
}

QVariantList ValoriScelti(const Recordset& Riga, const QList<ColonnaRubrica>& Colonne)
{
    QVariantList Valori;
    const bool InTesta =
        Colonne.size() > 1 && Uguali(Colonne[0].Nome, NomeChiave) && Uguali(Colonne[1].Nome, NomeNominativo);
    if (!InTesta)
        Valori = {Riga.Value(NomeChiave), Riga.Value(NomeNominativo)};
    for (const ColonnaRubrica& Colonna : Colonne)
        Valori.append(Riga.Value(Colonna.Nome));
    return Valori;
}

QString FraseConto(int Mostrate, int Tutte, bool Filtrate)
{
    const auto Numero = [](int Quanti) { return Format(Quanti, u"#,##0"); };
    if (Filtrate)
        return u"%1 di %2"_s.arg(Numero(Mostrate), Numero(Tutte));
    return Tutte == 1 ? u"1 nominativo"_s : Numero(Tutte) + u" nominativi"_s;
}
