#include "archiviogrande.h"

#include "platform/database/database.h"

#include <QFile>
#include <QTemporaryDir>

using namespace Qt::StringLiterals;

QString ArchivioGrande(int Nominativi)
{
    static const QTemporaryDir Cartella;
    const QString File = Cartella.filePath(u"DatiStudio %1.mdb"_s.arg(Nominativi));
    if (QFile::exists(File))
        return File;
    QFile::copy(QStringLiteral(CARTELLA_PROGRAMMA "/DatiStudio.mdb"), File);
    QFile::setPermissions(File, QFile::ReadOwner | QFile::WriteOwner);
    OpenDatabase(File).Execute(
        u"INSERT INTO clienti (Nominativo, Indirizzo, Cap, Citta, Prov, CodFis, DataNascita, Telefono, "
        u"Email) "
        "WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i+1 FROM n WHERE i<?), "
        "c(k, v) AS (VALUES (0,'Rossi'),(1,'bianchi'),(2,'D''Agostino'),(3,'Nicolò'),(4,'VERDI'),"
        "(5,'Àlvari'),(6,'de Luca')), "
        "p(k, v) AS (VALUES (0,'Mario'),(1,'Anna Maria'),(2,'Ugo'),(3,'Carla'),(4,'Nicolò')), "
        "t(k, v) AS (VALUES (0,'Lucca'),(1,'Forlì'),(2,'roma'),(3,'Cefalù'),(4,'Milano')) "
        "SELECT c.v || ' ' || p.v || ' ' || (i*7919 % 1000003), 'Via Garibaldi ' || (i % 400), "
        "printf('%05d', i % 98000), t.v, 'LU', printf('RSSMRA%02dA01H%03dX', i % 100, i % 1000), "
        "date('1930-01-01', (i % 30000) || ' days'), '0583 ' || i, 'mario' || i || '@esempio.it' "
        "FROM n JOIN c ON c.k = i % 7 JOIN p ON p.k = i % 5 JOIN t ON t.k = i % 5"_s,
        {Nominativi});
    return File;
}
