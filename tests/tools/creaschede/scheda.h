// An information sheet as a reader of XML sees it.
#pragma once

#include "supporto/prova.h"

#include "platform/base/regionale.h"
#include "platform/system/file.h"
#include "platform/system/percorsi.h"

#include <QHash>
#include <QRegularExpression>
#include <QStringList>
#include <QXmlStreamReader>

/// A table of a sheet, with the paragraph that stands before it.
struct TabellaLetta
{
    QString Prima;
    QList<QStringList> Righe;
};

/// A sheet as a reader of XML sees it.
struct SchedaLetta
{
    QString Titolo;
    QStringList Sezioni;
    QStringList Paragrafi;
    QStringList Collegamenti;
    QList<TabellaLetta> Tabelle;
    QString Errore;
};

inline QString CartellaNote()
{
    using namespace Qt::StringLiterals;
    return ProgrammaDiProva() + Barra(u"note"_s);
}

inline QString Html(const QString& File)
{
    using namespace Qt::StringLiterals;
    return QString::fromUtf8(LeggiFile(CartellaNote() + File));
}

inline SchedaLetta LeggiPagina(const QString& File)
{
    using namespace Qt::StringLiterals;
    SchedaLetta Letta;
    QXmlStreamReader Xml(Html(File));
    const auto Testo = [&] {
        return Xml.readElementText(QXmlStreamReader::IncludeChildElements).replace(QChar::Nbsp, u' ');
    };
    while (!Xml.atEnd()) {
        if (Xml.readNext() != QXmlStreamReader::StartElement)
            continue;
        const QString Marca = Xml.name().toString();
        if (Marca == u"title")
            Letta.Titolo = Testo();
        else if (Marca == u"h2")
            Letta.Sezioni += Testo();
        else if (Marca == u"p")
            Letta.Paragrafi += Testo();
        else if (Marca == u"a")
            Letta.Collegamenti += Xml.attributes().value("href"_L1).toString();
        else if (Marca == u"table")
            Letta.Tabelle += {Letta.Paragrafi.value(Letta.Paragrafi.size() - 1), {}};
        else if (Marca == u"tr")
            Letta.Tabelle.last().Righe += QStringList();
        else if (Marca == u"td" || Marca == u"th")
            Letta.Tabelle.last().Righe.last() += Testo();
    }
    Letta.Errore = Xml.hasError() ? Xml.errorString() : QString();
    return Letta;
}

/// Each sheet is read once.
inline const SchedaLetta& Leggi(const QString& File)
{
    using namespace Qt::StringLiterals;
    static QHash<QString, SchedaLetta> Lette;
    if (!Lette.contains(File))
        Lette.insert(File, LeggiPagina(File));
    return Lette[File];
}

/// The row of a table that begins with this text.
inline QStringList RigaDi(const QList<TabellaLetta>& Tabelle, const QString& Inizio)
{
    using namespace Qt::StringLiterals;
    for (const TabellaLetta& Una : Tabelle)
        for (const QStringList& Riga : Una.Righe)
            if (Riga.first() == Inizio)
                return Riga;
    return {};
}

/// What the words of a formula give at a value: "€ 200,00 più il 2% della parte oltre € 5.000,00".
inline double ValoreDelleParole(const QString& Parole, double x)
{
    using namespace Qt::StringLiterals;
    static const QRegularExpression Forma(u"\\A(?:€ ([0-9.,]+))?(?: più )?(?:(?:il |lo |l')?([0-9,]+)% "
                                          u"(?:del valore|della parte oltre € ([0-9.,]+)))?\\z"_s);
    const auto Letta = Forma.match(Parole);
    if (!Letta.hasMatch() || Parole.isEmpty())
        QTest::qFail(qPrintable(Parole), __FILE__, __LINE__);
    return NumeroDi(Letta.captured(1)) +
           NumeroDi(Letta.captured(2)) / 100 * (x - NumeroDi(Letta.captured(3)));
}
