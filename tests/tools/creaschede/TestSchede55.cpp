// The information sheets of the tariff of 2014, held against its database and against what is known of its
// sources.
#include "scheda.h"

#include "feenote/modOnorari.h"
#include "platform/database/database.h"
#include "tariffs/modEvaluate.h"
#include "tariffs/modTariffe.h"

#include <cmath>

using namespace Qt::StringLiterals;

namespace {

Database Base()
{
    return OpenDatabase(ProgrammaDiProva() + u"parcelle55.mdb"_s, true);
}

/// Rows of the facts, their fields by name; the sources stand in the last one.
QList<QStringList> Fatti()
{
    QList<QStringList> Righe;
    for (const QString& Riga :
         QString::fromUtf8(LeggiFile(FileDiProva(u"casi/compensi55.csv"_s))).split(u'\n', Qt::SkipEmptyParts))
        Righe += Riga.split(u';');
    return Righe.mid(1);
}

QStringList Terna(const Recordset& Voce, int Numero)
{
    QStringList Importi;
    for (const QString& Estremo : {u"Min"_s, u"Med"_s, u"Max"_s}) {
        const QVariant Cella = Voce.Value(QString::number(Numero) + Estremo);
        if (!Cella.isValid())
            return {u"non previsto"_s};
        Importi += Format(Cella.toDouble(), u"#,##0.00");
    }
    return Importi;
}

/// The first cell of a row is a name, with " *" behind it where its amounts are in doubt.
QStringList RigaConSegno(const QList<TabellaLetta>& Tabelle, const QString& Nome)
{
    const QStringList Riga = RigaDi(Tabelle, Nome);
    return Riga.isEmpty() ? RigaDi(Tabelle, Nome + u" *"_s) : Riga;
}

}  // namespace

class TestSchede55 : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cifreCivili();
    void cifrePenali();
    void formuleStragiudiziali();
    void esempi();
    void dubbiDoveLaFonteMancava();
    void diconoLaTariffa();
};
PROVA(TestSchede55);

void TestSchede55::cifreCivili()
{
    const Database Tariffa = Base();
    int Viste = 0;
    for (Recordset Voci = Tariffa.OpenRecordset(
             u"SELECT DesAut, OnorariCiv.* FROM OnorariCiv INNER JOIN Autorità ON IDAut=IDAutor"_s);
         !Voci.Eof(); Voci.MoveNext()) {
        const QString File = FileScheda(u"CIV"_s, Voci.Value(u"CodOno"_s));
        QList<TabellaLetta> Proprie;
        for (const TabellaLetta& Tabella : Leggi(File).Tabelle)
            if (Tabella.Prima.split(u"; "_s).contains(Voci.Value(u"DesAut"_s).toString()))
                Proprie += Tabella;
        QCOMPARE(Proprie.size(), 1);
        for (Recordset Scaglioni = Tariffa.OpenRecordset(u"SELECT * FROM Scaglioni WHERE Materia='C'"_s);
             !Scaglioni.Eof(); Scaglioni.MoveNext()) {
            QCOMPARE(RigaDi(Proprie, Scaglioni.Value(u"DesVal"_s).toString()).mid(1),
                     Terna(Voci, Scaglioni.Value(u"NumSca"_s).toInt()));
            ++Viste;
        }
    }
    QCOMPARE(Viste, 84 * 14);
}

void TestSchede55::cifrePenali()
{
    const Database Tariffa = Base();
    int Viste = 0;
    for (Recordset Voci = Tariffa.OpenRecordset(u"SELECT * FROM OnorariPen WHERE NVoce<>'999'"_s);
         !Voci.Eof(); Voci.MoveNext()) {
        const QList<TabellaLetta>& Tabelle = Leggi(FileScheda(u"PEN"_s, Voci.Value(u"IDOno"_s))).Tabelle;
        for (Recordset Uffici = Tariffa.OpenRecordset(u"SELECT * FROM Autorità WHERE TipoAut='PEN'"_s);
             !Uffici.Eof(); Uffici.MoveNext()) {
            QCOMPARE(RigaConSegno(Tabelle, Uffici.Value(u"DesAut"_s).toString()).mid(1),
                     Terna(Voci, Uffici.Value(u"IDAut"_s).toInt()));
            ++Viste;
        }
    }
    QCOMPARE(Viste, 4 * 18);
}

void TestSchede55::formuleStragiudiziali()
{
    const Database Tariffa = Base();
    int Viste = 0;
    for (Recordset Voci = Tariffa.OpenRecordset(u"SELECT * FROM OnorariStra WHERE NVoce<>'999'"_s);
         !Voci.Eof(); Voci.MoveNext()) {
        const QList<TabellaLetta>& Tabelle = Leggi(FileScheda(u"STR"_s, Voci.Value(u"IDOno"_s))).Tabelle;
        const QStringList Ovunque = RigaDi(Tabelle, u"qualunque"_s);
        for (Recordset Scaglioni = Tariffa.OpenRecordset(u"SELECT * FROM Scaglioni WHERE Materia='S'"_s);
             !Scaglioni.Eof(); Scaglioni.MoveNext()) {
            const int Numero = Scaglioni.Value(u"NumSca"_s).toInt();
            const QStringList Riga =
                Ovunque.isEmpty() ? RigaConSegno(Tabelle, Scaglioni.Value(u"DesVal"_s).toString()) : Ovunque;
            const double x = Scaglioni.Value(u"DaVal"_s).toDouble() + 345.67;
            for (const auto& [Posto, Estremo] : {std::pair{1, u"Min"_s}, std::pair{2, u"Max"_s}}) {
                const QVariant Formula = Voci.Value(QString::number(Numero) + Estremo);
                ++Viste;
                if (!Formula.isValid()) {
                    QCOMPARE(Riga.mid(1), QStringList{u"non previsto"_s});
                    continue;
                }
                int Codice = -1;
                const double Valore = ValutaEspressione(Formula.toString(), x, Codice);
                QCOMPARE(Codice, 0);
                QVERIFY2(std::abs(ValoreDelleParole(Riga[Posto], x) - Valore) < 0.005,
                         qPrintable(Riga[Posto]));
            }
        }
    }
    QCOMPARE(Viste, 5 * 18 * 2);
}

