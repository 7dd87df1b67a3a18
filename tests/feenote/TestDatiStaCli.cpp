#include "supporto/guasti.h"
#include "supporto/prova.h"

#include "addressbook/modClienti.h"
#include "feenote/modBloccoCliente.h"

#include "nota_prova.h"

#include <QDate>

using namespace Qt::StringLiterals;

class TestDatiStaCli : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void blocchi_data();
    void blocchi();
    void ilBloccoVieneDallArchivio_data();
    void ilBloccoVieneDallArchivio();
    void archivioSenzaAlcuneColonne();
    void senzaLegameIlTestoDelCliente();
    void restaComEra_data();
    void restaComEra();
    void clienteNonTrovato();
    void senzaArchivio();
    void rappresentanteDallArchivio();
    void rappresentanteScrittoResta();
    void rappresentanteDiUnClienteLibero();
};
PROVA(TestDatiStaCli);

namespace {

using Colonne = QMap<QString, QVariant>;

DatiCliente Persona()
{
    DatiCliente Uno;
    Uno.Nominativo = u"Mario Rossi"_s;
    Uno.Indirizzo = u"Via Verdi 3"_s;
    Uno.Cap = u"20100"_s;
    Uno.Citta = u"Milano"_s;
    Uno.Prov = u"MI"_s;
    Uno.CodFis = u"RSSMRA70A01F205X"_s;
    Uno.PIva = u"01234567890"_s;
    Uno.DataNascita = u"01/01/1970"_s;
    Uno.ComuneNascita = u"Monza"_s;
    return Uno;
}

/// The row of Persona, and of who signs if she were a company.
Colonne Riga()
{
    return {{u"Nominativo"_s, u"Mario Rossi"_s},
            {u"Indirizzo"_s, u"Via Verdi 3"_s},
            {u"Cap"_s, u"20100"_s},
            {u"Citta"_s, u"Milano"_s},
            {u"Prov"_s, u"MI"_s},
            {u"CodFis"_s, u"RSSMRA70A01F205X"_s},
            {u"PIva"_s, u"01234567890"_s},
            {u"DataNascita"_s, QDate(1970, 1, 1)},
            {u"ComuneNascita"_s, u"Monza"_s},
            {u"RapprLegale"_s, u"Carla Bruni"_s}};
}

int Aggiungi(const Colonne& Valori)
{
    Recordset Clienti = OpenDatabase(sessione::ArchivioCliCon).OpenRecordset(u"clienti"_s);
    Clienti.AddNew();
    for (auto Una = Valori.begin(); Una != Valori.end(); ++Una)
        Clienti.ImpostaValue(Una.key(), Una.value());
    Clienti.Update();
    Clienti.MoveLast();
    return Clienti.Value(u"ID"_s).toInt();
}

Parcella NotaDi(int IDCli)
{
    Parcella Nota;
    Nota.IDCli = IDCli;
    Nota.txtCliente.Testo = u"Rossi"_s;
    Nota.txtDatiStaCli.Testo = u"com'era"_s;
    return Nota;
}

}  // namespace

