#include "feenote/modClienti.h"

#include "core/modErrori.h"
#include "core/sessione.h"
#include "platform/database.h"
#include "platform/errore.h"

#include <QDate>
#include <QStringList>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

/// The row of a table by its key.
///
/// A missing or unreadable archive answers like a missing row: the note keeps the names it holds, and the
/// user is told that the link does not resolve.
template <class Lettura>
auto CercaRiga(const QString& Tabella, int Chiave, Lettura Leggi)
    -> std::optional<decltype(Leggi(Recordset()))>
{
    try {
        const Database Archivio = OpenDatabase(sessione::ArchivioCliCon, true);
        const Recordset Trovato =
            Archivio.OpenRecordset(u"SELECT * FROM "_s + Tabella + u" WHERE ID=?"_s, {Chiave});
        if (Trovato.Eof())
            return std::nullopt;
        return Leggi(Trovato);
    } catch (const Errore&) {
        return std::nullopt;
    }
}

std::optional<QString> CercaNome(const QString& Tabella, int Chiave, const QString& Colonna)
{
    return CercaRiga(Tabella, Chiave,
                     [&](const Recordset& Trovato) { return Trovato.Value(Colonna, QString()).toString(); });
}

/// A column as text; empty where an older archive does not have it.
QString TestoColonna(const Recordset& Riga, const QString& Colonna)
{
    const QList<Campo> Campi = Riga.Campi();
    const bool Presente = std::ranges::any_of(
        Campi, [&](const Campo& Uno) { return Uno.Name.compare(Colonna, Qt::CaseInsensitive) == 0; });
    return Presente ? CStr(Riga.Value(Colonna, QString())).trimmed() : QString();
}

DatiCliente LeggiRiga(const Recordset& Riga)
{
    DatiCliente Cliente;
    Cliente.Nominativo = TestoColonna(Riga, u"Nominativo"_s);
    Cliente.Indirizzo = TestoColonna(Riga, u"Indirizzo"_s);
    Cliente.Cap = TestoColonna(Riga, u"Cap"_s);
    Cliente.Citta = TestoColonna(Riga, u"Citta"_s);
    Cliente.Prov = TestoColonna(Riga, u"Prov"_s);
    Cliente.CodFis = TestoColonna(Riga, u"CodFis"_s);
    Cliente.PIva = TestoColonna(Riga, u"PIva"_s);
    Cliente.DataNascita = TestoColonna(Riga, u"DataNascita"_s);
    Cliente.ComuneNascita = TestoColonna(Riga, u"ComuneNascita"_s);
    Cliente.RapprLegale = TestoColonna(Riga, u"RapprLegale"_s);
    return Cliente;
}

/// The text behind its words; nothing without a text.
QString Dopo(QStringView Parole, const QString& Testo)
{
    return Testo.isEmpty() ? QString() : Parole.toString() + Testo;
}

QString Unisci(QStringList Parti, const QString& Fra)
{
    Parti.removeAll(QString());
    return Parti.join(Fra);
}

/// "20100 Milano (MI)", as far as its parts are there.
QString Localita(const DatiCliente& Cliente)
{
    const QString Prov = Cliente.Prov.isEmpty() ? QString() : u'(' + Cliente.Prov + u')';
    return Unisci({Cliente.Cap, Cliente.Citta, Prov}, u" "_s);
}

QString BloccoTestata(const DatiCliente& Cliente)
{
    return Unisci({Cliente.Nominativo, Cliente.Indirizzo, Localita(Cliente), Dopo(u"C.F. ", Cliente.CodFis),
                   Dopo(u"P.I. ", Cliente.PIva)},
                  u"\n"_s);
}

/// The client inside a sentence.
QString BloccoDiscorsivo(const DatiCliente& Cliente, bool Societa)
{
    QString Blocco = Cliente.Nominativo;
    if (!Societa)
        Blocco += Dopo(u" nato a ", Cliente.ComuneNascita) + Dopo(u" il ", Cliente.DataNascita);
    Blocco += Dopo(Societa ? u" con sede in " : u" residente in ",
                   Unisci({Cliente.Indirizzo, Localita(Cliente)}, u" - "_s));
    return Blocco + Dopo(u" C.F. ", Cliente.CodFis) + Dopo(u" P.IVA ", Cliente.PIva);
}

/// A representative written for a client that was free text stays with the note when the client is linked.
void PrecompilaRappresentante(Parcella& Nota, const DatiCliente& Cliente)
{
    if (Nota.RapprDi == Nota.IDCli)
        return;
    if (Nota.RapprDi != 0 || Nota.Rappr == Rappresentante())
        Nota.Rappr = {Cliente.RapprLegale, {}, {}, {}};
    Nota.RapprDi = Nota.IDCli;
}

}  // namespace

std::optional<QString> CercaCliente(int IDCli)
{
    return CercaNome(u"clienti"_s, IDCli, u"Nominativo"_s);
}

std::optional<QString> CercaControparte(int IDCon, const QString& Colonna)
{
    return CercaNome(u"controparti"_s, IDCon, Colonna);
}

std::optional<DatiCliente> LeggiCliente(int IDCli)
{
    return CercaRiga(u"clienti"_s, IDCli, LeggiRiga);
}

bool ESocieta(const DatiCliente& Cliente)
{
    constexpr qsizetype CifreSocieta = 11;
    const auto Cifra = [](QChar C) { return C >= u'0' && C <= u'9'; };
    return !Cliente.RapprLegale.isEmpty() ||
           (Cliente.CodFis.size() == CifreSocieta && std::ranges::all_of(Cliente.CodFis, Cifra));
}

QString BloccoCliente(const DatiCliente& Cliente, FormaBlocco Forma)
{
    switch (Forma) {
    case FormaBlocco::Nessuna:
        break;
    case FormaBlocco::Testata:
        return BloccoTestata(Cliente);
    case FormaBlocco::Nome:
        return Cliente.Nominativo;
    case FormaBlocco::Persona:
        return BloccoDiscorsivo(Cliente, false);
    case FormaBlocco::Societa:
        return BloccoDiscorsivo(Cliente, true);
    }
    return {};
}

void GetDatiStaCli(Parcella& Nota, FormaBlocco Forma)
{
    if (Forma == FormaBlocco::Nessuna || Nota.txtCliente.Testo.isEmpty())
        return;
    if (Nota.IDCli <= 0) {
        Nota.txtDatiStaCli.Testo = Nota.txtCliente.Testo;
        return;
    }
    const std::optional<DatiCliente> Cliente = LeggiCliente(Nota.IDCli);
    if (!Cliente) {
        MsgErrore(u"Cliente non trovato!"_s);
        return;
    }
    Nota.txtDatiStaCli.Testo = BloccoCliente(*Cliente, Forma);
    if (Forma == FormaBlocco::Societa)
        PrecompilaRappresentante(Nota, *Cliente);
}
