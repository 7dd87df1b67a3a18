// The finder on the real form: from folder to folder, and those that cannot be listed.
#include "bancotrova.h"

#include <QMenu>
#include <QPushButton>

using namespace Qt::StringLiterals;

class TestTrovaCartelle : public QObject, private BancoTrova
{
    Q_OBJECT

private Q_SLOTS:
    void init() { Prepara(); }
    void cleanup() { Sgombra(); }
    void dentroEFuori();
    void ilTestoNellAltraCartella();
    void oltreLaRadice();
    void lePreferenzeDelleCartelle();
    void ilPercorsoScritto();
    void ilPercorsoCheManca();
    void siSfoglia();
    void leSottocartelle();
    void laTendinaCambiaCartella();
    void laCartellaChiusaLasciaLeRighe();
    void laPrimaCartellaCheManca();
    void laReteCheNonRisponde();
    void laReteCheNonRispondePiu();
};
PROVA(TestTrovaCartelle);

void TestTrovaCartelle::dentroEFuori()
{
    QDir().mkpath(Note + u"vecchie/piu"_s);
    Apri();
    Doppio(u"[vecchie]"_s);
    QCOMPARE(Nomi(), (QStringList{u"[Torna alla cartella superiore]"_s, u"[piu]"_s, u"neri"_s}));
    QVERIFY(Opzione(2)->isChecked());
    QCOMPARE(Percorso()->text(), Note + u"vecchie/"_s);
    QCOMPARE(F->windowTitle(), u"Apri da parcelle salvate"_s);
    VaiSu(u"[piu]"_s);
    Premi(Qt::Key_Return);
    Finita();
    QCOMPARE(Nomi(), QStringList{u"[Torna alla cartella superiore]"_s});
    QCOMPARE(Stato(), u"Non è stata trovata alcuna parcella che soddisfi i criteri impostati"_s);
    Premi(Qt::Key_Backspace);
    Finita();
    QCOMPARE(Corrente(), u"[piu]"_s);
    Doppio(u"[Torna alla cartella superiore]"_s);
    QCOMPARE(Percorso()->text(), Note);
    QCOMPARE(Nomi().first(), u"[vecchie]"_s);
    QCOMPARE(Corrente(), u"[vecchie]"_s);
}

void TestTrovaCartelle::ilTestoNellAltraCartella()
{
    SalvaNota(Note + u"vecchie/gialli.mdb"_s, u"Ubaldi"_s);
    Apri();
    Scrivi(Testo(), u"rossi"_s);
    Premi(Qt::Key_Return);
    Finita();
    Doppio(u"[vecchie]"_s);
    QCOMPARE(Nomi(), QStringList{u"[Torna alla cartella superiore]"_s});
    // Typed and not asked for: it leaves rows by their client too, and keeps none from being read.
    Scrivi(Testo(), u"ubaldi"_s);
    Doppio(u"[Torna alla cartella superiore]"_s);
    QCOMPARE(Nomi(), QStringList{u"[vecchie]"_s});
    Doppio(u"[vecchie]"_s);
    QCOMPARE(Nomi(), (QStringList{u"[Torna alla cartella superiore]"_s, u"gialli"_s}));
    QCOMPARE(Mostrate(), u"Mostrate 1 di 2"_s);
}

void TestTrovaCartelle::oltreLaRadice()
{
    Apri();
    VaiSu(u"verdi"_s);
    Premi(Qt::Key_Backspace);
    Finita();
    QCOMPARE(Percorso()->text(), T->Ufficio.Cartella());
    QCOMPARE(Corrente(), u"[note]"_s);
    QVERIFY2(!Nomi().contains(u"[Torna alla cartella superiore]"_s), "here is where the search begins now");
    Doppio(u"[note]"_s);
    QCOMPARE(Nomi().first(), u"[Torna alla cartella superiore]"_s);
}

