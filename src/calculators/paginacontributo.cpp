#include "calculators/paginacontributo.h"

#include "calculators/modContributo.h"

#include <array>

namespace {

constexpr std::array Ordinario{
    VocePagina{u"", u"", u"", 0},
};

constexpr std::array Ridotto{
    VocePagina{u"1)",
               u"Procedimenti: di ingiunzione e opposiz.; sommari di cognizione (art. 702-bis cpc);"
               " cautelari: sequestro, denuncia nuova opera, danno temuto, istruzione preventiva,"
               " d'urgenza, possessori; opposiz. a sentenza dichiarativa fallimento, controversie"
               " individuali di lavoro e di pubblico impiego, gradi di merito (salvo esenzione art. 9,"
               " c. 1-bis; vedi: Proced. esenti)",
               u"", 1},
    VocePagina{u"2)",
               u"Procedimenti di sfratto per morosità (valore pari ai canoni insoluti alla data"
               " citazione)",
               u"", 2},
    VocePagina{u"3)", u"Procedimenti di finita locazione (valore pari al canone annuo)", u"", 3},
};

constexpr std::array Fisso{
    VocePagina{u"1)", u"Cause valore indeterminabile (art. 13, comma 1, lett. d) ", u"518,00"},
    VocePagina{u"2)",
               u"Cause di valore indeterminabile di competenza esclusiva del giudice di pace (art. 13,"
               " comma 1, lett. c)",
               u"237,00"},
    VocePagina{u"3)",
               u"Procedure fallimentari (dalla dichiarazione alla chiusura del fallimento, art. 13, comma"
               " 5)",
               u"851,00"},
    VocePagina{
        u"4)",
        u"Divorzi congiunti e separazioni consensuali (art. 13, comma 1, lett. a)",
        u"43,00",
    },
    VocePagina{
        u"5)",
        u"Divorzi contenziosi e separazioni giudiziali (art. 13, comma 1, lett. b)",
        u"98,00",
    },
    VocePagina{u"6)",
               u"Cause di previdenza e assistenza obbligatorie (art. 9, comma 1 bis, salvo esenzione:"
               " vedi: Procedimenti esenti)",
               u"43,00"},
    VocePagina{u"7)",
               u"Procedimenti in camera consiglio (artt. 737-742 bis c.p.c; art. 13, comma 1, lett. b) ",
               u"98,00"},
    VocePagina{
        u"8)",
        u"Procedimenti di volontaria giurisdizione (art. 13, comma 1, lett. b)",
        u"98,00",
    },
    VocePagina{u"9)", u"Esecuzioni immobiliari (art. 13, comma 2)", u"278,00"},
    VocePagina{
        u"10)",
        u"Processi esecutivi mobiliari di valore inferiore a euro 2.500",
        u"43,00",
    },
    VocePagina{u"11)",
               u"Altre esecuzioni  (art. 13, comma 2) compresi i procedimenti esecutivi per consegna e"
               " rilascio",
               u"139,00"},
    VocePagina{u"12)", u"Opposizioni agli atti esecutivi (art. 13, comma 2)", u"168,00"},
};

constexpr std::array Tributari{
    VocePagina{u"", u"", u"", CampoTributario},
    VocePagina{
        u"1)",
        u"Ricorsi tributari di valore indeterminabile (art. 13, comma 6-quater)",
        u"120,00",
    },
};

constexpr std::array Amministrativi{
    VocePagina{u"1)",
               u"Ricorsi di valore indeterminabile o non previsti dalle lettere a,b,c,d, comma 6 bis,"
               " dell'art. 13, e ricorsi straordinari al\nCapo dello Stato ",
               u"650,00"},
    VocePagina{u"2)",
               u"Ricorsi previsti dagli articoli 116 e 117 del D.Lgs. 2 luglio 2010, n. 104; ricorsi per"
               " i diritti di cittadinanza, di residenza, \ndi soggiorno e di ingresso nel territorio"
               " dello Stato; ricorsi di esecuz. nella sentenza o di ottemperanza del giudicato ",
               u"300,00"},
    VocePagina{u"3)",
               u"Ricorsi previsti dall'articolo 25 della legge n. 241 del 1990 avverso il diniego di"
               " accesso alle informazioni di cui al D.Lgs. 19 agosto 2005, n. 195, di attuazione della"
               " direttiva 2003/4/CE sull'accesso del pubblico all'informazione ambientale",
               u"esente"},
    VocePagina{u"4)",
               u"Ricorsi in materia di rapporti di pubblico impiego, in base al valore, ma ridotto alla"
               " metà, salvo esenzione, v. Proc.esenti ",
               u"50%"},
    VocePagina{u"5)",
               u"Ricorsi cui si applica il rito abbreviato comune a determinate materie previsto dal"
               " Libro IV, Titolo V, del decreto legislativo 2 luglio 2010, n. 104, nonché da altre"
               " disposizioni che richiamino il citato rito",
               u"1.800,00"},
    VocePagina{u"6)",
               u"Ricorsi di cui all'articolo 119, comma 1, lettere a) e b), del decreto legislativo 2"
               " luglio 2010, n. 104",
               u"2.000,00"},
    VocePagina{u"", u"- Valore fino a € 200.000", u"2.000,00"},
    VocePagina{u"", u"- Valore compreso tra € 200.00 e € 1.000.000", u"4.000,00"},
    VocePagina{u"", u"- Valore superiore a € 1.000.000 (o valore non dichiarato)", u"6.000,00"},
    VocePagina{u"", u"(Il valore è pari alla base d'asta o alla somma delle sanzioni; art. 14, co. 3-ter)",
               u""},
};

constexpr std::array Esenti{
    VocePagina{u"",
               u"Sono esenti i processi: già esenti da bollo in base alle leggi previgenti; di"
               " rettificazione dello stato civile; in materia tavolare; di equa riparazione per la"
               " durata irragionevole della giustizia; in materie riguardanti la prole, anche esecutivi"
               " e cautelari; i procedimenti di interdizione, inabilitazione e per l'amministrazione di"
               " sostegno, di dichiarazione di assenza e di morte presunta; quelli relativi ai minori,"
               " interdetti e inabilitati  e ai rapporti patrimoniali tra coniugi.",
               u""},
    VocePagina{u"",
               u"Nei gradi di merito, le controversie individuali di lavoro e di pubblico impiego e le"
               " cause un materia di assistenza e previdenza obbligatoria  sono esenti da contributo, se"
               " la parte ha un reddito IRPEF inferiore al triplo di quello previsto dall'art. 76"
               " (attualmente, a gennaio 2013: € 32.298,99), altrimenti, per, le prime, il contributo è"
               " dovuto in ragione del valore, ma ridotto alla metà, e, per le seconde, in misura fissa"
               " di € 43,00. (art. 9, comma 1-bis). Il contributo è dovuto per intero per il grado di"
               " Cassazione",
               u""},
    VocePagina{u"",
               u"La ragione dell'esenzione deve risultare da apposita dichiarazione resa dalla parte"
               " nelle conclusioni dell'atto introduttivo (art. 10, comma 6).",
               u""},
};

constexpr std::array AzioneCivile{
    VocePagina{u"",
               u"L'esercizio dell'azione civile nel processo penale non è soggetta a contributo, se è"
               " chiesta solo la condanna generica del responsabile. Se è chiesta la condanna al"
               " pagamento di una somma  a titolo di risarcimento del danno, anche in via provvisionale,"
               " il contributo è dovuto, in caso di accoglimento della domanda, in base al valore"
               " dell'importo liquidato (art. 12).  ",
               u""},
};

constexpr std::array Sezioni{
    SezionePagina{u" Contributo ordinario", u"(art. 13, comma 1)", Ordinario},
    SezionePagina{u" Procedimenti con contributo ridotto alla metà",
                  u"(art. 13, comma 3 - procedimenti speciali, libro iV, titolo I, c.p.c.)", Ridotto},
    SezionePagina{u" Procedimenti con contributo fisso", u"", Fisso},
    SezionePagina{u" Ricorsi tributari", u"(art. 13, comma 6-quater)", Tributari},
    SezionePagina{u" Ricorsi amministrativi ", u"(art.13, comma 6 bis)", Amministrativi},
    SezionePagina{u" Procedimenti esenti", u"(art. 10)", Esenti},
    SezionePagina{u" Azione civile nel processo penale", u"", AzioneCivile},
};

}  // namespace

std::span<const SezionePagina> PaginaContributo()
{
    return Sezioni;
}
