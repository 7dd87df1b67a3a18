// A note described in JSON: every field, every refusal by its name; and a note told as JSON.
#include "feenote/nota_prova.h"

#include "feenote/file/colonne.h"
#include "feenote/file/modDescrizione.h"
#include "feenote/file/modLettura.h"
#include "feenote/file/modNotaJson.h"
#include "feenote/file/modPosaFile.h"
#include "feenote/modVariazione.h"
#include "platform/base/regionale.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

using namespace Qt::StringLiterals;

namespace {

QByteArray Json(const QJsonObject& Dati)
{
    return QJsonDocument(Dati).toJson(QJsonDocument::Compact);
}

/// The smallest description that is accepted, changed by the fields given.
QJsonObject DatiCivili(const QJsonObject& Altri = {})
{
    QJsonObject Dati{{u"categoria"_s, u"CIV"_s}, {u"autorita"_s, 2}, {u"valore"_s, 30000}};
    for (auto Campo = Altri.constBegin(); Campo != Altri.constEnd(); ++Campo)
        Dati[Campo.key()] = Campo.value();
    return Dati;
}

QJsonObject Oggetto(const QByteArray& Testo)
{
    return QJsonDocument::fromJson(Testo).object();
}

ErroreVisto Prova(const QByteArray& Descrizione)
{
    return ErroreDi([&] { (void)CreaDaDescrizione(Descrizione); });
}

}  // namespace

class TestDescrizione : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void minima();
    void tuttiICampi();
    void categorie_data();
    void categorie();
    void autoritaPerNomeONumero_data();
    void autoritaPerNomeONumero();
    void scaglioneSenzaValore();
    void senzaPrecarica();
    void onorari();
    void voceNominataDueVolte();
    void spese();
    void percentuali();
    void stragiudizialePerDescrizione();
    void numeriInTesto_data();
    void numeriInTesto();
    void rifiuti_data();
    void rifiuti();
    void nonJson_data();
    void nonJson();
    void numeroOltreOgniMisura();
    void descrizioniLunghe();
    void passwordTagliata();
    void senzaTariffe();
    void narrata();
    void narrataERiletta();
    void gliEsempiSiLeggono();
};
PROVA(TestDescrizione);

void TestDescrizione::minima()
{
    const Studio Ufficio;
    Registratore Messaggi;
    const Parcella Nota = CreaDaDescrizione(Json(DatiCivili()));
    QCOMPARE(Nota.IDAutSelezionata(), IDTribunale);
    QCOMPARE(Nota.Scaglione, 3);
    QCOMPARE(Nota.xOnorari.Righe(), 4);  // the court's phases come by themselves
    QCOMPARE(CalcolaSomme(Nota).TotOnorari, 4500.0);
    QVERIFY(Nota.chkIva.Attiva && Nota.chkCP.Attiva && !Nota.chkRA.Attiva);
}

