#include "platform/base/tabellarighe.h"

#include "platform/base/errore.h"

#include <QHash>

#include <atomic>

namespace {

quint64 NuovaChiave()
{
    static std::atomic<quint64> Ultima = 0;
    return ++Ultima;
}

}  // namespace

void TabellaRighe::Azzera(int Colonne)
{
    Dati.clear();
    Chiavi.clear();
    NumColonne = Colonne;
}

int TabellaRighe::UpperBound(int Dimensione) const
{
    switch (Dimensione) {
    case 1:
        return Righe() - 1;
    case 2:
        return NumColonne - 1;
    default:
        throw Errore(errori::Indice);
    }
}

const QVariant& TabellaRighe::operator()(int NumRiga, int Colonna) const
{
    Controlla(NumRiga, Colonna);
    return Dati.at(NumRiga).at(Colonna);
}

QVariant& TabellaRighe::operator()(int NumRiga, int Colonna)
{
    Controlla(NumRiga, Colonna);
    return Dati[NumRiga][Colonna];
}

void TabellaRighe::InserisciRiga(int NumRiga)
{
    InserisciRighe(NumRiga, 1);
}

void TabellaRighe::InserisciRighe(int NumRiga, int Quante)
{
    if (NumRiga < 0 || NumRiga > Righe() || Quante < 0)
        throw Errore(errori::Indice);
    Dati.insert(NumRiga, Quante, Riga(NumColonne));
    Chiavi.insert(NumRiga, Quante, 0);
    for (int Nuova = NumRiga; Nuova < NumRiga + Quante; ++Nuova)
        Chiavi[Nuova] = NuovaChiave();
}

int TabellaRighe::AggiungiRiga()
{
    InserisciRiga(Righe());
    return UpperBound(1);
}

void TabellaRighe::EliminaRiga(int NumRiga)
{
    if (NumRiga < 0 || NumRiga >= Righe())
        throw Errore(errori::Indice);
    Dati.removeAt(NumRiga);
    Chiavi.removeAt(NumRiga);
}

quint64 TabellaRighe::Chiave(int NumRiga) const
{
    if (NumRiga < 0 || NumRiga >= Righe())
        throw Errore(errori::Indice);
    return Chiavi.at(NumRiga);
}

QList<int> TabellaRighe::RigheDi(const QList<quint64>& Cercate) const
{
    if (Cercate.isEmpty())
        return {};
    QHash<quint64, int> Numeri;
    for (const quint64 Cercata : Cercate)
        Numeri.insert(Cercata, -1);
    for (int NumRiga = 0; NumRiga < Righe(); ++NumRiga)
        if (const auto Trovata = Numeri.find(Chiavi.at(NumRiga)); Trovata != Numeri.end())
            *Trovata = NumRiga;
    QList<int> Trovate;
    for (const quint64 Cercata : Cercate)
        if (const int NumRiga = Numeri.value(Cercata); NumRiga >= 0)
            Trovate += NumRiga;
    return Trovate;
}

void TabellaRighe::Controlla(int NumRiga, int Colonna) const
{
    if (NumRiga < 0 || NumRiga >= Righe() || Colonna < 0 || Colonna >= NumColonne)
        throw Errore(errori::Indice);
}
