#include "support/WindowDesk.h"

#include "core/TextUtilities.h"
#include "jobs/JobWindow.h"
#include "jobs/TurnTaking.h"

#include <QApplication>
#include <QPointer>

using namespace Qt::StringLiterals;

WindowDesk::~WindowDesk()
{
    closeWindows();
}

void WindowDesk::Enqueue(JobWindow *window)
{
    window->Timer1->stop();
    window->txtMasterKey = MakeMasterKey();
    EnqueueKey(window->txtMasterKey);
    window->show();
}

QString WindowDesk::Complaints() const
{
    QStringList all{LinkDesk::Complaints(), Boxes.Complaints()};
    all.removeAll(QString());
    return all.join(u"; "_s);
}

void WindowDesk::closeWindows()
{
    QList<QPointer<QWidget>> windows;
    const QWidgetList all = QApplication::topLevelWidgets();
    for (QWidget *one : all)
        windows.append(one);
    // A window takes those that belong to it along.
    for (const QPointer<QWidget> &one : windows) {
        if (one && one->objectName().startsWith(u"frm"))
            delete one;
    }
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}
