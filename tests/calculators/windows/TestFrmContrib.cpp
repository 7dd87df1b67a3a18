// The window of the filing fee: values and fees, what the page shows, its two halves, the documents.
#include "banco.h"

#include "calculators/paginacontributo.h"
#include "calculators/ultimicalcoli.h"
#include "calculators/windows/frmContrib.h"
#include "platform/kit/aspetto.h"
#include "platform/system/file.h"

#include <QScrollBar>
#include <QWheelEvent>

using namespace Qt::StringLiterals;

class TestFrmContrib : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();
    void comeSiApre();
    void paginaIntera();
    void contributi_data();
    void contributi();
    void uscireCalcolaTutti();
    void vuotoSvuotaMenoIlTributario();
    void soloTastiDelFiltro();
    void testoCheNonENumero();
    void invioVaAvanti();
    void nuovoCalcolo();
    void valoreAMetaNonSiRicorda();
    void barraADueMete();
    void finestraPiccolaMostraTutto();
    void rotella();
    void barraInPassoConLaPagina();
    void nienteDaCopiare();
    void schedaSenzaLettore();
    void attivazione();
    void documenti();
    void schedaMancante();
    void copie();
    void accessibile();
    void ricordaIlPosto();

private:
    [[nodiscard]] static QByteArray Nome(const char* Radice, int Indice)
    {
        return QByteArray(Radice) + '_' + QByteArray::number(Indice);
    }
    /// Types a value and leaves the box.
    void Valore(int Indice, const QString& Testo) const
    {
        Scrivi(F, Nome("txtValore", Indice), Testo);
        Controllo(F, "cmdSkImpugn")->setFocus();
    }
    [[nodiscard]] QString Contributo(int Indice) const { return TestoDi(F, Nome("lblContr", Indice)); }
    [[nodiscard]] int Alto() const { return Controllo(F, "fraContrib")->y(); }

    std::unique_ptr<Banco> B;
    QPointer<frmContrib> F;
};
PROVA(TestFrmContrib);

void TestFrmContrib::init()
{
    B = std::make_unique<Banco>();
    F = Apri<frmContrib>();
    QVERIFY(F);
}

void TestFrmContrib::cleanup()
{
    B.reset();
    QVERIFY(!F);
}

void TestFrmContrib::comeSiApre()
{
    QCOMPARE(F->windowTitle(), u"Calcolo contributo unificato"_s);
    QCOMPARE(TestoDi(F, "lblTitolo"), u"CONTRIBUTO UNIFICATO"_s);
    QCOMPARE(TestoDi(F, "lblNorma"),
             u"D.p.r. n. 115 del 30 maggio 2002 - importi aggiornati al D.L. n. 90 del "
             "24/6/2014, in vigore dal 24 giugno 2014"_s);
    QCOMPARE(NomeFuoco(), u"txtValore_0"_s);
    QCOMPARE(Alto(), aspetto::Pixel(-40));
    for (int i = 0; i < CampiContributo; ++i)
        QCOMPARE(Contributo(i), QString());
}

void TestFrmContrib::paginaIntera()
{
    QStringList Scritte;
    for (const QLabel* Una : Controllo(F, "fraContrib")->findChildren<QLabel*>())
        Scritte << QString(Una->text()).remove(u'&');
    for (const SezionePagina& Sezione : PaginaContributo()) {
        QVERIFY(Scritte.contains(Sezione.Titolo.toString()));
        for (const VocePagina& Voce : Sezione.Voci) {
            const QString Testo = Voce.Testo.toString().replace(u" \n"_s, u" "_s).replace(u'\n', u' ');
            QVERIFY2(Testo.isEmpty() || Scritte.contains(Testo), qPrintable(Testo));
            QVERIFY(Voce.Contributo.isEmpty() || Scritte.contains(Voce.Contributo.toString()));
        }
    }
    QVERIFY(Scritte.contains(u"- Valore compreso tra € 200.00 e € 1.000.000"_s));
    QCOMPARE(Scritte.count(u"Valore:"_s), CampiContributo);
    QCOMPARE(Scritte.count(u"Contributo:"_s), CampiContributo);
    const QStringList Attese{u"Impugnazioni e cassazione"_s, u"Visualizza Tabella"_s, u"Visualizza Decreto"_s,
                             u"Nuovo calcolo"_s};
    QCOMPARE(SenzaDidascalia(F, Attese).join(u" | "_s), QString());
}

