// What the tests of the electronic invoice from the command line share: an office that may invoice.
#pragma once

#include "chiamata.h"

#include "core/sessione.h"
#include "feenote/file/modPosaFile.h"
#include "feenote/modInterruttori.h"
#include "feenote/modNuovaParcella.h"
#include "platform/database/database.h"
#include "platform/system/impostazioni.h"
#include "platform/system/orologio.h"

#include <QFile>

/// An office with its settings, an archive with one client, and a saved note that is linked to it.
class Ufficio
{
public:
    Ufficio()
    {
        Orologio = InstallaOrologio([] { return QDateTime(QDate(2026, 1, 20), QTime(10, 0)); });
        const std::pair<QString, QString> Voci[] = {
            {QStringLiteral("StudioNome"), QStringLiteral("Avv. Mario Rossi")},
            {QStringLiteral("StudioPIva"), QStringLiteral("01234567897")},
            {QStringLiteral("StudioCodFisc"), QStringLiteral("RSSMRA80A01H501U")},
            {QStringLiteral("StudioTitolareNome"), QStringLiteral("Mario")},
            {QStringLiteral("StudioTitolareCognome"), QStringLiteral("Rossi")},
            {QStringLiteral("StudioVia"), QStringLiteral("Via della Prova")},
            {QStringLiteral("StudioCivico"), QStringLiteral("1")},
            {QStringLiteral("StudioCap"), QStringLiteral("00100")},
            {QStringLiteral("StudioComune"), QStringLiteral("Roma")},
            {QStringLiteral("StudioProv"), QStringLiteral("RM")},
            {QStringLiteral("ProgTrasm"), QStringLiteral("0")},
        };
        for (const auto& [Chiave, Valore] : Voci)
            SaveSetting(QStringLiteral("KR5"), QStringLiteral("Parametri"), Chiave, Valore);
        sessione::PercorsoProg = ProgrammaDiProva();
        QFile::copy(ProgrammaDiProva() + QStringLiteral("DatiStudio.mdb"), Archivio);
        QFile::setPermissions(Archivio, QFile::ReadOwner | QFile::WriteOwner);
        Recordset Righe = OpenDatabase(Archivio).OpenRecordset(QStringLiteral("clienti"));
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
        Cliente = Righe.Value(QStringLiteral("ID")).toInt();
    }
    ~Ufficio() { InstallaOrologio(Orologio); }
    Ufficio(const Ufficio&) = delete;
    Ufficio& operator=(const Ufficio&) = delete;

    /// A saved note: 1000,00 of fees, 15 % general expenses, 4 %, 22 %, 20 %.
    [[nodiscard]] QString Nota(const std::function<void(Parcella&)>& Cambia = {}) const
    {
        Parcella Nuova;
        NuovaParcella(Nuova);
        Nuova.IDCli = Cliente;
        Nuova.txtCliente.Testo = QStringLiteral("Alfa S.r.l.");
        Nuova.txtOggetto.Testo = QStringLiteral("Rossi contro Bianchi");
        Nuova.cmbTipoStampa = StampaFatturaAnalitica;
        Nuova.txtDatiPar[DatoNumFatt] = QStringLiteral("7");
        Nuova.txtDatiPar[DatoDataFatt] = QStringLiteral("15/01/2026");
        for (const auto& [Tick, Box, Percento] :
             {std::tuple{&Parcella::chkSpeseGen, &Parcella::txtSpeGen, QStringLiteral("15")},
              {&Parcella::chkCP, &Parcella::txtCP, QStringLiteral("4")},
              {&Parcella::chkIva, &Parcella::txtIVA, QStringLiteral("22")},
              {&Parcella::chkRA, &Parcella::txtRA, QStringLiteral("20")}}) {
            (Nuova.*Tick).Attiva = true;
            (Nuova.*Box).Testo = Percento;
        }
        const int Riga = Nuova.xOnorari.AggiungiRiga();
        Nuova.xOnorari(Riga, OnoDescr) = QStringLiteral("Fase di studio");
        Nuova.xOnorari(Riga, OnoImporto) = 1000.0;
        if (Cambia)
            Cambia(Nuova);
        RicordaStampa(Nuova);
        const QString File = Cartella + QStringLiteral("nota.mdb");
        ScriviNota(File, Nuova);
        return File;
    }
    [[nodiscard]] Esito Fattura(const QString& Nota, const QString& Uscita,
                                const QStringList& Prima = {}) const
    {
        return Chiama(QStringList{QStringLiteral("--archivio"), Archivio} + Prima +
                      QStringList{QStringLiteral("fattura"), Nota, Uscita});
    }

    QString Cartella = NuovaCartella();
    QString Archivio = Cartella + QStringLiteral("DatiStudio.mdb");
    int Cliente = 0;

private:
    std::function<QDateTime()> Orologio;
};
