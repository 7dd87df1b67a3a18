// The finder over the notes of a large office: listed for the first time, again, stopped, and filtered.
#include "misura.h"

#include "core/sessione.h"
#include "feenote/file/modPosaFile.h"
#include "feenote/finder/elencotrova.h"
#include "feenote/finder/memoriatrova.h"
#include "feenote/finder/nominativi.h"
#include "feenote/finder/ricerca.h"
#include "feenote/finder/scadenzario.h"
#include "feenote/modNuovaParcella.h"
#include "platform/database/database.h"

#include <QDateTime>
#include <QElapsedTimer>
#include <QFile>
#include <QTemporaryDir>
#include <QThread>

#include <limits>
#include <memory>

using namespace Qt::StringLiterals;

namespace {

constexpr int Note = 10'000;
constexpr int Clienti = 2'000;
constexpr int Diverse = 200;  ///< saved one by one; the others are copies

/// An office of ten thousand notes, every second one of a client of the archive. It is made once: the copies
/// alone take longer than all that is measured.
class Ufficio
{
public:
    Ufficio()
    {
        sessione::PercorsoProg = QStringLiteral(CARTELLA_PROGRAMMA "/");
        sessione::ArchivioCliCon = Cartella.filePath(u"DatiStudio.mdb"_s);
        QFile::copy(sessione::PercorsoProg + u"DatiStudio.mdb"_s, sessione::ArchivioCliCon);
        const Database Archivio = OpenDatabase(sessione::ArchivioCliCon);
        {
            Transazione Insieme(Archivio);
            for (int i = 1; i <= Clienti; ++i)
                Archivio.Execute(u"INSERT INTO clienti (ID, Nominativo) VALUES (?,?)"_s,
                                 {i, u"Cliente numero %1"_s.arg(i)});
            Insieme.Conferma();
        }
        Parcella Nota;
        NuovaParcella(Nota);
        for (int i = 0; i < Diverse; ++i) {
            Nota.IDCli = i % 2 == 0 ? i * (Clienti / Diverse) + 1 : 0;
            Nota.txtCliente.Testo = u"Rossi Mario %1"_s.arg(i);
            ScriviNota(File(i), Nota);
        }
        for (int i = Diverse; i < Note; ++i)
            QFile::copy(File(i % Diverse), File(i));
        for (int i = 0; i < Note; ++i)
            Invecchia(File(i));
    }

    [[nodiscard]] CriterioTrova Tutte() const { return {Cartella.path(), Cartella.path(), {}, false}; }

private:
    [[nodiscard]] QString File(int Numero) const
    {
        return Cartella.filePath(u"parcella %1.mdb"_s.arg(Numero));
    }
    /// What has changed a moment ago is not remembered.
    static void Invecchia(const QString& File)
    {
        QFile Aperto(File);
        if (Aperto.open(QIODevice::ReadOnly))
            Aperto.setFileTime(QDateTime::currentDateTime().addDays(-1), QFileDevice::FileModificationTime);
    }

