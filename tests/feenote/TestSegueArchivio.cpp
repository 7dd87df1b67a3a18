// What a note takes over of a row of the address book that was written to while it is open.
#include "supporto/prova.h"

#include "feenote/modBloccoCliente.h"
#include "feenote/modParti.h"
#include "feenote/modTipiDocumento.h"

#include "nota_prova.h"

using namespace Qt::StringLiterals;

class TestSegueArchivio : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void ilRappresentante_data();
    void ilRappresentante();
    void ilRappresentanteSottoUnAltroDocumento();
    void laControparteSvuotataResta();
    void ilBloccoSvuotatoResta();
};
PROVA(TestSegueArchivio);

namespace {

void Esegui(const QString& Sql, const QVariantList& Valori)
{
    OpenDatabase(sessione::ArchivioCliCon).Execute(Sql, Valori);
}

/// An agreement with a company, linked to its row.
Parcella Incarico(const Studio& Ufficio)
{
    const int ID = Ufficio.AggiungiCliente(u"Gamma Spa"_s);
    Esegui(u"UPDATE clienti SET RapprLegale='Carla Bruni' WHERE ID=?"_s, {ID});
    Parcella Nota;
    Nota.cmbTipoStampa = StampaContratto;
    RiceviDaRubrica(Nota, u"cli"_s, ID, u"Gamma Spa"_s);
    return Nota;
}

}  // namespace

void TestSegueArchivio::ilRappresentante_data()
{
    QTest::addColumn<Rappresentante>("Scritto");
    QTest::addColumn<QString>("InRiga");
    QTest::addColumn<QString>("Nome");
    QTest::addColumn<QString>("Atteso");
    const Rappresentante Dato{u"Carla Bruni"_s, {}, {}, {}};
    const QString Gamma = u"Gamma Spa"_s;
    QTest::newRow("as the row gave it") << Dato << u"Ugo Neri"_s << Gamma << u"Ugo Neri"_s;
    QTest::newRow("with another name of the company")
        << Dato << u"Ugo Neri"_s << u"Delta Spa"_s << u"Ugo Neri"_s;
    QTest::newRow("taken out of the row") << Dato << QString() << Gamma << QString();
    QTest::newRow("the same") << Dato << u"Carla Bruni"_s << Gamma << u"Carla Bruni"_s;
    QTest::newRow("written over") << Rappresentante{u"Eva Sala"_s, {}, {}, {}} << u"Ugo Neri"_s << Gamma
                                  << u"Eva Sala"_s;
    QTest::newRow("added to") << Rappresentante{u"Carla Bruni"_s, u"01/02/1970"_s, {}, {}} << u"Ugo Neri"_s
                              << Gamma << u"Carla Bruni"_s;
    QTest::newRow("taken away on purpose") << Rappresentante() << u"Ugo Neri"_s << Gamma << QString();
}

void TestSegueArchivio::ilRappresentante()
{
    QFETCH(Rappresentante, Scritto);
    QFETCH(QString, InRiga);
    QFETCH(QString, Nome);
    QFETCH(QString, Atteso);
    const Studio Ufficio;
    Parcella Nota = Incarico(Ufficio);
    QCOMPARE(Nota.Rappr, (Rappresentante{u"Carla Bruni"_s, {}, {}, {}}));
    Nota.Rappr = Scritto;
    Nota.Modificata = false;
    Esegui(u"UPDATE clienti SET RapprLegale=?, Nominativo=? WHERE ID=?"_s, {InRiga, Nome, Nota.IDCli});
    const bool Cambiata = SegueArchivio(Nota, ParteNota::Cliente, Nota.IDCli);
    QCOMPARE(Nota.Rappr.Nome, Atteso);
    QCOMPARE(Nota.txtCliente.Testo, Nome);
    const bool Altro = Atteso != Scritto.Nome || Nome != u"Gamma Spa";
    QCOMPARE(Cambiata, Altro);
    QCOMPARE(Nota.Modificata, Altro);
    // The next one takes the place of this one.
    Esegui(u"UPDATE clienti SET RapprLegale='Ada Po' WHERE ID=?"_s, {Nota.IDCli});
    (void)SegueArchivio(Nota, ParteNota::Cliente, Nota.IDCli);
    const bool DellaRiga = Scritto == Rappresentante{u"Carla Bruni"_s, {}, {}, {}};
    QCOMPARE(Nota.Rappr.Nome, DellaRiga ? u"Ada Po"_s : Scritto.Nome);
}

void TestSegueArchivio::ilRappresentanteSottoUnAltroDocumento()
{
    const Studio Ufficio;
    Parcella Nota = Incarico(Ufficio);
    Nota.cmbTipoStampa = StampaFatturaAnalitica;
    Esegui(u"UPDATE clienti SET RapprLegale='Ugo Neri' WHERE ID=?"_s, {Nota.IDCli});
    QVERIFY(SegueArchivio(Nota, ParteNota::Cliente, Nota.IDCli));
    QCOMPARE(Nota.Rappr.Nome, u"Ugo Neri"_s);
}

void TestSegueArchivio::laControparteSvuotataResta()
{
    const Studio Ufficio;
    const int ID = Ufficio.AggiungiControparte(u"Bianchi Srl"_s, u"Bianchi Srl"_s);
    Parcella Nota;
    RiceviDaRubrica(Nota, u"con"_s, ID, u"Bianchi Srl"_s);
    CambiaParteStampata(Nota, ParteNota::Controparte, {});
    Esegui(u"UPDATE controparti SET Nominativo='Bianchi Spa', Controp='Bianchi Spa' WHERE ID=?"_s, {ID});
    QVERIFY(SegueArchivio(Nota, ParteNota::Controparte, ID));
    QCOMPARE(Nota.txtControp.Testo, u"Bianchi Spa"_s);
    QCOMPARE(Nota.IDCon, ID);
    QCOMPARE(Nota.txtDatiStaControp.Testo, QString());
    QVERIFY2(Nota.ContropSvuotata, "the file keeps it so");
    // A choice brings it back.
    RiceviDaRubrica(Nota, u"con"_s, ID, u"Bianchi Spa"_s);
    QCOMPARE(Nota.txtDatiStaControp.Testo, u"Bianchi Spa"_s);
    QVERIFY(!Nota.ContropSvuotata);
}

void TestSegueArchivio::ilBloccoSvuotatoResta()
{
    const Studio Ufficio;
    const int ID = Ufficio.AggiungiCliente(u"Verdi Anna"_s);
    Parcella Nota;
    Nota.cmbTipoStampa = StampaPreventivo;
    RiceviDaRubrica(Nota, u"cli"_s, ID, u"Verdi Anna"_s);
    CambiaParteStampata(Nota, ParteNota::Cliente, {});
    Esegui(u"UPDATE clienti SET Nominativo='Verdi Maria' WHERE ID=?"_s, {ID});
    QVERIFY(SegueArchivio(Nota, ParteNota::Cliente, ID));
    QCOMPARE(Nota.txtCliente.Testo, u"Verdi Maria"_s);
    QCOMPARE(Nota.txtDatiStaCli.Testo, QString());
    // One with the former name in it is worded anew.
    CambiaParteStampata(Nota, ParteNota::Cliente, u"Spett.le Verdi Maria"_s);
    Esegui(u"UPDATE clienti SET Nominativo='Verdi Anna' WHERE ID=?"_s, {ID});
    QVERIFY(SegueArchivio(Nota, ParteNota::Cliente, ID));
    QCOMPARE(Nota.txtDatiStaCli.Testo, u"Verdi Anna"_s);
}

#include "TestSegueArchivio.moc"
