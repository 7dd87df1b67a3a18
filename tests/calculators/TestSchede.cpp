// The sheets of the calculators: head, what was asked, results, norms, age of the data; the same as rows.
#include "supporto/prova.h"
#include "supporto/registratore.h"

#include "calculators/modSchedaStrada.h"
#include "calculators/modSchede.h"
#include "core/modLogo.h"
#include "core/sessione.h"
#include "platform/system/orologio.h"

using namespace Qt::StringLiterals;

namespace {

/// What stands on the sheet from top to bottom; the cells of a row with "|" between them.
QStringList Foglio(const Superficie& vp)
{
    QStringList Tutto;
    for (const BloccoDocumento& Blocco : vp.Contenuto().Blocchi) {
        if (const auto* Riga = std::get_if<Paragrafo>(&Blocco)) {
            Tutto << Riga->Testo();
            continue;
        }
        for (const auto& Celle : std::get<Tabella>(Blocco).Righe) {
            QStringList Testi;
            for (const Cella& Una : Celle)
                Testi << Una.Testo;
            Tutto << Testi.join(u'|');
        }
    }
    return Tutto;
}

TabellaRighe RigheProva()
{
    TabellaRighe Righe(ColonneInteressi);
    for (const auto& [Dal, Al, Tasso, Giorni, Importo] :
         {std::tuple{QDate(2023, 7, 1), QDate(2023, 12, 31), 5.0, 184, 252.05},
          {QDate(2024, 1, 1), QDate(2024, 6, 30), 2.5, 182, 124.66}}) {
        const int Riga = Righe.AggiungiRiga();
        Righe(Riga, IntDal) = Dal;
        Righe(Riga, IntAl) = Al;
        Righe(Riga, IntTasso) = Tasso;
        Righe(Riga, IntGiorni) = Giorni;
        Righe(Riga, IntImporto) = Importo;
    }
    return Righe;
}

/// A logo as the settings keep it.
QString ConservaLogo()
{
    // A sheet needs no more of a picture than its sides.
    return logo::Conserva(QByteArray("\x89PNG\r\n\x1a\n", 8) + QByteArray::fromHex("0000000d49484452"
                                                                                   "0000012c"
                                                                                   "00000064"));
}

const DatiInteressi Caselle{InteressiLegali, u"10.000,00"_s,  ValutaEuro, {},
                            u"01/07/2023"_s, u"30/06/2024"_s, false};

const RisultatiIstat Rivalutati{u"1.000,00  "_s, u"120,2\ndic 2013"_s, u"1"_s,       u"118\ngen 2012"_s,
                                u"1,01864"_s,    u"1.018,64  "_s,      u"18,64  "_s, u"1,864"_s};

}  // namespace

class TestSchede : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();
    void testa();
    void senzaStudio();
    void logo_data();
    void logo();
    void logoPerso();
    void diSe();
    void marginiEFont();
    void interessi();
    void interessiDiMora();
    void istat();
    void codiceFiscale();
    void lettura();
    void letturaSbagliata();
    void contributo();
    void strada();
    void senzaCalcolo_data();
    void senzaCalcolo();
    void comeRighe();
    void celleInteressi();
    void importi_data();
    void importi();
    void titoliDeiCampi();
};
PROVA(TestSchede);

void TestSchede::init()
{
    AzzeraSessione();
    sessione::StudioNome = u"Studio Bianchi"_s;
    sessione::StudioIndir = u"Via Roma, 1"_s;
    sessione::StudioCitta = u"00100 Roma"_s;
    sessione::StudioCodFisc = u"BNCGFR72S21H501D"_s;
    sessione::StudioPIva = u"01234567897"_s;
    InstallaOrologio([] { return QDateTime(QDate(2026, 11, 21), QTime(10, 0)); });
}

void TestSchede::cleanup()
{
    InstallaOrologio({});
    AzzeraSessione();
}

