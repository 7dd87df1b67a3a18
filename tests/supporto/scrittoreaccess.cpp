#include "supporto/scrittoreaccess.h"

#include "platform/base/paginacodice.h"
#include "platform/database/database.h"

#include <QDateTime>
#include <QFile>
#include <QtEndian>

#include <array>
#include <bit>
#include <cmath>
#include <functional>
#include <map>

using namespace Qt::StringLiterals;

namespace {

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

/// The cipher of the head, and of files that were encoded.
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

/// A file while it grows, page by page.
class Scrittore
{
public:
    explicit Scrittore(const FileScritto& DaScrivere)
        : Come(DaScrivere), Vecchio(DaScrivere.Edizione == EdizioneAccess::Jet3),
          Lunga(BytePerPagina(DaScrivere.Edizione)), Conto(Vecchio ? 8 : 12)
    {}

    QByteArray Tutto()
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

private:
    [[nodiscard]] QByteArray Vuota(int Genere) const
    {
        QByteArray Una(Lunga, '\0');
        Una[0] = char(Genere);
        Una[1] = 1;
        return Una;
    }

    quint32 Nuova(int Genere = 2)
    {
        Pagine.append(Vuota(Genere));
        return quint32(Pagine.size() - 1);
    }

    [[nodiscard]] QByteArray Testa() const
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

    [[nodiscard]] QByteArray TestoNudo(const QString& Testo) const
    {
        if (Vecchio) {
            if (Come.PaginaCodici == PaginaWindows)
                return Cp1252(Testo);
            QByteArray Byte;
            for (const QChar C : Testo)
                for (int Codice = 0; Codice < 256; ++Codice)
                    if (TestoDaPagina(QByteArray(1, char(Codice)), Come.PaginaCodici) == QString(C)) {
                        Byte += char(Codice);
                        break;
                    }
            return Byte;
        }
        QByteArray Byte;
        for (const QChar C : Testo)
            Due(Byte, C.unicode());
        return Byte;
    }

    /// As Access stores it: letters of Latin in one byte, the others between two zeros.
    [[nodiscard]] QByteArray TestoStretto(const QString& Testo) const
    {
        if (Vecchio || Testo.size() < 3 || Testo.contains(QChar(0)))
            return TestoNudo(Testo);
        QByteArray Byte("\xff\xfe");
        bool Stretto = true;
        for (const QChar C : Testo) {
            const bool Uno = C.unicode() < 256;
            // A letter of two bytes with a zero among them cannot stand there.
            if (!Uno && (C.unicode() & 0xff) == 0)
                return TestoNudo(Testo);
            if (Uno != Stretto) {
                Byte += '\0';
                Stretto = Uno;
            }
            if (Uno)
                Byte += char(C.unicode());
            else
                Due(Byte, C.unicode());
        }
        return Byte.size() < Testo.size() * 2 ? Byte : TestoNudo(Testo);
    }

    /// Bytes on pages of their own; the head of the cell that names them.
    QByteArray CellaMemo(const QByteArray& Byte)
    {
        constexpr qsizetype Dentro = 60;
        QByteArray Cella;
        if (Byte.size() <= Dentro) {
            Quattro(Cella, quint32(Byte.size()) | 0x80000000U);
            Quattro(Cella, 0);
            Quattro(Cella, 0);
            return Cella + Byte;
        }
        const qsizetype PerPagina = Lunga - Conto - 2 - 2 - 4;
        if (Byte.size() <= PerPagina) {
            Quattro(Cella, quint32(Byte.size()) | 0x40000000U);
            Quattro(Cella, PaginaMemo(Byte));
        } else {
            // From the last piece to the first, each naming the one behind it.
            quint32 Prossima = 0;
            for (qsizetype Da = (Byte.size() - 1) / PerPagina * PerPagina; Da >= 0; Da -= PerPagina) {
                QByteArray Pezzo;
                Quattro(Pezzo, Prossima);
                Prossima = PaginaMemo(Pezzo + Byte.mid(Da, PerPagina));
            }
            Quattro(Cella, quint32(Byte.size()));
            Quattro(Cella, Prossima);
        }
        Quattro(Cella, 0);
        return Cella;
    }

