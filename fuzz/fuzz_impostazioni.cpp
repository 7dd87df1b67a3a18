// The settings store: any bytes are its file. Every setting is read or counts as never set, in little memory;
// a key that is written is read back, and the others stay what they were.
#include "fonte.h"

#include "core/impostazioni.h"
#include "core/modAvvio.h"
#include "core/parametri.h"
#include "platform/system/cartelle.h"
#include "platform/system/file.h"
#include "platform/system/impostazioni.h"

#include <QFile>
#include <QMap>

#include <cmath>

using namespace Qt::StringLiterals;

namespace {

QMap<QString, QString> Tutte()
{
    QMap<QString, QString> Lette;
    for (const VoceImpostazione& Voce : VociImpostazioni()) {
        const QString Chiave = Voce.Chiave.toString();
        Lette[Chiave.toLower()] = GetSetting(u"KR5"_s, u"Parametri"_s, Chiave, u"\uFFFFassente"_s);
        Riesce([&] { LeggiInSessione(Voce); });
    }
    return Lette;
}

void Prova(const QByteArray& Dati)
{
    PreparaSessione();
    CreaCartella(CartellaDiLavoro() + u"config/Calcanova"_s);
    const QString File = CartellaDiLavoro() + u"config/Calcanova/KR5.ini"_s;
    // The store is known by its file's size and time: it is new each time.
    QFile::remove(File);
    (void)Posa(u"config/Calcanova/KR5.ini"_s, Dati);

    const QMap<QString, QString> Prima = Tutte();
    // The start reads every key into the session, whatever it says, and stays within what the program reckons
    // with.
    ImpostaVariabili();
    Pretendi(std::isfinite(sessione::CP) && std::isfinite(sessione::IVA) && std::isfinite(sessione::RA));
    for (const QString& Cartella : {sessione::UserFolder, sessione::PercorsoProg})
        Pretendi(!Cartella.contains(QChar(0)));
    (void)AvvisaImpostazioniGuaste();
    AzzeraSessione();
    sessione::PercorsoProg = CartellaCostruita();
    Pretendi(Contenuto(File) == Dati);
    const QString Valore = u"à, \"due\"; @Variant(tre) \\ =%"_s;
    if (!Riesce([&] { SaveSetting(u"KR5"_s, u"Parametri"_s, u"StudioNome"_s, Valore); }))
        return;
    QMap<QString, QString> Dopo = Tutte();
    Pretendi(Dopo[u"studionome"_s] == Valore);
    Dopo[u"studionome"_s] = Prima[u"studionome"_s];
    Pretendi(Dopo == Prima);
}

}  // namespace

BERSAGLIO(fuzz_impostazioni, Prova);
