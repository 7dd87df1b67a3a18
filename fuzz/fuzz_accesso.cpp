// Access files. "file", "jet3", "jet4" and "ace" in the first line give whole ones to the reading program's
// own procedure: as they are, or a sound one of that edition with changed bytes (four each, three of the
// place); "tronca" behind them cuts it. Any other input is taken apart into what the reader takes apart by
// itself: rows, texts, values, maps of pages, indices. Nothing beyond what was given is read, and what comes
// out keeps its promises.
#include "basedati.h"
#include "fonte.h"

#include "platform/accesso/figlio/conversione.h"
#include "platform/accesso/figlio/righe.h"
#include "platform/database/database.h"
#include "platform/database/recordset.h"
#include "supporto/scrittoreaccess.h"

#include <QFile>
#include <QFileInfo>
#include <QJsonArray>

#include <algorithm>
#include <cmath>
#include <concepts>
#include <initializer_list>
#include <iterator>

using namespace Qt::StringLiterals;

namespace {

/// An input from its end on: each number takes its bytes, what is left is text.
class Pezzi
{
public:
    explicit Pezzi(QByteArray Dati) : Resto(std::move(Dati)) {}

    template <std::unsigned_integral T>
    T Numero()
    {
        T Letto = 0;
        for (size_t i = 0; i < sizeof(T) && !Resto.isEmpty(); ++i) {
            Letto = T(Letto << 8 | uchar(Resto.back()));
            Resto.chop(1);
        }
        return Letto;
    }
    bool Vero() { return (Numero<uint8_t>() & 1) != 0; }
    size_t Fra(size_t Da, size_t A) { return Da + Numero<quint32>() % (A - Da + 1); }
    int Uno(std::initializer_list<int> Scelte) { return *(Scelte.begin() + Fra(0, Scelte.size() - 1)); }
    /// Bytes that end where their memory ends.
    QByteArray Testo(qsizetype Massimo)
    {
        const auto Quanti = std::min<qsizetype>(qsizetype(Fra(0, size_t(Massimo))), Resto.size());
        const QByteArray Preso(Resto.constData(), Quanti);
        Resto.remove(0, Quanti);
        return Preso;
    }
    QByteArray Tutto() { return {Resto.constData(), Resto.size()}; }

private:
    QByteArray Resto;
};

const QByteArray& Sano(EdizioneAccess Edizione)
{
    static QMap<int, QByteArray> Fatti;
    QByteArray& Uno = Fatti[int(Edizione)];
    if (Uno.isEmpty())
        Uno = ScriviAccess(
            {.Edizione = Edizione,
             .Tabelle = {{.Nome = u"clienti"_s,
                          .Colonne = {{.Nome = u"ID"_s, .Tipo = tipoaccess::Lungo, .Contatore = true},
                                      {.Nome = u"Nominativo"_s},
                                      {.Nome = u"Note"_s, .Tipo = tipoaccess::Memo},
                                      {.Nome = u"Nato"_s, .Tipo = tipoaccess::Data},
                                      {.Nome = u"Saldo"_s, .Tipo = tipoaccess::Valuta},
                                      {.Nome = u"Vero"_s, .Tipo = tipoaccess::Booleano}},
                          .Righe = {{1, u"Rossi"_s, QString(300, u'x'), QDate(1980, 1, 1), 10.5, true},
                                    {2, u"Verdi"_s, QString(5000, u'y'), QVariant(), -1.0, false}}}}});
    return Uno;
}

QByteArray Guastato(QByteArray File, const QByteArray& Come)
{
    if (Come.startsWith("tronca\n"))
        return File.first(std::clamp<qsizetype>(Come.sliced(7).trimmed().toInt(), 0, File.size()));
    constexpr qsizetype Lunga = 4;
    for (qsizetype i = 0; i + Lunga <= Come.size(); i += Lunga) {
        const auto Cifra = [&](qsizetype Quale) { return qsizetype(uchar(Come[i + Quale])); };
        File[(Cifra(0) << 16 | Cifra(1) << 8 | Cifra(2)) % File.size()] = Come[i + 3];
    }
    return File;
}

/// The file is as it was; the copy is one, with as many rows as were told, or there was an error.
void Intero(const QByteArray& File)
{
    const QString Da = Posa(u"vecchio.mdb"_s, File);
    const QString A = CartellaDiLavoro() + u"nuovo.mdb"_s;
    for (const QString& Fine : {u""_s, u"-journal"_s})
        QFile::remove(A + Fine);
    Riesce([&] {
        const QJsonObject Detto = CopiaTutto(
            Da, A, [] {}, [](qint64) {});
        const Database Copia = OpenDatabase(A, true);
        for (const auto& Voce : Detto[u"tabelle"_s].toArray()) {
            const Recordset Righe = Copia.OpenRecordset(Voce[u"nome"_s].toString());
            Pretendi(Righe.RecordCount() == Voce[u"righe"_s].toInteger());
        }
    });
    Pretendi(Contenuto(Da) == File);
}

void DiPezzi(const QByteArray& Dati)
{
    Pezzi Fonte(Dati);
    const Formato Come = Fonte.Vero() ? Formato::Jet3 : Formato::Jet4;
    const int Pagina = Fonte.Uno({1250, 1252, 437, 65001, 0});
    std::vector<ColonnaAccess> Colonne(Fonte.Fra(0, 12));
    for (ColonnaAccess& Colonna : Colonne) {
        Colonna.Tipo = Fonte.Numero<uint8_t>();
        Colonna.Dimensione = Fonte.Numero<uint16_t>();
        Colonna.Numero = Fonte.Numero<uint8_t>();
        Colonna.Fissa = Fonte.Vero();
        Colonna.PostoFisso = Fonte.Numero<uint16_t>();
        Colonna.PostoVariabile = Fonte.Numero<uint16_t>();
        Colonna.Scala = Fonte.Numero<uint8_t>();
    }
    const QByteArray Riga = Fonte.Testo(600);
    if (const auto Celle = SpezzaRiga(Riga, Come, Colonne, Fonte.Vero())) {
        Pretendi(Celle->size() == Colonne.size());
        for (size_t i = 0; i < Colonne.size(); ++i) {
            const auto Valore = ValoreAccess((*Celle)[i], Colonne[i], Come, Pagina);
            Pretendi(!Valore || Valore->typeId() != QMetaType::Double || std::isfinite(Valore->toDouble()));
            Pretendi(!Valore || !Valore->toString().contains(QChar(0)));
            if ((*Celle)[i]) {
                const auto Memo = LeggiMemo(*(*Celle)[i]);
                Pretendi(!Memo || (Memo->Byte >= 0 && (!Memo->Dentro || Memo->Byte <= (*Celle)[i]->size())));
            }
        }
    }
    const QByteArray Mappa = Fonte.Testo(200);
    const auto Pagine = quint32(Fonte.Fra(1, 1U << 20));
    const QByteArray Bit = Fonte.Testo(64).leftJustified(64, '\0', true);
    if (const auto Elenco = PagineDiMappa(Mappa, Bit.size(), Pagine, [&](quint32) { return Bit; })) {
        for (size_t i = 0; i < Elenco->size(); ++i)
            Pretendi((*Elenco)[i] <= Pagine && (i == 0 || (*Elenco)[i - 1] < (*Elenco)[i]));
    }
    const QByteArray Definizione = Fonte.Tutto();
    for (const IndiceAccess& Indice : IndiciAccess(Definizione, Come, Pagina))
        Pretendi(!Indice.Colonne.isEmpty() && Indice.Colonne.size() <= 10);
    Pretendi(ContatoreAccess(Definizione, Come) >= 0);
}

void Prova(const QByteArray& Dati)
{
    PreparaSessione();
    const qsizetype Fine = Dati.indexOf('\n');
    const QByteArray Che = Dati.first(std::max<qsizetype>(Fine, 0));
    const QByteArray Resto = Dati.sliced(Fine + 1);
    if (Che == "file")
        Intero(Resto);
    else if (Che == "jet3")
        Intero(Guastato(Sano(EdizioneAccess::Jet3), Resto));
    else if (Che == "jet4")
        Intero(Guastato(Sano(EdizioneAccess::Jet4), Resto));
    else if (Che == "ace")
        Intero(Guastato(Sano(EdizioneAccess::Ace2007), Resto));
    else
        DiPezzi(Dati);
}

}  // namespace

BERSAGLIO(fuzz_accesso, Prova);
