#include "platform/base/fogliocsv.h"

#include "platform/base/paginacodice.h"
#include "platform/base/segni.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

/// The signs that spreadsheets begin a formula with, in their wide forms too, and the blanks that some pass
/// over before.
bool AvviaFormula(QChar C)
{
    constexpr QStringView Segni = u"=+-@\t\r\n\uFF1D\uFF0B\uFF0D\uFF20";
    return Segni.contains(C);
}

}  // namespace

bool ComeFormula(QStringView Testo)
{
    const auto* Primo = std::ranges::find_if_not(Testo, [](QChar C) { return C == u'\''; });
    return Primo != Testo.end() && AvviaFormula(*Primo);
}

QString CellaCsv(const QString& Testo)
{
    // What could be taken for the line that names the separator, or for the mark of the file, stands in
    // quotes.
    const bool ComeSegno = Testo.startsWith(u"sep=", Qt::CaseInsensitive) || Testo.contains(u'\ufeff');
    QString Cella = ComeFormula(Testo) ? u'\'' + Testo : Testo;
    const bool Virgolette = ComeSegno || Cella.contains(u';') || Cella.contains(u'"') ||
                            Cella.contains(u'\n') || Cella.contains(u'\r') || Cella.contains(u',') ||
                            Cella.contains(u'\t') || Cella.startsWith(u' ') || Cella.endsWith(u' ');
    return Virgolette ? u'"' + Cella.replace(u'"', u"\"\""_s) + u'"' : Cella;
}

namespace {

/// "-1459,12": nothing that a spreadsheet could run.
bool EUnImporto(const QString& Testo)
{
    const QStringView Senza = QStringView(Testo).mid(Testo.startsWith(u'-') ? 1 : 0);
    return !Senza.isEmpty() && std::ranges::all_of(Senza, [](QChar C) { return ECifra(C) || C == u','; });
}

}  // namespace

QByteArray RigaCsv(const QStringList& Celle, const QList<int>& Cifre)
{
    QStringList Fatte;
    for (int i = 0; i < Celle.size(); ++i)
        Fatte.append(Cifre.contains(i) && EUnImporto(Celle[i]) ? Celle[i] : CellaCsv(Celle[i]));
    return Fatte.join(u';').toUtf8() + "\r\n";
}

QByteArray ScriviCsv(const std::vector<QStringList>& Righe, const QList<int>& Cifre)
{
    QByteArray Scritte = MarcaUtf8.toByteArray();
    for (const QStringList& Celle : Righe)
        Scritte += RigaCsv(Celle, Cifre);
    return Scritte;
}
