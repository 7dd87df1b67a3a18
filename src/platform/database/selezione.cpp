#include "platform/database/selezione.h"

#include <algorithm>
#include <array>

namespace {

enum class Tipo { Nome, NomeTraSegni, Stringa, Numero, Segno, Fine, Ignoto };

struct Pezzo
{
    Tipo Che = Tipo::Fine;
    QString Testo;  ///< a name without its quotes, a sign as it stands
    qsizetype Inizio = 0;

    [[nodiscard]] bool Parola(QStringView P) const
    {
        return Che == Tipo::Nome && P.compare(Testo, Qt::CaseInsensitive) == 0;
    }
    [[nodiscard]] bool Segno(QChar C) const { return Che == Tipo::Segno && Testo == C; }
    [[nodiscard]] bool ENome() const { return Che == Tipo::Nome || Che == Tipo::NomeTraSegni; }
};

/// Words behind the table that make the rows something else than the table's.
constexpr std::array<QStringView, 9> Estranee{u"UNION", u"INTERSECT", u"EXCEPT", u"GROUP", u"HAVING",
                                              u"JOIN",  u"LIMIT",     u"SELECT", u"WINDOW"};

bool InNome(QChar C)
{
    return C.isLetterOrNumber() || C == u'_' || C == u'$' || C.unicode() >= 0x80;
}

class LettoreSql
{
public:
    explicit LettoreSql(const QString& Testo) : Sql(Testo) {}

    Pezzo Prossimo()
    {
        while (Posto < Sql.size() && Sql[Posto].isSpace())
            ++Posto;
        if (Posto >= Sql.size())
            return {Tipo::Fine, {}, Posto};
        const QChar C = Sql[Posto];
        if (C.isDigit())
            return Corsa(Tipo::Numero);
        if (InNome(C))
            return Corsa(Tipo::Nome);
        if (C == u'\'')
            return TraSegni(Tipo::Stringa, C);
        if (C == u'"' || C == u'`' || C == u'[')
            return TraSegni(Tipo::NomeTraSegni, C == u'[' ? QChar(u']') : C);
        const QStringView Vista = QStringView(Sql).sliced(Posto);
        const bool Commento = Vista.startsWith(u"--") || Vista.startsWith(u"/*");
        return {Commento ? Tipo::Ignoto : Tipo::Segno, Sql.mid(Posto, 1), Posto++};
    }

    [[nodiscard]] qsizetype Dove() const { return Posto; }

private:
    Pezzo Corsa(Tipo Che)
    {
        const qsizetype Inizio = Posto;
        while (Posto < Sql.size() && InNome(Sql[Posto]))
            ++Posto;
        return {Che, Sql.mid(Inizio, Posto - Inizio), Inizio};
    }

    Pezzo TraSegni(Tipo Che, QChar Chiude)
    {
        const qsizetype Inizio = Posto++;
        QString Testo;
        while (Posto < Sql.size()) {
            const QChar C = Sql[Posto++];
            if (C != Chiude) {
                Testo += C;
            } else if (Chiude != u']' && Posto < Sql.size() && Sql[Posto] == Chiude) {
                Testo += C;
                ++Posto;
            } else {
                return {Che, Testo, Inizio};
            }
        }
        return {Tipo::Ignoto, {}, Inizio};
    }

    const QString& Sql;
    qsizetype Posto = 0;
};

/// Reads "*" or names between commas up to FROM; false for anything else.
bool LeggiColonne(LettoreSql& Da, QStringList& Colonne)
{
    Pezzo P = Da.Prossimo();
    if (P.Segno(u'*'))
        return Da.Prossimo().Parola(u"FROM");
    while (P.ENome()) {
        Colonne << P.Testo;
        P = Da.Prossimo();
        if (P.Parola(u"FROM"))
            return true;
        if (!P.Segno(u','))
            return false;
        P = Da.Prossimo();
    }
    return false;
}

/// Looks through what stands behind the table and sets where it ends; false when the rows are not the
/// table's.
bool LeggiResto(LettoreSql& Da, qsizetype& Fine, bool& Ordinata)
{
    Pezzo P = Da.Prossimo();
    if (!P.Parola(u"WHERE") && !P.Parola(u"ORDER") && !P.Segno(u';') && P.Che != Tipo::Fine)
        return false;
    for (; P.Che != Tipo::Fine; P = Da.Prossimo()) {
        if (P.Segno(u';'))
            break;
        Ordinata = Ordinata || P.Parola(u"ORDER");
        // "ORDER BY 2" means a column of the list, which the list of keys does not have.
        if (P.Che == Tipo::Ignoto || (Ordinata && P.Che == Tipo::Numero))
            return false;
        if (std::ranges::any_of(Estranee, [&](QStringView E) { return P.Parola(E); }))
            return false;
    }
    Fine = P.Inizio;
    return P.Che == Tipo::Fine || Da.Prossimo().Che == Tipo::Fine;
}

}  // namespace

std::optional<SelezioneSemplice> LeggiSelezione(const QString& Sql)
{
    LettoreSql Da(Sql);
    SelezioneSemplice Letta;
    if (!Da.Prossimo().Parola(u"SELECT") || !LeggiColonne(Da, Letta.Colonne))
        return std::nullopt;
    const Pezzo Tabella = Da.Prossimo();
    if (!Tabella.ENome())
        return std::nullopt;
    Letta.Tabella = Tabella.Testo;
    const qsizetype Inizio = Da.Dove();
    qsizetype Fine = 0;
    if (!LeggiResto(Da, Fine, Letta.Ordinata))
        return std::nullopt;
    Letta.Resto = Sql.mid(Inizio, Fine - Inizio);
    return Letta;
}

std::optional<OrdinePiano> LeggiOrdinePiano(const QString& Resto)
{
    LettoreSql Da(Resto);
    if (!Da.Prossimo().Parola(u"ORDER") || !Da.Prossimo().Parola(u"BY"))
        return std::nullopt;
    const Pezzo Colonna = Da.Prossimo();
    if (!Colonna.ENome() || !Da.Prossimo().Parola(u"COLLATE") || !Da.Prossimo().Parola(u"SenzaAccenti"))
        return std::nullopt;
    Pezzo Verso = Da.Prossimo();
    const bool Discendente = Verso.Parola(u"DESC");
    if (Discendente || Verso.Parola(u"ASC"))
        Verso = Da.Prossimo();
    return Verso.Che == Tipo::Fine ? std::optional(OrdinePiano{Colonna.Testo, Discendente}) : std::nullopt;
}

bool ESelezione(const QString& Sql)
{
    LettoreSql Da(Sql);
    return Da.Prossimo().Parola(u"SELECT") && Da.Prossimo().Che != Tipo::Fine;
}
