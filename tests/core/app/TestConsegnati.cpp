#include "core/app/scena.h"

#include "core/CIni.h"
#include "core/app/apritori.h"
#include "feenote/modOnorari.h"
#include "platform/base/regionale.h"
#include "platform/database/database.h"
#include "platform/system/file.h"
#include "update/modDocumenti.h"

#include <QDirIterator>
#include <QRegularExpression>
#include <QSet>

/// Nothing that the program names is missing from its folder.
class TestConsegnati : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void archivi_data();
    void archivi();
    void documenti_data();
    void documenti();
    void pagine_data();
    void pagine();
    void testiRtf_data();
    void testiRtf();
    void unaSchedaPerVoce_data();
    void unaSchedaPerVoce();
    void nessunaSchedaDiTroppo();
    void documentiDellElenco();
    void sfondi();
    void icone();
    void nomiNeiSorgenti();
    void fileDelProgrammaNonConsegnati();
    void nessunaParolaMorta_data();
    void nessunaParolaMorta();
};
PROVA(TestConsegnati);

namespace {

/// What is written by the program, belongs to another one or is part of a name: not delivered.
const QSet<QString>& NonConsegnati()
{
    static const QSet<QString> Nomi{
        u"kr5.ini"_s,           u"avvisokr5.ini"_s,         // written by the program
        u"versioni.txt"_s,                                  // brought from a server
        u"notes.htm"_s,                                     // a page of a server
        u"calcaprima.exe"_s,                                // the earlier product
        u"personafisica.rtf"_s, u"personagiuridica.rtf"_s,  // ends of names: see testiRtf
        u"rubrica.mdb"_s,                                   // an address book of another place
        u"importazione.txt"_s,                              // proposed for a report
    };
    return Nomi;
}

/// Names to the letter: the disks of some offices tell capitals apart.
bool Consegnato(const QString& Nome)
{
    const QFileInfo File(ProgrammaDiProva() + Nome);
    return QDir(File.path()).entryList(QDir::Files).contains(File.fileName()) && File.size() > 0;
}

QByteArray Inizio(const QString& Nome)
{
    return LeggiFile(ProgrammaDiProva() + Nome).left(64);
}

void Righe(std::initializer_list<const char*> Nomi)
{
    QTest::addColumn<QString>("Nome");
    for (const char* Nome : Nomi)
        QTest::newRow(Nome) << QString::fromLatin1(Nome);
}

struct CatalogoVoci
{
    QStringView Categ;
    QStringView Tabella;
    QStringView Chiave;
};
constexpr std::array Cataloghi{
    CatalogoVoci{u"CIV", u"OnorariCiv", u"CodOno"},
    CatalogoVoci{u"PEN", u"OnorariPen", u"IDOno"},
    CatalogoVoci{u"STR", u"OnorariStra", u"IDOno"},
};

/// The sheets that the catalogues of both tariffs ask for.
QStringList SchedeAttese(const CatalogoVoci& Catalogo)
{
    QStringList Attese;
    for (const QString& Nome : {u"parcelle.mdb"_s, u"parcelle55.mdb"_s}) {
        const Database Tariffe = OpenDatabase(ProgrammaDiProva() + Nome, true);
        Recordset Voci = Tariffe.OpenRecordset(
            u"SELECT DISTINCT %1 FROM %2"_s.arg(Catalogo.Chiave.toString(), Catalogo.Tabella.toString()));
        for (; !Voci.Eof(); Voci.MoveNext())
            Attese << u"%1%2.htm"_s.arg(Catalogo.Categ.front())
                          .arg(Voci.Value(Catalogo.Chiave.toString()).toInt(), 3, 10, QChar(u'0'));
    }
    return Attese;
}

}  // namespace

void TestConsegnati::archivi_data()
{
    Righe({"parcelle.mdb", "parcelle55.mdb", "DatiStudio.mdb", "Tassi.dat", "Comuni.mdb", "Norme.mdb"});
}

