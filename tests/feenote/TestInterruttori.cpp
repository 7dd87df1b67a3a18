// Switches, percent boxes, print types: what each forces, remembers and gives back.
#include "nota_prova.h"

using namespace Qt::StringLiterals;

namespace {

/// A switch and its box by name.
struct Comando
{
    Imposta Quale;
    Spunta Parcella::*Tick;
    Casella Parcella::*Box;
    const char* Nome;
    const char16_t* Predefinito;
};

constexpr std::array Comandi{
    Comando{Imposta::IVA, &Parcella::chkIva, &Parcella::txtIVA, "IVA", u"21"},
    Comando{Imposta::RA, &Parcella::chkRA, &Parcella::txtRA, "RA", u"20"},
    Comando{Imposta::CP, &Parcella::chkCP, &Parcella::txtCP, "CP", u"4"},
    Comando{Imposta::SpeseGen, &Parcella::chkSpeseGen, &Parcella::txtSpeGen, "SpeseGen", u"12,5"},
};

void UnaRigaPerComando()
{
    QTest::addColumn<int>("Numero");
    for (size_t i = 0; i < Comandi.size(); ++i)
        QTest::newRow(Comandi[i].Nome) << int(i);
}

/// The state that a print type governs, in one line.
QString Stato(const Parcella& Nota)
{
    QString Testo;
    for (const Comando& Voce : Comandi)
        Testo += (Nota.*Voce.Tick).Attiva ? (Nota.*Voce.Box).Testo + u' ' : u"- "_s;
    Testo += Nota.chkMinMax.Attiva ? u"M "_s : u"- "_s;
    Testo += Nota.chkAcconti.Attiva ? u"A"_s : u"-"_s;
    return Testo;
}

QString Abilitati(const Parcella& Nota)
{
    QString Testo;
    for (const bool Si : {Nota.chkIva.Abilitata, Nota.chkRA.Abilitata, Nota.chkCP.Abilitata,
                          Nota.chkSpeseGen.Abilitata, Nota.chkMinMax.Abilitata, Nota.chkAcconti.Abilitata})
        Testo += Si ? u'1' : u'0';
    return Testo;
}

}  // namespace

class TestInterruttori : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void accendereMetteIlPredefinito_data() { UnaRigaPerComando(); }
    void accendereMetteIlPredefinito();
    void accendereTieneIlTesto_data() { UnaRigaPerComando(); }
    void accendereTieneIlTesto();
    void spegnereSvuota_data() { UnaRigaPerComando(); }
    void spegnereSvuota();
    void avvisoNellaNotaGiudiziale_data();
    void avvisoNellaNotaGiudiziale();
    void avvisoUnaVoltaSola();
    void percentoDigitato();
    void regimeAgevolato();
    void regimeLasciatoRimette();
    void regimeNellaNotaGiudiziale();
    void tipiDiStampa_data();
    void tipiDiStampa();
    void notaGiudizialeEOltre();
    void modificheNellaNotaGiudizialeNonRicordate();
    void minMaxEAccontiRicordati();
    void vociDelTipo();
};
PROVA(TestInterruttori);

void TestInterruttori::accendereMetteIlPredefinito()
{
    QFETCH(int, Numero);
    const Comando& Voce = Comandi[size_t(Numero)];
    const Studio Ufficio;
    Parcella Nota;
    QVERIFY(!ClicImposta(Nota, Voce.Quale, true));
    QVERIFY((Nota.*Voce.Tick).Attiva);
    QCOMPARE((Nota.*Voce.Box).Testo, QString::fromUtf16(Voce.Predefinito));
    QVERIFY(Nota.Modificata);
}

void TestInterruttori::accendereTieneIlTesto()
{
    QFETCH(int, Numero);
    const Comando& Voce = Comandi[size_t(Numero)];
    Parcella Nota;
    (Nota.*Voce.Box).Testo = u"7"_s;
    QVERIFY(!ClicImposta(Nota, Voce.Quale, true));
    QCOMPARE((Nota.*Voce.Box).Testo, u"7"_s);
}

void TestInterruttori::spegnereSvuota()
{
    QFETCH(int, Numero);
    const Comando& Voce = Comandi[size_t(Numero)];
    Parcella Nota;
    (Nota.*Voce.Tick).Attiva = true;
    (Nota.*Voce.Box).Testo = u"7"_s;
    QVERIFY(!ClicImposta(Nota, Voce.Quale, false));
    QVERIFY(!(Nota.*Voce.Tick).Attiva);
    QCOMPARE((Nota.*Voce.Box).Testo, QString());
}

