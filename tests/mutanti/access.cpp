// Damaged Access files by the thousand, each through the reading program: mutanti_access NUMBER [SEED
// [PROGRAM]].
//
// A mutant passes when it is answered in its time, by a program that lives on, and when what is said to be a
// copy is one: its tables open and hold the rows that were counted. What fails is kept beside the message.
#include "platform/accesso/accesso.h"
#include "platform/accesso/lettore.h"
#include "platform/base/errore.h"
#include "supporto/scrittoreaccess.h"

#include <QCoreApplication>
#include <QDate>
#include <QElapsedTimer>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTemporaryDir>

#include <algorithm>
#include <array>
#include <cstdio>
#include <random>

using namespace Qt::StringLiterals;

namespace {

constexpr int Secondi = 2;

QList<QByteArray> Sani()
{
    using namespace tipoaccess;
    TabellaScritta Clienti{
        .Nome = u"clienti"_s,
        .Colonne = {{.Nome = u"ID"_s, .Tipo = Lungo, .Descrizione = u"V=N"_s, .Contatore = true},
                    {.Nome = u"Nominativo"_s, .Caratteri = 60, .Descrizione = u"L=Nome,S=40"_s},
                    {.Nome = u"Nascita"_s, .Tipo = Data},
                    {.Nome = u"Saldo"_s, .Tipo = Valuta},
                    {.Nome = u"Quota"_s, .Tipo = Decimale},
                    {.Nome = u"Socio"_s, .Tipo = Booleano},
                    {.Nome = u"Chiave"_s, .Tipo = Guid},
                    {.Nome = u"Note"_s, .Tipo = Memo},
                    {.Nome = u"Foto"_s, .Tipo = Ole}},
        .Indici = {{u"PrimaryKey"_s, {0}, true}, {u"Nome"_s, {1, 2}}}};
    for (int i = 0; i < 60; ++i)
        Clienti.Righe.append({i * 3 + 1, u"Nominativo numero %1 è"_s.arg(i),
                              QDate(1950, 1, 1).addDays(i * 100), i / 7.0, i * 12345, i % 2 == 0,
                              QByteArray(16, char(i)), u"Una nota. "_s.repeated(i * 40), QByteArray(i, 'x')});
    Clienti.Traslocate = {3, 40};
    Clienti.Tolte = {5};
    TabellaScritta Piccola{
        .Nome = u"Tassi"_s,
        .Colonne = {{.Nome = u"Dal"_s, .Tipo = Data}, {.Nome = u"Tasso"_s, .Tipo = Singolo}},
        .Righe = {{QDate(2012, 1, 1), 2.5F}},
        .Indici = {{u"Dal"_s, {0}, false, true}},
        .MappaGrande = true};
    QList<QByteArray> Tutti;
    for (const EdizioneAccess Edizione :
         {EdizioneAccess::Jet3, EdizioneAccess::Jet4, EdizioneAccess::Ace2007, EdizioneAccess::Ace2019})
        Tutti.append(ScriviAccess({.Edizione = Edizione, .Tabelle = {Clienti, Piccola}}));
    Tutti.append(ScriviAccess({.Tabelle = {Piccola}}));
    return Tutti;
}

/// Damage as disks, transfers and ill will do it.
QByteArray Muta(QByteArray Byte, std::mt19937_64& Caso)
{
    const auto Fino = [&](qsizetype Massimo) {
        return std::uniform_int_distribution<qsizetype>(0, std::max<qsizetype>(Massimo - 1, 0))(Caso);
    };
    constexpr std::array<quint32, 10> Notevoli{0,      1,      0x7f,        0x80,        0xff,
                                               0x7fff, 0xffff, 0x7fffffffU, 0x80000000U, 0xffffffffU};
    const qsizetype Pagina = Byte[0x14] == 0 ? 2048 : 4096;
    const qsizetype Pagine = Byte.size() / Pagina;
    const int Colpi = 1 + int(Fino(6));
    for (int Colpo = 0; Colpo < Colpi; ++Colpo) {
        // Most of a page is empty: the beginning of it says more.
        const qsizetype Dove =
            Fino(2) == 0 ? Fino(Byte.size() - 4) : Fino(Pagine) * Pagina + std::min(Fino(400), Pagina - 4);
        switch (Fino(8)) {
        case 0:
            Byte[Dove] = char(Byte[Dove] ^ (1 << Fino(8)));
            break;
        case 1:
        case 2:
            Byte[Dove] = char(Fino(256));
            break;
        case 3:
        case 4: {
            const quint32 Valore = Notevoli[size_t(Fino(qsizetype(Notevoli.size())))];
            for (int i = 0; i < (Fino(2) == 0 ? 2 : 4); ++i)
                Byte[Dove + i] = char(Valore >> (8 * i) & 0xff);
            break;
        }
        case 5: {
            const QByteArray Altra = Byte.sliced(Fino(Pagine) * Pagina, Pagina);
            Byte.replace(Fino(Pagine) * Pagina, Pagina, Altra);
            break;
        }
        case 6:
            // A pointer to another page, which is there.
            Byte[Dove] = char(Fino(4));
            Byte[Dove + 1] = char(Fino(Pagine));
            break;
        default:
            if (Colpo == 0 && Fino(10) == 0)
                return Byte.first(Fino(Byte.size()));
            std::ranges::fill(Byte.begin() + Dove, Byte.begin() + std::min(Dove + Fino(64), Byte.size()),
                              char(Fino(256)));
        }
    }
    return Byte;
}

bool Scrivi(const QString& Percorso, const QByteArray& Byte)
{
    QFile File(Percorso);
    return File.open(QIODevice::WriteOnly) && File.write(Byte) == Byte.size();
}

/// What is wrong with a copy; empty for one that holds what was counted.
QString Difetto(const QString& Copia, const QJsonArray& Tabelle)
{
    try {
        const Database Db = OpenDatabase(Copia, true);
        if (Db.Tabelle().size() != Tabelle.size())
            return u"another number of tables"_s;
        for (const QJsonValue& Tabella : Tabelle) {
            const QString Nome = Tabella[u"nome"].toString();
            (void)Db.Campi(Nome);
            if (Db.OpenRecordset(Nome).RecordCount() != Tabella[u"righe"].toInteger())
                return u"another number of rows"_s;
        }
    } catch (const Errore& Guasto) {
        return Guasto.Descrizione;
    }
    return {};
}

}  // namespace

