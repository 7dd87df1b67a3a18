// The commands that follow norms: those of the program, or the law in force, with reasons and calendar file.
#include "chiamata.h"

#include "core/sessione.h"
#include "platform/system/file.h"

#include <QJsonArray>
#include <QJsonDocument>

using namespace Qt::StringLiterals;

namespace {

QJsonObject Json(const QStringList& Argomenti)
{
    return QJsonDocument::fromJson(Chiama(QStringList{u"--json"_s} + Argomenti).Uscita.toUtf8()).object();
}

}  // namespace

class TestCliNorme : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup();
    void risposte_data();
    void risposte();
    void rifiuti_data();
    void rifiuti();
    void noteAParte();
    void spiega();
    void spiegaInJson();
    void spiegaSequenze();
    void contributoSpiegato();
    void catalogo();
    void agenda_data();
    void agenda();
    void stessaIdentita();
    void tanteCartelle();
};
PROVA(TestCliNorme);

void TestCliNorme::cleanup()
{
    AzzeraSessione();
}

void TestCliNorme::risposte_data()
{
    QTest::addColumn<QStringList>("Argomenti");
    QTest::addColumn<QString>("Uscita");
    const auto Riga = [](const char* Nome, const QString& Argomenti, const QString& Uscita) {
        QStringList Parole = Argomenti.split(u' ');
        for (QString& Parola : Parole)
            if (Parola == u"-")
                Parola.clear();
        QTest::newRow(Nome) << Parole << Uscita;
    };
    const QString Vigenti = u"--norme vigenti "_s;
    Riga("termini, senza scelta", u"termini 21/07/2026 20 giorni"_s, u"25/09/2026 (Posticipata)"_s);
    Riga("termini, del programma", u"--norme programma termini 21/07/2026 20 giorni"_s,
         u"25/09/2026 (Posticipata)"_s);
    Riga("termini, vigenti", Vigenti + u"termini 21/07/2026 20 giorni"_s, u"10/09/2026 (Posticipata)"_s);
    Riga("termini, vigenti, materia", Vigenti + u"termini 21/07/2026 20 giorni 1 0 0 - lavoro"_s,
         u"10/08/2026"_s);
    Riga("sabato a ritroso, del programma", u"termini 25/03/2026 11 giorni 0 0 1 antecedente"_s,
         u"14/03/2026"_s);
    Riga("sabato a ritroso, vigenti", Vigenti + u"termini 25/03/2026 11 giorni 0 0 1 antecedente"_s,
         u"13/03/2026 (Anticipata)"_s);
    Riga("sequenziali, del programma", u"sequenziali 10/07/2012 183"_s,
         u"24/09/2012 (Posticipato); 24/10/2012; 13/11/2012"_s);
    Riga("sequenziali, vigenti", Vigenti + u"sequenziali 10/07/2022 183"_s,
         u"09/09/2022 (Posticipato); 10/10/2022 (Posticipato); 31/10/2022 (Posticipato)"_s);
    Riga("contributo, del programma", u"contributo 6000"_s, u"237,00"_s);
    Riga("contributo, 2011", Vigenti + u"contributo 6000 ordinario 06/07/2011"_s, u"206,00"_s);
    Riga("contributo, cassazione", Vigenti + u"contributo 6000 - 10/06/2025 cassazione"_s, u"474,00"_s);
    Riga("contributo, varianti",
         Vigenti + u"contributo 6000 ridotto 10/06/2025 impugnazione imprese,respinta"_s, u"711,00"_s);
    Riga("contributo, lavoro", Vigenti + u"contributo 6000 - 10/06/2025 primo lavoro"_s, u"118,50"_s);
    Riga("contributo, lavoro in cassazione", Vigenti + u"contributo 6000 - 10/06/2025 cassazione lavoro"_s,
         u"474,00"_s);
    // The order of the words changes nothing, nor does one that the table has said already.
    const QString Contributo = Vigenti + u"contributo 6000 %1 10/06/2025 %2 %3"_s;
    for (const auto& [Grado, Dovuto] : {std::pair{u"primo"_s, u"118,50"_s}, {u"cassazione"_s, u"474,00"_s}})
        for (const auto& [Tabella, Parole] : {std::pair{u"-"_s, u"lavoro,ridotto"_s},
                                              {u"-"_s, u"ridotto,lavoro"_s},
                                              {u"ridotto"_s, u"lavoro"_s},
                                              {u"-"_s, u"lavoro"_s}})
            Riga(qPrintable(u"%1, %2 %3"_s.arg(Grado, Tabella, Parole)),
                 Contributo.arg(Tabella, Grado, Parole), Dovuto);
    Riga("contributo, per ricorrente", Vigenti + u"contributo - cittadinanza 10/06/2025 - - 3"_s,
         u"1.800,00"_s);
    Riga("mora, del programma", u"interessi mora 1000 Euro - 01/01/2020 31/12/2020"_s, u"70,19"_s);
    Riga("mora, vigenti: un punto in più", Vigenti + u"interessi mora 1000 Euro - 01/01/2020 31/12/2020"_s,
         u"80,22"_s);
    Riga("mora, vigenti, ma detto", Vigenti + u"interessi mora 1000 Euro - 01/01/2020 31/12/2020 0"_s,
         u"70,19"_s);
    Riga("mora, vigenti, fino al 2012", Vigenti + u"interessi mora 1000 Euro - 31/12/2012 31/12/2012"_s,
         u"0,22"_s);
    Riga("legali, vigenti", Vigenti + u"interessi legali 1000 Euro - 01/02/2009 31/01/2012"_s, u"54,57"_s);
    Riga("scadenza", u"scadenza cpc-166 15/06/2026"_s, u"03/04/2026 (Spostata)"_s);
    Riga("scadenza di una catena", u"scadenza CPC-171TER 15/06/2026"_s,
         u"03/04/2026 (Spostata); 20/04/2026 (Spostata); 06/05/2026; 26/05/2026; 05/06/2026"_s);
    Riga("scadenza, materia", u"scadenza CPC-325-A 20/07/2026 urgenti"_s, u"19/08/2026"_s);
    Riga("scadenza, inizio", u"scadenza CPC-190-1-V 27/02/2026 - 10/01/2022"_s, u"28/04/2026"_s);
}

