#include "sweeps/WindowWatch.h"

#include "sweeps/HostileTexts.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QAccessible>
#include <QAction>
#include <QApplication>
#include <QHelpEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMdiSubWindow>
#include <QMenu>
#include <QPlainTextEdit>
#include <QPointer>
#include <QScreen>
#include <QTabBar>
#include <QTextDocument>
#include <QTextEdit>
#include <QToolTip>

using namespace Qt::StringLiterals;

namespace {
/// The longest caption: more than any task bar or title bar shows. The window system refuses what
/// does not fit into one request of it.
constexpr qsizetype longestCaption = 1'000;
/// The longest tool tip, markup included.
constexpr qsizetype longestTip = 20'000;
constexpr int rowsLookedAt = 12;
/// What every window has room on. The screen of the tests is smaller than any that is used.
constexpr QSize smallestScreen(1280, 1024);
/// The highest row of a grid.
constexpr int mostRowPixels = 32'000;

bool isHostile(const QString &text)
{
    return text.contains(QLatin1StringView(hostileMark));
}

bool hasControls(const QString &text)
{
    return std::any_of(text.begin(), text.end(),
                       [](QChar c) { return c.category() == QChar::Other_Control; });
}

/// Whether a tip with our own beginning holds markup that is not ours.
bool holdsMarkup(const QString &tip)
{
    if (!tip.startsWith(u"<qt>"))
        return Qt::mightBeRichText(tip);
    // A tip may be put together of two.
    QString rest = tip;
    return rest.remove(u"<qt>"_s).remove(u"<br>"_s).contains(u'<');
}

/// Of a window of the screen or of the main window.
bool isWindow(const QWidget *widget)
{
    return widget->isWindow() || qobject_cast<const QMdiSubWindow *>(widget);
}
} // namespace

QString Legible(const QString &text)
{
    constexpr qsizetype most = 120;
    QString legible;
    for (const QChar c : QStringView(text).left(most))
        legible += c.isPrint() ? QString(c) : u"\\x%1"_s.arg(c.unicode(), 2, 16, QChar(u'0'));
    return text.size() > most ? legible + u" .."_s : legible;
}

void WindowWatch::Look()
{
    QList<QPointer<QWidget>> widgets;
    const QWidgetList all = QApplication::allWidgets();
    for (QWidget *widget : all)
        widgets.append(widget);
    // A tip that is asked for takes the place of another one, which goes.
    for (const QPointer<QWidget> &widget : widgets) {
        // The tip itself is rich text, and is looked at where it is asked for.
        if (!widget || !widget->isVisible() || widget->objectName() == u"qtooltip_label")
            continue;
        lookAtWidget(widget);
        if (isWindow(widget))
            lookAtWindow(widget);
    }
}

void WindowWatch::lookAtWindow(QWidget *window)
{
    const QSize screen = smallestScreen;
    const QSize least = window->minimumSizeHint().expandedTo(window->minimumSize());
    if (least.width() > screen.width() || least.height() > screen.height())
        complain(window, u"needs %1 x %2 pixels"_s.arg(least.width()).arg(least.height()));
    if (window->width() > screen.width() || window->height() > screen.height())
        complain(window, u"has %1 x %2 pixels"_s.arg(window->width()).arg(window->height()));
    lookAtName(window->windowTitle(), u"caption"_s, window);
    if (window->isWindow())
        window->grab();
}

void WindowWatch::lookAtName(const QString &name, const QString &what, const QWidget *widget)
{
    note(name);
    if (name.size() > longestCaption)
        complain(widget, what + u" of "_s + QString::number(name.size()) + u" characters"_s);
    if (hasControls(name))
        complain(widget, what + u" with control characters: "_s + Legible(name));
}

