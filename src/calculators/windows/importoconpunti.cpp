#include "calculators/windows/importoconpunti.h"

#include "calculators/modSchede.h"
#include "platform/base/regionale.h"
#include "platform/kit/campo.h"

#include <QFocusEvent>
#include <QLineEdit>
#include <QSignalBlocker>

namespace {

class Punti : public QObject
{
public:
    explicit Punti(QLineEdit* Campo) : QObject(Campo), Box(Campo) { Campo->installEventFilter(this); }

    static const Punti* Di(const QLineEdit* Campo)
    {
        for (const QObject* Figlio : Campo->children())
            if (const auto* Trovato = dynamic_cast<const Punti*>(Figlio))
                return Trovato;
        return nullptr;
    }

    [[nodiscard]] QString Testo() const { return Mostra() ? Digitato : Box->text(); }

    bool eventFilter(QObject* Oggetto, QEvent* Evento) override
    {
        // A box that is being destroyed loses the focus too, and is no line edit any more.
        if (!qobject_cast<QLineEdit*>(Oggetto))
            return false;
        if (Evento->type() == QEvent::FocusIn && Mostra())
            Scrivi(Digitato);
        else if (Evento->type() == QEvent::FocusOut && LasciaDavvero(*static_cast<QFocusEvent*>(Evento)))
            Lascia();
        return false;
    }

private:
    /// True while the box shows the points; a text that code has written is its own.
    [[nodiscard]] bool Mostra() const { return !Mostrato.isEmpty() && Box->text() == Mostrato; }

    void Lascia()
    {
        const QString Testo = Box->text();
        const QString ConPunti = ImportoScritto(Testo.trimmed());
        if (ConPunti == Testo || !IsNumeric(Testo) || CDbl(ConPunti) != CDbl(Testo))
            return;
        Digitato = Testo;
        Mostrato = ConPunti;
        Scrivi(ConPunti);
    }

    void Scrivi(const QString& Testo) const
    {
        const QSignalBlocker Zitto(Box);
        const bool Toccato = Box->isModified();
        Box->setText(Testo);
        Box->setModified(Toccato);
    }

    QLineEdit* Box;
    QString Digitato;
    QString Mostrato;
};

}  // namespace

void MostraConPunti(QLineEdit* Box)
{
    new Punti(Box);
}

QString TestoDigitato(const QLineEdit* Box)
{
    const Punti* Suoi = Punti::Di(Box);
    return Suoi ? Suoi->Testo() : Box->text();
}
