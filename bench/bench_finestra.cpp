// The windows as an office meets them: how soon they are there, how much they take, how quickly they answer.
// Each measure is a process of its own, so that none finds what another has left in memory.
#include "misura.h"
#include "notalunga.h"

#include "core/app/avvio.h"
#include "core/app/programma.h"
#include "core/modAvvio.h"
#include "core/sessione.h"
#include "feenote/modInterruttori.h"
#include "feenote/windows/finestre.h"
#include "feenote/windows/frmParcelle.h"
#include "platform/grid/griglia.h"
#include "platform/kit/servizi_qt.h"
#include "platform/system/impostazioni.h"
#include "platform/system/messaggi.h"

#include <QDir>
#include <QFile>
#include <QImage>
#include <QLineEdit>
#include <QListWidget>
#include <QPaintEvent>
#include <QProcess>
#include <QTableView>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>

#include <cstdio>
#include <limits>

using namespace Qt::StringLiterals;

namespace {

constexpr auto NonMisurabile = std::numeric_limits<double>::quiet_NaN();

void Rispondi(const QString& Riga)
{
    std::fputs((Riga + u'\n').toUtf8().constData(), stdout);
    std::fflush(stdout);
}

/// Says when the first window has been painted whole, then ends the process.
class PrimaPittura : public QObject
{
public:
    bool eventFilter(QObject* Oggetto, QEvent* Evento) override
    {
        const auto* Finestra = qobject_cast<QWidget*>(Oggetto);
        if (Evento->type() == QEvent::Paint && Finestra && Finestra->isWindow() && !Attesa) {
            Attesa = true;  // the children are painted in the same pass, the queued call runs behind it
            QTimer::singleShot(0, this, [] {
                Rispondi(u"dipinta"_s);
                QCoreApplication::exit();
            });
        }
        return false;
    }

private:
    bool Attesa = false;
};

/// @param argv behind the role the program folder, where it is another one, and a server of updates
int Avvio(int& argc, char** argv)
{
    Applicazione Programma(argc, argv);
    SaveSetting(NomeApplicazione.toString(), SezioneParametri.toString(), u"PercorsoProcedura"_s,
                argc > 2 ? QString::fromLocal8Bit(argv[2]) : QStringLiteral(CARTELLA_PROGRAMMA "/"));
    SaveSetting(NomeApplicazione.toString(), SezioneParametri.toString(), u"ServerAggiornamenti"_s,
                argc > 3 ? QString::fromLocal8Bit(argv[3]) : QString());
    PreparaProgramma();
    PrimaPittura Filtro;
    Programma.installEventFilter(&Filtro);
    QTimer::singleShot(0, &Programma, [] { Main({}); });
    return QApplication::exec();
}
const RegistraRuolo RuoloAvvio(u"--avvio"_s, Avvio);

double MedianaAvvii(int Volte, const std::function<bool()>& Prima, const QStringList& Argomenti = {})
{
    const QStringList Ruolo = QStringList{u"--avvio"_s} + Argomenti;
    (void)EseguiRuolo(Ruolo);  // the first use of all sets the folders up
    QList<double> Durate;
    for (int i = 0; i < Volte; ++i) {
        if (!Prima())
            return NonMisurabile;
        double Ms = 0.0;
        if (EseguiRuolo(Ruolo, &Ms) != u"dipinta")
            return NonMisurabile;
        Durate.append(Ms);
    }
    return Mediana(std::move(Durate));
}

double AvvioCaldo()
{
    return MedianaAvvii(9, [] { return true; });
}
const RegistraMisura RegistratoCaldo(u"start to first painted window, warm"_s, 100.0, AvvioCaldo);

/// Nothing of the network is loaded before the first picture, though updates will be looked for.
double AvvioConServer()
{
    return MedianaAvvii(9, [] { return true; },
                        {QStringLiteral(CARTELLA_PROGRAMMA "/"), u"http://127.0.0.1:9"_s});
}
const RegistraMisura RegistratoConServer(u"start to first painted window, with an update server, warm"_s,
                                         100.0, AvvioConServer);

/// The program folder with a photograph as its background, as large as a telephone takes it.
bool PreparaConFoto(const QString& Cartella)
{
    constexpr QSize DodiciMegapixel(4000, 3000);
    if (!QDir().mkpath(Cartella + u"sfondi"_s))
        return false;
    const QFileInfoList Voci =
        QDir(QStringLiteral(CARTELLA_PROGRAMMA)).entryInfoList(QDir::AllEntries | QDir::NoDotAndDotDot);
    for (const QFileInfo& Voce : Voci)
        if (Voce.fileName() != u"sfondi" && !QFile::link(Voce.absoluteFilePath(), Cartella + Voce.fileName()))
            return false;
    QImage Foto(DodiciMegapixel, QImage::Format_RGB32);
    constexpr int Grana = 37;
    for (int y = 0; y < Foto.height(); ++y)
        for (int x = 0; x < Foto.width(); ++x)
            Foto.setPixel(x, y, qRgb(x * y % Grana * 6, x / 16, y / 12));
    return Foto.save(Cartella + u"sfondi/lex.jpg"_s);
}

double AvvioConFoto()
{
    const QTemporaryDir Casa;
    const QString Cartella = Casa.filePath(u"programma/"_s);
    return PreparaConFoto(Cartella) ? MedianaAvvii(9, [] { return true; }, {Cartella}) : NonMisurabile;
}
const RegistraMisura RegistratoConFoto(u"start to first painted window, with a background, warm"_s, 100.0,
                                       AvvioConFoto);

/// Forgets what the system holds of the disk; only an administrator may.
bool SvuotaCacheDisco()
{
    QProcess::execute(u"sync"_s);
    QFile Comando(u"/proc/sys/vm/drop_caches"_s);
    return Comando.open(QIODevice::WriteOnly | QIODevice::Unbuffered) && Comando.write("3\n") == 2;
}

double AvvioFreddo()
{
    return MedianaAvvii(3, SvuotaCacheDisco);
}
const RegistraMisura RegistratoFreddo(u"start to first painted window, cold"_s, 300.0, AvvioFreddo);

/// Everything that an action has left to do: layouts, queued calls, painting.
void LasciaDipingere()
{
    QCoreApplication::sendPostedEvents();
    QCoreApplication::processEvents();
}

frmParcelle* ApriNota(int Righe)
{
    ApriParcella({}, 0, {});
    frmParcelle* Finestra = Parcelle(1);
    RiempiNota(Finestra->Nota, Righe);
    Finestra->MostraTutto();
    for (const int Scheda :
         {SchedaListaOnorari, SchedaListaSpese, SchedaImposte, SchedaDiStampa, SchedaBase}) {
        Finestra->VaiAllaScheda(Scheda);
        LasciaDipingere();
    }
    return Finestra;
}

QString MemoriaResidente()
{
    QFile Stato(u"/proc/self/status"_s);
    if (!Stato.open(QIODevice::ReadOnly))
        return {};
    constexpr double KiloPerMega = 1024.0;
    for (const QByteArray& Riga : Stato.readAll().split('\n'))
        if (Riga.startsWith("VmRSS:"))
            return QString::number(Riga.mid(6).chopped(2).trimmed().toDouble() / KiloPerMega);
    return {};
}

double CambioScheda()
{
    frmParcelle* Finestra = ApriNota(40);
    QList<double> Peggiori;
    for (int Giro = 0; Giro < 9; ++Giro) {
        double Peggiore = 0.0;
        for (const int Scheda :
             {SchedaListaOnorari, SchedaListaSpese, SchedaImposte, SchedaDiStampa, SchedaBase})
            Peggiore = std::max(Peggiore, DurataMs([&] {
                                    Finestra->VaiAllaScheda(Scheda);
                                    LasciaDipingere();
                                }));
        Peggiori.append(Finestra->Scheda() == SchedaBase ? Peggiore : NonMisurabile);
    }
    return Mediana(std::move(Peggiori));
}

constexpr int RigheLunghe = 10000;

/// A line more, as a double click on the catalogue inserts it.
double Inserisci()
{
    frmParcelle* Finestra = ApriNota(RigheLunghe);
    Finestra->VaiAllaScheda(SchedaListaOnorari);
    auto* Catalogo = Finestra->findChild<Griglia*>(u"tdbListaOno"_s);
    const int VoceLibera = Catalogo->Righe() - 1;  // the one that may stand in a note more than once unasked
    const double Ms = MedianaMs(9, [&] {
        Q_EMIT Catalogo->DoppioClic(VoceLibera);
        LasciaDipingere();
    });
    return Finestra->Nota.xOnorari.Righe() > RigheLunghe ? Ms : NonMisurabile;
}

/// An amount typed over another in the middle of the lines, with the keys that it takes.
double Scrivi()
{
    frmParcelle* Finestra = ApriNota(RigheLunghe);
    Finestra->VaiAllaScheda(SchedaListaSpese);
    auto* Spese = Finestra->findChild<Griglia*>(u"tdbDir"_s);
    constexpr int ColonnaImponibili = 3;
    const double Ms = MedianaMs(9, [&] {
        Spese->ImpostaRigaCorrente(RigheLunghe / 2, ColonnaImponibili);
        QTest::keyClick(Spese->Vista(), Qt::Key_F2);
        QTest::keyClicks(QApplication::focusWidget(), u"37,25"_s);
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
        LasciaDipingere();
    });
    return qFuzzyCompare(Finestra->Nota.xDiritti(RigheLunghe / 2, DirImponibile).toDouble(), 37.25)
               ? Ms
               : NonMisurabile;
}

double Somma()
{
    frmParcelle* Finestra = ApriNota(RigheLunghe);
    Finestra->VaiAllaScheda(SchedaListaSpese);
    return MedianaMs(9, [&] {
        Finestra->RefreshGrid();
        LasciaDipingere();
    });
}

/// Every second line, so that none that goes has a neighbour that goes with it.
void ScegliUnaSiUnaNo(Griglia* Lista)
{
    for (int Riga = 0; Riga < Lista->Righe(); Riga += 2)
        Lista->Seleziona(Riga);
}

/// What is done with half of the lines of a long note.
enum class Gesto { Taglia, Annulla, Incolla, Sposta };

/// Milliseconds of a key on the lines with Ctrl, all that follows it included.
double DurataTasto(const Griglia* Lista, Qt::Key Tasto)
{
    return DurataMs([&] {
        QTest::keyClick(Lista->Vista(), Tasto, Qt::ControlModifier);
        LasciaDipingere();
    });
}

/// Half of the lines cut and put back: by undo, by a paste, or in one go by dragging them to the top.
/// @return nothing when the lines are not all there afterwards
double TagliaERimetti(Griglia* Lista, const TabellaRighe& Righe, Gesto Quale)
{
    ScegliUnaSiUnaNo(Lista);
    if (Quale == Gesto::Sposta)
        return DurataMs([&] {
            Q_EMIT Lista->Trascinata(0);
            LasciaDipingere();
        });
    const double Tagliate = DurataTasto(Lista, Qt::Key_X);
    if (Righe.Righe() != RigheLunghe / 2)
        return NonMisurabile;
    const double Rimesse = DurataTasto(Lista, Quale == Gesto::Incolla ? Qt::Key_V : Qt::Key_Z);
    return Quale == Gesto::Taglia ? Tagliate : Rimesse;
}

template <Gesto Quale>
double SuMeta()
{
    Messaggi SempreSi;
    SempreSi.Box = [](const QString&, int, const QString&) { return vbYes; };
    InstallaMessaggi(SempreSi);
    frmParcelle* Finestra = ApriNota(RigheLunghe);
    Finestra->VaiAllaScheda(SchedaListaOnorari);
    auto* Lista = Finestra->findChild<Griglia*>(u"tdbOnor"_s);
    const TabellaRighe& Righe = Finestra->Nota.xOnorari;
    QList<double> Durate;
    for (int Giro = 0; Giro < 9; ++Giro) {
        Durate.append(TagliaERimetti(Lista, Righe, Quale));
        if (Righe.Righe() != RigheLunghe)
            return NonMisurabile;
    }
    return Mediana(std::move(Durate));
}

/// All lines from the tariff, at the entry that follows a change of the parameters.
double Ricalcola()
{
    constexpr int VociDiFase = 4;  // the first codes of the ordinary court
    frmParcelle* Finestra = ApriNota(RigheLunghe);
    TabellaRighe& Righe = Finestra->Nota.xOnorari;
    for (int Riga = 0; Riga < RigheLunghe; ++Riga)
        Righe(Riga, OnoCodVoce) = Righe(Riga, OnoNVoce) = 1 + Riga % VociDiFase;
    const double Prima = SommaColonna(Righe, OnoMedio);
    const double Ms = MedianaMs(9, [&] {
        Finestra->VaiAllaScheda(SchedaBase);
        Finestra->Nota.RicalcoloNecessario = true;
        Finestra->VaiAllaScheda(SchedaListaOnorari);
        LasciaDipingere();
    });
    return SommaColonna(Righe, OnoMedio) != Prima ? Ms : NonMisurabile;
}

/// A letter in the date of the document, with the list "Da controllare" in view: half of the lines are beyond
/// their maximum.
template <int Righe>
double Controlla()
{
    frmParcelle* Finestra = ApriNota(Righe);
    TabellaRighe& Onorari = Finestra->Nota.xOnorari;
    for (int Riga = 0; Riga < Righe; ++Riga) {
        Onorari(Riga, OnoNVoce) = 1;
        if (Riga % 2 == 0)
            Onorari(Riga, OnoMax) = 1.0;
        Onorari(Riga, OnoMin) = 1.0;
    }
    ScegliTipoStampa(Finestra->Nota, StampaPrenotula);
    Finestra->VaiAllaScheda(SchedaDiStampa);
    LasciaDipingere();
    auto* Data = Finestra->findChild<QLineEdit*>(u"txtDatiPar_1"_s);
    const auto* Elenco = Finestra->findChild<QListWidget*>(u"lstControlli"_s);
    Data->setFocus();
    bool Viva = true;
    const double Ms = MedianaMs(21, [&] {
        const int Prima = Elenco->count();
        // A letter makes it no date, without it nothing stands there.
        QTest::keyClick(Data, Data->text().isEmpty() ? Qt::Key_X : Qt::Key_Backspace);
        LasciaDipingere();
        Viva = Viva && Elenco->isVisible() && Elenco->count() != Prima;
    });
    return Viva ? Ms : NonMisurabile;
}

double Memoria()
{
    ApriNota(40);
    return MemoriaResidente().toDouble();
}

int Finestra(int& argc, char** argv)
{
    Applicazione Programma(argc, argv);
    PreparaProgramma();
    ImpostaVariabili();
    sessione::PercorsoProg = QStringLiteral(CARTELLA_PROGRAMMA "/");
    const QString Quale = QString::fromLatin1(argc > 2 ? argv[2] : "");
    const std::pair<QStringView, double (*)()> Quali[] = {{u"scheda", CambioScheda},
                                                          {u"inserisci", Inserisci},
                                                          {u"scrivi", Scrivi},
                                                          {u"somma", Somma},
                                                          {u"taglia", SuMeta<Gesto::Taglia>},
                                                          {u"incolla", SuMeta<Gesto::Incolla>},
                                                          {u"annulla", SuMeta<Gesto::Annulla>},
                                                          {u"sposta", SuMeta<Gesto::Sposta>},
                                                          {u"ricalcola", Ricalcola},
                                                          {u"controlla1000", Controlla<1000>},
                                                          {u"controlla10000", Controlla<RigheLunghe>},
                                                          {u"memoria", Memoria}};
    for (const auto& [Nome, Misura] : Quali)
        if (Nome == Quale)
            Rispondi(QString::number(Misura(), 'g', 10));
    return 0;
}
const RegistraRuolo RuoloFinestra(u"--finestra"_s, Finestra);

std::function<double()> NellaFinestra(const QString& Quale)
{
    return [Quale] {
        bool Riuscita = false;
        const double Valore = EseguiRuolo({u"--finestra"_s, Quale}).toDouble(&Riuscita);
        return Riuscita ? Valore : NonMisurabile;
    };
}
const RegistraMisura RegistrataScheda(u"change of tab, the slowest"_s, 50.0, NellaFinestra(u"scheda"_s));
const RegistraMisura RegistrataMemoria(u"memory with one note open"_s, 80.0, NellaFinestra(u"memoria"_s),
                                       u"MB"_s);
const RegistraMisura RegistrataInserisci(u"10,000 lines: insert one"_s, 100.0, NellaFinestra(u"inserisci"_s),
                                         60.0);
const RegistraMisura RegistrataScrivi(u"10,000 lines: type an amount"_s, 100.0, NellaFinestra(u"scrivi"_s),
                                      55.0);
const RegistraMisura RegistrataTaglia(u"10,000 lines: cut half of them"_s, 200.0, NellaFinestra(u"taglia"_s),
                                      90.0);
const RegistraMisura RegistrataIncolla(u"10,000 lines: paste half of them"_s, 200.0,
                                       NellaFinestra(u"incolla"_s), 90.0);
const RegistraMisura RegistrataAnnulla(u"10,000 lines: undo that cut"_s, 200.0, NellaFinestra(u"annulla"_s),
                                       90.0);
const RegistraMisura RegistrataSposta(u"10,000 lines: drag half of them"_s, 200.0, NellaFinestra(u"sposta"_s),
                                      85.0);
const RegistraMisura RegistrataRicalcola(u"10,000 lines: recompute all"_s, 200.0,
                                         NellaFinestra(u"ricalcola"_s), 65.0);
const RegistraMisura RegistrataControlla(u"1,000 lines: a key with the list of checks in view"_s, 16.0,
                                         NellaFinestra(u"controlla1000"_s));
const RegistraMisura RegistrataControllaLunga(u"10,000 lines: a key with the list of checks in view"_s, 100.0,
                                              NellaFinestra(u"controlla10000"_s), 160.0);
const RegistraMisura RegistrataSomma(u"10,000 lines: sums"_s, 100.0, NellaFinestra(u"somma"_s), 55.0);

}  // namespace
