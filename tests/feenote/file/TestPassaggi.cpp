// From every document to every other one: what each switch shows there, whatever the user did in between.
#include "feenote/modDatiStampa.h"
#include "file_prova.h"

using namespace Qt::StringLiterals;

namespace {

constexpr int Documenti = 8;

const std::array<const char*, Documenti> Nomi{"prenotula",         "preventivo", "fattura sintetica",
                                              "fattura analitica", "nota spese", "contratto",
                                              "informativa",       "solo conti"};

// What a document does with a switch, one letter each:
//   r  as the note has it               R  the same, but nobody can touch it
//   -  off, and its box empty           =  the same, disabled
//   x  on by itself                     =  (for a switch without a box) off and disabled
// IVA RA CP SpeseGen MinMax Acconti.
const std::array<QLatin1StringView, Documenti> Regole{
    "rrrrrr"_L1, "rrrrrr"_L1, "rrrr=x"_L1, "rrrrrr"_L1, "-=--rR"_L1, "rrrrRR"_L1, "rrrrRR"_L1, "rrrrrr"_L1,
};

enum Numero { IVA, RA, CP, SpeseGen, MinMax, Acconti, Quanti };

/// What the note has of a switch: its tick, and its box where there is one.
struct Avuto
{
    bool Attiva = false;
    QString Testo;
};
using Avuti = std::array<Avuto, Quanti>;

struct Vista
{
    const Spunta* Tick;
    const Casella* Box;
};

Vista Guarda(const Parcella& Nota, int Quale)
{
    switch (Quale) {
    case IVA:
        return {&Nota.chkIva, &Nota.txtIVA};
    case RA:
        return {&Nota.chkRA, &Nota.txtRA};
    case CP:
        return {&Nota.chkCP, &Nota.txtCP};
    case SpeseGen:
        return {&Nota.chkSpeseGen, &Nota.txtSpeGen};
    case MinMax:
        return {&Nota.chkMinMax, nullptr};
    default:
        return {&Nota.chkAcconti, nullptr};
    }
}

/// "[x] 21 " and its kin: tick, box, "!" behind what is disabled.
QString Scritto(bool Attiva, const QString& Testo, bool Abilitata)
{
    return (Attiva ? u"[x]"_s : u"[ ]"_s) + Testo + (Abilitata ? u" "_s : u"! "_s);
}

/// What the switches show, and whether a box goes with its tick.
QString Mostrato(const Parcella& Nota)
{
    QString Tutto;
    for (int Quale = 0; Quale < Quanti; ++Quale) {
        const auto [Tick, Box] = Guarda(Nota, Quale);
        Tutto += Scritto(Tick->Attiva, Box ? Box->Testo : QString(), Tick->Abilitata);
        if (Box && Box->Abilitata != Tick->Abilitata)
            Tutto += u"(casella!) "_s;
    }
    return Tutto;
}

/// The same by the letters of a document; the regime takes VAT and withholding from whichever it is.
QString Atteso(int Tipo, const Avuti& Suoi, bool Regime)
{
    QString Tutto;
    for (int Quale = 0; Quale < Quanti; ++Quale) {
        const QChar Regola = Regime && Quale <= RA ? u'=' : QChar(Regole[size_t(Tipo)][Quale]);
        const Avuto& Suo = Suoi[size_t(Quale)];
        const bool Sua = Regola == u'r' || Regola == u'R';
        Tutto += Scritto(Regola == u'x' || (Sua && Suo.Attiva), Sua ? Suo.Testo : QString(),
                         Regola != u'=' && Regola != u'R');
    }
    return Tutto;
}

/// A note with a user's own switches: VAT of 10, general expenses, no withholding, no pension fund.
Parcella NotaConScelte(Avuti& Suoi)
{
    Parcella Nota;
    NuovaParcella(Nota);
    (void)ClicImposta(Nota, Imposta::CP, false);
    (void)ClicImposta(Nota, Imposta::SpeseGen, true);
    CambiaPercento(Nota, Imposta::IVA, u"10"_s);
    CambiaMinMax(Nota, true);
    Suoi[IVA] = {true, u"10"_s};
    Suoi[SpeseGen] = {true, u"12,5"_s};
    Suoi[MinMax] = {true, {}};
    return Nota;
}

/// A click of the user's on a switch that lets itself be clicked. Only outside the court costs note is it
/// what the note has from then on.
void Clicca(Parcella& Nota, int Quale, Avuti& Suoi)
{
    static const std::array<QString, 4> Predefiniti{u"21"_s, u"20"_s, u"4"_s, u"12,5"_s};
    const Spunta& Tick = *Guarda(Nota, Quale).Tick;
    if (!Tick.Abilitata)
        return;
    const bool Nuova = !Tick.Attiva;
    if (Quale == MinMax)
        CambiaMinMax(Nota, Nuova);
    else if (Quale == Acconti)
        CambiaAcconti(Nota, Nuova);
    else
        (void)ClicImposta(
            Nota, std::array{Imposta::IVA, Imposta::RA, Imposta::CP, Imposta::SpeseGen}[size_t(Quale)],
            Nuova);
    if (Nota.cmbTipoStampa != StampaNotaGiudiziale)
        Suoi[size_t(Quale)] = {Nuova, Nuova && Quale < MinMax ? Predefiniti[size_t(Quale)] : QString()};
}

/// A percentage typed into a box; a tick that is off is set first.
void Digita(Parcella& Nota, Imposta Quale, int Numero, const QString& Testo, Avuti& Suoi)
{
    if (!Guarda(Nota, Numero).Tick->Attiva)
        Clicca(Nota, Numero, Suoi);
    CambiaPercento(Nota, Quale, Testo);
    if (Nota.cmbTipoStampa != StampaNotaGiudiziale)
        Suoi[size_t(Numero)] = {true, Testo};
}

bool HaRegime(int Tipo)
{
    return Tipo == StampaFatturaSintetica || Tipo == StampaFatturaAnalitica;
}

/// What the user does between two documents.
enum Atto { Nulla, UnClic, Percentuale = UnClic + Quanti, RegimeMesso, RegimeTolto, Atti };

}  // namespace

