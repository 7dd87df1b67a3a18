// The electronic invoice beside archives that lack its columns, and the check of any file.
#include "fattura.h"

#include "addressbook/modColonneFattura.h"
#include "feenote/einvoice/controlli.h"
#include "feenote/windows/frmControlloFattura.h"

using namespace Qt::StringLiterals;

class TestFatturaArchivio : public QObject, private BancoFattura
{
    Q_OBJECT
private Q_SLOTS:
    void init() { PreparaFattura(); }
    void cleanup()
    {
        QFile::setPermissions(sessione::ArchivioCliCon, QFile::ReadOwner | QFile::WriteOwner);
        Sgombra();
    }

    void lArchivioInteroNonChiede();
    void siAggiunge();
    void noLascaIntero();
    void chiesteUnaVolta();
    void solaLetturaSiDice();
    void senzaColonneSiSalva();

    void controllaUnFileBuono();
    void controllaUnFileSbagliato();
    void controllaUnAltroFile();
    void controllaUnFileTroppoGrande();
    void controllaUnFileCheManca();
    void controlloAnnullato();
    void frasi_data();
    void frasi();

private:
    /// The archive as it was before the two columns.
    static void Invecchia()
    {
        const Database Db = OpenDatabase(sessione::ArchivioCliCon);
        for (const QString& Tabella : {u"clienti"_s, u"controparti"_s})
            for (const QString& Colonna : {u"Nazione"_s, u"TipoSoggetto"_s}) {
                Db.Execute(u"ALTER TABLE %1 DROP COLUMN %2"_s.arg(Tabella, Colonna));
                Db.Execute(u"DELETE FROM \"_Campi\" WHERE Tabella=? AND Colonna=?"_s, {Tabella, Colonna});
            }
    }
    void AttendiDomanda(int Risposta)
    {
        T->Voce.Attendi(
            u"L'archivio dei clienti non ha le colonne Nazione, Tipo soggetto, dalle quali la fattura "
            "elettronica prende i dati del cliente.\nAggiungerle? I nominativi restano come sono."_s,
            Risposta, u"Domanda:"_s);
    }
    /// Presses the button, and looks at the form that comes up.
    struct Vista
    {
        QString Frase;
        QStringList Righe;
        QString Copiato;
        QStringList SenzaNome;
    };
    Vista Controlla(const QString& File)
    {
        Vista Letta;
        T->Voce.AttendiApri(File);
        QTimer Attesa;
        QObject::connect(&Attesa, &QTimer::timeout, qApp, [&] {
            auto* Modulo = qobject_cast<frmControlloFattura*>(QApplication::activeModalWidget());
            if (!Modulo || !Modulo->isVisible())
                return;
            Attesa.stop();
            Letta.Frase = Controllo<QLabel>(Modulo, "lblEsito")->text();
            const auto* Esiti = Controllo<QListWidget>(Modulo, "lstEsiti");
            for (int i = 0; i < Esiti->count(); ++i)
                Letta.Righe << Esiti->item(i)->text();
            if (auto* Copia = Controllo<QAbstractButton>(Modulo, "cmdCopia"); Copia->isVisible()) {
                Clic(Copia);
                Letta.Copiato = Appunti();
            }
            Letta.SenzaNome = ::SenzaNome(Modulo);
            Modulo->accept();
        });
        Attesa.start(10);
        Clic(Controllo(F, "cmdControllaXml"));
        return Letta;
    }
};
PROVA(TestFatturaArchivio);

void TestFatturaArchivio::lArchivioInteroNonChiede()
{
    ApriPannello();
    QCOMPARE(T->Voce.Mostrati().size(), 0);
}

void TestFatturaArchivio::siAggiunge()
{
    Invecchia();
    AttendiDomanda(vbYes);
    ApriPannello();
    QCOMPARE(StatoColonneFattura(), StatoColonne::Intere);
    QCOMPARE(Mancanti(), 0);
    CambiaCliente(u"Nazione"_s, u"DE"_s);
}

void TestFatturaArchivio::noLascaIntero()
{
    Invecchia();
    const QByteArray Prima = LeggiFile(sessione::ArchivioCliCon);
    AttendiDomanda(vbNo);
    ApriPannello();
    QCOMPARE(LeggiFile(sessione::ArchivioCliCon), Prima);
    QCOMPARE(Mancanti(), 0);
}

void TestFatturaArchivio::chiesteUnaVolta()
{
    Invecchia();
    AttendiDomanda(vbNo);
    ApriPannello();
    ApriPannello();
    QCOMPARE(T->Voce.Mostrati().size(), 1);
    DimenticaArchiviChiesti();  // a session later
    AttendiDomanda(vbNo);
    ApriPannello();
    QCOMPARE(T->Voce.Mostrati().size(), 2);
}

void TestFatturaArchivio::solaLetturaSiDice()
{
    Invecchia();
    QFile::setPermissions(sessione::ArchivioCliCon, QFile::ReadOwner);
    ApriPannello();
    QCOMPARE(T->Voce.Mostrati().size(), 0);
    QVERIFY2(Righe().contains(
                 u"Avviso: L'archivio dei clienti non si può modificare e non ha: Nazione, Tipo soggetto."_s),
             qPrintable(Righe().join(u'|')));
    QCOMPARE(Mancanti(), 0);
}

