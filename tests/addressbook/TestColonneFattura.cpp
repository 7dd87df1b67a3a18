// The columns from which an electronic invoice takes its buyer, in archives that have them and in others.
#include "archivio.h"
#include "supporto/guasti.h"

#include "addressbook/modClienti.h"
#include "addressbook/modColonneFattura.h"
#include "addressbook/modRubrica.h"
#include "platform/database/database.h"

#include <QFile>

#include <algorithm>

using namespace Qt::StringLiterals;

class TestColonneFattura : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void loConsegnatoLeHa();
    void unoVecchioLePrende();
    void lePrendeUnaVoltaSola();
    void leRigheRestano();
    void altroNomeStessaColonna();
    void solaLettura();
    void senzaArchivio();
    void senzaControparti();
    void tutteONessuna();
    void siLeggono();
    void soggetti_data();
    void soggetti();
};
PROVA(TestColonneFattura);

namespace {

Campo Testo(const QString& Nome, int Caratteri)
{
    return {Nome, TipoCampo::Testo, Caratteri, {}, false};
}

/// An archive of another age: names, and an address in one line.
class ArchivioVecchio
{
public:
    explicit ArchivioVecchio(bool Controparti = true, const QString& Codice = u"CodFis"_s)
    {
        AzzeraSessione();
        sessione::ArchivioCliCon = NuovaCartella() + u"Vecchio.mdb"_s;
        const Database Db = CreateDatabase(sessione::ArchivioCliCon);
        const QList<Campo> Colonne{{u"ID"_s, TipoCampo::Lungo, 0, u"L=N.,S=2"_s, true},
                                   {u"Nominativo"_s, TipoCampo::Testo, 150, u"L=Nome,S=40"_s, false},
                                   Testo(u"Indirizzo"_s, 80),
                                   Testo(Codice, 16)};
        Db.CreaTabella(u"clienti"_s, Colonne);
        if (Controparti)
            Db.CreaTabella(u"controparti"_s, Colonne);
        Db.Execute(u"INSERT INTO clienti (Nominativo, Indirizzo) VALUES ('Rossi Mario', 'Via Roma 1')"_s);
    }
    ~ArchivioVecchio()
    {
        QFile::setPermissions(sessione::ArchivioCliCon, QFile::ReadOwner | QFile::WriteOwner);
        AzzeraSessione();
    }
    ArchivioVecchio(const ArchivioVecchio&) = delete;
    ArchivioVecchio& operator=(const ArchivioVecchio&) = delete;

    static QStringList Nomi(const QString& Tabella = u"clienti"_s)
    {
        QStringList Letti;
        for (const Campo& Uno : OpenDatabase(sessione::ArchivioCliCon, true).Campi(Tabella))
            Letti << Uno.Name;
        return Letti;
    }
};

const QStringList NomiVecchi{u"ID"_s, u"Nominativo"_s, u"Indirizzo"_s, u"CodFis"_s};

}  // namespace

void TestColonneFattura::loConsegnatoLeHa()
{
    const ArchivioDiProva Archivio;
    QStringList Mancano;
    QCOMPARE(StatoColonneFattura(&Mancano), StatoColonne::Intere);
    QVERIFY(Mancano.isEmpty());
    // Described in one place: what the delivered archive has is what an older one gets.
    for (const QString& Tabella : {u"clienti"_s, u"controparti"_s}) {
        const QList<Campo> Campi = OpenDatabase(sessione::ArchivioCliCon, true).Campi(Tabella);
        for (const Campo& Una : ColonneFattura())
            QVERIFY2(Campi.contains(Una), qPrintable(Una.Name));
    }
}

