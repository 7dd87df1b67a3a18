#include "feenote/modOfferte.h"

#include "core/aperture.h"
#include "feenote/modSpese.h"
#include "platform/base/regionale.h"

#include <QRegularExpression>

#include <algorithm>
#include <array>
#include <span>

using namespace Qt::StringLiterals;

namespace {

// Offices of the civil lists before which nobody advances the lump sum: art. 30 is of the civil process, and
// leaves labour and social security out (L. 319/1958).
constexpr std::array SenzaAnticipazione{
    3,    // tax commission
    5,    //
    6,    // administrative court
    7,    // court of auditors
    9,    // council of state
    10,   // European courts
    11,   // constitutional court
    16,   // arbitration
    103,  // labour
    104,  // social security
    106,  // a writ, no proceeding
    111,  // court of auditors
    114,  // constitutional and European courts
    118,  // mortgages, land registers
    121,  // administrative court
    122,  // council of state
    123,  // tax courts
    124,  //
    125,  // arbitration
    126,  //
};
static_assert(std::ranges::is_sorted(SenzaAnticipazione));

// L. 374/1991, art. 46: up to this value a case before a justice of the peace owes the filing fee alone.
constexpr std::array GiudiciDiPace{1, 13, 101};
constexpr double SoloContributoEuro = 1033.0;

bool SoloContributo(const Parcella& Nota)
{
    const double Valore = Nota.txtImporto.Numero();
    return Valore > 0 && Round(Valore, 2) <= SoloContributoEuro &&
           std::ranges::find(GiudiciDiPace, Nota.IDAutSelezionata()) != GiudiciDiPace.end();
}

/// The words are looked at besides the key, because an archive of tariffs of another make may have another
/// item under it.
bool EVoce(const QVariant& IDDir, const QVariant& Descr, VoceDiLegge Voce)
{
    static constexpr std::array DelContributo{QStringView(u"contribut")};
    static constexpr std::array DellAnticipazione{QStringView(u"anticip"), QStringView(u"notific"),
                                                  QStringView(u"art. 30")};
    const std::span<const QStringView> Parole =
        Voce == VoceDiLegge::Contributo ? std::span<const QStringView>(DelContributo) : DellAnticipazione;
    return CStr(IDDir) == QString::number(int(Voce)) && std::ranges::any_of(Parole, [&](QStringView Parola) {
               return CStr(Descr).contains(Parola, Qt::CaseInsensitive);
           });
}

/// The name of an item with the amount that it is for: the catalogue names today's between brackets.
QString ConImporto(const QString& Descr, double Euro)
{
    static const QRegularExpression FraParentesi(uR"(\(€ [\d.]+,\d\d\)$)"_s);
    QString Nuova = Descr;
    return Nuova.replace(FraParentesi, u"(€ %1)"_s.arg(Format(Euro, ModelloImporto)));
}

/// An item of the catalogue.
struct VoceSpesa
{
    QString Descr;
    QVariant NVoce, IDDir;
};

VoceSpesa VoceDelCatalogo(const Recordset& Catalogo, VoceDiLegge Cercata)
{
    if (Catalogo.Aperto()) {
        Recordset Righe = Catalogo.Clone();
        for (Righe.MoveFirst(); !Righe.Eof(); Righe.MoveNext())
            if (EVoce(Righe.Value(u"IDDir"_s), Righe.Value(u"DescrDir"_s, QString()), Cercata))
                return {Righe.Value(u"DescrDir"_s, QString()).toString(), Righe.Value(u"NVoce"_s),
                        Righe.Value(u"IDDir"_s)};
    }
    return {Cercata == VoceDiLegge::Contributo ? u"Contributo unificato"_s
                                               : u"Anticipazione forfettaria art. 30 D.P.R. 115/02"_s,
            {},
            {}};
}

}  // namespace

bool AnticipazioneDovuta(const Parcella& Nota)
{
    return Nota.CodCateg == Civile &&
           !std::ranges::binary_search(SenzaAnticipazione, Nota.IDAutSelezionata()) && !SoloContributo(Nota);
}

QString LimiteAnticipazione()
{
    return u"Non fino a € %1 davanti al giudice di pace (L. 374/1991, art. 46)."_s.arg(
        Format(SoloContributoEuro, ModelloImporto));
}

bool SenzaImporti(const Parcella& Nota, int Riga)
{
    return NumeroDi(Nota.xDiritti(Riga, DirImponibile)) == 0 && NumeroDi(Nota.xDiritti(Riga, DirEsente)) == 0;
}

std::optional<ImportoDiLegge> ImportoOfferto(const Parcella& Nota, int Riga, const QDate& Giorno)
{
    if (!EVoce(Nota.xDiritti(Riga, DirIDDir), Nota.xDiritti(Riga, DirDescr), VoceDiLegge::Anticipazione) ||
        !SenzaImporti(Nota, Riga) || !AnticipazioneDovuta(Nota) || !Aperture.AnticipazioneNotifiche)
        return std::nullopt;
    return Aperture.AnticipazioneNotifiche(Giorno);
}

void AccettaImporto(Parcella& Nota, int Riga, const ImportoDiLegge& Importo)
{
    Nota.xDiritti(Riga, DirImponibile) = 0.0;
    Nota.xDiritti(Riga, DirEsente) = Arrotonda2(Importo.Euro);
    Nota.xDiritti(Riga, DirDescr) = ConImporto(CStr(Nota.xDiritti(Riga, DirDescr)), Importo.Euro);
    SetModificata(Nota, true);
}

int PortaSpese(Parcella& Nota, const Recordset& Catalogo, const QList<SpesaDiLegge>& Nuove,
               std::optional<int> Corrente)
{
    // The catalogue may fail: all of it is read before the first line is written.
    QList<VoceSpesa> Voci;
    for (const SpesaDiLegge& Spesa : Nuove)
        Voci.append(VoceDelCatalogo(Catalogo, Spesa.Voce));
    int Prima = -1;
    for (qsizetype i = 0; i < Nuove.size(); ++i) {
        const SpesaDiLegge& Spesa = Nuove[i];
        const int Riga = AddDiritti(Nota, Spesa.Giorno, ConImporto(Voci[i].Descr, Spesa.Euro), u"1"_s,
                                    Voci[i].NVoce, Voci[i].IDDir, Corrente);
        Nota.xDiritti(Riga, DirData) = Format(Spesa.Giorno, ModelloData);
        Nota.xDiritti(Riga, DirEsente) = Arrotonda2(Spesa.Euro);
        Prima = Prima < 0 ? Riga : Prima;
        if (Corrente)
            Corrente = Riga + 1;
    }
    return Prima;
}
