// Every window of the program, one after the other, as its user opens it.
#pragma once

#include "ufficio.h"

#include "core/app/apritori.h"
#include "core/app/tastoguida.h"
#include "core/comandi.h"
#include "core/settings/frmIcons.h"
#include "core/settings/frmSfoglia.h"
#include "feenote/einvoice/controlli.h"
#include "feenote/modTipiDocumento.h"
#include "feenote/previgenti/frmOldTariffe.h"
#include "feenote/windows/finestre.h"
#include "feenote/windows/frmControlloFattura.h"
#include "feenote/windows/frmParcelle.h"
#include "platform/database/database.h"
#include "platform/grid/griglia.h"
#include "platform/system/orologio.h"
#include "supporto/mani.h"

#include <QComboBox>
#include <QLineEdit>
#include <QMdiSubWindow>
#include <QScopeGuard>
#include <QTabWidget>

#include <functional>

/// What is done with a window on view.
using UsoFinestra = std::function<void(const QString& Nome, QWidget* Finestra)>;

/// Each of them a failure of its own: one message has no room for all.
inline void NienteDi(const QStringList& Guasti)
{
    for (const QString& Guasto : Guasti)
        QTest::qFail(qPrintable(Guasto), __FILE__, __LINE__);
}

/// The window of a class that is on view, null where none is.
inline QWidget* InVistaDi(const QString& Classe)
{
    for (QWidget* Finestra : QApplication::topLevelWidgets())
        if (Finestra->isVisible() && QString::fromLatin1(Finestra->metaObject()->className()) == Classe)
            return Finestra;
    return nullptr;
}

/// An office with an archive of a few names, ready for every window.
class Finestre
{
public:
    Finestre()
    {
        S = std::make_unique<Scena>();
        sessione::ParcellePath = SalvaUfficio();
        S->Preparata();
        sessione::ArchivioCliCon = Scena::AllestisciStudio();
        sessione::UserFolder = Scena::Parametro(u"UserFolder"_s);  // documents are written there
        OpenDatabase(sessione::ArchivioCliCon)
            .Execute(u"INSERT INTO clienti (ID, Nominativo, Citta) VALUES (1, 'Bianchi Mario', 'Roma')"_s);
        RiempiApritori();
    }
    ~Finestre()
    {
        AzzeraFinestre();
        S.reset();
    }

    /// Opens them one by one. What has no page of its own among the commands comes from the window it belongs
    /// to.
    void Tutte(const UsoFinestra& Usa)
    {
        const Registratore Box;
        Usa(u"scrivania"_s, Mostrata(Singola<frmStudio>()));
        Parcelle_(Usa);
        DiComando(u"open"_s, Usa);
        for (const Comando& Riga : Comandi())
            if (ApreFinestra(Riga))
                DiComando(Riga.Parola.toString(), Usa);
        DiComando(u"importa"_s, Usa);
        Impostazioni_(Usa);
        ApriGuida(PaginaDeiTasti.toString());
        Usa(u"guida"_s, InVistaDi(u"frmWeb"_s));
        InVistaDi(u"frmWeb"_s)->close();
        frmSfoglia Sfoglia;
        Sfoglia.show();
        Usa(u"scelta della cartella"_s, &Sfoglia);
        Sfoglia.close();
        TabellaRighe Icone;
        Icone.Azzera(ColonneIcona);
        frmIcons Icona(Icone, -1, nullptr);
        Icona.show();
        Usa(u"icona"_s, &Icona);
        Icona.close();
    }

    std::unique_ptr<Scena> S;

private:
    template <class Finestra>
    static QWidget* Mostrata(Finestra& Quale)
    {
        Quale.Mostra();
        Respiro();
        return &Quale;
    }

    /// A note on each of its tabs, in the frame.
    static void Parcelle_(const UsoFinestra& Usa)
    {
        Aperture.ApriParcella({}, 0, {});
        frmParcelle* Nota = Parcelle(1);
        auto& Cornice = Singola<frmMain>();
        QVERIFY(Nota && MostraAttiva(Cornice));
        Nota->parentWidget()->showMaximized();
        Usa(u"parcella, dati base"_s, &Cornice);
        Scegli(Controllo<QComboBox>(Nota, "cmbCateg"), 0);
        Scegli(Controllo<QComboBox>(Nota, "cmbAutor"), 1);
        Scrivi(Controllo<QLineEdit>(Nota, "txtImporto"), u"30000"_s);
        Premi(Qt::Key_Tab);
        Respiro();
        auto* Schede = Controllo<QTabWidget>(Nota, "tabParcelle");
        for (int Scheda = 1; Scheda < Schede->count(); ++Scheda) {
            Nota->VaiAllaScheda(Scheda);
            for (int i = 0; i < 5; ++i)
                Respiro();
            QCOMPARE(Nota->Scheda(), Scheda);
            Usa(u"parcella, "_s + Schede->tabText(Scheda).remove(u'&'), &Cornice);
            if (Scheda == SchedaDiStampa)
                FatturaElettronica(Nota, Cornice, Usa);
            if (Scheda != SchedaListaOnorari)
                continue;
            DoppioClic(Controllo<Griglia>(Nota, "tdbListaOno"), 0);
            Respiro();
            auto* Varia = Schede->currentWidget()->findChild<QAction*>(u"variaz"_s);
            QVERIFY(Varia);
            Varia->trigger();
            Respiro();
            QVERIFY(Controllo<QWidget>(Nota, "cmdModOno")->isVisible());
            Usa(u"parcella, pannello degli importi"_s, &Cornice);
            Varia->trigger();
        }
        QTest::mouseClick(Controllo<QWidget>(Nota, "pieCatena"), Qt::LeftButton);
        Respiro();
        Usa(u"parcella, catena"_s, InVistaDi(u"PannelloCatena"_s));
        InVistaDi(u"PannelloCatena"_s)->close();
        frmOldTariffe Previgenti(Nota, frmOldTariffe::PerApplicare);
        Previgenti.AggiungiScaglione(u"fino a 600,00"_s, 1);
        Previgenti.show();
        Respiro();
        Usa(u"tariffe previgenti"_s, &Previgenti);
        Previgenti.hide();
        AzzeraFinestre();
        Cornice.hide();
    }

