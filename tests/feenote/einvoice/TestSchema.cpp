// The tables of the schema beside the schema itself: its elements and lists, and its judgement of files that
// are spoilt in every place, by a program that is not ours.
#include "fattura_prova.h"

#include "feenote/einvoice/forma.h"
#include "feenote/einvoice/schema.h"

using namespace Qt::StringLiterals;
using namespace fattura_prova;

namespace {

// ---- the schema, read in this test's own way

struct SchemaLetto
{
    QMap<QString, QStringList> Gruppi;  ///< "name type least most alternative" of each element
    QMap<QString, QStringList> Codici;
    QStringList Valori;
};

SchemaLetto LeggiSchema()
{
    SchemaLetto Letto;
    QXmlStreamReader Lettore(Contenuto(CartellaSchema() + u"Schema_VFPR12_v1.2.3.xsd"_s));
    QString Tipo;
    bool Gruppo = false;
    int Alternativa = 0;
    int Sequenze = 0;
    const auto Valore = [&](const QString& Nome, const QString& Manca) {
        const QStringView Scritto = Lettore.attributes().value(Nome);
        return Scritto.isEmpty() ? Manca : Scritto.toString();
    };
    bool Scelta = false;
    while (!Lettore.atEnd()) {
        Lettore.readNext();
        const QString Nome = Lettore.name().toString();
        if (Lettore.isStartElement()) {
            if (Nome == u"complexType" || Nome == u"simpleType") {
                Tipo = Valore(u"name"_s, {});
                Gruppo = Nome == u"complexType";
                if (!Gruppo)
                    Letto.Valori += Tipo;
            } else if (Nome == u"choice") {
                Scelta = true;
                Sequenze = 0;
            } else if (Nome == u"sequence" && Scelta) {
                Alternativa = ++Sequenze;
            } else if (Nome == u"element" && Gruppo && !Tipo.isEmpty()) {
                const bool Firma = !Valore(u"ref"_s, {}).isEmpty();
                Letto.Gruppi[Tipo] +=
                    QStringList{Firma ? u"Signature"_s : Valore(u"name"_s, {}),
                                Firma ? u"ds:Signature"_s : Valore(u"type"_s, {}),
                                Valore(u"minOccurs"_s, u"1"_s), Valore(u"maxOccurs"_s, u"1"_s),
                                QString::number(Alternativa)}
                        .join(u' ');
            } else if (Nome == u"enumeration") {
                Letto.Codici[Tipo] += Valore(u"value"_s, {});
            }
        } else if (Lettore.isEndElement()) {
            if (Nome == u"choice")
                Scelta = false;
            if (Nome == u"sequence")
                Alternativa = 0;
            if (Nome == u"complexType")
                Tipo.clear();
        }
    }
    return Letto;
}

QString Volte(int Numero)
{
    return Numero == std::numeric_limits<int>::max() ? u"unbounded"_s : QString::number(Numero);
}

// ---- a file that holds every element

/// Values that a kind takes, the first in the file that holds everything.
QString Buono(const TipoValore& Tipo)
{
    using enum FormaValore;
    switch (Tipo.Forma) {
    case Elenco:
        return Tipo.Codici.toString().section(u' ', 0, 0);
    case Maiuscole:
        return QString(Tipo.Minimo, u'I');
    case Cifre:
    case Alfanumerico:
        return QString(Tipo.Minimo, u'1');
    case Decimale:
        return u"1."_s + QString(Tipo.MinimoDecimali, u'0');
    case Intero:
        return QString::number(Tipo.Minimo);
    case Data:
        return u"2026-01-15"_s;
    case DataOra:
        return u"2026-01-15T10:00:00"_s;
    case Base64:
        return u"QUJD"_s;
    case Iban:
        return u"IT60X0542811101000000123456"_s;
    case Bic:
        return u"BCITITMM"_s;
    case Posta:
    case PostaContatti:
        return u"a.b@c.it"_s;
    default:
        return QString(Tipo.Minimo, u'x');
    }
}

/// An element of a file that is being made; the tree goes as deep as the schema does.
struct Pianta
{
    QString Nome;
    QString Valore;
    QString Tipo;
    QList<Pianta> Figli;
};

Pianta Cresci(const QString& Nome, const QString& Tipo)
{
    Pianta Nuova{Nome, {}, Tipo, {}};
    if (const TipoValore* Valore = TipoValoreDi(Tipo)) {
        Nuova.Valore = Buono(*Valore);
        return Nuova;
    }
    for (const ElementoSchema& Elemento : TipoComplessoDi(Tipo)->Elementi)
        if (Elemento.Alternativa < 2 && Elemento.Tipo != TipoFirma)
            Nuova.Figli += Cresci(Elemento.Nome.toString(), Elemento.Tipo.toString());
    return Nuova;
}

/// Each element begins a line, so that whoever finds fault with it names that line.
void Scrivi(const Pianta& Da, QString& Xml)
{
    Xml += u"\n<"_s + Da.Nome + u'>';
    if (Da.Figli.isEmpty())
        Xml += Da.Valore.toHtmlEscaped();
    for (const Pianta& Figlio : Da.Figli)
        Scrivi(Figlio, Xml);
    Xml += u"</"_s + Da.Nome + u'>';
}

QByteArray Xml(const Pianta& Radice)
{
    QString Testo;
    for (const Pianta& Figlio : Radice.Figli)
        Scrivi(Figlio, Testo);
    return (u"<p:FatturaElettronica xmlns:p=\"%1\" versione=\"FPR12\">"_s.arg(SpazioFattura) + Testo +
            u"</p:FatturaElettronica>"_s)
        .toUtf8();
}

/// Does something with every element of the tree, by its parent and place; of a group that stands in several
/// places with those of one.
void PerOgni(Pianta& Radice, QSet<QString>& Visti,
             const std::function<void(Pianta& Padre, qsizetype Posto)>& Fai)
{
    if (Radice.Figli.isEmpty() || Visti.contains(Radice.Tipo))
        return;
    Visti += Radice.Tipo;
    for (qsizetype i = 0; i < Radice.Figli.size(); ++i) {
        Fai(Radice, i);
        PerOgni(Radice.Figli[i], Visti, Fai);
    }
}

/// Ours and the other judgement of one file.
struct Giudizio
{
    QString Che;
    QString File;
    bool Nostro = false;
};

class Tribunale
{
public:
    void Porta(const QString& Che, const QByteArray& Byte)
    {
        const LetturaXml Letto = LeggiXml(Byte);
        QVERIFY2(Letto.Guasto.isEmpty(), qPrintable(Letto.Guasto));
        Giudizi += Giudizio{Che, Posa(Cartella, u"%1.xml"_s.arg(Giudizi.size()), Byte),
                            ControllaForma(Letto.Albero).isEmpty()};
    }
    void Confronta()
    {
        QStringList File;
        for (const Giudizio& Uno : Giudizi)
            File += Uno.File;
        const QList<bool> Altrui = Validi(File);
        QVERIFY2(Altrui.size() == File.size(),
                 "xmllint is not here (package libxml2-utils), or could not judge");
        QStringList Diversi;
        for (qsizetype i = 0; i < Giudizi.size(); ++i)
            if (Giudizi[i].Nostro != Altrui[i])
                Diversi += Giudizi[i].Che + (Altrui[i] ? u" is valid"_s : u" is not valid"_s);
        QCOMPARE(Diversi, QStringList());
    }
    [[nodiscard]] qsizetype Quanti() const { return Giudizi.size(); }

private:
    QString Cartella = NuovaCartella();
    QList<Giudizio> Giudizi;
};

QString Elenco(const QSet<qint64>& Linee)
{
    QList<qint64> InOrdine(Linee.cbegin(), Linee.cend());
    std::ranges::sort(InOrdine);
    QStringList Testi;
    for (const qint64 Linea : InOrdine)
        Testi += QString::number(Linea);
    return Testi.join(u' ');
}

/// The lines of each file that xmllint finds fault with.
QStringList LineeErrate(const QStringList& File)
{
    QHash<QString, QSet<qint64>> Trovate;
    for (const QString& Riga : UscitaXmllint(File))
        if (const qsizetype Posto = Riga.indexOf(u".xml:"); Posto > 0 && Riga.contains(u"validity error"))
            Trovate[Riga.first(Posto + 4)] += Riga.sliced(Posto + 5).section(u':', 0, 0).toLongLong();
    QStringList Elenchi;
    for (const QString& Nome : File)
        Elenchi += Elenco(Trovate.value(Nome));
    return Elenchi;
}

/// Texts that are tried as the value of every kind.
QStringList ValoriDaProvare()
{
    QStringList Tutti{u""_s,
                      u" "_s,
                      u"x"_s,
                      u"xx"_s,
                      u" xx "_s,
                      u"è"_s,
                      u"Ж"_s,
                      u"€"_s,
                      u"a\nb"_s,
                      u"a\tb"_s,
                      u"IT"_s,
                      u"it"_s,
                      u"EUR"_s,
                      u"0"_s,
                      u"1"_s,
                      u"-1"_s,
                      u"+1"_s,
                      u" 1 "_s,
                      u"01"_s,
                      u"9999"_s,
                      u"10000"_s,
                      u"999"_s,
                      u"1000"_s,
                      u"1.0"_s,
                      u"1.00"_s,
                      u" 1.00 "_s,
                      u"-1.00"_s,
                      u"+1.00"_s,
                      u"1.000"_s,
                      u"1.00000000"_s,
                      u"1.000000000"_s,
                      u".00"_s,
                      u"1."_s,
                      u"1,00"_s,
                      u"100.00"_s,
                      u"100.01"_s,
                      u"999.99"_s,
                      u"1000.00"_s,
                      u"12345.00"_s,
                      u"99999999999.99"_s,
                      u"100000000000.00"_s,
                      u"1e3"_s,
                      u"00145"_s,
                      u"0014"_s,
                      u"001456"_s,
                      u"12345678901"_s,
                      u"1234567890"_s,
                      u"RSSMRA80A01H501U"_s,
                      u"RSSMRA80A01H501UX"_s,
                      u"rssmra80a01h501u"_s,
                      u"ABCDEF"_s,
                      u"ABCDEFG"_s,
                      u"ABCDEFGH"_s,
                      u"FPA12"_s,
                      u"FPR12"_s,
                      u"FPR12 "_s,
                      u"SI"_s,
                      u"NO"_s,
                      u"SC"_s,
                      u"MG"_s,
                      u"TD01"_s,
                      u"TD07"_s,
                      u"TD29"_s,
                      u"TD30"_s,
                      u"RF01"_s,
                      u"RF03"_s,
                      u"RF20"_s,
                      u"TC22"_s,
                      u"TC23"_s,
                      u"RT06"_s,
                      u"RT07"_s,
                      u"MP23"_s,
                      u"MP24"_s,
                      u"TP03"_s,
                      u"TP04"_s,
                      u"N1"_s,
                      u"N2.3"_s,
                      u"N3.6"_s,
                      u"N7"_s,
                      u"A"_s,
                      u"F"_s,
                      u"ZO"_s,
                      u"D"_s,
                      u"S"_s,
                      u"CC"_s,
                      u"TZ"_s,
                      u"SU"_s,
                      u"LN"_s,
                      u"PR"_s,
                      u"2026-01-15"_s,
                      u"2026-02-29"_s,
                      u"2024-02-29"_s,
                      u"2026-13-01"_s,
                      u"2026-1-5"_s,
                      u"15/01/2026"_s,
                      u"1969-12-31"_s,
                      u"1970-01-01"_s,
                      u"2026-01-15Z"_s,
                      u"2026-01-15+02:00"_s,
                      u"2026-01-15+15:00"_s,
                      u"2026-01-15T10:00:00"_s,
                      u"2026-01-15T10:00:00.123+01:00"_s,
                      u"2026-01-15T24:00:00"_s,
                      u"2026-01-15T24:00:01"_s,
                      u"2026-01-15T10:60:00"_s,
                      u"2026-01-15 10:00:00"_s,
                      u"a@b.it"_s,
                      u"a.b@c.it"_s,
                      u" a@b.it "_s,
                      u"a@b"_s,
                      u"a b@c.it"_s,
                      u"a@@b.it"_s,
                      u"a..b@c.it"_s,
                      u"à@b.it"_s,
                      u"@b.it"_s,
                      u"aa@bb.it"_s,
                      u"aaaa@.it"_s,
                      u"aaa@b..it"_s,
                      u"aaaaaa@b."_s,
                      u"IT60X0542811101000000123456"_s,
                      u"IT60 X054 2811 1010 0000 0123 456"_s,
                      u"it60x0542811101000000123456"_s,
                      u"IT6X"_s,
                      u"BCITITMM"_s,
                      u"BCITITMMXXX"_s,
                      u"BCITITM0"_s,
                      u"BCITIT0M"_s,
                      u"BCITITMO"_s,
                      u"bcititmm"_s,
                      u"QUJD"_s,
                      u"QUI="_s,
                      u"QUJ="_s,
                      u"QQ=="_s,
                      u"QR=="_s,
                      u"Q==="_s,
                      u"QUJDR"_s,
                      u"QU JD"_s,
                      u"QUJ*"_s,
                      u"="_s};
    for (const int Lungo : {4,  5,  7,  8,  9,  10, 11, 12,  13,  15,  16,  17,  18,  20,   21,  28,
                            29, 35, 36, 60, 61, 80, 81, 100, 101, 200, 201, 256, 257, 1000, 1001})
        Tutti += QString(Lungo, u'x');
    return Tutti;
}

}  // namespace