    quint32 PaginaMemo(const QByteArray& Byte)
    {
        const quint32 Numero = Nuova(1);
        QByteArray& Una = Pagine[Numero];
        Una.replace(4, 4, "LVAL");
        MettiDue(Una, Conto, 1);
        const qsizetype Inizio = Lunga - Byte.size();
        MettiDue(Una, Conto + 2, quint32(Inizio));
        Una.replace(Inizio, Byte.size(), Byte);
        return Numero << 8;
    }

    QByteArray Cella(const ColonnaScritta& Colonna, const QVariant& Valore)
    {
        using namespace tipoaccess;
        if (Valore.typeId() == QMetaType::QByteArray)
            return Colonna.Tipo == Memo || Colonna.Tipo == Ole ? CellaMemo(Valore.toByteArray())
                                                               : Valore.toByteArray();
        QByteArray Byte;
        switch (Colonna.Tipo) {
        case tipoaccess::Byte:
            Byte += char(Valore.toInt());
            break;
        case Intero:
            Due(Byte, quint32(Valore.toInt()));
            break;
        case Lungo:
        case Complesso:
            Quattro(Byte, quint32(Valore.toInt()));
            break;
        case Valuta:
            Otto(Byte, quint64(qRound64(Valore.toDouble() * 10000)));
            break;
        case Grande:
            Otto(Byte, quint64(Valore.toLongLong()));
            break;
        case Singolo:
            Quattro(Byte, std::bit_cast<quint32>(Valore.toFloat()));
            break;
        case Doppio:
            Otto(Byte, std::bit_cast<quint64>(Valore.toDouble()));
            break;
        case Data:
            Otto(Byte, std::bit_cast<quint64>(Valore.typeId() == QMetaType::Double ? Valore.toDouble()
                                                                                   : Giorni(Valore)));
            break;
        case Decimale: {
            const qint64 Numero = Valore.toLongLong();
            Byte += char(Numero < 0 ? 0x80 : 0);
            const quint64 Assoluto = quint64(std::abs(Numero));
            Quattro(Byte, 0);
            Quattro(Byte, 0);
            Quattro(Byte, quint32(Assoluto >> 32));
            Quattro(Byte, quint32(Assoluto & 0xffffffffU));
            break;
        }
        case Memo:
            Byte = CellaMemo(TestoStretto(Valore.toString()));
            break;
        default:
            Byte = TestoStretto(Valore.toString());
        }
        return Byte;
    }

    static double Giorni(const QVariant& Valore)
    {
        const QDateTime Quando = Valore.toDateTime();
        const qint64 Interi = QDate(1899, 12, 30).daysTo(Quando.date());
        const double Parte = double(Quando.time().msecsSinceStartOfDay()) / 86400000.0;
        return Interi < 0 ? double(Interi) - Parte : double(Interi) + Parte;
    }

    QByteArray Riga(const TabellaScritta& Tabella, const RigaScritta& Valori)
    {
        QByteArray Byte;
        const auto Conta = [&](quint32 Numero) { Vecchio ? void(Byte += char(Numero)) : Due(Byte, Numero); };
        Conta(quint32(Tabella.Colonne.size()));
        QByteArray Maschera((Tabella.Colonne.size() + 7) / 8, '\0');
        for (qsizetype i = 0; i < Valori.size(); ++i) {
            const bool Vero =
                Tabella.Colonne[i].Tipo == tipoaccess::Booleano ? Valori[i].toBool() : Valori[i].isValid();
            if (Vero)
                Maschera[i / 8] = char(Maschera[i / 8] | 1 << (i % 8));
        }
        for (qsizetype i = 0; i < Valori.size(); ++i) {
            const ColonnaScritta& Colonna = Tabella.Colonne[i];
            if (Variabile(Colonna.Tipo))
                continue;
            Byte += Valori[i].isValid() && Colonna.Tipo != tipoaccess::Booleano
                        ? Cella(Colonna, Valori[i])
                        : QByteArray(ByteFissi(Colonna.Tipo), '\0');
        }
        QList<int> Posti;
        for (qsizetype i = 0; i < Valori.size(); ++i) {
            if (!Variabile(Tabella.Colonne[i].Tipo))
                continue;
            Posti.append(int(Byte.size()));
            if (Valori[i].isValid())
                Byte += Cella(Tabella.Colonne[i], Valori[i]);
        }
        if (Posti.isEmpty())
            return Byte + Maschera;
        const int Quanti = int(Posti.size());
        Posti.append(int(Byte.size()));
        if (Vecchio) {
            for (qsizetype i = Posti.size(); i-- > 0;)
                Byte += char(Posti[i] & 0xff);
            // One entry for each full 256 bytes of the row as it will be, itself included.
            qsizetype Salti = 0;
            while ((Byte.size() + Salti + 1 + Maschera.size() - 1) / 256 > Salti)
                ++Salti;
            QByteArray Tavola;
            for (qsizetype Salto = Salti; Salto > 0; --Salto) {
                qsizetype Primo = 0;
                while (Primo < Posti.size() && Posti[Primo] < Salto * 256)
                    ++Primo;
                Tavola += char(Primo < Posti.size() ? Primo : 0xff);
            }
            Byte += Tavola;
            Byte += char(Quanti);
        } else {
            for (qsizetype i = Posti.size(); i-- > 0;)
                Due(Byte, quint32(Posti[i]));
            Due(Byte, quint32(Quanti));
        }
        return Byte + Maschera;
    }

