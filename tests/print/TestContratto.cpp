#include "supporto/prova.h"

#include "documenti.h"
#include "platform/system/file.h"
#include "platform/system/percorsi.h"
#include "supporto/registratore.h"

#include <QDir>
#include <QScopeGuard>

using namespace Qt::StringLiterals;

class TestContratto : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    void margini_data();
    void margini();
    void grassetto();
    void caratteri();
    void treColonneSenzaAcconti();
    void quattroRigheAMano();
    void leVociDellAssociataBastano();
    void speseGenerali_data();
    void speseGenerali();
    void frase_data();
    void frase();
    void societaSenzaRappresentante_data();
    void societaSenzaRappresentante();
    void informativa_data();
    void informativa();

    void clausole_data();
    void clausole();
    void clausoleDelloStudio();
    void clausoleMancanti_data();
    void clausoleMancanti();
    void clausoleInTestoSemplice();
    void clausoleGuaste_data();
    void clausoleGuaste();
    void clausoleRifiutate_data();
    void clausoleRifiutate();
    void clausoleBianche();
    void clausoleProprieIrraggiungibili_data();
    void clausoleProprieIrraggiungibili();
    void clausoleConImmagini();

private:
    QString Clausole;  ///< folder of the clauses
};
PROVA(TestContratto);

namespace {

using campioni::TestiBlocchi;
using documenti::Completa;
using documenti::Composto;

QString Frase(const Documento& Doc, const QString& Inizio)
{
    return TestiBlocchi(Doc).filter(Inizio).value(0);
}

/// What a contract of the note lacks.
QString Manca(const Parcella& Nota)
{
    Superficie vp;
    (void)Anteprima(vp, Nota, StampaContratto);
    return vp.Manca;
}

void RigheTipi()
{
    QTest::addColumn<int>("Tipo");
    QTest::newRow("contratto") << int(StampaContratto);
    QTest::newRow("informativa") << int(StampaInformativa);
}

}  // namespace

void TestContratto::init()
{
    campioni::ImpostaStudio();
    sessione::PercorsoProg = NuovaCartella();
    Clausole = sessione::PercorsoProg + Barra(u"doc"_s);
    QVERIFY(QDir().mkpath(Clausole));
}

// ---- the page

void TestContratto::margini_data()
{
    RigheTipi();
}

void TestContratto::margini()
{
    QFETCH(int, Tipo);
    Superficie vp;
    QVERIFY(Anteprima(vp, campioni::Civile(), Tipo));
    QCOMPARE(vp.Contenuto().MargineAltoCm, 2.0);
    QCOMPARE(vp.Contenuto().MargineBassoCm, 2.0);
    QCOMPARE(vp.Contenuto().MargineSinistroCm, 1.4);
    QCOMPARE(vp.Contenuto().MargineDestroCm, 1.4);
    QCOMPARE(vp.Contenuto().PiePagina, QString(124, u' ') + u"Pagina %d"_s);

    QVERIFY(Anteprima(vp, campioni::Civile(), StampaPrenotula));  // no other document takes them over
    QCOMPARE(vp.Contenuto().MargineAltoCm, 1.5);
    QCOMPARE(vp.Contenuto().MargineBassoCm, 3.2);
    QCOMPARE(vp.Contenuto().MargineSinistroCm, 2.0);
}

void TestContratto::grassetto()
{
    const Documento Doc = Composto(Completa(campioni::Civile()), StampaContratto);
    QStringList Grassetti;
    for (const BloccoDocumento& Uno : Doc.Blocchi)
        if (const auto* Riga = std::get_if<Paragrafo>(&Uno))
            for (const Tratto& Suo : Riga->Tratti)
                if (Suo.Font.Grassetto)
                    Grassetti += Suo.Testo;
    QCOMPARE(Grassetti,
             (QStringList{u"Contratto di affidamento di incarico professionale per attività legale"_s,
                          u"stipulato ai sensi degli articoli 2233 c.c. e 13 della legge professionale "
                          u"n. 247 del 31 dicembre 2012"_s,
                          u"accordi e condizioni"_s, u"I - Determinazione degli onorari e delle spese"_s,
                          u"Art. 1"_s, u"Art. 2 "_s}));
}

