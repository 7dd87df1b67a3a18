#include "platform/network/rete.h"

#include <utility>

using namespace Qt::StringLiterals;

namespace {

Rete& Installata()
{
    static Rete Tabella;
    return Tabella;
}

/// What there is where no network is.
class NessunTrasferimento : public Trasferimento
{
public:
    bool Attendi(int) override { return true; }
    FineRete Fine() const override { return FineRete::SenzaConnessione; }
    qint64 Ricevuti() const override { return 0; }
    qint64 Totale() const override { return -1; }
    void Annulla() override {}
};

}  // namespace

bool QuestaMacchina(const QString& Host)
{
    return Host == u"127.0.0.1" || Host == u"::1";
}

QString DescriviFine(FineRete Fine)
{
    switch (Fine) {
    case FineRete::Completa:
        return {};
    case FineRete::Annullata:
        return u"operazione annullata"_s;
    case FineRete::SenzaConnessione:
        return u"nessuna connessione"_s;
    case FineRete::Interrotta:
        return u"connessione interrotta"_s;
    case FineRete::Certificato:
        return u"certificato del server non valido"_s;
    case FineRete::Vietata:
        return u"indirizzo non ammesso"_s;
    case FineRete::TroppoGrande:
        return u"file troppo grande"_s;
    case FineRete::Disco:
        break;
    }
    return u"file non scrivibile o disco pieno"_s;
}

Rete InstallaRete(Rete Nuova)
{
    return std::exchange(Installata(), std::move(Nuova));
}

std::unique_ptr<Trasferimento> AvviaTrasferimento(const RichiestaRete& Chiesta)
{
    const auto Avvia = Installata().Avvia;
    return Avvia ? Avvia(Chiesta) : std::make_unique<NessunTrasferimento>();
}

bool RespiroRete()
{
    const auto Respiro = Installata().Respiro;
    return !Respiro || Respiro();
}
