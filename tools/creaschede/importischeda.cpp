#include "creaschede/importischeda.h"

#include "creadati/formule.h"
#include "feenote/modOnorari.h"
#include "feenote/modQuantita.h"
#include "feenote/modRighe.h"
#include "platform/base/errore.h"
#include "platform/base/numerierrore.h"
#include "platform/base/regionale.h"

#include <QRegularExpression>

#include <cmath>

using namespace Qt::StringLiterals;

namespace {

const auto Apertura = u"<table border=\"1\" cellspacing=\"0\" cellpadding=\"5\" width=\"99%\">\n"_s;
const auto Chiusura = u"</table>\n"_s;

QString Euro(double Importo)
{
    return Format(Importo, ModelloImporto);
}

QString ConEuro(double Importo)
{
    return u"€ "_s + Euro(Importo);
}

/// The sign of an amount stays on its line.
QString Unita(const QString& Testo)
{
    return Testo.toHtmlEscaped().replace(u"€ "_s, u"€"_s + QChar::Nbsp);
}

QString Cella(const QString& Testo)
{
    return u"<td>"_s + Unita(Testo) + u"</td>"_s;
}

QString Cifra(const QString& Testo, const QString& Marca = u"td"_s)
{
    return u"<%1 class=\"cifre\" align=\"right\">%2</%1>"_s.arg(Marca, Testo.toHtmlEscaped());
}

QString Riga(const QString& Celle)
{
    return u"<tr>"_s + Celle + u"</tr>\n"_s;
}

/// The first heading stands over words, the others over figures.
QString Testata(const QStringList& Titoli)
{
    QString Celle = u"<th>"_s + Titoli.first().toHtmlEscaped() + u"</th>"_s;
    for (const QString& Uno : Titoli.mid(1))
        Celle += Cifra(Uno, u"th"_s);
    return Riga(Celle);
}

QString Esatta(double Importo, double Rispetto, const VoceTariffa& Voce)
{
    if (const auto Trovata = Percentuale(Importo, Rispetto))
        return *Trovata;
    throw Errore(errori::Argomento,
                 u"la voce %1 non segue da una percentuale intera: %2 da %3"_s.arg(Voce.Codice)
                     .arg(CStr(Importo), CStr(Rispetto)));
}

QString CelleTerna(const Terna& Importi, const VoceTariffa& Voce, bool Percentuali)
{
    QString Celle = Cifra(Euro(Importi.Minimo)) + Cifra(Euro(Importi.Medio)) + Cifra(Euro(Importi.Massimo));
    if (Percentuali)
        Celle += Cifra(Esatta(Importi.Minimo, Importi.Medio, Voce) + u" "_s +
                       Esatta(Importi.Massimo, Importi.Medio, Voce));
    return Celle;
}

/// In place of the amounts of a row.
QString CellaSenza(const QString& Motivo, bool Percentuali)
{
    return u"<td class=\"cifre\" align=\"right\" colspan=\"%1\">%2</td>"_s.arg(Percentuali ? 4 : 3)
        .arg(Motivo);
}

/// The mark of a doubt stays on the line of what it marks.
QString Segno(const Tariffe& Dati, const ChiaveImporto& Chiave)
{
    return Dati.Dubbi.contains(Chiave) ? QChar::Nbsp + u"*"_s : QString();
}

QStringList TitoliTerna(const QString& Primo, bool Percentuali)
{
    QStringList Titoli{Primo, u"Minimo"_s, u"Medio"_s, u"Massimo"_s};
    if (Percentuali)
        Titoli.append(u"Dal medio"_s);
    return Titoli;
}

FormulaDetta Detta(const Tariffe& Dati, const VoceTariffa& Voce, const ScaglioneValore& Limiti, bool Massimo)
{
    const Formule& Lette = Dati.Stragiudiziali.at({QString(), Voce.Codice, Limiti.NumSca});
    const QString& Formula = Massimo ? Lette.Massimo : Lette.Minimo;
    if (const auto Trovata = Scomponi(Formula, Limiti))
        return *Trovata;
    throw Errore(errori::Argomento,
                 u"la formula «%1» della voce %2 non si può dire a parole"_s.arg(Formula).arg(Voce.Codice));
}

/// "600,00 + 1,5% di 5.000,00", with nothing that is nothing.
QString Conto(const FormulaDetta& Formula, double ValoreEuro)
{
    if (Formula.AliquotaPerc == 0)
        return Euro(Formula.BaseEuro);
    const QString Quota =
        u"%1% di %2"_s.arg(CStr(Formula.AliquotaPerc), Euro(ValoreEuro - Formula.OltreEuro));
    return Formula.BaseEuro == 0 ? Quota : Euro(Formula.BaseEuro) + u" + "_s + Quota;
}

double Valuta(const QString& Formula, double ValoreEuro)
{
    const auto Valore = ValoreFormula(Formula, ValoreEuro);
    if (!Valore)
        throw Errore(errori::Argomento, u"la formula «%1» non ha un valore"_s.arg(Formula));
    return *Valore;
}

/// The answer to the question of the quantity, and what it counts where that is something else.
QString Quantita(const QString& Risposta, double Quant)
{
    if (Risposta.isEmpty())
        return {};
    return u", quantità "_s + Risposta +
           (CStr(Quant) == Risposta ? QString() : u" (conta %1)"_s.arg(CStr(Quant)));
}

}  // namespace

