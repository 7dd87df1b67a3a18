#include "scimmia/controlli.h"

#include "addressbook/modClienti.h"
#include "core/posti.h"
#include "core/sessione.h"
#include "feenote/file/modLettura.h"
#include "feenote/file/modNotaJson.h"
#include "feenote/modParti.h"
#include "feenote/windows/finestre.h"
#include "feenote/windows/frmParcelle.h"
#include "platform/base/regionale.h"
#include "platform/system/file.h"
#include "platform/system/messaggi.h"
#include "scimmia/gesti.h"

#include <QAbstractButton>
#include <QApplication>
#include <QCursor>
#include <QMessageBox>

using namespace Qt::StringLiterals;

namespace {

/// A note from its file, with nobody asked about a password or told about a client that has gone.
Parcella Riletta(const QString& File)
{
    Messaggi Prima = InstallaMessaggi({});
    Parcella Letta;
    try {
        CaricaDati(Letta, File);
    } catch (...) {
        InstallaMessaggi(std::move(Prima));
        throw;
    }
    InstallaMessaggi(std::move(Prima));
    return Letta;
}

}  // namespace

QString FinestreGuaste()
{
    const QWidget* Modale = QApplication::activeModalWidget();
    // The import holds the other windows back while it is open, and nobody waits for its answer.
    const bool SenzaAttesa = Modale && Modale->inherits("frmImporta");
    if (Modale && !SenzaAttesa && Modale->windowModality() == Qt::ApplicationModal)
        return u"finestra modale rimasta senza chi la aspetta: "_s + NomeDi(Modale);
    if (Modale && !Modale->isVisible())
        return u"finestra modale nascosta: "_s + NomeDi(Modale);
    if (QGuiApplication::overrideCursor())
        return u"puntatore di attesa rimasto acceso"_s;
    return {};
}

QString Differenza(const QByteArray& Finestra, const QByteArray& File)
{
    const QList<QByteArray> Qui = Finestra.split('\n');
    const QList<QByteArray> La = File.split('\n');
    QStringList Diverse;
    constexpr qsizetype Bastano = 6;
    for (qsizetype i = 0; i < std::max(Qui.size(), La.size()) && Diverse.size() < Bastano; ++i)
        if (Qui.value(i) != La.value(i))
            Diverse +=
                u"finestra%1 / file%2"_s.arg(QString::fromUtf8(Qui.value(i)), QString::fromUtf8(La.value(i)));
    return Diverse.join(u'\n');
}

namespace {

/// The name that an opening takes from the archive for a key; empty where there is none or it cannot be read.
template <typename Ricerca>
QString NellArchivio(const Ricerca& Cerca, int Chiave)
{
    try {
        return Chiave > 0 ? Cerca(Chiave).value_or(QString()) : QString();
    } catch (const Errore&) {
        return {};
    }
}

}  // namespace

QString NoteSalvate::Confronta()
{
    for (int Posto = 1; Posto <= UltimaParcella(); ++Posto) {
        const frmParcelle* Finestra = Parcelle(Posto);
        if (!Finestra || InfoParcelle[size_t(Posto)].Libera) {
            Stati.erase(Posto);
            continue;
        }
        const Parcella& Nota = Finestra->Nota;
        const bool SuFile = !Nota.Percorso.isEmpty() && EsisteFile(Nota.Percorso);
        const Prima Adesso{Finestra->Numero(), Nota.Modificata,
                           SuFile ? DataFile(Nota.Percorso) : QDateTime()};
        const Prima Stato = std::exchange(Stati[Posto], Adesso);
        const bool ComeInFile = Stato.Numero == Adesso.Numero && Stato.Modificata && !Nota.Modificata;
        if (!ComeInFile || !SuFile)
            continue;
        ++Volte;
        Parcella Vista = Nota;
        // A session of the companion saves every note for its matter; steps back to the file save nothing.
        if (Stato.Scritta != Adesso.Scritta)
            Vista.NsRif = sessione::RichiestaPV2.ID;
        // What is typed over a linked name lasts until the note is opened again, where the archive has a name
        // for it: of a counterparty that of the notes.
        if (!NellArchivio(CercaCliente, Vista.IDCli).isEmpty())
            Vista.txtCliente.Testo = NomeLegato(Vista, ParteNota::Cliente);
        if (!NellArchivio([](int Chiave) { return CercaControparte(Chiave, u"Controp"_s); }, Vista.IDCon)
                 .isEmpty())
            Vista.txtControp.Testo = NomeLegato(Vista, ParteNota::Controparte);
        // A value that its bracket refuses is the note's until the box has another; the file keeps the box's,
        // and below zero none is defined.
        Vista.ImportoPrec = std::max(Arrotonda2(Vista.txtImporto.Numero()), 0.0);
        const QString Diversa = Differenza(DescriviNota(Vista), DescriviNota(Riletta(Nota.Percorso)));
        if (!Diversa.isEmpty())
            return u"la nota salvata non è quella della finestra, "_s + Nota.Percorso + u":\n"_s + Diversa;
    }
    return {};
}