void TestContratto::caratteri()
{
    const Documento Doc = Composto(Completa(campioni::Civile()), StampaContratto);
    for (const BloccoDocumento& Uno : Doc.Blocchi)
        if (const auto* Riga = std::get_if<Paragrafo>(&Uno))
            for (const Tratto& Suo : Riga->Tratti)
                QCOMPARE(Suo.Font.Punti, 11.0);
    QCOMPARE(std::get<Paragrafo>(Doc.Blocchi[0]).Allinea, Allineamento::Centro);
    QCOMPARE(std::get<Paragrafo>(Doc.Blocchi[3]).Allinea, Allineamento::Giustificato);
    QCOMPARE(std::get<Paragrafo>(Doc.Blocchi[4]).Allinea, Allineamento::Centro);
    QCOMPARE(std::get<Paragrafo>(Doc.Blocchi.back()).Allinea, Allineamento::Giustificato);
}

// ---- the contract

void TestContratto::treColonneSenzaAcconti()
{
    Parcella Nota = Completa(campioni::Stragiudiziale());  // both switches are on
    const Documento Doc = Composto(Nota, StampaContratto);
    QCOMPARE(campioni::NumeroTabelle(Doc), 2);
    QCOMPARE(int(campioni::TabellaDi(Doc, 0).LarghezzeCm.size()), 3);
    QCOMPARE(campioni::TestiRiga(campioni::TabellaDi(Doc, 1), 0).value(0), u"SPESE"_s);
}

void TestContratto::quattroRigheAMano()
{
    Parcella Nota = campioni::Vuota();
    Nota.CodCateg = u"PEN"_s;
    const Documento Doc = Composto(Nota, StampaContratto);
    QCOMPARE(campioni::NumeroTabelle(Doc), 0);
    const QStringList Testi = TestiBlocchi(Doc);
    const qsizetype Art1 = Testi.indexOf(u"Art. 1- I compensi  per l'incarico professionale in oggetto sono "
                                         u"così convenuti, al netto di i.v.a. e "
                                         u"c.p. avv.:"_s);
    QVERIFY(Art1 > 0);
    QCOMPARE(Testi.mid(Art1 + 1, 5),
             (QStringList{QString(), QString(), QString(), QString(),
                          u"Art. 2 - I compensi pattuiti verranno corrisposti dal cliente con le seguenti "
                          u"modalità:"_s}));
}

void TestContratto::leVociDellAssociataBastano()
{
    Parcella Nota = Completa(campioni::ConAssociata(true));
    Nota.xOnorari = TabellaRighe(OnoColonne);
    QCOMPARE(campioni::NumeroTabelle(Composto(Nota, StampaContratto)), 2);
    Nota.txtParcMultipla.clear();
    QCOMPARE(campioni::NumeroTabelle(Composto(Nota, StampaContratto)), 0);
}

void TestContratto::speseGenerali_data()
{
    QTest::addColumn<bool>("Attiva");
    QTest::addColumn<QString>("Percento");
    QTest::addColumn<QString>("Riga");
    QTest::newRow("dovute")
        << true << u"12,5"_s
        << u"E' inoltre dovuto all'avvocato il rimborso delle spese generali nella misura "
           u"forfettaria del 12,5% degli onorari sopra indicati."_s;
    QTest::newRow("non dovute") << false << u"12,5"_s << QString();
    QTest::newRow("senza percentuale") << true << QString() << QString();
}

void TestContratto::speseGenerali()
{
    QFETCH(bool, Attiva);
    QFETCH(QString, Percento);
    Parcella Nota = documenti::ScegliTipo(campioni::Civile(), StampaContratto);
    Nota.chkSpeseGen.Attiva = Attiva;
    Nota.txtSpeGen.Testo = Percento;
    QTEST(Frase(documenti::ComeSta(Nota, StampaContratto), u"spese generali"_s), "Riga");
}

