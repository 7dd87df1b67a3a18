#include "scimmia/ufficio.h"

#include "core/parametri.h"
#include "core/sessione.h"
#include "feenote/file/modDescrizione.h"
#include "feenote/file/modPosaFile.h"
#include "platform/base/numerierrore.h"
#include "platform/database/database.h"
#include "platform/kit/messaggi_qt.h"
#include "platform/network/rete.h"
#include "platform/system/file.h"
#include "platform/system/impostazioni.h"
#include "platform/system/percorsi.h"
#include "platform/system/shell.h"
#include "supporto/prova.h"

#include <QDir>
#include <QDirIterator>
#include <QFileInfo>
#include <QPrinter>

#include <array>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

constexpr int PrimoUsoOgni = 8;

void Imposta(const QString& Chiave, const QString& Valore)
{
    SaveSetting(NomeApplicazione.toString(), SezioneParametri.toString(), Chiave, Valore);
}

/// Notes of every kind of proceeding; one is a template, one has a password.
void ArredaNote(const QString& Cartella)
{
    CreaCartella(Cartella + u"Modelli"_s);
    for (const QString& Nome : {u"civile"_s, u"penale"_s, u"stragiudiziale"_s, u"tribunale55"_s}) {
        Parcella Nota = CreaDaDescrizione(LeggiFile(SorgenteDiProva(u"dati/esempi/"_s + Nome + u".json"_s)));
        ScriviNota(Cartella + Nome + u".mdb"_s, Nota);
        ScriviNota(Cartella + u"Modelli/"_s + Nome + u".mdb"_s, Nota, true);
        Nota.Psw = u"->>segreta"_s;
        ScriviNota(Cartella + Nome + u" protetta.mdb"_s, Nota);
    }
}

void ArredaArchivio(const QString& File)
{
    CopiaFile(ProgrammaDiProva() + u"DatiStudio.mdb"_s, File, qint64(64) << 20);
    QFile::setPermissions(File, QFile::ReadOwner | QFile::WriteOwner);
    const Database Archivio = OpenDatabase(File);
    for (const QString& Tabella : {u"clienti"_s, u"controparti"_s})
        Archivio.Execute(
            u"INSERT INTO %1 (Nominativo, Citta, CodFis, Email) "
            "WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i+1 FROM n WHERE i<120), "
            "c(k, v) AS (VALUES (0,'Rossi'),(1,'bianchi'),(2,'D''Agostino'),(3,'Nicolò'),(4,'VERDI')) "
            "SELECT c.v || ' Mario ' || i, 'Forlì', 'RSSMRA70A01H501S', 'mario' || i || '@esempio.it' "
            "FROM n JOIN c ON c.k = i % 5"_s.arg(Tabella));
}

/// A file of the home, by chance; empty where there is none of that ending.
QString FileACaso(const QString& Casa, Caso& Sorte, const QString& Finale)
{
    QStringList Trovati;
    QDirIterator Cammino(Casa, {u'*' + Finale}, QDir::Files, QDirIterator::Subdirectories);
    while (Cammino.hasNext())
        Trovati += Cammino.next();
    Trovati.sort();
    return Trovati.isEmpty() ? QString() : Sorte.Fra(Trovati);
}

/// What somebody chooses in a dialog that saves: nothing, a new name, one that is there, one that cannot be.
QString SalvaACaso(const QString& Casa, Caso& Sorte, const QString& Iniziale)
{
    const QString Cartella = EsisteCartella(Iniziale) ? Barra(Iniziale) : CartellaFile(Iniziale);
    const QString Dove = Cartella.startsWith(Casa) ? Cartella : Casa;
    const QString Finale = Iniziale.contains(u'.') ? u'.' + Iniziale.section(u'.', -1) : u".mdb"_s;
    switch (Sorte.Fino(16)) {
    case 0:
    case 1:
        return {};
    case 2:
        return FileACaso(Casa, Sorte, u".mdb"_s);
    case 3:
        return Dove + u"nome [con] segni!.mdb"_s;
    case 4:
        return Dove + u"cartella che manca/nota.mdb"_s;
    case 5:
        return Dove + QString(Sorte.Fino(300), u'a') + Finale;
    case 6:
        return Iniziale.startsWith(Casa) ? Iniziale : QString();
    default:
        return Dove + u"nota "_s + QString::number(Sorte.Fino(6)) + (Sorte.Su(80) ? Finale : QString());
    }
}

