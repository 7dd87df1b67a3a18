// The stage of the tests of the start: no settings, no session, no windows, everything opened written down.
#pragma once

#include "core/aperture.h"
#include "core/comandi.h"
#include "core/posti.h"
#include "supporto/mani.h"
#include "supporto/prova.h"
#include "supporto/registratore.h"

#include "core/app/avvio.h"
#include "core/desktop/frmMain.h"
#include "core/desktop/frmStudio.h"
#include "core/modAvvio.h"
#include "core/modErrori.h"
#include "core/modIcone.h"
#include "core/sessione.h"
#include "core/settings/frmSetup.h"
#include "platform/base/numerierrore.h"
#include "platform/kit/singola.h"
#include "platform/system/aparte.h"
#include "platform/system/file.h"
#include "platform/system/impostazioni.h"
#include "platform/system/percorsi.h"
#include "platform/system/shell.h"

#include <QAbstractButton>
#include <QApplication>
#include <QDir>
#include <QTimer>

#include <functional>
#include <utility>

using namespace Qt::StringLiterals;

/// Sets the stage for one test and clears it behind it.
class Scena
{
public:
    Scena()
    {
        AzzeraSessione();
        AzzeraParcelle();
        IconeUtente.Azzera(ColonneIcona);
        Aperture = {};
        RegistraFinestre();
        CollegaFinestre();
        QFile::remove(FileImpostazioni());
        QFile::remove(FileImpostazioni() + u".danno"_s);
        Shell Nuova;
        Nuova.ApriIndirizzo = [this](const QString& Indirizzo) {
            return Annota(u"indirizzo "_s + Indirizzo);
        };
        Nuova.Avvia = [this](const QString& Programma, const QStringList& Argomenti,
                             const QString& Cartella) {
            Avviati << Argomenti;
            return Annota(u"avvia "_s + Programma + u" in "_s + Cartella);
        };
        Nuova.ApriPdf = [this](const QString& File, int) { return Annota(u"pdf "_s + NomeFile(File)); };
        Nuova.HaProgramma = [](const QString&) { return true; };
        Nuova.Clessidra = [this](bool Attiva) { Clessidre += Attiva ? u'+' : u'-'; };
        Nuova.Connesso = [this] { return Connesso; };
        Nuova.Termina = [this](int) { Annota(u"fine"_s); };
        Precedente = InstallaShell(std::move(Nuova));
    }

    /// An office of its own with a copy of the delivered archive, which the next start finds set up and
    /// without a question. @return the archive's path
    [[nodiscard]] static QString AllestisciStudio()
    {
        const QString Archivio = NuovaCartella() + u"DatiStudio.mdb"_s;
        QFile::copy(ProgrammaDiProva() + u"DatiStudio.mdb"_s, Archivio);
        QFile::setPermissions(Archivio, QFile::ReadOwner | QFile::WriteOwner);
        const QString Utente = NuovaCartella();
        ScriviFile(Utente + u"avvisokr5.ini"_s, "[avvisokr5]\nletto=21/11/2026\n");
        Salva(u"PercorsoProcedura"_s, ProgrammaDiProva());
        Salva(u"StudioNome"_s, u"Studio Bianchi"_s);
        Salva(u"CercaAgg"_s, u"N"_s);
        Salva(u"ArchivioCliCon"_s, Archivio);
        Salva(u"UserFolder"_s, Utente);
        return Archivio;
    }

    ~Scena()
    {
        // The start sweeps in the folders of this test, not in those of the next one.
        constexpr int AttesaMs = 10000;
        (void)AttendiLavoriAParte(AttesaMs);
        delete SeCaricato<frmStudio>.data();
        delete SeCaricato<frmMain>.data();
        delete SeCaricato<frmSetup>.data();
        Respiro();
        InstallaShell(std::move(Precedente));
        Aperture.MostraTraccia = nullptr;
        Aperture = {};
        AzzeraParcelle();
        AzzeraSessione();
    }

    Scena(const Scena&) = delete;
    Scena& operator=(const Scena&) = delete;

    /// An office that was named, and a program folder that holds what it must.
    void Preparata()
    {
        sessione::PercorsoProg = ProgrammaDiProva();
        const QString Salvata = Parametro(u"UserFolder"_s);
        sessione::UserFolder = Salvata.isEmpty() ? CartellaDiProva() + u"utente/"_s : Salvata;
        QDir().mkpath(sessione::UserFolder);
        sessione::StudioNome = u"Studio Bianchi"_s;
        sessione::CercaAgg = false;
        sessione::SfondoDesktop.clear();  // a plain ground, unless a test asks for a picture
    }

    /// Places of notes that are all open.
    static void ApriPosti(int Quanti)
    {
        AzzeraParcelle();
        for (int i = 0; i < Quanti; ++i)
            InfoParcelle.push_back({});
    }

    int Annota(const QString& Evento)
    {
        Eventi << Evento;
        return 0;
    }

    /// An installation that lacks none of the windows that open by a word.
    static void RegistraFinestre()
    {
        for (const Comando& Riga : Comandi())
            Aperture.Finestre[Riga.Parola.toString()] = [] {};
    }

    /// What the windows of the start ask of one another; all else is a test's own.
    static void CollegaFinestre()
    {
        Aperture.UltimaParcellaChiusa = DopoUltimaParcella;
        Aperture.Impostazioni = [](int Scheda, bool Modale) {
            if (Modale)
                Singola<frmSetup>().MostraModale(Scheda);
        };
        Aperture.ImpostazioniCambiate = [] {
            if (const auto& Studio = SeCaricato<frmStudio>)
                Studio->SegnaRidisegno();
        };
    }

    static QString FileImpostazioni()
    {
        return qEnvironmentVariable("XDG_CONFIG_HOME") + u"/Calcanova/KR5.ini"_s;
    }

    /// What is said when the settings cannot be written, by the number of the reason; and its box.
    static QString PercheImpostazioni(int Perche = errori::Accesso)
    {
        return u"Impossibile scrivere le impostazioni nel file %1: %2"_s.arg(FileImpostazioni(),
                                                                             DescrizioneErrore(Perche));
    }
    static QString RifiutoImpostazioni(int Perche = errori::Accesso)
    {
        return u"Errore: %1 (75)"_s.arg(PercheImpostazioni(Perche));
    }

    static QString Parametro(const QString& Chiave)
    {
        return GetSetting(NomeApplicazione.toString(), SezioneParametri.toString(), Chiave);
    }

    static void Salva(const QString& Chiave, const QString& Valore)
    {
        SaveSetting(NomeApplicazione.toString(), SezioneParametri.toString(), Chiave, Valore);
    }

    QStringList Eventi;
    QList<QStringList> Avviati;  ///< the arguments of the programs that were started
    QString Clessidre;
    bool Connesso = false;

private:
    Shell Precedente;
};

/// Closes the settings whenever they hold the other windows back, however long that takes.
class ChiudeImpostazioni
{
public:
    explicit ChiudeImpostazioni(std::function<void()> Prima = {})
    {
        constexpr int OgniMs = 5;
        QObject::connect(&Sveglia, &QTimer::timeout, &Sveglia, [this, Prima = std::move(Prima)] {
            frmSetup* Modulo = SeCaricato<frmSetup>;
            if (!Modulo || QApplication::activeModalWidget() != Modulo)
                return;
            ++Viste;
            if (Prima)
                Prima();
            Modulo->close();
        });
        Sveglia.start(OgniMs);
    }
    /// How often they came up.
    [[nodiscard]] int Aperte() const { return Viste; }

private:
    QTimer Sveglia;
    int Viste = 0;
};
