#pragma once

#include "casedetails/SummaryDesk.h"
#include "core/GlobalState.h"
#include "core/Platform.h"
#include "documents/DocumentLines.h"
#include "documents/frmDocTransfer.h"
#include "jobs/frmQueue.h"
#include "tables/FlexGrid.h"
#include "tables/RowFilter.h"
#include "tables/TableTools.h"

#include <QApplication>
#include <QCheckBox>
#include <QMenu>
#include <QPointer>
#include <QPushButton>

/// A test of the list of documents in a case window, and of the transfers that it starts. What the
/// shell is asked to open is noted.
class DocumentsTest : public SummaryTest
{
    Q_OBJECT
protected Q_SLOTS:
    void init() override
    {
        SummaryTest::init();
        opened.clear();
        ReplaceShell([this](const QString &path) {
            opened.append(path);
            return true;
        });
    }
    void cleanup()
    {
        ReplaceShell({});
        SummaryTest::cleanup();
    }

protected:
    static QString documentsLine() { return u"WASUPDOC¦GETDOCTAB¦King¦02-1-00123-4¦"_s; }
    static QStringList definition()
    {
        return {u"TABNAME~Documents~"_s, u"TABDEF~Documents~"_s,
                u"COLDEF~Sub No~10~Date~20~Pages~10~Description~60~"_s, u"COLALIGNMENT~L~L~L~L~"_s};
    }
    /// What is asked for by the row of a document.
    static QString requestOf(int place, const QString &description)
    {
        return u"WASUPDOC¦GETDOC¦King¦02-1-00123-4¦%1¦~%1~01/02/2003~5~%2~"_s.arg(place).arg(
            description);
    }
    static QString rowOf(int place, const QString &description)
    {
        return u"RETRIEVEDOC="_s + requestOf(place, description);
    }
    /// Three documents, of which the second cannot be had.
    static QStringList threeDocuments()
    {
        return {rowOf(1, u"Complaint"_s), u"2~01/02/2003~7~Sealed~"_s, rowOf(3, u"Answer"_s)};
    }

    /// A case whose first run asks for its documents, its run not begun.
    frmCaseDetails *pending()
    {
        FetchAtOnce(u"CaseSearchTabs"_s, {u"Documents"_s});
        court->Expect(SuperiorLine(u"SUMMARY"_s)).Reply(superiorReply());
        return Superior();
    }
    /// A case whose list of documents has these rows, in sight.
    frmCaseDetails *listing(const QStringList &rows = threeDocuments())
    {
        frmCaseDetails *window = pending();
        court->Expect(documentsLine()).Reply(definition() + rows + QStringList{u"EOF~"_s});
        Run(window);
        ClickTab(window, u"Documents"_s);
        return window;
    }

    static FlexGrid *gridOf(const CaseWindow *window)
    {
        return window->Tab(CaseTab::Documents).Grid;
    }
    static void doubleClick(const CaseWindow *window, int row)
    {
        FlexGrid *grid = gridOf(window);
        const QModelIndex cell = grid->model()->index(row - 1, 3);
        QTest::mouseDClick(grid->viewport(), Qt::LeftButton, {}, grid->visualRect(cell).center());
    }
    static QAction *actionOf(const CaseWindow *window, const QString &name)
    {
        return gridOf(window)->Tools()->Menu()->findChild<QAction *>(name);
    }

    /// The transfers that are open, the one that was started first ahead.
    static QList<frmDocTransfer *> transfers()
    {
        QList<frmDocTransfer *> found;
        const QWidgetList windows = QApplication::topLevelWidgets();
        for (QWidget *window : windows) {
            if (auto *one = qobject_cast<frmDocTransfer *>(window); one && !one->IsUnloaded())
                found.append(one);
        }
        const QStringList keys = frmQueue::Form().FIFO.Lines();
        std::sort(found.begin(), found.end(), [&keys](const auto *one, const auto *other) {
            return keys.indexOf(one->txtMasterKey) < keys.indexOf(other->txtMasterKey);
        });
        return found;
    }
    /// Ticks this tab alone on the panel and presses SEARCH NOW; the run waits for its turn.
    static void searchNow(CaseWindow *window, int box)
    {
        ButtonOf(window, "cmdClearAll")->click();
        window->findChild<QCheckBox *>(u"chkTab_%1"_s.arg(box))->click();
        window->TmrSearchOnDemand->setInterval(1);
        ButtonOf(window, "cmdSearchNow")->click();
    }
    static void letGo(JobWindow *transfer) { transfer->Timer1->start(1); }
    static bool finished(const QPointer<frmDocTransfer> &transfer)
    {
        return LinkDesk::WaitUntil([&transfer] {
            return !Global.bSearchInProgress && (!transfer || transfer->IsUnloaded());
        });
    }

    QStringList opened;
};
