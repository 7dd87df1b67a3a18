// What the tests of the exports share: one note and its exported file.
#pragma once

#include "core/posti.h"
#include "platform/base/errore.h"
#include "platform/system/guasti.h"
#include "platform/system/percorsi.h"
#include "platform/system/shell.h"
#include "print/campioni.h"
#include "print/modEsporta.h"
#include "supporto/prova.h"

using namespace Qt::StringLiterals;

/// One note in place 1, a user folder of its own, and what the system was asked for.
class Banco
{
public:
    Banco()
    {
        campioni::ImpostaStudio();
        sessione::UserFolder = NuovaCartella();
        AzzeraParcelle();
        InfoParcelle.push_back({false, false, u"rossi"_s});
        Shell Servizi;
        Servizi.ApriFile = [this](const QString& File) {
            Aperti += File;
            return 0;
        };
        Servizi.Avvia = [this](const QString& Programma, const QStringList& Argomenti,
                               const QString& Cartella) {
            Avviati += Programma + u'|' + Argomenti.join(u'|') + u'|' + Cartella;
            return EsitoAvvio;
        };
        Servizi.HaProgramma = [this](const QString&) { return ConProgramma; };
        Servizi.Clessidra = [this](bool Attiva) { Puntatore += Attiva ? u'+' : u'-'; };
        Precedente = InstallaShell(std::move(Servizi));
    }
    ~Banco()
    {
        InstallaShell(std::move(Precedente));
        AzzeraParcelle();
        AzzeraSessione();
        guasti::LimiteFile = 0;
    }
    Banco(const Banco&) = delete;
    Banco& operator=(const Banco&) = delete;

    std::optional<Errore> Componi(const std::optional<QString>& Invio = {}, int Tipo = StampaPrenotula)
    {
        return AnteprimaConEsportazione(vp, Nota, Tipo, SteloDocumento(1), Invio);
    }
    [[nodiscard]] QString File() const { return Barra(sessione::UserFolder + u"doc"_s) + u"rossi.doc"_s; }

    Superficie vp;
    Parcella Nota = campioni::Civile();
    QStringList Aperti;
    QStringList Avviati;
    QString Puntatore;
    int EsitoAvvio = 0;
    bool ConProgramma = true;  ///< the system knows one for documents

private:
    Shell Precedente;
};
