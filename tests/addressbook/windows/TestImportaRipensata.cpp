// What is stopped, taken back or left where it is when names come in.
#include "bancoimportazione.h"

#include "core/parametri.h"
#include "platform/system/impostazioni.h"
#include "platform/system/percorsi.h"
#include "supporto/guasti.h"

#include <QScopeGuard>

using namespace Qt::StringLiterals;

namespace {

/// Presses Esc on a button as soon as it comes into view, once.
class EscAllaVista : public QObject
{
public:
    explicit EscAllaVista(QWidget* Su) { Su->installEventFilter(this); }

private:
    bool eventFilter(QObject* Chi, QEvent* Evento) override
    {
        if (Evento->type() != QEvent::Show)
            return false;
        Chi->removeEventFilter(this);
        QMetaObject::invokeMethod(
            qApp, [Chi] { QTest::keyClick(static_cast<QWidget*>(Chi), Qt::Key_Escape); },
            Qt::QueuedConnection);
        return false;
    }
};

}  // namespace

class TestImportaRipensata : public QObject, private BancoImportazione
{
    Q_OBJECT
private Q_SLOTS:
    void init() { Prepara(); }
    void cleanup() { Sgombra(); }
    void escFermaTutto();
    void escFermaLaLettura_data();
    void escFermaLaLettura();
    void escFermaLaRilettura();
    void siAnnullaDalResoconto();
    void siAnnullaPiuTardi();
    void nonSiAnnullaDopoUnaModifica();
    void usaQuestoArchivio();
    void copiatoENonRicordato();
    void usaQuestoArchivioENo();
    void leVecchieParcelle();
    void escFermaLeVecchieParcelle();
};
PROVA(TestImportaRipensata);

void TestImportaRipensata::escFermaTutto()
{
    QByteArray Tanti("Nome\n");
    for (int i = 0; i < 3000; ++i)
        Tanti += "Nome " + QByteArray::number(i) + "\n";
    const frmImporta* F = Apri(frmImporta::Nominativi, Salva(u"nomi.csv"_s, Tanti));
    Premuto(F, "cmdAvanti");
    Premuto(F, "cmdAvanti");
    const QByteArray Prima = LeggiFile(A->File);
    auto* Barra = Controllo(F, "cmdInterrompi");
    QMetaObject::invokeMethod(
        qApp, [Barra] { QTest::keyClick(Barra, Qt::Key_Escape); }, Qt::QueuedConnection);
    Premuto(F, "cmdAvanti");
    QCOMPARE(Pagina(F), int(frmImporta::PagDoppioni));
    QVERIFY(F->isVisible());
    QCOMPARE(TestoDi(F, "lblProva"), u"L'importazione è stata interrotta: l'archivio è com'era."_s);
    QCOMPARE(LeggiFile(A->File), Prima);
    QVERIFY(!Barra->isVisible());
    Premuto(F, "cmdAvanti");
    QCOMPARE(InArchivio().size(), 3005);
}

void TestImportaRipensata::escFermaLaLettura_data()
{
    QTest::addColumn<QString>("Nome");
    QTest::newRow("rows") << u"nomi.csv"_s;
    QTest::newRow("cards") << u"nomi.vcf"_s;
    QTest::newRow("Access") << u"nomi.mdb"_s;
}

