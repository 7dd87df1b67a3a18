// Which column of a foreign file is which of the archive's.
#include "studio.h"
#include "supporto/guasti.h"

using namespace Qt::StringLiterals;

class TestColonneImporta : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void siAbbinano_data();
    void siAbbinano();
    void unCampoUnaVolta();
    void leMete();
    void unArchivioSuo();
    void unCampoDettoAltrimenti();
    void laChiaveNonSiAbbina();
    void leScelteRestano_data();
    void leScelteRestano();
    void iTitoli();
    void laRiga_data();
    void laRiga();
    void cioCheNonEntraVaNelleNote();
    void senzaLaColonnaDelNome();

private:
    static QList<Campo> Campi(const QString& Tabella = u"clienti"_s)
    {
        return OpenDatabase(ProgrammaDiProva() + u"DatiStudio.mdb"_s, true).Campi(Tabella);
    }
};
PROVA(TestColonneImporta);

void TestColonneImporta::siAbbinano_data()
{
    QTest::addColumn<QString>("Titoli");
    QTest::addColumn<QString>("Chiavi");
    QTest::newRow("names") << u"Cognome;Nome"_s << u"+Cognome;+Nome"_s;
    QTest::newRow("nome alone is all of it") << u"Nome;Tel"_s << u"Nominativo;Telefono"_s;
    QTest::newRow("nome beside the whole")
        << u"Denominazione;Nome;Cognome"_s << u"Nominativo;+Nome;+Cognome"_s;
    QTest::newRow("companies") << u"RAGIONE SOCIALE;P.IVA;Codice destinatario;P.E.C."_s
                               << u"Nominativo;PIva;CodDestinatario;Pec"_s;
    QTest::newRow("codes") << u"C.F.;Partita I.V.A."_s << u"CodFis;PIva"_s;
    QTest::newRow("addresses") << u"Via;N. civico;CAP;Città;Prov."_s << u"Indirizzo;+Civico;Cap;Citta;Prov"_s;
    QTest::newRow("country and kind") << u"Stato;Tipo soggetto"_s << u"Nazione;TipoSoggetto"_s;
    QTest::newRow("telephones") << u"Tel.;Cell.;E-mail;Fax"_s << u"Telefono;Cellulare;Email;"_s;
    QTest::newRow("birth") << u"Data di nascita;Luogo di nascita"_s << u"DataNascita;ComuneNascita"_s;
    QTest::newRow("of another language")
        << u"Last Name;First Name;Company;Business Phone"_s << u"+Cognome;+Nome;+Organizzazione;Telefono"_s;
    QTest::newRow("the archive's headings")
        << u"N.;Nominativo;Legale rappresentante;Note"_s << u";Nominativo;RapprLegale;Note"_s;
    QTest::newRow("strangers") << u"Numero pratica;;Colore"_s << u";;"_s;
}

void TestColonneImporta::siAbbinano()
{
    QFETCH(QString, Titoli);
    QTEST(AbbinaColonne(Titoli.split(u';'), Campi()).join(u';'), "Chiavi");
}

void TestColonneImporta::unCampoUnaVolta()
{
    QCOMPARE(AbbinaColonne({u"Telefono ufficio"_s, u"Telefono"_s, u"Telefono casa"_s}, Campi()),
             (QStringList{QString(), u"Telefono"_s, QString()}));
}

void TestColonneImporta::leMete()
{
    QStringList Chiavi;
    QStringList Titoli;
    for (const MetaColonna& Meta : MeteDi(Campi())) {
        Chiavi.append(Meta.Chiave);
        Titoli.append(Meta.Titolo);
    }
    QCOMPARE(Titoli.first(), u"(non importare)"_s);
    QVERIFY(!Chiavi.contains(u"ID"_s));
    QVERIFY(Chiavi.contains(u"CodFis"_s) && Chiavi.contains(u"+Cognome"_s) && Chiavi.contains(u"+Civico"_s));
    QVERIFY(Titoli.contains(u"Codice fiscale"_s));
}

