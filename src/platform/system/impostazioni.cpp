#include "platform/system/impostazioni.h"

#include "platform/base/errore.h"
#include "platform/system/file.h"

#include <QFileInfo>
#include <QSettings>
#include <QStringList>
#include <QTemporaryFile>

using namespace Qt::StringLiterals;

namespace {

/// One application's file, with one section open.
class Archivio
{
public:
    Archivio(const QString& Applicazione, const QString& Sezione)
        : Dati(QSettings::IniFormat, QSettings::UserScope, u"Calcanova"_s, Applicazione)
    {
        Dati.setFallbacksEnabled(false);
        Dati.beginGroup(Sezione);
    }

    /// The spelling under which a key is stored: a file touched by hand or by the companion application
    /// may have capitals, our own keys are lower case.
    [[nodiscard]] QString Grafia(const QString& Chiave) const
    {
        const QStringList Presenti = Dati.childKeys();
        const auto Trovata = std::ranges::find_if(
            Presenti, [&](const QString& k) { return k.compare(Chiave, Qt::CaseInsensitive) == 0; });
        return Trovata == Presenti.end() ? Chiave.toLower() : *Trovata;
    }

    QSettings Dati;
};

/// Bytes that a value may add to the store: each letter may be written as an escape, the key with "=" and the
/// end of its line, both perhaps behind a new section.
qint64 ByteAlPiu(const QString& Sezione, const QString& Chiave, const QString& Valore)
{
    constexpr qint64 PerLettera = 7;
    constexpr qint64 DiContorno = 16;
    return PerLettera * (Sezione.size() + Chiave.size() + Valore.size()) + DiContorno;
}

/// Refuses what the disk has no room for before the store is touched: the library that writes it takes a file
/// which a full disk has cut short for a whole one, and puts it in the place of the former.
void VerificaPosto(const QString& File, qint64 Altri)
{
    const QFileInfo Deposito(File);
    CreaCartella(Deposito.path());
    QTemporaryFile Prova(Deposito.path() + u"/.posto-XXXXXX"_s);
    const QByteArray Byte(Deposito.size() + Altri, ' ');
    if (!Prova.open() || Prova.write(Byte) != Byte.size() || !Prova.flush())
        throw Errore(errori::Accesso);
}

}  // namespace

QString PercorsoImpostazioni(const QString& Applicazione)
{
    return Archivio(Applicazione, {}).Dati.fileName();
}

QString GetSetting(const QString& Applicazione, const QString& Sezione, const QString& Chiave,
                   const QString& Predefinito)
{
    const Archivio Aperto(Applicazione, Sezione);
    const QVariant Valore = Aperto.Dati.value(Aperto.Grafia(Chiave), Predefinito);
    // An unquoted comma, as a hand would write "12,5", comes back as a list.
    return Valore.metaType().id() == QMetaType::QStringList ? Valore.toStringList().join(u',')
                                                            : Valore.toString();
}

void SaveSetting(const QString& Applicazione, const QString& Sezione, const QString& Chiave,
                 const QString& Valore)
{
    SaveSettings(Applicazione, Sezione, {{Chiave, Valore}});
}

void SaveSettings(const QString& Applicazione, const QString& Sezione,
                  const QList<std::pair<QString, QString>>& Valori)
{
    Archivio Aperto(Applicazione, Sezione);
    qint64 Nuovi = 0;
    for (const auto& [Chiave, Valore] : Valori)
        Nuovi += ByteAlPiu(Sezione, Chiave, Valore);
    VerificaPosto(Aperto.Dati.fileName(), Nuovi);
    QList<std::pair<QString, QVariant>> Prima;
    for (const auto& [Chiave, Valore] : Valori) {
        const QString Scritta = Aperto.Grafia(Chiave);
        Prima.prepend({Scritta, Aperto.Dati.value(Scritta)});
        Aperto.Dati.setValue(Scritta, Valore);
    }
    Aperto.Dati.sync();
    if (Aperto.Dati.status() == QSettings::NoError)
        return;
    // A damaged file is told as a failure although it was just written whole: the second time shows it.
    Archivio Ripetuto(Applicazione, Sezione);
    for (const auto& [Chiave, Valore] : Valori)
        Ripetuto.Dati.setValue(Ripetuto.Grafia(Chiave), Valore);
    Ripetuto.Dati.sync();
    if (Ripetuto.Dati.status() == QSettings::NoError)
        return;
    // What could not be written would otherwise be read back, and go to the disk with the next key.
    for (const auto& [Chiave, Valore] : Prima)
        Valore.isValid() ? Ripetuto.Dati.setValue(Chiave, Valore) : Ripetuto.Dati.remove(Chiave);
    throw Errore(errori::Accesso);
}
