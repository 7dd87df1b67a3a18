#include "supporto/guasti.h"
#include "supporto/prova.h"

#include "core/sessione.h"
#include "platform/base/paginacodice.h"
#include "platform/system/file.h"
#include "platform/system/percorsi.h"
#include "platform/system/shell.h"
#include "update/modDocumenti.h"

#include <QFile>

using namespace Qt::StringLiterals;

class TestDocumenti : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void senzaCartella();
    void nellOrdineDellElenco();
    void righeDellElenco_data();
    void righeDellElenco();
    void collegamentoFuori();
    void codifiche_data();
    void codifiche();
    void elencoVuoto();
    void elencoSmisurato();
    void cartellaAlPostoDellElenco();
    void senzaElenco();
    void ultimeTreLettere_data();
    void ultimeTreLettere();
    void nomeETipo_data();
    void nomeETipo();
    void filtro_data();
    void filtro();
    void conto_data();
    void conto();
    void apre();
    void nonSiApre_data();
    void nonSiApre();

private:
    void Crea(const QString& Nome) const { ScriviFile(Docum + Nome, "x"); }
    [[nodiscard]] QStringList Nomi() const
    {
        QStringList Trovati;
        for (const VoceDocumento& Voce : ElencoDocumenti(Docum))
            Trovati << NomeFile(Voce.File);
        return Trovati;
    }

    QString Prog;
    QString Docum;
    Shell Precedente;
    QStringList Aperti;
    bool ConProgramma = true;
    int Esito = 0;
};
PROVA(TestDocumenti);

void TestDocumenti::init()
{
    AzzeraSessione();
    Prog = NuovaCartella();
    Docum = Prog + Barra(u"docum"_s);
    CreaCartella(Docum);
    sessione::PercorsoProg = Prog;
    Aperti.clear();
    ConProgramma = true;
    Esito = 0;
    Shell Nuova;
    Nuova.ApriFile = [this](const QString& File) {
        Aperti << File;
        return Esito;
    };
    Nuova.HaProgramma = [this](const QString&) { return ConProgramma; };
    Precedente = InstallaShell(std::move(Nuova));
}

void TestDocumenti::cleanup()
{
    InstallaShell(std::move(Precedente));
    AzzeraSessione();
}

void TestDocumenti::senzaCartella()
{
    QCOMPARE(CartellaDocum(), Docum);
    QVERIFY(ElencoDocumenti(Prog + u"altra"_s).isEmpty());
    // A file in its place is no folder either.
    QVERIFY(ElencoDocumenti(FileDiProva(u"casi/termini.csv"_s)).isEmpty());
}

void TestDocumenti::nellOrdineDellElenco()
{
    for (const QString& Nome : {u"Zeta.pdf"_s, u"alfa.htm"_s, u"Mezzo.doc"_s, u"fuori.pdf"_s})
        Crea(Nome);
    ScriviFile(Docum + u"ELENCO.TXT"_s,
               "Zeta.pdf\r\n\r\nALFA.HTM\r\nmancante.pdf\r\n  mezzo.doc  \r\nzeta.PDF\r\n");
    QCOMPARE(Nomi(), (QStringList{u"Zeta.pdf"_s, u"alfa.htm"_s, u"Mezzo.doc"_s}));
}

void TestDocumenti::righeDellElenco_data()
{
    QTest::addColumn<QByteArray>("Riga");

    QTest::newRow("above, by the classic separator") << QByteArray("..\\segreto.pdf");
    QTest::newRow("above") << QByteArray("../segreto.pdf");
    QTest::newRow("below") << QByteArray("sotto/dentro.pdf");
    QTest::newRow("below, by the classic separator") << QByteArray("sotto\\dentro.pdf");
    QTest::newRow("out and back in") << QByteArray("../docum/altro.pdf");
    QTest::newRow("down and up again") << QByteArray("sotto\\..\\altro.pdf");
    QTest::newRow("this folder's file by a path") << QByteArray("./altro.pdf");
    QTest::newRow("a folder") << QByteArray("sotto");
    QTest::newRow("here") << QByteArray(".");
    QTest::newRow("the one above") << QByteArray("..");
    QTest::newRow("a whole path") << QByteArray("/etc/passwd");
    QTest::newRow("a drive") << QByteArray("C:\\x.exe");
    QTest::newRow("a zero") << QByteArray("buono.pdf\0x", 11);
    QTest::newRow("no end") << QByteArray(100000, 'x');
}

