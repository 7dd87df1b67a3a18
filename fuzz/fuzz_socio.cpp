// The companion's archive of invoices, which is another program's and may hold anything: the row of an
// invoice stands there once and with its figures, or the user is told and the archive is as it was.
#include "basedati.h"
#include "fonte.h"

#include "core/sessione.h"
#include "feenote/companion/modPV2.h"
#include "platform/base/regionale.h"
#include "platform/system/messaggi.h"

#include <cmath>

using namespace Qt::StringLiterals;

namespace {

const QByteArray& Sana()
{
    static const QByteArray Letta = [] {
        const QString File = CartellaDiLavoro() + u"pratiche.mdb"_s;
        {
            const Database Db = CreateDatabase(File);
            Db.CreaTabella(u"Fatture"_s, {{u"Rif"_s, TipoCampo::Testo, 50, {}, false},
                                          {u"NumF"_s, TipoCampo::Testo, 20, {}, false},
                                          {u"DataF"_s, TipoCampo::Data, 8, {}, false},
                                          {u"CorriF"_s, TipoCampo::Doppio, 8, {}, false},
                                          {u"IDContab"_s, TipoCampo::Lungo, 4, {}, false},
                                          {u"TipoF"_s, TipoCampo::Testo, 1, {}, false},
                                          {u"ModoF"_s, TipoCampo::Testo, 1, {}, false}});
            Db.Execute(u"INSERT INTO Fatture (Rif, NumF) VALUES ('P12', '7'), ('P13', '8')"_s);
        }
        return Contenuto(File);
    }();
    return Letta;
}

void Prova(const QByteArray& Dati)
{
    PreparaSessione();
    int Detti = 0;
    Messaggi Orecchio;
    Orecchio.Box = [&](const QString& Testo, int, const QString&) {
        Pretendi(!Testo.isEmpty());
        ++Detti;
        return vbOK;
    };
    Messaggi Prima = InstallaMessaggi(Orecchio);
    // Taken by name: the file that was opened last would else stay open.
    sessione::ArchivioPrat = PosaDatabase(u"socio.mdb"_s, Sana(), Dati);
    sessione::RichiestaPV2.ID = u"P12"_s;
    MemorizzaUltimaStampa({1234.56, u" 8 "_s, u"20/11/2026"_s, false});
    const QByteArray Era = Contenuto(sessione::ArchivioPrat);
    SalvaFatturaPV2(3);
    Pretendi(Detti <= 1);
    if (Detti == 0)
        Riesce([] {
            const Recordset Righe =
                OpenDatabase(sessione::ArchivioPrat, true)
                    .OpenRecordset(u"SELECT * FROM Fatture WHERE Rif='P12' AND NumF='8'"_s);
            if (!Righe.Eof() && Righe.Value(u"CorriF"_s).typeId() == QMetaType::Double)
                Pretendi(std::isfinite(Righe.Value(u"CorriF"_s).toDouble()));
        });
    SalvaFatturaPV2(3);
    InstallaMessaggi(std::move(Prima));
    sessione::ArchivioPrat.clear();
    sessione::RichiestaPV2 = {};
}

}  // namespace

BERSAGLIO(fuzz_socio, Prova);
