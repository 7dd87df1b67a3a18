// The tables of an Access file: definitions, pages of rows and their maps, descriptions.
#include "supporto/scrittoreaccess_interno.h"

#include <QtEndian>

#include <algorithm>
#include <functional>

using namespace Qt::StringLiterals;

namespace formatoaccess {

quint32 Scrittore::Aggiungi(QList<quint32>& Proprie, quint32 Tabella, const QByteArray& Byte, quint32 Segni)
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
        Libera(Proprie.last()).second - Byte.size() < Conto + 2 + 2 * (Libera(Proprie.last()).first + 1)) {
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

quint32 Scrittore::Mappa(const QList<quint32>& Proprie, bool Grande)
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

void Scrittore::Nome(QByteArray& A, const QString& Testo) const
{
    const QByteArray Byte = TestoNudo(Testo);
    Vecchio ? void(A += char(Byte.size())) : Due(A, quint32(Byte.size()));
    A += Byte;
}

void Scrittore::Scrivi(const TabellaScritta& Tabella, quint32 Dove)
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

QByteArray Scrittore::DefinizioneDi(const TabellaScritta& Tabella, quint32 MappaRighe) const
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

QByteArray Scrittore::ProprietaDi(const TabellaScritta& Tabella) const
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
    return QByteArray(Vecchio ? "KKD\0" : "MR2\0", 4) + Blocco(0x80, ConLungo(u"Description"_s)) + Blocchi;
}

}  // namespace formatoaccess