void TestDescrizione::tuttiICampi()
{
    const Studio Ufficio;
    Registratore Messaggi;
    const QByteArray Descrizione = R"({
        "categoria": "Civile o amministrativa", "autorita": "tribunale ordinario", "valore": "30.000,00",
        "variazione": {"opzione": 6, "percento": -30},
        "onorari": [{"voce": 999, "descrizione": "Trasferta", "importo": 150, "data": "5/3/2024"}],
        "spese": [{"voce": 3, "imponibili": 16, "esenti": 27, "quantita": 2, "data": "06/03/2024"}],
        "acconti": [{"descrizione": "Fondo", "valuta": "L", "corrispettivi": 1936270,
                     "speseImponibili": 1, "speseEsenti": 2}],
        "percentuali": {"speseGenerali": 12.5, "cassa": 4, "iva": 21, "ritenuta": 20},
        "cliente": "Rossi", "controparte": "Bianchi", "oggetto": "Sfratto", "password": "chiave",
        "stampa": {"tipo": 3, "testoSuperiore": "sopra", "testoInferiore": "sotto", "numeroFattura": "7",
                   "dataFattura": "29/02/2024", "autorita": "Lucca", "sezione": "II", "ruolo": "1/24",
                   "giudice": "Neri", "esponiMinMax": true, "esponiAcconti": true}})";
    const Parcella Nota = CreaDaDescrizione(Descrizione);
    QCOMPARE(Nota.AumRidIdx, 6);
    QCOMPARE(Nota.AumRidVarP, -30);
    // The phases less 30 %: 1200, 600, 1200, 1500; the free item as written.
    QCOMPARE(CalcolaSomme(Nota).TotOnorari, 3150.0 + 150.0);
    QCOMPARE(Nota.xOnorari(4, OnoData).toString(), u"05/03/2024"_s);
    QCOMPARE(Nota.xOnorari(4, OnoDescr).toString(), u"Trasferta"_s);
    QCOMPARE(Importi(Nota, 4), QList<double>({150, 150, 150, 150}));
    QCOMPARE(Nota.xDiritti(0, DirDescr).toString(), u"Marca da bollo"_s);
    QCOMPARE(Numeri(Nota.xDiritti, 0, {DirImponibile, DirEsente, DirQta}), QList<double>({16, 27, 2}));
    QCOMPARE(Nota.xAcconti(0, AccValuta).toString(), u"L"_s);
    QCOMPARE(CalcolaAcconti(Nota, StampaPrenotula).AccontiCorrispettivi, 1000.0);
    QVERIFY(Nota.chkRA.Attiva && Nota.chkSpeseGen.Attiva && Nota.chkMinMax.Attiva && Nota.chkAcconti.Attiva);
    QCOMPARE(Nota.txtSpeGen.Testo, u"12,5"_s);
    QCOMPARE(Nota.txtCliente.Testo + Nota.txtControp.Testo + Nota.txtOggetto.Testo, u"RossiBianchiSfratto"_s);
    QCOMPARE(Nota.Psw, u"->>chiave"_s);
    QCOMPARE(Nota.cmbTipoStampa, 3);
    QCOMPARE(Nota.txtDatiPar.values(), QStringList({u"7"_s, u"29/02/2024"_s, u"Lucca"_s, u"II"_s, u"1/24"_s,
                                                    u"Neri"_s, u"sopra"_s, u"sotto"_s}));
}

void TestDescrizione::categorie_data()
{
    QTest::addColumn<QString>("Categoria");
    QTest::addColumn<QString>("Codice");
    QTest::newRow("codice") << u"PEN"_s << u"PEN"_s;
    QTest::newRow("minuscolo") << u"pen"_s << u"PEN"_s;
    QTest::newRow("voce dell'elenco") << u"penale"_s << u"PEN"_s;
}

void TestDescrizione::categorie()
{
    QFETCH(QString, Categoria);
    const Studio Ufficio;
    Registratore Messaggi;
    QTEST(CreaDaDescrizione(Json({{u"categoria"_s, Categoria}, {u"autorita"_s, 23}})).CodCateg, "Codice");
}

void TestDescrizione::autoritaPerNomeONumero_data()
{
    QTest::addColumn<QJsonValue>("Autorita");
    QTest::newRow("numero") << QJsonValue(4);
    QTest::newRow("nome") << QJsonValue(u"Corte d'appello"_s);
    QTest::newRow("nome in maiuscole") << QJsonValue(u"CORTE D'APPELLO"_s);
}

void TestDescrizione::autoritaPerNomeONumero()
{
    QFETCH(QJsonValue, Autorita);
    const Studio Ufficio;
    Registratore Messaggi;
    QCOMPARE(CreaDaDescrizione(Json(DatiCivili({{u"autorita"_s, Autorita}}))).IDAutSelezionata(),
             IDCorteAppello);
}

void TestDescrizione::scaglioneSenzaValore()
{
    const Studio Ufficio;
    Registratore Messaggi;
    const QJsonObject Dati{{u"categoria"_s, u"CIV"_s}, {u"autorita"_s, 2}, {u"scaglione"_s, 8}};
    const Parcella Nota = CreaDaDescrizione(Json(Dati));
    QCOMPARE(Nota.Scaglione, ScaglioneIndeterminato);
    QCOMPARE(Importi(Nota, 0), QList<double>({1200, 1200, 600, 3000}));
}

