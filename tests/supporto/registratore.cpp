#include "supporto/registratore.h"

#include <QTest>

namespace {

/// The answer that changes nothing, among the buttons shown.
int RispostaSicura(int Bandiere)
{
    switch (Bandiere & 7) {
    case vbOKOnly: return vbOK;
    case vbYesNo: return vbNo;
    default: return vbCancel;
    }
}

void Fallisci(const QString& Motivo)
{
    QTest::qFail(qPrintable(Motivo), __FILE__, __LINE__);
}

}  // namespace

Registratore::Registratore()
{
    Messaggi Nuovi;
    Nuovi.Box = [this](const QString& Testo, int Bandiere, const QString& Titolo) {
        return Box(Testo, Bandiere, Titolo);
    };
    Nuovi.BoxPulsanti = [this](const QString& Testo, int Bandiere, const QString& Titolo, const QStringList&) {
        return Box(Testo, Bandiere, Titolo);
    };
    Nuovi.Immissione = [this](const QString& Testo, const QString& Titolo, const QString&) {
        return Chiedi(Testo, Titolo);
    };
    Precedenti = InstallaMessaggi(std::move(Nuovi));
}

Registratore::~Registratore()
{
    InstallaMessaggi(std::move(Precedenti));
    for (const Attesa& Rimasta : std::as_const(Attese))
        Fallisci(QStringLiteral("messaggio atteso e mai mostrato: ") + Rimasta.Testo);
}

void Registratore::Attendi(const QString& Testo, int Risposta, const QString& Titolo)
{
    Attese.append({false, Testo, Titolo, Risposta, {}});
}

void Registratore::AttendiImmissione(const QString& Contiene, const QString& Risposta)
{
    Attese.append({true, Contiene, {}, vbOK, Risposta});
}

int Registratore::Box(const QString& Testo, int Bandiere, const QString& Titolo)
{
    Visti.append({Testo, Bandiere, Titolo});
    if (Attese.isEmpty() || Attese.first().Immissione || Attese.first().Testo != Testo
        || (!Attese.first().Titolo.isEmpty() && Attese.first().Titolo != Titolo)) {
        if (!Tollerante)
            Fallisci(QStringLiteral("messaggio inatteso: [") + Titolo + QStringLiteral("] ") + Testo);
        return RispostaSicura(Bandiere);
    }
    return Attese.takeFirst().Risposta;
}

QString Registratore::Chiedi(const QString& Testo, const QString& Titolo)
{
    Visti.append({Testo, 0, Titolo});
    if (Attese.isEmpty() || !Attese.first().Immissione || !Testo.contains(Attese.first().Testo)) {
        if (!Tollerante)
            Fallisci(QStringLiteral("immissione inattesa: [") + Titolo + QStringLiteral("] ") + Testo);
        return {};
    }
    return Attese.takeFirst().Digitato;
}
