// A note whose decree's reference database is not what it was: missing, edited, without what the note names.
#include "supporto/guasti.h"
#include "supporto/prova.h"

#include "tariffa_file.h"

#include "feenote/file/modRecupero.h"
#include "platform/system/file.h"

#include <QDir>

using namespace Qt::StringLiterals;

class TestTariffaRitoccata : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void archivioInservibile_data();
    void archivioInservibile();
    void senzaElenchiNullaSiPerde_data();
    void senzaElenchiNullaSiPerde();
    void laSceltaNuovaVale_data();
    void laSceltaNuovaVale();
    void elencoRitoccato();
    void autoritaTolta();
    void primaLePartiPoiGliElenchi();
    void scaglioneTolto();
    void variazioneTolta();
    void senzaVariazioni();
    void opzioneDellAltroDecreto();
    void elencoVuoto_data();
    void elencoVuoto();
    void partiNonPreviste_data();
    void partiNonPreviste();
    void siStampaComeAllora_data();
    void siStampaComeAllora();
    void finoAlRicalcolo();
    void laLiberaVariaOgniVoce_data();
    void laLiberaVariaOgniVoce();
    void senzaColonnaAltrui_data();
    void senzaColonnaAltrui();
};
PROVA(TestTariffaRitoccata);

namespace {

const QString Coda =
    u": gli importi delle parcelle restano quelli che sono, e senza l'archivio non si possono "
    u"ricalcolare né salvare"_s;

const QString SenzaOpzione =
    u"Attenzione, l'archivio della tariffa D.m. 55/2014 non dice quale sia la variazione n. 101 della "
    u"parcella!\nLa percentuale resta come variazione libera e gli importi sono quelli salvati."_s;

}  // namespace

void TestTariffaRitoccata::archivioInservibile_data()
{
    QTest::addColumn<QString>("Sql");  // empty: the file goes
    QTest::addColumn<QString>("Motivo");
    QTest::addColumn<int>("Numero");
    const QString NonSiPuo = u"non si può usare (%1)"_s;
    QTest::newRow("missing") << QString() << u"manca dalla cartella del programma"_s << 3024;
    QTest::newRow("of another tariff")
        << u"UPDATE Tariffa SET Codice='37'"_s << NonSiPuo.arg(u"è l'archivio di un'altra tariffa"_s) << 3343;
    QTest::newRow("of none") << u"DROP TABLE Tariffa"_s << NonSiPuo.arg(u"non dice di quale tariffa è"_s)
                             << 3343;
    QTest::newRow("that says nothing")
        << u"DELETE FROM Tariffa"_s << NonSiPuo.arg(u"non dice di quale tariffa è"_s) << 3343;
    QTest::newRow("older") << u"UPDATE Tariffa SET Versione=0"_s
                           << NonSiPuo.arg(u"è più vecchio del programma"_s) << 3343;
}

void TestTariffaRitoccata::archivioInservibile()
{
    QFETCH(QString, Sql);
    QFETCH(QString, Motivo);
    QFETCH(int, Numero);
    const Studio Suo;
    const Database Tariffe = Tariffa55Propria(Suo);
    const QString File = Salvata(Suo, NotaScritta());
    const QList<qint64> Importi = Colonna(NotaScritta(), OnoImporto);
    if (Sql.isEmpty())
        QVERIFY(QFile::remove(Suo.File(u"parcelle55.mdb"_s)));
    else
        Tariffe.Execute(Sql);
    const QString Frase = u"L'archivio della tariffa D.m. 55/2014, parcelle55.mdb, "_s + Motivo + Coda;
    Registratore Voce;
    Voce.Attendi(u"Errore: %1 (%2)"_s.arg(Frase).arg(Numero));  // once, however many lists it lacks
    Voce.Attendi(SenzaOpzione);  // documents print the percent without its sentence
    Parcella Letta;
    CaricaDati(Letta, File);
    QCOMPARE(Letta.Tariffa, &Dm55);
    QCOMPARE(Letta.CodCateg, u"CIV"_s);
    QCOMPARE(Colonna(Letta, OnoImporto), Importi);
    QCOMPARE(Letta.AumRidVarP, 20);
    QVERIFY(!Letta.RicalcoloNecessario);
    QVERIFY(!Letta.Modificata);
    // What cannot be kept is not written, and the file stays what it was.
    const QByteArray Prima = LeggiFile(File);
    QCOMPARE(DescrizioneErroreDi([&] { ScriviNota(File, Letta); }), Frase);
    QCOMPARE(LeggiFile(File), Prima);
}

