#include "addressbook/exchange/rigaimporta.h"

#include "addressbook/exchange/colonneimporta.h"
#include "addressbook/exchange/nazioni.h"
#include "addressbook/modRubrica.h"
#include "addressbook/modScheda.h"
#include "core/modControlli.h"
#include "platform/base/errore.h"
#include "platform/base/paginacodice.h"
#include "platform/base/regionale.h"
#include "platform/base/segni.h"
#include "platform/base/testopiano.h"

#include <QDate>
#include <QMap>
#include <QSet>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

bool Uguali(QStringView A, QStringView B)
{
    return A.compare(B, Qt::CaseInsensitive) == 0;
}

QString SenzaSpazi(QString Testo)
{
    Testo.removeIf([](QChar C) { return C.isSpace(); });
    return Testo;
}

/// A VAT number whose first noughts a spreadsheet has taken for those of a number.
QString ConGliZeri(const QString& Codice)
{
    const QString Intero = Codice.rightJustified(CifrePartitaIva, u'0');
    return SoloCifre(Codice) && Codice.size() < CifrePartitaIva && PartitaIvaTorna(Intero) ? Intero : Codice;
}

/// The provinces whose postal codes begin with a nought, those of Sardinia that have gone too.
bool CapConZero(const QString& Prov)
{
    static const QSet<QString> Sigle{u"RM"_s, u"VT"_s, u"RI"_s, u"LT"_s, u"FR"_s, u"TR"_s, u"PG"_s, u"SS"_s,
                                     u"NU"_s, u"OR"_s, u"CA"_s, u"SU"_s, u"OT"_s, u"OG"_s, u"VS"_s, u"CI"_s};
    return Sigle.contains(Prov.toUpper());
}

/// "1980-01-31", with or without a time, and "31/01/1980 00:00:00" as a card has them: 31/01/1980.
QString DataScritta(const QString& Testo)
{
    constexpr qsizetype Lunga = 10;
    constexpr qsizetype DopoAnno = 4;
    if (Testo.size() >= Lunga && Testo[DopoAnno] == u'-')
        if (const QDate Iso = QDate::fromString(Testo.left(Lunga), Qt::ISODate); Iso.isValid())
            return Format(Iso, ModelloData);
    const QString Ora = Testo.section(u' ', 1);
    const bool Mezzanotte = !Ora.isEmpty() && std::ranges::all_of(Ora, [](QChar C) {
        return C == u'0' || C == u':' || C == u'.';
    });
    return Mezzanotte ? Testo.section(u' ', 0, 0) : Testo;
}

/// The text as its field wants it.
QString PerIlCampo(const Campo& In, const QString& Testo)
{
    const auto E = [&In](QStringView Nome) { return Uguali(In.Name, Nome); };
    if (E(u"CodDestinatario"))
        return SenzaSpazi(Testo).toUpper();
    if (E(u"PIva") || E(u"CodFis"))  // a company's are of one kind
        return ConGliZeri(SenzaSpazi(Testo).toUpper());
    if (E(u"Cap"))
        return SenzaSpazi(Testo);
    if (E(u"Nazione"))
        return SiglaNazione(Testo);
    if (E(u"Prov")) {
        QString Sigla = Testo;
        Sigla.removeIf([](QChar C) { return C == u'(' || C == u')' || C == u'.' || C.isSpace(); });
        return Sigla.size() <= In.Size ? Sigla.toUpper() : Testo;
    }
    return In.Type == TipoCampo::Data ? DataScritta(Testo) : Testo;
}

/// A cell without what is no text; of several lines where its field may have them.
QString Cella(const QString& Testo, bool SuPiuRighe)
{
    const auto Estraneo = [](QChar C) { return C.unicode() < 0x20 || C.unicode() >= 0x7F; };
    QString Pulita = Testo;
    if (std::ranges::any_of(Testo, Estraneo)) {
        Pulita.replace(u"\r\n"_s, u"\n"_s);
        Pulita.replace(u'\r', u'\n');
        Pulita = SenzaControlli(Pulita);
    }
    return SuPiuRighe ? Pulita.trimmed() : Pulita.simplified();
}

}  // namespace

/// The texts of one row by where they go.
struct ComposizioneRighe::Testi
{
    QStringList DeiCampi;
    QMap<QString, QString> Parti;
    QStringList InNote;
    QStringList Avvisi;
};