int main(int argc, char** argv)
{
    const QCoreApplication Programma(argc, argv);
    const QStringList Argomenti = QCoreApplication::arguments();
    const int Quanti = Argomenti.value(1, u"1000"_s).toInt();
    const quint64 Seme = Argomenti.value(2, u"1"_s).toULongLong();
    const QString Lettrice = Argomenti.value(3, QStringLiteral(PROGRAMMA_LETTORE));
    const QTemporaryDir Cartella;
    const QString Da = Cartella.filePath(u"da.mdb"_s);
    const QString A = Cartella.filePath(u"a.mdb"_s);
    const QList<QByteArray> Basi = Sani();
    std::mt19937_64 Caso(Seme);
    int Accettati = 0;
    int Rifiutati = 0;
    int Interrotti = 0;
    int Falliti = 0;
    qint64 PiuLento = 0;
    auto Con = std::make_unique<Lettore>(Lettrice);
    for (int i = 0; i < Quanti; ++i) {
        const QByteArray Byte = Muta(Basi[qsizetype(Caso() % quint64(Basi.size()))], Caso);
        QFile::remove(A);
        if (!Scrivi(Da, Byte))
            return 2;
        const QByteArray Domanda =
            QJsonDocument(QJsonObject{{u"da"_s, Da}, {u"a"_s, A}, {u"secondi"_s, Secondi}})
                .toJson(QJsonDocument::Compact) +
            '\n';
        QElapsedTimer Tempo;
        Tempo.start();
        const Lettore::Fine Fine = Con->Chiedi(
            Domanda, 60000, [](QByteArrayView Riga) { return !Riga.startsWith("{\"avanzate\""); },
            [] { return true; });
        PiuLento = std::max(PiuLento, Tempo.elapsed());
        QString Male;
        if (Fine != Lettore::Fine::Risposta) {
            Male = u"no answer (%1)"_s.arg(int(Fine));
            Con = std::make_unique<Lettore>(Lettrice);
        } else {
            const QJsonObject Detta = QJsonDocument::fromJson(Con->Risposta()).object();
            const int Numero = Detta[u"errore"_s].toInt(-1);
            if (Numero == 0) {
                ++Accettati;
                Male = Difetto(A, Detta[u"tabelle"_s].toArray());
            } else if (Numero == errori::FormatoDatabase) {
                (Detta[u"descrizione"_s].toString().contains(u"interrotta"_s) ? Interrotti : Rifiutati) += 1;
            } else {
                Male = u"error %1: %2"_s.arg(Numero).arg(Detta[u"descrizione"_s].toString());
            }
        }
        if (!Male.isEmpty()) {
            const QString Tenuto = u"mutante-%1-%2.mdb"_s.arg(Seme).arg(i);
            Scrivi(Tenuto, Byte);
            std::printf("%d: %s (%s)\n", i, qPrintable(Male), qPrintable(Tenuto));
            ++Falliti;
        }
        if ((i + 1) % 5000 == 0) {
            std::printf("%d\n", i + 1);
            std::fflush(stdout);
        }
    }
    std::printf("mutants %d: copied %d, refused %d, given up %d, failed %d; the slowest %lld ms\n", Quanti,
                Accettati, Rifiutati, Interrotti, Falliti, static_cast<long long>(PiuLento));
    return Falliti == 0 ? 0 : 1;
}
