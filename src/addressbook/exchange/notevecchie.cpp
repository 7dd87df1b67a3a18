#include "addressbook/exchange/notevecchie.h"

#include "addressbook/exchange/archivionativo.h"
#include "addressbook/exchange/tabellaestranea.h"
#include "platform/base/errore.h"
#include "platform/base/regionale.h"
#include "platform/system/cartelle.h"
#include "platform/system/file.h"
#include "platform/system/orologio.h"
#include "platform/system/percorsi.h"

#include <QFileInfo>

#include <algorithm>
#include <cstdlib>

using namespace Qt::StringLiterals;

namespace {

/// What stands below a folder: paths of the databases, from it on, in the order of a reader, and what was
/// not looked into.
struct Trovate
{
    QStringList File;
    QList<EsitoNota> Saltate;
};

/// A name that is no text, as old disks and foreign zips leave them.
constexpr QStringView NomeIlleggibile =
    u"il nome ha lettere che non si leggono: rinominare e ripetere la copia";

bool ENomeDiDatabase(const QString& Nome)
{
    return Nome.endsWith(u".mdb", Qt::CaseInsensitive) || Nome.endsWith(u".accdb", Qt::CaseInsensitive);
}

[[noreturn]] void TroppiFile(const QString& Radice)
{
    RifiutaFile(u"Nella cartella \"%1\" ci sono più di %2 parcelle: copiare una alla volta le cartelle che "
                "contiene."_s.arg(Radice, Format(notevecchie::MassimoFile, u"#,##0")));
}

/// A folder without its links; empty where it is not there.
QString CartellaVera(const QString& Cartella)
{
    return QFileInfo(Cartella).canonicalFilePath();
}

/// @param Copie where the copies go: what lies there is no note to be copied
void Raccogli(const QString& Radice, const QString& Sotto, int Fondo, const QString& Copie,
              const std::function<bool()>& Ancora, Trovate& Tutte)
{
    if (!Ancora())
        throw Interrotto();
    const auto Salta = [&](const QString& Cartella, const QString& Perche) {
        Tutte.Saltate.append({.Nome = Cartella, .Detto = Perche, .Cartella = true});
    };
    QStringList Dentro;
    const qsizetype Prima = Tutte.File.size();
    try {
        (void)ScorriCartella(
            Radice + Sotto,
            [&](VoceCartella&& Voce) {
                if (Voce.Cartella && Voce.Collegamento)
                    Salta(Barra(Sotto + Voce.Nome), u"collegamento a un'altra cartella"_s);
                else if (Voce.Cartella && !Copie.isEmpty() &&
                         CartellaVera(Radice + Sotto + Voce.Nome) == Copie)
                    Salta(Barra(Sotto + Voce.Nome), u"è quella delle copie"_s);
                else if (Voce.Cartella)
                    Dentro.append(Barra(Sotto + Voce.Nome));
                else if (ENomeDiDatabase(Voce.Nome))
                    Tutte.File.append(Sotto + Voce.Nome);
                if (Tutte.File.size() > notevecchie::MassimoFile)
                    TroppiFile(Radice);
                return true;
            },
            [&](const VoceCartella& Voce) {
                if (Voce.Cartella)
                    Salta(Barra(Sotto + Voce.Nome), NomeIlleggibile.toString());
                else if (ENomeDiDatabase(Voce.Nome))
                    Tutte.Saltate.append({.Nome = Sotto + Voce.Nome, .Detto = NomeIlleggibile.toString()});
            });
    } catch (const Errore& Guasto) {
        if (Sotto.isEmpty() || Guasto.Numero == NumeroFileRifiutato)
            throw;
        Salta(Sotto, Guasto.Descrizione);
    }
    std::sort(Tutte.File.begin() + Prima, Tutte.File.end());
    Dentro.sort();
    for (const QString& Cartella : std::as_const(Dentro)) {
        if (Fondo < notevecchie::MassimoFondo)
            Raccogli(Radice, Cartella, Fondo + 1, Copie, Ancora, Tutte);
        else
            Salta(Cartella, u"oltre %1 cartelle una dentro l'altra"_s.arg(notevecchie::MassimoFondo));
    }
}

/// A copy as it was made. One that somebody has saved meanwhile is his, and no copy any more.
struct Fatta
{
    explicit Fatta(const QString& DiChe) : File(DiChe), Byte(QFileInfo(File).size()), Quando(DataFile(File))
    {}
    [[nodiscard]] bool ComeAllora() const
    {
        return EsisteFile(File) && QFileInfo(File).size() == Byte && DataFile(File) == Quando;
    }