void TestContratto::frase_data()
{
    QTest::addColumn<QString>("Oggetto");
    QTest::addColumn<QString>("Controparte");
    QTest::addColumn<QString>("Categoria");
    QTest::addColumn<QString>("CodFisc");
    QTest::addColumn<QString>("Coda");
    const QString Incarico = u" l'incarico di consulenza, assistenza e di difesa in giudizio"_s;
    const QString Fine = u" e che sarà eseguito in conformità dei seguenti accordi e condizioni"_s;
    const QString Studio = u"con studio in Via Roma 12 20121 Milano (MI)"_s;
    const QString PIva = u" P.I. 01234567890"_s;
    QTest::newRow("tutto") << u" lite \n"_s << u"Bianchi"_s << u"CIV"_s << u"NRE"_s
                           << Studio + u" C.F. NRE"_s + PIva + Incarico +
                                  u" avente ad oggetto lite contro Bianchi di valore pari a 30.000,00 €"_s +
                                  Fine;
    QTest::newRow("senza codice fiscale, oggetto, controparte")
        << QString() << QString() << u"CIV"_s << QString()
        << Studio + PIva + Incarico + u" di valore pari a 30.000,00 €"_s + Fine;
    QTest::newRow("penale: nessun valore") << u"lite"_s << QString() << u"PEN"_s << QString()
                                           << Studio + PIva + Incarico + u" avente ad oggetto lite"_s + Fine;
}

void TestContratto::frase()
{
    QFETCH(QString, Oggetto);
    QFETCH(QString, Controparte);
    QFETCH(QString, Categoria);
    QFETCH(QString, CodFisc);
    QFETCH(QString, Coda);
    sessione::StudioCodFisc = CodFisc;
    Parcella Nota = campioni::Civile();
    Nota.txtDatiStaOgg.Testo = Oggetto;
    Nota.txtDatiStaControp.Testo = Controparte;
    Nota.CodCateg = Categoria;
    const QString Scritta = Frase(Composto(Nota, StampaContratto), u"Il Cliente "_s);
    QCOMPARE(Scritta.section(u"Giulia Neri, "_s, 1), Coda);
}

void TestContratto::societaSenzaRappresentante_data()
{
    QTest::addColumn<int>("Tipo");
    QTest::addColumn<QString>("Parole");
    const QString Fisse =
        u"Il Cliente Gamma S.p.A. in persona del legale rappresentante, Sig. nato/a il  a  residente in "_s;
    QTest::newRow("contratto") << int(StampaContratto) << Fisse + u" conferisce all'avvocato Avv. Giulia"_s;
    QTest::newRow("informativa") << int(StampaInformativa)
                                 << Fisse + u" dichiara di essere stato informato dall'avv. Avv. Giulia"_s;
}

void TestContratto::societaSenzaRappresentante()
{
    QFETCH(int, Tipo);
    QFETCH(QString, Parole);
    Parcella Nota = campioni::Civile();
    Nota.optContrTipo = 1;
    Nota.txtDatiStaCli.Testo = u"Gamma S.p.A."_s;
    const QString Scritta = Frase(documenti::ComeSta(Nota, Tipo), u"Il Cliente "_s);
    QCOMPARE(Scritta.left(Parole.size()), Parole);
}

// ---- the statement

void TestContratto::informativa_data()
{
    QTest::addColumn<QString>("Oggetto");
    QTest::addColumn<QString>("Controparte");
    QTest::addColumn<QString>("Coda");
    const QString Bianchi = u"Bianchi S.r.l."_s;
    QTest::newRow("con oggetto") << u"una lite"_s << Bianchi
                                 << u"contro Bianchi S.r.l. e avente a oggetto una lite: "_s;
    QTest::newRow("senza oggetto") << QString() << Bianchi << u"contro Bianchi S.r.l.: "_s;
    QTest::newRow("senza controparte, il suo posto resta") << QString() << QString() << u"contro : "_s;
}

