// A document on its way out of the office, by keys and mouse as the display sends them: the mail that takes
// it along, the folder that it lies in, how it stands on its page and in the preview. Programs of the test's
// stand for the desktop's, and write down what they are given.
#include "moduli.h"
#include "studiocompleto.h"

#include <QFileInfo>
#include <QUrl>

using namespace Qt::StringLiterals;

class TestConsegnaCliente : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();
    void invia();
    void indirizzoEscluso();
    void apriCartella();
    void grandezzaRicordata();
    void unaPagina();

private:
    /// A client of the archive, with an address where one is given, and his note on the print tab: a
    /// quotation.
    void FinoAllaStampa(const QString& Email = {});
    /// What a program of the test's was given, once it was started.
    [[nodiscard]] QStringList Dati(const QString& Nome) const;
    [[nodiscard]] QString Corse() { return P->Chiedi(u"corse fogliStampa"_s); }

    std::unique_ptr<QTemporaryDir> Programmi;
    std::unique_ptr<StudioCompleto> Studio;
    std::unique_ptr<Programma> P;
    QByteArray PercorsoPrima;
};
PROVA(TestConsegnaCliente);

void TestConsegnaCliente::init()
{
    P.reset();
    Programmi = std::make_unique<QTemporaryDir>();
    Studio = std::make_unique<StudioCompleto>();
    PercorsoPrima = qgetenv("PATH");
    for (const QString& Nome : {u"xdg-email"_s, u"xdg-open"_s}) {
        QFile File(Programmi->filePath(Nome));
        QVERIFY(File.open(QIODevice::WriteOnly));
        QVERIFY(File.write(
                    "#!/bin/sh\nprintf '%s\\0' \"$@\" > \"$0.parti\"\nmv \"$0.parti\" \"$0.visto\"\n") > 0);
        QVERIFY(File.setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner));
    }
    qputenv("PATH", QFile::encodeName(Programmi->path()) + ':' + PercorsoPrima);
}

void TestConsegnaCliente::cleanup()
{
    if (QTest::currentTestFailed() && P)
        P->Fotografa(u"fallita_"_s + QString::fromLatin1(QTest::currentTestFunction()));
    P.reset();
    qputenv("PATH", PercorsoPrima);
}

QStringList TestConsegnaCliente::Dati(const QString& Nome) const
{
    QFile File(Programmi->filePath(Nome + u".visto"_s));
    if (!File.open(QIODevice::ReadOnly))
        return {};
    QStringList Tutti = QString::fromUtf8(File.readAll()).split(QChar(u'\0'));
    Tutti.removeLast();
    return Tutti;
}

void TestConsegnaCliente::FinoAllaStampa(const QString& Email)
{
    if (!Email.isEmpty()) {
        QFile Nomi(Programmi->filePath(u"nomi.csv"_s));
        QVERIFY(Nomi.open(QIODevice::WriteOnly));
        QVERIFY(Nomi.write("Nominativo;Email\r\nVerdi Anna;" + Email.toUtf8() + "\r\n") > 0);
        Nomi.close();
        QString Detto;
        QVERIFY2(StudioCompleto::Comanda({u"--archivio"_s, Studio->Archivio(), u"importa"_s, Nomi.fileName(),
                                          u"--in"_s, u"clienti"_s},
                                         &Detto) == 0,
                 qPrintable(Detto));
    }
    P = std::make_unique<Programma>(QStringList{}, Studio->Impostazioni());
    QVERIFY2(P->NuovaParcella(), qPrintable(P->Stato()));
    P->Digita(Email.isEmpty() ? u"rossi"_s : u"verdi"_s);
    ATTENDI(u"visto lstNomi_txtCliente"_s, "1");
    P->Premi({u"Down"_s, u"Return"_s});
    ATTENDI_CHE(P->Testo(u"txtCliente"_s) == (Email.isEmpty() ? u"Rossi Mario" : u"Verdi Anna"));
    QVERIFY2(P->CompilaDatiBase(), qPrintable(P->Stato()));
    QVERIFY2(P->AllaScheda(u"Onorari"_s), qPrintable(P->Stato()));
    P->Premi(u"ctrl+p"_s);
    ATTENDI(u"fuoco"_s, "cmbTipoStampa");
    P->Premi(u"Down"_s);
    ATTENDI_CHE(P->Testo(u"txtPage"_s).startsWith(u"1/"));
}

/// By Tab and Space: the mail has the document and the client's address, the note counts as sent.
void TestConsegnaCliente::invia()
{
    FinoAllaStampa(u"anna.verdi@posta.example"_s);
    if (QTest::currentTestFailed())
        return;
    ATTENDI(u"testo cmdStato"_s, "Stato: bozza");
    QVERIFY2(P->VaiA(u"barPrint_invia"_s), qPrintable(P->Stato()));
    P->Fotografa(u"stampa_invia"_s);
    P->Premi(u"space"_s);
    ATTENDI_CHE(!Dati(u"xdg-email"_s).isEmpty());
    const QStringList Scritti = Dati(u"xdg-email"_s);
    const auto Dietro = [&](const QString& Opzione) { return Scritti.value(Scritti.indexOf(Opzione) + 1); };
    QVERIFY2(!Dietro(u"--subject"_s).isEmpty() && Dietro(u"--subject"_s) != u"--utf8",
             qPrintable(Scritti.join(u'|')));
    QVERIFY2(Dietro(u"--body"_s).startsWith(u"Gentile Verdi Anna,"), qPrintable(Scritti.join(u'|')));
    QCOMPARE(Scritti.last(), u"anna.verdi@posta.example"_s);
    QFile Allegato(Dietro(u"--attach"_s));
    QVERIFY2(Allegato.fileName().startsWith(P->Casa() + u"/data/"_s), qPrintable(Allegato.fileName()));
    QVERIFY(QFileInfo(Allegato).fileName().startsWith(u"Verdi Anna - "));
    QVERIFY(Allegato.open(QIODevice::ReadOnly));
    QVERIFY(Allegato.read(4) == "%PDF");
    ATTENDI(u"testo cmdStato"_s, "Stato: inviata");
    QVERIFY2(P->Fermo(u"barPrint_invia"_s), qPrintable(P->Stato()));
}

