// The bytes of Access files that the reading program takes apart by itself: rows, texts, values, maps of
// pages, indices. Nothing beyond what was given is read, and what comes out keeps its promises.
#include "platform/accesso/figlio/righe.h"

#include <fuzzer/FuzzedDataProvider.h>

namespace {

void Pretendi(bool Vero)
{
    if (!Vero)
        __builtin_trap();
}

/// Bytes that end where their memory ends.
QByteArray Pezzo(FuzzedDataProvider& Fonte, size_t Massimo)
{
    return QByteArray::fromStdString(Fonte.ConsumeRandomLengthString(Massimo));
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* Dati, size_t Quanti)
{
    FuzzedDataProvider Fonte(Dati, Quanti);
    const Formato Come = Fonte.ConsumeBool() ? Formato::Jet3 : Formato::Jet4;
    const int Pagina = Fonte.PickValueInArray({1250, 1252, 437, 65001, 0});
    std::vector<ColonnaAccess> Colonne(Fonte.ConsumeIntegralInRange<size_t>(0, 12));
    for (ColonnaAccess& Colonna : Colonne) {
        Colonna.Tipo = Fonte.ConsumeIntegral<uint8_t>();
        Colonna.Dimensione = Fonte.ConsumeIntegral<uint16_t>();
        Colonna.Numero = Fonte.ConsumeIntegral<uint8_t>();
        Colonna.Fissa = Fonte.ConsumeBool();
        Colonna.PostoFisso = Fonte.ConsumeIntegral<uint16_t>();
        Colonna.PostoVariabile = Fonte.ConsumeIntegral<uint16_t>();
        Colonna.Scala = Fonte.ConsumeIntegral<uint8_t>();
    }
    const QByteArray Riga = Pezzo(Fonte, 600);
    if (const auto Celle = SpezzaRiga(Riga, Come, Colonne, Fonte.ConsumeBool())) {
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
    const QByteArray Mappa = Pezzo(Fonte, 200);
    const auto Pagine = Fonte.ConsumeIntegralInRange<quint32>(1, 1U << 20);
    const QByteArray Bit = Pezzo(Fonte, 64).leftJustified(64, '\0', true);
    if (const auto Elenco = PagineDiMappa(Mappa, Bit.size(), Pagine, [&](quint32) { return Bit; })) {
        for (size_t i = 0; i < Elenco->size(); ++i)
            Pretendi((*Elenco)[i] <= Pagine && (i == 0 || (*Elenco)[i - 1] < (*Elenco)[i]));
    }
    const QByteArray Definizione = QByteArray::fromStdString(Fonte.ConsumeRemainingBytesAsString());
    for (const IndiceAccess& Indice : IndiciAccess(Definizione, Come, Pagina))
        Pretendi(!Indice.Colonne.isEmpty() && Indice.Colonne.size() <= 10);
    Pretendi(ContatoreAccess(Definizione, Come) >= 0);
    return 0;
}