void TestCliNorme::risposte()
{
    QFETCH(QStringList, Argomenti);
    const Esito Avuto = Chiama(Argomenti);
    QCOMPARE(Avuto.Stato, 0);
    QTEST(Avuto.Uscita.chopped(1), "Uscita");
}

void TestCliNorme::rifiuti_data()
{
    QTest::addColumn<QString>("Argomenti");
    QTest::addColumn<int>("Stato");
    QTest::addColumn<QString>("Guasti");
    const auto Riga = [](const char* Nome, const QString& Argomenti, int Stato, const QString& Guasti) {
        QTest::newRow(Nome) << Argomenti << Stato << Guasti;
    };
    Riga("norme sconosciute", u"--norme vecchie termini 1/1/2026 1 giorni"_s, 2,
         u"Norme sconosciute: vecchie. Le norme sono programma e vigenti."_s);
    Riga("norme senza valore", u"termini --norme"_s, 2, u"L'opzione --norme vuole una scelta."_s);
    Riga("un comando senza norme", u"--norme vigenti istat 1 € 1/1/2020 1/1/2021"_s, 2,
         u"L'opzione --norme non vale per il comando istat"_s);
    Riga("scadenza del programma", u"--norme programma scadenza CPC-166 15/06/2026"_s, 2,
         u"Il comando scadenza segue soltanto le norme vigenti"_s);
    Riga("ricorrenti dove non si contano",
         u"--norme vigenti contributo 1000 civile 01/06/2025 primo ridotto 3"_s, 1,
         u"Errore: Processo civile, a valore: l'importo non è dovuto per ciascun ricorrente (5)"_s);
    Riga("spiega dove non c'è strada", u"--spiega interessi legali 1 Euro 0 1/1/2020 1/1/2021"_s, 2,
         u"L'opzione --spiega non vale per il comando interessi"_s);
    Riga("agenda senza date", u"--ics x.ics contributo 1"_s, 2,
         u"L'opzione --ics non vale per il comando contributo"_s);
    Riga("agenda in serie", u"--batch --ics x.ics termini"_s, 2, u"L'opzione --ics non vale con --batch."_s);
    Riga("spiega in serie", u"--batch --spiega termini"_s, 2,
         u"Con --batch l'opzione --spiega vale solo insieme a --json."_s);
    Riga("anno 100", u"--norme vigenti termini 01/01/0100 10 giorni"_s, 1,
         u"Errore: Le norme note cominciano dal 06/11/1969: il termine tocca un giorno precedente (5)"_s);
    Riga("anno 9999", u"--norme vigenti termini 20/12/9999 20 giorni"_s, 1,
         u"Errore: Il termine va oltre il 31/12/9999 (5)"_s);
    Riga("materia col programma", u"termini 01/07/2026 10 giorni 1 0 0 successiva lavoro"_s, 1,
         u"Errore: materia: vale solo con --norme vigenti (5)"_s);
    Riga("sospensione di legge", u"--norme vigenti sequenziali 10/07/2022 183 0"_s, 1,
         u"Errore: sospensione e sabato: con --norme vigenti li dice la legge (5)"_s);
    Riga("rito che non c'era", u"--norme vigenti sequenziali 10/07/2005 183"_s, 1,
         u"Errore: CPC-183-1-V vale dal 01/03/2006 al 27/02/2023: il termine corre dal 10/07/2005 (5)"_s);
    Riga("deposito col programma", u"contributo 1 ordinario 01/01/2020"_s, 1,
         u"Errore: deposito, grado, varianti e spiegazione valgono solo con --norme vigenti (5)"_s);
    Riga("importi non noti", u"--norme vigenti contributo 1 ordinario 30/07/2010"_s, 1,
         u"Errore: Processo civile, a valore: importi noti dal 31/07/2010 (5)"_s);
    Riga("grado sconosciuto", u"--norme vigenti contributo 1 ordinario 01/01/2020 terzo"_s, 1,
         u"Errore: grado: «terzo» non è fra primo, impugnazione, cassazione (5)"_s);
    Riga("ricorrenti a zero", u"--norme vigenti contributo 1 cittadinanza 01/01/2026 primo ridotto 0"_s, 1,
         u"Errore: ricorrenti: «0»: va da 1 a 9999 (5)"_s);
    Riga("codice sconosciuto", u"scadenza CPC-000 01/01/2026"_s, 1,
         u"Errore: codice: «CPC-000» non è nel catalogo (5)"_s);
    Riga("una regola", u"scadenza GEN-01 01/01/2026"_s, 1,
         u"Errore: GEN-01 è una regola, non un termine da contare (5)"_s);
    Riga("evento che non è una data", u"scadenza CPC-166 30/02/2026"_s, 1,
         u"Errore: evento: «30/02/2026» non è una data (13)"_s);
}

