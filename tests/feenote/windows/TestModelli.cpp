// Templates: saved, reopened, safe from the next save.
#include "core/comandi.h"
#include "core/posti.h"
#include "platform/system/file.h"
#include "salvataggi.h"

using namespace Qt::StringLiterals;
using namespace salvataggi;

class TestModelli : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup();
    void salvaComeModello();
    void ilModelloAppenaSalvatoESicuro();
    void riapertoDivieneUnaParcella();
    void colSuoNomeNonSiSalva_data();
    void colSuoNomeNonSiSalva();
    void unAltroModelloNonSiRimpiazza();
    void soloSeModificata();
    void daUnaParcellaSiParteDaiModelli();
    void nomiRifiutati_data();
    void nomiRifiutati();
    void laCartellaComunqueScritta_data();
    void laCartellaComunqueScritta();
    void senzaCartellaDeiModelli();
    void cartellaSparita();
    void laPasswordResta();
    void ilCodiceDellaPratica();

private:
    void Riapri(const QString& File);

    std::unique_ptr<Tavolo> T;
    frmParcelle* F = nullptr;
};
PROVA(TestModelli);

void TestModelli::init()
{
    T = std::make_unique<Tavolo>();
    F = T->Apri();
    QVERIFY(F);
}

void TestModelli::cleanup()
{
    T.reset();
}

void TestModelli::Riapri(const QString& File)
{
    F->SetModificata(false);
    QVERIFY(F->close());
    QCOMPARE(T->Apri(File), F);
}

void TestModelli::salvaComeModello()
{
    CompilaCivile(F);
    ClicScheda(F, SchedaListaOnorari);
    QCOMPARE(F->Nota.xOnorari.Righe(), 4);
    const QString File = SalvaCome(*T, u"Sfratto.mdb"_s, true);
    QCOMPARE(T->Voce.TitoloDialogo(), u"Salva parcella come modello"_s);
    QCOMPARE(T->Voce.InizioDialogo(), sessione::ModelliPath);
    QVERIFY(SolaLettura(File));
    QCOMPARE(NumeroRighe(File, u"ParcellaRighe"_s), 4);
    QCOMPARE(F->Nota.Percorso, File);
    QCOMPARE(F->windowTitle(), u"sfratto"_s);
    QCOMPARE(InfoParcelle[1].Nome, u"sfratto"_s);
    QVERIFY(!F->Nota.Modificata && !InfoParcelle[1].Modificata);
}

void TestModelli::ilModelloAppenaSalvatoESicuro()
{
    Tocca(F);
    const QString Modello = SalvaCome(*T, u"sfratto.mdb"_s, true);
    const QByteArray Prima = LeggiFile(Modello);
    Tocca(F, u"Neri"_s);
    const QString File = SalvaCome(*T, u"neri.mdb"_s);
    QCOMPARE(T->Voce.TitoloDialogo(), u"Salva parcella"_s);
    QCOMPARE(T->Voce.InizioDialogo(), sessione::ParcellePath);
    QVERIFY(!SolaLettura(File));
    QCOMPARE(Cliente(File), u"Neri"_s);
    QCOMPARE(LeggiFile(Modello), Prima);
}

void TestModelli::riapertoDivieneUnaParcella()
{
    Tocca(F);
    const QString Modello = SalvaCome(*T, u"sfratto.mdb"_s, true);
    const QByteArray Prima = LeggiFile(Modello);
    Riapri(Modello);
    QCOMPARE(F->windowTitle(), u"sfratto"_s);
    QCOMPARE(F->Nota.Percorso, Modello);
    QCOMPARE(Controllo<QLineEdit>(F, "txtCliente")->text(), u"Rossi"_s);
    QVERIFY(!F->Nota.Modificata);
    QVERIFY2(SolaLettura(Modello), "l'apertura gli lascia l'attributo");

    Tocca(F, u"Verdi"_s);
    const QString File = SalvaCome(*T, u"verdi.mdb"_s);
    QCOMPARE(T->Voce.InizioDialogo(), sessione::ParcellePath);
    QCOMPARE(F->Nota.Percorso, File);
    QCOMPARE(F->windowTitle(), u"verdi"_s);
    Tocca(F, u"Verdi Anna"_s);
    SalvaCome(*T, u"verdi.mdb"_s);  // from now on a note like any other, whose file is its own
    QCOMPARE(T->Voce.InizioDialogo(), File);
    QCOMPARE(LeggiFile(Modello), Prima);
}

