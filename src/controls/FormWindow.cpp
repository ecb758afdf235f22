#include "controls/FormWindow.h"

#include <QAbstractButton>
#include <QApplication>
#include <QCloseEvent>
#include <QKeyEvent>
#include <QPointer>

namespace {
/// The visible, enabled button whose mnemonic the key is.
QAbstractButton *buttonOfMnemonic(const QWidget *window, const QKeyEvent *key)
{
    if (key->modifiers() != Qt::AltModifier)
        return nullptr;
    const QList<QAbstractButton *> buttons = window->findChildren<QAbstractButton *>();
    for (QAbstractButton *button : buttons) {
        const QKeySequence mnemonic = QKeySequence::mnemonic(button->text());
        if (button->isVisible() && button->isEnabled() && !mnemonic.isEmpty()
            && mnemonic == QKeySequence(key->keyCombination()))
            return button;
    }
    return nullptr;
}

/// A key that is held presses a button once, not once a repetition.
bool isHeldEnter(const QKeyEvent *event)
{
    return event->isAutoRepeat()
           && (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter);
}
} // namespace

FormWindow::FormWindow(QWidget *parent, Qt::WindowFlags flags) : QWidget(parent, flags)
{
    qApp->installEventFilter(this);
}

QWidget *FormWindow::Around(QWidget *widget)
{
    while (widget->parentWidget() && !widget->isWindow() && widget->windowType() != Qt::SubWindow
           && !qobject_cast<FormWindow *>(widget))
        widget = widget->parentWidget();
    return widget;
}

bool FormWindow::Unload(UnloadMode mode)
{
    if (unloaded)
        return true;
    const QPointer<FormWindow> self(this);
    const bool allowed = QueryUnload(mode);
    // The question may have been open for long: the window may be gone already.
    if (!self || unloaded)
        return true;
    if (!allowed)
        return false;
    unloaded = true;
    Unloading();
    hide();
    Q_EMIT Unloaded();
    if (runs == 0)
        endForGood();
    return true;
}

bool FormWindow::QueryUnload(UnloadMode)
{
    return true;
}

void FormWindow::Unloading() {}

void FormWindow::closeEvent(QCloseEvent *event)
{
    event->setAccepted(Unload(UnloadMode::ControlMenu));
}

bool FormWindow::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::KeyPress && isHeldEnter(static_cast<QKeyEvent *>(event))
        && qobject_cast<QAbstractButton *>(watched)
        && isAncestorOf(static_cast<QWidget *>(watched)))
        return true;
    if (event->type() == QEvent::ShortcutOverride || event->type() == QEvent::KeyPress) {
        const auto *widget = qobject_cast<QWidget *>(watched);
        if (widget && (widget == this || isAncestorOf(widget))) {
            if (QAbstractButton *button = buttonOfMnemonic(this, static_cast<QKeyEvent *>(event))) {
                event->accept();
                if (event->type() == QEvent::KeyPress
                    && !static_cast<QKeyEvent *>(event)->isAutoRepeat())
                    button->click();
                return true;
            }
        }
    }
    return QWidget::eventFilter(watched, event);
}

void FormWindow::endRun()
{
    if (--runs == 0 && unloaded)
        endForGood();
}

void FormWindow::endForGood()
{
    Over();
    deleteLater();
}
