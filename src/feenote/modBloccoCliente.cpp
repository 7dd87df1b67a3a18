#include "feenote/modBloccoCliente.h"

#include "core/modErrori.h"

#include <QStringList>

#include <array>

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
    Nota.RapprLegato = Cliente.RapprLegale;
}

/// The forms that a user can write in.
constexpr std::array FormeScritte{FormaBlocco::Testata, FormaBlocco::Nome, FormaBlocco::Persona,
                                  FormaBlocco::Societa};

}  // namespace

bool Discorsiva(FormaBlocco Forma)
{
    return Forma == FormaBlocco::Persona || Forma == FormaBlocco::Societa;
}

QString NomeDelBlocco(const QString& Blocco)
{
    if (!Blocco.contains(u'\n'))
        return Blocco;
    return Blocco.trimmed().section(u'\n', 0, 0).trimmed();
}

void ScriviBlocco(Parcella& Nota, FormaBlocco Forma, const QString& Testo)
{
    if (Forma == FormaBlocco::Nessuna)
        return;
    // The first block of a free client was shown by all documents. With the second each keeps what it shows.
    if (Nota.IDCli <= 0 && Nota.BlocchiScritti.size() == 1 && !Nota.BlocchiScritti.contains(Forma)) {
        const QString Comune = Nota.BlocchiScritti.first();
        for (const FormaBlocco Altra : FormeScritte)
            Nota.BlocchiScritti[Altra] = Comune;
    }
    Nota.BlocchiScritti[Forma] = Testo;
}

std::optional<QString> BloccoScritto(const Parcella& Nota, FormaBlocco Forma)
{
    const auto Trovato = Nota.BlocchiScritti.constFind(Forma);
    if (Trovato != Nota.BlocchiScritti.constEnd())
        return *Trovato;
    if (Forma != FormaBlocco::Nessuna && Nota.IDCli <= 0 && Nota.BlocchiScritti.size() == 1)
        return Nota.BlocchiScritti.first();
    return std::nullopt;
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

bool SegueRappresentante(Parcella& Nota)
{
    const Rappresentante Dato{Nota.RapprLegato, {}, {}, {}};
    if (Nota.IDCli <= 0 || Nota.RapprDi != Nota.IDCli || Nota.Rappr != Dato)
        return false;
    const std::optional<DatiCliente> Cliente = LeggiCliente(Nota.IDCli);
    if (!Cliente || Cliente->RapprLegale == Nota.RapprLegato)
        return false;
    Nota.Rappr.Nome = Nota.RapprLegato = Cliente->RapprLegale;
    SetModificata(Nota, true);
    return true;
}