void TestCliNorme::rifiuti()
{
    QFETCH(QString, Argomenti);
    const Esito Avuto = Chiama(Argomenti.split(u' '));
    QTEST(Avuto.Stato, "Stato");
    QCOMPARE(Avuto.Uscita, QString());
    QTEST(Avuto.Guasti.trimmed(), "Guasti");
}

// An answer of one line stays one: what must be known of it is told beside it.
void TestCliNorme::noteAParte()
{
    const QStringList Termine =
        u"--norme vigenti termini 10/09/2026 10 giorni 1 0 0 antecedente"_s.split(u' ');
    const Esito Avuto = Chiama(Termine);
    QCOMPARE(Avuto.Uscita, u"31/07/2026 (Anticipata)\n"_s);
    QCOMPARE(Avuto.Guasti, u"Criterio non riscontrato\n"_s);
    QCOMPARE(Avuto.Stato, 0);
    const Esito ConJson = Chiama(QStringList{u"--json"_s} + Termine);
    QCOMPARE(ConJson.Guasti, QString());
    QVERIFY(ConJson.Uscita.contains(u"\"note\":[\"Criterio non riscontrato\"]"));
    QCOMPARE(Chiama(u"--norme vigenti termini 10/11/2026 20 giorni"_s.split(u' ')).Guasti,
             u"Norme note fino al 21/11/2026\n"_s);
    QVERIFY(Chiama(u"--norme vigenti contributo 1"_s.split(u' ')).Guasti.contains(u"L. 199/2025"));
    QCOMPARE(Chiama(u"termini 10/11/2026 20 giorni"_s.split(u' ')).Guasti, QString());
}