class TestSchema : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void leTabelleSonoLoSchema();
    void ogniElementoInsieme();
    void unaPiantaRovinata();
    void ogniGenereDiValore();
    void gliAllegati_data();
    void gliAllegati();
    void iBianchiAttornoAlGiorno();
    void attributiESpazi();
};
PROVA(TestSchema);

void TestSchema::leTabelleSonoLoSchema()
{
    const SchemaLetto Letto = LeggiSchema();
    QVERIFY(Letto.Gruppi.size() > 30 && Letto.Valori.size() > 50);
    QMap<QString, QStringList> Gruppi;
    for (const TipoComplesso& Tipo : TipiComplessi())
        for (const ElementoSchema& Elemento : Tipo.Elementi)
            Gruppi[Tipo.Nome.toString()] +=
                QStringList{Elemento.Nome.toString(), Elemento.Tipo.toString(), Volte(Elemento.Volte.Minimo),
                            Volte(Elemento.Volte.Massimo), QString::number(Elemento.Alternativa)}
                    .join(u' ');
    for (auto Suo = Letto.Gruppi.cbegin(); Suo != Letto.Gruppi.cend(); ++Suo)
        QCOMPARE(Gruppi.take(Suo.key()), *Suo);
    QCOMPARE(Gruppi.keys(), QStringList());

    QStringList Valori;
    for (const TipoValore& Tipo : TipiValore()) {
        if (!Tipo.Nome.startsWith(u"xs:"))
            Valori += Tipo.Nome.toString();
        const QStringList Suoi = Tipo.Codici.isEmpty() ? QStringList() : Tipo.Codici.toString().split(u' ');
        QCOMPARE(Suoi, Letto.Codici.value(Tipo.Nome.toString()));
    }
    QStringList Attesi = Letto.Valori;
    Valori.sort();
    Attesi.sort();
    QCOMPARE(Valori, Attesi);
}

