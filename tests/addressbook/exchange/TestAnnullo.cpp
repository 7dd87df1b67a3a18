// The way back from an import, while others are at the archive.
#include "studio.h"

#include "addressbook/chiavi.h"
#include "addressbook/exchange/annullo.h"
#include "platform/base/numerierrore.h"
#include "platform/database/connessione.h"
#include "platform/system/attese.h"
#include "platform/system/guasti.h"
#include "supporto/guasti.h"

#include <QFileInfo>
#include <QScopedValueRollback>

using namespace Qt::StringLiterals;

class TestAnnullo : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        S = std::make_unique<Studio>();
        Iniziale = S->Byte();
        Importa(u"Rossi"_s);
    }
    void mentreUnAltroImporta();
    void mentreUnAltroScrive();
    void nessunoScriveNelFrattempo();
    void unArchivioDiSolaLettura();
    void unArchivioBloccatoNonEModificato();
    void unArchivioIlleggibileNonEModificato();
    void unArchivioBloccatoNonCostaLaCopia();
    void leChiaviNonTornano_data();
    void leChiaviNonTornano();

private:
    void Importa(const QString& Nome) const
    {
        const Database Db = OpenDatabase(S->File);
        const TabellaEstranea Da = Tabella({{u"Nominativo"_s}, {Nome}});
        ImportaNominativi Opera(Db, u"clienti"_s, Da, AbbinaColonne(Da.Titoli, Db.Campi(u"clienti"_s)),
                                Doppioni::Salta);
        QVERIFY(Opera.Prepara());
        QVERIFY(Opera.Scrivi(u"nomi.csv"_s));
    }
    /// Another program's connection to the archive.
    [[nodiscard]] std::unique_ptr<Connessione> Altro() const
    {
        return std::make_unique<Connessione>(S->File, Connessione::Modo::Scrittura);
    }
    [[nodiscard]] int Annullo() const
    {
        return NumeroErrore([this] { AnnullaImportazione(S->File); });
    }

    std::unique_ptr<Studio> S;
    QByteArray Iniziale;  ///< the archive before the import
};
PROVA(TestAnnullo);

/// Another program's import has the turn: what it is about to write would go with the archive.
void TestAnnullo::mentreUnAltroImporta()
{
    const QByteArray Dopo = S->Byte();
    {
        const CopiaDiPrima Altrui(S->File);
        QCOMPARE(DescrizioneErroreDi([&] { AnnullaImportazione(S->File); }),
                 u"Un altro programma sta importando nello stesso archivio: riprovare fra poco."_s);
        QCOMPARE(S->Byte(), Dopo);
    }
    AnnullaImportazione(S->File);
    QCOMPARE(S->Byte(), Iniziale);
}

/// A card that is being saved is waited for, and kept.
void TestAnnullo::mentreUnAltroScrive()
{
    const QScopedValueRollback Poco(attese::BlocchiMs, 50);
    const QByteArray Dopo = S->Byte();
    const auto Scheda = Altro();
    Scheda->Esegui(u"BEGIN IMMEDIATE"_s);
    QCOMPARE(Annullo(), errori::DatiBloccati);
    QCOMPARE(S->Byte(), Dopo);
    Scheda->Esegui(u"ROLLBACK"_s);
    AnnullaImportazione(S->File);
    QCOMPARE(S->Byte(), Iniziale);
}

/// Until the former archive has its name back nobody writes to the one that goes, nor to what has lost its
/// name.
void TestAnnullo::nessunoScriveNelFrattempo()
{
    const auto Scheda = Altro();
    (void)Scheda->Esegui(u"UPDATE clienti SET Citta=Citta WHERE 0"_s);
    const QString Salva = u"UPDATE clienti SET Citta='Lucca'"_s;
    int Durante = 0;
    guasti::PrimaDelDisco = [&](const QString&) {
        Durante = NumeroErrore([&] { Scheda->Esegui(Salva); });
        return true;
    };
    const auto Via = qScopeGuard([] { guasti::PrimaDelDisco = {}; });
    AnnullaImportazione(S->File);
    QCOMPARE(Durante, errori::DatiBloccati);
    QCOMPARE(NumeroErrore([&] { Scheda->Esegui(Salva); }), errori::DatabaseSolaLettura);
    QCOMPARE(S->Byte(), Iniziale);
}

