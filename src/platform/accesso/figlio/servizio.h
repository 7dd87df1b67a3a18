// Requests taken one by one, each by a process of its own.
#pragma once

/// Reads requests from a descriptor until it ends, and answers each on another one. A request is a line of
/// JSON: "da" the Access file, "a" its copy, "secondi" of processor. The answer is one too: "errore" 0 with
/// "tabelle" and "tralasciati", or its number and a "descrizione". Lines of progress come before it:
/// "avanzate" rows.
///
/// What a file does to its process ends that process: the next request finds this one as it was.
/// @return exit status
int ServiRichieste(int Ingresso, int Uscita);
