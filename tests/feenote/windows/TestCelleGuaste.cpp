// What goes wrong in the cells of the three grids of lines: letters, numbers that no field holds, dates that
// are none, texts without end. Each is told, the cell stays under the hands, and what stood there stands
// there still.
#include "tavolo.h"

using namespace Qt::StringLiterals;

namespace {

const QString NonNumero = u"Immettere un valore numerico!"_s;
const QString DataSbagliata = u"La data inserita non è valida!\nFormato valido: gg/mm/aaaa"_s;
const QString ImportoGrande = u"L'importo è troppo grande: al massimo 999.999.999.999,99!"_s;
const QString QuantitaGrande = u"La quantità è troppo grande: al massimo 999.999.999!"_s;

/// A column of one of the three grids.
struct PostoCella
{
    const char* Griglia;
    int Scheda;
    int Colonna;
};

constexpr PostoCella DataOnorario{"tdbOnor", SchedaListaOnorari, OnoData};
constexpr PostoCella ImportoOnorario{"tdbOnor", SchedaListaOnorari, OnoImporto};
constexpr PostoCella DataSpesa{"tdbDir", SchedaListaSpese, DirData};
constexpr PostoCella QuantitaSpesa{"tdbDir", SchedaListaSpese, DirQta};
constexpr PostoCella Imponibile{"tdbDir", SchedaListaSpese, DirImponibile};
constexpr PostoCella Esente{"tdbDir", SchedaListaSpese, DirEsente};
constexpr PostoCella Corrispettivi{"tdbAcconti", SchedaImposte, AccCorrispettivi};
constexpr PostoCella SpeseEsenti{"tdbAcconti", SchedaImposte, AccSpeseEsenti};

/// The text of a number, as often as it takes.
QString Cifre(int Quante)
{
    return QString(Quante, u'9');
}

}  // namespace

class TestCelleGuaste : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup();
    void cleanupTestCase() { T.reset(); }
    void rifiutata_data();
    void rifiutata();
    void accolta_data();
    void accolta();
    void digitata_data();
    void digitata();
    void dataRifiutata_data();
    void dataRifiutata();
    void dataAccolta_data();
    void dataAccolta();
    void ilMassimoVaEVieneDalFile();
    void iCentesimiSiTengonoComeSiVedono();
    void passandoUnaDescrizioneLungaRestaIntera();
    void leOreSenzaFine();
    void righeConTestoDoveSiSomma();

private:
    void Vai(const PostoCella& Dove);
    [[nodiscard]] QVariant Cella(const PostoCella& Dove) const;
    void IncollaInCella(const QString& Testo) const;

    std::unique_ptr<Tavolo> T;
    QByteArray Funzione;
    frmParcelle* F = nullptr;
    Griglia* Righe = nullptr;
};
PROVA(TestCelleGuaste);

/// The rows of one function share their window, with new lines in it.
void TestCelleGuaste::init()
{
    if (T && Funzione != QTest::currentTestFunction())
        T.reset();
    Funzione = QTest::currentTestFunction();
    if (!T) {
        T = std::make_unique<Tavolo>();
        F = ApriSenzaRighe(*T);
        QVERIFY(F);
    }
    F->Nota.xOnorari.Azzera(OnoColonne);
    F->Nota.xDiritti.Azzera(DirColonne);
    F->Nota.xAcconti.Azzera(AccColonne);
    RigaOnorario(F->Nota, u"Studio"_s, 1200);
    RigaSpesa(F->Nota, 50.0, 27.0);
    F->Nota.xDiritti(0, DirQta) = u"1"_s;
    RigaAcconto(F->Nota, u"E"_s, 100.0, 10.0, 5.0);
    F->MostraTutto();
}

void TestCelleGuaste::cleanup()
{
    if (Righe && Righe->InModifica())
        Premi(Qt::Key_Escape);
    Righe = nullptr;
    if (T)
        T->Voce.Sparecchia();
    if (QTest::currentTestFailed())
        T.reset();
}

void TestCelleGuaste::Vai(const PostoCella& Dove)
{
    ClicScheda(F, Dove.Scheda);
    Righe = Controllo<Griglia>(F, Dove.Griglia);
    Righe->setFocus();
    Righe->ImpostaRigaCorrente(0, Dove.Colonna);
}

QVariant TestCelleGuaste::Cella(const PostoCella& Dove) const
{
    const TabellaRighe& Tabella = Dove.Scheda == SchedaListaOnorari ? F->Nota.xOnorari
                                  : Dove.Scheda == SchedaListaSpese ? F->Nota.xDiritti
                                                                    : F->Nota.xAcconti;
    return Tabella(0, Dove.Colonna);
}

