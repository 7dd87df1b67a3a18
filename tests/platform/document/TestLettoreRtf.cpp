#include "supporto/prova.h"

#include "letture.h"

#include <QRegularExpression>

using namespace Qt::StringLiterals;

namespace {

QString Rtf(const QString& Corpo)
{
    return u"{\\rtf1\\ansi\\deff0{\\fonttbl{\\f0\\froman Georgia;}{\\f1\\fswiss\\fcharset0 Arial;}"
           u"{\\f2\\fnil\\fcharset2 Symbol;}{\\f3\\fcharset238 Times New Roman CE;}}"_s +
           Corpo + u'}';
}

QString Testi(const QString& Intero)
{
    return letture::Testi(LeggiRtf(Intero));
}

/// The only paragraph of a body.
Paragrafo Solo(const QString& Corpo)
{
    const std::vector<Paragrafo> Letti = letture::ParagrafiRtf(Rtf(Corpo));
    return Letti.size() == 1 ? Letti.front() : Paragrafo();
}

/// Runs as "text<formats size font>".
QString Tratti(const Paragrafo& Questo)
{
    QString Tutti;
    for (const Tratto& Uno : Questo.Tratti) {
        const Carattere& F = Uno.Font;
        Tutti += Uno.Testo + u'<' + (F.Grassetto ? u"b"_s : QString()) + (F.Corsivo ? u"i"_s : QString()) +
                 (F.Sottolineato ? u"u"_s : QString()) + (F.Barrato ? u"-"_s : QString()) +
                 (F.Posto == PostoRigo::Apice    ? u"^"_s
                  : F.Posto == PostoRigo::Pedice ? u"_"_s
                                                 : QString()) +
                 QString::number(F.Punti) + u' ' + F.Nome + u'>';
    }
    return Tutti;
}

}  // namespace

class TestLettoreRtf : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void testo_data();
    void testo();
    void caratteri_data();
    void caratteri();
    void paragrafi_data();
    void paragrafi();
    void rientri();
    void pagineNuove();
    void bianchiConIlLoroFont();
    void altriProgrammi_data();
    void altriProgrammi();
    void titoliConIlSeguente();
    void guasti_data();
    void guasti();
    void ogniTroncamentoDaUnInizio();
    void gruppiProfondi();
    void limiti();
    void tempoLineare_data();
    void tempoLineare();
    void nomeDiFontSmisurato();
    void fermi();
    void distanzaDelleRighe_data();
    void distanzaDelleRighe();
    void tabelle_data();
    void tabelle();
    void larghezzeELineeDelleTabelle();
    void celleConPiuParagrafi();
    void tabelleSmisurate();
};
PROVA(TestLettoreRtf);

