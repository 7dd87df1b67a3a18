#include "feenote/finder/elencotrova.h"
#include "supporto/guasti.h"
#include "supporto/prova.h"

#include <QDateTime>

using namespace Qt::StringLiterals;

/// The rows of the finder: their order, their cells, those that a typed text leaves.
class TestElencoTrova : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void perCheNonCeNeSono();
    void init() { Elenco = {}; }

    void leCelle();
    void lOrdine_data();
    void lOrdine();
    void leCartelleInFondo();
    void lOrdineAspetta();
    void ilFiltro_data();
    void ilFiltro();
    void ilFiltroMentreArrivano();
    void leIniziali_data();
    void leIniziali();
    void togliERinomina();

private:
    static VoceTrova Voce(const QString& Nome, const QString& Cliente = {}, const QString& Controparte = {},
                          GenereVoce Genere = GenereVoce::Nota)
    {
        VoceTrova Una;
        Una.Genere = Genere;
        Una.Nome = Nome;
        Una.Percorso = u"/note/"_s + Nome;
        Una.Cartella = u"/note/"_s;
        Una.Cliente = Cliente;
        Una.Controparte = Controparte;
        return Una;
    }
    void Riempi()
    {
        auto Dieci = Voce(u"nota 10"_s, u"Èlio"_s, u"a"_s);
        Dieci.Byte = 5000;
        Dieci.Modificata = 3000;
        auto Nove = Voce(u"Nota 9"_s, u"Zeta"_s, u"b"_s);
        Nove.Byte = 20000;
        Nove.Modificata = 1000;
        auto Alfa = Voce(u"àlfa"_s, u"Elio"_s, u"c"_s);
        Alfa.Byte = 300;
        Alfa.Modificata = 2000;
        Elenco.Aggiungi(Voce(u"[sotto 2]"_s, {}, {}, GenereVoce::Cartella));
        Elenco.Aggiungi(std::move(Dieci));
        Elenco.Aggiungi(Voce(u"[Sotto 1]"_s, {}, {}, GenereVoce::Cartella));
        Elenco.Aggiungi(std::move(Nove));
        Elenco.Aggiungi(Voce(VoceTorna.toString(), {}, {}, GenereVoce::Torna));
        Elenco.Aggiungi(std::move(Alfa));
    }
    QStringList Nomi() const
    {
        QStringList Tutti;
        for (int Riga = 0; Riga < Elenco.Righe(); ++Riga)
            Tutti += Elenco.Voce(Riga).Nome;
        return Tutti;
    }

    ElencoTrova Elenco;
};
PROVA(TestElencoTrova);

void TestElencoTrova::leCelle()
{
    VoceTrova Nota = Voce(u"nota"_s, u"Rossi"_s, u"Bianchi"_s);
    Nota.Byte = 1024 * 1500 + 1;
    Nota.Modificata = QDateTime({2026, 3, 9}, {23, 59, 59}).toMSecsSinceEpoch();
    const auto Celle = [](const VoceTrova& Una) {
        QStringList Tutte;
        for (int Colonna = 0; Colonna < TrovaColonne; ++Colonna)
            Tutte += CellaTrova(Una, Colonna);
        return Tutte.join(u'|');
    };
    QCOMPARE(Celle(Nota), u"nota|09/03/2026|Rossi|Bianchi|1.501 KB|/note/|"_s);
    Nota.Dati.Stato.Stato = StatoNota::Inviata;
    QCOMPARE(Celle(Nota), u"nota|09/03/2026|Rossi|Bianchi|1.501 KB|/note/|Inviata"_s);
    Nota.Modello = true;  // nothing of a template goes out
    QCOMPARE(Celle(Nota), u"nota|09/03/2026|Rossi|Bianchi|1.501 KB|/note/|"_s);
    Nota.Modello = false;
    Nota.Genere = GenereVoce::Cartella;
    QCOMPARE(Celle(Nota), u"nota|09/03/2026|Rossi|Bianchi||/note/|"_s);
    Nota.Genere = GenereVoce::Torna;
    QCOMPARE(Celle(Nota), u"nota||||||"_s);
}