void TestModelli::colSuoNomeNonSiSalva_data()
{
    QTest::addColumn<QString>("Comando");
    QTest::newRow("save") << u"save"_s;
    QTest::newRow("savepar") << u"savepar"_s;
    QTest::newRow("savemod") << u"savemod"_s;
}

void TestModelli::colSuoNomeNonSiSalva()
{
    QFETCH(QString, Comando);
    Tocca(F);
    const QString Modello = SalvaCome(*T, u"sfratto.mdb"_s, true);
    const QByteArray Prima = LeggiFile(Modello);
    Riapri(Modello);
    Tocca(F, u"Altro"_s);
    T->Voce.AttendiSalva(Modello);
    T->Voce.Attendi(NonSovrascrivibile(u"sfratto.mdb"_s), vbOK, u"Errore:"_s);
    EseguiComando(Comando, 1, {});
    QCOMPARE(T->Voce.Ultimo().Bandiere, vbCritical);
    QCOMPARE(LeggiFile(Modello), Prima);
    QVERIFY(SolaLettura(Modello));
    QVERIFY(F->Nota.Modificata);
    QCOMPARE(F->Nota.txtCliente.Testo, u"Altro"_s);
    QCOMPARE(F->windowTitle(), u"sfratto"_s);
}

void TestModelli::unAltroModelloNonSiRimpiazza()
{
    Tocca(F);
    const QString Modello = SalvaCome(*T, u"sfratto.mdb"_s, true);
    F->Nuova({});
    Tocca(F, u"Altro"_s);
    T->Voce.AttendiSalva(Modello);
    T->Voce.Attendi(NonSovrascrivibile(u"sfratto.mdb"_s));
    EseguiComando(u"savemod"_s, 1, {});
    QCOMPARE(Cliente(Modello), u"Rossi"_s);
    QVERIFY(F->Nota.Percorso.isEmpty());
}

void TestModelli::soloSeModificata()
{
    EseguiComando(u"savemod"_s, 1, {});  // a dialog would fail the test
    Tocca(F);
    SalvaCome(*T, u"sfratto.mdb"_s, true);
    EseguiComando(u"savemod"_s, 1, {});
    QVERIFY(F->close());
    InfoParcelle[1].Modificata = true;
    EseguiComando(u"savemod"_s, 1, {});  // nor for a window that is not on screen
}

void TestModelli::daUnaParcellaSiParteDaiModelli()
{
    Tocca(F);
    const QString File = SalvaCome(*T, u"rossi.mdb"_s);
    Tocca(F, u"Verdi"_s);
    const QString Modello = SalvaCome(*T, u"tipo.mdb"_s, true);
    QCOMPARE(T->Voce.InizioDialogo(), sessione::ModelliPath);
    QCOMPARE(F->Nota.Percorso, Modello);
    QCOMPARE(Cliente(File), u"Rossi"_s);
}

void TestModelli::nomiRifiutati_data()
{
    QTest::addColumn<QString>("Nome");
    QTest::newRow("con il punto") << u"Sfratto 1.1"_s;
    QTest::newRow("estensione maiuscola") << u"Sfratto.MDB"_s;
    QTest::newRow("quadre") << u"[tipo]"_s;
    QTest::newRow("esclamativo") << u"Sfratto!"_s;
    QTest::newRow("vuoto") << QString();
}

void TestModelli::nomiRifiutati()
{
    QFETCH(QString, Nome);
    Tocca(F);
    T->Voce.AttendiSalva(sessione::ModelliPath + Nome);
    T->Voce.Attendi(NomeSbagliato(), vbOK, u"Errore:"_s);
    EseguiComando(u"savemod"_s, 1, {});
    QVERIFY(F->Nota.Percorso.isEmpty() && F->Nota.Modificata);
    QCOMPARE(QDir(sessione::ModelliPath).entryList(QDir::Files | QDir::Hidden), QStringList());
}