void TestSchede::testa()
{
    Superficie vp;
    vp.Paragraph(u"di prima"_s);
    QVERIFY(StampaScheda(vp, SchedaInteressi(Caselle, RigheProva(), u"376,71"_s, {}, {})));
    QCOMPARE(
        Foglio(vp).first(),
        u"Studio Bianchi\nVia Roma, 1\n00100 Roma\nC.F. BNCGFR72S21H501D  P.I. 01234567897|21/11/2026"_s);
    QCOMPARE(Foglio(vp).at(1), u"CALCOLO INTERESSI"_s);
    QVERIFY(!Foglio(vp).contains(u"di prima"_s) && !vp.InCorso());
}

void TestSchede::senzaStudio()
{
    AzzeraSessione();
    Superficie vp;
    QVERIFY(StampaScheda(vp, SchedaInteressi(Caselle, RigheProva(), u"376,71"_s, {}, {})));
    QCOMPARE(Foglio(vp).first(), u"|21/11/2026"_s);
}

/// The office's logo stands on a sheet as on the documents, where the settings give it one.
void TestSchede::logo_data()
{
    QTest::addColumn<QString>("Quali");
    QTest::addColumn<QString>("Posto");
    QTest::addColumn<bool>("Atteso");
    QTest::newRow("al principio") << u"01356C"_s << u"D"_s << true;
    QTest::newRow("sulle schede sole") << u"C"_s << u"D"_s << true;
    QTest::newRow("sui documenti soli") << u"01234567"_s << u"D"_s << false;
    QTest::newRow("da nessuna parte") << QString() << u"D"_s << false;
    QTest::newRow("non si stampa") << u"C"_s << QString() << false;
}

void TestSchede::logo()
{
    QFETCH(QString, Quali);
    QFETCH(QString, Posto);
    QCOMPARE(sessione::LogoDocumenti, u"01356C"_s);
    sessione::LogoImpronta = ConservaLogo();
    sessione::LogoPosto = Posto;
    sessione::LogoAltezza = 2.0F;
    sessione::LogoDocumenti = Quali;
    Superficie vp;
    QVERIFY(StampaScheda(vp, SchedaInteressi(Caselle, RigheProva(), u"376,71"_s, {}, {})));
    QTEST(vp.Contenuto().Testa.has_value(), "Atteso");
    if (!vp.Contenuto().Testa)
        return;
    QCOMPARE(vp.Contenuto().Testa->Allinea, Allineamento::Destra);
    QCOMPARE(vp.Contenuto().Testa->AltezzaCm, 2.0);
    // The office's head stays below it.
    QVERIFY(Foglio(vp).first().startsWith(u"Studio Bianchi\n"));
    sessione::LogoPosto.clear();
    QVERIFY(StampaScheda(vp, SchedaInteressi(Caselle, RigheProva(), u"376,71"_s, {}, {})));
    QVERIFY(!vp.Contenuto().Testa);
}

void TestSchede::logoPerso()
{
    sessione::LogoImpronta = QString(64, u'a');
    sessione::LogoPosto = u"S"_s;
    Registratore Voce;
    Voce.Attendi(u"Il logo dello studio (\"%1\") manca o è danneggiato: i documenti si stampano senza. "
                 u"Sceglierlo di nuovo nelle impostazioni, scheda \"Documenti\"."_s.arg(
                     logo::File(sessione::LogoImpronta)),
                 vbOK, u"Errore:"_s);
    Superficie vp;
    QVERIFY(StampaScheda(vp, SchedaInteressi(Caselle, RigheProva(), u"376,71"_s, {}, {})));
    QVERIFY(!vp.Contenuto().Testa && !Foglio(vp).isEmpty());
}

void TestSchede::diSe()
{
    Superficie vp;
    QVERIFY(StampaScheda(vp, SchedaInteressi(Caselle, RigheProva(), u"376,71"_s, {}, {})));
    QCOMPARE(vp.Contenuto().DiSe, (Proprieta{u"Studio Bianchi"_s, u"CALCOLO INTERESSI"_s}));
}

