#include "scena.h"

#include "core/aperture.h"
#include "core/app/apritori.h"
#include "core/app/avvio.h"
#include "platform/kit/aspetto.h"
#include "platform/system/file.h"
#include "platform/system/percorsi.h"
#include "update/viewer/frmWeb.h"

#include <QCheckBox>

#include <memory>

/// The notice of the start and the sheets, from the opener to the page on view.
class TestAvviso : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void mostraLAvviso();
    void loStessoProcessoFinisceConLui();
    void laScrivaniaResta();
    void silenziato();
    void tornaSenzaSpunta();
    void paginaMancante();
    void schedeNelloStessoVisore();
    void schedaAccantoAllAvviso();
    void guidaDelQuadro();

private:
    static frmWeb* Avviso()
    {
        for (QWidget* Uno : QApplication::topLevelWidgets())
            if (auto* Visore = qobject_cast<frmWeb*>(Uno); Visore && !Visore->Marcatore.isEmpty())
                return Visore;
        return nullptr;
    }

    std::unique_ptr<Scena> S;
    QString Prog;
};
PROVA(TestAvviso);

void TestAvviso::init()
{
    S = std::make_unique<Scena>();
    Prog = NuovaCartella();
    for (const QString& Nome : {u"avvisokr6.htm"_s, u"avvertenzetermini.htm"_s, u"note/blank.htm"_s}) {
        CreaCartella(CartellaFile(Prog + Nome));
        QVERIFY(QFile::copy(ProgrammaDiProva() + Nome, Prog + Nome));
    }
    QVERIFY(QFile::copy(ProgrammaDiProva() + u"parcelle.mdb"_s, Prog + u"parcelle.mdb"_s));
    Scena::Salva(u"PercorsoProcedura"_s, Prog);
    Scena::Salva(u"UserFolder"_s, NuovaCartella());
    Scena::Salva(u"StudioNome"_s, u"Studio Bianchi"_s);
    Scena::Salva(u"CercaAgg"_s, u"N"_s);
    RiempiApritori();
}

void TestAvviso::cleanup()
{
    delete Avviso();
    delete SeCaricato<frmWeb>.data();
    S.reset();
}

void TestAvviso::mostraLAvviso()
{
    const Registratore Box;
    Main(u"PV2|X"_s);
    QVERIFY(Avviso() && Avviso()->isVisible());
    QCOMPARE(Avviso()->windowTitle(), u"KR5 - Avviso agli abbonati"_s);
    QCOMPARE(Avviso()->size(), QSize(aspetto::Pixel(10200), aspetto::Pixel(7600)));
    QVERIFY(Avviso()->findChild<QCheckBox*>(u"chkNoRepeat"_s)->isVisible());
    QCOMPARE(S->Eventi, QStringList());
    QCOMPARE(SenzaNome(Avviso()), QStringList());
}

void TestAvviso::loStessoProcessoFinisceConLui()
{
    const Registratore Box;
    Main(u"PV2|X"_s);
    const QPointer<frmWeb> Visore = Avviso();
    Visore->close();
    QCOMPARE(S->Eventi, QStringList{u"fine"_s});
    QTRY_VERIFY(!Visore);
}

void TestAvviso::laScrivaniaResta()
{
    const Registratore Box;
    Main(u""_s);
    QTRY_VERIFY(Avviso());
    Avviso()->close();
    Respiro();
    QCOMPARE(S->Eventi, QStringList());
    QVERIFY(SeCaricato<frmStudio>->isVisible());
}

void TestAvviso::silenziato()
{
    const Registratore Box;
    Main(u"PV2|X"_s);
    Avviso()->findChild<QCheckBox*>(u"chkNoRepeat"_s)->setChecked(true);
    const QPointer<frmWeb> Visore = Avviso();
    Visore->close();
    QTRY_VERIFY(!Visore);
    QVERIFY(EsisteFile(Prog + u"avvisokr5.ini"_s));
    Main(u"PV2|X"_s);
    QVERIFY(!Avviso());
    QVERIFY(QFile::remove(Prog + u"avvisokr5.ini"_s));
    Main(u"PV2|X"_s);
    QVERIFY(Avviso());
}

void TestAvviso::tornaSenzaSpunta()
{
    const Registratore Box;
    Main(u"PV2|X"_s);
    const QPointer<frmWeb> Visore = Avviso();
    Visore->close();
    QTRY_VERIFY(!Visore);
    Main(u"PV2|X"_s);
    QVERIFY(Avviso());
}

void TestAvviso::paginaMancante()
{
    Registratore Box;
    QVERIFY(QFile::remove(Prog + u"avvisokr6.htm"_s));
    Box.Attendi(u"Errore: File non trovato (53)"_s, vbOK, u"Errore:"_s);
    Main(u"PV2|X"_s);
    QVERIFY(!Avviso());
    QCOMPARE(S->Eventi, QStringList{u"fine"_s});
}

void TestAvviso::schedeNelloStessoVisore()
{
    const Registratore Box;
    S->Preparata();
    sessione::PercorsoProg = Prog;
    Aperture.PaginaWeb(Prog + u"avvertenzetermini.htm"_s, u"KR6 - Calcolo termini - Avvertenze"_s);
    const QPointer<frmWeb> Visore = SeCaricato<frmWeb>;
    QVERIFY(Visore && Visore->isVisible());
    QCOMPARE(Visore->windowTitle(), u"KR6 - Calcolo termini - Avvertenze"_s);
    QVERIFY(!Visore->findChild<QCheckBox*>(u"chkNoRepeat"_s)->isVisible());
    Aperture.PaginaWeb(Prog + u"note/blank.htm"_s, u"KR5 - Scheda informativa prestazione"_s);
    QCOMPARE(SeCaricato<frmWeb>, Visore);
    QCOMPARE(Visore->windowTitle(), u"KR5 - Scheda informativa prestazione"_s);
    // Its closing ends nothing.
    Visore->close();
    Respiro();
    QCOMPARE(S->Eventi, QStringList());
}

void TestAvviso::schedaAccantoAllAvviso()
{
    const Registratore Box;
    Main(u"PV2|X"_s);
    Aperture.PaginaWeb(Prog + u"note/blank.htm"_s, u"Scheda"_s);
    QCOMPARE(Avviso()->windowTitle(), u"KR5 - Avviso agli abbonati"_s);
    // A sheet is still on view: the process goes on.
    Avviso()->close();
    QCOMPARE(S->Eventi, QStringList());
}

void TestAvviso::guidaDelQuadro()
{
    const Registratore Box;
    sessione::PercorsoProg = Prog;
    frmMain Cornice;
    Cornice.ShowGuida(u"blank.htm"_s);
    QVERIFY(SeCaricato<frmWeb> && SeCaricato<frmWeb>->isVisible());
    QCOMPARE(SeCaricato<frmWeb>->windowTitle(), u"VDM - Guida giuridica"_s);
}

#include "TestAvviso.moc"
