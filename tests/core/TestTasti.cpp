#include "supporto/prova.h"

#include "core/comandi.h"
#include "core/tasti.h"

#include <QMap>

#include <set>

using namespace Qt::StringLiterals;

/// The table of keys by itself.
class TestTasti : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void ogniRigaStaInUnGruppo();
    void nessunTastoDueVolte();
    void iComandiViSonoTutti();
    void ilPrimoDegliUguali();
};
PROVA(TestTasti);

void TestTasti::ogniRigaStaInUnGruppo()
{
    std::set<QString> Gruppi;
    std::set<QString> Titoli;
    for (const GruppoTasti& Gruppo : GruppiTasti()) {
        QVERIFY2(Gruppi.insert(Gruppo.Finestra.toString()).second, qPrintable(Gruppo.Finestra.toString()));
        QVERIFY2(Titoli.insert(Gruppo.Titolo.toString()).second, qPrintable(Gruppo.Titolo.toString()));
    }
    std::set<QString> Usati;
    for (const RigaTasti& Riga : TabellaTasti()) {
        QVERIFY2(Gruppi.contains(Riga.Finestra.toString()), qPrintable(Riga.Finestra.toString()));
        QVERIFY2(!Riga.Effetto.isEmpty(), qPrintable(Riga.Tasti.toString()));
        Usati.insert(Riga.Finestra.toString());
    }
    QCOMPARE(Usati.size(), Gruppi.size());
}

void TestTasti::nessunTastoDueVolte()
{
    QMap<std::pair<QString, QString>, QString> Visti;
    for (const RigaTasti& Riga : TabellaTasti())
        for (const QString& Tasti : Riga.Tasti.toString().split(u' ')) {
            QString& Prima = Visti[{Riga.Finestra.toString(), Tasti}];
            QVERIFY2(Prima.isEmpty(), qPrintable(Riga.Finestra.toString() + u' ' + Tasti));
            Prima = Riga.Effetto.toString();
        }
}

void TestTasti::iComandiViSonoTutti()
{
    int Quanti = 0;
    for (const Comando& Riga : Comandi()) {
        if (Riga.Tasti.isEmpty())
            continue;
        ++Quanti;
        const QStringView Dove = Riga.Parola == u"lock" ? QStringView(u"cornice") : u"frmMain";
        QCOMPARE(TastiDi(Dove, Riga.Parola), Riga.Tasti.toString());
    }
    QVERIFY(Quanti > 10);
}

void TestTasti::ilPrimoDegliUguali()
{
    QCOMPARE(TastiDi(u"frmParcelle", u"cmdRipeti"), u"Ctrl+Y"_s);
    QCOMPARE(TastiDi(u"", u"menu_tasti"), u"Ctrl+?"_s);
    QCOMPARE(TastiDi(u"frmParcelle", u"cmdAltro"), QString());
    QCOMPARE(TastiDi(u"frmIstat", u"cmdRipeti"), QString());
}

#include "TestTasti.moc"
