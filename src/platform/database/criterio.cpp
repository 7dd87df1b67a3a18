#include "platform/database/criterio.h"

#include "platform/base/errore.h"
#include "platform/base/regionale.h"
#include "platform/database/connessione.h"
#include "platform/database/valori.h"

#include <algorithm>
#include <array>
#include <optional>

using namespace Qt::StringLiterals;

namespace {

constexpr int LunghezzaMassima = 8192;
constexpr int ProfonditaMassima = 50;
constexpr int ConfrontiMassimi = 200;

constexpr std::array<QStringView, 6> Segni{u"<>", u"<=", u">=", u"=", u"<", u">"};  // longer ones first

constexpr std::array SegniDiTesto{SegnoTesto::Diverso, SegnoTesto::MinoreUguale, SegnoTesto::MaggioreUguale,
                                  SegnoTesto::Uguale,  SegnoTesto::Minore,       SegnoTesto::Maggiore};
static_assert(SegniDiTesto.size() == Segni.size());

struct Valore
{
    enum class Tipo { Testo, Numero, Data, Nullo, Logico };
    Tipo Che = Tipo::Nullo;
    QVariant Contenuto;
};

/// Recursive descent over the text; each reading moves the place on.
class LettoreCriterio
{
public:
    LettoreCriterio(QStringView Criterio, const std::function<QString(const QString&)>& Colonne)
        : Testo(Criterio), Identifica(Colonne)
    {}

    Condizione Tutto();

private:
    [[noreturn]] static void Rifiuta() { throw Errore(errori::SintassiCriterio); }

    void Spazi();
    static bool InNome(QChar C) { return C.isLetterOrNumber() || C == u'_'; }

    [[nodiscard]] QStringView ParolaQui();
    bool Prendi(QStringView Parola);
    bool PrendiSegno(QChar C);

    // The engine's own precedence: NOT before AND before OR. Every comparison stands in parentheses.
    QString Oppure(int Profondita);
    QString Insieme(int Profondita);
    QString Fattore(int Profondita);
    QString Confronto();
    QString LeggiNome();
    QString LeggiSegno();
    Valore LeggiValore();
    QString LeggiStringa(QChar Chiude);
    double LeggiNumero();
    QDate DataAmericana();
    QDate DataItaliana();
    QString Lega(const QVariant& Contenuto);
    QString Somiglia(const QString& Colonna, bool Negato);
    QString ConValore(const QString& Colonna, const QString& Segno, const Valore& Con);

    // The cast gives the value a numeric affinity, which a column of text then takes too: "05" equals 5.
    // Text that is no number sorts above all numbers for the engine; here it is neither more nor less.
    QString ConNumero(const QString& Colonna, const QString& Segno, const QVariant& Numero);

    // Any number that is not 0 is true, whatever wrote the file.
    QString ConLogico(const QString& Colonna, const QString& Segno, bool Vero);

    // The search offers "empty" and "not empty" as a comparison with Null: there it means the absence.
    static QString ConNullo(const QString& Colonna, const QString& Segno);