void TestInterruttori::avvisoNellaNotaGiudiziale_data()
{
    QTest::addColumn<int>("Numero");
    QTest::addColumn<int>("Tipo");
    QTest::addColumn<bool>("Attiva");
    QTest::addColumn<bool>("Avviso");
    QTest::newRow("IVA") << 0 << 4 << true << true;
    QTest::newRow("RA") << 1 << 4 << true << true;
    QTest::newRow("CP") << 2 << 4 << true << true;
    QTest::newRow("le spese generali si espongono") << 3 << 4 << true << false;
    QTest::newRow("spegnere non avvisa") << 0 << 4 << false << false;
    QTest::newRow("altro documento") << 0 << 3 << true << false;
    QTest::newRow("nessun documento") << 0 << -1 << true << false;
}

void TestInterruttori::avvisoNellaNotaGiudiziale()
{
    QFETCH(int, Numero);
    QFETCH(int, Tipo);
    QFETCH(bool, Attiva);
    Parcella Nota;
    Nota.cmbTipoStampa = Tipo;
    QTEST(ClicImposta(Nota, Comandi[size_t(Numero)].Quale, Attiva), "Avviso");
    QTEST(Nota.AvvisoNotaGiudiziale, "Avviso");
}

void TestInterruttori::avvisoUnaVoltaSola()
{
    Parcella Nota;
    Nota.cmbTipoStampa = StampaNotaGiudiziale;
    QVERIFY(ClicImposta(Nota, Imposta::IVA, true));
    QVERIFY(!ClicImposta(Nota, Imposta::CP, true));
}

void TestInterruttori::percentoDigitato()
{
    Parcella Nota;
    Nota.chkIva.Attiva = true;
    CambiaPercento(Nota, Imposta::IVA, u"22"_s);
    QCOMPARE(Nota.txtIVA.Testo, u"22"_s);
    QVERIFY(Nota.chkIva.Attiva);
    QVERIFY(Nota.Modificata);
    RicordaStampa(Nota);
    ScegliTipoStampa(Nota, StampaNotaGiudiziale);
    ScegliTipoStampa(Nota, StampaPrenotula);
    QCOMPARE(Nota.txtIVA.Testo, u"22"_s);
}

void TestInterruttori::regimeAgevolato()
{
    const Studio Ufficio;
    Parcella Nota;
    for (const Comando& Voce : Comandi)
        QVERIFY(!ClicImposta(Nota, Voce.Quale, true));
    Nota.chkIvaDiff.Attiva = true;
    SetModificata(Nota, false);

    CambiaRegime(Nota, true);
    QCOMPARE(Stato(Nota), u"- - 4 12,5 - -"_s);
    QCOMPARE(Nota.txtIVA.Testo + Nota.txtRA.Testo, QString());
    QCOMPARE(Abilitati(Nota), u"001111"_s);
    QVERIFY(!Nota.txtIVA.Abilitata);
    QVERIFY(!Nota.txtRA.Abilitata);
    QVERIFY(!Nota.chkIvaDiff.Attiva);
    QVERIFY(!Nota.chkIvaDiff.Abilitata);
    QVERIFY(Nota.Modificata);
    // A change of document brings nothing back while the regime holds.
    ScegliTipoStampa(Nota, StampaFatturaAnalitica);
    QCOMPARE(Stato(Nota), u"- - 4 12,5 - -"_s);
    QCOMPARE(Abilitati(Nota), u"001111"_s);
}

void TestInterruttori::regimeLasciatoRimette()
{
    const Studio Ufficio;
    Parcella Nota;
    QVERIFY(!ClicImposta(Nota, Imposta::IVA, true));
    Nota.chkIvaDiff.Attiva = true;
    CambiaRegime(Nota, true);
    ScegliTipoStampa(Nota, StampaFatturaAnalitica);
    CambiaRegime(Nota, false);
    QCOMPARE(Abilitati(Nota), u"111111"_s);
    // The note has again what it had; deferred VAT alone must be ticked anew.
    QCOMPARE(Stato(Nota), u"21 - - - - -"_s);
    QVERIFY(Nota.chkIvaDiff.Abilitata);
    QVERIFY(!Nota.chkIvaDiff.Attiva);
}

void TestInterruttori::regimeNellaNotaGiudiziale()
{
    const Studio Ufficio;
    Parcella Nota;
    QVERIFY(!ClicImposta(Nota, Imposta::IVA, true));
    ScegliTipoStampa(Nota, StampaNotaGiudiziale);
    // There the taxes are off anyway: the regime comes and goes without a trace.
    CambiaRegime(Nota, true);
    CambiaRegime(Nota, false);
    ScegliTipoStampa(Nota, StampaPrenotula);
    QCOMPARE(Stato(Nota), u"21 - - - - -"_s);
}