void TestSchema::ogniElementoInsieme()
{
    Tribunale Aula;
    Aula.Porta(u"the whole"_s, Xml(Cresci(u"p"_s, TipoRadice.toString())));
    Aula.Confronta();
    const LetturaXml Letto = LeggiXml(Xml(Cresci(u"p"_s, TipoRadice.toString())));
    QStringList Frasi;
    for (const EsitoControllo& Esito : ControllaForma(Letto.Albero))
        Frasi += TestoEsito(Esito);
    QCOMPARE(Frasi, QStringList());
}

/// Every element is left out, doubled, put behind the next one, called otherwise, given a text or an element.
void TestSchema::unaPiantaRovinata()
{
    Tribunale Aula;
    Pianta Intera = Cresci(u"p"_s, TipoRadice.toString());
    QSet<QString> Visti;
    PerOgni(Intera, Visti, [&](Pianta& Padre, qsizetype Posto) {
        const QList<Pianta> Prima = Padre.Figli;
        const QString Nome = Padre.Nome + u'/' + Prima[Posto].Nome;
        Padre.Figli.removeAt(Posto);
        Aula.Porta(Nome + u" left out"_s, Xml(Intera));
        Padre.Figli = Prima;
        Padre.Figli.insert(Posto, Prima[Posto]);
        Aula.Porta(Nome + u" doubled"_s, Xml(Intera));
        Padre.Figli = Prima;
        if (Posto + 1 < Prima.size()) {
            Padre.Figli.swapItemsAt(Posto, Posto + 1);
            Aula.Porta(Nome + u" late"_s, Xml(Intera));
            Padre.Figli = Prima;
        }
        Padre.Figli[Posto].Nome += u'X';
        Aula.Porta(Nome + u" called otherwise"_s, Xml(Intera));
        Padre.Figli = Prima;
        if (Prima[Posto].Nome == u"Denominazione") {
            const Pianta Nome1{u"Nome"_s, u"a"_s, {}, {}};
            const Pianta Cognome{u"Cognome"_s, u"b"_s, {}, {}};
            Padre.Figli.replace(Posto, Nome1);
            Aula.Porta(Nome + u" as a first name alone"_s, Xml(Intera));
            Padre.Figli.insert(Posto + 1, Cognome);
            Aula.Porta(Nome + u" as two names"_s, Xml(Intera));
            Padre.Figli.swapItemsAt(Posto, Posto + 1);
            Aula.Porta(Nome + u" as two names turned round"_s, Xml(Intera));
            Padre.Figli = Prima;
            Padre.Figli.insert(Posto + 1, Nome1);
            Padre.Figli.insert(Posto + 2, Cognome);
            Aula.Porta(Nome + u" beside two names"_s, Xml(Intera));
            Padre.Figli = Prima;
        }
    });
    QVERIFY(Aula.Quanti() > 700);
    Aula.Confronta();
}

