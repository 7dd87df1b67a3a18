// What the browser of the address book knows of an archive.
#include "addressbook/modRubrica.h"
#include "core/sessione.h"
#include "supporto/prova.h"

using namespace Qt::StringLiterals;

class TestRubrica : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void laDescrizioneGuidaLaColonna_data();
    void laDescrizioneGuidaLaColonna();
    void nascosta_data();
    void nascosta();
    void leLarghezze_data();
    void leLarghezze();
    void iTestiDelleCelle_data();
    void iTestiDelleCelle();
    void senzaArchivioIlFileRubrica();
    void lOrdine_data();
    void lOrdine();
    void laScelta_data();
    void laScelta();
    void ilConto_data();
    void ilConto();
};
PROVA(TestRubrica);

namespace {

Campo Descritto(TipoCampo Tipo, int Size, const QString& Descrizione)
{
    return {u"Campo"_s, Tipo, Size, Descrizione, false};
}

}  // namespace

void TestRubrica::laDescrizioneGuidaLaColonna_data()
{
    QTest::addColumn<int>("Tipo");
    QTest::addColumn<int>("SizeCampo");
    QTest::addColumn<QString>("Descrizione");
    QTest::addColumn<QString>("Titolo");
    QTest::addColumn<int>("Size");
    QTest::addColumn<QString>("Formato");
    QTest::addColumn<QString>("Maschera");
    const auto Riga = [](const char* Nome, TipoCampo Tipo, int SizeCampo, const QString& Descrizione,
                         const QString& Titolo, int Size, const QString& Formato = {},
                         const QString& Maschera = {}) {
        QTest::newRow(Nome) << int(Tipo) << SizeCampo << Descrizione << Titolo << Size << Formato << Maschera;
    };
    Riga("testo senza descrizione", TipoCampo::Testo, 60, {}, u"Campo"_s, 60);
    Riga("data senza descrizione", TipoCampo::Data, 0, {}, u"Campo"_s, 10);
    Riga("sì o no senza descrizione", TipoCampo::Booleano, 0, {}, u"Campo"_s, 1);
    Riga("numero senza descrizione", TipoCampo::Lungo, 0, {}, u"Campo"_s, 0);
    Riga("memo senza descrizione", TipoCampo::Memo, 0, {}, u"Campo"_s, 0);
    Riga("tutte le chiavi", TipoCampo::Testo, 60, u"V=Y,L=Città,S=20,F=@,M=00000"_s, u"Città"_s, 20, u"@"_s,
         u"00000"_s);
    Riga("spazi attorno", TipoCampo::Testo, 60, u" L = Città ,  S = 7 "_s, u"Città"_s, 7);
    Riga("vale l'ultima", TipoCampo::Testo, 60, u"L=Prima,L=Seconda"_s, u"Seconda"_s, 60);
    Riga("il valore può avere un uguale", TipoCampo::Testo, 60, u"L=a=b"_s, u"a=b"_s, 60);
    Riga("il formato finisce alla virgola", TipoCampo::Doppio, 0, u"F=#,##0.00,L=Importo"_s, u"Importo"_s, 0,
         u"#"_s);
    Riga("larghezza che non è un numero", TipoCampo::Testo, 60, u"S=larga"_s, u"Campo"_s, 60);
    Riga("chiavi ignote", TipoCampo::Testo, 60, u"Z=1,v=N,,=,nome del cliente"_s, u"Campo"_s, 60);
    Riga("una frase qualunque", TipoCampo::Testo, 60, u"Il nome, come sta sui documenti"_s, u"Campo"_s, 60);
    Riga("titolo vuoto", TipoCampo::Testo, 60, u"L="_s, QString(), 60);
}

void TestRubrica::laDescrizioneGuidaLaColonna()
{
    QFETCH(int, Tipo);
    QFETCH(int, SizeCampo);
    QFETCH(QString, Descrizione);
    const auto Colonna = ColonnaDi(Descritto(TipoCampo(Tipo), SizeCampo, Descrizione));
    QVERIFY(Colonna);
    QCOMPARE(Colonna->Nome, u"Campo"_s);
    QTEST(Colonna->Titolo, "Titolo");
    QTEST(Colonna->Size, "Size");
    QTEST(Colonna->Formato, "Formato");
    QTEST(Colonna->Maschera, "Maschera");
    QCOMPARE(int(Colonna->Tipo), Tipo);
}

