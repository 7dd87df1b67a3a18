// The road of a result, and its way into the calendar of the office.
#include "banconorme.h"

#include "platform/calendar/calendario.h"
#include "platform/grid/griglia.h"
#include "platform/system/cartelle.h"
#include "platform/system/file.h"
#include "supporto/maschera.h"

#include <QListWidget>
#include <QScopedValueRollback>

using namespace Qt::StringLiterals;

class TestStradaAgenda : public QObject, private ConTermini
{
    Q_OBJECT

private Q_SLOTS:
    void init() { Prepara(); }
    void cleanup() { Sparecchia(); }

    void stradaDelRisultato();
    void stradaDelProgramma();
    void stradaDellaCatena();
    void stradaSiCopiaESiStampa();
    void stradaSenzaRisultato();
    void stradaSiChiudeCambiando();
    void calendarioDellaStrada();
    void agendaAprire();
    void agendaDiUnUtenteSolo();
    void agendaSenzaProgramma();
    void agendaSalvare();
    void agendaSalvareAnnullato();
    void agendaSalvareSopra();
    void agendaCopiare();
    void agendaSenzaNessuna();
    void agendaDiUnaCatena();
    void agendaSenzaRisultato();
};
PROVA(TestStradaAgenda);

// ---- the road -------------------------------------------------------------------------------------

void TestStradaAgenda::stradaDelRisultato()
{
    Scegli(F, "cmbNorme", InVigore);
    Calcola(u"20072026"_s, u"30"_s);
    auto* Passi = Strada();
    QVERIFY(Passi);
    QVERIFY(TestoDi(Passi, "lblScadenza").contains(u"19 Settembre 2026 (Posticipata)"));
    auto* Tabella = Controllo<Griglia>(Passi, "tdbStrada");
    const auto* Modello = Tabella->Vista()->model();
    QStringList Righe;
    for (int Riga = 0; Riga < Tabella->Righe(); ++Riga) {
        QStringList Celle;
        for (int Colonna = 0; Colonna < 3; ++Colonna)
            Celle << Modello->index(Riga, Colonna).data().toString();
        Righe << Celle.join(u'|');
    }
    QCOMPARE(Righe,
             (QStringList{u"20/07/2026||Giorno iniziale, non contato"_s,
                          u"21/07/2026 - 31/07/2026|11|Giorni del termine"_s,
                          u"01/08/2026 - 31/08/2026|31|Sospensione feriale"_s,
                          u"01/09/2026 - 19/09/2026|19|Giorni del termine"_s, u"19/09/2026||Scadenza"_s}));
    QVERIFY(Modello->index(2, 3).data().toString().contains(u"742/1969"));
    // The norm of the row in full, however narrow its column.
    Tabella->ImpostaRigaCorrente(2);
    QCOMPARE(TestoDi(Passi, "lblPasso"), u"Sospensione feriale: "_s + Modello->index(2, 3).data().toString());
}

void TestStradaAgenda::stradaDelProgramma()
{
    Calcola(u"20072026"_s, u"30"_s);
    auto* Passi = Strada();
    QVERIFY(Passi);
    auto* Tabella = Controllo<Griglia>(Passi, "tdbStrada");
    const auto* Modello = Tabella->Vista()->model();
    for (int Riga = 0; Riga < Tabella->Righe(); ++Riga)
        QCOMPARE(Modello->index(Riga, 3).data().toString(), CriterioDelProgramma.toString());
    QVERIFY(TestoDi(Passi, "lblNote").contains(AvvisoSettembre));
}

void TestStradaAgenda::stradaDellaCatena()
{
    Scegli(F, "cmbNorme", InVigore);
    Scrivi(F, "mskDecorr", u"15012027"_s);
    Prendi(u"CPC-189 precisazione"_s);
    Clic(Controllo(F, "cmdLascia"));
    Prendi(u"Difese conclusive dell'art. 189"_s);
    auto* Passi = Strada();
    QVERIFY(Passi);
    auto* Tabella = Controllo<Griglia>(Passi, "tdbStrada");
    const auto* Modello = Tabella->Vista()->model();
    QList<int> Titoli;
    for (int Riga = 0; Riga < Tabella->Righe(); ++Riga)
        if (Modello->index(Riga, 0).data().toString().isEmpty())
            Titoli << Riga;
    QCOMPARE(Titoli.size(), 3);
    // The calendar follows the row, in the colours of its term alone.
    Tabella->ImpostaRigaCorrente(Titoli[2]);
    QVERIFY(TestoDi(Passi, "lblTermine").contains(u"eplica"));
    const auto* Calendario = Controllo<CalendarioMensile>(Passi, "Calendario");
    QCOMPARE(Calendario->Data(), QDate(2026, 12, 31));
    QVERIFY(Calendario->Aspetto(QDate(2026, 12, 31)).Scadenza);
    QVERIFY(!Calendario->Aspetto(QDate(2026, 12, 20)).Segno);
    Tabella->ImpostaRigaCorrente(Titoli[0]);
    QVERIFY(Calendario->Aspetto(QDate(2026, 12, 20)).Segno);
}

