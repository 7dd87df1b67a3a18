// The decree of a note in its file, in templates and in descriptions; what happens when the reference
// database of a note's decree is not what it was.
#include "supporto/prova.h"

#include "file_prova.h"

#include "feenote/file/memorianota.h"
#include "feenote/file/modDescrizione.h"
#include "feenote/file/modMultipla.h"
#include "feenote/file/modRecupero.h"
#include "feenote/modVariazione.h"
#include "feenote/tariffa_prova.h"
#include "platform/base/errore.h"
#include "platform/system/file.h"

#include <QDir>
#include <QJsonDocument>
#include <QJsonObject>

using namespace Qt::StringLiterals;

class TestTariffaNelFile : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void vaEViene_data();
    void vaEViene();
    void ilFileDelDodiciNonLaNomina();
    void unModelloLaTiene();
    void laCopiaDiRecuperoLaTiene();
    void laImpostazioneNonTocca();
    void tariffaSconosciuta_data();
    void tariffaSconosciuta();
    void archivioInservibile_data();
    void archivioInservibile();
    void senzaElenchiNullaSiPerde_data();
    void senzaElenchiNullaSiPerde();
    void laSceltaNuovaVale_data();
    void laSceltaNuovaVale();
    void senzaLArchivioDelDodici();
    void elencoRitoccato();
    void autoritaTolta();
    void scaglioneTolto();
    void variazioneTolta();
    void senzaVariazioni();
    void opzioneDellAltroDecreto();
    void elencoVuoto_data();
    void elencoVuoto();
    void partiNonPreviste_data();
    void partiNonPreviste();
    void associata();
    void descrizione();
    void descrizioneSenzaTariffa();
    void descrizioneRifiutata_data();
    void descrizioneRifiutata();
    void notaMostrata();
    void sommeAlCentesimo();
};
PROVA(TestTariffaNelFile);

namespace {

constexpr int Telematici = 101;

const QString Coda =
    u": gli importi delle parcelle restano quelli che sono, e senza l'archivio non si possono "
    u"ricalcolare né salvare"_s;

const QString SenzaOpzione =
    u"Attenzione, l'archivio della tariffa D.m. 55/2014 non dice quale sia la variazione n. 101 della "
    u"parcella!\nLa percentuale resta come variazione libera e gli importi sono quelli salvati."_s;

/// A court at 30.000 euro, an increase, three parties, an amount of the user's own.
Parcella NotaScritta()
{
    Parcella Nota = Nota55(CategCivile, IDTribunale55, u"30000"_s);
    Nota.txtCliente.Testo = u"Rossi Mario"_s;
    ScegliAumRid(Nota, Telematici);
    CambiaTestoAumRid(Nota, u"20"_s);
    LasciaAumRid(Nota);
    CaricaParti(Nota, 3);
    Catalogo Voci;
    EntraOnorari(Nota, Voci);
    Nota.xOnorari(1, OnoImporto) = 1234.56;
    return Nota;
}

QString Salvata(const Studio& Ufficio, const Parcella& Nota)
{
    const QString File = Ufficio.File(u"nota.mdb"_s);
    ScriviNota(File, Nota);
    return File;
}

/// The sentence of the failure that a procedure ends with; empty for one that comes to its end.
template <class F>
QString DescrizioneErroreDi(F&& Procedura)
{
    try {
        Procedura();
    } catch (const Errore& Guasto) {
        return Guasto.Descrizione;
    }
    return {};
}

MemoriaFile MemoriaDi(const QString& File)
{
    return LeggiMemoria(OpenDatabase(File, true));
}

}  // namespace

void TestTariffaNelFile::vaEViene_data()
{
    QTest::addColumn<int>("Categoria");
    QTest::addColumn<int>("Ufficio");
    QTest::addColumn<QString>("Valore");
    QTest::newRow("civil") << int(CategCivile) << IDTribunale55 << u"30000"_s;
    QTest::newRow("criminal") << int(CategPenale) << IDMonocratico55 << QString();
    QTest::newRow("out of court") << int(CategStragiudiziale) << IDStragiudiziale55 << u"30000"_s;
    QTest::newRow("nothing chosen") << -1 << 0 << QString();
}

