#include "calculators/norme/righenorme.h"

#include "platform/base/errore.h"
#include "platform/base/regionale.h"
#include "platform/database/criterio.h"

#include <QRegularExpression>

#include <cmath>

using namespace Qt::StringLiterals;

namespace {

constexpr int UnAnnoBisestile = 2000;
constexpr int MassimoRighe = 2000;  // of a table: many times what any of ours holds
constexpr double MassimoImporto = 1e12;

}  // namespace

RigheNorme::RigheNorme(const Database& Db, const QString& Nome)
    : Tabella(Nome), Righe(Db.OpenRecordset(u"SELECT * FROM %1 ORDER BY rowid"_s.arg(Identificatore(Nome))))
{
    if (Righe.RecordCount() > MassimoRighe)
        throw Errore(errori::Argomento, u"%1: le righe sono troppe"_s.arg(Tabella));
}

void RigheNorme::Avanti()
{
    Righe.MoveNext();
    ++Numero;
}

void RigheNorme::Rifiuta(const QString& Colonna, const QString& Motivo) const
{
    throw Errore(errori::Argomento,
                 u"%1, riga %2, colonna %3: %4"_s.arg(Tabella).arg(Numero).arg(Colonna, Motivo));
}

QVariant RigheNorme::Cella(const QString& Colonna) const
{
    return Righe.Value(Colonna);
}

QString RigheNorme::Testo(const QString& Colonna, bool AncheVuoto) const
{
    const QVariant Valore = Cella(Colonna);
    if (Valore.isValid() && Valore.typeId() != QMetaType::QString)
        Rifiuta(Colonna, u"non è un testo"_s);
    if (Valore.toString().isEmpty() && !AncheVuoto)
        Rifiuta(Colonna, u"il testo manca"_s);
    return Valore.toString();
}

int RigheNorme::Intero(const QString& Colonna, int Minimo, int Massimo) const
{
    const QVariant Valore = Cella(Colonna);
    const double Letto = ENumero(Valore) ? Valore.toDouble() : std::nan("");
    if (!(Letto >= Minimo && Letto <= Massimo) || Letto != std::floor(Letto))
        Rifiuta(Colonna, u"non è un numero fra %1 e %2"_s.arg(Minimo).arg(Massimo));
    return int(Letto);
}

double RigheNorme::Importo(const QString& Colonna) const
{
    const QVariant Valore = Cella(Colonna);
    const double Letto = ENumero(Valore) ? Valore.toDouble() : std::nan("");
    if (!(Letto >= 0.0 && Letto < MassimoImporto))
        Rifiuta(Colonna, u"non è un importo"_s);
    return Letto;
}

std::optional<double> RigheNorme::ImportoOVuoto(const QString& Colonna) const
{
    return Cella(Colonna).isValid() ? std::optional(Importo(Colonna)) : std::nullopt;
}

bool RigheNorme::SiNo(const QString& Colonna) const
{
    return Parola(Colonna, {u"no"_s, u"sì"_s}) == 1;
}

std::optional<bool> RigheNorme::SiNoOVuoto(const QString& Colonna) const
{
    return Cella(Colonna).isValid() ? std::optional(SiNo(Colonna)) : std::nullopt;
}

int RigheNorme::Parola(const QString& Colonna, const QStringList& Parole) const
{
    const qsizetype Posto = Parole.indexOf(Testo(Colonna));
    if (Posto < 0)
        Rifiuta(Colonna, u"non è fra %1"_s.arg(Parole.join(u", "_s)));
    return int(Posto);
}

QDate RigheNorme::Data(const QString& Colonna) const
{
    const QVariant Valore = Cella(Colonna);
    if (!Valore.isValid())
        return {};
    if (Valore.typeId() != QMetaType::QDate || !Valore.toDate().isValid())
        Rifiuta(Colonna, u"non è una data"_s);
    return Valore.toDate();
}

Vigenza RigheNorme::Periodo() const
{
    const Vigenza Quando{Data(u"Dal"_s), Data(u"Al"_s)};
    if (Quando.Dal.isValid() && Quando.Al.isValid() && Quando.Al < Quando.Dal)
        Rifiuta(u"Al"_s, u"il periodo finisce prima di cominciare"_s);
    return Quando;
}

GiornoDellAnno RigheNorme::Giorno(const QString& Colonna) const
{
    static const QRegularExpression Cifre(u"\\A([0-9]{2})-([0-9]{2})\\z"_s);
    const QRegularExpressionMatch Letto = Cifre.match(Testo(Colonna));
    const GiornoDellAnno Quando{Letto.captured(2).toInt(), Letto.captured(1).toInt()};
    if (!Letto.hasMatch() || !Quando.Nel(UnAnnoBisestile).isValid())
        Rifiuta(Colonna, u"non è un giorno mm-gg"_s);
    return Quando;
}