void TestFrmContrib::contributi_data()
{
    QTest::addColumn<int>("Indice");
    QTest::addColumn<QString>("Scritto");
    QTest::addColumn<QString>("Lasciato");
    QTest::addColumn<QString>("Atteso");
    QTest::newRow("prima fascia") << 0 << u"1100"_s << u"1.100,00"_s << u"43,00"_s;
    QTest::newRow("seconda fascia") << 0 << u"1100,01"_s << u"1.100,01"_s << u"98,00"_s;
    QTest::newRow("mezzo centesimo al pari") << 0 << u"1100,005"_s << u"1.100,00"_s << u"43,00"_s;
    QTest::newRow("penultima fascia") << 0 << u"520000"_s << u"520.000,00"_s << u"1.214,00"_s;
    QTest::newRow("ultima fascia") << 0 << u"520000,01"_s << u"520.000,01"_s << u"1.686,00"_s;
    QTest::newRow("ridotto") << 1 << u"1000"_s << u"1.000,00"_s << u"21,50"_s;
    QTest::newRow("ridotto, sfratto") << 2 << u"1.000"_s << u"1.000,00"_s << u"21,50"_s;
    QTest::newRow("ridotto, finita locazione") << 3 << u"300000"_s << u"300.000,00"_s << u"607,00"_s;
    QTest::newRow("tributario, ultimo della prima") << 4 << u"2582,28"_s << u"2.582,28"_s << u"30,00"_s;
    QTest::newRow("tributario, primo della seconda") << 4 << u"2582,29"_s << u"2.582,29"_s << u"60,00"_s;
}

void TestFrmContrib::contributi()
{
    QFETCH(int, Indice);
    QFETCH(QString, Scritto);
    QFETCH(QString, Lasciato);
    QFETCH(QString, Atteso);
    Valore(Indice, Scritto);
    QCOMPARE(TestoDi(F, Nome("txtValore", Indice)), Lasciato);
    QCOMPARE(Contributo(Indice), Atteso);
    // A second leaving finds the text that it wrote itself.
    Controllo(F, Nome("txtValore", Indice))->setFocus();
    Controllo(F, "cmdSkImpugn")->setFocus();
    QCOMPARE(Contributo(Indice), Atteso);
}

void TestFrmContrib::uscireCalcolaTutti()
{
    Controllo<QLineEdit>(F, "txtValore_3")->setText(u"5000"_s);
    Valore(0, u"1000"_s);
    QCOMPARE(Contributo(0), u"43,00"_s);
    QCOMPARE(Contributo(3), u"49,00"_s);
}

void TestFrmContrib::vuotoSvuotaMenoIlTributario()
{
    Valore(0, u"1000"_s);
    Valore(4, u"1000"_s);
    Valore(0, {});
    QCOMPARE(Contributo(0), QString());
    QCOMPARE(TestoDi(F, "txtValore_0"), QString());
    Valore(4, {});
    QCOMPARE(Contributo(4), u"30,00"_s);
}

void TestFrmContrib::soloTastiDelFiltro()
{
    Scrivi(F, "txtValore_0", u"1a 2/3-,.x"_s);
    QCOMPARE(TestoDi(F, "txtValore_0"), u"123-,."_s);
    Scrivi(F, "txtValore_0", {});
    Digita(u"5"_s);
    Digita(u"."_s, Qt::KeypadModifier);
    QCOMPARE(TestoDi(F, "txtValore_0"), u"5,"_s);
    Scrivi(F, "txtValore_0", {});
}

