#pragma once

#include "casedetails/CaseWindow.h"
#include "jobs/frmQueue.h"
#include "namesearch/SearchDesk.h"
#include "tables/ResultListView.h"

#include <QApplication>
#include <QPushButton>
#include <QTest>

// A user who opens cases from the rows of a results window.

/// The case windows on the screen, the oldest first.
inline QList<CaseWindow *> CaseWindowsInQueue()
{
    QList<CaseWindow *> windows;
    for (const QString &key : frmQueue::Form().FIFO.Lines()) {
        for (QWidget *widget : QApplication::topLevelWidgets()) {
            auto *window = qobject_cast<CaseWindow *>(widget);
            if (window && window->isVisible() && window->txtMasterKey == key)
                windows.append(window);
        }
    }
    return windows;
}

enum class Way { DoubleClick, Enter, Button };

inline void ChooseRow(const QWidget *window, int row, Way way = Way::DoubleClick)
{
    ResultListView *list = ListOf(window);
    const QPoint where = list->visualRect(list->List()->index(row, 1)).center();
    QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, where);
    switch (way) {
    case Way::DoubleClick:
        QTest::mouseDClick(list->viewport(), Qt::LeftButton, {}, where);
        break;
    case Way::Enter:
        QTest::keyClick(list, Qt::Key_Return);
        break;
    case Way::Button:
        QTest::mouseClick(ButtonOf(window, "cmdSearchResults_0"), Qt::LeftButton);
        break;
    }
}
Q_DECLARE_METATYPE(Way)

const QString isOpenTitle = u"Halvane - Case Is Open"_s;

/// The question about a case whose window has this caption.
inline QString IsOpenQuestion(const QString &caption)
{
    return u"This case is open already, in the window\n\n"_s + caption
           + u"\n\nOpening it again asks the court for all of it once more."_s;
}
