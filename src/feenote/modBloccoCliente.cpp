#include "feenote/modBloccoCliente.h"

#include "core/modErrori.h"

#include <QStringList>

using namespace Qt::StringLiterals;

namespace {

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
