// An office of which an electronic invoice lacks nothing, and its client in the archive.
#pragma once

#include "programma.h"

#include <QDate>
#include <QFile>

/// A folder with an archive of clients, gone with the object.
class StudioCompleto
{
public:
    StudioCompleto()
    {
        const QString Programma = qEnvironmentVariable("CALCANOVA_CARTELLA");
        QFile Nomi(Radice.filePath(QStringLiteral("nomi.csv")));
        const bool Pronto =
            QFile::copy(Programma + QStringLiteral("/DatiStudio.mdb"), Archivio()) &&
            QFile::setPermissions(Archivio(), QFile::ReadOwner | QFile::WriteOwner) &&
            Nomi.open(QIODevice::WriteOnly) &&
            Nomi.write("Nominativo;Indirizzo;CAP;Citt\xc3\xa0;Prov;Codice fiscale;Codice destinatario\r\n"
                       "Rossi Mario;Via Roma, 12;55100;Lucca;LU;RSSMRA80A01H501U;ABC1234\r\n") > 0;
        Nomi.close();
        if (!Pronto || Comanda({QStringLiteral("--archivio"), Archivio(), QStringLiteral("importa"),
                                Nomi.fileName(), QStringLiteral("--in"), QStringLiteral("clienti")}) != 0)
            QTest::qFail("l'archivio dei clienti non si prepara", __FILE__, __LINE__);
    }

    /// Lines of the settings.
    [[nodiscard]] QString Impostazioni() const
    {
        return QStringLiteral("archivioclicon=") + Archivio() +
               QStringLiteral("\nstudioindir=Via Fillungo 3 - 55100 Lucca\nstudiopiva=01234567897"
                              "\nstudiocodfisc=CNTLRA70A41E715E\nstudiotitolarenome=Laura"
                              "\nstudiotitolarecognome=Conti\nstudiovia=Via Fillungo\nstudiocivico=3"
                              "\nstudiocap=55100\nstudiocomune=Lucca\nstudioprov=LU"
                              "\niban=IT60X0542811101000000123456\n");
    }
    [[nodiscard]] QString Archivio() const { return Radice.filePath(QStringLiteral("studio.mdb")); }

    /// Runs calcanova-cli. @return its exit code; Detto, where given, is what it has answered
    static int Comanda(const QStringList& Argomenti, QString* Detto = nullptr)
    {
        QProcess Comando;
        Comando.setProcessChannelMode(QProcess::MergedChannels);
        Comando.start(qEnvironmentVariable("CALCANOVA_CARTELLA") + QStringLiteral("/calcanova-cli"),
                      Argomenti);
        if (!Comando.waitForFinished(30000))
            return -1;
        if (Detto)
            *Detto = QString::fromUtf8(Comando.readAll());
        return Comando.exitCode();
    }

private:
    QTemporaryDir Radice;
};

/// A new note for the client of the archive, with the lines of its authority, as far as the panel of the
/// electronic invoice: by keys, but for the lists and boxes that are clicked. @return false where it stops
[[nodiscard]] inline bool FinoAllaFattura(Programma& P)
{
    if (!P.NuovaParcella())
        return false;
    P.Digita(QStringLiteral("rossi"));
    if (!P.Attendi(QStringLiteral("visto lstNomi_txtCliente"),
                   [](const QString& Visto) { return Visto == u"1"; }))
        return false;
    P.Premi({QStringLiteral("Down"), QStringLiteral("Return")});
    if (!P.Attendi(QStringLiteral("testo txtCliente"),
                   [](const QString& Nome) { return Nome == u"Rossi Mario"; }) ||
        !P.CompilaDatiBase() || !P.AllaScheda(QStringLiteral("Onorari")))
        return false;
    P.Premi(QStringLiteral("ctrl+p"));
    if (!P.Attendi(QStringLiteral("fuoco"), [](const QString& Nome) { return Nome == u"cmbTipoStampa"; }))
        return false;
    constexpr int Documenti = 8;
    for (int i = 0; i < Documenti && P.Chiedi(QStringLiteral("visto cmdFatturaXml")) != u"1"; ++i)
        P.Premi(QStringLiteral("Down"));
    for (const auto& [Casella, Testo] :
         {std::pair(QStringLiteral("txtDatiPar_11"), QStringLiteral("12")),
          std::pair(QStringLiteral("txtDatiPar_12"), QDate::currentDate().toString(u"dd/MM/yyyy"))}) {
        P.Clic(Casella, 3);
        P.Digita(Testo);
        P.Premi(QStringLiteral("Tab"));
    }
    if (!P.VaiA(QStringLiteral("cmdFatturaXml")))
        return false;
    P.Premi(QStringLiteral("space"));
    return P.Attendi(QStringLiteral("visto PannelloFattura"),
                     [](const QString& Visto) { return Visto == u"1"; });
}
