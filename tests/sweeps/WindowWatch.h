#pragma once

#include <QStringList>

class QAbstractItemView;
class QMenu;
class QPoint;
class QWidget;

/// Looks at everything that can be seen or heard of the program, for what a text from outside must
/// not do there: be taken for markup, go beyond the screen, or put itself into a caption as more
/// than one line.
class WindowWatch
{
public:
    /// Looks at all windows as they are now, and paints each.
    void Look();

    /// What was otherwise than it has to be, each once.
    QStringList Complaints() const { return complaints; }
    /// Whether the text has come to light at all.
    bool HasSeen() const { return seen; }

private:
    void lookAtWindow(QWidget *window);
    void lookAtWidget(QWidget *widget);
    void lookAtTip(const QString &tip, const QWidget *widget);
    void askForTip(QWidget *widget, const QPoint &where);
    void lookAtView(const QAbstractItemView *view);
    void lookAtMenu(const QMenu *menu);
    void lookAtName(const QString &name, const QString &what, const QWidget *widget);
    void note(const QString &text);
    void complain(const QWidget *widget, const QString &what);

    QStringList complaints;
    bool seen = false;
};

/// The text with what would be invisible in a message written out, at most 120 characters.
QString Legible(const QString &text);