void TestContratto::informativa()
{
    QFETCH(QString, Oggetto);
    QFETCH(QString, Controparte);
    QFETCH(QString, Coda);
    Parcella Nota = campioni::Civile();
    Nota.txtDatiStaOgg.Testo = Oggetto;
    Nota.txtDatiStaControp.Testo = Controparte;
    Nota.txtDatiStaCli.Testo = u"Mario Rossi"_s;
    const Documento Doc = documenti::ComeSta(Nota, StampaInformativa);
    QCOMPARE(
        TestiBlocchi(Doc),
        (QStringList{u"DICHIARAZIONI DI RESA INFORMAZIONE"_s, QString(),
                     u"Il sottoscritto  Mario Rossi dichiara di essere stato informato dall'avv. Avv. Giulia "
                     u"Neri in relazione alla controversia insorta "_s +
                         Coda}));
    const auto& Titolo = std::get<Paragrafo>(Doc.Blocchi[0]);
    QCOMPARE(Titolo.Allinea, Allineamento::Centro);
    QCOMPARE(Titolo.Tratti[0].Font, (Carattere{u"Times New Roman"_s, 11.0, true}));
    const auto& Dichiarazione = std::get<Paragrafo>(Doc.Blocchi[2]);
    QCOMPARE(Dichiarazione.Allinea, Allineamento::Giustificato);
    QCOMPARE(Dichiarazione.Tratti[0].Font, (Carattere{u"Times New Roman"_s, 11.0}));
}

// ---- the clauses

void TestContratto::clausole_data()
{
    QTest::addColumn<int>("Tipo");
    QTest::addColumn<int>("ContrTipo");
    QTest::addColumn<QString>("File");
    QTest::newRow("contratto di una persona") << int(StampaContratto) << 0 << u"ContrattoPersonaFisica.rtf"_s;
    QTest::newRow("contratto di una società")
        << int(StampaContratto) << 1 << u"ContrattoPersonaGiuridica.rtf"_s;
    QTest::newRow("informativa di una persona")
        << int(StampaInformativa) << 0 << u"ResaInformazionePersonaFisica.rtf"_s;
    QTest::newRow("informativa di una società, in minuscole")
        << int(StampaInformativa) << 1 << u"resainformazionepersonagiuridica.rtf"_s;
}

void TestContratto::clausole()
{
    QFETCH(int, Tipo);
    QFETCH(int, ContrTipo);
    QFETCH(QString, File);
    ScriviFile(Clausole + File, "{\\rtf1\\ansi \\b Clausole\\b0  di " + File.toUtf8() + "\\par}");
    Parcella Nota = Completa(campioni::Civile());
    Nota.optContrTipo = ContrTipo;
    const Documento Doc = Composto(Nota, Tipo);
    const QStringList Testi = TestiBlocchi(Doc);
    QCOMPARE(Testi.mid(Testi.size() - 2), (QStringList{u"Clausole di "_s + File, QString()}));
    const auto& Clausola = std::get<Paragrafo>(Doc.Blocchi[Doc.Blocchi.size() - 2]);
    QCOMPARE(int(Clausola.Tratti.size()), 2);
    QVERIFY(Clausola.Tratti[0].Font.Grassetto && !Clausola.Tratti[1].Font.Grassetto);
    QVERIFY(!TestiBlocchi(Composto(campioni::Civile(), StampaPrenotula)).join(u' ').contains(File));
}

void TestContratto::clausoleDelloStudio()
{
    // The office's own file wins over the delivered one, one without a word too; the others stay the
    // delivered ones.
    const auto Rimetti = qScopeGuard([Era = sessione::UserFolder] { sessione::UserFolder = Era; });
    sessione::UserFolder = NuovaCartella();
    const QString Proprie = sessione::UserFolder + Barra(u"clausole"_s);
    QVERIFY(QDir().mkpath(Proprie));
    for (const QString& Nome : {u"ContrattoPersonaFisica.rtf"_s, u"ResaInformazionePersonaFisica.rtf"_s})
        ScriviFile(Clausole + Nome, "{\\rtf1 Fornite}");
    ScriviFile(Proprie + u"CONTRATTOpersonafisica.rtf"_s, "{\\rtf1 Dello studio}");
    const Parcella Nota = Completa(campioni::Civile());
    const auto Penultimo = [&](int Tipo) {
        const QStringList Testi = TestiBlocchi(Composto(Nota, Tipo));
        return Testi[Testi.size() - 2];
    };
    QCOMPARE(Penultimo(StampaContratto), u"Dello studio"_s);
    QCOMPARE(Penultimo(StampaInformativa), u"Fornite"_s);
    ScriviFile(Proprie + u"CONTRATTOpersonafisica.rtf"_s, {});
    QVERIFY(!TestiBlocchi(Composto(Nota, StampaContratto)).join(u' ').contains(u"Fornite"));
    sessione::UserFolder.clear();
    QCOMPARE(Penultimo(StampaContratto), u"Fornite"_s);
}

