// The clients' archive, damaged in every way, under every command that reads a linked note: one sentence that
// names it, no document without the client's address and codes, and nothing said of a client who is there.
#include "ufficio.h"

#include "supporto/danni.h"

#include "platform/database/connessione.h"
#include "platform/system/attese.h"

#include <QDir>
#include <QFileInfo>
#include <QScopedValueRollback>

#include <memory>

using namespace Qt::StringLiterals;

namespace {

constexpr int Bloccato = Danni;  ///< sound, and in another program's hands

const QString Uscita = u"uscita"_s;

/// What a command leaves beside its answer; nothing for those that only answer.
QString FileUscito(const Ufficio& Studio, const QStringList& Comando)
{
    return Comando.last().startsWith(Uscita) ? Studio.Cartella + Comando.last() : QString();
}

Esito Esegui(const Ufficio& Studio, QStringList Comando)
{
    for (QString& Parola : Comando) {
        if (Parola == u"NOTA")
            Parola = Studio.Cartella + u"nota.mdb"_s;
        else if (Parola == u"CARTELLA")
            Parola = Studio.Cartella;
        else if (Parola.startsWith(Uscita))
            Parola = Studio.Cartella + Parola;
    }
    return Chiama(QStringList{u"--archivio"_s, Studio.Archivio} + Comando);
}

}  // namespace

class TestCliArchivio : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void unaFraseENessunDocumento_data();
    void unaFraseENessunDocumento();
    void chiScriveDaSeNonAspetta();
};
PROVA(TestCliArchivio);

void TestCliArchivio::unaFraseENessunDocumento_data()
{
    QTest::addColumn<QStringList>("Comando");
    QTest::addColumn<int>("Come");

    const QStringList Comandi[] = {
        {u"stampa"_s, u"NOTA"_s, u"0"_s, Uscita + u".txt"_s},
        {u"stampa"_s, u"NOTA"_s, u"1"_s, Uscita + u".txt"_s},
        {u"stampa"_s, u"NOTA"_s, u"2"_s, Uscita + u".htm"_s},
        {u"stampa"_s, u"NOTA"_s, u"3"_s, Uscita + u".doc"_s},
        {u"stampa"_s, u"NOTA"_s, u"3"_s, Uscita + u".txt"_s},
        {u"stampa"_s, u"NOTA"_s, u"5"_s, Uscita + u".txt"_s},
        {u"stampa"_s, u"NOTA"_s, u"6"_s, Uscita + u".txt"_s},
        {u"fattura"_s, u"NOTA"_s, Uscita + u".xml"_s},
        {u"scadenzario"_s, u"CARTELLA"_s, u"--csv"_s, Uscita + u".csv"_s},
        {u"scadenzario"_s, u"CARTELLA"_s},
        {u"trova"_s, u"CARTELLA"_s},
        {u"nota"_s, u"NOTA"_s},
    };
    for (const QStringList& Comando : Comandi)
        for (int Come = 0; Come <= Bloccato; ++Come) {
            // An office without an archive has the names of its notes.
            if (Come == Mancante && (Comando.first() == u"trova" || Comando.first() == u"scadenzario"))
                continue;
            QTest::addRow("%s: %s", qPrintable(Comando.join(u' ')),
                          Come == Bloccato ? "locked" : NomiDanni[size_t(Come)])
                << Comando << Come;
        }
}

void TestCliArchivio::unaFraseENessunDocumento()
{
    QFETCH(QStringList, Comando);
    QFETCH(int, Come);
    const QScopedValueRollback Fretta(attese::BlocchiMs, 20);
    const Ufficio Studio;
    (void)Studio.Nota();
    const QString File = FileUscito(Studio, Comando);
    const Esito Sano = Esegui(Studio, Comando);
    QVERIFY2(Sano.Stato == 0, qPrintable(Sano.Guasti));
    QVERIFY(File.isEmpty() || QFile::remove(File));
    if (Comando.first() == u"fattura")
        (void)Studio.Nota();  // as before it was invoiced
    std::unique_ptr<Connessione> Altro;
    if (Come == Bloccato) {
        Altro = std::make_unique<Connessione>(Studio.Archivio, Connessione::Modo::Scrittura);
        Altro->Esegui(u"BEGIN EXCLUSIVE"_s);
    } else {
        Rovina(Studio.Archivio, Come);
    }
    const Esito Avuto = Esegui(Studio, Comando);
    QCOMPARE(Avuto.Stato, 1);
    QVERIFY2(Avuto.Guasti.count(u"DatiStudio.mdb"_s) == 1, qPrintable(Avuto.Guasti));
    QCOMPARE(Avuto.Guasti.trimmed().count(u'\n'), 0);
    QVERIFY2(!Avuto.Guasti.contains(u"trovato!"_s), qPrintable(Avuto.Guasti));
    QVERIFY2(File.isEmpty() || !QFileInfo::exists(File), "a document with a hole");
    QCOMPARE(QDir(Studio.Cartella).entryList({Uscita + u'*'}), QStringList());
    QCOMPARE(Avuto.Uscita.isEmpty(), !File.isEmpty());
}

// A note without a link has all that it prints.
void TestCliArchivio::chiScriveDaSeNonAspetta()
{
    const Ufficio Studio;
    (void)Studio.Nota([](Parcella& Nota) { Nota.IDCli = 0; });
    Rovina(Studio.Archivio, Svuotato);
    const Esito Avuto = Esegui(Studio, {u"stampa"_s, u"NOTA"_s, u"0"_s, Uscita + u".txt"_s});
    QCOMPARE(Avuto.Guasti, QString());
    QCOMPARE(Avuto.Stato, 0);
    QVERIFY(QFileInfo::exists(Studio.Cartella + Uscita + u".txt"_s));
}

#include "TestCliArchivio.moc"
