#include "controls/TabStrip.h"

#include "controls/FormWindow.h"

#include <QKeyEvent>
#include <QScopedValueRollback>
#include <QShortcut>
#include <QStyle>
#include <QWheelEvent>

#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

namespace {
constexpr int tabsWithDigit = 9;

QString doubled(QString text)
{
    return text.replace(u'&', u"&&"_s);
}

/// The caption as it is written for a tab, where "&" marks a mnemonic and "&&" is one "&".
QString tabTextOf(const QString &caption)
{
    const bool hasMnemonic = caption.size() > 1 && caption.startsWith(u'&');
    return hasMnemonic ? QString(u'&' + doubled(caption.mid(1))) : doubled(caption);
}
} // namespace

TabStrip::TabStrip(QWidget *parent) : QTabBar(parent)
{
    setExpanding(false);
    setElideMode(Qt::ElideNone);
    setUsesScrollButtons(true);
    // Whatever selects a tab is the user, be it a mnemonic or a screen reader, unless it is known
    // to be the program.
    connect(this, &QTabBar::currentChanged, this, [this](int index) {
        if (!quiet && index >= 0)
            Q_EMIT TabClicked(SelectedCaption());
    });
}

void TabStrip::SetCaptions(const QStringList &captions)
{
    const QScopedValueRollback program(quiet, true);
    const QString selected = SelectedCaption();
    while (count() > captions.size())
        removeTab(count() - 1);
    for (int i = 0; i < captions.size(); ++i) {
        if (i == count())
            addTab(QString());
        setTabText(i, tabTextOf(captions[i]));
        setTabData(i, captions[i]);
    }
    setCurrentIndex(std::max(0, static_cast<int>(captions.indexOf(selected))));
}

QStringList TabStrip::Captions() const
{
    QStringList captions;
    for (int i = 0; i < count(); ++i)
        captions.append(tabData(i).toString());
    return captions;
}

void TabStrip::SelectCaption(const QString &caption)
{
    const QString word = (caption.startsWith(u'&') ? caption.mid(1) : caption).toUpper();
    if (word.isEmpty())
        return;
    const QScopedValueRollback program(quiet, true);
    for (int i = 0; i < count(); ++i) {
        if (tabData(i).toString().toUpper().endsWith(word)) {
            setCurrentIndex(i);
            return;
        }
    }
}

QString TabStrip::SelectedCaption() const
{
    return tabData(currentIndex()).toString();
}

void TabStrip::showEvent(QShowEvent *event)
{
    QTabBar::showEvent(event);
    // Not before: only now it is surely known what window this is.
    listenForKeys();
}

void TabStrip::listenForKeys()
{
    QWidget *window = FormWindow::Around(this);
    if (window == listeningIn)
        return;
    shortcuts.clear();
    listeningIn = window;
    const auto listen = [this, window](const QKeySequence &keys, const auto &action) {
        auto *shortcut = new QShortcut(keys, window);
        shortcut->setContext(Qt::WidgetWithChildrenShortcut);
        connect(shortcut, &QShortcut::activated, this, action);
        shortcuts.add(shortcut);
    };
    listen(Qt::CTRL | Qt::Key_Tab, [this] { step(1); });
    listen(Qt::CTRL | Qt::SHIFT | Qt::Key_Tab, [this] { step(-1); });
    for (int digit = 1; digit <= tabsWithDigit; ++digit)
        listen(QKeySequence(u"Ctrl+"_s + QString::number(digit)),
               [this, digit] { choose(digit - 1); });
}

/// Behind the last tab comes the first.
void TabStrip::step(int by)
{
    if (count() > 1)
        choose((currentIndex() + by + count()) % count());
}

/// As a click on the tab does.
void TabStrip::choose(int index)
{
    if (index >= count())
        return;
    {
        const QScopedValueRollback later(quiet, true);
        setCurrentIndex(index);
    }
    tellClickOn(index);
}

void TabStrip::tellClickOn(int index)
{
    if (index >= 0 && index == currentIndex())
        Q_EMIT TabClicked(SelectedCaption());
}

void TabStrip::keyPressEvent(QKeyEvent *event)
{
    switch (event->key()) {
    case Qt::Key_Home:
        choose(0);
        break;
    case Qt::Key_End:
        choose(count() - 1);
        break;
    case Qt::Key_Space:
    case Qt::Key_Return:
    case Qt::Key_Enter:
        choose(currentIndex());
        break;
    default: {
        const int before = currentIndex();
        {
            const QScopedValueRollback later(quiet, true);
            QTabBar::keyPressEvent(event);
        }
        if (currentIndex() != before)
            tellClickOn(currentIndex());
        return;
    }
    }
    event->accept();
}

/// The click is reported when the tab bar has done its part: who hears of it may open a box, or
/// close the window.
void TabStrip::mousePressEvent(QMouseEvent *event)
{
    {
        const QScopedValueRollback later(quiet, true);
        QTabBar::mousePressEvent(event);
    }
    pressed = event->button() == Qt::LeftButton ? tabAt(event->position().toPoint()) : -1;
    if (style()->styleHint(QStyle::SH_TabBar_SelectMouseType, nullptr, this)
        == QEvent::MouseButtonPress)
        tellClickOn(std::exchange(pressed, -1));
}

void TabStrip::mouseReleaseEvent(QMouseEvent *event)
{
    {
        const QScopedValueRollback later(quiet, true);
        QTabBar::mouseReleaseEvent(event);
    }
    const int released = tabAt(event->position().toPoint());
    if (std::exchange(pressed, -1) == released)
        tellClickOn(released);
}

/// A turn of the wheel over the strip would go through tabs that nobody asked for, and each may ask
/// a question.
void TabStrip::wheelEvent(QWheelEvent *event)
{
    event->ignore();
}
