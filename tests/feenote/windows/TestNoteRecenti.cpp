// The list of the last notes: which of those that are saved and opened come into it.
#include "salvataggi.h"

#include "core/modRecenti.h"
#include "core/parametri.h"
#include "feenote/windows/noteaperte.h"
#include "platform/system/file.h"
#include "platform/system/impostazioni.h"
#include "platform/system/orologio.h"

#include <QScopeGuard>

using namespace Qt::StringLiterals;
using namespace salvataggi;

class TestNoteRecenti : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void salvataEntraTraLeUltime();
    void apertaEntraTraLeUltime();
    void diAltriNonEntra_data();
    void diAltriNonEntra();
    void ilFileRinominatoSegue();

private:
    QString Salvata_(const QString& Nome, const QString& Cliente = u"Rossi"_s);
    std::unique_ptr<Tavolo> T;
    frmParcelle* F = nullptr;
    std::function<QDateTime()> Orologio;
};
PROVA(TestNoteRecenti);

void TestNoteRecenti::init()
{
    QFile::remove(PercorsoImpostazioni(NomeApplicazione.toString()));
    Orologio = InstallaOrologio([] { return QDateTime(QDate(2026, 11, 22), QTime(10, 42)); });
    T = std::make_unique<Tavolo>();
    F = T->Apri();
    QVERIFY(F);
}

void TestNoteRecenti::cleanup()
{
    T.reset();
    InstallaOrologio(Orologio);
}

/// The note on screen saved by the dialog under a name of the folder of notes. @return its file
QString TestNoteRecenti::Salvata_(const QString& Nome, const QString& Cliente)
{
    if (!MostraAttiva(*F))
        return {};
    ClicScheda(F, SchedaBase);
    Tocca(F, Cliente);
    return SalvaCome(*T, Nome);
}

void TestNoteRecenti::salvataEntraTraLeUltime()
{
    QCOMPARE(NoteRecenti().size(), 0);
    F->Nota.cmbTipoStampa = StampaFatturaAnalitica;
    CompilaCivile(F);
    ClicScheda(F, SchedaListaOnorari);
    const QString File = Salvata_(u"rossi.mdb"_s);
    const double Netto = CatenaFiscale(F->Nota, StampaFatturaAnalitica).Netto;
    QVERIFY(Netto > 0);
    QCOMPARE(NoteRecenti(), (QList<NotaRecente>{{.Percorso = File,
                                                 .Cliente = u"Rossi"_s,
                                                 .Documento = u"Fattura analitica"_s,
                                                 .Netto = Netto,
                                                 .Data = QDate(2026, 11, 22)}}));
    Tocca(F, u"Verdi"_s);
    QCOMPARE(NoteRecenti().constFirst().Cliente, u"Rossi"_s);
    QVERIFY(F->SalvaSulPosto());
    QCOMPARE(NoteRecenti().size(), 1);
    QCOMPARE(NoteRecenti().constFirst().Cliente, u"Verdi"_s);
}

void TestNoteRecenti::apertaEntraTraLeUltime()
{
    const QString File = Salvata_(u"rossi.mdb"_s);
    SvuotaRecenti();
    QVERIFY(T->Apri(File, 2));
    QTRY_COMPARE(NoteRecenti().size(), 1);
    QCOMPARE(NoteRecenti().constFirst().Percorso, File);
    // One that cannot be read is none.
    const QString Rotta = T->Ufficio.File(u"rotta.mdb"_s);
    ScriviFile(Rotta, "x");
    T->Voce.Tollera();
    ApriParcella(Rotta, 0, {});
    Respiro();
    QCOMPARE(NoteRecenti().size(), 1);
}

void TestNoteRecenti::diAltriNonEntra_data()
{
    QTest::addColumn<QString>("Dove");
    QTest::addColumn<bool>("Entra");
    QTest::newRow("a folder of the office") << u"altre/"_s << true;
    QTest::newRow("templates") << u"Modelli/"_s << false;
    QTest::newRow("recovery copies") << u"utente/recupero/"_s << false;
    QTest::newRow("the companion's local folder") << u"praxivo/"_s << false;
    QTest::newRow("below it") << u"praxivo/tmp/"_s << false;
    QTest::newRow("beside it") << u"praxivo2/"_s << true;
}

void TestNoteRecenti::diAltriNonEntra()
{
    QFETCH(QString, Dove);
    QFETCH(bool, Entra);
    sessione::ParcellePath = T->Ufficio.File(u"Parcelle/"_s);
    QDir().mkpath(sessione::ParcellePath);
    SaveSetting(u"Praxivo"_s, SezioneParametri.toString(), u"CartellaLocale"_s,
                T->Ufficio.File(u"praxivo"_s));
    const auto Togli = qScopeGuard([] { QFile::remove(PercorsoImpostazioni(u"Praxivo"_s)); });
    QDir().mkpath(T->Ufficio.File(Dove));
    const QString File = T->Ufficio.File(Dove) + u"rossi.mdb"_s;
    QVERIFY(QFile::rename(Salvata_(u"rossi.mdb"_s), File));
    SvuotaRecenti();
    QVERIFY(T->Apri(File, 2));
    Respiro();
    QCOMPARE(NoteRecenti().size(), Entra ? 1 : 0);
    // Notes of the office stay its own, wherever the companion has its folder.
    SaveSetting(u"Praxivo"_s, SezioneParametri.toString(), u"CartellaLocale"_s, T->Ufficio.Cartella());
    SvuotaRecenti();
    Salvata_(u"verdi.mdb"_s, u"Verdi"_s);
    QCOMPARE(NoteRecenti().size(), 1);
}

void TestNoteRecenti::ilFileRinominatoSegue()
{
    const QString File = Salvata_(u"rossi.mdb"_s);
    const QString Nuovo = sessione::ParcellePath + u"verdi.mdb"_s;
    NotaRinominata(File, Nuovo);
    QCOMPARE(NoteRecenti().constFirst().Percorso, Nuovo);
    NotaCancellata(Nuovo);
    QCOMPARE(NoteRecenti().size(), 0);
}

#include "TestNoteRecenti.moc"