/// Esc while a large file is read: the first step again, with nothing read.
void TestImportaRipensata::escFermaLaLettura()
{
    QFETCH(QString, Nome);
    QString File = Cartella + Nome;
    if (Nome.endsWith(u".csv"))
        Salva(Nome, "Nome;Via\n" + QByteArray("Rossi Mario;Via Roma 1\n").repeated(20'000));
    else if (Nome.endsWith(u".vcf"))
        Salva(Nome, QByteArray("BEGIN:VCARD\nFN:Rossi Mario\nEND:VCARD\n").repeated(10'000));
    else
        ScriviAccess(File, {.Tabelle = {{.Nome = u"clienti"_s,
                                         .Colonne = {{.Nome = u"Nominativo"_s}},
                                         .Righe = QList<RigaScritta>(5'000, {u"Rossi Mario"_s})}}});
    const QByteArray Prima = LeggiFile(A->File);
    const frmImporta* F = Apri(frmImporta::Nominativi, File);
    auto* Ferma = Controllo(F, "cmdInterrompi");
    const EscAllaVista Esc(Ferma);
    Premuto(F, "cmdAvanti");
    QCOMPARE(Pagina(F), int(frmImporta::PagScelta));
    QVERIFY(F->isVisible() && !Ferma->isVisible());
    QCOMPARE(NomeFuoco(), u"cmdAvanti"_s);
    QCOMPARE(LeggiFile(A->File), Prima);
    QCOMPARE(ContenutoDi(sessione::UserFolder), QStringList());
    Premuto(F, "cmdAvanti");
    QCOMPARE(Pagina(F), int(frmImporta::PagColonne));
}

/// Stopped while it is read another way, the file is as it was read before.
void TestImportaRipensata::escFermaLaRilettura()
{
    const frmImporta* F =
        Apri(frmImporta::Nominativi,
             Salva(u"nomi.csv"_s, "Nome;Via\n" + QByteArray("Rossi Mario;Via Roma 1\n").repeated(20'000)));
    Premuto(F, "cmdAvanti");
    auto* Separatori = Controllo<QComboBox>(F, "cmbSeparatore");
    auto* Ferma = Controllo(F, "cmdInterrompi");
    const EscAllaVista Esc(Ferma);
    Scegli(Separatori, 1);
    QVERIFY(F->isVisible() && !Ferma->isVisible());
    QCOMPARE(Separatori->currentText(), u"punto e virgola (;)"_s);
    QCOMPARE(Colonna(F, 1, 0), u"Via"_s);
    Scegli(Separatori, 1);
    QCOMPARE(Colonna(F, 0, 0), u"Colonna 1"_s);  // no title is known of it
}

void TestImportaRipensata::siAnnullaDalResoconto()
{
    const QByteArray Prima = LeggiFile(A->File);
    const frmRubrica* R = A->Apri(A->DaScrivania());
    const frmImporta* F = Importato();
    QCOMPARE(Nomi(R).size(), 6);
    A->Voce.Attendi(u"L'archivio torna com'era prima dell'importazione. Proseguire?"_s, vbYes, u"Domanda:"_s);
    Premuto(F, "cmdAnnullaImporta");
    QCOMPARE(TestoDi(F, "lblEsito"), u"L'importazione è stata annullata: l'archivio è com'era prima."_s);
    QVERIFY(!Controllo(F, "cmdAnnullaImporta")->isVisible());
    QCOMPARE(LeggiFile(A->File), Prima);
    QCOMPARE(Nomi(R), Cinque);
}

/// The way back is there the next time too.
void TestImportaRipensata::siAnnullaPiuTardi()
{
    const QByteArray Prima = LeggiFile(A->File);
    Importato()->close();
    const frmImporta* F = Apri();
    QVERIFY2(TestoDi(F, "lblUltima").startsWith(u"Ultima importazione: 1 nominativo da \"nomi.csv\", il "),
             qPrintable(TestoDi(F, "lblUltima")));
    A->Voce.Attendi(u"L'archivio torna com'era prima dell'importazione. Proseguire?"_s, vbYes);
    A->Voce.Attendi(u"L'importazione è stata annullata: l'archivio è com'era prima."_s, vbOK,
                    u"Messaggio:"_s);
    Premuto(F, "cmdAnnullaUltima");
    QCOMPARE(LeggiFile(A->File), Prima);
    QVERIFY(!Controllo(F, "cmdAnnullaUltima")->isVisible());
}

void TestImportaRipensata::nonSiAnnullaDopoUnaModifica()
{
    const frmImporta* F = Importato();
    OpenDatabase(A->File).Execute(u"UPDATE clienti SET Cap='1' WHERE ID=1"_s);
    const QByteArray Dopo = LeggiFile(A->File);
    A->Voce.Attendi(u"L'archivio torna com'era prima dell'importazione. Proseguire?"_s, vbYes);
    A->Voce.Attendi(u"Dopo l'importazione l'archivio è stato modificato: annullandola si perderebbero le "
                    u"modifiche, perciò "
                    "resta com'è. La copia di prima è il file \"%1.prima\"."_s.arg(A->File),
                    vbOK, u"Avvertenza:"_s);
    Premuto(F, "cmdAnnullaImporta");
    QCOMPARE(LeggiFile(A->File), Dopo);
}

void TestImportaRipensata::usaQuestoArchivio()
{
    const QString Vecchio = ScriviAccess(
        Cartella + u"vecchio.mdb"_s,
        {.Tabelle = {{.Nome = u"clienti"_s,
                      .Colonne = {{.Nome = u"ID"_s, .Tipo = tipoaccess::Lungo, .Contatore = true},
                                  {.Nome = u"Nominativo"_s, .Descrizione = u"L=Cognome e nome"_s}},
                      .Righe = {{41, u"Omega Srl"_s}}}}});
    const QByteArray Prima = LeggiFile(Vecchio);
    const QString Nuovo = sessione::UserFolder + u"DatiStudio.mdb"_s;
    int Cambiate = 0;
    Aperture.ImpostazioniCambiate = [&] { ++Cambiate; };
    QString Lasciata;  // the store names another user folder than the session's
    Aperture.LasciaCartellaUtente = [&] { Lasciata = sessione::UserFolder; };
    const frmImporta* F = Apri(frmImporta::ArchivioIntero, Vecchio);
    A->Voce.Attendi(u"Una copia di \"vecchio.mdb\" diventa l'archivio clienti e controparti dello studio.\n"
                    "L'archivio usato finora, \"%1\", resta dov'è. Proseguire?"_s.arg(A->File),
                    vbYes, u"Domanda:"_s);
    A->Voce.Tollera();  // the other settings of this test are none
    Premuto(F, "cmdAvanti");
    QCOMPARE(Pagina(F), int(frmImporta::PagResoconto));
    QCOMPARE(TestoDi(F, "lblEsito"), u"L'archivio è pronto: 1 cliente e 0 controparti."_s);
    QCOMPARE(sessione::ArchivioCliCon, Nuovo);
    QCOMPARE(Cambiate, 1);
    QCOMPARE(Lasciata, CartellaFile(Nuovo));
    QCOMPARE(LeggiFile(Vecchio), Prima);
    const Database Db = OpenDatabase(sessione::ArchivioCliCon);
    QCOMPARE(Db.OpenRecordset(u"clienti"_s).Value(u"ID"_s).toInt(), 41);
    QCOMPARE(Db.Campi(u"clienti"_s)[1].Description, u"L=Cognome e nome"_s);
}

/// The copy stands, and the office does not use it: both are said, or the next try makes a second one.
void TestImportaRipensata::copiatoENonRicordato()
{
    const QString Impostazioni = PercorsoImpostazioni(NomeApplicazione.toString());
    SalvaImpostazione(u"Prova"_s, u"1"_s);
    ImpostaSolaLettura(Impostazioni, true);
    const auto Rimetti = qScopeGuard([&] { ImpostaSolaLettura(Impostazioni, false); });
    const ErroreVisto Perche = ErroreDi([] { SalvaImpostazione(u"Prova"_s, u"2"_s); });
    QVERIFY(Perche.Numero != 0);
    const QString Nuovo = sessione::UserFolder + u"DatiStudio.mdb"_s;
    const frmImporta* F = Apri(frmImporta::ArchivioIntero, A->File);
    A->Voce.Attendi(
        u"Una copia di \"DatiStudio.mdb\" diventa l'archivio clienti e controparti dello studio.\n"
        "L'archivio usato finora, \"%1\", resta dov'è. Proseguire?"_s.arg(A->File),
        vbYes, u"Domanda:"_s);
    A->Voce.Attendi(
        u"Errore: L'archivio è stato copiato in \"%1\", ma lo studio usa ancora quello di prima: %2. Non "
        "occorre prenderlo di nuovo: si sceglie nelle impostazioni (%3)"_s.arg(
            Nuovo, Perche.Descrizione, QString::number(Perche.Numero)),
        vbOK, u"Errore:"_s);
    Premuto(F, "cmdAvanti");
    QCOMPARE(Pagina(F), int(frmImporta::PagScelta));
    QCOMPARE(sessione::ArchivioCliCon, A->File);
    QCOMPARE(OpenDatabase(Nuovo, true).OpenRecordset(u"clienti"_s).RecordCount(), 5);
}

void TestImportaRipensata::usaQuestoArchivioENo()
{
    const frmImporta* F = Apri(frmImporta::ArchivioIntero, A->File);
    A->Voce.Attendi(
        u"Una copia di \"DatiStudio.mdb\" diventa l'archivio clienti e controparti dello studio.\n"
        "L'archivio usato finora, \"%1\", resta dov'è. Proseguire?"_s.arg(A->File),
        vbNo, u"Domanda:"_s);
    Premuto(F, "cmdAvanti");
    QCOMPARE(Pagina(F), int(frmImporta::PagScelta));
    QCOMPARE(sessione::ArchivioCliCon, A->File);
    QCOMPARE(ContenutoDi(sessione::UserFolder), QStringList());
}

void TestImportaRipensata::leVecchieParcelle()
{
    const TabellaScritta Param{
        .Nome = u"ParcellaParam"_s, .Colonne = {{.Nome = u"Cliente"_s}}, .Righe = {{u"Rossi"_s}}};
    ScriviAccess(Cartella + u"una.mdb"_s, {.Tabelle = {Param}});
    Salva(u"rotta.mdb"_s, "x");
    const QString Copie = NuovaCartella() + u"nuove"_s;
    const frmImporta* F = Apri(frmImporta::Parcelle, Cartella);
    Controllo<QLineEdit>(F, "txtArrivo")->setText(Copie);
    Premuto(F, "cmdAvanti");
    QCOMPARE(TestoDi(F, "lblEsito"), u"Parcelle copiate: 1 su 2."_s);
    const QString Detto = Controllo<QPlainTextEdit>(F, "txtResoconto")->toPlainText();
    QVERIFY2(Detto.contains(u"una.mdb: copiata\n") &&
                 Detto.contains(u"rotta.mdb: non copiata, non è una parcella\n"),
             qPrintable(Detto));
    QCOMPARE(
        OpenDatabase(Copie + u"/una.mdb"_s).OpenRecordset(u"ParcellaParam"_s).Value(u"Cliente"_s).toString(),
        u"Rossi"_s);
}

/// The copies that were made by then are gone again, and that is said.
void TestImportaRipensata::escFermaLeVecchieParcelle()
{
    for (int i = 1; i < 4; ++i)
        QVERIFY(QFile::copy(A->File, Cartella + u"nota%1.mdb"_s.arg(i)));
    const QString Copie = NuovaCartella() + u"nuove"_s;
    const frmImporta* F = Apri(frmImporta::Parcelle, Cartella);
    Controllo<QLineEdit>(F, "txtArrivo")->setText(Copie);
    const EscAllaVista Esc(Controllo(F, "cmdInterrompi"));
    A->Voce.Tollera();
    Premuto(F, "cmdAvanti");
    QCOMPARE(A->Voce.Mostrati().size(), 1);
    QVERIFY2(A->Voce.UltimoTesto().startsWith(u"La copia è stata interrotta"_s),
             qPrintable(A->Voce.UltimoTesto()));
    QVERIFY(!QDir(Copie).exists());
    QCOMPARE(Pagina(F), int(frmImporta::PagScelta));
}

#include "TestImportaRipensata.moc"
