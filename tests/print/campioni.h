// Notes filled by hand, for the tests of composition: no database, no window.
#pragma once

#include "core/sessione.h"
#include "feenote/parcella.h"
#include "platform/document/superficie.h"

#include <QString>

#include <algorithm>

namespace campioni {

using namespace Qt::StringLiterals;

/// The office that signs the documents of these tests; everything else of the session is empty.
inline void ImpostaStudio()
{
    AzzeraSessione();
    sessione::StudioNome = u"Avv. Giulia Neri"_s;
    sessione::StudioIndir = u"Via Roma 12"_s;
    sessione::StudioCitta = u"20121 Milano (MI)"_s;
    sessione::StudioCodFisc = u"NREGLI70A41F205X"_s;
    sessione::StudioPIva = u"01234567890"_s;
    sessione::Firma = u"Avv. Giulia Neri"_s;
    sessione::Iban = u"IT60X0542811101000000123456"_s;
}

inline void AggiungiOnorario(TabellaRighe& Righe, const QString& Descr, const QVariant& Qta, double Importo,
                             double Min = 0.0, double Max = 0.0)
{
    const int Riga = Righe.AggiungiRiga();
    Righe(Riga, OnoDescr) = Descr;
    Righe(Riga, OnoQta) = Qta;
    Righe(Riga, OnoImporto) = Importo;
    Righe(Riga, OnoMedio) = Importo;
    Righe(Riga, OnoMin) = Min;
    Righe(Riga, OnoMax) = Max;
}

inline void AggiungiSpesa(TabellaRighe& Righe, const QString& Descr, const QVariant& Qta, double Imponibile,
                          double Esente)
{
    const int Riga = Righe.AggiungiRiga();
    Righe(Riga, DirDescr) = Descr;
    Righe(Riga, DirQta) = Qta;
    Righe(Riga, DirImponibile) = Imponibile;
    Righe(Riga, DirEsente) = Esente;
}

inline void AggiungiAcconto(TabellaRighe& Righe, const QString& Descr, const QString& Valuta,
                            double Corrispettivi, double SpeseImp = 0.0, double SpeseEsenti = 0.0)
{
    const int Riga = Righe.AggiungiRiga();
    Righe(Riga, AccDescr) = Descr;
    Righe(Riga, AccValuta) = Valuta;
    Righe(Riga, AccCorrispettivi) = Corrispettivi;
    Righe(Riga, AccSpeseImp) = SpeseImp;
    Righe(Riga, AccSpeseEsenti) = SpeseEsenti;
}

inline void Applica(Spunta& Tick, Casella& Box, const QString& Percento)
{
    Tick.Attiva = true;
    Box.Testo = Percento;
}

/// A new note: VAT and pension fund, nothing else.
inline Parcella Vuota()
{
    Parcella Nota;
    Nota.Pronta = true;
    Nota.CodCateg = u"CIV"_s;
    Nota.cmbCateg = 0;
    Applica(Nota.chkIva, Nota.txtIVA, u"21"_s);
    Applica(Nota.chkCP, Nota.txtCP, u"4"_s);
    return Nota;
}

inline void ApplicaTutte(Parcella& Nota)
{
    Applica(Nota.chkSpeseGen, Nota.txtSpeGen, u"12,5"_s);
    Applica(Nota.chkRA, Nota.txtRA, u"20"_s);
}

inline void ImpostaTesti(Parcella& Nota, const QString& Sopra, const QString& Sotto)
{
    Nota.txtDatiPar[DatoTestoSuperiore] = Sopra;
    Nota.txtDatiPar[DatoTestoInferiore] = Sotto;
}

/// Four phases, a case of 30.000,00, all four percentages.
inline Parcella Civile()
{
    Parcella Nota = Vuota();
    ApplicaTutte(Nota);
    Nota.txtDatiPar[DatoNumero] = u"12"_s;
    Nota.txtDatiPar[DatoData] = u"15/03/2013"_s;
    Nota.txtDatiStaCli.Testo = u"Mario Rossi\r\nVia Verdi 3\r\n20100 Milano"_s;
    Nota.txtControp.Testo = u"Bianchi"_s;
    Nota.txtDatiStaControp.Testo = u"Bianchi S.r.l."_s;
    Nota.txtDatiStaOgg.Testo = u"recupero di un credito commerciale"_s;
    Nota.ListaAutorita = {{4, u"Tribunale"_s, true}};
    Nota.cmbAutor = 0;
    Nota.ListaScaglioni = {{u"Da € 25.001 a € 50.000"_s, 2, 25000.01, 50000.0, false}};
    Nota.cmbValore = 0;
    Nota.txtImporto.Testo = u"30.000,00"_s;
    AggiungiOnorario(Nota.xOnorari, u"Fase di studio"_s, 1.0, 1200.0);
    AggiungiOnorario(Nota.xOnorari, u"Fase introduttiva"_s, 1.0, 600.0);
    AggiungiOnorario(Nota.xOnorari, u"Fase istruttoria"_s, 1.0, 1200.0);
    AggiungiOnorario(Nota.xOnorari, u"Fase decisoria"_s, 1.0, 1500.0);
    return Nota;
}

/// Expenses, a reduction of the decree, no number, no counterparty.
inline Parcella Penale()
{
    Parcella Nota = Vuota();
    ApplicaTutte(Nota);
    Nota.CodCateg = u"PEN"_s;
    Nota.cmbCateg = 1;
    Nota.txtDatiPar[DatoData] = u"20/05/2013"_s;
    Nota.txtDatiStaCli.Testo = u"Luca Verdi"_s;
    Nota.txtDatiStaOgg.Testo = u"procedimento n. 1234/12 r.g.n.r."_s;
    Nota.AumRidIdx = 6;
    Nota.AumRidVarP = -50;
    AggiungiOnorario(Nota.xOnorari, u"Fase di studio"_s, 1.0, 810.0);
    AggiungiOnorario(Nota.xOnorari, u"Fase dibattimentale"_s, 2.0, 1800.0);
    AggiungiSpesa(Nota.xDiritti, u"Diritti di copia"_s, 3.0, 25.5, 0.0);
    AggiungiSpesa(Nota.xDiritti, u"Marche da bollo"_s, 0.0, 0.0, 16.0);
    return Nota;
}

/// Payments in euro and in lire, the triples shown.
inline Parcella Stragiudiziale()
{
    Parcella Nota = Vuota();
    Nota.CodCateg = u"STR"_s;
    Nota.cmbCateg = 2;
    Nota.txtIVA.Testo = u"22"_s;
    Nota.txtDatiPar[DatoNumero] = u"3/2013"_s;
    Nota.txtDatiStaCli.Testo = u"Gamma S.p.A.\nCorso Italia 7\n10100 Torino"_s;
    Nota.txtControp.Testo = u"Galli"_s;
    Nota.txtDatiStaControp.Testo = u"eredi Galli"_s;
    Nota.txtImporto.Testo = u"45.000"_s;
    Nota.chkMinMax.Attiva = true;
    Nota.chkAcconti.Attiva = true;
    AggiungiOnorario(Nota.xOnorari, u"Consulenza scritta"_s, 1.0, 2000.0, 1000.0, 4000.0);
    AggiungiOnorario(Nota.xOnorari,
                     u"Assistenza nella redazione del contratto di compravendita e dei relativi allegati"_s,
                     2.0, 3500.0, 1750.0, 7000.0);
    AggiungiSpesa(Nota.xDiritti, u"Spese postali"_s, 0.0, 40.25, 0.0);
    AggiungiSpesa(Nota.xDiritti, u"Imposta di registro"_s, 1.0, 0.0, 168.0);
    AggiungiAcconto(Nota.xAcconti, u"Acconto del 10/01/2013"_s, u"E"_s, 1000.0);
    AggiungiAcconto(Nota.xAcconti, u"Acconto alla firma"_s, u"L"_s, 1936270.0, 193627.0, 96813.5);
    return Nota;
}

/// The civil note with a second one of 900,00, which was paid 387.254 lire on account.
inline Parcella ConAssociata(bool Prima)
{
    Parcella Nota = Civile();
    Nota.txtImporto.Testo.clear();
    Nota.chkAcconti.Attiva = true;
    Nota.txtParcMultipla = u"altra nota"_s;
    Nota.optMultiAntPos = Prima ? 1 : 0;
    Nota.chkMultiParam = Prima;
    Nota.Multi.CategMulti = Prima ? u"Penale"_s : u"Stragiudiziale"_s;
    Nota.Multi.AutorMulti = u"Tribunale collegiale"_s;
    Nota.Multi.ValoreMulti = u"10.000,00 €"_s;
    AggiungiOnorario(Nota.Multi.xOnorariMulti, u"Esame degli atti"_s, 1.0, 900.0);
    AggiungiSpesa(Nota.Multi.xDirittiMulti, u"Copie"_s, 4.0, 12.3, 5.0);
    AggiungiAcconto(Nota.Multi.xAccontiMulti, u"Fondo spese"_s, u"L"_s, 387254.0);
    Nota.Multi.TotOnorariMulti = 900.0;
    Nota.Multi.TotSpeseImpMulti = 12.3;
    Nota.Multi.TotSpeseEsentiMulti = 5.0;
    return Nota;
}

// ---- looking into a document

/// The table at this place among the tables of a document, from 0; one without rows when there is none.
inline Tabella TabellaDi(const Documento& Doc, int Quale)
{
    for (const BloccoDocumento& Uno : Doc.Blocchi)
        if (const auto* Una = std::get_if<Tabella>(&Uno); Una && Quale-- == 0)
            return *Una;
    return {};
}

inline int NumeroTabelle(const Documento& Doc)
{
    return static_cast<int>(std::ranges::count_if(
        Doc.Blocchi, [](const BloccoDocumento& Uno) { return std::holds_alternative<Tabella>(Uno); }));
}

/// Texts of a table's row; empty outside the table.
inline QStringList TestiRiga(const Tabella& Una, int Riga)
{
    QStringList Testi;
    if (Riga < static_cast<int>(Una.Righe.size()))
        for (const Cella& Sua : Una.Righe[static_cast<std::size_t>(Riga)])
            Testi += Sua.Testo;
    return Testi;
}

/// Paragraphs of a document, a table as "#".
inline QStringList TestiBlocchi(const Documento& Doc)
{
    QStringList Testi;
    for (const BloccoDocumento& Uno : Doc.Blocchi) {
        const auto* Riga = std::get_if<Paragrafo>(&Uno);
        Testi += Riga ? Riga->Testo() : u"#"_s;
    }
    return Testi;
}

/// A table of one row, then a line.
/// @param Insieme the row does not part from the line, and the line does not break
inline void TotaleEFirma(Superficie& vp, bool Insieme)
{
    vp.StartTable();
    vp.TableCell(AttrTabella::Righe, 1);
    vp.TableCell(AttrTabella::Colonne, 1);
    vp.CellaTabella(AttrTabella::Testo, 1, 1, u"totale"_s);
    vp.EndTable();
    if (Insieme)
        vp.KeepNext();
    vp.Text(u"firma"_s);
    if (Insieme)
        vp.KeepTogether();
}

}  // namespace campioni
