#include "feenote/companion/modPV2.h"

#include "core/modErrori.h"
#include "core/parametri.h"
#include "core/sessione.h"
#include "feenote/modTotali.h"
#include "platform/accesso/accesso.h"
#include "platform/base/regionale.h"
#include "platform/database/database.h"
#include "platform/database/valori.h"
#include "platform/system/messaggi.h"
#include "platform/system/percorsi.h"
#include "platform/system/shell.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

UltimaStampa Ultima;

/// The number as it is printed: blanks around it are none of its own.
QString NumeroFattura()
{
    return Ultima.Numero.trimmed();
}

/// The archive is another program's: its engine would refuse a text that is longer than its column, ours
/// would take it. A column that is missing is for the statement to tell.
QVariant PerFatture(const QList<Campo>& Colonne, QStringView Nome, const QString& Testo)
{
    const auto Trovata = std::ranges::find_if(
        Colonne, [&](const Campo& C) { return Nome.compare(C.Name, Qt::CaseInsensitive) == 0; });
    return Trovata == Colonne.end() ? QVariant(Testo) : PerColonna(*Trovata, Testo);
}

QVariant DataFattura()
{
    const std::optional<QDate> Giorno = LeggiData(Ultima.Data);
    return Giorno ? QVariant(*Giorno) : QVariant();
}

/// The amount that its 15 digits say, and not what the last bits of a long sum have come to.
double ImportoFattura()
{
    return CDbl(CStr(Ultima.Importo));
}

/// True for a note that was composed as a document with a summary.
bool HaRiepilogo(const Parcella& Nota)
{
    return Nota.Pronta && ETipoStampa(Nota.cmbTipoStampa) && TipoDi(Nota.cmbTipoStampa).Riepilogo;
}

/// @throws Errore of the archive; then nothing is written
void ScriviFattura(const QString& Archivio, int IDContab)
{
    const QString Dove = u"WHERE Rif=? COLLATE SenzaMaiuscole AND NumF=? COLLATE SenzaMaiuscole"_s;
    const QString& Rif = sessione::RichiestaPV2.ID;
    const Database Fatture = ApriArchivio(Archivio);
    // Whoever looks has the turn: another program that writes the same invoice would add its row in between.
    Transazione Insieme(Fatture);
    const QList<Campo> Colonne = Fatture.Campi(u"Fatture"_s);
    const QVariantList Chiave{PerFatture(Colonne, u"Rif", Rif),
                              PerFatture(Colonne, u"NumF", NumeroFattura())};
    const QVariantList Dati{DataFattura(), ImportoFattura()};
    if (!Fatture.OpenRecordset(u"SELECT Rif FROM Fatture "_s + Dove, Chiave).Eof())
        Fatture.Execute(u"UPDATE Fatture SET DataF=?, CorriF=? "_s + Dove, Dati + Chiave);
    else
        Fatture.Execute(u"INSERT INTO Fatture (Rif, NumF, DataF, CorriF, IDContab, TipoF, ModoF) "
                        "VALUES (?, ?, ?, ?, ?, 'A', 'E')"_s,
                        Chiave + Dati + QVariantList{IDContab});
    Insieme.Conferma();
}

}  // namespace

const UltimaStampa& LeggiUltimaStampa()
{
    return Ultima;
}

void MemorizzaUltimaStampa(const UltimaStampa& Dati)
{
    Ultima = Dati;
}

void MemorizzaUltimaStampa(const Parcella& Nota)
{
    if (sessione::RichiestaPV2.ID.isEmpty() || !HaRiepilogo(Nota))
        return;
    MemorizzaUltimaStampa({RaccogliCatena(Nota, Nota.cmbTipoStampa).Onorari, Nota.DatiPar(DatoNumFatt),
                           Nota.DatiPar(DatoDataFatt), Nota.chkFattAcc.Attiva});
}

QString CartellaCompagna()
{
    const QString Percorso = ImpostazioneDi(u"Praxivo"_s, u"PreviewParcPath"_s);
    QString Cartella = CartellaFile(PercorsoNativo(Percorso));
    Cartella.chop(1);
    return Cartella;
}

int ContatoreDi(const Parcella& Nota)
{
    // The row bears the reference of the session, which another note may have changed meanwhile.
    return Nota.NsRif == sessione::RichiestaPV2.ID ? Nota.Scelta : 0;
}

bool ConsegnaFattura(const Parcella& Nota)
{
    if (!TipoDi(Nota.cmbTipoStampa).EFattura)
        return true;
    if (NumeroFattura().isEmpty()) {
        MsgErrore(u"I dati della fattura non possono essere inviati a Praxivo\n"
                  "in quanto non è stato specificato il numero della fattura!"_s);
        return true;
    }
    if (MsgBox(u"E' stata salvata la parcella come fattura.\n"
               "Trasferisco i dati della fattura anche all'applicazione Praxivo?"_s,
               vbYesNo + vbQuestion, TitoloDomanda.toString()) != vbYes)
        return true;
    const bool Scritta = SalvaFatturaPV2(ContatoreDi(Nota));
    InvioMsgPV2();
    return Scritta;
}

bool SalvaFatturaPV2(int IDContab)
{
    if (sessione::ArchivioPrat.isEmpty())
        return true;
    try {
        const ClessidraAccesa Occupato;  // an archive in use by somebody else is waited for
        ScriviFattura(PercorsoNativo(sessione::ArchivioPrat), IDContab);
        return true;
    } catch (const std::exception&) {
        MsgBox(u"Si è verificato un errore nel salvataggio dei dati fattura su PV"_s, vbCritical,
               u"Errore!"_s);
        return false;
    }
}

void InvioMsgPV2()
{
    Segnala(u"Praxivo - Gestione pratiche"_s, u"refresh"_s);
}
