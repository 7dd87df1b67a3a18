#include "calculators/norme/etadati.h"

#include "platform/accesso/accesso.h"
#include "platform/base/nomidate.h"
#include "platform/base/regionale.h"
#include "platform/database/database.h"

#include <QStringList>

using namespace Qt::StringLiterals;

namespace {

// The rate of the next year is published by this day (art. 1284 c.c.).
constexpr int MeseSaggio = 12;
constexpr int GiornoSaggio = 15;
// The rate of a half-year comes in its first days; a month later it is surely out.
constexpr int AttesaMora = 31;
constexpr int AttesaLegali = 31;
// The index of a month comes around the middle of the next one.
constexpr int GiornoIndice = 20;
constexpr int PrimoAnno = 1900;  // what an archive says of an earlier one is no index
constexpr int MesiIndiceVecchio = 3;
// Norms are read again now and then: budget laws change some at every turn of the year.
constexpr int GiorniNormeFresche = 120;
constexpr int GiorniNormeVecchie = 400;

const QDate SempreInVigore(9999, 12, 31);
const QDate PrimaMoraPiuUno(2013, 1, 1);
const QDate MoraInGiudizio(2014, 12, 11);

QString Giorno(const QDate& Data)
{
    return Format(Data, ModelloData);
}

/// Last day of the last row; a row without an end holds for ever.
QDate UltimoPeriodo(const Database& Db, const QString& Tabella)
{
    Recordset Righe = Db.OpenRecordset(Tabella);
    Righe.ImpostaIndex(u"Dal"_s);
    Righe.MoveLast();
    if (Righe.Eof())
        return {};
    const QVariant Al = Righe.Value(u"Al"_s);
    return Al.isValid() ? Al.toDate() : SempreInVigore;
}

QDate UltimoIndice(const Database& Db)
{
    Recordset Righe = Db.OpenRecordset(u"IndiciIstat"_s);
    Righe.ImpostaIndex(u"Indice"_s);
    Righe.MoveLast();
    if (Righe.Eof())
        return {};
    const int Anno = Righe.Value(u"Anno"_s).toInt();
    const QDate Primo(Anno, Righe.Value(u"Mese"_s).toInt(), 1);
    return Anno >= PrimoAnno && Anno <= SempreInVigore.year() && Primo.isValid()
               ? Primo.addMonths(1).addDays(-1)
               : QDate();
}

GradoEta GradoFra(const QDate& Oggi, const QDate& FrescoFino, const QDate& VecchioFino)
{
    if (Oggi <= FrescoFino)
        return GradoEta::Fresco;
    return Oggi <= VecchioFino ? GradoEta::Vecchio : GradoEta::Stantio;
}

/// What an archive without a row says.
EtaDati Mancanti(const QString& Cosa)
{
    return {GradoEta::Stantio, {}, Cosa + u" mancanti."_s, {}};
}

QString Semestre(const QDate& Giorno)
{
    return u"%1 semestre %2"_s.arg(Giorno.month() <= 6 ? u"primo"_s : u"secondo"_s).arg(Giorno.year());
}

QString NomeDelMese(const QDate& Mese)
{
    return NomeMese(Mese.month()).toLower() + u' ' + CStr(Mese.year());
}

/// "ad agosto 2026", "a settembre 2026".
QString FinoAlMese(const QDate& Mese)
{
    const QString Nome = NomeDelMese(Mese);
    return (Nome.startsWith(u'a') ? u"ad "_s : u"a "_s) + Nome;
}

}  // namespace

CoperturaTassi LeggiCopertura(const QString& Archivio)
{
    const Database Db = ApriArchivio(Archivio, true);
    return {UltimoPeriodo(Db, u"InteressiLegali"_s), UltimoPeriodo(Db, u"InteressiMora"_s), UltimoIndice(Db)};
}

EtaDati EtaLegali(const CoperturaTassi& Tassi, const QDate& Oggi)
{
    if (!Tassi.Legali.isValid())
        return Mancanti(u"Tassi legali"_s);
    EtaDati Eta{GradoEta::Fresco, Tassi.Legali, u"Tassi legali fino al "_s + Giorno(Tassi.Legali) + u'.', {}};
    if (Tassi.Legali == SempreInVigore)
        return Eta;
    const QDate Atteso(Tassi.Legali.year(), MeseSaggio, GiornoSaggio);
    Eta.Grado = GradoFra(Oggi, Atteso, Tassi.Legali.addDays(AttesaLegali));
    Eta.Attesa = u"Saggio %1 "_s.arg(Tassi.Legali.year() + 1) +
                 (Oggi <= Atteso ? u"non ancora pubblicato: è atteso entro il "_s + Giorno(Atteso)
                                 : u"non nell'archivio: era atteso entro il "_s + Giorno(Atteso)) +
                 u'.';
    return Eta;
}

