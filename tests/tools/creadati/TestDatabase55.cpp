// parcelle55.mdb as a database beside parcelle.mdb: keys, columns, which offices go together, what opens with
// them.
#include "supporto/prova.h"

#include "platform/database/database.h"

#include <QMap>
#include <QSet>

#include <array>

using namespace Qt::StringLiterals;

class TestDatabase55 : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void compatibili();
    void precaricate();
    void nessunRifiutoPerNumero();
    void disgiuntaDal2012();
    void vociLibere();
    void identita();
    void comeQuelloDel2012();

private:
    [[nodiscard]] Recordset Riga(const QString& Sql) const { return Base.OpenRecordset(Sql); }
    [[nodiscard]] QStringList Colonna(const QString& Sql, const QString& Nome) const
    {
        QStringList Valori;
        for (Recordset Righe = Riga(Sql); !Righe.Eof(); Righe.MoveNext())
            Valori += Righe.Value(Nome).toString();
        return Valori;
    }

    Database Base;
    Database Prima;
};
PROVA(TestDatabase55);

void TestDatabase55::initTestCase()
{
    Base = OpenDatabase(ProgrammaDiProva() + u"parcelle55.mdb"_s, true);
    Prima = OpenDatabase(ProgrammaDiProva() + u"parcelle.mdb"_s, true);
}

/// A note may move to any office that has all the items of the one it leaves, and to no other.
void TestDatabase55::compatibili()
{
    QMap<int, QSet<QString>> Voci;
    for (Recordset Righe = Riga(u"SELECT IDAutor, CodOno FROM OnorariCiv WHERE NVoce<>'999'"_s); !Righe.Eof();
         Righe.MoveNext())
        Voci[Righe.Value(u"IDAutor"_s).toInt()].insert(Righe.Value(u"CodOno"_s).toString());
    for (Recordset Righe = Riga(u"SELECT IDAut, Compatib FROM Autorità WHERE TipoAut='CIV'"_s); !Righe.Eof();
         Righe.MoveNext()) {
        const int Ufficio = Righe.Value(u"IDAut"_s).toInt();
        QString Attesi = u","_s;
        for (const auto& [Vicino, Proprie] : Voci.asKeyValueRange())
            if (Proprie.contains(Voci[Ufficio]))
                Attesi += QString::number(Vicino) + u',';
        QCOMPARE(Righe.Value(u"Compatib"_s).toString(), Attesi);
    }
    QCOMPARE(Riga(u"SELECT * FROM Autorità WHERE TipoAut<>'CIV' AND Compatib<>'*'"_s).RecordCount(), 0);
}

/// A court opens with its phases in place, the precautionary ones left to who asks for them.
void TestDatabase55::precaricate()
{
    const auto Sole = [&](int Ufficio) {
        QStringList Voci;
        for (Recordset Righe =
                 Riga(u"SELECT * FROM OnorariCiv WHERE IDAutor=%1 ORDER BY NVis"_s.arg(Ufficio));
             !Righe.Eof(); Righe.MoveNext())
            if (Righe.Value(u"NVoce"_s).toString() < u"900"_s)
                Voci += Righe.Value(u"CodOno"_s).toString();
        return Voci.join(u' ');
    };
    QCOMPARE(Sole(102), u"301 302 303 304"_s);
    QCOMPARE(Sole(113), u"301 302 304"_s);
    QCOMPARE(Sole(116), u"306 307"_s);
    QCOMPARE(Sole(121), u"301 302 303 304"_s);
    QCOMPARE(Sole(124), u"301 302 303 304"_s);
    QCOMPARE(Riga(u"SELECT * FROM Autorità WHERE TipoAut<>'STR' AND PreLoad=0"_s).RecordCount(), 0);
    QCOMPARE(
        Riga(u"SELECT * FROM OnorariCiv WHERE IDAutor IN (121,122) AND NVoce IN ('91','92')"_s).RecordCount(),
        4);
}

/// 19 and 20 are refused a case of no certain value, which this decree does not do.
void TestDatabase55::nessunRifiutoPerNumero()
{
    for (const QString& Tabella : {u"OnorariCiv"_s, u"OnorariPen"_s, u"OnorariStra"_s})
        QCOMPARE(Riga(u"SELECT * FROM %1 WHERE NVoce IN ('19','20')"_s.arg(Tabella)).RecordCount(), 0);
    const Recordset Precetto = Riga(u"SELECT * FROM OnorariCiv WHERE CodOno='311'"_s);
    QCOMPARE(Precetto.Value(u"8Med"_s).toDouble(), 331.0);
}