void TestTariffaRitoccata::senzaElenchiNullaSiPerde_data()
{
    QTest::addColumn<QString>("Sql");  // empty: the file goes
    QTest::addColumn<bool>("DiRecupero");
    QTest::newRow("missing") << QString() << false;
    QTest::newRow("missing, recovery copy") << QString() << true;
    QTest::newRow("older") << u"UPDATE Tariffa SET Versione=0"_s << false;
    QTest::newRow("no offices") << u"DELETE FROM Autorità"_s << false;
    QTest::newRow("no brackets") << u"DELETE FROM Scaglioni"_s << false;
    QTest::newRow("without its office") << u"DELETE FROM Autorità WHERE IDAut=102"_s << false;
    QTest::newRow("without its bracket")
        << u"DELETE FROM Scaglioni WHERE Materia='C' AND NumSca=4"_s << false;
    QTest::newRow("without its option") << u"DELETE FROM Variazioni WHERE IDVar=101"_s << false;
    QTest::newRow("without options") << u"DROP TABLE Variazioni"_s << false;
}

void TestTariffaRitoccata::senzaElenchiNullaSiPerde()
{
    QFETCH(QString, Sql);
    QFETCH(bool, DiRecupero);
    const Studio Suo;
    const QString Archivio = Suo.File(u"parcelle55.mdb"_s);
    const Database Tariffe = Tariffa55Propria(Suo);
    QVERIFY(QFile::copy(Archivio, Archivio + u".buono"_s));
    const QString File = Salvata(Suo, NotaScritta());
    const MemoriaFile Prima = MemoriaDi(File);
    if (!Sql.isEmpty())
        Tariffe.Execute(Sql);
    else
        QVERIFY(QFile::remove(Archivio));
    Registratore Voce;
    Voce.Tollera();
    Parcella Letta;
    CaricaDati(Letta, File);

    // The database is back, and the note is saved.
    (void)QFile::remove(Archivio);
    QVERIFY(QFile::copy(Archivio + u".buono"_s, Archivio));
    QString Scritto = File;
    if (DiRecupero) {
        sessione::UserFolder = Suo.File(u"utente/"_s);
        QVERIFY(QDir().mkpath(sessione::UserFolder));
        AggiornaCopia(Letta, 1);
        const QStringList Copie = QDir(sessione::UserFolder + u"recupero"_s).entryList({u"*.mdb"_s});
        QCOMPARE(Copie.size(), 1);
        Scritto = sessione::UserFolder + u"recupero/"_s + Copie.first();
    } else {
        ScriviNota(File, Letta);
    }
    const MemoriaFile Dopo = MemoriaDi(Scritto);
    QCOMPARE(Dopo.value(u"Tariffa.Autorita"_s), u"102"_s);
    QCOMPARE(Dopo.value(u"Tariffa.Scaglione"_s), u"4"_s);
    QCOMPARE(Dopo.value(u"PartiAssistite"_s), u"3"_s);
    QCOMPARE(Parametro(Scritto, u"AumRidIdx"_s).toInt(), Telematici);
    Parcella Dinuovo;
    CaricaDati(Dinuovo, Scritto);
    QCOMPARE(Dinuovo.IDAutSelezionata(), IDTribunale55);
    QCOMPARE(Dinuovo.Scaglione, 4);
    QCOMPARE(Dinuovo.AumRidIdx, Telematici);
    QCOMPARE(Dinuovo.AumRidVarP, 20);
    if (DiRecupero) {
        TogliCopia(1);
        LasciaRecupero();
    }
}

void TestTariffaRitoccata::laSceltaNuovaVale_data()
{
    QTest::addColumn<QString>("Sql");
    QTest::addColumn<QString>("Che");
    QTest::newRow("another office") << u"DELETE FROM Autorità WHERE IDAut=102"_s << u"ufficio"_s;
    QTest::newRow("another bracket") << u"DELETE FROM Scaglioni WHERE NumSca=4"_s << u"scaglione"_s;
    QTest::newRow("another value") << u"DELETE FROM Scaglioni"_s << u"valore"_s;
    QTest::newRow("another option") << u"DELETE FROM Variazioni WHERE IDVar=101"_s << u"opzione"_s;
    QTest::newRow("the free option") << u"DELETE FROM Variazioni WHERE IDVar=101"_s << u"libera"_s;
    QTest::newRow("another percent") << u"DELETE FROM Variazioni WHERE IDVar=101"_s << u"percento"_s;
    QTest::newRow("recalculated") << u"DELETE FROM Variazioni WHERE IDVar=101"_s << u"ricalcolo"_s;
    QTest::newRow("another category") << u"DELETE FROM Autorità"_s << u"categoria"_s;
}