void TestFrmContrib::testoCheNonENumero()
{
    Valore(0, u"1000"_s);
    Valore(2, u"1000"_s);
    Controllo<QLineEdit>(F, "txtValore_0")->setText(u"300000"_s);
    B->Voce.Attendi(u"Errore: Tipo di dato non corrispondente (13)"_s, vbOK, u"Errore:"_s);
    Valore(1, u"1-2"_s);
    QCOMPARE(TestoDi(F, "txtValore_1"), u"1-2"_s);
    QCOMPARE(Contributo(0), u"1.214,00"_s);
    QCOMPARE(Contributo(1), QString());
    QCOMPARE(Contributo(2), u"21,50"_s);
    Valore(1, u"12"_s);
    QCOMPARE(Contributo(1), u"21,50"_s);
}

// From value to value with nothing but the keyboard; no Enter copies, none opens a document.
void TestFrmContrib::invioVaAvanti()
{
    QApplication::clipboard()->setText(u"di prima"_s);
    for (int i = 0; i < CampiContributo; ++i) {
        QCOMPARE(NomeFuoco(), QString::fromLatin1(Nome("txtValore", i)));
        Digita(u"1000"_s);
        Premi(Qt::Key_Return);
        QVERIFY(!Contributo(i).isEmpty());
    }
    QCOMPARE(NomeFuoco(), u"txtValore_0"_s);
    QCOMPARE(Appunti(), u"di prima"_s);
    QVERIFY(B->Aperti.isEmpty());
}

void TestFrmContrib::nuovoCalcolo()
{
    for (int i = 0; i < CampiContributo; ++i)
        Valore(i, u"1000"_s);
    DalMenu(F, "mnuNew");
    for (int i = 0; i < CampoTributario; ++i) {
        QCOMPARE(TestoDi(F, Nome("txtValore", i)), QString());
        QCOMPARE(Contributo(i), QString());
    }
    QCOMPARE(TestoDi(F, "txtValore_4"), u"1.000,00"_s);
    QCOMPARE(Contributo(4), u"30,00"_s);
    QCOMPARE(B->Campanelli, 1);
    QCOMPARE(NomeFuoco(), u"txtValore_0"_s);
}

void TestFrmContrib::barraADueMete()
{
    auto* Barra = Controllo<QScrollBar>(F, "VScroll1");
    F->resize(1180, 640);
    Respiro();
    Barra->setValue(Barra->minimum() + 1);
    QCOMPARE(Barra->value(), Barra->maximum());
    QCOMPARE(Alto(), aspetto::Pixel(-4100));
    Barra->setValue(Barra->maximum() - 1);
    QCOMPARE(Barra->value(), Barra->minimum());
    QCOMPARE(Alto(), aspetto::Pixel(-40));
    QTest::keyClick(Barra, Qt::Key_Down);
    QCOMPARE(Barra->value(), Barra->maximum());
    QTest::keyClick(Barra, Qt::Key_PageUp);
    QCOMPARE(Barra->value(), Barra->minimum());
}

void TestFrmContrib::finestraPiccolaMostraTutto()
{
    F->resize(910, 460);
    Respiro();
    const auto* Pagina = Controllo(F, "fraContrib");
    const int Vista = Controllo(F, "Picture1")->height();
    QCOMPARE(Pagina->width(), Controllo(F, "Picture1")->width());
    auto* Barra = Controllo<QScrollBar>(F, "VScroll1");
    Barra->setValue(1);
    QVERIFY(Alto() < aspetto::Pixel(-4100));
    QCOMPARE(Alto() + Pagina->height(), Vista);
    // A field out of view comes into it with the focus.
    auto* Primo = Controllo(F, "txtValore_0");
    Barra->setFocus();
    Primo->setFocus();
    QVERIFY(Primo->mapTo(F, QPoint()).y() >= Controllo(F, "Picture1")->y());
    auto* Ultimo = Controllo(F, "txtValore_4");
    Ultimo->setFocus();
    QVERIFY(Ultimo->mapTo(Controllo(F, "Picture1"), QPoint(0, Ultimo->height())).y() <= Vista);
}

