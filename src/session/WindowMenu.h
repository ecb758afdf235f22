#pragma once

#include <QAction>
#include <QList>
#include <QMenu>
#include <QObject>

class FormWindow;
class QMdiArea;
class QMdiSubWindow;

/// The menu of the main window's children: arranges them, goes from one to the next, closes them,
/// and lists them by their captions.
class WindowMenu : public QObject
{
    Q_OBJECT
public:
    /// The menu and its entries, as the main window has them.
    struct Entries
    {
        QMenu *Menu;
        QAction *Cascade;
        QAction *Tile;
        QAction *Next;
        QAction *Previous;
        QAction *Close;
        QAction *CloseAll;
    };
    WindowMenu(const Entries &ofMenu, QMdiArea *children);

    /// A child has come in this frame.
    static void Adopt(QMdiSubWindow *frame);
    /// The entries are there exactly when they can do something.
    void OfferCommands();

private:
    QList<QMdiSubWindow *> shown() const;
    QMdiSubWindow *active() const;
    void offerKeys(const FormWindow *child);
    void step(int by);
    void close();
    void closeAll();
    void listChildren();

    const Entries entries;
    QMdiArea *const area;
    QList<QAction *> listed; ///< the entries of the children, and the line above them
};