    /// The panel in the place of the printed page, and what the check of a file says.
    static void FatturaElettronica(frmParcelle* Nota, QWidget& Cornice, const UsoFinestra& Usa)
    {
        Scegli(Controllo<QComboBox>(Nota, "cmbTipoStampa"), StampaFatturaAnalitica);
        Respiro();
        auto* Apre = Controllo<QAbstractButton>(Nota, "cmdFatturaXml");
        QTest::mouseClick(Apre, Qt::LeftButton);
        Respiro();
        QVERIFY(Controllo<QWidget>(Nota, "PannelloFattura")->isVisible());
        Usa(u"parcella, fattura elettronica"_s, &Cornice);
        QTest::mouseClick(Apre, Qt::LeftButton);
        frmControlloFattura Esiti(u"IT01234567890_00001.xml"_s, ControllaFattura("<a/>", {}, Oggi()),
                                  &Cornice);
        Esiti.show();
        Respiro();
        Usa(u"controllo di una fattura"_s, &Esiti);
        Esiti.close();
    }

    static void DiComando(const QString& Parola, const UsoFinestra& Usa)
    {
        const QWidgetList Prima = Visibili();
        if (Parola == u"importa")
            Aperture.Apri(Parola);
        else
            EseguiComando(Parola, 0, {});
        Respiro();
        QWidget* Aperta = nullptr;
        for (QWidget* Finestra : Visibili())
            if (!Prima.contains(Finestra))
                Aperta = Finestra;
        QVERIFY2(Aperta, qPrintable(Parola));
        (void)MostraAttiva(*Aperta);
        Usa(Parola, Aperta);
        Figlie(Parola, Aperta, Usa);
        if (Parola == u"contrib") {
            Scegli(Controllo<QComboBox>(Aperta, "cmbNorme"), 1);
            Respiro();
            QVERIFY(Controllo<QWidget>(Aperta, "fraVigente")->isVisible());
            Usa(u"contrib, norme in vigore"_s, Aperta);
        }
        Aperta->close();
        Respiro();
    }

    /// The windows that a button of another one opens.
    static void Figlie(const QString& Parola, QWidget* Da, const UsoFinestra& Usa)
    {
        const auto Apre = [&](const char* Bottone, const QString& Classe) {
            QTest::mouseClick(Controllo<QWidget>(Da, Bottone), Qt::LeftButton);
            Respiro();
            QWidget* Figlia = nullptr;
            for (QWidget* Finestra : Visibili())
                if (QString::fromLatin1(Finestra->metaObject()->className()) == Classe)
                    Figlia = Finestra;
            QVERIFY2(Figlia, qPrintable(Classe));
            Usa(Parola + u", "_s + Classe, Figlia);
            Figlia->close();
            (void)MostraAttiva(*Da);
        };
        if (Parola == u"termini") {
            Apre("cmdRicorrenti", u"frmRicorrenti"_s);
            (void)MostraAttiva(*Da);
            Controllo<QWidget>(Da, "mskDecorr")->setFocus();
            Digita(u"01072026"_s);
            Scrivi(Da, "txtIncrNum", u"60"_s);
            QTest::mouseClick(Controllo<QWidget>(Da, "cmdEsegui"), Qt::LeftButton);
            Apre("cmdStrada", u"frmStrada"_s);
            Apre("cmdAgenda", u"frmAgenda"_s);
            Controllo<QAction>(Da, "mnuStampa")->trigger();
            Respiro();
            Usa(u"stampa di un calcolo"_s, InVistaDi(u"frmPrint"_s));
            InVistaDi(u"frmPrint"_s)->close();
        }
        if (auto* Ultimi = Da->findChild<QAction*>(u"mnuUltimi"_s)) {
            Ultimi->trigger();
            Respiro();
            Usa(Parola + u", ultimi calcoli"_s, InVistaDi(u"frmUltimiCalcoli"_s));
            InVistaDi(u"frmUltimiCalcoli"_s)->close();
            (void)MostraAttiva(*Da);
        }
        if (Parola == u"clienti") {
            Apre("barRubr_view", u"frmScheda"_s);
            Apre("barRubr_edit", u"frmScheda"_s);
            Apre("barRubr_search", u"frmRicerche"_s);
        }
    }

    static void Impostazioni_(const UsoFinestra& Usa)
    {
        auto& Modulo = Singola<frmSetup>();
        auto* Schede = Controllo<QTabWidget>(&Modulo, "tabSetup");
        for (int Scheda = 0; Scheda < Schede->count(); ++Scheda) {
            Modulo.Mostra(Scheda);
            Respiro();
            Usa(u"impostazioni, "_s + Schede->tabText(Scheda).remove(u'&'), &Modulo);
        }
        Modulo.close();
    }

    static QWidgetList Visibili()
    {
        QWidgetList Trovate;
        for (QWidget* Finestra : QApplication::topLevelWidgets())
            if (Finestra->isVisible() && Finestra->inherits("QWidget") && !Finestra->inherits("QMenu"))
                Trovate << Finestra;
        return Trovate;
    }
};