void TestTariffaNelFile::vaEViene()
{
    QFETCH(int, Categoria);
    QFETCH(int, Ufficio);
    QFETCH(QString, Valore);
    const Studio Suo;
    Registratore Voce;
    Parcella Nota;
    NuovaParcella(Nota, Dm55);
    if (Categoria >= 0)
        Nota = Nota55ConFasi(Categoria, Ufficio, Valore);
    const Parcella Letta = Riletta(Suo, Nota);
    QCOMPARE(Letta.Tariffa, &Dm55);
    QCOMPARE(Letta.IDAutSelezionata(), Ufficio);
    QCOMPARE(Letta.cmbValore, Nota.cmbValore);
    QCOMPARE(Letta.Scaglione, Nota.Scaglione);
    QCOMPARE(Letta.txtSpeGen.Testo, u"15"_s);
    QCOMPARE(Colonna(Letta, OnoImporto), Colonna(Nota, OnoImporto));
    QCOMPARE(Letta.ListaVariazioni, Nota.ListaVariazioni);
    QVERIFY(!Letta.RicalcoloNecessario);
    QVERIFY(!Letta.Modificata);

    const Parcella Piena = NotaScritta();
    const Parcella Riletto = Riletta(Suo, Piena);
    QCOMPARE(Riletto.AumRidIdx, Telematici);
    QCOMPARE(Riletto.AumRidVarP, 20);
    QCOMPARE(Riletto.PartiAssistite, 3);
    QCOMPARE(Riletto.txtParti.Testo, u"3"_s);
    QCOMPARE(Colonna(Riletto, OnoImporto)[1], qint64(123456));
}

void TestTariffaNelFile::ilFileDelDodiciNonLaNomina()
{
    const Studio Suo;
    Registratore Voce;
    const QString File = Salvata(Suo, NotaPiena());
    const MemoriaFile Memoria = MemoriaDi(File);
    for (const auto& [Nome, Valore] : Memoria.asKeyValueRange())
        QVERIFY2(!Nome.startsWith(u"Tariffa") && Nome != u"PartiAssistite", qPrintable(Nome));
    QCOMPARE(&TariffaDella(Memoria), &Dm140);
    const MemoriaFile Altra = MemoriaDi(Salvata(Suo, NotaScritta()));
    QCOMPARE(Altra.value(u"Tariffa"_s), u"55"_s);
    QCOMPARE(Altra.value(u"Tariffa.Autorita"_s), u"102"_s);
    QCOMPARE(Altra.value(u"Tariffa.Scaglione"_s), u"4"_s);
    QCOMPARE(Altra.value(u"PartiAssistite"_s), u"3"_s);
    QVERIFY(!HaVociIgnote(Altra));
}

void TestTariffaNelFile::unModelloLaTiene()
{
    const Studio Suo;
    Registratore Voce;
    const QString File = Suo.File(u"modello.mdb"_s);
    ScriviNota(File, NotaScritta(), true);
    QVERIFY(SolaLettura(File));
    Parcella Letta;
    CaricaDati(Letta, File);
    QCOMPARE(Letta.Tariffa, &Dm55);
    QCOMPARE(Letta.PartiAssistite, 3);
    QVERIFY(SolaLettura(File));
}

void TestTariffaNelFile::laCopiaDiRecuperoLaTiene()
{
    const Studio Suo;
    sessione::UserFolder = Suo.File(u"utente/"_s);
    QVERIFY(QDir().mkpath(sessione::UserFolder));
    Registratore Voce;
    AggiornaCopia(NotaScritta(), 1);
    const QStringList Copie = QDir(sessione::UserFolder + u"recupero"_s).entryList({u"*.mdb"_s});
    QCOMPARE(Copie.size(), 1);
    QCOMPARE(MemoriaDi(sessione::UserFolder + u"recupero/"_s + Copie.first()).value(u"Tariffa"_s), u"55"_s);
    TogliCopia(1);
    LasciaRecupero();
}

void TestTariffaNelFile::laImpostazioneNonTocca()
{
    const Studio Suo;
    Registratore Voce;
    const QString Vecchia = Salvata(Suo, NotaPiena());
    sessione::Tariffa = u"55"_s;
    Parcella Letta;
    CaricaDati(Letta, Vecchia);
    QCOMPARE(Letta.Tariffa, &Dm140);
    QCOMPARE(Letta.IDAutSelezionata(), IDTribunale);
    const QString Nuova = Suo.File(u"nuova.mdb"_s);
    ScriviNota(Nuova, NotaScritta());
    sessione::Tariffa = u"140"_s;
    CaricaDati(Letta, Nuova);
    QCOMPARE(Letta.Tariffa, &Dm55);
}

