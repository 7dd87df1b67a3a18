// A rate archive in Access format, as the former program leaves one in the user's folder.
#include "archivio_prova.h"
#include "supporto/guasti.h"
#include "supporto/registratore.h"
#include "supporto/scrittoreaccess.h"

#include "calculators/modComuni.h"
#include "calculators/modInteressi.h"
#include "calculators/modIstat.h"
#include "platform/base/numerierrore.h"
#include "platform/base/regionale.h"

#include <QFile>

using namespace Qt::StringLiterals;

namespace {

/// The delivered archive in Access format, with its indices.
FileScritto Tassi()
{
    FileScritto Come = AccessDa(ArchivioConsegnato(), EdizioneAccess::Jet3);
    for (TabellaScritta& Tabella : Come.Tabelle) {
        if (Tabella.Nome == u"InteressiLegali" || Tabella.Nome == u"InteressiMora")
            Tabella.Indici = {{u"Dal"_s, {0}, false, true}};
        if (Tabella.Nome == u"IndiciIstat")
            Tabella.Indici = {{u"Indice"_s, {0, 1}, true, true}};
    }
    return Come;
}

QStringList Righe(const QString& Archivio)
{
    const DatiInteressi Dati{InteressiLegali, u"10000"_s,      ValutaEuro, {},
                             u"15/03/1999"_s, u"20/06/2011"_s, false};
    QString UltimoAumento;
    const EsitoInteressi Esito = CalcolaInteressi(Archivio, Dati, UltimoAumento);
    QStringList Tutte;
    for (int i = 0; i < Esito.Righe.Righe(); ++i)
        for (int Colonna = 0; Colonna < ColonneInteressi; ++Colonna)
            Tutte << CStr(Esito.Righe(i, Colonna));
    return Tutte;
}

}  // namespace

class TestTassiAccess : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    /// The municipalities are the program's own.
    void iComuniSiRifiutano()
    {
        const QString File = NuovaCartella() + u"Comuni.mdb"_s;
        ScriviAccess(File, {.Tabelle = {{.Nome = u"Comuni"_s, .Colonne = {{.Nome = u"Comune"_s}}}}});
        const ErroreVisto Guasto = ErroreDi([&] { const ArchivioComuni Aperto(File); });
        QCOMPARE(Guasto.Numero, errori::FormatoDatabase);
    }

    void interessi()
    {
        const QString File = ScriviAccess(NuovaCartella() + u"Tassi.dat"_s, Tassi());
        QFile Prima(File);
        QVERIFY(Prima.open(QIODevice::ReadOnly));
        const QByteArray Byte = Prima.readAll();
        const QStringList Attese = Righe(ArchivioConsegnato());
        QVERIFY(Attese.size() > 20);
        QCOMPARE(Righe(File), Attese);
        Prima.seek(0);
        QCOMPARE(Prima.readAll(), Byte);
    }

    void istat()
    {
        const QString File = ScriviAccess(NuovaCartella() + u"Tassi.dat"_s, Tassi());
        const QDate Da(2001, 1, 1);
        const QDate A(2005, 12, 1);
        const QList<PuntoIndice> Attesi = SerieIndici(ArchivioConsegnato(), Da, A);
        const QList<PuntoIndice> Letti = SerieIndici(File, Da, A);
        QVERIFY(!Attesi.isEmpty());
        QCOMPARE(Letti.size(), Attesi.size());
        const DatiIstat Dati{u"01/02/2001"_s, u"01/02/2005"_s, u"1000"_s, 0};
        const auto Calcola = [&](const QString& Archivio) {
            bool Chiesto = false;
            RisultatiIstat Etichette;
            (void)CalcolaRivalutazione(Archivio, Dati, Chiesto, Etichette);
            return Etichette.lblImpRival;
        };
        QVERIFY(!Calcola(File).isEmpty());
        QCOMPARE(Calcola(File), Calcola(ArchivioConsegnato()));
    }

    /// The municipalities are the program's own.
    void comuni()
    {
        const QString File =
            ScriviAccess(NuovaCartella() + u"Comuni.mdb"_s,
                         {.Tabelle = {{.Nome = u"Comuni"_s, .Colonne = {{.Nome = u"COMU_DESCR"_s}}}}});
        const ErroreVisto Guasto = ErroreDi([&] { const ArchivioComuni Comuni(File); });
        QCOMPARE(Guasto.Numero, errori::FormatoDatabase);
    }
};

PROVA(TestTassiAccess);
#include "TestTassiAccess.moc"
