// The norms in force: a file is the delivered one, or is refused with one sentence that names it.
#include "basedati.h"
#include "fonte.h"

#include "calculators/norme/contributovigente.h"
#include "calculators/norme/terminiricorrenti.h"
#include "platform/base/errore.h"

using namespace Qt::StringLiterals;

namespace {

const QByteArray& Sana()
{
    static const QByteArray Letta = Contenuto(CartellaCostruita() + u"Norme.mdb"_s);
    return Letta;
}

/// What a set of norms makes of some questions, errors included.
QStringList Risposte(const Norme& Insieme)
{
    QStringList Tutte;
    const auto Chiedi = [&](const auto& Cosa) {
        try {
            Tutte << Cosa();
        } catch (const Errore& Guasto) {
            Tutte << Guasto.Descrizione;
        }
    };
    const QDate Evento(2026, 6, 15);
    for (const TermineRicorrente& Termine : Insieme.Termini())
        Chiedi([&] { return TestoStrada(ComputaRicorrente(Insieme, Termine, Evento).Passi); });
    for (const CatenaTermini& Catena : Insieme.Catene())
        for (const QDate& Quando : {Evento, QDate(2022, 6, 15)})
            Chiedi([&] {
                QStringList Strade;
                for (const ScadenzaCatena& Una : ComputaCatena(Insieme, Catena, Quando))
                    Strade << TestoStrada(Una.Esito.Passi);
                return Strade.join(u'|');
            });
    for (const ProcedimentoContributo& Uno : ProcedimentiContributo(Insieme))
        for (const GradoGiudizio Grado :
             {GradoGiudizio::Primo, GradoGiudizio::Impugnazione, GradoGiudizio::Cassazione})
            Chiedi([&] {
                RichiestaContributo Chiesto;
                Chiesto.Procedimento = Uno.Codice;
                Chiesto.Deposito = Evento;
                Chiesto.ValoreEuro = 6000.0;
                Chiesto.Grado = Grado;
                return QString::number(ContributoVigente(Insieme, Chiesto).TotaleEuro());
            });
    return Tutte;
}

void Prova(const QByteArray& Dati)
{
    PreparaSessione();
    static const QStringList Giuste = [] { return Risposte(Norme(Posa(u"sane.mdb"_s, Sana()))); }();
    const QString File = PosaDatabase(u"Norme.mdb"_s, Sana(), Dati);
    try {
        // The seal lets nothing pass but what was delivered.
        Pretendi(Risposte(Norme(File)) == Giuste);
    } catch (const Errore& Guasto) {
        Pretendi(Guasto.Descrizione.startsWith(u"Norme.mdb: ") && !Guasto.Descrizione.contains(u'\n'));
    }
}

}  // namespace

BERSAGLIO(fuzz_norme, Prova);
