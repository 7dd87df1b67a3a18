// The page of the filing fee: what the form is built from.
#include "supporto/prova.h"

#include "calculators/modContributo.h"
#include "calculators/paginacontributo.h"
#include "platform/base/regionale.h"

using namespace Qt::StringLiterals;

class TestPaginaContributo : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void sezioni();
    void unCampoPerIndice();
    void importi();
    void contributoDiOgniNumero();
    void testiAllaLettera();
};
PROVA(TestPaginaContributo);

void TestPaginaContributo::sezioni()
{
    QStringList Titoli;
    for (const SezionePagina& Una : PaginaContributo())
        Titoli << u"%1|%2|%3"_s.arg(Una.Titolo, Una.Norma).arg(Una.Voci.size());
    QCOMPARE(Titoli, (QStringList{
                         u" Contributo ordinario|(art. 13, comma 1)|1"_s,
                         u" Procedimenti con contributo ridotto alla metà|(art. 13, comma 3 - procedimenti "
                         "speciali, libro iV, titolo I, c.p.c.)|3"_s,
                         u" Procedimenti con contributo fisso||12"_s,
                         u" Ricorsi tributari|(art. 13, comma 6-quater)|2"_s,
                         u" Ricorsi amministrativi |(art.13, comma 6 bis)|10"_s,
                         u" Procedimenti esenti|(art. 10)|3"_s, u" Azione civile nel processo penale||1"_s}));
}

void TestPaginaContributo::unCampoPerIndice()
{
    QList<int> Campi;
    for (const SezionePagina& Una : PaginaContributo())
        for (const VocePagina& Voce : Una.Voci)
            if (Voce.Campo != SenzaCampo)
                Campi << Voce.Campo;
    QCOMPARE(Campi, (QList<int>{0, 1, 2, 3, 4}));
}

// A caption is an amount as the results show it, and a row has a field or a fee, never both.
void TestPaginaContributo::importi()
{
    double Somma = 0.0;
    for (const SezionePagina& Una : PaginaContributo())
        for (const VocePagina& Voce : Una.Voci) {
            const QString Importo = Voce.Contributo.toString();
            if (Importo.isEmpty() || Importo == u"esente" || Importo == u"50%")
                continue;
            QCOMPARE(Voce.Campo, SenzaCampo);
            QCOMPARE(Format(CDbl(Importo), u"#,##0.00"), Importo);
            Somma += CDbl(Importo);
        }
    // 2.614 of the fixed fees, 120 of the tax appeal, 16.750 of the administrative ones.
    QCOMPARE(Somma, 2614.0 + 120.0 + 16750.0);
}

void TestPaginaContributo::contributoDiOgniNumero()
{
    const auto Colonna = [](size_t Sezione) {
        QStringList Voci;
        for (const VocePagina& Voce : PaginaContributo()[Sezione].Voci)
            Voci << Voce.Numero.toString() + u' ' + Voce.Contributo.toString();
        return Voci.join(u"; "_s);
    };
    QCOMPARE(Colonna(2),
             u"1) 518,00; 2) 237,00; 3) 851,00; 4) 43,00; 5) 98,00; 6) 43,00; 7) 98,00; 8) 98,00; "
             "9) 278,00; 10) 43,00; 11) 139,00; 12) 168,00"_s);
    QCOMPARE(Colonna(3), u" ; 1) 120,00"_s);
    QCOMPARE(Colonna(4), u"1) 650,00; 2) 300,00; 3) esente; 4) 50%; 5) 1.800,00; 6) 2.000,00;  2.000,00; "
                         " 4.000,00;  6.000,00;  "_s);
}

void TestPaginaContributo::testiAllaLettera()
{
    const auto Voce = [](size_t Sezione, size_t Posto) { return PaginaContributo()[Sezione].Voci[Posto]; };
    QCOMPARE(Voce(1, 2).Testo.toString(),
             u"Procedimenti di finita locazione (valore pari al canone annuo)"_s);
    QCOMPARE(Voce(2, 0).Testo.toString(), u"Cause valore indeterminabile (art. 13, comma 1, lett. d) "_s);
    QCOMPARE(Voce(2, 10).Numero.toString(), u"11)"_s);
    QCOMPARE(Voce(4, 2).Contributo.toString(), u"esente"_s);
    QCOMPARE(Voce(4, 7).Testo.toString(), u"- Valore compreso tra € 200.00 e € 1.000.000"_s);
    QVERIFY(Voce(5, 1).Testo.contains(u"le cause un materia di assistenza"));
    QVERIFY(Voce(6, 0).Testo.endsWith(u"(art. 12).  "));
}

#include "TestPaginaContributo.moc"
