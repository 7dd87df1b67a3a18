// Names of a file into the archive: counted, written, and taken back.
#include "bancoimporta.h"
#include "supporto/guasti.h"
#include "supporto/maschera.h"

#include "addressbook/exchange/annullo.h"
#include "addressbook/exchange/vcard.h"
#include "platform/system/percorsi.h"

#include <QFileInfo>

using namespace Qt::StringLiterals;

class TestImporta : public QObject, private BancoImporta
{
    Q_OBJECT

private Q_SLOTS:
    void init() { S = std::make_unique<Studio>(); }
    void siAggiungono();
    void iDoppioni_data();
    void iDoppioni();
    void gliOmonimi();
    void iCodiciCheNonLoSono();
    void siCompletaLaChiaveZero();
    void siCompletaSenzaSostituire();
    void nelFileStesso();
    void iDoppioniSiNominano();
    void dueVolteNonRaddoppia();
    void laProvaNonScrive();
    void laControparte();
    void ilResoconto();
    void siAnnulla();
    void siAnnullaPerUnCollegamento();
    void nonSiAnnullaCioCheECambiato();
    void nonSiAnnullaConUnaCopiaRovinata();
    void nullaDaAnnullare();
    void nienteDaScrivere();
    void unaChiaveCheNonEUnContatore_data();
    void unaChiaveCheNonEUnContatore();
    void unTitolo();
};
PROVA(TestImporta);

void TestImporta::siAggiungono()
{
    ApriAlGruppo(CartellaFile(S->File));
    ImportaNominativi Opera = Nuovo(Tre);
    QVERIFY(Opera.Prepara());
    QCOMPARE(Opera.Conto(), (ContoImporta{.Righe = 4, .Aggiunti = 3, .SenzaNome = 1}));
    QCOMPARE(FraseImporta(Opera.Conto(), false), u"3 nominativi da aggiungere, 1 senza nome, tralasciato."_s);
    QVERIFY(Opera.Scrivi(u"nomi.csv"_s));
    QCOMPARE(FraseImporta(Opera.Conto(), true), u"3 nominativi aggiunti, 1 senza nome, tralasciato."_s);
    QCOMPARE(S->Righe({u"ID"_s, u"Nominativo"_s, u"CodFis"_s, u"PIva"_s, u"DataNascita"_s, u"Note"_s}),
             (QStringList{u"1|Rossi Mario|RSSMRA80A01H501U||01/01/1980|"_s, u"2|Alfa Srl||00159560366||"_s,
                          u"3|Verdi Anna||||Data di nascita: 31/02/1980"_s}));
    // The copy is nobody else's.
    QCOMPARE(QFileInfo(S->File + u".prima"_s).permissions() & DiAltri, QFile::Permissions());
}

void TestImporta::iDoppioni_data()
{
    QTest::addColumn<int>("Modo");
    QTest::addColumn<ContoImporta>("Conto");
    QTest::addColumn<QStringList>("Righe");
    const QStringList Prima{u"MÀRIO  rossi|X"_s, u"Altro nome||RSSMRA80A01H501U"_s,
                            u"Ditta|||IT00159560366"_s};
    const QString Mario = u"Mario Rossi|55100"_s;
    QTest::newRow("left") << int(Doppioni::Salta) << ContoImporta{.Righe = 3, .GiaPresenti = 3}
                          << QStringList{u"MÀRIO  rossi|"_s, u"Altro nome|"_s, u"Ditta|"_s};
    QTest::newRow("completed") << int(Doppioni::Completa) << ContoImporta{.Righe = 3, .Completati = 3}
                               << QStringList{u"MÀRIO  rossi|55100"_s, u"Altro nome|55101"_s,
                                              u"Ditta|55102"_s};
    QTest::newRow("added") << int(Doppioni::Aggiungi) << ContoImporta{.Righe = 3, .Aggiunti = 3}
                           << QStringList{u"MÀRIO  rossi|"_s,     u"Altro nome|"_s,       u"Ditta|"_s,
                                          u"mario Rossi|55100"_s, u"Rossi Mario|55101"_s, u"Alfa|55102"_s};
}

