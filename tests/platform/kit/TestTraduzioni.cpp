// What the toolkit says by itself is Italian.
#include "platform/kit/traduzioni.h"
#include "supporto/finestre.h"
#include "supporto/prova.h"

#include <QAbstractButton>
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QPrintDialog>
#include <QPrinter>

using namespace Qt::StringLiterals;

class TestTraduzioni : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void ilDialogoDiStampa();
};
PROVA(TestTraduzioni);

namespace {

QStringList Scritte(const QWidget& Dialogo)
{
    QStringList Lette;
    for (const auto* Etichetta : Dialogo.findChildren<QLabel*>())
        Lette += Etichetta->text();
    for (const auto* Bottone : Dialogo.findChildren<QAbstractButton*>())
        Lette += Bottone->text();
    for (const auto* Gruppo : Dialogo.findChildren<QGroupBox*>())
        Lette += Gruppo->title();
    for (const auto* Lista : Dialogo.findChildren<QComboBox*>())
        for (int i = 0; i < Lista->count(); ++i)
            Lette += Lista->itemText(i);
    return Lette;
}

}  // namespace

void TestTraduzioni::ilDialogoDiStampa()
{
    InstallaTraduzioni();
    QPrinter Stampante;
    QPrintDialog Dialogo(&Stampante);
    Dialogo.setOption(QAbstractPrintDialog::PrintCurrentPage);
    const QStringList Lette = Scritte(Dialogo);
    for (const QString& Attesa : {u"Pagine"_s, u"Pagine da"_s, u"Pagina corrente"_s, u"Stampa fronte-retro"_s,
                                  u"No"_s, u"Rilegatura sul lato lungo"_s, u"Rilegatura sul lato corto"_s})
        QVERIFY2(Lette.contains(Attesa), qPrintable(Attesa + u" in "_s + Lette.join(u'|')));
    for (const QString& Inglese : {u"Pages"_s, u"Off"_s, u"Print"_s, u"Long side binding"_s})
        QVERIFY2(!Lette.contains(Inglese), qPrintable(Inglese));
}

#include "TestTraduzioni.moc"
