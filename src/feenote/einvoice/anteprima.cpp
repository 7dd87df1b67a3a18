#include "feenote/einvoice/anteprima.h"
#include "feenote/einvoice/codici.h"
#include "platform/base/regionale.h"

#include <QStringList>

using namespace Qt::StringLiterals;

namespace {

QString Scritto(const QString& Testo)
{
    return Testo.toHtmlEscaped();
}

QString Euro(double Importo)
{
    return Format(Importo, u"#,##0.00;-#,##0.00");
}

QString Percento(double Aliquota)
{
    return CStr(Aliquota) + u'%';
}

QString Giorno(const QDate& Data)
{
    return Data.isValid() ? Format(Data, ModelloData) : u"--"_s;
}

/// A row of a table; the last cells are amounts, to the right.
QString Riga(const QStringList& Celle, qsizetype Testi, QStringView Elemento = u"td")
{
    QString Html = u"<tr>"_s;
    for (qsizetype i = 0; i < Celle.size(); ++i)
        Html += u"<%1%2>%3</%1>"_s.arg(Elemento, i < Testi ? u" align=\"left\"" : u" align=\"right\"",
                                       Scritto(Celle[i]));
    return Html + u"</tr>"_s;
}

QString Tabella(const QString& Righe)
{
    // A hair less than the page, because the border stands outside of the width.
    return u"<table width=\"99%\" border=\"1\" cellspacing=\"0\" cellpadding=\"4\" "
           "style=\"border-collapse:collapse;border-color:#888888\">"_s +
           Righe + u"</table>"_s;
}

QString TitoloPagina(const QString& Testo)
{
    return u"<h3>"_s + Scritto(Testo) + u"</h3>"_s;
}

QString ParteInPagina(const QString& Nome, const ParteFattura& Chi, const QStringList& Altro)
{
    const Sede& Luogo = Chi.Indirizzo;
    QStringList Righe{Chi.NomeIntero()};
    Righe += (Luogo.Indirizzo + u' ' + Luogo.NumeroCivico).trimmed();
    const QString Provincia = Luogo.Provincia.isEmpty() ? QString() : u" ("_s + Luogo.Provincia + u')';
    Righe += (Luogo.Cap + u' ' + Luogo.Comune).trimmed() + Provincia + u" - "_s + Luogo.Nazione;
    if (Chi.IdFiscaleIva)
        Righe += u"Partita IVA: "_s + Chi.IdFiscaleIva->Paese + Chi.IdFiscaleIva->Codice;
    if (!Chi.CodiceFiscale.isEmpty())
        Righe += u"Codice fiscale: "_s + Chi.CodiceFiscale;
    Righe += Altro;
    QString Html = u"<td width=\"50%\" valign=\"top\"><b>"_s + Scritto(Nome) + u"</b>"_s;
    for (const QString& Riga : Righe)
        Html += u"<br>"_s + Scritto(Riga);
    return Html + u"</td>"_s;
}

QString Parti(const FatturaElettronica& Fattura)
{
    QStringList Invio{u"Codice destinatario: "_s + Fattura.CodiceDestinatario};
    if (!Fattura.PecDestinatario.isEmpty())
        Invio += u"PEC: "_s + Fattura.PecDestinatario;
    QStringList Studio{u"Regime fiscale: "_s + ConNome(regimi::Voci(), Fattura.Regime)};
    if (!Fattura.EmailCedente.isEmpty())
        Studio += u"E-mail: "_s + Fattura.EmailCedente;
    return Tabella(u"<tr>"_s + ParteInPagina(u"Cedente/prestatore"_s, Fattura.Cedente, Studio) +
                   ParteInPagina(u"Cessionario/committente"_s, Fattura.Cessionario, Invio) + u"</tr>"_s);
}

QString Documento(const FatturaElettronica& Fattura)
{
    QString Html = TitoloPagina(
        u"%1 n. %2 del %3"_s.arg(ConNome(TipiFattura(), Fattura.Tipo), Fattura.Numero, Giorno(Fattura.Data)));
    for (const QString& Causale : Fattura.Causali)
        Html += u"<p>"_s + Scritto(Causale) + u"</p>"_s;
    const auto Citato = [&Html](const QString& Nome, const DocumentoCitato& Quale) {
        QString Testo = Nome + u' ' + Quale.Numero;
        if (Quale.Data.isValid())
            Testo += u" del "_s + Giorno(Quale.Data);
        if (!Quale.Cup.isEmpty())
            Testo += u", CUP "_s + Quale.Cup;
        if (!Quale.Cig.isEmpty())
            Testo += u", CIG "_s + Quale.Cig;
        Html += u"<p>"_s + Scritto(Testo) + u"</p>"_s;
    };
    if (Fattura.Contratto)
        Citato(u"Contratto"_s, *Fattura.Contratto);
    for (const DocumentoCitato& Collegata : Fattura.Collegate)
        Citato(u"Fattura collegata"_s, Collegata);
    return Html;
}

/// A rate, or the reason why there is none.
QString Iva(double Aliquota, const QString& Natura)
{
    return Natura.isEmpty() ? Percento(Aliquota) : Natura;
}

QString Linee(const FatturaElettronica& Fattura)
{
    QString Righe = Riga({u"N."_s, u"Descrizione"_s, u"IVA"_s, u"Importo"_s}, 2, u"th");
    int Posto = 0;
    for (const LineaFattura& Linea : Fattura.Linee)
        Righe += Riga({QString::number(++Posto), Linea.Descrizione, Iva(Linea.AliquotaIva, Linea.Natura),
                       Euro(Linea.Importo)},
                      2);
    return Tabella(Righe);
}

QString CassaERitenuta(const FatturaElettronica& Fattura)
{
    QString Righe;
    if (const auto& Cassa = Fattura.Cassa)
        Righe += Riga({u"Cassa previdenza (%1) %2 su %3"_s.arg(Cassa->Tipo, Percento(Cassa->Aliquota),
                                                               Euro(Cassa->Imponibile)),
                       Iva(Cassa->AliquotaIva, Cassa->Natura), Euro(Cassa->Contributo)},
                      1);
    if (const auto& Ritenuta = Fattura.Ritenuta)
        Righe += Riga({u"Ritenuta d'acconto (%1, causale %2) %3"_s.arg(Ritenuta->Tipo, Ritenuta->Causale,
                                                                       Percento(Ritenuta->Aliquota)),
                       QString(), Euro(-Ritenuta->Importo)},
                      1);
    if (Fattura.Bollo > 0)
        Righe += Riga({u"Imposta di bollo assolta in modo virtuale"_s, QString(), Euro(Fattura.Bollo)}, 1);
    return Righe.isEmpty() ? QString() : u"<p></p>"_s + Tabella(Righe);
}

QString Esigibilita(const QString& Codice)
{
    return Codice == u"S"   ? u"scissione dei pagamenti"_s
           : Codice == u"D" ? u"differita"_s
           : Codice == u"I" ? u"immediata"_s
                            : QString();
}

QString Riepiloghi(const FatturaElettronica& Fattura)
{
    QString Righe =
        Riga({u"IVA"_s, u"Riferimento"_s, u"Esigibilità"_s, u"Imponibile"_s, u"Imposta"_s}, 3, u"th");
    for (const RiepilogoFattura& Voce : Fattura.Riepiloghi)
        Righe += Riga({Iva(Voce.AliquotaIva, Voce.Natura), Voce.RiferimentoNormativo,
                       Esigibilita(Voce.Esigibilita), Euro(Voce.Imponibile), Euro(Voce.Imposta)},
                      3);
    return TitoloPagina(u"Riepilogo"_s) + Tabella(Righe) +
           u"<p align=\"right\"><b>Totale documento: euro %1</b></p>"_s.arg(Euro(Fattura.Totale));
}

QString Pagamento(const FatturaElettronica& Fattura)
{
    if (!Fattura.Pagamento)
        return {};
    QStringList Celle{ConNome(ModalitaPagamento(), Fattura.Pagamento->Modalita)};
    if (!Fattura.Pagamento->Iban.isEmpty())
        Celle += u"IBAN "_s + Fattura.Pagamento->Iban;
    if (Fattura.Pagamento->Scadenza.isValid())
        Celle += u"entro il "_s + Giorno(Fattura.Pagamento->Scadenza);
    return TitoloPagina(u"Pagamento"_s) +
           Tabella(Riga({Celle.join(u", "_s), Euro(Fattura.Pagamento->Importo)}, 1));
}

}  // namespace

QString PaginaFattura(const FatturaElettronica& Fattura)
{
    return u"<html><body>"_s + Parti(Fattura) + Documento(Fattura) + Linee(Fattura) +
           CassaERitenuta(Fattura) + Riepiloghi(Fattura) + Pagamento(Fattura) + u"</body></html>"_s;
}
