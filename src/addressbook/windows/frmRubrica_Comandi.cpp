// The browser of the address book: what is done with a row.
#include "addressbook/chiavi.h"
#include "addressbook/exchange/esporta.h"
#include "addressbook/windows/frmImporta.h"
#include "addressbook/windows/frmRicerche.h"
#include "addressbook/windows/frmRubrica.h"
#include "addressbook/windows/frmScheda.h"
#include "core/aperture.h"
#include "core/modErrori.h"
#include "platform/base/errore.h"
#include "platform/base/regionale.h"
#include "platform/grid/griglia.h"
#include "platform/kit/collega.h"
#include "platform/kit/singola.h"
#include "platform/system/esportato.h"
#include "platform/system/messaggi.h"
#include "platform/system/percorsi.h"
#include "platform/system/shell.h"

#include "addressbook/windows/ui_frmRubrica.h"

#include <QAction>
#include <QScopedValueRollback>
#include <QTableView>

#include <algorithm>

using namespace Qt::StringLiterals;

/// Runs a procedure of the form. A row that another program has deleted is told, and goes from the list.
void frmRubrica::Esegui(const std::function<void()>& Azione)
{
    const QScopedValueRollback Guardia(InCorso, true);
    try {
        Azione();
    } catch (const Errore& Guasto) {
        GestioneErrori(Guasto);
        if (Guasto.Numero == errori::RecordEliminato)
            Protetta([this] { Rileggi(); });
    }
}

void frmRubrica::Comando(const QString& Parola)
{
    const QString Chiave = Parola.toLower();
    const QAction* Azione = Tasto(Chiave);
    if (!Azione || !Azione->isVisible() || !Azione->isEnabled() || Scheda)
        return;
    Esegui([&] {
        // The search takes the filter away; anything else is done with a row that the filter leaves.
        const bool DellaRiga =
            Chiave != u"new"_s && Chiave != u"rimetti"_s && Chiave != u"importa"_s && Chiave != u"esporta"_s;
        if (!Consenti() || (Chiave != u"search"_s && !FiltroConcluso(DellaRiga)) || !Azione->isEnabled())
            return;
        if (Chiave == u"delete"_s)
            Elimina();
        else if (Chiave == u"search"_s)
            ApriRicerca();
        else if (Chiave == u"selez"_s)
            Seleziona();
        else if (Chiave == u"rimetti"_s)
            Rimetti();
        else if (Chiave == u"importa"_s)
            ApriImporta();
        else if (Chiave == u"esporta"_s)
            Esporta();
        else
            ApriScheda(Chiave);
    });
}

// ---- the card -----------------------------------------------------------------------------------

void frmRubrica::ApriScheda(const QString& Modo)
{
    Scheda = new frmScheda(this);
    Scheda->ImpostaModalità(Modo);
    Scheda->Consegna(Righe, ui->tdbRubrica->Colonne());
    Scheda->ChiaveNuova = ui->panSospeso->ChiaveNuova;
    Collega(Scheda.data(), &frmScheda::Chiusa, this, [this](bool Scritta) {
        Scheda = nullptr;
        if (Cercatore)
            Cercatore->Sospendi(false);
        SchedaChiusa(Scritta);
    });
    Collega(Scheda.data(), &frmScheda::RigaSpostata, this, [this] { Riallinea(); });
    if (Cercatore)
        Cercatore->Sospendi(true);
    if (!Scheda->Carica())
        Rileggi();  // it has been told why: the row may have gone
}

void frmRubrica::FuocoSulCampo(const QString& Campo)
{
    if (Scheda && !Campo.isEmpty())
        Scheda->FuocoSul(Campo);
}

/// Behind a card, and behind the line of what it has left unsaved.
void frmRubrica::SchedaChiusa(bool Scritta)
{
    Riallinea();
    ui->panSospeso->Aggiorna();
    if (Scritta)
        Esegui([this] { Salvata(); });
    if (Righe.EditMode() == 0)
        Esegui([this] { Filtra(); });
    ui->tdbRubrica->setFocus();
}

/// The current row was written: the whole table has it too, and the notes that are linked to it follow.
void frmRubrica::Salvata()
{
    // The notes first: they follow the row also when the archive cannot be read again now. The keys of an
    // archive that is no longer the session's are other people's in them.
    const bool Seguita = Aperture.NominativoCambiato && DellaSessione(Richiesta.DataSource);
    if (Seguita && HaColonna(Righe.Campi(), u"ID"_s))
        Aperture.NominativoCambiato(Richiesta.RecordSource, Righe.Value(u"ID"_s).toInt());
    AllineaTutte();
    ContaRighe();
}

// ---- deleting -----------------------------------------------------------------------------------

void frmRubrica::Elimina()
{
    const QVariant Chiesta = Righe.Bookmark();
    if (MsgBox(u"Confermi la cancellazione del nominativo selezionato?"_s,
               vbYesNo + vbQuestion + vbDefaultButton2, TitoloDomanda.toString()) != vbYes)
        return;
    Righe.ImpostaBookmark(Chiesta);  // the row that the question was about, wherever the list stands now
    const QVariantList Celle = Righe.Grezza();
    {
        Transazione Insieme(Archivio);
        const QList<Campo> Campi = Righe.Campi();
        if (const auto Chiave = std::ranges::find_if(Campi, EChiave); Chiave != Campi.end())
            TrattieniChiavi(Archivio, Richiesta.RecordSource, Righe.Value(Chiave->Name).toLongLong());
        Righe.Delete();
        Insieme.Conferma();
    }
    Tolte.push_back({Archivio.Percorso(), Richiesta.RecordSource, Celle});
    ui->tdbRubrica->AzzeraSelezione();
    AllineaTutte();
    VaiAllaRiga(0);
}