void TestStradaAgenda::stradaSiCopiaESiStampa()
{
    Scegli(F, "cmbNorme", InVigore);
    Calcola(u"20072026"_s, u"30"_s);
    auto* Passi = Strada();
    QVERIFY(Passi);
    Clic(Controllo(Passi, "cmdCopia"));
    const QString Copiato = Appunti();
    QVERIFY2(Copiato.contains(u"01/08/2026 - 31/08/2026\t31\tSospensione feriale\t"), qPrintable(Copiato));
    QVERIFY(Copiato.startsWith(u"Termine di 30 giorni\nScadenza: Sabato, 19 Settembre 2026"));
    Clic(Controllo(Passi, "cmdStampa"));
    const QStringList Foglio = Stampato();
    QVERIFY2(Foglio.contains(u"Norme: in vigore"_s), qPrintable(Foglio.join(u'|')));
    QVERIFY(Foglio.contains(u"Scadenza: Sabato, 19 Settembre 2026 (Posticipata)"_s));
    bool Tabella = false;
    for (const BloccoDocumento& Blocco : SeCaricato<frmPrint>->vpFree().Foglio().Contenuto().Blocchi)
        Tabella |= !std::holds_alternative<Paragrafo>(Blocco);
    QVERIFY(Tabella);
}

void TestStradaAgenda::stradaSenzaRisultato()
{
    QVERIFY(!Controllo(F, "cmdStrada")->isEnabled());
    Controllo(F, "mskDecorr")->setFocus();
    Premi(Qt::Key_D, Qt::ControlModifier);
    QVERIFY(!Aperta<frmStrada>(F));
}

void TestStradaAgenda::stradaSiChiudeCambiando()
{
    Calcola(u"20072026"_s, u"30"_s);
    QVERIFY(Strada());
    F->activateWindow();
    QVERIFY(MostraAttiva(*F));
    Scrivi(F, "txtIncrNum", u"31"_s);
    Respiro();
    QVERIFY(!Aperta<frmStrada>(F));
    Clic(Controllo(F, "cmdEsegui"));
    auto* Passi = Strada();
    QVERIFY(Passi);
    QVERIFY(TestoDi(Passi, "lblTermine").contains(u"31 giorni"));
}

void TestStradaAgenda::calendarioDellaStrada()
{
    Scegli(F, "cmbNorme", InVigore);
    Calcola(u"20072026"_s, u"34"_s);  // 23 September
    Calcola(u"20072026"_s, u"31"_s);  // 20 September, a Sunday
    QVERIFY(Risultato(F).contains(u"21 Settembre"));
    auto* Passi = Strada();
    QVERIFY(Passi);
    const auto* Calendario = Controllo<CalendarioMensile>(Passi, "Calendario");
    const auto Segno = [Calendario](const QDate& Giorno) {
        const auto Quale = Calendario->Aspetto(Giorno).Segno;
        return Quale ? QString(Quale->Lettera) : QString();
    };
    QVERIFY(Calendario->Aspetto(QDate(2026, 7, 20)).Inizio);
    QCOMPARE(Segno(QDate(2026, 7, 20)), QString());
    QCOMPARE(Segno(QDate(2026, 7, 21)), u"c"_s);
    QCOMPARE(Segno(QDate(2026, 7, 31)), u"c"_s);
    QCOMPARE(Segno(QDate(2026, 8, 1)), QString());
    QVERIFY(Calendario->Aspetto(QDate(2026, 8, 31)).Sospeso);
    QCOMPARE(Segno(QDate(2026, 9, 1)), u"c"_s);
    QVERIFY(!Calendario->Aspetto(QDate(2026, 9, 1)).Sospeso);
    QCOMPARE(Segno(QDate(2026, 9, 20)), u"s"_s);
    QVERIFY(Calendario->Aspetto(QDate(2026, 9, 21)).Scadenza);
    QCOMPARE(Segno(QDate(2026, 9, 22)), QString());
    // Each kind has its letter and its name in the legend.
    QStringList Legenda;
    for (const QLabel* Una : Calendario->findChildren<QLabel*>())
        Legenda << Una->text();
    for (const SegnoCalendario& Uno : SegniStrada())
        QVERIFY2(Legenda.contains(Uno.Nome), qPrintable(Uno.Nome));
}

