// The clauses that stand beside the program: what they must say, and that every reader of them can.
#include "supporto/pagine.h"
#include "supporto/prova.h"

#include "campioni.h"
#include "platform/document/letture.h"
#include "platform/system/file.h"
#include "print/modClausole.h"
#include "print/modStampe.h"

#include <QFileInfo>
#include <QRegularExpression>
#include <QScopeGuard>

#include <sys/stat.h>

using namespace Qt::StringLiterals;

namespace {

QString ClausoleFornite(const QString& Nome)
{
    return SorgenteDiProva(u"programma/doc/"_s) + Nome + u".rtf"_s;
}

std::vector<Paragrafo> ParagrafiDi(const QString& Nome)
{
    return letture::ParagrafiRtf(LeggiFileTesto(ClausoleFornite(Nome)));
}

QString Tutto(const QString& Nome)
{
    QString Testo;
    for (const Paragrafo& Uno : ParagrafiDi(Nome))
        Testo += Uno.Testo() + u'\n';
    return Testo;
}

QList<int> Numeri(const QString& Testo, const QString& Modello)
{
    QList<int> Trovati;
    for (auto Uno = QRegularExpression(Modello, QRegularExpression::MultilineOption).globalMatch(Testo);
         Uno.hasNext();)
        Trovati += Uno.next().captured(1).toInt();
    return Trovati;
}

}  // namespace

class TestClausole : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void leProprieSonoDelSoloUtente();
    void siLeggono_data();
    void siLeggono();
    void gliArticoliProseguono_data();
    void gliArticoliProseguono();
    void dicono_data();
    void dicono();
    void secondoIlCliente();
    void firmeConCioCheSiFirma_data();
    void firmeConCioCheSiFirma();
    void leInterruzioniDiPagina_data();
    void leInterruzioniDiPagina();
};
PROVA(TestClausole);

/// They may name the office's clients.
void TestClausole::leProprieSonoDelSoloUtente()
{
    const mode_t Prima = ::umask(022);
    const auto Rimetti = qScopeGuard([Prima] {
        ::umask(Prima);
        AzzeraSessione();
    });
    AzzeraSessione();
    sessione::UserFolder = NuovaCartella() + u"utente/"_s;
    sessione::PercorsoProg = SorgenteDiProva(u"programma/"_s);
    const QString File = ClausoleDaModificare(u"ContrattoPersonaFisica.rtf"_s);
    QVERIFY(File.startsWith(sessione::UserFolder));
    constexpr QFile::Permissions Altri =
        QFile::ReadGroup | QFile::ExeGroup | QFile::ReadOther | QFile::ExeOther;
    for (const QString& Uno : {File, CartellaFile(File), sessione::UserFolder})
        QCOMPARE(QFileInfo(Uno).permissions() & Altri, QFile::Permissions());
}

void TestClausole::siLeggono_data()
{
    QTest::addColumn<QString>("Nome");
    for (const char16_t* Nome : {u"ContrattoPersonaFisica", u"ContrattoPersonaGiuridica",
                                 u"ResaInformazionePersonaFisica", u"ResaInformazionePersonaGiuridica"})
        QTest::newRow(qPrintable(QString::fromUtf16(Nome))) << QString::fromUtf16(Nome);
}

void TestClausole::siLeggono()
{
    QFETCH(QString, Nome);
    const QByteArray Byte = LeggiFile(ClausoleFornite(Nome));
    QVERIFY(
        std::all_of(Byte.begin(), Byte.end(), [](char C) { return static_cast<unsigned char>(C) < 0x80; }));
    const std::vector<Paragrafo> Letti = ParagrafiDi(Nome);
    QVERIFY(Letti.size() > 10);
    for (const Paragrafo& Uno : Letti) {
        for (const Tratto& Pezzo : Uno.Tratti) {
            QCOMPARE(Pezzo.Font.Nome, u"Times New Roman"_s);
            QCOMPARE(Pezzo.Font.Punti, 11.0);  // as the part above them
        }
        QVERIFY2(!Uno.Testo().contains(QRegularExpression(u"[{}\\\\*]|  "_s)), qPrintable(Uno.Testo()));
    }
}

