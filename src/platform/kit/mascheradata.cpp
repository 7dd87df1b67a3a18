#include "platform/kit/mascheradata.h"

#include "platform/base/regionale.h"
#include "platform/base/segni.h"
#include "platform/kit/collega.h"
#include "platform/kit/mascheradata_accessibile.h"

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QKeyEvent>
#include <QMenu>
#include <QRegularExpression>
#include <QSignalBlocker>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr int MeseDa = 3;

bool HaCifre(const QString& Testo)
{
    return std::any_of(Testo.cbegin(), Testo.cend(), ECifra);
}

/// Of a text that is no date, what one is made of: the digits, and a separator for whatever stands between
/// them. What stands before the first one or behind the last one is nothing, unless it separates; a date that
/// comes from such a box keeps its places.
QString PartiDiData(QString Testo)
{
    static const QRegularExpression DaMaschera(u"^[0-9_]{2}/[0-9_]{2}/[0-9_]{4}$"_s);
    static const QRegularExpression InTesta(u"^[^0-9]+"_s);
    static const QRegularExpression InCoda(u"(?<=[0-9])[^0-9/.-][^0-9]*$"_s);
    static const QRegularExpression InMezzo(u"[^0-9]+"_s);
    if (DaMaschera.match(Testo).hasMatch())
        return Testo.remove(u'_');
    return Testo.remove(InTesta).remove(InCoda).replace(InMezzo, u"/"_s);
}

}  // namespace

MascheraData::MascheraData(QWidget* Padre) : QLineEdit(Padre)
{
    // The mask below is told to screen readers, which then keep whatever reads it.
    RendiLeggibiliMaschere();
    setInputMask(u"99/99/9999;_"_s);
    const QMargins Margini = textMargins();
    constexpr int BordoCasella = 14;  // frame and the line edit's inner margins
    setMinimumWidth(fontMetrics().horizontalAdvance(u"99/99/9999"_s) + Margini.left() + Margini.right() +
                    BordoCasella);
    Collega(this, &QLineEdit::textEdited, this, &MascheraData::CompletaGruppi);
}

QString MascheraData::Testo() const
{
    return displayText();
}

bool MascheraData::Vuota() const
{
    return !HaCifre(Testo());
}

std::optional<QDate> MascheraData::Data() const
{
    return LeggiData(Testo());
}

void MascheraData::ImpostaData(const std::optional<QDate>& Data)
{
    ImpostaTesto(Data ? Format(*Data, ModelloData) : QString());
}

void MascheraData::CompletaAnno()
{
    const QString Digitato = Testo();
    if (const QString Intero = ConSecolo(Digitato); Intero != Digitato)
        ImpostaTesto(Intero);
}

void MascheraData::ImpostaTesto(const QString& Testo)
{
    if (const auto Letta = LeggiData(Testo))
        setText(Format(*Letta, ModelloData));
    else if (HaCifre(Testo))
        Riempi(Testo);
    else
        clear();
    setModified(false);
}

/// Puts each digit in the place it has in the text: the mask's own reading would close the gaps.
void MascheraData::Riempi(const QString& Posti)
{
    {
        const QSignalBlocker Zitto(this);
        clear();
        for (int i = 0; i < std::min(int(Posti.size()), maxLength()); ++i) {
            if (!Posti[i].isDigit())
                continue;
            setCursorPosition(i);
            insert(Posti.mid(i, 1));
        }
    }
    Q_EMIT textChanged(text());
}

/// A day or month of one digit behind which the user has gone on gets its zero.
void MascheraData::CompletaGruppi()
{
    QString Posti = Testo();
    const int Cursore = cursorPosition();
    bool Cambiato = false;
    for (const int Da : {0, MeseDa}) {
        if (Cursore < Da + 3 || !Posti[Da].isDigit() || Posti[Da + 1] != u'_')
            continue;
        Posti[Da + 1] = Posti[Da];
        Posti[Da] = u'0';
        Cambiato = true;
    }
    if (!Cambiato)
        return;
    Riempi(Posti);
    setModified(true);
    setCursorPosition(Cursore);
}

void MascheraData::Incolla()
{
    const QString Testo = QApplication::clipboard()->text().trimmed();
    if (const auto Letta = LeggiData(Testo)) {
        selectAll();
        insert(Format(*Letta, ModelloData));
    } else if (HaCifre(Testo)) {
        insert(PartiDiData(Testo));
    }
}

void MascheraData::keyPressEvent(QKeyEvent* Evento)
{
    if (Evento->matches(QKeySequence::Paste) && !isReadOnly()) {
        Incolla();
        Evento->accept();
        return;
    }
    if (Evento->text() == u"-" || Evento->text() == u".") {
        QKeyEvent Barra(QEvent::KeyPress, Qt::Key_Slash, Qt::NoModifier, u"/"_s);
        QLineEdit::keyPressEvent(&Barra);
        Evento->accept();
        return;
    }
    QLineEdit::keyPressEvent(Evento);
}

void MascheraData::focusInEvent(QFocusEvent* Evento)
{
    QLineEdit::focusInEvent(Evento);
    const Qt::FocusReason Motivo = Evento->reason();
    if (Motivo != Qt::TabFocusReason && Motivo != Qt::BacktabFocusReason && Motivo != Qt::ShortcutFocusReason)
        return;
    if (Vuota())
        setCursorPosition(0);
    else
        selectAll();
}

void MascheraData::mouseReleaseEvent(QMouseEvent* Evento)
{
    QLineEdit::mouseReleaseEvent(Evento);
    if (Vuota())
        setCursorPosition(0);
}

void MascheraData::contextMenuEvent(QContextMenuEvent* Evento)
{
    auto* Menu = createStandardContextMenu();
    Menu->setAttribute(Qt::WA_DeleteOnClose);
    for (QAction* Voce : Menu->actions()) {
        // The menu's own paste knows the mask alone; its entry is found by the text that Qt gave it.
        if (Voce->text().section(u'\t', 0, 0) != QLineEdit::tr("&Paste"))
            continue;
        Voce->disconnect();
        Collega(Voce, &QAction::triggered, this, &MascheraData::Incolla);
    }
    Menu->popup(Evento->globalPos());
}

#include "moc_mascheradata.cpp"
