#include "app/WindowChecks.h"

#include "namesearch/NameResultsWindow.h"

#include <QAbstractButton>
#include <QAccessible>
#include <QApplication>
#include <QDialog>
#include <QGroupBox>
#include <QLabel>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMenu>
#include <QPointer>
#include <QPushButton>
#include <QScreen>
#include <QScrollArea>
#include <QScrollBar>
#include <QSet>
#include <QTabBar>
#include <QTest>

#include <algorithm>
#include <array>
#include <cmath>

using namespace Qt::StringLiterals;

namespace {
QString nameOf(const QObject *control)
{
    return control->objectName() + u' ' + QString::fromLatin1(control->metaObject()->className());
}

QString inWords(const QRect &place)
{
    return u"%1,%2 %3x%4"_s.arg(place.x()).arg(place.y()).arg(place.width()).arg(place.height());
}

template<typename Control>
QList<Control *> visibleOf(const QWidget *window)
{
    QList<Control *> all = window->findChildren<Control *>();
    all.removeIf([](const Control *one) { return !one->isVisible(); });
    return all;
}

/// As the guidelines for readable pages count it.
double luminance(const QColor &colour)
{
    const auto part = [](double value) {
        return value <= 0.03928 ? value / 12.92 : std::pow((value + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * part(colour.redF()) + 0.7152 * part(colour.greenF())
           + 0.0722 * part(colour.blueF());
}

double contrast(const QColor &one, const QColor &other)
{
    const double a = luminance(one);
    const double b = luminance(other);
    return (std::max(a, b) + 0.05) / (std::min(a, b) + 0.05);
}

bool isTabStop(const QWidget *widget)
{
    return widget->isVisible() && widget->isEnabled() && !widget->focusProxy()
           && (widget->focusPolicy() & Qt::TabFocus) == Qt::TabFocus;
}

/// One of a set of radio buttons is the stop of all, the chosen one or the first; the arrow keys go
/// on from there.
bool standsForItsSet(const QWidget *widget)
{
    const auto *button = qobject_cast<const QAbstractButton *>(widget);
    if (!button || !button->autoExclusive() || button->isChecked())
        return true;
    QList<QAbstractButton *> set = button->parentWidget()->findChildren<QAbstractButton *>(
        QString(), Qt::FindDirectChildrenOnly);
    set.removeIf(
        [](const QAbstractButton *one) { return !one->autoExclusive() || !isTabStop(one); });
    return set.first() == button && std::none_of(set.begin(), set.end(), [](const auto *one) {
               return one->isChecked();
           });
}

/// What may have the keyboard, and is nothing to be read or pressed by itself.
constexpr std::array<QAccessible::Role, 8> mereGround{
    QAccessible::NoRole, QAccessible::Client,     QAccessible::Grouping,    QAccessible::Border,
    QAccessible::Pane,   QAccessible::Whitespace, QAccessible::LayeredPane, QAccessible::Window};

void hear(QAccessibleInterface *one, QStringList *unheard)
{
    if (!one || !one->isValid() || one->state().invisible)
        return;
    const QString name = one->text(QAccessible::Name);
    const QAccessible::Role role = one->role();
    const auto *widget = qobject_cast<QWidget *>(one->object());
    if (one->state().focusable && !one->state().disabled && widget && !widget->focusProxy()) {
        if (name.isEmpty())
            unheard->append(nameOf(widget) + u" has no name"_s);
        // What scrolls takes the keyboard for its keys, and has a name.
        if (!qobject_cast<const QScrollArea *>(widget)
            && std::find(mereGround.begin(), mereGround.end(), role) != mereGround.end())
            unheard->append(nameOf(widget) + u" has the role "_s + QString::number(role));
    }
    const bool hasCells =
        role == QAccessible::Table || role == QAccessible::List || role == QAccessible::Tree;
    for (int i = 0; !hasCells && i < one->childCount(); ++i)
        hear(one->child(i), unheard);
}

/// The letter of each control that can be pressed by one.
QList<std::pair<QKeySequence, QString>> mnemonicsOf(const QWidget *window)
{
    QList<std::pair<QKeySequence, QString>> all;
    const auto add = [&all](const QString &text) {
        if (const QKeySequence key = QKeySequence::mnemonic(text); !key.isEmpty())
            all.append({key, text});
    };
    for (const QAbstractButton *button : visibleOf<QAbstractButton>(window))
        add(button->text());
    for (const QLabel *label : visibleOf<QLabel>(window))
        if (label->buddy() && label->textFormat() != Qt::RichText)
            add(label->text());
    for (const QGroupBox *box : visibleOf<QGroupBox>(window))
        add(box->title());
    for (const QTabBar *bar : visibleOf<QTabBar>(window))
        for (int i = 0; i < bar->count(); ++i)
            add(bar->tabText(i));
    if (const auto *menu = qobject_cast<const QMenu *>(window))
        for (const QAction *action : menu->actions())
            add(action->text());
    return all;
}

/// A step of the keyboard from one control to one that stands wholly above it, in the same frame.
bool goesBack(const QWidget *from, const QWidget *to)
{
    return from->parentWidget() == to->parentWidget()
           && to->geometry().bottom() < from->geometry().top()
           && to->geometry().left() <= from->geometry().right();
}
/// What the window may fill: its screen, or the main window's area.
QRect roomOf(const QWidget *window)
{
    const auto *frame = qobject_cast<const QMdiSubWindow *>(window->parentWidget());
    return frame ? frame->mdiArea()->viewport()->rect() : window->screen()->availableGeometry();
}
} // namespace

QStringList OutOfSight(const QWidget *window)
{
    // Menus scroll by themselves.
    if (qobject_cast<const QMenu *>(window))
        return {};
    QRect there = window->frameGeometry();
    const QRect room = roomOf(window);
    if (!window->isWindow()) {
        const auto *frame = qobject_cast<const QMdiSubWindow *>(window->parentWidget());
        if (!frame)
            return {window->objectName() + u" has no frame"_s};
        there = frame->geometry();
    }
    if (room.contains(there))
        return {};
    return {inWords(there) + u" does not lie within "_s + inWords(room)};
}

QStringList CutTexts(const QWidget *window)
{
    QStringList cut;
    const auto compare = [&cut](const QWidget *control, const QString &text, QSize needed) {
        // Less height than a style asks for is no harm while the letters fit.
        if (control->width() < needed.width()
            || control->height() < control->fontMetrics().height())
            cut.append(u"%1 \"%2\" has %3x%4 of %5x%6"_s.arg(nameOf(control), text.left(30))
                           .arg(control->width())
                           .arg(control->height())
                           .arg(needed.width())
                           .arg(needed.height()));
    };
    for (const QAbstractButton *button : visibleOf<QAbstractButton>(window))
        if (!button->text().isEmpty())
            compare(button, button->text(),
                    button->minimumSizeHint().boundedTo(button->sizeHint()));
    for (const QLabel *label : visibleOf<QLabel>(window)) {
        if (label->text().isEmpty() || label->parentWidget()->inherits("QSpinBox"))
            continue;
        if (!label->wordWrap())
            compare(label, label->text(), label->sizeHint());
        else if (label->height() < label->heightForWidth(label->width()))
            cut.append(u"%1 \"%2\""_s.arg(nameOf(label), label->text().left(30)));
    }
    for (const QScrollArea *page : visibleOf<QScrollArea>(window)) {
        const int beyond = page->horizontalScrollBar()->maximum();
        // Who uses a window within the main one makes it wider.
        if (beyond > 0 && window->isWindow() && window->width() + beyond <= roomOf(window).width())
            cut.append(u"%1 scrolls sideways by %2"_s.arg(nameOf(page)).arg(beyond));
    }
    return cut;
}

QStringList FaintTexts(const QWidget *window)
{
    constexpr double least = 3.0;
    QStringList faint;
    for (const QWidget *control : visibleOf<QWidget>(window)) {
        const bool isMereGround = QByteArrayView(control->metaObject()->className()) == "QWidget";
        if (!control->isEnabled() || isMereGround)
            continue;
        const QPalette &palette = control->palette();
        const QColor text = palette.color(control->foregroundRole());
        const QColor ground = palette.color(control->backgroundRole());
        if (contrast(text, ground) < least)
            faint.append(u"%1 %2 on %3"_s.arg(nameOf(control), text.name(), ground.name()));
    }
    return faint;
}

QStringList Unheard(QWidget *window)
{
    QStringList unheard;
    if (window->windowTitle().isEmpty() && !qobject_cast<QMenu *>(window))
        unheard.append(window->objectName() + u" has no title"_s);
    hear(QAccessible::queryAccessibleInterface(window), &unheard);
    return unheard;
}

QStringList OffTheTabRoad(QWidget *window)
{
    if (qobject_cast<QMenu *>(window))
        return {};
    constexpr int mostSteps = 200;
    QSet<const QWidget *> expected;
    for (const QWidget *widget : visibleOf<QWidget>(window))
        if (isTabStop(widget) && standsForItsSet(widget) && widget->window() == window->window())
            expected.insert(widget);
    if (expected.isEmpty())
        return {};
    const QPointer<QWidget> before = QApplication::focusWidget();
    if (!before || !window->isAncestorOf(before))
        QTest::keyClick(window->window(), Qt::Key_Tab);
    QStringList trouble;
    QStringList back;
    QSet<const QWidget *> visited;
    QWidget *here = QApplication::focusWidget();
    const QWidget *first = here;
    for (int step = 0; step < mostSteps && here && !visited.contains(here); ++step) {
        visited.insert(here);
        const QWidget *last = here;
        QTest::keyClick(here, Qt::Key_Tab);
        here = QApplication::focusWidget();
        if (here && goesBack(last, here))
            back.append(u"from "_s + nameOf(last) + u" back to "_s + nameOf(here));
    }
    // The road is a ring: it goes back once.
    if (back.size() > 1)
        trouble.append(back);
    if (here != first)
        trouble.append(u"the keyboard is kept at "_s + (here ? nameOf(here) : u"nothing"_s));
    for (const QWidget *widget : expected)
        if (!visited.contains(widget))
            trouble.append(u"no way to "_s + nameOf(widget));
    for (const QWidget *widget : visited)
        if (!expected.contains(widget))
            trouble.append(u"not expected at "_s + nameOf(widget));
    if (before)
        before->setFocus();
    return trouble;
}

QStringList KeyTrouble(const QWidget *window)
{
    QStringList trouble;
    // In the windows of results the captions settle it: of the buttons that Alt+S belongs to, the
    // first that can be pressed hears it, and a new search has Ctrl+N too.
    auto all = mnemonicsOf(window);
    if (qobject_cast<const NameResultsWindow *>(window))
        all.removeIf([](const auto &one) { return one.first == QKeySequence(u"Alt+S"_s); });
    for (qsizetype i = 0; i < all.size(); ++i)
        for (qsizetype j = 0; j < i; ++j)
            if (all[i].first == all[j].first)
                trouble.append(all[i].first.toString() + u" is \""_s + all[j].second
                               + u"\" and \""_s + all[i].second + u'"');
    const QList<QPushButton *> buttons = visibleOf<QPushButton>(window);
    const bool hasDefault = std::any_of(buttons.begin(), buttons.end(),
                                        [](const QPushButton *one) { return one->isDefault(); });
    if (qobject_cast<const QDialog *>(window) && !buttons.isEmpty() && !hasDefault)
        trouble.append(u"Enter means nothing"_s);
    return trouble;
}
