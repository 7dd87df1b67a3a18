#include "platform/pages/datipdf.h"

#include "platform/document/documento.h"

#include <QRegularExpression>

#include <optional>

using namespace Qt::StringLiterals;

namespace {

/// Where a PDF keeps its two records, and where its table of objects begins.
struct Coda
{
    int Oggetti = 0;
    int Info = 0;
    int Radice = 0;
    qsizetype Tavola = 0;
};

std::optional<Coda> LeggiCoda(const QByteArray& Pdf)
{
    const qsizetype Inizio = Pdf.lastIndexOf("trailer");
    if (Inizio < 0)
        return std::nullopt;
    const QString Testo = QString::fromLatin1(Pdf.sliced(Inizio));
    const auto Numero = [&](const QString& Modello) {
        return QRegularExpression(Modello).match(Testo).captured(1).toInt();
    };
    const Coda Letta{Numero(u"/Size (\\d+)"_s), Numero(u"/Info (\\d+) 0 R"_s), Numero(u"/Root (\\d+) 0 R"_s),
                     Numero(u"startxref\\s+(\\d+)"_s)};
    const bool Intera =
        Letta.Oggetti > 0 && Letta.Info > 0 && Letta.Radice > 0 && Letta.Tavola > 0 && Letta.Tavola < Inizio;
    return Intera ? std::optional(Letta) : std::nullopt;
}

/// The body of an object, between "obj" and "endobj"; empty where it is not found.
QByteArray Oggetto(const QByteArray& Pdf, const Coda& Di, int Numero)
{
    constexpr qsizetype Voce = 20;  // bytes of each entry of the table
    constexpr qsizetype Cifre = 10;
    const qsizetype PrimaVoce = Pdf.indexOf('\n', Pdf.indexOf('\n', Di.Tavola) + 1) + 1;
    const qsizetype Posto = Pdf.mid(PrimaVoce + Voce * Numero, Cifre).toLongLong();
    const QByteArray Testata = QByteArray::number(Numero) + " 0 obj";
    if (PrimaVoce == 0 || Pdf.mid(Posto, Testata.size()) != Testata)
        return {};
    const qsizetype Inizio = Posto + Testata.size();
    const qsizetype Fine = Pdf.indexOf("endobj", Inizio);
    return Fine < 0 ? QByteArray() : Pdf.sliced(Inizio, Fine - Inizio);
}

/// A text in UTF-16, whatever it holds.
QByteArray Stringa(const QString& Testo)
{
    QByteArray Codici = "<FEFF";
    for (const QChar C : Testo)
        Codici += QByteArray::number(C.unicode(), 16).rightJustified(4, '0').toUpper();
    return Codici + '>';
}

QByteArray VoceSe(const char* Nome, const QString& Testo)
{
    return Testo.isEmpty() ? QByteArray() : QByteArray(Nome) + ' ' + Stringa(Testo) + '\n';
}

/// An object's record with more entries.
QByteArray Con(QByteArray Record, const QByteArray& Voci)
{
    return Record.insert(Record.indexOf("<<") + 2, '\n' + Voci);
}

}  // namespace

QByteArray ConDati(const QByteArray& Pdf, const Proprieta& Dati)
{
    const auto Fine = LeggiCoda(Pdf);
    if (!Fine)
        return Pdf;
    const QByteArray Info = Oggetto(Pdf, *Fine, Fine->Info);
    const QByteArray Radice = Oggetto(Pdf, *Fine, Fine->Radice);
    if (!Info.contains("<<") || !Radice.contains("<<"))
        return Pdf;

    // The format lets new versions of objects follow the file, with a table of their own.
    QByteArray Nuovo = Pdf;
    QByteArray Tavola = "xref\n";
    const auto Aggiungi = [&](int Numero, const QByteArray& Record) {
        Tavola += QByteArray::number(Numero) + " 1\n" +
                  QByteArray::number(Nuovo.size()).rightJustified(10, '0') + " 00000 n \n";
        Nuovo += QByteArray::number(Numero) + " 0 obj" + Record + "endobj\n";
    };
    Aggiungi(Fine->Info, Con(Info, VoceSe("/Author", Dati.Autore) + VoceSe("/Subject", Dati.Oggetto)));
    Aggiungi(Fine->Radice, Con(Radice, "/Lang (it-IT)\n/ViewerPreferences <</DisplayDocTitle true>>\n"));
    const qsizetype Posto = Nuovo.size();
    return Nuovo + Tavola + "trailer\n<<\n/Size " + QByteArray::number(Fine->Oggetti) + "\n/Info " +
           QByteArray::number(Fine->Info) + " 0 R\n/Root " + QByteArray::number(Fine->Radice) +
           " 0 R\n/Prev " + QByteArray::number(Fine->Tavola) + "\n>>\nstartxref\n" +
           QByteArray::number(Posto) + "\n%%EOF\n";
}
