// calcanova-accesso: reads files of Access for the other programs, and writes native copies of them.
#include "platform/accesso/figlio/servizio.h"

#include <unistd.h>

int main()
{
    return ServiRichieste(STDIN_FILENO, STDOUT_FILENO);
}
