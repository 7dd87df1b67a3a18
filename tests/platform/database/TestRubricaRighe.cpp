// What a browser of many names asks of rows: their order for readers, many at once, some of them, one put
// back.
#include "platform/base/testopiano.h"
#include "platform/database/clienti.h"
#include "platform/database/connessione.h"
#include "supporto/guasti.h"

using namespace Qt::StringLiterals;

class TestRubricaRighe : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    void iByteComeIlTesto_data();
    void iByteComeIlTesto();
    void ogniLetteraLatina();
    void ordineSenzaAccenti_data();
    void ordineSenzaAccenti();
    void ordineSulMotore();
    void ilSegnalibroNellOrdine();
    void oltreI255Caratteri();
    void scorreAPezzi();
    void scorreColonnaIgnota();
    void ristretteNelLoroOrdine_data();
    void ristretteNelLoroOrdine();
    void ristretteAChiaviLontane();
    void rimessaConLaSuaChiave();
    void rimessaComEra();
    void rimessaDueVolte();
    void rimessaInSolaLettura();
    void laVersioneSegueLeScritture();
    void cheCosaSiScrive();

private:
    Recordset Ordinate(const QString& Verso) const
    {
        return Db.OpenRecordset(u"SELECT * FROM \"Nomi\" ORDER BY \"Nome\" COLLATE SenzaAccenti"_s + Verso);
    }
    Database Db;
};
PROVA(TestRubricaRighe);

namespace {

QStringList Nomi(Recordset Righe)
{
    QStringList Letti;
    for (Righe.MoveFirst(); !Righe.Eof(); Righe.MoveNext())
        Letti << Righe.Value(u"Nome"_s, u"-"_s).toString() + Righe.Value(u"ID"_s).toString();
    return Letti;
}

}  // namespace

void TestRubricaRighe::init()
{
    Db = CreateDatabase(NuovaCartella() + u"prova.mdb"_s);
    Db.CreaTabella(u"Nomi"_s, {{u"ID"_s, TipoCampo::Lungo, 0, {}, true},
                               Colonna(u"Nome"_s, TipoCampo::Testo, 10),
                               Colonna(u"Nata"_s, TipoCampo::Data)});
    Transazione Insieme(Db);
    for (const QVariant& Nome : {QVariant(u"verdi"_s), QVariant(u"Zanon"_s), QVariant(),
                                 QVariant(u"Àlvari"_s), QVariant(u"ALVARI"_s), QVariant(u""_s),
                                 QVariant(u"d’Este"_s), QVariant(u"D'este"_s), QVariant(u"alvarez"_s)})
        Db.Execute(u"INSERT INTO Nomi (Nome) VALUES (?)"_s, {Nome});
    Insieme.Conferma();
}

void TestRubricaRighe::iByteComeIlTesto_data()
{
    QTest::addColumn<QString>("Testo");
    for (const auto& Testo : {u""_s, u"ABZaz09@[`{"_s, u"Nicolò d’Éste"_s, u"Straße ﬁne"_s, u"ĐÀ\u0301"_s,
                              u"Łódź Škoda İstanbul ª½"_s, u"Ω мир"_s, u"caffé\u0301"_s})
        QTest::newRow(qPrintable(Testo)) << Testo;
}

void TestRubricaRighe::iByteComeIlTesto()
{
    QFETCH(QString, Testo);
    QByteArray Byte("prima ");
    AccodaPiano(Byte, Testo.toUtf8());
    QCOMPARE(QString::fromUtf8(Byte), u"prima "_s + TestoPiano(Testo));
}

void TestRubricaRighe::ogniLetteraLatina()
{
    QByteArray Insieme;
    QString Tutte;
    for (int Codice = 0x20; Codice < 0x260; ++Codice) {
        QByteArray Byte;
        AccodaPiano(Byte, QString(QChar(Codice)).toUtf8());
        QCOMPARE(QString::fromUtf8(Byte), TestoPiano(QString(QChar(Codice))));
        Tutte += QChar(Codice);
    }
    AccodaPiano(Insieme, Tutte.toUtf8());
    QCOMPARE(QString::fromUtf8(Insieme), TestoPiano(Tutte));
    // Bytes that are no text do no harm.
    QByteArray Rotti("a");
    AccodaPiano(Rotti, QByteArrayView("b\xC3", 2));
    QVERIFY(Rotti.startsWith("ab"));
}

