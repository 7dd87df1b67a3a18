// What the tests of the electronic invoice share: an office and a client of whom nothing is missing, an
// invoice with one line, the panel.
#pragma once

#include "addressbook/richiesta.h"
#include "core/parametri.h"
#include "feenote/windows/PannelloFattura.h"
#include "platform/base/regionale.h"
#include "platform/system/orologio.h"
#include "platform/system/percorsi.h"
#include "stampa.h"

#include <QListWidget>
#include <QTextBrowser>
#include <QTimer>

#include <algorithm>

inline const QString CodiceStudio = QStringLiteral("CNTLRA70A41E715E");
inline const QString PivaStudio = QStringLiteral("01234567897");

class BancoFattura : protected BancoStampa
{
protected:
    void PreparaFattura()
    {
        using namespace Qt::StringLiterals;
        DimenticaArchiviChiesti();
        SalvaImpostazioni({{u"ProgTrasm"_s, {}}, {u"CartellaFattureXml"_s, {}}});
        Prepara();
        sessione::StudioPIva = PivaStudio;
        sessione::StudioCodFisc = CodiceStudio;
        sessione::StudioTitolareNome = u"Laura"_s;
        sessione::StudioTitolareCognome = u"Conti"_s;
        sessione::StudioVia = u"Via Fillungo"_s;
        sessione::StudioCivico = u"3"_s;
        sessione::StudioCap = u"55100"_s;
        sessione::StudioComune = u"Lucca"_s;
        sessione::StudioProv = u"LU"_s;
        sessione::Iban = u"IT60X0542811101000000123456"_s;
        IDCliente = T->Ufficio.AggiungiCliente({{u"Nominativo"_s, u"Rossi Mario"_s},
                                                {u"Indirizzo"_s, u"Via Roma, 12"_s},
                                                {u"Cap"_s, u"55100"_s},
                                                {u"Citta"_s, u"Lucca"_s},
                                                {u"Prov"_s, u"LU"_s},
                                                {u"CodFis"_s, u"RSSMRA80A01H501U"_s},
                                                {u"CodDestinatario"_s, u"ABC1234"_s}});
        F->ScegliNome(0, IDCliente);
        Riempi(1);
        Documento(StampaFatturaAnalitica);
        Scrivi(Controllo<QLineEdit>(F, "txtDatiPar_11"), u"12"_s);
        Scrivi(Controllo<QLineEdit>(F, "txtDatiPar_12"), Format(Oggi(), u"dd/mm/yyyy"));
        Premi(Qt::Key_Tab);
        Respiro();
    }

    [[nodiscard]] QWidget* Pannello() const { return Controllo(F, "PannelloFattura"); }
    [[nodiscard]] QListWidget* Lista() const { return Controllo<QListWidget>(F, "lstMancanzeXml"); }
    [[nodiscard]] QString Stato() const { return Controllo<QLabel>(F, "lblStatoXml")->text(); }
    [[nodiscard]] QStringList Righe() const
    {
        QStringList Lette;
        for (int i = 0; i < Lista()->count(); ++i)
            Lette << Lista()->item(i)->text();
        return Lette;
    }
    /// Those that keep the file from being written.
    [[nodiscard]] qsizetype Mancanti() const
    {
        const QStringList Lette = Righe();
        return std::ranges::count_if(Lette,
                                     [](const QString& Riga) { return !Riga.startsWith(u"Avviso: "); });
    }
    /// Brings the panel up, from the page or from itself.
    void ApriPannello() const
    {
        auto* Bottone = Controllo<QAbstractButton>(F, "cmdFatturaXml");
        if (Bottone->isChecked())
            Clic(Bottone);
        Clic(Bottone);
        QVERIFY(Pannello()->isVisible());
        Respiro();
    }
    void AttivaRiga(int Riga) const
    {
        Lista()->setCurrentRow(Riga);
        Lista()->setFocus();
        Premi(Qt::Key_Return);
        Respiro();
    }
    void CambiaCliente(const QString& Colonna, const QString& Valore) const
    {
        OpenDatabase(sessione::ArchivioCliCon)
            .Execute(QStringLiteral("UPDATE clienti SET %1=? WHERE ID=?").arg(Colonna), {Valore, IDCliente});
    }
    void ScegliVoceDi(const char* Elenco, const QString& Codice) const
    {
        auto* Lista = Controllo<QComboBox>(F, Elenco);
        Scegli(Lista, Lista->findData(Codice));
    }
    /// Saves under the name of a number, which is told.
    void SalvaIn(const QString& Cartella, int Numero)
    {
        const QString Nome = QStringLiteral("IT%1_0000%2.xml").arg(CodiceStudio).arg(Numero);
        T->Voce.AttendiSalva(Barra(Cartella) + Nome);
        T->Voce.Attendi(
            QStringLiteral("La fattura elettronica è stata scritta nel file %1.\nLa parcella lo ricorderà "
                           "quando sarà salvata.")
                .arg(Nome));
        Clic(Controllo(F, "cmdSalvaXml"));
        QVERIFY(EsisteFile(Barra(Cartella) + Nome));
    }
    int IDCliente = 0;
};
