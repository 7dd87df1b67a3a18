// What an office brings along: an archive and notes of Access, a spreadsheet, cards.
#pragma once

#include "programma.h"

#include "supporto/scrittoreaccess.h"

#include <QDir>
#include <QFile>

/// A folder with old files, gone with the object.
class VecchioStudio
{
public:
    VecchioStudio()
    {
        QDir(Radice.path()).mkdir(QStringLiteral("parcelle"));
        ScriviAccess(Access(), {.Tabelle = {Clienti()}});
        const TabellaScritta Nota{.Nome = QStringLiteral("ParcellaParam"),
                                  .Colonne = {{.Nome = QStringLiteral("Cliente")}},
                                  .Righe = {{QStringLiteral("Rossi Mario")}}};
        ScriviAccess(Parcelle() + QStringLiteral("/rossi.mdb"), {.Tabelle = {Nota}});
        Scrivi(Parcelle() + QStringLiteral("/rotta.mdb"), "x");
        Scrivi(Csv(), "Cognome;Nome;Codice fiscale;CAP;Citt\xe0;Fax\r\n"
                      "Rossi;Mario;RSSMRA80A01H501U;55100;Lucca;0583 1\r\n"
                      "Verdi;Anna;;50100;Firenze;\r\nVerdi;Anna;;;;\r\n;;;;Pisa;\r\n");
        Scrivi(Vcard(), "BEGIN:VCARD\r\nVERSION:3.0\r\nN:Neri;Ugo;;Avv.;\r\nTEL;TYPE=cell:333 1\r\n"
                        "EMAIL:u.neri@pec.it\r\nADR:;;Via Roma 1;Lucca;LU;55100;Italia\r\nPHOTO:AAAA\r\n"
                        "END:VCARD\r\n");
    }

    [[nodiscard]] QString Access() const { return Radice.filePath(QStringLiteral("vecchio.mdb")); }
    [[nodiscard]] QString Csv() const { return Radice.filePath(QStringLiteral("nomi.csv")); }
    [[nodiscard]] QString Vcard() const { return Radice.filePath(QStringLiteral("nomi.vcf")); }
    [[nodiscard]] QString Parcelle() const { return Radice.filePath(QStringLiteral("parcelle")); }
    [[nodiscard]] QString Copie() const { return Radice.filePath(QStringLiteral("copie")); }
    /// A spreadsheet with so many names.
    [[nodiscard]] QString Grande(int Nomi) const
    {
        const QString File = Radice.filePath(QStringLiteral("grande.csv"));
        QByteArray Righe("Nominativo;Indirizzo;CAP\r\n");
        for (int i = 0; i < Nomi; ++i)
            Righe += "Nome " + QByteArray::number(i) + ";Via Roma " + QByteArray::number(i) + ";55100\r\n";
        Scrivi(File, Righe);
        return File;
    }

private:
    static void Scrivi(const QString& Percorso, const QByteArray& Contenuto)
    {
        QFile File(Percorso);
        if (!File.open(QIODevice::WriteOnly) || File.write(Contenuto) != Contenuto.size())
            QTest::qFail(qPrintable(QStringLiteral("non si scrive ") + Percorso), __FILE__, __LINE__);
    }
    static TabellaScritta Clienti()
    {
        TabellaScritta Tabella{
            .Nome = QStringLiteral("clienti"),
            .Colonne = {{.Nome = QStringLiteral("ID"), .Tipo = tipoaccess::Lungo, .Contatore = true},
                        {.Nome = QStringLiteral("Nominativo"),
                         .Caratteri = 60,
                         .Descrizione = QStringLiteral("L=Cognome e nome,S=30")},
                        {.Nome = QStringLiteral("Citta"), .Descrizione = QStringLiteral("L=Città,S=20")},
                        {.Nome = QStringLiteral("Foto"), .Tipo = tipoaccess::Ole}}};
        const QStringList Nomi{QStringLiteral("Bianchi Carlo"), QStringLiteral("Omega Srl"),
                               QStringLiteral("Però Nicolò")};
        for (int i = 0; i < Nomi.size(); ++i)
            Tabella.Righe.append({i + 7, Nomi[i], QStringLiteral("Lucca"), QVariant()});
        return Tabella;
    }

    QTemporaryDir Radice;
};

/// Chooses a way of the import; beside its words a button is none.
inline void ScegliModo(Programma& P, const QString& Nome)
{
    constexpr int Cerchietto = 20;
    QRect Posto = P.Posto(Nome);
    Posto.setWidth(Cerchietto);
    P.Clic(Posto);
}

/// Opens the import from the address book of clients. @return false when it does not come
inline bool ApriImporta(Programma& P)
{
    P.Premi(QStringLiteral("ctrl+shift+r"));
    if (!P.Aperta(QStringLiteral("Archivio: clienti")))
        return false;
    P.Premi(QStringLiteral("ctrl+i"));
    return P.Aperta(QStringLiteral("Importa archivio"));
}
