#include "addressbook/testirubrica.h"

#include "platform/base/testopiano.h"

#include <algorithm>

namespace {

constexpr int Porzione = 4000;

/// Columns whose texts are shown as the file holds them.
bool ComeSta(const ColonnaRubrica& Colonna)
{
    switch (Colonna.Tipo) {
    case TipoCampo::Testo:
    case TipoCampo::Memo:
        return true;
    case TipoCampo::Byte:
    case TipoCampo::Intero:
    case TipoCampo::Lungo:
        return Colonna.Formato.isEmpty();
    default:
        return false;
    }
}

/// "gg/mm/aaaa" of a date without a time, as nearly all are; empty for anything else.
QByteArray DataSemplice(QByteArrayView Iso, const ColonnaRubrica& Colonna)
{
    constexpr qsizetype Lunga = 10;
    constexpr qsizetype DopoAnno = 4;
    constexpr qsizetype DopoMese = 7;
    if (Colonna.Tipo != TipoCampo::Data || !Colonna.Formato.isEmpty() || Iso.size() != Lunga ||
        Iso[DopoAnno] != '-' || Iso[DopoMese] != '-')
        return {};
    const auto Due = [&](qsizetype Da) { return Iso.sliced(Da, 2).toByteArray(); };
    return Due(DopoMese + 1) + '/' + Due(DopoAnno + 1) + '/' + Iso.first(DopoAnno).toByteArray();
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
    Composta.resize(0);  // its memory serves the next row
    for (int i = 0; i < Colonne.size(); ++i) {
        if (ComeSta(Colonne[i]))
            AccodaCella(Composta, Riga.Utf8(i));
        else if (const QByteArray Data = DataSemplice(Riga.Utf8(i), Colonne[i]); !Data.isEmpty())
            AccodaCella(Composta, Data);
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