void TestContratto::clausoleMancanti_data()
{
    QTest::addColumn<int>("Tipo");
    QTest::addColumn<QString>("Ultima");
    QTest::newRow("contratto") << int(StampaContratto)
                               << u"d) euro "_s + QString(30, u' ') +
                                      u" a saldo, alla pubblicazione della decisione."_s;
    QTest::newRow("informativa")
        << int(StampaInformativa)
        << u"Il sottoscritto  Mario Rossi dichiara di essere stato informato dall'avv. Avv. "
           u"Giulia Neri in relazione alla controversia insorta contro Bianchi S.r.l.: "_s;
}

void TestContratto::clausoleMancanti()
{
    QFETCH(int, Tipo);
    Parcella Nota = campioni::Civile();
    Nota.txtDatiStaOgg.Testo.clear();
    Nota.txtDatiStaCli.Testo = u"Mario Rossi"_s;
    const Registratore Messaggi;
    QTEST(TestiBlocchi(documenti::ComeSta(Nota, Tipo)).last(), "Ultima");
}

void TestContratto::clausoleInTestoSemplice()
{
    ScriviFile(Clausole + u"ContrattoPersonaFisica.rtf"_s, "Foro competente \xE8 Milano.");
    const Documento Doc = Composto(Completa(campioni::Civile()), StampaContratto);
    QVERIFY(TestiBlocchi(Doc).contains(u"Foro competente è Milano."_s));
}

void TestContratto::clausoleGuaste_data()
{
    QTest::addColumn<QByteArray>("Byte");
    QTest::addColumn<QString>("Lette");
    QTest::addColumn<bool>("InParte");
    QTest::newRow("troncato nel testo")
        << QByteArray("{\\rtf1\\ansi Foro di Mil") << u"Foro di Mil"_s << true;
    QTest::newRow("troncato in una figura")
        << QByteArray("{\\rtf1\\ansi Foro{\\pict 00ff") << u"Foro"_s << true;
    QTest::newRow("una parentesi di troppo")
        << QByteArray("{\\rtf1\\ansi Foro}} di Milano}") << u"Foro"_s << true;
    QTest::newRow("bianchi prima") << QByteArray(" \r\n{\\rtf1\\ansi Foro di Milano}") << u"Foro di Milano"_s
                                   << false;
    QTest::newRow("testo RTF dietro la marca di UTF-8")
        << QByteArray("\xEF\xBB\xBF{\\rtf1\\ansi Foro di Milano}") << u"Foro di Milano"_s << false;
    QTest::newRow("testo RTF in UTF-8, accenti compresi")
        << QByteArray("\xEF\xBB\xBF{\\rtf1\\ansi Citt\xC3\xA0 di Forl\\'ec}") << u"Città di Forlì"_s << false;
    QTest::newRow("uno spazio fisso di UTF-8 prima")
        << QByteArray("\xC2\xA0{\\rtf1\\ansi Foro di Milano}") << u"Foro di Milano"_s << false;
    QTest::newRow("dietro la marca, più lungo di ogni pagina vuota")
        << QByteArray("\xEF\xBB\xBF{\\rtf1\\ansi ") + QByteArray(300000, '\n') + QByteArray("Foro di Milano}")
        << u"Foro di Milano"_s << false;
    QTest::newRow("dietro la marca, troncato")
        << QByteArray("\xEF\xBB\xBF{\\rtf1\\ansi Foro di Mil") << u"Foro di Mil"_s << true;
    QTest::newRow("byte nulli in coda")
        << QByteArray("{\\rtf1\\ansi Foro di Milano}\0\0", 28) << u"Foro di Milano"_s << false;
    QTest::newRow("UTF-8 senza marca") << QByteArray("Citt\xC3\xA0") << u"Città"_s << false;
}