/// Nobody writes to it, and it stays read-only.
void TestAnnullo::unArchivioDiSolaLettura()
{
    QVERIFY(QFile::setPermissions(S->File, QFile::ReadOwner));
    AnnullaImportazione(S->File);
    QCOMPARE(S->Byte(), Iniziale);
    QVERIFY(!(QFile::permissions(S->File) & QFile::WriteOwner));
}

/// One who reads it must wait; the user is not told that his work stands against it.
void TestAnnullo::unArchivioBloccatoNonEModificato()
{
    const QScopedValueRollback Poco(attese::BlocchiMs, 50);
    const auto Scheda = Altro();
    Scheda->Esegui(u"BEGIN EXCLUSIVE"_s);
    QCOMPARE(Annullo(), errori::DatiBloccati);
    Scheda->Esegui(u"ROLLBACK"_s);
    AnnullaImportazione(S->File);
    QCOMPARE(S->Byte(), Iniziale);
}

void TestAnnullo::unArchivioIlleggibileNonEModificato()
{
    const QFile::Permissions Diritti = QFile::permissions(S->File);
    QVERIFY(QFile::setPermissions(S->File, {}));
    QCOMPARE(Annullo(), errori::Accesso);
    QVERIFY(QFile::setPermissions(S->File, Diritti));
    AnnullaImportazione(S->File);
    QCOMPARE(S->Byte(), Iniziale);
}

/// With two copies, as a killed import leaves them, only the archive says which is the last one's.
void TestAnnullo::unArchivioBloccatoNonCostaLaCopia()
{
    const QString Copia = S->File + u".prima"_s;
    for (const QString& Fine : {u""_s, u".json"_s})
        QVERIFY(QFile::copy(Copia + Fine, Copia + Fine + u".salvo"_s));
    const QByteArray Prima = S->Byte();
    Importa(u"Verdi"_s);
    for (const QString& Fine : {u""_s, u".json"_s})
        QVERIFY(QFile::rename(Copia + Fine + u".salvo"_s, Copia + Fine));
    {
        const QScopedValueRollback Poco(attese::BlocchiMs, 50);
        const auto Scheda = Altro();
        Scheda->Esegui(u"BEGIN EXCLUSIVE"_s);
        QCOMPARE(NumeroErrore([&] { (void)UltimaImportazione(S->File); }), errori::DatiBloccati);
        QCOMPARE(NumeroErrore([&] { const CopiaDiPrima Nuova(S->File); }), errori::DatiBloccati);
    }
    QVERIFY(QFile::exists(Copia + u".2"_s));
    AnnullaImportazione(S->File);
    QCOMPARE(S->Byte(), Prima);
}

void TestAnnullo::leChiaviNonTornano_data()
{
    QTest::addColumn<QString>("Prima");  // names that stand there before the import
    QTest::newRow("empty archive") << QString();
    QTest::newRow("other names") << u"INSERT INTO clienti (Nominativo) VALUES ('Bianchi'), ('Verdi')"_s;
}

/// A note may be linked to a name of the import: no other person gets its key.
void TestAnnullo::leChiaviNonTornano()
{
    QFETCH(QString, Prima);
    S = std::make_unique<Studio>();
    if (!Prima.isEmpty())
        S->Esegui(Prima);
    const QByteArray Era = S->Byte();
    Importa(u"Rossi"_s);
    const int Tolta = S->Righe({u"ID"_s}).last().toInt();
    AnnullaImportazione(S->File);
    QCOMPARE(S->Byte(), Era);
    QVERIFY(!S->Righe({u"ID"_s}).contains(QString::number(Tolta)));
    Importa(u"Neri"_s);
    QCOMPARE(S->Righe({u"ID"_s}).last().toInt(), Tolta + 1);
    AnnullaImportazione(S->File);
    QCOMPARE(S->Byte(), Era);
    const qint64 Libera = PrimaChiaveLibera(OpenDatabase(S->File), u"clienti"_s).value_or(0);
    QCOMPARE(Libera, Tolta + 2);
    // A row that has it takes the archive's own counter there.
    S->Esegui(u"INSERT INTO clienti (ID, Nominativo) VALUES (?, 'Gialli')"_s, {Libera});
    QVERIFY(QFile::remove(S->File + u".chiavi"_s));
    S->Esegui(u"INSERT INTO clienti (Nominativo) VALUES ('Viola')"_s);
    QCOMPARE(S->Righe({u"ID"_s}).last().toInt(), Tolta + 3);
}

#include "TestAnnullo.moc"