void TestClausole::gliArticoliProseguono_data()
{
    QTest::addColumn<QString>("Nome");
    QTest::addColumn<int>("Ultimo");
    QTest::newRow("a person's") << u"ContrattoPersonaFisica"_s << 22;
    QTest::newRow("a company's") << u"ContrattoPersonaGiuridica"_s << 21;
}

/// The program writes articles 1 and 2.
void TestClausole::gliArticoliProseguono()
{
    QFETCH(QString, Nome);
    QFETCH(int, Ultimo);
    QList<int> Attesi;
    for (int Numero = 3; Numero <= Ultimo; ++Numero)
        Attesi += Numero;
    const QString Testo = Tutto(Nome);
    QCOMPARE(Numeri(Testo, u"^Art\\. (\\d+) - "_s), Attesi);
    // The clauses to be approved one by one are there, and the last of them is the court.
    const QString Approvati = Testo.section(u"specificamente gli articoli "_s, 1).section(u" ("_s, 0, 0);
    const QList<int> Citati = Numeri(Approvati, u"(\\d+)"_s);
    QVERIFY(Citati.size() > 3);
    for (const int Numero : Citati)
        QVERIFY(Attesi.contains(Numero));
    QCOMPARE(Citati.last(), Ultimo);
    QVERIFY(Testo.section(u"Art. %1 - "_s.arg(Ultimo), 1).section(u'\n', 0, 0).contains(u"competente"_s));
}

void TestClausole::dicono_data()
{
    QTest::addColumn<QString>("Nome");
    QTest::addColumn<QString>("Parole");
    for (const char16_t* Di : {u"Fisica", u"Giuridica"})
        for (const char16_t* Parole :
             {u"L'incarico ha per oggetto", u"compensi", u"spese vive", u"I pagamenti", u"Il cliente\na)\t",
              u"livello di complessità", u"preventivo", u"assicurato per la responsabilità civile",
              u"Regolamento (UE) 2016/679", u"può recedere", u"foro", u"Luogo e data ____",
              u"L'avvocato ____"})
            QTest::addRow("contract %s: %s", qPrintable(QString::fromUtf16(Di)),
                          qPrintable(QString::fromUtf16(Parole)))
                << u"ContrattoPersona"_s + QString::fromUtf16(Di) << QString::fromUtf16(Parole);
    for (const char16_t* Di : {u"Fisica", u"Giuridica"})
        for (const char16_t* Parole :
             {u"mediazione", u"condizione di procedibilità", u"negoziazione assistita",
              u"patrocinio a spese dello Stato", u"agevolazioni fiscali", u"complessità", u"polizza",
              u"Regolamento (UE) 2016/679", u"avvocato ____"})
            QTest::addRow("statement %s: %s", qPrintable(QString::fromUtf16(Di)),
                          qPrintable(QString::fromUtf16(Parole)))
                << u"ResaInformazionePersona"_s + QString::fromUtf16(Di) << QString::fromUtf16(Parole);
}

void TestClausole::dicono()
{
    QFETCH(QString, Nome);
    QFETCH(QString, Parole);
    QVERIFY(Tutto(Nome).contains(Parole));
}

void TestClausole::secondoIlCliente()
{
    QVERIFY(Tutto(u"ContrattoPersonaFisica"_s).contains(u"codice del consumo"_s));
    QVERIFY(!Tutto(u"ContrattoPersonaGiuridica"_s).contains(u"codice del consumo"_s));
    QVERIFY(Tutto(u"ResaInformazionePersonaGiuridica"_s).contains(u"Il legale rappresentante ____"_s));
    QVERIFY(Tutto(u"ResaInformazionePersonaFisica"_s).contains(u"duemilaquattrocento"_s));
    QVERIFY(Tutto(u"ResaInformazionePersonaGiuridica"_s).contains(u"ventiquattromila"_s));
    // Only firms are the strong clients of the fair-fee law, and only their agreements bear default interest.
    QVERIFY(Tutto(u"ContrattoPersonaGiuridica"_s).contains(u"legge 21 aprile 2023"_s));
    QVERIFY(!Tutto(u"ContrattoPersonaFisica"_s).contains(u"legge 21 aprile 2023"_s));
    QVERIFY(Tutto(u"ContrattoPersonaGiuridica"_s).contains(u"legale rappresentante ____"_s));
    QVERIFY(Tutto(u"ContrattoPersonaFisica"_s).contains(u"\nIl cliente ____"_s));
}