void TestConsegnati::archivi()
{
    QFETCH(QString, Nome);
    QVERIFY(Consegnato(Nome));
    QVERIFY(!OpenDatabase(ProgrammaDiProva() + Nome, true).Tabelle().isEmpty());
}

void TestConsegnati::documenti_data()
{
    Righe({"GuidaOperativa.pdf", "GuidaGiuridica.pdf", "NovitaKR5.pdf", "AvvertenzeInteressiMora.pdf",
           "docum/SchedaImpugnazioni.pdf"});
}

void TestConsegnati::documenti()
{
    QFETCH(QString, Nome);
    QVERIFY(Consegnato(Nome));
    QVERIFY(Inizio(Nome).startsWith("%PDF-"));
}

void TestConsegnati::pagine_data()
{
    Righe({"avvisokr6.htm", "avvertenzetermini.htm", "SchedaNotaSpese.htm", "SkIvaDiff.htm", "link.htm",
           "assistenza.htm", "note/blank.htm", "aiuto/indice.htm", "docum/Tabella contributo unificato.htm",
           "docum/D.P.R. n. 115 del 30.5.2002 (stralcio, contributo unificato).htm"});
}

void TestConsegnati::pagine()
{
    QFETCH(QString, Nome);
    QVERIFY(Consegnato(Nome));
    QVERIFY(Inizio(Nome).startsWith("<html>"));
}

void TestConsegnati::testiRtf_data()
{
    Righe({"avvertenze.doc", "doc/ContrattoPersonaFisica.rtf", "doc/ContrattoPersonaGiuridica.rtf",
           "doc/ResaInformazionePersonaFisica.rtf", "doc/ResaInformazionePersonaGiuridica.rtf"});
}

void TestConsegnati::testiRtf()
{
    QFETCH(QString, Nome);
    QVERIFY(Consegnato(Nome));
    const QByteArray Testo = LeggiFile(ProgrammaDiProva() + Nome);
    QVERIFY(Testo.startsWith("{\\rtf1"));
    QCOMPARE(Testo.count('{'), Testo.count('}'));
    QVERIFY(Testo.trimmed().endsWith('}'));
}

void TestConsegnati::unaSchedaPerVoce_data()
{
    QTest::addColumn<QString>("Scheda");
    for (const CatalogoVoci& Catalogo : Cataloghi)
        for (const QString& Scheda : SchedeAttese(Catalogo))
            QTest::newRow(qPrintable(Scheda)) << Scheda;
}

void TestConsegnati::unaSchedaPerVoce()
{
    QFETCH(QString, Scheda);
    QVERIFY(Consegnato(u"note/"_s + Scheda));
}

void TestConsegnati::nessunaSchedaDiTroppo()
{
    QStringList Attese{u"blank.htm"_s};
    for (const CatalogoVoci& Catalogo : Cataloghi)
        Attese += SchedeAttese(Catalogo);
    Attese.sort();
    QVERIFY(Attese.size() > 60);
    QCOMPARE(QDir(ProgrammaDiProva() + u"note"_s).entryList(QDir::Files, QDir::Name), Attese);
}

void TestConsegnati::documentiDellElenco()
{
    const QString Cartella = ProgrammaDiProva() + u"docum/"_s;
    QStringList Elenco;
    for (const QString& Riga : QString::fromUtf8(LeggiFile(Cartella + u"elenco.txt"_s)).split(u'\n'))
        if (!Riga.trimmed().isEmpty())
            Elenco << Riga.trimmed();
    QStringList Mostrati;
    for (const VoceDocumento& Voce : ElencoDocumenti(Cartella))
        Mostrati << NomeFile(Voce.File);
    QVERIFY(Elenco.size() >= 10);
    QCOMPARE(Mostrati, Elenco);
}

void TestConsegnati::sfondi()
{
    CIni Modelli;
    Modelli.ImpostaFileName(ProgrammaDiProva() + u"sfondi/templates.ini"_s);
    int Visti = 0;
    for (;; ++Visti) {
        Modelli.ImpostaApplicationKey(u"modello%1"_s.arg(Visti + 1));
        if (Modelli.GetValue(u"Nome"_s, {}).isEmpty())
            break;
        const QString Figura = Modelli.GetValue(u"SfImg"_s, {});
        QVERIFY2(Consegnato(u"sfondi/"_s + Figura), qPrintable(Figura));
    }
    QVERIFY(Visti >= 6);
    QVERIFY(Consegnato(u"sfondi/"_s + sessione::SfondoDesktop));
}

