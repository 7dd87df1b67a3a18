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

/// How a document is laid out in a file.
struct Disposizione
{
    Carta Foglio;
    bool UnaPagina = false;
    Strettezza Quanto;

    friend bool operator==(const Disposizione&, const Disposizione&) = default;
};

/// As tight as on its page: a file has no pages of its own before it is opened.
Disposizione DisposizioneDi(const Superficie& vp, const Carta& Foglio)
{
    const Documento& Composto = vp.Contenuto();
    return {Foglio, Composto.UnaPagina,
            Composto.UnaPagina && vp.Stringitore ? vp.Stringitore(Composto) : Strettezza()};
}

QByteArray Esportata(const Documento& Composto, FormatoEsportazione Formato, const QString& Titolo,
                     const Disposizione& Come)
{
    if (Come.Quanto == Composto.Stretta)
        return DocumentoEsportato(Composto, Formato, Titolo, Come.Foglio);
    Documento Stretto = Composto;
    Stretto.Stretta = Come.Quanto;
    return DocumentoEsportato(Stretto, Formato, Titolo, Come.Foglio);
}

QByteArray Impronta(const QByteArray& Byte)
{
    return QCryptographicHash::hash(Byte, QCryptographicHash::Sha256);
}

struct Scritta
{
    QByteArray Impronta;
    Disposizione Come;
};

/// What this program has last written into each file: notes of one name have one file.
QHash<QString, Scritta>& Scritte()
{
    static QHash<QString, Scritta> Tutte;
    return Tutte;
}

void Esporta(const Superficie& vp, const QString& Titolo, const Carta& Foglio)
{
    const Disposizione Come = DisposizioneDi(vp, Foglio);
    const QByteArray Byte = Esportata(vp.Contenuto(), FormatoEsportazione(vp.ExportFormat), Titolo, Come);
    (void)ScriviEsportato(vp.ExportFile, Byte);
    Scritte()[vp.ExportFile] = {Impronta(Byte), Come};
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
    const Scritta Ultima = Scritte().value(File);
    if (Ultima.Impronta.isEmpty() || !EsisteFile(File))
        return false;
    bool AllaPari = false;
    // What cannot be composed or read is told where it is brought up to date.
    (void)Guasto([&] {
        Superficie Ora;
        Ora.Stringitore = vp.Stringitore;
        if (!Anteprima(Ora, Nota, Tipo))
            return;
        // A page that was printed on other paper since is the same document.
        const Disposizione Come = DisposizioneDi(Ora, Foglio);
        const QByteArray Byte =
            Esportata(Ora.Contenuto(), FormatoEsportazione::Word, TitoloDi(Tipo, Stelo), Ultima.Come);
        if (Come.UnaPagina != Ultima.Come.UnaPagina || Impronta(Byte) != Ultima.Impronta)
            return;
        // Of two programs neither knows what the other one has composed. What nobody has written in gets the
        // paper in use, unless it is open in the editor: there the user is led back to it.
        const QByteArray Presente = LeggiFile(File);
        AllaPari = Presente == Byte ? Come == Ultima.Come || FileInUso(File) : !EScrittoDaNoi(Presente);
    });
    return AllaPari;
}
