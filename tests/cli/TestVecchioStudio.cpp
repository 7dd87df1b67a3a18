// An office moves in: its archive and its notes in Access format become an office of this program's, and the
// old files stay where they were.
#include "chiamata.h"

#include "addressbook/exchange/archiviointero.h"
#include "addressbook/exchange/notevecchie.h"
#include "core/sessione.h"
#include "feenote/file/modLettura.h"
#include "feenote/file/modPosaFile.h"
#include "feenote/parcella.h"
#include "platform/accesso/accesso.h"
#include "platform/database/database.h"
#include "platform/system/file.h"
#include "supporto/registratore.h"
#include "supporto/scrittoreaccess.h"

#include <QDir>
#include <QFile>

using namespace Qt::StringLiterals;

class TestVecchioStudio : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void laStrada();

private:
    /// The archive of the former program, with a client of key 41.
    static QString VecchioArchivio(const QString& Cartella)
    {
        const QString Nativo = NuovaCartella() + u"archivio.mdb"_s;
        QFile::copy(ProgrammaDiProva() + u"DatiStudio.mdb"_s, Nativo);
        QFile::setPermissions(Nativo, QFile::ReadOwner | QFile::WriteOwner);
        OpenDatabase(Nativo).Execute(
            u"INSERT INTO clienti (ID, Nominativo, Citta) VALUES (41, 'Omega Srl', 'Forlì')"_s);
        return ScriviAccess(Cartella + u"DatiStudio.mdb"_s, AccessDa(Nativo));
    }
    /// A note of the former program, linked to that client under an older name.
    static QString VecchiaNota(const QString& File)
    {
        const QString Nativa = NuovaCartella() + u"nativa.mdb"_s;
        const QString Detta = NuovaCartella() + u"nota.json"_s;
        ScriviFile(Detta, R"({"categoria": "CIV", "autorita": 2, "valore": 30000, "cliente": "Omega"})");
        const Esito Fatta = Chiama({u"crea"_s, Detta, Nativa});
        if (Fatta.Stato != 0)
            QTest::qFail(qPrintable(Fatta.Guasti), __FILE__, __LINE__);
        const Database Db = OpenDatabase(Nativa);
        Db.Execute(u"UPDATE ParcellaParam SET IDCli=41"_s);
        Db.Execute(u"DROP TABLE \"_Calcanova\""_s);
        return ScriviAccess(File, AccessDa(Nativa));
    }
};
PROVA(TestVecchioStudio);

void TestVecchioStudio::laStrada()
{
    const Registratore Box;
    const QString Vecchio = NuovaCartella();
    QDir(Vecchio).mkdir(u"Parcelle"_s);
    const QString Archivio = VecchioArchivio(Vecchio);
    const QString Nota = VecchiaNota(Vecchio + u"Parcelle/omega.mdb"_s);
    const QByteArray ArchivioPrima = LeggiFile(Archivio);
    const QByteArray NotaPrima = LeggiFile(Nota);

    // The archive first: keys and names as they were.
    const QString Utente = NuovaCartella();
    const auto Preso = PrendiArchivio(Archivio, Utente);
    QVERIFY(Preso);
    QCOMPARE(Preso->File, Utente + u"DatiStudio.mdb"_s);
    QCOMPARE(Preso->Clienti, 1);
    sessione::ArchivioCliCon = Preso->File;

    // The notes into a folder of their own.
    const QString Nuove = NuovaCartella();
    const auto Esiti = CopiaNote(Vecchio + u"Parcelle"_s, Nuove);
    QVERIFY(Esiti && Esiti->size() == 1);
    QVERIFY2(Esiti->first().Copiata, qPrintable(Esiti->first().Detto));
    const QString Copia = Nuove + u"omega.mdb"_s;
    QVERIFY(!EDiAccess(Copia));

    // Opened, the note follows its client; printed, it names him.
    Parcella Letta;
    CaricaDati(Letta, Copia);
    QCOMPARE(Letta.IDCli, 41);
    QCOMPARE(Letta.txtCliente.Testo, u"Omega Srl"_s);
    const QString Stampa = Nuove + u"stampa.txt"_s;
    const Esito Stampata = Chiama({u"stampa"_s, Copia, u"0"_s, Stampa, u"--archivio"_s, Preso->File});
    QCOMPARE(Stampata.Guasti, QString());
    QVERIFY(QString::fromUtf8(LeggiFile(Stampa)).contains(u"Omega Srl"));
    ScriviNota(Copia, Letta);
    CaricaDati(Letta, Copia);
    QCOMPARE(Letta.txtCliente.Testo, u"Omega Srl"_s);

    // So far the former program's files are as they were.
    QCOMPARE(LeggiFile(Archivio), ArchivioPrima);
    QCOMPARE(LeggiFile(Nota), NotaPrima);

    // A note that is saved where it lay leaves the old file beside it.
    CaricaDati(Letta, Nota);
    QCOMPARE(Letta.txtCliente.Testo, u"Omega Srl"_s);
    ScriviNota(Nota, Letta);
    QVERIFY(!EDiAccess(Nota));
    QCOMPARE(LeggiFile(Nota + u".access"_s), NotaPrima);
    QCOMPARE(OpenDatabase(Preso->File).OpenRecordset(u"clienti"_s).Value(u"Citta"_s).toString(), u"Forlì"_s);
}

#include "TestVecchioStudio.moc"