void TestRubrica::nascosta_data()
{
    QTest::addColumn<QString>("Descrizione");
    QTest::addColumn<bool>("Visibile");
    QTest::newRow("V=N") << u"V=N"_s << false;
    QTest::newRow("V=n") << u"V=n"_s << false;
    QTest::newRow("V=y") << u"V=y"_s << false;
    QTest::newRow("V vuota") << u"V="_s << false;
    QTest::newRow("V=Y") << u"V=Y"_s << true;
    QTest::newRow("N e poi Y") << u"V=N,V=Y"_s << true;
    QTest::newRow("Y e poi N") << u"V=Y,L=Nome,V=N"_s << false;
}

void TestRubrica::nascosta()
{
    QFETCH(QString, Descrizione);
    const QList<ColonnaRubrica> Colonne = ColonneRubrica(
        {Descritto(TipoCampo::Testo, 5, Descrizione), Descritto(TipoCampo::Testo, 5, u"L=Sempre"_s)});
    QFETCH(bool, Visibile);
    QCOMPARE(Colonne.size(), Visibile ? 2 : 1);
    QCOMPARE(Colonne.last().Titolo, u"Sempre"_s);
}

void TestRubrica::leLarghezze_data()
{
    QTest::addColumn<int>("Size");
    QTest::addColumn<int>("Twip");
    for (const auto& [Size, Twip] :
         {std::pair(-1, 800), std::pair(0, 800), std::pair(2, 800), std::pair(3, 1000), std::pair(7, 1000),
          std::pair(8, 2000), std::pair(13, 2000), std::pair(14, 3000), std::pair(254, 3000)})
        QTest::addRow("%d caratteri", Size) << Size << Twip;
}

void TestRubrica::leLarghezze()
{
    QFETCH(int, Size);
    QTEST(LarghezzaTwip(Size), "Twip");
}

void TestRubrica::iTestiDelleCelle_data()
{
    QTest::addColumn<QVariant>("Valore");
    QTest::addColumn<QString>("Formato");
    QTest::addColumn<QString>("Testo");
    QTest::newRow("testo") << QVariant(u"Nicolò"_s) << QString() << u"Nicolò"_s;
    QTest::newRow("nullo") << QVariant() << u"0.00"_s << QString();
    QTest::newRow("vero") << QVariant(true) << QString() << u"Sì"_s;
    QTest::newRow("falso") << QVariant(false) << u"0"_s << u"No"_s;
    QTest::newRow("numero") << QVariant(12.5) << QString() << u"12,5"_s;
    QTest::newRow("numero col formato") << QVariant(12.5) << u"0.00"_s << u"12,50"_s;
    QTest::newRow("data") << QVariant(QDate(1950, 3, 1)) << QString() << u"01/03/1950"_s;
    QTest::newRow("data col formato") << QVariant(QDate(1950, 3, 1)) << u"dd/mm/yy"_s << u"01/03/50"_s;
    QTest::newRow("testo col formato di un numero") << QVariant(u"abc"_s) << u"0.00"_s << u"abc"_s;
    QTest::newRow("formato impossibile") << QVariant(7) << u"0;0;0;0"_s << u"7"_s;
}

void TestRubrica::iTestiDelleCelle()
{
    QFETCH(QVariant, Valore);
    QFETCH(QString, Formato);
    QTEST(TestoCella(Valore, {.Nome = u"Campo"_s, .Formato = Formato}), "Testo");
}

void TestRubrica::senzaArchivioIlFileRubrica()
{
    sessione::PercorsoProg = u"/programma/"_s;
    QCOMPARE(FileRubrica({}), u"/programma/rubrica.mdb"_s);
    QCOMPARE(FileRubrica(u"/altrove/DatiStudio.mdb"_s), u"/altrove/DatiStudio.mdb"_s);
}

void TestRubrica::lOrdine_data()
{
    QTest::addColumn<int>("Tipo");
    QTest::addColumn<bool>("Discendente");
    QTest::addColumn<QString>("Sql");
    const QString Inizio = u"SELECT * FROM \"clienti\" ORDER BY \"Da \"\"A\" "_s;
    QTest::newRow("testo") << int(TipoCampo::Testo) << false << Inizio + u"COLLATE SenzaAccenti ASC"_s;
    QTest::newRow("memo") << int(TipoCampo::Memo) << true << Inizio + u"COLLATE SenzaAccenti DESC"_s;
    QTest::newRow("numero") << int(TipoCampo::Lungo) << false << Inizio + u"ASC"_s;
    QTest::newRow("data") << int(TipoCampo::Data) << true << Inizio + u"DESC"_s;
}

