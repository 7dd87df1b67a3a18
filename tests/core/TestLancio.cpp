#include "supporto/prova.h"
#include "supporto/registratore.h"

#include "core/modLancio.h"
#include "platform/base/numerierrore.h"
#include "platform/system/file.h"
#include "platform/system/percorsi.h"
#include "platform/system/shell.h"

using namespace Qt::StringLiterals;

class TestLancio : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void pdfSiApreAllaPagina();
    void pdfMancanteNonSiApre_data();
    void pdfMancanteNonSiApre();
    void pdfSenzaProgrammaSiTentaLoStesso();
    void pdfRifiutato();

    void indirizzi_data();
    void indirizzi();
    void indirizzoRifiutato();

    void documentoConLaClessidra();
    void documentoRifiutato();

private:
    QStringList Eventi;
    int Esito = 0;
    bool Programma = true;
    Shell Precedente;
};
PROVA(TestLancio);

void TestLancio::init()
{
    Eventi.clear();
    Esito = 0;
    Programma = true;
    Shell Nuova;
    Nuova.ApriFile = [this](const QString& File) {
        Eventi << u"file "_s + File;
        return Esito;
    };
    Nuova.ApriIndirizzo = [this](const QString& Indirizzo) {
        Eventi << u"indirizzo "_s + Indirizzo;
        return Esito;
    };
    Nuova.ApriPdf = [this](const QString& File, int Pagina) {
        Eventi << u"pdf "_s + File + u' ' + QString::number(Pagina);
        return Esito;
    };
    Nuova.HaProgramma = [this](const QString&) { return Programma; };
    Nuova.Clessidra = [this](bool Attiva) { Eventi << (Attiva ? u"clessidra"_s : u"freccia"_s); };
    Precedente = InstallaShell(std::move(Nuova));
}

void TestLancio::cleanup()
{
    InstallaShell(std::move(Precedente));
}

void TestLancio::pdfSiApreAllaPagina()
{
    const Registratore Box;
    const QString Guida = NuovaCartella() + u"GuidaOperativa.pdf"_s;
    ScriviFile(Guida, "%PDF");
    ApriPDF(Guida, 12);
    ApriPDF(Guida);
    ApriPDF(CartellaFile(Guida) + u"guidaoperativa.PDF"_s, 3);
    QCOMPARE(Eventi, (QStringList{u"pdf "_s + Guida + u" 12"_s, u"pdf "_s + Guida + u" 0"_s,
                                  u"pdf "_s + Guida + u" 3"_s}));
}

void TestLancio::pdfMancanteNonSiApre_data()
{
    QTest::addColumn<QString>("Percorso");

    QTest::newRow("no path") << QString();
    QTest::newRow("no file") << NuovaCartella() + u"nessuno.pdf"_s;
    QTest::newRow("a folder") << NuovaCartella();
}

void TestLancio::pdfMancanteNonSiApre()
{
    QFETCH(QString, Percorso);
    Registratore Box;
    Box.Attendi(u"Documento "_s + Percorso + u" non trovato!"_s, vbOK, u"Errore:"_s);
    ApriPDF(Percorso, 1);
    QCOMPARE(Eventi, QStringList());
}

void TestLancio::pdfSenzaProgrammaSiTentaLoStesso()
{
    Registratore Box;
    const QString Guida = NuovaCartella() + u"guida.pdf"_s;
    ScriviFile(Guida, "%PDF");
    Programma = false;
    Box.Attendi(u"Percorso Acrobat reader non trovato!"_s, vbOK, u"Errore:"_s);
    ApriPDF(Guida, 4);
    QCOMPARE(Eventi, QStringList{u"pdf "_s + Guida + u" 4"_s});
}

void TestLancio::pdfRifiutato()
{
    Registratore Box;
    const QString Guida = NuovaCartella() + u"guida.pdf"_s;
    ScriviFile(Guida, "%PDF");
    Esito = 5;
    Box.Attendi(u"Errore: "_s + DescrizioneErrore(5) + u" (5)"_s, vbOK, u"Errore:"_s);
    ApriPDF(Guida);
}

void TestLancio::indirizzi_data()
{
    QTest::addColumn<QString>("Indirizzo");
    QTest::addColumn<QString>("Aperto");

    QTest::newRow("capitals, path included")
        << u"HTTP://WWW.Esempio.IT/Pagina.HTM"_s << u"http://www.esempio.it/pagina.htm"_s;
    QTest::newRow("bare host") << u"www.esempio.it"_s << u"http://www.esempio.it"_s;
    QTest::newRow("mail") << u"MailTo:Studio@Esempio.it"_s << u"mailto:studio@esempio.it"_s;
    QTest::newRow("https stays") << u"https://www.esempio.it/A"_s << u"https://www.esempio.it/a"_s;
    QTest::newRow("another scheme is taken for a host")
        << u"ftp://esempio.it"_s << u"http://ftp://esempio.it"_s;
    QTest::newRow("scheme not at the start") << u"a http://b"_s << u"http://a http://b"_s;
}

void TestLancio::indirizzi()
{
    QFETCH(QString, Indirizzo);
    QFETCH(QString, Aperto);
    const Registratore Box;
    ApriUrl(Indirizzo);
    QCOMPARE(Eventi, QStringList{u"indirizzo "_s + Aperto});
}

void TestLancio::indirizzoRifiutato()
{
    Registratore Box;
    Esito = 31;
    Box.Attendi(u"Codice errore: 31\n"
                u"Il tentativo di apertura automatica della pagina web http://www.esempio.it\n"
                u"non è andato a buon fine: lanciare manualmente il browser e digitare l'indirizzo."_s,
                vbOK, u"Errore in fase di stampa:"_s);
    ApriUrl(u"WWW.esempio.it"_s);
    QCOMPARE(Box.Mostrato(0).Bandiere, vbCritical);
}

void TestLancio::documentoConLaClessidra()
{
    const Registratore Box;
    ApriDocWord(u"/a/b.doc"_s);
    QCOMPARE(Eventi, (QStringList{u"clessidra"_s, u"file /a/b.doc"_s, u"freccia"_s}));
}

void TestLancio::documentoRifiutato()
{
    Registratore Box;
    Esito = 53;
    Box.Attendi(u"Errore: "_s + DescrizioneErrore(53) + u" (53)"_s, vbOK, u"Errore:"_s);
    ApriDocWord(u"/a/b.doc"_s);
    QCOMPARE(Eventi, (QStringList{u"clessidra"_s, u"file /a/b.doc"_s, u"freccia"_s}));
}

#include "TestLancio.moc"