// What a former document has left on the surface plays no part.
void TestSchede::marginiEFont()
{
    Superficie vp;
    vp.FontBold(true);
    vp.FontUnderline(true);
    vp.FontSize(30);
    vp.MarginLeft(u"8cm"_s);
    QVERIFY(StampaScheda(vp, SchedaInteressi(Caselle, RigheProva(), u"376,71"_s, {}, {})));
    Superficie Nuova;
    QVERIFY(StampaScheda(Nuova, SchedaInteressi(Caselle, RigheProva(), u"376,71"_s, {}, {})));
    QCOMPARE(Foglio(vp), Foglio(Nuova));
    QCOMPARE(vp.Contenuto().MargineSinistroCm, Nuova.Contenuto().MargineSinistroCm);
    const auto& Testa = std::get<Tabella>(vp.Contenuto().Blocchi.front());
    QVERIFY(!Testa.Righe[0][0].Font.Grassetto);
    QCOMPARE(Testa.Righe[0][0].Font.Punti, 10.0);
    const auto& Titolo = std::get<Paragrafo>(vp.Contenuto().Blocchi.at(1));
    QVERIFY(Titolo.Tratti.front().Font.Grassetto && !Titolo.Tratti.front().Font.Sottolineato);
}

void TestSchede::interessi()
{
    Superficie vp;
    QVERIFY(StampaScheda(vp, SchedaInteressi(Caselle, RigheProva(), u"376,71"_s, {u"Va oltre i dati."_s},
                                             {u"Tassi legali fino al 31/12/2026."_s})));
    QCOMPARE(
        Foglio(vp).mid(1),
        (QStringList{u"CALCOLO INTERESSI"_s,
                     {},
                     u"Tipo interessi: Legali, art. 1284 cc"_s,
                     u"Capitale: 10.000,00 euro"_s,
                     u"Dalla data: 01/07/2023"_s,
                     u"Alla data: 30/06/2024"_s,
                     u"Interessi: 376,71 euro"_s,
                     u"Dal giorno|Al giorno|Tasso|N° Giorni|Interessi"_s,
                     u"01/07/2023|31/12/2023|5,0|184|252,05"_s,
                     u"01/01/2024|30/06/2024|2,5|182|124,66"_s,
                     u"|||Totale in euro|376,71"_s,
                     u"Va oltre i dati."_s,
                     u"Norme"_s,
                     u"Art. 1284 c.c."_s,
                     u"Interessi semplici, anno di 365 giorni; il primo e l'ultimo giorno sono contati."_s,
                     u"Dati"_s,
                     u"Tassi legali fino al 31/12/2026."_s}));
    const auto& Lunga = std::get<Tabella>(vp.Contenuto().Blocchi.at(8));
    QCOMPARE(Lunga.Bordo, 1);
    QVERIFY(Lunga.Righe[0][0].Font.Grassetto && !Lunga.Righe[1][0].Font.Grassetto);
    QVERIFY(Lunga.Righe[3][4].Font.Grassetto);
    QCOMPARE(Lunga.Righe[1][4].Allinea, Allineamento::Destra);
    QCOMPARE(Lunga.Righe[1][0].Allinea, Allineamento::Sinistra);
    double Larga = 0;
    for (const double Cm : Lunga.LarghezzeCm)
        Larga += Cm;
    QVERIFY2(Larga <= 17.6, qPrintable(QString::number(Larga)));
}

void TestSchede::interessiDiMora()
{
    DatiInteressi Mora = Caselle;
    Mora.Tipo = InteressiMora;
    Mora.Valuta = ValutaLire;
    Mora.Aumento = u" 2 "_s;
    Mora.Dopo2012 = true;
    const SchedaCalcolo Scheda = SchedaInteressi(Mora, RigheProva(), u"376,71"_s, {}, {});
    QCOMPARE(Scheda.Dati,
             (QStringList{u"Tipo interessi: Di mora, art. 5 D.lgs. 231/02"_s, u"Capitale: 10.000,00 lire"_s,
                          u"Dalla data: 01/07/2023"_s, u"Alla data: 30/06/2024"_s, u"Aumento: 2%"_s,
                          u"Transazione conclusa: dopo il 31/12/2012"_s}));
    QCOMPARE(Scheda.Norme.first(), u"Artt. 4 e 5 D.Lgs. 231/2002"_s);
    Mora.Dopo2012 = false;
    QVERIFY(SchedaInteressi(Mora, RigheProva(), {}, {}, {})
                .Dati.contains(u"Transazione conclusa: entro il 31/12/2012"_s));
}

