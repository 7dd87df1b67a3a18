#include "supporto/prova.h"

#include "creadati/archivio_studio.h"
#include "platform/database/database.h"

using namespace Qt::StringLiterals;

class TestArchivioStudio : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void initTestCase();
    void tabelleVuote();
    void colonne_data();
    void colonne();
    void descrizioniLeggibili_data();
    void descrizioniLeggibili();
    void chiaveConta();
    void ordinaPerNominativo();

private:
    QString Percorso;
};
PROVA(TestArchivioStudio);

namespace {

/// A description as the address book cuts it: at the commas, then at the first equals sign.
QMap<QString, QString> Coppie(const QString& Descrizione)
{
    QMap<QString, QString> Lette;
    for (const QString& Pezzo : Descrizione.split(u','))
        Lette.insert(Pezzo.section(u'=', 0, 0), Pezzo.section(u'=', 1));
    return Lette;
}

Campo Trova(const QList<Campo>& Campi, const QString& Nome)
{
    const auto Trovato = std::ranges::find(Campi, Nome, &Campo::Name);
    return Trovato == Campi.end() ? Campo() : *Trovato;
}

}  // namespace

void TestArchivioStudio::initTestCase()
{
    Percorso = NuovaCartella() + u"DatiStudio.mdb"_s;
    ScriviArchivioStudio(Percorso);
}

void TestArchivioStudio::tabelleVuote()
{
    const Database Archivio = OpenDatabase(Percorso, true);
    QStringList Tabelle = Archivio.Tabelle();
    Tabelle.sort();
    QCOMPARE(Tabelle, (QStringList{u"clienti"_s, u"controparti"_s}));
    QCOMPARE(Archivio.OpenRecordset(u"clienti"_s).RecordCount(), 0);
    QCOMPARE(Archivio.OpenRecordset(u"controparti"_s).RecordCount(), 0);
}

void TestArchivioStudio::colonne_data()
{
    QTest::addColumn<QString>("Tabella");
    QTest::addColumn<QStringList>("Nomi");

    const QStringList Recapiti{u"Indirizzo"_s,     u"Cap"_s,
                               u"Citta"_s,         u"Prov"_s,
                               u"Nazione"_s,       u"CodFis"_s,
                               u"PIva"_s,          u"DataNascita"_s,
                               u"ComuneNascita"_s, u"Telefono"_s,
                               u"Cellulare"_s,     u"Email"_s,
                               u"Pec"_s,           u"CodDestinatario"_s,
                               u"TipoSoggetto"_s,  u"RapprLegale"_s,
                               u"Note"_s};
    QTest::newRow("clienti") << u"clienti"_s << QStringList{u"ID"_s, u"Nominativo"_s} + Recapiti;
    QTest::newRow("controparti: il nome in parcella in più")
        << u"controparti"_s << QStringList{u"ID"_s, u"Nominativo"_s, u"Controp"_s} + Recapiti;
}

void TestArchivioStudio::colonne()
{
    QFETCH(QString, Tabella);
    const QList<Campo> Campi = OpenDatabase(Percorso, true).Campi(Tabella);
    QStringList Nomi;
    for (const Campo& Uno : Campi)
        Nomi.append(Uno.Name);
    QTEST(Nomi, "Nomi");

    QVERIFY(Trova(Campi, u"ID"_s).Contatore);
    QCOMPARE(Trova(Campi, u"Cap"_s).Size, 5);
    QCOMPARE(Trova(Campi, u"Prov"_s).Size, 2);
    QCOMPARE(Trova(Campi, u"CodFis"_s).Size, 16);
    QCOMPARE(Trova(Campi, u"PIva"_s).Size, 28);
    QCOMPARE(Trova(Campi, u"CodDestinatario"_s).Size, 7);
    QCOMPARE(Trova(Campi, u"DataNascita"_s).Type, TipoCampo::Data);
    QCOMPARE(Trova(Campi, u"Note"_s).Type, TipoCampo::Memo);
}

void TestArchivioStudio::descrizioniLeggibili_data()
{
    QTest::addColumn<QString>("Tabella");
    QTest::newRow("clienti") << u"clienti"_s;
    QTest::newRow("controparti") << u"controparti"_s;
}

// The choice of a name hands over the visible columns in their order, the key first and the name second.
void TestArchivioStudio::descrizioniLeggibili()
{
    QFETCH(QString, Tabella);
    QStringList Visibili;
    QStringList Nascoste;
    for (const Campo& Uno : OpenDatabase(Percorso, true).Campi(Tabella)) {
        const QMap<QString, QString> Lette = Coppie(Uno.Description);
        QStringList Chiavi = Lette.keys();
        Chiavi.removeAll(u"V"_s);
        QCOMPARE(Chiavi, (QStringList{u"L"_s, u"S"_s}));
        QVERIFY2(!Lette[u"L"_s].isEmpty(), qPrintable(Uno.Name));
        bool Numero = false;
        QVERIFY2(Lette[u"S"_s].toInt(&Numero) > 0 && Numero, qPrintable(Uno.Name));
        if (Lette.value(u"V"_s, u"Y"_s) == u"Y")
            Visibili.append(Uno.Name);
        else
            Nascoste.append(Uno.Name);
    }
    QCOMPARE(Visibili.mid(0, 2), (QStringList{u"ID"_s, u"Nominativo"_s}));
    // Nobody is to see two names of one counterparty.
    QCOMPARE(Nascoste, Tabella == u"clienti" ? QStringList() : QStringList{u"Controp"_s});
    QCOMPARE(Coppie(Trova(OpenDatabase(Percorso, true).Campi(Tabella), u"CodFis"_s).Description)[u"L"_s],
             u"Codice fiscale"_s);
}

void TestArchivioStudio::chiaveConta()
{
    const QString Copia = NuovaCartella() + u"DatiStudio.mdb"_s;
    QVERIFY(QFile::copy(Percorso, Copia));
    Recordset Clienti = OpenDatabase(Copia).OpenRecordset(u"clienti"_s);
    for (const auto& Nome : {u"Rossi"_s, u"Bianchi"_s}) {
        Clienti.AddNew();
        Clienti.ImpostaValue(u"Nominativo"_s, Nome);
        Clienti.Update();
    }
    Recordset Riletti = OpenDatabase(Copia).OpenRecordset(u"SELECT * FROM clienti ORDER BY ID"_s);
    QCOMPARE(Riletti.Value(u"ID"_s).toInt(), 1);
    QCOMPARE(Riletti.Value(u"Nominativo"_s).toString(), u"Rossi"_s);
    Riletti.MoveNext();
    QCOMPARE(Riletti.Value(u"ID"_s).toInt(), 2);
}

void TestArchivioStudio::ordinaPerNominativo()
{
    const QString Copia = NuovaCartella() + u"DatiStudio.mdb"_s;
    QVERIFY(QFile::copy(Percorso, Copia));
    const Database Archivio = OpenDatabase(Copia);
    Archivio.Execute(u"INSERT INTO controparti (Nominativo) VALUES ('Verdi'), ('Alfa'), ('Neri')"_s);
    Recordset Controparti = Archivio.OpenRecordset(u"controparti"_s);
    Controparti.ImpostaIndex(u"Nominativo"_s);
    Controparti.Seek(u">="_s, u"B"_s);
    QVERIFY(!Controparti.NoMatch());
    QCOMPARE(Controparti.Value(u"Nominativo"_s).toString(), u"Neri"_s);
}

#include "TestArchivioStudio.moc"