void TestCelleGuaste::IncollaInCella(const QString& Testo) const
{
    Premi(Qt::Key_F2);
    Incolla(LaCella(Righe), Testo);
    Premi(Qt::Key_Return);
    Respiro();
}

void TestCelleGuaste::rifiutata_data()
{
    QTest::addColumn<PostoCella>("Dove");
    QTest::addColumn<QString>("Testo");
    QTest::addColumn<QString>("Messaggio");
    const auto Riga = [](const char* Perche, const PostoCella& Dove, const QString& Testo,
                         const QString& Messaggio) { QTest::newRow(Perche) << Dove << Testo << Messaggio; };
    Riga("lettere", ImportoOnorario, u"mille"_s, NonNumero);
    Riga("lettere dietro un numero", Imponibile, u"12 euro"_s, NonNumero);
    Riga("segno in mezzo", Esente, u"1-2"_s, NonNumero);
    Riga("segno in fondo", Corrispettivi, u"12-"_s, NonNumero);
    Riga("solo il segno", ImportoOnorario, u"-"_s, NonNumero);
    Riga("due segni", ImportoOnorario, u"--5"_s, NonNumero);
    Riga("solo la virgola", Imponibile, u","_s, NonNumero);
    Riga("due virgole", SpeseEsenti, u"1,2,3"_s, NonNumero);
    Riga("punti come in una data", ImportoOnorario, u"1.2.3"_s, NonNumero);
    Riga("il punto non è un decimale", Corrispettivi, u"12.5"_s, NonNumero);
    Riga("due righe", Imponibile, u"12\n13"_s, NonNumero);
    Riga("quantità a parole", QuantitaSpesa, u"due"_s, NonNumero);
    Riga("quantità, segno in mezzo", QuantitaSpesa, u"1-2"_s, NonNumero);

    Riga("un centesimo di troppo", ImportoOnorario, u"1000000000000"_s, ImportoGrande);
    Riga("un centesimo di troppo, negativo", Imponibile, u"-1000000000000"_s, ImportoGrande);
    Riga("i decimali portano oltre", Esente, u"999999999999,995"_s, ImportoGrande);
    Riga("sedici cifre", Corrispettivi, Cifre(16), ImportoGrande);
    Riga("diciotto cifre: né troncate né arrotondate", ImportoOnorario, Cifre(18), ImportoGrande);
    Riga("venti cifre e virgola: il taglio ne farebbe un'altra", Imponibile, Cifre(20) + u",50"_s,
         ImportoGrande);
    Riga("un milione di cifre", SpeseEsenti, Cifre(1000000), ImportoGrande);
    Riga("zeri senza fine: il taglio perderebbe ciò che segue", Esente, QString(50, u'0') + u"12"_s,
         ImportoGrande);
    Riga("con l'esponente", ImportoOnorario, u"1E15"_s, ImportoGrande);
    Riga("oltre ogni numero", Corrispettivi, u"1E400"_s, ImportoGrande);
    Riga("quantità di dieci cifre", QuantitaSpesa, u"1000000000"_s, QuantitaGrande);
    Riga("quantità di venti cifre", QuantitaSpesa, Cifre(20), QuantitaGrande);
}

void TestCelleGuaste::rifiutata()
{
    QFETCH(PostoCella, Dove);
    QFETCH(QString, Testo);
    QFETCH(QString, Messaggio);
    Vai(Dove);
    const QVariant Prima = Cella(Dove);
    const Somme SommePrima = CalcolaSomme(F->Nota);
    F->SetModificata(false);
    T->Voce.Attendi(Messaggio, vbOK, u"Errore:"_s);
    IncollaInCella(Testo);
    QVERIFY(Righe->InModifica());
    QCOMPARE(T->Voce.Ultimo().Bandiere, vbCritical);
    QCOMPARE(QApplication::focusWidget(), LaCella(Righe));
    QCOMPARE(Cella(Dove), Prima);
    QCOMPARE(CalcolaSomme(F->Nota), SommePrima);
    QVERIFY(!F->Nota.Modificata);
    // The hand goes on in the same cell.
    Scrivi(LaCella(Righe), u"7"_s);
    Premi(Qt::Key_Return);
    QCOMPARE(NumeroDi(Cella(Dove)), 7.0);
}