EtaDati EtaMora(const CoperturaTassi& Tassi, const QDate& Oggi)
{
    if (!Tassi.Mora.isValid())
        return Mancanti(u"Tassi di mora"_s);
    EtaDati Eta{GradoEta::Fresco, Tassi.Mora, u"Tassi di mora fino al "_s + Giorno(Tassi.Mora) + u'.', {}};
    if (Tassi.Mora == SempreInVigore)
        return Eta;
    Eta.Grado = GradoFra(Oggi, Tassi.Mora, Tassi.Mora.addDays(AttesaMora));
    Eta.Attesa = u"Saggio del "_s + Semestre(Tassi.Mora.addDays(1)) +
                 (Oggi <= Tassi.Mora ? u" non ancora pubblicato."_s : u" non nell'archivio."_s);
    return Eta;
}

EtaDati EtaIndici(const CoperturaTassi& Tassi, const QDate& Oggi)
{
    if (!Tassi.Indici.isValid())
        return Mancanti(u"Indici FOI"_s);
    const QDate Ultimo(Tassi.Indici.year(), Tassi.Indici.month(), 1);
    EtaDati Eta{GradoEta::Fresco, Tassi.Indici, u"Indici FOI fino "_s + FinoAlMese(Ultimo) + u'.', {}};
    const auto Uscita = [](const QDate& Mese) {
        const QDate Dopo = Mese.addMonths(1);
        return QDate(Dopo.year(), Dopo.month(), GiornoIndice);
    };
    const QDate Prossimo = Ultimo.addMonths(1);
    Eta.Grado = GradoFra(Oggi, Uscita(Prossimo).addDays(-1),
                         Uscita(Prossimo.addMonths(MesiIndiceVecchio - 1)).addDays(-1));
    if (Oggi < Uscita(Prossimo)) {
        Eta.Attesa = u"Indice di "_s + NomeDelMese(Prossimo) + u" non ancora pubblicato."_s;
        return Eta;
    }
    QDate Fino = Prossimo;
    while (Uscita(Fino.addMonths(1)) <= Oggi)
        Fino = Fino.addMonths(1);
    Eta.Attesa = Fino == Prossimo ? u"Indice di "_s + NomeDelMese(Prossimo) + u" non nell'archivio."_s
                                  : u"Indici da "_s + NomeDelMese(Prossimo) + u' ' + FinoAlMese(Fino) +
                                        u" non nell'archivio."_s;
    return Eta;
}

EtaDati EtaNorme(const Norme& Insieme, const QDate& Oggi)
{
    const QDate& Al = Insieme.NoteFinoAl();
    EtaDati Eta{GradoEta::Fresco, Al, u"Norme note fino al "_s + Giorno(Al) + u'.', {}};
    Eta.Grado = GradoFra(Oggi, Al.addDays(GiorniNormeFresche), Al.addDays(GiorniNormeVecchie));
    if (Eta.Grado != GradoEta::Fresco)
        Eta.Attesa = u"Leggi più recenti possono averle cambiate."_s;
    return Eta;
}

QString NotaOltre(const EtaDati& Eta, const QDate& Fine)
{
    if (Eta.FinoAl.isValid() && Fine <= Eta.FinoAl)
        return {};
    return u"Il risultato va oltre i dati: "_s + Eta.Frase.left(1).toLower() + Eta.Frase.mid(1);
}

PropostaMora ProponiMora(InsiemeNorme Insieme, const QDate& DataIni)
{
    if (Insieme == InsiemeNorme::Programma || !DataIni.isValid() || DataIni < PrimaMoraPiuUno)
        return {};
    PropostaMora Proposta{true, u"Transazioni concluse dal "_s + Giorno(PrimaMoraPiuUno) +
                                    u": un punto in più sul saggio della tabella."_s};
    if (DataIni >= MoraInGiudizio)
        Proposta.Nota +=
            u" Dalla domanda giudiziale, se le parti non hanno pattuito altro, il saggio legale è questo "
            "(art. 1284, 4° comma, c.c.)."_s;
    return Proposta;
}