void TestColonneFattura::unoVecchioLePrende()
{
    const ArchivioVecchio Archivio;
    QStringList Mancano;
    QCOMPARE(StatoColonneFattura(&Mancano), StatoColonne::Mancanti);
    QCOMPARE(Mancano, (QStringList{u"CAP"_s, u"Città"_s, u"Prov."_s, u"Nazione"_s, u"Partita IVA"_s, u"PEC"_s,
                                   u"Codice destinatario"_s, u"Tipo soggetto"_s}));
    AggiungiColonneFattura();
    QCOMPARE(StatoColonneFattura(), StatoColonne::Intere);
    const QStringList Attesi =
        NomiVecchi + QStringList{u"Cap"_s, u"Citta"_s,           u"Prov"_s,        u"Nazione"_s, u"PIva"_s,
                                 u"Pec"_s, u"CodDestinatario"_s, u"TipoSoggetto"_s};
    QCOMPARE(ArchivioVecchio::Nomi(), Attesi);
    QCOMPARE(ArchivioVecchio::Nomi(u"controparti"_s), Attesi);
    // The browser shows them under the headings of the delivered one, the old ones as they were.
    const QList<Campo> Campi = OpenDatabase(sessione::ArchivioCliCon, true).Campi(u"clienti"_s);
    QStringList Titoli;
    for (const ColonnaRubrica& Colonna : ColonneRubrica(Campi))
        Titoli << Colonna.Titolo;
    QCOMPARE(Titoli, (QStringList{u"N."_s, u"Nome"_s, u"Indirizzo"_s, u"CodFis"_s} + Mancano));
    QCOMPARE(Campi.last().Size, 10);
}

void TestColonneFattura::lePrendeUnaVoltaSola()
{
    const ArchivioVecchio Archivio;
    AggiungiColonneFattura();
    const QStringList Prima = ArchivioVecchio::Nomi();
    AggiungiColonneFattura();
    QCOMPARE(ArchivioVecchio::Nomi(), Prima);
}

void TestColonneFattura::leRigheRestano()
{
    const ArchivioVecchio Archivio;
    AggiungiColonneFattura();
    const Recordset Righe = OpenDatabase(sessione::ArchivioCliCon, true).OpenRecordset(u"clienti"_s);
    QCOMPARE(Righe.RecordCount(), 1);
    QCOMPARE(Righe.Value(u"Nominativo"_s).toString(), u"Rossi Mario"_s);
    QCOMPARE(Righe.Value(u"Indirizzo"_s).toString(), u"Via Roma 1"_s);
    QVERIFY(Righe.Value(u"Pec"_s).isNull());
}

void TestColonneFattura::altroNomeStessaColonna()
{
    const ArchivioVecchio Archivio(true, u"codfis"_s);
    AggiungiColonneFattura();
    const QStringList Nomi = ArchivioVecchio::Nomi();
    QCOMPARE(std::ranges::count_if(Nomi, [](const QString& Nome) { return Nome.toLower() == u"codfis"; }), 1);
}

void TestColonneFattura::solaLettura()
{
    const ArchivioVecchio Archivio;
    QFile::setPermissions(sessione::ArchivioCliCon, QFile::ReadOwner);
    QStringList Mancano;
    QCOMPARE(StatoColonneFattura(&Mancano), StatoColonne::Bloccate);
    QCOMPARE(Mancano.size(), 8);
    QVERIFY(NumeroErrore([&] { AggiungiColonneFattura(); }) != 0);
    QCOMPARE(ArchivioVecchio::Nomi(), NomiVecchi);
}

void TestColonneFattura::senzaArchivio()
{
    AzzeraSessione();
    sessione::ArchivioCliCon = NuovaCartella() + u"manca.mdb"_s;
    QCOMPARE(StatoColonneFattura(), StatoColonne::Intere);  // nobody is asked about what is not there
    AzzeraSessione();
}

void TestColonneFattura::senzaControparti()
{
    const ArchivioVecchio Archivio(false);
    AggiungiColonneFattura();
    QCOMPARE(StatoColonneFattura(), StatoColonne::Intere);
}

