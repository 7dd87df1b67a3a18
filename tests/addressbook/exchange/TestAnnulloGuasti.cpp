// The way back from an import, damaged in every way: one sentence that names what is damaged and where the
// copy is, the archive as it was, and the copy stays through the next start.
#include "studio.h"

#include "addressbook/exchange/annullo.h"
#include "platform/base/numerierrore.h"
#include "supporto/danni.h"
#include "supporto/guasti.h"

using namespace Qt::StringLiterals;

class TestAnnulloGuasti : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void unaFraseELArchivioResta_data();
    void unaFraseELArchivioResta();
};
PROVA(TestAnnulloGuasti);

void TestAnnulloGuasti::unaFraseELArchivioResta_data()
{
    QTest::addColumn<QString>("Fine");
    QTest::addColumn<int>("Come");

    for (const QString& Fine : {u".prima.json"_s, u".prima"_s})
        for (int Come = 0; Come < Mancante; ++Come)
            QTest::addRow("%s: %s", qPrintable(Fine), NomiDanni[size_t(Come)]) << Fine << Come;
}

void TestAnnulloGuasti::unaFraseELArchivioResta()
{
    QFETCH(QString, Fine);
    QFETCH(int, Come);
    const Studio S;
    {
        const Database Db = OpenDatabase(S.File);
        const TabellaEstranea Da = Tabella({{u"Nominativo"_s}, {u"Rossi"_s}});
        ImportaNominativi Opera(Db, u"clienti"_s, Da, AbbinaColonne(Da.Titoli, Db.Campi(u"clienti"_s)),
                                Doppioni::Salta);
        QVERIFY(Opera.Prepara());
        QVERIFY(Opera.Scrivi(u"nomi.csv"_s));
    }
    const QByteArray Dopo = S.Byte();
    QVERIFY(!ImportazioneIlleggibile(S.File));
    Rovina(S.File + Fine, Come);
    // The sweep of the next start.
    TogliRestiDiImportazioni(S.File);
    const ErroreVisto Guasto = ErroreDi([&] { AnnullaImportazione(S.File); });
    QCOMPARE(Guasto.Numero, NumeroFileRifiutato);
    QVERIFY2(Guasto.Descrizione.contains(u"\"%1\""_s.arg(S.File + Fine)), qPrintable(Guasto.Descrizione));
    // Nobody is sent to the very file that is damaged.
    const QString Copia = u"La copia di prima è il file \"%1\""_s.arg(S.File + u".prima"_s);
    QVERIFY2(Guasto.Descrizione.contains(Copia) == (Fine == u".prima.json"), qPrintable(Guasto.Descrizione));
    QCOMPARE(S.Byte(), Dopo);
    QVERIFY(EsisteFile(S.File + Fine) || EsisteCartella(S.File + Fine));
    // The window says the same where it would offer the way back.
    if (Fine.endsWith(u"json")) {
        QVERIFY(!UltimaImportazione(S.File));
        QCOMPARE(ImportazioneIlleggibile(S.File).value_or(QString()), Guasto.Descrizione);
    }
}

#include "TestAnnulloGuasti.moc"
