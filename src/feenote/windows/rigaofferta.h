// What a page offers quietly: a button that takes it, with its keys, and a remark in the same place.
#pragma once

#include <QKeySequence>
#include <QTimer>
#include <QToolButton>

class Etichetta;
class QShortcut;

/// A flat button whose caption has shorter forms where there is no room, or is cut.
class BottoneOfferta : public QToolButton
{
    Q_OBJECT

public:
    explicit BottoneOfferta(QWidget* Padre = nullptr);

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

    /// A caption with its shorter forms, the longest first. The shortest one always has its room.
    void MostraForme(const QString& Intero, const QStringList& PiuBrevi);

    /// The caption as it is drawn.
    [[nodiscard]] QString Mostrato() const;

    /// The keys that take an offer, wherever there is one.
    [[nodiscard]] static QList<QKeySequence> Tasti();

protected:
    void paintEvent(QPaintEvent* Evento) override;
    void changeEvent(QEvent* Evento) override;

private:
    void Tingi();

    QStringList InBreve;
};

/// The offer of a page. It takes the room that is left in a row, so that nothing moves when it comes or goes.
class RigaOfferta : public QWidget
{
    Q_OBJECT

public:
    explicit RigaOfferta(QWidget* Padre = nullptr);

    /// The keys take the offer anywhere on this page.
    void Ascolta(QWidget* Pagina);
    /// Shows an offer, which goes by itself when nobody takes it.
    void Offri(const QString& Testo, const QString& Suggerimento);
    void Togli();
    [[nodiscard]] bool InOfferta() const { return Offerta; }
    /// A grey remark, seen while there is no offer; empty: none.
    void Annota(const QString& Frase);

    /// How long an offer stays.
    static inline int DurataMs = 60'000;

Q_SIGNALS:
    void Accettata();  ///< by a click or by the keys

private:
    void MostraParti();

    BottoneOfferta* Bottone;
    Etichetta* Nota;
    QShortcut* Scorciatoia = nullptr;
    QTimer Fine;
    bool Offerta = false;
};