void TestSchede::istat()
{
    Superficie vp;
    const DatiIstat Dati{u"01/01/2012"_s, u"31/12/2013"_s, u"1.000,00"_s, 0};
    QVERIFY(StampaScheda(vp, SchedaIstat(Dati, Rivalutati, {}, {u"Indici fino a ottobre 2026."_s})));
    QCOMPARE(Foglio(vp).mid(1, 14), (QStringList{u"RIVALUTAZIONE ISTAT"_s,
                                                 {},
                                                 u"Importo da rivalutare: 1.000,00 euro"_s,
                                                 u"Dalla data: 01/01/2012"_s,
                                                 u"Alla data: 31/12/2013"_s,
                                                 u"Importo rivalutato: 1.018,64 euro"_s,
                                                 u"Elementi di calcolo|Valore"_s,
                                                 u"Importo da rivalutare, euro|1.000,00"_s,
                                                 u"Indice finale|120,2 dic 2013"_s,
                                                 u"Coefficiente di raccordo|1"_s,
                                                 u"Indice iniziale|118 gen 2012"_s,
                                                 u"Coefficiente di rivalutazione|1,01864"_s,
                                                 u"Importo rivalutato, euro|1.018,64"_s,
                                                 u"Rivalutazione, euro|18,64"_s}));
    QVERIFY(Foglio(vp).contains(u"Indici fino a ottobre 2026."_s));
}

void TestSchede::codiceFiscale()
{
    Superficie vp;
    QVERIFY(StampaScheda(vp, SchedaCodFis({u"Rossi"_s, u"Mario"_s, u"01/01/1980"_s, u"M"_s,
                                           u"Roma  RM  H501"_s, u"RSSMRA80A01H501U"_s},
                                          u"AVVERTENZA: x"_s, {u"Elenco al 31/05/2024"_s})));
    QCOMPARE(Foglio(vp).mid(1), (QStringList{u"CODICE FISCALE"_s,
                                             {},
                                             u"Cognome: Rossi"_s,
                                             u"Nome: Mario"_s,
                                             u"Data di nascita: 01/01/1980"_s,
                                             u"Sesso: M"_s,
                                             u"Comune di nascita: Roma  RM  H501"_s,
                                             u"Codice fiscale: RSSMRA80A01H501U"_s,
                                             u"AVVERTENZA: x"_s,
                                             u"Norme"_s,
                                             u"D.M. 12 marzo 1974"_s,
                                             u"Dati"_s,
                                             u"Elenco al 31/05/2024"_s}));
}

void TestSchede::lettura()
{
    const LetturaCodFis Lettura = LeggiCodFis(u"RSSMRA85M45F205K"_s, QDate(2026, 11, 21));
    QCOMPARE(RigheLettura(Lettura, u"Milano (MI)"_s),
             (QStringList{u"Data di nascita: 05/08/1985"_s, u"Sesso: femmina"_s,
                          u"Comune di nascita: Milano (MI)"_s}));
    QCOMPARE(RigheLettura(Lettura, {}).last(), u"Comune di nascita: il codice F205 non è in elenco"_s);
    QCOMPARE(RigheScheda(SchedaLettura(Lettura, u"Milano (MI)"_s, {})).mid(0, 1),
             QList<QStringList>({{u"Codice fiscale"_s, u"RSSMRA85M45F205K"_s}}));
    Superficie vp;
    QVERIFY(StampaScheda(vp, SchedaLettura(Lettura, u"Milano (MI)"_s, {})));
    QVERIFY(Foglio(vp).contains(u"Data di nascita|05/08/1985"_s));
    QVERIFY(Foglio(vp).contains(u"Ultima lettera|esatta"_s));
}

