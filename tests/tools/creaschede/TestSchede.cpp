// The information sheets as built, held against the built tariff.
#include "feenote/nota_prova.h"
#include "scheda.h"

#include "creaschede/importischeda.h"
#include "platform/base/regionale.h"
#include "platform/system/file.h"
#include "platform/system/percorsi.h"
#include "tariffs/modEvaluate.h"

#include <QDir>
#include <QRegularExpression>
#include <QSet>
#include <QTextDocument>

using namespace Qt::StringLiterals;

namespace {

QStringList Schede()
{
    static const QRegularExpression Nome(u"\\A[CPS][0-9]{3}[.]htm\\z"_s);
    return QDir(CartellaNote()).entryList(QDir::Files).filter(Nome);
}

void OgniScheda()
{
    QTest::addColumn<QString>("File");
    for (const QString& Una : Schede())
        QTest::newRow(qPrintable(Una)) << Una;
}

/// Each row of a catalogue, as the window sees them: sheet and recordset.
template <class F>
void PerOgniVoce(const QString& Categ, int IDAut, F&& Fai)
{
    Catalogo Voci = ApriCatalogo(Dm140, Categ, IDAut);
    for (Voci.datOno.MoveFirst(); !Voci.datOno.Eof(); Voci.datOno.MoveNext())
        Fai(FileScheda(Categ, Voci.datOno.Value(Voci.ChiaveOno)), Voci.datOno);
}

bool Libera(const Recordset& Voce)
{
    return Voce.Value(u"NVoce"_s).toString() == u"999";
}

QList<ScaglioneValore> Scaglioni(const QString& Categ)
{
    return LeggiScaglioni(Dm140, Categ).Voci;
}

QStringList TernaScritta(const Recordset& Voce, int Scaglione)
{
    QStringList Importi;
    for (const QString& Estremo : {u"Min"_s, u"Med"_s, u"Max"_s})
        Importi += Format(ImportoCatalogo(Voce, Scaglione, Estremo), u"#,##0.00");
    return Importi;
}

double ValoreFormulaDi(const Recordset& Voce, int Scaglione, const QString& Estremo, double x)
{
    int Codice = -1;
    const double Valore = ValutaEspressione(FormulaCatalogo(Voce, Scaglione, Estremo), x, Codice);
    if (Codice != 0)
        QTest::qFail("la formula non si calcola", __FILE__, __LINE__);
    return Valore;
}

}  // namespace

class TestSchede : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void ogniVoceHaLaSua();
    void ogniSchedaHaLaSuaVoce();
    void cifreCivili();
    void cifrePenali();
    void formuleStragiudiziali();
    void esempiComeInParcella();
    void percentuali();
    void benFormate_data();
    void benFormate();
    void collegamenti_data();
    void collegamenti();
    void entranoNelVisore_data();
    void entranoNelVisore();
    void testiDistinti();
    void parole_data();
    void parole();
    void percentuale_data();
    void percentuale();

private:
    std::unique_ptr<Studio> Ufficio;
};
PROVA(TestSchede);

void TestSchede::initTestCase()
{
    Ufficio = std::make_unique<Studio>();
}

// ---- Sheets and items ----------------------------------------------------------------------------

void TestSchede::ogniVoceHaLaSua()
{
    int Viste = 0;
    const auto Controlla = [&](const QString& File, const Recordset& Voce) {
        // To the letter: the disks of some offices tell capitals apart.
        QVERIFY2(Schede().contains(File), qPrintable(File));
        const SchedaLetta& Scheda = Leggi(File);
        QCOMPARE(Scheda.Titolo, Voce.Value(u"DescrOno"_s).toString());
        QVERIFY2(Scheda.Paragrafi.first().endsWith(u", voce "_s + Voce.Value(u"NVoce"_s).toString()),
                 qPrintable(Scheda.Paragrafi.first()));
        ++Viste;
    };
    for (const Autorita& Una : LeggiAutorita(Dm140, Civile.toString()).Voci)
        PerOgniVoce(Civile.toString(), Una.IDAut, Controlla);
    for (const QStringView Categ : {Penale, Stragiudiziale})
        PerOgniVoce(Categ.toString(), 0, Controlla);
    QVERIFY2(Viste > 80, qPrintable(QString::number(Viste)));
}