void TestDatiStaCli::blocchi_data()
{
    QTest::addColumn<DatiCliente>("Cliente");
    QTest::addColumn<int>("Forma");
    QTest::addColumn<QString>("Blocco");
    const auto Caso = [](const char* Nome, const DatiCliente& Cliente, FormaBlocco Forma,
                         const QString& Blocco) { QTest::newRow(Nome) << Cliente << int(Forma) << Blocco; };
    DatiCliente Nudo;
    Nudo.Nominativo = u"Mario Rossi"_s;
    DatiCliente SenzaVia = Persona();
    SenzaVia.Indirizzo.clear();
    DatiCliente SoloVia = Nudo;
    SoloVia.Indirizzo = u"Via Verdi 3"_s;
    DatiCliente SenzaComune = Persona();
    SenzaComune.ComuneNascita.clear();
    DatiCliente SenzaCapEProvincia = Persona();
    SenzaCapEProvincia.Cap.clear();
    SenzaCapEProvincia.Prov.clear();

    Caso("persona", Persona(), FormaBlocco::Persona,
         u"Mario Rossi nato a Monza il 01/01/1970 residente in Via Verdi 3 - 20100 Milano (MI)"
         u" C.F. RSSMRA70A01F205X P.IVA 01234567890"_s);
    Caso("persona col solo nome", Nudo, FormaBlocco::Persona, u"Mario Rossi"_s);
    Caso("persona senza comune di nascita", SenzaComune, FormaBlocco::Persona,
         u"Mario Rossi il 01/01/1970 residente in Via Verdi 3 - 20100 Milano (MI)"
         u" C.F. RSSMRA70A01F205X P.IVA 01234567890"_s);
    Caso("persona senza via: nessun trattino", SenzaVia, FormaBlocco::Persona,
         u"Mario Rossi nato a Monza il 01/01/1970 residente in 20100 Milano (MI)"
         u" C.F. RSSMRA70A01F205X P.IVA 01234567890"_s);
    Caso("persona con la sola via", SoloVia, FormaBlocco::Persona, u"Mario Rossi residente in Via Verdi 3"_s);
    Caso("società: né nascita né residenza", Persona(), FormaBlocco::Societa,
         u"Mario Rossi con sede in Via Verdi 3 - 20100 Milano (MI)"
         u" C.F. RSSMRA70A01F205X P.IVA 01234567890"_s);
    Caso("società senza cap e provincia", SenzaCapEProvincia, FormaBlocco::Societa,
         u"Mario Rossi con sede in Via Verdi 3 - Milano C.F. RSSMRA70A01F205X P.IVA 01234567890"_s);
    Caso("testata", Persona(), FormaBlocco::Testata,
         u"Mario Rossi\nVia Verdi 3\n20100 Milano (MI)\nC.F. RSSMRA70A01F205X\nP.I. 01234567890"_s);
    Caso("testata senza righe vuote", Nudo, FormaBlocco::Testata, u"Mario Rossi"_s);
    Caso("solo il nome", Persona(), FormaBlocco::Nome, u"Mario Rossi"_s);
    Caso("documento senza cliente", Persona(), FormaBlocco::Nessuna, QString());
}

void TestDatiStaCli::blocchi()
{
    QFETCH(DatiCliente, Cliente);
    QFETCH(int, Forma);
    QTEST(BloccoCliente(Cliente, FormaBlocco(Forma)), "Blocco");
}

void TestDatiStaCli::ilBloccoVieneDallArchivio_data()
{
    QTest::addColumn<int>("Forma");
    QTest::addColumn<QString>("Blocco");
    QTest::newRow("persona") << int(FormaBlocco::Persona)
                             << u"Mario Rossi nato a Monza il 01/01/1970 residente in Via Verdi 3 - 20100 "
                                u"Milano (MI) C.F. RSSMRA70A01F205X P.IVA 01234567890"_s;
    QTest::newRow("nome dell'archivio, non della nota") << int(FormaBlocco::Nome) << u"Mario Rossi"_s;
}

void TestDatiStaCli::ilBloccoVieneDallArchivio()
{
    const Studio Ufficio;
    const Registratore Messaggi;
    QFETCH(int, Forma);
    Parcella Nota = NotaDi(Aggiungi(Riga()));
    GetDatiStaCli(Nota, FormaBlocco(Forma));
    QTEST(Nota.txtDatiStaCli.Testo, "Blocco");
    QCOMPARE(Nota.txtCliente.Testo, u"Rossi"_s);
    QVERIFY(!Nota.Modificata);
}

void TestDatiStaCli::archivioSenzaAlcuneColonne()
{
    const Studio Ufficio;
    const Registratore Messaggi;
    const int ID = Aggiungi({{u"Nominativo"_s, u" Mario Rossi "_s}, {u"PIva"_s, u"01234567890"_s}});
    OpenDatabase(sessione::ArchivioCliCon).Execute(u"ALTER TABLE clienti DROP COLUMN Indirizzo"_s);
    OpenDatabase(sessione::ArchivioCliCon).Execute(u"ALTER TABLE clienti DROP COLUMN RapprLegale"_s);
    Parcella Nota = NotaDi(ID);
    GetDatiStaCli(Nota, FormaBlocco::Societa);
    QCOMPARE(Nota.txtDatiStaCli.Testo, u"Mario Rossi P.IVA 01234567890"_s);
}

void TestDatiStaCli::senzaLegameIlTestoDelCliente()
{
    const Studio Ufficio;
    Parcella Nota = NotaDi(0);
    for (const FormaBlocco Forma : {FormaBlocco::Testata, FormaBlocco::Nome, FormaBlocco::Persona}) {
        Nota.txtDatiStaCli.Testo = u"com'era"_s;
        GetDatiStaCli(Nota, Forma);
        QCOMPARE(Nota.txtDatiStaCli.Testo, u"Rossi"_s);
    }
}

