// A composition and the file that it is exported to.
#include "supporto/guasti.h"
#include "supporto/prova.h"
#include "supporto/registratore.h"

#include "platform/base/numerierrore.h"
#include "platform/system/file.h"
#include "platform/system/guasti.h"
#include "platform/system/percorsi.h"
#include "print/banco_esporta.h"

#include <QFile>

using namespace Qt::StringLiterals;

namespace {

const QString SenzaCompagna = u"Non trovato percorso cartella Parcelle PV2!\n"
                              u"Verificare le impostazioni nel pannello 'Personalizzazione' di PV2"_s;

}  // namespace

using OstacoloDiProva = std::function<void(const Banco&)>;

class TestEsporta : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void apertoAltrove();
    void composizioneConEsportazione();
    void nonPronta();
    void ridisegnoMuto_data();
    void ridisegnoMuto();
    void nomeDellaNota();
    void invio();
    void invioSenzaCartella();
    void invioCheNonRiesce();
};
PROVA(TestEsporta);

/// A redraw leaves alone the file that somebody reads in a word processor, and says nothing.
void TestEsporta::apertoAltrove()
{
    Banco B;
    Registratore Voce;
    QVERIFY(!B.Componi());
    const QByteArray Prima = LeggiFile(B.File());
    const QString Segno = CartellaFile(B.File()) + u".~lock.rossi.doc#"_s;
    ScriviFile(Segno, "neri");
    B.Nota.txtDatiStaOgg.Testo = u"sfratto"_s;
    const auto Esito = B.Componi();
    QVERIFY(Esito);
    QCOMPARE(Esito->Numero, 70);
    QCOMPARE(LeggiFile(B.File()), Prima);
    QVERIFY(campioni::TestiBlocchi(B.vp.Contenuto()).contains(u"Oggetto: sfratto"_s));
    // Closed there, it is brought up to date.
    QVERIFY(QFile::remove(Segno));
    QVERIFY(!B.Componi());
    QVERIFY(LeggiFile(B.File()).contains("sfratto"));
}

void TestEsporta::composizioneConEsportazione()
{
    Banco B;
    QVERIFY(!EsisteFile(B.File()));
    QVERIFY(!B.Componi());
    QCOMPARE(B.vp.ExportFile, B.File());
    QCOMPARE(B.vp.ExportFormat, 4);
    const QByteArray Prima = LeggiFile(B.File());
    QVERIFY(Prima.contains("{\\title Prenotula - rossi}"));
    QVERIFY(Prima.contains("recupero di un credito commerciale"));
    B.Nota.txtDatiStaOgg.Testo = u"sfratto"_s;
    QVERIFY(!B.Componi());
    QVERIFY(LeggiFile(B.File()).contains("sfratto"));
    // The paper of the printer.
    QVERIFY(!AnteprimaConEsportazione(B.vp, B.Nota, StampaPrenotula, u"rossi"_s, {}, {215.9, 279.4}));
    QVERIFY(LeggiFile(B.File()).contains("\\paperw12240"));
}

void TestEsporta::nonPronta()
{
    Banco B;
    B.Nota.Pronta = false;
    QVERIFY(!B.Componi());
    QVERIFY(!B.Componi(NuovaCartella()));
    QVERIFY(!EsisteCartella(sessione::UserFolder + u"doc"_s));
    QVERIFY(B.vp.ExportFile.isEmpty());
}

