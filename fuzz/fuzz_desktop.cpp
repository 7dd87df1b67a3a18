// What the desktop reads of files that its user may edit: kr5.ini, templates.ini. The first line says which.
#include "fonte.h"

#include "core/modAspetto.h"
#include "core/modIcone.h"
#include "core/sessione.h"
#include "platform/base/tabellarighe.h"
#include "platform/system/file.h"

#include <QDir>

using namespace Qt::StringLiterals;

namespace {

void Icone(const QByteArray& Dati)
{
    (void)Posa(u"kr5.ini"_s, Dati);
    const TabellaRighe Lette = LeggiIcone();
    for (int i = 0; i < Lette.Righe(); ++i) {
        for (int c = 0; c < ColonneIcona; ++c)
            Pretendi(!Lette(i, c).toString().isEmpty());
        (void)FileFigura(Lette(i, IconaFigura).toString());
        (void)ELink(Lette(i, IconaCollegamento).toString());
    }
    // Written anew they are the same: what was read is trimmed, one line, and of the file's code page.
    if (!ScriviIconeUtente(Lette))
        return;
    const TabellaRighe Ancora = LeggiIcone();
    Pretendi(Ancora.Righe() == Lette.Righe());
    for (int i = 0; i < Lette.Righe(); ++i)
        for (int c = 0; c < ColonneIcona; ++c)
            Pretendi(Ancora(i, c) == Lette(i, c));
}

void Modelli(const QByteArray& Dati)
{
    constexpr int Bianco = 0xFFFFFF;
    QDir().mkpath(CartellaDiLavoro() + u"sfondi"_s);
    (void)Posa(u"sfondi/templates.ini"_s, Dati);
    for (const ModelloAspetto& Letto : LeggiModelli()) {
        Pretendi(!Letto.Nome.isEmpty());
        for (const std::optional<int>& Colore : Letto.Colori)
            Pretendi(!Colore || (*Colore >= 0 && *Colore <= Bianco));
        (void)TrovaSfondo(LeggiSfondi(), Letto.Immagine);
    }
}

void Prova(const QByteArray& Dati)
{
    PreparaSessione();
    sessione::PercorsoProg = CartellaDiLavoro();
    const qsizetype Fine = Dati.indexOf('\n');
    const QByteArray Resto = Dati.sliced(Fine + 1);
    if (Dati.startsWith("modelli"))
        Modelli(Resto);
    else
        Icone(Resto);
    sessione::PercorsoProg = CartellaCostruita();
}

}  // namespace

BERSAGLIO(fuzz_desktop, Prova);
