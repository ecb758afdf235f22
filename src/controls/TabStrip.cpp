#include "controls/TabStrip.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QScopedValueRollback>

#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

namespace {
QString doubled(QString text)
{
    return text.replace(u'&', u"&&"_s);
}

/// The caption in the writing of a tab's text, where "&" marks a mnemonic and "&&" is one "&".
QString tabTextOf(const QString &caption)
{
    const bool hasMnemonic = caption.size() > 1 && caption.startsWith(u'&');
    return hasMnemonic ? QString(u'&' + doubled(caption.mid(1))) : doubled(caption);
}
} // namespace

TabStrip::TabStrip(QWidget *parent) : QTabBar(parent)
{
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

void TabStrip::RemoveAllButFirst()
{
    SetCaptions(Captions().mid(0, 1));
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

void TabStrip::mousePressEvent(QMouseEvent *event)
{
    const int tab = tabAt(event->position().toPoint());
    pressedAgain = event->button() == Qt::LeftButton && tab == currentIndex() ? tab : -1;
    QTabBar::mousePressEvent(event);
}

void TabStrip::mouseReleaseEvent(QMouseEvent *event)
{
    QTabBar::mouseReleaseEvent(event);
    const int tab = std::exchange(pressedAgain, -1);
    if (tab >= 0 && tab == currentIndex() && tab == tabAt(event->position().toPoint()))
        Q_EMIT TabClicked(SelectedCaption());
}

void TabStrip::keyPressEvent(QKeyEvent *event)
{
    const int key = event->key();
    const bool chooses = key == Qt::Key_Space || key == Qt::Key_Return || key == Qt::Key_Enter;
    if (!chooses || event->modifiers() & ~Qt::KeypadModifier || currentIndex() < 0) {
        QTabBar::keyPressEvent(event);
        return;
    }
    // A key that is held chooses once.
    if (!event->isAutoRepeat())
        Q_EMIT TabClicked(SelectedCaption());
}
