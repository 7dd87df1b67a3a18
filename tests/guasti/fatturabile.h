// A note that is ready to be invoiced, its client and its office.
#pragma once

#include "core/sessione.h"
#include "feenote/file/modPosaFile.h"
#include "feenote/modInterruttori.h"
#include "feenote/modNuovaParcella.h"
#include "feenote/modParametri.h"
#include "guasti/posa.h"
#include "platform/database/database.h"
#include "supporto/prova.h"

namespace fatturabile {

/// The settings of the office.
inline constexpr auto DelloStudio = "[Parametri]\n"
                                    "progtrasm=0\n"
                                    "studiocap=00100\n"
                                    "studiocivico=1\n"
                                    "studiocodfisc=RSSMRA80A01H501U\n"
                                    "studiocomune=Roma\n"
                                    "studionome=Avv. Mario Rossi\n"
                                    "studiopiva=01234567897\n"
                                    "studioprov=RM\n"
                                    "studiotitolarecognome=Rossi\n"
                                    "studiotitolarenome=Mario\n"
                                    "studiovia=Via della Prova\n";

/// The office's clients and a note that is ready to be invoiced, made once.
struct Ufficio
{
    Ufficio()
    {
        AzzeraSessione();
        sessione::PercorsoProg = ProgrammaDiProva();
        const QString Cartella = NuovaCartella();
        const QString File = Cartella + QStringLiteral("DatiStudio.mdb");
        Posa(File, Contenuto(ProgrammaDiProva() + QStringLiteral("DatiStudio.mdb")));
        Parcella Sua;
        NuovaParcella(Sua);
        // What its window asks for before it leaves the first tab.
        CambiaCategoria(Sua, 0);
        CambiaAutorita(Sua, 0);
        Sua.txtImporto.Testo = QStringLiteral("30000");
        LasciaImporto(Sua);
        {
            Recordset Righe = OpenDatabase(File).OpenRecordset(QStringLiteral("clienti"));
            Righe.AddNew();
            for (const auto& [Colonna, Valore] :
                 {std::pair{QStringLiteral("Nominativo"), QStringLiteral("Alfa S.r.l.")},
                  {QStringLiteral("Indirizzo"), QStringLiteral("Via dell'Esempio 2")},
                  {QStringLiteral("Cap"), QStringLiteral("20100")},
                  {QStringLiteral("Citta"), QStringLiteral("Milano")},
                  {QStringLiteral("Prov"), QStringLiteral("MI")},
                  {QStringLiteral("PIva"), QStringLiteral("09876543217")},
                  {QStringLiteral("CodDestinatario"), QStringLiteral("ABC1234")}})
                Righe.ImpostaValue(Colonna, Valore);
            Righe.Update();
            Righe.MoveLast();
            Sua.IDCli = Righe.Value(QStringLiteral("ID")).toInt();
        }
        Sua.txtCliente.Testo = QStringLiteral("Alfa S.r.l.");
        Sua.cmbTipoStampa = StampaFatturaAnalitica;
        Sua.txtDatiPar[DatoNumFatt] = QStringLiteral("7");
        Sua.txtDatiPar[DatoDataFatt] = QStringLiteral("15/01/2026");
        for (const auto& [Tick, Box, Percento] :
             {std::tuple{&Parcella::chkCP, &Parcella::txtCP, QStringLiteral("4")},
              {&Parcella::chkIva, &Parcella::txtIVA, QStringLiteral("22")},
              {&Parcella::chkRA, &Parcella::txtRA, QStringLiteral("20")}}) {
            (Sua.*Tick).Attiva = true;
            (Sua.*Box).Testo = Percento;
        }
        const int Riga = Sua.xOnorari.AggiungiRiga();
        Sua.xOnorari(Riga, OnoDescr) = QStringLiteral("Fase di studio");
        Sua.xOnorari(Riga, OnoImporto) = 1000.0;
        RicordaStampa(Sua);
        ScriviNota(Cartella + QStringLiteral("nota.mdb"), Sua);
        Nota = Contenuto(Cartella + QStringLiteral("nota.mdb"));
        Archivio = Contenuto(File);
    }
    QByteArray Nota, Archivio;
};

inline const Ufficio& Fatturabile()
{
    static const Ufficio Uno;
    return Uno;
}

}  // namespace fatturabile
