#include "creaschede/testischede.h"

#include "platform/base/errore.h"
#include "platform/base/numerierrore.h"
#include "platform/system/file.h"
#include "platform/system/percorsi.h"

#include <QRegularExpression>
#include <QSet>

using namespace Qt::StringLiterals;

namespace {

constexpr QStringView SegnoGruppo = u"gruppo ";
const auto OgniScheda = u"ogni scheda"_s;
const auto Incerto = u"dubbio"_s;

QString NomeTesti(const QString& Categ, const Tariffe& Dati)
{
    return (Categ == Civile   ? u"civile"_s
            : Categ == Penale ? u"penale"_s
                              : u"stragiudiziale"_s) +
           Dati.Identita.Codice + u".txt"_s;
}

bool HaDubbi(const QString& Categ, const Tariffe& Dati)
{
    return std::ranges::any_of(Dati.Dubbi, [&](const ChiaveImporto& Chiave) {
        return std::ranges::any_of(Dati.Voci[Categ],
                                   [&](const VoceTariffa& Voce) { return Voce.Codice == Chiave.Codice; });
    });
}

/// The groups that give the items of a category their amounts, each with a table of its own.
QSet<QString> GruppiDi(const QString& Categ, const Tariffe& Dati)
{
    QSet<QString> Nomi;
    for (const AutoritaTariffa& Ente : Dati.Enti)
        if (Categ == Civile && Ente.Categ == Categ)
            Nomi.insert(Ente.Gruppo);
    return Nomi;
}

QList<SezioneScheda> Sezioni(const QString& File, const QString& Tutto)
{
    QList<SezioneScheda> Lette;
    int Riga = 0;
    for (const QString& Linea : Tutto.split(u'\n')) {
        ++Riga;
        if (Linea.startsWith(u"= "))
            Lette.append({File, Riga, Linea.mid(2).trimmed(), {}});
        else if (!Lette.isEmpty())
            Lette.last().Testo.append(Linea.trimmed());
        else if (!Linea.trimmed().isEmpty())
            SezioneScheda{File, Riga, {}, {}}.Rifiuta(-1, u"testo fuori da ogni sezione"_s);
    }
    return Lette;
}

/// Puts the sections in their places, each checked against the tariff.
class Ordinatore
{
public:
    Ordinatore(const QString& Categ, const Tariffe& Dati)
        : VociTariffa(Dati.Voci[Categ]), Gruppi(GruppiDi(Categ, Dati)), ConDubbi(HaDubbi(Categ, Dati))
    {}

    void Aggiungi(SezioneScheda Una)
    {
        if (Una.Titolo == OgniScheda)
            AggiungiUnico(Testi.Fondo, std::move(Una));
        else if (Una.Titolo == Incerto)
            AggiungiUnico(Testi.Dubbio, std::move(Una));
        else if (Una.Titolo.startsWith(SegnoGruppo))
            AggiungiGruppo(std::move(Una));
        else
            AggiungiVoce(std::move(Una));
    }

    TestiSchede Finisci(const QString& File) &&
    {
        const SezioneScheda Ovunque{File, 1, {}, {}};
        for (const VoceTariffa& Una : VociTariffa)
            if (!Testi.Voci.contains(Una.Codice))
                Ovunque.Rifiuta(-1,
                                u"manca la scheda della voce %1, %2"_s.arg(Una.Codice).arg(Una.Descrizione));
        for (const QString& Uno : Gruppi)
            if (!Testi.Gruppi.contains(Uno))
                Ovunque.Rifiuta(-1, u"manca il gruppo «%1»"_s.arg(Uno));
        if (Testi.Fondo.Riga == 0)
            Ovunque.Rifiuta(-1, u"manca la sezione «%1»"_s.arg(OgniScheda));
        if ((Testi.Dubbio.Riga != 0) != ConDubbi)
            Ovunque.Rifiuta(-1, ConDubbi ? u"manca la sezione «%1»"_s.arg(Incerto)
                                         : u"nessun importo è in dubbio"_s);
        return std::move(Testi);
    }

private:
    static void AggiungiUnico(SezioneScheda& Posto, SezioneScheda Sezione)
    {
        if (Posto.Riga != 0)
            Sezione.Rifiuta(-1, u"una seconda sezione «%1»"_s.arg(Sezione.Titolo));
        Posto = std::move(Sezione);
    }

    void AggiungiGruppo(SezioneScheda Una)
    {
        const qsizetype Segno = Una.Titolo.indexOf(u':');
        if (Segno < 0)
            Una.Rifiuta(-1, u"dopo il nome del gruppo servono i due punti e un titolo"_s);
        const QString Nome = Una.Titolo.left(Segno).mid(SegnoGruppo.size()).trimmed();
        if (!Gruppi.contains(Nome))
            Una.Rifiuta(-1, u"nessuna autorità appartiene al gruppo «%1»"_s.arg(Nome));
        if (Testi.Gruppi.contains(Nome))
            Una.Rifiuta(-1, u"il gruppo «%1» è già descritto"_s.arg(Nome));
        Una.Titolo = Una.Titolo.mid(Segno + 1).trimmed();
        Testi.Gruppi.insert(Nome, Una);
    }

    void AggiungiVoce(SezioneScheda Una)
    {
        static const QRegularExpression Intestazione(u"\\A([0-9]{1,5}) +(.+)\\z"_s);
        const auto Letta = Intestazione.match(Una.Titolo);
        if (!Letta.hasMatch())
            Una.Rifiuta(-1, u"serve il codice di una voce con la sua descrizione"_s);
        const int Codice = Letta.captured(1).toInt();
        const auto Voce = std::ranges::find(VociTariffa, Codice, &VoceTariffa::Codice);
        if (Voce == VociTariffa.end())
            Una.Rifiuta(-1, u"nessuna voce ha il codice %1"_s.arg(Codice));
        Una.Titolo = Letta.captured(2);
        if (Una.Titolo != Voce->Descrizione)
            Una.Rifiuta(-1, u"la voce %1 si chiama «%2»"_s.arg(Codice).arg(Voce->Descrizione));
        if (Testi.Voci.contains(Codice))
            Una.Rifiuta(-1, u"la voce %1 ha già una scheda"_s.arg(Codice));
        Testi.Voci.emplace(Codice, std::move(Una));
    }

    const QList<VoceTariffa> VociTariffa;
    const QSet<QString> Gruppi;
    const bool ConDubbi;
    TestiSchede Testi;
};

}  // namespace

void SezioneScheda::Rifiuta(qsizetype Linea, const QString& Motivo) const
{
    throw Errore(errori::Argomento, u"%1, riga %2: %3"_s.arg(File).arg(Riga + 1 + Linea).arg(Motivo));
}

TestiSchede LeggiTesti(const QString& Cartella, const QString& Categ, const Tariffe& Dati)
{
    const QString File = NomeTesti(Categ, Dati);
    Ordinatore Ordine(Categ, Dati);
    for (SezioneScheda& Una : Sezioni(File, QString::fromUtf8(LeggiFile(Barra(Cartella) + File))))
        Ordine.Aggiungi(std::move(Una));
    return std::move(Ordine).Finisci(File);
}