void TestCliNorme::spiega()
{
    QCOMPARE(
        Chiama(u"--norme vigenti --spiega termini 21/07/2026 20 giorni"_s.split(u' ')).Uscita,
        u"10/09/2026 (Posticipata)\n"
        "21/07/2026\t\tGiorno iniziale, non contato\tart. 155, commi 1-3, c.p.c.\n"
        "22/07/2026 - 31/07/2026\t10\tGiorni del termine\tart. 155, commi 1-3, c.p.c.\n"
        "01/08/2026 - 31/08/2026\t31\tSospensione feriale\tL. 742/1969, art. 1, come modificato dal D.L. "
        "132/2014, art. 16\n"
        "01/09/2026 - 10/09/2026\t10\tGiorni del termine\tart. 155, commi 1-3, c.p.c.\n"
        "10/09/2026\t\tScadenza\tart. 155, commi 1-3, c.p.c.\n"_s);
    QCOMPARE(Chiama(u"--spiega termini 21/07/2026 20 giorni"_s.split(u' ')).Uscita,
             u"25/09/2026 (Posticipata)\n"
             "21/07/2026\t\tGiorno iniziale, non contato\tcriterio del programma\n"
             "22/07/2026 - 31/07/2026\t10\tGiorni del termine\tcriterio del programma\n"
             "01/08/2026 - 15/09/2026\t46\tSospensione feriale\tcriterio del programma\n"
             "16/09/2026 - 25/09/2026\t10\tGiorni del termine\tcriterio del programma\n"
             "25/09/2026\t\tScadenza\tcriterio del programma\n"
             "Dal 2015 la sospensione termina il 31 agosto: v. Avvertenze\n"_s);
}

void TestCliNorme::spiegaInJson()
{
    const QJsonArray Strada =
        Json(u"--norme vigenti --spiega termini 23/05/2026 10 giorni"_s.split(u' '))[u"strada"].toArray();
    QCOMPARE(Strada.size(), 4);
    const QJsonObject Festa = Strada[2].toObject();
    QCOMPARE(Festa[u"da"].toString(), u"02/06/2026"_s);
    QCOMPARE(Festa[u"a"].toString(), u"02/06/2026"_s);
    QCOMPARE(Festa[u"giorni"].toInt(), 1);
    QCOMPARE(Festa[u"passo"].toString(), u"Festivo"_s);
    QCOMPARE(Festa[u"nota"].toString(), u"2 giugno"_s);
    QCOMPARE(Festa[u"riscontrato"].toBool(true), false);
    // Without the wish the record is as it always was.
    QCOMPARE(Json(u"termini 23/05/2026 10 giorni"_s.split(u' ')).keys(),
             (QStringList{u"scadenza"_s, u"spostata"_s}));
    const Esito Serie =
        Chiama({u"--batch"_s, u"--json"_s, u"--spiega"_s, u"--norme"_s, u"vigenti"_s, u"termini"_s},
               {"23/05/2026;10;giorni", "10/01/1900;10;giorni"});
    QCOMPARE(Serie.Uscita.count(u'\n'), 2);
    QVERIFY(Serie.Uscita.contains(u"\"strada\":"));
    QVERIFY(Serie.Uscita.contains(u"\"errore\":"));
}

void TestCliNorme::spiegaSequenze()
{
    const QString Uscita = Chiama(u"--spiega sequenziali 10/07/2012 190"_s.split(u' ')).Uscita;
    const QStringList Paragrafi = Uscita.split(u"\n\n"_s);
    QCOMPARE(Paragrafi.size(), 2);
    QVERIFY(Paragrafi[0].startsWith(u"1° termine (60 giorni): 24/10/2012 (Posticipato)\n10/07/2012\t"));
    QVERIFY2(Paragrafi[1].startsWith(u"2° termine (20 giorni): 13/11/2012\n24/10/2012\t"),
             qPrintable(Uscita));
    const QJsonArray Termini =
        Json(u"--spiega scadenza CPC-189 15/06/2026"_s.split(u' '))[u"termini"].toArray();
    QCOMPARE(Termini.size(), 3);
    QCOMPARE(Termini[0].toObject()[u"voce"].toString(), u"CPC-189-1"_s);
    QVERIFY(Termini[2].toObject()[u"strada"].toArray().size() >= 3);
}

