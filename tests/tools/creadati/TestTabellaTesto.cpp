#include "supporto/guasti.h"
#include "supporto/prova.h"

#include "creadati/tabellatesto.h"

using namespace Qt::StringLiterals;

class TestTabellaTesto : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void leggeLeForme_data();
    void leggeLeForme();
    void numeraLeRigheDelFile();
    void rifiuta_data();
    void rifiuta();
    void rifiutaTroppeRighe();
    void rifiutaFileGrande();
    void mancaIlFile();
    void celle_data();
    void celle();
};
PROVA(TestTabellaTesto);

namespace {

const QStringList Colonne{u"nome"_s, u"euro"_s};

TabellaTesto Tabella(const QByteArray& Contenuto)
{
    return TabellaTesto(u"prova.csv"_s, Contenuto, Colonne);
}

}  // namespace

void TestTabellaTesto::leggeLeForme_data()
{
    QTest::addColumn<QByteArray>("Contenuto");
    QTest::addColumn<QString>("Nome");
    QTest::addColumn<double>("Euro");

    QTest::newRow("semplice") << QByteArray("nome;euro\nuno;1.5\n") << u"uno"_s << 1.5;
    QTest::newRow("colonne in altro ordine") << QByteArray("euro;nome\n2;due\n") << u"due"_s << 2.0;
    QTest::newRow("segno d'ordine dei byte")
        << QByteArray("\xEF\xBB\xBFnome;euro\nuno;1\n") << u"uno"_s << 1.0;
    QTest::newRow("fine riga di Windows") << QByteArray("nome;euro\r\nuno;1\r\n") << u"uno"_s << 1.0;
    QTest::newRow("senza fine riga in fondo") << QByteArray("nome;euro\nuno;1") << u"uno"_s << 1.0;
    QTest::newRow("virgolette con separatore") << QByteArray("nome;euro\n\"a;b\";1\n") << u"a;b"_s << 1.0;
    QTest::newRow("virgolette raddoppiate") << QByteArray("nome;euro\n\"a\"\"b\";1\n") << u"a\"b"_s << 1.0;
    QTest::newRow("campo vuoto fra virgolette") << QByteArray("nome;euro\n\"\";1\n") << QString() << 1.0;
    QTest::newRow("euro e accenti di Windows-1252")
        << QByteArray("nome;euro\n€ – perché È ‰;1\n") << u"€ – perché È ‰"_s << 1.0;
}

void TestTabellaTesto::leggeLeForme()
{
    QFETCH(QByteArray, Contenuto);
    const TabellaTesto Letta = Tabella(Contenuto);
    QCOMPARE(Letta.Righe(), 1);
    QTEST(Letta.Testo(0, u"nome"_s), "Nome");
    QTEST(Letta.Importo(0, u"euro"_s), "Euro");
}

void TestTabellaTesto::numeraLeRigheDelFile()
{
    const TabellaTesto Letta = Tabella("\nnome;euro\n\nuno;1\n\n\ndue;2\n");
    QCOMPARE(Letta.Righe(), 2);
    QCOMPARE(DescrizioneErroreDi([&] { Letta.Rifiuta(1, u"euro"_s, u"no"_s); }),
             u"prova.csv, riga 7, colonna euro: no"_s);
    QCOMPARE(DescrizioneErroreDi([&] { Letta.RifiutaInFondo(u"nome"_s, u"no"_s); }),
             u"prova.csv, riga 7, colonna nome: no"_s);
    const TabellaTesto Vuota = Tabella("\nnome;euro\n");
    QCOMPARE(DescrizioneErroreDi([&] { Vuota.RifiutaInFondo(u"nome"_s, u"no"_s); }),
             u"prova.csv, riga 2, colonna nome: no"_s);
}

void TestTabellaTesto::rifiuta_data()
{
    QTest::addColumn<QByteArray>("Contenuto");
    QTest::addColumn<QString>("Frase");

    const auto Riga = [](const char* Nome, const QByteArray& Contenuto, const QString& Frase) {
        QTest::newRow(Nome) << Contenuto << u"prova.csv"_s + Frase;
    };
    Riga("vuota", "", u", riga 1, colonna nome: manca la riga di intestazione"_s);
    Riga("colonna mancante", "nome\nuno\n", u", riga 1, colonna euro: colonna mancante"_s);
    Riga("colonna sconosciuta", "nome;lire;euro\n", u", riga 1, colonna lire: colonna sconosciuta"_s);
    Riga("colonna ripetuta", "nome;euro;nome\n", u", riga 1, colonna nome: colonna ripetuta"_s);
    Riga("campo in meno", "nome;euro\nuno\n", u", riga 2, colonna euro: la riga ha 1 campi invece di 2"_s);
    Riga("campo in più", "nome;euro\nuno;1;2\n", u", riga 2, colonna euro: la riga ha 3 campi invece di 2"_s);
    Riga("virgolette aperte", "nome;euro\nuno;\"1\n", u", riga 2, colonna euro: virgolette non chiuse"_s);
    Riga("virgolette a metà campo", "nome;euro\nu\"no\";1\n",
         u", riga 2, colonna nome: virgolette fuori posto"_s);
    Riga("testo dopo le virgolette", "nome;euro\n\"u\"no;1\n",
         u", riga 2, colonna nome: virgolette fuori posto"_s);
    Riga("fuori da Windows-1252", "nome;euro\nū;1\n",
         u", riga 2, colonna nome: U+016B non è un carattere di Windows-1252"_s);
    Riga("accento scomposto", "nome;euro\na\xCC\x80;1\n",
         u", riga 2, colonna nome: U+0300 non è un carattere di Windows-1252"_s);
    Riga("tabulazione", "nome;euro\nuno;\t1\n",
         u", riga 2, colonna euro: U+0009 non è un carattere di Windows-1252"_s);
    Riga("nell'intestazione", "nome;eurō\n",
         u", riga 1, colonna 2: U+014D non è un carattere di Windows-1252"_s);
    Riga("non UTF-8", "nome;euro\nperch\xE9;1\n", u": il testo non è in UTF-8"_s);
}