void TestSchede::letturaSbagliata()
{
    Registratore Voce;
    Superficie vp;
    QVERIFY(StampaScheda(vp, SchedaLettura(LeggiCodFis(u"RSSMRA85M45F205X"_s, QDate(2026, 11, 21)), {}, {})));
    QVERIFY(Foglio(vp).contains(u"Ultima lettera|errata: dovrebbe essere K"_s));
    Voce.Attendi(u"Non è stato effettuato alcun calcolo!"_s);
    QVERIFY(!StampaScheda(vp, SchedaLettura(LeggiCodFis(u"RSS"_s, QDate(2026, 11, 21)), {}, {})));
    QVERIFY(RigheLettura(LeggiCodFis(u"RSS"_s, QDate(2026, 11, 21)), {}).isEmpty());
}

void TestSchede::contributo()
{
    TestiContributo Valori;
    TestiContributo Contributi;
    Valori[1] = u"1.000,00"_s;
    Contributi[1] = u"21,50"_s;
    Valori[4] = u"2.582,29"_s;
    Contributi[4] = u"60,00"_s;
    const SchedaCalcolo Scheda = SchedaContributo(Valori, Contributi);
    QCOMPARE(Scheda.Sezioni.size(), 1);
    const QList<QStringList>& Righe = Scheda.Sezioni[0].Tabella.Righe;
    QCOMPARE(Righe.size(), 2);
    QVERIFY2(Righe[0][0].startsWith(u"Procedimenti con contributo ridotto alla metà (art. 13, comma 3"),
             qPrintable(Righe[0][0]));
    QVERIFY(Righe[0][0].contains(u"Procedimenti: di ingiunzione"));
    QCOMPARE(Righe[0].mid(1), (QStringList{u"1.000,00"_s, u"21,50"_s}));
    QCOMPARE(Righe[1],
             (QStringList{u"Ricorsi tributari (art. 13, comma 6-quater)"_s, u"2.582,29"_s, u"60,00"_s}));
    // The amounts of 2014 are said of this table, not of the sheet, which may hold others.
    QVERIFY(Scheda.Norme.isEmpty());
    QVERIFY(Scheda.Sezioni[0].Note.first().contains(u"D.L. n. 90 del 24/6/2014"));
    QVERIFY(SchedaContributo(Valori, {}).Sezioni.isEmpty());
}

void TestSchede::strada()
{
    const ParteStrada Parte{
        u"Appello (art. 325 c.p.c.)"_s,
        u"Scadenza: Sabato, 19 Settembre 2026"_s,
        {{QDate(2026, 7, 20), QDate(2026, 7, 20), 0, GenerePasso::GiornoIniziale, u"art. 155"_s},
         {QDate(2026, 7, 21), QDate(2026, 7, 31), 11, GenerePasso::GiorniContati, u"art. 325"_s}},
        {u"Nota"_s}};
    Superficie vp;
    QVERIFY(StampaScheda(vp, SchedaStrada({u"Data decorrenza: 20/07/2026"_s}, {Parte}, {u"Norme note."_s})));
    const QStringList Tutto = Foglio(vp);
    QCOMPARE(Tutto.mid(3, 4),
             (QStringList{u"Data decorrenza: 20/07/2026"_s, u"Appello (art. 325 c.p.c.)"_s,
                          u"Scadenza: Sabato, 19 Settembre 2026"_s, u"Date|Giorni|Che cosa|Norma"_s}));
    QVERIFY(Tutto.contains(u"21/07/2026 - 31/07/2026|11|"_s + NomePasso(GenerePasso::GiorniContati) +
                           u"|art. 325"_s));
    QCOMPARE(Tutto.last(), u"Norme note."_s);
    QVERIFY(Tutto.contains(u"Nota"_s));
}

