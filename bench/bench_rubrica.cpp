// The address book of a large office: opened, ordered, filtered while somebody types, written to, exported.
// Each measure is a process of its own, on an archive that the benchmark has built, or a copy of it.
#include "archiviogrande.h"
#include "misura.h"

#include "addressbook/exchange/esporta.h"
#include "addressbook/richiesta.h"
#include "addressbook/windows/frmRubrica.h"
#include "addressbook/windows/frmScheda.h"
#include "addressbook/windows/rubriche.h"
#include "core/app/programma.h"
#include "platform/database/database.h"
#include "platform/database/recordset.h"
#include "platform/grid/griglia.h"
#include "platform/kit/servizi_qt.h"

#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QTableView>
#include <QTemporaryDir>

#include <algorithm>
#include <cstdio>
#include <limits>

using namespace Qt::StringLiterals;

namespace {

constexpr auto NonMisurabile = std::numeric_limits<double>::quiet_NaN();

void LasciaDipingere()
{
    QCoreApplication::sendPostedEvents();
    QCoreApplication::processEvents();
}

frmRubrica* Apri(const QString& File)
{
    ApriRubrica({.DataSource = File,
                 .RecordSource = u"clienti"_s,
                 .Parent = u"cli"_s,
                 .MenuStart = {},
                 .KeyStart = {}});
    frmRubrica* Rubrica = RubricaDi(0);
    LasciaDipingere();
    return Rubrica;
}

double Apertura(const QString& File)
{
    return MedianaMs(5, [&] {
        frmRubrica* Rubrica = Apri(File);
        Rubrica->close();
        LasciaDipingere();
    });
}

/// The slowest of the columns.
double Ordinamento(const QString& File)
{
    frmRubrica* Rubrica = Apri(File);
    const auto* Lista = Rubrica->findChild<Griglia*>();
    double Peggiore = 0.0;
    for (int Colonna = 0; Colonna < Lista->Vista()->model()->columnCount(); ++Colonna)
        Peggiore = std::max(Peggiore, DurataMs([&] {
                                Rubrica->tdbRubrica_HeadClick(Colonna);
                                LasciaDipingere();
                            }));
    return Lista->Vista()->horizontalHeader()->isSortIndicatorShown() ? Peggiore : NonMisurabile;
}

/// The slowest key of a name that is typed, in rows that are ordered and whose texts are read.
double TastoNelFiltro(const QString& File)
{
    frmRubrica* Rubrica = Apri(File);
    Rubrica->tdbRubrica_HeadClick(1);
    auto* Box = Rubrica->findChild<QLineEdit*>(u"txtFiltro"_s);
    const auto* Conto = Rubrica->findChild<QLabel*>(u"datNom"_s);
    Box->setText(u"z"_s);
    while (!Conto->text().contains(u" di "_s))
        LasciaDipingere();
    double Peggiore = 0.0;
    for (const QString& Testo : {u"r"_s, u"ro"_s, u"ros"_s, u"ross"_s, u"rossi"_s, u"rossi forli"_s,
                                 u"rossi forli 12"_s, u"nessuno"_s, QString()})
        Peggiore = std::max(Peggiore, DurataMs([&] {
                                Box->setText(Testo);
                                LasciaDipingere();
                            }));
    return Peggiore;
}

/// The box of the name on a card.
QLineEdit* BoxDelNome(const frmScheda& Scheda)
{
    for (QLineEdit* Box : Scheda.findChildren<QLineEdit*>())
        if (Box->property("Tag").toString() == u"Nominativo")
            return Box;
    return nullptr;
}

/// From the button of the card to the row in the ordered list again.
double SalvaScheda(const QString& File)
{
    const QTemporaryDir Cartella;
    const QString Copia = Cartella.filePath(u"DatiStudio.mdb"_s);
    QFile::copy(File, Copia);
    frmRubrica* Rubrica = Apri(Copia);
    Rubrica->tdbRubrica_HeadClick(1);
    LasciaDipingere();
    constexpr int Volte = 5;
    QList<double> Tempi;
    for (int i = 0; i < Volte; ++i) {
        Rubrica->Comando(u"edit"_s);
        LasciaDipingere();
        auto* Scheda = Rubrica->findChild<frmScheda*>();
        QLineEdit* Box = Scheda ? BoxDelNome(*Scheda) : nullptr;
        if (!Box)
            return NonMisurabile;
        const QString Nome = u"Neri Paola %1"_s.arg(i);
        Box->setFocus();
        Box->selectAll();
        Box->insert(Nome);
        Tempi += DurataMs([&] {
            Scheda->barScheda_ButtonClick(u"do"_s);
            LasciaDipingere();
        });
        const Database Scritta = OpenDatabase(Copia, true);
        if (Scritta.OpenRecordset(u"SELECT ID FROM clienti WHERE Nominativo='%1'"_s.arg(Nome)).Eof())
            return NonMisurabile;
    }
    return Mediana(Tempi);
}

double EsportaCsv(const QString& File)
{
    const QTemporaryDir Cartella;
    const QString Csv = Cartella.filePath(u"clienti.csv"_s);
    const double Tempo = DurataMs([&] {
        const Database Archivio = OpenDatabase(File, true);
        EsportaNominativi(Csv, Archivio.OpenRecordset(u"clienti"_s), FormatoEsporta::Csv);
    });
    constexpr qint64 PerRiga = 50;
    return QFileInfo(Csv).size() > PerRiga * 100'000 ? Tempo : NonMisurabile;
}

/// The most that the program has held after an order and a filter.
double Memoria(const QString& File)
{
    (void)TastoNelFiltro(File);
    QFile Stato(u"/proc/self/status"_s);
    if (!Stato.open(QIODevice::ReadOnly))
        return NonMisurabile;
    constexpr double KiloPerMega = 1024.0;
    for (const QByteArray& Riga : Stato.readAll().split('\n'))
        if (Riga.startsWith("VmHWM:"))
            return Riga.mid(6).chopped(2).trimmed().toDouble() / KiloPerMega;
    return NonMisurabile;
}

int Rubrica(int& argc, char** argv)
{
    Applicazione Programma(argc, argv);
    PreparaProgramma();
    const QString Quale = QString::fromLatin1(argc > 2 ? argv[2] : "");
    const QString File = QString::fromLocal8Bit(argc > 3 ? argv[3] : "");
    const std::pair<QStringView, double (*)(const QString&)> Quali[] = {
        {u"apri", Apertura},   {u"ordina", Ordinamento}, {u"filtra", TastoNelFiltro},
        {u"memoria", Memoria}, {u"salva", SalvaScheda},  {u"csv", EsportaCsv}};
    for (const auto& [Nome, Misura] : Quali)
        if (Nome == Quale)
            std::puts(qPrintable(QString::number(Misura(File), 'g', 10)));
    return 0;
}
const RegistraRuolo RuoloRubrica(u"--rubrica"_s, Rubrica);

std::function<double()> NellaRubrica(const QString& Quale, int Nominativi)
{
    return [=] {
        bool Riuscita = false;
        const double Valore =
            EseguiRuolo({u"--rubrica"_s, Quale, ArchivioGrande(Nominativi)}).toDouble(&Riuscita);
        return Riuscita ? Valore : NonMisurabile;
    };
}

constexpr int Centomila = 100'000;
constexpr int UnMilione = 1'000'000;
const RegistraMisura Apri100k(u"100,000 names: open the address book"_s, 100.0,
                              NellaRubrica(u"apri"_s, Centomila));
const RegistraMisura Ordina100k(u"100,000 names: sort by the slowest column"_s, 300.0,
                                NellaRubrica(u"ordina"_s, Centomila));
const RegistraMisura Filtra100k(u"100,000 names: a key in the filter"_s, 50.0,
                                NellaRubrica(u"filtra"_s, Centomila));
const RegistraMisura Apri1M(u"1,000,000 names: open the address book"_s, 300.0,
                            NellaRubrica(u"apri"_s, UnMilione), 50.0);
const RegistraMisura Ordina1M(u"1,000,000 names: sort by the slowest column"_s, 3000.0,
                              NellaRubrica(u"ordina"_s, UnMilione), 205.0);
const RegistraMisura Filtra1M(u"1,000,000 names: a key in the filter"_s, 500.0,
                              NellaRubrica(u"filtra"_s, UnMilione), 280.0);
const RegistraMisura Salva1M(u"1,000,000 names: save a card in the ordered list"_s, 1000.0,
                             NellaRubrica(u"salva"_s, UnMilione), 125.0);
const RegistraMisura Csv1M(u"1,000,000 names: export as CSV"_s, 10'000.0, NellaRubrica(u"csv"_s, UnMilione),
                           27.0);
const RegistraMisura Memoria1M(u"1,000,000 names: memory, sorted and filtered"_s, 300.0,
                               NellaRubrica(u"memoria"_s, UnMilione), u"MB"_s);

}  // namespace
