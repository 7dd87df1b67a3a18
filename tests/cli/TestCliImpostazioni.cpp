// The program's settings, damaged in every way, under the commands: nothing is said in the name of an office
// that could not be read, and the calculators answer beside one sentence.
#include "ufficio.h"

#include "supporto/danni.h"
#include "supporto/guasti.h"

#include "platform/system/impostazioni.h"

#include <QDir>
#include <QFileInfo>

using namespace Qt::StringLiterals;

class TestCliImpostazioni : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup();
    void nullaANomeDelloStudio_data();
    void nullaANomeDelloStudio();
    void leCalcolatriciRispondono_data();
    void leCalcolatriciRispondono();
    void ilDannoDettoSiRicorda();
    void unPrimoUsoNonDiceNulla();

private:
    static void Danneggia(int Come) { Rovina(PercorsoImpostazioni(u"KR5"_s), Come); }
};
PROVA(TestCliImpostazioni);

void TestCliImpostazioni::cleanup()
{
    const QString File = PercorsoImpostazioni(u"KR5"_s);
    QDir().rmdir(File);
    QFile::remove(File);
    QFile::remove(File + u".danno"_s);
}

void TestCliImpostazioni::nullaANomeDelloStudio_data()
{
    QTest::addColumn<QString>("Comando");
    QTest::addColumn<int>("Come");

    for (const char* Comando :
         {"stampa NOTA 0 uscita.txt", "stampa NOTA 3 uscita.htm", "fattura NOTA uscita.xml",
          "scadenzario CARTELLA --csv uscita.csv", "crea DESCRIZIONE uscita.mdb", "nota NOTA",
          "trova CARTELLA", "rubrica clienti"})
        for (const int Come : DanniVisibili())
            QTest::addRow("%s: %s", Comando, NomiDanni[size_t(Come)]) << QString::fromLatin1(Comando) << Come;
}

void TestCliImpostazioni::nullaANomeDelloStudio()
{
    QFETCH(QString, Comando);
    QFETCH(int, Come);
    const Ufficio Studio;
    const QString Nota = Studio.Nota();
    QStringList Parole{u"--archivio"_s, Studio.Archivio};
    if (Comando.startsWith(u"crea"))
        Parole.clear();
    for (const QString& Parola : Comando.split(u' ')) {
        if (Parola == u"NOTA")
            Parole += Nota;
        else if (Parola == u"CARTELLA")
            Parole += Studio.Cartella;
        else if (Parola == u"DESCRIZIONE")
            Parole += SorgenteDiProva(u"dati/esempi/civile.json"_s);
        else
            Parole += Parola.startsWith(u"uscita") ? Studio.Cartella + Parola : Parola;
    }
    Danneggia(Come);
    const Esito Avuto = Chiama(Parole);
    QCOMPARE(Avuto.Stato, 1);
    QCOMPARE(Avuto.Uscita, QString());
    QVERIFY2(Avuto.Guasti.contains(PercorsoImpostazioni(u"KR5"_s)), qPrintable(Avuto.Guasti));
    QCOMPARE(Avuto.Guasti.trimmed().count(u'\n'), 0);
    QCOMPARE(QDir(Studio.Cartella).entryList({u"uscita*"_s}), QStringList());
}

void TestCliImpostazioni::leCalcolatriciRispondono_data()
{
    QTest::addColumn<int>("Come");

    for (const int Come : {Troncato, Svuotato, Cartella})
        QTest::newRow(NomiDanni[size_t(Come)]) << Come;
}

void TestCliImpostazioni::leCalcolatriciRispondono()
{
    QFETCH(int, Come);
    SaveSetting(u"KR5"_s, u"Parametri"_s, u"StudioNome"_s, u"Avv. Rossi"_s);
    Danneggia(Come);
    const Esito Avuto = Chiama({u"lettere"_s, u"12"_s});
    QCOMPARE(Avuto.Stato, 0);
    QCOMPARE(Avuto.Uscita, u"dodici/00\n"_s);
    QVERIFY2(Avuto.Guasti.contains(PercorsoImpostazioni(u"KR5"_s)), qPrintable(Avuto.Guasti));
    QCOMPARE(Avuto.Guasti.trimmed().count(u'\n'), 0);
}

/// Who takes the damaged file away upon the command's sentence has no file numbered from the beginning.
void TestCliImpostazioni::ilDannoDettoSiRicorda()
{
    const Ufficio Studio;
    const QString Nota = Studio.Nota();
    Danneggia(Svuotato);
    QCOMPARE(Chiama({u"lettere"_s, u"12"_s}).Stato, 0);
    QVERIFY(QFile::remove(PercorsoImpostazioni(u"KR5"_s)));
    SaveSetting(u"KR5"_s, u"Parametri"_s, u"StudioNome"_s, u"Avv. Mario Rossi"_s);
    const QString Uscita = Studio.Cartella + u"uscita.xml"_s;
    const Esito Avuto = Chiama({u"--archivio"_s, Studio.Archivio, u"fattura"_s, Nota, Uscita});
    QCOMPARE(Avuto.Stato, 1);
    QVERIFY2(Avuto.Guasti.contains(u"il numero dell'ultimo file XML non si conosce"),
             qPrintable(Avuto.Guasti));
    QVERIFY(!QFile::exists(Uscita));
}

void TestCliImpostazioni::unPrimoUsoNonDiceNulla()
{
    QVERIFY(!QFileInfo::exists(PercorsoImpostazioni(u"KR5"_s)));
    const Esito Avuto = Chiama({u"lettere"_s, u"12"_s});
    QCOMPARE(Avuto.Guasti, QString());
}

#include "TestCliImpostazioni.moc"
