#include "creadati/tabellatesto.h"

#include "platform/base/errore.h"
#include "platform/system/file.h"
#include "platform/system/percorsi.h"

#include <QRegularExpression>
#include <QStringDecoder>

using namespace Qt::StringLiterals;

namespace {

/// The characters that Windows-1252 has between 80 and 9F (hexadecimal).
constexpr QStringView Aggiunte1252 = u"€‚ƒ„…†‡ˆ‰Š‹ŒŽ‘’“”•–—˜™š›œžŸ";

bool InWindows1252(QChar Carattere)
{
    const char16_t Codice = Carattere.unicode();
    return (Codice >= 0x20 && Codice < 0x7F) || (Codice >= 0xA0 && Codice <= 0xFF) ||
           Aggiunte1252.contains(Carattere);
}

QString CodiceCarattere(QChar Carattere)
{
    return u"U+%1"_s.arg(int(Carattere.unicode()), 4, 16, QChar(u'0')).toUpper();
}

QString TraVirgolette(const QString& Testo)
{
    return u'«' + Testo + u'»';
}

QStringList DivideRighe(QString Testo)
{
    if (Testo.startsWith(QChar::ByteOrderMark))
        Testo.remove(0, 1);
    return Testo.replace(u"\r\n"_s, u"\n"_s).split(u'\n');
}

}  // namespace

TabellaTesto::TabellaTesto(const QString& Percorso, const QStringList& Colonne) : File(NomeFile(Percorso))
{
    if (!EsisteFile(Percorso))
        throw Errore(errori::FileMancante, u"Manca la tabella "_s + File);
    Carica(LeggiFile(Percorso, MassimoByte), Colonne);
}

TabellaTesto::TabellaTesto(const QString& Nome, const QByteArray& Contenuto, const QStringList& Colonne)
    : File(Nome)
{
    Carica(Contenuto, Colonne);
}

void TabellaTesto::Carica(const QByteArray& Contenuto, const QStringList& Colonne)
{
    QStringDecoder Decodifica(QStringDecoder::Utf8, QStringDecoder::Flag::Stateless);
    const QString Tutto = Decodifica(Contenuto);
    if (Decodifica.hasError())
        throw Errore(errori::Argomento, File + u": il testo non è in UTF-8"_s);

    int Numero = 0;
    for (const QString& Riga : DivideRighe(Tutto)) {
        ++Numero;
        if (Riga.isEmpty())
            continue;
        if (Titoli.isEmpty()) {
            LeggiIntestazione({Numero, TagliaCelle(Numero, Riga)}, Colonne);
            continue;
        }
        if (Righe() == MassimoRighe)
            RifiutaIn(Numero, Titoli.first(), u"la tabella ha troppe righe"_s);
        Corpo.append({Numero, TagliaCelle(Numero, Riga)});
    }
    if (Titoli.isEmpty())
        RifiutaIn(1, Colonne.first(), u"manca la riga di intestazione"_s);
}

void TabellaTesto::LeggiIntestazione(const RigaTesto& Intestazione, const QStringList& Colonne)
{
    NumeroIntestazione = Intestazione.Numero;
    for (const QString& Titolo : Intestazione.Celle) {
        if (!Colonne.contains(Titolo))
            RifiutaIn(Intestazione.Numero, Titolo, u"colonna sconosciuta"_s);
        if (Posizioni.contains(Titolo))
            RifiutaIn(Intestazione.Numero, Titolo, u"colonna ripetuta"_s);
        Posizioni.insert(Titolo, int(Posizioni.size()));
    }
    for (const QString& Colonna : Colonne) {
        if (!Posizioni.contains(Colonna))
            RifiutaIn(Intestazione.Numero, Colonna, u"colonna mancante"_s);
    }
    Titoli = Intestazione.Celle;
}

// While the heading itself is cut, columns have no title yet and go by their number.
QStringList TabellaTesto::TagliaCelle(int Numero, const QString& Riga) const
{
    QStringList Celle(1);
    const auto Colonna = [&] { return Titoli.value(Celle.size() - 1, QString::number(Celle.size())); };
    bool TraApici = false;
    bool EraTraApici = false;
    for (int i = 0; i < Riga.size(); ++i) {
        const QChar c = Riga[i];
        if (!InWindows1252(c))
            RifiutaIn(Numero, Colonna(), CodiceCarattere(c) + u" non è un carattere di Windows-1252"_s);
        if (TraApici && c == u'"' && Riga.mid(i + 1, 1) == u'"') {
            Celle.last() += Riga[i++];
        } else if (TraApici && c == u'"') {
            TraApici = false;
        } else if (!TraApici && c == u';') {
            Celle.append(QString());
            EraTraApici = false;
        } else if (c == u'"' && Celle.last().isEmpty() && !EraTraApici) {
            TraApici = EraTraApici = true;
        } else if (!TraApici && (EraTraApici || c == u'"')) {
            RifiutaIn(Numero, Colonna(), u"virgolette fuori posto"_s);
        } else {
            Celle.last() += c;
        }
    }
    if (TraApici)
        RifiutaIn(Numero, Colonna(), u"virgolette non chiuse"_s);
    if (!Titoli.isEmpty() && Celle.size() != Titoli.size())
        RifiutaIn(Numero, Titoli.value(Celle.size(), Titoli.last()),
                  u"la riga ha %1 campi invece di %2"_s.arg(Celle.size()).arg(Titoli.size()));
    return Celle;
}