void TestTrovaCartelle::lePreferenzeDelleCartelle()
{
    SalvaNota(sessione::ModelliPath + u"tipo.mdb"_s);
    Apri();
    Clic(Opzione(1));
    Finita();
    QCOMPARE(Nomi(), QStringList{u"tipo"_s});
    QCOMPARE(F->windowTitle(), u"Apri da modelli"_s);
    Clic(Opzione(2));
    Finita();
    QCOMPARE(Percorso()->text(), sessione::ModelliPath);
    QCOMPARE(F->windowTitle(), u"Apri da modelli"_s);
    QCOMPARE(QApplication::focusWidget(), Percorso());
    Clic(Opzione(0));
    Finita();
    QCOMPARE(Nomi().size(), 4);
}

void TestTrovaCartelle::ilPercorsoScritto()
{
    Apri();
    Clic(Opzione(2));
    Finita();
    Scrivi(Percorso(), Note + u"vecchie"_s);
    Premi(Qt::Key_Return);
    Finita();
    QCOMPARE(Nomi(), QStringList{u"neri"_s});
}

void TestTrovaCartelle::ilPercorsoCheManca()
{
    Apri();
    Clic(Opzione(2));
    Finita();
    Scrivi(Percorso(), u"/manca/qui"_s);
    T->Voce.Attendi(u"Errore: Percorso non trovato (76)"_s, vbOK, u"Errore:"_s);
    Premi(Qt::Key_Return);
    Finita();
    QCOMPARE(Nomi().size(), 4);
    QCOMPARE(Percorso()->text(), u"/manca/qui/"_s);
    VaiSu(u"[vecchie]"_s);
    Premi(Qt::Key_Return);
    Finita();
    QCOMPARE(Percorso()->text(), Note + u"vecchie/"_s);
}

void TestTrovaCartelle::siSfoglia()
{
    QStringList Chiesto;
    QString Risposta;
    Aperture.ScegliCartella = [&](const QString& Titolo, const QString& Inizio) {
        Chiesto << Titolo << Inizio;
        return Risposta;
    };
    Apri();
    Clic(Controllo<QPushButton>(F.get(), "cmdSfoglia"));
    Finita();
    QCOMPARE(Chiesto, (QStringList{u"Cerca le parcelle nella cartella"_s, Note}));
    QVERIFY2(Opzione(0)->isChecked(), "cancelled: nothing changes");
    Risposta = Note + u"vecchie/"_s;
    Clic(Controllo<QPushButton>(F.get(), "cmdSfoglia"));
    Finita();
    QVERIFY(Opzione(2)->isChecked());
    QCOMPARE(Nomi(), QStringList{u"neri"_s});
}

void TestTrovaCartelle::leSottocartelle()
{
    Apri();
    Clic(Controllo<QCheckBox>(F.get(), "chkSubDir"));
    Finita();
    QCOMPARE(Nomi(), (QStringList{u"neri"_s, u"rossi 9"_s, u"rossi 10"_s, u"verdi"_s, u"[vecchie]"_s}));
    QVERIFY2(Stato().startsWith(u"Trovati 4 archivi in 2 cartelle"_s), qPrintable(Stato()));
    QCOMPARE(Cella(0, TrovaCartella), Note + u"vecchie/"_s);
}

void TestTrovaCartelle::laTendinaCambiaCartella()
{
    SalvaNota(sessione::ModelliPath + u"tipo.mdb"_s);
    Apri();
    const QMenu* Tendina = Controllo<QToolButton>(F.get(), "barTrova_open")->defaultAction()->menu();
    QVERIFY(Tendina);
    QCOMPARE(Tendina->actions().size(), 2);
    Tendina->actions().at(1)->trigger();
    Finita();
    QCOMPARE(Nomi(), QStringList{u"tipo"_s});
    QVERIFY(Opzione(1)->isChecked());
    Tendina->actions().at(0)->trigger();
    Finita();
    QCOMPARE(F->windowTitle(), u"Apri da parcelle salvate"_s);
}