void TestTariffaRitoccata::laSceltaNuovaVale()
{
    QFETCH(QString, Sql);
    QFETCH(QString, Che);
    const Studio Suo;
    const Database Tariffe = Tariffa55Propria(Suo);
    const QString File = Salvata(Suo, NotaScritta());
    Tariffe.Execute(Sql);
    Registratore Voce;
    Voce.Tollera();
    Parcella Letta;
    CaricaDati(Letta, File);
    QVERIFY(!Letta.Modificata);
    Letta.xOnorari = TabellaRighe{OnoColonne};
    Catalogo Voci;
    if (Che == u"ufficio")
        CambiaAutorita(Letta, IndiceAutorita(Letta, IDGiudiceDiPace55));
    else if (Che == u"scaglione")
        QVERIFY(CambiaScaglione(Letta, 0));
    else if (Che == u"valore")
        ScriviValore(Letta, u"900"_s);
    else if (Che == u"opzione")
        ScegliAumRid(Letta, 103);
    else if (Che == u"libera")
        ScegliAumRid(Letta, AumRidLibera);
    else if (Che == u"categoria")
        CambiaCategoria(Letta, CategStragiudiziale);
    else if (Che == u"percento") {
        CambiaTestoAumRid(Letta, u"15"_s);
        LasciaAumRid(Letta);
    } else {
        SegnaRicalcolo(Letta);
        EntraOnorari(Letta, Voci);
        SegnaRicalcolo(Letta);
        EntraOnorari(Letta, Voci);
    }
    if (Che == u"libera")
        QCOMPARE(FraseVariazione(Letta),
                 u"Applicato aumento 20% "_s);  // that of the file was another option's
    ScriviNota(File, Letta);
    const MemoriaFile Dopo = MemoriaDi(File);
    QCOMPARE(Dopo.contains(u"Variazione.Frase"_s),
             OpzioneInForza(Letta)->Numero != AumRidLibera && Letta.AumRidVarP != 0);
    const auto Numero = [&Dopo](const QString& Nome) { return Dopo.value(u"Tariffa."_s + Nome).toInt(); };
    QCOMPARE(Numero(u"Autorita"_s), Letta.IDAutSelezionata());
    const ScaglioneValore* Scelto = Letta.ScaglioneSelezionato();
    QCOMPARE(Numero(u"Scaglione"_s), Scelto ? Scelto->NumSca : 0);
    QCOMPARE(Parametro(File, u"Autor"_s).toInt(), Letta.cmbAutor);
    QCOMPARE(Parametro(File, u"Valore"_s).toInt(), Letta.cmbValore);
    QCOMPARE(Parametro(File, u"AumRidIdx"_s).toInt(), Letta.AumRidIdx);
    QVERIFY(Letta.Modificata || Che == u"ricalcolo");
}

void TestTariffaRitoccata::elencoRitoccato()
{
    const Studio Suo;
    Registratore Voce;
    const Database Tariffe = Tariffa55Propria(Suo);
    const QString File = Salvata(Suo, NotaScritta());
    // Another office in front, another bracket in front: what the file has by its place is no longer there.
    Tariffe.Execute(u"INSERT INTO Autorità (IDAut, DesAut, TipoAut, PreLoad, Compatib, IDX) "
                    u"VALUES (199, 'Ufficio nuovo', 'CIV', 0, '*', 0)"_s);
    Tariffe.Execute(u"UPDATE Scaglioni SET Materia='X' WHERE Materia='C' AND NumSca=1"_s);
    Parcella Letta;
    CaricaDati(Letta, File);
    QCOMPARE(Letta.IDAutSelezionata(), IDTribunale55);
    QCOMPARE(Letta.IdxAutorPrec, Letta.cmbAutor);
    QCOMPARE(Letta.Scaglione, 4);
    QVERIFY(Letta.ScaglioneSelezionato());
    QCOMPARE(Letta.ScaglioneSelezionato()->NumSca, 4);
}