/// A value is tried in one element of each kind at once: both judges name the lines that they find fault
/// with. Ours stops at so many, so that the kinds are tried in two halves.
void TestSchema::ogniGenereDiValore()
{
    const QString Cartella = NuovaCartella();
    Pianta Intera = Cresci(u"p"_s, TipoRadice.toString());
    QList<QString*> Valori;
    QSet<QString> Generi;
    QSet<QString> Visti;
    PerOgni(Intera, Visti, [&](Pianta& Padre, qsizetype Posto) {
        Pianta& Sua = Padre.Figli[Posto];
        // A country has a value of its own where none is written, at the seat alone: both are seen.
        const QString Genere = Sua.Nome == u"Nazione" ? Sua.Nome : Sua.Tipo;
        if (Sua.Figli.isEmpty() && !Generi.contains(Genere) && Genere != u"xs:base64Binary")
            Valori += &Sua.Valore;
        if (Sua.Figli.isEmpty())
            Generi += Genere;
    });
    QVERIFY(Generi.size() > 50 && Generi.size() <= 2 * MassimoErroriForma - 10);
    QStringList File;
    QStringList Nostre;
    for (const QString& Prova : ValoriDaProvare())
        for (const qsizetype Meta : {0, 1}) {
            QStringList Prima;
            for (const QString* Valore : Valori)
                Prima += *Valore;
            for (qsizetype i = Meta; i < Valori.size(); i += 2)
                *Valori[i] = Prova;
            const QByteArray Byte = Xml(Intera);
            for (qsizetype i = 0; i < Valori.size(); ++i)
                *Valori[i] = Prima[i];
            File += Posa(Cartella, u"%1.xml"_s.arg(File.size()), Byte);
            QSet<qint64> Linee;
            const LetturaXml Letto = LeggiXml(Byte);
            for (const EsitoControllo& Esito : ControllaForma(Letto.Albero))
                Linee += Esito.Linea;
            Nostre += Elenco(Linee);
        }
    const QStringList Altrui = LineeErrate(File);
    QCOMPARE(Altrui.size(), File.size());
    QStringList Diversi;
    for (qsizetype i = 0; i < File.size(); ++i)
        if (Nostre[i] != Altrui[i])
            Diversi += u"«%1»: lines %2 here, %3 there, %4"_s.arg(ValoriDaProvare()[i / 2].left(40),
                                                                  Nostre[i], Altrui[i], File[i]);
    QVERIFY2(Diversi.isEmpty(), qPrintable(Diversi.join(u'\n')));
}