void TestSchede::ogniSchedaHaLaSuaVoce()
{
    QSet<QString> Attese;
    const auto Segna = [&](const QString& File, const Recordset&) { Attese.insert(File); };
    for (const Autorita& Una : LeggiAutorita(Dm140, Civile.toString()).Voci)
        PerOgniVoce(Civile.toString(), Una.IDAut, Segna);
    for (const QStringView Categ : {Penale, Stragiudiziale})
        PerOgniVoce(Categ.toString(), 0, Segna);
    // The items of the other tariff have keys of their own, and their sheets lie beside these.
    const Database Altra = OpenDatabase(ProgrammaDiProva() + u"parcelle55.mdb"_s, true);
    for (const auto& [Categ, Sql] : {std::pair{Civile, u"SELECT DISTINCT CodOno AS Chiave FROM OnorariCiv"_s},
                                     std::pair{Penale, u"SELECT IDOno AS Chiave FROM OnorariPen"_s},
                                     std::pair{Stragiudiziale, u"SELECT IDOno AS Chiave FROM OnorariStra"_s}})
        for (Recordset Voci = Altra.OpenRecordset(Sql); !Voci.Eof(); Voci.MoveNext())
            Attese.insert(FileScheda(Categ.toString(), Voci.Value(u"Chiave"_s)));
    const QStringList Trovate = Schede();
    QCOMPARE(QSet<QString>(Trovate.begin(), Trovate.end()), Attese);
    QCOMPARE(Trovate.size(), 38 + 28);
}

// ---- Figures -------------------------------------------------------------------------------------

void TestSchede::cifreCivili()
{
    int Viste = 0;
    for (const Autorita& Una : LeggiAutorita(Dm140, Civile.toString()).Voci) {
        PerOgniVoce(Civile.toString(), Una.IDAut, [&](const QString& File, const Recordset& Voce) {
            const SchedaLetta& Scheda = Leggi(File);
            if (Libera(Voce)) {
                QVERIFY(Scheda.Tabelle.isEmpty());
                return;
            }
            QList<TabellaLetta> Sue;
            for (const TabellaLetta& Tabella : Scheda.Tabelle)
                if (Tabella.Prima.split(u"; "_s).contains(Una.DesAut))
                    Sue += Tabella;
            QCOMPARE(Sue.size(), 1);
            for (const ScaglioneValore& Uno : Scaglioni(Civile.toString())) {
                const QStringList Riga = RigaDi(Sue, Uno.DesVal).mid(1);
                if (ImportoCatalogo(Voce, Uno.NumSca, u"Max"_s) == 0)
                    QCOMPARE(Riga, QStringList{u"non ammesso"_s});
                else
                    QCOMPARE(Riga.first(3), TernaScritta(Voce, Uno.NumSca));
                ++Viste;
            }
            QCOMPARE(Sue.first().Righe.size(), Scaglioni(Civile.toString()).size() + 1);
        });
    }
    QVERIFY2(Viste > 400, qPrintable(QString::number(Viste)));
}

void TestSchede::cifrePenali()
{
    int Viste = 0;
    PerOgniVoce(Penale.toString(), 0, [&](const QString& File, const Recordset& Voce) {
        const SchedaLetta& Scheda = Leggi(File);
        if (Libera(Voce)) {
            QVERIFY(Scheda.Tabelle.isEmpty());
            return;
        }
        for (const Autorita& Una : LeggiAutorita(Dm140, Penale.toString()).Voci) {
            QCOMPARE(RigaDi(Scheda.Tabelle, Una.DesAut).mid(1, 3), TernaScritta(Voce, Una.IDAut));
            ++Viste;
        }
        QCOMPARE(Scheda.Tabelle.first().Righe.size(),
                 LeggiAutorita(Dm140, Penale.toString()).Voci.size() + 1);
    });
    QCOMPARE(Viste, 50);
}