void TestTariffaNelFile::tariffaSconosciuta_data()
{
    QTest::addColumn<QString>("Sigla");
    QTest::newRow("of tomorrow") << u"99"_s;
    QTest::newRow("edited by hand") << u"D.m. 55/2014"_s;
}

void TestTariffaNelFile::tariffaSconosciuta()
{
    QFETCH(QString, Sigla);
    const Studio Suo;
    Registratore Voce;
    const QString File = Salvata(Suo, NotaScritta());
    EseguiSu(File, u"UPDATE _Calcanova SET Valore=? WHERE Nome='Tariffa'"_s, {Sigla});
    Parcella Letta = NotaCivile();
    const QString Detto = DescrizioneErroreDi([&] { CaricaDati(Letta, File); });
    QCOMPARE(Detto,
             u"La parcella segue una tariffa che questa versione del programma non conosce (%1): per aprirla "
             u"occorre aggiornarlo"_s.arg(Sigla));
    QVERIFY(Letta.Percorso.isEmpty());
    QVERIFY(Letta.xOnorari.Vuota());
    QVERIFY(!Letta.ListaAutorita.isEmpty());  // a new note
}

void TestTariffaNelFile::archivioInservibile_data()
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

void TestTariffaNelFile::archivioInservibile()
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

void TestTariffaNelFile::senzaElenchiNullaSiPerde_data()
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

void TestTariffaNelFile::senzaElenchiNullaSiPerde()
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

void TestTariffaNelFile::laSceltaNuovaVale_data()
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

void TestTariffaNelFile::laSceltaNuovaVale()
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
    ScriviNota(File, Letta);
    const MemoriaFile Dopo = MemoriaDi(File);
    const auto Numero = [&Dopo](const QString& Nome) { return Dopo.value(u"Tariffa."_s + Nome).toInt(); };
    QCOMPARE(Numero(u"Autorita"_s), Letta.IDAutSelezionata());
    const ScaglioneValore* Scelto = Letta.ScaglioneSelezionato();
    QCOMPARE(Numero(u"Scaglione"_s), Scelto ? Scelto->NumSca : 0);
    QCOMPARE(Parametro(File, u"Autor"_s).toInt(), Letta.cmbAutor);
    QCOMPARE(Parametro(File, u"Valore"_s).toInt(), Letta.cmbValore);
    QCOMPARE(Parametro(File, u"AumRidIdx"_s).toInt(), Letta.AumRidIdx);
    QVERIFY(Letta.Modificata || Che == u"ricalcolo");
}

void TestTariffaNelFile::senzaLArchivioDelDodici()
{
    const Studio Suo;
    (void)Tariffa55Propria(Suo);
    const QString File = Salvata(Suo, NotaScritta());
    QVERIFY(QFile::remove(Suo.File(u"parcelle.mdb"_s)));
    Registratore Voce;
    Parcella Letta;
    CaricaDati(Letta, File);  // it needs the other one alone
    QCOMPARE(Letta.IDAutSelezionata(), IDTribunale55);
    ScriviNota(File, Letta);
}

void TestTariffaNelFile::elencoRitoccato()
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

void TestTariffaNelFile::autoritaTolta()
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

void TestTariffaNelFile::scaglioneTolto()
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

void TestTariffaNelFile::variazioneTolta()
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

void TestTariffaNelFile::senzaVariazioni()
{
    const Studio Suo;
    const Database Tariffe = Tariffa55Propria(Suo);
    const QString File = Salvata(Suo, NotaScritta());
    Tariffe.Execute(u"DROP TABLE Variazioni"_s);
    Registratore Voce;
    Voce.Attendi(SenzaOpzione, vbOK, u"Avvertenza:"_s);
    Parcella Letta;
    CaricaDati(Letta, File);
    QCOMPARE(OpzioniAumRid(Letta).size(), 1);
    QCOMPARE(FraseVariazione(Letta), u"Applicato aumento 20% "_s);
    QCOMPARE(Colonna(Letta, OnoImporto)[1], qint64(123456));
}