void TestDescrizione::senzaPrecarica()
{
    const Studio Ufficio;
    Registratore Messaggi;
    QVERIFY(CreaDaDescrizione(Json(DatiCivili({{u"precarica"_s, false}}))).xOnorari.Vuota());
}

void TestDescrizione::onorari()
{
    const Studio Ufficio;
    Registratore Messaggi;
    const QByteArray Descrizione = R"({"categoria": "PEN", "autorita": 23, "precarica": false, "onorari": [
        {"voce": 95, "quantita": 2.5},
        {"voce": "Fase di studio"},
        {"voce": 4, "quantita": "3,01", "importo": 7}]})";
    const Parcella Nota = CreaDaDescrizione(Descrizione);
    QCOMPARE(Importi(Nota, 0), QList<double>({60, 60, 30, 90}));  // three hours begun
    QCOMPARE(Importi(Nota, 1), QList<double>({300, 300, 150, 1200}));
    QCOMPARE(Importi(Nota, 2), QList<double>({7, 3600, 1080, 5400}));  // 3.01 + 0.49 to the even 4
}

void TestDescrizione::voceNominataDueVolte()
{
    const Studio Ufficio;
    Registratore Messaggi;  // a question would fail the test: the description has decided already
    const QJsonArray Onorari{QJsonObject{{u"voce"_s, 1}}, QJsonObject{{u"voce"_s, 1}}};
    const Parcella Nota =
        CreaDaDescrizione(Json(DatiCivili({{u"precarica"_s, false}, {u"onorari"_s, Onorari}})));
    QCOMPARE(Nota.xOnorari.Righe(), 2);
    QCOMPARE(CalcolaSomme(Nota).TotOnorari, 2400.0);
}

void TestDescrizione::spese()
{
    const Studio Ufficio;
    Registratore Messaggi;
    const QByteArray Descrizione = R"({"categoria": "PEN", "autorita": 23, "spese": [
        {"descrizione": "A mano", "esenti": "12,50"}, {"voce": 3}, {"voce": 3, "descrizione": "Altra"}]})";
    const Parcella Nota = CreaDaDescrizione(Descrizione);
    QCOMPARE(Nota.xDiritti.Righe(), 3);
    QCOMPARE(CStr(Nota.xDiritti(0, DirNVoce)), QString());  // as typed into the grid
    QCOMPARE(Numeri(Nota.xDiritti, 0, {DirImponibile, DirEsente}), QList<double>({0, 12.5}));
    QCOMPARE(Nota.xDiritti(2, DirDescr).toString(), u"Altra"_s);
}

void TestDescrizione::percentuali()
{
    const Studio Ufficio;
    Registratore Messaggi;
    const Parcella Nota = CreaDaDescrizione(
        R"({"categoria": "PEN", "autorita": 23, "percentuali": {"iva": null, "cassa": 0, "ritenuta": "2,5"}})");
    QVERIFY(!Nota.chkIva.Attiva && !Nota.chkCP.Attiva && Nota.chkRA.Attiva && !Nota.chkSpeseGen.Attiva);
    QCOMPARE(Nota.txtIVA.Testo, QString());
    QCOMPARE(Nota.txtRA.Testo, u"2,5"_s);
}

void TestDescrizione::stragiudizialePerDescrizione()
{
    const Studio Ufficio;
    Registratore Messaggi;
    const Parcella Nota = CreaDaDescrizione(
        R"({"categoria": "STR", "autorita": 41, "valore": 30000,
            "onorari": [{"voce": "Assistenza nella trattativa o nella gestione dell'affare"}]})");
    QCOMPARE(Importi(Nota, 0), QList<double>({1312, 1312, 675, 1950}));
}

void TestDescrizione::numeriInTesto_data()
{
    QTest::addColumn<QJsonValue>("Valore");
    QTest::addColumn<double>("Atteso");
    QTest::newRow("numero") << QJsonValue(1234.5) << 1234.5;
    QTest::newRow("italiano") << QJsonValue(u"1.234,50"_s) << 1234.5;
    QTest::newRow("meno zero") << QJsonValue(u"-0"_s) << 0.0;
    QTest::newRow("meno zero numerico") << QJsonValue(-0.0) << 0.0;
    QTest::newRow("negativo") << QJsonValue(-3) << -3.0;
    QTest::newRow("al centesimo") << QJsonValue(100.555) << 100.56;
    QTest::newRow("al centesimo, in testo") << QJsonValue(u"-0,005"_s) << -0.01;
    QTest::newRow("assente") << QJsonValue() << 0.0;
}

