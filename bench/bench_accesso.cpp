// An archive in Access format as large as an office's may be, made native.
#include "misura.h"

#include "platform/accesso/accesso.h"
#include "supporto/scrittoreaccess.h"

#include <QDate>
#include <QTemporaryDir>

#include <limits>

using namespace Qt::StringLiterals;

namespace {

double Converti()
{
    constexpr int Righe = 100'000;
    const QTemporaryDir Cartella;
    using namespace tipoaccess;
    TabellaScritta Clienti{.Nome = u"clienti"_s,
                           .Colonne = {{.Nome = u"ID"_s, .Tipo = Lungo, .Contatore = true},
                                       {.Nome = u"Nominativo"_s, .Caratteri = 60},
                                       {.Nome = u"Indirizzo"_s, .Caratteri = 60},
                                       {.Nome = u"Cap"_s, .Caratteri = 5},
                                       {.Nome = u"Citta"_s, .Caratteri = 40},
                                       {.Nome = u"CodFis"_s, .Caratteri = 16},
                                       {.Nome = u"DataNascita"_s, .Tipo = Data},
                                       {.Nome = u"Saldo"_s, .Tipo = Valuta},
                                       {.Nome = u"Socio"_s, .Tipo = Booleano},
                                       {.Nome = u"Note"_s, .Tipo = Memo}},
                           .Indici = {{u"PrimaryKey"_s, {0}, true, true}, {u"Nominativo"_s, {1}}},
                           .MappaGrande = true};
    for (int i = 1; i <= Righe; ++i)
        Clienti.Righe.append(RigaScritta{
            i, u"Rossi Mario %1"_s.arg(i * 7919 % 1000003), u"Via Garibaldi %1"_s.arg(i % 400), u"55100"_s,
            u"Lucca"_s, u"RSSMRA50A01E715%1"_s.arg(i % 10), QDate(1930, 1, 1).addDays(i % 30000), i / 100.0,
            i % 2 == 0, i % 20 == 0 ? QVariant(u"Una nota lunga. "_s.repeated(20)) : QVariant()});
    const QString Da = ScriviAccess(Cartella.filePath(u"da.mdb"_s), {.Tabelle = {Clienti}});
    const QString A = Cartella.filePath(u"a.mdb"_s);
    accesso::Programma = QStringLiteral(CARTELLA_PROGRAMMA "/calcanova-accesso");
    double Durata = std::numeric_limits<double>::quiet_NaN();
    const double Tempo = DurataMs([&] {
        const auto Rapporto =
            ConvertiAccess(Da, A, {.Secondi = 120, .Prosegui = [](qint64) { return true; }});
        if (Rapporto && Rapporto->Tabelle.value(0).Righe == Righe)
            Durata = 0;
    });
    return Durata + Tempo;
}
const RegistraMisura RegistrataConverti(u"read an Access archive of 100,000 rows"_s, 20000.0, Converti);

}  // namespace