    QString File;
    qint64 Byte;
    QDateTime Quando;
};

/// A note of this program is called ".mdb".
QString NomeNuovo(const QString& Nome)
{
    return Nome.endsWith(u".accdb", Qt::CaseInsensitive) ? Nome.chopped(6) + u".mdb"_s : Nome;
}

/// The copies of one run. Whoever destroys it before it is finished takes them back, and the folders made for
/// them.
class Copiatura
{
public:
    /// @param Come gets what became of them where it is not finished
    Copiatura(const QString& Da, const QString& A, const std::function<bool()>& Prosegui, CopiaFermata& Come)
        : Origine(Da), Arrivo(A), Ancora(Prosegui), Fermata(Come)
    {}
    ~Copiatura()
    {
        for (const Fatta& Copia : std::as_const(Copie)) {
            const bool Sua = Copia.ComeAllora();
            if (Sua)
                ScartaFile(Copia.File);
            if (!EsisteFile(Copia.File))
                ++Fermata.Tolte;
            else
                (Sua ? Fermata.Rimaste : Fermata.Salvate).append(Copia.File);
        }
        // One that somebody has put a file into stays.
        while (!Cartelle.isEmpty())
            ScartaCartella(Cartelle.takeLast());
    }
    Copiatura(const Copiatura&) = delete;
    Copiatura& operator=(const Copiatura&) = delete;

    /// What has become of a note. What is wrong with it alone stands there.
    /// @throws Interrotto when it is not to go on; Errore where there is no room for any other
    [[nodiscard]] EsitoNota Copia(const QString& Nome)
    {
        EsitoNota Esito{.Nome = Nome, .Detto = {}};
        try {
            const QString Nuovo = Arrivo + NomeNuovo(Nome);
            if (EsisteFile(TrovaFile(Nuovo)))
                Esito.Detto = u"c'è già, resta com'è"_s;
            else if (!EArchivio(Origine + Nome))
                Esito.Detto = u"non è una parcella"_s;
            else
                Scrivi(Nuovo, Esito);
        } catch (const Errore& Guasto) {
            Esito.Detto = Guasto.Descrizione;
            if (Guasto.Numero == errori::DiscoPieno || Guasto.Numero == errori::SpazioDatabase)
                throw;
        }
        return Esito;
    }
    /// The copies stay.
    void Concludi()
    {
        Copie.clear();
        Cartelle.clear();
    }

private:
    void Scrivi(const QString& Nuovo, EsitoNota& Esito)
    {
        FaiCartella(CartellaFile(Nuovo));
        const QString Vecchio = Origine + Esito.Nome;
        // Whoever is killed behind it leaves a copy with its date: the next time it "is there already".
        const QDateTime Quando = DataFile(Vecchio);
        const auto Fuori = ScriviNativo(
            Vecchio, Nuovo, [this](qint64) { return Ancora(); }, Lettori::Cartella, Quando);
        if (!Fuori)
            throw Interrotto();
        Copie.append(Fatta(Nuovo));
        Esito.Copiata = true;
        QStringList Detti = *Fuori;
        Detti.removeIf(TabellaDiSistema);
        // Shares with an owner of their own let nobody set a date; an old disk knows every second one.
        constexpr qint64 Grana = 2;
        if (std::abs(DataFile(Nuovo).secsTo(Quando)) > Grana)
            Detti.append(u"la data del file, che è quella della copia"_s);
        Esito.Detto = Detti.join(u"; "_s);
    }
    void FaiCartella(const QString& Cartella)
    {
        QStringList Mancanti;
        for (QString Una = Barra(Cartella); !Una.isEmpty() && !EsisteCartella(Una);
             Una = CartellaSuperiore(Una))
            Mancanti.prepend(Una);
        Cartelle += Mancanti;
        CreaCartellaDiUtente(Cartella);
    }

    QString Origine;
    QString Arrivo;
    std::function<bool()> Ancora;
    CopiaFermata& Fermata;
    QList<Fatta> Copie;
    QStringList Cartelle;  ///< made for the copies, the outer ones first
};

}  // namespace