    /// Puts rows on pages of a table; a row's place is its page and number.
    quint32 Aggiungi(QList<quint32>& Proprie, quint32 Tabella, const QByteArray& Byte, quint32 Segni)
    {
        const auto Libera = [&](quint32 Numero) {
            const QByteArray& Una = Pagine[Numero];
            const int Righe = qFromLittleEndian<quint16>(Una.constData() + Conto);
            const int Fine = Righe == 0
                                 ? int(Lunga)
                                 : qFromLittleEndian<quint16>(Una.constData() + Conto + 2 * Righe) & 0x1fff;
            return std::pair(Righe, Fine);
        };
        if (Proprie.isEmpty() || Libera(Proprie.last()).first >= 255 ||
            Libera(Proprie.last()).second - Byte.size() <
                Conto + 2 + 2 * (Libera(Proprie.last()).first + 1)) {
            Proprie.append(Nuova(1));
            MettiQuattro(Pagine[Proprie.last()], 4, Tabella);
        }
        const quint32 Numero = Proprie.last();
        const auto [Righe, Fine] = Libera(Numero);
        QByteArray& Una = Pagine[Numero];
        const qsizetype Inizio = Fine - Byte.size();
        Una.replace(Inizio, Byte.size(), Byte);
        MettiDue(Una, Conto, quint32(Righe + 1));
        MettiDue(Una, Conto + 2 + 2 * Righe, quint32(Inizio) | Segni);
        return Numero << 8 | quint32(Righe);
    }

    /// A row with the map of a table's pages, on a page of its own.
    quint32 Mappa(const QList<quint32>& Proprie, bool Grande)
    {
        QByteArray Byte;
        if (Grande) {
            const qsizetype PerPagina = (Lunga - 4) * 8;
            QByteArray Elenco(1, '\1');
            for (qsizetype Prima = 0; Prima < Pagine.size() + 3; Prima += PerPagina) {
                QByteArray Bit = Vuota(5);
                bool Usata = false;
                for (const quint32 Numero : Proprie)
                    if (Numero >= Prima && Numero < Prima + PerPagina) {
                        const qsizetype i = Numero - Prima;
                        Bit[4 + i / 8] = char(Bit[4 + i / 8] | 1 << (i % 8));
                        Usata = true;
                    }
                quint32 Dove = 0;
                if (Usata) {
                    Dove = Nuova(5);
                    Pagine[Dove] = Bit;
                }
                Quattro(Elenco, Dove);
            }
            Byte = Elenco;
        } else {
            const quint32 Prima = Proprie.isEmpty() ? 0 : Proprie.first();
            const qsizetype Ultima = Proprie.isEmpty() ? 0 : Proprie.last() - Prima;
            Byte = QByteArray(5 + std::max<qsizetype>(64, Ultima / 8 + 1), '\0');
            MettiQuattro(Byte, 1, Prima);
            for (const quint32 Numero : Proprie) {
                const quint32 i = Numero - Prima;
                Byte[5 + i / 8] = char(Byte[5 + i / 8] | 1 << (i % 8));
            }
        }
        QList<quint32> Sole;
        return Aggiungi(Sole, 0, Byte, 0);
    }

