// The commands of calcanova-cli that work on fee-note files.
#include "cli/comandi.h"

#include "cli/letture.h"
#include "feenote/file/modDescrizione.h"
#include "feenote/file/modLettura.h"
#include "feenote/file/modMultipla.h"
#include "feenote/file/modNotaJson.h"
#include "feenote/file/modPosaFile.h"
#include "feenote/file/modSalvataggio.h"
#include "feenote/modDatiStampa.h"
#include "feenote/modInterruttori.h"
#include "feenote/modParti.h"
#include "feenote/modStato.h"
#include "platform/base/errore.h"
#include "platform/pages/impaginazione.h"
#include "platform/system/file.h"
#include "platform/system/percorsi.h"
#include "print/modLettere.h"
#include "print/modRiepilogo.h"
#include "print/modStampe.h"
#include "print/writers/esportazione.h"
#include "print/writers/scrittoretesto.h"

#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>

#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

namespace {

/// The name under which a note is saved: the extension is added, the characters that names may not hold
/// are refused.
QString NomePerSalvare(const QString& Chiesto)
{
    QString Percorso = PercorsoNativo(Chiesto);
    if (!Percorso.endsWith(u".mdb"))
        Percorso += u".mdb"_s;
    if (!NomeDiNotaValido(NomeFile(Percorso).chopped(4)))
        throw Errore(errori::NomeNonValido, FraseNomeNonValido.toString());
    return Percorso;
}

/// What stands under the name may be replaced only when it is a fee note without protection.
void ControllaSostituzione(const QString& Percorso)
{
    if (!EsisteFile(Percorso))
        return;
    QString Psw;
    try {
        Psw = LeggiPsw(Percorso);
    } catch (const Errore&) {
        throw Errore(errori::FilePresente,
                     u"Il file %1 esiste già e non è una parcella"_s.arg(NomeFile(Percorso)));
    }
    if (!Psw.isEmpty())
        throw Errore(errori::Autorizzazione,
                     u"La parcella %1 è protetta da password"_s.arg(NomeFile(Percorso)));
}

/// A file that a document can be written to, by the end of its name.
struct Formato
{
    QStringView Estensione;
    void (*Scrivi)(const Documento& Doc, const QString& File, const QString& Titolo);
};

template <FormatoEsportazione Quale>
void Esporta(const Documento& Doc, const QString& File, const QString& Titolo)
{
    (void)EsportaDocumento(Doc, File, Quale, Titolo);
}

/// A word processor's file is as tight as the page would be.
void EsportaWord(const Documento& Doc, const QString& File, const QString& Titolo)
{
    Documento Stretto = Doc;
    if (Doc.UnaPagina)
        Stretto.Stretta = StrettezzaDi(Impaginazione(Doc).Grado());
    Esporta<FormatoEsportazione::Word>(Stretto, File, Titolo);
}

constexpr std::array Formati{
    Formato{u".txt", [](const Documento& Doc, const QString& File,
                        const QString&) { ScriviFile(File, ScriviTesto(Doc).toUtf8(), Lettori::Cartella); }},
    Formato{u".pdf", [](const Documento& Doc, const QString& File,
                        const QString& Titolo) { Impaginazione(Doc).ScriviPdf(File, Titolo); }},
    Formato{u".doc", EsportaWord},
    Formato{u".htm", Esporta<FormatoEsportazione::Html>},
};

const Formato& FormatoDi(const QString& File)
{
    const auto Suo = std::ranges::find_if(
        Formati, [&](const Formato& Uno) { return File.endsWith(Uno.Estensione, Qt::CaseInsensitive); });
    if (Suo == Formati.end())
        throw Errore(errori::Argomento,
                     u"Il documento si scrive in un file .txt, .pdf, .doc o .htm: %1"_s.arg(NomeFile(File)));
    return *Suo;
}

/// What a file shows as its title: the document and the note that it was made of.
QString TitoloDi(const QString& Documento, const QString& File)
{
    return Documento + u" - "_s + QFileInfo(File).completeBaseName();
}

}  // namespace

Parcella LeggiNota(const QString& Percorso, const NotaMultipla& Altra)
{
    Parcella Nota;
    CaricaDati(Nota, PercorsoNativo(Percorso));
    if (Altra.Percorso.isEmpty())
        return Nota;
    if (!AssociaMulti(Nota, Altra.Percorso))
        throw Errore(errori::Argomento, StessaParcella.toString());
    AvvisaIlleggibiliMulti(Nota);
    Nota.optMultiAntPos = Altra.Prima ? 1 : 0;
    return Nota;
}

Risposta ComandoCrea(const QStringList& Valori)
{
    const QString Percorso = NomePerSalvare(Valori[1]);
    Parcella Nota = CreaDaDescrizione(LeggiFile(PercorsoNativo(Valori[0]), MassimoDescrizione));
    ControllaSostituzione(Percorso);
    // A description may have its payments already.
    Copertura Nessuno;
    (void)SegueStato(Nota, Nessuno);
    ScriviNota(Percorso, Nota);
    return {Percorso,
            {{u"file"_s, Percorso},
             {u"onorari"_s, Nota.xOnorari.Righe()},
             {u"spese"_s, Nota.xDiritti.Righe()},
             {u"acconti"_s, Nota.xAcconti.Righe()}},
            false};
}

Risposta ComandoNota(const QStringList& Valori)
{
    const QByteArray Json = DescriviNota(LeggiNota(Valori[0]));
    return {QString::fromUtf8(Json).trimmed(), QJsonDocument::fromJson(Json).object(), false};
}

Risposta ComandoRiepilogo(const QStringList& Valori, const NotaMultipla& Altra)
{
    const int Tipo = LeggiTipo(Valori.value(1, u"0"_s));
    Parcella Nota = LeggiNota(Valori[0], Altra);
    ScegliTipoStampa(Nota, Tipo);
    return RispostaRiepilogo(CatenaFiscale(Nota, Tipo));
}

Risposta ComandoStampa(const QStringList& Valori, const NotaMultipla& Altra)
{
    const int Tipo = LeggiTipo(Valori[1]);
    const QString Uscita = PercorsoNativo(Valori[2]);
    const Formato& Formato = FormatoDi(Uscita);
    ControllaUscita(Uscita);
    const QString Documento = TipoDi(Tipo).Nome.toString();
    Parcella Nota = LeggiNota(Valori[0], Altra);
    // As the list of the print tab would: another document has its own switches and words the client; the one
    // that the note was saved with stands as it was saved.
    if (Tipo != Nota.cmbTipoStampa)
        ScegliDocumento(Nota, Tipo);
    else
        RicomponiBlocco(Nota);
    Superficie vp;
    Anteprima(vp, Nota, Tipo);  // a note that was read is ready, and every entry of the list is a document
    Formato.Scrivi(vp.Contenuto(), Uscita, TitoloDi(Documento, Valori[0]));
    return {Uscita, {{u"file"_s, Uscita}, {u"documento"_s, Documento}}, false};
}
