#include "platform/base/tabellarighe.h"

#include "platform/base/errore.h"

void TabellaRighe::Azzera(int Colonne)
{
    Dati.clear();
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
        throw Errore(9);
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
        throw Errore(9);
    Dati.insert(NumRiga, Quante, Riga(NumColonne));
}

int TabellaRighe::AggiungiRiga()
{
    InserisciRiga(Righe());
    return UpperBound(1);
}

void TabellaRighe::EliminaRiga(int NumRiga)
{
    if (NumRiga < 0 || NumRiga >= Righe())
        throw Errore(9);
    Dati.removeAt(NumRiga);
}

void TabellaRighe::Controlla(int NumRiga, int Colonna) const
{
    if (NumRiga < 0 || NumRiga >= Righe() || Colonna < 0 || Colonna >= NumColonne)
        throw Errore(9);
}