/// The same name whatever its case, accents and blanks; the same fiscal code; the same VAT number, its
/// country said or not.
void TestImporta::iDoppioni()
{
    QFETCH(int, Modo);
    QFETCH(ContoImporta, Conto);
    S->Esegui(u"INSERT INTO clienti (Nominativo) VALUES ('MÀRIO  rossi')"_s);
    S->Esegui(u"INSERT INTO clienti (Nominativo, CodFis) VALUES ('Altro nome', 'rssmra80a01h501u ')"_s);
    S->Esegui(u"INSERT INTO clienti (Nominativo, PIva) VALUES ('Ditta', 'IT00159560366')"_s);
    const TabellaEstranea Nuovi = Tabella({{u"Nominativo"_s, u"CF"_s, u"P.IVA"_s, u"CAP"_s},
                                           {u"mario Rossi"_s, {}, {}, u"55100"_s},
                                           {u"Rossi Mario"_s, u"RSSMRA80A01H501U"_s, {}, u"55101"_s},
                                           {u"Alfa"_s, {}, u"00159560366"_s, u"55102"_s}});
    ImportaNominativi Opera = Nuovo(Nuovi, Doppioni(Modo));
    QVERIFY(Opera.Prepara());
    QCOMPARE(Opera.Conto(), Conto);
    QVERIFY(Opera.Scrivi(u"nomi.csv"_s));
    QTEST(S->Righe({u"Nominativo"_s, u"Cap"_s}), "Righe");
}

/// Two people may have one name: their codes tell them apart.
void TestImporta::gliOmonimi()
{
    S->Esegui(u"INSERT INTO clienti (Nominativo, CodFis) VALUES ('Rossi Mario', 'RSSMRA80A01H501U')"_s);
    Importa(Tabella(
        {{u"Nominativo"_s, u"CF"_s}, {u"Rossi Mario"_s, u"RSSMRA75B02E715K"_s}, {u"Rossi Mario"_s, {}}}));
    QCOMPARE(S->Righe({u"CodFis"_s}), (QStringList{u"RSSMRA80A01H501U"_s, u"RSSMRA75B02E715K"_s}));
}

/// Noughts and hyphens stand where a code is not known: they make nobody the same.
void TestImporta::iCodiciCheNonLoSono()
{
    S->Esegui(u"INSERT INTO clienti (Nominativo, PIva) VALUES ('Rossi Mario', '00000000000')"_s);
    ImportaNominativi Opera = Nuovo(Tabella({{u"Nominativo"_s, u"P.IVA"_s, u"CF"_s},
                                             {u"Verdi Anna"_s, u"00000000000"_s, u"-"_s},
                                             {u"Neri Ugo"_s, u"00000000000"_s, u"-"_s},
                                             {u"rossi mario"_s, u"00159560366"_s, {}}}));
    QVERIFY(Opera.Prepara());
    QCOMPARE(Opera.Conto(), (ContoImporta{.Righe = 3, .Aggiunti = 2, .GiaPresenti = 1}));
}

/// A former archive may have a row of the number nought.
void TestImporta::siCompletaLaChiaveZero()
{
    S->Esegui(u"INSERT INTO clienti (ID, Nominativo) VALUES (0, 'Rossi')"_s);
    Importa(Tabella({{u"Nominativo"_s, u"CAP"_s}, {u"Rossi"_s, u"55100"_s}}), Doppioni::Completa);
    QCOMPARE(S->Righe({u"ID"_s, u"Nominativo"_s, u"Cap"_s}), QStringList{u"0|Rossi|55100"_s});
}

void TestImporta::siCompletaSenzaSostituire()
{
    S->Esegui(
        u"INSERT INTO clienti (Nominativo, Citta, Telefono, Note) VALUES ('Rossi', 'Pisa', ' ', 'mia')"_s);
    const TabellaEstranea Nuovi = Tabella({{u"Nominativo"_s, u"Città"_s, u"Tel"_s, u"CAP"_s, u"Note"_s},
                                           {u"Rossi"_s, u"Lucca"_s, u"0583"_s, {}, u"altra"_s},
                                           {u"rossi"_s, u"Roma"_s, u"06"_s, {}, {}}});
    ImportaNominativi Opera = Nuovo(Nuovi, Doppioni::Completa);
    QVERIFY(Opera.Prepara());
    QCOMPARE(Opera.Conto(), (ContoImporta{.Righe = 2, .Completati = 1, .GiaPresenti = 1}));
    QVERIFY(Opera.Scrivi(u"nomi.csv"_s));
    QCOMPARE(S->Righe({u"Nominativo"_s, u"Citta"_s, u"Telefono"_s, u"Note"_s}),
             QStringList{u"Rossi|Pisa|0583|mia"_s});
}