void TestModelli::laCartellaComunqueScritta_data()
{
    QTest::addColumn<QString>("Cartella");
    QTest::addColumn<bool>("Modelli");
    QTest::newRow("minuscola") << u"modelli/"_s << true;
    QTest::newRow("maiuscola") << u"MODELLI/"_s << true;
    QTest::newRow("più lunga") << u"Modelli vecchi/"_s << false;
    QTest::newRow("con altro davanti") << u"I Modelli/"_s << false;
}

void TestModelli::laCartellaComunqueScritta()
{
    QFETCH(QString, Cartella);
    QFETCH(bool, Modelli);
    QDir().mkpath(T->Ufficio.File(Cartella));
    const QString File = T->Ufficio.File(Cartella + u"tipo.mdb"_s);
    ScriviNota(File, NotaCivile());
    F->Carica(File);
    Tocca(F);
    T->Voce.AttendiSalva({});
    EseguiComando(u"save"_s, 1, {});
    QCOMPARE(T->Voce.InizioDialogo(), Modelli ? sessione::ParcellePath : File);
}

void TestModelli::senzaCartellaDeiModelli()
{
    // An office that has none keeps its templates in the folder that the session falls back to.
    sessione::ModelliPath = T->Ufficio.Cartella();
    Tocca(F);
    const QString Modello = SalvaCome(*T, u"tipo.mdb"_s, true);
    QVERIFY(SolaLettura(Modello));
    Tocca(F, u"Verdi"_s);
    // Its own path is proposed there, and refused none the less.
    T->Voce.AttendiSalva(Modello);
    T->Voce.Attendi(NonSovrascrivibile(u"tipo.mdb"_s));
    EseguiComando(u"save"_s, 1, {});
    QCOMPARE(Cliente(Modello), u"Rossi"_s);
}

void TestModelli::cartellaSparita()
{
    Tocca(F);
    sessione::ModelliPath = T->Ufficio.File(u"sparita/Modelli/"_s);
    T->Voce.AttendiSalva(sessione::ModelliPath + u"tipo.mdb"_s);
    T->Voce.Attendi(Guasto(3044), vbOK, u"Errore:"_s);
    EseguiComando(u"savemod"_s, 1, {});
    QVERIFY(F->Nota.Modificata && F->Nota.Percorso.isEmpty());
    QVERIFY(!QFile::exists(T->Ufficio.File(u"sparita"_s)));
}

void TestModelli::laPasswordResta()
{
    Tocca(F);
    F->Nota.Psw = u"->>abc"_s;
    const QString Modello = SalvaCome(*T, u"tipo.mdb"_s, true);
    T->Voce.Attendi(u"Attenzione, la parcella è protetta! Le modifiche potranno essere salvate\n"
                    u"solo dopo aver specificato la chiave di protezione."_s);
    Riapri(Modello);
    Tocca(F, u"Verdi"_s);
    QCOMPARE(LeggiPsw(SalvaCome(*T, u"verdi.mdb"_s)), u"abc"_s);
}

void TestModelli::ilCodiceDellaPratica()
{
    sessione::RichiestaPV2.ID = u"AB12"_s;
    Tocca(F);
    T->Voce.AttendiSalva(sessione::ModelliPath + u"tipo.mdb"_s);
    T->Voce.Attendi(
        u"La parcella, essendo associato ad una pratica, deve iniziare col codice seguito dal trattino!\n"
        u"Il nome della parcella è stato modificato in: AB12-tipo.mdb"_s,
        vbOK, u"Errore salvataggio:"_s);
    T->Voce.Attendi(Salvata(u"AB12-tipo.mdb"_s));
    EseguiComando(u"savemod"_s, 1, {});
    QCOMPARE(T->Voce.InizioDialogo(), sessione::ModelliPath + u"AB12-"_s);
    QVERIFY(SolaLettura(sessione::ModelliPath + u"AB12-tipo.mdb"_s));
}

#include "TestModelli.moc"
