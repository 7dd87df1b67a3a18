// The finder on the real form: notes deleted, renamed, open in a window, gone meanwhile.
#include "bancotrova.h"

#include "core/posti.h"
#include "platform/system/file.h"

using namespace Qt::StringLiterals;

class TestTrovaFile : public QObject, private BancoTrova
{
    Q_OBJECT

private Q_SLOTS:
    void init() { Prepara(); }
    void cleanup() { Sgombra(); }
    void siCancella();
    void ilModelloProtetto();
    void cancellataMentreEAperta();
    void rinominataMentreEAperta();
    void sparitaTraElencoEClic();
    void siRinfresca_data();
    void siRinfresca();
    void ilRinfrescoTieneIlPosto();
    void mentreSiRinfresca_data();
    void mentreSiRinfresca();
    void dopoIlSalvataggio();
    void nascostaNonSiRinfresca();
    void laNotaApertaSiVede();
};
PROVA(TestTrovaFile);

void TestTrovaFile::siCancella()
{
    Apri();
    VaiSu(u"rossi 9"_s);
    T->Voce.Attendi(u"Confermi la cancellazione della parcella: 'rossi 9'?"_s, vbYes, u"Domanda:"_s);
    T->Voce.Attendi(u"La parcella è stata eliminata!"_s, vbOK, u"Messaggio:"_s);
    Premi(Qt::Key_Delete);
    QVERIFY(!EsisteFile(Note + u"rossi 9.mdb"_s));
    QCOMPARE(Nomi(), (QStringList{u"[vecchie]"_s, u"rossi 10"_s, u"verdi"_s}));
    QCOMPARE(Corrente(), u"rossi 10"_s);
    QVERIFY2(Stato().startsWith(u"Trovati 2 archivi"_s), qPrintable(Stato()));
    VaiSu(u"[vecchie]"_s);
    Premi(Qt::Key_Delete);  // a folder is nothing to be deleted here
    QVERIFY(EsisteCartella(Note + u"vecchie"_s));
    QVERIFY(!Controllo<QToolButton>(F.get(), "barTrova_delete")->isEnabled());
    VaiSu(u"verdi"_s);
    T->Voce.Attendi(u"Confermi la cancellazione della parcella: 'verdi'?"_s, vbNo, u"Domanda:"_s);
    Clic(Controllo<QToolButton>(F.get(), "barTrova_delete"));
    QVERIFY(EsisteFile(Note + u"verdi.mdb"_s));
}

void TestTrovaFile::ilModelloProtetto()
{
    EseguiSu(Note + u"verdi.mdb"_s, u"UPDATE ParcellaParam SET Psw=?"_s, {CodificaPsw(u"chiave"_s)});
    ImpostaSolaLettura(Note + u"verdi.mdb"_s, true);
    Apri();
    VaiSu(u"verdi"_s);
    QVERIFY(Lista()->Suggerimento(RigaDi(u"verdi"_s)).contains(u"modello"));
    T->Voce.Attendi(u"La parcella è un modello: procedo con l'operazione?"_s, vbYes, u"Domanda:"_s);
    T->Voce.AttendiImmissione(u"Specificare la password"_s, u"sbagli"_s);
    T->Voce.Attendi(u"La password immessa non è corretta!\nL'operazione non è stata effettuata."_s);
    Premi(Qt::Key_Delete);
    QVERIFY(SolaLettura(Note + u"verdi.mdb"_s));
    T->Voce.Attendi(u"La parcella è un modello: procedo con l'operazione?"_s, vbYes, u"Domanda:"_s);
    T->Voce.AttendiImmissione(u"Specificare la password"_s, u"chiave"_s);
    T->Voce.Attendi(u"Confermi la cancellazione della parcella: 'verdi'?"_s, vbYes, u"Domanda:"_s);
    T->Voce.Attendi(u"La parcella è stata eliminata!"_s);
    Premi(Qt::Key_Delete);
    QVERIFY(!EsisteFile(Note + u"verdi.mdb"_s));
}

void TestTrovaFile::cancellataMentreEAperta()
{
    frmParcelle* Finestra = T->Apri(Note + u"verdi.mdb"_s);
    QVERIFY(Finestra);
    Apri();
    VaiSu(u"verdi"_s);
    T->Voce.Attendi(u"Confermi la cancellazione della parcella: 'verdi'?"_s, vbYes);
    T->Voce.Attendi(u"La parcella è stata eliminata!"_s);
    Premi(Qt::Key_Delete);
    QVERIFY(Finestra->isVisible());
    QCOMPARE(Finestra->Nota.Percorso, QString());
    QVERIFY2(InfoParcelle[1].Modificata, "what is on screen is asked about before it goes");
    QCOMPARE(Finestra->Nota.txtCliente.Testo, u"Perché Anna"_s);
}