    void Nome(QByteArray& A, const QString& Testo) const
    {
        const QByteArray Byte = TestoNudo(Testo);
        Vecchio ? void(A += char(Byte.size())) : Due(A, quint32(Byte.size()));
        A += Byte;
    }

    void Scrivi(const TabellaScritta& Tabella, quint32 Dove)
    {
        QList<quint32> Proprie;
        QList<quint32> Altrove;
        for (qsizetype i = 0; i < Tabella.Righe.size(); ++i) {
            const QByteArray Byte = Riga(Tabella, Tabella.Righe[i]);
            if (Tabella.Tolte.contains(int(i))) {
                (void)Aggiungi(Proprie, Dove, Byte, 0xc000);
            } else if (Tabella.Traslocate.contains(int(i))) {
                QByteArray Rimando;
                Quattro(Rimando, Aggiungi(Altrove, Dove, Byte, 0x8000));
                (void)Aggiungi(Proprie, Dove, Rimando, 0x4000);
            } else {
                (void)Aggiungi(Proprie, Dove, Byte, 0);
            }
        }
        Proprie += Altrove;
        std::ranges::sort(Proprie);
        const quint32 MappaRighe = Mappa(Proprie, Tabella.MappaGrande);
        const QByteArray Definizione = DefinizioneDi(Tabella, MappaRighe);
        // What does not fit on the first page goes on behind the heads of others.
        quint32 Pagina = Dove;
        QByteArray Una = Vuota(2);
        Una.replace(8, std::min(Definizione.size(), Lunga - 8),
                    Definizione.first(std::min(Definizione.size(), Lunga - 8)));
        for (qsizetype Da = Lunga - 8; Da < Definizione.size(); Da += Lunga - 8) {
            const quint32 Prossima = Nuova(2);
            MettiQuattro(Una, 4, Prossima);
            Pagine[Pagina] = Una;
            Pagina = Prossima;
            Una = Vuota(2);
            const QByteArray Pezzo = Definizione.mid(Da, Lunga - 8);
            Una.replace(8, Pezzo.size(), Pezzo);
        }
        Pagine[Pagina] = Una;
    }

    [[nodiscard]] QByteArray DefinizioneDi(const TabellaScritta& Tabella, quint32 MappaRighe) const
    {
        const quint32 Righe =
            quint32(Tabella.RigheDichiarate.value_or(int(Tabella.Righe.size() - Tabella.Tolte.size())));
        const auto Indici = quint32(Tabella.Indici.size());
        int Variabili = 0;
        for (const ColonnaScritta& Colonna : Tabella.Colonne)
            Variabili += Variabile(Colonna.Tipo) ? 1 : 0;
        QByteArray B;
        Quattro(B, 0);
        if (!Vecchio)
            Quattro(B, 0x659);
        Quattro(B, Righe);
        Quattro(B, Tabella.UltimoContatore);
        if (!Vecchio) {
            Quattro(B, 1);
            Quattro(B, 0);
            Otto(B, 0);
        }
        B += Tabella.DiSistema ? '\x53' : '\x4e';
        Due(B, quint32(Tabella.Colonne.size()));
        Due(B, quint32(Variabili));
        Due(B, quint32(Tabella.Colonne.size()));
        Quattro(B, Indici);
        Quattro(B, Indici);
        Quattro(B, MappaRighe);
        Quattro(B, MappaRighe);
        B += QByteArray(qsizetype(Indici) * (Vecchio ? 8 : 12), '\0');
        int Fisso = 0;
        int PostoVariabile = 0;
        for (qsizetype i = 0; i < Tabella.Colonne.size(); ++i) {
            const ColonnaScritta& Colonna = Tabella.Colonne[i];
            const bool Var = Variabile(Colonna.Tipo);
            B += char(Colonna.Tipo);
            if (!Vecchio)
                Quattro(B, 0x659);
            Due(B, quint32(i));
            Due(B, quint32(Var ? PostoVariabile : 0));
            Due(B, quint32(i));
            const bool Numero = Colonna.Tipo == tipoaccess::Decimale;
            if (Vecchio) {
                Due(B, 0x0409);
                Due(B, Numero ? quint32(18 | Colonna.Scala << 8) : quint32(Come.PaginaCodici));
                Due(B, 0);
            } else {
                Due(B, Numero ? quint32(18 | Colonna.Scala << 8) : 0x0409U);
                Due(B, 0);
            }
            B += char((Var ? 0 : 1) | 2 | (Colonna.Contatore ? 4 : 0));
            if (!Vecchio) {
                B += '\1';
                Quattro(B, 0);
            }
            Due(B, quint32(Var ? 0 : Fisso));
            const int Lungo = Colonna.Tipo == tipoaccess::Testo ? Colonna.Caratteri * (Vecchio ? 1 : 2)
                              : Var                             ? 0
                                                                : ByteFissi(Colonna.Tipo);
            Due(B, quint32(Lungo));
            if (Var)
                ++PostoVariabile;
            else
                Fisso += ByteFissi(Colonna.Tipo);
        }
        for (const ColonnaScritta& Colonna : Tabella.Colonne)
            Nome(B, Colonna.Nome);
        for (const IndiceScritto& Indice : Tabella.Indici) {
            if (!Vecchio)
                Quattro(B, 0x659);
            for (qsizetype c = 0; c < 10; ++c) {
                Due(B, c < Indice.Colonne.size() ? quint32(Indice.Colonne[c]) : 0xffffU);
                B += '\1';
            }
            Quattro(B, 0);
            Quattro(B, 0);
            B += char(Indice.Unico || Indice.Primario ? 1 : 0);
            if (!Vecchio)
                B += QByteArray(9, '\0');
        }
        // The logical ones stand the other way round, as they may: each names its own.
        for (qsizetype i = Tabella.Indici.size(); i-- > 0;) {
            if (!Vecchio)
                Quattro(B, 0x659);
            Quattro(B, quint32(i));
            Quattro(B, quint32(i));
            B += '\0';
            Quattro(B, 0xffffffffU);
            Quattro(B, 0);
            B += QByteArray(2, '\0');
            B += char(Tabella.Indici[i].Primario ? 1 : 0);
            if (!Vecchio)
                Quattro(B, 0);
        }
        for (qsizetype i = Tabella.Indici.size(); i-- > 0;)
            Nome(B, Tabella.Indici[i].Nome);
        Due(B, 0xffff);
        MettiQuattro(B, 0, quint32(B.size()));
        return B;
    }

