#include "feenote/modAcconti.h"

#include "core/modErrori.h"
#include "core/modTesti.h"
#include "platform/base/regionale.h"

using namespace Qt::StringLiterals;

namespace {

QChar PrimaLettera(const QVariant& Valuta)
{
    const QString Testo = CStr(Valuta).trimmed();
    return Testo.isEmpty() ? QChar() : Testo[0].toUpper();
}

}  // namespace

int NuovoAcconto(Parcella& Nota)
{
    const int Riga = Nota.xAcconti.AggiungiRiga();
    Nota.xAcconti(Riga, AccValuta) = QString(LetteraEuro);
    return Riga;
}

bool CheckAcconto(TabellaRighe& Righe, int Riga)
{
    const QChar Valuta = PrimaLettera(Righe(Riga, AccValuta));
    if (Valuta != LetteraEuro && Valuta != LetteraLire) {
        MsgErrore(u"Immettere L o E"_s);
        return false;
    }
    Righe(Riga, AccValuta) = QString(Valuta);
    for (const int Colonna : {AccCorrispettivi, AccSpeseImp, AccSpeseEsenti})
        if (CStr(Righe(Riga, Colonna)).trimmed().isEmpty())
            Righe(Riga, Colonna) = 0.0;
    return true;
}

bool InEuro(const QVariant& Valuta)
{
    return PrimaLettera(Valuta) == LetteraEuro;
}

QString ParolaValuta(const QVariant& Valuta)
{
    return InEuro(Valuta) ? u"Euro"_s : u"Lire"_s;
}

QString AltraValuta(const QVariant& Valuta)
{
    return QString(InEuro(Valuta) ? LetteraLire : LetteraEuro);
}

QString TestoAcconto(const QVariant& Importo, const QVariant& Valuta)
{
    QString Testo = CStr(Importo);
    if (Testo.isEmpty() || Testo == u"0")
        return Testo;
    return Format(NumeroDi(Importo), InEuro(Valuta) ? u"#,##0.00;-#,##0.00;#" : u"#,##0;-#,##0;#");
}

double AccontoInEuro(const QVariant& Importo, const QVariant& Valuta)
{
    const double Valore = NumeroDi(Importo);
    return InEuro(Valuta) ? Valore : LireEuro(Valore);
}