void TestTrovaFile::rinominataMentreEAperta()
{
    frmParcelle* Finestra = T->Apri(Note + u"verdi.mdb"_s);
    frmParcelle* Altra = T->Apri(Note + u"rossi 10.mdb"_s, 2);
    QVERIFY(Finestra && Altra);
    Altra->Nota.txtPathParcMult = Note + u"verdi.mdb"_s;
    Altra->Nota.txtParcMultipla = u"verdi"_s;
    Apri();
    VaiSu(u"verdi"_s);
    T->Voce.AttendiImmissione(u"Immettere il nuovo nome da assegnare alla parcella:"_s, u"Gialli"_s);
    T->Voce.Attendi(u"La parcella è stata rinominata!"_s, vbOK, u"Messaggio:"_s);
    Premi(Qt::Key_F2);
    QVERIFY(EsisteFile(Note + u"Gialli.mdb"_s) && !EsisteFile(Note + u"verdi.mdb"_s));
    QCOMPARE(Corrente(), u"Gialli"_s);
    QCOMPARE(Finestra->Nota.Percorso, Note + u"Gialli.mdb"_s);
    QCOMPARE(Finestra->windowTitle(), u"gialli"_s);
    QCOMPARE(InfoParcelle[1].Nome, u"gialli"_s);
    QVERIFY2(!InfoParcelle[1].Modificata, "its contents are what they were");
    QCOMPARE(Altra->Nota.txtPathParcMult, Note + u"Gialli.mdb"_s);
    QCOMPARE(Altra->Nota.txtParcMultipla, u"Gialli"_s);
    // A path that is only remembered associates nothing.
    Altra->Nota.txtParcMultipla.clear();
    T->Voce.AttendiImmissione(u"Immettere il nuovo nome da assegnare alla parcella:"_s, u"Blu"_s);
    T->Voce.Attendi(u"La parcella è stata rinominata!"_s, vbOK, u"Messaggio:"_s);
    Premi(Qt::Key_F2);
    QCOMPARE(Altra->Nota.txtPathParcMult, Note + u"Blu.mdb"_s);
    QVERIFY(!Altra->Nota.Multipla());
    QCOMPARE(Altra->windowTitle(), u"rossi 10"_s);
}

void TestTrovaFile::sparitaTraElencoEClic()
{
    Apri();
    QVERIFY(QFile::remove(Note + u"verdi.mdb"_s));
    T->Voce.Attendi(u"Errore: File non trovato (53)"_s, vbOK, u"Errore:"_s);
    Doppio(u"verdi"_s);
    QVERIFY(F->isVisible() && AperteDaQui.isEmpty());
    QCOMPARE(Nomi(), (QStringList{u"[vecchie]"_s, u"rossi 9"_s, u"rossi 10"_s}));
    QVERIFY(QFile::remove(Note + u"rossi 9.mdb"_s));
    VaiSu(u"rossi 9"_s);
    T->Voce.Attendi(u"Errore: File non trovato (53)"_s, vbOK, u"Errore:"_s);
    Premi(Qt::Key_Delete);
    Finita();
    QCOMPARE(Nomi(), (QStringList{u"[vecchie]"_s, u"rossi 10"_s}));
}

void TestTrovaFile::siRinfresca_data()
{
    QTest::addColumn<bool>("Tasto");
    QTest::newRow("F5") << true;
    QTest::newRow("a note has closed") << false;
}

void TestTrovaFile::siRinfresca()
{
    QFETCH(bool, Tasto);
    Apri();
    VaiSu(u"rossi 10"_s);
    QVERIFY(QFile::copy(Note + u"verdi.mdb"_s, Note + u"alfa.mdb"_s));
    if (Tasto)
        Premi(Qt::Key_F5);
    else
        F->RinfrescaTrova();
    QCOMPARE(Nomi().size(), 4);  // the rows of before stay meanwhile
    Finita();
    QCOMPARE(Nomi(), (QStringList{u"[vecchie]"_s, u"alfa"_s, u"rossi 9"_s, u"rossi 10"_s, u"verdi"_s}));
    QCOMPARE(Corrente(), u"rossi 10"_s);
}