void TestCelleGuaste::accolta_data()
{
    QTest::addColumn<PostoCella>("Dove");
    QTest::addColumn<QString>("Testo");
    QTest::addColumn<double>("Valore");
    QTest::newRow("con i punti") << ImportoOnorario << u"1.234,50"_s << 1234.5;
    QTest::newRow("negativo") << Imponibile << u"-12,5"_s << -12.5;
    QTest::newRow("il massimo") << Corrispettivi << u"999.999.999.999,99"_s << 999999999999.99;
    QTest::newRow("il minimo") << Esente << u"-999.999.999.999,99"_s << -999999999999.99;
    QTest::newRow("con spazi attorno") << SpeseEsenti << u"  12,30  "_s << 12.3;
    QTest::newRow("virgola davanti") << Imponibile << u",5"_s << 0.5;
    QTest::newRow("quantità, il massimo") << QuantitaSpesa << u"999999999"_s << 999999999.0;
    QTest::newRow("quantità negativa") << QuantitaSpesa << u"-2"_s << -2.0;
    QTest::newRow("vuota conta zero") << Imponibile << u" "_s << 0.0;
}

void TestCelleGuaste::accolta()
{
    QFETCH(PostoCella, Dove);
    QFETCH(QString, Testo);
    Vai(Dove);
    F->SetModificata(false);
    IncollaInCella(Testo);
    QVERIFY(!Righe->InModifica());
    QTEST(NumeroDi(Cella(Dove)), "Valore");
    QVERIFY(F->Nota.Modificata);
}

void TestCelleGuaste::digitata_data()
{
    QTest::addColumn<PostoCella>("Dove");
    QTest::addColumn<QString>("Tasti");
    QTest::addColumn<QString>("Entrati");
    QTest::newRow("negli importi le lettere non entrano") << ImportoOnorario << u"1a2b,€5-."_s << u"12,5-."_s;
    QTest::newRow("nelle quantità né virgola né punto") << QuantitaSpesa << u"1,2.3x-"_s << u"123-"_s;
    QTest::newRow("nelle date la barra e la lineetta") << DataSpesa << u"1/2-3.4a,"_s << u"1/2-34"_s;
    QTest::newRow("negli acconti come negli importi") << Corrispettivi << u"E1L2"_s << u"12"_s;
}

void TestCelleGuaste::digitata()
{
    QFETCH(PostoCella, Dove);
    QFETCH(QString, Tasti);
    Vai(Dove);
    Digita(Tasti);
    QVERIFY(LaCella(Righe));
    QTEST(LaCella(Righe)->text(), "Entrati");
    Premi(Qt::Key_Escape);
    QVERIFY(!Righe->InModifica());
    QVERIFY(Righe->isAncestorOf(QApplication::focusWidget()));
}

void TestCelleGuaste::dataRifiutata_data()
{
    QTest::addColumn<QString>("Testo");
    for (const QString& Testo : {u"31/02/2024"_s, u"29/02/2023"_s, u"31/02"_s, u"00/00/0000"_s, u"00/00"_s,
                                 u"01/13/2024"_s, u"12/31/2024"_s, u"310220"_s, u"01132024"_s, u"1/2"_s,
                                 u"1"_s, u"-"_s, u"/"_s, u"abc"_s, u"1.2.3.4"_s, u"2024"_s, u"05/03/20245"_s})
        QTest::newRow(qPrintable(Testo)) << Testo;
    QTest::newRow("un milione di caratteri") << QString(1000000, u'1');
}

void TestCelleGuaste::dataRifiutata()
{
    QFETCH(QString, Testo);
    for (const PostoCella& Dove : {DataOnorario, DataSpesa}) {
        Vai(Dove);
        Digita(u"05032024"_s);
        Premi(Qt::Key_Return);
        QCOMPARE(CStr(Cella(Dove)), u"05/03/2024"_s);
        F->SetModificata(false);
        Righe->ImpostaRigaCorrente(0, Dove.Colonna);
        T->Voce.Attendi(DataSbagliata, vbOK, u"Errore:"_s);
        IncollaInCella(Testo);
        QCOMPARE(CStr(Cella(Dove)), u"05/03/2024"_s);
        QVERIFY(!F->Nota.Modificata);
        QVERIFY(LaCella(Righe));
        QCOMPARE(QApplication::focusWidget(), LaCella(Righe));
        QVERIFY2(LaCella(Righe)->text() == u"05/03/2024"_s, "la modifica è annullata");
        Premi(Qt::Key_Return);
        QVERIFY2(!Righe->InModifica() && !F->Nota.Modificata, "e lasciarla non è una modifica");
    }
}

void TestCelleGuaste::dataAccolta_data()
{
    QTest::addColumn<QString>("Tasti");
    QTest::addColumn<QString>("Data");
    QTest::newRow("otto cifre") << u"29022024"_s << u"29/02/2024"_s;
    QTest::newRow("sei cifre") << u"290224"_s << u"29/02/2024"_s;
    QTest::newRow("con le barre") << u"1/2/2024"_s << u"01/02/2024"_s;
    QTest::newRow("con le lineette") << u"1-2-24"_s << u"01/02/2024"_s;
}

