// Where Tab leads in every window, written down in ordine/: a line a stop, from the first focus on. To write
// the files anew, set CALCANOVA_SCRIVI_ORDINE, and read what has changed.
#include "moduli.h"

#include <QDir>
#include <QFile>

using namespace Qt::StringLiterals;

class TestOrdineFuoco : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();
    void modulo_data() { RigheModuli(); }
    void modulo();
    void datiBase();

private:
    [[nodiscard]] QStringList Giro();
    static void Confronta(const QString& Nome, const QStringList& Incontrati);

    std::unique_ptr<Programma> P;
};
PROVA(TestOrdineFuoco);

void TestOrdineFuoco::init()
{
    P = std::make_unique<Programma>();
    QVERIFY2(P->NuovaParcella(), qPrintable(P->Stato()));
}

void TestOrdineFuoco::cleanup()
{
    P.reset();
}

/// The stops of Tab until the first one comes again.
QStringList TestOrdineFuoco::Giro()
{
    constexpr int Massimo = 80;
    QStringList Incontrati;
    for (int i = 0; i < Massimo; ++i) {
        const QString Qui = P->Fuoco();
        if (Incontrati.contains(Qui) && Qui == Incontrati.first())
            break;
        Incontrati += Qui;
        P->Premi(u"Tab"_s);
    }
    return Incontrati;
}

void TestOrdineFuoco::Confronta(const QString& Nome, const QStringList& Incontrati)
{
    QFile File(FileDiProva(u"video/ordine/"_s + Nome + u".txt"_s));
    if (qEnvironmentVariableIsSet("CALCANOVA_SCRIVI_ORDINE")) {
        QVERIFY(File.open(QIODevice::WriteOnly));
        File.write(Incontrati.join(u'\n').toUtf8() + '\n');
        return;
    }
    QVERIFY2(File.open(QIODevice::ReadOnly), qPrintable(File.fileName()));
    QCOMPARE(Incontrati, QString::fromUtf8(File.readAll()).split(u'\n', Qt::SkipEmptyParts));
}

void TestOrdineFuoco::modulo()
{
    QFETCH(QString, Nome);
    QFETCH(QString, Tasti);
    QFETCH(QString, Titolo);
    P->Premi(Tasti);
    QVERIFY2(P->Aperta(Titolo), qPrintable(P->Stato()));
    ATTENDI_CHE(!P->Fuoco().isEmpty());
    Confronta(Nome, Giro());
}

void TestOrdineFuoco::datiBase()
{
    ATTENDI_CHE(!P->Fuoco().isEmpty());
    Confronta(u"parcella_datibase"_s, Giro());
}

#include "TestOrdineFuoco.moc"