void TestSchede::formuleStragiudiziali()
{
    int Viste = 0;
    PerOgniVoce(Stragiudiziale.toString(), 0, [&](const QString& File, const Recordset& Voce) {
        const SchedaLetta& Scheda = Leggi(File);
        if (Libera(Voce)) {
            QVERIFY(Scheda.Tabelle.isEmpty());
            return;
        }
        const QStringList Ovunque = RigaDi(Scheda.Tabelle, u"qualunque"_s);
        for (const ScaglioneValore& Uno : Scaglioni(Stragiudiziale.toString())) {
            const QStringList Riga = Ovunque.isEmpty() ? RigaDi(Scheda.Tabelle, Uno.DesVal) : Ovunque;
            QCOMPARE(Riga.size(), 3);
            for (const double x : {Uno.DaVal, Uno.DaVal + 1234.56, std::min(Uno.AVal, 9e6)}) {
                const double Min = ValoreFormulaDi(Voce, Uno.NumSca, u"Min"_s, x);
                const double Max = ValoreFormulaDi(Voce, Uno.NumSca, u"Max"_s, x);
                QVERIFY2(std::abs(ValoreDelleParole(Riga[1], x) - Min) < 0.005, qPrintable(Riga[1]));
                QVERIFY2(std::abs(ValoreDelleParole(Riga[2], x) - Max) < 0.005, qPrintable(Riga[2]));
            }
            ++Viste;
        }
    });
    QCOMPARE(Viste, 19 * 7);
}

/// The worked example says what the program puts into a note at that value.
void TestSchede::esempiComeInParcella()
{
    static const QRegularExpression Dati(
        u"\\AValore dell'affare € ([0-9.,]+?)(?:, quantità ([0-9,]+)(?: [(]conta ([0-9]+)[)])?)?[.]\\z"_s);
    const Registratore Voce;
    int Visti = 0;
    PerOgniVoce(Stragiudiziale.toString(), 0, [&](const QString& File, const Recordset& Riga) {
        if (Libera(Riga))
            return;
        const TabellaLetta Conto = Leggi(File).Tabelle.last();
        const auto Letti = Dati.match(Conto.Prima);
        QVERIFY2(Letti.hasMatch(), qPrintable(Conto.Prima));
        Parcella Nota;
        Nota.CodCateg = Stragiudiziale.toString();
        Nota.ImportoPrec = NumeroDi(Letti.captured(1));
        for (const ScaglioneValore& Uno : Scaglioni(Stragiudiziale.toString()))
            if (Nota.ImportoPrec >= Uno.DaVal && Nota.ImportoPrec <= Uno.AVal)
                Nota.Scaglione = Uno.NumSca;
        Catalogo Voci = ApriCatalogo(Dm140, Nota.CodCateg, 0);
        Voci.datOno.FindFirst(CriterioVoce(Nota.CodCateg, Voci.ChiaveOno, Riga.Value(Voci.ChiaveOno), 0));
        const QString Risposta = Letti.captured(2);
        const double Quant = Risposta.isEmpty() ? 1.0 : ArrotondaQuantita(Risposta);
        QCOMPARE(Letti.captured(3), CStr(Quant) == Risposta || Risposta.isEmpty() ? QString() : CStr(Quant));
        const auto Inserita = InserisciOnorario(Nota, Voci, {}, Quant);
        QVERIFY(Inserita);
        const QList<std::pair<QString, int>> Attese{
            {u"Minimo"_s, OnoMin}, {u"Medio"_s, OnoMedio}, {u"Massimo"_s, OnoMax}};
        for (const auto& [Nome, Colonna] : Attese)
            QCOMPARE(RigaDi({Conto}, Nome).last(),
                     Format(NumeroDi(Nota.xOnorari(*Inserita, Colonna)), u"#,##0.00"));
        QCOMPARE(!Risposta.isEmpty(), !Riga.Value(u"QtaOno"_s, QString()).toString().isEmpty());
        ++Visti;
    });
    QCOMPARE(Visti, 19);
}

