// "Porta nella parcella": what goes, where it goes, and when it cannot.
#include "banco.h"

#include "calculators/windows/frmContrib.h"

#include <QCheckBox>
#include <QMenu>

using namespace Qt::StringLiterals;

namespace {

const QDate Oggi_(2026, 11, 21);

QString TestoPortato(const QList<SpesaDiLegge>& Spese)
{
    QStringList Parti;
    for (const SpesaDiLegge& Spesa : Spese)
        Parti
            << u"%1 %2 %3"_s.arg(int(Spesa.Voce)).arg(Spesa.Euro).arg(Spesa.Giorno.toString(u"dd/MM/yyyy"_s));
    return Parti.join(u"; "_s);
}

}  // namespace

class TestPortaNota : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();
    void senzaParcelle();
    void daOgniCasella_data();
    void daOgniCasella();
    void senzaAnticipazione();
    void unValoreAppenaScritto();
    void conIlTasto();
    void fraPiuParcelle();
    void fraPiuParcelleSiPuoRinunciare();
    void unaNotaCheSiApreESiChiude();
    void ilPannelloInVigore_data();
    void ilPannelloInVigore();
    void ilPannelloSenzaImporto();
    void ilPannelloDiceCheCosaRestaFuori();
    void ordineDelTabulatore();
    void senzaNorme();
    void laRigaDiceDove();
    void laRigaDicePercheNo();
    void nienteSiSposta();
    void nomi();

private:
    [[nodiscard]] static QByteArray Nome(const char* Radice, int Indice)
    {
        return QByteArray(Radice) + '_' + QByteArray::number(Indice);
    }
    [[nodiscard]] QToolButton* Porta(int Indice) const
    {
        return Controllo<QToolButton>(F, Nome("cmdPorta", Indice).constData());
    }
    void Valore(int Indice, const QString& Testo) const
    {
        Scrivi(F, Nome("txtValore", Indice), Testo);
        Controllo(F, "cmdSkImpugn")->setFocus();
    }
    [[nodiscard]] QString Detto() const
    {
        const auto* Riga = Controllo<QLabel>(F, "lblPortata");
        return Riga->isVisible() ? Riga->text() : QString();
    }

    std::unique_ptr<Banco> B;
    QPointer<frmContrib> F;
    QList<NotaInVista> Note;
    QStringList Portati;  ///< "place: expenses"
    QString Rifiuto;
};
PROVA(TestPortaNota);

void TestPortaNota::init()
{
    B = std::make_unique<Banco>();
    Note = {{1, 11, u"rossi & c."_s}};
    Portati.clear();
    Rifiuto.clear();
    Aperture.NoteInVista = [this] { return Note; };
    Aperture.PortaSpese = [this](const NotaInVista& Dove, const QList<SpesaDiLegge>& Spese) {
        if (Rifiuto.isEmpty())
            Portati << u"%1/%2: "_s.arg(Dove.Indice).arg(Dove.Numero) + TestoPortato(Spese);
        return Rifiuto;
    };
    F = Apri<frmContrib>();
    QVERIFY(F);
}

void TestPortaNota::cleanup()
{
    B.reset();
}

void TestPortaNota::senzaParcelle()
{
    Note.clear();
    Valore(0, u"30000"_s);
    for (int i = 0; i < CampiContributo; ++i) {
        QVERIFY(!Porta(i)->isEnabled());
        QCOMPARE(Porta(i)->toolTip(), u"Porta nella parcella: nessuna parcella è aperta"_s);
    }
    QVERIFY(!Controllo(F, "chkAnticipazione")->isEnabled());
    Aperture.NoteInVista = {};
    Valore(0, u"40000"_s);
    QVERIFY(!Porta(0)->isEnabled());
}

void TestPortaNota::daOgniCasella_data()
{
    QTest::addColumn<int>("Indice");
    QTest::addColumn<QString>("Portato");
    const QString Con = u"; 2 27 21/11/2026"_s;
    QTest::newRow("ordinario") << 0 << u"1/11: 1 518 21/11/2026"_s + Con;
    QTest::newRow("procedimenti speciali") << 1 << u"1/11: 1 259 21/11/2026"_s + Con;
    QTest::newRow("sfratto") << 2 << u"1/11: 1 259 21/11/2026"_s + Con;
    QTest::newRow("finita locazione") << 3 << u"1/11: 1 259 21/11/2026"_s + Con;
    QTest::newRow("tributario, senza anticipazione") << 4 << u"1/11: 1 250 21/11/2026"_s;
}

