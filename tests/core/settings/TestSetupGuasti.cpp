// The save of the settings when the disk does not take what it writes.
#include "core/settings/tavolosetup.h"
#include "platform/base/numerierrore.h"
#include "supporto/guasti.h"

#include "platform/grid/griglia.h"

#include <memory>
#include <optional>

class TestSetupGuasti : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { T = std::make_unique<TavoloSetup>(); }
    void cleanup() { T.reset(); }

    void iconeRifiutate_data();
    void iconeRifiutate();
    void discoPieno_data();
    void discoPieno();

private:
    enum Ostacolo { SolaLettura, CartellaAlPosto, CartelleChiuse };

    [[nodiscard]] QString IniProgramma() const { return T->Programma + u"kr5.ini"_s; }
    [[nodiscard]] QString IniUtente() const { return T->Utente + u"kr5.ini"_s; }
    void ApriCambiata(Registratore& Box, const QByteArray& Ini);
    /// Files and folders that a save writes into, with what they hold.
    [[nodiscard]] QStringList Disco() const;

    std::unique_ptr<TavoloSetup> T;
};
PROVA(TestSetupGuasti);

namespace {

const QString NienteIni = u"Errore scrittura .ini"_s;

/// @param ConBlocco there was room for the file that keeps other programs out
QString NienteDeposito(bool ConBlocco = true)
{
    return Scena::RifiutoImpostazioni(ConBlocco ? errori::Accesso : errori::Periferica);
}

}  // namespace

/// The form with an icon taken away and another name of the office.
void TestSetupGuasti::ApriCambiata(Registratore& Box, const QByteArray& Ini)
{
    if (!Ini.isEmpty())
        ScriviFile(IniProgramma(), Ini);
    LeggiIconeUtente();
    T->Apri(3);
    auto* Icone = T->Trova<Griglia>(u"tdbIcone"_s);
    if (Icone->Righe() > 0) {
        Icone->ImpostaRigaCorrente(0);
        Box.Attendi(u"Confermi la cancellazione dell'icona Sito?"_s, vbYes);
        T->Premi(u"cmdDelIco"_s);
    } else {
        TavoloSetup::NellEditor([](frmIcons& Editor) {
            TavoloSetup::Riempi(Editor, u"Agenda"_s, u"/opt/agenda"_s);
            Editor.cmdSalvaIco_Click();
        });
        T->Premi(u"cmdAddIco"_s);
    }
    T->Campo(u"txtNomeStudio"_s)->setText(u"Nuovo"_s);
}

QStringList TestSetupGuasti::Disco() const
{
    QStringList Tutto;
    for (const QString& Cartella : {T->Programma, T->Utente, CartellaFile(Scena::FileImpostazioni())})
        for (const QString& Nome : ContenutoDi(Cartella))
            Tutto += Cartella + Nome +
                     (EsisteFile(Cartella + Nome) ? u": "_s + QString::fromLatin1(LeggiFile(Cartella + Nome))
                                                  : QString());
    return Tutto;
}

void TestSetupGuasti::iconeRifiutate_data()
{
    QTest::addColumn<Ostacolo>("Come");
    QTest::addColumn<bool>("ConIcone");

    QTest::newRow("files that may not be written") << SolaLettura << true;
    QTest::newRow("a folder where the file should be") << CartellaAlPosto << false;
    QTest::newRow("folders that take no new file") << CartelleChiuse << true;
    QTest::newRow("folders that take none, and there is none") << CartelleChiuse << false;
}

