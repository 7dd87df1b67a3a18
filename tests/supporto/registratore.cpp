#include "supporto/registratore.h"

#include <QTest>

namespace {

/// The answer that changes nothing, among the buttons shown.
int RispostaSicura(int Bandiere)
{
    switch (PulsantiDi(Bandiere)) {
    case vbOKOnly:
        return vbOK;
    case vbYesNo:
        return vbNo;
    default:
        return vbCancel;
    }
}

void Fallisci(const QString& Motivo)
{
    QTest::qFail(qPrintable(Motivo), __FILE__, __LINE__);
}

void Mostra()
{
    if (Registratore::AlMostrare())
        Registratore::AlMostrare()();
}

}  // namespace

std::function<void()>& Registratore::AlMostrare()
{
    static std::function<void()> Installata;
    return Installata;
}

Registratore::Registratore()
{
    Messaggi Nuovi;
    Nuovi.Box = [this](const QString& Testo, int Bandiere, const QString& Titolo) {
        return Box(Testo, Bandiere, Titolo);
    };
    Nuovi.BoxPulsanti = [this](const QString& Testo, int Bandiere, const QString& Titolo,
                               const QStringList&) { return Box(Testo, Bandiere, Titolo); };
    Nuovi.Immissione = [this](const QString& Testo, const QString& Titolo, const QString&) {
        return Chiedi(Testo, Titolo);
    };
    Nuovi.SalvaFile = [this](const QString& Titolo, const QString& Iniziale, const QString& Filtro) {
        UltimoFiltro = Filtro;
        return Scegli(Domanda::Salva, Titolo, Iniziale);
    };
    Nuovi.ApriFile = [this](const QString& Titolo, const QString& Iniziale, const QString& Filtro) {
        UltimoFiltro = Filtro;
        return Scegli(Domanda::Apri, Titolo, Iniziale);
    };
    Nuovi.ScegliStampante = [this](QPrinter& Scelta) {
        if (!ScegliStampante)
            Fallisci(QStringLiteral("scelta della stampante inattesa"));
        return ScegliStampante && ScegliStampante(Scelta);
    };
    Precedenti = InstallaMessaggi(std::move(Nuovi));
}

Registratore::~Registratore()
{
    InstallaMessaggi(std::move(Precedenti));
    Sparecchia();
}

void Registratore::Sparecchia()
{
    for (const Attesa& Rimasta : std::as_const(Attese))
        Fallisci(QStringLiteral("messaggio atteso e mai mostrato: ") + Rimasta.Testo + Rimasta.Digitato);
    Attese.clear();
    Visti.clear();
}

void Registratore::Attendi(const QString& Testo, int Risposta, const QString& Titolo)
{
    Attese.append({Domanda::Box, Testo, Titolo, Risposta, {}});
}

void Registratore::AttendiImmissione(const QString& Contiene, const QString& Risposta)
{
    Attese.append({Domanda::Immissione, Contiene, {}, vbOK, Risposta});
}

MessaggioMostrato Registratore::Mostrato(qsizetype Quale) const
{
    if (Quale >= 0 && Quale < Visti.size())
        return Visti[Quale];
    Fallisci(QStringLiteral("messaggio %1 mai mostrato").arg(Quale));
    return {};
}

int Registratore::Box(const QString& Testo, int Bandiere, const QString& Titolo)
{
    Visti.append({Testo, Bandiere, Titolo});
    Mostra();
    if (!Tocca(Domanda::Box) || Attese.first().Testo != Testo ||
        (!Attese.first().Titolo.isEmpty() && Attese.first().Titolo != Titolo)) {
        if (!Tollerante)
            Fallisci(QStringLiteral("messaggio inatteso: [") + Titolo + QStringLiteral("] ") + Testo);
        return RispostaSicura(Bandiere);
    }
    return Attese.takeFirst().Risposta;
}

QString Registratore::Chiedi(const QString& Testo, const QString& Titolo)
{
    Visti.append({Testo, 0, Titolo});
    Mostra();
    if (!Tocca(Domanda::Immissione) || !Testo.contains(Attese.first().Testo)) {
        if (!Tollerante)
            Fallisci(QStringLiteral("immissione inattesa: [") + Titolo + QStringLiteral("] ") + Testo);
        return {};
    }
    return Attese.takeFirst().Digitato;
}

QString Registratore::Scegli(Domanda Quale, const QString& Titolo, const QString& Iniziale)
{
    UltimoTitolo = Titolo;
    UltimoInizio = Iniziale;
    Mostra();
    if (!Tocca(Quale)) {
        if (!Tollerante)
            Fallisci(QStringLiteral("finestra di scelta inattesa: [") + Titolo + QStringLiteral("] ") +
                     Iniziale);
        return {};
    }
    return Attese.takeFirst().Digitato;
}