void TestSchede::senzaCalcolo_data()
{
    QTest::addColumn<SchedaCalcolo>("Scheda");
    QTest::newRow("interessi") << SchedaInteressi(Caselle, TabellaRighe(ColonneInteressi), {}, {}, {});
    RisultatiIstat Meta = Rivalutati;
    Meta.lblVarPerc.clear();
    QTest::newRow("istat a metà") << SchedaIstat({}, Meta, {}, {});
    QTest::newRow("codice fiscale") << SchedaCodFis({}, {}, {});
    QTest::newRow("lettura") << SchedaLettura({}, {}, {});
    QTest::newRow("contributo") << SchedaContributo({}, {});
    QTest::newRow("termini") << SchedaStrada({}, {});
}

void TestSchede::senzaCalcolo()
{
    QFETCH(SchedaCalcolo, Scheda);
    Registratore Voce;
    Superficie vp;
    vp.Paragraph(u"di prima"_s);
    Voce.Attendi(u"Non è stato effettuato alcun calcolo!"_s, vbOK, u"Errore:"_s);
    QVERIFY(!StampaScheda(vp, Scheda));
    QCOMPARE(Foglio(vp), QStringList{u"di prima"_s});
    QVERIFY(RigheScheda(Scheda).isEmpty());
}

void TestSchede::comeRighe()
{
    const QList<QStringList> Righe =
        RigheScheda(SchedaInteressi(Caselle, RigheProva(), u"376,71"_s, {u"Va oltre: i dati."_s}, {}));
    QCOMPARE(TestoRighe(Righe), u"Tipo interessi\tLegali, art. 1284 cc\n"
                                "Capitale\t10.000,00 euro\n"
                                "Dalla data\t01/07/2023\n"
                                "Alla data\t30/06/2024\n"
                                "Interessi\t376,71 euro\n"
                                "Dal giorno\tAl giorno\tTasso\tN° Giorni\tInteressi\n"
                                "01/07/2023\t31/12/2023\t5,0\t184\t252,05\n"
                                "01/01/2024\t30/06/2024\t2,5\t182\t124,66\n"
                                "\t\t\tTotale in euro\t376,71\n"
                                "Va oltre: i dati."_s);
}

void TestSchede::celleInteressi()
{
    const TabellaRighe Righe = RigheProva();
    QCOMPARE(DecimaliTassi(Righe), 1);
    QCOMPARE(CelleInteressi(Righe, 0, 1),
             (QStringList{u"01/07/2023"_s, u"31/12/2023"_s, u"5,0"_s, u"184"_s, u"252,05"_s}));
    QCOMPARE(CelleInteressi(Righe, 0, 0).at(IntTasso), u"5"_s);
    QCOMPARE(DecimaliTassi(TabellaRighe(ColonneInteressi)), 0);
}

void TestSchede::importi_data()
{
    QTest::addColumn<QString>("Testo");
    QTest::addColumn<QString>("Atteso");
    QTest::newRow("nudo") << u"1000"_s << u"1.000,00"_s;
    QTest::newRow("con la virgola") << u"1000,5"_s << u"1.000,50"_s;
    QTest::newRow("oltre il centesimo") << u"1000,005"_s << u"1.000,005"_s;
    QTest::newRow("zeri in fondo") << u"1000,500"_s << u"1.000,50"_s;
    QTest::newRow("molti decimali") << u"0,123456789012"_s << u"0,123456789012"_s;
    QTest::newRow("nessun numero") << u"mille"_s << u"mille"_s;
    QTest::newRow("vuoto") << QString() << QString();
}

void TestSchede::importi()
{
    QFETCH(QString, Testo);
    QFETCH(QString, Atteso);
    QCOMPARE(ImportoScritto(Testo), Atteso);
}

void TestSchede::titoliDeiCampi()
{
    QCOMPARE(TitoloCampo(0), u"Contributo ordinario"_s);
    QCOMPARE(TitoloCampo(2), u"Procedimenti con contributo ridotto alla metà 2)"_s);
    QCOMPARE(TitoloCampo(4), u"Ricorsi tributari"_s);
    QCOMPARE(TitoloCampo(9), QString());
}

#include "TestSchede.moc"