    QTemporaryDir Cartella;
};

const Ufficio& Grande()
{
    static const Ufficio Uno;
    return Uno;
}

/// The list as a window takes it: rows from the other thread, names from the archive, sorted at the end.
double Elenca(const std::function<bool(const ElencoTrova&)>& Basta)
{
    QElapsedTimer Orologio;
    Orologio.start();
    RicercaNote Ricerca(Grande().Tutte());
    ElencoTrova Elenco;
    static Nominativi Nomi;
    Nomi.Chiudi();
    while (true) {
        const bool Finita = Ricerca.Finita();
        for (VoceTrova& Voce : Ricerca.Prendi()) {
            Nomi.Completa(Voce);
            Elenco.Aggiungi(std::move(Voce));
        }
        if (Finita)
            break;
        if (Basta(Elenco)) {
            Orologio.restart();
            Ricerca.Ferma();
        }
        QThread::msleep(1);
    }
    Elenco.Ordina();
    Consuma(Elenco.Righe());
    return double(Orologio.nsecsElapsed()) / 1e6;
}

double PrimaVolta()
{
    (void)Grande();
    QList<double> Durate;
    for (int i = 0; i < 3; ++i) {
        MemoriaDelTrova()->Dimentica();
        Durate.append(Elenca([](const ElencoTrova&) { return false; }));
    }
    return Mediana(std::move(Durate));
}
const RegistraMisura RegistrataPrima(u"finder: 10,000 notes, first time"_s, 2000.0, PrimaVolta, 50.0);

double Ancora()
{
    (void)Elenca([](const ElencoTrova&) { return false; });
    QList<double> Durate;
    for (int i = 0; i < 5; ++i)
        Durate.append(Elenca([](const ElencoTrova&) { return false; }));
    return Mediana(std::move(Durate));
}
const RegistraMisura RegistrataAncora(u"finder: the same 10,000 again"_s, 200.0, Ancora, 40.0);

double Interrompi()
{
    QList<double> Durate;
    for (int i = 0; i < 5; ++i) {
        MemoriaDelTrova()->Dimentica();
        Durate.append(Elenca([](const ElencoTrova& Elenco) { return Elenco.Righe() > 500; }));
    }
    return Mediana(std::move(Durate));
}
const RegistraMisura RegistrataInterrompi(u"finder: stop"_s, 100.0, Interrompi);

double Filtra()
{
    constexpr int Righe = 100'000;
    ElencoTrova Elenco;
    for (int i = 0; i < Righe; ++i) {
        VoceTrova Voce;
        Voce.Nome = u"parcella %1"_s.arg(i);
        Voce.Cliente = u"Società Rossi Mario %1 e figli"_s.arg(i % 977);
        Voce.Controparte = u"Condominio di via Verdi %1"_s.arg(i % 313);
        Elenco.Aggiungi(std::move(Voce));
    }
    int Volta = 0;
    const QStringList Testi{u"m"_s, u"mario 12"_s, u"verdi rossi"_s, {}};
    return MedianaMs(16, [&] { Elenco.Filtra(Testi[Volta++ % Testi.size()]); });
}
const RegistraMisura RegistrataFiltra(u"finder: filter 100,000 rows"_s, 100.0, Filtra);

/// What is said below the rows after each letter: copies and credit notes are looked for among all of them.
double Aperto()
{
    constexpr int Righe = 10'000;
    ElencoTrova Elenco;
    for (int i = 0; i < Righe; ++i) {
        VoceTrova Voce;
        Voce.Nome = u"parcella %1"_s.arg(i);
        Voce.Percorso = u"/note/"_s + Voce.Nome;
        Voce.Cliente = u"Società Rossi Mario %1 e figli"_s.arg(i % 977);
        Voce.Dati.IDCli = i % 977 + 1;
        Voce.Dati.NumFatt = QString::number(i + 1);
        Voce.Dati.DataFatt = u"09/11/2026"_s;
        StatoLetto& Stato = Voce.Dati.Stato;
        Stato.Stato = StatoNota::Fatturata;
        Stato.Documento = StampaFatturaAnalitica;
        Stato.Storno = i % 50 == 0;
        Stato.CitataNumero = QString::number(i);
        Stato.CitataData = Voce.Dati.DataFatt;
        Stato.Importi = ImportiDocumento{.Totale = 100, .Netto = 100};
        Stato.Resto = 100;
        Elenco.Aggiungi(std::move(Voce));
    }
    double Somma = 0.0;
    const double Durata =
        MedianaMs(9, [&] { Somma += SommaAperto(Elenco.NoteMostrate(), Elenco.NoteTutte()).Aperto; });
    Consuma(Somma);
    return Durata;
}
const RegistraMisura RegistrataAperto(u"finder: what is open of 10,000 invoices"_s, 50.0, Aperto, 20.0);

}  // namespace
