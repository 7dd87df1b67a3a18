#include "feenote/modNomiProposti.h"

#include "core/modTesti.h"
#include "feenote/modStorno.h"
#include "feenote/modTipiDocumento.h"
#include "platform/base/regionale.h"
#include "platform/system/orologio.h"
#include "platform/system/percorsi.h"

#include <QRegularExpression>
#include <QTextBoundaryFinder>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

// Three parts of them, and what goes between and behind, are well below what a name may take.
constexpr qsizetype BytePerParte = 60;

constexpr QStringView Separatori = u"/\\|";
constexpr QStringView Taciuti = u":*?<>\"[]!";

bool Cifra(const QString& Testo, qsizetype Dove)
{
    return Dove >= 0 && Dove < Testo.size() && Testo[Dove].isDigit();
}

/// What stands for a sign in a name; a null one for none at all.
QChar NelNome(const QString& Testo, qsizetype Dove)
{
    const QChar Segno = Testo[Dove];
    if (Segno == u'.')
        return Cifra(Testo, Dove - 1) && Cifra(Testo, Dove + 1) ? QChar(u'-') : QChar();
    if (Separatori.contains(Segno))
        return u'-';
    if (Taciuti.contains(Segno))
        return u' ';
    switch (Segno.category()) {
    case QChar::Other_Control:
    case QChar::Separator_Line:
    case QChar::Separator_Paragraph:
        return u' ';
    case QChar::Other_Format:  // unseen, and some of them turn what follows
    case QChar::Other_PrivateUse:
    case QChar::Other_NotAssigned:
        return {};
    default:
        return Segno;
    }
}

/// Halves of characters have no place in a name.
QString Intero(const QString& Testo)
{
    QString Pulito;
    for (qsizetype i = 0; i < Testo.size(); ++i) {
        if (!Testo[i].isSurrogate()) {
            Pulito += Testo[i];
        } else if (Testo[i].isHighSurrogate() && i + 1 < Testo.size() && Testo[i + 1].isLowSurrogate()) {
            Pulito += Testo[i];
            Pulito += Testo[++i];
        }
    }
    return Pulito;
}

QString SenzaCode(QString Testo)
{
    const auto Coda = [](QChar Segno) { return Segno == u' ' || Segno == u'-' || Segno == u'.'; };
    while (!Testo.isEmpty() && Coda(Testo.back()))
        Testo.chop(1);
    while (!Testo.isEmpty() && Coda(Testo.front()))
        Testo.remove(0, 1);
    return Testo;
}

QString Accorciato(const QString& Testo, qsizetype MassimoByte)
{
    if (ByteDelNome(Testo) <= MassimoByte)
        return Testo;
    QTextBoundaryFinder Segni(QTextBoundaryFinder::Grapheme, Testo);
    qsizetype Fin = 0;
    for (qsizetype Dove = Segni.toNextBoundary(); Dove > 0; Dove = Segni.toNextBoundary()) {
        if (ByteDelNome(Testo.first(Dove)) > MassimoByte)
            break;
        Fin = Dove;
    }
    // Between two words, unless most of it would go.
    const qsizetype Spazio =
        Fin < Testo.size() && Testo[Fin] == u' ' ? Fin : Testo.first(Fin).lastIndexOf(u' ');
    return Testo.first(Spazio > Fin / 2 ? Spazio : Fin);
}

/// "12-2026"; empty without a number. A number that bears its year gets none.
QString NumeroConAnno(const QString& Numero, const QString& Data)
{
    QString Pulito = ParteDiNome(Numero, BytePerParte / 2);
    static const QRegularExpression ConAnno(u"-(\\d{2}|\\d{4})$"_s);
    if (Pulito.isEmpty() || ConAnno.match(Pulito).hasMatch())
        return Pulito;
    return Pulito + u'-' + QString::number(LeggiData(Data).value_or(Oggi()).year());
}

/// "Fattura 12-2026", "Contratto cliente".
QString ParteDelDocumento(const Parcella& Nota, int Tipo)
{
    const TipoDocumento& Dati = TipoDi(Tipo);
    const QString Nome = !Dati.EFattura         ? ParteDiNome(Dati.Nome.toString(), BytePerParte)
                         : ENotaDiCredito(Nota) ? u"Nota di credito"_s
                                                : u"Fattura"_s;
    QString Numero;
    if (Dati.Pannello == PannelloStampa::Fattura)
        Numero = NumeroConAnno(Nota.DatiPar(DatoNumFatt), Nota.DatiPar(DatoDataFatt));
    else if (Dati.Pannello == PannelloStampa::Numero)
        Numero = NumeroConAnno(Nota.DatiPar(DatoNumero), Nota.DatiPar(DatoData));
    return Numero.isEmpty() ? Nome : Nome + u' ' + Numero;
}

QString Uniti(QStringList Parti)
{
    Parti.removeAll(QString());
    return NomePerFile(Parti.join(u" - "_s));
}

}  // namespace

QString ParteDiNome(const QString& Testo, qsizetype MassimoByte)
{
    const QString Sano = Intero(Testo);
    QString Pulito;
    for (qsizetype i = 0; i < Sano.size(); ++i)
        if (const QChar Segno = NelNome(Sano, i); !Segno.isNull())
            Pulito += Segno;
    return SenzaCode(Accorciato(SenzaCode(Pulito.simplified()), MassimoByte));
}

QString NomeProposto(const Parcella& Nota)
{
    return Uniti(
        {ParteDiNome(Nota.txtCliente.Testo, BytePerParte), ParteDiNome(Nota.txtOggetto.Testo, BytePerParte)});
}

QString NomeDocumentoProposto(const Parcella& Nota, int Tipo)
{
    QString Nome = NomeProposto(Nota);
    if (Nome.isEmpty())
        Nome = ParteDiNome(Nota.Nome, 2 * BytePerParte);
    return Uniti({Nome, ParteDelDocumento(Nota, Tipo)});
}