// ---- the calendar of the office -------------------------------------------------------------------

void TestStradaAgenda::agendaAprire()
{
    Scegli(F, "cmbNorme", InVigore);
    Scrivi(F, "mskDecorr", u"20072026"_s);
    Prendi(u"CPC-325-A"_s);
    auto* Voci = Agenda();
    QVERIFY(Voci);
    Scrivi(Voci, "txtPratica", u"Rossi c. Bianchi"_s);
    Clic(Controllo(Voci, "cmdApri"));
    QCOMPARE(B->Aperti, QStringList{u"file Rossi c. Bianchi - Appello (art. 325 c.p.c.).ics"_s});
    const QString Cartella = CartellaDati() + u"agenda/"_s;
    const QByteArray Ics = LeggiFile(Cartella + u"Rossi c. Bianchi - Appello (art. 325 c.p.c.).ics"_s);
    QVERIFY(Ics.contains("DTSTART;VALUE=DATE:20260921\r\n"));
    QVERIFY(Ics.contains("SUMMARY:Rossi c. Bianchi - Appello (art. 325 c.p.c.)\r\n"));
    QVERIFY(QString::fromUtf8(Ics).remove(u"\r\n "_s).contains(u"Decorrenza: 20/07/2026"));
    // Another one leaves no client's name behind.
    Scrivi(Voci, "txtPratica", u"Verdi"_s);
    Clic(Controllo(Voci, "cmdApri"));
    QCOMPARE(QDir(Cartella).entryList(QDir::Files), QStringList{u"Verdi - Appello (art. 325 c.p.c.).ics"_s});
}

/// The user folder may be an office's, and is written without a separator at its end.
void TestStradaAgenda::agendaDiUnUtenteSolo()
{
    Calcola(u"20072026"_s, u"30"_s);
    const QScopedValueRollback Cartella(sessione::UserFolder, NuovaCartella().chopped(1));
    auto* Voci = Agenda();
    QVERIFY(Voci);
    QDir(CartellaDati() + u"agenda"_s).removeRecursively();
    {
        const SenzaMaschera Aperta;
        Clic(Controllo(Voci, "cmdApri"));
    }
    QCOMPARE(B->Aperti.size(), 1);
    QVERIFY(QDir(sessione::UserFolder).isEmpty());
    QVERIFY(!QFileInfo::exists(sessione::UserFolder + u"agenda"_s));
    QCOMPARE(QFileInfo(CartellaDati() + u"agenda"_s).permissions() & DiAltri, QFile::Permissions());
}

void TestStradaAgenda::agendaSenzaProgramma()
{
    Calcola(u"20072026"_s, u"30"_s);
    B->Lettore = false;
    auto* Voci = Agenda();
    QVERIFY(Voci);
    B->Voce.Tollera();
    Clic(Controllo(Voci, "cmdApri"));
    QVERIFY(B->Aperti.isEmpty());
    QVERIFY2(B->Voce.UltimoTesto().contains(u".ics"), qPrintable(B->Voce.UltimoTesto()));
    // Nobody reads a file that names the client where no program opens it.
    QCOMPARE(QDir(CartellaDati() + u"agenda/"_s).entryList(QDir::Files), QStringList());
    // A system that fails to open it says so too.
    B->Lettore = true;
    B->Esito = 75;
    Clic(Controllo(Voci, "cmdApri"));
    QVERIFY(B->Voce.UltimoTesto().startsWith(u"Errore: "));
}

void TestStradaAgenda::agendaSalvare()
{
    Calcola(u"20072026"_s, u"30"_s);
    auto* Voci = Agenda();
    QVERIFY(Voci);
    const QString File = NuovaCartella() + u"scadenze"_s;
    B->Voce.AttendiSalva(File);
    B->Voce.Attendi(u"Le scadenze sono state salvate in "_s + File + u".ics"_s, vbOK, u"Messaggio:"_s);
    Clic(Controllo(Voci, "cmdSalva"));
    QVERIFY(B->Voce.InizioDialogo().endsWith(u"Termine di 30 giorni.ics"));
    QVERIFY(LeggiFile(File + u".ics"_s).contains("DTSTART;VALUE=DATE:20261005\r\n"));
}

