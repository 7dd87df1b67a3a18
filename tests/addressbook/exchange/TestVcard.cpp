// Cards of other address books, in the three versions that are about.
#include "supporto/guasti.h"
#include "supporto/prova.h"

#include "addressbook/exchange/vcard.h"
#include "platform/base/paginacodice.h"

using namespace Qt::StringLiterals;

class TestVcard : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void leVersioni_data();
    void leVersioni();
    void ilNome_data();
    void ilNome();
    void laData_data();
    void laData();
    void piuSchede();
    void cioCheResta();
    void siScrive();
    void leRigheSiPiegano();
    void andataERitorno();
    void siRifiuta_data();
    void siRifiuta();
};
PROVA(TestVcard);

namespace {

QByteArray Scheda(const QByteArray& Righe)
{
    return "BEGIN:VCARD\r\nVERSION:3.0\r\n" + Righe + "END:VCARD\r\n";
}

/// The one card of a file, column by column.
QMap<QString, QString> RigaLetta(const QByteArray& Byte)
{
    const TabellaEstranea Tutte = LeggiVcard(Byte);
    QMap<QString, QString> Valori;
    if (Tutte.Righe.size() == 1)
        for (qsizetype i = 0; i < Tutte.Titoli.size(); ++i)
            Valori[Tutte.Titoli[i]] = Tutte.Righe.front()[i];
    return Valori;
}

}  // namespace

using Valori = QMap<QString, QString>;

