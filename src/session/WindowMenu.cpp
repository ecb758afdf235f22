#include "session/WindowMenu.h"

#include "controls/FormWindow.h"
#include "controls/TabStrip.h"

#include <QMdiArea>
#include <QMdiSubWindow>
#include <QPointer>

using namespace Qt::StringLiterals;

namespace {
constexpr int longestCaption = 80; ///< average characters
constexpr int withDigit = 9;

/// A caption in a line of a menu: neither a mnemonic nor a shortcut comes of what stands in it.
QString menuText(const QString &caption, int number, const QFontMetrics &metrics)
{
    QString text = metrics.elidedText(caption.simplified(), Qt::ElideRight,
                                      longestCaption * metrics.averageCharWidth());
    text.replace(u'&', u"&&"_s);
    return number > withDigit ? text : u'&' + QString::number(number) + u' ' + text;
}

FormWindow *formOf(const QMdiSubWindow *frame)
{
    return frame ? qobject_cast<FormWindow *>(frame->widget()) : nullptr;
}

void bringForward(QMdiArea *area, QMdiSubWindow *frame)
{
    frame->setWindowState(frame->windowState() & ~Qt::WindowMinimized);
    area->setActiveSubWindow(frame);
}
} // namespace

WindowMenu::WindowMenu(const Entries &ofMenu, QMdiArea *children)
    : QObject(children), entries(ofMenu), area(children)
{
    connect(entries.Cascade, &QAction::triggered, area, &QMdiArea::cascadeSubWindows);
    connect(entries.Tile, &QAction::triggered, area, &QMdiArea::tileSubWindows);
    connect(entries.Next, &QAction::triggered, this, [this] { step(1); });
    connect(entries.Previous, &QAction::triggered, this, [this] { step(-1); });
    connect(entries.Close, &QAction::triggered, this, &WindowMenu::close);
    connect(entries.CloseAll, &QAction::triggered, this, &WindowMenu::closeAll);
    connect(entries.Menu, &QMenu::aboutToShow, this, &WindowMenu::listChildren);
    entries.Close->setShortcuts({Qt::CTRL | Qt::Key_W, Qt::CTRL | Qt::Key_F4});
    offerKeys(nullptr);
}

/// In the order in which they were made, which stays whichever is in front.
QList<QMdiSubWindow *> WindowMenu::shown() const
{
    QList<QMdiSubWindow *> frames = area->subWindowList(QMdiArea::CreationOrder);
    frames.removeIf([](const QMdiSubWindow *frame) { return frame->isHidden() || !formOf(frame); });
    return frames;
}

QMdiSubWindow *WindowMenu::active() const
{
    QMdiSubWindow *frame = area->currentSubWindow();
    return frame && !frame->isHidden() && formOf(frame) ? frame : nullptr;
}

/// The frame's own menu has Close with the same keys, and the platform would give them to neither.
void WindowMenu::Adopt(QMdiSubWindow *frame)
{
    const QMenu *menu = frame->systemMenu();
    const QList<QAction *> actions = menu ? menu->actions() : QList<QAction *>();
    for (QAction *action : actions)
        action->setShortcuts(QList<QKeySequence>());
}

void WindowMenu::OfferCommands()
{
    const qsizetype children = shown().size();
    QMdiSubWindow *front = active();
    for (QAction *action : {entries.Cascade, entries.Tile, entries.CloseAll})
        action->setEnabled(children >= 1);
    for (QAction *action : {entries.Next, entries.Previous})
        action->setEnabled(children >= 2);
    entries.Close->setEnabled(front != nullptr);
    offerKeys(formOf(front));
}

/// A window with tabs has Ctrl+Tab for them, and the platform gives a key that two want to neither.
void WindowMenu::offerKeys(const FormWindow *child)
{
    QList<QKeySequence> next{Qt::CTRL | Qt::Key_F6};
    QList<QKeySequence> previous{Qt::CTRL | Qt::SHIFT | Qt::Key_F6};
    if (!child || !child->findChild<TabStrip *>()) {
        next.prepend(Qt::CTRL | Qt::Key_Tab);
        previous.prepend(Qt::CTRL | Qt::SHIFT | Qt::Key_Tab);
    }
    entries.Next->setShortcuts(next);
    entries.Previous->setShortcuts(previous);
}

/// Behind the last comes the first.
void WindowMenu::step(int by)
{
    const QList<QMdiSubWindow *> frames = shown();
    if (frames.isEmpty())
        return;
    const qsizetype here = frames.indexOf(active());
    const qsizetype from = here < 0 && by < 0 ? 0 : here;
    bringForward(area, frames[(from + by + frames.size()) % frames.size()]);
}

void WindowMenu::close()
{
    if (FormWindow *child = formOf(active()))
        child->Unload(UnloadMode::ControlMenu);
}

/// From the front to the back. Each is in front while it asks; the first that stays ends it. A
/// question lets events through: any of them may have gone, or been hidden, meanwhile.
void WindowMenu::closeAll()
{
    const QPointer<WindowMenu> self(this);
    QList<QPointer<QMdiSubWindow>> frames;
    for (QMdiSubWindow *frame : area->subWindowList(QMdiArea::ActivationHistoryOrder))
        frames.prepend(frame);
    for (const QPointer<QMdiSubWindow> &frame : frames) {
        if (!self)
            return;
        FormWindow *child = formOf(frame);
        if (!child || frame->isHidden())
            continue;
        bringForward(area, frame);
        if (!child->Unload(UnloadMode::ControlMenu))
            return;
    }
}

void WindowMenu::listChildren()
{
    // The menu is about to be shown: none of these is on the stack.
    qDeleteAll(listed);
    listed.clear();
    const QList<QMdiSubWindow *> frames = shown();
    if (!frames.isEmpty())
        listed.append(entries.Menu->addSeparator());
    for (QMdiSubWindow *frame : frames) {
        const QString caption = formOf(frame)->windowTitle();
        const auto number = static_cast<int>(listed.size());
        auto *entry =
            entries.Menu->addAction(menuText(caption, number, entries.Menu->fontMetrics()));
        entry->setObjectName(u"child_"_s + QString::number(number));
        entry->setStatusTip(caption.simplified());
        entry->setCheckable(true);
        entry->setChecked(frame == active());
        connect(entry, &QAction::triggered, this, [this, gone = QPointer(frame)] {
            if (gone)
                bringForward(area, gone);
        });
        listed.append(entry);
    }
}