void TestCliNorme::contributoSpiegato()
{
    const QJsonObject Record =
        Json(u"--norme vigenti --spiega contributo 6000 ordinario 10/06/2025 cassazione"_s.split(u' '));
    QCOMPARE(Record[u"contributo"].toDouble(), 474.0);
    QCOMPARE(Record[u"aggiunte"].toDouble(), 227.0);
    QCOMPARE(Record[u"totale"].toDouble(), 701.0);
    QCOMPARE(Record[u"minimo"].toDouble(), 43.0);
    QCOMPARE(Record[u"passi"].toArray().size(), 4);
    const auto Aggiunte = [](const QString& Variante) {
        return Json((u"--norme vigenti contributo 6000 ordinario 10/06/2025 primo "_s + Variante)
                        .split(u' '))[u"aggiunte"]
            .toDouble();
    };
    QCOMPARE(Aggiunte(u"imprese"_s), 27.0);
    QCOMPARE(Aggiunte(u"lavoro"_s), 0.0);
    QCOMPARE(Aggiunte(u"lavoro,imprese"_s), 0.0);
    QCOMPARE(Aggiunte(u"senza-notifiche"_s), 0.0);
    QCOMPARE(Record[u"passi"].toArray()[1].toObject()[u"norma"].toString(),
             u"D.P.R. 115/2002, art. 13, comma 1-bis"_s);
    const QString Testo =
        Chiama(u"--norme vigenti --spiega contributo 6000 ordinario 10/06/2024"_s.split(u' ')).Uscita;
    QCOMPARE(Testo.section(u'\n', 0, 0), u"237,00"_s);
    QVERIFY(Testo.contains(u"Scaglione da 5.200,01 a 26.000,00 euro\t237,00\t"));
    QVERIFY2(Testo.contains(u"\nIn tutto\t264,00\t\t\n"), qPrintable(Testo));
    QVERIFY(!Testo.contains(u"Almeno"));
    QVERIFY(
        Chiama(u"--norme vigenti --spiega contributo 6000 ordinario 10/06/2025"_s.split(u' '))
            .Uscita.contains(u"\nIn tutto\t264,00\t\t\nAlmeno, per l'iscrizione a ruolo\t43,00\tD.P.R. "));
}

void TestCliNorme::catalogo()
{
    const QString Tutti = Chiama({u"ricorrenti"_s}).Uscita;
    QVERIFY(Tutti.endsWith(u"\n115 di 115\n"));
    QCOMPARE(Tutti.count(u'\n'), 115 + 16 + 1);
    QCOMPARE(
        Chiama({u"ricorrenti"_s, u"decreto ingiuntivo"_s}).Uscita,
        u"CPC-641|art. 641 c.p.c.|monitorio|Opposizione a decreto ingiuntivo|notificazione del decreto|40 "
        "giorni|Termine all'estero non riscontrato.|\n"
        "CPC-644-IT|art. 644 c.p.c.|monitorio|Notificazione del decreto ingiuntivo|pronuncia del decreto|60 "
        "giorni|Poi è inefficace; 90 giorni all'estero.|\n"
        "2 di 115\n"_s);
    const QJsonObject Record = Json({u"ricorrenti"_s, u"190"_s});
    QCOMPARE(Record[u"termini"].toArray().size(), 2);
    QCOMPARE(Record[u"catene"].toArray().size(), 1);
    QCOMPARE(Record[u"termini"].toArray()[0].toObject()[u"vigenza"].toString(),
             u"dal 30/04/1995 al 27/02/2023"_s);
}

void TestCliNorme::agenda_data()
{
    QTest::addColumn<QString>("Argomenti");
    QTest::addColumn<int>("Eventi");
    QTest::newRow("termine del programma") << u"termini 21/07/2026 20 giorni"_s << 1;
    QTest::newRow("termine vigente") << u"--norme vigenti termini 21/07/2026 20 giorni"_s << 1;
    QTest::newRow("sequenza del programma") << u"sequenziali 10/07/2012 183"_s << 3;
    QTest::newRow("catena") << u"scadenza CPC-171TER 15/06/2026"_s << 5;
    QTest::newRow("termine del catalogo") << u"scadenza CPC-641 15/06/2026"_s << 1;
}