void TestRubricaRighe::ordineSenzaAccenti_data()
{
    QTest::addColumn<QString>("Verso");
    QTest::addColumn<QStringList>("Attesi");
    const QStringList Crescenti{u"-3"_s,      u"6"_s,       u"alvarez9"_s, u"Àlvari4"_s, u"ALVARI5"_s,
                                u"d’Este7"_s, u"D'este8"_s, u"verdi1"_s,   u"Zanon2"_s};
    QTest::newRow("crescente") << u" ASC"_s << Crescenti;
    QTest::newRow("senza verso") << QString() << Crescenti;
    // Names that are level stay in the order of their keys.
    QTest::newRow("decrescente") << u" DESC"_s << QStringList{u"Zanon2"_s,   u"verdi1"_s,  u"d’Este7"_s,
                                                              u"D'este8"_s,  u"Àlvari4"_s, u"ALVARI5"_s,
                                                              u"alvarez9"_s, u"6"_s,       u"-3"_s};
}

void TestRubricaRighe::ordineSenzaAccenti()
{
    QFETCH(QString, Verso);
    QTEST(Nomi(Ordinate(Verso)), "Attesi");
}

/// The collation is the same where the engine sorts: with a condition, or by more than one column.
void TestRubricaRighe::ordineSulMotore()
{
    const Recordset Motore =
        Db.OpenRecordset(u"SELECT * FROM Nomi WHERE ID>0 ORDER BY Nome COLLATE SenzaAccenti DESC"_s);
    QCOMPARE(Nomi(Motore), Nomi(Ordinate(u" DESC"_s)));
}

void TestRubricaRighe::ilSegnalibroNellOrdine()
{
    Recordset Righe = Db.OpenRecordset(u"Nomi"_s);
    Righe.FindFirst(u"ID=2"_s);
    Recordset Messe = Ordinate(u" ASC"_s);
    Messe.ImpostaBookmark(Righe.Bookmark());
    QCOMPARE(Messe.Value(u"Nome"_s).toString(), u"Zanon"_s);
    QCOMPARE(Messe.AbsolutePosition(), 8);
}

void TestRubricaRighe::oltreI255Caratteri()
{
    const Campo Note{u"Note"_s, TipoCampo::Memo, 0, {}, false};
    Db.CreaTabella(u"Lunghi"_s, {{u"ID"_s, TipoCampo::Lungo, 0, {}, true}, Note});
    const QString Comune(254, u'è');
    for (const QString& Coda : {u"b"_s, u"a"_s, u"az"_s, u"ab"_s})
        Db.Execute(u"INSERT INTO Lunghi (Note) VALUES (?)"_s, {Comune + Coda});
    Recordset Righe = Db.OpenRecordset(u"SELECT * FROM Lunghi ORDER BY Note COLLATE SenzaAccenti"_s);
    QStringList Chiavi;
    for (; !Righe.Eof(); Righe.MoveNext())
        Chiavi += Righe.Value(u"ID"_s).toString();
    QCOMPARE(Chiavi.join(u' '), u"2 3 4 1"_s);  // the 255th character counts, those behind it do not
}

void TestRubricaRighe::scorreAPezzi()
{
    Recordset Righe = Ordinate(u" DESC"_s);
    Righe.MoveLast();
    std::optional<qint64> Dopo;
    QStringList Letti;
    int Pezzi = 0;
    do {
        Dopo = Righe.Scorri({u"nome"_s, u"ID"_s}, Dopo, 4, [&](const RigaScorsa& Riga) {
            QCOMPARE(Riga.Valore(1).toLongLong(), Riga.Chiave());
            Letti += QString::fromUtf8(Riga.Utf8(0)) + QString::number(Riga.Chiave());
        });
        ++Pezzi;
    } while (Dopo);
    QCOMPARE(Pezzi, 3);
    QCOMPARE(Letti, (QStringList{u"verdi1"_s, u"Zanon2"_s, u"3"_s, u"Àlvari4"_s, u"ALVARI5"_s, u"6"_s,
                                 u"d’Este7"_s, u"D'este8"_s, u"alvarez9"_s}));
    QCOMPARE(Righe.AbsolutePosition(), 8);
}

void TestRubricaRighe::scorreColonnaIgnota()
{
    const Recordset Righe = Db.OpenRecordset(u"Nomi"_s);
    const ErroreVisto Guasto =
        ErroreDi([&] { (void)Righe.Scorri({u"Nessuna"_s}, std::nullopt, 1, [](const RigaScorsa&) {}); });
    QCOMPARE(Guasto.Numero, 3265);
}

void TestRubricaRighe::ristretteNelLoroOrdine_data()
{
    QTest::addColumn<QList<int>>("Chiavi");
    QTest::addColumn<QStringList>("Attesi");
    QTest::newRow("nessuna") << QList<int>{} << QStringList{};
    QTest::newRow("alcune") << QList<int>{1, 4, 9} << QStringList{u"alvarez9"_s, u"Àlvari4"_s, u"verdi1"_s};
    QTest::newRow("di altre tabelle") << QList<int>{-5, 2, 700} << QStringList{u"Zanon2"_s};
}