void TestVcard::leVersioni_data()
{
    QTest::addColumn<QByteArray>("Byte");
    QTest::addColumn<Valori>("Attesi");
    const Valori Rossi{{u"Nominativo"_s, u"Rossi Nicolò"_s}, {u"Note"_s, u"una; due\ntrè"_s}};
    QTest::newRow("2.1, quoted-printable, own characters")
        << QByteArray(
               "BEGIN:VCARD\nVERSION:2.1\nN;ENCODING=QUOTED-PRINTABLE;CHARSET=ISO-8859-1:Rossi;Nicol=F2\n"
               "TEL;CELL;VOICE:333 1\nNOTE;QUOTED-PRINTABLE;CHARSET=UTF-8:una; due=0Atr=\n=C3=A8\n"
               "END:VCARD\n")
        << Valori{{u"Nominativo"_s, u"Rossi Nicolò"_s},
                  {u"Note"_s, u"una; due\ntrè"_s},
                  {u"Cellulare"_s, u"333 1"_s}};
    QTest::newRow("3.0, escapes, folds, groups")
        << Scheda(u"N:Rossi;Nicolò;;;\r\nNOTE:una\\; due\r\n "
                  u"\\ntr\r\n\tè\r\nitem1.TEL;TYPE=\"cell,voice\":333 1\r\n"
                  "item1.X-ABLABEL:mio\r\n"_s.toUtf8())
        << Valori{{u"Nominativo"_s, u"Rossi Nicolò"_s},
                  {u"Note"_s, u"una; due\ntrè"_s},
                  {u"Cellulare"_s, u"333 1"_s},
                  {u"ABLABEL"_s, u"mio"_s}};
    QTest::newRow("4.0") << u"BEGIN:VCARD\nVERSION:4.0\nFN:Avv. "
                            u"Rossi\nN:Rossi;Nicolò;;Avv.;PhD\nTEL;VALUE=uri;TYPE=\"voice,cell\":tel:"
                            "+39-333\nNOTE:una\\; due\\ntrè\nUID:urn:uuid:1\nREV:2020\nEND:VCARD\n"_s.toUtf8()
                         << Valori{{u"Nominativo"_s, u"Rossi Nicolò"_s},
                                   {u"Titolo"_s, u"Avv. PhD"_s},
                                   {u"Note"_s, u"una; due\ntrè"_s},
                                   {u"Cellulare"_s, u"+39-333"_s}};
    QTest::newRow("Windows-1252 without a word")
        << Cp1252(QString::fromUtf8(Scheda(u"N:Rossi;Nicolò\r\nNOTE:una\\; due\\ntrè\r\n"_s.toUtf8())))
        << Rossi;
    QTest::newRow("2.1, a blank behind a soft break, a comma as it is")
        << QByteArray(
               "BEGIN:VCARD\nVERSION:2.1\nN:Rossi;Ada\n"
               "ADR;ENCODING=QUOTED-PRINTABLE:;;Via Garibaldi=\n 12, scala B;Forl=EC=\n;FC\nTEL;HOME:1\n"
               "END:VCARD\n")
        << Valori{{u"Nominativo"_s, u"Rossi Ada"_s},
                  {u"Indirizzo"_s, u"Via Garibaldi 12, scala B"_s},
                  {u"Citta"_s, u"Forlì"_s},
                  {u"Prov"_s, u"FC"_s},
                  {u"Telefono"_s, u"1"_s}};
    QTest::newRow("parameters on a line of their own")
        << Scheda("N:Rossi;Ada\r\nNOTE;ENCODING=QUOTED-PRINTABLE;\r\n CHARSET=utf8:tr=C3=\r\n=A8 \r\n e\r\n")
        << Valori{{u"Nominativo"_s, u"Rossi Ada"_s}, {u"Note"_s, u"trè e"_s}};
    QTest::newRow("Windows-1252 behind the mark of another code")
        << "\xEF\xBB\xBF" +
               Cp1252(QString::fromUtf8(Scheda(u"N:Rossi;Nicolò\r\nNOTE:una\\; due\\ntrè\r\n"_s.toUtf8())))
        << Rossi;
    QTest::newRow("address, mail, codes")
        << Scheda(
               "N:Rossi;Ada\r\nADR;TYPE=home:;int. 3;Via Roma 1;Lucca;LU;55100;Italia\r\nTEL;TYPE=fax:1\r\n"
               "TEL:0583 1\r\nTEL:0583 "
               "2\r\nEMAIL:a@b.it\r\nEMAIL;TYPE=x-pec:p@c.it\r\nEMAIL:x@pec.ordine.it\r\n"
               "X-CODICE-FISCALE:RSSDAA80A41E715X\r\nX-PARTITAIVA:01234567890\r\nBIRTHPLACE:Lucca\r\n"
               "X-SDI:ABC1234\r\nTITLE:Dott.\r\nPHOTO;ENCODING=b:AAAA\r\n BBBB\r\n")
        << Valori{{u"Nominativo"_s, u"Rossi Ada"_s},
                  {u"Indirizzo"_s, u"Via Roma 1 int. 3"_s},
                  {u"Citta"_s, u"Lucca"_s},
                  {u"Prov"_s, u"LU"_s},
                  {u"Cap"_s, u"55100"_s},
                  {u"Fax"_s, u"1"_s},
                  {u"Telefono"_s, u"0583 1"_s},
                  {u"Telefono 2"_s, u"0583 2"_s},
                  {u"Email"_s, u"a@b.it"_s},
                  {u"Pec"_s, u"p@c.it"_s},
                  {u"Pec 2"_s, u"x@pec.ordine.it"_s},
                  {u"CodFis"_s, u"RSSDAA80A41E715X"_s},
                  {u"PIva"_s, u"01234567890"_s},
                  {u"ComuneNascita"_s, u"Lucca"_s},
                  {u"CodDestinatario"_s, u"ABC1234"_s},
                  {u"TITLE"_s, u"Dott."_s}};
}

void TestVcard::leVersioni()
{
    QFETCH(QByteArray, Byte);
    QTEST(RigaLetta(Byte), "Attesi");
}

void TestVcard::ilNome_data()
{
    QTest::addColumn<QByteArray>("Righe");
    QTest::addColumn<QString>("Nome");
    QTest::addColumn<QString>("Organizzazione");
    QTest::newRow("family name first")
        << QByteArray("FN:Mario Rossi\nN:Rossi;Mario;Ugo\n") << u"Rossi Mario Ugo"_s << QString();
    QTest::newRow("only as shown") << QByteArray("FN:Mario Rossi\n") << u"Mario Rossi"_s << QString();
    QTest::newRow("a person of a company")
        << QByteArray("FN:Mario Rossi\nN:Rossi;Mario\nORG:Alfa Srl;Vendite\n") << u"Rossi Mario"_s
        << u"Alfa Srl Vendite"_s;
    QTest::newRow("a company") << QByteArray("FN:Alfa Srl\nN:;;;;\nORG:Alfa Srl\n") << u"Alfa Srl"_s
                               << QString();
    QTest::newRow("a comma that old cards write as it is")
        << QByteArray("N:;\nORG:Rossi, Bianchi e C.;Vendite\n") << u"Rossi, Bianchi e C. Vendite"_s
        << QString();
    QTest::newRow("a company by its kind")
        << QByteArray("KIND:org\nFN:Alfa\nN:Rossi;Mario\nORG:Alfa Srl\n") << u"Alfa Srl"_s << QString();
    QTest::newRow("nobody") << QByteArray("TEL:1\n") << QString() << QString();
}

