// Commands whose windows only note that they were asked for.
#pragma once

#include "core/aperture.h"
#include "core/comandi.h"
#include "core/indirizzi.h"
#include "core/parametri.h"
#include "core/posti.h"
#include "core/sessione.h"
#include "platform/system/file.h"
#include "platform/system/percorsi.h"
#include "platform/system/shell.h"
#include "supporto/prova.h"
#include "supporto/registratore.h"

using namespace Qt::StringLiterals;

/// Places as they stand: "m" modified, "p" unmodified, "l" left free by a closed note that was modified.
inline void Posti(const QString& Segni)
{
    AzzeraParcelle();
    for (const QChar Segno : Segni)
        InfoParcelle.push_back({Segno == u'l', Segno != u'p', u"nota"_s});
}

inline void ImpostaServer(const QString& Indirizzo)
{
    SalvaImpostazione(indirizzi::ChiaveServer.toString(), Indirizzo);
}

inline QString Numeri(std::initializer_list<int> Valori)
{
    QString Testo;
    for (const int Valore : Valori)
        Testo += u' ' + QString::number(Valore);
    return Testo;
}

/// A session in which every opening leaves a word.
class BancoComandi
{
protected:
    void Prepara();
    void Sgombra();

    void RegistraAperture();

    QStringList Eventi;
    int SchedaInVista = -1;
    int Esito = 0;
    Shell Precedente;
};

inline void BancoComandi::Prepara()
{
    AzzeraSessione();
    AzzeraParcelle();
    Eventi.clear();
    SchedaInVista = -1;
    Esito = 0;
    RegistraAperture();
    Shell Nuova;
    Nuova.ApriFile = [this](const QString& File) {
        Eventi << u"file "_s + File;
        return Esito;
    };
    Nuova.ApriIndirizzo = [this](const QString& Indirizzo) {
        Eventi << u"indirizzo "_s + Indirizzo;
        return Esito;
    };
    Nuova.ApriPdf = [this](const QString& File, int Pagina) {
        Eventi << u"pdf "_s + NomeFile(File) + Numeri({Pagina});
        return Esito;
    };
    Nuova.HaProgramma = [](const QString&) { return true; };
    Nuova.Avvia = [this](const QString& Programma, const QStringList& Argomenti, const QString& Cartella) {
        Eventi << u"avvia "_s + Programma + u" in "_s + Cartella + Numeri({int(Argomenti.size())});
        return Esito;
    };
    Nuova.Termina = [this](int Codice) { Eventi << u"fine"_s + Numeri({Codice}); };
    Precedente = InstallaShell(std::move(Nuova));
}

inline void BancoComandi::Sgombra()
{
    ImpostaServer({});
    InstallaShell(std::move(Precedente));
    Aperture = {};
    AzzeraParcelle();
    AzzeraSessione();
}

inline void BancoComandi::RegistraAperture()
{
    const auto Annota = [this](const QString& Nome) { return [this, Nome] { Eventi << Nome; }; };
    Aperture = {};
    Aperture.ApriParcella = [this](const QString& Percorso, int Socio, const QString& ID) {
        Eventi << u"parcella [%1] %2 [%3]"_s.arg(Percorso).arg(Socio).arg(ID);
    };
    Aperture.TrovaParcella = [this](int Selettore, const QString& Cartella, int, const QString& Parent) {
        Eventi << u"trova"_s + Numeri({Selettore}) + Cartella + Parent;
        return QString();
    };
    Aperture.SalvaParcella = [this](int Indice, bool ComeModello) {
        Eventi << u"salva"_s + Numeri({Indice, ComeModello});
    };
    Aperture.VaiAllaScheda = [this](int Indice, int Quale) {
        Eventi << u"scheda"_s + Numeri({Indice, Quale});
    };
    Aperture.SchedaCorrente = [this](int) { return SchedaInVista; };
    Aperture.Proteggi = [this](int Indice) { Eventi << u"proteggi"_s + Numeri({Indice}); };
    Aperture.ChiudiParcella = [this](int Indice) {
        Eventi << u"chiudi"_s + Numeri({Indice});
        return false;
    };
    Aperture.Impostazioni = [this](int Quale, bool) { Eventi << u"impostazioni"_s + Numeri({Quale}); };
    for (const Comando& Riga : Comandi())
        if (ApreFinestra(Riga))
            Aperture.Finestre[Riga.Parola.toString()] = Annota(Riga.Parola.toString());
    Aperture.PaginaWeb = [this](const QString& Pagina, const QString& Titolo) {
        Eventi << u"pagina %1 [%2]"_s.arg(NomeFile(Pagina), Titolo);
    };
}
