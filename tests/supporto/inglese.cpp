#include "supporto/inglese.h"

#include <QRegularExpression>

using namespace Qt::StringLiterals;

QStringList ParoleInglesi(const QString& Testo)
{
    // Words that no Italian sentence has; names of files and of programs have none of them either. The second
    // half is what the system and the database engine say of a disk that fails. In capitals "is" and "to" are
    // provinces.
    static const QRegularExpression Inglese(
        u"\\b(the|and|not|cannot|could|failed|failure|unable|unknown|invalid|denied|missing|error|warning|"
        "open|save|close|cancel|yes|retry|abort|ignore|discard|apply|reset|help|details|copy|paste|delete|"
        "undo|"
        "redo|select all|name|size|type|folder|directory|permission|found|already|exists|"
        "attempt|bad|broken|busy|call|device|disk|exceeded|full|interrupted|locked|malformed|memory|no such|"
        "permitted|read|readonly|stale|system|timed|too|unavailable|was|write|(?-i:is|to))\\b"_s,
        QRegularExpression::CaseInsensitiveOption);
    QStringList Trovate;
    auto Cammino = Inglese.globalMatch(QString(Testo).remove(u'&'));
    while (Cammino.hasNext())
        Trovate += Cammino.next().captured();
    return Trovate;
}
