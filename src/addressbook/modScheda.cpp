#include "addressbook/modScheda.h"

#include "addressbook/modClienti.h"
#include "addressbook/modRubrica.h"
#include "core/modControlli.h"
#include "platform/base/errore.h"
#include "platform/base/regionale.h"
#include "platform/base/segni.h"
#include "platform/database/valori.h"
#include "platform/system/messaggi.h"

#include <QDateTime>

#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

namespace {

struct NomeTipo
{
    QStringView Nome;
    int Codice;
};

constexpr std::array NomiTipi{
    NomeTipo{u"Boolean", 1},   NomeTipo{u"Byte", 2},     NomeTipo{u"Integer", 3}, NomeTipo{u"Long", 4},
    NomeTipo{u"Counter", 4},   NomeTipo{u"Currency", 5}, NomeTipo{u"Single", 6},  NomeTipo{u"Double", 7},
    NomeTipo{u"Date/Time", 8}, NomeTipo{u"Text", 10},    NomeTipo{u"Binary", 11}, NomeTipo{u"Memo", 12},
};

struct LarghezzaTipo
{
    int Codice;
    int Twip;
};

constexpr int LarghezzaTesto = 3250;
constexpr std::array Larghezze{
    LarghezzaTipo{1, 850},  LarghezzaTipo{2, 650},  LarghezzaTipo{3, 900},  LarghezzaTipo{4, 1100},
    LarghezzaTipo{5, 1800}, LarghezzaTipo{6, 1800}, LarghezzaTipo{7, 2200}, LarghezzaTipo{8, 2000},
};

const QString Nominativo = u"Nominativo"_s;
const QString Controp = u"Controp"_s;

[[noreturn]] void Rifiuta(const Campo& Colonna)
{
    throw Errore(errori::TipoDelValore, DescrizioneErrore(errori::TipoDelValore) + u": "_s + Colonna.Name);
}

/// A day, with separators or as 6 or 8 digits.
std::optional<QDate> LeggiGiorno(QString Testo)
{
    constexpr qsizetype SenzaSecolo = 6;
    constexpr qsizetype ConSecolo = 8;
    if ((Testo.size() == SenzaSecolo || Testo.size() == ConSecolo) && SoloCifre(Testo))
        Testo.insert(4, u'/').insert(2, u'/');
    return LeggiData(Testo);
}

std::optional<QTime> LeggiOra(QString Testo)
{
    Testo.replace(u'.', u':');
    for (const QString& Forma : {u"H:m:s"_s, u"H:m"_s})
        if (const QTime Letta = QTime::fromString(Testo, Forma); Letta.isValid())
            return Letta;
    return std::nullopt;
}

QVariant DataDa(const Campo& Colonna, const QString& Testo)
{
    const qsizetype Spazio = Testo.indexOf(u' ');
    const auto Giorno = LeggiGiorno(Spazio < 0 ? Testo : Testo.left(Spazio));
    if (!Giorno)
        Rifiuta(Colonna);
    if (Spazio < 0)
        return *Giorno;
    const auto Ora = LeggiOra(Testo.mid(Spazio + 1).trimmed());
    if (!Ora)
        Rifiuta(Colonna);
    return QDateTime(*Giorno, *Ora);
}

bool LogicoDa(const Campo& Colonna, const QString& Testo)
{
    const auto E = [&Testo](QStringView Parola) { return Testo.compare(Parola, Qt::CaseInsensitive) == 0; };
    if (E(u"Sì") || E(u"Si") || E(u"Vero") || E(u"1") || E(u"-1"))
        return true;
    if (E(u"No") || E(u"Falso") || E(u"0"))
        return false;
    Rifiuta(Colonna);
}

/// A name as far as `Controp` has room for it.
QString PerControp(const Campo& Colonna, const QString& Nome)
{
    return Colonna.Type == TipoCampo::Testo ? Nome.left(Colonna.Size) : Nome;
}

/// True when `Controp` says nothing of its own: it goes with the name.
bool ContropSegue(const Recordset& Righe, const Campo& Colonna)
{
    const QString Nome = CStr(Righe.Value(Controp)).trimmed();
    return Nome.isEmpty() || Nome == PerControp(Colonna, CStr(Righe.Value(Nominativo))).trimmed();
}

/// A VAT number that begins with another country's letters: its digits go by another rule.
bool Straniera(const QString& Testo)
{
    return Testo.size() > 2 && Testo[0].isLetter() && Testo[1].isLetter() &&
           !Testo.startsWith(u"IT", Qt::CaseInsensitive);
}

bool LettereOCifre(const QString& Testo)
{
    return std::ranges::all_of(Testo, [](QChar C) {
        return C.unicode() < 0x80 && C.isLetterOrNumber();  // of the alphabet alone
    });
}

bool CodiceDestinatario(const QString& Testo)
{
    constexpr qsizetype DiUfficio = 6;
    constexpr qsizetype DiPrivato = 7;
    return (Testo.size() == DiUfficio || Testo.size() == DiPrivato) && LettereOCifre(Testo);
}

bool DueLettere(const QString& Testo)
{
    return Testo.size() == 2 && LettereOCifre(Testo) && Testo[0].isLetter() && Testo[1].isLetter();
}

}  // namespace

int GetFieldType(const QString& Nome)
{
    const auto Trovato = std::ranges::find(NomiTipi, Nome, &NomeTipo::Nome);
    return Trovato != NomiTipi.end() ? Trovato->Codice : 0;
}