void TestTrovaCartelle::laCartellaChiusaLasciaLeRighe()
{
    Apri();
    QVERIFY(QFile::setPermissions(Note + u"vecchie"_s, {}));
    T->Voce.Attendi(u"Errore: Errore di accesso al percorso o al file (75)"_s, vbOK, u"Errore:"_s);
    Doppio(u"[vecchie]"_s);
    QVERIFY(
        QFile::setPermissions(Note + u"vecchie"_s, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner));
    QCOMPARE(Nomi().size(), 4);
    QVERIFY(Opzione(0)->isChecked());
    QCOMPARE(Percorso()->text(), Note);
    QVERIFY2(Stato().startsWith(u"Trovati 3 archivi"_s), qPrintable(Stato()));
    // The folder itself goes: one message, rows kept.
    QVERIFY(QDir().rename(Note, T->Ufficio.File(u"altrove"_s)));
    T->Voce.Attendi(u"Errore: Percorso non trovato (76)"_s, vbOK, u"Errore:"_s);
    Premi(Qt::Key_F5);
    Finita();
    QCOMPARE(Nomi().size(), 4);
}

void TestTrovaCartelle::laPrimaCartellaCheManca()
{
    sessione::ParcellePath = T->Ufficio.File(u"non ancora/"_s);
    T->Voce.Attendi(u"Errore: Percorso non trovato (76)"_s, vbOK, u"Errore:"_s);
    Apri();
    QVERIFY(F->isVisible());
    QCOMPARE(Nomi(), QStringList());
    QCOMPARE(Percorso()->text(), sessione::ParcellePath);
    SalvaNota(sessione::ParcellePath + u"prima.mdb"_s);
    Premi(Qt::Key_F5);
    Finita();
    QCOMPARE(Nomi(), QStringList{u"prima"_s});
}

/// Keys count while nothing comes, Esc gives up, another folder is listed at once.
void TestTrovaCartelle::laReteCheNonRisponde()
{
    const CartellaFerma Rete(Note + u"vecchie/"_s);
    (void)F->OpenParcMod(2, Note + u"vecchie"_s, 0, {});
    Davanti();
    QTRY_VERIFY(Rete.Attesa());
    QVERIFY(F->InRicerca());
    QCOMPARE(Stato(), u"Ricerca in corso, attendere prego... (premere <Interr> per interrompere)"_s);
    Digita(u"neri"_s);
    QCOMPARE(Testo()->text(), u"neri"_s);
    Premi(Qt::Key_Escape);
    QVERIFY(!F->InRicerca() && F->isVisible());
    QCOMPARE(Stato(), u"Non è stata trovata alcuna parcella che soddisfi i criteri impostati"
                      u" (ricerca interrotta)"_s);
    Scrivi(Testo(), {});
    Clic(Opzione(0));
    Finita();
    QCOMPARE(Nomi(), (QStringList{u"[vecchie]"_s, u"rossi 9"_s, u"rossi 10"_s, u"verdi"_s}));
    // Going in is going to wait; the way back is open.
    VaiSu(u"[vecchie]"_s);
    Premi(Qt::Key_Return);
    QVERIFY(F->InRicerca());
    Premi(Qt::Key_Backspace);
    Finita();
    QCOMPARE(Corrente(), u"[vecchie]"_s);
    F->close();
    QVERIFY2(Rete.Attesa(), "nobody has waited for it");
}

/// A list that is on view is refreshed: its rows stay, and open.
void TestTrovaCartelle::laReteCheNonRispondePiu()
{
    Apri();
    const CartellaFerma Rete(Note);
    Premi(Qt::Key_F5);
    QTRY_VERIFY(Rete.Attesa());
    QVERIFY(F->InRicerca());
    QCOMPARE(Nomi().size(), 4);
    Scrivi(Testo(), u"verdi"_s);
    QCOMPARE(Nomi(), (QStringList{u"[vecchie]"_s, u"verdi"_s}));
    VaiSu(u"verdi"_s);
    Premi(Qt::Key_Return);
    QCOMPARE(AperteDaQui, QStringList{Note + u"verdi.mdb"_s});
    QVERIFY(!F->isVisible() && !F->InRicerca());
}

#include "TestTrovaCartelle.moc"
