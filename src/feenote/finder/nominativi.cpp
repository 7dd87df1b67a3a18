#include "feenote/finder/nominativi.h"

#include "addressbook/modClienti.h"
#include "addressbook/modRubrica.h"
#include "core/sessione.h"
#include "platform/accesso/accesso.h"
#include "platform/base/errore.h"
#include "platform/base/regionale.h"
#include "platform/database/database.h"
#include "platform/system/percorsi.h"

#include <QDateTime>
#include <QFileInfo>

using namespace Qt::StringLiterals;

/// An archive that somebody has written to since the last list may give other names to the same keys.
void Nominativi::SeguiArchivio()
{
    if (Guardato)
        return;
    Guardato = true;
    NonLetto = nullptr;
    const QFileInfo Info(PercorsoNativo(FileRubrica(sessione::ArchivioCliCon)));
    const qint64 Ora = Info.lastModified().toMSecsSinceEpoch();
    Assente = !Info.exists();
    if (Archivio == Info.filePath() && Byte == Info.size() && Modificata == Ora)
        return;
    Archivio = Info.filePath();
    Byte = Info.size();
    Modificata = Ora;
    for (Tabella& Una : Tabelle)
        Una.Trovati.clear();
    CodiciTrovati.clear();
}

bool Nominativi::Vai(Tabella& Da, int Chiave)
{
    if (!Da.Aperta) {
        Da.Righe = ApriArchivio(Archivio, true).OpenRecordset(Da.Nome);
        Da.Aperta = true;
    }
    Da.Righe.FindFirst(u"ID=%1"_s.arg(Chiave));
    return !Da.Righe.NoMatch();
}

QString Nominativi::Nome(Tabella& Da, int Chiave)
{
    if (Chiave <= 0 || Assente)
        return {};
    if (const auto Trovato = Da.Trovati.constFind(Chiave); Trovato != Da.Trovati.constEnd())
        return *Trovato;
    try {
        const QString Letto =
            Vai(Da, Chiave) ? CStr(Da.Righe.Value(u"Nominativo"_s)).simplified() : QString();
        return *Da.Trovati.insert(Chiave, Letto);
    } catch (const Errore& Guasto) {
        NonLetto = std::make_exception_ptr(ArchivioIlleggibile(Guasto));
        Assente = true;  // asked no more: an archive that somebody keeps locked is waited for at each key
        return {};
    }
}

void Nominativi::Completa(VoceTrova& Voce)
{
    if (Voce.Genere != GenereVoce::Nota)
        return;
    SeguiArchivio();
    const QString Cliente = Nome(Tabelle[0], Voce.Dati.IDCli);
    const QString Controparte = Nome(Tabelle[1], Voce.Dati.IDCon);
    Voce.Cliente = Cliente.isEmpty() ? Voce.Dati.Cliente : Cliente;
    Voce.Controparte = Controparte.isEmpty() ? Voce.Dati.Controp : Controparte;
}

CodiciCliente Nominativi::Codici(int IDCli)
{
    SeguiArchivio();
    if (IDCli <= 0 || Assente)
        return {};
    if (const auto Trovati = CodiciTrovati.constFind(IDCli); Trovati != CodiciTrovati.constEnd())
        return *Trovati;
    try {
        Tabella& Clienti = Tabelle[0];
        CodiciCliente Letti;
        if (Vai(Clienti, IDCli))
            Letti = {CStr(Clienti.Righe.Value(u"CodFis"_s)).simplified(),
                     CStr(Clienti.Righe.Value(u"PIva"_s)).simplified()};
        return *CodiciTrovati.insert(IDCli, Letti);
    } catch (const Errore& Guasto) {
        NonLetto = std::make_exception_ptr(ArchivioIlleggibile(Guasto));
        Assente = true;
        return {};
    }
}

void Nominativi::PretendiLetto() const
{
    if (NonLetto)
        std::rethrow_exception(NonLetto);
}

void Nominativi::Chiudi()
{
    Guardato = false;
    NonLetto = nullptr;
    for (Tabella& Una : Tabelle) {
        Una.Righe = {};
        Una.Aperta = false;
    }
}