void TestLettoreRtf::testo_data()
{
    QTest::addColumn<QString>("Corpo");
    QTest::addColumn<QString>("Attesi");

    QTest::newRow("a paragraph") << u"\\pard uno\\par"_s << u"uno|"_s;
    QTest::newRow("without its end mark") << u"uno\\par due"_s << u"uno|due|"_s;
    QTest::newRow("blank rows") << u"uno\\par\\par\\par due\\par"_s << u"uno|||due|"_s;
    QTest::newRow("line ends of the file are none") << u"u\r\nn\no\\par"_s << u"uno|"_s;
    QTest::newRow("a backslash at a line end is one") << u"uno\\\r\ndue\\\n"_s << u"uno|due|"_s;
    QTest::newRow("one blank ends a word, the next is text") << u"a\\b  b\\b0  c\\par"_s << u"a b c|"_s;
    QTest::newRow("runs of blanks") << u"a    b\\par"_s << u"a    b|"_s;
    QTest::newRow("signs of the syntax") << u"\\{a\\}\\\\b\\par"_s << u"{a}\\b|"_s;
    QTest::newRow("line break and tab") << u"a\\line b\\tab c\\par"_s << u"a\nb\tc|"_s;
    QTest::newRow("named signs")
        << u"\\lquote a\\rquote\\ldblquote b\\rdblquote\\endash\\emdash\\bullet\\par"_s << u"‘a’“b”–—•|"_s;
    QTest::newRow("hard blank and hyphen") << u"n.\\~7 a\\_b c\\-d\\par"_s << u"n.\u00a07 a\u2011b cd|"_s;
    QTest::newRow("accents of 1252") << u"perch\\'e9 citt\\'E0 \\'80 5\\par"_s << u"perché città € 5|"_s;
    QTest::newRow("accents as they stand") << u"perché\\par"_s << u"perché|"_s;
    QTest::newRow("a font of central Europe") << u"{\\f3 \\'f8\\'e8}\\'f8\\par"_s << u"řčø|"_s;
    QTest::newRow("Unicode with its substitute") << u"\\u8364?5\\par"_s << u"€5|"_s;
    QTest::newRow("negative number") << u"\\u-3913?\\u-64257?x\\par"_s << u"•\u04ffx|"_s;
    QTest::newRow("a substitute in hexadecimal") << u"\\u8211\\'96a\\par"_s << u"–a|"_s;
    QTest::newRow("two substitutes") << u"\\uc2\\u8364 EUa\\par"_s << u"€a|"_s;
    QTest::newRow("no substitute") << u"\\uc0\\u8364 a\\u232 b\\par"_s << u"€aèb|"_s;
    QTest::newRow("the count belongs to its group") << u"{\\uc0\\u8364 a}\\u8364?b\\par"_s << u"€a€b|"_s;
    QTest::newRow("a group ends the substitutes") << u"{\\uc3\\u8364 a}bcd\\par"_s << u"€bcd|"_s;
    QTest::newRow("a word is one substitute") << u"\\u8211\\endash a\\par"_s << u"–a|"_s;
    QTest::newRow("surrogate pair") << u"\\u-10179?\\u-8704?\\par"_s << u"😀|"_s;
    QTest::newRow("half a pair") << u"\\u-10179?a\\par"_s << u"\ufffda|"_s;
    QTest::newRow("bullets of a symbol font") << u"{\\f2\\'b7\\'a7}a\\par"_s << u"•▪a|"_s;
    QTest::newRow("text of a list")
        << u"{\\listtext\\pard\\plain 1.\\tab}uno\\par{\\pntext\\f2\\'b7\\tab}due\\par"_s
        << u"1.\tuno|•\tdue|"_s;
    QTest::newRow("a table's row") << u"\\trowd\\cellx100\\cellx200\\intbl a\\cell b\\cell\\row c\\par"_s
                                   << u"a/b/#c|"_s;
    QTest::newRow("a field's result") << u"{\\field{\\*\\fldinst PAGE}{\\fldrslt 3}}x\\par"_s << u"3x|"_s;
    QTest::newRow("a field's instruction")
        << u"{\\field{\\fldinst DATE}{\\fldrslt oggi}}\\par"_s << u"oggi|"_s;
    QTest::newRow("unknown groups to be ignored") << u"a{\\*\\nuovo testo{\\b dentro}}b\\par"_s << u"ab|"_s;
    QTest::newRow("unknown words") << u"a\\sconosciuta12 b{\\altra c}\\par"_s << u"abc|"_s;
    QTest::newRow("pictures") << u"a{\\pict\\pngblip 89504e470d0a}b\\par"_s << u"ab|"_s;
    QTest::newRow("raw bytes") << u"a{\\pict\\bin3 }}\\}b\\par"_s << u"ab|"_s;
    QTest::newRow("raw bytes in the text") << u"a\\bin4 }}{{b\\par"_s << u"ab|"_s;
    QTest::newRow("headers, notes, styles, titles")
        << u"{\\info{\\title T}}{\\stylesheet{\\s0 Normale;}}{\\header h\\par}{\\footer f\\par}a{\\footnote n}\\par"_s
        << u"a|"_s;
    QTest::newRow("colours") << u"{\\colortbl;\\red0\\green0\\blue255;}a\\cf1 b\\par"_s << u"ab|"_s;
    QTest::newRow("hidden text") << u"a{\\v segreto}b\\v c\\v0 d\\par"_s << u"abd|"_s;
    QTest::newRow("text struck in revision") << u"a{\\deleted via}b\\par"_s << u"ab|"_s;
    QTest::newRow("capitals") << u"{\\caps perch\\'e9} no\\par"_s << u"PERCHÉ no|"_s;
    QTest::newRow("what follows the text") << u"a\\par}dopo{\\b b\\par"_s << u"a|"_s;
    QTest::newRow("control characters") << u"a\u0001b\u0085c\\par"_s << u"abc|"_s;
    QTest::newRow("code page of the document") << u"\\ansicpg850 perch\\'82\\par"_s << u"perché|"_s;
    QTest::newRow("code page of a Macintosh") << u"\\mac perch\\'8e\\par"_s << u"perché|"_s;
    QTest::newRow("code page unknown") << u"\\ansicpg99999 \\'e9\\par"_s << u"é|"_s;
    QTest::newRow("code page UTF-8") << u"\\ansicpg65001 perch\\'c3\\'a9\\par"_s << u"perché|"_s;
}

void TestLettoreRtf::testo()
{
    QFETCH(QString, Corpo);
    QTEST(Testi(Rtf(Corpo)), "Attesi");
}