/// The answers that a box offers.
QList<int> RisposteDi(int Bandiere)
{
    switch (PulsantiDi(Bandiere)) {
    case vbOKCancel:
        return {vbOK, vbCancel};
    case vbYesNoCancel:
        return {vbYes, vbNo, vbCancel};
    case vbYesNo:
        return {vbYes, vbNo};
    default:
        return {vbOK};
    }
}

/// The one that loses what is not saved, and goes on.
int SenzaSalvare(int Bandiere)
{
    const QList<int> Tutte = RisposteDi(Bandiere);
    return Tutte.contains(vbNo) ? vbNo : Tutte.first();
}

bool StampaACaso(const QString& Casa, Caso& Sorte, QPrinter& Scelta)
{
    if (Sorte.Su(50))
        return false;
    Scelta.setOutputFormat(QPrinter::PdfFormat);
    Scelta.setOutputFileName(Casa + u"stampa.pdf"_s);
    if (Sorte.Su(50)) {
        const int Prima = 1 + Sorte.Fino(3);
        Scelta.setFromTo(Prima, Prima + Sorte.Fino(3));
    }
    return true;
}

/// No program of the machine is started: each says that it was, or that it is not there.
Shell DesktopACaso(Caso& Sorte)
{
    const auto Esito = [&Sorte] { return Sorte.Su(80) ? 0 : errori::NessunProgramma; };
    Shell Finta = InstallaShell({});
    Finta.ApriFile = [Esito](const QString&) { return Esito(); };
    Finta.ApriIndirizzo = Finta.ApriFile;
    Finta.HaProgramma = [&Sorte](const QString&) { return Sorte.Su(80); };
    Finta.ApriPdf = [Esito](const QString&, int) { return Esito(); };
    Finta.Avvia = [Esito](const QString&, const QStringList&, const QString&) { return Esito(); };
    Finta.Campanello = [] {};
    Finta.Connesso = [&Sorte] { return Sorte.Su(80); };
    return Finta;
}

/// A transfer that nobody answers.
class SenzaRisposta : public Trasferimento
{
public:
    [[nodiscard]] bool Attendi(int) override { return true; }
    [[nodiscard]] FineRete Fine() const override { return FineRete::SenzaConnessione; }
    [[nodiscard]] qint64 Ricevuti() const override { return 0; }
    [[nodiscard]] qint64 Totale() const override { return -1; }
    void Annulla() override {}
};

}  // namespace

void ArredaUfficio(const QString& Casa, quint32 Seme)
{
    Imposta(u"PercorsoProcedura"_s, ProgrammaDiProva());
    if (Seme % PrimoUsoOgni == 0)
        return;
    const QString Utente = Casa + u"Documenti/KR5/"_s;
    const QString Note = Casa + u"Documenti/Parcelle/"_s;
    CreaCartella(Utente);
    ScriviFile(Utente + u"avvisokr5.ini"_s, "[avvisokr5]\nletto=21/11/2026\n");
    sessione::PercorsoProg = ProgrammaDiProva();
    ArredaNote(Note);
    ArredaArchivio(Casa + u"Documenti/DatiStudio.mdb"_s);
    Imposta(u"StudioNome"_s, u"Studio Bianchi"_s);
    Imposta(u"UserFolder"_s, Utente);
    Imposta(u"ParcellePath"_s, Note);
    Imposta(u"ArchivioCliCon"_s, Casa + u"Documenti/DatiStudio.mdb"_s);
    Imposta(u"CercaAgg"_s, Seme % 2 == 0 ? u"N"_s : u"S"_s);
    Imposta(u"ServerAggiornamenti"_s, u"http://127.0.0.1:9"_s);
    // An office that has not chosen its tariff, and one of each kind that has.
    Imposta(u"Tariffa"_s, QStringList{u""_s, u"55"_s, u"140"_s}.value(int(Seme % 3)));
}

