// The mail that brings a document: templates, their place-holders, addresses.
#include "core/impostazioni.h"
#include "core/sessione.h"
#include "feenote/modLettera.h"
#include "supporto/prova.h"

using namespace Qt::StringLiterals;

class TestLettera : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup() { AzzeraSessione(); }
    void modello_data();
    void modello();
    void valori_data();
    void valori();
    void numeroDellaFattura_data();
    void numeroDellaFattura();
    void lIniziale();
    void lInizialeDiUnContratto();
    void lOggettoStaInUnaRiga();
    void indirizzi_data();
    void indirizzi();

private:
    Parcella Nota;
};
PROVA(TestLettera);

void TestLettera::init()
{
    AzzeraSessione();
    AzzeraImpostazioni();
    sessione::StudioNome = u"Avv. Giulia Neri"_s;
    Nota = {};
    Nota.txtCliente.Testo = u"Rossi Mario"_s;
    Nota.txtDatiStaOgg.Testo = u"Sfratto"_s;
    Nota.txtDatiPar[DatoNumFatt] = u"12"_s;
    Nota.txtDatiPar[DatoDataFatt] = u"3/5/2026"_s;
    Nota.txtDatiPar[DatoNumero] = u"7"_s;
    const int Riga = Nota.xOnorari.AggiungiRiga();
    Nota.xOnorari(Riga, OnoImporto) = 1234.5;
}

void TestLettera::modello_data()
{
    QTest::addColumn<QString>("Modello");
    QTest::addColumn<QString>("Atteso");
    QTest::newRow("un valore") << u"Per {cliente}."_s << u"Per {numero} & Figli."_s;
    QTest::newRow("un valore non si guarda di nuovo") << u"{cliente}{studio}"_s << u"{numero} & FigliNeri"_s;
    QTest::newRow("maiuscole") << u"{STUDIO}"_s << u"Neri"_s;
    QTest::newRow("sconosciuto") << u"{nome} {studio} { } {}"_s << u"{nome} Neri { } {}"_s;
    QTest::newRow("graffe sole") << u"{studio {studio}} }{"_s << u"{studio Neri} }{"_s;
    QTest::newRow("riga senza valore") << u"uno\nN. {numero} del {data}\ndue"_s << u"uno\ndue"_s;
    QTest::newRow("riga con un valore su due") << u"{studio} {numero}"_s << u"Neri"_s;
    QTest::newRow("riga di soli sconosciuti") << u"uno\n{nome}"_s << u"uno\n{nome}"_s;
    QTest::newRow("righe vuote") << u"uno\n\n\ndue"_s << u"uno\n\n\ndue"_s;
    QTest::newRow("righe di Windows") << u"uno\r\n{studio}\r\n"_s << u"uno\nNeri\n"_s;
    QTest::newRow("niente") << QString() << QString();
}

void TestLettera::modello()
{
    QFETCH(QString, Modello);
    const ValoriLettera Valori{{u"cliente"_s, u"{numero} & Figli"_s},
                               {u"studio"_s, u"Neri"_s},
                               {u"numero"_s, QString()},
                               {u"data"_s, QString()}};
    QTEST(ScriviModello(Modello, Valori), "Atteso");
}

void TestLettera::valori_data()
{
    QTest::addColumn<int>("Tipo");
    QTest::addColumn<QString>("Attesi");
    QTest::newRow("0") << int(StampaPrenotula) << u"Preavviso di parcella|7||1.234,50"_s;
    QTest::newRow("1") << int(StampaPreventivo) << u"Preventivo|7||1.234,50"_s;
    QTest::newRow("2") << int(StampaFatturaSintetica) << u"Fattura|12/2026|3/5/2026|1.234,50"_s;
    QTest::newRow("3") << int(StampaFatturaAnalitica) << u"Fattura|12/2026|3/5/2026|1.234,50"_s;
    QTest::newRow("4") << int(StampaNotaGiudiziale) << u"Nota spese|||1.234,50"_s;
    QTest::newRow("5") << int(StampaContratto) << u"Contratto di affidamento dell'incarico|||"_s;
    QTest::newRow("6") << int(StampaInformativa) << u"Resa informativa|||"_s;
    QTest::newRow("7") << int(StampaSoloContabile) << u"Prospetto contabile|||1.234,50"_s;
    QTest::newRow("nessuno") << -1 << u"|||"_s;
}

void TestLettera::valori()
{
    QFETCH(int, Tipo);
    const ValoriLettera Valori = ValoriDi(Nota, Tipo);
    QTEST(QStringList({Valori[u"documento"_s], Valori[u"numero"_s], Valori[u"data"_s], Valori[u"netto"_s]})
              .join(u'|'),
          "Attesi");
    QCOMPARE(Valori[u"cliente"_s], u"Rossi Mario"_s);
    QCOMPARE(Valori[u"oggetto"_s], u"Sfratto"_s);
    QCOMPARE(QStringList(Valori.keys()).size(), SegnapostiLettera().size());
    // A credit note is none of the other documents, and nobody pays it.
    Nota.FatturaXml.Tipo = u"TD04"_s;
    const ValoriLettera Credito = ValoriDi(Nota, Tipo);
    const bool Fattura = Valori[u"documento"_s] == u"Fattura";
    QCOMPARE(Credito[u"documento"_s], Fattura ? u"Nota di credito"_s : Valori[u"documento"_s]);
    QCOMPARE(Credito[u"netto"_s], Fattura ? QString() : Valori[u"netto"_s]);
    QCOMPARE(Credito[u"numero"_s], Valori[u"numero"_s]);
}