void TestImporta::nelFileStesso()
{
    Importa(Tabella({{u"Nominativo"_s, u"Tel"_s, u"CAP"_s},
                     {u"Rossi"_s, u"1"_s, {}},
                     {u"ROSSI"_s, u"2"_s, u"55100"_s}}),
            Doppioni::Completa);
    QCOMPARE(S->Righe({u"Nominativo"_s, u"Telefono"_s, u"Cap"_s}), QStringList{u"Rossi|1|55100"_s});
}

/// What is not added is named: the telephone of a second one may be another person's.
void TestImporta::iDoppioniSiNominano()
{
    S->Esegui(u"INSERT INTO clienti (Nominativo) VALUES ('Verdi')"_s);
    const TabellaEstranea Nuovi = Tabella({{u"Nominativo"_s, u"Tel"_s, u"CAP"_s},
                                           {u"Rossi"_s, u"1"_s, {}},
                                           {u"ROSSI"_s, u"2"_s, u"55100"_s},
                                           {u"verdi"_s, {}, {}}});
    for (const Doppioni Modo : {Doppioni::Completa, Doppioni::Salta}) {
        ImportaNominativi Opera = Nuovo(Nuovi, Modo);
        QVERIFY(Opera.Prepara());
        QCOMPARE(Opera.Avvisi(),
                 QStringList{Modo == Doppioni::Salta
                                 ? u"riga 3: già presente nel file, tralasciata: ROSSI"_s
                                 : u"riga 3: già presente nel file, unita all'altra: ROSSI"_s});
        const QString Detto = Opera.Resoconto(u"nomi.csv"_s, false);
        QVERIFY2(Detto.contains(u"\nGià nell'archivio:\nriga 4: verdi\n"), qPrintable(Detto));
    }
}

void TestImporta::dueVolteNonRaddoppia()
{
    for (const Doppioni Modo : {Doppioni::Salta, Doppioni::Salta, Doppioni::Completa})
        Importa(Tre, Modo);
    QCOMPARE(S->Righe({u"Nominativo"_s}).size(), 3);
    ImportaNominativi Ancora = Nuovo(Tre, Doppioni::Completa);
    QVERIFY(Ancora.Prepara());
    QCOMPARE(Ancora.Conto(), (ContoImporta{.Righe = 4, .GiaPresenti = 3, .SenzaNome = 1}));
}

void TestImporta::laProvaNonScrive()
{
    const QByteArray Prima = S->Byte();
    ImportaNominativi Opera = Nuovo(Tre);
    QVERIFY(Opera.Prepara());
    QCOMPARE(S->Byte(), Prima);
    QCOMPARE(ContenutoDi(S->Cartella), QStringList{u"DatiStudio.mdb"_s});
}

/// The second name of a counterparty goes with the first.
void TestImporta::laControparte()
{
    Importa(Tabella({{u"Controparte"_s}, {u"Gamma Spa"_s}}), Doppioni::Salta, u"controparti"_s);
    QCOMPARE(S->Righe({u"Nominativo"_s, u"Controp"_s}, u"controparti"_s),
             QStringList{u"Gamma Spa|Gamma Spa"_s});
    S->Esegui(u"UPDATE controparti SET Controp=NULL"_s);
    ImportaNominativi Ancora =
        Nuovo(Tabella({{u"Controparte"_s}, {u"Gamma Spa"_s}}), Doppioni::Completa, u"controparti"_s);
    QVERIFY(Ancora.Prepara());
    QCOMPARE(Ancora.Conto().Completati, 0);
}