/// The percentages beside the figures are those that the figures follow by.
void TestSchede::percentuali()
{
    static const QRegularExpression Coppia(u"\\A-([0-9]+)% [+]([0-9]+)%\\z"_s);
    int Viste = 0;
    for (const QString& File : Schede())
        for (const TabellaLetta& Una : Leggi(File).Tabelle)
            for (const QStringList& Riga : Una.Righe.mid(1)) {
                if (Una.Righe.first().value(4) != u"Dal medio" || Riga.size() < 5)
                    continue;
                const auto Letta = Coppia.match(Riga[4]);
                QVERIFY2(Letta.hasMatch(), qPrintable(File + u' ' + Riga[4]));
                const double Medio = NumeroDi(Riga[2]);
                QVERIFY(std::abs(Medio * (100 - Letta.captured(1).toInt()) / 100 - NumeroDi(Riga[1])) <= 0.5);
                QVERIFY(std::abs(Medio * (100 + Letta.captured(2).toInt()) / 100 - NumeroDi(Riga[3])) <= 0.5);
                ++Viste;
            }
    QVERIFY2(Viste > 150, qPrintable(QString::number(Viste)));
    // What the decree gives as minimum and maximum follows by none.
    QVERIFY(!Html(u"C019.htm"_s).contains(u"Dal medio"));
    // The office's own share, of criminal items alone.
    const QStringList Assise = RigaDi(Leggi(u"P103.htm"_s).Tabelle, u"Corte d'assise"_s);
    QCOMPARE(Assise.last(), u"+150%"_s);
    QCOMPARE(RigaDi(Leggi(u"P103.htm"_s).Tabelle, u"Giudice di pace"_s).last(), u"-20%"_s);
    QCOMPARE(RigaDi(Leggi(u"P103.htm"_s).Tabelle, u"Tribunale monocratico"_s).last(), u"base"_s);
}

// ---- Pages ---------------------------------------------------------------------------------------

void TestSchede::benFormate_data()
{
    OgniScheda();
}

void TestSchede::benFormate()
{
    QFETCH(QString, File);
    const QString Pagina = Html(File);
    const SchedaLetta& Scheda = Leggi(File);
    QCOMPARE(Scheda.Errore, QString());
    QVERIFY(Pagina.contains(u"charset=\"utf-8\""));
    QVERIFY(!Pagina.contains(QChar::ReplacementCharacter));
    QVERIFY(Scheda.Sezioni.contains(u"Nel decreto"_s));
    // Colours and sizes are the viewer's: a page with its own would be unreadable on a dark palette.
    for (const QStringView Proprio : {u"style=", u"<style", u"bgcolor", u"color=", u"<font", u"<script"})
        QVERIFY2(!Pagina.contains(Proprio, Qt::CaseInsensitive), qPrintable(Proprio.toString()));
    // Nothing of the texts' own marks is left, and no word in capitals: that is how an author marks a gap.
    static const QRegularExpression Resto(u"[*]{2}|^ *[%=#]|>[%=#]|%[0-9L]|\\b[A-Z]{3,}\\b|\\{|\\}"_s,
                                          QRegularExpression::MultilineOption);
    QVERIFY2(!Pagina.contains(Resto), qPrintable(Resto.match(Pagina).captured()));
    // A description, not a stub.
    QTextDocument Letta;
    Letta.setHtml(Pagina);
    const QString Prima = Letta.toPlainText().section(u"Nel decreto"_s, 0, 0);
    QVERIFY2(Prima.size() > 300, qPrintable(QString::number(Prima.size())));
}

void TestSchede::collegamenti_data()
{
    OgniScheda();
}

void TestSchede::collegamenti()
{
    QFETCH(QString, File);
    int Visti = 0;
    const QStringList Nomi = QDir(CartellaNote()).entryList(QDir::Files);
    static const QRegularExpression Riferimento(u"href=\"([^\"]*)\""_s);
    const QString Pagina = Html(File);
    auto Passi = Riferimento.globalMatch(Pagina);
    while (Passi.hasNext()) {
        const QString Meta = Passi.next().captured(1);
        if (Meta.startsWith(u'#'))
            QVERIFY2(Pagina.contains(u"<a name=\"%1\">"_s.arg(Meta.mid(1))), qPrintable(Meta));
        else
            QVERIFY2(Nomi.contains(Meta) && Meta != File, qPrintable(Meta));
        ++Visti;
    }
    QVERIFY(Visti > 0);
}

void TestSchede::entranoNelVisore_data()
{
    OgniScheda();
}

/// No table is wider than the text of an A4 sheet, nor then than the viewer as it first comes up.
void TestSchede::entranoNelVisore()
{
    QFETCH(QString, File);
    constexpr double LarghezzaTesto = 640.0;
    QTextDocument Documento;
    Documento.setHtml(Html(File));
    Documento.setTextWidth(LarghezzaTesto);
    QVERIFY2(Documento.size().width() <= LarghezzaTesto,
             qPrintable(QString::number(Documento.size().width())));
}

