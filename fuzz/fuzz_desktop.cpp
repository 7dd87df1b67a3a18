// What the desktop reads of files that its user may edit: kr5.ini, templates.ini. The first line says which.
#include "fonte.h"

#include "core/modAspetto.h"
#include "core/modIcone.h"
#include "core/sessione.h"
#include "platform/base/tabellarighe.h"
#include "platform/system/file.h"
#include "platform/system/profilo.h"

#include <QDir>
#include <QRegularExpression>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

QStringList Conservati()
{
    return QDir(CartellaDiLavoro()).entryList({u"kr5.ini.guasto*"_s}, QDir::Files);
}

/// True when the file has a part of an icon behind those that were read.
bool OltreLeLette(int Lette)
{
    const QString File = CartellaDiLavoro() + u"kr5.ini"_s;
    static const QRegularExpression Forma(u"^L(\\d{1,9})(_c|_i)?$"_s,
                                          QRegularExpression::CaseInsensitiveOption);
    return std::ranges::any_of(
        ChiaviDelProfilo(InizioDelProfilo(File), u"desktop"_s), [&](const QString& Chiave) {
            const auto Trovata = Forma.match(Chiave);
            return Trovata.hasMatch() && Trovata.captured(1).toInt() >= Lette &&
                   !GetPrivateProfileString(u"desktop"_s, Chiave, {}, 2, File).isEmpty();
        });
}

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
    const bool Oltre = OltreLeLette(Lette.Righe());
    for (const QString& Nome : Conservati())
        QFile::remove(CartellaDiLavoro() + Nome);
    // Written anew they are the same: what was read is trimmed, one line, and of the file's code page.
    if (!ScriviIconeUtente(Lette))
        return;
    const TabellaRighe Ancora = LeggiIcone();
    Pretendi(Ancora.Righe() == Lette.Righe());
    for (int i = 0; i < Lette.Righe(); ++i)
        for (int c = 0; c < ColonneIcona; ++c)
            Pretendi(Ancora(i, c) == Lette(i, c));
    // What the read has passed over goes from the file, and stays beside it.
    Pretendi(!Oltre || std::ranges::any_of(Conservati(), [&](const QString& Nome) {
        return Contenuto(CartellaDiLavoro() + Nome) == Dati;
    }));
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