void TestImporta::ilResoconto()
{
    ImportaNominativi Opera = Nuovo(Tre);
    QVERIFY(Opera.Prepara());
    QVERIFY(Opera.Resoconto(u"/casa/nomi.csv"_s, false).contains(u"Nominativi da aggiungere: 3\n"));
    QVERIFY(Opera.Scrivi(u"nomi.csv"_s));
    const QString Detto = Opera.Resoconto(u"/casa/nomi.csv"_s, true);
    for (const QString& Riga :
         {u"File: /casa/nomi.csv"_s, u"Righe lette: 4"_s, u"Nominativi aggiunti: 3"_s,
          u"Senza nome, tralasciati: 1"_s,
          u"Colonne importate: Cognome → Nominativo: cognome; Nome → Nominativo: nome; CF → Codice "
          u"fiscale; P.IVA → "
          "Partita IVA; Nato il → Data di nascita"_s,
          u"Colonne non importate: Colore"_s, u"riga 4: senza nome, tralasciata"_s,
          u"riga 5: nelle note, perché il campo non lo può contenere: Data di nascita: 31/02/1980"_s,
          u"Copia dell'archivio com'era prima: "_s + S->File + u".prima"_s})
        QVERIFY2(Detto.split(u'\n').contains(Riga), qPrintable(Riga + u"\n--\n"_s + Detto));
}

void TestImporta::siAnnulla()
{
    S->Esegui(u"INSERT INTO clienti (Nominativo) VALUES ('Prima')"_s);
    const QByteArray Prima = S->Byte();
    const QFile::Permissions Diritti = QFile::permissions(S->File);
    Importa(Tre);
    QVERIFY(S->Byte() != Prima);
    const auto Fatta = UltimaImportazione(S->File);
    QVERIFY(Fatta);
    QCOMPARE(Fatta->Aggiunti, 3);
    QCOMPARE(Fatta->Sorgente, u"nomi.csv"_s);
    AnnullaImportazione(S->File);
    QCOMPARE(S->Byte(), Prima);
    QCOMPARE(QFile::permissions(S->File), Diritti);
    QCOMPARE(S->Righe({u"Nominativo"_s}), QStringList{u"Prima"_s});
    QCOMPARE(ContenutoDi(S->Cartella), (QStringList{u"DatiStudio.mdb"_s, u"DatiStudio.mdb.chiavi"_s}));
}

/// The settings may name a link to the archive: the copy lies beside the file itself.
void TestImporta::siAnnullaPerUnCollegamento()
{
    const QByteArray Prima = S->Byte();
    const QString Nome = NuovaCartella() + u"studio.mdb"_s;
    QVERIFY(QFile::link(S->File, Nome));
    Importa(Tre);
    QVERIFY(UltimaImportazione(Nome));
    AnnullaImportazione(Nome);
    QCOMPARE(S->Byte(), Prima);
    QVERIFY(QFileInfo(Nome).isSymLink());
}

void TestImporta::nonSiAnnullaCioCheECambiato()
{
    Importa(Tre);
    S->Esegui(u"UPDATE clienti SET Citta='Lucca' WHERE ID=1"_s);
    const QByteArray Dopo = S->Byte();
    QCOMPARE(DescrizioneErroreDi([&] { AnnullaImportazione(S->File); }),
             u"Dopo l'importazione l'archivio è stato modificato: annullandola si perderebbero le modifiche, "
             u"perciò resta "
             "com'è. La copia di prima è il file \"%1.prima\"."_s.arg(S->File));
    QCOMPARE(S->Byte(), Dopo);
    QVERIFY(QFile::exists(S->File + u".prima"_s));
}

void TestImporta::nonSiAnnullaConUnaCopiaRovinata()
{
    Importa(Tre);
    const QByteArray Dopo = S->Byte();
    QFile Copia(S->File + u".prima"_s);
    QVERIFY(Copia.open(QIODevice::WriteOnly | QIODevice::Append));
    Copia.write("x");
    Copia.close();
    QVERIFY(DescrizioneErroreDi([&] { AnnullaImportazione(S->File); }).contains(u"è cambiata o rovinata"));
    QCOMPARE(S->Byte(), Dopo);
}

