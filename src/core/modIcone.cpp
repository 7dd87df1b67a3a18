#include "core/modIcone.h"

#include "core/CIni.h"
#include "core/sessione.h"
#include "platform/system/file.h"
#include "platform/system/percorsi.h"

using namespace Qt::StringLiterals;

namespace {

/// Names of the three keys of an icon, in the order of the columns.
constexpr std::array<QStringView, ColonneIcona> Code{u"", u"_c", u"_i"};

CIni FileIcone()
{
    const QString Nome = u"kr5.ini"_s;
    const QString Programma = TrovaFile(sessione::PercorsoProg + Nome);
    CIni File;
    File.ImpostaFileName(EsisteFile(Programma) ? Programma : TrovaFile(Barra(sessione::UserFolder) + Nome));
    File.ImpostaApplicationKey(u"desktop"_s);
    return File;
}

}  // namespace

void LeggiIconeUtente()
{
    const CIni File = FileIcone();
    IconeUtente.Azzera(ColonneIcona);
    for (int n = 0;; ++n) {
        std::array<QString, ColonneIcona> Valori;
        for (int c = 0; c < ColonneIcona; ++c) {
            Valori[size_t(c)] = File.GetValue(u'L' + QString::number(n) + Code[size_t(c)].toString());
            if (Valori[size_t(c)].isEmpty())
                return;
        }
        const int Riga = IconeUtente.AggiungiRiga();
        for (int c = 0; c < ColonneIcona; ++c)
            IconeUtente(Riga, c) = Valori[size_t(c)];
    }
}

QPoint PostoIcona(int Riga)
{
    constexpr int PrimaX = 136;
    constexpr int PrimaY = 312;
    constexpr int Margine = 32;
    constexpr int Passo = 100;
    constexpr int UltimaX = 600;
    QPoint Posto(PrimaX, PrimaY);
    for (int i = 0; i < Riga; ++i) {
        // The icon that passes the edge is the last of its row: the seventh begins the next one.
        if (Posto.x() > UltimaX)
            Posto = {Margine, Posto.y() + Passo};
        else
            Posto.rx() += Passo;
    }
    return Posto;
}