void frmRubrica::Rimetti()
{
    const auto Ultima = std::find_if(Tolte.rbegin(), Tolte.rend(), [this](const RigaTolta& Tolta) {
        return Tolta.File == Archivio.Percorso() && Tolta.Tabella == Richiesta.RecordSource;
    });
    if (Ultima == Tolte.rend())
        return;
    Righe.Rimetti(Ultima->Celle);
    Tolte.erase(std::next(Ultima).base());
    AllineaTutte();
    Riallinea();
    ui->tdbRubrica->setFocus();
}

// ---- searching ----------------------------------------------------------------------------------

frmRicerche& frmRubrica::Ricerca()
{
    if (!Cercatore) {
        Cercatore = new frmRicerche(this);
        Cercatore->ImpostaRecordSource(Righe);
        Cercatore->PrimaDiMuovere = [this] { return !Scheda && Consenti(); };
        Collega(Cercatore.data(), &frmRicerche::Trovata, this, [this] {
            Riallinea();
            const QTableView* Vista = ui->tdbRubrica->Vista();
            const QRect Riga = Vista->visualRect(Vista->currentIndex());
            Cercatore->Scopri({Vista->viewport()->mapToGlobal(QPoint(0, Riga.top())),
                               QSize(Vista->viewport()->width(), Riga.height())});
        });
    }
    return *Cercatore;
}

/// All rows are searched, so that the filter goes.
void frmRubrica::ApriRicerca()
{
    TogliFiltro();
    frmRicerche& Form = Ricerca();
    struct Cercabile
    {
        QString Nome;
        QString Titolo;
    };
    QList<Cercabile> Voci{{u"Nominativo"_s, u"Nominativo"_s}, {u"CodFis"_s, u"Codice fiscale"_s}};
    Voci.removeIf([this](const Cercabile& Voce) { return !HaColonna(Righe.Campi(), Voce.Nome); });
    QStringList Nomi;
    for (const Cercabile& Voce : std::as_const(Voci))
        Nomi.append(Voce.Nome);
    // A list that stands already keeps what the user has chosen in it.
    if (Form.NomiCampi() != Nomi) {
        Form.InitCampi();
        for (const Cercabile& Voce : std::as_const(Voci))
            Form.AddCampi(Voce.Nome, Voce.Titolo);
        Form.LoadCampi();
    }
    Form.Apri();
    const QWidget* Vista = ui->tdbRubrica->Vista()->viewport();
    Form.Accosta({Vista->mapToGlobal(QPoint()), Vista->size()});
}

void frmRubrica::Ripeti(bool Indietro)
{
    if (Scheda)
        return;
    if (!Cercatore || !Cercatore->PuoRipetere())
        Comando(u"search"_s);
    else
        Esegui([&] {
            if (FiltroConcluso(false))
                Cercatore->Ripeti(Indietro);
        });
}

// ---- other programs -----------------------------------------------------------------------------

/// Into an archive of Access nothing can be added: it is taken whole.
void frmRubrica::ApriImporta()
{
    Singola<frmImporta>().Mostra(Richiesta.DataSource, Richiesta.RecordSource,
                                 InAccess ? frmImporta::ArchivioIntero : frmImporta::Nominativi,
                                 InAccess ? FileRubrica(Richiesta.DataSource) : QString());
}

/// The selected rows, else those that the filter leaves, into a file that this user alone may read.
void frmRubrica::Esporta()
{
    const QList<int> Scelte = ui->tdbRubrica->Selezione();
    const QString Detta = DialogoSalva(
        u"Esporta i nominativi"_s, CartellaSpeciale(CartellaDocumenti) + Richiesta.RecordSource + u".csv"_s,
        u"Foglio di calcolo CSV (*.csv)|*.csv|Rubrica vCard (*.vcf)|*.vcf"_s);
    if (Detta.isEmpty())
        return;
    const QString File = ConEstensione(Detta);
    if (!Sostituibile(File))
        return;
    NominativiEsportati Esito;
    {
        const ClessidraAccesa Attesa;
        Esito = EsportaNominativi(File, Righe, FormatoDi(File), Scelte);
    }
    const QString Altri = FraseTralasciati(Esito);
    MostraEsportato((Esito.Quanti == 1 ? u"1 nominativo esportato"_s
                                       : Format(Esito.Quanti, u"#,##0") + u" nominativi esportati"_s) +
                        u" in \""_s + NomeFile(File) +
                        (Altri.isEmpty() ? u"\"."_s : u"\"; "_s + Altri + u'.'),
                    File);
}

void frmRubrica::RileggiTabella(bool Stessa)
{
    (void)Protetta([&] { Stessa ? Rileggi() : ApriTabella(); });
}

// ---- choosing -----------------------------------------------------------------------------------

void frmRubrica::Seleziona()
{
    if (!DellaSessione(Richiesta.DataSource)) {
        MsgBox(u"Nelle impostazioni è stato scelto un altro archivio: riaprire la rubrica dalla parcella!"_s,
               vbOKOnly + vbExclamation, TitoloAvvertenza.toString());
        return;
    }
    Righe.ImpostaBookmark(Righe.Bookmark());  // reads the row anew: others may have written to it
    const QVariantList Valori = ValoriScelti(Righe, Colonne);
    if (Valori.at(1).toString().trimmed().isEmpty()) {
        MsgBox(u"Il nominativo scelto non ha un nome!"_s, vbOKOnly + vbExclamation,
               TitoloAvvertenza.toString());
        return;
    }
    Invoca(Aperture.SceltaDaRubrica, Richiesta.Indice, Richiesta.Numero, Richiesta.Parent, Valori);
    close();
}