void TestEsporta::ridisegnoMuto_data()
{
    QTest::addColumn<OstacoloDiProva>("Ostacolo");
    QTest::addColumn<int>("Numero");

    const auto Riga = [](const char* Nome, int Numero, const std::function<void(const Banco&)>& Ostacolo) {
        QTest::newRow(Nome) << Ostacolo << Numero;
    };
    Riga("a folder that cannot be made", 75,
         [](const Banco&) { ScriviFile(sessione::UserFolder + u"doc"_s, "no folder"); });
    Riga("a user folder that is a file", 75, [](const Banco&) {
        ScriviFile(sessione::UserFolder + u"utente"_s, "no folder");
        sessione::UserFolder += u"utente/"_s;
    });
    Riga("a file that is read only", 75, [](const Banco& B) {
        CreaCartella(sessione::UserFolder + u"doc"_s);
        ScriviFile(B.File(), "vecchio");
        ImpostaSolaLettura(B.File(), true);
    });
    Riga("a folder of that name", 75, [](const Banco& B) {
        CreaCartella(sessione::UserFolder + u"doc"_s);
        CreaCartella(B.File());
    });
    Riga("a full disk", 61, [](const Banco&) { guasti::LimiteFile = 100; });
    Riga("a name too long for the disk", 75, [](const Banco&) { InfoParcelle[1].Nome = QString(300, u'x'); });
}

void TestEsporta::ridisegnoMuto()
{
    QFETCH(OstacoloDiProva, Ostacolo);
    QFETCH(int, Numero);
    Banco B;
    Registratore Voce;  // a box would fail the test
    Ostacolo(B);
    const auto Esito = B.Componi();
    QVERIFY(Esito);
    QCOMPARE(Esito->Numero, Numero);
    QVERIFY(!B.vp.Contenuto().Blocchi.empty());
}

void TestEsporta::nomeDellaNota()
{
    Banco B;
    InfoParcelle[1].Nome = u"Nuova parcella:2"_s;
    QCOMPARE(SteloDocumento(1), u"Nuova parcella-2"_s);
    QCOMPARE(FileDocumento(1), Barra(sessione::UserFolder + u"doc"_s) + u"Nuova parcella-2.doc"_s);
    // Every sign that some system refuses in a name; the export finds its place all the same.
    InfoParcelle[1].Nome = u"a\\b/c:d*e?f\"g<h>i|j {k} è"_s;
    QCOMPARE(SteloDocumento(1), u"a-b-c-d-e-f-g-h-i-j {k} è"_s);
    QVERIFY(!B.Componi());
    QVERIFY(LeggiFile(FileDocumento(1)).contains("{\\title Prenotula - a-b-c-d-e-f-g-h-i-j \\{k\\} \\'e8}"));
    QCOMPARE(SteloDocumento(0), QString());
    QCOMPARE(SteloDocumento(2), QString());
}

void TestEsporta::invio()
{
    Banco B;
    const QString Cartella = NuovaCartella();
    QVERIFY(!B.Componi(Cartella));
    QCOMPARE(B.vp.ExportFormat, 3);
    QVERIFY(LeggiFile(Cartella + u"rossi.htm"_s).startsWith("<!DOCTYPE html>"));
    QVERIFY(!EsisteFile(B.File()));
    // The next redraw is for the office again.
    QVERIFY(!B.Componi());
    QVERIFY(EsisteFile(B.File()));
}

void TestEsporta::invioSenzaCartella()
{
    Banco B;
    Registratore Voce;
    Voce.Attendi(SenzaCompagna);
    QVERIFY(!B.Componi(QString()));
    QVERIFY(!B.vp.Contenuto().Blocchi.empty());
    QVERIFY(!EsisteFile(B.File()));  // no target was ever set

    // The last target stays.
    QVERIFY(!B.Componi());
    B.Nota.txtDatiStaOgg.Testo = u"sfratto"_s;
    Voce.Attendi(SenzaCompagna);
    QVERIFY(!B.Componi(QString()));
    QVERIFY(LeggiFile(B.File()).contains("sfratto"));
}

void TestEsporta::invioCheNonRiesce()
{
    Banco B;
    Registratore Voce;
    Voce.Attendi(u"Errore: "_s + DescrizioneErrore(76) + u" (76)"_s);
    const auto Esito = B.Componi(NuovaCartella() + u"manca"_s);
    QVERIFY(Esito);
    QCOMPARE(Esito->Numero, 76);
}

#include "TestEsporta.moc"