void TestColonneFattura::tutteONessuna()
{
    const ArchivioVecchio Archivio;
    {
        const Database Db = OpenDatabase(sessione::ArchivioCliCon);
        Db.Execute(u"ALTER TABLE controparti RENAME TO piene"_s);
        // A table with as many columns as the engine takes refuses one more.
        QStringList Colonne;
        for (int i = 0; i < 2000; ++i)
            Colonne << u"c%1"_s.arg(i);
        Db.Execute(u"CREATE TABLE controparti (%1)"_s.arg(Colonne.join(u',')));
    }
    QVERIFY(NumeroErrore([&] { AggiungiColonneFattura(); }) != 0);
    QCOMPARE(ArchivioVecchio::Nomi(), NomiVecchi);
}

void TestColonneFattura::siLeggono()
{
    const ArchivioDiProva Archivio;
    ArchivioDiProva::Esegui(
        u"INSERT INTO clienti (ID, Nominativo, Nazione, Pec, CodDestinatario, TipoSoggetto) VALUES "
        "(3, 'Acme GmbH', 'de', ' a@pec.example ', 'abc1234', 'Estero')"_s);
    const std::optional<DatiCliente> Letto = LeggiCliente(3);
    QVERIFY(Letto);
    QCOMPARE(Letto->Nazione, u"DE"_s);
    QCOMPARE(Letto->Pec, u"a@pec.example"_s);
    QCOMPARE(Letto->CodDestinatario, u"ABC1234"_s);
    QCOMPARE(Letto->TipoSoggetto, u"Estero"_s);
}

void TestColonneFattura::soggetti_data()
{
    QTest::addColumn<DatiCliente>("Cliente");
    QTest::addColumn<TipoSoggetto>("Tipo");
    QTest::addColumn<bool>("Societa");
    const auto Riga = [](const char* Nome, const DatiCliente& Cliente, TipoSoggetto Tipo, bool Societa) {
        QTest::newRow(Nome) << Cliente << Tipo << Societa;
    };
    DatiCliente Cliente;
    Riga("nothing said", Cliente, TipoSoggetto::Persona, false);
    Cliente.CodFis = u"00743110157"_s;
    Riga("code of a company", Cliente, TipoSoggetto::Societa, true);
    Cliente.TipoSoggetto = u"Persona"_s;
    Riga("the card says otherwise", Cliente, TipoSoggetto::Persona, false);
    Cliente.TipoSoggetto = u"persona giuridica"_s;
    Riga("words for a company", Cliente, TipoSoggetto::Societa, true);
    Cliente.TipoSoggetto = u"P.A."_s;
    Riga("points", Cliente, TipoSoggetto::Amministrazione, true);
    Cliente.TipoSoggetto = u"Pubblica amministrazione"_s;
    Riga("in full", Cliente, TipoSoggetto::Amministrazione, true);
    Cliente = {};
    Cliente.CodDestinatario = u"ABC123"_s;
    Riga("six characters", Cliente, TipoSoggetto::Amministrazione, false);
    Cliente.CodDestinatario = u"ABC1234"_s;
    Riga("seven", Cliente, TipoSoggetto::Persona, false);
    Cliente.Nazione = u"FR"_s;
    Riga("a country", Cliente, TipoSoggetto::Estero, false);
    Cliente.RapprLegale = u"Dupont"_s;
    Riga("a foreign company", Cliente, TipoSoggetto::Estero, true);
    Cliente.TipoSoggetto = u"Estero"_s;
    Riga("abroad, by the card", Cliente, TipoSoggetto::Estero, true);
    Cliente = {};
    Cliente.Nazione = u"IT"_s;
    Riga("Italy by name", Cliente, TipoSoggetto::Persona, false);
    Cliente.TipoSoggetto = u"qualcuno"_s;
    Riga("a word that means none", Cliente, TipoSoggetto::Persona, false);
}

void TestColonneFattura::soggetti()
{
    QFETCH(DatiCliente, Cliente);
    QTEST(SoggettoDi(Cliente), "Tipo");
    QTEST(ESocieta(Cliente), "Societa");
}

#include "TestColonneFattura.moc"