void TestPortaNota::daOgniCasella()
{
    QFETCH(int, Indice);
    QFETCH(QString, Portato);
    QVERIFY(!Porta(Indice)->isEnabled());
    Valore(Indice, u"30000"_s);
    QVERIFY(Porta(Indice)->isEnabled());
    QCOMPARE(Porta(Indice)->toolTip(), u"Porta nella parcella, fra le spese esenti"_s);
    Clic(Porta(Indice));
    QCOMPARE(Portati, QStringList({Portato}));
}

void TestPortaNota::senzaAnticipazione()
{
    auto* Con = Controllo<QCheckBox>(F, "chkAnticipazione");
    QVERIFY(Con->isChecked());
    Clic(Con);
    Valore(0, u"30000"_s);
    Clic(Porta(0));
    QCOMPARE(Portati, QStringList({u"1/11: 1 518 21/11/2026"_s}));
}

/// The click leaves the box, which reckons the fee.
void TestPortaNota::unValoreAppenaScritto()
{
    Scrivi(F, "txtValore_0", u"1100,01"_s);
    QVERIFY(Porta(0)->isEnabled());
    Clic(Porta(0));
    QCOMPARE(Portati, QStringList({u"1/11: 1 98 21/11/2026; 2 27 21/11/2026"_s}));
}

void TestPortaNota::conIlTasto()
{
    Valore(0, u"30000"_s);
    Controllo(F, "cmdCopia_0")->setFocus();
    Premi(Qt::Key_Tab);
    QCOMPARE(NomeFuoco(), u"cmdPorta_0"_s);
    Premi(Qt::Key_Return);
    QCOMPARE(Portati.size(), 1);
}

void TestPortaNota::fraPiuParcelle()
{
    Note = {{2, 12, u"verdi"_s}, {1, 11, u"rossi & c."_s}};
    Valore(0, u"30000"_s);
    for (const int Scelta : {0, 1}) {
        Portati.clear();
        Clic(Porta(0));
        auto* Menu = F->findChild<QMenu*>(u"menuNote"_s);
        QVERIFY(Menu && Menu->isVisible());
        QCOMPARE(Menu->actions().size(), 2);
        QCOMPARE(Menu->actions()[0]->text(), u"verdi"_s);
        QCOMPARE(Menu->actions()[1]->text(), u"rossi && c."_s);
        QCOMPARE(Menu->activeAction(), Menu->actions()[0]);
        if (Scelta == 1)
            QTest::keyClick(Menu, Qt::Key_Down);
        QTest::keyClick(Menu, Qt::Key_Return);
        const QString Dove = Scelta == 0 ? u"2/12"_s : u"1/11"_s;
        QCOMPARE(Portati, QStringList({Dove + u": 1 518 21/11/2026; 2 27 21/11/2026"_s}));
        Respiro();
    }
}

void TestPortaNota::fraPiuParcelleSiPuoRinunciare()
{
    Note = {{2, 12, u"verdi"_s}, {1, 11, u"rossi"_s}};
    Valore(0, u"30000"_s);
    Clic(Porta(0));
    auto* Menu = F->findChild<QMenu*>(u"menuNote"_s);
    QVERIFY(Menu);
    QTest::keyClick(Menu, Qt::Key_Escape);
    QVERIFY(Portati.isEmpty());
    QCOMPARE(Detto(), QString());
}

/// The buttons follow what happens beside the window.
void TestPortaNota::unaNotaCheSiApreESiChiude()
{
    Valore(0, u"30000"_s);
    QVERIFY(Porta(0)->isEnabled());
    Note.clear();
    Controllo(F, "txtValore_0")->setFocus();  // the focus moves when a window closes
    QVERIFY(!Porta(0)->isEnabled());
    Note = {{1, 13, u"bianchi"_s}};
    Controllo(F, "txtValore_1")->setFocus();
    QVERIFY(Porta(0)->isEnabled());
    // Gone between the sight and the click: nothing is brought anywhere.
    Note.clear();
    Porta(0)->click();
    QVERIFY(Portati.isEmpty());
    QVERIFY(!Porta(0)->isEnabled());
}

void TestPortaNota::ilPannelloInVigore_data()
{
    QTest::addColumn<QString>("Deposito");
    QTest::addColumn<bool>("Notifiche");
    QTest::addColumn<QString>("Portato");
    QTest::newRow("oggi") << QString() << true << u"1/11: 1 518 21/11/2026; 2 27 21/11/2026"_s;
    QTest::newRow("senza notifiche") << QString() << false << u"1/11: 1 518 21/11/2026"_s;
    QTest::newRow("nel 2013, con gli importi di allora")
        << u"05/03/2013"_s << true << u"1/11: 1 450 05/03/2013; 2 8 05/03/2013"_s;
}