void TestLettoreRtf::caratteri_data()
{
    QTest::addColumn<QString>("Corpo");
    QTest::addColumn<QString>("Attesi");

    QTest::newRow("the first font, 12 points") << u"a"_s << u"a<12 Georgia>"_s;
    QTest::newRow("bold, italics, underline") << u"\\b a\\i b\\b0 c\\ul d\\i0\\ulnone e"_s
                                              << u"a<b12 Georgia>b<bi12 Georgia>c<i12 Georgia>"
                                                 u"d<iu12 Georgia>e<12 Georgia>"_s;
    QTest::newRow("a group gives back")
        << u"a{\\b\\fs28 b}c"_s << u"a<12 Georgia>b<b14 Georgia>c<12 Georgia>"_s;
    QTest::newRow("plain") << u"\\b\\f1\\fs20 a\\plain b"_s << u"a<b10 Arial>b<12 Georgia>"_s;
    QTest::newRow("half points") << u"\\fs21 a"_s << u"a<10.5 Georgia>"_s;
    QTest::newRow("sizes beyond sense")
        << u"\\fs0 a\\fs99999 b\\fs-3 c"_s << u"a<1 Georgia>b<200 Georgia>c<1 Georgia>"_s;
    QTest::newRow("a font that is not in the table") << u"\\f77 a"_s << u"a<12 Georgia>"_s;
    QTest::newRow("signs in the document's font") << u"{\\f2\\'b7}a"_s << u"•a<12 Georgia>"_s;
    QTest::newRow("struck out") << u"a{\\strike b}\\striked1 c\\striked0 d"_s
                                << u"a<12 Georgia>bc<-12 Georgia>d<12 Georgia>"_s;
    QTest::newRow("raised and lowered") << u"a{\\super 2}{\\sub 3}\\up6 b\\up0 c{\\super d\\nosupersub e}"_s
                                        << u"a<12 Georgia>2<^12 Georgia>3<_12 Georgia>b<^12 Georgia>"
                                           u"c<12 Georgia>d<^12 Georgia>e<12 Georgia>"_s;
    QTest::newRow("plain ends them") << u"\\strike\\super a\\plain b"_s << u"a<-^12 Georgia>b<12 Georgia>"_s;
    QTest::newRow("the same font twice is one run") << u"a{\\b\\b0 b}c"_s << u"abc<12 Georgia>"_s;
    QTest::newRow("a switch between texts of none") << u"a\\b\\b0 b"_s << u"ab<12 Georgia>"_s;
}

void TestLettoreRtf::caratteri()
{
    QFETCH(QString, Corpo);
    QTEST(Tratti(Solo(Corpo)), "Attesi");
}

void TestLettoreRtf::paragrafi_data()
{
    QTest::addColumn<QString>("Corpo");
    QTest::addColumn<Allineamento>("Come");

    QTest::newRow("left") << u"a\\par"_s << Allineamento::Sinistra;
    QTest::newRow("centre") << u"\\qc a\\par"_s << Allineamento::Centro;
    QTest::newRow("right") << u"\\qr a\\par"_s << Allineamento::Destra;
    QTest::newRow("justified") << u"\\qj a\\par"_s << Allineamento::Giustificato;
    QTest::newRow("back to left") << u"\\qc\\ql a\\par"_s << Allineamento::Sinistra;
    QTest::newRow("plain paragraph") << u"\\qc\\pard a\\par"_s << Allineamento::Sinistra;
    QTest::newRow("said within the paragraph") << u"a\\qc b\\par"_s << Allineamento::Centro;
    QTest::newRow("without its end mark") << u"\\qr a"_s << Allineamento::Destra;
    QTest::newRow("a group gives back") << u"{\\qc }a\\par"_s << Allineamento::Sinistra;
}

void TestLettoreRtf::paragrafi()
{
    QFETCH(QString, Corpo);
    QTEST(Solo(Corpo).Allinea, "Come");
}

void TestLettoreRtf::rientri()
{
    const Rientri Suoi = Solo(u"\\li1134\\fi-567\\ri567\\sb120\\sa60 a\\par"_s).Spazi;
    QVERIFY(qAbs(Suoi.SinistroCm - 2.0) < 0.01);
    QVERIFY(qAbs(Suoi.PrimaRigaCm + 1.0) < 0.01);
    QVERIFY(qAbs(Suoi.DestroCm - 1.0) < 0.01);
    QCOMPARE(Suoi.SopraPunti, 6.0);
    QCOMPARE(Suoi.SottoPunti, 3.0);

    // Nothing hangs out of the text area, and no indent is wider than a page.
    const Rientri Folli = Solo(u"\\li-9999\\fi-9999\\ri2000000000\\sa-5\\sb999999 a\\par"_s).Spazi;
    QCOMPARE(Folli, (Rientri{0.0, 12.0, 0.0, 100.0, 0.0}));
}

void TestLettoreRtf::pagineNuove()
{
    const std::vector<Paragrafo> Letti =
        letture::ParagrafiRtf(Rtf(u"a\\par\\page b\\par c\\page d\\par\\pagebb e\\par\\pard f\\par"_s));
    QString Visti;
    for (const Paragrafo& Uno : Letti)
        Visti += (Uno.NuovaPagina ? u"^"_s : QString()) + Uno.Testo();
    QCOMPARE(Visti, u"a^bc^d^ef"_s);
}

void TestLettoreRtf::bianchiConIlLoroFont()
{
    const Paragrafo Bianco = Solo(u"\\f1\\fs40\\par"_s);
    QVERIFY(Bianco.Tratti.empty());
    QCOMPARE(Bianco.Font.Nome, u"Arial"_s);
    QCOMPARE(Bianco.Font.Punti, 20.0);
}

