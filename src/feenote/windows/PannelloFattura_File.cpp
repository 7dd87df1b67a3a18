// The electronic invoice: the archive's columns, the file, the check of any file.
#include "feenote/windows/PannelloFattura.h"

#include "addressbook/modColonneFattura.h"
#include "addressbook/windows/rubriche.h"
#include "core/modErrori.h"
#include "core/modTrasmissioni.h"
#include "core/parametri.h"
#include "core/sessione.h"
#include "feenote/einvoice/controlli.h"
#include "feenote/einvoice/scrittura.h"
#include "feenote/file/modSalvataggio.h"
#include "feenote/modEmessi.h"
#include "feenote/modFatturaXml.h"
#include "feenote/modRighe.h"
#include "feenote/modStorno.h"
#include "feenote/windows/cornicenota.h"
#include "feenote/windows/frmControlloFattura.h"
#include "feenote/windows/ui_PannelloFattura.h"
#include "platform/base/errore.h"
#include "platform/kit/campo.h"
#include "platform/system/esportato.h"
#include "platform/system/file.h"
#include "platform/system/messaggi.h"
#include "platform/system/orologio.h"
#include "platform/system/percorsi.h"
#include "platform/system/shell.h"
#include "platform/system/sincrono.h"

#include <QSet>

using namespace Qt::StringLiterals;

namespace {

const QString FiltroXml = u"Fattura elettronica (*.xml)|*.xml"_s;
const QString ChiaveCartella = u"CartellaFattureXml"_s;

/// The archives that were asked about in this session.
QSet<QString>& ArchiviChiesti()
{
    static QSet<QString> Chiesti;
    return Chiesti;
}

QString CartellaFatture()
{
    const QString Ultima = Impostazione(ChiaveCartella);
    return Barra(!Ultima.isEmpty() && EsisteCartella(Ultima) ? Ultima : sessione::ParcellePath);
}

/// What both answers write is said where it differs: nobody else tells before the file is sent.
QString FraseScartato(const NumeroEmesso& Prima, bool Storno, const Composizione& AlPosto,
                      const Composizione& Accanto)
{
    const QString Chiesto =
        (Storno ? u"La nota di credito"_s : u"La fattura"_s) +
        u" %1 del %2 ha già il suo file.\nÈ stata scartata, e questa ne prende il posto? "_s.arg(Prima.Numero,
                                                                                                 Prima.Data);
    const QString Suo = TestoImporto(AlPosto.Fattura.Totale);
    if (!Accanto.Completa())
        return Chiesto + u"Rispondendo Sì il file è di %1 euro, rispondendo No non si scrive."_s.arg(Suo);
    const QString Altro = TestoImporto(Accanto.Fattura.Totale);
    if (Altro == Suo)
        return Chiesto + u"Rispondendo No valgono tutte e due."_s;
    return Chiesto + u"Rispondendo Sì il file è di %1 euro, rispondendo No è di %2 euro e valgono tutte e "
                     u"due."_s.arg(Suo, Altro);
}

}  // namespace

void DimenticaArchiviChiesti()
{
    ArchiviChiesti().clear();
}

void PannelloFattura::ChiediColonne()
{
    QStringList Mancano;
    const StatoColonne Stato = StatoColonneFattura(&Mancano);
    ColonneBloccate = Stato == StatoColonne::Bloccate ? Mancano : QStringList();
    if (Stato != StatoColonne::Mancanti || ArchiviChiesti().contains(sessione::ArchivioCliCon))
        return;
    ArchiviChiesti().insert(sessione::ArchivioCliCon);
    const auto Chiedi = [&] {
        return MsgBox(
            u"L'archivio dei clienti non ha le colonne %1, dalle quali la fattura elettronica prende i "
            "dati del cliente.\nAggiungerle? I nominativi restano come sono."_s.arg(Mancano.join(u", "_s)),
            vbYesNo + vbQuestion, TitoloDomanda.toString());
    };
    if (Cornice.InDialogo(Chiedi) != vbYes || !CongedaRubriche())
        return;
    Protetta(AggiungiColonneFattura);
    RileggiRubriche();
}

void PannelloFattura::cmdSalvaXml_Click()
{
    if (Cornice.InDomanda() || !ConcludiCampo())
        return;
    Mostra();
    if (!SiScrive())
        return;
    int Atteso = 0;
    if (!Protetta([&] { Atteso = ProssimaTrasmissione(); }))
        return;
    // Another place may have written it since the note was opened here.
    const DatiFatturaXml NelFile = ScrittaDaAltri();
    const QString Scritta = FatturaGiaScritta(Nota)   ? FraseGiaScritta(Nota)
                            : !NelFile.File.isEmpty() ? FraseGiaScritta(NelFile)
                                                      : QString();
    const auto Scartato = Scritta.isEmpty() ? Scartata : std::nullopt;
    if (!Scartato && !Composta.Completa())
        return;
    bool AlSuoPosto = false;
    const auto Chiedi = [&]() -> QString {
        if (Scartato)
            AlSuoPosto = MsgBox(FraseScartato(*Scartato, ENotaDiCredito(Nota), AlPosto, Composta),
                                vbYesNo + vbQuestion + vbDefaultButton2, TitoloDomanda.toString()) == vbYes;
        if (!AlSuoPosto && !Composta.Completa())
            return {};
        if (!Scritta.isEmpty() &&
            MsgBox(Scritta + u".\nScriverla di nuovo, con un altro nome?"_s,
                   vbYesNo + vbQuestion + vbDefaultButton2, TitoloDomanda.toString()) != vbYes)
            return {};
        return DialogoSalva(
            u"Salva la fattura elettronica"_s,
            CartellaFatture() + NomeFileFattura(Componi(Nota, ProgressivoFile(Atteso)).Fattura), FiltroXml);
    };
    const QString Scelto = Cornice.InDialogo(Chiedi);
    if (Scelto.isEmpty())
        return;
    const QString Nome = NomeFileFattura(Componi(Nota, ProgressivoFile(Atteso)).Fattura);
    if (NomeFile(Scelto).compare(Nome, Qt::CaseInsensitive) != 0) {
        MsgErrore(
            u"Il nome del file è imposto dalle regole della fattura elettronica, %1: si sceglie soltanto la "
            "cartella!"_s.arg(Nome));
        return;
    }
    if (EsisteFile(Scelto)) {
        MsgErrore(u"Il file %1 esiste già e non viene sostituito: scegliere un'altra cartella!"_s.arg(Nome));
        return;
    }
    Scrivi(CartellaFile(Scelto), Atteso, NelFile.File, AlSuoPosto);
}