std::optional<QList<EsitoNota>> CopiaNote(const QString& Da, const QString& A,
                                          const std::function<bool(int, int)>& Prosegui,
                                          CopiaFermata* Fermata)
{
    const QString Origine = Barra(PercorsoIntero(Da));
    const QString Arrivo = Barra(PercorsoIntero(A));
    const bool Stessa = !CartellaVera(Origine).isEmpty() && CartellaVera(Origine) == CartellaVera(Arrivo);
    if (Stessa || PercorsoNativo(Origine) == PercorsoNativo(Arrivo))
        RifiutaFile(u"Le copie andrebbero nella cartella delle vecchie parcelle: sceglierne un'altra."_s);
    CopiaFermata Nessuna;
    CopiaFermata& Come = Fermata ? *Fermata : Nessuna;
    Come = {};
    try {
        Trovate Sotto;
        Raccogli(
            Origine, QString(), 0, CartellaVera(Arrivo), [&] { return !Prosegui || Prosegui(0, 0); }, Sotto);
        const QStringList& File = Sotto.File;
        if (File.isEmpty() && Sotto.Saltate.isEmpty())
            RifiutaFile(
                u"Nella cartella \"%1\" non ci sono parcelle (file .mdb): sceglierne un'altra."_s.arg(Da));
        QList<EsitoNota> Esiti;
        const auto Ancora = [&] { return !Prosegui || Prosegui(int(Esiti.size()), int(File.size())); };
        Copiatura Copie(Origine, Arrivo, Ancora, Come);
        for (const QString& Nome : File) {
            if (!Ancora())
                return std::nullopt;
            Esiti.append(Copie.Copia(Nome));
        }
        Copie.Concludi();
        return Esiti + Sotto.Saltate;
    } catch (const Interrotto&) {
        return std::nullopt;
    }
}

ContoNote Conta(const QList<EsitoNota>& Esiti)
{
    ContoNote Conto;
    for (const EsitoNota& Esito : Esiti) {
        ++(Esito.Cartella ? Conto.CartelleSaltate : Conto.File);
        Conto.Copiate += Esito.Copiata;
    }
    return Conto;
}

QString FraseNote(const ContoNote& Conto)
{
    const QString Copiate =
        u"Parcelle copiate: %1 su %2"_s.arg(Format(Conto.Copiate, u"#,##0"), Format(Conto.File, u"#,##0"));
    if (Conto.CartelleSaltate == 0)
        return Copiate + u'.';
    return Copiate +
           (Conto.CartelleSaltate == 1
                ? u"; una cartella non è stata guardata."_s
                : u"; %1 cartelle non sono state guardate."_s.arg(Format(Conto.CartelleSaltate, u"#,##0")));
}

QString FraseFermata(const CopiaFermata& Come)
{
    const auto Quante = [](qsizetype N, const QString& Una, const QString& Tante) {
        return N == 1 ? Una : Tante.arg(Format(double(N), u"#,##0"));
    };
    QStringList Righe{u"La copia è stata interrotta"_s};
    Righe[0] += Come.Tolte == 0 ? u"."_s
                                : Quante(Come.Tolte, u": la parcella già copiata è stata tolta."_s,
                                         u": le %1 parcelle già copiate sono state tolte."_s);
    const auto Elenca = [&](const QStringList& File, const QString& Frase) {
        constexpr qsizetype AlPiu = 5;
        if (!File.isEmpty())
            Righe.append(Frase + u'\n' + File.first(std::min(AlPiu, File.size())).join(u'\n') +
                         (File.size() > AlPiu ? u"\n..."_s : QString()));
    };
    Elenca(Come.Salvate, Quante(Come.Salvate.size(), u"Una resta, perché è stata salvata intanto:"_s,
                                u"%1 restano, perché sono state salvate intanto:"_s));
    Elenca(Come.Rimaste, Quante(Come.Rimaste.size(), u"Una non si è potuta togliere:"_s,
                                u"%1 non si sono potute togliere:"_s));
    return Righe.join(u'\n');
}

QString ResocontoNote(const QString& Da, const QString& A, const QList<EsitoNota>& Esiti)
{
    const ContoNote Conto = Conta(Esiti);
    QStringList Righe{u"Copia delle vecchie parcelle del "_s + Adesso().toString(u"dd/MM/yyyy HH:mm"),
                      u"Da: "_s + Da,
                      u"In: "_s + A,
                      QString(),
                      u"Copiate: "_s + Format(Conto.Copiate, u"#,##0") + u" di "_s +
                          Format(Conto.File, u"#,##0"),
                      u"I file d'origine sono rimasti come erano."_s,
                      QString()};
    for (const EsitoNota& Esito : Esiti) {
        const QString Come = Esito.Cartella  ? u": cartella non guardata"_s
                             : Esito.Copiata ? u": copiata"_s
                                             : u": non copiata"_s;
        Righe.append(Esito.Nome + Come +
                     (Esito.Detto.isEmpty()
                          ? QString()
                          : (Esito.Copiata ? u"; tralasciati: "_s : u", "_s) + Esito.Detto));
    }
    return Righe.join(u'\n') + u'\n';
}
