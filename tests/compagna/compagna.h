// The companion application beside a test: a process of its own, gone with the object.
#pragma once

#include "platform/base/regionale.h"
#include "platform/database/database.h"
#include "platform/system/file.h"
#include "platform/system/percorsi.h"
#include "supporto/prova.h"

#include <QFile>
#include <QProcess>

class Compagna
{
public:
    Compagna() : Cartella(NuovaCartella())
    {
        Programma.setProcessChannelMode(QProcess::ForwardedErrorChannel);
        Programma.start(QStringLiteral(PROGRAMMA_COMPAGNA), {Archivio(), Cartella + QStringLiteral("uditi")});
        Avviata = Risposta() == "pronta";
    }
    ~Compagna()
    {
        Programma.closeWriteChannel();  // it ends when nobody speaks to it any more
        if (!Programma.waitForFinished(AttesaMs))
            Programma.kill();
    }
    Compagna(const Compagna&) = delete;
    Compagna& operator=(const Compagna&) = delete;

    [[nodiscard]] bool Pronta() const { return Avviata; }
    [[nodiscard]] QString Archivio() const { return Cartella + QStringLiteral("pratiche.mdb"); }
    /// Its folder of the fee notes' pages, made at the first call.
    [[nodiscard]] QString Pagine() const
    {
        CreaCartella(Cartella + QStringLiteral("Parcelle"));
        return Barra(Cartella + QStringLiteral("Parcelle"));
    }
    [[nodiscard]] bool Blocca() { return Chiedi("blocca") == "bloccato"; }
    [[nodiscard]] bool Sblocca() { return Chiedi("sblocca") == "sbloccato"; }
    /// What each caller has said to it so far.
    [[nodiscard]] QByteArrayList Uditi()
    {
        const qsizetype Quanti = Chiedi("conta").toInt();
        QByteArrayList Righe = LeggiFile(Cartella + QStringLiteral("uditi")).split('\n');
        Righe.removeLast();
        return Righe.size() == Quanti ? Righe : QByteArrayList{"conti che non tornano"};
    }
    /// The invoices of its archive, one text a row.
    [[nodiscard]] QStringList Fatture() const
    {
        QStringList Righe;
        Recordset Una = OpenDatabase(Archivio(), true).OpenRecordset(QStringLiteral("Fatture"));
        for (; !Una.Eof(); Una.MoveNext()) {
            QStringList Celle;
            for (const auto* Nome : {u"Rif", u"NumF", u"DataF", u"TipoF", u"ModoF", u"CorriF", u"IDContab"})
                Celle.append(CStr(Una.Value(QString::fromUtf16(Nome))));
            Righe.append(Celle.join(u'|'));
        }
        return Righe;
    }

private:
    static constexpr int AttesaMs = 10000;

    QByteArray Chiedi(const QByteArray& Comando)
    {
        Programma.write(Comando + '\n');
        return Risposta();
    }
    QByteArray Risposta()
    {
        while (!Programma.canReadLine())
            if (!Programma.waitForReadyRead(AttesaMs))
                return {};
        return Programma.readLine().trimmed();
    }

    QString Cartella;
    QProcess Programma;
    bool Avviata = false;
};
