#include "print/modEsporta.h"

#include "core/modErrori.h"
#include "core/posti.h"
#include "core/sessione.h"
#include "platform/base/errore.h"
#include "platform/system/file.h"
#include "platform/system/messaggi.h"
#include "platform/system/percorsi.h"
#include "platform/system/permessi.h"
#include "print/modStampe.h"
#include "print/writers/esportazione.h"
#include "print/writers/scrittorertf.h"

#include <QCryptographicHash>
#include <QHash>

#include <functional>

using namespace Qt::StringLiterals;

namespace {

/// What an action failed with.
std::optional<Errore> Guasto(const std::function<void()>& Azione)
{
    try {
        Azione();
        return std::nullopt;
    } catch (...) {
        return ErroreCorrente();
    }
}

QString TitoloDi(int Tipo, const QString& Stelo)
{
    return TipoDi(Tipo).Nome.toString() + u" - "_s + Stelo;
}

/// As tight as on its page: a file has no pages of its own before it is opened.
QByteArray Esportata(const Superficie& vp, FormatoEsportazione Formato, const QString& Titolo,
                     const Carta& Foglio)
{
    const Documento& Composto = vp.Contenuto();
    const Strettezza Quanto = Composto.UnaPagina && vp.Stringitore ? vp.Stringitore(Composto) : Strettezza();
    if (Quanto == Composto.Stretta)
        return DocumentoEsportato(Composto, Formato, Titolo, Foglio);
    Documento Stretto = Composto;
    Stretto.Stretta = Quanto;
    return DocumentoEsportato(Stretto, Formato, Titolo, Foglio);
}

QByteArray Impronta(const QByteArray& Byte)
{
    return QCryptographicHash::hash(Byte, QCryptographicHash::Sha256);
}

/// What this program has last written into each file: notes of one name have one file.
QHash<QString, QByteArray>& ImpronteScritte()
{
    static QHash<QString, QByteArray> Scritte;
    return Scritte;
}

void Esporta(const Superficie& vp, const QString& Titolo, const Carta& Foglio)
{
    const QByteArray Byte = Esportata(vp, FormatoEsportazione(vp.ExportFormat), Titolo, Foglio);
    (void)ScriviEsportato(vp.ExportFile, Byte);
    ImpronteScritte()[vp.ExportFile] = Impronta(Byte);
}

}  // namespace

void PreparaEsportazione(Superficie& vp, const QString& Stelo, const std::optional<QString>& Invio)
{
    if (!Invio) {
        vp.ExportFile = FileDocumento(Stelo);
        vp.ExportFormat = int(FormatoEsportazione::Word);
        return;
    }
    if (Invio->isEmpty()) {
        MsgErrore(u"Non trovato percorso cartella Parcelle PV2!\n"
                  u"Verificare le impostazioni nel pannello 'Personalizzazione' di PV2"_s);
        return;
    }
    vp.ExportFile = Barra(*Invio) + Stelo + u".htm"_s;
    vp.ExportFormat = int(FormatoEsportazione::Html);
}

std::optional<Errore> AnteprimaConEsportazione(Superficie& vp, const Parcella& Nota, int Tipo,
                                               const QString& Stelo, const std::optional<QString>& Invio,
                                               const Carta& Foglio)
{
    if (!Nota.Pronta)
        return std::nullopt;
    const auto SenzaCartella = Guasto([] { CreaCartellaDiUtente(Barra(sessione::UserFolder) + u"doc"_s); });
    PreparaEsportazione(vp, Stelo, Invio);
    if (!Anteprima(vp, Nota, Tipo) || vp.ExportFile.isEmpty())
        return std::nullopt;
    auto Esito = Guasto([&] { Esporta(vp, TitoloDi(Tipo, Stelo), Foglio); });
    if (Esito && SenzaCartella && !Invio)
        Esito = SenzaCartella;  // the reason of the other one
    if (Esito && Invio)
        GestioneErrori(*Esito);
    return Esito;
}

bool EsportazioneAllaPari(const Superficie& vp, const Parcella& Nota, int Tipo, const QString& Stelo,
                          const Carta& Foglio)
{
    const QString File = FileDocumento(Stelo);
    const QByteArray Scritta = ImpronteScritte().value(File);
    if (Scritta.isEmpty() || !EsisteFile(File))
        return false;
    bool AllaPari = false;
    // What cannot be composed or read is told where it is brought up to date.
    (void)Guasto([&] {
        Superficie Ora;
        Ora.Stringitore = vp.Stringitore;
        if (!Anteprima(Ora, Nota, Tipo))
            return;
        const QByteArray Byte = Esportata(Ora, FormatoEsportazione::Word, TitoloDi(Tipo, Stelo), Foglio);
        if (Impronta(Byte) != Scritta)
            return;
        // Of two programs neither knows what the other one has composed.
        const QByteArray Presente = LeggiFile(File);
        AllaPari = Presente == Byte || !EScrittoDaNoi(Presente);
    });
    return AllaPari;
}
