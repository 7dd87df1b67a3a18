// A new note.
#include "nota_prova.h"

using namespace Qt::StringLiterals;

class TestNuovaParcella : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void vuota();
    void cancellaTutto();
};
PROVA(TestNuovaParcella);

void TestNuovaParcella::vuota()
{
    const Studio Ufficio;
    sessione::IVA = 22.0F;
    sessione::CP = 4.5F;
    Registratore Messaggi;
    Parcella Nota;
    NuovaParcella(Nota);
    QCOMPARE(Nota.CodCateg, u"CIV"_s);
    QCOMPARE(Nota.cmbCateg, NessunaVoce);
    QCOMPARE(Nota.cmbAutor, NessunaVoce);
    QCOMPARE(Nota.cmbValore, NessunaVoce);
    QCOMPARE(int(Nota.ListaAutorita.size()), 16);
    QCOMPARE(int(Nota.ListaScaglioni.size()), 8);
    QVERIFY(Nota.cmbAutorAbilitata && Nota.cmbValoreAbilitata && Nota.txtImporto.Abilitata);
    QCOMPARE(Nota.ImportoPrec, 0.0);
    QCOMPARE(Nota.Scaglione, 0);
    QVERIFY(Nota.chkIva.Attiva && Nota.chkCP.Attiva && !Nota.chkRA.Attiva && !Nota.chkSpeseGen.Attiva);
    QCOMPARE(Nota.txtIVA.Testo, u"22"_s);
    QCOMPARE(Nota.txtCP.Testo, u"4,5"_s);
    QCOMPARE(Nota.txtRA.Testo + Nota.txtSpeGen.Testo, QString());
    QVERIFY(!Nota.chkMinMax.Attiva);
    QCOMPARE(Nota.AumRidIdx, 5);
    QCOMPARE(Nota.AumRidLimiti, u"-100;300"_s);
    QCOMPARE(Nota.cmbTipoStampa, NessunaVoce);
    QVERIFY(!Nota.RicalcoloNecessario);
    QVERIFY(!Nota.Modificata);
    QVERIFY(Nota.Pronta);
    // The rates are in the memory from which print types restore.
    ScegliTipoStampa(Nota, StampaNotaGiudiziale);
    ScegliTipoStampa(Nota, StampaPrenotula);
    QCOMPARE(Nota.txtIVA.Testo, u"22"_s);
}

void TestNuovaParcella::cancellaTutto()
{
    const Studio Ufficio;
    Registratore Messaggi;
    Parcella Nuova;
    NuovaParcella(Nuova);

    Parcella Nota = NotaCivile();
    RigaOnorario(Nota, u"Studio"_s, 100);
    RigaSpesa(Nota, 1.0, 2.0);
    RigaAcconto(Nota, u"E"_s, 1.0, 2.0, 3.0);
    Nota.txtCliente.Testo = u"Rossi"_s;
    Nota.IDCli = 4;
    Nota.Percorso = u"nota.mdb"_s;
    Nota.Psw = u"segreta"_s;
    Nota.NsRif = u"7"_s;
    Nota.txtParcMultipla = u"altra"_s;
    Nota.txtDatiPar[DatoTestoSuperiore] = u"testo"_s;
    Nota.chkRegSempl.Attiva = true;
    ScegliTipoStampa(Nota, StampaNotaGiudiziale);
    // What belongs to the window, not to the note, stays.
    Nota.Nome = u"Nuova parcella"_s;
    Nota.InsUltimaOno = false;
    Nota.IDMultipla = 2;
    NuovaParcella(Nota);
    Nuova.Nome = u"Nuova parcella"_s;
    Nuova.InsUltimaOno = false;
    Nuova.IDMultipla = 2;
    QVERIFY(Nota == Nuova);
}

#include "TestNuovaParcella.moc"
