// The dialog that brings names in, with files to bring.
#pragma once

#include "addressbook/windows/frmImporta.h"
#include "archivio.h"
#include "platform/base/paginacodice.h"
#include "platform/kit/singola.h"
#include "platform/system/file.h"
#include "supporto/guasti.h"
#include "supporto/scrittoreaccess.h"

#include <QComboBox>
#include <QFile>
#include <QFileInfo>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QStackedWidget>

using namespace Qt::StringLiterals;

/// An archive, the dialog over it, and hands for its steps.
class BancoImportazione
{
protected:
    void Prepara();
    void Sgombra();

    [[nodiscard]] frmImporta* Apri(frmImporta::Modo Che = frmImporta::Nominativi, const QString& File = {},
                                   const QString& Tabella = u"clienti"_s) const
    {
        frmImporta& F = Singola<frmImporta>();
        F.Mostra({}, Tabella, Che, File);
        QApplication::setActiveWindow(&F);
        Respiro();
        return &F;
    }
    QString Salva(const QString& Nome, const QByteArray& Byte) const
    {
        const QString File = Cartella + Nome;
        ScriviFile(File, Byte);
        return File;
    }
    static void Premuto(const frmImporta* F, const char* Nome)
    {
        QTest::mouseClick(Controllo<QPushButton>(F, Nome), Qt::LeftButton);
        Respiro();
    }
    static QString Didascalia(const frmImporta* F, const char* Nome)
    {
        return Controllo<QPushButton>(F, Nome)->text().remove(u'&');
    }
    static int Pagina(const frmImporta* F) { return Controllo<QStackedWidget>(F, "pagine")->currentIndex(); }
    static QString Colonna(const frmImporta* F, int Riga, int Quale)
    {
        return Controllo<Griglia>(F, "tdbColonne")->Vista()->model()->index(Riga, Quale).data().toString();
    }
    [[nodiscard]] QStringList InArchivio(const QString& Tabella = u"clienti"_s) const
    {
        QStringList Nomi;
        for (Recordset R = OpenDatabase(A->File).OpenRecordset(Tabella); !R.Eof(); R.MoveNext())
            Nomi.append(R.Value(u"Nominativo"_s).toString());
        return Nomi;
    }
    /// Goes through all steps with a file of two names, one of which is there.
    frmImporta* Importato() const
    {
        frmImporta* F = Apri(frmImporta::Nominativi, Salva(u"nomi.csv"_s, DueNomi));
        for (int i = 0; i < 3; ++i)
            Premuto(F, "cmdAvanti");
        return F;
    }

    static inline const QByteArray DueNomi = "Cognome;Nome;CAP;Fax\nNeri;Ugo;55100;1\nROSSI;mario;56100;2\n";
    const QStringList Cinque{u"verdi Anna"_s, u"Àlvari Nicolò"_s, u"BRUNI Carla"_s, u"Rossi Mario"_s,
                             u"Rossi Ada"_s};
    QString Cartella;
    std::unique_ptr<ArchivioDiProva> A;
};

inline void BancoImportazione::Prepara()
{
    AzzeraSessione();
    A = std::make_unique<ArchivioDiProva>();
    Cartella = NuovaCartella();
    sessione::UserFolder = NuovaCartella();
}

inline void BancoImportazione::Sgombra()
{
    if (SeCaricato<frmImporta>)
        SeCaricato<frmImporta>->close();
    A.reset();
    AzzeraSessione();
}
