#include "misura.h"

#include <QCoreApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QFileInfo>
#include <QList>
#include <QProcess>
#include <QTemporaryDir>
#include <QTemporaryFile>

#include <algorithm>
#include <chrono>
#include <cmath>
#include <cstdio>
#include <cstring>
#include <limits>
#include <map>

using namespace Qt::StringLiterals;

namespace {

using Ruolo = std::function<int(int&, char**)>;

QList<Misura>& Misure()
{
    static QList<Misura> Tutte;
    return Tutte;
}

std::map<QString, Ruolo>& Ruoli()
{
    static std::map<QString, Ruolo> Tutti;
    return Tutti;
}

// ---- memory

constexpr auto VariabileMemoria = "CALCANOVA_BENCH_MEMORIA";

/// Megabytes of a row of what the system says of this process.
double Stato(const char* Riga)
{
    constexpr double KiloPerMega = 1024.0;
    QFile Tutto(u"/proc/self/status"_s);
    if (!Tutto.open(QIODevice::ReadOnly))
        return std::numeric_limits<double>::quiet_NaN();
    for (const QByteArray& Qui : Tutto.readAll().split('\n'))
        if (Qui.startsWith(Riga))
            return Qui.mid(qsizetype(std::strlen(Riga))).chopped(2).trimmed().toDouble() / KiloPerMega;
    return std::numeric_limits<double>::quiet_NaN();
}

/// What a process has held at most, beyond what it had when this began.
class Crescita
{
public:
    Crescita()
    {
        // The system forgets the peak of before, where it can.
        if (QFile Comando(u"/proc/self/clear_refs"_s);
            Comando.open(QIODevice::WriteOnly | QIODevice::Unbuffered))
            Comando.write("5");
    }
    [[nodiscard]] double Megabyte() const { return Stato("VmHWM:") - Prima; }

private:
    const double Prima = Stato("VmRSS:");
};

/// The most of the roles that the measure of now has played.
double MassimoDeiRuoli = 0.0;

/// A role leaves its own where the one that plays it has said.
int EseguiEPesa(const Ruolo& Questo, int& argc, char** argv)
{
    const Crescita Memoria;
    const int Fine = Questo(argc, argv);
    QFile Esito(qEnvironmentVariable(VariabileMemoria));
    if (!Esito.fileName().isEmpty() && Esito.open(QIODevice::WriteOnly))
        Esito.write(QByteArray::number(Memoria.Megabyte()));
    return Fine;
}

QString Quantita(double Valore, const QString& Unita)
{
    if (std::isnan(Valore))
        return u"-"_s;
    return QString::number(Valore, 'f', Valore < 10.0 ? 2 : 0) + u' ' + Unita;
}

QString Esito(const Misura& M, double Valore, double Mega)
{
    if (std::isnan(Valore))
        return u"not measurable here"_s;
    if (M.MassimiMega > 0.0 && Mega > M.MassimiMega)
        return u"over in memory"_s;
    return Valore <= M.Obiettivo ? u"PASS"_s : u"over"_s;
}

/// "37 of 50 MB".
QString Memoria(const Misura& M, double Mega)
{
    const QString Avuta = Quantita(Mega, u"MB"_s);
    return M.MassimiMega > 0.0 && !std::isnan(Mega)
               ? QString::number(Mega, 'f', 0) + u" of "_s + Quantita(M.MassimiMega, u"MB"_s)
               : Avuta;
}

void ScriviRiga(const QString& Cosa, const QString& Obiettivo, const QString& Misurato,
                const QString& Memoria, const QString& Esito)
{
    const QString Riga = Cosa.leftJustified(60) + Obiettivo.rightJustified(12) + Misurato.rightJustified(12) +
                         Memoria.rightJustified(15) + u"  "_s + Esito + u'\n';
    std::fputs(Riga.toUtf8().constData(), stdout);
    std::fflush(stdout);  // the row is seen when it is known, also through a pipe
}

/// Settings and folders of their own: nothing is read from or left in those of the user.
void UsaCasa(const QString& Cartella)
{
    for (const char* Nome :
         {"HOME", "XDG_CONFIG_HOME", "XDG_DATA_HOME", "XDG_CACHE_HOME", "XDG_DOCUMENTS_DIR"})
        qputenv(Nome, Cartella.toLocal8Bit());
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qputenv("QT_LOGGING_RULES", "qt.qpa.*=false");
    QDir().mkpath(Cartella + u"/sessione"_s);
    QFile::setPermissions(Cartella + u"/sessione"_s, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    qputenv("XDG_RUNTIME_DIR", QFile::encodeName(Cartella + u"/sessione"_s));
}

void Tabella(const QString& Filtro)
{
    ScriviRiga(u"what"_s, u"target"_s, u"measured"_s, u"memory"_s, {});
    for (const Misura& M : std::as_const(Misure())) {
        if (!M.Cosa.contains(Filtro, Qt::CaseInsensitive))
            continue;
        MassimoDeiRuoli = 0.0;
        const Crescita Cresciuta;
        const double Valore = M.Esegui();
        const double Mega = std::max(Cresciuta.Megabyte(), MassimoDeiRuoli);
        ScriviRiga(M.Cosa, Quantita(M.Obiettivo, M.Unita), Quantita(Valore, M.Unita), Memoria(M, Mega),
                   Esito(M, Valore, Mega));
    }
}

}  // namespace

RegistraMisura::RegistraMisura(const QString& Cosa, double Obiettivo, std::function<double()> Esegui,
                               const QString& Unita, double MassimiMega)
{
    Misure().append({Cosa, Obiettivo, std::move(Esegui), Unita, MassimiMega});
}

RegistraMisura::RegistraMisura(const QString& Cosa, double Obiettivo, std::function<double()> Esegui,
                               double MassimiMega)
    : RegistraMisura(Cosa, Obiettivo, std::move(Esegui), QStringLiteral("ms"), MassimiMega)
{}

RegistraRuolo::RegistraRuolo(const QString& Nome, std::function<int(int&, char**)> Esegui)
{
    Ruoli()[Nome] = std::move(Esegui);
}

QString EseguiRuolo(const QStringList& Argomenti, double* Fine)
{
    constexpr int AttesaMs = 60'000;
    QTemporaryFile Memoria;
    QProcessEnvironment Intorno = QProcessEnvironment::systemEnvironment();
    if (Memoria.open())
        Intorno.insert(QString::fromLatin1(VariabileMemoria), Memoria.fileName());
    QProcess Processo;
    Processo.setProcessEnvironment(Intorno);
    Processo.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    QElapsedTimer Cronometro;
    Cronometro.start();
    Processo.start(QFileInfo(u"/proc/self/exe"_s).symLinkTarget(), Argomenti);
    while (!Processo.canReadLine() && Processo.waitForReadyRead(AttesaMs)) {
    }
    if (Fine)
        *Fine = static_cast<double>(Cronometro.nsecsElapsed()) / 1e6;
    const QString Riga = QString::fromUtf8(Processo.readLine()).trimmed();
    if (!Processo.waitForFinished(AttesaMs)) {
        Processo.kill();
        Processo.waitForFinished();
    }
    MassimoDeiRuoli = std::max(MassimoDeiRuoli, Memoria.readAll().toDouble());
    return Riga;
}

double DurataMs(const std::function<void()>& Azione)
{
    const auto Inizio = std::chrono::steady_clock::now();
    Azione();
    return std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - Inizio).count();
}

double Mediana(QList<double> Valori)
{
    if (Valori.isEmpty())
        return std::numeric_limits<double>::quiet_NaN();
    const auto Mezzo = Valori.begin() + Valori.size() / 2;
    std::ranges::nth_element(Valori, Mezzo);
    return *Mezzo;
}

double MedianaMs(int Volte, const std::function<void()>& Azione)
{
    Azione();
    QList<double> Durate(Volte);
    std::ranges::generate(Durate, [&Azione] { return DurataMs(Azione); });
    return Mediana(std::move(Durate));
}

void Consuma(double Valore)
{
    [[maybe_unused]] volatile double Scarico = Valore;
}

/// calcanova-bench [text]: the whole table, or the rows whose name contains the text.
int main(int argc, char** argv)
{
    const QString Primo = argc > 1 ? QString::fromLocal8Bit(argv[1]) : QString();
    if (const auto Trovato = Ruoli().find(Primo); Trovato != Ruoli().end())
        return EseguiEPesa(Trovato->second, argc, argv);
    const QTemporaryDir Casa;
    UsaCasa(Casa.path());
    Tabella(Primo);
    return 0;
}