/// Each item has words of its own.
void TestSchede::testiDistinti()
{
    QHash<QString, QString> Viste;
    for (const QString& File : Schede()) {
        if (File.endsWith(u"999.htm"))
            continue;
        const QString Prima = Leggi(File).Paragrafi.value(1);
        QVERIFY2(Prima.size() > 60, qPrintable(File));
        QVERIFY2(!Viste.contains(Prima), qPrintable(File + u' ' + Viste.value(Prima)));
        Viste.insert(Prima, File);
    }
    QCOMPARE(Viste.size(), 35 + 28);
}

// ---- Pieces --------------------------------------------------------------------------------------

void TestSchede::parole_data()
{
    QTest::addColumn<QString>("Formula");
    QTest::addColumn<double>("Da");
    QTest::addColumn<QString>("Parole");

    QTest::newRow("fixed") << u"69"_s << 0.01 << u"€ 69,00"_s;
    QTest::newRow("nothing") << u"0"_s << 5000.01 << u"€ 0,00"_s;
    QTest::newRow("share") << u"x*0.04"_s << 0.01 << u"4% del valore"_s;
    QTest::newRow("base and share") << u"50+x*0.03"_s << 0.01 << u"€ 50,00 più il 3% del valore"_s;
    QTest::newRow("share of 8") << u"150+x*0.08"_s << 0.01 << u"€ 150,00 più l'8% del valore"_s;
    QTest::newRow("share below 1") << u"9475+(x-1500000)*0.0025"_s << 1500000.01
                                   << u"€ 9.475,00 più lo 0,25% della parte oltre € 1.500.000,00"_s;
    QTest::newRow("share of 1 and a half") << u"3082+(x-520000)*0.015"_s << 520000.01
                                           << u"€ 3.082,00 più l'1,5% della parte oltre € 520.000,00"_s;
    QTest::newRow("share of 10") << u"1+x*0.1"_s << 0.01 << u"€ 1,00 più il 10% del valore"_s;
    QTest::newRow("thousandths") << u"4737.5+(x-1500000)*0.00125"_s << 1500000.01
                                 << u"€ 4.737,50 più lo 0,125% della parte oltre € 1.500.000,00"_s;
    QTest::newRow("beyond") << u"200+(x-5000)*0.02"_s << 5000.01
                            << u"€ 200,00 più il 2% della parte oltre € 5.000,00"_s;
    QTest::newRow("written otherwise")
        << u"x*0.02+100"_s << 5000.01 << u"€ 200,00 più il 2% della parte oltre € 5.000,00"_s;
    QTest::newRow("share beyond without a base")
        << u"(x-5000)*0.02"_s << 5000.01 << u"2% della parte oltre € 5.000,00"_s;
    QTest::newRow("not even") << u"x*x*0.001"_s << 0.01 << QString();
    QTest::newRow("no value") << u"1/0+x"_s << 0.01 << QString();
}

void TestSchede::parole()
{
    QFETCH(QString, Formula);
    QFETCH(double, Da);
    const auto Detta = Scomponi(Formula, {{}, 1, Da, 1e9, true});
    QTEST(Detta ? InParole(*Detta) : QString(), "Parole");
}

void TestSchede::percentuale_data()
{
    QTest::addColumn<double>("Importo");
    QTest::addColumn<double>("Rispetto");
    QTest::addColumn<QString>("Attesa");

    QTest::newRow("more") << 1920.0 << 1200.0 << u"+60%"_s;
    QTest::newRow("less") << 600.0 << 1200.0 << u"-50%"_s;
    QTest::newRow("the same") << 600.0 << 600.0 << u"0%"_s;
    QTest::newRow("half a euro up") << 428.0 << 855.0 << u"-50%"_s;
    QTest::newRow("more than half a euro off") << 50.0 << 375.0 << QString();
    QTest::newRow("of nothing") << 0.0 << 0.0 << QString();
}

void TestSchede::percentuale()
{
    QFETCH(double, Importo);
    QFETCH(double, Rispetto);
    QTEST(Percentuale(Importo, Rispetto).value_or(QString()), "Attesa");
}

#include "TestSchede.moc"