/// Neither place takes the icons: that is told, and the settings are saved all the same.
void TestSetupGuasti::iconeRifiutate()
{
    QFETCH(Ostacolo, Come);
    QFETCH(bool, ConIcone);
    Registratore Box;
    ApriCambiata(Box, ConIcone ? TavoloSetup::DueIcone() : QByteArray());
    std::optional<CartellaChiusa> Chiuse[2];
    switch (Come) {
    case SolaLettura:
        ScriviFile(IniUtente(), TavoloSetup::DueIcone());
        ImpostaSolaLettura(IniProgramma(), true);
        ImpostaSolaLettura(IniUtente(), true);
        break;
    case CartellaAlPosto:
        CreaCartella(IniProgramma());
        CreaCartella(IniUtente());
        break;
    case CartelleChiuse:
        Chiuse[0].emplace(T->Programma);
        Chiuse[1].emplace(T->Utente);
        break;
    }
    const QStringList Prima = ContenutoDi(T->Programma) + ContenutoDi(T->Utente);
    Box.Attendi(NienteIni, vbOK, u"Errore:"_s);
    T->Memorizza(Box);
    QCOMPARE(ContenutoDi(T->Programma) + ContenutoDi(T->Utente), Prima);
    QCOMPARE(sessione::StudioNome, u"Nuovo"_s);
    QCOMPARE(IconeUtente.Righe(), ConIcone ? 2 : 0);
    QCOMPARE(T->Trova<Griglia>(u"tdbIcone"_s)->Righe(), 1);
    if (ConIcone)
        QCOMPARE(LeggiFile(IniProgramma()), TavoloSetup::DueIcone());
    // Where it can be written again, what the form holds is saved.
    Chiuse[0].reset();
    Chiuse[1].reset();
    for (const QString& File : {IniProgramma(), IniUtente()})
        if (EsisteFile(File))
            ImpostaSolaLettura(File, false);
        else
            QDir().rmdir(File);
    T->Memorizza(Box);
    QCOMPARE(LeggiIcone().Righe(), 1);
    QCOMPARE(LeggiIcone()(0, IconaTitolo).toString(), u"Agenda"_s);
}

void TestSetupGuasti::discoPieno_data()
{
    QTest::addColumn<int>("ByteDeiCommenti");
    QTest::addColumn<int>("Limite");
    QTest::addColumn<bool>("IconeScritte");
    QTest::addColumn<bool>("ValoriScritti");

    // The store of the settings takes some hundred bytes more, the file of icons less than a hundred in all.
    QTest::newRow("no room for either") << 0 << 16 << false << false;
    QTest::newRow("room for the icons alone") << 0 << 200 << true << false;
    QTest::newRow("room for the settings alone") << 20'000 << 10'000 << false << true;
}

/// Each of the two files is written whole or not at all, and what was refused is told.
void TestSetupGuasti::discoPieno()
{
    QFETCH(int, ByteDeiCommenti);
    QFETCH(int, Limite);
    QFETCH(bool, IconeScritte);
    QFETCH(bool, ValoriScritti);
    Registratore Box;
    const QByteArray Ini = TavoloSetup::DueIcone() + "; " + QByteArray(ByteDeiCommenti, 'x') + "\r\n";
    ScriviFile(IniUtente(), Ini);
    ApriCambiata(Box, Ini);
    const QByteArray Deposito = LeggiFile(Scena::FileImpostazioni());
    const QStringList Prima = Disco();
    if (!IconeScritte)
        Box.Attendi(NienteIni, vbOK, u"Errore:"_s);
    if (!ValoriScritti)
        Box.Attendi(NienteDeposito(Limite >= 200), vbOK, u"Errore:"_s);
    {
        const LimiteDiScrittura Pieno{rlim_t(Limite)};
        if (ValoriScritti)
            T->Memorizza(Box);
        else
            T->Premi(u"cmdSaveImpost"_s);
    }
    QCOMPARE(Disco().size(), Prima.size());
    if (!IconeScritte && !ValoriScritti)
        QCOMPARE(Disco(), Prima);
    QCOMPARE(LeggiIcone().Righe(), IconeScritte ? 1 : 2);
    QCOMPARE(IconeUtente.Righe(), IconeScritte ? 1 : 2);
    QCOMPARE(LeggiFile(Scena::FileImpostazioni()) != Deposito, ValoriScritti);
    QCOMPARE(sessione::StudioNome, ValoriScritti ? u"Nuovo"_s : u"x"_s);
    QCOMPARE(T->Campo(u"txtNomeStudio"_s)->text(), u"Nuovo"_s);
    // With room again the same save goes through.
    T->Memorizza(Box);
    QCOMPARE(LeggiIcone().Righe(), 1);
    QCOMPARE(TavoloSetup::Parametro(u"StudioNome"_s), u"Nuovo"_s);
}

#include "TestSetupGuasti.moc"
