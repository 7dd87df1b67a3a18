#include "feenote/windows/inviodocumento.h"

#include "core/modInvii.h"
#include "feenote/modLettera.h"
#include "feenote/modNomiProposti.h"
#include "platform/system/attese.h"
#include "platform/system/esportato.h"
#include "platform/system/messaggi.h"
#include "platform/system/orologio.h"
#include "platform/system/percorsi.h"
#include "platform/system/posta.h"
#include "platform/system/shell.h"

#include <QApplication>
#include <QTimer>

#include <memory>
#include <optional>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

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
                    std::function<void(bool Partito)> Risposto)
{
    const QString Nome = NomeAllegato(Nota, Tipo);
    const QString File = ScriviInvio(Nome + u".pdf"_s, [&](const QString& Percorso) {
        const ClessidraAccesa Attesa;
        ScriviPdf(Percorso, Nome);
    });
    if (const QString Perche = ImpedimentoPosta(File); !Perche.isEmpty()) {
        Risposto(false);
        OffriCartella(Perche, File);
        return;
    }
    // One that still stands, and fails then, has opened nothing either.
    const auto Rispondi = [Detto = std::make_shared<std::optional<bool>>(),
                           Risposto = std::move(Risposto)](bool Bene) {
        if (*Detto == Bene || *Detto == false)
            return;
        *Detto = Bene;
        Risposto(Bene);
    };
    const auto AllaFine = [File, Rispondi, Avviata = Adesso()](int Esito) {
        if (Esito == 0) {
            Rispondi(true);
        } else if (AncoraAtteso(Avviata)) {
            Rispondi(false);
            OffriQuandoSiPuo(u"Il programma di posta non si è aperto (codice %1)."_s.arg(Esito), File);
        }
    };
    const Lettera Scritta = LetteraDi(Nota, Tipo);
    if (!Scritta.Escluso.isEmpty())
        MsgBox(Scritta.Escluso, vbOKOnly + vbInformation, TitoloAvvertenza.toString());
    if (ApriMessaggio({Scritta.Indirizzo, Scritta.Oggetto, Scritta.Testo, File}, AllaFine)) {
        QTimer::singleShot(attese::PostaMs, qApp, [Rispondi] { Rispondi(true); });
    } else {
        Rispondi(false);
        OffriCartella(u"Il programma di posta non si è aperto."_s, File);
    }
}
