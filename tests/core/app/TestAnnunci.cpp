#include "tuttelefinestre.h"

#include "platform/kit/rigachesvanisce.h"

/// What a screen reader is told of results away from the focus.
class TestAnnunci : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void ricerche_data();
    void ricerche();
    void rigaCheSvanisce();
};
PROVA(TestAnnunci);

namespace {

/// What was announced in a window last.
QString Annunciato(const QWidget* Finestra)
{
    const auto* Annuncio = Finestra->findChild<QWidget*>(u"annuncio"_s, Qt::FindDirectChildrenOnly);
    return Annuncio ? Annuncio->accessibleName() : QString();
}

}  // namespace

void TestAnnunci::ricerche_data()
{
    QTest::addColumn<QString>("Parola");
    QTest::addColumn<QString>("Casella");
    QTest::addColumn<QString>("Scritto");
    QTest::addColumn<QString>("Detto");
    QTest::newRow("address book") << u"clienti"_s << u"txtFiltro"_s << u"bia"_s << u"1 di 1"_s;
    QTest::newRow("address book, none") << u"clienti"_s << u"txtFiltro"_s << u"zzz"_s << u"0 di 1"_s;
    QTest::newRow("documents, none") << u"docum"_s << u"txtCerca"_s << u"zzzz"_s << u"0 di "_s;
    QTest::newRow("guide") << u"guida"_s << u"txtGuida"_s << u"iban"_s << u"risultat"_s;
    QTest::newRow("guide, none") << u"guida"_s << u"txtGuida"_s << u"zzzz"_s << u"Nessun risultato"_s;
    QTest::newRow("page, none") << u"guida"_s << u"txtCerca"_s << u"zzzz"_s << u"Nessun risultato"_s;
    QTest::newRow("finder") << u"open"_s << u"txtDesPar"_s << u"zzzz\n"_s << u"Non è stata trovata"_s;
}

void TestAnnunci::ricerche()
{
    QFETCH(QString, Parola);
    QFETCH(QString, Casella);
    QFETCH(QString, Scritto);
    QFETCH(QString, Detto);
    Registratore Box;
    if (Parola == u"open")
        Box.Attendi(u"Non è stata trovata alcuna parcella!"_s);
    const Finestre F;
    if (Parola == u"guida")
        ApriGuida(u"indice"_s);
    else
        EseguiComando(Parola, 0, {});
    Respiro();
    QWidget* Aperta = nullptr;
    for (QWidget* Finestra : QApplication::topLevelWidgets())
        if (Finestra->isVisible() && Finestra->findChild<QLineEdit*>(Casella))
            Aperta = Finestra;
    QVERIFY(Aperta && MostraAttiva(*Aperta));
    const auto Chiudi = qScopeGuard([&] { Aperta->close(); });
    if (Casella == u"txtCerca" && Parola == u"guida")
        QTest::keySequence(Aperta, QKeySequence(u"Ctrl+F"_s));
    Aperta->findChild<QLineEdit*>(Casella)->setFocus();
    // The viewer of the guide is one for all rows: what was said in it before counts for nothing.
    if (auto* Prima = Aperta->findChild<QWidget*>(u"annuncio"_s, Qt::FindDirectChildrenOnly))
        Prima->setAccessibleName({});
    Digita(Scritto.trimmed());
    if (Scritto.endsWith(u'\n'))
        Premi(Qt::Key_Return);
    QTRY_VERIFY2(Annunciato(Aperta).contains(Detto), qPrintable(Annunciato(Aperta)));
}

void TestAnnunci::rigaCheSvanisce()
{
    QWidget Finestra;
    auto* Riga = new RigaCheSvanisce(&Finestra);
    Finestra.show();
    Riga->Mostra(u"Salvata alle 10:42"_s);
    QCOMPARE(Annunciato(&Finestra), u"Salvata alle 10:42"_s);
}

#include "TestAnnunci.moc"
