// What becomes of the journal of a note that is gone when another takes its name, and who is told.
#include "file_prova.h"

#include "feenote/file/modSalvataggio.h"
#include "platform/database/giornale.h"
#include "platform/system/file.h"
#include "platform/system/guasti.h"
#include "supporto/guasti.h"

#include <cerrno>

using namespace Qt::StringLiterals;

namespace {

/// Such that the engine would look at it.
const QByteArray Caldo = "caldo";

}  // namespace

class TestGiornaleScostato : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void siDice();
    void ilNomePiuLungo();
    void tornaSeLaNotaNonSiPosa();
    void restaDovELaNotaNonConfermata();
    void dellaFineContaIlPrimoErrore();

private:
    QString Cartella;
    QString Morta;
    QString Giornale;
};
PROVA(TestGiornaleScostato);

void TestGiornaleScostato::init()
{
    Cartella = NuovaCartella();
    Morta = Cartella + u"morta.mdb"_s;
    Giornale = Morta + u"-journal"_s;
    ScriviFile(Giornale, Caldo);
}

void TestGiornaleScostato::cleanup()
{
    guasti::PrimaDellaCartella = {};
    guasti::RinominaRifiutata = 0;
}

/// Who brings the former note back finds its journal under another name.
void TestGiornaleScostato::siDice()
{
    const Studio Ufficio;
    Registratore Messaggi;
    Parcella Nota = NotaPiena();
    Messaggi.AttendiSalva(Morta);
    const auto Scritta =
        SalvaConDialogo(Nota, false);  // without a word: the caller has something to do first
    QVERIFY(Scritta);
    QCOMPARE(Scritta->Percorso, Morta);
    QCOMPARE(LeggiFile(Giornale + u".orfano"_s), Caldo);
    Messaggi.Attendi(
        u"Accanto c'era il giornale di una parcella morta.mdb che non c'è più: è stato conservato, nella "
        u"stessa cartella, con il nome morta.mdb-journal.orfano.\nServe solo se quella parcella torna al "
        u"suo posto, e allora con il nome morta.mdb-journal; altrimenti si può eliminare."_s,
        vbOK, u"Messaggio:"_s);
    DiScostato(*Scritta);
    // Once: the next save finds nothing to put aside.
    Messaggi.AttendiSalva(Morta);
    const auto Dopo = SalvaConDialogo(Nota, false);
    QVERIFY(Dopo);
    DiScostato(*Dopo);
}

/// Each time anew there is a name that the disk takes.
void TestGiornaleScostato::ilNomePiuLungo()
{
    const Studio Ufficio;
    const Registratore Messaggi;
    const QString Lunga = Cartella + QString(236, u'n') + u".mdb"_s;
    for (const QString& Orfano : {u".orfano"_s, u".orf2"_s, u".orf3"_s}) {
        QFile::remove(Lunga);
        ScriviFile(Lunga + u"-journal"_s, Caldo);
        QCOMPARE(ScriviNota(Lunga, NotaPiena()), NomeFile(Lunga) + u"-journal"_s + Orfano);
        QCOMPARE(LeggiFile(Lunga + u"-journal"_s + Orfano), Caldo);
    }
}

void TestGiornaleScostato::tornaSeLaNotaNonSiPosa()
{
    const Studio Ufficio;
    const Registratore Messaggi;
    guasti::PrimaDellaCartella = [this](const QString& Quale) {
        if (Quale.endsWith(u".orfano"))
            QFile::remove(Cartella + u".~morta.mdb.tmp"_s);
        return true;
    };
    QCOMPARE(NumeroErrore([&] { ScriviNota(Morta, NotaPiena()); }), 53);
    QCOMPARE(ContenutoDi(Cartella), QStringList{u"morta.mdb-journal"_s});
    QCOMPARE(LeggiFile(Giornale), Caldo);
}

/// The note is there: its former journal does not come back, and its name is said.
void TestGiornaleScostato::restaDovELaNotaNonConfermata()
{
    const Studio Ufficio;
    const Registratore Messaggi;
    guasti::PrimaDellaCartella = [](const QString& Quale) { return Quale.endsWith(u".orfano"); };
    const ErroreVisto Guasto = ErroreDi([&] { ScriviNota(Morta, NotaPiena()); });
    QCOMPARE(Guasto.Numero, 57);
    QVERIFY2(Guasto.Descrizione.endsWith(
                 u"il file morta.mdb è però al suo posto; il giornale di una parcella che non c'è più, che "
                 u"gli stava accanto, ha ora il nome morta.mdb-journal.orfano"),
             qPrintable(Guasto.Descrizione));
    QCOMPARE(ContenutoDi(Cartella), (QStringList{u"morta.mdb"_s, u"morta.mdb-journal.orfano"_s}));
}

void TestGiornaleScostato::dellaFineContaIlPrimoErrore()
{
    guasti::PrimaDellaCartella = [](const QString&) {
        guasti::RinominaRifiutata = ENOSPC;
        return false;
    };
    QCOMPARE(NumeroErrore([&] { (void)ScostaGiornale(Morta); }), 57);
}

#include "TestGiornaleScostato.moc"