void TestTariffaNelFile::opzioneDellAltroDecreto()
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

void TestTariffaNelFile::elencoVuoto_data()
{
    QTest::addColumn<QStringList>("Sql");
    QTest::addColumn<QString>("Che");
    const QString Uffici = u"DELETE FROM Autorità"_s;
    const QString Fasce = u"DELETE FROM Scaglioni"_s;
    QTest::newRow("offices") << QStringList{Uffici} << u"alcuna autorità"_s;
    QTest::newRow("brackets") << QStringList{Fasce} << u"alcuno scaglione"_s;
    QTest::newRow("both") << QStringList{Uffici, Fasce} << u"alcuna autorità né alcuno scaglione"_s;
}

void TestTariffaNelFile::elencoVuoto()
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

void TestTariffaNelFile::partiNonPreviste_data()
{
    QTest::addColumn<int>("Categoria");
    QTest::addColumn<int>("Ufficio");
    QTest::addColumn<int>("Parti");
    QTest::addColumn<bool>("Detto");
    QTest::newRow("civil") << int(CategCivile) << IDTribunale55 << 3 << true;
    QTest::newRow("criminal") << int(CategPenale) << IDMonocratico55 << 2 << true;
    QTest::newRow("one party") << int(CategCivile) << IDTribunale55 << 1 << false;
}

void TestTariffaNelFile::partiNonPreviste()
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

void TestTariffaNelFile::associata()
{
    const Studio Suo;
    Registratore Voce;
    const QString File = Salvata(Suo, NotaScritta());
    Parcella Principale = NotaCivile();
    QVERIFY(AssociaMulti(Principale, File));
    QCOMPARE(Principale.Multi.Tariffa, &Dm55);
    QCOMPARE(Principale.Multi.Autor, u"Tribunale - cognizione ordinaria e sommaria"_s);
    QCOMPARE(Principale.Tariffa, &Dm140);
}

void TestTariffaNelFile::descrizione()
{
    const Studio Suo;
    Registratore Voce;
    const QByteArray Json = R"({"tariffa": "55", "categoria": "CIV", "autorita": 102, "valore": 30000,
        "variazione": {"opzione": 102, "partiAssistite": 2}, "onorari": [{"voce": 999, "importo": 100.5}]})";
    const Parcella Nota = CreaDaDescrizione(Json);
    QCOMPARE(Nota.Tariffa, &Dm55);
    // Thirty per cent for the second party, a quarter more on the decisional phase: 2.905 x 1,3 x 1,25.
    QCOMPARE(Colonna(Nota, OnoImporto), (QList<qint64>{221130, 156520, 234780, 472063, 10050}));
    QVERIFY(Nota.chkSpeseGen.Attiva);
    const Parcella ConNumero = CreaDaDescrizione(R"({"tariffa": 55, "categoria": "PEN", "autorita": 138})");
    QCOMPARE(ConNumero.Tariffa, &Dm55);
}

void TestTariffaNelFile::descrizioneSenzaTariffa()
{
    const Studio Suo;
    Registratore Voce;
    sessione::Tariffa = u"55"_s;  // a description from before goes on meaning what it meant
    const Parcella Nota = CreaDaDescrizione(R"({"categoria": "CIV", "autorita": 2, "valore": 30000})");
    QCOMPARE(Nota.Tariffa, &Dm140);
    QCOMPARE(Colonna(Nota, OnoImporto), (QList<qint64>{120000, 60000, 120000, 150000}));
    QCOMPARE(CreaDaDescrizione(R"({"tariffa": "140", "categoria": "PEN", "autorita": 23})").Tariffa, &Dm140);
}

