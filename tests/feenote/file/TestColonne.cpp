// The table of the note's columns against the files that are made from it.
#include "file_prova.h"

#include "feenote/modDatiStampa.h"

#include <QSet>

using namespace Qt::StringLiterals;

class TestColonne : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void ilModelloConsegnato();
    void nomiDiversi();
    void iLimitiSonoQuelliDelleColonne();
    void colonnaNuovaNelFileENelleTariffe();
    void unFileDOggiNonSiTocca();
};
PROVA(TestColonne);

// parcelle.mdb stands in offices: a column that changes its type or size there needs a road for older ones.
void TestColonne::ilModelloConsegnato()
{
    const Studio Ufficio;
    const Database Tariffe = ApriTariffe(Dm140);
    for (const TabellaNota& Tabella : TabelleNota()) {
        QCOMPARE(Tariffe.Campi(Tabella.Nome), Tabella.Colonne);
        QCOMPARE(Tariffe.OpenRecordset(Tabella.Nome).RecordCount(), 0);
    }
}

void TestColonne::nomiDiversi()
{
    QSet<QString> Nomi;
    QSet<QString> Campi;
    for (const ColonnaParam& Colonna : ColonneParam()) {
        QVERIFY2(Colonna.Scrivi && Colonna.Leggi && Colonna.Descrivi, qPrintable(Colonna.Nome.toString()));
        Nomi.insert(Colonna.Nome.toString().toLower());
        Campi.insert(Colonna.Json.toString());
    }
    QCOMPARE(Nomi.size(), qsizetype(ColonneParam().size()));
    QCOMPARE(Campi.size(), qsizetype(ColonneParam().size()));
}

void TestColonne::iLimitiSonoQuelliDelleColonne()
{
    const Studio Ufficio;
    Registratore Messaggi;
    Parcella Nota = NotaPiena();
    for (const CampoDatiPar& Campo : CampiDatiPar()) {
        if (Campo.Indice != DatoDataFatt)
            CambiaDatiPar(Nota, Campo.Indice, QString(Campo.Massimo + 10, u'x'));
    }
    const Parcella Letta = Riletta(Ufficio, Nota);
    for (const CampoDatiPar& Campo : CampiDatiPar()) {
        if (Campo.Indice != DatoDataFatt)
            QCOMPARE(Letta.DatiPar(Campo.Indice).size(), Campo.Massimo);
    }
}

void TestColonne::colonnaNuovaNelFileENelleTariffe()
{
    const Studio Ufficio;
    Registratore Messaggi;
    const QString File = Ufficio.File(u"nota.mdb"_s);
    ScriviNota(File, NotaPiena());
    (void)Ufficio.TariffeProprie();
    for (const QString& Percorso : {File, PercorsoTariffe(Dm140)}) {
        EseguiSu(Percorso, u"ALTER TABLE ParcellaParam DROP COLUMN SpeseGen"_s);
        QVERIFY(DaAggiornare(Percorso));
        AggiornaColonne(Percorso);
        QVERIFY(!DaAggiornare(Percorso));
        const QList<Campo> Campi = OpenDatabase(Percorso, true).Campi(TabellaParam.toString());
        QCOMPARE(Campi.last().Name, u"SpeseGen"_s);
        QCOMPARE(Campi.last().Type, TipoCampo::Singolo);
    }
}

void TestColonne::unFileDOggiNonSiTocca()
{
    const Studio Ufficio;
    Registratore Messaggi;
    const QString File = Ufficio.File(u"nota.mdb"_s);
    ScriviNota(File, NotaPiena());
    QVERIFY(!DaAggiornare(File));
    QFile::setPermissions(File, QFile::ReadOwner);
    AggiornaColonne(File);  // which would be refused if it wrote
}

#include "TestColonne.moc"
