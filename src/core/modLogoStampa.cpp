#include "core/modLogoStampa.h"

#include "core/modErrori.h"
#include "core/modLogo.h"
#include "core/sessione.h"
#include "platform/system/file.h"

#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

/// Between the margins of a sheet: no logo is wider.
constexpr double LarghezzaMassima = 17.6;

/// The copy that was read last: a document is composed at each change.
struct LogoLetto
{
    QString Impronta;
    QDateTime Scritto;
    QByteArray Png;
};

/// What the user is to know, and the logo that he was told of already.
struct AvvisiLogo
{
    bool DaMostrare = false;
    QString Mostrato;
};

AvvisiLogo& Avvisi()
{
    static AvvisiLogo Unici;
    return Unici;
}

QByteArray Copia()
{
    static LogoLetto Letto;
    const QString& Impronta = sessione::LogoImpronta;
    const QDateTime Scritto = DataFile(logo::File(Impronta));
    // One that could not be read may be whole again within one tick of the disk's clock.
    if (Impronta != Letto.Impronta || Scritto != Letto.Scritto || Letto.Png.isEmpty())
        Letto = {Impronta, Scritto, logo::Leggi(Impronta).value_or(QByteArray())};
    return Letto.Png;
}

Allineamento Posto()
{
    if (sessione::LogoPosto == u"C")
        return Allineamento::Centro;
    return sessione::LogoPosto == u"D" ? Allineamento::Destra : Allineamento::Sinistra;
}

/// @param Voce of the setting that names who bears it
std::optional<FiguraTesta> LogoDi(QStringView Voce)
{
    if (sessione::LogoImpronta.isEmpty() || sessione::LogoPosto.isEmpty() ||
        !sessione::LogoDocumenti.contains(Voce))
        return std::nullopt;
    auto Figura = FiguraDi(Copia(), double(sessione::LogoAltezza), Posto());
    if (Figura)
        Avvisi().Mostrato.clear();
    else
        Avvisi().DaMostrare = Avvisi().Mostrato != sessione::LogoImpronta;
    return Figura;
}

}  // namespace

std::optional<FiguraTesta> LogoDelDocumento(int Tipo)
{
    return LogoDi(QString::number(Tipo));
}

std::optional<FiguraTesta> LogoDelleSchede()
{
    return LogoDi(logo::VoceSchede);
}

std::optional<FiguraTesta> FiguraDi(const QByteArray& Png, double AltezzaCm, Allineamento Dove)
{
    const auto Misure = logo::MisurePng(Png);
    if (!Misure || Misure->Larghezza > logo::PixelLarghezza || Misure->Altezza > logo::PixelAltezza)
        return std::nullopt;
    FiguraTesta Figura{Png, 0.0, std::clamp(AltezzaCm, logo::AltezzaMinima, logo::AltezzaMassima), Dove};
    Figura.LarghezzaCm = Figura.AltezzaCm * Misure->Larghezza / Misure->Altezza;
    if (Figura.LarghezzaCm > LarghezzaMassima) {
        Figura.AltezzaCm *= LarghezzaMassima / Figura.LarghezzaCm;
        Figura.LarghezzaCm = LarghezzaMassima;
    }
    return Figura;
}

void AvvisaLogo()
{
    if (!std::exchange(Avvisi().DaMostrare, false))
        return;
    Avvisi().Mostrato = sessione::LogoImpronta;
    // A garbled fingerprint names no file.
    const QString File = logo::File(sessione::LogoImpronta);
    const QString Quale = File.isEmpty() ? QString() : u" (\"%1\")"_s.arg(File);
    MsgErrore(u"Il logo dello studio%1 manca o è danneggiato: i documenti si stampano senza. "
              u"Sceglierlo di nuovo nelle impostazioni, scheda \"Documenti\"."_s.arg(Quale));
}