void TestContratto::clausoleGuaste()
{
    QFETCH(QByteArray, Byte);
    QFETCH(QString, Lette);
    QFETCH(bool, InParte);
    const Parcella Nota = Completa(campioni::Civile());
    const QString Senza = TestiBlocchi(Composto(Nota, StampaContratto)).join(u'|');
    ScriviFile(Clausole + u"ContrattoPersonaFisica.rtf"_s, Byte);
    Registratore Messaggi;
    if (InParte)
        Messaggi.Attendi(u"Attenzione, le clausole di ContrattoPersonaFisica.rtf sono state stampate solo in "
                         u"parte: "_s +
                             (Byte.contains("}}")
                                  ? u"nel file una parentesi graffa di troppo chiude il testo "
                                    u"prima della fine."_s
                                  : u"il file è troncato."_s),
                         vbOK, u"Errore:"_s);
    const QString Con = TestiBlocchi(Composto(Nota, StampaContratto)).join(u'|');
    QVERIFY(Con.startsWith(Senza));
    QCOMPARE(Manca(Nota).isEmpty(), !InParte);
    QCOMPARE(Con.mid(Senza.size()).remove(u'|').remove(QChar()), Lette);
}

void TestContratto::clausoleRifiutate_data()
{
    QTest::addColumn<QByteArray>("Byte");
    QTest::addColumn<QString>("Perche");
    const QString NonTesto = u"il file non è un testo RTF"_s;
    QTest::newRow("archivio compresso") << QByteArray("PK\x03\x04 [Content_Types].xml") << NonTesto;
    QTest::newRow("documento di un vecchio elaboratore")
        << QByteArray("\xD0\xCF\x11\xE0\xA1\xB1 testo") << NonTesto;
    QTest::newRow("byte nulli") << QByteArray("Foro\0 di Milano", 15) << NonTesto;
    QTest::newRow("byte nulli nel testo RTF") << QByteArray("{\\rtf1 Foro\0 di Milano}", 23) << NonTesto;
    const QString Vuoto = u"il file è vuoto"_s;
    QTest::newRow("niente") << QByteArray("") << Vuoto;
    QTest::newRow("soli bianchi") << QByteArray(" \r\n\t ") << Vuoto;
    QTest::newRow("solo la marca di UTF-8") << QByteArray("\xEF\xBB\xBF") << Vuoto;
    QTest::newRow("marca e bianchi") << QByteArray("\xEF\xBB\xBF\r\n\r\n") << Vuoto;
    QTest::newRow("spazio fisso") << QByteArray("\xC2\xA0\r\n") << Vuoto;
    const QString Tronco = u"il file è troncato"_s;
    QTest::newRow("troncato nei font") << QByteArray("{\\rtf1\\ansi{\\fonttbl{\\f0 Tim") << Tronco;
    QTest::newRow("gruppi senza fine") << QByteArray("{\\rtf1") + QByteArray(100000, '{') << Tronco;
    QTest::newRow("troppo testo") << QByteArray("{\\rtf1 ") + QByteArray(MassimoTesto, 'a') + '}'
                                  << u"il file contiene troppo testo"_s;
}

/// Once by name, however often the document is composed, and again only after it was well.
void TestContratto::clausoleRifiutate()
{
    QFETCH(QByteArray, Byte);
    QFETCH(QString, Perche);
    const Parcella Nota = Completa(campioni::Civile());
    const QString Nome = Clausole + u"ContrattoPersonaFisica.rtf"_s;
    ScriviFile(Nome, "Foro");
    const QStringList Con = TestiBlocchi(Composto(Nota, StampaContratto));
    QFile::remove(Nome);
    const QStringList Senza = TestiBlocchi(Composto(Nota, StampaContratto));
    QVERIFY(Con.size() > Senza.size());
    for (int Volta = 0; Volta < 2; ++Volta) {
        Registratore Messaggi;
        Messaggi.Attendi(
            u"Attenzione, le clausole di ContrattoPersonaFisica.rtf non sono state stampate: "_s + Perche +
            u'.');
        ScriviFile(Nome, Byte);
        QCOMPARE(TestiBlocchi(Composto(Nota, StampaContratto)), Senza);
        QCOMPARE(TestiBlocchi(Composto(Nota, StampaContratto)), Senza);
        QCOMPARE(Messaggi.Mostrati().size(), 1);
        ScriviFile(Nome, "Foro");
        QCOMPARE(TestiBlocchi(Composto(Nota, StampaContratto)), Con);
    }
}