/// xmllint takes any characters between those of an attachment; the schema does not.
void TestSchema::gliAllegati_data()
{
    QTest::addColumn<QString>("Valore");
    QTest::addColumn<bool>("Valido");
    for (const char* Buono : {"", "QUJD", "QU JD", "QUJD\tQUJD", "QUI=", "QQ==", " QQ== "})
        QTest::addRow("buono «%s»", Buono) << QString::fromLatin1(Buono) << true;
    for (const char* Cattivo :
         {"Q", "QU", "QUJ", "QUJDQ", "QUJ=", "QR==", "Q===", "=", "QUJ*", "\xE8", "QQ==QQ==", "Q=Q="})
        QTest::addRow("cattivo «%s»", Cattivo) << QString::fromLatin1(Cattivo) << false;
}

void TestSchema::gliAllegati()
{
    QFETCH(QString, Valore);
    QTEST(ValoreValido(u"xs:base64Binary", Valore), "Valido");
}

/// xmllint takes no blanks around a day; the schema does, as around a number.
void TestSchema::iBianchiAttornoAlGiorno()
{
    QVERIFY(ValoreValido(u"DataFatturaType", u" 2026-01-15\n"_s));
    QVERIFY(!ValoreValido(u"DataFatturaType", u"2026 -01-15"_s));
}