/// 750,000 euro: what 520,000 are worth and three in the hundred of the rest; in the note to the cent.
void TestSchede55::esempi()
{
    const TabellaLetta Conto = Leggi(u"S501.htm"_s).Tabelle.last();
    QCOMPARE(Conto.Prima, u"Valore dell'affare € 750.000,00."_s);
    QCOMPARE(RigaDi({Conto}, u"Medio"_s).last(), Format(6164 + 230'000 * 0.03, u"#,##0.00"));
    const TabellaLetta Mediazione = Leggi(u"S502.htm"_s).Tabelle.last();
    QCOMPARE(RigaDi({Mediazione}, u"Minimo"_s).last(), u"220,50"_s);
    // Two hours and three quarters are three; half an hour above is none.
    const SchedaLetta Ora = Leggi(u"S505.htm"_s);
    QCOMPARE(RigaDi({Ora.Tabelle.last()}, u"Massimo"_s).last(), u"1.500,00"_s);
    QCOMPARE(Ora.Tabelle.last().Prima, u"Valore dell'affare € 10.000,00, quantità 2,75 (conta 3)."_s);
    const QByteArray Pagina = LeggiFile(CartellaNote() + u"S505.htm"_s);
    QVERIFY(Pagina.contains("<li>2,5 conta 2</li>"));
    QVERIFY(Pagina.contains("<li>2,51 conta 3</li>"));
}

/// The mark stands where the official text was not read, and nowhere else.
void TestSchede55::dubbiDoveLaFonteMancava()
{
    QSet<QString> Attesi;
    for (const QStringList& Riga : Fatti()) {
        if (Riga.last().startsWith(u"secondaria"))
            Attesi.insert(Riga[2] + u'/' + Riga[1].section(u" - "_s, 1).toLower().remove(u" di"_s));
        else if (Riga.last().startsWith(u"foroeuropeo"))
            Attesi.insert(u"quota/"_s + Riga[3]);
    }
    QCOMPARE(Attesi.size(), 30 + 12);

    const Database Tariffa = Base();
    QSet<QString> Segnati;
    int PerMinorenni = 0;
    for (Recordset Voci = Tariffa.OpenRecordset(u"SELECT * FROM OnorariPen WHERE NVoce<>'999'"_s);
         !Voci.Eof(); Voci.MoveNext()) {
        const QString File = FileScheda(u"PEN"_s, Voci.Value(u"IDOno"_s));
        for (const QStringList& Riga : Leggi(File).Tabelle.first().Righe) {
            if (!Riga.first().endsWith(u" *"))
                continue;
            const QString Ufficio = Riga.first().chopped(2);
            if (Ufficio.startsWith(u"Tribunale per i minorenni"))
                ++PerMinorenni;
            else
                Segnati.insert(Voci.Value(u"DescrOno"_s).toString() + u'/' +
                               QString(Ufficio).replace(u"d'"_s, u"di "_s).toLower().remove(u" di"_s));
        }
        QVERIFY(Html(File).contains(u"segnati con *"_s));
    }
    QCOMPARE(PerMinorenni, 4 * 3);
    QStringList Stragiudiziali;
    for (Recordset Voci = Tariffa.OpenRecordset(u"SELECT * FROM OnorariStra"_s); !Voci.Eof();
         Voci.MoveNext()) {
        const QString File = FileScheda(u"STR"_s, Voci.Value(u"IDOno"_s));
        for (const TabellaLetta& Tabella : Leggi(File).Tabelle)
            for (const QStringList& Riga : Tabella.Righe)
                if (Riga.first().endsWith(u" *"))
                    Stragiudiziali += File;
        QCOMPARE(Html(File).contains(u"segnati con *"_s), Stragiudiziali.contains(File));
    }
    QCOMPARE(Stragiudiziali, QStringList(12, u"S501.htm"_s));
    for (const QString& Riga : Attesi.values())
        if (Riga.startsWith(u"quota/"))
            Attesi.remove(Riga);
    QCOMPARE(Segnati, Attesi);
    for (Recordset Voci = Tariffa.OpenRecordset(u"SELECT DISTINCT CodOno FROM OnorariCiv"_s); !Voci.Eof();
         Voci.MoveNext())
        QVERIFY(!Html(FileScheda(u"CIV"_s, Voci.Value(u"CodOno"_s))).contains(u'*'));
}

/// A sheet says whose it is; those of 2012 are what they were.
void TestSchede55::diconoLaTariffa()
{
    QCOMPARE(Leggi(u"C301.htm"_s).Paragrafi.first(),
             u"Onorari civili e amministrativi, D.m. 55/2014, voce 1"_s);
    QCOMPARE(Leggi(u"C001.htm"_s).Paragrafi.first(), u"Onorari civili e amministrativi, voce 1"_s);
}

#include "TestSchede55.moc"