/// The mail calls the invoice as its paper and its electronic file do.
void TestLettera::numeroDellaFattura_data()
{
    QTest::addColumn<QString>("Scritto");
    QTest::addColumn<QString>("Data");
    QTest::addColumn<QString>("Atteso");
    QTest::newRow("il solo numero") << u"12"_s << u"03/05/2026"_s << u"12/2026"_s;
    QTest::newRow("ha il suo anno") << u"12/2026"_s << u"03/05/2026"_s << u"12/2026"_s;
    QTest::newRow("un altro anno") << u"12/2025"_s << u"03/05/2026"_s << u"12/2025/2026"_s;
    QTest::newRow("con una lettera") << u" 12/A "_s << u"03/05/2026"_s << u"12/A/2026"_s;
    QTest::newRow("un testo") << u"pippo"_s << u"03/05/2026"_s << u"pippo"_s;
    QTest::newRow("senza data") << u"12"_s << QString() << u"12"_s;
    QTest::newRow("una data che non lo è") << u"12"_s << u"32/13/26"_s << u"12"_s;
    QTest::newRow("senza numero") << QString() << u"03/05/2026"_s << QString();
}

void TestLettera::numeroDellaFattura()
{
    QFETCH(QString, Scritto);
    QFETCH(QString, Data);
    Nota.txtDatiPar[DatoNumFatt] = Scritto;
    Nota.txtDatiPar[DatoDataFatt] = Data;
    QTEST(ValoriDi(Nota, StampaFatturaAnalitica)[u"numero"_s], "Atteso");
}

void TestLettera::lIniziale()
{
    const Lettera Scritta = LetteraDi(Nota, StampaFatturaSintetica);
    QCOMPARE(Scritta.Oggetto, u"Fattura 12/2026 - Sfratto"_s);
    QCOMPARE(Scritta.Testo, u"Gentile Rossi Mario,\n\nsi trasmette in allegato il seguente documento.\n\n"
                            "Documento: Fattura 12/2026\nData: 3/5/2026\nOggetto: Sfratto\n"
                            "Importo netto: euro 1.234,50\n\nCordiali saluti\nAvv. Giulia Neri"_s);
    QCOMPARE(Scritta.Indirizzo, QString());
}

void TestLettera::lInizialeDiUnContratto()
{
    Nota.txtDatiStaOgg.Testo.clear();
    const Lettera Scritta = LetteraDi(Nota, StampaContratto);
    QCOMPARE(Scritta.Oggetto, u"Contratto di affidamento dell'incarico"_s);
    QVERIFY(!Scritta.Testo.contains(u"Data:") && !Scritta.Testo.contains(u"Importo"));
    QVERIFY(Scritta.Testo.contains(u"Documento: Contratto di affidamento dell'incarico\n\nCordiali"));
}

void TestLettera::lOggettoStaInUnaRiga()
{
    sessione::PostaOggetto = u"- {oggetto}\n{cliente} -"_s;
    Nota.txtDatiStaOgg.Testo = u"Sfratto\nvia Roma\t 3"_s;
    QCOMPARE(LetteraDi(Nota, 0).Oggetto, u"Sfratto via Roma 3 Rossi Mario"_s);
}

void TestLettera::indirizzi_data()
{
    QTest::addColumn<QString>("Testo");
    QTest::addColumn<bool>("Atteso");
    QTest::newRow("semplice") << u"mario.rossi@studio.example"_s << true;
    QTest::newRow("con segni") << u"m_r+atti@a-b.example"_s << true;
    QTest::newRow("vuoto") << QString() << false;
    QTest::newRow("un'opzione") << u"--attach@x.it"_s << false;
    QTest::newRow("due") << u"a@b.it,c@d.it"_s << false;
    QTest::newRow("nome e indirizzo") << u"Rossi <a@b.it>"_s << false;
    QTest::newRow("righe") << u"a@b.it\n--attach"_s << false;
    QTest::newRow("riga in fondo") << u"a@b.it\n"_s << false;
    QTest::newRow("un modo") << u"mailto:a@b.it"_s << false;
    QTest::newRow("parametri") << u"a@b.it?attach=/etc/passwd"_s << false;
    QTest::newRow("senza dominio") << u"rossi"_s << false;
    QTest::newRow("due chiocciole") << u"a@b@c.it"_s << false;
    QTest::newRow("senza nome") << u"@b.it"_s << false;
    QTest::newRow("apostrofo") << u"o'brien@rossi.it"_s << false;
    QTest::newRow("codici") << u"a%0ab@c.it"_s << false;
    QTest::newRow("comando") << u"a@b.it;rm"_s << false;
}

void TestLettera::indirizzi()
{
    QFETCH(QString, Testo);
    QTEST(EIndirizzo(Testo), "Atteso");
}

#include "TestLettera.moc"
