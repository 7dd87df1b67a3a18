#include "calculators/modSchedaStrada.h"

#include "platform/base/regionale.h"

using namespace Qt::StringLiterals;

namespace {

TabellaScheda TabellaPassi(const Strada& Passi)
{
    // Together as wide as the page between the margins.
    TabellaScheda Tabella{{{u"Date"_s, u"3.9cm"_s},
                           {u"Giorni"_s, u"1.5cm"_s, Allineamento::Destra},
                           {u"Che cosa"_s, u"5.9cm"_s},
                           {u"Norma"_s, u"6.1cm"_s}},
                          {},
                          false};
    for (const PassoStrada& Passo : Passi)
        Tabella.Righe << QStringList{DatePasso(Passo), Passo.Giorni > 0 ? CStr(Passo.Giorni) : QString(),
                                     DescrizionePasso(Passo), NormaPasso(Passo)};
    return Tabella;
}

}  // namespace

SchedaCalcolo SchedaStrada(const QStringList& Dati, const QList<ParteStrada>& Parti,
                           const QStringList& EtaDati)
{
    SchedaCalcolo Scheda;
    Scheda.Titolo = u"CALCOLO TERMINI"_s;
    Scheda.Dati = Dati;
    Scheda.EtaDati = EtaDati;
    for (const ParteStrada& Parte : Parti)
        Scheda.Sezioni << SezioneScheda{Parte.Titolo, Parte.Risultato, TabellaPassi(Parte.Passi), Parte.Note};
    return Scheda;
}

QString TestoParti(const QList<ParteStrada>& Parti)
{
    QStringList Righe;
    for (const ParteStrada& Una : Parti) {
        if (!Righe.isEmpty())
            Righe << QString();
        if (!Una.Titolo.isEmpty())
            Righe << Una.Titolo;
        Righe << Una.Risultato << TestoStrada(Una.Passi);
        Righe += Una.Note;
    }
    return Righe.join(u'\n');
}
