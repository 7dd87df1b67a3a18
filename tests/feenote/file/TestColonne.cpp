// The table of the note's columns against the files that are made from it.
#include "file_prova.h"

#include "feenote/modDatiStampa.h"

#include <QRegularExpression>
#include <QSet>

using namespace Qt::StringLiterals;

class TestColonne : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void ilModelloConsegnato();
    void nomiDiversi();
    void ognunaHaUnValoreETorna();
    void iFileDiPrimaNonHannoLeNuove();
    void ognunaStaNelManuale();
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

/// A column that the full note does not fill would go into no file of the tests, and come back from none.
void TestColonne::ognunaHaUnValoreETorna()
{
    const Studio Ufficio;
    const Registratore Messaggi;
    // Keys of an archive, the variation, the session's matter and the password have tests of their own.
    const QStringList SenzaValore{u"IDCli"_s,     u"IDCon"_s, u"AumRidVarP"_s,
                                  u"AumRidIdx"_s, u"NsRif"_s, u"Psw"_s};
    const Parcella Nuova;
    const Parcella Piena = NotaPiena();
    const Parcella Letta = Riletta(Ufficio, Piena);
    QStringList Vuote;
    for (const ColonnaParam& Colonna : ColonneParam()) {
        if (Colonna.Scrivi(Piena) == Colonna.Scrivi(Nuova))
            Vuote << Colonna.Nome.toString();
        QVERIFY2(Colonna.Scrivi(Letta) == Colonna.Scrivi(Piena), qPrintable(Colonna.Nome.toString()));
    }
    QCOMPARE(Vuote.join(u", "_s), SenzaValore.join(u", "_s));
}

/// Those that a file cannot lack are as many as ever: with one more no older note would open.
void TestColonne::iFileDiPrimaNonHannoLeNuove()
{
    QStringList DaSempre;
    for (const ColonnaParam& Colonna : ColonneParam())
        if (Colonna.Dal == Presenza::DaSempre)
            DaSempre << Colonna.Nome.toString();
    QCOMPARE(DaSempre.join(u' '), u"IDCli IDCon Categ Autor Valore Importo AumRidVarP AumRidIdx Psw"_s);
}

/// What the description of a note takes or gives is written down.
void TestColonne::ognunaStaNelManuale()
{
    const QString Manuale = QString::fromUtf8(LeggiFile(SorgenteDiProva(u"docs/cli.md"_s)));
    for (const ColonnaParam& Colonna : ColonneParam()) {
        const QString Campo = CampoJson(Colonna.Json);
        const QRegularExpression Scritto(u"[`{,\"] ?%1[`,\" :]"_s.arg(Campo));
        QVERIFY2(Manuale.contains(Scritto), qPrintable(Campo));
    }
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
