#include "addressbook/exchange/csv.h"

#include "addressbook/exchange/tabellaestranea.h"
#include "platform/base/errore.h"
#include "platform/base/fogliocsv.h"
#include "platform/base/regionale.h"

#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

namespace {

constexpr std::array Separatori{QChar(u';'), QChar(u'\t'), QChar(u',')};

/// A cell as it was meant.
QString Pulita(QString Testo)
{
    if (Testo.startsWith(u'\'') && ComeFormula(Testo))
        Testo.remove(0, 1);
    return Testo;
}

/// Walks the rows of a text.
class Lettore
{
public:
    Lettore(QStringView DiTesto, QChar Fra) : Testo(DiTesto), Separatore(Fra) {}

    /// The next row. @return false at the end
    bool Prossima(QStringList& Celle)
    {
        Celle.clear();
        if (Posto >= Testo.size())
            return false;
        Inizio = Linea;
        for (;;) {
            Celle.append(Cella());
            if (Celle.size() > limiti::Colonne)
                RifiutaFile(u"Il file ha più di %1 colonne: togliere quelle che non servono, o controllare "
                            "il separatore."_s.arg(Format(limiti::Colonne, u"#,##0")));
            if (Posto >= Testo.size() || Testo[Posto] != Separatore)
                break;
            ++Posto;
        }
        FineRiga();
        return true;
    }
    [[nodiscard]] int LineaInizio() const { return Inizio; }
    /// Characters behind this one.
    [[nodiscard]] qsizetype Letti() const { return Posto; }
    /// The text has ended inside quotes.
    [[nodiscard]] bool Aperta() const { return FraVirgolette; }

private:
    [[nodiscard]] bool ARiga() const { return Testo[Posto] == u'\n' || Testo[Posto] == u'\r'; }

    QString Cella()
    {
        QString Letta;
        if (Posto < Testo.size() && Testo[Posto] == u'"') {
            ++Posto;
            Letta = InVirgolette();
        }
        const qsizetype Da = Posto;
        while (Posto < Testo.size() && Testo[Posto] != Separatore && !ARiga())
            ++Posto;
        Letta += Testo.sliced(Da, Posto - Da);
        if (Letta.size() > limiti::CaratteriCella)
            RifiutaFile(u"Alla riga %1 una cella ha più di %2 caratteri: accorciarla, o controllare le "
                        "virgolette, e ripetere."_s.arg(Inizio)
                            .arg(Format(double(limiti::CaratteriCella), u"#,##0")));
        return Pulita(std::move(Letta));
    }

    QString InVirgolette()
    {
        QString Letta;
        FraVirgolette = true;
        while (Posto < Testo.size()) {
            const qsizetype Chiusa = Testo.indexOf(u'"', Posto);
            const QStringView Pezzo = Testo.sliced(Posto, (Chiusa < 0 ? Testo.size() : Chiusa) - Posto);
            for (qsizetype i = 0; i < Pezzo.size(); ++i)
                Linea += Pezzo[i] == u'\n' ||
                         (Pezzo[i] == u'\r' && (i + 1 == Pezzo.size() || Pezzo[i + 1] != u'\n'));
            Letta += Pezzo;
            Posto += Pezzo.size();
            if (Chiusa < 0)
                return Letta;
            ++Posto;
            if (Posto >= Testo.size() || Testo[Posto] != u'"') {
                FraVirgolette = false;
                return Letta;
            }
            Letta += u'"';
            ++Posto;
        }
        return Letta;
    }

    void FineRiga()
    {
        if (Posto < Testo.size() && Testo[Posto] == u'\r')
            ++Posto;
        else if (Posto < Testo.size() && Testo[Posto] == u'\n') {
            ++Posto;
            ++Linea;
            return;
        } else
            return;
        if (Posto < Testo.size() && Testo[Posto] == u'\n')
            ++Posto;
        ++Linea;
    }

    QStringView Testo;
    QChar Separatore;
    qsizetype Posto = 0;
    int Linea = 1;
    int Inizio = 1;
    bool FraVirgolette = false;
};

/// The rows at the beginning of a text that have as many cells as the first one, if those are more than one.
int RighePari(QStringView Testo, QChar Separatore)
{
    constexpr int Guardate = 30;
    constexpr qsizetype Caratteri = qsizetype(64) * 1024;
    Lettore Prova(Testo.first(std::min(Testo.size(), Caratteri)), Separatore);
    QStringList Celle;
    qsizetype Prime = 0;
    int Pari = 0;
    try {
        for (int i = 0; i < Guardate && Prova.Prossima(Celle) && !Prova.Aperta(); ++i) {
            if (i == 0)
                Prime = Celle.size();
            Pari += Celle.size() == Prime;
        }
    } catch (const Errore&) {
        return 0;  // cells or rows beyond the limits are none of this separator
    }
    return Prime > 1 ? Pari : 0;
}

QChar SeparatoreDi(QStringView Testo)
{
    QChar Migliore = Separatori.front();
    int Righe = 0;
    for (const QChar Prova : Separatori)
        if (const int Pari = RighePari(Testo, Prova); Pari > Righe) {
            Righe = Pari;
            Migliore = Prova;
        }
    return Migliore;
}

/// A first line that names the separator, as some spreadsheets write it: taken off the text.
QChar SeparatoreDetto(QStringView& Testo)
{
    constexpr qsizetype Lunga = 5;
    if (Testo.size() < Lunga || !Testo.startsWith(u"sep=", Qt::CaseInsensitive))
        return {};
    const QChar Detto = Testo[Lunga - 1];
    const QStringView Resto = Testo.sliced(Lunga);
    if (!Resto.isEmpty() && Resto[0] != u'\r' && Resto[0] != u'\n')
        return {};
    return Detto;
}

}  // namespace

RigheCsv LeggiCsv(const QByteArray& Byte, const OpzioniCsv& Come, const AvanzamentoLettura& Prosegui)
{
    RigheCsv Lette;
    const QString Intero = LeggiTestoEstraneo(Byte, Come.Codifica, &Lette.Codifica);
    QStringView Testo(Intero);
    const QChar Detto = SeparatoreDetto(Testo);
    Lette.Separatore = !Come.Separatore.isNull() ? Come.Separatore
                       : !Detto.isNull()         ? Detto
                                                 : SeparatoreDi(Testo);
    Lettore Righe(Testo, Lette.Separatore);
    QStringList Celle;
    if (!Detto.isNull())
        (void)Righe.Prossima(Celle);
    qsizetype Tutte = 0;
    PassiDiLettura Passi(Prosegui, Testo.size());
    while (Righe.Prossima(Celle)) {
        Passi.A(Righe.Letti());
        if (std::ranges::all_of(Celle, [](const QString& Cella) { return Cella.isEmpty(); }))
            continue;
        Tutte += Celle.size();
        if (Lette.Righe.size() >= size_t(limiti::Righe) || Tutte > limiti::Celle)
            RifiutaFile(u"Il file ha troppe righe per una sola volta: dividerlo e importarne una parte alla "
                        "volta."_s);
        Lette.Colonne = std::max(Lette.Colonne, int(Celle.size()));
        Lette.Righe.push_back(Celle);
        Lette.Linee.push_back(Righe.LineaInizio());
    }
    if (Righe.Aperta())
        RifiutaFile(
            u"Il file finisce dentro una cella fra virgolette, nella riga che comincia alla linea "
            "%1: è incompleto, ripetere l'esportazione dal programma d'origine."_s.arg(Righe.LineaInizio()));
    return Lette;
}