void TestDatiStaCli::restaComEra_data()
{
    QTest::addColumn<QString>("Cliente");
    QTest::addColumn<int>("Forma");
    QTest::newRow("nessun cliente") << QString() << int(FormaBlocco::Testata);
    QTest::newRow("documento senza cliente") << u"Rossi"_s << int(FormaBlocco::Nessuna);
}

void TestDatiStaCli::restaComEra()
{
    const Studio Ufficio;
    const Registratore Messaggi;
    QFETCH(QString, Cliente);
    QFETCH(int, Forma);
    for (const int IDCli : {0, 999}) {
        Parcella Nota = NotaDi(IDCli);
        Nota.txtCliente.Testo = Cliente;
        GetDatiStaCli(Nota, FormaBlocco(Forma));
        QCOMPARE(Nota.txtDatiStaCli.Testo, u"com'era"_s);
    }
}

void TestDatiStaCli::clienteNonTrovato()
{
    const Studio Ufficio;
    Registratore Messaggi;
    Parcella Nota = NotaDi(999);
    Messaggi.Attendi(u"Cliente non trovato!"_s, vbOK, u"Errore:"_s);
    GetDatiStaCli(Nota, FormaBlocco::Testata);
    QCOMPARE(Nota.txtDatiStaCli.Testo, u"com'era"_s);
    QCOMPARE(Messaggi.Mostrati().size(), 1);
}

/// Of who is in an archive that is not there nothing is said.
void TestDatiStaCli::senzaArchivio()
{
    const Studio Ufficio;
    Registratore Messaggi;
    QVERIFY(QFile::remove(sessione::ArchivioCliCon));
    Parcella Nota = NotaDi(999);
    const ErroreVisto Guasto = ErroreDi([&] { GetDatiStaCli(Nota, FormaBlocco::Testata); });
    QCOMPARE(Guasto.Numero, 3024);
    QVERIFY2(Guasto.Descrizione.contains(u"DatiStudio.mdb"_s), qPrintable(Guasto.Descrizione));
    QCOMPARE(Nota.txtDatiStaCli.Testo, u"com'era"_s);
}

// ---- who signs for a company

void TestDatiStaCli::rappresentanteDallArchivio()
{
    const Studio Ufficio;
    Parcella Nota = NotaDi(Aggiungi(Riga()));
    GetDatiStaCli(Nota, FormaBlocco::Persona);
    QCOMPARE(Nota.Rappr, Rappresentante());
    GetDatiStaCli(Nota, FormaBlocco::Societa);
    QCOMPARE(Nota.Rappr, (Rappresentante{u"Carla Bruni"_s, {}, {}, {}}));
}

void TestDatiStaCli::rappresentanteScrittoResta()
{
    const Studio Ufficio;
    Parcella Nota = NotaDi(Aggiungi(Riga()));
    GetDatiStaCli(Nota, FormaBlocco::Societa);
    const Rappresentante Scritto{u"Ugo Neri"_s, u"02/03/1960"_s, u"Como"_s, u"Via Po 1, Como"_s};
    Nota.Rappr = Scritto;
    GetDatiStaCli(Nota, FormaBlocco::Societa);
    QCOMPARE(Nota.Rappr, Scritto);
    Nota.Rappr = {};  // taken away on purpose
    GetDatiStaCli(Nota, FormaBlocco::Societa);
    QCOMPARE(Nota.Rappr, Rappresentante());

    Nota.Rappr = Scritto;
    Nota.IDCli = Aggiungi({{u"Nominativo"_s, u"Gamma S.p.A."_s}, {u"RapprLegale"_s, u"Anna Gialli"_s}});
    GetDatiStaCli(Nota, FormaBlocco::Societa);  // another client, another representative
    QCOMPARE(Nota.Rappr, (Rappresentante{u"Anna Gialli"_s, {}, {}, {}}));
}

void TestDatiStaCli::rappresentanteDiUnClienteLibero()
{
    const Studio Ufficio;
    Parcella Nota = NotaDi(0);
    Nota.Rappr.Nome = u"Ugo Neri"_s;
    GetDatiStaCli(Nota, FormaBlocco::Societa);
    QCOMPARE(Nota.Rappr.Nome, u"Ugo Neri"_s);
    Nota.IDCli = Aggiungi(Riga());
    GetDatiStaCli(Nota, FormaBlocco::Societa);
    QCOMPARE(Nota.Rappr.Nome, u"Ugo Neri"_s);
}

#include "TestDatiStaCli.moc"
