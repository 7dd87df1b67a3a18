#include "calculators/modSchede.h"

#include "calculators/paginacontributo.h"
#include "platform/base/regionale.h"

#include <array>

using namespace Qt::StringLiterals;

namespace {

/// A caption of the results and what it shows.
struct ElementoIstat
{
    QStringView Nome;
    QString RisultatiIstat::*Testo;
};

// In the order in which one reads the calculation.
constexpr std::array Elementi{
    ElementoIstat{u"Importo da rivalutare, euro", &RisultatiIstat::lblImporto},
    ElementoIstat{u"Indice finale", &RisultatiIstat::lblIndFin},
    ElementoIstat{u"Coefficiente di raccordo", &RisultatiIstat::lblCoeffRacc},
    ElementoIstat{u"Indice iniziale", &RisultatiIstat::lblIndIni},
    ElementoIstat{u"Coefficiente di rivalutazione", &RisultatiIstat::lblCoeffRiv},
    ElementoIstat{u"Importo rivalutato, euro", &RisultatiIstat::lblImpRival},
    ElementoIstat{u"Rivalutazione, euro", &RisultatiIstat::lblRivalutaz},
    ElementoIstat{u"Variazione percentuale", &RisultatiIstat::lblVarPerc},
};

QString VoceInteressi(int Tipo)
{
    return VociInteressi[Tipo == InteressiMora ? 1 : 0].toString();
}

QString ConValuta(const QString& Importo, bool Lire)
{
    return Importo.trimmed() + (Lire ? u" lire"_s : u" euro"_s);
}

/// The section of the page that a field stands in, and its number there.
QString NomeCampo(int Campo)
{
    for (const SezionePagina& Sezione : PaginaContributo())
        for (const VocePagina& Voce : Sezione.Voci)
            if (Voce.Campo == Campo) {
                const QString Norma = Sezione.Norma.isEmpty() ? QString() : u' ' + Sezione.Norma.toString();
                const QString Testo = Voce.Testo.isEmpty() ? QString() : u": "_s + Voce.Testo.toString();
                return (Sezione.Titolo.toString().trimmed() + Norma + Testo).simplified();
            }
    return {};
}

}  // namespace

QString ImportoScritto(const QString& Testo)
{
    return IsNumeric(Testo) ? Format(CDbl(Testo), u"#,##0.00#############") : Testo;
}

SchedaCalcolo SchedaInteressi(const DatiInteressi& Dati, const TabellaRighe& Righe, const QString& Totale,
                              const QStringList& Note, const QStringList& EtaDati)
{
    const bool Mora = Dati.Tipo == InteressiMora;
    SchedaCalcolo Scheda;
    Scheda.Titolo = u"CALCOLO INTERESSI"_s;
    Scheda.Dati = {u"Tipo interessi: "_s + VoceInteressi(Dati.Tipo),
                   u"Capitale: "_s + ConValuta(Dati.Capitale, Dati.Valuta == ValutaLire),
                   u"Dalla data: "_s + Dati.DataIni, u"Alla data: "_s + Dati.DataFin};
    if (!Dati.Aumento.trimmed().isEmpty())
        Scheda.Dati << u"Aumento: "_s + Dati.Aumento.trimmed() + u'%';
    if (Mora)
        Scheda.Dati << u"Transazione conclusa: "_s +
                           (Dati.Dopo2012 ? u"dopo il 31/12/2012"_s : u"entro il 31/12/2012"_s);
    Scheda.Norme = {Mora ? u"Artt. 4 e 5 D.Lgs. 231/2002"_s : u"Art. 1284 c.c."_s,
                    u"Interessi semplici, anno di 365 giorni; il primo e l'ultimo giorno sono contati."_s};
    Scheda.EtaDati = EtaDati;
    if (Righe.Vuota())
        return Scheda;
    SezioneScheda Lungo;
    Lungo.Risultato = u"Interessi: "_s + Totale + u" euro"_s;
    constexpr Allineamento Destra = Allineamento::Destra;
    Lungo.Tabella.Colonne = {{u"Dal giorno"_s, u"3.2cm"_s},
                             {u"Al giorno"_s, u"3.2cm"_s},
                             {u"Tasso"_s, u"2.6cm"_s, Destra},
                             {u"N° Giorni"_s, u"3.8cm"_s, Destra},
                             {u"Interessi"_s, u"4.6cm"_s, Destra}};
    const int Decimali = DecimaliTassi(Righe);
    for (int Riga = 0; Riga < Righe.Righe(); ++Riga)
        Lungo.Tabella.Righe << CelleInteressi(Righe, Riga, Decimali);
    Lungo.Tabella.Righe << QStringList{{}, {}, {}, u"Totale in euro"_s, Totale};
    Lungo.Tabella.ConTotale = true;
    Lungo.Note = Note;
    Scheda.Sezioni << Lungo;
    return Scheda;
}

