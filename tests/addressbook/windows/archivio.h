// An office's archive for the tests of the address book, and hands for its browser.
#pragma once

#include "addressbook/windows/frmRubrica.h"
#include "addressbook/windows/rubriche.h"
#include "core/aperture.h"
#include "core/sessione.h"
#include "platform/grid/griglia.h"
#include "supporto/mani.h"
#include "supporto/prova.h"
#include "supporto/registratore.h"

#include <QAction>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QTableView>
#include <QToolBar>

/// What a note was handed.
struct SceltaAvuta
{
    int Indice = 0;
    int Numero = 0;
    QString Parent;
    QVariantList Valori;
};

/// An archive of five clients and two counterparties; the browsers go with the object.
class ArchivioDiProva
{
public:
    ArchivioDiProva()
    {
        using namespace Qt::StringLiterals;
        File = NuovaCartella() + u"DatiStudio.mdb"_s;
        const Database Db = CreateDatabase(File);
        for (const QString& Tabella : {u"clienti"_s, u"controparti"_s})
            Db.CreaTabella(Tabella, Campi());
        for (const auto& [Nome, Citta] :
             {std::pair(u"verdi Anna"_s, u"Lucca"_s), std::pair(u"Àlvari Nicolò"_s, u"Forlì"_s),
              std::pair(u"BRUNI Carla"_s, u"Pisa"_s), std::pair(u"Rossi Mario"_s, u"Lucca"_s),
              std::pair(u"Rossi Ada"_s, QString())})
            Db.Execute(u"INSERT INTO clienti (Nominativo, Citta) VALUES (?,?)"_s,
                       {Nome, Citta.isEmpty() ? QVariant() : QVariant(Citta)});
        Db.Execute(u"INSERT INTO controparti (Nominativo) VALUES ('Gamma Spa'), ('Delta Srl')"_s);
        sessione::ArchivioCliCon = File;
        Aperture.SceltaDaRubrica = [this](int Indice, int Numero, const QString& Parent,
                                          const QVariantList& Valori) {
            Scelte.push_back({Indice, Numero, Parent, Valori});
        };
        Aperture.NominativoCambiato = [this](const QString& Tabella, int ID) {
            Cambiati.append(Tabella + u' ' + QString::number(ID));
        };
    }
    ~ArchivioDiProva()
    {
        QList<QPointer<frmRubrica>> Aperte;
        for (QWidget* Finestra : QApplication::topLevelWidgets())
            if (auto* Rubrica = qobject_cast<frmRubrica*>(Finestra))
                Aperte.append(Rubrica);
        for (const QPointer<frmRubrica>& Rubrica : std::as_const(Aperte))
            delete Rubrica.data();
        Aperture = {};
    }
    ArchivioDiProva(const ArchivioDiProva&) = delete;
    ArchivioDiProva& operator=(const ArchivioDiProva&) = delete;

    /// The columns: a hidden one stands between those that show.
    static QList<Campo> Campi()
    {
        using namespace Qt::StringLiterals;
        return {{u"ID"_s, TipoCampo::Lungo, 0, u"L=N.,S=2"_s, true},
                {u"Nominativo"_s, TipoCampo::Testo, 60, u"L=Nominativo,S=40"_s, false},
                {u"CodFis"_s, TipoCampo::Testo, 16, u"V=N,L=Codice fiscale"_s, false},
                {u"Citta"_s, TipoCampo::Testo, 40, u"L=Città,S=10"_s, false},
                {u"Cap"_s, TipoCampo::Testo, 5, u"L=CAP"_s, false}};
    }

    [[nodiscard]] RichiestaRubrica DaNota(int Posto = 1) const
    {
        using namespace Qt::StringLiterals;
        return {.Indice = Posto,
                .Numero = 70 + Posto,
                .DataSource = File,
                .RecordSource = u"clienti"_s,
                .Selezione = true,
                .Parent = u"cli"_s,
                .MenuStart = {},
                .KeyStart = {}};
    }
    [[nodiscard]] RichiestaRubrica DaScrivania() const
    {
        RichiestaRubrica Chiesta = DaNota(0);
        Chiesta.Numero = 0;
        Chiesta.Selezione = false;
        return Chiesta;
    }

    /// Opens a browser and puts it in front. Null when it does not come up.
    static frmRubrica* Apri(const RichiestaRubrica& Chiesta)
    {
        ApriRubrica(Chiesta);
        frmRubrica* Rubrica = RubricaDi(Chiesta.Indice);
        if (Rubrica)
            QApplication::setActiveWindow(Rubrica);
        Respiro();
        return Rubrica;
    }

    QString File;
    std::vector<SceltaAvuta> Scelte;
    QStringList Cambiati;
    Registratore Voce;
};

inline Griglia* Lista(const frmRubrica* F)
{
    return Controllo<Griglia>(F, "tdbRubrica");
}
inline QString Cella(const frmRubrica* F, int Riga, int Colonna)
{
    return Lista(F)->Vista()->model()->index(Riga, Colonna).data().toString();
}
/// The names on view, from above.
inline QStringList Nomi(const frmRubrica* F)
{
    QStringList Tutti;
    for (int Riga = 0; Riga < Lista(F)->Righe(); ++Riga)
        Tutti += Cella(F, Riga, 1);
    return Tutti;
}
/// The name of the current row; the grid's and the recordset's are one.
inline QString Corrente(const frmRubrica* F)
{
    const auto Riga = Lista(F)->RigaCorrente();
    if (!Riga || *Riga != F->RigheMostrate().AbsolutePosition())
        return {};
    return Cella(F, *Riga, 1);
}
inline void VaiA(const frmRubrica* F, int Riga)
{
    Lista(F)->setFocus();
    ClicCella(Lista(F), Riga, 1);
}
inline QLineEdit* Vaglio(const frmRubrica* F)
{
    return Controllo<QLineEdit>(F, "txtFiltro");
}
inline QString Conto(const frmRubrica* F)
{
    return Controllo<QLabel>(F, "datNom")->text();
}
inline QAction* Azione(const frmRubrica* F, const char* Chiave)
{
    return Controllo<QAction>(F, Chiave);
}
inline void ClicTitolo(const frmRubrica* F, int Colonna)
{
    QHeaderView* Testata = Lista(F)->Vista()->horizontalHeader();
    const QPoint Dove(Testata->sectionViewportPosition(Colonna) + 20, Testata->height() / 2);
    QTest::mouseClick(Testata->viewport(), Qt::LeftButton, Qt::NoModifier, Dove);
}
/// The keys of the table, in the order of the file.
inline QList<int> Chiavi(const QString& File, const QString& Tabella = QStringLiteral("clienti"))
{
    QList<int> Tutte;
    Recordset Righe = OpenDatabase(File).OpenRecordset(Tabella);
    for (; !Righe.Eof(); Righe.MoveNext())
        Tutte += Righe.Value(QStringLiteral("ID")).toInt();
    return Tutte;
}