/// Whole files as other programs write them: two paragraphs, a list and a row of a table, the same in each.
void TestLettoreRtf::altriProgrammi_data()
{
    QTest::addColumn<QString>("Intero");

    QTest::newRow("a large word processor's")
        << uR"({\rtf1\adeflang1025\ansi\ansicpg1252\uc1\adeff0\deff0\stshfdbch31505\stshfloch31506\deflang1040
{\fonttbl{\f0\fbidi \froman\fcharset0\fprq2{\*\panose 02020603050405020304}Georgia{\*\falt Serif};}
{\f3\fbidi \froman\fcharset2\fprq2{\*\panose 05050102010706020507}Symbol;}
{\flomajor\f31500\fbidi \fswiss\fcharset0\fprq2 Calibri Light;}}{\colortbl;\red0\green0\blue0;}
{\*\defchp \f31506\fs22}{\*\defpap \ql\sa160\sl259\slmult1}
{\stylesheet{\ql \li0\ri0\widctlpar\fs22 \snext0 \sqformat Normale;}{\*\cs10 \additive Carattere predefinito;}}
{\*\listtable{\list\listtemplateid1{\listlevel\levelnfc0{\leveltext\'02\'00.;}{\levelnumbers\'01;}\fi-360\li720}
{\listname ;}\listid1}}{\*\listoverridetable{\listoverride\listid1\ls1}}{\*\rsidtbl \rsid10\rsid20}
{\mmathPr\mmathFont34\mbrkBin0}{\info{\author Studio}{\operator Studio}{\creatim\yr2024\mo1}{\nofpages3}}
{\*\xmlnstbl {\xmlns1 http://x}}\paperw11906\paperh16838\margl1134\margr1134\ftnbj\aenddoc
{\*\pnseclvl1\pnucrm\pnstart1\pnindent720\pnhang {\pntxta .}}{\header \pard\plain intestazione\par }
\pard\plain \ltrpar\qj \li0\ri0\sa160\widctlpar\wrapdefault\lin0\rin0\itap0 \rtlch\fcs1 \af0\afs22 \ltrch\fcs0 \fs22
{\rtlch\fcs1 \ab\af0 \ltrch\fcs0 \b\insrsid10 Art. 3}{\insrsid20  - L\rquote }{\hich\af0\dbch\af31505\loch\f0 onere}
{\insrsid10  \'e8 dovuto\par }
{\listtext\pard\plain\ltrpar 1.\tab}\pard \ltrpar\ql \fi-360\li720\lin720{\*\bkmkstart nota}{\insrsid10 primo}{\*\bkmkend nota}\par
\trowd\trgaph70{\insrsid10 a\cell b\cell }\pard{\insrsid10 \trowd\row }
\pard\plain \fs22{\field{\*\fldinst {HYPERLINK "http://x"}}{\fldrslt {\ul fine}}}{\deleted\revauthdel1  vecchio}\par
{\*\themedata 504b0304}{\*\latentstyles{\lsdlockedexcept Normale;}}{\*\datastore 0105}})"_s;

    QTest::newRow("a free word processor's") << uR"({\rtf1\ansi\deff0\adeflang1025
{\fonttbl{\f0\froman\fprq2\fcharset0 Georgia;}{\f1\froman\fprq2\fcharset2 Symbol;}{\f2\fnil\fprq2\fcharset0 OpenSymbol{\*\falt Segno};}}
{\colortbl;\red0\green0\blue0;}
{\stylesheet{\s0\snext0\ql\widctlpar\hyphpar0\ltrpar\cf0\kerning1\dbch\af8\loch\f0\fs22\lang1040 Normale;}}
{\*\generator Altro/7.4}{\info{\creatim\yr2024\mo1\dy1}{\printim\yr0}}{\*\userprops}\deftab709
{\*\pgdsctbl{\pgdsc0\pgdscuse451\pgwsxn11906\pgdscnxt0 Predefinito;}}
\formshade\paperh16838\paperw11906\margl1134\sectd\sbknone\pgndec\sftnnar{\*\ftnsep\chftnsep}\pgndec
\pard\plain \s0\qj\sa160\widctlpar\ltrpar\fs22{\rtlch\ab \ltrch\loch\b\loch\fs22
Art. 3}{\rtlch \ltrch\loch\fs22
 - L\u8217\'92onere \u232\'e8 dovuto}
\par {\listtext\pard\plain 1.\tab}\pard\plain \s0\ilvl0\ls1 \li720\ri0\lin720\rin0\fi-360{\loch primo}
\par \trowd\trql\clvertalt\cellx4819\cellx9638\pard\intbl{\loch a}\cell\pard\intbl{\loch b}\cell\row
\pard\plain \fs22{{\field{\*\fldinst HYPERLINK "http://x" }{\fldrslt {\ul\ulc2 fine}}}}
\par })"_s;

    QTest::newRow("a small editor's, fonts in one group, ends of line as ends of paragraph")
        << uR"({\rtf1\ansi\ansicpg1252\cocoartf2639
\cocoatextscaling0\cocoaplatform0{\fonttbl\f0\froman\fcharset0 Georgia;\f1\fnil\fcharset0 Altro;}
{\colortbl;\red255\green255\blue255;}
{\*\expandedcolortbl;;}
{\*\listtable{\list\listtemplateid1\listhybrid{\listlevel\levelnfc0{\*\levelmarker \{decimal\}.}{\leveltext\'02\'00.;}}}}
\paperw11900\paperh16840\margl1440\vieww9000
\pard\tx566\qj\sa160\pardirnatural\partightenfactor0

\f0\b\fs22 \cf0 Art. 3
\b0  - L\'92onere \'e8 dovuto\
\pard\li720\fi-360\pardirnatural
\ls1\ilvl0{\listtext	1.	}primo\
\itap1\trowd \taflags0 \cellx4320\cellx8640
\pard\intbl a\cell b\cell \lastrow\row
\pard {\field{\*\fldinst{HYPERLINK "http://x"}}{\fldrslt \ul fine}}})"_s;

    QTest::newRow("an old word processor's, numbers of its own")
        << uR"({\rtf1\ansi \deff0\deflang1024{\fonttbl{\f0\froman Georgia;}{\f2\froman Symbol;}}
{\colortbl\red0\green0\blue0;}{\stylesheet{\fs20\lang1040 \snext0 Normale;}}{\info{\title T}{\version2}}
\widowctrl\ftnbj \sectd \linex0\endnhere \pard\plain \qj\sa160 \fs22\lang1040 {\b Art. 3} - L\rquote
onere \'e8 dovuto\par {\pntext\pard\plain\fs22 1.\tab}\pard \fi-360\li720
{\*\pn \pnlvlbody\pndec\pnstart1\pnindent360\pnhang{\pntxta .}}primo\par
\trowd \trgaph70\cellx4819\cellx9638 \pard \intbl a\cell b\cell \pard \intbl \row \pard
{\ul fine}\par })"_s;
}

void TestLettoreRtf::altriProgrammi()
{
    QFETCH(QString, Intero);
    const std::vector<BloccoDocumento> Tutti = LeggiRtf(Intero);
    const QString Visti = letture::Testi(Tutti).replace(u'\t', u'>');
    QVERIFY2(QRegularExpression(u"^Art\\. 3 - L’onere è dovuto\\|>?1\\.>primo\\|a/b/#fine\\|$"_s)
                 .match(Visti)
                 .hasMatch(),
             qPrintable(Visti));
    const std::vector<Paragrafo> Letti = letture::Paragrafi(Tutti);
    QCOMPARE(Tratti(Letti[0]), u"Art. 3<b11 Georgia> - L’onere è dovuto<11 Georgia>"_s);
    QCOMPARE(Letti[0].Allinea, Allineamento::Giustificato);
    QCOMPARE(Letti[0].Spazi.SottoPunti, 8.0);
    QVERIFY(qAbs(Letti[1].Spazi.SinistroCm - 1.27) < 0.01);
    QVERIFY(qAbs(Letti[1].Spazi.PrimaRigaCm + 0.635) < 0.01);
    QVERIFY(Letti[2].Tratti.front().Font.Sottolineato);
}

void TestLettoreRtf::titoliConIlSeguente()
{
    const std::vector<Paragrafo> Letti =
        letture::ParagrafiRtf(Rtf(u"\\keepn{\\b a}\\par b\\par\\keepn0 c\\par\\keepn\\pard d\\par"_s));
    QString Visti;
    for (const Paragrafo& Uno : Letti)
        Visti += Uno.Testo() + (Uno.ConSeguente ? u"+"_s : QString());
    QCOMPARE(Visti, u"a+b+cd"_s);
}

void TestLettoreRtf::guasti_data()
{
    QTest::addColumn<QString>("Testo");
    QTest::addColumn<QString>("Attesi");

    QTest::newRow("nothing") << QString() << QString();
    QTest::newRow("no rich text") << u"Art. 3"_s << QString();
    QTest::newRow("blanks before it") << u" \n{\\rtf1 a}"_s << u"a|"_s;
    QTest::newRow("a mark for the order of bytes before it") << u"\ufeff{\\rtf1 a}"_s << u"a|"_s;
    QTest::newRow("the mark alone") << u"{\\rtf"_s << QString();
    QTest::newRow("an empty one") << u"{\\rtf1}"_s << QString();
    QTest::newRow("braces that never close") << u"{\\rtf1 a{\\b b{\\i c"_s << u"abc|"_s;
    QTest::newRow("braces that close too often") << u"{\\rtf1 a}}}}b"_s << u"a|"_s;
    QTest::newRow("ends in a word") << u"{\\rtf1 a\\pa"_s << u"a|"_s;
    QTest::newRow("ends in a backslash") << u"{\\rtf1 a\\"_s << u"a|"_s;
    QTest::newRow("ends in a code") << u"{\\rtf1 a\\'e"_s << u"a|"_s;
    QTest::newRow("a code of no digits") << u"{\\rtf1 a\\'zzb}"_s << u"azzb|"_s;
    QTest::newRow("ends in a minus") << u"{\\rtf1 a\\li-"_s << u"a-|"_s;
    QTest::newRow("a picture that never ends") << u"{\\rtf1 a{\\pict 00ff"_s << u"a|"_s;
    QTest::newRow("more bytes than there are") << u"{\\rtf1 a\\bin2000000000 b"_s << u"a|"_s;
    QTest::newRow("bytes below zero") << u"{\\rtf1 a\\bin-7 b}"_s << u"ab|"_s;
    QTest::newRow("numbers beyond 32 bits") << u"{\\rtf1\\uc99999999999999\\fs99999999999 a}"_s << u"a|"_s;
    QTest::newRow("a letter without number") << u"{\\rtf1 a\\u b}"_s << u"ab|"_s;
    QTest::newRow("a word of a thousand letters")
        << u"{\\rtf1 a\\"_s + QString(1000, u'x') + u" b}"_s << u"ab|"_s;
    QTest::newRow("a table of fonts that never ends")
        << u"{\\rtf1{\\fonttbl{\\f0 Arial; a\\par"_s << QString();
}

void TestLettoreRtf::guasti()
{
    QFETCH(QString, Testo);
    QTEST(Testi(Testo), "Attesi");
}

void TestLettoreRtf::ogniTroncamentoDaUnInizio()
{
    const QString Intero =
        Rtf(u"\\qc\\b Art. 3\\b0\\par\\pard perch\\'e9 \\'80 {\\i sempre}\\par fine\\par"_s);
    const QString Completo = u"Art. 3 perché € sempre fine"_s;
    for (qsizetype Fine = 0; Fine <= Intero.size(); ++Fine) {
        const QString Letto = Testi(Intero.first(Fine)).replace(u'|', u' ').trimmed();
        QVERIFY2(Completo.startsWith(Letto), qPrintable(u"%1: %2"_s.arg(Fine).arg(Letto)));
    }
}

void TestLettoreRtf::gruppiProfondi()
{
    constexpr int Quanti = 500 * 1000;
    const QString Dentro = QString(Quanti, u'{') + u" dentro "_s + QString(Quanti, u'}');
    QCOMPARE(Testi(u"{\\rtf1 prima"_s + Dentro + u"dopo}"_s), u"primadopo|"_s);
    QCOMPARE(Testi(u"{\\rtf1 "_s + QString(100, u'{') + u"a"_s + QString(100, u'}') + u"b}"_s), u"ab|"_s);
    // What a group too deep says of its format says it of nothing.
    QCOMPARE(Testi(u"{\\rtf1 "_s + QString(300, u'{') + u"\\v\\*\\par"_s + QString(300, u'}') + u"b}"_s),
             u"b|"_s);
}

void TestLettoreRtf::limiti()
{
    const QString Lungo = u"{\\rtf1 "_s + QString(MassimoCaratteriRtf + 10, u'a') + u"}"_s;
    QCOMPARE(Testi(Lungo).size(), MassimoCaratteriRtf + 1);
    const std::vector<Paragrafo> Variopinto =
        letture::ParagrafiRtf(u"{\\rtf1 "_s + u"{\\b a}b"_s.repeated(1000) + u"}"_s);
    QCOMPARE(Variopinto.size(), std::size_t{1});
    QCOMPARE(Variopinto[0].Tratti.size(), MassimoTrattiRtf);
    QCOMPARE(Variopinto[0].Testo(), u"ab"_s.repeated(1000));
    const std::size_t Troppi = MassimoParagrafiRtf + 10;
    QCOMPARE(letture::ParagrafiRtf(u"{\\rtf1 "_s + u"\\par"_s.repeated(qsizetype(Troppi)) + u"}"_s).size(),
             MassimoParagrafiRtf);
}

void TestLettoreRtf::tempoLineare_data()
{
    QTest::addColumn<QString>("Pezzo");
    QTest::newRow("text") << u"clausole del contratto "_s;
    QTest::newRow("words") << u"\\b\\b0 a"_s;
    QTest::newRow("runs") << u"{\\b a}b"_s;
    QTest::newRow("groups that open") << u"{"_s;
    QTest::newRow("fonts") << u"{\\fonttbl{\\f1 A;}}"_s;
    QTest::newRow("codes") << u"\\'e9"_s;
    QTest::newRow("numbers") << u"\\u8364?"_s;
    QTest::newRow("a number") << u"\\fs9"_s;
    QTest::newRow("digits") << u"9"_s;
    QTest::newRow("raw bytes") << u"\\bin0 "_s;
}

/// Two megabytes of anything are read in seconds; what is quadratic would take hours and be ended from
/// outside.
void TestLettoreRtf::tempoLineare()
{
    QFETCH(QString, Pezzo);
    constexpr qsizetype Quanti = 2 * 1000 * 1000;
    const QString Grande = u"{\\rtf1\\fs"_s + Pezzo.repeated(Quanti / Pezzo.size());
    const std::vector<Paragrafo> Letti = letture::ParagrafiRtf(Grande);
    QVERIFY(Letti.size() <= MassimoParagrafiRtf);
}

void TestLettoreRtf::nomeDiFontSmisurato()
{
    const QString Nome = QString(1000 * 1000, u'x');
    const std::vector<Paragrafo> Letti =
        letture::ParagrafiRtf(u"{\\rtf1{\\fonttbl{\\f0 "_s + Nome + u";}}a}"_s);
    QCOMPARE(Letti.size(), std::size_t{1});
    QVERIFY(Letti[0].Tratti[0].Font.Nome.size() <= 64);
}

void TestLettoreRtf::fermi()
{
    const QString Corpo = u"\\tqr\\tldot\\tx5670\\tx1134\\tqc\\tlul\\tx2268\\tqdec\\tx8505 a\\tab b\\par"_s;
    const std::vector<Fermo> Letti = Solo(Corpo).Fermi;
    const std::vector<Fermo> Attesi{{2.0, Fermo::Sinistra, 0},
                                    {4.0, Fermo::Centro, u'_'},
                                    {10.0, Fermo::Destra, u'.'},
                                    {15.0, Fermo::Decimale, 0}};
    QCOMPARE(Letti.size(), Attesi.size());
    for (std::size_t i = 0; i < Letti.size(); ++i) {
        QVERIFY(qAbs(Letti[i].Cm - Attesi[i].Cm) < 0.01);
        QCOMPARE(Letti[i].Come, Attesi[i].Come);
        QCOMPARE(Letti[i].Riempie, Attesi[i].Riempie);
    }
    QVERIFY(Solo(u"\\tx1134\\pard a\\par"_s).Fermi.empty());
    QVERIFY(Solo(u"\\tx-9\\tx0\\tx999999999 a\\par"_s).Fermi.empty());
    QCOMPARE(Solo(u"\\tx1134\\tqr\\tx1134 a\\par"_s).Fermi.size(), std::size_t{1});
    QString Tanti;
    for (int i = 1; i <= 100; ++i)
        Tanti += u"\\tx%1"_s.arg(i * 50);
    QCOMPARE(Solo(Tanti + u" a\\par"_s).Fermi.size(), MassimoFermiRtf);
}

void TestLettoreRtf::distanzaDelleRighe_data()
{
    QTest::addColumn<QString>("Corpo");
    QTest::addColumn<double>("Multipla");
    QTest::addColumn<double>("Almeno");
    QTest::addColumn<double>("Esatta");
    QTest::newRow("as the font has it") << u"a\\par"_s << 1.0 << 0.0 << 0.0;
    QTest::newRow("double") << u"\\sl480\\slmult1 a\\par"_s << 2.0 << 0.0 << 0.0;
    QTest::newRow("one and a half") << u"\\slmult1\\sl360 a\\par"_s << 1.5 << 0.0 << 0.0;
    QTest::newRow("at least") << u"\\sl400\\slmult0 a\\par"_s << 1.0 << 20.0 << 0.0;
    QTest::newRow("exactly") << u"\\sl-300\\slmult0 a\\par"_s << 1.0 << 0.0 << 15.0;
    QTest::newRow("none asked for") << u"\\sl0\\slmult1 a\\par"_s << 1.0 << 0.0 << 0.0;
    QTest::newRow("beyond sense") << u"\\sl2000000\\slmult1 a\\par"_s << 5.0 << 0.0 << 0.0;
    QTest::newRow("a plain paragraph") << u"\\sl480\\slmult1\\pard a\\par"_s << 1.0 << 0.0 << 0.0;
}

void TestLettoreRtf::distanzaDelleRighe()
{
    QFETCH(QString, Corpo);
    const Interlinea Righe = Solo(Corpo).Righe;
    QTEST(Righe.Multipla, "Multipla");
    QTEST(Righe.AlmenoPunti, "Almeno");
    QTEST(Righe.EsattaPunti, "Esatta");
}

void TestLettoreRtf::tabelle_data()
{
    QTest::addColumn<QString>("Corpo");
    QTest::addColumn<QString>("Attesi");
    const QString Due = u"\\trowd\\cellx4000\\cellx8000"_s;
    QTest::newRow("two rows are one table")
        << Due + u"\\intbl a\\cell b\\cell\\row"_s + Due + u"\\intbl c\\cell d\\cell\\row\\pard e\\par"_s
        << u"a/b/#c/d/#e|"_s;
    QTest::newRow("a paragraph between them divides")
        << Due + u"\\intbl a\\cell b\\cell\\row\\pard x\\par"_s + Due + u"\\intbl c\\cell d\\cell\\row"_s
        << u"a/b/#x|c/d/#"_s;
    QTest::newRow("paragraphs of a cell") << Due + u"\\intbl a\\par b\\cell c\\cell\\row"_s << u"a\nb/c/#"_s;
    QTest::newRow("what a row divides comes behind its text")
        << u"\\pard\\intbl a\\cell b\\cell"_s + Due + u"\\row\\pard"_s << u"a/b/#"_s;
    QTest::newRow("cells that say nothing of themselves")
        << u"\\intbl a\\cell b\\cell c\\cell\\row"_s << u"a/b/c/#"_s;
    QTest::newRow("more cells than ends") << u"\\trowd\\cellx900\\intbl a\\cell b\\cell\\row"_s << u"a/b/#"_s;
    QTest::newRow("more ends than cells") << Due + u"\\intbl a\\cell\\row"_s << u"a/#"_s;
    QTest::newRow("joined cells") << u"\\trowd\\cellx900\\clmrg\\cellx1800\\intbl a\\cell b\\cell\\row"_s
                                  << u"a\nb/#"_s;
    QTest::newRow("text without a cell's end") << Due + u"\\intbl a\\cell b\\row\\pard"_s << u"a/b/#"_s;
    QTest::newRow("a row that breaks off") << u"x\\par"_s + Due + u"\\intbl a\\cell b"_s << u"x|a/b/#"_s;
    QTest::newRow("a table inside a cell")
        << Due + u"\\intbl a\\par x\\nestcell y\\nestcell\\cell b\\cell\\row"_s << u"a\nx\ty\t/b/#"_s;
    QTest::newRow("rows divided unlike")
        << Due + u"\\intbl a\\cell b\\cell\\row\\trowd\\cellx2000\\cellx8000\\intbl c\\cell d\\cell\\row"_s
        << u"a/b/#c/d/#"_s;
    QTest::newRow("set in from the margin")
        << u"\\trowd\\trleft1134\\cellx4000\\intbl a\\cell\\row"_s << u"/a/#"_s;
}

void TestLettoreRtf::tabelle()
{
    QFETCH(QString, Corpo);
    QTEST(Testi(Rtf(Corpo)), "Attesi");
}

void TestLettoreRtf::larghezzeELineeDelleTabelle()
{
    const std::vector<BloccoDocumento> Letti = LeggiRtf(Rtf(
        u"\\trowd\\trleft-108\\trbrdrt\\brdrs\\trbrdrl\\brdrs\\clbrdrb\\brdrs\\brdrw10\\cellx2160\\clbrdrr"
        u"\\brdrnone\\cellx4428\\intbl a\\cell b\\cell\\row\\trowd\\trbrdrb\\brdrs\\trbrdrv\\brdrs"
        u"\\trleft-108\\cellx1026\\cellx4428\\intbl c\\cell \\brdrb\\brdrs d\\cell\\row"_s));
    QCOMPARE(Letti.size(), std::size_t{1});
    const auto& Letta = std::get<Tabella>(Letti[0]);
    QVERIFY(Letta.Letterale);
    QCOMPARE(Letta.LarghezzeCm.size(), std::size_t{3});  // 2 cm, 2 cm, 4 cm
    for (const auto& [Quale, Cm] : {std::pair(0, 2.0), std::pair(1, 2.0), std::pair(2, 4.0)})
        QVERIFY2(qAbs(Letta.LarghezzeCm[std::size_t(Quale)] - Cm) < 0.01,
                 qPrintable(QString::number(Letta.LarghezzeCm[std::size_t(Quale)])));
    QCOMPARE(Letta.Righe[0][0].Unione, 2);
    QCOMPARE(Letta.Righe[0][0].Linee, int(Cella::Alto) | Cella::Sinistro | Cella::Basso);
    QCOMPARE(Letta.Righe[0][2].Linee, int(Cella::Alto));
    QCOMPARE(Letta.Righe[1][0].Unione, 1);
    QCOMPARE(Letta.Righe[1][0].Linee, int(Cella::Basso));
    QCOMPARE(Letta.Righe[1][1].Unione, 2);
    QCOMPARE(Letta.Righe[1][1].Linee, int(Cella::Basso) | Cella::Sinistro);
}

void TestLettoreRtf::celleConPiuParagrafi()
{
    const std::vector<BloccoDocumento> Letti = LeggiRtf(
        Rtf(u"\\trowd\\cellx4000\\intbl\\qc{\\b Il Cliente}\\par\\sb400\\ql{\\strike via}\\cell\\row"_s));
    const std::vector<Paragrafo>& Dentro = std::get<Tabella>(Letti.at(0)).Righe.at(0).at(0).Paragrafi;
    QCOMPARE(Dentro.size(), std::size_t{2});
    QCOMPARE(Dentro[0].Allinea, Allineamento::Centro);
    QVERIFY(Dentro[0].Tratti.front().Font.Grassetto);
    QCOMPARE(Dentro[1].Allinea, Allineamento::Sinistra);
    QCOMPARE(Dentro[1].Spazi.SopraPunti, 20.0);
    QVERIFY(Dentro[1].Tratti.front().Font.Barrato);
}

/// Rows of one cell each in a table that is divided in many columns would take room with their product.
void TestLettoreRtf::tabelleSmisurate()
{
    QString Corpo = u"\\trowd"_s;
    for (int i = 1; i <= 64; ++i)
        Corpo += u"\\cellx%1"_s.arg(i * 120);
    Corpo += u"\\intbl "_s + u"a\\cell "_s.repeated(64) + u"\\row\\trowd\\cellx9000 "_s;
    Corpo += u"b\\cell\\row "_s.repeated(100 * 1000);
    std::size_t Celle = 0;
    for (const BloccoDocumento& Blocco : LeggiRtf(Rtf(Corpo)))
        for (const std::vector<Cella>& Riga : std::get<Tabella>(Blocco).Righe)
            Celle += Riga.size();
    QVERIFY(Celle > 1000);
    QVERIFY2(Celle <= 2 * MassimoParagrafiRtf, qPrintable(QString::number(Celle)));
}

#include "TestLettoreRtf.moc"