void TestDescrizione::numeriInTesto()
{
    QFETCH(QJsonValue, Valore);
    const Studio Ufficio;
    Registratore Messaggi;
    const QJsonArray Acconti{QJsonObject{{u"corrispettivi"_s, Valore}}};
    const Parcella Nota = CreaDaDescrizione(Json(DatiCivili({{u"acconti"_s, Acconti}})));
    const double Letto = Nota.xAcconti(0, AccCorrispettivi).toDouble();
    QTEST(Letto, "Atteso");
    QVERIFY(!std::signbit(Letto) || Letto < 0);
}

void TestDescrizione::rifiuti_data()
{
    QTest::addColumn<QJsonObject>("Dati");
    QTest::addColumn<int>("Numero");
    QTest::addColumn<QString>("Campo");
    const auto Civ = [](const char* Nome, const QString& Campo, const QJsonValue& Valore, int Numero,
                        const QString& Detto) {
        QTest::newRow(Nome) << DatiCivili({{Campo, Valore}}) << Numero << Detto;
    };
    const auto Dentro = [](const QString& Nome, const QJsonValue& Valore) {
        return QJsonObject{{Nome, Valore}};
    };
    const auto InLista = [](const QJsonObject& Riga) { return QJsonArray{QJsonObject(), Riga}; };

    Civ("nome sconosciuto", u"clente"_s, u"Rossi"_s, 5, u"clente"_s);
    Civ("categoria sconosciuta", u"categoria"_s, u"TRI"_s, 5, u"categoria"_s);
    Civ("categoria non testo", u"categoria"_s, 1, 13, u"categoria"_s);
    Civ("categoria nulla", u"categoria"_s, QJsonValue(), 5, u"categoria"_s);
    Civ("autorita sconosciuta", u"autorita"_s, u"Tribunale della luna"_s, 5, u"autorita"_s);
    Civ("autorita di altra categoria", u"autorita"_s, 23, 5, u"autorita"_s);
    Civ("autorita non nominata", u"autorita"_s, QJsonValue(), 5, u"autorita"_s);
    Civ("autorita di altro tipo", u"autorita"_s, true, 13, u"autorita"_s);
    Civ("scaglione sconosciuto", u"scaglione"_s, 9, 5, u"scaglione"_s);
    Civ("scaglione in contrasto col valore", u"scaglione"_s, 1, 5, u"valore"_s);
    Civ("valore negativo", u"valore"_s, -1, 5, u"valore"_s);
    Civ("due punti", u"valore"_s, u"1.2.3"_s, 13, u"valore"_s);
    Civ("punto decimale", u"valore"_s, u"12.5"_s, 13, u"valore"_s);
    Civ("troppo grande", u"valore"_s, 1e12, 6, u"valore"_s);
    Civ("oltre un double", u"valore"_s, u"1e400"_s, 6, u"valore"_s);
    Civ("valore non numero", u"valore"_s, QJsonArray(), 13, u"valore"_s);
    Civ("valore mancante", u"valore"_s, QJsonValue(), 5, u"valore"_s);
    Civ("variazione non oggetto", u"variazione"_s, 10, 13, u"variazione"_s);
    Civ("opzione inesistente", u"variazione"_s, Dentro(u"opzione"_s, 11), 5, u"variazione.opzione"_s);
    Civ("opzione non intera", u"variazione"_s, Dentro(u"opzione"_s, 1.5), 13, u"variazione.opzione"_s);
    Civ("percento fuori limiti", u"variazione"_s, QJsonObject{{u"opzione"_s, 0}, {u"percento"_s, 101}}, 5,
        u"variazione.percento"_s);
    Civ("percento di segno opposto", u"variazione"_s, QJsonObject{{u"opzione"_s, 6}, {u"percento"_s, 30}}, 5,
        u"variazione.percento"_s);
    Civ("percento di quattro cifre", u"variazione"_s, Dentro(u"percento"_s, 1000), 6,
        u"variazione.percento"_s);
    Civ("altro nella variazione", u"variazione"_s, Dentro(u"motivo"_s, 1), 5, u"variazione.motivo"_s);

    Civ("onorari non elenco", u"onorari"_s, QJsonObject(), 13, u"onorari"_s);
    Civ("onorario non oggetto", u"onorari"_s, QJsonArray{1}, 13, u"onorari[0]"_s);
    Civ("onorario senza voce", u"onorari"_s, QJsonArray{QJsonObject()}, 5, u"onorari[0].voce"_s);
    const QJsonObject Libera{{u"voce"_s, 999}};
    const auto Onorario = [&](const QString& Campo, const QJsonValue& Valore) {
        QJsonObject Riga = Libera;
        Riga[Campo] = Valore;
        return QJsonArray{Libera, Riga};
    };
    Civ("voce assente dal catalogo", u"onorari"_s, Onorario(u"voce"_s, 77), 5, u"onorari[1].voce"_s);
    Civ("quantita nulla", u"onorari"_s, Onorario(u"quantita"_s, 0), 5, u"onorari[1].quantita"_s);
    Civ("quantita negativa", u"onorari"_s, Onorario(u"quantita"_s, -1), 5, u"onorari[1].quantita"_s);
    Civ("importo non numero", u"onorari"_s, Onorario(u"importo"_s, u"tanto"_s), 13, u"onorari[1].importo"_s);
    Civ("data inesistente", u"onorari"_s, Onorario(u"data"_s, u"30/02/2024"_s), 13, u"onorari[1].data"_s);
    Civ("altro nell'onorario", u"onorari"_s, Onorario(u"note"_s, u""_s), 5, u"onorari[1].note"_s);

    Civ("spesa senza voce", u"spese"_s, InLista({}), 5, u"spese[0].voce"_s);
    Civ("spesa fuori catalogo", u"spese"_s, QJsonArray{Dentro(u"voce"_s, 400)}, 5, u"spese[0].voce"_s);
    Civ("spesa non numero", u"spese"_s, QJsonArray{QJsonObject{{u"voce"_s, 3}, {u"esenti"_s, true}}}, 13,
        u"spese[0].esenti"_s);
    Civ("valuta sconosciuta", u"acconti"_s, InLista(Dentro(u"valuta"_s, u"$"_s)), 5, u"acconti[1].valuta"_s);
    Civ("altro nell'acconto", u"acconti"_s, InLista(Dentro(u"importo"_s, 1)), 5, u"acconti[1].importo"_s);

    Civ("percentuale oltre cento", u"percentuali"_s, Dentro(u"iva"_s, 101), 5, u"percentuali.iva"_s);
    Civ("percentuale negativa", u"percentuali"_s, Dentro(u"cassa"_s, -4), 5, u"percentuali.cassa"_s);
    Civ("percentuale sconosciuta", u"percentuali"_s, Dentro(u"bollo"_s, 2), 5, u"percentuali.bollo"_s);
    Civ("cliente non testo", u"cliente"_s, 7, 13, u"cliente"_s);
    Civ("cliente troppo lungo", u"cliente"_s, QString(65536, u'x'), 3163, u"cliente"_s);
    Civ("precarica non booleana", u"precarica"_s, 1, 13, u"precarica"_s);
    Civ("tipo di stampa", u"stampa"_s, Dentro(u"tipo"_s, 8), 5, u"stampa.tipo"_s);
    Civ("numero di fattura lungo", u"stampa"_s, Dentro(u"numeroFattura"_s, QString(256, u'9')), 3163,
        u"stampa.numeroFattura"_s);
    Civ("data della fattura", u"stampa"_s, Dentro(u"dataFattura"_s, u"ieri"_s), 13, u"stampa.dataFattura"_s);
    Civ("altro nella stampa", u"stampa"_s, Dentro(u"carta"_s, u"A4"_s), 5, u"stampa.carta"_s);
    QTest::newRow("valore in materia penale")
        << QJsonObject{{u"categoria"_s, u"PEN"_s}, {u"autorita"_s, 23}, {u"valore"_s, 1}} << 5 << u"valore"_s;
    QTest::newRow("scaglione in materia penale")
        << QJsonObject{{u"categoria"_s, u"PEN"_s}, {u"autorita"_s, 23}, {u"scaglione"_s, 1}} << 5
        << u"scaglione"_s;
    QTest::newRow("ore senza quantita'") << QJsonObject{{u"categoria"_s, u"PEN"_s},
                                                        {u"autorita"_s, 23},
                                                        {u"onorari"_s, QJsonArray{Dentro(u"voce"_s, 95)}}}
                                         << 5 << u"onorari[0].quantita"_s;
}

