#include "addressbook/windows/lineamodifiche.h"

#include "addressbook/modScheda.h"
#include "core/modErrori.h"
#include "platform/kit/aspetto.h"
#include "platform/kit/collega.h"
#include "platform/system/messaggi.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>

using namespace Qt::StringLiterals;

LineaModifiche::LineaModifiche(QWidget* Padre) : QFrame(Padre)
{
    setObjectName(u"lineaModifiche"_s);
    setFrameShape(QFrame::StyledPanel);
    auto* Scritta = new QLabel(u"Modifiche non salvate:"_s);
    Scritta->setObjectName(u"lblModifiche"_s);
    auto* Si = new QPushButton(u"Salva"_s);
    Si->setObjectName(u"cmdSalvaModifiche"_s);
    Si->setToolTip(u"Salva le modifiche della scheda"_s);
    auto* No = new QPushButton(u"Annulla"_s);
    No->setObjectName(u"cmdAnnullaModifiche"_s);
    No->setToolTip(u"Annulla le modifiche della scheda"_s);
    auto* Riga = new QHBoxLayout(this);
    Riga->setContentsMargins(aspetto::Bordo, 4, aspetto::Bordo, 4);
    Riga->setSpacing(aspetto::TraCampi);
    Riga->addWidget(Scritta);
    for (QPushButton* Bottone : {Si, No}) {
        Bottone->setAutoDefault(false);
        Riga->addWidget(Bottone);
    }
    Riga->addStretch(1);
    Collega(Si, &QAbstractButton::clicked, this, [this] { Salva(); });
    Collega(No, &QAbstractButton::clicked, this, [this] { Annulla(); });
    hide();
}

void LineaModifiche::Segui(const Recordset& Nuove)
{
    Righe = Nuove;
    Aggiorna();
}

void LineaModifiche::Aggiorna()
{
    setVisible(Righe.EditMode() != 0);
}

bool LineaModifiche::Consenti()
{
    if (Righe.EditMode() == 0)
        return true;
    if (!Righe.Toccato()) {
        Annulla();
        return true;
    }
    switch (ChiediSeSalvareScheda()) {
    case vbYes:
        Salva();
        break;
    case vbNo:
        Annulla();
        break;
    default:
        break;
    }
    return Righe.EditMode() == 0;
}

void LineaModifiche::Salva()
{
    bool Salvata = false;
    (void)Protetta([&] { Salvata = SalvaScheda(Righe, ChiaveNuova); });
    if (Salvata)
        Chiudi(true);
}

void LineaModifiche::Annulla()
{
    Righe.CancelUpdate();
    Chiudi(false);
}

void LineaModifiche::Chiudi(bool Salvata)
{
    Aggiorna();
    Q_EMIT Conclusa(Salvata);
}

#include "moc_lineamodifiche.cpp"
