#include "platform/kit/scelta.h"

#include "platform/kit/campo.h"
#include "platform/kit/collega.h"

#include <QAbstractItemView>
#include <QButtonGroup>
#include <QComboBox>
#include <QKeyEvent>

#include <memory>
#include <optional>
#include <utility>

namespace {

/// Stands beside one list and knows the entry that was chosen before the user's steps.
class ListaScelta : public QObject
{
public:
    ListaScelta(QComboBox* DiLista, std::function<void(int, ModoScelta)> Fai, std::function<bool()> Aspetta)
        : QObject(DiLista), Lista(DiLista), Procedura(std::move(Fai)), Attende(std::move(Aspetta))
    {
        Lista->installEventFilter(this);
        Lista->view()->window()->installEventFilter(this);
        Collega(Lista, &QComboBox::activated, this, [this](int Voce) {
            Passo = Voce;
            if (DallaLista)
                Agisci(ModoScelta::Scelta);
            else if (!Attende || !Attende())
                Agisci(ModoScelta::Passo);
        });
        AlLasciaSempre(Lista, [this] {
            Agisci(ModoScelta::Scelta);
            return true;
        });
    }

    bool eventFilter(QObject* Oggetto, QEvent* Evento) override
    {
        switch (Evento->type()) {
        case QEvent::Show:
            if (Oggetto != Lista) {
                Ricomincia();
                DallaLista = true;
            }
            break;
        case QEvent::KeyPress:
            if (Oggetto == Lista)
                Tasto(*static_cast<QKeyEvent*>(Evento));
            break;
        case QEvent::MouseButtonPress:
            if (Oggetto == Lista)
                Ricomincia();
            break;
        default:
            break;
        }
        return QObject::eventFilter(Oggetto, Evento);
    }

private:
    void Tasto(const QKeyEvent& Evento)
    {
        Ricomincia();
        // Before the focus goes on: what is chosen here may open the next list.
        if (EInvio(Evento.key()) || Evento.key() == Qt::Key_Tab || Evento.key() == Qt::Key_Backtab)
            Agisci(ModoScelta::Scelta);
    }

    /// The user begins anew: with no step pending, what stands there now is what was chosen before.
    void Ricomincia()
    {
        DallaLista = false;
        if (Passo == Lista->currentIndex())
            return;
        Passo.reset();  // code has written another entry since
        Prima = Lista->currentIndex();
    }

    void Agisci(ModoScelta Come)
    {
        const auto Scelta = std::exchange(Passo, std::nullopt);
        if (!Scelta || *Scelta != Lista->currentIndex() || *Scelta == Prima)
            return;
        Prima = *Scelta;
        const auto Copia = Procedura;
        Copia(*Scelta, Come);
    }

    QComboBox* Lista;
    std::function<void(int, ModoScelta)> Procedura;
    std::function<bool()> Attende;
    int Prima = -1;            ///< entry before the user's steps
    std::optional<int> Passo;  ///< entry that he has gone to and that has not acted yet
    bool DallaLista = false;   ///< he chooses in the open list
};

}  // namespace

void AlScegliere(QComboBox* Lista, std::function<void(int, ModoScelta)> Procedura,
                 std::function<bool()> Attende)
{
    new ListaScelta(Lista, std::move(Procedura), std::move(Attende));
}

void AlScegliere(QButtonGroup* Opzioni, std::function<void(int)> Procedura)
{
    auto Prima = std::make_shared<int>(-1);
    Collega(Opzioni, &QButtonGroup::idPressed, Opzioni, [Opzioni, Prima] { *Prima = Opzioni->checkedId(); });
    Collega(Opzioni, &QButtonGroup::idClicked, Opzioni,
            [Prima, Procedura = std::move(Procedura)](int Scelta) {
                if (std::exchange(*Prima, Scelta) != Scelta)
                    Procedura(Scelta);
            });
}