void TestCliNorme::agenda()
{
    QFETCH(QString, Argomenti);
    const QString File = NuovaCartella() + u"termini.ics"_s;
    const QString Senza = Chiama(Argomenti.split(u' ')).Uscita;
    const Esito Avuto = Chiama(QStringList{u"--ics"_s, File} + Argomenti.split(u' '));
    QCOMPARE(Avuto.Stato, 0);
    QCOMPARE(Avuto.Uscita, Senza);
    const QByteArray Scritto = LeggiFile(File);
    QTEST(int(Scritto.count("BEGIN:VEVENT\r\n")), "Eventi");
    for (const QString& Data : Senza.trimmed().split(u"; "_s)) {
        const QStringList Parti = Data.left(10).split(u'/');
        QVERIFY2(Scritto.contains((u"DTSTART;VALUE=DATE:"_s + Parti[2] + Parti[1] + Parti[0]).toUtf8()),
                 qPrintable(Data));
    }
    // What is not verified stands in the calendar too.
    const QString Altro = NuovaCartella() + u"nota.ics"_s;
    (void)Chiama(QStringList{u"--ics"_s, Altro} + u"scadenza CPA-73-R 28/03/2026"_s.split(u' '));
    QVERIFY(LeggiFile(Altro).contains("Criterio non riscontrato"));
    // A file that cannot be written is no answer.
    const Esito Nessuno =
        Chiama(QStringList{u"--ics"_s, NuovaCartella() + u"manca/termini.ics"_s} + Argomenti.split(u' '));
    QCOMPARE(Nessuno.Stato, 1);
    QCOMPARE(Nessuno.Uscita, QString());
}

// A term has one identity, however it is written down and by whatever norms it is counted.
void TestCliNorme::stessaIdentita()
{
    const auto Identita = [](const QString& Argomenti) {
        const QString File = NuovaCartella() + u"t.ics"_s;
        (void)Chiama(QStringList{u"--ics"_s, File} + Argomenti.split(u' '));
        const QString Scritto = QString::fromUtf8(LeggiFile(File));
        return Scritto.section(u"UID:"_s, 1, 1).section(u"\r\n"_s, 0, 0);
    };
    const QString Una = Identita(u"termini 01/02/2026 30 giorni"_s);
    QVERIFY(Una.endsWith(u"@calcanova"));
    QCOMPARE(Identita(u"termini 1/2/2026 30 Giorni 1"_s), Una);
    QCOMPARE(Identita(u"--norme vigenti termini 01/02/26 30 giorni"_s), Una);
    QVERIFY(Identita(u"termini 01/02/2026 31 giorni"_s) != Una);
    QVERIFY(Identita(u"termini 01/02/2026 30 giorni 1 1"_s) != Una);
    QCOMPARE(Identita(u"--norme vigenti sequenziali 10/07/2022 183"_s),
             Identita(u"scadenza CPC-183 10/07/2022"_s));
    QCOMPARE(Identita(u"scadenza cpc-189-1 15/06/2026"_s), Identita(u"scadenza CPC-189 15/06/2026"_s));
}

// The program's own rules ask no file for anything, those in force one whose name is told.
void TestCliNorme::tanteCartelle()
{
    const QString Vuota = NuovaCartella();
    const QStringList Qui{u"--programma"_s, Vuota};
    QCOMPARE(Chiama(Qui + u"termini 21/07/2026 20 giorni"_s.split(u' ')).Stato, 0);
    QCOMPARE(Chiama(Qui + u"contributo 6000"_s.split(u' ')).Stato, 0);
    for (const QString& Comando :
         {u"--norme vigenti termini 21/07/2026 20 giorni"_s, u"--norme vigenti sequenziali 10/07/2022 183"_s,
          u"--norme vigenti contributo 6000"_s, u"ricorrenti"_s, u"scadenza CPC-166 15/06/2026"_s}) {
        const Esito Avuto = Chiama(Qui + Comando.split(u' '));
        QCOMPARE(Avuto.Stato, 1);
        QCOMPARE(Avuto.Uscita, QString());
        QCOMPARE(Avuto.Guasti, u"Errore: Norme.mdb: il file manca nella cartella del programma; le norme in "
                               u"vigore non si possono "
                               "usare (5)\n"_s);
    }
}

#include "TestCliNorme.moc"
