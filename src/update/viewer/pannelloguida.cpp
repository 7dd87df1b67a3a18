#include "update/viewer/pannelloguida.h"

#include "platform/kit/annuncio.h"
#include "platform/kit/aspetto.h"
#include "platform/kit/campo.h"
#include "platform/kit/collega.h"
#include "platform/kit/suggerimento.h"

#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QStackedWidget>
#include <QTreeWidget>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

constexpr int RuoloMeta = Qt::UserRole;
constexpr int MassimoCercato = 100;
constexpr int MinimoPannello = 170;

QString Conto(qsizetype Quanti)
{
    return Quanti == 0   ? u"Nessun risultato"_s
           : Quanti == 1 ? u"1 risultato"_s
                         : u"%1 risultati"_s.arg(Quanti);
}

}  // namespace

PannelloGuida::PannelloGuida(QWidget* Padre)
    : QWidget(Padre), txtGuida(new QLineEdit(this)), Fogli(new QStackedWidget(this)),
      treIndice(new QTreeWidget(Fogli)), lstTrovati(new QListWidget(Fogli)), lblTrovati(new QLabel(this))
{
    setMinimumWidth(MinimoPannello);
    txtGuida->setObjectName(u"txtGuida"_s);
    txtGuida->setPlaceholderText(u"Cerca in tutta la guida"_s);
    SuggerisciLeggibile(txtGuida);
    txtGuida->setToolTip(u"Restano le pagine che contengono tutte le parole (Ctrl+Maiusc+F)"_s);
    txtGuida->setMaxLength(MassimoCercato);
    txtGuida->setClearButtonEnabled(true);
    treIndice->setObjectName(u"treIndice"_s);
    treIndice->setAccessibleName(u"Indice della guida"_s);
    treIndice->setHeaderHidden(true);
    treIndice->setColumnCount(1);
    treIndice->setExpandsOnDoubleClick(false);  // a click does
    treIndice->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    lstTrovati->setObjectName(u"lstTrovati"_s);
    lstTrovati->setAccessibleName(u"Risultati"_s);
    lstTrovati->setWordWrap(true);
    lstTrovati->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    lstTrovati->setSpacing(2);
    lblTrovati->setObjectName(u"lblTrovati"_s);
    lblTrovati->hide();
    Fogli->addWidget(treIndice);
    Fogli->addWidget(lstTrovati);
    auto* Colonna = new QVBoxLayout(this);
    Colonna->setContentsMargins(0, 0, 0, 0);
    Colonna->setSpacing(aspetto::TraCampi);
    Colonna->addWidget(txtGuida);
    Colonna->addWidget(lblTrovati);
    Colonna->addWidget(Fogli, 1);
    Collega(txtGuida, &QLineEdit::textChanged, this, [this] { txtGuida_Change(); });
    Collega(treIndice, &QTreeWidget::itemClicked, this, [this](QTreeWidgetItem* Voce) { ApriVoce(Voce); });
    Collega(lstTrovati, &QListWidget::itemClicked, this,
            [this](QListWidgetItem* Voce) { ApriTrovato(lstTrovati->row(Voce)); });
}

void PannelloGuida::Prepara(const QString& Cartella)
{
    if (Letta == Cartella && !Letto.Pagine().empty())
        return;
    Letto = ElencoGuida(Cartella);
    Letta = Cartella;
    RiempiIndice();
}

void PannelloGuida::RiempiIndice()
{
    Aperto = nullptr;
    treIndice->clear();
    QTreeWidgetItem* Capitolo = nullptr;
    for (const PaginaGuida& Pagina : Letto.Pagine()) {
        if (!Capitolo || Capitolo->text(0) != Pagina.Capitolo) {
            Capitolo = new QTreeWidgetItem(treIndice, {Pagina.Capitolo});
            QFont Grassetto = Capitolo->font(0);
            Grassetto.setBold(true);
            Capitolo->setFont(0, Grassetto);
        }
        auto* Voce = new QTreeWidgetItem(Capitolo, {Pagina.Titolo});
        Voce->setToolTip(0, Pagina.Titolo);  // read whole where the panel is narrow
        Voce->setData(0, RuoloMeta, Pagina.File);
    }
}