void TestTariffaRitoccata::autoritaTolta()
{
    const Studio Suo;
    const Database Tariffe = Tariffa55Propria(Suo);
    const QString File = Salvata(Suo, NotaScritta());
    Tariffe.Execute(u"DELETE FROM Autorità WHERE IDAut=102"_s);
    Registratore Voce;
    Voce.Attendi(
        u"Attenzione, nell'archivio della tariffa D.m. 55/2014 non c'è più l'autorità della parcella!\nGli "
        u"importi della parcella restano quelli salvati."_s,
        vbOK, u"Avvertenza:"_s);
    Parcella Letta;
    CaricaDati(Letta, File);
    QCOMPARE(Letta.cmbAutor, NessunaVoce);
    QCOMPARE(Colonna(Letta, OnoImporto)[1], qint64(123456));
    QVERIFY(!Letta.RicalcoloNecessario);
}

// Who the note is for is told before what has become of its tariff.
void TestTariffaRitoccata::primaLePartiPoiGliElenchi()
{
    const Studio Suo;
    const Database Tariffe = Tariffa55Propria(Suo);
    Parcella Nota = NotaScritta();
    Nota.IDCli = 77;
    const QString File = Salvata(Suo, Nota);
    Tariffe.Execute(u"DELETE FROM Autorità WHERE IDAut=102"_s);
    Registratore Voce;
    Voce.Attendi(u"Il cliente associato alla parcella non è stato trovato!"_s, vbOK, u"Errore:"_s);
    Voce.Attendi(
        u"Attenzione, nell'archivio della tariffa D.m. 55/2014 non c'è più l'autorità della parcella!\nGli "
        u"importi della parcella restano quelli salvati."_s,
        vbOK, u"Avvertenza:"_s);
    Parcella Letta;
    CaricaDati(Letta, File);
    QCOMPARE(Letta.cmbAutor, NessunaVoce);
}

void TestTariffaRitoccata::scaglioneTolto()
{
    const Studio Suo;
    const Database Tariffe = Tariffa55Propria(Suo);
    const QString File = Salvata(Suo, NotaScritta());
    Tariffe.Execute(u"DELETE FROM Scaglioni WHERE Materia='C' AND NumSca=4"_s);
    Registratore Voce;
    Voce.Attendi(
        u"Attenzione, nell'archivio della tariffa D.m. 55/2014 non c'è più lo scaglione della parcella!\nGli "
        u"importi della parcella restano quelli salvati."_s);
    Parcella Letta;
    CaricaDati(Letta, File);
    QCOMPARE(Letta.cmbValore, NessunaVoce);
    QCOMPARE(Colonna(Letta, OnoImporto)[1], qint64(123456));
}

void TestTariffaRitoccata::variazioneTolta()
{
    const Studio Suo;
    const Database Tariffe = Tariffa55Propria(Suo);
    const QString File = Salvata(Suo, NotaScritta());
    const QList<qint64> Importi = Colonna(NotaScritta(), OnoImporto);
    Tariffe.Execute(u"DELETE FROM Variazioni WHERE IDVar=101"_s);
    Registratore Voce;
    Voce.Attendi(
        u"Attenzione, la variazione n. 101 della parcella non è fra quelle della tariffa D.m. 55/2014!\nLa "
        u"percentuale resta come variazione libera e gli importi sono quelli salvati."_s,
        vbOK, u"Avvertenza:"_s);
    Parcella Letta;
    CaricaDati(Letta, File);
    QCOMPARE(Letta.AumRidIdx, AumRidLibera);
    QCOMPARE(Letta.AumRidVarP, 20);
    QCOMPARE(Colonna(Letta, OnoImporto), Importi);
    Catalogo Voci;
    EntraOnorari(Letta, Voci);
    QCOMPARE(Colonna(Letta, OnoImporto), Importi);  // nothing is recalculated in silence
}