QString TabellaTesto::Testo(int Riga, const QString& Colonna) const
{
    Q_ASSERT(Posizioni.contains(Colonna));
    return Corpo[Riga].Celle[Posizioni.value(Colonna)];
}

QString TabellaTesto::Testo(int Riga, const QString& Colonna, int Massimo, bool AncheVuoto) const
{
    const QString Cella = Testo(Riga, Colonna);
    if (Cella.isEmpty() && !AncheVuoto)
        Rifiuta(Riga, Colonna, u"il testo manca"_s);
    if (Cella != Cella.trimmed())
        Rifiuta(Riga, Colonna, u"il testo comincia o finisce con uno spazio"_s);
    if (Cella.size() > Massimo)
        Rifiuta(Riga, Colonna, u"il testo supera i %1 caratteri"_s.arg(Massimo));
    return Cella;
}

int TabellaTesto::Intero(int Riga, const QString& Colonna, int Minimo, int Massimo) const
{
    static const QRegularExpression Cifre(u"\\A[0-9]{1,9}\\z"_s);
    const QString Cella = Testo(Riga, Colonna);
    if (!Cifre.match(Cella).hasMatch())
        Rifiuta(Riga, Colonna, TraVirgolette(Cella) + u" non è un numero intero"_s);
    const int Valore = Cella.toInt();
    if (Valore < Minimo || Valore > Massimo)
        Rifiuta(Riga, Colonna, u"%1 non è fra %2 e %3"_s.arg(Valore).arg(Minimo).arg(Massimo));
    return Valore;
}

double TabellaTesto::Importo(int Riga, const QString& Colonna) const
{
    static const QRegularExpression Cifre(u"\\A[0-9]{1,12}([.][0-9]{1,2})?\\z"_s);
    const QString Cella = Testo(Riga, Colonna);
    if (!Cifre.match(Cella).hasMatch())
        Rifiuta(Riga, Colonna, TraVirgolette(Cella) + u" non è un importo"_s);
    return Cella.toDouble();
}

double TabellaTesto::Decimale(int Riga, const QString& Colonna, int Decimali) const
{
    static const QRegularExpression Cifre(u"\\A[0-9]{1,9}([.]([0-9]{1,9}))?\\z"_s);
    const QString Cella = Testo(Riga, Colonna);
    const QRegularExpressionMatch Letta = Cifre.match(Cella);
    if (!Letta.hasMatch() || Letta.capturedLength(2) > Decimali)
        Rifiuta(Riga, Colonna,
                TraVirgolette(Cella) + u" non è un numero con al massimo %1 decimali"_s.arg(Decimali));
    return Cella.toDouble();
}

QDate TabellaTesto::Data(int Riga, const QString& Colonna) const
{
    const QString Cella = Testo(Riga, Colonna);
    const QDate Giorno = QDate::fromString(Cella, u"yyyy-MM-dd"_s);
    if (!Giorno.isValid())
        Rifiuta(Riga, Colonna, TraVirgolette(Cella) + u" non è una data aaaa-mm-gg"_s);
    return Giorno;
}

bool TabellaTesto::SiNo(int Riga, const QString& Colonna) const
{
    const QString Cella = Testo(Riga, Colonna);
    if (Cella != u"sì" && Cella != u"no")
        Rifiuta(Riga, Colonna, TraVirgolette(Cella) + u" non è né sì né no"_s);
    return Cella == u"sì";
}

void TabellaTesto::Rifiuta(int Riga, const QString& Colonna, const QString& Motivo) const
{
    RifiutaIn(Corpo[Riga].Numero, Colonna, Motivo);
}

void TabellaTesto::RifiutaInFondo(const QString& Colonna, const QString& Motivo) const
{
    RifiutaIn(Corpo.isEmpty() ? NumeroIntestazione : Corpo.last().Numero, Colonna, Motivo);
}

void TabellaTesto::RifiutaIn(int Numero, const QString& Colonna, const QString& Motivo) const
{
    throw Errore(errori::Argomento,
                 u"%1, riga %2, colonna %3: %4"_s.arg(File).arg(Numero).arg(Colonna, Motivo));
}
