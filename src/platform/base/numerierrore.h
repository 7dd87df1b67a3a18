// The numbers that this program throws, and their sentences: for whoever tells of an error without throwing
// or catching one.
#pragma once

#include <QString>

/// The numbers that the program throws; DescrizioneErrore has the sentence of each.
namespace errori {

inline constexpr int Argomento = 5;
inline constexpr int Eccedenza = 6;
inline constexpr int Memoria = 7;
inline constexpr int Indice = 9;
inline constexpr int DivisionePerZero = 11;
inline constexpr int Tipo = 13;
inline constexpr int NessunProgramma = 31;
inline constexpr int NomeNonValido = 52;
inline constexpr int FileMancante = 53;
inline constexpr int GiaInUso = 55;
inline constexpr int Periferica = 57;
inline constexpr int FilePresente = 58;
inline constexpr int DiscoPieno = 61;
inline constexpr int Autorizzazione = 70;
inline constexpr int Accesso = 75;
inline constexpr int PercorsoMancante = 76;
inline constexpr int FileRifiutato = 321;
inline constexpr int Stampante = 482;
inline constexpr int Imprevisto = 1000;
inline constexpr int TroppoComplessa = 1025;
inline constexpr int TabellaPresente = 3010;
inline constexpr int IndiceMancante = 3015;
inline constexpr int SenzaIndice = 3019;
inline constexpr int NonInModifica = 3020;
inline constexpr int NessunRecord = 3021;
inline constexpr int ValoreDoppio = 3022;
inline constexpr int DatabaseMancante = 3024;
inline constexpr int SpazioDatabase = 3026;
inline constexpr int DatabaseSolaLettura = 3027;
inline constexpr int TransazioneAnnullata = 3034;
inline constexpr int DiscoORete = 3043;
inline constexpr int CartellaMancante = 3044;
inline constexpr int RecordGrande = 3047;
inline constexpr int CampoSconosciuto = 3061;
inline constexpr int CampoDelCriterio = 3070;
inline constexpr int SintassiCriterio = 3077;
inline constexpr int TabellaMancante = 3078;
inline constexpr int FunzioneSconosciuta = 3085;
inline constexpr int OltreLaFine = 3142;
inline constexpr int SintassiSql = 3144;
inline constexpr int Segnalibro = 3159;
inline constexpr int TestoLungo = 3163;
inline constexpr int RecordEliminato = 3167;
inline constexpr int DatabasePresente = 3204;
inline constexpr int InTransazione = 3246;
inline constexpr int DatiBloccati = 3260;
inline constexpr int ElementoMancante = 3265;
inline constexpr int IndicePresente = 3284;
inline constexpr int CampoObbligatorio = 3314;
inline constexpr int RegolaDiConvalida = 3317;
inline constexpr int FormatoDatabase = 3343;
inline constexpr int CampoPresente = 3380;
inline constexpr int TipoDelValore = 3421;

}  // namespace errori

/// Italian sentence of a number, without a full stop; a general one for unknown numbers.
[[nodiscard]] QString DescrizioneErrore(int Numero);