void TestTariffaRitoccata::senzaVariazioni()
{
    const Studio Suo;
    const Database Tariffe = Tariffa55Propria(Suo);
    const QString File = Salvata(Suo, NotaScritta());
    const QString Frase = FraseVariazione(NotaScritta());
    Tariffe.Execute(u"DROP TABLE Variazioni"_s);
    Registratore Voce;
    Voce.Attendi(SenzaOpzione, vbOK, u"Avvertenza:"_s);
    Parcella Letta;
    CaricaDati(Letta, File);
    QCOMPARE(OpzioniAumRid(Letta).size(), 1);
    // The file has kept the option's own sentence.
    QCOMPARE(FraseVariazione(Letta), Frase);
    // One from before it did is printed with what the note itself has.
    EseguiSu(File, u"DELETE FROM _Calcanova WHERE Nome LIKE 'Variazione.%'"_s);
    Voce.Attendi(SenzaOpzione);
    CaricaDati(Letta, File);
    QCOMPARE(FraseVariazione(Letta), u"Applicato aumento 20% "_s);
    QCOMPARE(Colonna(Letta, OnoImporto)[1], qint64(123456));
}

void TestTariffaRitoccata::opzioneDellAltroDecreto()
{
    const Studio Suo;
    const Database Tariffe = Tariffa55Propria(Suo);
    const QString File = Salvata(Suo, NotaScritta());
    EseguiSu(File, u"UPDATE ParcellaParam SET AumRidIdx=3"_s);
    Tariffe.Execute(u"DROP TABLE Variazioni"_s);
    Registratore Voce;
    Voce.Attendi(QString(SenzaOpzione).replace(u"n. 101"_s, u"n. 3"_s));
    Parcella Letta;
    CaricaDati(Letta, File);
    QCOMPARE(Letta.AumRidIdx, AumRidLibera);
    QVERIFY(!FraseVariazione(Letta).contains(u"Conciliazioni"_s));
}

void TestTariffaRitoccata::elencoVuoto_data()
{
    QTest::addColumn<QStringList>("Sql");
    QTest::addColumn<QString>("Che");
    const QString Uffici = u"DELETE FROM Autorità"_s;
    const QString Fasce = u"DELETE FROM Scaglioni"_s;
    QTest::newRow("offices") << QStringList{Uffici} << u"alcuna autorità"_s;
    QTest::newRow("brackets") << QStringList{Fasce} << u"alcuno scaglione"_s;
    QTest::newRow("both") << QStringList{Uffici, Fasce} << u"alcuna autorità né alcuno scaglione"_s;
}

void TestTariffaRitoccata::elencoVuoto()
{
    QFETCH(QStringList, Sql);
    QFETCH(QString, Che);
    const Studio Suo;
    const Database Tariffe = Tariffa55Propria(Suo);
    Parcella Nota = NotaScritta();
    ScegliAumRid(Nota, AumRidLibera);
    const QString File = Salvata(Suo, Nota);
    for (const QString& Istruzione : Sql)
        Tariffe.Execute(Istruzione);
    Registratore Voce;
    Voce.Attendi(u"Attenzione, l'archivio della tariffa D.m. 55/2014, parcelle55.mdb, non ha più %1 per la "
                 u"categoria della parcella!\nGli importi della parcella restano quelli salvati."_s.arg(Che),
                 vbOK, u"Avvertenza:"_s);
    Parcella Letta;
    CaricaDati(Letta, File);
    QCOMPARE(Colonna(Letta, OnoImporto)[1], qint64(123456));
    QVERIFY(!Letta.RicalcoloNecessario);
}

void TestTariffaRitoccata::partiNonPreviste_data()
{
    QTest::addColumn<int>("Categoria");
    QTest::addColumn<int>("Ufficio");
    QTest::addColumn<int>("Parti");
    QTest::addColumn<bool>("Detto");
    QTest::newRow("civil") << int(CategCivile) << IDTribunale55 << 3 << true;
    QTest::newRow("criminal") << int(CategPenale) << IDMonocratico55 << 2 << true;
    QTest::newRow("one party") << int(CategCivile) << IDTribunale55 << 1 << false;
}

