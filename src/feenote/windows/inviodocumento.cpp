#include "feenote/windows/inviodocumento.h"

#include "core/modInvii.h"
#include "feenote/modLettera.h"
#include "feenote/modNomiProposti.h"
#include "platform/system/esportato.h"
#include "platform/system/guasti.h"
#include "platform/system/messaggi.h"
#include "platform/system/orologio.h"
#include "platform/system/percorsi.h"
#include "platform/system/shell.h"

#include <QApplication>
#include <QTimer>

#include <memory>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

const QString Posta = u"xdg-email"_s;

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

QStringList ArgomentiDi(const Lettera& Scritta, const QString& File)
{
    return QStringList{u"--utf8"_s} + Opzione(u"--subject"_s, Scritta.Oggetto) +
           Opzione(u"--body"_s, Scritta.Testo) + QStringList{u"--attach"_s, File} +
           (Scritta.Indirizzo.isEmpty() ? QStringList() : QStringList{Scritta.Indirizzo});
}

void OffriCartella(const QString& Perche, const QString& File)
{
    if (MsgBoxPulsanti(Perche + u"\nIl documento "_s + NomeFile(File) +
                           u" è pronto e si può allegare a mano: aprire la sua cartella?"_s,
                       vbYesNo + vbExclamation, TitoloAvvertenza.toString(),
                       {u"Apri cartella"_s, u"Chiudi"_s}) == vbYes)
        ApriCartellaDi(File);
}

/// The same once no other question waits for its answer.
void OffriQuandoSiPuo(const QString& Perche, const QString& File)
{
    constexpr int AttesaMs = 500;
    if (QApplication::activeModalWidget())
        QTimer::singleShot(AttesaMs, qApp, [Perche, File] { OffriQuandoSiPuo(Perche, File); });
    else
        OffriCartella(Perche, File);
}

/// Some mail programs go on under the one that has started them, and end hours later: what they then say is
/// no answer to this mail.
bool AncoraAtteso(const QDateTime& Avviata)
{
    constexpr int SecondiAttesa = 60;
    return Avviata.secsTo(Adesso()) <= SecondiAttesa;
}

}  // namespace

QString NomeAllegato(const Parcella& Nota, int Tipo)
{
    QString Nome;
    for (const QChar C : NomeDocumentoProposto(Nota, Tipo)) {
        if (C == u'\'')
            Nome += QChar(0x2019);
        else
            Nome += u",;&%#$`=+"_s.contains(C) ? QChar(u' ') : C;
    }
    Nome = Nome.simplified();
    return Nome.isEmpty() ? u"Documento"_s : Nome;
}

void InviaDocumento(const Parcella& Nota, int Tipo,
                    const std::function<void(const QString& File, const QString& Titolo)>& ScriviPdf,
                    std::function<void()> Partito)
{
    const QString Nome = NomeAllegato(Nota, Tipo);
    const QString File = ScriviInvio(Nome + u".pdf"_s, [&](const QString& Percorso) {
        const ClessidraAccesa Attesa;
        ScriviPdf(Percorso, Nome);
    });
    const QString Programma = TrovaProgramma(Posta);
    if (Programma.isEmpty()) {
        OffriCartella(u"Su questo computer manca "_s + Posta + u", che apre il programma di posta."_s, File);
        return;
    }
    // Mail programs part what they are handed at these signs, and would attach nothing.
    if (File.contains(u'\'') || File.contains(u',')) {
        OffriCartella(
            u"Il percorso dei dati dell'utente contiene un apostrofo o una virgola, che i programmi di "
            u"posta non accettano."_s,
            File);
        return;
    }
    const auto UnaVolta = [Fatto = std::make_shared<bool>(false), Partito = std::move(Partito)](bool Bene) {
        if (!std::exchange(*Fatto, true) && Bene)
            Partito();
    };
    const auto AllaFine = [File, UnaVolta, Avviata = Adesso()](int Esito) {
        UnaVolta(Esito == 0);
        if (Esito != 0 && AncoraAtteso(Avviata))
            OffriQuandoSiPuo(u"Il programma di posta non si è aperto (codice %1)."_s.arg(Esito), File);
    };
    const Lettera Scritta = LetteraDi(Nota, Tipo);
    if (!Scritta.Escluso.isEmpty())
        MsgBox(Scritta.Escluso, vbOKOnly + vbInformation, TitoloAvvertenza.toString());
    if (SeguiProgramma(Programma, ArgomentiDi(Scritta, File), AllaFine) == 0)
        QTimer::singleShot(guasti::AttesaPostaMs, qApp, [UnaVolta] { UnaVolta(true); });
    else
        OffriCartella(u"Il programma di posta non si è aperto."_s, File);
}
