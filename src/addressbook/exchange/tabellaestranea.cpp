#include "addressbook/exchange/tabellaestranea.h"

#include "platform/base/errore.h"

void PassiDiLettura::Ferma()
{
    throw Interrotto();
}

void RifiutaFile(const QString& Frase)
{
    throw Errore(NumeroFileRifiutato, Frase);
}