void PannelloGuida::Segna(const QString& File)
{
    for (int c = 0; c < treIndice->topLevelItemCount(); ++c) {
        QTreeWidgetItem* Capitolo = treIndice->topLevelItem(c);
        for (int p = 0; p < Capitolo->childCount(); ++p) {
            if (Capitolo->child(p)->data(0, RuoloMeta).toString() != File)
                continue;
            if (Aperto && Aperto != Capitolo)
                Aperto->setExpanded(false);
            if (!Capitolo->isExpanded()) {
                Capitolo->setExpanded(true);
                Aperto = Capitolo;
            }
            treIndice->setCurrentItem(Capitolo->child(p));
            treIndice->scrollToItem(Capitolo->child(p));
            return;
        }
    }
    treIndice->setCurrentItem(nullptr);
}

void PannelloGuida::Cerca(const QString& Testo)
{
    if (Testo.isEmpty()) {
        txtGuida->setFocus(Qt::ShortcutFocusReason);
        txtGuida->selectAll();
        return;
    }
    // A focus that came by a key would select the letter, and the next one would take its place.
    txtGuida->setFocus(Qt::OtherFocusReason);
    txtGuida->setText(Testo);
}

void PannelloGuida::txtGuida_Change()
{
    const QString Testo = txtGuida->text();
    const bool Cercato = !Testo.trimmed().isEmpty();
    lstTrovati->clear();
    for (const TrovatoGuida& Trovato : Letto.Cerca(Testo)) {
        const QString Dove =
            Trovato.Sezione.isEmpty() ? Trovato.Pagina : Trovato.Pagina + u" › "_s + Trovato.Sezione;
        auto* Voce = new QListWidgetItem(Dove + u'\n' + Trovato.Brano, lstTrovati);
        Voce->setData(RuoloMeta, Trovato.Meta);
    }
    lblTrovati->setText(Conto(lstTrovati->count()));
    lblTrovati->setVisible(Cercato);
    if (Cercato)
        AnnunciaTesto(this, lblTrovati->text());
    Fogli->setCurrentWidget(Cercato ? static_cast<QWidget*>(lstTrovati) : treIndice);
}

void PannelloGuida::ApriVoce(QTreeWidgetItem* Voce)
{
    if (!Voce)
        return;
    if (Voce->childCount() > 0)
        Voce->setExpanded(!Voce->isExpanded());
    else
        Q_EMIT Chiesta(Voce->data(0, RuoloMeta).toString(), {});
}

void PannelloGuida::ApriTrovato(int Riga)
{
    if (const QListWidgetItem* Voce = lstTrovati->item(Riga))
        Q_EMIT Chiesta(Voce->data(RuoloMeta).toString(), txtGuida->text());
}

void PannelloGuida::keyPressEvent(QKeyEvent* Evento)
{
    const bool Invio = EInvio(Evento->key());
    const bool Trovati = Fogli->currentWidget() == lstTrovati;
    if (Evento->key() == Qt::Key_Escape && !txtGuida->text().isEmpty()) {
        txtGuida->clear();
        txtGuida->setFocus();
    } else if (Evento->key() == Qt::Key_Down && txtGuida->hasFocus()) {
        Fogli->currentWidget()->setFocus(Qt::TabFocusReason);
        if (Trovati && lstTrovati->currentRow() < 0)
            lstTrovati->setCurrentRow(0);
    } else if (Invio && Trovati) {
        ApriTrovato(txtGuida->hasFocus() ? 0 : lstTrovati->currentRow());
    } else if (Invio && treIndice->hasFocus()) {
        ApriVoce(treIndice->currentItem());
    } else {
        QWidget::keyPressEvent(Evento);
    }
}

#include "moc_pannelloguida.cpp"
