#include "addressbook/testirubrica.h"

#include "platform/base/testopiano.h"

#include <algorithm>

namespace {

constexpr int Porzione = 4000;

bool EDiTesto(TipoCampo Tipo)
{
    return Tipo == TipoCampo::Testo || Tipo == TipoCampo::Memo;
}

}  // namespace

void TestiRubrica::Imposta(const Database& DiArchivio, const Recordset& DiRighe,
                           const QList<ColonnaRubrica>& DiColonne)
{
    Archivio = DiArchivio;
    Righe = DiRighe.Clone();
    Colonne = DiColonne;
    Nomi.clear();
    for (const ColonnaRubrica& Colonna : DiColonne)
        Nomi.append(Colonna.Nome);
    Azzera();
}

void TestiRubrica::Azzera()
{
    Testi.Azzera();
    Chiavi = {};
    Ultima.reset();
    Finita = !Archivio.Aperto();
    Versione = Finita ? 0 : Archivio.Versione();
}

bool TestiRubrica::Pronti() const
{
    return Finita && (!Archivio.Aperto() || Archivio.Versione() == Versione);
}

bool TestiRubrica::Leggi()
{
    if (Archivio.Aperto() && Archivio.Versione() != Versione)
        Azzera();
    if (Finita)
        return true;
    Ultima = Righe.Scorri(Nomi, Ultima, Porzione, [this](const RigaScorsa& Riga) { Accoda(Riga); });
    Finita = !Ultima;
    return Finita;
}

/// Text is taken as it lies in the file; everything else as the grid shows it.
void TestiRubrica::Accoda(const RigaScorsa& Riga)
{
    Composta.clear();
    for (int i = 0; i < Colonne.size(); ++i) {
        if (EDiTesto(Colonne[i].Tipo))
            AccodaCella(Composta, Riga.Utf8(i));
        else
            AccodaCella(Composta, TestoCella(Riga.Valore(i), Colonne[i]).toUtf8());
    }
    Testi.Aggiungi(Composta);
    Chiavi.push_back(Riga.Chiave());
}

std::vector<qint64> TestiRubrica::Cerca(const Filtro& Per)
{
    while (!Leggi()) {
    }
    std::vector<qint64> Trovate;
    for (const int Posto : Testi.Cerca(Per))
        Trovate.push_back(Chiavi[size_t(Posto)]);
    return Trovate;
}