/// An office that wants no clauses saves an empty page: told once, as no fault, and nothing is amiss.
void TestContratto::clausoleBianche()
{
    const Parcella Nota = Completa(campioni::Civile());
    const QStringList Senza = TestiBlocchi(Composto(Nota, StampaContratto));
    ScriviFile(Clausole + u"ContrattoPersonaFisica.rtf"_s,
               "{\\rtf1\\ansi{\\fonttbl{\\f0 Times;}}\\pard\\par}");
    Registratore Messaggi;
    Messaggi.Attendi(
        u"Attenzione, le clausole di ContrattoPersonaFisica.rtf non sono state stampate: il file "
        u"non contiene testo."_s,
        vbOK, u"Avvertenza:"_s);
    QCOMPARE(TestiBlocchi(Composto(Nota, StampaContratto)), Senza);
    QCOMPARE(TestiBlocchi(Composto(Nota, StampaContratto)), Senza);
    QCOMPARE(Messaggi.Mostrati().size(), 1);
    QCOMPARE(Manca(Nota), QString());
    ScriviFile(Clausole + u"ContrattoPersonaFisica.rtf"_s, "Foro");
    QVERIFY(TestiBlocchi(Composto(Nota, StampaContratto)).contains(u"Foro"_s));
}

/// Whatever keeps the office's own text from being read, the delivered one is not printed in its place.
void TestContratto::clausoleProprieIrraggiungibili_data()
{
    QTest::addColumn<QString>("Come");
    for (const QString& Come : {u"cartella"_s, u"collegamento"_s, u"collegamento alla cartella"_s})
        QTest::newRow(qPrintable(Come)) << Come;
}

void TestContratto::clausoleProprieIrraggiungibili()
{
    QFETCH(QString, Come);
    const auto Rimetti = qScopeGuard([Era = sessione::UserFolder] { sessione::UserFolder = Era; });
    sessione::UserFolder = NuovaCartella();
    ScriviFile(Clausole + u"ContrattoPersonaFisica.rtf"_s, "{\\rtf1 Fornite}");
    const QString Proprie = sessione::UserFolder + u"clausole"_s;
    const QString Propria = Proprie + u"/ContrattoPersonaFisica.rtf"_s;
    if (Come == u"collegamento alla cartella") {
        QVERIFY(QFile::link(sessione::UserFolder + u"condivisione sparita"_s, Proprie));
    } else {
        QVERIFY(QDir().mkpath(Proprie));
        QVERIFY(Come == u"cartella" ? QDir().mkpath(Propria)
                                    : QFile::link(sessione::UserFolder + u"sparito.rtf"_s, Propria));
    }
    Registratore Messaggi;
    Messaggi.Attendi(
        u"Attenzione, le clausole di ContrattoPersonaFisica.rtf non sono state stampate: il file "
        u"non si può leggere."_s,
        vbOK, u"Errore:"_s);
    const Parcella Nota = Completa(campioni::Civile());
    QVERIFY(!TestiBlocchi(Composto(Nota, StampaContratto)).contains(u"Fornite"_s));
    QVERIFY(!Manca(Nota).isEmpty());
    // Sound again, so that the next damage is told.
    sessione::UserFolder.clear();
    QVERIFY(TestiBlocchi(Composto(Nota, StampaContratto)).contains(u"Fornite"_s));
}

/// An office's own letterhead makes the file large, not the text.
void TestContratto::clausoleConImmagini()
{
    const Registratore Messaggi;
    ScriviFile(Clausole + u"ContrattoPersonaFisica.rtf"_s, "{\\rtf1\\ansi {\\*\\shppict{\\pict\\pngblip " +
                                                               QByteArray(2 * MassimoTesto, 'f') +
                                                               "}}Foro di Milano\\par}");
    const QStringList Testi = TestiBlocchi(Composto(Completa(campioni::Civile()), StampaContratto));
    QCOMPARE(Testi.value(Testi.size() - 2), u"Foro di Milano"_s);
}

#include "TestContratto.moc"
