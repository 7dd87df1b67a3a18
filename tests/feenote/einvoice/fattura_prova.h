// What the tests of the electronic invoice share: notes made of figures alone, their totals reckoned once
// more in whole cents, parties, and the schema's own judgement by a program that is not ours.
#pragma once

#include "feenote/einvoice/composizione.h"
#include "feenote/einvoice/controlli.h"
#include "feenote/einvoice/scrittura.h"
#include "platform/base/regionale.h"
#include "supporto/prova.h"

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QXmlStreamReader>

#include <array>

namespace fattura_prova {

using namespace Qt::StringLiterals;

inline const QDate Giorno(2026, 1, 20);

// ---- a note as figures: amounts in cents, percentages in hundredths

struct Cifre
{
    QList<qint64> Onorari = {};
    QList<std::pair<qint64, qint64>> Spese = {};  ///< taxable, exempt
    QList<std::array<qint64, 3>> Acconti = {};    ///< fees, taxable expenses, exempt expenses
    int SpeseGen = 0, CP = 0, IVA = 0, RA = 0;    ///< 0: the switch is off
    bool Agevolato = false;
    bool PerCassa = false;
    bool Esposti = true;  ///< the payments are listed
    int Tipo = StampaFatturaAnalitica;
};

inline QString InEuro(qint64 Centesimi)
{
    const qint64 Assoluti = std::abs(Centesimi);
    return (Centesimi < 0 ? u"-"_s : QString()) + QString::number(Assoluti / 100) + u'.' +
           QString::number(Assoluti % 100).rightJustified(2, u'0');
}

inline void Accendi(Spunta& Tick, Casella& Box, int Centesimi)
{
    Tick.Attiva = Centesimi != 0;
    Box.Testo = Centesimi == 0 ? QString() : CStr(double(Centesimi) / 100);
}

inline Parcella Nota(const Cifre& Da)
{
    Parcella Nuova;
    Nuova.Pronta = true;
    Nuova.cmbTipoStampa = Da.Tipo;
    Nuova.txtDatiPar[DatoNumFatt] = u"7"_s;
    Nuova.txtDatiPar[DatoDataFatt] = u"15/01/2026"_s;
    Nuova.txtDatiStaOgg.Testo = u"Rossi contro Bianchi"_s;
    int Numero = 0;
    for (const qint64 Importo : Da.Onorari) {
        const int Riga = Nuova.xOnorari.AggiungiRiga();
        Nuova.xOnorari(Riga, OnoDescr) = u"Fase %1"_s.arg(++Numero);
        Nuova.xOnorari(Riga, OnoImporto) = double(Importo) / 100;
    }
    for (const auto& [Imponibile, Esente] : Da.Spese) {
        const int Riga = Nuova.xDiritti.AggiungiRiga();
        Nuova.xDiritti(Riga, DirDescr) = u"Spesa %1"_s.arg(++Numero);
        Nuova.xDiritti(Riga, DirImponibile) = double(Imponibile) / 100;
        Nuova.xDiritti(Riga, DirEsente) = double(Esente) / 100;
    }
    for (const auto& Acconto : Da.Acconti) {
        const int Riga = Nuova.xAcconti.AggiungiRiga();
        Nuova.xAcconti(Riga, AccDescr) = u"bonifico %1"_s.arg(++Numero);
        Nuova.xAcconti(Riga, AccValuta) = u"E"_s;
        Nuova.xAcconti(Riga, AccCorrispettivi) = double(Acconto[0]) / 100;
        Nuova.xAcconti(Riga, AccSpeseImp) = double(Acconto[1]) / 100;
        Nuova.xAcconti(Riga, AccSpeseEsenti) = double(Acconto[2]) / 100;
    }
    Accendi(Nuova.chkSpeseGen, Nuova.txtSpeGen, Da.SpeseGen);
    Accendi(Nuova.chkCP, Nuova.txtCP, Da.CP);
    Accendi(Nuova.chkIva, Nuova.txtIVA, Da.IVA);
    Accendi(Nuova.chkRA, Nuova.txtRA, Da.RA);
    Nuova.chkAcconti.Attiva = Da.Esposti;
    Nuova.chkIvaDiff.Attiva = Da.PerCassa;
    Nuova.chkRegSempl.Attiva = Da.Agevolato;
    Nuova.chkIva.Abilitata = Nuova.chkRA.Abilitata = !Da.Agevolato;
    return Nuova;
}

// ---- its totals, in whole cents and in this test's own words

struct Totali
{
    qint64 Compensi = 0, SpeseGen = 0, Base = 0, Cassa = 0, Iva = 0, Esenti = 0, Totale = 0, Ritenuta = 0,
           Netto = 0;
};

/// So many hundredths of a percent of an amount; half a cent goes away from zero.
inline qint64 Quota(qint64 Centesimi, int Perc)
{
    const qint64 Prodotto = Centesimi * Perc;
    const qint64 Assoluto = (std::abs(Prodotto) * 2 + 10000) / 20000;
    return Prodotto < 0 ? -Assoluto : Assoluto;
}

inline Totali Calcola(const Cifre& Da)
{
    Totali Fatti;
    for (const qint64 Importo : Da.Onorari)
        Fatti.Compensi += Importo;
    Fatti.SpeseGen = Quota(Fatti.Compensi, Da.SpeseGen);
    Fatti.Base = Fatti.Compensi + Fatti.SpeseGen;
    for (const auto& [Imponibile, Esente] : Da.Spese) {
        Fatti.Base += Imponibile;
        Fatti.Esenti += Esente;
    }
    if (Da.Tipo == StampaFatturaAnalitica || Da.Esposti)
        for (const auto& Acconto : Da.Acconti) {
            Fatti.Base -= Acconto[0] + Acconto[1];
            Fatti.Esenti -= Acconto[2];
        }
    Fatti.Cassa = Quota(Fatti.Base, Da.CP);
    Fatti.Iva = Da.Agevolato ? 0 : Quota(Fatti.Base + Fatti.Cassa, Da.IVA);
    Fatti.Ritenuta = Da.Agevolato ? 0 : Quota(Fatti.Base, Da.RA);
    Fatti.Totale = Fatti.Base + Fatti.Cassa + Fatti.Iva + Fatti.Esenti;
    Fatti.Netto = Fatti.Totale - Fatti.Ritenuta;
    return Fatti;
}

// ---- parties

inline Cedente Avvocato(const QString& Regime = u"RF01"_s)
{
    Cedente Studio;
    Studio.PartitaIva = u"01234567897"_s;
    Studio.CodiceFiscale = u"RSSMRA80A01H501U"_s;
    Studio.Nome = u"Mario"_s;
    Studio.Cognome = u"Rossi"_s;
    Studio.Indirizzo = {u"Via della Prova"_s, u"1"_s, u"00100"_s, u"Roma"_s, u"RM"_s, u"IT"_s};
    Studio.Regime = Regime;
    Studio.Iban = u"IT60X0542811101000000123456"_s;
    Studio.Email = u"studio@example.com"_s;
    return Studio;
}

inline Cessionario Societa()
{
    Cessionario Cliente;
    Cliente.Genere = GenereCliente::Societa;
    Cliente.PartitaIva = u"09876543217"_s;
    Cliente.Denominazione = u"CLIENTE DI PROVA S.R.L."_s;
    Cliente.Indirizzo = {u"Via dell'Esempio"_s, u"2/a"_s, u"20100"_s, u"Milano"_s, u"MI"_s, u"IT"_s};
    Cliente.CodiceDestinatario = u"ABC1234"_s;
    return Cliente;
}

inline Cessionario Persona()
{
    Cessionario Cliente;
    Cliente.CodiceFiscale = u"BNCLRA75C41F205N"_s;
    Cliente.Nome = u"Laura"_s;
    Cliente.Cognome = u"Bianchi"_s;
    Cliente.Indirizzo = {u"Corso Ligure"_s, u"14"_s, u"16100"_s, u"Genova"_s, u"GE"_s, u"IT"_s};
    Cliente.Pec = u"laura.bianchi@pec.example.com"_s;
    return Cliente;
}

inline Cessionario Estera()
{
    Cessionario Cliente;
    Cliente.Genere = GenereCliente::Societa;
    Cliente.PartitaIva = u"DE 123 456 789"_s;
    Cliente.Denominazione = u"Müller & Söhne GmbH"_s;
    Cliente.Indirizzo = {u"Hauptstraße"_s, u"5"_s, u"10115"_s, u"Berlin"_s, {}, u"DE"_s};
    return Cliente;
}

inline Cessionario Comune()
{
    Cessionario Cliente = Societa();
    Cliente.Genere = GenereCliente::PubblicaAmministrazione;
    Cliente.PartitaIva.clear();
    Cliente.CodiceFiscale = u"80012345676"_s;
    Cliente.Denominazione = u"Comune di Prova"_s;
    Cliente.CodiceDestinatario = u"UFXX12"_s;
    return Cliente;
}

inline SceltaFattura Scelta(const Parcella& Da)
{
    SceltaFattura Nuova = SceltaDaNota(Da);
    Nuova.Progressivo = u"0000A"_s;
    return Nuova;
}

inline Composizione Componi(const Cifre& Da, const Cedente& Studio, const Cessionario& Cliente,
                            const std::function<void(SceltaFattura&)>& Cambia = {})
{
    const Parcella DaNota = Nota(Da);
    SceltaFattura Sua = Scelta(DaNota);
    if (Cambia)
        Cambia(Sua);
    return ComponiFatturaElettronica(DaNota, Studio, Cliente, Sua, Giorno);
}

inline QStringList Frasi(const QList<MancanzaFattura>& Tutte)
{
    QStringList Testi;
    for (const MancanzaFattura& Voce : Tutte)
        Testi += Voce.Messaggio;
    return Testi;
}

inline QStringList Detti(const QList<EsitoControllo>& Esiti)
{
    QStringList Testi;
    for (const EsitoControllo& Esito : Esiti)
        Testi += TestoEsito(Esito);
    return Testi;
}

// ---- the file, read in this test's own way

/// The text of every element by its path from the root, in the order of the file.
inline QList<std::pair<QString, QString>> Foglie(const QByteArray& Xml)
{
    QList<std::pair<QString, QString>> Tutte;
    QStringList Percorso;
    QXmlStreamReader Lettore(Xml);
    while (!Lettore.atEnd()) {
        switch (Lettore.readNext()) {
        case QXmlStreamReader::StartElement:
            Percorso += Lettore.name().toString();
            Tutte.append({Percorso.join(u'/'), {}});
            break;
        case QXmlStreamReader::Characters:
            if (!Tutte.isEmpty() && !Lettore.isWhitespace())
                Tutte.last().second += Lettore.text();
            break;
        case QXmlStreamReader::EndElement:
            Percorso.removeLast();
            break;
        default:
            break;
        }
    }
    return Tutte;
}

/// The texts of the elements whose path ends so.
inline QStringList Testi(const QByteArray& Xml, const QString& Fine)
{
    QStringList Trovati;
    for (const auto& [Percorso, Testo] : Foglie(Xml))
        if (Percorso.endsWith(u'/' + Fine))
            Trovati += Testo;
    return Trovati;
}

inline QString Testo(const QByteArray& Xml, const QString& Fine)
{
    return Testi(Xml, Fine).value(0);
}

inline qint64 Centesimi(const QString& Importo)
{
    return Importo.isEmpty() ? 0 : QString(Importo).remove(u'.').toLongLong();
}

/// Lines with the pension fund, by rate and reason, as the summaries must have them.
inline QMap<QString, qint64> SommePerChiave(const QByteArray& Xml)
{
    QMap<QString, qint64> Somme;
    QString Aliquota;
    QString Natura;
    qint64 Importo = 0;
    QString Dentro;
    const auto Chiudi = [&] {
        if (!Dentro.isEmpty())
            Somme[Aliquota + u' ' + Natura] += Importo;
        Dentro.clear();
    };
    for (const auto& [Percorso, Valore] : Foglie(Xml)) {
        const QString Nome = Percorso.section(u'/', -1);
        if (Nome == u"DettaglioLinee" || Nome == u"DatiCassaPrevidenziale") {
            Chiudi();
            Dentro = Percorso;
            Natura.clear();
            continue;
        }
        if (!Percorso.startsWith(Dentro + u'/'))
            Chiudi();
        if (Dentro.isEmpty())
            continue;
        if (Nome == u"PrezzoTotale" || Nome == u"ImportoContributoCassa")
            Importo = Centesimi(Valore);
        else if (Nome == u"AliquotaIVA")
            Aliquota = Valore;
        else if (Nome == u"Natura")
            Natura = Valore;
    }
    Chiudi();
    return Somme;
}

/// What the summaries of the file say, and the taxes that follow from them; "" where all agree.
inline QString SommeTornano(const QByteArray& Xml)
{
    const QStringList Aliquote = Testi(Xml, u"DatiRiepilogo/AliquotaIVA"_s);
    const QStringList Imponibili = Testi(Xml, u"DatiRiepilogo/ImponibileImporto"_s);
    const QStringList Imposte = Testi(Xml, u"DatiRiepilogo/Imposta"_s);
    QMap<QString, qint64> Attese = SommePerChiave(Xml);
    QStringList Nature;
    for (const auto& [Percorso, Valore] : Foglie(Xml)) {
        if (Percorso.endsWith(u"/DatiRiepilogo"))
            Nature += QString();
        if (Percorso.endsWith(u"/DatiRiepilogo/Natura"))
            Nature.last() = Valore;
    }
    qint64 Totale = 0;
    for (qsizetype i = 0; i < Aliquote.size(); ++i) {
        const QString Chiave = Aliquote[i] + u' ' + Nature[i];
        if (!Attese.contains(Chiave) || Attese.take(Chiave) != Centesimi(Imponibili[i]))
            return u"the base of "_s + Chiave;
        if (Centesimi(Imposte[i]) != Quota(Centesimi(Imponibili[i]), int(Centesimi(Aliquote[i]))))
            return u"the tax of "_s + Chiave;
        Totale += Centesimi(Imponibili[i]) + Centesimi(Imposte[i]);
    }
    if (!Attese.isEmpty())
        return u"no summary of "_s + Attese.firstKey();
    return Totale == Centesimi(Testo(Xml, u"ImportoTotaleDocumento"_s)) ? QString() : u"the total"_s;
}

/// Compares the file with totals that were reckoned from the note's figures; "" where all agree.
inline QString TotaliTornano(const QByteArray& Xml, const Totali& Attesi, qint64 DaPagare)
{
    const QList<std::tuple<QString, QString, qint64>> Righe{
        {u"total"_s, Testo(Xml, u"ImportoTotaleDocumento"_s), Attesi.Totale},
        {u"fund"_s, Testo(Xml, u"ImportoContributoCassa"_s), Attesi.Cassa},
        {u"withholding"_s, Testo(Xml, u"ImportoRitenuta"_s), Attesi.Ritenuta},
        {u"payment"_s, Testo(Xml, u"ImportoPagamento"_s), DaPagare},
    };
    for (const auto& [Nome, Scritto, Atteso] : Righe)
        if (Centesimi(Scritto) != Atteso)
            return u"%1: %2 instead of %3"_s.arg(Nome, Scritto, InEuro(Atteso));
    qint64 Iva = 0;
    for (const QString& Imposta : Testi(Xml, u"DatiRiepilogo/Imposta"_s))
        Iva += Centesimi(Imposta);
    return Iva == Attesi.Iva ? QString() : u"VAT: %1 instead of %2"_s.arg(InEuro(Iva), InEuro(Attesi.Iva));
}

// ---- the schema, by xmllint

inline QString CartellaSchema()
{
    return FileDiProva(u"feenote/einvoice/schema/"_s);
}

/// What xmllint writes of the files. It asks no network: the other schema is found by a catalogue. Empty
/// where the program is missing.
inline QStringList UscitaXmllint(const QStringList& File)
{
    QProcess Programma;
    QProcessEnvironment Ambiente = QProcessEnvironment::systemEnvironment();
    Ambiente.insert(u"XML_CATALOG_FILES"_s, CartellaSchema() + u"catalogo.xml"_s);
    Ambiente.insert(u"LC_ALL"_s, u"C"_s);
    Programma.setProcessEnvironment(Ambiente);
    Programma.setProcessChannelMode(QProcess::MergedChannels);
    const QStringList Argomenti{u"--noout"_s, u"--nonet"_s, u"--schema"_s,
                                CartellaSchema() + u"Schema_VFPR12_v1.2.3.xsd"_s};
    Programma.start(u"xmllint"_s, Argomenti + File);
    if (!Programma.waitForFinished(60000))
        return {};
    return QString::fromUtf8(Programma.readAll()).split(u'\n');
}

/// Its judgement of each file: true for one that the schema has. An empty list where the program is missing,
/// or could not judge.
inline QList<bool> Validi(const QStringList& File)
{
    const QStringList Uscita = UscitaXmllint(File);
    const QSet<QString> Righe(Uscita.cbegin(), Uscita.cend());
    QList<bool> Esiti;
    for (const QString& Nome : File) {
        const bool Bene = Righe.contains(Nome + u" validates"_s);
        // A file of which nothing is said is no judgement: the schema itself could not be read.
        if (!Bene && !Righe.contains(Nome + u" fails to validate"_s)) {
            const bool Rotto = std::any_of(Uscita.cbegin(), Uscita.cend(), [&](const QString& Riga) {
                return Riga.startsWith(Nome + u':') && Riga.contains(u"parser error"_s);
            });
            if (!Rotto)
                return {};
        }
        Esiti += Bene;
    }
    return Esiti;
}

inline QString Posa(const QString& Cartella, const QString& Nome, const QByteArray& Byte)
{
    QFile File(Cartella + Nome);
    if (!File.open(QIODevice::WriteOnly) || File.write(Byte) != Byte.size())
        qFatal("the test's own file cannot be written");
    return Cartella + Nome;
}

/// Fails the test unless the schema has the file.
inline void ConvalidaTutti(const QStringList& File)
{
    const QList<bool> Esiti = Validi(File);
    QVERIFY2(Esiti.size() == File.size(),
             "xmllint is not here (package libxml2-utils), or cannot read the schema");
    for (qsizetype i = 0; i < File.size(); ++i)
        QVERIFY2(Esiti[i], qPrintable(File[i]));
}

/// A composed invoice written, checked by the program, by the schema and by sums of this test's own.
inline void ScriviEControlla(const Composizione& Fatta, const QString& File)
{
    QVERIFY2(Fatta.Completa(), qPrintable(Frasi(Fatta.Mancanze).join(u'\n')));
    SalvaFattura(File, Fatta.Fattura, Giorno);
    QFile Scritto(File);
    QVERIFY(Scritto.open(QIODevice::ReadOnly));
    const QByteArray Byte = Scritto.readAll();
    QCOMPARE(Detti(ControllaFattura(Byte, NomeFileFattura(Fatta.Fattura), Giorno)), QStringList());
    QCOMPARE(SommeTornano(Byte), QString());
    ConvalidaTutti({File});
}

inline QByteArray Contenuto(const QString& File)
{
    QFile Letto(File);
    return Letto.open(QIODevice::ReadOnly) ? Letto.readAll() : QByteArray();
}

}  // namespace fattura_prova