void TestVcard::ilNome()
{
    QFETCH(QByteArray, Righe);
    const Valori Avuti = RigaLetta(Scheda(Righe));
    QTEST(Avuti.value(u"Nominativo"_s), "Nome");
    QTEST(Avuti.value(u"Organizzazione"_s), "Organizzazione");
}

void TestVcard::laData_data()
{
    QTest::addColumn<QByteArray>("Scritta");
    QTest::addColumn<QString>("Letta");
    QTest::newRow("compact") << QByteArray("19800131") << u"31/01/1980"_s;
    QTest::newRow("with hyphens") << QByteArray("1980-01-31") << u"31/01/1980"_s;
    QTest::newRow("with a time") << QByteArray("1980-01-31T00:00:00Z") << u"31/01/1980"_s;
    QTest::newRow("without a year") << QByteArray("--0131") << u"--0131"_s;
    QTest::newRow("no day") << QByteArray("19800231") << u"19800231"_s;
}

void TestVcard::laData()
{
    QFETCH(QByteArray, Scritta);
    QTEST(RigaLetta(Scheda("FN:x\r\nBDAY:" + Scritta + "\r\n")).value(u"DataNascita"_s), "Letta");
}

void TestVcard::piuSchede()
{
    const TabellaEstranea Tutte =
        LeggiVcard(Scheda("FN:Uno\r\n") + "\r\n" +
                   Scheda("FN:Due\r\nAGENT:\r\nBEGIN:VCARD\r\nFN:Altro\r\nEND:VCARD\r\n"
                          "TEL:2\r\n"));
    QCOMPARE(Tutte.Righe, (std::vector<QStringList>{{u"Uno"_s, QString()}, {u"Due"_s, u"2"_s}}));
    QCOMPARE(Tutte.Numeri, (std::vector<int>{1, 2}));
    QCOMPARE(Tutte.Unita, u"scheda"_s);
}

/// Pictures and the like are named as left out, whatever their size.
void TestVcard::cioCheResta()
{
    const QByteArray Foto = "PHOTO;ENCODING=BASE64;TYPE=JPEG:" + QByteArray(3 << 20, 'A') + "\r\n";
    QCOMPARE(LeggiVcard(Scheda("FN:Uno\r\nUID:1\r\n")).Avvisi, QStringList());
    QCOMPARE(LeggiVcard(Scheda("FN:Uno\r\n" + Foto + "LOGO:x\r\n") + Scheda("FN:Due\r\n")).Avvisi,
             QStringList{u"tralasciati immagini, suoni, chiavi e schede annesse di 1 scheda"_s});
    QCOMPARE(LeggiVcard(Scheda("FN:Uno\r\n" + Foto) + Scheda("FN:Due\r\nKEY:x\r\n")).Avvisi,
             QStringList{u"tralasciati immagini, suoni, chiavi e schede annesse di 2 schede"_s});
}

void TestVcard::siScrive()
{
    QCOMPARE(
        SchedaVcard({{u"Nominativo"_s, u"Alfa, Beta & C; Srl"_s},
                     {u"Indirizzo"_s, u"Via Roma 1"_s},
                     {u"Cap"_s, u"55100"_s},
                     {u"Citta"_s, u"Lucca"_s},
                     {u"PIva"_s, u"01234567890"_s},
                     {u"DataNascita"_s, u"31/01/1980"_s},
                     {u"Pec"_s, u"a@pec.it"_s},
                     {u"Mia colonna"_s, u"x"_s},
                     {u"Note"_s, u"una\ndue\\"_s}},
                    true),
        QByteArray(
            "BEGIN:VCARD\r\nVERSION:4.0\r\nKIND:org\r\nFN:Alfa\\, Beta & C\\; Srl\r\n"
            "ORG:Alfa\\, Beta & C\\; Srl\r\nADR:;;Via Roma 1;Lucca;;55100;\r\nX-PARTITAIVA:01234567890\r\n"
            "BDAY:19800131\r\nEMAIL;TYPE=x-pec:a@pec.it\r\nX-MIA-COLONNA:x\r\nNOTE:una\\ndue\\\\\r\n"
            "END:VCARD\r\n"));
    QCOMPARE(SchedaVcard({{u"Nominativo"_s, u" "_s}, {u"Telefono"_s, u"1"_s}}, false), QByteArray());
}

