#include "supporto/scrittoreaccess.h"

#include "platform/database/database.h"
#include "supporto/scrittoreaccess_interno.h"

#include <QFile>
#include <QtEndian>

#include <array>
#include <map>
#include <utility>

using namespace Qt::StringLiterals;

namespace formatoaccess {

void Due(QByteArray& A, quint32 Valore)
{
    A += char(Valore & 0xff);
    A += char(Valore >> 8 & 0xff);
}

void Quattro(QByteArray& A, quint32 Valore)
{
    Due(A, Valore & 0xffff);
    Due(A, Valore >> 16);
}

void Otto(QByteArray& A, quint64 Valore)
{
    Quattro(A, quint32(Valore & 0xffffffffU));
    Quattro(A, quint32(Valore >> 32));
}

void MettiDue(QByteArray& In, qsizetype Dove, quint32 Valore)
{
    qToLittleEndian(quint16(Valore), In.data() + Dove);
}

void MettiQuattro(QByteArray& In, qsizetype Dove, quint32 Valore)
{
    qToLittleEndian(Valore, In.data() + Dove);
}

void Rc4(quint32 Chiave, char* Byte, qsizetype Quanti)
{
    std::array<quint8, 4> Semi{};
    qToLittleEndian(Chiave, Semi.data());
    std::array<quint8, 256> Stato{};
    for (int i = 0; i < 256; ++i)
        Stato[size_t(i)] = quint8(i);
    for (int i = 0, j = 0; i < 256; ++i) {
        j = (j + Stato[size_t(i)] + Semi[size_t(i % 4)]) & 255;
        std::swap(Stato[size_t(i)], Stato[size_t(j)]);
    }
    int x = 0;
    int y = 0;
    for (qsizetype k = 0; k < Quanti; ++k) {
        x = (x + 1) & 255;
        y = (y + Stato[size_t(x)]) & 255;
        std::swap(Stato[size_t(x)], Stato[size_t(y)]);
        Byte[k] = char(quint8(Byte[k]) ^ Stato[size_t((Stato[size_t(x)] + Stato[size_t(y)]) & 255)]);
    }
}

bool Variabile(int Tipo)
{
    using namespace tipoaccess;
    return Tipo == Testo || Tipo == Memo || Tipo == Ole || Tipo == Binario;
}

int ByteFissi(int Tipo)
{
    static const std::map<int, int> Byte{{1, 0}, {2, 1}, {3, 2},   {4, 4},   {5, 8},  {6, 4},
                                         {7, 8}, {8, 8}, {15, 16}, {16, 17}, {18, 4}, {19, 8}};
    return Byte.at(Tipo);
}

QByteArray Scrittore::Tutto()
{
    Pagine = {Testa(), Vuota(5), Vuota(2)};
    QList<RigaScritta> Elenco;
    QList<quint32> Definizioni;
    for (const TabellaScritta& Tabella : Come.Tabelle) {
        const quint32 Pagina = Tabella.Collegata ? 0 : Nuova();
        Definizioni.append(Pagina);
        const QByteArray Proprieta = ProprietaDi(Tabella);
        Elenco.append({int(Pagina | (Tabella.Collegata ? 0x40000000U : 0U)), Tabella.Nome,
                       Tabella.Collegata ? 6 : 1, Tabella.DiSistema ? int(0x80000000U) : 0,
                       Proprieta.isEmpty() ? QVariant() : QVariant(Proprieta)});
    }
    using namespace tipoaccess;
    const TabellaScritta Oggetti{.Nome = u"MSysObjects"_s,
                                 .Colonne = {{.Nome = u"Id"_s, .Tipo = Lungo},
                                             {.Nome = u"Name"_s, .Tipo = Testo, .Caratteri = 255},
                                             {.Nome = u"Type"_s, .Tipo = Intero},
                                             {.Nome = u"Flags"_s, .Tipo = Lungo},
                                             {.Nome = u"LvProp"_s, .Tipo = Ole}},
                                 .Righe = Elenco,
                                 .DiSistema = true};
    Scrivi(Oggetti, 2);
    // The rows stand last: a file that is cut loses those first.
    for (qsizetype i = 0; i < Come.Tabelle.size(); ++i)
        if (!Come.Tabelle[i].Collegata)
            Scrivi(Come.Tabelle[i], Definizioni[i]);
    QByteArray Byte;
    for (qsizetype i = 0; i < Pagine.size(); ++i) {
        QByteArray Una = Pagine[i];
        if (i > 0 && Come.Chiave != 0)
            Rc4(Come.Chiave ^ quint32(i), Una.data(), Una.size());
        Byte += Una;
    }
    return Byte;
}

QByteArray Scrittore::Vuota(int Genere) const
{
    QByteArray Una(Lunga, '\0');
    Una[0] = char(Genere);
    Una[1] = 1;
    return Una;
}

quint32 Scrittore::Nuova(int Genere)
{
    Pagine.append(Vuota(Genere));
    return quint32(Pagine.size() - 1);
}

QByteArray Scrittore::Testa() const
{
    const bool Ace = Come.Edizione >= EdizioneAccess::Ace2007;
    QByteArray Una(Lunga, '\0');
    Una[1] = Una[2] = 0;
    Una.replace(0, 4, QByteArray("\0\1\0\0", 4));
    Una.replace(4, 16, QByteArray(Ace ? "Standard ACE DB\0" : "Standard Jet DB\0", 16));
    static const std::map<EdizioneAccess, int> Versioni{{EdizioneAccess::Jet3, 0},
                                                        {EdizioneAccess::Jet4, 1},
                                                        {EdizioneAccess::Ace2007, 2},
                                                        {EdizioneAccess::Ace2019, 6}};
    MettiQuattro(Una, 0x14, quint32(Versioni.at(Come.Edizione)));
    MettiDue(Una, 0x3c, quint32(Come.PaginaCodici));
    MettiQuattro(Una, 0x3e, Come.Chiave);
    MettiDue(Una, Vecchio ? 0x3a : 0x6e, 0x0409);
    Rc4(0x6b39dac7U, Una.data() + 0x18, Vecchio ? 126 : 128);
    return Una;
}

}  // namespace formatoaccess