void TestDocumenti::righeDellElenco()
{
    QFETCH(QByteArray, Riga);
    ScriviFile(Prog + u"segreto.pdf"_s, "x");
    CreaCartella(Docum + u"sotto"_s);
    Crea(u"sotto/dentro.pdf"_s);
    Crea(u"altro.pdf"_s);
    Crea(u"buono.pdf"_s);
    ScriviFile(Docum + u"elenco.txt"_s, Riga + "\nbuono.pdf\n");
    QCOMPARE(Nomi(), QStringList{u"buono.pdf"_s});
}

void TestDocumenti::collegamentoFuori()
{
    ScriviFile(Prog + u"segreto.pdf"_s, "x");
    QVERIFY(QFile::link(Prog + u"segreto.pdf"_s, Docum + u"innocuo.pdf"_s));
    Crea(u"buono.pdf"_s);
    QCOMPARE(Nomi(), QStringList{u"buono.pdf"_s});
    ScriviFile(Docum + u"elenco.txt"_s, "innocuo.pdf\nbuono.pdf\n");
    QCOMPARE(Nomi(), QStringList{u"buono.pdf"_s});
}

void TestDocumenti::codifiche_data()
{
    QTest::addColumn<QByteArray>("Elenco");

    const QString Nome = u"Attività - perché.pdf"_s;
    QTest::newRow("Windows-1252") << Cp1252(Nome);
    QTest::newRow("UTF-8") << Nome.toUtf8();
    QTest::newRow("UTF-8 with its mark") << "\xEF\xBB\xBF" + Nome.toUtf8();
    QTest::newRow("lines of the old kind") << "\r" + Cp1252(Nome) + "\r";
}

void TestDocumenti::codifiche()
{
    QFETCH(QByteArray, Elenco);
    Crea(u"Attività - perché.pdf"_s);
    ScriviFile(Docum + u"elenco.txt"_s, Elenco);
    QCOMPARE(Nomi(), QStringList{u"Attività - perché.pdf"_s});
}

void TestDocumenti::elencoVuoto()
{
    // The catalogue decides, an empty one too.
    Crea(u"buono.pdf"_s);
    ScriviFile(Docum + u"elenco.txt"_s, "\n \r\n");
    QCOMPARE(Nomi(), QStringList());
}

void TestDocumenti::elencoSmisurato()
{
    ScriviFile(Docum + u"elenco.txt"_s, QByteArray((1 << 20) + 1, '\n'));
    const ErroreVisto Guasto = ErroreDi([&] { (void)ElencoDocumenti(Docum); });
    QCOMPARE(Guasto.Numero, 7);
    QVERIFY2(Guasto.Descrizione.endsWith(u": "_s + Docum + u"elenco.txt"_s), qPrintable(Guasto.Descrizione));
}

void TestDocumenti::cartellaAlPostoDellElenco()
{
    Crea(u"buono.pdf"_s);
    CreaCartella(Docum + u"elenco.txt"_s);
    const ErroreVisto Guasto = ErroreDi([&] { (void)ElencoDocumenti(Docum); });
    QCOMPARE(Guasto.Numero, 75);
    QVERIFY2(Guasto.Descrizione.contains(u"elenco.txt"), qPrintable(Guasto.Descrizione));
}

void TestDocumenti::senzaElenco()
{
    for (const QString& Nome :
         {u"Zeta.pdf"_s, u"élite.XLS"_s, u"alfa.doc"_s, u"pagina.htm"_s, u"alfa.docx"_s, u"Beta.Pdf"_s})
        Crea(Nome);
    CreaCartella(Docum + u"cartella.pdf"_s);
    QCOMPARE(Nomi(), (QStringList{u"alfa.doc"_s, u"Beta.Pdf"_s, u"élite.XLS"_s, u"Zeta.pdf"_s}));
}

void TestDocumenti::ultimeTreLettere_data()
{
    QTest::addColumn<QString>("Nome");
    QTest::addColumn<bool>("Elencato");

    QTest::newRow("extension") << u"a.doc"_s << true;
    QTest::newRow("any case") << u"a.xLs"_s << true;
    QTest::newRow("letters without a point") << u"leggimiPDF"_s << true;
    QTest::newRow("a stretch across two of them") << u"a.C_X"_s << true;
    QTest::newRow("letters in another order") << u"a.cod"_s << false;
    QTest::newRow("four") << u"a.docx"_s << false;
    QTest::newRow("three letters are the whole name") << u"pdf"_s << true;
    QTest::newRow("two") << u"df"_s << false;
    QTest::newRow("one") << u"d"_s << false;
}

void TestDocumenti::ultimeTreLettere()
{
    QFETCH(QString, Nome);
    QFETCH(bool, Elencato);
    Crea(Nome);
    QCOMPARE(Nomi(), Elencato ? QStringList{Nome} : QStringList());
}