ComposizioneRighe::ComposizioneRighe(const QStringList& Titoli, const QStringList& Chiavi,
                                     const QList<Campo>& DiArchivio)
{
    const auto Serve = [&](const Campo& Uno) {
        if (EChiave(Uno))
            return false;
        return Chiavi.contains(Uno.Name) || Uguali(Uno.Name, u"Nominativo") || Uguali(Uno.Name, u"Note") ||
               Uguali(Uno.Name, u"Controp") ||
               (Uguali(Uno.Name, u"Indirizzo") && Chiavi.contains(parte::Civico.toString()));
    };
    for (const Campo& Uno : DiArchivio)
        if (Serve(Uno))
            Scritti.append(Uno);
    PostoNome = Posto(u"Nominativo");
    PostoNote = Posto(u"Note");
    PostoControp = Posto(u"Controp");
    const bool HaNome = std::ranges::any_of(Chiavi, [&](const QString& Chiave) {
        return Uguali(Chiave, u"Nominativo") || Chiave == parte::Cognome || Chiave == parte::Nome ||
               Chiave == parte::Organizzazione;
    });
    if (PostoNome < 0)
        RifiutaFile(u"L'archivio non ha la colonna Nominativo: scegliere nelle impostazioni un archivio di "
                    "clienti e controparti."_s);
    if (!HaNome)
        RifiutaFile(u"Nessuna colonna del file va nel nominativo: scegliere quale contiene il nome."_s);
    // The columns of titles that are the notes' own words come first among the notes.
    for (qsizetype i = 0; i < Chiavi.size() && i < Titoli.size(); ++i) {
        if (Chiavi[i].isEmpty())
            continue;
        Colonna Nuova{.DalFile = int(i), .Campo = Posto(Chiavi[i]), .Parte = {}, .Etichetta = {}};
        if (Nuova.Campo < 0)
            Nuova.Parte = Chiavi[i];
        const bool DelleNote = Nuova.Campo >= 0 && Nuova.Campo == PostoNote;
        if (DelleNote && AbbinaColonne({Titoli[i]}, DiArchivio).first() != Chiavi[i])
            Nuova.Etichetta = Titoli[i];
        Colonne.push_back(Nuova);
    }
}

int ComposizioneRighe::Posto(QStringView Nome) const
{
    for (int i = 0; i < Scritti.size(); ++i)
        if (Uguali(Scritti[i].Name, Nome))
            return i;
    return -1;
}

QString ComposizioneRighe::NomeDi(Testi& Pezzi) const
{
    const QString Proprio = Pezzi.DeiCampi[PostoNome];
    const QString Persona =
        (Pezzi.Parti[parte::Cognome.toString()] + u' ' + Pezzi.Parti[parte::Nome.toString()]).simplified();
    const QString Ente = Pezzi.Parti[parte::Organizzazione.toString()];
    QString Nome = !Proprio.isEmpty() ? Proprio : !Persona.isEmpty() ? Persona : Ente;
    if (!Persona.isEmpty() && NomePiano(Persona) != NomePiano(Nome))
        Pezzi.InNote.append(u"Referente: "_s + Persona);
    if (!Ente.isEmpty() && NomePiano(Ente) != NomePiano(Nome))
        Pezzi.InNote.append(u"Organizzazione: "_s + Ente);
    return Nome;
}

/// The value of a field; a text that it cannot hold goes into the notes.
QVariant ComposizioneRighe::ValorePer(const Campo& In, const QString& Testo, Testi& Pezzi) const
{
    if (Testo.isEmpty() && In.Type != TipoCampo::Booleano)
        return {};
    const QString Scritto = PerIlCampo(In, Testo);
    try {
        return ValoreScheda(In, Scritto);
    } catch (const Errore&) {
        const auto Mostrata = ColonnaDi(In);
        const QString Titolo = Mostrata ? Mostrata->Titolo : In.Name;
        const QString Voce = Titolo + (Titolo.endsWith(u'.') ? u" "_s : u": "_s) + Testo;
        if (PostoNote >= 0)
            Pezzi.InNote.append(Voce);
        constexpr qsizetype Breve = 60;
        Pezzi.Avvisi.append((PostoNote >= 0 ? u"nelle note, perché il campo non lo può contenere: "_s
                                            : u"tralasciato, perché il campo non lo può contenere: "_s) +
                            Voce.left(Breve));
        return {};
    }
}