void TestImporta::nullaDaAnnullare()
{
    QVERIFY(!UltimaImportazione(S->File));
    QCOMPARE(DescrizioneErroreDi([&] { AnnullaImportazione(S->File); }),
             u"Non c'è un'importazione da annullare."_s);
    // A record without a copy, or one that is none, is no import.
    ScriviFile(S->File + u".prima.json"_s, "{\"quando\":\"2026-01-01T10:00:00\"}");
    QVERIFY(!UltimaImportazione(S->File));
    ScriviFile(S->File + u".prima"_s, "x");
    QVERIFY(UltimaImportazione(S->File));
    ScriviFile(S->File + u".prima.json"_s, "rubbish");
    QVERIFY(!UltimaImportazione(S->File));
}

void TestImporta::nienteDaScrivere()
{
    const QByteArray Prima = S->Byte();
    Importa(Tabella({{u"Nominativo"_s}, {QString()}}));
    QCOMPARE(S->Byte(), Prima);
    QCOMPARE(ContenutoDi(S->Cartella), QStringList{u"DatiStudio.mdb"_s});
}

void TestImporta::unaChiaveCheNonEUnContatore_data()
{
    QTest::addColumn<int>("Tipo");
    QTest::newRow("a number") << int(TipoCampo::Lungo);
    QTest::newRow("a double") << int(TipoCampo::Doppio);
    QTest::newRow("a text") << int(TipoCampo::Testo);
}

/// An old archive may have its keys as plain numbers: new names go on behind the highest, or no note could
/// be linked to them.
void TestImporta::unaChiaveCheNonEUnContatore()
{
    QFETCH(int, Tipo);
    const QString File = S->Cartella + u"vecchio.mdb"_s;
    {
        const Database Db = CreateDatabase(File);
        Db.CreaTabella(u"clienti"_s, {{u"Id"_s, TipoCampo(Tipo), 10, {}, false},
                                      {u"Nominativo"_s, TipoCampo::Testo, 60, {}, false},
                                      {u"Note"_s, TipoCampo::Memo, 0, {}, false}});
        for (const int Numero : {7, 12, 9})
            Db.Execute(u"INSERT INTO clienti (Id, Nominativo) VALUES (?, ?)"_s,
                       {Tipo == int(TipoCampo::Testo) ? QVariant(QString::number(Numero)) : QVariant(Numero),
                        u"N%1"_s.arg(Numero)});
    }
    const TabellaEstranea Da = Tabella({{u"ID"_s, u"Nominativo"_s, u"Note"_s},
                                        {u"7"_s, u"Rossi"_s, {}},
                                        {u"8"_s, u"Verdi"_s, {}},
                                        {u"9"_s, u"N9"_s, u"completato"_s}});
    const Database Db = OpenDatabase(File);
    ImportaNominativi Opera(Db, u"clienti"_s, Da, AbbinaColonne(Da.Titoli, Db.Campi(u"clienti"_s)),
                            Doppioni::Completa);
    QVERIFY(Opera.Prepara() && Opera.Scrivi(u"nomi.csv"_s));
    QStringList Righe;
    for (Recordset Una = Db.OpenRecordset(u"clienti"_s); !Una.Eof(); Una.MoveNext())
        Righe.append(Una.Value(u"Id"_s).toString() + u' ' + Una.Value(u"Nominativo"_s).toString() + u' ' +
                     Una.Value(u"Note"_s).toString());
    QCOMPARE(Righe,
             (QStringList{u"7 N7 "_s, u"12 N12 "_s, u"9 N9 completato"_s, u"13 Rossi "_s, u"14 Verdi "_s}));
}

/// What stands before and behind a name goes into the office's own field, else the report names it.
void TestImporta::unTitolo()
{
    const QByteArray Scheda = "BEGIN:VCARD\r\nVERSION:4.0\r\nN:Rossi;Mario;;Avv.;PhD\r\nEND:VCARD\r\n";
    ImportaNominativi Senza = Nuovo(LeggiVcard(Scheda));
    QVERIFY(Senza.Prepara());
    const QString Detto = Senza.Resoconto(u"nomi.vcf"_s, false);
    QVERIFY2(Detto.contains(u"\nColonne non importate: Titolo\n"), qPrintable(Detto));
    S->Esegui(u"ALTER TABLE clienti ADD Titolo TEXT(20)"_s);
    Importa(LeggiVcard(Scheda));
    QCOMPARE(S->Righe({u"Nominativo"_s, u"Titolo"_s}), QStringList{u"Rossi Mario|Avv. PhD"_s});
}

#include "TestImporta.moc"
