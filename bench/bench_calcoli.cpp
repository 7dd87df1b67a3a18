// The calculators: terms, interest over a life, a key in the municipality field.
#include "misura.h"

#include "calculators/modComuni.h"
#include "calculators/modInteressi.h"
#include "calculators/modTermini.h"

using namespace Qt::StringLiterals;

namespace {

const auto Programma = QStringLiteral(CARTELLA_PROGRAMMA "/");

/// Terms as an office counts them: 10 to 60 days or up to 6 months, all rules on, both ways.
double UnMilioneDiTermini()
{
    constexpr int Termini = 1'000'000;
    const QDate Inizio(2006, 1, 1);
    return MedianaMs(3, [&Inizio] {
        qint64 Somma = 0;
        for (int i = 0; i < Termini; ++i) {
            ContoTermine Conto;
            Conto.Opzioni = {true, i % 5 == 0, i % 2 == 0, i % 7 == 0};
            Conto.DataCorrente = Inizio.addDays(i % 7300);
            const bool Mesi = i % 4 == 0;
            ContaTermine(Conto, Mesi ? 1 + i % 6 : 10 + i % 51, Mesi ? TipoMesi : TipoGiorni);
            Somma += Conto.DataCorrente.toJulianDay();
        }
        Consuma(double(Somma));
    });
}
const RegistraMisura RegistrataTermini(u"a million terms"_s, 1000.0, UnMilioneDiTermini);

double OttantAnniDiInteressi()
{
    const DatiInteressi Dati{InteressiLegali, u"1000"_s,       ValutaEuro, {},
                             u"01/01/1957"_s, u"31/12/2036"_s, false};
    return MedianaMs(15, [&Dati] {
        QString UltimoAumento;
        Consuma(CalcolaInteressi(Programma + u"Tassi.dat"_s, Dati, UltimoAumento).TotaleInteressi);
    });
}
const RegistraMisura RegistrataInteressi(u"interest over 80 years"_s, 5.0, OttantAnniDiInteressi);

/// The completion and the list beside it, for the key that makes "San Giovanni" longer.
double TastoNelComune()
{
    ArchivioComuni Comuni(Programma + u"Comuni.mdb"_s);
    Consuma(double(Comuni.Proponi(u"a"_s, 1).size()));
    return MedianaMs(51, [&Comuni] {
        CampoComune Campo;
        Campo.Testo = u"San Giovanni"_s;
        CercaComune(Comuni, Campo);
        Consuma(double(Comuni.Proponi(u"San Giovanni"_s, 20).size()));
    });
}
const RegistraMisura RegistrataTasto(u"a key in the municipality field"_s, 5.0, TastoNelComune);

double ApriComuni()
{
    return MedianaMs(15, [] {
        ArchivioComuni Comuni(Programma + u"Comuni.mdb"_s);
        Consuma(double(Comuni.Proponi(u"San"_s, 20).size()));
    });
}
const RegistraMisura RegistrataApri(u"open the municipalities with their list"_s, 50.0, ApriComuni);

}  // namespace
