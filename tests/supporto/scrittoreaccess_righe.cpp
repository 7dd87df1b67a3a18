// The cells and rows of an Access file.
#include "supporto/scrittoreaccess_interno.h"

#include "platform/base/paginacodice.h"

#include <QDateTime>

#include <bit>
#include <cmath>

using namespace Qt::StringLiterals;

namespace formatoaccess {

QByteArray Scrittore::TestoNudo(const QString& Testo) const
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

QByteArray Scrittore::TestoStretto(const QString& Testo) const
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

QByteArray Scrittore::CellaMemo(const QByteArray& Byte)
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

quint32 Scrittore::PaginaMemo(const QByteArray& Byte)
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

QByteArray Scrittore::Cella(const ColonnaScritta& Colonna, const QVariant& Valore)
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

double Scrittore::Giorni(const QVariant& Valore)
{
    const QDateTime Quando = Valore.toDateTime();
    const qint64 Interi = QDate(1899, 12, 30).daysTo(Quando.date());
    const double Parte = double(Quando.time().msecsSinceStartOfDay()) / 86400000.0;
    return Interi < 0 ? double(Interi) - Parte : double(Interi) + Parte;
}

QByteArray Scrittore::Riga(const TabellaScritta& Tabella, const RigaScritta& Valori)
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

}  // namespace formatoaccess