std::optional<FormulaDetta> Scomponi(const QString& Formula, const ScaglioneValore& Limiti)
{
    // Brackets begin a cent above the limit that shares are reckoned from.
    const double Oltre = Round(Limiti.DaVal - 0.01, 2);
    constexpr double Passo = 100000.0;
    const auto Primo = ValoreFormula(Formula, Oltre);
    const auto Secondo = ValoreFormula(Formula, Oltre + Passo);
    const auto Terzo = ValoreFormula(Formula, Oltre + 3 * Passo);
    if (!Primo || !Secondo || !Terzo)
        return std::nullopt;
    constexpr double UnDecimoDiCentesimo = 0.001;
    if (std::abs(*Terzo - *Primo - 3 * (*Secondo - *Primo)) > UnDecimoDiCentesimo)
        return std::nullopt;
    return FormulaDetta{Round(*Primo, 2), Round((*Secondo - *Primo) / Passo * 100, 6), Oltre};
}

QString InParole(const FormulaDetta& Formula)
{
    if (Formula.AliquotaPerc == 0)
        return ConEuro(Formula.BaseEuro);
    const QString Perc = CStr(Formula.AliquotaPerc) + u'%';
    const QString Su =
        Formula.OltreEuro == 0 ? u"del valore"_s : u"della parte oltre "_s + ConEuro(Formula.OltreEuro);
    if (Formula.BaseEuro == 0)
        return Perc + u' ' + Su;
    // The article of a percentage follows its sound: "lo 0,5%", "l'1,5%", "l'8%", "il 2%".
    static const QRegularExpression ConApostrofo(u"\\A(?:1|11)[,%]|\\A8"_s);
    const QString Articolo = Perc.startsWith(u'0')         ? u"lo "_s
                             : Perc.contains(ConApostrofo) ? u"l'"_s
                                                           : u"il "_s;
    return ConEuro(Formula.BaseEuro) + u" più "_s + Articolo + Perc + u' ' + Su;
}

std::optional<QString> Percentuale(double Importo, double Rispetto)
{
    if (Rispetto <= 0)
        return std::nullopt;
    const double Perc = Round((Importo / Rispetto - 1) * 100);
    constexpr double MezzoEuro = 0.5;
    if (std::abs(Rispetto * (1 + Perc / 100) - Importo) > MezzoEuro)
        return std::nullopt;
    return (Perc > 0 ? u"+"_s : QString()) + CStr(Perc) + u'%';
}

bool InDubbio(const Tariffe& Dati, const VoceTariffa& Voce)
{
    return std::ranges::any_of(Dati.Dubbi,
                               [&](const ChiaveImporto& Chiave) { return Chiave.Codice == Voce.Codice; });
}

bool HaImporti(const Tariffe& Dati, const QString& Categ, const VoceTariffa& Voce)
{
    const auto Sua = [&](const auto& Uno) { return Uno.first.Codice == Voce.Codice; };
    if (Categ == Civile)
        return std::ranges::any_of(Dati.Civili, Sua);
    return Categ == Penale ? std::ranges::any_of(Dati.Penali, Sua)
                           : std::ranges::any_of(Dati.Stragiudiziali, Sua);
}

QStringList GruppiCivili(const Tariffe& Dati, const VoceTariffa& Voce)
{
    QStringList Gruppi;
    for (const AutoritaTariffa& Ente : Dati.Enti) {
        const auto Primo = Dati.Civili.lower_bound({Ente.Gruppo, Voce.Codice, 0});
        const bool Sua = Primo != Dati.Civili.end() && Primo->first.Gruppo == Ente.Gruppo &&
                         Primo->first.Codice == Voce.Codice;
        if (Ente.Categ == Civile && Sua && !Gruppi.contains(Ente.Gruppo))
            Gruppi.append(Ente.Gruppo);
    }
    return Gruppi;
}

QString TabellaCivile(const Tariffe& Dati, const VoceTariffa& Voce, const QString& Gruppo,
                      const ModoImporti& Modo)
{
    QString Html = Apertura + Testata(TitoliTerna(u"Valore della causa"_s, Modo.Percentuali));
    for (const ScaglioneValore& Uno : Dati.Scaglioni[u"C"_s]) {
        const ChiaveImporto Chiave{Gruppo, Voce.Codice, Uno.NumSca};
        const auto Trovata = Dati.Civili.find(Chiave);
        const QString Senza = Trovata == Dati.Civili.end()   ? u"non previsto"_s
                              : Trovata->second.Massimo <= 0 ? u"non ammesso"_s
                                                             : QString();
        Html += Riga(Cella(Uno.DesVal + Segno(Dati, Chiave)) +
                     (Senza.isEmpty() ? CelleTerna(Trovata->second, Voce, Modo.Percentuali)
                                      : CellaSenza(Senza, Modo.Percentuali)));
    }
    return Html + Chiusura;
}

