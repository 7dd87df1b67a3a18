// Signals to procedures, and the report of what they throw.
#include "platform/base/errore.h"
#include "platform/kit/collega.h"
#include "platform/kit/servizi_qt.h"
#include "supporto/prova.h"

#include <QCheckBox>
#include <QLineEdit>
#include <QPushButton>

#include <new>
#include <stdexcept>

using namespace Qt::StringLiterals;

namespace {

/// A form with event procedures.
class Modulo : public QObject
{
public:
    void cmdOk_Click() { ++Clic; }
    void chkIva_Click(bool Acceso) { Ultimo = Acceso; }
    int txtNome_Change(const QString& Testo)
    {
        Nome = Testo;
        return 1;
    }
    void cmdRotto_Click() { throw Errore(13); }

    int Clic = 0;
    bool Ultimo = false;
    QString Nome;
};

/// An object that throws at any event of its own.
class Scoppia : public QObject
{
public:
    bool event(QEvent*) override { throw Errore(91); }
};

/// The errors that InstallaUltimaRete is handed while it lives.
struct Rete
{
    Rete() : Precedente(InstallaUltimaRete([this](const Errore& E) { Numeri += E.Numero; })) {}
    ~Rete() { InstallaUltimaRete(Precedente); }
    Q_DISABLE_COPY_MOVE(Rete)
    QList<int> Numeri;

private:
    std::function<void(const Errore&)> Precedente;
};

}  // namespace

class TestCollega : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void chiamaConGliArgomentiCheServono();
    void membriDelModulo();
    void laReteRaccoglieGliErrori();
    void laReteTraduceLeAltreEccezioni();
    void finisceConIlContesto();
    void senzaReteSiScrive();
    void notifyRaccoglie();
};
PROVA(TestCollega);

void TestCollega::chiamaConGliArgomentiCheServono()
{
    QCheckBox Casella;
    int Senza = 0;
    QList<bool> Con;
    Collega(&Casella, &QCheckBox::clicked, this, [&] { ++Senza; });
    Collega(&Casella, &QCheckBox::clicked, this, [&](bool Acceso) { Con += Acceso; });
    Casella.click();
    Casella.click();
    QCOMPARE(Senza, 2);
    QCOMPARE(Con, QList<bool>({true, false}));
}

void TestCollega::membriDelModulo()
{
    Modulo M;
    QPushButton Ok;
    QCheckBox Iva;
    QLineEdit Nome;
    Collega(&Ok, &QPushButton::clicked, &M, &Modulo::cmdOk_Click);
    Collega(&Iva, &QAbstractButton::clicked, &M, &Modulo::chkIva_Click);
    Collega(&Nome, &QLineEdit::textChanged, &M, &Modulo::txtNome_Change);
    Ok.click();
    Iva.click();
    Nome.setText(u"Rossi"_s);
    QCOMPARE(M.Clic, 1);
    QVERIFY(M.Ultimo);
    QCOMPARE(M.Nome, u"Rossi"_s);
}

void TestCollega::laReteRaccoglieGliErrori()
{
    Rete R;
    Modulo M;
    QPushButton Rotto;
    Collega(&Rotto, &QPushButton::clicked, &M, &Modulo::cmdRotto_Click);
    Collega(&Rotto, &QPushButton::clicked, &M, &Modulo::cmdOk_Click);
    Rotto.click();
    QCOMPARE(R.Numeri, QList<int>{13});
    QVERIFY2(M.Clic == 1, "le altre procedure dello stesso segnale vanno avanti");
}

void TestCollega::laReteTraduceLeAltreEccezioni()
{
    Rete R;
    QPushButton Tasto;
    bool Memoria = true;
    Collega(&Tasto, &QPushButton::clicked, this, [&] {
        if (Memoria)
            throw std::bad_alloc();
        throw std::runtime_error("altro");
    });
    Tasto.click();
    Memoria = false;
    Tasto.click();
    QCOMPARE(R.Numeri, QList<int>({7, 1000}));
}

void TestCollega::finisceConIlContesto()
{
    QPushButton Tasto;
    int Volte = 0;
    {
        QObject Contesto;
        Collega(&Tasto, &QPushButton::clicked, &Contesto, [&] { ++Volte; });
        Tasto.click();
    }
    Tasto.click();
    QCOMPARE(Volte, 1);
}

void TestCollega::senzaReteSiScrive()
{
    const auto Precedente = InstallaUltimaRete({});
    QPushButton Tasto;
    Collega(&Tasto, &QPushButton::clicked, this, [] { throw Errore(5, u"Argomento strano"_s); });
    QTest::ignoreMessage(QtCriticalMsg, "Errore: Argomento strano 5");
    Tasto.click();
    InstallaUltimaRete(Precedente);
}

void TestCollega::notifyRaccoglie()
{
    Rete R;
    Scoppia S;
    QEvent Evento(QEvent::User);
    QVERIFY(!QCoreApplication::sendEvent(&S, &Evento));
    QCOMPARE(R.Numeri, QList<int>{91});
}

#include "TestCollega.moc"
