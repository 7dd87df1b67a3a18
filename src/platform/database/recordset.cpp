#include "platform/database/recordset.h"

#include "platform/base/errore.h"
#include "platform/database/criterio.h"
#include "platform/database/insieme.h"
#include "platform/database/valori.h"

using namespace Qt::StringLiterals;

Recordset::Recordset(std::shared_ptr<Dati> Nuovo) : Stato(std::move(Nuovo))
{}

bool Recordset::Aperto() const
{
    return Stato && Stato->Da.Conn;
}

bool Recordset::Eof() const
{
    return RecordCount() == 0 || (!Stato->Buco && Stato->Posto >= Stato->Chiavi.size());
}

bool Recordset::Bof() const
{
    return RecordCount() == 0 || Stato->Posto < 0;
}

int Recordset::RecordCount() const
{
    return Stato ? int(Stato->Chiavi.size()) : 0;
}

void Recordset::MoveFirst()
{
    if (RecordCount() > 0)
        Stato->Vai(0);
}

void Recordset::MoveLast()
{
    if (RecordCount() > 0)
        Stato->Vai(Stato->Chiavi.size() - 1);
}

void Recordset::MoveNext()
{
    // Behind a deleted row the place is already that of the next one.
    if (RecordCount() > 0)
        Stato->Vai(Stato->Posto + (Stato->Buco ? 0 : 1));
}

void Recordset::MovePrevious()
{
    if (RecordCount() > 0)
        Stato->Vai(Stato->Posto - 1);
}

QVariant Recordset::Value(const QString& Colonna) const
{
    Dati& Insieme = Corrente();
    const int Posto = Insieme.Da.Posto(Colonna);
    if (Insieme.Cambiati.contains(Posto) || Insieme.Aperto == Dati::Lavoro::Nuovo)
        return Insieme.Cambiati.value(Posto);
    return Insieme.Riga()[Posto];
}

QVariant Recordset::Value(const QString& Colonna, const QVariant& SeNull) const
{
    const QVariant Letto = Value(Colonna);
    return Letto.isNull() ? SeNull : Letto;
}

void Recordset::ImpostaValue(const QString& Colonna, const QVariant& Valore)
{
    Dati& Insieme = Corrente();
    if (Insieme.Aperto == Dati::Lavoro::Nessuno)
        throw Errore(errori::NonInModifica);
    const int Posto = Insieme.Da.Posto(Colonna);
    Insieme.Cambiati.insert(Posto, PerColonna(Insieme.Da.Colonne[Posto], Valore));
}

QList<Campo> Recordset::Campi() const
{
    return Stato ? Stato->Da.Colonne : QList<Campo>();
}

void Recordset::AddNew()
{
    Corrente().EsigiScrivibile();
    Stato->Cambiati.clear();
    Stato->Aperto = Dati::Lavoro::Nuovo;
}

void Recordset::Edit()
{
    Corrente().EsigiScrivibile();
    // The row is read anew: it may have been current for long, and others have written meanwhile.
    Stato->Vai(Stato->PostoCorrente());
    Stato->Originale = Stato->Riga();
    Stato->Aperto = Dati::Lavoro::Modifica;
}

int Recordset::EditMode() const
{
    return Stato ? int(Stato->Aperto) : 0;
}

bool Recordset::Toccato() const
{
    return EditMode() != 0 && !Stato->Cambiati.isEmpty();
}

bool Recordset::CambiatoDaAltri() const
{
    if (EditMode() == 0)
        throw Errore(errori::NonInModifica);
    if (Stato->Aperto == Dati::Lavoro::Nuovo)
        return false;
    const Recordset Altro = Clone();
    Altro.Stato->Vai(Stato->Posto);
    return Altro.Stato->Riga() != Stato->Originale;
}

void Recordset::CancelUpdate()
{
    if (!Stato)
        return;
    Stato->Cambiati.clear();
    Stato->Aperto = Dati::Lavoro::Nessuno;
}

void Recordset::Update(const std::function<void()>& Prima)
{
    Dati& Insieme = Corrente();
    switch (Insieme.Aperto) {
    case Dati::Lavoro::Nessuno:
        throw Errore(errori::NonInModifica);
    case Dati::Lavoro::Nuovo:
        Insieme.Inserisci(Prima);
        break;
    case Dati::Lavoro::Modifica:
        Insieme.Aggiorna();
        break;
    }
}

void Recordset::Delete()
{
    Dati& Insieme = Corrente();
    Insieme.EsigiScrivibile();
    Insieme.Elimina();
}

int Recordset::AbsolutePosition() const
{
    return Eof() || Bof() ? -1 : int(Stato->Posto);
}

void Recordset::ImpostaAbsolutePosition(int Posto)
{
    if (Posto < 0 || Posto >= RecordCount())
        throw Errore(errori::NessunRecord);
    Stato->Vai(Posto);
}

Recordset Recordset::Clone() const
{
    auto Nuovo = std::make_shared<Dati>();
    if (Stato) {
        Nuovo->Da = Stato->Da;
        Nuovo->Chiavi = Stato->Chiavi;
        Nuovo->Crescenti = Stato->Crescenti;
    }
    return Recordset(std::move(Nuovo));
}

void Recordset::Close()
{
    // Copies share the cursor, so that they close with it.
    if (Stato)
        *Stato = Dati();
    Stato.reset();
}

Recordset::Dati& Recordset::Corrente() const
{
    if (!Aperto())
        throw Errore(errori::NessunRecord);
    return *Stato;
}