void TestTabellaTesto::rifiuta()
{
    QFETCH(QByteArray, Contenuto);
    QTEST(DescrizioneErroreDi([&] { (void)Tabella(Contenuto); }), "Frase");
}

void TestTabellaTesto::rifiutaTroppeRighe()
{
    QByteArray Contenuto("nome;euro\n");
    for (int i = 0; i < TabellaTesto::MassimoRighe; ++i)
        Contenuto += "a;1\n";
    QCOMPARE(Tabella(Contenuto).Righe(), TabellaTesto::MassimoRighe);
    QCOMPARE(DescrizioneErroreDi([&] { (void)Tabella(Contenuto + "b;1\n"); }),
             u"prova.csv, riga 20002, colonna nome: la tabella ha troppe righe"_s);
}

void TestTabellaTesto::rifiutaFileGrande()
{
    const QString Percorso = NuovaCartella() + u"grande.csv"_s;
    QFile File(Percorso);
    QVERIFY(File.open(QIODevice::WriteOnly));
    QVERIFY(File.resize(TabellaTesto::MassimoByte + 1));
    File.close();
    const ErroreVisto E = ErroreDi([&] { (void)TabellaTesto(Percorso, Colonne); });
    QCOMPARE(E.Numero, 7);
}

void TestTabellaTesto::mancaIlFile()
{
    const ErroreVisto E = ErroreDi([&] { (void)TabellaTesto(NuovaCartella() + u"voci.csv"_s, Colonne); });
    QCOMPARE(E.Numero, 53);
    QCOMPARE(E.Descrizione, u"Manca la tabella voci.csv"_s);
}

void TestTabellaTesto::celle_data()
{
    QTest::addColumn<QString>("Cella");
    QTest::addColumn<QString>("Come");
    QTest::addColumn<QString>("Motivo");

    const auto Riga = [](const char* Nome, const QString& Cella, const QString& Come, const QString& Motivo) {
        QTest::newRow(Nome) << Cella << Come << Motivo;
    };
    Riga("intero al minimo", u"1"_s, u"intero"_s, {});
    Riga("intero al massimo", u"999"_s, u"intero"_s, {});
    Riga("intero sotto", u"0"_s, u"intero"_s, u"0 non è fra 1 e 999"_s);
    Riga("intero sopra", u"1000"_s, u"intero"_s, u"1000 non è fra 1 e 999"_s);
    Riga("intero con decimali", u"1.5"_s, u"intero"_s, u"«1.5» non è un numero intero"_s);
    Riga("intero con segno", u"-1"_s, u"intero"_s, u"«-1» non è un numero intero"_s);
    Riga("intero vuoto", {}, u"intero"_s, u"«» non è un numero intero"_s);
    Riga("intero oltre 32 bit", u"9999999999"_s, u"intero"_s, u"«9999999999» non è un numero intero"_s);
    Riga("importo intero", u"1200"_s, u"importo"_s, {});
    Riga("importo ai centesimi", u"999999999999.99"_s, u"importo"_s, {});
    Riga("importo con la virgola", u"12,5"_s, u"importo"_s, u"«12,5» non è un importo"_s);
    Riga("importo con tre decimali", u"12.345"_s, u"importo"_s, u"«12.345» non è un importo"_s);
    Riga("importo con esponente", u"1e3"_s, u"importo"_s, u"«1e3» non è un importo"_s);
    Riga("importo negativo", u"-5"_s, u"importo"_s, u"«-5» non è un importo"_s);
    Riga("importo vuoto", {}, u"importo"_s, u"«» non è un importo"_s);
    Riga("sì", u"sì"_s, u"sino"_s, {});
    Riga("no", u"no"_s, u"sino"_s, {});
    Riga("altro che sì e no", u"si"_s, u"sino"_s, u"«si» non è né sì né no"_s);
    Riga("testo al limite", u"12345"_s, u"testo"_s, {});
    Riga("testo troppo lungo", u"123456"_s, u"testo"_s, u"il testo supera i 5 caratteri"_s);
    Riga("testo vuoto", {}, u"testo"_s, u"il testo manca"_s);
    Riga("testo con uno spazio in fondo", u"uno "_s, u"testo"_s,
         u"il testo comincia o finisce con uno spazio"_s);
}

void TestTabellaTesto::celle()
{
    QFETCH(QString, Cella);
    QFETCH(QString, Come);
    QFETCH(QString, Motivo);
    const TabellaTesto Letta = Tabella("nome;euro\nx;\"" + Cella.toUtf8() + "\"\n");
    const QString Visto = DescrizioneErroreDi([&] {
        if (Come == u"intero")
            QCOMPARE(Letta.Intero(0, u"euro"_s, 1, 999), Cella.toInt());
        else if (Come == u"importo")
            QCOMPARE(Letta.Importo(0, u"euro"_s), Cella.toDouble());
        else if (Come == u"sino")
            QCOMPARE(Letta.SiNo(0, u"euro"_s), Cella == u"sì");
        else
            QCOMPARE(Letta.Testo(0, u"euro"_s, 5), Cella);
    });
    QCOMPARE(Visto, Motivo.isEmpty() ? QString() : u"prova.csv, riga 2, colonna euro: "_s + Motivo);
}

#include "TestTabellaTesto.moc"
