#include "pubblica/paginesito.h"

#include "platform/system/file.h"
#include "platform/system/percorsi.h"

#include <QRegularExpression>

using namespace Qt::StringLiterals;

namespace {

constexpr QStringView Novita = u"NovitaKR5.pdf";

QByteArray SenzaComandi(const QByteArray& Pagina)
{
    static const QRegularExpression Comando(u"<a href=\"comando:[^\"]*\">(.*?)</a>"_s,
                                            QRegularExpression::DotMatchesEverythingOption);
    return QString::fromUtf8(Pagina).replace(Comando, u"\\1"_s).toUtf8();
}

QByteArray PaginaNovita(const QString& Versione, const QString& Nota)
{
    const QString Detto = Nota.isEmpty() ? QString() : u"<p>%1</p>\n"_s.arg(Nota.toHtmlEscaped());
    return u"<html>\n<head><meta charset=\"utf-8\"><title>Calcanova %1</title></head>\n<body>\n"
           u"<h1>Calcanova %1</h1>\n%2<p>Che cosa cambia per chi viene da una versione precedente: "
           u"<a href=\"../../%3\">le novità</a>.</p>\n</body>\n</html>\n"_s
               .arg(Versione.toHtmlEscaped(), Detto, Novita)
               .toUtf8();
}

}  // namespace

void ScriviPagineSito(const QString& Programma, const QString& Uscita, const QString& Versione,
                      const QString& Nota)
{
    const QString Da = Barra(Programma);
    const QString A = Barra(Uscita);
    const QByteArray Assistenza = SenzaComandi(LeggiFile(Da + u"assistenza.htm"_s));
    const QByteArray Siti = SenzaComandi(LeggiFile(Da + u"link.htm"_s));
    CreaCartella(A + u"vdm/setup"_s);
    for (const QString& Guida : {Novita.toString(), u"GuidaOperativa.pdf"_s, u"GuidaGiuridica.pdf"_s})
        ScriviFile(A + Guida, LeggiFile(Da + Guida));
    ScriviFile(A + u"vdm.asp"_s, Assistenza);
    ScriviFile(A + u"vdm/link.htm"_s, Siti);
    ScriviFile(A + u"vdm/setup/notes.htm"_s, PaginaNovita(Versione, Nota));
}