void TestStradaAgenda::agendaSalvareAnnullato()
{
    Calcola(u"20072026"_s, u"30"_s);
    auto* Voci = Agenda();
    QVERIFY(Voci);
    B->Voce.AttendiSalva({});
    Clic(Controllo(Voci, "cmdSalva"));
    QVERIFY(Voci->isVisible());
    QVERIFY(B->Voce.Mostrati().isEmpty());
}

/// The name that was typed is not yet the file: its ending comes behind the dialog, and so does the question.
void TestStradaAgenda::agendaSalvareSopra()
{
    Calcola(u"20072026"_s, u"30"_s);
    auto* Voci = Agenda();
    QVERIFY(Voci);
    const QString File = NuovaCartella() + u"scadenze"_s;
    ScriviFile(File + u".ics"_s, "mie");
    for (const bool Si : {false, true}) {
        B->Voce.AttendiSalva(File);
        B->Voce.Attendi(u"Il file scadenze.ics esiste già: si vuole sostituirlo?"_s, Si ? vbYes : vbNo,
                        u"Domanda:"_s);
        if (Si)
            B->Voce.Attendi(u"Le scadenze sono state salvate in "_s + File + u".ics"_s, vbOK,
                            u"Messaggio:"_s);
        Clic(Controllo(Voci, "cmdSalva"));
        QCOMPARE(LeggiFile(File + u".ics"_s) == "mie", !Si);
    }
}

void TestStradaAgenda::agendaCopiare()
{
    Calcola(u"20072026"_s, u"30"_s);
    auto* Voci = Agenda();
    QVERIFY(Voci);
    Scrivi(Voci, "txtPratica", u"Rossi"_s);
    Clic(Controllo(Voci, "cmdCopia"));
    QCOMPARE(Appunti(), u"lunedì 05/10/2026: Rossi - Termine di 30 giorni"_s);
}

void TestStradaAgenda::agendaSenzaNessuna()
{
    Calcola(u"20072026"_s, u"30"_s);
    auto* Voci = Agenda();
    QVERIFY(Voci);
    auto* Elenco = Controllo<QListWidget>(Voci, "lstScadenze");
    Elenco->setFocus();
    Premi(Qt::Key_Space);
    QCOMPARE(Elenco->item(0)->checkState(), Qt::Unchecked);
    for (const char* Nome : {"cmdApri", "cmdSalva", "cmdCopia"})
        QVERIFY2(!Controllo(Voci, Nome)->isEnabled(), Nome);
    Premi(Qt::Key_Space);
    QVERIFY(Controllo(Voci, "cmdApri")->isEnabled());
}

void TestStradaAgenda::agendaDiUnaCatena()
{
    Scegli(F, "cmbNorme", InVigore);
    Scrivi(F, "mskDecorr", u"15012027"_s);
    Prendi(u"CPC-171TER prima udienza costituzione"_s);
    auto* Voci = Agenda();
    QVERIFY(Voci);
    auto* Elenco = Controllo<QListWidget>(Voci, "lstScadenze");
    QCOMPARE(Elenco->count(), 5);
    Elenco->item(1)->setCheckState(Qt::Unchecked);
    Clic(Controllo(Voci, "cmdCopia"));
    QCOMPARE(Appunti().split(u'\n').size(), 4);
    Clic(Controllo(Voci, "cmdApri"));
    const QStringList Scritti = QDir(CartellaDati() + u"agenda"_s).entryList(QDir::Files);
    QCOMPARE(Scritti.size(), 1);
    QCOMPARE(LeggiFile(CartellaDati() + u"agenda/"_s + Scritti.first()).count("BEGIN:VEVENT"), 4);
}

void TestStradaAgenda::agendaSenzaRisultato()
{
    QVERIFY(!Controllo(F, "cmdAgenda")->isEnabled());
    Controllo(F, "mskDecorr")->setFocus();
    Premi(Qt::Key_G, Qt::ControlModifier);
    QVERIFY(!Aperta<frmAgenda>(F));
}

#include "TestStradaAgenda.moc"
