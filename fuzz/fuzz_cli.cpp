// The command line: words in any order, a line each, and behind an empty line the rows of --batch. It ends
// with a status of its own, a refusal has words, and nothing is written outside the folder that it is called
// in.
#include "fonte.h"

#include "cli/comandi.h"
#include "core/sessione.h"

#include <QDir>

using namespace Qt::StringLiterals;

namespace {

constexpr int MassimeParole = 12;
constexpr qsizetype MassimaParola = 300;

/// A word of the user's; one with a separator would lead to files of the machine.
QString Parola(Fonte& Dati)
{
    return Dati.Riga().remove(u'/').remove(QChar(0)).left(MassimaParola);
}

void Prova(const QByteArray& Dati)
{
    PreparaSessione();
    const QString DaDove = QDir::currentPath();
    static const bool Qui = QDir().mkpath(CartellaDiLavoro() + u"riga"_s);
    Pretendi(Qui && QDir::setCurrent(CartellaDiLavoro() + u"riga"_s));
    Fonte Righe(Dati);
    QStringList Parole;
    while (!Righe.Finita() && Parole.size() < MassimeParole) {
        const QString Una = Parola(Righe);
        if (Una.isEmpty())
            break;
        Parole += Una;
    }
    QByteArrayList Casi;
    while (!Righe.Finita() && Casi.size() < MassimeParole)
        Casi += Parola(Righe).toUtf8();
    // Split by itself: no case loses or gains a letter.
    for (const QByteArray& Caso : Casi) {
        const QString Testo = QString::fromUtf8(Caso);
        for (const bool AllUltimo : {false, true})
            Pretendi(DividiCaso(Testo, AllUltimo).join(u';') == Testo);
    }
    try {
        const RigaComando Letta = LeggiRiga(Parole);
        for (auto Data = Letta.Date.begin(); Data != Letta.Date.end(); ++Data)
            Pretendi(Parole.contains(ParolaDi(Data.key())));
        Pretendi(Letta.Valori.size() + 1 + Letta.Date.size() <= Parole.size() + 1);
    } catch (const ErroreUso& Sbaglio) {
        Pretendi(!Sbaglio.Testo.isEmpty());
    }
    QByteArray Uscita;
    QByteArray Guasti;
    qsizetype Prossima = 0;
    const int Stato = EseguiCli(
        QStringList{u"--programma"_s, CartellaCostruita(), u"--utente"_s, CartellaDiLavoro()} + Parole,
        [&] { return Prossima < Casi.size() ? Casi[Prossima++] + "" : QByteArray(); },
        [&](const QByteArray& Testo) { Uscita += Testo; }, [&](const QByteArray& Testo) { Guasti += Testo; });
    Pretendi(Stato >= 0 && Stato <= 2);
    Pretendi(Stato != 2 || !Guasti.isEmpty());
    Pretendi(Stato == 0 || !Guasti.isEmpty() || !Uscita.isEmpty());
    // The answers of --batch stand beside their cases.
    if (Stato == 0 && Parole.contains(u"--batch") && Prossima > 0)
        Pretendi(Uscita.count('\n') == Casi.size());
    Pretendi(QString::fromUtf8(Uscita).toUtf8() == Uscita);
    // The next call finds the session of its own.
    QDir::setCurrent(DaDove);
    sessione::PercorsoProg = CartellaCostruita();
    for (const QString& Nome : QDir(CartellaDiLavoro() + u"riga"_s).entryList(QDir::Files | QDir::Hidden))
        QFile::remove(CartellaDiLavoro() + u"riga/"_s + Nome);
}

}  // namespace

BERSAGLIO(fuzz_cli, Prova);
