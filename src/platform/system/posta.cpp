#include "platform/system/posta.h"

#include "platform/system/shell.h"

#include <QStringList>

#include <utility>

using namespace Qt::StringLiterals;

namespace {

const QString Comando = u"xdg-email"_s;

/// A text as an argument: the scripts behind mail programs read a backslash as a command, and no argument
/// holds other controls than line breaks.
QString Argomento(const QString& Testo)
{
    QString Pulito;
    for (const QChar C : Testo)
        if (C == u'\n' || C.category() != QChar::Other_Control)
            Pulito += C == u'\\' ? QChar(u'/') : C;
    return Pulito;
}

/// An option with its text; an empty one is an error to the mail program.
QStringList Opzione(const QString& Nome, const QString& Testo)
{
    if (Testo.isEmpty())
        return {};
    return {Nome, Argomento(Testo)};
}

}  // namespace

QString ImpedimentoPosta(const QString& Allegato)
{
    if (TrovaProgramma(Comando).isEmpty())
        return u"Su questo computer manca "_s + Comando + u", che apre il programma di posta."_s;
    // Mail programs part what they are handed at these signs, and would attach nothing.
    if (Allegato.contains(u'\'') || Allegato.contains(u','))
        return u"Il percorso dei dati dell'utente contiene un apostrofo o una virgola, che i programmi di "
               u"posta non accettano."_s;
    return {};
}

bool ApriMessaggio(const MessaggioNuovo& Nuovo, std::function<void(int Esito)> AllaFine)
{
    QStringList Argomenti =
        QStringList{u"--utf8"_s} + Opzione(u"--subject"_s, Nuovo.Oggetto) + Opzione(u"--body"_s, Nuovo.Testo);
    if (!Nuovo.Allegato.isEmpty())
        Argomenti += {u"--attach"_s, Nuovo.Allegato};
    if (!Nuovo.Indirizzo.isEmpty())
        Argomenti += Nuovo.Indirizzo;
    const QString Programma = TrovaProgramma(Comando);
    return !Programma.isEmpty() && SeguiProgramma(Programma, Argomenti, std::move(AllaFine)) == 0;
}