void TestInterruttori::tipiDiStampa_data()
{
    QTest::addColumn<int>("Tipo");
    QTest::addColumn<QString>("Attesi");
    QTest::addColumn<QString>("Attivabili");
    const QString Tutti = u"21 20 4 12,5 M -"_s;
    QTest::newRow("prenotula") << 0 << Tutti << u"111111"_s;
    QTest::newRow("preventivo") << 1 << Tutti << u"111111"_s;
    QTest::newRow("fattura sintetica: acconti si', medi no") << 2 << u"21 20 4 12,5 - A"_s << u"111101"_s;
    QTest::newRow("fattura analitica") << 3 << Tutti << u"111111"_s;
    QTest::newRow("nota giudiziale: nessuna imposta") << 4 << u"- - - - M -"_s << u"101110"_s;
    QTest::newRow("contratto") << 5 << Tutti << u"111100"_s;
    QTest::newRow("informativa") << 6 << Tutti << u"111100"_s;
    QTest::newRow("solo contabile") << 7 << Tutti << u"111111"_s;
}

void TestInterruttori::tipiDiStampa()
{
    QFETCH(int, Tipo);
    const Studio Ufficio;
    Parcella Nota;
    for (const Comando& Voce : Comandi)
        QVERIFY(!ClicImposta(Nota, Voce.Quale, true));
    CambiaMinMax(Nota, true);
    const QString Prima = Stato(Nota);
    SetModificata(Nota, false);

    ScegliTipoStampa(Nota, Tipo);
    QCOMPARE(Nota.cmbTipoStampa, Tipo);
    QTEST(Stato(Nota), "Attesi");
    QTEST(Abilitati(Nota), "Attivabili");
    QCOMPARE(Nota.txtRA.Abilitata, Tipo != StampaNotaGiudiziale);
    QVERIFY(!Nota.Modificata);  // looking at another document changes no note
    // Back at an ordinary document everything is as it was.
    ScegliTipoStampa(Nota, StampaPrenotula);
    QCOMPARE(Stato(Nota), Prima);
    QCOMPARE(Abilitati(Nota), u"111111"_s);
}

void TestInterruttori::notaGiudizialeEOltre()
{
    const Studio Ufficio;
    Parcella Nota;
    QVERIFY(!ClicImposta(Nota, Imposta::CP, true));
    CambiaAcconti(Nota, true);
    ScegliTipoStampa(Nota, StampaNotaGiudiziale);
    QVERIFY(!Nota.chkAcconti.Vale());  // ticked as before, and disabled
    QVERIFY(!Nota.chkRA.Abilitata);
    ScegliTipoStampa(Nota, StampaContratto);
    QCOMPARE(Stato(Nota), u"- - 4 - - A"_s);
}

void TestInterruttori::modificheNellaNotaGiudizialeNonRicordate()
{
    const Studio Ufficio;
    Parcella Nota;
    QVERIFY(!ClicImposta(Nota, Imposta::IVA, true));
    ScegliTipoStampa(Nota, StampaNotaGiudiziale);
    QVERIFY(ClicImposta(Nota, Imposta::CP, true));
    CambiaPercento(Nota, Imposta::CP, u"5"_s);
    CambiaMinMax(Nota, true);
    CambiaAcconti(Nota, true);
    QCOMPARE(Stato(Nota), u"- - 5 - M A"_s);
    ScegliTipoStampa(Nota, StampaPrenotula);
    QCOMPARE(Stato(Nota), u"21 - - - - -"_s);
}

void TestInterruttori::minMaxEAccontiRicordati()
{
    Parcella Nota;
    CambiaMinMax(Nota, true);
    CambiaAcconti(Nota, true);
    ScegliTipoStampa(Nota, StampaFatturaSintetica);
    QVERIFY(!Nota.chkMinMax.Attiva);
    CambiaAcconti(Nota, false);
    ScegliTipoStampa(Nota, StampaFatturaAnalitica);
    QVERIFY(Nota.chkMinMax.Attiva);
    QVERIFY(!Nota.chkAcconti.Attiva);
}

void TestInterruttori::vociDelTipo()
{
    const QStringList Voci = VociTipoStampa();
    QCOMPARE(int(Voci.size()), 8);
    QCOMPARE(Voci[StampaNotaGiudiziale], u"Nota spese giudiziale"_s);
    QCOMPARE(Voci[StampaInformativa], u"Resa informativa"_s);
}

#include "TestInterruttori.moc"