    QStringView Testo;
    const std::function<QString(const QString&)>& Identifica;
    qsizetype Posto = 0;
    int Confronti = 0;
    bool Rovesciato = false;
    std::optional<ConfrontoTesto> UltimoDiTesto;
    QVariantList Valori;
};

Condizione LettoreCriterio::Tutto()
{
    Condizione Letta{Oppure(0), {}, {}};
    Spazi();
    if (Posto != Testo.size())
        Rifiuta();
    Letta.Valori = Valori;
    if (Confronti == 1 && !Rovesciato)
        Letta.Solo = UltimoDiTesto;
    return Letta;
}

void LettoreCriterio::Spazi()
{
    while (Posto < Testo.size() && Testo[Posto].isSpace())
        ++Posto;
}

QStringView LettoreCriterio::ParolaQui()
{
    Spazi();
    qsizetype Fine = Posto;
    while (Fine < Testo.size() && InNome(Testo[Fine]))
        ++Fine;
    return Testo.sliced(Posto, Fine - Posto);
}

bool LettoreCriterio::Prendi(QStringView Parola)
{
    if (ParolaQui().compare(Parola, Qt::CaseInsensitive) != 0)
        return false;
    Posto += Parola.size();
    return true;
}

bool LettoreCriterio::PrendiSegno(QChar C)
{
    Spazi();
    if (Posto >= Testo.size() || Testo[Posto] != C)
        return false;
    ++Posto;
    return true;
}

QString LettoreCriterio::Oppure(int Profondita)
{
    QString Sql = Insieme(Profondita);
    while (Prendi(u"OR"))
        Sql += u" OR "_s + Insieme(Profondita);
    return Sql;
}

QString LettoreCriterio::Insieme(int Profondita)
{
    QString Sql = Fattore(Profondita);
    while (Prendi(u"AND"))
        Sql += u" AND "_s + Fattore(Profondita);
    return Sql;
}

QString LettoreCriterio::Fattore(int Profondita)
{
    if (Profondita > ProfonditaMassima)
        Rifiuta();
    if (Prendi(u"NOT")) {
        Rovesciato = true;
        return u"(NOT "_s + Fattore(Profondita + 1) + u')';
    }
    if (PrendiSegno(u'(')) {
        const QString Interno = Oppure(Profondita + 1);
        if (!PrendiSegno(u')'))
            Rifiuta();
        return u'(' + Interno + u')';
    }
    if (++Confronti > ConfrontiMassimi)
        Rifiuta();
    return u'(' + Confronto() + u')';
}

QString LettoreCriterio::Confronto()
{
    const QString Colonna = LeggiNome();
    if (Prendi(u"IS")) {
        const bool Negato = Prendi(u"NOT");
        if (!Prendi(u"NULL"))
            Rifiuta();
        return Colonna + (Negato ? u" IS NOT NULL"_s : u" IS NULL"_s);
    }
    const bool Negato = Prendi(u"NOT");
    if (Prendi(u"LIKE"))
        return (Negato ? u"NOT "_s : QString()) + Somiglia(Colonna, Negato);
    if (Negato)
        Rifiuta();
    const QString Segno = LeggiSegno();
    return ConValore(Colonna, Segno, LeggiValore());
}

QString LettoreCriterio::LeggiNome()
{
    QString Nome;
    const bool TraParentesi = PrendiSegno(u'[');
    if (TraParentesi) {
        const qsizetype Fine = Testo.indexOf(u']', Posto);
        if (Fine < 0)
            Rifiuta();
        Nome = Testo.sliced(Posto, Fine - Posto).toString();
        Posto = Fine + 1;
    } else {
        Nome = ParolaQui().toString();
        Posto += Nome.size();
    }
    const bool SoloCifre = std::ranges::all_of(Nome, [](QChar C) { return C.isDigit(); });
    const bool Numero = SoloCifre && !(TraParentesi && !Nome.isEmpty());
    if (Numero || PrendiSegno(u'('))  // an empty name, a number, a call
        Rifiuta();
    const QString Colonna = Identifica(Nome);
    if (Colonna.isEmpty())
        throw Errore(errori::CampoDelCriterio, DescrizioneErrore(errori::CampoDelCriterio) + u": "_s + Nome);
    return Colonna;
}

QString LettoreCriterio::LeggiSegno()
{
    Spazi();
    const auto Trovato =
        std::ranges::find_if(Segni, [&](QStringView S) { return Testo.sliced(Posto).startsWith(S); });
    if (Trovato == Segni.end())
        Rifiuta();
    Posto += Trovato->size();
    return Trovato->toString();
}

Valore LettoreCriterio::LeggiValore()
{
    Spazi();
    if (Posto >= Testo.size())
        Rifiuta();
    const QChar C = Testo[Posto];
    if (C == u'"' || C == u'\'')
        return {Valore::Tipo::Testo, LeggiStringa(C)};
    if (C == u'#')
        return {Valore::Tipo::Data, DataAmericana()};
    if (C.isDigit() || C == u'-' || C == u'.')
        return {Valore::Tipo::Numero, LeggiNumero()};
    if (Prendi(u"NULL"))
        return {Valore::Tipo::Nullo, {}};
    if (Prendi(u"TRUE"))
        return {Valore::Tipo::Logico, true};
    if (Prendi(u"FALSE"))
        return {Valore::Tipo::Logico, false};
    if (Prendi(u"DATEVALUE"))
        return {Valore::Tipo::Data, DataItaliana()};
    Rifiuta();
}

QString LettoreCriterio::LeggiStringa(QChar Chiude)
{
    QString Letta;
    for (++Posto; Posto < Testo.size(); ++Posto) {
        if (Testo[Posto] != Chiude) {
            Letta += Testo[Posto];
        } else if (Posto + 1 < Testo.size() && Testo[Posto + 1] == Chiude) {
            Letta += Testo[Posto++];
        } else {
            ++Posto;
            return Letta;
        }
    }
    Rifiuta();
}

double LettoreCriterio::LeggiNumero()
{
    qsizetype Fine = Posto + (Testo[Posto] == u'-');
    while (Fine < Testo.size() && (InNome(Testo[Fine]) || Testo[Fine] == u'.'))
        ++Fine;
    bool Riuscito = false;
    const double Numero = Testo.sliced(Posto, Fine - Posto).toDouble(&Riuscito);
    if (!Riuscito || !std::isfinite(Numero))
        Rifiuta();
    Posto = Fine;
    return Numero;
}

QDate LettoreCriterio::DataAmericana()
{
    const qsizetype Fine = Testo.indexOf(u'#', Posto + 1);
    if (Fine < 0)
        Rifiuta();
    const QDate Letta =
        QDate::fromString(Testo.sliced(Posto + 1, Fine - Posto - 1).trimmed().toString(), u"M/d/yyyy"_s);
    if (!Letta.isValid())
        Rifiuta();
    Posto = Fine + 1;
    return Letta;
}

QDate LettoreCriterio::DataItaliana()
{
    if (!PrendiSegno(u'('))
        Rifiuta();
    Spazi();
    const QChar Apre = Posto < Testo.size() ? Testo[Posto] : QChar();
    const std::optional<QDate> Letta =
        Apre == u'"' || Apre == u'\'' ? LeggiData(LeggiStringa(Apre)) : std::nullopt;
    if (!Letta || !PrendiSegno(u')'))
        Rifiuta();
    return *Letta;
}

QString LettoreCriterio::Lega(const QVariant& Contenuto)
{
    Valori.append(Contenuto);
    return u"?"_s;
}

QString LettoreCriterio::Somiglia(const QString& Colonna, bool Negato)
{
    const Valore Modello = LeggiValore();
    if (Modello.Che == Valore::Tipo::Testo)
        UltimoDiTesto = {Colonna, Negato ? SegnoTesto::Dissimile : SegnoTesto::Simile,
                         Modello.Contenuto.toString()};
    return u"corrisponde(%1, %2)"_s.arg(Lega(Modello.Contenuto), Colonna);
}

QString LettoreCriterio::ConValore(const QString& Colonna, const QString& Segno, const Valore& Con)
{
    switch (Con.Che) {
    case Valore::Tipo::Testo:
        UltimoDiTesto = {Colonna, SegniDiTesto.at(size_t(std::ranges::find(Segni, Segno) - Segni.begin())),
                         Con.Contenuto.toString()};
        return u"%1 %2 %3 COLLATE %4"_s.arg(Colonna, Segno, Lega(Con.Contenuto),
                                            QLatin1StringView(Collazione));
    case Valore::Tipo::Numero:
        return ConNumero(Colonna, Segno, Con.Contenuto);
    case Valore::Tipo::Data:
        return u"%1 %2 %3"_s.arg(Colonna, Segno, Lega(Con.Contenuto));
    case Valore::Tipo::Logico:
        return ConLogico(Colonna, Segno, Con.Contenuto.toBool());
    case Valore::Tipo::Nullo:
        break;
    }
    return ConNullo(Colonna, Segno);
}

QString LettoreCriterio::ConNumero(const QString& Colonna, const QString& Segno, const QVariant& Numero)
{
    const QString Confronto = u"%1 %2 CAST(%3 AS NUMERIC)"_s.arg(Colonna, Segno, Lega(Numero));
    return Segno.startsWith(u'>') ? u"%1 AND %2 < CAST(9e999 AS REAL)"_s.arg(Confronto, Colonna) : Confronto;
}

QString LettoreCriterio::ConLogico(const QString& Colonna, const QString& Segno, bool Vero)
{
    if (Segno != "="_L1 && Segno != "<>"_L1)
        return ConNumero(Colonna, Segno, Vero ? -1 : 0);
    return Colonna + ((Segno == "="_L1) == Vero ? u"<>0"_s : u"=0"_s);
}

QString LettoreCriterio::ConNullo(const QString& Colonna, const QString& Segno)
{
    if (Segno == "="_L1)
        return Colonna + u" IS NULL"_s;
    if (Segno == "<>"_L1)
        return Colonna + u" IS NOT NULL"_s;
    return u"0"_s;
}

}  // namespace

Condizione LeggiCriterio(const QString& Criterio,
                         const std::function<QString(const QString& Nome)>& IdentificaColonna)
{
    if (Criterio.size() > LunghezzaMassima)
        throw Errore(errori::SintassiCriterio);
    return LettoreCriterio(Criterio, IdentificaColonna).Tutto();
}

QString Identificatore(const QString& Nome)
{
    QString Doppi = Nome;
    return u'"' + Doppi.replace(u'"', u"\"\""_s) + u'"';
}