void TestTariffaRitoccata::partiNonPreviste()
{
    QFETCH(int, Categoria);
    QFETCH(int, Ufficio);
    QFETCH(int, Parti);
    QFETCH(bool, Detto);
    const Studio Suo;
    const Database Tariffe = Tariffa55Propria(Suo);
    Parcella Nota = Nota55(Categoria, Ufficio, Categoria == CategPenale ? QString() : u"30000"_s);
    CaricaParti(Nota, Parti);
    Catalogo Voci;
    EntraOnorari(Nota, Voci);
    const QString File = Salvata(Suo, Nota);
    Tariffe.Execute(u"DROP TABLE PartiAssistite"_s);
    Registratore Voce;
    if (Detto)
        Voce.Attendi(u"Attenzione, l'archivio della tariffa D.m. 55/2014, parcelle55.mdb, non dice più "
                     u"l'aumento per le %1 parti assistite della parcella!\nGli importi della parcella "
                     u"restano quelli salvati."_s.arg(Parti),
                     vbOK, u"Avvertenza:"_s);
    Parcella Letta;
    CaricaDati(Letta, File);
    QCOMPARE(Letta.PartiAssistite, Parti);
    QCOMPARE(Colonna(Letta, OnoImporto), Colonna(Nota, OnoImporto));
}

void TestTariffaRitoccata::siStampaComeAllora_data()
{
    QTest::addColumn<QStringList>("Sql");
    QTest::addColumn<int>("Opzione");
    QTest::newRow("no options, no parties")
        << QStringList{u"DROP TABLE Variazioni"_s, u"DROP TABLE PartiAssistite"_s} << int(Telematici);
    QTest::newRow("the option is gone") << QStringList{u"DELETE FROM Variazioni WHERE IDVar=102"_s} << 102;
    QTest::newRow("other words") << QStringList{u"UPDATE Variazioni SET Frase='Aumento (%1)'"_s}
                                 << int(Telematici);
    QTest::newRow("no words") << QStringList{u"UPDATE Variazioni SET Frase=NULL"_s} << int(Telematici);
    QTest::newRow("for other items") << QStringList{u"UPDATE Variazioni SET Voci=',301,' WHERE IDVar=102"_s}
                                     << 102;
    QTest::newRow("another third") << QStringList{u"UPDATE Variazioni SET Esatto=33.9 WHERE IDVar=104"_s}
                                   << 104;
    QTest::newRow("no third") << QStringList{u"UPDATE Variazioni SET Esatto=NULL WHERE IDVar=104"_s} << 104;
    QTest::newRow("another percent for the parties")
        << QStringList{u"UPDATE PartiAssistite SET Perc=40 WHERE Da=2"_s} << int(Telematici);
    QTest::newRow("another article") << QStringList{u"UPDATE PartiAssistite SET Articolo='art. 99'"_s}
                                     << int(Telematici);
}

/// A note prints what its lines were reckoned with, whatever the database says by now; a line more is
/// reckoned as its neighbours were.
void TestTariffaRitoccata::siStampaComeAllora()
{
    QFETCH(QStringList, Sql);
    QFETCH(int, Opzione);
    const Studio Suo;
    const Database Tariffe = Tariffa55Propria(Suo);
    Parcella Nota = Nota55(CategCivile, IDTribunale55, u"30000"_s);
    ScegliAumRid(Nota, Opzione);
    CaricaParti(Nota, 3);
    Catalogo Voci;
    EntraOnorari(Nota, Voci);
    const QString File = Salvata(Suo, Nota);
    for (const QString& Istruzione : Sql)
        Tariffe.Execute(Istruzione);
    Registratore Voce;
    Voce.Tollera();
    Parcella Letta;
    CaricaDati(Letta, File);
    QCOMPARE(FraseVariazione(Letta), FraseVariazione(Nota));
    QCOMPARE(FraseParti(Letta), FraseParti(Nota));
    QCOMPARE(TestoAumRidOno(Letta), TestoAumRidOno(Nota));
    QVERIFY(!FraseVariazione(Letta).isEmpty() && !FraseParti(Letta).isEmpty());
    Letta.xOnorari = TabellaRighe{OnoColonne};
    EntraOnorari(Letta, Voci);
    QCOMPARE(Colonna(Letta, OnoImporto), Colonna(Nota, OnoImporto));
    // And saved once more, with nothing lost on the way.
    ScriviNota(File, Letta);
    Parcella Dinuovo;
    CaricaDati(Dinuovo, File);
    QCOMPARE(FraseVariazione(Dinuovo), FraseVariazione(Nota));
    QCOMPARE(FraseParti(Dinuovo), FraseParti(Nota));
}

