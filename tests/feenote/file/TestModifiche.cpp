// The question about unsaved changes.
#include "feenote/nota_prova.h"

#include "feenote/file/modSalvataggio.h"

using namespace Qt::StringLiterals;

class TestModifiche : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void intattaNonChiede();
    void chiede_data();
    void chiede();
};
PROVA(TestModifiche);

void TestModifiche::intattaNonChiede()
{
    const Registratore Messaggi;
    QCOMPARE(CheckModInCorso(Parcella(), true), vbNo);
    QCOMPARE(CheckModInCorso(Parcella(), false), vbNo);
}

void TestModifiche::chiede_data()
{
    QTest::addColumn<bool>("Chiusura");
    QTest::addColumn<QString>("Testo");
    QTest::newRow("chiudendo")
        << true
        << u"Attenzione le modifiche effettuate non sono state ancora salvate e andranno perdute.\n"
           u"Vuoi salvare la parcella prima di chiudere?"_s;
    QTest::newRow("aprendone un'altra")
        << false
        << u"Attenzione le modifiche effettuate sulla precedente parcella non sono state ancora salvate e "
           u"andranno perdute.\nVuoi salvare la parcella prima di aprire la nuova?"_s;
}

void TestModifiche::chiede()
{
    QFETCH(bool, Chiusura);
    QFETCH(QString, Testo);
    Registratore Messaggi;
    Parcella Nota;
    SetModificata(Nota, true);
    for (const int Risposta : {vbYes, vbNo, vbCancel}) {
        Messaggi.Attendi(Testo, Risposta, u"Domanda:"_s);
        QCOMPARE(CheckModInCorso(Nota, Chiusura), Risposta);
        QVERIFY(Messaggi.Ultimo().Bandiere == vbYesNoCancel + vbQuestion);
    }
}

#include "TestModifiche.moc"
