// What the tests of updates share: a server on this machine, a key, folders, a fixed day.
#pragma once

#include "core/sessione.h"
#include "platform/database/database.h"
#include "platform/network/firma.h"
#include "platform/network/rete_qt.h"
#include "platform/system/file.h"
#include "platform/system/guasti.h"
#include "platform/system/orologio.h"
#include "platform/system/percorsi.h"
#include "platform/system/shell.h"
#include "servitore/servitore.h"
#include "supporto/prova.h"
#include "supporto/registratore.h"
#include "update/scarico.h"

#include <QCryptographicHash>
#include <QDir>

using namespace Qt::StringLiterals;

/// A desk on 22 November 2026, with the delivered archive dated 1 September in its user folder.
class BancoAggiornamenti
{
public:
    BancoAggiornamenti()
    {
        AzzeraSessione();
        sessione::UserFolder = NuovaCartella();
        sessione::ServerAggiornamenti = Server.Indirizzo();
        InstallaOrologio([] { return QDateTime(QDate(2026, 11, 22), QTime(10, 0)); });
        Rete Spenta;
        Prima = InstallaRete(std::move(Spenta));
        Shell Nuova;
        Nuova.Clessidra = [this](bool Attiva) { Clessidre += Attiva ? u'+' : u'-'; };
        Nuova.Avvia = [this](const QString& Programma, const QStringList& Argomenti,
                             const QString& Cartella) {
            Eventi << u"avvia %1 [%2] in %3"_s.arg(NomeFile(Programma), Argomenti.join(u' '), Cartella);
            return EsitoAvvio;
        };
        Nuova.ApriFile = [this](const QString& File) {
            Eventi << u"apri "_s + NomeFile(File);
            return EsitoAvvio;
        };
        Nuova.HaProgramma = [this](const QString&) { return HaInstallatore; };
        Nuova.Termina = [this](int) { Eventi << u"fine"_s; };
        Precedente = InstallaShell(std::move(Nuova));
        InstallaReteQt({});
        FileChiave = NuovaCartella() + u"calcanova.pub"_s;
        InstallaFileChiave(FileChiave);
        QVERIFY(QFile::copy(ProgrammaDiProva() + u"Tassi.dat"_s, Archivio()));
        ImpostaDataFile(Archivio(), QDateTime(QDate(2026, 9, 1), QTime(9, 0)));
        ArchivioPrima = LeggiFile(Archivio());
        CreaCartella(Setup());
    }
    ~BancoAggiornamenti()
    {
        InstallaFileChiave({});
        InstallaRete(std::move(Prima));
        InstallaShell(std::move(Precedente));
        InstallaOrologio({});
        guasti::LimiteFile = 0;
        guasti::PrimaDelDisco = {};
        AzzeraSessione();
    }
    BancoAggiornamenti(const BancoAggiornamenti&) = delete;
    BancoAggiornamenti& operator=(const BancoAggiornamenti&) = delete;

    [[nodiscard]] QString Setup() const { return Server.Cartella() + u"kr5/setup/"_s; }
    [[nodiscard]] static QString Archivio() { return Barra(sessione::UserFolder) + u"Tassi.dat"_s; }

    /// The delivered archive with one month more.
    [[nodiscard]] static QByteArray ArchivioNuovo()
    {
        const QString File = NuovaCartella() + u"Tassi.dat"_s;
        QFile::copy(ProgrammaDiProva() + u"Tassi.dat"_s, File);
        OpenDatabase(File).Execute(u"INSERT INTO IndiciIstat (Anno, Mese, Indice) VALUES (2030, 1, 130.5)"_s);
        return LeggiFile(File);
    }

    /// Lays a file into the folder of the server; it is in the list from then on.
    void Posa(const QString& Nome, const QByteArray& Byte)
    {
        ScriviFile(Setup() + Nome, Byte);
        Elenco += u'\n' +
                  RigaElenco({Nome, Byte.size(), QCryptographicHash::hash(Byte, QCryptographicHash::Sha256)});
    }
    /// Lays versioni.txt, as it stands or with the list behind it.
    void Annunciate(const QByteArray& TreRighe, bool ConElenco = true)
    {
        Versioni = TreRighe + (ConElenco ? Elenco.toLatin1() : QByteArray());
        ScriviFile(Setup() + u"versioni.txt"_s, Versioni);
    }
    /// Signs what was announced, and lays the other half of the key where the program looks for it.
    void Firmate()
    {
        ScriviFile(Setup() + u"versioni.txt.sig"_s, FirmaByte(Versioni, Chiavi.Segreta));
        ScriviFile(FileChiave, Chiavi.Pubblica);
    }
    [[nodiscard]] Annuncio Controllato(const Provenienza& Da) const
    {
        Annuncio Trovato;
        if (!ControlloVersioni(Da, true, Trovato))
            QTest::qFail("the check fails", __FILE__, __LINE__);
        return Trovato;
    }
    [[nodiscard]] Provenienza Cartella() const { return DallaCartella(Setup() + u"versioni.txt"_s); }
    /// Every file below the user folder that a broken transfer may have left.
    [[nodiscard]] static QStringList Avanzi()
    {
        QStringList Trovati;
        for (const QString& Dove : {Barra(sessione::UserFolder), CartellaUpgrade()})
            Trovati += QDir(Dove).entryList({u"*.parziale"_s}, QDir::Files | QDir::Hidden);
        return Trovati;
    }
    /// True while the former archive is where it was, byte by byte.
    [[nodiscard]] bool ArchivioIntatto() const
    {
        return LeggiFile(Archivio()) == ArchivioPrima && DataFile(Archivio()).date() == QDate(2026, 9, 1);
    }

    Servitore Server;
    Registratore Voce;
    CoppiaChiavi Chiavi = NuoveChiavi();
    QStringList Eventi;
    QString Clessidre;
    QString FileChiave;
    int EsitoAvvio = 0;
    bool HaInstallatore = true;

private:
    QString Elenco;
    QByteArray Versioni;
    QByteArray ArchivioPrima;
    Rete Prima;
    Shell Precedente;
};

inline const QByteArray TutteNuove = "versione=[3.0.15]\n01/12/2026\nnota=Nuovi tassi";
inline const QByteArray SoloProgramma = "versione=[3.0.15]\n01/01/2026\nnota=";
inline const QByteArray SoloTassi = "versione=[3.0.14]\n01/12/2026\nnota=";
inline const QByteArray NienteDiNuovo = "versione=[3.0.14]\n01/01/2026\nnota=";

inline const QString FirmaNonValida = u"firma non valida"_s;
inline const QString SenzaConnessione = u"Errore di connessione ad Internet.\nControllare se la connessione "
                                        u"è attiva o verificare le impostazioni di "
                                        u"eventuali firewall presenti."_s;