void TestDatabase55::disgiuntaDal2012()
{
    const std::array<std::array<QString, 2>, 4> Chiavi{{{u"Autorità"_s, u"IDAut"_s},
                                                        {u"OnorariCiv"_s, u"CodOno"_s},
                                                        {u"OnorariPen"_s, u"IDOno"_s},
                                                        {u"OnorariStra"_s, u"IDOno"_s}}};
    QSet<int> Vecchie;
    QSet<int> Nuove;
    for (const auto& [Tabella, Chiave] : Chiavi) {
        const QString Sql = u"SELECT DISTINCT %1 FROM %2"_s.arg(Chiave, Tabella);
        for (Recordset Righe = Prima.OpenRecordset(Sql); !Righe.Eof(); Righe.MoveNext())
            Vecchie.insert(Righe.Value(Chiave).toInt() + (Tabella == u"Autorità" ? 100'000 : 0));
        for (const QString& Numero : Colonna(Sql, Chiave))
            Nuove.insert(Numero.toInt() + (Tabella == u"Autorità" ? 100'000 : 0));
    }
    QCOMPARE(Nuove.size(), 47 + 17 + 5 + 6);
    QVERIFY(!Nuove.intersects(Vecchie));
}

void TestDatabase55::vociLibere()
{
    const Recordset DelCivile = Riga(u"SELECT * FROM OnorariCiv WHERE NVoce='999'"_s);
    QCOMPARE(DelCivile.RecordCount(), 1);
    QCOMPARE(DelCivile.Value(u"6Med"_s), QVariant(0.0));
    const Recordset DelPenale = Riga(u"SELECT * FROM OnorariPen WHERE NVoce='999'"_s);
    QCOMPARE(DelPenale.RecordCount(), 1);
    QCOMPARE(DelPenale.Value(u"138Max"_s), QVariant(0.0));
    QCOMPARE(Riga(u"SELECT * FROM OnorariStra WHERE NVoce='999'"_s).RecordCount(), 1);
}

void TestDatabase55::identita()
{
    const Recordset Identita = Riga(u"Tariffa"_s);
    QCOMPARE(Identita.RecordCount(), 1);
    QCOMPARE(Identita.Value(u"Codice"_s).toString(), u"55"_s);
    QCOMPARE(Identita.Value(u"Nome"_s).toString(), u"D.m. 55/2014"_s);
    QCOMPARE(Identita.Value(u"Dal"_s).toString(), u"23/10/2022"_s);
    QCOMPARE(Identita.Value(u"Versione"_s).toInt(), 1);
}

/// The tables of the other one, with the same columns but for the numbers of brackets and offices, and four
/// more.
void TestDatabase55::comeQuelloDel2012()
{
    const auto Schema = [](const Database& Archivio, const QString& Tabella) {
        QStringList Colonne;
        for (const Campo& Cella : Archivio.Campi(Tabella))
            if (!Cella.Name[0].isDigit())
                Colonne += u"%1 %2 %3"_s.arg(Cella.Name).arg(int(Cella.Type)).arg(Cella.Size);
        return Colonne;
    };
    QStringList Tabelle = Base.Tabelle();
    for (const QString& Tabella : Prima.Tabelle()) {
        QVERIFY2(Tabelle.removeOne(Tabella), qPrintable(Tabella));
        QCOMPARE(Schema(Base, Tabella), Schema(Prima, Tabella));
    }
    Tabelle.sort();
    QCOMPARE(Tabelle, (QStringList{u"Corrispondenze"_s, u"PartiAssistite"_s, u"Tariffa"_s, u"Variazioni"_s}));
    for (const QString& Vuota : {u"ParcellaParam"_s, u"ParcellaRighe"_s, u"ParcellaAcconti"_s,
                                 u"DirittiValori"_s, u"ChiaviPrecedenti"_s})
        QCOMPARE(Riga(Vuota).RecordCount(), 0);
    QCOMPARE(Colonna(u"SELECT DescrDir FROM Diritti ORDER BY IDDir"_s, u"DescrDir"_s).size(), 40);
    Recordset Valori = Riga(u"DirittiValori"_s);
    Valori.ImpostaIndex(u"CodDir"_s);
}

#include "TestDatabase55.moc"
