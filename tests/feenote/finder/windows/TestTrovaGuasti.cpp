// The finder's window over a damaged archive of clients and over damaged notes: every sound row is there, and
// one sentence says what is not.
#include "bancotrova.h"

#include "supporto/danni.h"

using namespace Qt::StringLiterals;

class TestTrovaGuasti : public QObject, private BancoTrova
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        Prepara();
        sessione::ArchivioCliCon = T->Ufficio.File(u"DatiStudio.mdb"_s);
        if (!EsisteFile(sessione::ArchivioCliCon))
            QVERIFY(QFile::copy(ProgrammaDiProva() + u"DatiStudio.mdb"_s, sessione::ArchivioCliCon));
        Parcella Nota;
        NuovaParcella(Nota);
        Nota.IDCli = 3;
        Nota.txtCliente.Testo = u"Gamma"_s;
        ScriviNota(Note + u"gamma.mdb"_s, Nota);
    }
    void cleanup()
    {
        QFile::setPermissions(sessione::ArchivioCliCon, QFile::ReadOwner | QFile::WriteOwner);
        Sgombra();
    }
    void archivio_data();
    void archivio();
    void laFraseSegueIRighi();
    void nota_data();
    void nota();
};
PROVA(TestTrovaGuasti);

void TestTrovaGuasti::archivio_data()
{
    QTest::addColumn<int>("Come");
    for (int Come = 0; Come < Mancante; ++Come)
        QTest::newRow(NomiDanni[size_t(Come)]) << Come;
}

void TestTrovaGuasti::archivio()
{
    QFETCH(int, Come);
    Apri();
    QVERIFY2(!Stato().contains(u"DatiStudio"_s), qPrintable(Stato()));
    const QStringList Sane = Nomi();
    F = std::make_unique<frmTrovaParcella>();  // which has seen no name yet
    Rovina(sessione::ArchivioCliCon, Come);
    Apri();
    QCOMPARE(Nomi(), Sane);
    QVERIFY2(Stato().count(u"DatiStudio.mdb"_s) == 1, qPrintable(Stato()));
    QCOMPARE(Cella(RigaDi(u"gamma"_s), TrovaCliente), u"Gamma"_s);
    QVERIFY(T->Voce.Mostrati().isEmpty());
}

/// The sentence stands as long as the rows whose names it speaks of, and no longer.
void TestTrovaGuasti::laFraseSegueIRighi()
{
    const auto Dice = [this] {
        return Stato().contains(u"l'archivio dei clienti DatiStudio.mdb non si legge"_s);
    };
    const QByteArray Sano = LeggiFile(sessione::ArchivioCliCon);
    QDir().mkpath(Note + u"vuota"_s);
    Rovina(sessione::ArchivioCliCon, Troncato);
    Apri();
    QVERIFY2(Dice(), qPrintable(Stato()));
    // A walk that fails gives the rows of before back.
    Clic(Opzione(2));
    Finita();
    Scrivi(Percorso(), Note + u"manca"_s);
    T->Voce.Attendi(u"Errore: Percorso non trovato (76)"_s, vbOK, u"Errore:"_s);
    Premi(Qt::Key_Return);
    Finita();
    QCOMPARE(T->Voce.Mostrati().size(), 1);
    QVERIFY(RigaDi(u"gamma"_s) >= 0);
    QVERIFY2(Dice(), qPrintable(Stato()));
    // One row less.
    T->Voce.Attendi(u"Confermi la cancellazione della parcella: 'verdi'?"_s, vbYes, u"Domanda:"_s);
    T->Voce.Attendi(u"La parcella è stata eliminata!"_s, vbOK, u"Messaggio:"_s);
    VaiSu(u"verdi"_s);
    Premi(Qt::Key_Delete);
    QCOMPARE(RigaDi(u"verdi"_s), -1);
    QVERIFY2(Dice(), qPrintable(Stato()));
    // A list without any name, over an archive that can be read again.
    ScriviFile(sessione::ArchivioCliCon, Sano);
    Doppio(u"[vuota]"_s);
    QCOMPARE(Stato(), FraseNessuna.toString());
    Apri();
    QVERIFY2(RigaDi(u"gamma"_s) >= 0 && !Dice(), qPrintable(Stato()));
}

void TestTrovaGuasti::nota_data()
{
    archivio_data();
}

void TestTrovaGuasti::nota()
{
    QFETCH(int, Come);
    const QString File = Note + u"gamma.mdb"_s;
    Rovina(File, Come);
    Apri();
    QVERIFY(Nomi().contains(u"verdi"_s));
    if (Come == Cartella)
        return;  // a folder may bear any name
    if (!Nomi().contains(u"gamma"_s)) {
        // What is missing is said beside the sum.
        const QString Aperto = Controllo<QLabel>(F.get(), "lblAperto")->text();
        QVERIFY2(Aperto.contains(u"1 file non letto"_s), qPrintable(Aperto));
    } else {
        // It says so where it is opened.
        T->Voce.Tollera();
        Doppio(u"gamma"_s);
        QCOMPARE(T->Voce.Mostrati().size(), 1);
        QVERIFY2(T->Voce.UltimoTesto().contains(u"gamma.mdb"_s), qPrintable(T->Voce.UltimoTesto()));
    }
}

#include "TestTrovaGuasti.moc"