/// By the mouse: the user is told why the recipient is empty, then the mail opens.
void TestConsegnaCliente::indirizzoEscluso()
{
    FinoAllaStampa(u"d'angelo@posta.example"_s);
    if (QTest::currentTestFailed())
        return;
    P->Clic(u"barPrint_invia"_s);
    ATTENDI_CHE(P->Messaggio().contains(u"«d'angelo@posta.example», contiene segni"));
    P->Fotografa(u"stampa_indirizzo_escluso"_s);
    QVERIFY(Dati(u"xdg-email"_s).isEmpty());
    P->Rispondi(u"Return"_s);
    ATTENDI_CHE(!Dati(u"xdg-email"_s).isEmpty());
    QVERIFY(Dati(u"xdg-email"_s).last().endsWith(u".pdf"));
    ATTENDI(u"testo cmdStato"_s, "Stato: inviata");
}

/// Return takes the box away, as ever; its other button shows the folder.
void TestConsegnaCliente::apriCartella()
{
    FinoAllaStampa();
    if (QTest::currentTestFailed())
        return;
    for (const bool Apre : {false, true}) {
        P->Clic(u"barPrint_pdf"_s);
        ATTENDI_CHE(P->Chiedi(u"attiva"_s).contains(u"Salva"));
        P->Premi(u"ctrl+a"_s);
        P->Digita(Apre ? u"seconda"_s : u"prima"_s);
        P->Premi(u"Return"_s);
        ATTENDI_CHE(P->Messaggio().contains(u"è stato salvato correttamente!"));
        P->Fotografa(u"esportato"_s);
        if (Apre) {
            P->Rispondi(u"Tab"_s);
            P->Premi(u"space"_s);
        } else {
            P->Rispondi(u"Return"_s);
        }
        ATTENDI(u"messaggio"_s, "");
        if (!Apre)
            QVERIFY2(Dati(u"xdg-open"_s).isEmpty(), "la cartella si è aperta da sola");
    }
    ATTENDI_CHE(!Dati(u"xdg-open"_s).isEmpty());
    const QString Cartella = QUrl(Dati(u"xdg-open"_s).last()).toLocalFile();
    QVERIFY2(QFileInfo::exists(Cartella + u"/seconda.pdf"_s), qPrintable(Cartella));
}

/// Two keys in the preview; the one chosen last is there with the next note.
void TestConsegnaCliente::grandezzaRicordata()
{
    FinoAllaStampa();
    if (QTest::currentTestFailed())
        return;
    const QString Prima = Corse();
    QVERIFY2(P->VaiA(u"fogliStampa"_s), qPrintable(P->Stato()));
    P->Premi(u"ctrl+1"_s);
    ATTENDI_CHE(Corse() == u"0 0");
    P->Fotografa(u"stampa_pagina_intera"_s);
    P->Premi(u"ctrl+2"_s);
    ATTENDI_CHE(Corse().startsWith(u"0 ") && Corse() != u"0 0");
    const QString Larga = Corse();
    QVERIFY2(Larga != Prima, qPrintable(Prima));
    P->Fotografa(u"stampa_larghezza_pagina"_s);
    P->Premi(u"ctrl+1"_s);
    ATTENDI_CHE(Corse() == u"0 0");
    // A note of its own begins with the last choice.
    P->Premi(u"ctrl+n"_s);
    ATTENDI(u"testo txtCliente"_s, "");
    QVERIFY2(P->CompilaDatiBase(), qPrintable(P->Stato()));
    QVERIFY2(P->AllaScheda(u"Onorari"_s), qPrintable(P->Stato()));
    P->Premi(u"ctrl+p"_s);
    ATTENDI(u"fuoco"_s, "cmbTipoStampa");
    P->Premi(u"Down"_s);
    ATTENDI_CHE(P->Testo(u"txtPage"_s).startsWith(u"1/"));
    ATTENDI_CHE(Corse() == u"0 0");
}

/// A document that runs over by a line comes back to one page, and to two again.
void TestConsegnaCliente::unaPagina()
{
    FinoAllaStampa();
    if (QTest::currentTestFailed())
        return;
    constexpr int Massimo = 60;
    for (int Riga = 0; Riga < Massimo && P->Testo(u"txtPage"_s) == u"1/1"; ++Riga) {
        P->Clic(u"txtDatiStaCli"_s);
        P->Premi({u"ctrl+End"_s, u"Return"_s});
        P->Digita(u"r"_s);
        P->Premi(u"Tab"_s);
        ATTENDI_CHE(P->Fuoco() != u"txtDatiStaCli");
    }
    ATTENDI(u"testo txtPage"_s, "1/2");
    P->Clic(u"chkUnaPagina"_s);
    ATTENDI(u"testo txtPage"_s, "1/1");
    ATTENDI(u"visto lblUnaPagina"_s, "");
    P->Fotografa(u"stampa_una_pagina"_s);
    QVERIFY2(P->VaiA(u"chkUnaPagina"_s), qPrintable(P->Stato()));
    P->Premi(u"space"_s);
    ATTENDI(u"testo txtPage"_s, "1/2");
    QCOMPARE(P->Messaggio(), QString());
}

#include "TestConsegnaCliente.moc"
