#include "calculators/modLeggiCodFis.h"

#include "calculators/modCodFis.h"
#include "core/modControlli.h"
#include "platform/base/regionale.h"
#include "platform/base/segni.h"

#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

namespace {

/// The letters that stand for the digits 0 to 9.
constexpr QStringView Sostituti = u"LMNPQRSTUV";
/// The places of digits, from 0.
constexpr std::array<qsizetype, 7> PostiCifre{6, 7, 9, 10, 12, 13, 14};
constexpr int AnniDiVita = 120;

constexpr qsizetype PostoAnno = 6;
constexpr qsizetype PostoMese = 8;
constexpr qsizetype PostoGiorno = 9;
constexpr qsizetype PostoComune = 11;
constexpr qsizetype LettereComune = 4;
constexpr qsizetype LettereNome = 3;

bool ELettera(QChar C)
{
    return C >= u'A' && C <= u'Z';
}

bool PostoDiCifra(qsizetype Posto)
{
    return std::ranges::find(PostiCifre, Posto) != PostiCifre.end();
}

QString Compatto(const QString& Testo)
{
    QString Codice;
    for (const QChar C : Testo)
        if (!C.isSpace())
            // Letters of the alphabet only: Unicode would turn a dotless or a long letter into a plain one.
            Codice += C >= u'a' && C <= u'z' ? C.toUpper() : C;
    return Codice;
}

/// A code of eleven digits.
bool EDiEnte(const QString& Codice)
{
    constexpr qsizetype Cifre = 11;
    return Codice.size() == Cifre && std::ranges::all_of(Codice, ECifra);
}

/// The first character that cannot stand where it does; -1 none.
qsizetype PostoSbagliato(const QString& Codice)
{
    for (qsizetype i = 0; i < Codice.size(); ++i) {
        const QChar C = Codice[i];
        const bool Giusto = PostoDiCifra(i)  ? ECifra(C) || Sostituti.contains(C)
                            : i == PostoMese ? codfis::LettereMesi.contains(C)
                                             : ELettera(C);
        if (!Giusto)
            return i;
    }
    return -1;
}

QString FrasePosto(const QString& Codice, qsizetype Posto)
{
    const QString Segno = u"Al %1° posto \"%2\" "_s.arg(Posto + 1).arg(Codice[Posto]);
    if (Posto == PostoMese)
        return Segno + u"non è la lettera di un mese."_s;
    return Segno +
           (PostoDiCifra(Posto) ? u"sta dove occorre una cifra."_s : u"sta dove occorre una lettera."_s);
}

/// Digits in the place of the letters that stand for them; the last letter stays.
QString InCifre(QString Codice)
{
    for (const qsizetype Posto : PostiCifre)
        if (const qsizetype Cifra = Sostituti.indexOf(Codice[Posto]); Cifra >= 0)
            Codice[Posto] = QChar(u'0' + int(Cifra));
    return Codice;
}

/// The days of these figures in the years that people of today were born in, the latest first.
QList<QDate> NasciteDi(int AnnoBreve, int Mese, int Giorno, const QDate& Oggi)
{
    constexpr int Secolo = 100;
    QList<QDate> Trovate;
    for (int Anno = Oggi.year() / Secolo * Secolo + AnnoBreve; Anno >= Oggi.year() - AnniDiVita;
         Anno -= Secolo)
        if (const QDate Nascita(Anno, Mese, Giorno);
            Nascita.isValid() && Nascita <= Oggi && Nascita.addYears(AnniDiVita) >= Oggi)
            Trovate << Nascita;
    return Trovate;
}

/// What is wrong with the day; empty when it is one.
QString DifettoGiorno(int Giorno, const LetturaCodFis& Lettura)
{
    constexpr int GiorniMese = 31;
    const int DelMese = Giorno > codfis::GiornoDonne ? Giorno - codfis::GiornoDonne : Giorno;
    if (DelMese < 1 || DelMese > GiorniMese)
        return u"Il giorno di nascita %1 non è possibile: va da 01 a 31, per le donne da 41 a 71."_s.arg(
            Lettura.Base.mid(PostoGiorno, 2));
    return Lettura.Nascite.isEmpty() ? u"Il giorno di nascita non è del calendario, o non è ancora venuto."_s
                                     : QString();
}

}  // namespace

LetturaCodFis LeggiCodFis(const QString& Testo, const QDate& Oggi)
{
    LetturaCodFis Lettura;
    Lettura.Codice = Compatto(Testo);
    const QString& Codice = Lettura.Codice;
    if (Codice.isEmpty())
        return Lettura;
    if (EDiEnte(Codice)) {
        Lettura.Difetto =
            u"Undici cifre sono il codice di una società o di un ente: non indicano una persona."_s;
        return Lettura;
    }
    const qsizetype Sbagliato = PostoSbagliato(Codice.left(LettereCodFis));
    if (Sbagliato >= 0) {
        Lettura.Difetto = FrasePosto(Codice, Sbagliato);
        return Lettura;
    }
    if (Codice.size() != LettereCodFis) {
        Lettura.Difetto = u"Un codice fiscale ha 16 caratteri: questo ne ha %1."_s.arg(Codice.size());
        return Lettura;
    }
    Lettura.Base = InCifre(Codice);
    Lettura.Omocodo = Lettura.Base != Codice;
    Lettura.Base.back() = ControlloCodFis(Lettura.Base.chopped(1));
    Lettura.Controllo = ControlloCodFis(Codice.chopped(1));
    Lettura.Torna = Codice.back() == Lettura.Controllo;
    Lettura.Cognome = Codice.left(LettereNome);
    Lettura.Nome = Codice.mid(LettereNome, LettereNome);
    Lettura.CodiceComune = Lettura.Base.mid(PostoComune, LettereComune);
    const int Giorno = Lettura.Base.mid(PostoGiorno, 2).toInt();
    Lettura.Donna = Giorno > codfis::GiornoDonne;
    Lettura.Nascite = NasciteDi(Lettura.Base.mid(PostoAnno, 2).toInt(),
                                int(codfis::LettereMesi.indexOf(Codice[PostoMese])) + 1,
                                Lettura.Donna ? Giorno - codfis::GiornoDonne : Giorno, Oggi);
    Lettura.Difetto = DifettoGiorno(Giorno, Lettura);
    return Lettura;
}

bool CodFisInCorso(const QString& Codice)
{
    const QString Scritto = Compatto(Codice);
    return !Scritto.isEmpty() && Scritto.size() < LettereCodFis && PostoSbagliato(Scritto) < 0;
}

QString FraseNascita(const LetturaCodFis& Lettura)
{
    QStringList Giorni;
    for (const QDate& Nascita : Lettura.Nascite)
        Giorni << Format(Nascita, ModelloData);
    return Giorni.join(u" oppure "_s);
}

QString FraseSesso(const LetturaCodFis& Lettura)
{
    return Lettura.Donna ? u"femmina"_s : u"maschio"_s;
}

QStringList NoteLettura(const LetturaCodFis& Lettura)
{
    QStringList Note;
    if (!Lettura.Letto())
        return Note;
    if (!Lettura.Torna)
        Note << u"L'ultima lettera è errata: dovrebbe essere %1. Il codice è scritto male."_s.arg(
            Lettura.Controllo);
    if (Lettura.Nascite.size() > 1)
        Note << u"Il codice ha soltanto due cifre dell'anno: il secolo non si può sapere."_s;
    if (Lettura.Omocodo)
        Note << u"Codice omocodo: ha lettere al posto di cifre. La forma di base è %1."_s.arg(Lettura.Base);
    return Note;
}