DatiFatturaXml PannelloFattura::ScrittaDaAltri() const
{
    const DatiFatturaXml Nel = FatturaNelFile(Nota);
    return Nel.DiFattura == FirmaFattura(Nota) ? Nel : DatiFatturaXml();
}

/// The number is taken before the file is written, and stays taken whatever becomes of the file. The note
/// says that it was written before it is: a program that is killed in between has written no invoice that its
/// note does not know.
/// @param GiaNoto the file of this invoice that the note's file named when the user chose to write
/// @param AlSuoPosto it stands for the one before it, which was discarded
void PannelloFattura::Scrivi(const QString& Cartella, int Atteso, const QString& GiaNoto, bool AlSuoPosto)
{
    const QString NonScritta = u"La fattura elettronica non è stata scritta: "_s;
    int Preso = 0;
    try {
        Preso = PrendiTrasmissione();
    } catch (...) {
        MsgErrore(NonScritta + ErroreCorrente().Descrizione);
        return;
    }
    const QString Progressivo = ProgressivoFile(Preso);
    const bool Intatta = !Nota.Modificata;
    const DatiFatturaXml Prima = Nota.FatturaXml;
    const StatoTenuto Stato = Nota.Stato;
    if (AlSuoPosto)
        PrendiIlPosto(Nota);  // before its payments are looked at
    FatturaElettronica Fattura;
    try {
        Fattura = Componi(Nota, Progressivo).Fattura;
    } catch (...) {
        Nota.FatturaXml = Prima;
        Nota.Stato = Stato;
        SetModificata(Nota, !Intatta);
        MsgErrore(NonScritta + ErroreCorrente().Descrizione);
        return;
    }
    const QString Nome = NomeFileFattura(Fattura);
    SegnaFatturaScritta(Nota, Nome, Progressivo);
    const bool Tenuta = Cornice.FatturaScritta(Intatta);
    if (const QString Altrui = Tenuta ? QString() : ScrittaDaAltri().File;
        !Altrui.isEmpty() && Altrui != GiaNoto) {
        (void)Cornice.FatturaNonScritta(Prima, Stato, Intatta, Tenuta);
        MsgErrore(u"La fattura è stata scritta intanto da un altro programma, come %1: non viene scritta di "
                  "nuovo!"_s.arg(Altrui));
        return;
    }
    QString Dubbio;
    try {
        const ClessidraAccesa Attesa;
        SalvaFattura(Barra(Cartella) + Nome, Fattura, Oggi());
    } catch (const NonConfermato& Guasto) {
        Dubbio = u"\nIl disco però non lo ha confermato (%1): controllarlo prima di trasmetterlo."_s.arg(
            DescrizioneErrore(Guasto.Numero));
    } catch (...) {
        const Errore Guasto = ErroreCorrente();
        const bool Ritirata = Cornice.FatturaNonScritta(Prima, Stato, Intatta, Tenuta);
        MsgErrore(
            NonScritta + Guasto.Descrizione +
            (Ritirata ? QString() : u"\nIl file della parcella la dà per scritta fino al salvataggio."_s));
        return;
    }
    Protetta([&] { RicordaImpostazioni({{ChiaveCartella, Cartella}}); });
    QString Detto = u"La fattura elettronica è stata scritta nel file %1."_s.arg(Nome) + Dubbio;
    if (!Tenuta)
        Detto += u"\nLa parcella lo ricorderà quando sarà salvata."_s;
    if (Preso != Atteso)
        Detto += u"\nIl numero proposto era già stato preso da un altro programma."_s;
    MostraEsportato(Detto, Barra(Cartella) + Nome);
}

void PannelloFattura::cmdControllaXml_Click()
{
    if (Cornice.InDomanda() || !ConcludiCampo())
        return;
    Cornice.InDialogo([this] {
        const QString File =
            DialogoApri(u"Controlla una fattura elettronica"_s, CartellaFatture(), FiltroXml);
        if (File.isEmpty())
            return;
        Protetta([&] {
            QByteArray Byte;
            {
                const ClessidraAccesa Attesa;
                Byte = ByteFattura(File);
            }
            frmControlloFattura(NomeFile(File), ControllaFattura(Byte, NomeFile(File), Oggi()), window())
                .exec();
        });
    });
}