void TestElencoTrova::lOrdine_data()
{
    QTest::addColumn<int>("Colonna");
    QTest::addColumn<bool>("Crescente");
    QTest::addColumn<QStringList>("Note");
    const QStringList PerNome{u"àlfa"_s, u"Nota 9"_s, u"nota 10"_s};
    QTest::newRow("names: digits are numbers, accents and case no matter")
        << int(TrovaNome) << true << PerNome;
    QTest::newRow("names downwards") << int(TrovaNome) << false
                                     << QStringList{u"nota 10"_s, u"Nota 9"_s, u"àlfa"_s};
    QTest::newRow("dates by their value")
        << int(TrovaData) << true << QStringList{u"Nota 9"_s, u"àlfa"_s, u"nota 10"_s};
    QTest::newRow("dates downwards") << int(TrovaData) << false
                                     << QStringList{u"nota 10"_s, u"àlfa"_s, u"Nota 9"_s};
    QTest::newRow("clients") << int(TrovaCliente) << true
                             << QStringList{u"àlfa"_s, u"nota 10"_s, u"Nota 9"_s};
    QTest::newRow("counterparties downwards")
        << int(TrovaControparte) << false << QStringList{u"àlfa"_s, u"Nota 9"_s, u"nota 10"_s};
    QTest::newRow("sizes by their value")
        << int(TrovaDimensione) << true << QStringList{u"àlfa"_s, u"nota 10"_s, u"Nota 9"_s};
    QTest::newRow("equal ones by name, upwards too") << int(TrovaCartella) << true << PerNome;
    QTest::newRow("equal ones by name, downwards too") << int(TrovaCartella) << false << PerNome;
}

void TestElencoTrova::lOrdine()
{
    QFETCH(int, Colonna);
    QFETCH(bool, Crescente);
    QFETCH(QStringList, Note);
    Elenco.Azzera(false);
    Riempi();
    Elenco.Ordina(Colonna, Crescente);
    QCOMPARE(Nomi(), QStringList({VoceTorna.toString(), u"[Sotto 1]"_s, u"[sotto 2]"_s}) + Note);
    QCOMPARE(Elenco.Tabella()->Righe(), 6);
}

void TestElencoTrova::leCartelleInFondo()
{
    Elenco.Azzera(true);
    Riempi();
    Elenco.Ordina();
    QCOMPARE(Nomi(), (QStringList{VoceTorna.toString(), u"àlfa"_s, u"Nota 9"_s, u"nota 10"_s, u"[Sotto 1]"_s,
                                  u"[sotto 2]"_s}));
}

void TestElencoTrova::lOrdineAspetta()
{
    Elenco.Ordina(TrovaNome, false);
    Elenco.Azzera(false);
    Riempi();
    QCOMPARE(Nomi().first(), u"[sotto 2]"_s);
    Elenco.Ordina();
    QCOMPARE(Nomi().last(), u"àlfa"_s);
    QVERIFY(!Elenco.Crescente());
}

void TestElencoTrova::ilFiltro_data()
{
    QTest::addColumn<QString>("Testo");
    QTest::addColumn<QStringList>("Note");
    QTest::newRow("nothing typed") << QString() << QStringList{u"àlfa"_s, u"Nota 9"_s, u"nota 10"_s};
    QTest::newRow("blanks") << u"  "_s << QStringList{u"àlfa"_s, u"Nota 9"_s, u"nota 10"_s};
    QTest::newRow("a part of the name, whatever case") << u"OTA"_s << QStringList{u"Nota 9"_s, u"nota 10"_s};
    QTest::newRow("the client, whatever accents") << u"elio"_s << QStringList{u"àlfa"_s, u"nota 10"_s};
    QTest::newRow("accents typed") << u"ÈLI"_s << QStringList{u"àlfa"_s, u"nota 10"_s};
    QTest::newRow("words in any order, from any column") << u"elio nota"_s << QStringList{u"nota 10"_s};
    QTest::newRow("a word may not run from one column into the next") << u"9zeta"_s << QStringList{};
    QTest::newRow("the file's ending is not shown") << u"mdb"_s << QStringList{};
}

void TestElencoTrova::ilFiltro()
{
    QFETCH(QString, Testo);
    QFETCH(QStringList, Note);
    Riempi();
    Elenco.Ordina();
    Elenco.Filtra(Testo);
    QCOMPARE(Nomi(), QStringList({VoceTorna.toString(), u"[Sotto 1]"_s, u"[sotto 2]"_s}) + Note);
    QCOMPARE(Elenco.Tabella()->Righe(), Nomi().size());
    QCOMPARE(Elenco.Note(), int(Note.size()));
    QCOMPARE(Elenco.TutteLeNote(), 3);
    Elenco.Filtra({});
    QCOMPARE(Elenco.Righe(), 6);
}

