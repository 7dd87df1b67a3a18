#include "addressbook/windows/frmRubrica.h"

#include "platform/kit/aspetto.h"

#include "ui_frmRubrica.h"

#include <utility>

using namespace Qt::StringLiterals;

frmRubrica::frmRubrica(const RichiestaRubrica& Chiesta)
    : Richiesta(Chiesta), ui(std::make_unique<Ui::frmRubrica>())
{
    ui->setupUi(this);
    setWindowTitle(u"Archivio: "_s + Richiesta.RecordSource);
    ApriTabella();
}

frmRubrica::~frmRubrica() = default;

void frmRubrica::ApriTabella()
{
    Archivio = OpenDatabase(FileRubrica(Richiesta.DataSource));
    Righe = Archivio.OpenRecordset(SqlRubrica(Richiesta.RecordSource));
    GridFromDB(Archivio, Righe);
    ui->tdbRubrica->Lega(Righe);
}

void frmRubrica::GridFromDB(const Database&, const Recordset& Nominativi)
{
    Colonne.clear();
    for (const ColonnaRubrica& Colonna : ColonneRubrica(Nominativi.Campi())) {
        AddGrigCol(Colonna.Nome, Colonna.Titolo, Colonna.Size, Colonna.Formato, Colonna.Maschera);
        Colonne.last().Tipo = Colonna.Tipo;
    }
    QList<ColonnaGriglia> DiGriglia;
    for (const ColonnaRubrica& Colonna : std::as_const(Colonne)) {
        ColonnaGriglia Nuova;
        Nuova.Titolo = Colonna.Titolo;
        Nuova.NomeCampo = Colonna.Nome;
        Nuova.Larghezza = aspetto::Pixel(LarghezzaTwip(Colonna.Size));
        Nuova.Mostra = [Colonna](const QVariant& Valore, int) { return TestoCella(Valore, Colonna); };
        DiGriglia.append(Nuova);
    }
    ui->tdbRubrica->ImpostaColonne(DiGriglia);
}

void frmRubrica::AddGrigCol(const QString& Nome, const QString& Titolo, int Size, const QString& Formato,
                            const QString& Maschera)
{
    Colonne.append({.Nome = Nome, .Titolo = Titolo, .Size = Size, .Formato = Formato, .Maschera = Maschera});
}
