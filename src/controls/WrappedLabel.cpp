#include "controls/WrappedLabel.h"

#include "controls/WrappedText.h"

#include <QHelpEvent>
#include <QPainter>
#include <QToolTip>

namespace {
constexpr int mostLines = 4;
/// In characters of usual width: how far a text goes before it is broken when there is room, and
/// what it needs at least.
constexpr int usualWidth = 70;
constexpr int leastWidth = 10;
/// More than four lines of any screen: what stands behind costs no time to break.
constexpr qsizetype mostCharacters = 4000;
} // namespace

WrappedLabel::WrappedLabel(QWidget *parent) : QLabel(parent)
{
    setTextFormat(Qt::PlainText);
    setWordWrap(true);
}

QString WrappedLabel::shownText() const
{
    return text().left(mostCharacters);
}

QSize WrappedLabel::sizeHint() const
{
    const int whole = fontMetrics().size(0, shownText()).width();
    const int width = qMin(whole, usualWidth * fontMetrics().averageCharWidth()) + 1;
    return {width, heightForWidth(width)};
}

QSize WrappedLabel::minimumSizeHint() const
{
    const int whole = fontMetrics().size(0, shownText()).width();
    return {qMin(whole, leastWidth * fontMetrics().averageCharWidth()), fontMetrics().height()};
}

int WrappedLabel::heightForWidth(int width) const
{
    const int line = fontMetrics().height();
    return qBound(line, WrappedTextHeight(shownText(), font(), width), mostLines * line);
}

bool WrappedLabel::ShowsAll() const
{
    const QRect place = contentsRect();
    return text().size() <= mostCharacters
           && WrappedTextHeight(text(), font(), place.width()) <= place.height();
}

bool WrappedLabel::event(QEvent *event)
{
    if (event->type() != QEvent::ToolTip)
        return QLabel::event(event);
    const auto *help = static_cast<QHelpEvent *>(event);
    QToolTip::showText(help->globalPos(), ShowsAll() ? QString() : ToolTipText(text()), this);
    return true;
}

void WrappedLabel::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.setPen(palette().color(foregroundRole()));
    DrawWrappedText(&painter, contentsRect(), shownText(), font(), alignment());
}
