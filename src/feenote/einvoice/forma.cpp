#include "feenote/einvoice/forma.h"

#include "feenote/einvoice/schema.h"

#include <QHash>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr QStringView SpazioIstanza = u"http://www.w3.org/2001/XMLSchema-instance";

/// The tables by name, for files of many elements.
struct Indice
{
    QHash<QStringView, const TipoComplesso*> Gruppi;
    QHash<QStringView, const TipoValore*> Valori;

    Indice()
    {
        for (const TipoComplesso& Tipo : TipiComplessi())
            Gruppi.insert(Tipo.Nome, &Tipo);
        for (const TipoValore& Tipo : TipiValore())
            Valori.insert(Tipo.Nome, &Tipo);
    }
};

class Esaminatore
{
public:
    explicit Esaminatore(const AlberoXml& DaVedere) : Albero(DaVedere), Tipi(size_t(DaVedere.Quanti())) {}

    QList<EsitoControllo> Esamina()
    {
        if (Albero[0].Nome != u"FatturaElettronica" || Albero[0].Spazio != SpazioFattura) {
            Segnala(0, u"Il file non è una fattura elettronica ordinaria."_s);
            return Esiti;
        }
        Tipi[0] = TipoRadice;
        // An element stands behind the one that it is in, which has given it its kind.
        for (int Nodo = 0; Nodo < Albero.Quanti() && !Troppi; ++Nodo)
            if (!Tipi[size_t(Nodo)].isEmpty() && Tipi[size_t(Nodo)] != TipoFirma)
                EsaminaNodo(Nodo, Tipi[size_t(Nodo)]);
        if (Troppi)
            Esiti.append({u"00201"_s,
                          GravitaControllo::Rifiuto,
                          u"Gli errori di formato sono più di %1: gli altri non si guardano."_s.arg(
                              MassimoErroriForma),
                          {},
                          0});
        return Esiti;
    }

private:
    void Segnala(int Nodo, const QString& Frase)
    {
        Troppi = Esiti.size() >= MassimoErroriForma;
        if (!Troppi)
            Esiti.append(
                {u"00200"_s, GravitaControllo::Rifiuto, Frase, Albero.PercorsoDi(Nodo), Albero[Nodo].Linea});
    }

    void EsaminaNodo(int Nodo, QStringView Tipo)
    {
        static const Indice Tabelle;
        EsaminaAttributi(Nodo);
        if (const TipoComplesso* Gruppo = Tabelle.Gruppi.value(Tipo))
            EsaminaGruppo(Nodo, *Gruppo);
        else if (const TipoValore* Valore = Tabelle.Valori.value(Tipo))
            EsaminaValore(Nodo, *Valore);
    }

    void EsaminaAttributi(int Nodo)
    {
        bool Versione = false;
        for (const auto& [Nome, Valore] : Albero[Nodo].Attributi) {
            const bool Radice = Nodo == 0;
            if (Radice && Nome == u"versione") {
                Versione = true;
                if (!ValoreValido(u"FormatoTrasmissioneType", Valore))
                    Segnala(Nodo, u"L'attributo versione vuole FPA12 o FPR12: «%1»"_s.arg(Breve(Valore)));
            } else if (Radice && Nome == u"SistemaEmittente") {
                if (!ValoreValido(u"String10Type", Valore))
                    Segnala(Nodo, u"L'attributo SistemaEmittente non va bene: «%1»"_s.arg(Breve(Valore)));
            } else if (!Nome.startsWith(SpazioIstanza)) {
                Segnala(Nodo, u"L'attributo %1 non è previsto."_s.arg(Breve(Nome)));
            }
        }
        if (Nodo == 0 && !Versione)
            Segnala(Nodo, u"Manca l'attributo versione."_s);
    }

    void EsaminaValore(int Nodo, const TipoValore& Tipo)
    {
        if (Albero[Nodo].Primo != AlberoXml::Nessuno) {
            Segnala(Nodo, u"%1 contiene altri elementi e vuole un valore."_s.arg(Albero[Nodo].Nome));
            return;
        }
        // The one element with a value of its own where none is written.
        if (Albero[Nodo].Nome == u"Nazione" && Albero[Nodo].Testo.isEmpty())
            return;
        if (!ValoreValido(Tipo, Albero[Nodo].Testo))
            Segnala(Nodo, u"%1 vuole %2: «%3»"_s.arg(Albero[Nodo].Nome, RichiestaDi(Tipo),
                                                     Breve(Albero[Nodo].Testo)));
    }