void TestFatturaArchivio::senzaColonneSiSalva()
{
    Invecchia();
    AttendiDomanda(vbNo);
    ApriPannello();
    SalvaIn(T->Ufficio.Cartella(), 1);
}

// ---- the check ----------------------------------------------------------------------------------

void TestFatturaArchivio::controllaUnFileBuono()
{
    ApriPannello();
    SalvaIn(T->Ufficio.Cartella(), 1);
    const QString Nome = u"IT%1_00001.xml"_s.arg(CodiceStudio);
    const Vista Letta = Controlla(T->Ufficio.File(Nome));
    QCOMPARE(Letta.Frase, Nome + u" è in ordine: nessun rifiuto, nessun avviso."_s);
    QVERIFY(Letta.Righe.isEmpty());
}

void TestFatturaArchivio::controllaUnFileSbagliato()
{
    ApriPannello();
    SalvaIn(T->Ufficio.Cartella(), 1);
    const QString Nome = u"IT%1_00001.xml"_s.arg(CodiceStudio);
    QByteArray Byte = LeggiFile(T->Ufficio.File(Nome));
    Byte.replace("<TipoDocumento>TD01", "<TipoDocumento>TD99");
    const QString Guasto = T->Ufficio.File(u"guasto/"_s + Nome);
    CreaCartella(CartellaFile(Guasto));
    ScriviFile(Guasto, Byte);
    const Vista Letta = Controlla(Guasto);
    QVERIFY2(Letta.Frase.startsWith(Nome + u" sarebbe scartato: "_s), qPrintable(Letta.Frase));
    QVERIFY(!Letta.Righe.isEmpty() && Letta.Righe.first().startsWith(u"Rifiuto"_s));
    QCOMPARE(Letta.Righe.first().count(u"Rifiuto"_s), 1);
    QVERIFY2(Letta.Righe.first().contains(u"TipoDocumento"_s), qPrintable(Letta.Righe.first()));
    QCOMPARE(Letta.Copiato, Letta.Frase + u'\n' + Letta.Righe.join(u'\n'));
    QCOMPARE(LeggiFile(Guasto), Byte);
    QCOMPARE(Letta.SenzaNome, QStringList());
}

void TestFatturaArchivio::controllaUnAltroFile()
{
    ApriPannello();
    ScriviFile(T->Ufficio.File(u"lettera.xml"_s), "non è una fattura");
    const Vista Letta = Controlla(T->Ufficio.File(u"lettera.xml"_s));
    QVERIFY2(Letta.Frase.startsWith(u"lettera.xml sarebbe scartato: "_s), qPrintable(Letta.Frase));
}

void TestFatturaArchivio::controllaUnFileTroppoGrande()
{
    ApriPannello();
    for (const qint64 Byte : {MassimoByteFattura + 1, 3 * MassimoByteFattura}) {
        ScriviFile(T->Ufficio.File(u"grande.xml"_s), QByteArray(qsizetype(Byte), 'x'));
        const Vista Letta = Controlla(T->Ufficio.File(u"grande.xml"_s));
        QVERIFY2(Letta.Righe.join(u'|').contains(u"5 MB"_s), qPrintable(Letta.Righe.join(u'|')));
    }
}

void TestFatturaArchivio::controllaUnFileCheManca()
{
    ApriPannello();
    T->Voce.AttendiApri(T->Ufficio.File(u"manca.xml"_s));
    T->Voce.Tollera();
    Clic(Controllo(F, "cmdControllaXml"));
    QCOMPARE(T->Voce.Mostrati().size(), 1);
    QVERIFY2(T->Voce.UltimoTesto().contains(u"(53)"_s), qPrintable(T->Voce.UltimoTesto()));
}

void TestFatturaArchivio::controlloAnnullato()
{
    ApriPannello();
    T->Voce.AttendiApri({});
    Clic(Controllo(F, "cmdControllaXml"));
    QCOMPARE(T->Voce.Mostrati().size(), 0);
}

void TestFatturaArchivio::frasi_data()
{
    QTest::addColumn<int>("Rifiuti");
    QTest::addColumn<int>("Avvisi");
    QTest::addColumn<QString>("Frase");
    QTest::newRow("none") << 0 << 0 << u"a.xml è in ordine: nessun rifiuto, nessun avviso."_s;
    QTest::newRow("one warning") << 0 << 1 << u"a.xml non ha motivi di rifiuto, ma 1 avviso."_s;
    QTest::newRow("refusals") << 2 << 3 << u"a.xml sarebbe scartato: 2 motivi di rifiuto, 3 avvisi."_s;
    QTest::newRow("one refusal") << 1 << 0 << u"a.xml sarebbe scartato: 1 motivo di rifiuto, 0 avvisi."_s;
}

void TestFatturaArchivio::frasi()
{
    QFETCH(int, Rifiuti);
    QFETCH(int, Avvisi);
    QList<EsitoControllo> Esiti(Rifiuti);
    EsitoControllo Avviso;
    Avviso.Gravita = GravitaControllo::Avviso;
    Esiti.append(QList<EsitoControllo>(Avvisi, Avviso));
    QTEST(FraseEsiti(u"a.xml"_s, Esiti), "Frase");
}

#include "TestFatturaArchivio.moc"