SchedaCalcolo SchedaIstat(const DatiIstat& Dati, const RisultatiIstat& Risultati, const QStringList& Note,
                          const QStringList& EtaDati)
{
    SchedaCalcolo Scheda;
    Scheda.Titolo = u"RIVALUTAZIONE ISTAT"_s;
    Scheda.Dati = {u"Importo da rivalutare: "_s + ConValuta(Dati.Importo, Dati.Valuta == 1),
                   u"Dalla data: "_s + Dati.DataIni, u"Alla data: "_s + Dati.DataFin};
    Scheda.Norme = {
        u"Indici Istat dei prezzi al consumo per le famiglie di operai e impiegati (F.O.I.)"_s,
        u"Coefficiente di rivalutazione = indice finale x coefficiente di raccordo / indice iniziale"_s};
    Scheda.EtaDati = EtaDati;
    if (Risultati.lblVarPerc.isEmpty())
        return Scheda;
    SezioneScheda Conto;
    Conto.Risultato = u"Importo rivalutato: "_s + Risultati.lblImpRival.trimmed() + u" euro"_s;
    Conto.Tabella.Colonne = {{u"Elementi di calcolo"_s, u"8cm"_s},
                             {u"Valore"_s, u"6cm"_s, Allineamento::Destra}};
    for (const ElementoIstat& Elemento : Elementi)
        Conto.Tabella.Righe << QStringList{Elemento.Nome.toString(),
                                           (Risultati.*Elemento.Testo).simplified()};
    Conto.Note = Note;
    Scheda.Sezioni << Conto;
    return Scheda;
}

SchedaCalcolo SchedaCodFis(const PersonaCodFis& Persona, const QString& Avvertenza,
                           const QStringList& EtaDati)
{
    SchedaCalcolo Scheda;
    Scheda.Titolo = u"CODICE FISCALE"_s;
    Scheda.Dati = {u"Cognome: "_s + Persona.Cognome, u"Nome: "_s + Persona.Nome,
                   u"Data di nascita: "_s + Persona.Nascita, u"Sesso: "_s + Persona.Sesso,
                   u"Comune di nascita: "_s + Persona.Comune};
    Scheda.Norme = {u"D.M. 12 marzo 1974"_s};
    Scheda.EtaDati = EtaDati;
    if (!Persona.Codice.isEmpty())
        Scheda.Sezioni << SezioneScheda{{}, u"Codice fiscale: "_s + Persona.Codice, {}, {Avvertenza}};
    return Scheda;
}

QStringList RigheLettura(const LetturaCodFis& Lettura, const QString& Comune)
{
    if (!Lettura.Letto())
        return {};
    return {u"Data di nascita: "_s + FraseNascita(Lettura), u"Sesso: "_s + FraseSesso(Lettura),
            u"Comune di nascita: "_s +
                (Comune.isEmpty() ? u"il codice %1 non è in elenco"_s.arg(Lettura.CodiceComune) : Comune)};
}

SchedaCalcolo SchedaLettura(const LetturaCodFis& Lettura, const QString& Comune, const QStringList& EtaDati)
{
    SchedaCalcolo Scheda;
    Scheda.Titolo = u"LETTURA DEL CODICE FISCALE"_s;
    Scheda.Dati = {u"Codice fiscale: "_s + Lettura.Codice};
    Scheda.Norme = {u"D.M. 12 marzo 1974"_s};
    Scheda.EtaDati = EtaDati;
    if (!Lettura.Letto())
        return Scheda;
    SezioneScheda Letto;
    Letto.Risultato = u"Che cosa dice il codice"_s;
    Letto.Tabella.Colonne = {{u"Voce"_s, u"5cm"_s}, {u"Lettura"_s, u"10cm"_s}};
    for (const QString& Riga : RigheLettura(Lettura, Comune))
        Letto.Tabella.Righe << QStringList{Riga.section(u": "_s, 0, 0), Riga.section(u": "_s, 1)};
    Letto.Tabella.Righe << QStringList{
        u"Ultima lettera"_s, Lettura.Torna ? u"esatta"_s : u"errata: dovrebbe essere "_s + Lettura.Controllo};
    Letto.Note = NoteLettura(Lettura);
    Scheda.Sezioni << Letto;
    return Scheda;
}

QString TitoloCampo(int Campo)
{
    for (const SezionePagina& Sezione : PaginaContributo())
        for (const VocePagina& Voce : Sezione.Voci)
            if (Voce.Campo == Campo)
                return (Sezione.Titolo.toString().trimmed() + u' ' + Voce.Numero.toString()).trimmed();
    return {};
}

SchedaCalcolo SchedaContributo(const TestiContributo& Valori, const TestiContributo& Contributi)
{
    SchedaCalcolo Scheda;
    Scheda.Titolo = u"CONTRIBUTO UNIFICATO"_s;
    SezioneScheda Pagina;
    Pagina.Tabella.Colonne = {{u"Procedimento"_s, u"10.4cm"_s},
                              {u"Valore"_s, u"3.5cm"_s, Allineamento::Destra},
                              {u"Contributo"_s, u"3.5cm"_s, Allineamento::Destra}};
    for (int Campo = 0; Campo < CampiContributo; ++Campo)
        if (!Contributi[size_t(Campo)].isEmpty())
            Pagina.Tabella.Righe << QStringList{NomeCampo(Campo), Valori[size_t(Campo)],
                                                Contributi[size_t(Campo)]};
    // The amounts of this table and of no other: those in force stand on the same sheet.
    Pagina.Note = {
        u"Tabella: D.p.r. n. 115 del 30 maggio 2002, importi aggiornati al D.L. n. 90 del 24/6/2014, in "
        "vigore dal 24 giugno 2014."_s};
    if (!Pagina.Tabella.Righe.isEmpty())
        Scheda.Sezioni << Pagina;
    return Scheda;
}