void TestClausole::firmeConCioCheSiFirma_data()
{
    siLeggono_data();
}

/// No page begins with a signature whose text stands on the one before.
void TestClausole::firmeConCioCheSiFirma()
{
    QFETCH(QString, Nome);
    const std::vector<Paragrafo> Letti = ParagrafiDi(Nome);
    int Firme = 0;
    for (std::size_t i = 1; i < Letti.size(); ++i) {
        const QString Testo = Letti[i].Testo();
        QVERIFY2(!Testo.isEmpty(), "lo spazio per firmare è dei paragrafi, non di righe vuote");
        if (!Testo.endsWith(u"______"_s))
            continue;
        ++Firme;
        QVERIFY2(Letti[i - 1].ConSeguente, qPrintable(Testo));
    }
    QVERIFY(Firme >= 3);
    QVERIFY(!Letti.back().ConSeguente);
}

void TestClausole::leInterruzioniDiPagina_data()
{
    QTest::addColumn<int>("Tipo");
    QTest::addColumn<int>("ContrTipo");
    QTest::newRow("contract of a person") << int(StampaContratto) << 0;
    QTest::newRow("contract of a company") << int(StampaContratto) << 1;
    QTest::newRow("statement of a person") << int(StampaInformativa) << 0;
    QTest::newRow("statement of a company") << int(StampaInformativa) << 1;
}

/// Wherever the clauses begin, no page ends with a title and none begins with a signature.
void TestClausole::leInterruzioniDiPagina()
{
    QFETCH(int, Tipo);
    QFETCH(int, ContrTipo);
    const auto Rimetti = qScopeGuard([] { AzzeraSessione(); });
    campioni::ImpostaStudio();
    sessione::PercorsoProg = SorgenteDiProva(u"programma/"_s);
    Parcella Nota = campioni::Civile();
    Nota.optContrTipo = ContrTipo;
    const QRegularExpression Titolo(u"^(I+|IV) - |^Art\\. (11 - L'avvocato|13 - Il cliente)$"_s);
    int Interruzioni = 0;
    for (int Righe = 0; Righe < 50; ++Righe) {
        Nota.txtDatiStaOgg.Testo += u"una riga di oggetto che prende il posto di un'altra nella pagina, "
                                    u"e così tutte le interruzioni scendono di poco alla volta; "_s;
        Superficie vp;
        QVERIFY(Anteprima(vp, Nota, Tipo));
        const Impaginazione Fatta(vp.Contenuto());
        for (int Pagina = 2; Pagina <= Fatta.NumeroPagine(); ++Pagina, ++Interruzioni) {
            const QString Sopra = pagine::TestoDi(Fatta, Fatta.Righe(Pagina - 1).back()).trimmed();
            const QString Sotto = pagine::TestoDi(Fatta, Fatta.Righe(Pagina).front()).trimmed();
            QVERIFY2(!Titolo.match(Sopra).hasMatch(), qPrintable(Sopra));
            QVERIFY2(!Sotto.endsWith(u"____"_s), qPrintable(Sotto));
            QVERIFY2(!Sopra.endsWith(u"con le seguenti modalità:"_s), qPrintable(Sopra));
            QVERIFY2(!Sotto.contains(QRegularExpression(u"^[abcd]\\) euro "_s)), qPrintable(Sotto));
        }
    }
    QVERIFY(Interruzioni >= 50);
}

#include "TestClausole.moc"
