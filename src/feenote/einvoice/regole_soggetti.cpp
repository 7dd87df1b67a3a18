// The checks of the exchange system on the parties, the kind of document and the file as a whole.
#include "feenote/einvoice/regole.h"

#include "platform/base/segni.h"

#include "core/modControlli.h"
#include "feenote/codicifattura.h"
#include "feenote/einvoice/fattura.h"
#include "feenote/einvoice/parti.h"

#include <QSet>

#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

namespace {

using enum GravitaControllo;

constexpr QStringView NodoCedente = u"CedentePrestatore/DatiAnagrafici";
constexpr QStringView NodoCessionario = u"CessionarioCommittente/DatiAnagrafici";

/// A tax code below a party, with its country; empty where there is none.
struct CodiceLetto
{
    int Nodo = AlberoXml::Nessuno;
    QString Paese;
    QString Codice;
};

CodiceLetto LeggiCodice(const Esame& File, int Da, const QString& Percorso)
{
    const int Nodo = File.Albero.Trova(Da, Percorso);
    if (Nodo == AlberoXml::Nessuno)
        return {};
    return {Nodo, File.Albero.Valore(Nodo, u"IdPaese"), File.Albero.Valore(Nodo, u"IdCodice")};
}

CodiceLetto CodiceIva(const Esame& File, QStringView Parte)
{
    return LeggiCodice(File, File.Testa, Parte.toString() + u"/IdFiscaleIVA"_s);
}

QString CodiceFiscale(const Esame& File, QStringView Parte)
{
    return File.Albero.Valore(File.Testa, Parte.toString() + u"/CodiceFiscale"_s);
}

// ---- check digits: what the exchange system looks up in its registers, as far as the code itself shows

void ControllaIva(Esame& File, const CodiceLetto& Letto)
{
    if (Letto.Nodo != AlberoXml::Nessuno && Letto.Paese == Italia && !PartitaIvaTorna(Letto.Codice))
        File.Segnala(Letto.Nodo, u"La partita IVA non torna: %1"_s.arg(Letto.Codice));
}

void CifraTrasmittente(Esame& File)
{
    const CodiceLetto Letto = LeggiCodice(File, File.Testa, u"DatiTrasmissione/IdTrasmittente"_s);
    if (Letto.Paese == Italia && !CodiceFiscaleTorna(Letto.Codice))
        File.Segnala(Letto.Nodo, u"Il codice di chi trasmette non torna: %1"_s.arg(Letto.Codice));
}

void CifraCedente(Esame& File)
{
    ControllaIva(File, CodiceIva(File, NodoCedente));
}

void CifraRappresentanti(Esame& File)
{
    ControllaIva(File, CodiceIva(File, u"RappresentanteFiscale/DatiAnagrafici"));
    ControllaIva(File, CodiceIva(File, u"CessionarioCommittente/RappresentanteFiscale"));
}

void CifraCessionario(Esame& File)
{
    ControllaIva(File, CodiceIva(File, NodoCessionario));
}

void CodiceFiscaleCessionario(Esame& File)
{
    const QString Codice = CodiceFiscale(File, NodoCessionario);
    if (!Codice.isEmpty() && !CodiceFiscaleTorna(Codice))
        File.Segnala(File.Albero.Trova(File.Testa, NodoCessionario.toString() + u"/CodiceFiscale"_s),
                     u"Il codice fiscale del cliente non torna: %1"_s.arg(Codice));
}

/// The tax code of the seller and the accounts have no code of the exchange system's.
void AltreCifre(Esame& File)
{
    const QString Codice = CodiceFiscale(File, NodoCedente);
    if (!Codice.isEmpty() && !CodiceFiscaleTorna(Codice))
        File.Segnala(File.Albero.Trova(File.Testa, NodoCedente.toString() + u"/CodiceFiscale"_s),
                     u"Il codice fiscale di chi emette non torna: %1"_s.arg(Codice));
    for (const CorpoEsaminato& Corpo : File.Corpi)
        for (const int Pagamento : File.Albero.Figli(Corpo.Nodo, u"DatiPagamento"))
            for (const int Dettaglio : File.Albero.Figli(Pagamento, u"DettaglioPagamento")) {
                const QString Iban = File.Albero.Valore(Dettaglio, u"IBAN");
                if (!Iban.isEmpty() && !IbanTorna(Iban))
                    File.Segnala(Dettaglio, u"L'IBAN non torna: %1"_s.arg(Iban));
            }
}

// ---- where the file goes

void DestinatarioDiEsteri(Esame& File)
{
    const int Nodo = File.Albero.Trova(File.Testa, u"DatiTrasmissione/CodiceDestinatario");
    const CodiceLetto Cliente = CodiceIva(File, NodoCessionario);
    const QString Nazione = File.Albero.Valore(File.Testa, u"CessionarioCommittente/Sede/Nazione");
    const bool Estero = (Cliente.Nodo != AlberoXml::Nessuno && Cliente.Paese != Italia) ||
                        (!Nazione.isEmpty() && Nazione != Italia);
    const QString Scritto = File.Albero[Nodo].Testo;
    if (Scritto == u"XXXXXXX" && !Estero)
        File.Segnala(Nodo, u"Il codice destinatario %1 è per i clienti esteri."_s.arg(Scritto));
}

void LungoDestinatario(Esame& File)
{
    const int Nodo = File.Albero.Trova(File.Testa, u"DatiTrasmissione/CodiceDestinatario");
    const QString Formato = File.Albero.Valore(File.Testa, u"DatiTrasmissione/FormatoTrasmissione");
    const qsizetype Atteso = Formato == FormatoPubblica ? 6 : 7;
    if (File.Albero[Nodo].Testo.size() != Atteso)
        File.Segnala(Nodo,
                     u"Con il formato %1 il codice destinatario ha %2 caratteri."_s.arg(Formato).arg(Atteso));
}

void FormatoEVersione(Esame& File)
{
    const int Nodo = File.Albero.Trova(File.Testa, u"DatiTrasmissione/FormatoTrasmissione");
    for (const auto& [Nome, Valore] : File.Albero[0].Attributi)
        if (Nome == u"versione" && Valore != File.Albero[Nodo].Testo)
            File.Segnala(
                Nodo, u"Il formato è %1, la versione del file è %2."_s.arg(File.Albero[Nodo].Testo, Valore));
}

void ClienteSenzaCodici(Esame& File)
{
    if (CodiceIva(File, NodoCessionario).Nodo == AlberoXml::Nessuno &&
        CodiceFiscale(File, NodoCessionario).isEmpty())
        File.Segnala(File.Albero.Trova(File.Testa, NodoCessionario),
                     u"Del cliente mancano sia la partita IVA sia il codice fiscale."_s);
}

// ---- document

void DataFutura(Esame& File)
{
    for (const CorpoEsaminato& Corpo : File.Corpi)
        if (Corpo.Data > File.Oggi)
            File.Segnala(File.Albero.Trova(Corpo.Generali, u"Data"),
                         u"La data del documento deve ancora venire."_s);
}

void NumeroSenzaCifre(Esame& File)
{
    for (const CorpoEsaminato& Corpo : File.Corpi)
        if (std::ranges::none_of(Corpo.Numero, ECifra))
            File.Segnala(File.Albero.Trova(Corpo.Generali, u"Numero"),
                         u"Il numero del documento non ha cifre."_s);
}

void DoppioNelLotto(Esame& File)
{
    QSet<QString> Visti;
    for (const CorpoEsaminato& Corpo : File.Corpi) {
        const QString Chiave = Corpo.Numero + u'|' + QString::number(Corpo.Data.year());
        if (Visti.contains(Chiave))
            File.Segnala(Corpo.Generali, u"Il documento %1 c'è già nello stesso file."_s.arg(Corpo.Numero));
        Visti += Chiave;
    }
}

void PrimaDellaCollegata(Esame& File)
{
    for (const CorpoEsaminato& Corpo : File.Corpi) {
        if (Corpo.Tipo != codici::NotaDiCredito)
            continue;
        for (const int Nodo :
             File.Albero.Figli(File.Albero.Trova(Corpo.Nodo, u"DatiGenerali"), u"DatiFattureCollegate")) {
            const QDate Citata = QDate::fromString(File.Albero.Valore(Nodo, u"Data").left(10), Qt::ISODate);
            if (Citata.isValid() && Corpo.Data < Citata)
                File.Segnala(Nodo, u"La nota di credito è anteriore alla fattura che storna."_s);
        }
    }
}

// ---- who may issue what

bool EUnoDi(const QString& Tipo, QStringView Elenco)
{
    return !Tipo.isEmpty() && Elenco.contains(Tipo);
}

bool StessoSoggetto(const Esame& File)
{
    const CodiceLetto Chi = CodiceIva(File, NodoCedente);
    const CodiceLetto Verso = CodiceIva(File, NodoCessionario);
    const QString Codice = CodiceFiscale(File, NodoCedente);
    return (Verso.Nodo != AlberoXml::Nessuno && Chi.Paese == Verso.Paese && Chi.Codice == Verso.Codice) ||
           (!Codice.isEmpty() && Codice == CodiceFiscale(File, NodoCessionario));
}

/// Finds fault with the documents of some kinds.
void PerTipo(Esame& File, QStringView Elenco, const QString& Frase)
{
    for (const CorpoEsaminato& Corpo : File.Corpi)
        if (EUnoDi(Corpo.Tipo, Elenco))
            File.Segnala(File.Albero.Trova(Corpo.Generali, u"TipoDocumento"), Frase.arg(Corpo.Tipo));
}

void CedenteECessionarioUguali(Esame& File)
{
    if (StessoSoggetto(File))
        PerTipo(File, u"TD01 TD02 TD03 TD06 TD16 TD17 TD18 TD19 TD20 TD24 TD25 TD28",
                u"In un documento %1 chi emette e chi riceve sono diversi."_s);
}

void CedenteECessionarioDiversi(Esame& File)
{
    if (!StessoSoggetto(File))
        PerTipo(File, u"TD21 TD27", u"In un documento %1 chi emette e chi riceve sono gli stessi."_s);
}

void CedenteItaliano(Esame& File)
{
    if (CodiceIva(File, NodoCedente).Paese == Italia)
        PerTipo(File, u"TD17 TD18 TD19", u"In un documento %1 chi emette non è italiano."_s);
}

void SplafonamentoSenzaIva(Esame& File)
{
    for (const CorpoEsaminato& Corpo : File.Corpi)
        for (const ImportoEsaminato& Linea : Corpo.Linee)
            if (Corpo.Tipo == codici::AutofatturaSplafonamento && Linea.Aliquota == 0)
                File.Segnala(Linea.Nodo, u"In un documento TD21 le righe hanno l'IVA."_s);
}

void IvaDelCessionario(Esame& File)
{
    if (CodiceIva(File, NodoCessionario).Nodo == AlberoXml::Nessuno)
        PerTipo(File, u"TD16 TD17 TD18 TD19 TD20 TD22 TD23 TD28",
                u"In un documento %1 chi riceve ha la partita IVA."_s);
}

void EntrambiEsteri(Esame& File)
{
    const CodiceLetto Chi = CodiceIva(File, NodoCedente);
    const CodiceLetto Verso = CodiceIva(File, NodoCessionario);
    if (Verso.Nodo != AlberoXml::Nessuno && Chi.Paese != Italia && Verso.Paese != Italia)
        File.Segnala(Chi.Nodo, u"Chi emette e chi riceve sono entrambi esteri."_s);
}

constexpr std::array RegoleDeiSoggetti{
    RegolaSdi{u"00300", Avviso, CifraTrasmittente},
    RegolaSdi{u"00301", Avviso, CifraCedente},
    RegolaSdi{u"00303", Avviso, CifraRappresentanti},
    RegolaSdi{u"00305", Avviso, CifraCessionario},
    RegolaSdi{u"00306", Avviso, CodiceFiscaleCessionario},
    RegolaSdi{u"00313", Avviso, DestinatarioDiEsteri},
    RegolaSdi{u"00403", Rifiuto, DataFutura},
    RegolaSdi{u"00409", Rifiuto, DoppioNelLotto},
    RegolaSdi{u"00417", Avviso, ClienteSenzaCodici},
    RegolaSdi{u"00418", Avviso, PrimaDellaCollegata},
    RegolaSdi{u"00425", Avviso, NumeroSenzaCifre},
    RegolaSdi{u"00427", Avviso, LungoDestinatario},
    RegolaSdi{u"00428", Avviso, FormatoEVersione},
    RegolaSdi{u"00471", Rifiuto, CedenteECessionarioUguali},
    RegolaSdi{u"00472", Avviso, CedenteECessionarioDiversi},
    RegolaSdi{u"00473", Avviso, CedenteItaliano},
    RegolaSdi{u"00474", Avviso, SplafonamentoSenzaIva},
    RegolaSdi{u"00475", Avviso, IvaDelCessionario},
    RegolaSdi{u"00476", Avviso, EntrambiEsteri},
    RegolaSdi{u"", Avviso, AltreCifre},
};

}  // namespace

void RegoleSoggetti(Esame& File)
{
    for (const RegolaSdi& Regola : RegoleDeiSoggetti) {
        File.Comincia(Regola.Codice, Regola.Gravita);
        Regola.Esegui(File);
    }
}
