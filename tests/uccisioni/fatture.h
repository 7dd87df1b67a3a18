// What is looked at of an electronic invoice behind a kill.
#pragma once

#include "feenote/einvoice/controlli.h"
#include "feenote/file/file_prova.h"
#include "guasti/posa.h"
#include "platform/system/orologio.h"

#include <QRegularExpression>

namespace fatture {

/// The number that a file bears; empty for none.
inline QString Progressivo(const QByteArray& Xml)
{
    static const QRegularExpression Forma(QStringLiteral("<ProgressivoInvio>([0-9A-Z]{5})<"));
    return Forma.match(QString::fromLatin1(Xml)).captured(1);
}

/// The file that a note knows of; empty for none.
inline QString Segnata(const QString& Nota)
{
    Parcella Letta;
    ApplicaMemoria(Letta, MemoriaDi(Nota));
    return Letta.FatturaXml.File;
}

/// The last number that was taken, in a file of settings; -1 where none stands.
inline int Contatore(const QString& Impostazioni)
{
    static const QRegularExpression Forma(QStringLiteral("^progtrasm=\"?(\\d+)"),
                                          QRegularExpression::MultilineOption |
                                              QRegularExpression::CaseInsensitiveOption);
    const auto Trovato = Forma.match(QString::fromUtf8(Contenuto(Impostazioni)));
    return Trovato.hasMatch() ? Trovato.captured(1).toInt() : -1;
}

/// A file is whole, somebody knows it, and its number was taken.
/// @param Noti the files that the note and its recovery copies know of
/// @param Preso the counter
inline QString Difetto(const QByteArray& Xml, const QStringList& Noti, int Preso)
{
    constexpr int Base = 36;
    const QString Suo = Progressivo(Xml);
    if (!ControllaFattura(Xml, {}, Oggi()).isEmpty() || Suo.isEmpty())
        return QStringLiteral("fattura a metà");
    const bool Nota = std::ranges::any_of(
        Noti, [&](const QString& Nome) { return Nome.endsWith(u'_' + Suo + QStringLiteral(".xml")); });
    if (!Nota)
        return QStringLiteral("la parcella dice «%1» della %2").arg(Noti.join(u'|'), Suo);
    return Suo.toInt(nullptr, Base) > Preso ? QStringLiteral("numero %1 non preso").arg(Suo) : QString();
}

}  // namespace fatture
