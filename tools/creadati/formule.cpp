#include "creadati/formule.h"

#include "tariffs/modEvaluate.h"

#include <QRegularExpression>

#include <cmath>

using namespace Qt::StringLiterals;

QString DifettoFormula(const QString& Testo)
{
    static const QRegularExpression Segno(u"\\G(?:[0-9]{1,12}(?:[.][0-9]{1,10})?|[x()*/+-])"_s);
    constexpr QStringView Operatori = u"+-*/";
    int Aperte = 0;
    bool AttesoOperando = true;
    for (qsizetype Qui = 0; Qui < Testo.size();) {
        const QRegularExpressionMatch Trovato = Segno.match(Testo, Qui);
        if (!Trovato.hasMatch())
            return u"segno non ammesso alla posizione %1"_s.arg(Qui + 1);
        const QChar Primo = Testo[Qui];
        const bool Operando = Primo == u'x' || Primo.isDigit();
        const bool Giusto = AttesoOperando ? Operando || Primo == u'('
                                           : Operatori.contains(Primo) || (Primo == u')' && Aperte > 0);
        if (!Giusto)
            return u"segno fuori posto alla posizione %1"_s.arg(Qui + 1);
        Aperte += Primo == u'(' ? 1 : Primo == u')' ? -1 : 0;
        if (Operando || Operatori.contains(Primo))
            AttesoOperando = !Operando;
        Qui = Trovato.capturedEnd();
    }
    if (AttesoOperando)
        return u"la formula è incompleta"_s;
    return Aperte > 0 ? u"parentesi non chiusa"_s : QString();
}

std::optional<double> ValoreFormula(const QString& Testo, double x)
{
    int Codice = 0;
    const double Valore = ValutaEspressione(Testo, x, Codice);
    if (Codice != 0 || !std::isfinite(Valore))
        return std::nullopt;
    return Valore;
}
