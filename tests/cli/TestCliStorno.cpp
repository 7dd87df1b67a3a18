// A credit note from the note of its invoice: the electronic file, the paper and the accountant's row say one
// sum.
#include "ufficio.h"

#include "feenote/file/modLettura.h"
#include "feenote/modAcconti.h"
#include "feenote/modStato.h"
#include "feenote/modStorno.h"
#include "platform/system/file.h"
#include "supporto/registratore.h"

#include <QDir>
#include <QRegularExpression>

using namespace Qt::StringLiterals;

class TestCliStorno : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init() { AzzeraSessione(); }
    void unaSommaSola_data();
    void unaSommaSola();
    void primaLaCarta();
    void dueFatture();
    void pagataERimandata();
    void citataSbagliata();
    void importiCheNonSiLeggono_data();
    void importiCheNonSiLeggono();
};
PROVA(TestCliStorno);

namespace {

void Paga(Parcella& Nota, double Compensi)
{
    const int Riga = NuovoAcconto(Nota);
    Nota.xAcconti(Riga, AccDescr) = u"bonifico"_s;
    Nota.xAcconti(Riga, AccCorrispettivi) = Compensi;
}

void Riscrivi(const QString& File, const std::function<void(Parcella&)>& Cambia)
{
    Registratore Messaggi;
    Parcella Nota;
    CaricaDati(Nota, File);
    Cambia(Nota);
    ScriviNota(File, Nota);
}

/// The only match of a pattern, its first group.
QString Trovato(const QString& Testo, const QString& Forma)
{
    return QRegularExpression(Forma).match(Testo).captured(1);
}

}  // namespace

void TestCliStorno::unaSommaSola_data()
{
    QTest::addColumn<double>("Prima");
    QTest::addColumn<double>("Dopo");
    QTest::addColumn<QString>("Totale");
    QTest::newRow("paid in part") << 0.0 << 400.0 << u"1459.12"_s;
    QTest::newRow("paid in full") << 0.0 << 1150.0 << u"1459.12"_s;
    QTest::newRow("invoiced in part before") << 400.0 << 0.0 << u"951.60"_s;
    QTest::newRow("invoiced in part before, and paid") << 400.0 << 750.0 << u"951.60"_s;
}

void TestCliStorno::unaSommaSola()
{
    QFETCH(double, Prima);
    QFETCH(double, Dopo);
    QFETCH(QString, Totale);
    const Ufficio Qui;
    const QString File = Qui.Nota([&](Parcella& Nota) {
        Nota.chkAcconti.Attiva = true;
        if (Prima != 0)
            Paga(Nota, Prima);
    });
    const Esito Fattura = Qui.Fattura(File, Qui.Cartella + u"ITRSSMRA80A01H501U_00001.xml"_s);
    QCOMPARE(Fattura.Guasti, QString());
    Riscrivi(File, [&](Parcella& Nota) {
        if (Dopo != 0)
            Paga(Nota, Dopo);
        Nota.FatturaXml.Tipo = u"TD04"_s;
        Nota.FatturaXml.CitataNumero = u"7/2026"_s;
        Nota.FatturaXml.CitataData = u"15/01/2026"_s;
        Nota.txtDatiPar[DatoNumFatt] = u"8"_s;
        Nota.txtDatiPar[DatoDataFatt] = u"20/01/2026"_s;
    });
    const QString Carta = Qui.Cartella + u"carta.txt"_s;
    const QString Virgola = QString(Totale).replace(u'.', u',');
    const int Detratti = Prima != 0 ? 1 : 0;
    const auto DellaCarta = [&] {
        QStringList Dette;
        for (const QString& Tipo : {u"2"_s, u"3"_s}) {
            const Esito Stampata = Chiama({u"--archivio"_s, Qui.Archivio, u"stampa"_s, File, Tipo, Carta});
            const QString Testo = QString::fromUtf8(LeggiFile(Carta));
            Dette += Stampata.Guasti +
                     Trovato(Testo, u"(?:TOTALE EURO|Totale fattura: euro)\\s+([0-9.,]+)"_s).remove(u'.') +
                     u' ' + QString::number(Testo.count(u"bonifico"_s));
        }
        return Dette;
    };
    const QString Attesa = Virgola + u' ' + QString::number(Detratti);
    QCOMPARE(DellaCarta(), (QStringList{Attesa, Attesa}));
    const Esito Credito = Qui.Fattura(File, Qui.Cartella + u"ITRSSMRA80A01H501U_00002.xml"_s);
    QCOMPARE(Credito.Guasti, QString());
    QCOMPARE(DellaCarta(), (QStringList{Attesa, Attesa}));
    QStringList Totali;
    for (const QString& Nome : QDir(Qui.Cartella).entryList({u"IT*.xml"_s}, QDir::Files, QDir::Name)) {
        const QString Xml = QString::fromUtf8(LeggiFile(Qui.Cartella + Nome));
        Totali += Trovato(Xml, u"<ImportoTotaleDocumento>([^<]+)"_s);
        QCOMPARE(Xml.count(u"bonifico"_s), Detratti);
    }
    QCOMPARE(Totali, (QStringList{Totale, Totale}));
    const QString Righe = Chiama({u"--archivio"_s, Qui.Archivio, u"scadenzario"_s, Qui.Cartella}).Uscita;
    const QStringList Celle = Righe.split(u'\n').filter(u"Nota di credito"_s).join(QString()).split(u'|');
    QCOMPARE(Celle.value(13), u'-' + Virgola);
    const QStringList Fatture = Righe.split(u'\n').filter(u"Fattura analitica"_s);
    QCOMPARE(Fatture.size(), 1);
    QCOMPARE(Fatture.first().split(u'|').value(13), Virgola);
}