void TestSchema::attributiESpazi()
{
    Tribunale Aula;
    const QByteArray Base = Xml(Cresci(u"p"_s, TipoRadice.toString()));
    const QByteArray Firma =
        "<s:Signature xmlns:s=\"http://www.w3.org/2000/09/xmldsig#\"><s:SignedInfo>"
        "<s:CanonicalizationMethod Algorithm=\"a\"/><s:SignatureMethod Algorithm=\"b\"/>"
        "<s:Reference><s:DigestMethod Algorithm=\"c\"/><s:DigestValue>QUJD</s:DigestValue>"
        "</s:Reference></s:SignedInfo><s:SignatureValue>QUJD</s:SignatureValue></s:Signature>";
    const QList<std::tuple<QString, QByteArray, QByteArray>> Cambi{
        {u"no version"_s, " versione=\"FPR12\"", ""},
        {u"another version"_s, "\"FPR12\"", "\"FSM10\""},
        {u"the other version"_s, "\"FPR12\"", "\"FPA12\""},
        {u"issuing system"_s, "\"FPR12\"", "\"FPR12\" SistemaEmittente=\"abc\""},
        {u"long issuing system"_s, "\"FPR12\"", "\"FPR12\" SistemaEmittente=\"abcdefghijk\""},
        {u"unknown attribute"_s, "\"FPR12\"", "\"FPR12\" altro=\"1\""},
        {u"place of the schema"_s, "\"FPR12\"",
         "\"FPR12\" xmlns:xsi=\"http://www.w3.org/2001/XMLSchema-instance\" xsi:schemaLocation=\"a b\""},
        {u"attribute within"_s, "<IdPaese>", "<IdPaese a=\"1\">"},
        {u"text between"_s, "<IdPaese>", "x<IdPaese>"},
        {u"blanks between"_s, "<IdPaese>", " \n <IdPaese>"},
        {u"comment between"_s, "<IdPaese>", "<!-- x --><?y z?><IdPaese>"},
        {u"element in a value"_s, "<IdPaese>", "<IdPaese><a/>"},
        {u"names of the invoice's own"_s, "<FatturaElettronicaHeader>",
         "<FatturaElettronicaHeader "
         "xmlns=\"http://ivaservizi.agenziaentrate.gov.it/docs/xsd/fatture/v1.2\">"},
        {u"signed"_s, "</p:", Firma + "</p:"},
        {u"signed twice"_s, "</p:", Firma + Firma + "</p:"},
        {u"signed in front"_s, "<FatturaElettronicaHeader>", Firma + "<FatturaElettronicaHeader>"},
        {u"a signature without its names"_s, "</p:", "<Signature/></p:"},
    };
    for (const auto& [Che, Da, A] : Cambi) {
        QByteArray Byte = Base;
        QVERIFY(Byte.contains(Da));
        Byte.replace(Byte.indexOf(Da), Da.size(), A);
        Aula.Porta(Che, Byte);
    }
    Aula.Confronta();
}

#include "TestSchema.moc"
