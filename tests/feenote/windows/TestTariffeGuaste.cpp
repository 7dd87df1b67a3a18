// A reference database that is damaged, under a note's window: each act of the user brings one sentence at
// most, and it names the file.
#include "supporto/registratore.h"
#include "tavolo.h"

#include "platform/system/file.h"
#include "platform/system/messaggi.h"
#include "platform/system/percorsi.h"

#include <QScopeGuard>

using namespace Qt::StringLiterals;

class TestTariffeGuaste : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void unaFraseOgniAtto_data();
    void unaFraseOgniAtto();
};
PROVA(TestTariffeGuaste);

void TestTariffeGuaste::unaFraseOgniAtto_data()
{
    QTest::addColumn<QByteArray>("Byte");
    QTest::addColumn<int>("Numero");
    QTest::addColumn<bool>("Aperto");

    const QByteArray Sano = LeggiFile(ProgrammaDiProva() + u"parcelle.mdb"_s);
    for (const bool Aperto : {false, true}) {
        const char* Quale = Aperto ? "a saved note" : "a new note";
        QTest::addRow("%s, emptied", Quale) << QByteArray() << 3343 << Aperto;
        QTest::addRow("%s, cut in half", Quale) << Sano.first(Sano.size() / 2) << 3343 << Aperto;
        QTest::addRow("%s, another archive", Quale)
            << LeggiFile(ProgrammaDiProva() + u"Tassi.dat"_s) << 3078 << Aperto;
    }
}

void TestTariffeGuaste::unaFraseOgniAtto()
{
    QFETCH(QByteArray, Byte);
    QFETCH(int, Numero);
    QFETCH(bool, Aperto);
    QString Nota;
    {
        Tavolo Sano;
        frmParcelle* F = Sano.Apri();
        QVERIFY(F);
        CompilaCivile(F);
        Nota = NuovaCartella() + u"nota.mdb"_s;
        ScriviNota(Nota, F->Nota);
        F->SetModificata(false);
    }
    Tavolo T;
    sessione::PercorsoProg = NuovaCartella();
    const QString File = sessione::PercorsoProg + u"parcelle.mdb"_s;
    ScriviFile(File, Byte);
    QStringList Viste;
    Messaggi Raccolta;
    Raccolta.Box = [&](const QString& Testo, int, const QString&) {
        Viste += Testo;
        return vbOK;
    };
    Messaggi Prima = InstallaMessaggi(std::move(Raccolta));
    const auto Rimetti = qScopeGuard([&] { InstallaMessaggi(std::move(Prima)); });

    frmParcelle* F = nullptr;
    int Mostrate = 0;
    const auto Controlla = [&](const char* Atto) {
        Respiro();
        // That an authority is missing is another matter: no list offers one.
        Viste.removeIf([](const QString& Frase) { return !Frase.startsWith(u"Errore: "); });
        Mostrate += int(Viste.size());
        const bool Doppie = Viste.removeDuplicates() > 0;
        const bool Nominato = std::ranges::all_of(Viste, [&](const QString& Frase) {
            return Frase.contains(NomeFile(File)) && Frase.contains(u"(%1)"_s.arg(Numero));
        });
        if (Doppie || !Nominato)
            qWarning().noquote() << Atto << Viste;
        Viste.clear();
        return !Doppie && Nominato;
    };
    F = Tavolo::Apri(Aperto ? Nota : QString());
    QVERIFY(F);
    QVERIFY(Controlla("apertura"));
    for (const int Categoria : {CategPenale, CategStragiudiziale}) {
        Scegli(Controllo<QComboBox>(F, "cmbCateg"), Categoria);
        QVERIFY(Controlla("categoria"));
    }
    for (int Scheda = 1; Scheda < Controllo<QTabWidget>(F, "tabParcelle")->count(); ++Scheda) {
        ClicScheda(F, Scheda);
        QVERIFY(Controlla("scheda"));
    }
    QVERIFY2(Mostrate > 0, "nobody was told");
    F->SetModificata(false);
}

#include "TestTariffeGuaste.moc"