void TestElencoTrova::ilFiltroMentreArrivano()
{
    Elenco.Filtra(u"zeta"_s);
    Riempi();
    QCOMPARE(Elenco.Note(), 1);
    QCOMPARE(Elenco.Tabella()->Righe(), Elenco.Righe());
}

void TestElencoTrova::leIniziali_data()
{
    QTest::addColumn<QString>("Lettere");
    QTest::addColumn<int>("Da");
    QTest::addColumn<int>("Riga");
    // 0 up, 1 [Sotto 1], 2 [sotto 2], 3 alfa, 4 Nota 9, 5 nota 10
    QTest::newRow("a letter") << u"n"_s << 0 << 4;
    QTest::newRow("the row itself counts") << u"n"_s << 5 << 5;
    QTest::newRow("round the end") << u"a"_s << 4 << 3;
    QTest::newRow("a folder by the name in its brackets") << u"SO"_s << 2 << 2;
    QTest::newRow("several") << u"nota 1"_s << 0 << 5;
    QTest::newRow("none") << u"x"_s << 0 << -1;
    QTest::newRow("the way up is no name") << u"torna"_s << 0 << -1;
}

void TestElencoTrova::leIniziali()
{
    QFETCH(QString, Lettere);
    QFETCH(int, Da);
    Riempi();
    Elenco.Ordina();
    QTEST(Elenco.CercaIniziali(Lettere, Da).value_or(-1), "Riga");
    QCOMPARE(ElencoTrova().CercaIniziali(u"a"_s, 0), std::nullopt);
}

void TestElencoTrova::togliERinomina()
{
    Riempi();
    Elenco.Ordina();
    QCOMPARE(Elenco.RigaDi(u"/note/Nota 9"_s), 4);
    Elenco.Rinomina(u"/note/Nota 9"_s, u"/note/verde.mdb"_s);
    QCOMPARE(Elenco.Voce(4).Nome, u"verde"_s);
    QCOMPARE(Elenco.Voce(4).Percorso, u"/note/verde.mdb"_s);
    Elenco.Filtra(u"verde"_s);
    QCOMPARE(Elenco.Note(), 1);
    Elenco.Filtra({});
    Elenco.Togli(u"/note/àlfa"_s);
    QCOMPARE(Elenco.TutteLeNote(), 2);
    QCOMPARE(Elenco.RigaDi(u"/note/àlfa"_s), std::nullopt);
    Elenco.Togli(u"/note/àlfa"_s);
    QCOMPARE(Elenco.Righe(), 5);
    QCOMPARE(NumeroErrore([&] { (void)Elenco.Voce(5); }), 9);
    QCOMPARE(NumeroErrore([&] { (void)Elenco.Voce(-1); }), 9);
}

void TestElencoTrova::perCheNonCeNeSono()
{
    QCOMPARE(Elenco.FraseVuota(), u"In questa cartella non ci sono parcelle."_s);
    Elenco.Filtra(u"alfa"_s);
    QCOMPARE(Elenco.FraseVuota(), u"Nessuna parcella contiene il testo scritto."_s);
    Elenco.FiltraStato(FiltroStato::Pagata);
    QCOMPARE(Elenco.FraseVuota(), u"Nessuna parcella nello stato scelto contiene il testo scritto."_s);
    Elenco.Filtra(u"  "_s);
    QCOMPARE(Elenco.FraseVuota(), u"Nessuna parcella è nello stato scelto."_s);
    Elenco.FiltraCliente(ClienteNota{7, {}});
    QCOMPARE(Elenco.FraseVuota(), u"Nessuna parcella del cliente scelto è nello stato scelto."_s);
    Elenco.Filtra(u"alfa"_s);
    QCOMPARE(Elenco.FraseVuota(),
             u"Nessuna parcella del cliente scelto nello stato scelto contiene il testo scritto."_s);
    Elenco.FiltraStato(FiltroStato::Tutte);
    QCOMPARE(Elenco.FraseVuota(), u"Nessuna parcella del cliente scelto contiene il testo scritto."_s);
    Elenco.Filtra({});
    QVERIFY(Elenco.Filtrato());
    QCOMPARE(Elenco.FraseVuota(), u"In questa cartella non ci sono parcelle del cliente scelto."_s);
    Elenco.FiltraCliente({});
    QVERIFY(!Elenco.Filtrato());
}

#include "TestElencoTrova.moc"
