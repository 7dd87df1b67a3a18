// Reading a JSON object field by field: every refusal names the field.
#pragma once

#include "feenote/modDatiStampa.h"

#include <QJsonArray>
#include <QJsonObject>
#include <QJsonValue>
#include <QSet>
#include <QString>

#include <optional>

struct Errore;

/// An object of a description and the path that leads to it ("onorari[2]").
///
/// Fields are asked for by name; Finisci then refuses whatever was not asked for, so that a misspelt
/// field is reported and never ignored. Null counts as missing.
/// @throws Errore 13 everywhere where a value has the wrong type, 6 where a number is too large
class OggettoJson
{
public:
    OggettoJson(QString Percorso, const QJsonValue& Valore);

    [[nodiscard]] bool Ha(const QString& Campo) const;
    [[nodiscard]] QString Nome(const QString& Campo) const;  ///< full path of a field, for messages

    /// Text of at most `Massimo` characters; empty when missing. @throws Errore 3163 when longer
    [[nodiscard]] QString Testo(const QString& Campo, int Massimo = MassimoMemo);
    /// A number, or the Italian text of one ("1.234,50"); magnitude below 1E12.
    [[nodiscard]] std::optional<double> Numero(const QString& Campo);
    /// A number as above, not below 0.
    [[nodiscard]] std::optional<double> Positivo(const QString& Campo);
    [[nodiscard]] std::optional<int> Intero(const QString& Campo);
    [[nodiscard]] std::optional<bool> Booleano(const QString& Campo);
    /// A valid date, kept as the text dd/mm/yyyy; empty when missing.
    [[nodiscard]] QString Data(const QString& Campo);
    /// The field as it stands, for one that may be a number or a text.
    [[nodiscard]] QJsonValue Valore(const QString& Campo);
    /// True when the field is there and is Null: "switched off".
    [[nodiscard]] bool Nullo(const QString& Campo);

    [[nodiscard]] std::optional<OggettoJson> Oggetto(const QString& Campo);
    [[nodiscard]] QList<OggettoJson> Lista(const QString& Campo);

    /// @throws Errore 5 naming the first field that nobody asked for
    void Finisci() const;

    /// An error about a field: "Campo onorari[2].voce: <Motivo>".
    [[nodiscard]] static Errore Rifiuto(int Numero, const QString& Campo, const QString& Motivo);

private:
    [[nodiscard]] QJsonValue Prendi(const QString& Campo);

    QString Percorso;
    QJsonObject Dati;
    QSet<QString> Chiesti;
};
