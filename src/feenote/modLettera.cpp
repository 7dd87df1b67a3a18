#include "feenote/modLettera.h"

#include "addressbook/modClienti.h"
#include "core/modControlli.h"
#include "core/sessione.h"
#include "feenote/modNumeraFattura.h"
#include "feenote/modStorno.h"
#include "feenote/modTotali.h"
#include "platform/base/regionale.h"

#include <QRegularExpression>

#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

namespace {

constexpr std::array<QStringView, 7> Segnaposti{u"cliente", u"documento", u"numero", u"data",
                                                u"oggetto", u"netto",     u"studio"};

QString NumeroDocumento(const Parcella& Nota, PannelloStampa Pannello)
{
    if (Pannello == PannelloStampa::Numero)
        return Nota.DatiPar(DatoNumero).simplified();
    return Pannello == PannelloStampa::Fattura ? NumeroDellaFattura(Nota).simplified() : QString();
}

QString DataDocumento(const Parcella& Nota, PannelloStampa Pannello)
{
    if (Pannello == PannelloStampa::Numero)
        return Nota.DatiPar(DatoData).simplified();
    return Pannello == PannelloStampa::Fattura ? Nota.DatiPar(DatoDataFatt).simplified() : QString();
}

/// A line of a template; nothing where it goes.
std::optional<QString> Riga(const QString& Modello, const ValoriLettera& Valori)
{
    static const QRegularExpression Segno(u"\\{([^{}]*)\\}"_s);
    QString Scritta;
    qsizetype Fin = 0;
    bool Noti = false;
    bool Pieni = false;
    for (auto Trovati = Segno.globalMatch(Modello); Trovati.hasNext();) {
        const QRegularExpressionMatch Trovato = Trovati.next();
        const auto Valore = Valori.find(Trovato.captured(1).toLower());
        if (Valore == Valori.end())
            continue;
        Scritta += QStringView(Modello).sliced(Fin, Trovato.capturedStart() - Fin);
        Scritta += *Valore;
        Fin = Trovato.capturedEnd();
        Noti = true;
        Pieni = Pieni || !Valore->isEmpty();
    }
    Scritta += QStringView(Modello).sliced(Fin);
    if (Noti && !Pieni)
        return std::nullopt;
    return Noti ? Scritta.trimmed() : Scritta;
}

/// One line, without the dashes that an empty value leaves at its ends.
QString InUnaRiga(const QString& Testo)
{
    QString Linea = Testo.simplified();
    const auto Bordo = [](QChar C) { return C == u'-' || C == u' '; };
    while (!Linea.isEmpty() && Bordo(Linea.back()))
        Linea.chop(1);
    while (!Linea.isEmpty() && Bordo(Linea.front()))
        Linea.remove(0, 1);
    return Linea;
}

/// Puts an address of the archive into a mail, or says why it stays out.
void Indirizza(Lettera& Scritta, const QString& Email)
{
    if (Email.isEmpty() || EIndirizzo(Email)) {
        Scritta.Indirizzo = Email;
        return;
    }
    const QString Perche = PostaTorna(Email) ? u"contiene segni che i programmi di posta non accettano"_s
                                             : u"non ha la forma nome@dominio"_s;
    Scritta.Escluso = u"L'indirizzo di posta del cliente, «%1», %2: il destinatario va scritto a mano."_s.arg(
        Email.simplified(), Perche);
}

}  // namespace

QStringList SegnapostiLettera()
{
    QStringList Nomi;
    for (const QStringView Nome : Segnaposti)
        Nomi += Nome.toString();
    return Nomi;
}

ValoriLettera ValoriDi(const Parcella& Nota, int Tipo)
{
    const TipoDocumento& Dati = TipoDi(Tipo);
    const QString Oggetto =
        Nota.txtDatiStaOgg.Testo.isEmpty() ? Nota.txtOggetto.Testo : Nota.txtDatiStaOgg.Testo;
    ValoriLettera Valori;
    Valori[u"cliente"_s] = Nota.txtCliente.Testo.simplified();
    const bool Storno = Dati.EFattura && ENotaDiCredito(Nota);
    Valori[u"documento"_s] = Storno ? u"Nota di credito"_s : Dati.NellaLettera.toString();
    Valori[u"numero"_s] = NumeroDocumento(Nota, Dati.Pannello);
    Valori[u"data"_s] = DataDocumento(Nota, Dati.Pannello);
    Valori[u"oggetto"_s] = Oggetto.simplified();
    // Nobody pays a credit note.
    Valori[u"netto"_s] = ETipoStampa(Tipo) && Dati.Riepilogo && !Storno
                             ? Format(CatenaFiscale(Nota, Tipo).Netto, ModelloImporto)
                             : QString();
    Valori[u"studio"_s] = sessione::StudioNome;
    return Valori;
}

QString ScriviModello(const QString& Modello, const ValoriLettera& Valori)
{
    QStringList Righe;
    const QStringList Scritte = QString(Modello).remove(u'\r').split(u'\n');
    for (const QString& Scritta : Scritte)
        if (const auto Fatta = Riga(Scritta, Valori))
            Righe += *Fatta;
    return Righe.join(u'\n');
}

Lettera LetteraDi(const Parcella& Nota, int Tipo)
{
    const ValoriLettera Valori = ValoriDi(Nota, Tipo);
    Lettera Fatta;
    Fatta.Oggetto = InUnaRiga(ScriviModello(sessione::PostaOggetto, Valori));
    Fatta.Testo = ScriviModello(sessione::PostaTesto, Valori);
    try {
        if (const auto Cliente = Nota.IDCli > 0 ? LeggiCliente(Nota.IDCli) : std::nullopt)
            Indirizza(Fatta, Cliente->Email.trimmed());
    } catch (const ArchivioIlleggibile& Guasto) {
        Fatta.Escluso = Guasto.Descrizione + u"\nIl destinatario va scritto a mano."_s;
    }
    return Fatta;
}

bool EIndirizzo(const QString& Testo)
{
    static const QRegularExpression Segni(u"\\A[A-Za-z0-9_][A-Za-z0-9._+@-]*\\z"_s);
    return PostaTorna(Testo) && Segni.match(Testo).hasMatch();
}