void TestRubrica::lOrdine()
{
    QFETCH(int, Tipo);
    QFETCH(bool, Discendente);
    const ColonnaRubrica Per{.Nome = u"Da \"A"_s, .Tipo = TipoCampo(Tipo)};
    QTEST(SqlRubrica(u"clienti"_s, Per, Discendente), "Sql");
}

void TestRubrica::laScelta_data()
{
    QTest::addColumn<QStringList>("Campi");  // a hidden one begins with "-"
    QTest::addColumn<QStringList>("Valori");
    QTest::newRow("come stanno") << QStringList{u"ID"_s, u"Nominativo"_s, u"Citta"_s}
                                 << QStringList{u"1"_s, u"Rossi"_s, u"Lucca"_s};
    QTest::newRow("altre maiuscole") << QStringList{u"Id"_s, u"NOMINATIVO"_s, u"Citta"_s}
                                     << QStringList{u"1"_s, u"Rossi"_s, u"Lucca"_s};
    QTest::newRow("chiave nascosta") << QStringList{u"-ID"_s, u"Nominativo"_s, u"Citta"_s}
                                     << QStringList{u"1"_s, u"Rossi"_s, u"Rossi"_s, u"Lucca"_s};
    QTest::newRow("un altro ordine") << QStringList{u"ID"_s, u"Citta"_s, u"Nominativo"_s}
                                     << QStringList{u"1"_s, u"Rossi"_s, u"1"_s, u"Lucca"_s, u"Rossi"_s};
    QTest::newRow("città nascosta") << QStringList{u"ID"_s, u"Nominativo"_s, u"-Citta"_s}
                                    << QStringList{u"1"_s, u"Rossi"_s};
    QTest::newRow("niente visibile") << QStringList{u"-ID"_s, u"-Nominativo"_s, u"-Citta"_s}
                                     << QStringList{u"1"_s, u"Rossi"_s};
}

void TestRubrica::laScelta()
{
    QFETCH(QStringList, Campi);
    const Database Db = CreateDatabase(NuovaCartella() + u"prova.mdb"_s);
    QList<Campo> Descritti;
    for (const QString& Scritto : Campi) {
        const bool Nascosto = Scritto.startsWith(u'-');
        Campo Uno{Nascosto ? Scritto.mid(1) : Scritto, TipoCampo::Testo, 50, Nascosto ? u"V=N"_s : QString(),
                  false};
        if (Uno.Name.compare(u"ID"_s, Qt::CaseInsensitive) == 0) {
            Uno.Type = TipoCampo::Lungo;
            Uno.Contatore = true;
        }
        Descritti.append(Uno);
    }
    Db.CreaTabella(u"clienti"_s, Descritti);
    Db.Execute(u"INSERT INTO clienti (Nominativo, Citta) VALUES ('Rossi', 'Lucca')"_s);
    const Recordset Righe = Db.OpenRecordset(SqlRubrica(u"clienti"_s));
    QStringList Testi;
    for (const QVariant& Valore : ValoriScelti(Righe, ColonneRubrica(Righe.Campi())))
        Testi.append(Valore.toString());
    QTEST(Testi, "Valori");
}

void TestRubrica::ilConto_data()
{
    QTest::addColumn<int>("Mostrate");
    QTest::addColumn<int>("Tutte");
    QTest::addColumn<bool>("Filtrate");
    QTest::addColumn<QString>("Frase");
    QTest::newRow("nessuno") << 0 << 0 << false << u"0 nominativi"_s;
    QTest::newRow("uno") << 1 << 1 << false << u"1 nominativo"_s;
    QTest::newRow("tanti") << 100000 << 100000 << false << u"100.000 nominativi"_s;
    QTest::newRow("filtrati") << 12 << 1000 << true << u"12 di 1.000"_s;
    QTest::newRow("nessuno passa") << 0 << 1000 << true << u"0 di 1.000"_s;
    QTest::newRow("passano tutti") << 1000 << 1000 << true << u"1.000 di 1.000"_s;
}

void TestRubrica::ilConto()
{
    QFETCH(int, Mostrate);
    QFETCH(int, Tutte);
    QFETCH(bool, Filtrate);
    QTEST(FraseConto(Mostrate, Tutte, Filtrate), "Frase");
}

#include "TestRubrica.moc"