/// The cells of a row, where each of them goes.
ComposizioneRighe::Testi ComposizioneRighe::Raccogli(const QStringList& Celle) const
{
    Testi Pezzi;
    Pezzi.DeiCampi.resize(Scritti.size());
    for (const Colonna& Una : Colonne) {
        const bool DelleNote = Una.Campo >= 0 && Una.Campo == PostoNote;
        const bool Memo = Una.Campo >= 0 && Scritti[Una.Campo].Type == TipoCampo::Memo;
        const QString Testo = Cella(Celle.value(Una.DalFile), Memo);
        if (Testo.isEmpty())
            continue;
        if (Una.Campo < 0)
            Pezzi.Parti[Una.Parte] = (Pezzi.Parti[Una.Parte] + u' ' + Testo).trimmed();
        else if (DelleNote)
            Pezzi.InNote.append(Una.Etichetta.isEmpty() ? Testo : Una.Etichetta + u": "_s + Testo);
        else
            Pezzi.DeiCampi[Una.Campo] = (Pezzi.DeiCampi[Una.Campo] + u' ' + Testo).trimmed();
    }
    if (const int Via = Posto(u"Indirizzo"); Via >= 0 && Pezzi.Parti.contains(parte::Civico.toString()))
        Pezzi.DeiCampi[Via] = (Pezzi.DeiCampi[Via] + u' ' + Pezzi.Parti[parte::Civico.toString()]).trimmed();
    return Pezzi;
}

/// The name as its field holds it; one that is longer stands whole in the notes.
QString ComposizioneRighe::NomeCheEntra(const QString& Nome, Testi& Pezzi) const
{
    const Campo& DelNome = Scritti[PostoNome];
    if (DelNome.Type != TipoCampo::Testo || DelNome.Size <= 0 || Nome.size() <= DelNome.Size)
        return Nome;
    Pezzi.InNote.append(u"Nominativo: "_s + Nome);
    Pezzi.Avvisi.append(u"nominativo accorciato, intero nelle note"_s);
    return Nome.left(DelNome.Size).trimmed();
}

/// A spreadsheet takes a postal code for a number; abroad they have four digits.
void ComposizioneRighe::CompletaCap(QVariantList& Valori) const
{
    constexpr qsizetype CifreCap = 5;
    const int Cap = Posto(u"Cap");
    const int Prov = Posto(u"Prov");
    if (Cap < 0 || Prov < 0 || !CapConZero(Valori[Prov].toString()))
        return;
    const QString Scritto = Valori[Cap].toString();
    if (SoloCifre(Scritto) && Scritto.size() >= 2 && Scritto.size() < CifreCap)
        Valori[Cap] = Scritto.rightJustified(CifreCap, u'0');
}

/// What goes into the notes, as far as their field holds it; none where there is nothing, or no such field.
QVariant ComposizioneRighe::NoteCheEntrano(Testi& Pezzi) const
{
    if (PostoNote < 0 || Pezzi.InNote.isEmpty())
        return {};
    const Campo& Note = Scritti[PostoNote];
    QString Testo = Pezzi.InNote.join(u'\n');
    if (Note.Type == TipoCampo::Testo && Note.Size > 0 && Testo.size() > Note.Size) {
        Testo.truncate(Note.Size);
        Pezzi.Avvisi.append(u"note accorciate: il campo non le può contenere intere"_s);
    }
    return Testo;
}

RigaComposta ComposizioneRighe::Componi(const QStringList& Celle) const
{
    Testi Pezzi = Raccogli(Celle);
    const QString Nome = NomeCheEntra(NomeDi(Pezzi), Pezzi);
    RigaComposta Fatta;
    Fatta.Nominativo = Nome;
    Fatta.Valori.resize(Scritti.size());
    for (int i = 0; i < Scritti.size(); ++i)
        if (i != PostoNome && i != PostoNote)
            Fatta.Valori[i] = ValorePer(Scritti[i], Pezzi.DeiCampi[i], Pezzi);
    if (!Nome.isEmpty())
        Fatta.Valori[PostoNome] = Nome;
    CompletaCap(Fatta.Valori);
    // The name of a counterparty in its notes goes with its own.
    if (PostoControp >= 0 && Pezzi.DeiCampi[PostoControp].isEmpty() && !Nome.isEmpty())
        Fatta.Valori[PostoControp] = ValorePer(Scritti[PostoControp], Nome, Pezzi);
    if (PostoNote >= 0)
        Fatta.Valori[PostoNote] = NoteCheEntrano(Pezzi);
    Fatta.Avvisi = Pezzi.Avvisi;
    return Fatta;
}

QString CodicePiano(const QString& Codice)
{
    constexpr qsizetype ConPaese = 13;
    const QString Piano = SenzaSpazi(Codice).toUpper();
    if (std::ranges::none_of(Piano, [](QChar C) { return C >= u'1' && C <= u'9'; }))
        return {};
    const bool Italiana = Piano.size() == ConPaese && Piano.startsWith(u"IT") && SoloCifre(Piano.mid(2));
    return Italiana ? Piano.mid(2) : Piano;
}

QString NomePiano(const QString& Nome)
{
    return SenzaSpazi(TestoPiano(Nome));
}
