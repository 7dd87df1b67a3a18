// An office with one folder of notes, and the accountant's rows of it.
#pragma once

#include "finder_prova.h"

#include "feenote/file/modPosaFile.h"
#include "feenote/finder/elencotrova.h"
#include "feenote/finder/memoriatrova.h"
#include "feenote/modFatturaXml.h"
#include "feenote/modStato.h"
#include "platform/system/orologio.h"

#include <memory>
#include <vector>

using namespace Qt::StringLiterals;

class BancoStorni
{
protected:
    void Prepara()
    {
        Ufficio = std::make_unique<Studio>();
        Cartella = Ufficio->File(u"note/"_s);
        QDir().mkpath(Cartella);
        InstallaOrologio([] { return QDateTime(QDate(2026, 11, 22), QTime(10, 0)); });
    }
    void Sgombra()
    {
        InstallaOrologio({});
        Ufficio.reset();
    }

    /// With its invoice in view.
    [[nodiscard]] static Parcella Nota()
    {
        Parcella Nuova = NotaDiRossi();
        ScegliTipoStampa(Nuova, StampaFatturaAnalitica);
        return Nuova;
    }
    static void Emetti(Parcella& Nota, const QString& Numero, bool Credito = false)
    {
        Nota.FatturaXml.Tipo = Credito ? u"TD04"_s : QString();
        if (Credito) {
            Nota.FatturaXml.CitataNumero = Nota.DatiPar(DatoNumFatt);
            Nota.FatturaXml.CitataData = Nota.DatiPar(DatoDataFatt);
        }
        Nota.txtDatiPar[DatoNumFatt] = Numero;
        Nota.txtDatiPar[DatoDataFatt] = u"09/11/2026"_s;
        SegnaFatturaScritta(Nota, u"IT1_%1.xml"_s.arg(Numero), Numero);
    }
    /// The rows of the folder.
    void Leggi()
    {
        Righe.clear();
        CamminoTrova Cammino(
            {Cartella, Cartella, {}, false}, [&](VoceTrova&& Una) { Righe.push_back(std::move(Una)); },
            [] { return true; }, std::make_shared<MemoriaTrova>());
        (void)Cammino.TrovaParc(Cartella);
        Note.clear();
        for (const VoceTrova& Una : Righe)
            Note.push_back(&Una);
    }
    /// Document, number, imponibile, net, paid, open of each row.
    [[nodiscard]] QStringList Tabella() const
    {
        QStringList Trovate;
        for (const QStringList& Celle : RigheScadenzario(Note, [](int) { return CodiciCliente(); }))
            Trovate += QStringList{Celle[3], Celle[4], Celle[9], Celle[14], Celle[15], Celle[16]}.join(u'|');
        return Trovate;
    }
    void Scrivi(const Parcella& Nota, const QString& Nome = u"una.mdb"_s)
    {
        ScriviNota(Cartella + Nome, Nota);
        Leggi();
    }

    std::unique_ptr<Studio> Ufficio;
    QString Cartella;
    std::vector<VoceTrova> Righe;
    std::vector<const VoceTrova*> Note;
};