QString TabellaPenale(const Tariffe& Dati, const VoceTariffa& Voce, const ModoImporti& Modo)
{
    QStringList Titoli = TitoliTerna(u"Autorità"_s, Modo.Percentuali);
    if (!Modo.Riferimento.isEmpty())
        Titoli.append(u"Ufficio"_s);
    QString Html = Apertura + Testata(Titoli);
    for (const AutoritaTariffa& Ente : Dati.Enti) {
        if (Ente.Categ != Penale)
            continue;
        const ChiaveImporto Chiave{Ente.Gruppo, Voce.Codice, 0};
        const auto Trovata = Dati.Penali.find(Chiave);
        if (Trovata == Dati.Penali.end()) {
            Html += Riga(Cella(Ente.Dati.DesAut) + CellaSenza(u"non previsto"_s, Modo.Percentuali));
            continue;
        }
        const Terna& Importi = Trovata->second;
        QString Celle =
            Cella(Ente.Dati.DesAut + Segno(Dati, Chiave)) + CelleTerna(Importi, Voce, Modo.Percentuali);
        if (Ente.Gruppo == Modo.Riferimento)
            Celle += Cifra(u"base"_s);
        else if (!Modo.Riferimento.isEmpty())
            Celle +=
                Cifra(Esatta(Importi.Medio, Dati.Penali.at({Modo.Riferimento, Voce.Codice, 0}).Medio, Voce));
        Html += Riga(Celle);
    }
    return Html + Chiusura;
}

QString TabellaStragiudiziale(const Tariffe& Dati, const VoceTariffa& Voce)
{
    const QList<ScaglioneValore> Scaglioni = Dati.Scaglioni[u"S"_s];
    const auto Celle = [&](const ScaglioneValore& Limiti) {
        if (!Dati.Stragiudiziali.contains({QString(), Voce.Codice, Limiti.NumSca}))
            return u"<td colspan=\"2\">non previsto</td>"_s;
        return Cella(InParole(Detta(Dati, Voce, Limiti, false))) +
               Cella(InParole(Detta(Dati, Voce, Limiti, true)));
    };
    const bool Ovunque = std::ranges::all_of(
        Scaglioni, [&](const ScaglioneValore& Uno) { return Celle(Uno) == Celle(Scaglioni.first()); });
    QString Html = Apertura + Riga(u"<th>Valore dell'affare</th><th>Minimo</th><th>Massimo</th>"_s);
    if (Ovunque)
        return Html + Riga(Cella(u"qualunque"_s) + Celle(Scaglioni.first())) + Chiusura;
    for (const ScaglioneValore& Uno : Scaglioni)
        Html += Riga(Cella(Uno.DesVal + Segno(Dati, {QString(), Voce.Codice, Uno.NumSca})) + Celle(Uno));
    return Html + Chiusura;
}

QString Esempio(const Tariffe& Dati, const VoceTariffa& Voce, double ValoreEuro, const QString& Risposta)
{
    const QList<ScaglioneValore> Scaglioni = Dati.Scaglioni[u"S"_s];
    const auto Suo = std::ranges::find_if(Scaglioni, [&](const ScaglioneValore& Uno) {
        return ValoreEuro >= Uno.DaVal && ValoreEuro <= Uno.AVal;
    });
    if (Suo == Scaglioni.end())
        throw Errore(errori::Argomento, u"il valore %1 non è in nessuno scaglione"_s.arg(CStr(ValoreEuro)));
    const Formule& Lette = Dati.Stragiudiziali.at({QString(), Voce.Codice, Suo->NumSca});
    const double Min = Valuta(Lette.Minimo, ValoreEuro);
    const double Max = Valuta(Lette.Massimo, ValoreEuro);
    const double Med = Medio(Min, Max);
    const double Quant = Risposta.isEmpty() ? 1.0 : QuantitaContata(Voce.Quantita, Risposta);
    const QString Per = Risposta.isEmpty() ? QString() : u" × "_s + CStr(Quant);
    // Lines of the tariff of 2012 are whole euro; those of the other have cents.
    const int Decimali = Dati.Identita.Codice.isEmpty() ? 0 : 2;
    const auto Una = [&](const QString& Nome, const QString& Come, double Importo) {
        return Riga(Cella(Nome) + Cella(Come + Per) + Cifra(Euro(Importo * Quant)) +
                    Cifra(Euro(ArrotondaRiga(Importo * Quant, Decimali))));
    };
    return u"<p>Valore dell'affare "_s + ConEuro(ValoreEuro) + Quantita(Risposta, Quant) + u".</p>\n"_s +
           Apertura +
           Riga(u"<th></th><th>Conto</th>"_s + Cifra(u"Importo"_s, u"th"_s) +
                Cifra(u"In parcella"_s, u"th"_s)) +
           Una(u"Minimo"_s, Conto(Detta(Dati, Voce, *Suo, false), ValoreEuro), Min) +
           Una(u"Medio"_s, u"a metà fra i due"_s, Med) +
           Una(u"Massimo"_s, Conto(Detta(Dati, Voce, *Suo, true), ValoreEuro), Max) + Chiusura;
}