void TestRubricaRighe::ristretteNelLoroOrdine()
{
    QFETCH(QList<int>, Chiavi);
    const Recordset Tutte = Ordinate(u" ASC"_s);
    const Recordset Poche = Tutte.Ristretto({Chiavi.cbegin(), Chiavi.cend()});
    QTEST(Nomi(Poche), "Attesi");
    QCOMPARE(Tutte.RecordCount(), 9);
}

void TestRubricaRighe::ristretteAChiaviLontane()
{
    constexpr qint64 Lontana = qint64(1) << 40;
    Db.Execute(u"INSERT INTO Nomi (ID, Nome) VALUES (?, 'Lontana')"_s, {Lontana});
    const Recordset Poche = Db.OpenRecordset(u"Nomi"_s).Ristretto({2, 4, Lontana});
    QCOMPARE(Poche.RecordCount(), 3);
    QCOMPARE(Nomi(Poche).first(), u"Zanon2"_s);
}

void TestRubricaRighe::rimessaConLaSuaChiave()
{
    Recordset Righe = Db.OpenRecordset(u"Nomi"_s);
    Righe.FindFirst(u"ID=4"_s);
    const QVariantList Celle = Righe.Grezza();
    Righe.Delete();
    Righe.Rimetti(Celle);
    QCOMPARE(Righe.RecordCount(), 9);
    QCOMPARE(Righe.AbsolutePosition(), 8);
    QCOMPARE(Righe.Value(u"ID"_s).toInt(), 4);
    QCOMPARE(Nomi(Db.OpenRecordset(u"Nomi"_s)).at(3), u"Àlvari4"_s);
}

/// What a file of another origin holds against its own columns comes back too.
void TestRubricaRighe::rimessaComEra()
{
    Db.Execute(u"UPDATE Nomi SET Nome='oltre i dieci caratteri', Nata='ieri' WHERE ID=1"_s);
    Recordset Righe = Db.OpenRecordset(u"Nomi"_s);
    const QVariantList Celle = Righe.Grezza();
    QCOMPARE(Celle.at(2).toString(), u"ieri"_s);
    Righe.Delete();
    Righe.Rimetti(Celle);
    QCOMPARE(Righe.Grezza(), Celle);
}

void TestRubricaRighe::rimessaDueVolte()
{
    Recordset Righe = Db.OpenRecordset(u"Nomi"_s);
    const QVariantList Celle = Righe.Grezza();
    const ErroreVisto Guasto = ErroreDi([&] { Righe.Rimetti(Celle); });
    QCOMPARE(Guasto.Numero, 3022);
    QCOMPARE(Righe.EditMode(), 0);
    QCOMPARE(Righe.RecordCount(), 9);
}

void TestRubricaRighe::rimessaInSolaLettura()
{
    Recordset Righe = OpenDatabase(Db.Percorso(), true).OpenRecordset(u"Nomi"_s);
    const ErroreVisto Guasto = ErroreDi([&] { Righe.Rimetti(Righe.Grezza()); });
    QCOMPARE(Guasto.Numero, 3027);
}

void TestRubricaRighe::laVersioneSegueLeScritture()
{
    const quint64 Prima = Db.Versione();
    Recordset Righe = Ordinate(u" ASC"_s);
    (void)Nomi(Righe);
    QCOMPARE(Db.Versione(), Prima);
    Righe.MoveFirst();
    Righe.Edit();
    Righe.ImpostaValue(u"Nome"_s, u"Bruni"_s);
    Righe.Update();
    const quint64 Dopo = Db.Versione();
    QVERIFY(Dopo != Prima);
    {
        Connessione DiUnAltro(Db.Percorso(), Connessione::Modo::Scrittura);
        DiUnAltro.Esegui(u"UPDATE Nomi SET Nome='Carli' WHERE ID=1"_s);
    }
    QVERIFY(Db.Versione() != Dopo);
}

void TestRubricaRighe::cheCosaSiScrive()
{
    Recordset Righe = Db.OpenRecordset(u"Nomi"_s);
    QCOMPARE(Recordset().EditMode(), 0);
    QCOMPARE(Righe.EditMode(), 0);
    Righe.Edit();
    QCOMPARE(Righe.EditMode(), 1);
    Righe.AddNew();
    QCOMPARE(Righe.EditMode(), 2);
    Righe.CancelUpdate();
    QCOMPARE(Righe.EditMode(), 0);
    Righe.Edit();
    Righe.MoveNext();
    QCOMPARE(Righe.EditMode(), 0);
}

#include "TestRubricaRighe.moc"
