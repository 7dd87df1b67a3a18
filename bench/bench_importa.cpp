// Names of a spreadsheet's file into the archive: read, compared with those that are there, written.
#include "misura.h"

#include "addressbook/exchange/colonneimporta.h"
#include "addressbook/exchange/importa.h"
#include "addressbook/exchange/sorgente.h"

#include <QFile>
#include <QTemporaryDir>

#include <limits>

using namespace Qt::StringLiterals;

namespace {

constexpr int Righe = 100'000;

QString FoglioDi(const QTemporaryDir& Cartella)
{
    const QString File = Cartella.filePath(u"nomi.csv"_s);
    QFile Foglio(File);
    if (!Foglio.open(QIODevice::WriteOnly))
        return {};
    Foglio.write(
        "Cognome;Nome;Indirizzo;CAP;Citt\xC3\xA0;Prov;Codice fiscale;Nato il;Tel;Cell;E-mail;Note\r\n");
    for (int i = 0; i < Righe; ++i)
        Foglio.write(
            u"Rossi %1;Mario;\"Via Garibaldi, %2\";55100;Lucca;LU;RSSMRA80A%3;01/02/1980;0583 %1;333 "
            "%1;mario%1@esempio.it;\"una\r\ndue\"\r\n"_s.arg(i)
                .arg(i % 400)
                .arg(i, 7, 10, QChar(u'0'))
                .toUtf8());
    return File;
}

/// From the file to the end of its transaction, as the dialog goes.
double Importa(bool Presenti)
{
    const QTemporaryDir Cartella;
    const QString File = FoglioDi(Cartella);
    const QString Archivio = Cartella.filePath(u"DatiStudio.mdb"_s);
    QFile::copy(QStringLiteral(CARTELLA_PROGRAMMA "/DatiStudio.mdb"), Archivio);
    QFile::setPermissions(Archivio, QFile::ReadOwner | QFile::WriteOwner);
    int Aggiunti = 0;
    const auto Una = [&](Doppioni Modo) {
        const Database Db = OpenDatabase(Archivio);
        const SorgenteNominativi Da(File);
        OpzioniSorgente Come;
        const TabellaEstranea Lette = Da.Leggi(Come);
        ImportaNominativi Opera(Db, u"clienti"_s, Lette, AbbinaColonne(Lette.Titoli, Db.Campi(u"clienti"_s)),
                                Modo);
        if (Opera.Prepara() && Opera.Scrivi(File))
            Aggiunti = Opera.Conto().Aggiunti;
    };
    if (Presenti)
        Una(Doppioni::Salta);
    const double Durata = DurataMs([&] { Una(Doppioni::Completa); });
    return Aggiunti == (Presenti ? 0 : Righe) ? Durata : std::numeric_limits<double>::quiet_NaN();
}

const RegistraMisura DaFoglio(u"import 100,000 rows of CSV"_s, 5000.0, [] { return Importa(false); });
const RegistraMisura Ripetuta(u"import 100,000 rows that are there already"_s, 5000.0,
                              [] { return Importa(true); });

}  // namespace
