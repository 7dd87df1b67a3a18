// A note made of another one: what goes along, what stays behind.
#include "nota_prova.h"

#include "feenote/modDuplica.h"
#include "feenote/modParti.h"
#include "platform/base/errore.h"

using namespace Qt::StringLiterals;

namespace {

/// A note with something in all that a copy leaves behind, and in all that it takes.
Parcella Piena()
{
    Parcella Nota;
    Nota.Percorso = u"/studio/rossi.mdb"_s;
    Nota.Psw = u"->>abc"_s;
    Nota.IDCli = 7;
    Nota.NomeCli = u"Rossi"_s;
    Nota.txtCliente.Testo = u"Rossi"_s;
    Nota.txtDatiStaCli.Testo = u"Rossi\nRoma"_s;
    Nota.optContrTipo = 1;
    Nota.ContrTipoDi = 7;
    Nota.Rappr.Nome = u"Verdi"_s;
    Nota.RapprDi = 7;
    Nota.RapprLegato = u"Verdi"_s;
    Nota.BlocchiScritti[FormaBlocco::Testata] = u"mio"_s;
    Nota.IDCon = 8;
    Nota.txtControp.Testo = u"Bianchi"_s;
    Nota.txtOggetto.Testo = u"appalto"_s;
    Nota.cmbTipoStampa = StampaFatturaAnalitica;
    Nota.txtDatiPar[DatoNumero] = u"1"_s;
    Nota.txtDatiPar[DatoData] = u"01/02/2026"_s;
    Nota.txtDatiPar[DatoNumFatt] = u"2"_s;
    Nota.txtDatiPar[DatoDataFatt] = u"02/02/2026"_s;
    Nota.txtDatiPar[DatoTestoSuperiore] = u"sopra"_s;
    Nota.txtDatiPar[DatoDepRuolo] = u"77/2026"_s;
    Nota.txtParcMultipla = u"altra"_s;
    Nota.txtPathParcMult = u"/studio/altra.mdb"_s;
    Nota.IDMultipla = 3;
    Nota.chkRA.Attiva = true;
    Nota.txtRA.Testo = u"20"_s;
    RigaAcconto(Nota, u"E"_s, 100, 0, 0);
    DatiFatturaXml& Fattura = Nota.FatturaXml;
    Fattura.Tipo = u"TD06"_s;
    Fattura.Destinatario = u"PA"_s;
    Fattura.Modalita = u"MP08"_s;
    Fattura.Scadenza = u"31/12/2026"_s;
    Fattura.CitataNumero = u"1"_s;
    Fattura.ContrattoNumero = u"5"_s;
    Fattura.Cup = u"B"_s;
    Fattura.Cig = u"C"_s;
    Fattura.File = u"IT01_00001.xml"_s;
    Fattura.Quando = u"03/02/2026"_s;
    Fattura.Progressivo = u"00001"_s;
    Fattura.DiFattura = u"2 del 02/02/2026"_s;
    return Nota;
}

}  // namespace

class TestDuplica : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void colCliente();
    void senzaCliente();
    void senzaClienteNessunoAspetta();
    void lOriginaleResta();
};
PROVA(TestDuplica);

void TestDuplica::colCliente()
{
    Parcella Attesa = Piena();
    Attesa.Percorso.clear();
    Attesa.Psw.clear();
    Attesa.IDMultipla = 0;
    for (const int Dato : {DatoNumero, DatoData, DatoNumFatt, DatoDataFatt})
        Attesa.txtDatiPar.remove(Dato);
    DatiFatturaXml& Fattura = Attesa.FatturaXml;
    for (QString* Tolto : {&Fattura.CitataNumero, &Fattura.Scadenza, &Fattura.File, &Fattura.Quando,
                           &Fattura.Progressivo, &Fattura.DiFattura})
        Tolto->clear();
    const Parcella Copia = Duplicata(Piena(), true);
    Attesa.Stato = StatoDiNuova();  // nothing of the copy has gone out
    QVERIFY(Copia == Attesa);
    QCOMPARE(Copia.DatiPar(DatoTestoSuperiore), u"sopra"_s);
    QCOMPARE(Copia.DatiPar(DatoNumFatt), QString());
    QCOMPARE(Copia.IDCli, 7);
    QCOMPARE(Copia.txtParcMultipla, u"altra"_s);
    QCOMPARE(Copia.xAcconti.Righe(), 1);
}

void TestDuplica::senzaCliente()
{
    const Parcella Copia = Duplicata(Piena(), false);
    Parcella Attesa = Duplicata(Piena(), true);
    Attesa.IDCli = 0;
    Attesa.NomeCli.clear();
    Attesa.txtCliente.Testo.clear();
    Attesa.txtDatiStaCli.Testo.clear();
    Attesa.optContrTipo = 0;
    Attesa.ContrTipoDi = 0;
    Attesa.Rappr = {};
    Attesa.RapprDi = 0;
    Attesa.RapprLegato.clear();
    Attesa.BlocchiScritti.clear();
    Attesa.FatturaXml = {};
    QVERIFY(Copia == Attesa);
    QCOMPARE(Copia.IDCon, 8);
    QCOMPARE(Copia.txtControp.Testo, u"Bianchi"_s);
}

/// A client who stays behind is waited for by the original alone.
void TestDuplica::senzaClienteNessunoAspetta()
{
    for (const bool Controparte : {false, true}) {
        Parcella Nota = Piena();
        Nota.NomeCli.clear();
        Nota.NomeCon.clear();
        if (!Controparte)
            Nota.IDCon = 0;
        Nota.BlocchiScritti.clear();
        Nota.cmbTipoStampa = StampaPrenotula;
        SegnaNonLetto(Nota, Errore(errori::Accesso));
        QVERIFY(Nota.ArchivioNonLetto.has_value());
        QVERIFY(Duplicata(Nota, true).ArchivioNonLetto.has_value());
        const Parcella Copia = Duplicata(Nota, false);
        QVERIFY(!Copia.ArchivioNonLetto);
        QCOMPARE(AspettaArchivio(Copia), Controparte);  // his name may be another by now
    }
}

void TestDuplica::lOriginaleResta()
{
    const Parcella Nota = Piena();
    (void)Duplicata(Nota, false);
    QVERIFY(Nota == Piena());
}

#include "TestDuplica.moc"
