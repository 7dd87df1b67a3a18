// The bench of the tests of the calculators of terms: a fixed day, bells and pages written down.
#pragma once

#include "core/aperture.h"
#include "supporto/mani.h"
#include "supporto/prova.h"
#include "supporto/registratore.h"

#include "core/sessione.h"
#include "platform/calendar/calendario.h"
#include "platform/kit/campo.h"
#include "platform/kit/mascheradata.h"
#include "platform/kit/singola.h"
#include "platform/preview/vistastampa.h"
#include "platform/system/orologio.h"
#include "platform/system/shell.h"
#include "print/windows/frmPrint.h"

#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QClipboard>
#include <QComboBox>
#include <QDialog>
#include <QLabel>
#include <QLineEdit>
#include <QPointer>
#include <QRadioButton>

/// Sets the bench for one test, with the form on it, and clears it behind it.
template <class Modulo>
class BancoTermini
{
public:
    BancoTermini()
    {
        using namespace Qt::StringLiterals;
        InstallaOrologio([] { return QDateTime(QDate(2012, 7, 18), QTime(10, 0)); });
        Shell Nuova;
        Nuova.Campanello = [this] { ++Campane; };
        Precedente = InstallaShell(std::move(Nuova));
        sessione::PercorsoProg = u"/programma/"_s;
        Aperture = {};
        Aperture.PaginaWeb = [this](const QString& Pagina, const QString& Titolo) {
            Pagine << Pagina + u'|' + Titolo;
        };
        QApplication::clipboard()->clear();
        Apri();
    }
    ~BancoTermini()
    {
        delete F.data();
        delete SeCaricato<frmPrint>.data();
        Aperture = {};
        AzzeraSessione();
        InstallaShell(std::move(Precedente));
        InstallaOrologio({});
    }
    BancoTermini(const BancoTermini&) = delete;
    BancoTermini& operator=(const BancoTermini&) = delete;

    /// A form of its own, shown and active.
    void Apri()
    {
        if (!F)
            F = new Modulo;
        F->Mostra();
        Attiva = MostraAttiva(*F);
    }

    template <class Tipo = QWidget>
    [[nodiscard]] Tipo* Uno(const QString& Nome) const
    {
        return F->template findChild<Tipo*>(Nome);
    }
    [[nodiscard]] MascheraData* Data() const { return Uno<MascheraData>(QStringLiteral("mskDecorr")); }
    [[nodiscard]] CalendarioMensile* Calendario() const
    {
        return Uno<CalendarioMensile>(QStringLiteral("Calendario"));
    }
    [[nodiscard]] QString Risultato() const { return Uno<QLabel>(QStringLiteral("lblRisult"))->text(); }
    void Clic(const QString& Nome) const { ::Clic(Uno(Nome)); }
    void Voce(const QString& Nome) const { Uno<QAction>(Nome)->trigger(); }
    /// Types over what stands in a box.
    void Scrivi(const QString& Nome, const QString& Testo) const { ::Scrivi(Uno<QLineEdit>(Nome), Testo); }
    /// Ticks or unticks as a click does.
    void Spunta(const QString& Nome, bool Segno) const
    {
        auto* Casella = Uno<QCheckBox>(Nome);
        if (Casella->isChecked() != Segno)
            Casella->click();
    }
    void Scegli(const QString& Nome, int Indice) const { ScegliConFrecce(Uno<QComboBox>(Nome), Indice); }
    /// A click on a day of the month on view.
    void ClicGiorno(const QDate& Giorno) const
    {
        QWidget* Mese = Uno(QStringLiteral("mese"));
        QTest::mouseClick(Mese, Qt::LeftButton, {},
                          Mese->mapFrom(Calendario(), Calendario()->Riquadro(Giorno).center()));
    }
    void Calcola() const { Clic(QStringLiteral("cmdEsegui")); }

    /// The controls that a user can reach and that a screen reader could not name.
    [[nodiscard]] QStringList SenzaNome() const { return ::SenzaNome(F); }
    /// The controls met by Tab from a first one on.
    [[nodiscard]] QStringList OrdineTab(const QString& Primo, int Quanti) const
    {
        return ::OrdineTab(Uno(Primo), Quanti);
    }
    static void CtrlC() { CopiaConTasti(); }
    /// The rows of the sheet in the print window, without the blank ones; none when no window is shown.
    [[nodiscard]] static QStringList Stampato()
    {
        const auto& Finestra = SeCaricato<frmPrint>;
        QStringList Righe;
        if (Finestra && Finestra->isVisible())
            for (const BloccoDocumento& Blocco : Finestra->vpFree().Foglio().Contenuto().Blocchi)
                if (const QString Testo = std::get<Paragrafo>(Blocco).Testo(); !Testo.isEmpty())
                    Righe << Testo;
        return Righe;
    }

    QPointer<Modulo> F;
    bool Attiva = false;
    int Campane = 0;
    QStringList Pagine;

private:
    Shell Precedente;
};