qsizetype BytePerPagina(EdizioneAccess Edizione)
{
    return Edizione == EdizioneAccess::Jet3 ? 2048 : 4096;
}

QByteArray ScriviAccess(const FileScritto& Come)
{
    return formatoaccess::Scrittore(Come).Tutto();
}

QString ScriviAccess(const QString& Percorso, const FileScritto& Come)
{
    QFile File(Percorso);
    if (!File.open(QIODevice::WriteOnly) || File.write(ScriviAccess(Come)) < 0)
        qFatal("a test file cannot be written");
    return Percorso;
}

FileScritto AccessDa(const QString& Nativo, EdizioneAccess Edizione)
{
    FileScritto Come{.Edizione = Edizione};
    const Database Db = OpenDatabase(Nativo, true);
    for (const QString& Nome : Db.Tabelle()) {
        TabellaScritta Tabella{.Nome = Nome};
        for (const Campo& C : Db.Campi(Nome))
            Tabella.Colonne.append({.Nome = C.Name,
                                    .Tipo = int(C.Type),
                                    .Caratteri = C.Size,
                                    .Descrizione = C.Description,
                                    .Contatore = C.Contatore});
        for (Recordset Righe = Db.OpenRecordset(Nome); !Righe.Eof(); Righe.MoveNext()) {
            RigaScritta Riga;
            for (const ColonnaScritta& Colonna : std::as_const(Tabella.Colonne))
                Riga.append(Righe.Value(Colonna.Nome));
            Tabella.Righe.append(Riga);
        }
        Come.Tabelle.append(Tabella);
    }
    return Come;
}