void TestConsegnati::icone()
{
    QVERIFY(Consegnato(u"icone/icona.gif"_s));
    for (const QString& Disegno : QDir(SorgenteDiProva(u"dati/immagini/icone"_s)).entryList({u"*.svg"_s})) {
        const QString Nome = u"icone/"_s + Disegno.chopped(3) + u"gif"_s;
        QVERIFY2(Consegnato(Nome), qPrintable(Nome));
        QVERIFY2(Inizio(Nome).startsWith("GIF8"), qPrintable(Nome));
    }
}

void TestConsegnati::nomiNeiSorgenti()
{
    // Whoever names another file meets this test: it is delivered, or its name stands above with the reason.
    QSet<QString> Presenti;
    QDirIterator Consegna(ProgrammaDiProva(), QDir::Files, QDirIterator::Subdirectories);
    while (Consegna.hasNext()) {
        Consegna.next();
        Presenti.insert(Consegna.fileName().toLower());
    }
    static const QRegularExpression Nome(u"u\"(?:[^\"\\n*|%]*[/\\\\])?([^\"\\n*|%/\\\\]*[^\"\\n*|%/\\\\ "
                                         u".][.](?:pdf|htm|rtf|doc|mdb|dat|ini|txt|jpg|"
                                         u"gif|exe))\""_s,
                                         QRegularExpression::CaseInsensitiveOption);
    QStringList Mancanti;
    int Trovati = 0;
    QDirIterator Sorgenti(SorgenteDiProva(u"src"_s), {u"*.cpp"_s, u"*.h"_s}, QDir::Files,
                          QDirIterator::Subdirectories);
    while (Sorgenti.hasNext()) {
        const QString File = Sorgenti.next();
        if (File.contains(u"/src/cli/"))
            continue;  // its help names the files of whoever calls it
        auto Passi = Nome.globalMatch(QString::fromUtf8(LeggiFile(File)));
        while (Passi.hasNext()) {
            const QString Nominato = Passi.next().captured(1).toLower();
            ++Trovati;
            if (!Presenti.contains(Nominato) && !NonConsegnati().contains(Nominato))
                Mancanti << File + u": "_s + Nominato;
        }
    }
    QVERIFY(Trovati > 25);
    QVERIFY2(Mancanti.isEmpty(), qPrintable(Mancanti.join(u'\n')));
}

void TestConsegnati::fileDelProgrammaNonConsegnati()
{
    // They are the user's, or the server's: delivered, they would hide the notice or replace his icons.
    // The sources are looked at, and what the build makes of them.
    for (const QString& Cartella : {SorgenteDiProva(u"programma"_s), ProgrammaDiProva()}) {
        int Visti = 0;
        QDirIterator Passo(Cartella, QDir::Files | QDir::Hidden, QDirIterator::Subdirectories);
        while (Passo.hasNext()) {
            Passo.next();
            ++Visti;
            QVERIFY2(!NonConsegnati().contains(Passo.fileName().toLower()), qPrintable(Passo.filePath()));
        }
        QVERIFY2(Visti > 0, qPrintable(Cartella));
    }
}

void TestConsegnati::nessunaParolaMorta_data()
{
    QTest::addColumn<QString>("Parola");
    for (const Comando& Riga : Comandi())
        QTest::newRow(qPrintable(Riga.Parola.toString())) << Riga.Parola.toString();
}

void TestConsegnati::nessunaParolaMorta()
{
    // In the program as it is delivered no control is dead.
    QFETCH(QString, Parola);
    const Scena Preparata;
    Aperture = {};
    RiempiApritori();
    sessione::PercorsoProg = ProgrammaDiProva();
    QCOMPARE(Impedimento(Parola), QString());
}

#include "TestConsegnati.moc"
