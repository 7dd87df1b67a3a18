#include "tuttelefinestre.h"

#include "platform/kit/rigachesvanisce.h"

#include <QCheckBox>
#include <QLabel>

/// What a screen reader is told of results away from the focus; captions that tick their box.
class TestAnnunci : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void ricerche_data();
    void ricerche();
    void rigaCheSvanisce();
    void leDidascalieSpuntano();
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

/// Ticks without a text of their own have a caption beside them.
void TestAnnunci::leDidascalieSpuntano()
{
    int Provate = 0;
    QStringList Mute;
    Finestre F;
    F.Tutte([&](const QString& Nome, QWidget* Finestra) {
        for (auto* Casella : Finestra->findChildren<QCheckBox*>()) {
            if (!Casella->isVisible() || !Casella->isEnabled() || !Casella->text().isEmpty() ||
                Casella->window() != Finestra)
                continue;
            ++Provate;
            QLabel* Didascalia = nullptr;
            for (QLabel* Etichetta : Finestra->findChildren<QLabel*>())
                if (Etichetta->buddy() == Casella)
                    Didascalia = Etichetta;
            const bool Prima = Casella->isChecked();
            if (Didascalia)
                QTest::mouseClick(Didascalia, Qt::LeftButton);
            if (!Didascalia || Casella->isChecked() == Prima)
                Mute << Nome + u": "_s + Casella->objectName();
            else
                Casella->setChecked(Prima);
        }
    });
    NienteDi(Mute);
    QVERIFY2(Provate >= 4, qPrintable(QString::number(Provate)));
}

#include "TestAnnunci.moc"