void TestTrovaFile::ilRinfrescoTieneIlPosto()
{
    SalvaMolte(Note + u"molte/"_s, 200);
    Apri(2, Note + u"molte"_s);
    VaiSu(u"120"_s);
    Lista()->ImpostaPrimaRiga(115);
    const int Prima = Lista()->PrimaRiga();
    QVERIFY(Prima > 100);
    QVERIFY(QFile::copy(Note + u"verdi.mdb"_s, Note + u"molte/zeta.mdb"_s));
    F->RinfrescaTrova();
    Finita();
    QCOMPARE(Lista()->Righe(), 201);
    QCOMPARE(Corrente(), u"120"_s);
    QCOMPARE(Lista()->PrimaRiga(), Prima);
}

void TestTrovaFile::mentreSiRinfresca_data()
{
    QTest::addColumn<bool>("Rinominata");
    QTest::newRow("deleted") << false;
    QTest::newRow("renamed") << true;
}

/// What the refresh has seen before is no row of its end.
void TestTrovaFile::mentreSiRinfresca()
{
    QFETCH(bool, Rinominata);
    Apri();
    Clic(Controllo<QCheckBox>(F.get(), "chkSubDir"));
    Finita();
    {
        const CartellaFerma Rete(Note + u"vecchie/"_s);
        VaiSu(u"verdi"_s);
        Premi(Qt::Key_F5);
        QTRY_VERIFY(Rete.Attesa());  // the notes above have been read
        if (Rinominata) {
            T->Voce.AttendiImmissione(u"Immettere il nuovo nome da assegnare alla parcella:"_s, u"blu"_s);
            T->Voce.Attendi(u"La parcella è stata rinominata!"_s);
            Premi(Qt::Key_F2);
        } else {
            T->Voce.Attendi(u"Confermi la cancellazione della parcella: 'verdi'?"_s, vbYes);
            T->Voce.Attendi(u"La parcella è stata eliminata!"_s);
            Premi(Qt::Key_Delete);
        }
        QVERIFY(F->InRicerca());
    }
    Finita();
    QStringList Attesi{u"neri"_s, u"rossi 9"_s, u"rossi 10"_s, u"[vecchie]"_s};
    if (Rinominata)
        Attesi.prepend(u"blu"_s);
    QCOMPARE(Nomi(), Attesi);
    QVERIFY2(Stato().startsWith(u"Trovati %1 archivi"_s.arg(Attesi.size() - 1)), qPrintable(Stato()));
}

void TestTrovaFile::dopoIlSalvataggio()
{
    frmParcelle* Finestra = T->Apri(Note + u"verdi.mdb"_s);
    QVERIFY(Finestra);
    Scrivi(Controllo<QLineEdit>(Finestra, "txtCliente"), u"Blu Carla"_s);
    Apri();
    QCOMPARE(Cella(RigaDi(u"verdi"_s), TrovaCliente), u"Perché Anna"_s);
    T->Voce.AttendiSalva(Note + u"verdi.mdb"_s);
    T->Voce.Attendi(u"La parcella verdi.mdb è stata salvata correttamente!"_s);
    QVERIFY(Finestra->SalvaParcella(false));
    Finita();
    QCOMPARE(Cella(RigaDi(u"verdi"_s), TrovaCliente), u"Blu Carla"_s);
    QVERIFY(QFile::copy(Note + u"verdi.mdb"_s, Note + u"zeta.mdb"_s));
    QVERIFY(ChiudiParcella(1));
    Finita();
    QCOMPARE(Nomi().last(), u"zeta"_s);
}

void TestTrovaFile::nascostaNonSiRinfresca()
{
    Apri();
    F->close();
    F->RinfrescaTrova();
    QVERIFY(!F->InRicerca());
}

void TestTrovaFile::laNotaApertaSiVede()
{
    QVERIFY(T->Apri(Note + u"verdi.mdb"_s));
    Apri();
    QVERIFY(Lista()->Suggerimento(RigaDi(u"verdi"_s)).contains(u"È già aperta"));
    QVERIFY(!Lista()->Suggerimento(RigaDi(u"rossi 9"_s)).contains(u"È già aperta"));
    const auto Immagine = [this](const QString& Nome) {
        return Lista()
            ->Vista()
            ->model()
            ->index(RigaDi(Nome), TrovaNome)
            .data(Qt::DecorationRole)
            .value<QIcon>()
            .pixmap(16)
            .toImage();
    };
    QVERIFY(Immagine(u"verdi"_s) != Immagine(u"rossi 9"_s));
    QCOMPARE(Immagine(u"rossi 10"_s), Immagine(u"rossi 9"_s));
    Doppio(u"verdi"_s);
    QCOMPARE(AperteDaQui, QStringList{Note + u"verdi.mdb"_s});
    QVERIFY2(Parcelle(2) && Parcelle(2)->isVisible(), "the double click opens it once more");
}

#include "TestTrovaFile.moc"