class TestPassaggi : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void daUnoAllAltro_data() { Coppie(); }
    void daUnoAllAltro();
    void ilRegimeDaUnoAllAltro_data() { Coppie(); }
    void ilRegimeDaUnoAllAltro();
    void lUltimaParolaEDellUtente();
    void ivaDifferita();
    void salvataERiaperta_data();
    void salvataERiaperta();
    void salvataDalRegime_data();
    void salvataDalRegime();
    void apertaSopraUnAltra();

private:
    static void Coppie();
};
PROVA(TestPassaggi);

void TestPassaggi::Coppie()
{
    QTest::addColumn<int>("Da");
    QTest::addColumn<int>("A");
    for (int Da = 0; Da < Documenti; ++Da)
        for (int A = 0; A < Documenti; ++A)
            QTest::addRow("%s, poi %s", Nomi[size_t(Da)], Nomi[size_t(A)]) << Da << A;
}

void TestPassaggi::daUnoAllAltro()
{
    QFETCH(int, Da);
    QFETCH(int, A);
    const Studio Ufficio;
    for (int Fatto = Nulla; Fatto < RegimeMesso; ++Fatto) {
        Avuti Suoi;
        Parcella Nota = NotaConScelte(Suoi);
        ScegliDocumento(Nota, Da);
        QCOMPARE(Mostrato(Nota), Atteso(Da, Suoi, false));
        if (Fatto == Percentuale)
            Digita(Nota, Imposta::CP, CP, u"5"_s, Suoi);
        else if (Fatto >= UnClic)
            Clicca(Nota, Fatto - UnClic, Suoi);
        const bool Modificata = Nota.Modificata;
        for (const int Tipo : {A, A, Da, Da}) {  // the same one again, and back
            ScegliDocumento(Nota, Tipo);
            QVERIFY2(Mostrato(Nota) == Atteso(Tipo, Suoi, false),
                     qPrintable(u"atto %1, %2:\n%3\nnon\n%4"_s.arg(Fatto).arg(Tipo).arg(
                         Mostrato(Nota), Atteso(Tipo, Suoi, false))));
        }
        QCOMPARE(Nota.Modificata, Modificata);
    }
}

void TestPassaggi::ilRegimeDaUnoAllAltro()
{
    QFETCH(int, Da);
    QFETCH(int, A);
    const Studio Ufficio;
    Avuti Suoi;
    Parcella Nota = NotaConScelte(Suoi);
    ScegliDocumento(Nota, StampaFatturaAnalitica);
    CambiaRegime(Nota, true);
    for (const int Tipo : {Da, A, A}) {
        ScegliDocumento(Nota, Tipo);
        QCOMPARE(Mostrato(Nota), Atteso(Tipo, Suoi, true));
        QVERIFY(!Nota.chkIvaDiff.Abilitata);
    }
    // Other switches go on being the user's.
    for (const int Quale : {CP, SpeseGen, MinMax, Acconti})
        Clicca(Nota, Quale, Suoi);
    ScegliDocumento(Nota, HaRegime(Da) ? Da : StampaFatturaSintetica);
    QCOMPARE(Mostrato(Nota), Atteso(Nota.cmbTipoStampa, Suoi, true));
    CambiaRegime(Nota, false);
    QCOMPARE(Mostrato(Nota), Atteso(Nota.cmbTipoStampa, Suoi, false));
    ScegliDocumento(Nota, A);
    QCOMPARE(Mostrato(Nota), Atteso(A, Suoi, false));
}

void TestPassaggi::lUltimaParolaEDellUtente()
{
    const Studio Ufficio;
    Avuti Suoi;
    Parcella Nota = NotaConScelte(Suoi);
    // A long way through all of them with a click of each switch in each: nothing that a document did by
    // itself is ever taken for a wish.
    for (int Giro = 0; Giro < 3; ++Giro) {
        for (int Passo = 0; Passo < Documenti; ++Passo) {
            const int Tipo = (Passo * (2 * Giro + 3)) % Documenti;
            ScegliDocumento(Nota, Tipo);
            QCOMPARE(Mostrato(Nota), Atteso(Tipo, Suoi, false));
            Clicca(Nota, (Passo + Giro) % Quanti, Suoi);
        }
    }
}