void TestDescrizione::rifiuti()
{
    QFETCH(QJsonObject, Dati);
    QFETCH(QString, Campo);
    const Studio Ufficio;
    Registratore Messaggi;
    const ErroreVisto Rifiuto = Prova(Json(Dati));
    QTEST(Rifiuto.Numero, "Numero");
    QVERIFY2(Rifiuto.Descrizione.startsWith(u"Campo "_s + Campo + u": "_s), qPrintable(Rifiuto.Descrizione));
}

void TestDescrizione::nonJson_data()
{
    QTest::addColumn<QByteArray>("Testo");
    QTest::addColumn<int>("Numero");
    QTest::newRow("vuoto") << QByteArray() << 321;
    QTest::newRow("prosa") << QByteArray("Egregio collega") << 321;
    QTest::newRow("monco") << QByteArray(R"({"categoria": "CIV")") << 321;
    QTest::newRow("due oggetti") << QByteArray("{}{}") << 321;
    QTest::newRow("elenco") << QByteArray("[1]") << 13;
    QTest::newRow("byte qualunque") << QByteArray("\xff\xfe\x00\x01", 4) << 321;
    QTest::newRow("annidato senza fine") << QByteArray(100'000, '[') << 321;
    QTest::newRow("troppo grande") << QByteArray(MassimoDescrizione + 1, ' ') << 321;
}

void TestDescrizione::nonJson()
{
    QFETCH(QByteArray, Testo);
    const Studio Ufficio;
    Registratore Messaggi;
    QTEST(Prova(Testo).Numero, "Numero");
}

void TestDescrizione::numeroOltreOgniMisura()
{
    const Studio Ufficio;
    Registratore Messaggi;
    const ErroreVisto Rifiuto = Prova(R"({"categoria": "CIV", "autorita": 2, "valore": 1e400})");
    QVERIFY2(Rifiuto.Numero == 6 || Rifiuto.Numero == 321, qPrintable(Rifiuto.Descrizione));
}

void TestDescrizione::descrizioniLunghe()
{
    const Studio Ufficio;
    Registratore Messaggi;
    const auto Con = [](int Caratteri) {
        const QJsonObject Riga{{u"voce"_s, 999}, {u"descrizione"_s, QString(Caratteri, u'x')}};
        return Json(DatiCivili({{u"onorari"_s, QJsonArray{Riga}}}));
    };
    const ErroreVisto Rifiuto = Prova(Con(10'000));
    QCOMPARE(Rifiuto.Numero, 3163);
    QVERIFY2(Rifiuto.Descrizione.startsWith(u"Campo onorari[0].descrizione: "_s),
             qPrintable(Rifiuto.Descrizione));
    // What is accepted is saved, cut as every description is.
    const Parcella Nota = CreaDaDescrizione(Con(255));
    ScriviNota(Ufficio.File(u"nota.mdb"_s), Nota);
    Parcella Letta;
    CaricaDati(Letta, Ufficio.File(u"nota.mdb"_s));
    QCOMPARE(Letta.xOnorari(4, OnoDescr).toString(), QString(MassimoDescr, u'x'));
}

void TestDescrizione::passwordTagliata()
{
    const Studio Ufficio;
    Registratore Messaggi;
    const Parcella Nota = CreaDaDescrizione(Json(DatiCivili({{u"password"_s, u"chiavelunga"_s}})));
    ScriviNota(Ufficio.File(u"nota.mdb"_s), Nota);
    QCOMPARE(LeggiPsw(Ufficio.File(u"nota.mdb"_s)), u"chiave"_s);
}

void TestDescrizione::senzaTariffe()
{
    const Studio Ufficio;
    sessione::PercorsoProg = Ufficio.Cartella();
    Registratore Messaggi;
    QCOMPARE(Prova(Json(DatiCivili())).Numero, 3024);
}

void TestDescrizione::narrata()
{
    const Studio Ufficio;
    Registratore Messaggi;
    Parcella Nota = CreaDaDescrizione(
        Json(DatiCivili({{u"cliente"_s, u"Rossi \"Mario\" <è>"_s},
                         {u"password"_s, u"chiave"_s},
                         {u"spese"_s, QJsonArray{QJsonObject{{u"voce"_s, 3}, {u"esenti"_s, 27}}}}})));
    Nota.IDCli = 7;
    const QByteArray Testo = DescriviNota(Nota);
    QVERIFY(!Testo.contains("chiave"));
    const QJsonObject Dati = Oggetto(Testo);
    QCOMPARE(Dati[u"categoria"_s].toString(), u"CIV"_s);
    QCOMPARE(Dati[u"autorita"_s].toString(), u"Tribunale ordinario"_s);
    QCOMPARE(Dati[u"scaglione"_s].toString(), u"da € 25.000,01 a € 50.000,00"_s);
    QCOMPARE(Dati[u"valore"_s].toDouble(), 30000.0);
    QCOMPARE(Dati[u"cliente"_s].toString(), u"Rossi \"Mario\" <è>"_s);
    QCOMPARE(Dati[u"idCliente"_s].toInt(), 7);
    QCOMPARE(Dati[u"protetta"_s].toBool(), true);
    const QJsonArray Onorari = Dati[u"onorari"_s].toArray();
    QCOMPARE(int(Onorari.size()), 4);
    QCOMPARE(Onorari[3][u"descrizione"_s].toString(), u"Fase decisoria"_s);
    QCOMPARE(Onorari[3][u"massimo"_s].toDouble(), 2400.0);
    QCOMPARE(Dati[u"spese"_s][0][u"esenti"_s].toDouble(), 27.0);
    QCOMPARE(Dati[u"percentuali"_s][u"iva"_s].toDouble(), 21.0);
    QVERIFY(Dati[u"percentuali"_s][u"ritenuta"_s].isNull());
    QCOMPARE(Dati[u"totali"_s][u"onorari"_s].toDouble(), 4500.0);
    QCOMPARE(Dati[u"totali"_s][u"speseEsenti"_s].toDouble(), 27.0);

    // A rate of 0 is none when the file is read again, and is described so.
    Nota.chkRA.Attiva = true;
    Nota.txtRA.Testo = u"0"_s;
    QVERIFY(Oggetto(DescriviNota(Nota))[u"percentuali"_s][u"ritenuta"_s].isNull());
}

void TestDescrizione::narrataERiletta()
{
    const Studio Ufficio;
    Registratore Messaggi;
    const Parcella Nota = CreaDaDescrizione(Json(DatiCivili({{u"oggetto"_s, u"Sfratto"_s}})));
    ScriviNota(Ufficio.File(u"nota.mdb"_s), Nota);
    Parcella Letta;
    CaricaDati(Letta, Ufficio.File(u"nota.mdb"_s));
    QCOMPARE(Oggetto(DescriviNota(Letta)), Oggetto(DescriviNota(Nota)));
}

void TestDescrizione::gliEsempiSiLeggono()
{
    const Studio Ufficio;
    Registratore Messaggi;
    for (const QString& Nome : {u"civile"_s, u"penale"_s, u"stragiudiziale"_s, u"tribunale55"_s}) {
        QFile Esempio(SorgenteDiProva(u"dati/esempi/"_s) + Nome + u".json"_s);
        QVERIFY2(Esempio.open(QIODevice::ReadOnly), qPrintable(Nome));
        const ErroreVisto Letto = Prova(Esempio.readAll());
        QVERIFY2(Letto.Numero == 0, qPrintable(Nome + u": "_s + Letto.Descrizione));
    }
}

#include "TestDescrizione.moc"