void TestCelleGuaste::dataAccolta()
{
    QFETCH(QString, Tasti);
    Vai(DataOnorario);
    Digita(Tasti);
    Premi(Qt::Key_Return);
    QTEST(CStr(Cella(DataOnorario)), "Data");
}

void TestCelleGuaste::ilMassimoVaEVieneDalFile()
{
    const QString Massimo = u"999.999.999.999,99"_s;
    for (const PostoCella& Dove : {ImportoOnorario, Imponibile, Corrispettivi}) {
        Vai(Dove);
        IncollaInCella(Massimo);
    }
    ClicScheda(F, SchedaListaSpese);
    QCOMPARE(Controllo<Griglia>(F, "tdbDir")->TestoPie(DirImponibile), Massimo);
    QCOMPARE(Controllo<QLabel>(F, "lblOnora")->text(), u"Onor.: "_s + Massimo);
    QCOMPARE(Controllo<QLabel>(F, "lblTotal")->text(), u"Totale: 2.000.000.000.026,98"_s);
    const QString File = T->Ufficio.File(u"massimo.mdb"_s);
    T->Voce.AttendiSalva(File);
    T->Voce.Tollera();
    QVERIFY(F->SalvaParcella(false));
    F->Carica(File);
    for (const PostoCella& Dove : {ImportoOnorario, Imponibile, Corrispettivi})
        QCOMPARE(NumeroDi(Cella(Dove)), 999999999999.99);
}

void TestCelleGuaste::iCentesimiSiTengonoComeSiVedono()
{
    for (const PostoCella& Dove : {ImportoOnorario, Imponibile, Corrispettivi}) {
        Vai(Dove);
        IncollaInCella(u"12,345"_s);
        QCOMPARE(NumeroDi(Cella(Dove)), 12.35);
        const QAbstractItemModel* Modello = Righe->Vista()->model();
        QCOMPARE(Modello->index(0, Dove.Colonna).data().toString(), u"12,35"_s);
    }
}

void TestCelleGuaste::passandoUnaDescrizioneLungaRestaIntera()
{
    const QString Lunga = u"Parola "_s.repeated(20);
    F->Nota.xOnorari(0, OnoDescr) = Lunga;
    F->SetModificata(false);
    Vai({"tdbOnor", SchedaListaOnorari, OnoDescr});
    F->SetModificata(false);
    Premi(Qt::Key_F2);
    QVERIFY(LaCella(Righe));
    Premi(Qt::Key_Return);
    QCOMPARE(CStr(F->Nota.xOnorari(0, OnoDescr)), Lunga);
    QVERIFY(!F->Nota.Modificata);
}

void TestCelleGuaste::leOreSenzaFine()
{
    T->Voce.AttendiImmissione(u"Consultazione"_s, Cifre(20));
    T->Voce.Attendi(QuantitaGrande, vbOK, u"Errore:"_s);
    QCOMPARE(GetQuant(u"Consultazione"_s, u"H"_s), 0.0);
    T->Voce.AttendiImmissione(u"Consultazione"_s, u"999999999"_s);
    QCOMPARE(GetQuant(u"Consultazione"_s, u"H"_s), 999999999.0);
}

void TestCelleGuaste::righeConTestoDoveSiSomma()
{
    F->Nota.xOnorari(0, OnoMedio) = u"da definire"_s;
    F->Nota.xOnorari(0, OnoImporto) = u"mille"_s;
    Vai(ImportoOnorario);
    F->MostraTutto();
    Premi(Qt::Key_Space, Qt::ShiftModifier);
    Premi(Qt::Key_C, Qt::ControlModifier);
    ClicScheda(F, SchedaListaSpese);
    auto* Spese = Controllo<Griglia>(F, "tdbDir");
    Spese->setFocus();
    Premi(Qt::Key_V, Qt::ControlModifier);
    QCOMPARE(F->Nota.xDiritti.Righe(), 2);
    QVERIFY2(CStr(F->Nota.xDiritti(1, DirImponibile)) == u"mille"_s, "ciò che si incolla resta com'è");
    QCOMPARE(Spese->TestoPie(DirImponibile), u"50,00"_s);
    QCOMPARE(Spese->TestoPie(DirEsente), u"27,00"_s);
    QCOMPARE(Controllo<QLabel>(F, "lblOnora")->text(), u"Onor.: 0"_s);
}

#include "TestCelleGuaste.moc"