void TestPortaNota::ilPannelloInVigore()
{
    QFETCH(QString, Deposito);
    QFETCH(bool, Notifiche);
    QFETCH(QString, Portato);
    Scegli(F, "cmbNorme", 1);
    auto* Bottone = Controllo<QToolButton>(F, "cmdPortaVigente");
    QVERIFY(!Bottone->isEnabled());
    if (!Deposito.isEmpty())
        Scrivi(F, "mskDeposito", Deposito);
    Scrivi(F, "txtValoreVigente", u"30000"_s);
    if (!Notifiche)
        Clic(Controllo(F, "chkNotifiche"));
    QVERIFY(Bottone->isEnabled());
    Clic(Bottone);
    QCOMPARE(Portati, QStringList({Portato}));
}

void TestPortaNota::ilPannelloSenzaImporto()
{
    Scegli(F, "cmbNorme", 1);
    Scrivi(F, "txtValoreVigente", u"30000"_s);
    auto* Bottone = Controllo<QToolButton>(F, "cmdPortaVigente");
    QVERIFY(Bottone->isEnabled());
    Scrivi(F, "txtValoreVigente", QString());
    QVERIFY(!Bottone->isEnabled());
}

/// In cassation the amount in all holds a tax that is none of the items brought.
void TestPortaNota::ilPannelloDiceCheCosaRestaFuori()
{
    Scegli(F, "cmbNorme", 1);
    Scrivi(F, "txtValoreVigente", u"30000"_s);
    Scegli(F, "cmbGrado", 2);
    QVERIFY(TestoDi(F, "lblTotaleVigente").startsWith(u"In tutto 1.263,00 "));
    Clic(Controllo(F, "cmdPortaVigente"));
    QCOMPARE(Portati, QStringList({u"1/11: 1 1036 21/11/2026; 2 27 21/11/2026"_s}));
    QCOMPARE(Detto(), u"Portato in «rossi & c.»: contributo 1.036,00, anticipazione 27,00; resta fuori "
                      "l'imposta di registro, 200,00"_s);
}

/// Tab meets the new controls where they stand.
void TestPortaNota::ordineDelTabulatore()
{
    QCOMPARE(OrdineTab(Controllo(F, "cmdVisual_1"), 3),
             QStringList({u"cmdVisual_1"_s, u"chkAnticipazione"_s, u"cmbNorme"_s}));
    Scegli(F, "cmbNorme", 1);
    Scrivi(F, "txtValoreVigente", u"30000"_s);
    Controllo(F, "chkNotifiche")->setFocus();
    QStringList Incontrati;
    for (int i = 0; i < 3; ++i) {
        Premi(Qt::Key_Tab);
        Incontrati << NomeFuoco();
    }
    QCOMPARE(Incontrati, QStringList({u"cmdCopiaVigente"_s, u"cmdPortaVigente"_s, u"tdbVigente"_s}));
}

/// The fee of the page needs no norms; the sum that stands in them stays out.
void TestPortaNota::senzaNorme()
{
    sessione::PercorsoProg = NuovaCartella();
    Valore(0, u"30000"_s);
    Clic(Porta(0));
    QCOMPARE(Portati, QStringList({u"1/11: 1 518 21/11/2026"_s}));
    QVERIFY(B->Voce.Mostrati().isEmpty());
}

void TestPortaNota::laRigaDiceDove()
{
    Valore(0, u"30000"_s);
    QCOMPARE(Detto(), QString());
    Clic(Porta(0));
    QCOMPARE(Detto(), u"Portato in «rossi & c.»: contributo 518,00, anticipazione 27,00"_s);
    QVERIFY(F->isVisible());
    QVERIFY(B->Voce.Mostrati().isEmpty());
}

void TestPortaNota::laRigaDicePercheNo()
{
    Rifiuto = u"prima completare i dati base"_s;
    Valore(4, u"30000"_s);
    Clic(Porta(4));
    QCOMPARE(Detto(), u"Non portato in «rossi & c.»: prima completare i dati base"_s);
}

void TestPortaNota::nienteSiSposta()
{
    Valore(0, u"30000"_s);
    const QRect Pagina = Controllo(F, "Picture1")->geometry();
    Clic(Porta(0));
    Respiro();
    QVERIFY(!Detto().isEmpty());
    QCOMPARE(Controllo(F, "Picture1")->geometry(), Pagina);
}

void TestPortaNota::nomi()
{
    QSet<QString> Visti;
    for (int i = 0; i < CampiContributo; ++i) {
        QVERIFY(Porta(i)->accessibleName().startsWith(u"Porta nella parcella, "));
        QVERIFY(!Porta(i)->icon().isNull());
        Visti.insert(Porta(i)->accessibleName());
    }
    QCOMPARE(Visti.size(), qsizetype(CampiContributo));
    QVERIFY(SenzaNome(F).isEmpty());
}

#include "TestPortaNota.moc"