/// No line is longer than 75 bytes, and no letter is cut.
void TestVcard::leRigheSiPiegano()
{
    const QString Note = u"àèìòù €"_s.repeated(40);
    const QByteArray Scritta = SchedaVcard({{u"Nominativo"_s, u"Rossi"_s}, {u"Note"_s, Note}}, false);
    for (const QByteArray& Riga : Scritta.split('\n')) {
        QVERIFY2(Riga.size() <= 76, Riga.constData());
        QVERIFY2(Riga.isValidUtf8(), Riga.constData());
    }
    QVERIFY(Scritta.count("\r\n ") > 3);
    QCOMPARE(RigaLetta(Scritta).value(u"Note"_s), Note);
}

void TestVcard::andataERitorno()
{
    const Valori Tutti{{u"Nominativo"_s, u"D'Àlvari \\ Nicolò; Ugo, detto \"X\""_s},
                       {u"Indirizzo"_s, u"Via Roma, 1; scala B"_s},
                       {u"Cap"_s, u"00184"_s},
                       {u"Citta"_s, u"Forlì"_s},
                       {u"Prov"_s, u"FC"_s},
                       {u"CodFis"_s, u"DLVNCL80A31D704Z"_s},
                       {u"PIva"_s, u"01234567890"_s},
                       {u"DataNascita"_s, u"31/01/1980"_s},
                       {u"ComuneNascita"_s, u"Forlì"_s},
                       {u"Telefono"_s, u"0543 1"_s},
                       {u"Cellulare"_s, u"+39 333"_s},
                       {u"Email"_s, u"a@b.it"_s},
                       {u"Pec"_s, u"a@c.it"_s},
                       {u"CodDestinatario"_s, u"ABC1234"_s},
                       {u"RapprLegale"_s, u"Bianchi Ada"_s},
                       {u"Note"_s, u"una\ndue; tre\\n"_s}};
    ValoriNominativo Scritti;
    for (auto Voce = Tutti.cbegin(); Voce != Tutti.cend(); ++Voce)
        Scritti.append({Voce.key(), Voce.value()});
    for (const bool Societa : {false, true})
        QCOMPARE(RigaLetta(SchedaVcard(Scritti, Societa)), Tutti);
}

void TestVcard::siRifiuta_data()
{
    QTest::addColumn<QByteArray>("Byte");
    QTest::addColumn<QString>("Frase");
    QTest::newRow("no card")
        << QByteArray("FN:x\n")
        << u"Il file non contiene schede vCard: scegliere un file .vcf esportato da una rubrica."_s;
    QTest::newRow("cut")
        << Scheda("FN:x\n") + "BEGIN:VCARD\nFN:y\n"
        << u"Il file finisce a metà della scheda 2: è incompleto, ripetere l'esportazione dal programma "
           "d'origine."_s;
    QTest::newRow("a text of 16 MB")
        << Scheda("FN:x\nNOTE:" + QByteArray(16 << 20, 'x') + "\n")
        << u"Nella scheda 1 un testo ha più di 1.000.000 caratteri: accorciarlo e ripetere."_s;
    QByteArray Tante("FN:x\n");
    for (int i = 0; i < 10'000; ++i)
        Tante += "X-A" + QByteArray::number(i) + ":1\n";
    QTest::newRow("10,000 properties")
        << Scheda(Tante)
        << u"Il file ha più di 1.000 proprietà diverse: dividerlo e importarne una parte alla volta."_s;
}

void TestVcard::siRifiuta()
{
    QFETCH(QByteArray, Byte);
    const ErroreVisto Guasto = ErroreDi([&] { (void)LeggiVcard(Byte); });
    QCOMPARE(Guasto.Numero, NumeroFileRifiutato);
    QTEST(Guasto.Descrizione, "Frase");
}

#include "TestVcard.moc"