/// What is reckoned anew goes by the database of today, and what the user changes too.
void TestTariffaRitoccata::finoAlRicalcolo()
{
    const Studio Suo;
    const Database Tariffe = Tariffa55Propria(Suo);
    const QString File = Salvata(Suo, NotaScritta());
    Tariffe.Execute(u"UPDATE PartiAssistite SET Perc=40 WHERE Da=2"_s);
    Tariffe.Execute(u"UPDATE Variazioni SET Frase='Aumento (%1)'"_s);
    Registratore Voce;
    const auto Aperta = [&] {
        Parcella Letta;
        CaricaDati(Letta, File);
        return Letta;
    };
    Parcella Letta = Aperta();
    QCOMPARE(AumentoParti(Letta), 60);
    SegnaRicalcolo(Letta);
    Catalogo Voci;
    EntraOnorari(Letta, Voci);
    QCOMPARE(AumentoParti(Letta), 80);
    QCOMPARE(FraseVariazione(Letta), u"Aumento (20)"_s);
    Letta = Aperta();
    Letta.txtParti.Testo = u"3"_s;
    LasciaParti(Letta);  // nothing changed
    QCOMPARE(AumentoParti(Letta), 60);
    Letta.txtParti.Testo = u"2"_s;
    LasciaParti(Letta);
    QCOMPARE(AumentoParti(Letta), 40);
    Letta = Aperta();
    CambiaTestoAumRid(Letta, u"15"_s);
    LasciaAumRid(Letta);
    QCOMPARE(FraseVariazione(Letta), u"Aumento (15)"_s);
}

void TestTariffaRitoccata::laLiberaVariaOgniVoce_data()
{
    QTest::addColumn<int>("Opzione");
    QTest::addColumn<bool>("DaRifare");
    QTest::newRow("for the decisional phase alone") << 102 << true;
    QTest::newRow("by a third") << 104 << true;
    QTest::newRow("for every item, by its percent") << int(Telematici) << false;
}

/// The free option in place of one that the list lacks: lines that it would have made otherwise wait.
void TestTariffaRitoccata::laLiberaVariaOgniVoce()
{
    QFETCH(int, Opzione);
    QFETCH(bool, DaRifare);
    const Studio Suo;
    const Database Tariffe = Tariffa55Propria(Suo);
    Parcella Nota = Nota55(CategCivile, IDTribunale55, u"30000"_s);
    ScegliAumRid(Nota, Opzione);
    Catalogo Voci;
    EntraOnorari(Nota, Voci);
    const QString File = Salvata(Suo, Nota);
    Tariffe.Execute(u"DELETE FROM Variazioni"_s);
    Registratore Voce;
    Voce.Tollera();
    Parcella Letta;
    CaricaDati(Letta, File);
    ScegliAumRid(Letta, AumRidLibera);
    QCOMPARE(RicalcoloInSospeso(Letta), DaRifare);
    EntraOnorari(Letta, Voci);
    const qint64 Percento = Letta.AumRidVarP;
    QCOMPARE(Colonna(Letta, OnoImporto), (QList<qint64>{1701 * (100 + Percento), 1204 * (100 + Percento),
                                                        1806 * (100 + Percento), 2905 * (100 + Percento)}));
}

void TestTariffaRitoccata::senzaColonnaAltrui_data()
{
    QTest::addColumn<int>("Categoria");
    QTest::addColumn<int>("Ufficio");
    QTest::addColumn<QString>("Sql");
    QTest::newRow("office") << int(CategPenale) << IDMonocratico55
                            << u"DELETE FROM Autorità WHERE IDAut=138"_s;
    QTest::newRow("bracket") << int(CategCivile) << IDTribunale55
                             << u"DELETE FROM Scaglioni WHERE Materia='C' AND NumSca=4"_s;
}

/// Where the list lacks what the file names, no neighbour's amounts stand in for it.
void TestTariffaRitoccata::senzaColonnaAltrui()
{
    QFETCH(int, Categoria);
    QFETCH(int, Ufficio);
    QFETCH(QString, Sql);
    const Studio Suo;
    const Database Tariffe = Tariffa55Propria(Suo);
    const QString File =
        Salvata(Suo, Nota55ConFasi(Categoria, Ufficio, Categoria == CategPenale ? QString() : u"30000"_s));
    Tariffe.Execute(Sql);
    Registratore Voce;
    Voce.Tollera();
    Parcella Letta;
    CaricaDati(Letta, File);
    QVERIFY(Letta.cmbAutor == NessunaVoce || Letta.cmbValore == NessunaVoce);
    QCOMPARE(Letta.Scaglione, 0);
}

#include "TestTariffaRitoccata.moc"