void TestFrmContrib::rotella()
{
    F->resize(910, 460);
    Respiro();
    auto* Vista = Controllo(F, "Picture1");
    const int Prima = Alto();
    for (int i = 0; i < 200; ++i) {
        QWheelEvent Giu(QPointF(10, 10), Vista->mapToGlobal(QPointF(10, 10)), QPoint(), QPoint(0, -120),
                        Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
        QCoreApplication::sendEvent(Vista, &Giu);
        if (i == 0)
            QVERIFY(Alto() < Prima && Alto() > Prima - Vista->height());
    }
    QCOMPARE(Alto() + Controllo(F, "fraContrib")->height(), Vista->height());
}

// Wheel and focus move the page: the bar goes with it, and each of its arrows still has a way to go.
void TestFrmContrib::barraInPassoConLaPagina()
{
    F->resize(910, 460);
    Respiro();
    auto* Vista = Controllo(F, "Picture1");
    auto* Barra = Controllo<QScrollBar>(F, "VScroll1");
    const int InCima = Alto();
    const auto Rotella = [Vista](int Gradi) {
        QWheelEvent Giro(QPointF(10, 10), Vista->mapToGlobal(QPointF(10, 10)), QPoint(), QPoint(0, Gradi),
                         Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
        QCoreApplication::sendEvent(Vista, &Giro);
    };
    Rotella(-120);
    QVERIFY(Barra->value() > Barra->minimum() && Barra->value() < Barra->maximum());
    Barra->triggerAction(QAbstractSlider::SliderSingleStepSub);
    QCOMPARE(Alto(), InCima);
    QCOMPARE(Barra->value(), Barra->minimum());
    for (int i = 0; i < 200; ++i)
        Rotella(-120);
    const int InFondo = Alto();
    QCOMPARE(Barra->value(), Barra->maximum());
    Barra->triggerAction(QAbstractSlider::SliderSingleStepSub);
    QCOMPARE(Alto(), InCima);
    Controllo(F, "txtValore_4")->setFocus();
    QVERIFY(Barra->value() > Barra->minimum());
    Barra->triggerAction(QAbstractSlider::SliderSingleStepAdd);
    QCOMPARE(Alto(), InFondo);
    QCOMPARE(Barra->value(), Barra->maximum());
}

void TestFrmContrib::nienteDaCopiare()
{
    const auto* Copia = Controllo(F, "cmdCopia_1");
    QVERIFY(!Copia->isEnabled());
    Scrivi(F, "txtValore_1", u"1000"_s);
    QVERIFY2(Copia->isEnabled(), "the click that copies computes the fee first");
    Scrivi(F, "txtValore_1", {});
    Controllo(F, "txtValore_0")->setFocus();
    QVERIFY(!Copia->isEnabled());
}

void TestFrmContrib::schedaSenzaLettore()
{
    const QString Cartella = sessione::PercorsoProg = NuovaCartella();
    QVERIFY(QDir().mkpath(Cartella + u"docum"_s));
    ScriviFile(Cartella + u"docum/SchedaImpugnazioni.pdf"_s, "%PDF");
    B->Lettore = false;
    B->Voce.Attendi(u"Percorso Acrobat reader non trovato!"_s, vbOK, u"Errore:"_s);
    Controllo<QPushButton>(F, "cmdSkImpugn")->click();
    QCOMPARE(B->Aperti, QStringList{u"pdf SchedaImpugnazioni.pdf"_s});
}

// Coming back from another window of the program begins anew; from a message one goes on where one was.
void TestFrmContrib::attivazione()
{
    QWidget Altra;
    Controllo(F, "txtValore_2")->setFocus();
    QVERIFY(MostraAttiva(Altra));
    QVERIFY(MostraAttiva(*F));
    QTRY_COMPARE(NomeFuoco(), u"txtValore_0"_s);
    Controllo(F, "txtValore_2")->setFocus();
    QDialog Messaggio(F);
    Messaggio.setModal(true);
    QVERIFY(MostraAttiva(Messaggio));
    Messaggio.hide();
    QVERIFY(MostraAttiva(*F));
    QTRY_COMPARE(NomeFuoco(), u"txtValore_2"_s);
}

void TestFrmContrib::documenti()
{
    const QString Cartella = sessione::PercorsoProg = NuovaCartella();
    QVERIFY(QDir().mkpath(Cartella + u"docum"_s));
    ScriviFile(Cartella + u"docum/SchedaImpugnazioni.pdf"_s, "%PDF");
    for (const char* Uno : {"cmdSkImpugn", "cmdVisual_0", "cmdVisual_1"}) {
        Controllo(F, Uno)->setFocus();
        Premi(Qt::Key_Return);
    }
    QCOMPARE(
        B->Aperti,
        (QStringList{u"pdf SchedaImpugnazioni.pdf"_s,
                     u"pagina %1docum/Tabella contributo unificato.htm | "
                     "KR6 - Contributo unificato - Tabella"_s.arg(Cartella),
                     u"pagina %1docum/D.P.R. n. 115 del 30.5.2002 (stralcio, contributo unificato).htm | "
                     "KR6 - Contributo unificato - Decreto"_s.arg(Cartella)}));
}

void TestFrmContrib::schedaMancante()
{
    const QString Cartella = sessione::PercorsoProg = NuovaCartella();
    B->Voce.Attendi(u"Documento %1docum/SchedaImpugnazioni.pdf non trovato!"_s.arg(Cartella));
    Controllo<QPushButton>(F, "cmdSkImpugn")->click();
    QVERIFY(QDir().mkpath(Cartella + u"docum"_s));
    ScriviFile(Cartella + u"docum/SchedaImpugnazioni.pdf"_s, "%PDF");
    B->Esito = 31;
    B->Voce.Tollera();
    Controllo<QPushButton>(F, "cmdSkImpugn")->click();
    QVERIFY(B->Voce.UltimoTesto().endsWith(u"(31)"));
}

void TestFrmContrib::copie()
{
    Valore(0, u"1000"_s);
    Valore(3, u"300000"_s);
    Controllo(F, "txtValore_3")->setFocus();
    CopiaConTasti();
    QCOMPARE(Appunti(), u"607,00"_s);
    // A click on the button leaves the value, which computes it.
    Scrivi(F, "txtValore_0", u"1200"_s);
    QTest::mouseClick(Controllo<QToolButton>(F, "cmdCopia_0"), Qt::LeftButton);
    QCOMPARE(Appunti(), u"98,00"_s);
    QTest::mouseClick(Controllo<QToolButton>(F, "cmdCopia_3"), Qt::LeftButton);
    QCOMPARE(Appunti(), u"607,00"_s);
}

void TestFrmContrib::accessibile()
{
    QCOMPARE(SenzaNome(F).join(u", "_s), QString());
    QSet<QString> Nomi;
    for (int i = 0; i < CampiContributo; ++i)
        Nomi << Controllo(F, Nome("txtValore", i))->accessibleName();
    QCOMPARE(Nomi.size(), CampiContributo);
    Valore(1, u"1000"_s);
    QCOMPARE(Controllo(F, "txtValore_1")->accessibleDescription(), u"Contributo: 21,50"_s);
    QVERIFY(F->minimumSizeHint().width() <= 910);
    QVERIFY(F->minimumSizeHint().height() <= 470);
}

void TestFrmContrib::ricordaIlPosto()
{
    QCOMPARE(Riaperta(F, QPoint(10, 50)), QPoint(10, 50));
    QCOMPARE(TestoDi(F, "txtValore_0"), QString());
}

/// The fee on view is that of the value before: the list keeps neither the two together nor the half value.
void TestFrmContrib::valoreAMetaNonSiRicorda()
{
    Valore(0, u"1000"_s);
    Respiro();
    Scrivi(F, "txtValore_0", u"50000"_s);
    DalMenu(F, "mnuNew");
    const auto Lista = UltimiCalcoli(Calcolatrice::Contributo);
    QCOMPARE(Lista.size(), 1);
    QVERIFY2(Lista[0].Nome.contains(u"1.000"), qPrintable(Lista[0].Nome));
    Scrivi(F, "txtValore_0", u"2000"_s);
    F->close();
    Respiro();
    for (const CalcoloRicordato& Calcolo : UltimiCalcoli(Calcolatrice::Contributo))
        QVERIFY2(!Calcolo.Nome.contains(u"2.000") || Calcolo.Esito != Lista[0].Esito,
                 qPrintable(Calcolo.Nome));
}

#include "TestFrmContrib.moc"