/// The invoice goes out on paper, is paid in part, and gets its file: it is one of the whole sum.
void TestCliStorno::primaLaCarta()
{
    const Ufficio Qui;
    sessione::ArchivioCliCon = Qui.Archivio;
    const QString File = Qui.Nota();
    Riscrivi(File, [](Parcella& Nota) {
        (void)NotaInviata(Nota, StampaFatturaAnalitica);
        Paga(Nota, 400);
    });
    const QString Xml = Qui.Cartella + u"ITRSSMRA80A01H501U_00001.xml"_s;
    QCOMPARE(Qui.Fattura(File, Xml).Guasti,
             u"La fattura è di 1.459,12 euro e resta tale: gli acconti scritti dopo la pagano, ma la "
             "carta stampata ora li toglie e dice 951,60 euro.\n"_s);
    const QString Scritto = QString::fromUtf8(LeggiFile(Xml));
    QCOMPARE(Trovato(Scritto, u"<ImportoTotaleDocumento>([^<]+)"_s), u"1459.12"_s);
    QVERIFY(!Scritto.contains(u"bonifico"));
    const QString Righe = Chiama({u"--archivio"_s, Qui.Archivio, u"scadenzario"_s, Qui.Cartella}).Uscita;
    QCOMPARE(Righe.split(u'|').value(13), u"1459,12"_s);
}

/// The invoice on account and the final one from one file: both stand in the list.
void TestCliStorno::dueFatture()
{
    const Ufficio Qui;
    const QString File = Qui.Nota();
    QCOMPARE(Qui.Fattura(File, Qui.Cartella + u"ITRSSMRA80A01H501U_00001.xml"_s).Guasti, QString());
    Riscrivi(File, [](Parcella& Nota) {
        Paga(Nota, 400);
        Nota.txtDatiPar[DatoNumFatt] = u"30"_s;
    });
    QCOMPARE(Qui.Fattura(File, Qui.Cartella + u"ITRSSMRA80A01H501U_00002.xml"_s).Guasti, QString());
    const QStringList Righe = Chiama({u"--archivio"_s, Qui.Archivio, u"scadenzario"_s, Qui.Cartella})
                                  .Uscita.split(u'\n')
                                  .filter(u"Fattura analitica"_s);
    QStringList Dette;
    for (const QString& Riga : Righe)
        Dette += Riga.section(u'|', 4, 4) + u' ' + Riga.section(u'|', 13, 13);
    QCOMPARE(Dette, (QStringList{u"7 1459,12"_s, u"30 951,60"_s}));
}