/// An old archive keeps its own columns, and has no others.
void TestColonneImporta::unArchivioSuo()
{
    const QList<Campo> Suoi{{u"ID"_s, TipoCampo::Lungo, 0, {}, true},
                            {u"Nominativo"_s, TipoCampo::Testo, 60, {}, false},
                            {u"citta"_s, TipoCampo::Testo, 60, {}, false},
                            {u"Pratica"_s, TipoCampo::Testo, 20, u"L=Numero pratica"_s, false}};
    QCOMPARE(AbbinaColonne({u"Cliente"_s, u"Città"_s, u"Numero pratica"_s, u"CAP"_s}, Suoi),
             (QStringList{u"Nominativo"_s, u"citta"_s, u"Pratica"_s, QString()}));
}

/// A field that an office has called by another word.
void TestColonneImporta::unCampoDettoAltrimenti()
{
    const QList<Campo> Suoi{{u"ID"_s, TipoCampo::Lungo, 0, {}, true},
                            {u"Nominativo"_s, TipoCampo::Testo, 60, {}, false},
                            {u"Localita"_s, TipoCampo::Testo, 60, {}, false},
                            {u"Trattamento"_s, TipoCampo::Testo, 20, {}, false}};
    QCOMPARE(AbbinaColonne({u"Nominativo"_s, u"Città"_s, u"Titolo"_s}, Suoi),
             (QStringList{u"Nominativo"_s, u"Localita"_s, u"Trattamento"_s}));
}

/// Another archive's keys are other people's, even where the archive has them as plain numbers.
void TestColonneImporta::laChiaveNonSiAbbina()
{
    const QList<Campo> Suoi{{u"Id"_s, TipoCampo::Lungo, 0, u"L=N."_s, false},
                            {u"Nominativo"_s, TipoCampo::Testo, 60, {}, false}};
    QCOMPARE(AbbinaColonne({u"ID"_s, u"Nominativo"_s, u"N."_s}, Suoi),
             (QStringList{QString(), u"Nominativo"_s, QString()}));
    for (const MetaColonna& Meta : MeteDi(Suoi))
        QVERIFY2(Meta.Chiave != u"Id", qPrintable(Meta.Titolo));
}

void TestColonneImporta::leScelteRestano_data()
{
    QTest::addColumn<QString>("Prima");
    QTest::addColumn<QString>("Scelte");  // "place=key"
    QTest::addColumn<QString>("Dopo");
    QTest::addColumn<bool>("PerPosto");
    QTest::addColumn<QString>("Chiavi");
    const auto Riga = [](const char* Nome, QStringView Prima, QStringView Scelte, QStringView Dopo,
                         bool PerPosto, QStringView Chiavi) {
        QTest::newRow(Nome) << Prima.toString() << Scelte.toString() << Dopo.toString() << PerPosto
                            << Chiavi.toString();
    };
    Riga("by title", u"Chi;Dove;Cosa", u"0=Nominativo,2=Note", u"Cosa;Altro;Chi", true, u"Note;;Nominativo");
    Riga("a title that another code spells otherwise", u"Chi;CittÃ\u00a0 natale", u"0=Nominativo,1=Citta",
         u"Chi;Città natale", true, u"Nominativo;Citta");
    Riga("titles that are rows now", u"Chi;Dove", u"0=Nominativo,1=Citta", u"Colonna 1;Colonna 2", true,
         u"Nominativo;Citta");
    Riga("what fits no more goes", u"Chi;Dove", u"0=Nominativo,1=Citta", u"Chi;x;y", true, u"Nominativo;;");
    Riga("one that was left stays so", u"Nominativo;Telefono", u"1=", u"Nominativo;Telefono", true,
         u"Nominativo;");
    Riga("the rest by itself", u"Chi;CAP", u"0=Nominativo", u"Chi;CAP;Prov", true, u"Nominativo;Cap;Prov");
    Riga("but to no field that was chosen", u"Chi;x", u"0=Nominativo", u"Chi;Denominazione", true,
         u"Nominativo;");
    Riga("the second one of a title", u"Tel;Tel", u"1=Cellulare", u"x;Tel;Tel", true, u";Telefono;Cellulare");
    Riga("another table has no places", u"Chi;Dove", u"0=Nominativo,1=Citta", u"Uno;Dove", false, u";Citta");
    Riga("the later choice", u"Chi;Dove", u"0=Nominativo,0=Note", u"Chi;Dove", true, u"Note;");
}