    /// What the table's row in the list of objects holds of its fields: their descriptions.
    [[nodiscard]] QByteArray ProprietaDi(const TabellaScritta& Tabella) const
    {
        const auto Blocco = [](int Genere, const QByteArray& Dentro) {
            QByteArray B;
            Quattro(B, quint32(Dentro.size() + 6));
            Due(B, quint32(Genere));
            return B + Dentro;
        };
        const auto ConLungo = [this](const QString& Testo) {
            QByteArray B;
            const QByteArray Byte = TestoNudo(Testo);
            Due(B, quint32(Byte.size()));
            return B + Byte;
        };
        QByteArray Blocchi;
        for (const ColonnaScritta& Colonna : Tabella.Colonne) {
            if (Colonna.Descrizione.isEmpty())
                continue;
            const QByteArray Valore = TestoNudo(Colonna.Descrizione);
            QByteArray Voce;
            Due(Voce, quint32(Valore.size() + 8));
            Voce += '\0';
            Voce += char(tipoaccess::Memo);
            Due(Voce, 0);
            Due(Voce, quint32(Valore.size()));
            Voce += Valore;
            const QByteArray Nomi = ConLungo(Colonna.Nome);
            QByteArray Dentro;
            Quattro(Dentro, quint32(Nomi.size() + 4));
            Blocchi += Blocco(1, Dentro + Nomi + Voce);
        }
        if (Blocchi.isEmpty())
            return {};
        return QByteArray(Vecchio ? "KKD\0" : "MR2\0", 4) + Blocco(0x80, ConLungo(u"Description"_s)) +
               Blocchi;
    }

    const FileScritto& Come;
    bool Vecchio;
    qsizetype Lunga;
    qsizetype Conto;  ///< where a page of rows has their number
    QList<QByteArray> Pagine;
};

}  // namespace

qsizetype BytePerPagina(EdizioneAccess Edizione)
{
    return Edizione == EdizioneAccess::Jet3 ? 2048 : 4096;
}

QByteArray ScriviAccess(const FileScritto& Come)
{
    return Scrittore(Come).Tutto();
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
