// One file under the checks of the exchange system: its parts taken apart, the findings gathered.
#pragma once

#include "feenote/einvoice/controlli.h"
#include "feenote/einvoice/lettura.h"

#include <QDate>
#include <QMap>

/// An amount with what decides its tax.
struct ImportoEsaminato
{
    int Nodo = AlberoXml::Nessuno;
    double Importo = 0.0;
    double Aliquota = 0.0;
    QString Natura;
    bool Ritenuta = false;
};

/// One of the sums of a document.
struct RiepilogoEsaminato
{
    int Nodo = AlberoXml::Nessuno;
    double Aliquota = 0.0;
    QString Natura;
    double Arrotondamento = 0.0;
    double Imponibile = 0.0;
    double Imposta = 0.0;
    QString Esigibilita;
};

/// One document of the file.
struct CorpoEsaminato
{
    int Nodo = AlberoXml::Nessuno;
    int Generali = AlberoXml::Nessuno;  ///< DatiGenerali/DatiGeneraliDocumento
    QString Tipo;
    QString Numero;
    QDate Data;
    std::vector<ImportoEsaminato> Linee;
    std::vector<ImportoEsaminato> Casse;
    std::vector<RiepilogoEsaminato> Riepiloghi;
};

/// The file while it is looked at.
class Esame
{
public:
    Esame(const AlberoXml& DaVedere, const QDate& Giorno);

    /// The findings that follow are of this code.
    void Comincia(QStringView Codice, GravitaControllo Gravita);
    /// A finding; of one code no more than MassimoPerCodice are kept.
    void Segnala(int Nodo, const QString& Frase);

    const AlberoXml& Albero;
    QDate Oggi;
    int Testa = AlberoXml::Nessuno;
    std::vector<CorpoEsaminato> Corpi;
    QList<EsitoControllo> Esiti;

    static constexpr int MassimoPerCodice = 50;

private:
    QString CodiceCorrente;
    GravitaControllo GravitaCorrente = GravitaControllo::Avviso;
    int Detti = 0;
};

/// A number of the file; 0 for a text that is none.
[[nodiscard]] double NumeroXml(const QString& Testo);
/// An amount as a sentence shows it: "1234,50".
[[nodiscard]] QString CifraDetta(double Importo);