void WindowWatch::lookAtWidget(QWidget *widget)
{
    lookAtTip(widget->toolTip(), widget);
    lookAtTip(widget->statusTip(), widget);
    lookAtTip(widget->whatsThis(), widget);
    if (QAccessibleInterface *heard = QAccessible::queryAccessibleInterface(widget)) {
        note(heard->text(QAccessible::Name));
        note(heard->text(QAccessible::Description));
    }
    if (const auto *label = qobject_cast<QLabel *>(widget)) {
        note(label->text());
        if (isHostile(label->text()) && label->textFormat() != Qt::PlainText)
            complain(label, u"may be taken for markup: "_s + Legible(label->text()));
        if (isHostile(label->text()))
            askForTip(widget, widget->rect().center());
    } else if (const auto *button = qobject_cast<QAbstractButton *>(widget)) {
        note(button->text());
        QString text = button->text();
        if (isHostile(text) && text.remove(u"&&"_s).contains(u'&'))
            complain(button, u"has a mnemonic: "_s + Legible(button->text()));
    } else if (const auto *edit = qobject_cast<QTextEdit *>(widget)) {
        note(edit->toPlainText());
    } else if (const auto *plain = qobject_cast<QPlainTextEdit *>(widget)) {
        note(plain->toPlainText());
    } else if (const auto *line = qobject_cast<QLineEdit *>(widget)) {
        note(line->text());
    } else if (const auto *bar = qobject_cast<QTabBar *>(widget)) {
        for (int i = 0; i < bar->count(); ++i)
            lookAtTip(bar->tabToolTip(i), bar);
    }
    if (const auto *view = qobject_cast<QAbstractItemView *>(widget))
        lookAtView(view);
    const auto *menu = qobject_cast<const QMenu *>(widget);
    if (menu)
        lookAtMenu(menu);
    const QList<QAction *> actions = widget->actions();
    for (const QAction *action : actions) {
        if (!menu || menu->toolTipsVisible())
            lookAtTip(action->toolTip(), widget);
        lookAtName(action->text(), u"entry"_s, widget);
    }
}

void WindowWatch::lookAtTip(const QString &tip, const QWidget *widget)
{
    note(tip);
    if (isHostile(tip) && holdsMarkup(tip))
        complain(widget, u"has markup in its tip: "_s + Legible(tip));
    if (tip.size() > longestTip)
        complain(widget, u"has a tip of "_s + QString::number(tip.size()) + u" characters"_s);
}

void WindowWatch::lookAtView(const QAbstractItemView *view)
{
    const QAbstractItemModel *model = view->model();
    if (!model)
        return;
    for (int row = 0; row < std::min(model->rowCount(), rowsLookedAt); ++row) {
        for (int column = 0; column < model->columnCount(); ++column) {
            const QModelIndex index = model->index(row, column);
            note(index.data().toString());
            note(index.data(Qt::AccessibleTextRole).toString());
            note(index.data(Qt::AccessibleDescriptionRole).toString());
            lookAtTip(index.data(Qt::ToolTipRole).toString(), view);
            if (isHostile(index.data().toString()))
                askForTip(view->viewport(), view->visualRect(index).center());
            if (view->visualRect(index).height() > mostRowPixels)
                complain(view, u"has a row of %1 pixels"_s.arg(view->visualRect(index).height()));
        }
    }
    for (int column = 0; column < model->columnCount(); ++column) {
        const QString tip = model->headerData(column, Qt::Horizontal, Qt::ToolTipRole).toString();
        lookAtTip(tip, view);
        note(model->headerData(column, Qt::Horizontal).toString());
    }
}

/// As a pointer does that rests there: many tips are made when they are wanted.
void WindowWatch::askForTip(QWidget *widget, const QPoint &where)
{
    QToolTip::hideText();
    QHelpEvent help(QEvent::ToolTip, where, widget->mapToGlobal(where));
    QCoreApplication::sendEvent(widget, &help);
    lookAtTip(QToolTip::text(), widget);
    QToolTip::hideText();
}

void WindowWatch::lookAtMenu(const QMenu *menu)
{
    if (menu->sizeHint().width() > smallestScreen.width())
        complain(menu, u"is %1 pixels wide"_s.arg(menu->sizeHint().width()));
}

void WindowWatch::note(const QString &text)
{
    seen = seen || isHostile(text);
}

void WindowWatch::complain(const QWidget *widget, const QString &what)
{
    const QString place = QString::fromLatin1(widget->metaObject()->className()) + u' '
                          + widget->objectName() + u" in "_s + widget->window()->objectName();
    const QString complaint = place + u": "_s + what;
    if (!complaints.contains(complaint))
        complaints.append(complaint);
}