void TestDocumenti::nomeETipo_data()
{
    QTest::addColumn<QString>("File");
    QTest::addColumn<QString>("Nome");
    QTest::addColumn<QString>("Tipo");

    QTest::newRow("plain") << u"Scheda.pdf"_s << u"Scheda"_s << u"PDF"_s;
    QTest::newRow("points inside") << u"D.M. n. 140 del 20.7.2012.htm"_s << u"D.M. n. 140 del 20.7.2012"_s
                                   << u"HTM"_s;
    QTest::newRow("none") << u"LEGGIMI"_s << u"LEGGIMI"_s << QString();
}

void TestDocumenti::nomeETipo()
{
    QFETCH(QString, File);
    Crea(File);
    ScriviFile(Docum + u"elenco.txt"_s, File.toUtf8());
    const QList<VoceDocumento> Letti = ElencoDocumenti(Docum);
    QCOMPARE(Letti.size(), 1);
    QCOMPARE(Letti[0].File, Docum + File);
    QTEST(Letti[0].Nome, "Nome");
    QTEST(Letti[0].Tipo, "Tipo");
}

void TestDocumenti::filtro_data()
{
    QTest::addColumn<QString>("Testo");
    QTest::addColumn<bool>("Resta");

    QTest::newRow("nothing asked") << QString() << true;
    QTest::newRow("a part") << u"util"_s << true;
    QTest::newRow("no case, no accents") << u"ATTIVITA"_s << true;
    QTest::newRow("words in any order") << u"utile attività"_s << true;
    QTest::newRow("the type") << u"pdf"_s << true;
    QTest::newRow("one word that is not there") << u"attività inutile"_s << false;
}

void TestDocumenti::filtro()
{
    QFETCH(QString, Testo);
    QTEST(TrovatoNelDocumento({u"/x/Attività utile.pdf"_s, u"Attività utile"_s, u"PDF"_s}, Testo), "Resta");
}

void TestDocumenti::conto_data()
{
    QTest::addColumn<int>("Mostrati");
    QTest::addColumn<int>("Tutti");
    QTest::addColumn<QString>("Testo");

    QTest::newRow("none") << 0 << 0 << u"0 documenti"_s;
    QTest::newRow("one") << 1 << 1 << u"1 documento"_s;
    QTest::newRow("many") << 12 << 12 << u"12 documenti"_s;
    QTest::newRow("filtered") << 3 << 12 << u"3 di 12 documenti"_s;
    QTest::newRow("the only one filtered out") << 0 << 1 << u"0 di 1 documento"_s;
}

void TestDocumenti::conto()
{
    QFETCH(int, Mostrati);
    QFETCH(int, Tutti);
    QTEST(ContoDocumenti(Mostrati, Tutti), "Testo");
}

void TestDocumenti::apre()
{
    Crea(u"Scheda.pdf"_s);
    ApriDocumento(ElencoDocumenti(Docum).first());
    QCOMPARE(Aperti, QStringList{Docum + u"Scheda.pdf"_s});
}

void TestDocumenti::nonSiApre_data()
{
    QTest::addColumn<bool>("Sparito");
    QTest::addColumn<bool>("Programma");
    QTest::addColumn<int>("Risposta");
    QTest::addColumn<int>("Numero");
    QTest::addColumn<QString>("Frase");

    QTest::newRow("gone") << true << true << 0 << 53 << u"File non trovato: Scheda.pdf"_s;
    QTest::newRow("no program") << false << false << 0 << 31
                                << u"Nessun programma di questo computer apre il documento Scheda.pdf"_s;
    QTest::newRow("the system's answer") << false << true << 70 << 70 << u"Autorizzazione negata"_s;
}

void TestDocumenti::nonSiApre()
{
    QFETCH(bool, Sparito);
    QFETCH(bool, Programma);
    QFETCH(int, Risposta);
    QFETCH(int, Numero);
    QFETCH(QString, Frase);
    Crea(u"Scheda.pdf"_s);
    const VoceDocumento Voce = ElencoDocumenti(Docum).first();
    if (Sparito)
        QVERIFY(QFile::remove(Voce.File));
    ConProgramma = Programma;
    Esito = Risposta;
    const ErroreVisto Guasto = ErroreDi([&] { ApriDocumento(Voce); });
    QCOMPARE(Guasto.Numero, Numero);
    QCOMPARE(Guasto.Descrizione, Frase);
    QCOMPARE(Aperti.size(), Risposta != 0 ? 1 : 0);
}

#include "TestDocumenti.moc"
