#include "misura.h"

#include <QList>

#include <algorithm>
#include <chrono>
#include <cstdio>

using namespace Qt::StringLiterals;

namespace {

QList<Misura>& Misure()
{
    static QList<Misura> Tutte;
    return Tutte;
}

double DurataMs(const std::function<void()>& Azione)
{
    const auto Inizio = std::chrono::steady_clock::now();
    Azione();
    return std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - Inizio).count();
}

QString Millisecondi(double Ms)
{
    return QString::number(Ms, 'f', Ms < 10.0 ? 2 : 0) + u" ms"_s;
}

void ScriviRiga(const QString& Cosa, const QString& Obiettivo, const QString& Misurato, const QString& Esito)
{
    const QString Riga = Cosa.leftJustified(40) + Obiettivo.rightJustified(12) + Misurato.rightJustified(12) +
                         u"  "_s + Esito + u'\n';
    std::fputs(Riga.toUtf8().constData(), stdout);
    std::fflush(stdout);  // the row is seen when it is known, also through a pipe
}

}  // namespace

RegistraMisura::RegistraMisura(const QString& Cosa, double ObiettivoMs, std::function<double()> Esegui)
{
    Misure().append({Cosa, ObiettivoMs, std::move(Esegui)});
}

double MedianaMs(int Volte, const std::function<void()>& Azione)
{
    Azione();
    QList<double> Durate(Volte);
    std::ranges::generate(Durate, [&Azione] { return DurataMs(Azione); });
    const auto Mezzo = Durate.begin() + Volte / 2;
    std::ranges::nth_element(Durate, Mezzo);
    return *Mezzo;
}

void Consuma(double Valore)
{
    [[maybe_unused]] volatile double Scarico = Valore;
}

/// calcanova-bench [text]: the whole table, or the rows whose name contains the text.
int main(int argc, char** argv)
{
    const QString Filtro = argc > 1 ? QString::fromLocal8Bit(argv[1]) : QString();
    ScriviRiga(u"what"_s, u"target"_s, u"measured"_s, {});
    for (const Misura& M : std::as_const(Misure())) {
        if (!M.Cosa.contains(Filtro, Qt::CaseInsensitive))
            continue;
        const double Ms = M.Esegui();
        ScriviRiga(M.Cosa, Millisecondi(M.ObiettivoMs), Millisecondi(Ms),
                   Ms <= M.ObiettivoMs ? u"PASS"_s : u"over"_s);
    }
    return 0;
}