void TestColonneImporta::leScelteRestano()
{
    QFETCH(QString, Prima);
    QFETCH(QString, Scelte);
    QFETCH(QString, Dopo);
    QFETCH(bool, PerPosto);
    QList<SceltaColonna> AMano;
    for (const QString& Una : Scelte.split(u','))
        AMano.append(SceltaDi(Prima.split(u';'), Una.section(u'=', 0, 0).toInt(), Una.section(u'=', 1)));
    QTEST(AbbinaConScelte(Dopo.split(u';'), Campi(), AMano, PerPosto).join(u';'), "Chiavi");
}

void TestColonneImporta::iTitoli()
{
    QVERIFY(SembranoTitoli({u"x"_s, u"Codice Fiscale"_s}));
    QVERIFY(!SembranoTitoli({u"Rossi Mario"_s, u"Lucca"_s}));
}

void TestColonneImporta::laRiga_data()
{
    QTest::addColumn<QString>("Titoli");
    QTest::addColumn<QString>("Celle");
    QTest::addColumn<QString>("Campo");
    QTest::addColumn<QString>("Valore");
    const auto Riga = [](const char* Nome, QStringView T, QStringView C, QStringView Campo, QStringView V) {
        QTest::newRow(Nome) << T.toString() << C.toString() << Campo.toString() << V.toString();
    };
    Riga("family name first, wherever it stands", u"Nome;Cognome", u"Mario; Rossi ", u"Nominativo",
         u"Rossi Mario");
    Riga("the company's name before a person's", u"Denominazione;Cognome;Nome", u"Alfa Srl;Rossi;Mario",
         u"Nominativo", u"Alfa Srl");
    Riga("whose contact is noted", u"Denominazione;Cognome;Nome", u"Alfa Srl;Rossi;Mario", u"Note",
         u"Referente: Rossi Mario");
    Riga("a person before the organisation", u"Cognome;Azienda", u"Rossi;Alfa Srl", u"Nominativo", u"Rossi");
    Riga("which is noted", u"Cognome;Azienda", u"Rossi;Alfa Srl", u"Note", u"Organizzazione: Alfa Srl");
    Riga("an organisation alone", u"Cognome;Azienda", u";Alfa Srl", u"Nominativo", u"Alfa Srl");
    Riga("country by its name", u"Nome;Nazione", u"x;Deutschland", u"Nazione", u"DE");
    Riga("country in small letters", u"Nome;Nazione", u"x;fr", u"Nazione", u"FR");
    Riga("country of two words", u"Nome;Stato", u"x;Paesi Bassi", u"Nazione", u"NL");
    Riga("street and number", u"Nome;Via;Civico", u"x;Via Roma;12/A", u"Indirizzo", u"Via Roma 12/A");
    Riga("a code with blanks in small letters", u"Nome;CF", u"x;rss mra 80a01 h501u", u"CodFis",
         u"RSSMRA80A01H501U");
    Riga("noughts that a spreadsheet has lost", u"Nome;P.IVA", u"x;159560366", u"PIva", u"00159560366");
    Riga("a number that none would complete", u"Nome;P.IVA", u"x;159560367", u"PIva", u"159560367");
    Riga("those of a company's fiscal code", u"Nome;CF", u"x;159560366", u"CodFis", u"00159560366");
    Riga("those of a postal code, where the province has it", u"Nome;CAP;Prov", u"x;184;rm", u"Cap",
         u"00184");
    Riga("and where the town lies abroad", u"Nome;CAP;Prov", u"x;6900;", u"Cap", u"6900");
    Riga("or elsewhere", u"Nome;CAP;Prov", u"x;5510;LU", u"Cap", u"5510");
    Riga("a province in brackets", u"Nome;Prov", u"x;(lu)", u"Prov", u"LU");
    Riga("a date of other programs", u"Nome;Nato il", u"x;1980-01-31", u"DataNascita", u"31/01/1980");
    Riga("a date with midnight", u"Nome;Nato il", u"x;31/01/1980 00:00:00", u"DataNascita", u"31/01/1980");
    Riga("line breaks and controls", u"Nome;Via", u"R\u0001ossi;Via\nRoma", u"Indirizzo", u"Via Roma");
    Riga("a name of controls", u"Nome;Via", u"\u0001\u0002;x", u"Nominativo", u"");
}

