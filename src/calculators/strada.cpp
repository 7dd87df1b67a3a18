#include "calculators/strada.h"

#include "platform/base/regionale.h"

#include <QStringList>

#include <algorithm>

using namespace Qt::StringLiterals;

QString NomePasso(GenerePasso Genere)
{
    switch (Genere) {
    case GenerePasso::GiornoIniziale:
        return u"Giorno iniziale, non contato"_s;
    case GenerePasso::InizioDifferito:
        return u"Inizio differito alla fine della sospensione"_s;
    case GenerePasso::GiorniContati:
        return u"Giorni del termine"_s;
    case GenerePasso::Calendario:
        return u"Computo a calendario comune"_s;
    case GenerePasso::Sospensione:
        return u"Sospensione feriale"_s;
    case GenerePasso::GiorniRecuperati:
        return u"Giorni sospesi da recuperare"_s;
    case GenerePasso::GiornoLibero:
        return u"Giorno libero"_s;
    case GenerePasso::Festivo:
        return u"Festivo"_s;
    case GenerePasso::Domenica:
        return u"Domenica"_s;
    case GenerePasso::Sabato:
        return u"Sabato"_s;
    case GenerePasso::SabatoFermo:
        return u"Sabato, non spostato"_s;
    case GenerePasso::SenzaSospensione:
        return u"Senza sospensione feriale"_s;
    case GenerePasso::GiornoFinale:
        break;
    }
    return u"Scadenza"_s;
}

QString DescrizionePasso(const PassoStrada& Passo)
{
    const QString Nome = NomePasso(Passo.Genere);
    return Passo.Nota.isEmpty() ? Nome : Nome + u": "_s + Passo.Nota;
}

QString DatePasso(const PassoStrada& Passo)
{
    const QString Da = Format(Passo.Da, ModelloData);
    return Passo.A == Passo.Da ? Da : Da + u" - "_s + Format(Passo.A, ModelloData);
}

QString NormaPasso(const PassoStrada& Passo)
{
    if (!Passo.NonRiscontrato)
        return Passo.Norma;
    return (Passo.Norma.isEmpty() ? QString() : Passo.Norma + u": "_s) + CriterioNonRiscontrato.toString();
}

bool NonRiscontrata(const Strada& Passi)
{
    return std::ranges::any_of(Passi, &PassoStrada::NonRiscontrato);
}

QString TestoStrada(const Strada& Passi)
{
    QStringList Righe;
    for (const PassoStrada& Passo : Passi)
        Righe << QStringList{DatePasso(Passo), Passo.Giorni > 0 ? CStr(Passo.Giorni) : QString(),
                             DescrizionePasso(Passo), NormaPasso(Passo)}
                     .join(u'\t');
    return Righe.join(u'\n');
}