    void EsaminaGruppo(int Nodo, const TipoComplesso& Tipo)
    {
        if (!Albero[Nodo].Testo.trimmed().isEmpty())
            Segnala(Nodo, u"In %1 c'è del testo fra gli elementi."_s.arg(Albero[Nodo].Nome));
        std::vector<int> Volte(Tipo.Elementi.size(), 0);
        size_t Posto = 0;
        for (const int Figlio : Albero.Figli(Nodo))
            Posto = EsaminaPosto(Figlio, Tipo, Volte, Posto);
        for (size_t i = 0; i < Volte.size(); ++i)
            if (const ElementoSchema& Atteso = Tipo.Elementi[i];
                Atteso.Alternativa == 0 && Volte[i] < Atteso.Volte.Minimo)
                Segnala(Nodo, u"In %1 manca %2."_s.arg(Albero[Nodo].Nome, Atteso.Nome));
        EsaminaAlternative(Nodo, Tipo, Volte);
    }

    /// Places one element of a group. @return the place from which the next one is looked for
    size_t EsaminaPosto(int Figlio, const TipoComplesso& Tipo, std::vector<int>& Volte, size_t Posto)
    {
        const NodoXml& Suo = Albero[Figlio];
        const auto Trovato = std::ranges::find_if(Tipo.Elementi, [&](const ElementoSchema& Atteso) {
            return Atteso.Nome == Suo.Nome &&
                   Suo.Spazio == (Atteso.Tipo == TipoFirma ? SpazioFirma : QStringView());
        });
        if (Trovato == Tipo.Elementi.end()) {
            Segnala(Figlio, u"%1 non è previsto qui."_s.arg(Breve(Suo.Nome)));
            return Posto;
        }
        const auto Qui = size_t(Trovato - Tipo.Elementi.begin());
        Tipi[size_t(Figlio)] = Trovato->Tipo;
        ++Volte[Qui];
        if (Qui < Posto)
            Segnala(Figlio, u"%1 è fuori posto: va prima di %2."_s.arg(Suo.Nome, Tipo.Elementi[Posto].Nome));
        else if (Volte[Qui] > Trovato->Volte.Massimo)
            Segnala(Figlio, u"%1 c'è più di una volta."_s.arg(Suo.Nome));
        return std::max(Posto, Qui);
    }

    /// Of two ways to say the same one stands, whole.
    void EsaminaAlternative(int Nodo, const TipoComplesso& Tipo, const std::vector<int>& Volte)
    {
        bool Chiesta = false;
        bool Presente[2] = {false, false};
        bool Intera[2] = {true, true};
        for (size_t i = 0; i < Volte.size(); ++i) {
            const int Quale = Tipo.Elementi[i].Alternativa;
            if (Quale == 0)
                continue;
            Chiesta = true;
            Presente[Quale - 1] = Presente[Quale - 1] || Volte[i] > 0;
            Intera[Quale - 1] = Intera[Quale - 1] && Volte[i] > 0;
        }
        if (Chiesta && (Presente[0] == Presente[1] || (Presente[1] && !Intera[1])))
            Segnala(Nodo, u"In %1 sta la Denominazione, oppure Nome e Cognome."_s.arg(Albero[Nodo].Nome));
    }

    static QString Breve(const QString& Testo)
    {
        constexpr qsizetype Mostrati = 40;
        const QString Riga = Testo.simplified();
        return Riga.size() > Mostrati ? Riga.first(Mostrati) + u'…' : Riga;
    }

    const AlberoXml& Albero;
    std::vector<QStringView> Tipi;  ///< of each element; empty: unknown, or within one that is
    QList<EsitoControllo> Esiti;
    bool Troppi = false;
};

}  // namespace

QList<EsitoControllo> ControllaForma(const AlberoXml& Albero)
{
    return Esaminatore(Albero).Esamina();
}