int GetFieldWidth(int Tipo)
{
    const auto Trovata = std::ranges::find(Larghezze, Tipo, &LarghezzaTipo::Codice);
    return Trovata != Larghezze.end() ? Trovata->Twip : LarghezzaTesto;
}

QString TestoScheda(const QVariant& Valore)
{
    if (Valore.typeId() == QMetaType::Bool)
        return Valore.toBool() ? u"Sì"_s : u"No"_s;
    if (Valore.typeId() == QMetaType::QDateTime)
        return CStr(Valore) + u' ' + Valore.toDateTime().time().toString(u"HH:mm:ss"_s);
    return CStr(Valore);
}

QVariant ValoreScheda(const Campo& Colonna, const QString& Testo)
{
    if (EDiTesto(Colonna.Type))
        return PerColonna(Colonna, Testo);
    const QString Scritto = Testo.trimmed();
    if (Colonna.Type == TipoCampo::Booleano)
        return !Scritto.isEmpty() && LogicoDa(Colonna, Scritto);
    if (Scritto.isEmpty())
        return {};
    return Colonna.Type == TipoCampo::Data ? DataDa(Colonna, Scritto) : PerColonna(Colonna, Scritto);
}

void ScriviScheda(Recordset& Righe, const Campo& Colonna, const QString& Testo)
{
    const QVariant Valore = ValoreScheda(Colonna, Testo);
    const bool Nome = Colonna.Name.compare(Nominativo, Qt::CaseInsensitive) == 0;
    const QList<Campo> Campi = Righe.Campi();
    const Campo* Parte = Nome ? TrovaCampo(Campi, Controp) : nullptr;
    const bool Segue = Parte && ContropSegue(Righe, *Parte);
    Righe.ImpostaValue(Colonna.Name, Valore);
    if (Segue)
        Righe.ImpostaValue(Controp, PerControp(*Parte, CStr(Valore)));
}

const Campo* TrovaCampo(const QList<Campo>& Campi, const QString& Nome)
{
    const auto Trovato = std::ranges::find_if(Campi, [&Nome](const Campo& Colonna) {
        return Colonna.Name.compare(Nome, Qt::CaseInsensitive) == 0;
    });
    return Trovato != Campi.end() ? &*Trovato : nullptr;
}

QString AvvisoScheda(const QString& Campo, const QString& Testo)
{
    const auto E = [&Campo](QStringView Nome) { return Campo.compare(Nome, Qt::CaseInsensitive) == 0; };
    if (E(Nominativo))
        return Testo.trimmed().isEmpty() ? u"senza nominativo: non si potrà scegliere"_s : QString();
    if (Testo.trimmed().isEmpty())
        return {};
    if (E(u"CodFis") && !CodiceFiscaleTorna(Testo))
        return u"Il codice fiscale non torna: controllare le cifre"_s;
    if (E(u"PIva") && !Straniera(Testo.trimmed()) && !PartitaIvaTorna(Testo))
        return u"La partita IVA non torna: controllare le cifre"_s;
    if (E(u"CodDestinatario") && !CodiceDestinatario(Testo.trimmed()))
        return u"Il codice destinatario ha 7 lettere o cifre, 6 quello di una pubblica amministrazione"_s;
    if (E(u"Nazione") && !DueLettere(Testo.trimmed()))
        return u"La nazione è una sigla di due lettere: IT, DE, FR..."_s;
    if (E(u"TipoSoggetto") && !SoggettoScritto(Testo))
        return u"Scrivere Persona, Società, PA oppure Estero; vuoto, lo dicono i codici"_s;
    return {};
}

QString DidascaliaScheda(const QString& Modalità)
{
    if (Modalità == u"new")
        return u"Inserimento dati"_s;
    return Modalità == u"edit" ? u"Modifica dati"_s : u"Visualizzazione dati"_s;
}

namespace {

/// The column of the key that a new row still lacks; empty where the user has typed one.
QString ChiaveCheManca(const Recordset& Righe)
{
    constexpr int Nuova = 2;
    if (Righe.EditMode() != Nuova)
        return {};
    const QList<Campo> Campi = Righe.Campi();
    const auto Chiave = std::ranges::find_if(Campi, EChiave);
    return Chiave == Campi.end() || !Righe.Value(Chiave->Name).isNull() ? QString() : Chiave->Name;
}

}  // namespace

bool SalvaScheda(Recordset& Righe, const DatoreDiChiavi& ChiaveNuova)
{
    if (Righe.CambiatoDaAltri() &&
        MsgBox(u"Nel frattempo un altro programma ha cambiato questa scheda.\n"
               "Salvare le proprie modifiche al posto delle sue?"_s,
               vbYesNo | vbQuestion | vbDefaultButton2, TitoloDomanda.toString()) != vbYes)
        return false;
    const QString Chiave = ChiaveCheManca(Righe);
    if (Chiave.isEmpty()) {
        Righe.Update();
        return true;
    }
    // Where the engine gives no key, nobody takes the same one meanwhile.
    try {
        Righe.Update([&] {
            if (const auto Prossima = ChiaveNuova ? ChiaveNuova() : std::nullopt)
                Righe.ImpostaValue(Chiave, *Prossima);
        });
    } catch (const Errore&) {
        if (!ChiaveCheManca(Righe).isEmpty())
            throw;
        Righe.ImpostaValue(Chiave, QVariant());  // the next attempt finds the one that is free then
        throw;
    }
    return true;
}

int ChiediSeSalvareScheda()
{
    return MsgBox(u"Salvare le modifiche alla scheda?"_s, vbYesNoCancel | vbQuestion,
                  TitoloDomanda.toString());
}