void TestPassaggi::ivaDifferita()
{
    const Studio Ufficio;
    Avuti Suoi;
    Parcella Nota = NotaConScelte(Suoi);
    ScegliDocumento(Nota, StampaFatturaSintetica);
    CambiaIvaDifferita(Nota, true);
    for (int Tipo = 0; Tipo < Documenti; ++Tipo) {
        ScegliDocumento(Nota, Tipo);
        QVERIFY(Nota.chkIvaDiff.Attiva && Nota.chkIvaDiff.Abilitata);
    }
    CambiaRegime(Nota, true);
    QVERIFY(!Nota.chkIvaDiff.Attiva && !Nota.chkIvaDiff.Abilitata);
    CambiaRegime(Nota, false);
    QVERIFY2(!Nota.chkIvaDiff.Attiva && Nota.chkIvaDiff.Abilitata, "si rimette a mano");
}

void TestPassaggi::salvataERiaperta_data()
{
    QTest::addColumn<int>("Tipo");
    for (int Tipo = 0; Tipo < Documenti; ++Tipo)
        QTest::newRow(Nomi[size_t(Tipo)]) << Tipo;
}

void TestPassaggi::salvataERiaperta()
{
    QFETCH(int, Tipo);
    const Studio Ufficio;
    const Registratore Voce;
    Avuti Suoi;
    Parcella Nota = NotaConScelte(Suoi);
    ScegliDocumento(Nota, Tipo);
    Clicca(Nota, CP, Suoi);
    Parcella Letta = Riletta(Ufficio, Nota);
    QCOMPARE(Letta.cmbTipoStampa, Tipo);
    QVERIFY(!Letta.Modificata);
    QCOMPARE(Mostrato(Letta), Mostrato(Nota));
    // In the costs note the click was a wish for that page only: it is there again, and nowhere else.
    QCOMPARE(Mostrato(Letta) == Atteso(Tipo, Suoi, false), Tipo != StampaNotaGiudiziale);
    for (const int Altro : {0, 4, 2, 5, 7}) {
        ScegliDocumento(Letta, Altro);
        QCOMPARE(Mostrato(Letta), Atteso(Altro, Suoi, false));
    }
}

void TestPassaggi::salvataDalRegime_data()
{
    salvataERiaperta_data();
}

void TestPassaggi::salvataDalRegime()
{
    QFETCH(int, Tipo);
    const Studio Ufficio;
    const Registratore Voce;
    Avuti Suoi;
    Parcella Nota = NotaConScelte(Suoi);
    ScegliDocumento(Nota, StampaFatturaAnalitica);
    CambiaRegime(Nota, true);
    ScegliDocumento(Nota, Tipo);
    Parcella Letta = Riletta(Ufficio, Nota);
    QVERIFY(Letta.chkRegSempl.Attiva && !Letta.chkIvaDiff.Abilitata);
    QCOMPARE(Mostrato(Letta), Mostrato(Nota));
    ScegliDocumento(Letta, StampaPrenotula);
    QCOMPARE(Mostrato(Letta), Atteso(StampaPrenotula, Suoi, true));
    // What the regime has cleared was saved as cleared: an invoice without VAT does not come back with it.
    CambiaRegime(Letta, false);
    Suoi[IVA] = {};
    QCOMPARE(Mostrato(Letta), Atteso(StampaPrenotula, Suoi, false));
}

void TestPassaggi::apertaSopraUnAltra()
{
    const Studio Ufficio;
    const Registratore Voce;
    Avuti Suoi;
    Parcella Nota = NotaConScelte(Suoi);
    ScegliDocumento(Nota, StampaPrenotula);
    const QString File = Ufficio.File(u"nota.mdb"_s);
    ScriviNota(File, Nota);

    // What was in view here, its regime too, leaves nothing to the note that takes its place.
    for (int Prima = 0; Prima < Documenti; ++Prima) {
        Avuti Altri;
        Parcella Aperta = NotaConScelte(Altri);
        ScegliDocumento(Aperta, StampaFatturaAnalitica);
        CambiaIvaDifferita(Aperta, true);
        CambiaRegime(Aperta, true);
        Clicca(Aperta, CP, Altri);
        ScegliDocumento(Aperta, Prima);
        CaricaDati(Aperta, File);
        QCOMPARE(Mostrato(Aperta), Atteso(StampaPrenotula, Suoi, false));
        QVERIFY(!Aperta.chkRegSempl.Attiva && !Aperta.chkIvaDiff.Attiva && Aperta.chkIvaDiff.Abilitata);
        NuovaParcella(Aperta);
        QCOMPARE(Aperta.cmbTipoStampa, NessunaVoce);
        QCOMPARE(Mostrato(Aperta), u"[x]21 [ ] [x]4 [ ] [ ] [ ] "_s);
    }
}

#include "TestPassaggi.moc"