void TestColonneImporta::laRiga()
{
    QFETCH(QString, Titoli);
    QFETCH(QString, Celle);
    QFETCH(QString, Campo);
    QFETCH(QString, Valore);
    const QStringList Nomi = Titoli.split(u';');
    const ComposizioneRighe Righe(Nomi, AbbinaColonne(Nomi, Campi()), Campi());
    const RigaComposta Fatta = Righe.Componi(Celle.split(u';'));
    const QVariant Avuto = Fatta.Valori[Righe.Posto(Campo)];
    QCOMPARE(Avuto.typeId() == QMetaType::QDate ? Avuto.toDate().toString(u"dd/MM/yyyy") : Avuto.toString(),
             Valore);
    QCOMPARE(Fatta.Avvisi, QStringList());
}

void TestColonneImporta::cioCheNonEntraVaNelleNote()
{
    const QStringList Nomi{u"Nome"_s, u"Prov"_s, u"Nato il"_s, u"Note"_s, u"Studio"_s};
    QStringList Chiavi = AbbinaColonne(Nomi, Campi());
    QCOMPARE(Chiavi.last(), QString());
    Chiavi.last() = u"Note"_s;  // as the user may choose
    const ComposizioneRighe Righe(Nomi, Chiavi, Campi());
    const RigaComposta Fatta =
        Righe.Componi({u"x"_s.repeated(200), u"Lucca"_s, u"31/02/1980"_s, u"una\ndue"_s, u"Bianchi"_s});
    QCOMPARE(Fatta.Nominativo, u"x"_s.repeated(150));
    QVERIFY(!Fatta.Valori[Righe.Posto(u"Prov")].isValid());
    QVERIFY(!Fatta.Valori[Righe.Posto(u"DataNascita")].isValid());
    QCOMPARE(Fatta.Valori[Righe.Posto(u"Note")].toString(),
             u"una\ndue\nStudio: Bianchi\nNominativo: "_s + u"x"_s.repeated(200) +
                 u"\nProv. Lucca\nData di nascita: 31/02/1980"_s);
    QCOMPARE(
        Fatta.Avvisi,
        (QStringList{u"nominativo accorciato, intero nelle note"_s,
                     u"nelle note, perché il campo non lo può contenere: Prov. Lucca"_s,
                     u"nelle note, perché il campo non lo può contenere: Data di nascita: 31/02/1980"_s}));
}

void TestColonneImporta::senzaLaColonnaDelNome()
{
    const ErroreVisto Guasto =
        ErroreDi([&] { const ComposizioneRighe Righe({u"Tel"_s}, {u"Telefono"_s}, Campi()); });
    QCOMPARE(Guasto.Descrizione,
             u"Nessuna colonna del file va nel nominativo: scegliere quale contiene il nome."_s);
}

#include "TestColonneImporta.moc"