void TestTariffaNelFile::descrizioneRifiutata_data()
{
    QTest::addColumn<QByteArray>("Json");
    QTest::addColumn<QString>("Motivo");
    QTest::newRow("a tariff that is none") << QByteArray(R"({"tariffa": "37", "categoria": "CIV"})")
                                           << u"Campo tariffa: «37» non è una tariffa (140, 55)"_s;
    QTest::newRow("a truth value") << QByteArray(R"({"tariffa": true, "categoria": "CIV"})")
                                   << u"Campo tariffa: deve essere un numero o un testo"_s;
    QTest::newRow("an office of the other decree")
        << QByteArray(R"({"tariffa": "55", "categoria": "CIV", "autorita": 2, "valore": 30000})")
        << u"Campo autorita: «2» non è un'autorità della categoria"_s;
    QTest::newRow("an option of the other decree")
        << QByteArray(
               R"({"tariffa": "55", "categoria": "PEN", "autorita": 138, "variazione": {"opzione": 6}})")
        << u"Campo variazione.opzione: le opzioni sono 122, 123, 124, 5"_s;
    QTest::newRow("an option of this decree in the other")
        << QByteArray(R"({"categoria": "PEN", "autorita": 23, "variazione": {"opzione": 123}})")
        << u"Campo variazione.opzione: le opzioni vanno da 0 a 10"_s;
    QTest::newRow("parties by the other decree")
        << QByteArray(R"({"categoria": "PEN", "autorita": 23, "variazione": {"partiAssistite": 2}})")
        << u"Campo variazione.partiAssistite: per questa tariffa o categoria le parti non contano"_s;
    QTest::newRow("no party")
        << QByteArray(R"({"tariffa": "55", "categoria": "PEN", "variazione": {"partiAssistite": 0}})")
        << u"Campo variazione.partiAssistite: il numero va da 1 a 999"_s;
    QTest::newRow("an item without an amount there")
        << QByteArray(R"({"tariffa": "55", "categoria": "PEN", "autorita": 145, "onorari": [{"voce": 3}]})")
        << u"Campo onorari[0].voce: la voce non può essere inserita"_s;
    QTest::newRow("beyond the last bracket")
        << QByteArray(R"({"tariffa": "55", "categoria": "CIV", "autorita": 102, "valore": 17000000})")
        << u"Campo valore: Il valore della causa specificato non è compreso nello scaglione!"_s;
}

void TestTariffaNelFile::descrizioneRifiutata()
{
    QFETCH(QByteArray, Json);
    QFETCH(QString, Motivo);
    const Studio Suo;
    Registratore Voce;
    Voce.Tollera();
    QCOMPARE(DescrizioneErroreDi([&] { (void)CreaDaDescrizione(Json); }), Motivo);
}

void TestTariffaNelFile::notaMostrata()
{
    const Studio Suo;
    Registratore Voce;
    const QJsonObject Nuova = QJsonDocument::fromJson(DescriviNota(NotaScritta())).object();
    QCOMPARE(Nuova[u"tariffa"_s].toString(), u"55"_s);
    QCOMPARE(Nuova[u"variazione"_s].toObject()[u"partiAssistite"_s].toInt(), 3);
    QCOMPARE(Nuova[u"variazione"_s].toObject()[u"opzione"_s].toInt(), Telematici);
    const QJsonObject Vecchia = QJsonDocument::fromJson(DescriviNota(NotaPiena())).object();
    QVERIFY(!Vecchia.contains(u"tariffa"_s));
    QVERIFY(!Vecchia[u"variazione"_s].toObject().contains(u"partiAssistite"_s));
}

/// Sums of cents show no rest of their binary form.
void TestTariffaNelFile::sommeAlCentesimo()
{
    const Studio Suo;
    Registratore Voce;
    Parcella Nota = NotaScritta();
    for (int Riga = 0; Riga < 3; ++Riga)
        for (const int Colonna : {OnoImporto, OnoMedio, OnoMin, OnoMax})
            Nota.xOnorari(Riga, Colonna) = 0.1;
    Nota.xOnorari.EliminaRiga(3);
    for (int Riga = 0; Riga < 3; ++Riga) {
        Nota.xDiritti.AggiungiRiga();
        Nota.xDiritti(Riga, DirImponibile) = 0.1;
        Nota.xDiritti(Riga, DirEsente) = 0.7;
    }
    const QJsonObject Totali = QJsonDocument::fromJson(DescriviNota(Nota)).object()[u"totali"_s].toObject();
    for (const QString& Nome : {u"onorari"_s, u"medi"_s, u"minimi"_s, u"massimi"_s, u"speseImponibili"_s})
        QVERIFY2(Totali[Nome].toDouble() == 0.3, qPrintable(Nome));
    QVERIFY(Totali[u"speseEsenti"_s].toDouble() == 2.1);
}

#include "TestTariffaNelFile.moc"
