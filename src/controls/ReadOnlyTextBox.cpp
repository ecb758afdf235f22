#include "controls/ReadOnlyTextBox.h"

#include <QKeyEvent>

namespace {
bool wouldEdit(const QKeyEvent *event)
{
    if (event->matches(QKeySequence::Paste) || event->matches(QKeySequence::Cut)
        || event->key() == Qt::Key_Backspace || event->key() == Qt::Key_Delete)
        return true;
    const bool command = event->modifiers() & (Qt::ControlModifier | Qt::AltModifier);
    return !command && !event->text().isEmpty() && event->text().front().isPrint();
}
} // namespace

ReadOnlyTextBox::ReadOnlyTextBox(QWidget *parent) : QLineEdit(parent)
{
    setReadOnly(true);
}

void ReadOnlyTextBox::keyPressEvent(QKeyEvent *event)
{
    if (!wouldEdit(event)) {
        QLineEdit::keyPressEvent(event);
        return;
    }
    event->accept();
    // Once: a key that is held down would open its box again and again.
    if (!event->isAutoRepeat())
        Q_EMIT EditRefused();
}