QString RigaDiComandoDi(quint32 Seme, int Sessione)
{
    switch ((Seme + quint32(Sessione)) % 16) {
    case 5:
        return u"-low"_s;
    case 7:
        return u"PV2|N|P12|0|2|30000|0|0|11|"_s;
    case 11:
        return u"debug"_s;
    default:
        return {};
    }
}

void RispondiACaso(const QString& Casa, Caso& Sorte, const Risposte& Come,
                   const std::function<void(const QString&)>& Sentito)
{
    const Messaggi Vere = MessaggiQt();
    Messaggi Finte;
    Finte.BoxPulsanti = [=, &Sorte, &Come](const QString& Testo, int Bandiere, const QString& Titolo,
                                           const QStringList& Pulsanti) {
        Sentito(Titolo + u'\n' + Testo + u'\n' + Pulsanti.join(u'\n'));
        if (Come == Risposte::Subito)
            return SenzaSalvare(Bandiere);
        if (Sorte.Su(50))
            return Vere.BoxPulsanti(Testo, Bandiere, Titolo, Pulsanti);
        return Sorte.Fra(RisposteDi(Bandiere));
    };
    Finte.Box = [Box = Finte.BoxPulsanti](const QString& Testo, int Bandiere, const QString& Titolo) {
        return Box(Testo, Bandiere, Titolo, {});
    };
    Finte.Immissione = [=, &Sorte, &Come](const QString& Testo, const QString& Titolo,
                                          const QString& Predefinito) {
        Sentito(Titolo + u'\n' + Testo);
        if (Come == Risposte::Subito)
            return QString();
        return Sorte.Su(50) ? Vere.Immissione(Testo, Titolo, Predefinito) : ParolaACaso(Sorte);
    };
    Finte.SalvaFile = [=, &Sorte, &Come](const QString& Titolo, const QString& Iniziale,
                                         const QString& Filtro) {
        Sentito(Titolo + u'\n' + Filtro);
        return Come == Risposte::Subito ? QString() : SalvaACaso(Casa, Sorte, Iniziale);
    };
    Finte.ApriFile = [=, &Sorte, &Come](const QString& Titolo, const QString&, const QString& Filtro) {
        Sentito(Titolo + u'\n' + Filtro);
        const bool Scelto = Come == Risposte::ACaso && Sorte.Su(75);
        return Scelto ? FileACaso(Casa, Sorte, Sorte.Su(70) ? u".mdb"_s : QString()) : QString();
    };
    Finte.ScegliColore = [&Sorte](int) -> std::optional<int> {
        if (Sorte.Su(30))
            return std::nullopt;
        return Sorte.Fino(0x1000000);
    };
    Finte.ScegliStampante = [=, &Sorte](QPrinter& Scelta) { return StampaACaso(Casa, Sorte, Scelta); };
    InstallaMessaggi(std::move(Finte));
    InstallaShell(DesktopACaso(Sorte));
    Rete Muta = InstallaRete({});
    Muta.Avvia = [](const RichiestaRete&) { return std::make_unique<SenzaRisposta>(); };
    InstallaRete(std::move(Muta));
}

QString ParolaACaso(Caso& Sorte)
{
    static const QStringList Parole{
        u"Rossi"_s,
        u"Nicolò D'Agostino"_s,
        u"società àèìòù €"_s,
        u"1"_s,
        u"0"_s,
        u"-5"_s,
        u"30000"_s,
        u"1.234,56"_s,
        u"12,5"_s,
        u"999999999999999999"_s,
        u"01012024"_s,
        u"29/02/2024"_s,
        u"31/12/9999"_s,
        u"00/00/0000"_s,
        u"RSSMRA70A01H501S"_s,
        u"IT60X0542811101000000123456"_s,
        u"Roma"_s,
        u"segreta"_s,
        u"a"_s,
        u"%_*?[]'\"&<>"_s,
        u"uno\tdue\ttre\nquattro\tcinque\tsei"_s,
        u"12/A"_s,
        u"𝄞 fuori dal piano"_s,
    };
    if (Sorte.Su(2))
        return QString(Sorte.Fino(3000), u'w');
    return Sorte.Fra(Parole);
}