/// A paid invoice that was discarded leaves nothing to a next one: what to do is said.
void TestCliStorno::pagataERimandata()
{
    const Ufficio Qui;
    const QString File = Qui.Nota();
    QCOMPARE(Qui.Fattura(File, Qui.Cartella + u"ITRSSMRA80A01H501U_00001.xml"_s).Guasti, QString());
    Riscrivi(File, [](Parcella& Nota) {
        Paga(Nota, 1150);
        Nota.txtDatiPar[DatoDataFatt] = u"20/01/2026"_s;
    });
    const QString Guasti = Qui.Fattura(File, Qui.Cartella + u"ITRSSMRA80A01H501U_00002.xml"_s).Guasti;
    QVERIFY2(
        Guasti.contains(u"Il totale della fattura è zero; se la fattura 7 del 15/01/2026 è stata scartata, "
                        u"questa si salva al suo posto dalla finestra della parcella"_s),
        qPrintable(Guasti));
    // Where something else is missing too, it cannot be saved there either.
    Riscrivi(File, [](Parcella& Nota) { Nota.FatturaXml.Scadenza = u"presto"_s; });
    const QString Altro = Qui.Fattura(File, Qui.Cartella + u"ITRSSMRA80A01H501U_00002.xml"_s).Guasti;
    QVERIFY2(Altro.contains(u"Il totale della fattura è zero"_s) && !Altro.contains(u"scartata"_s),
             qPrintable(Altro));
}

/// A mistyped citation takes none of the payments away, and is told.
void TestCliStorno::citataSbagliata()
{
    const Ufficio Qui;
    sessione::ArchivioCliCon = Qui.Archivio;
    const QString File = Qui.Nota();
    QCOMPARE(Qui.Fattura(File, Qui.Cartella + u"ITRSSMRA80A01H501U_00001.xml"_s).Guasti, QString());
    Riscrivi(File, [&](Parcella& Nota) {
        Paga(Nota, 400);
        Nota.FatturaXml.Tipo = u"TD04"_s;
        Nota.FatturaXml.CitataNumero = u"21"_s;
        Nota.FatturaXml.CitataData = u"15/01/2026"_s;
        Nota.txtDatiPar[DatoNumFatt] = u"8"_s;
        Nota.txtDatiPar[DatoDataFatt] = u"20/01/2026"_s;
    });
    const QString Xml = Qui.Cartella + u"ITRSSMRA80A01H501U_00002.xml"_s;
    const Esito Credito = Qui.Fattura(File, Xml);
    QVERIFY2(Credito.Guasti.contains(FraseCitataAltrove), qPrintable(Credito.Guasti));
    QCOMPARE(Trovato(QString::fromUtf8(LeggiFile(Xml)), u"<ImportoTotaleDocumento>([^<]+)"_s), u"1459.12"_s);
}

void TestCliStorno::importiCheNonSiLeggono_data()
{
    QTest::addColumn<bool>("DellAltra");
    QTest::newRow("its own") << false;
    QTest::newRow("of the associated note") << true;
}

/// A sheet is printed with a warning; what is sent for good is not written.
void TestCliStorno::importiCheNonSiLeggono()
{
    QFETCH(bool, DellAltra);
    const Ufficio Qui;
    sessione::ArchivioCliCon = Qui.Archivio;
    const QString File = Qui.Nota();
    const QString Altra = Qui.Cartella + u"altra.mdb"_s;
    QVERIFY(QFile::copy(File, Altra));
    OpenDatabase(DellAltra ? Altra : File).Execute(u"UPDATE ParcellaRighe SET Importo='12,5x'"_s);
    const Esito Riepilogo = Chiama({u"riepilogo"_s, File, u"--multipla"_s, Altra});
    QVERIFY2(Riepilogo.Guasti.contains(DellAltra ? u"importo della parcella associata \"altra\" non si legge"
                                                 : u"importo della parcella non si legge"),
             qPrintable(Riepilogo.Guasti));
    const QString Xml = Qui.Cartella + u"ITRSSMRA80A01H501U_00001.xml"_s;
    const Esito Fattura =
        Chiama({u"--archivio"_s, Qui.Archivio, u"fattura"_s, File, Xml, u"--multipla"_s, Altra});
    QVERIFY2(Fattura.Guasti.contains(u"Non tutti gli importi della parcella si leggono"_s),
             qPrintable(Fattura.Guasti));
    QVERIFY(!EsisteFile(Xml));
}

#include "TestCliStorno.moc"
