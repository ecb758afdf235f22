// What holds for every window, for those who do not see it and those who have no mouse. The search
// form, which has many faces, has a test of its own; the main window has nothing to tab through.

#include "casedetails/frmArbPrompt.h"
#include "casedetails/frmCaseDetails.h"
#include "casedetails/frmCivilCaseDetails.h"
#include "casedetails/frmNCCaseDetails.h"
#include "casedetails/frmOnDemand.h"
#include "documents/frmAllDocuments.h"
#include "documents/frmDocTransfer.h"
#include "history/frmHistory.h"
#include "history/frmUsage.h"
#include "jobs/WaitingList.h"
#include "namesearch/frmDiscisNCNameResults.h"
#include "namesearch/frmDiscisNameResults.h"
#include "namesearch/frmNameSearchResults.h"
#include "prefs/frmAbout.h"
#include "prefs/frmCaseDetailsHelp.h"
#include "prefs/frmHelp.h"
#include "prefs/frmInfo.h"
#include "prefs/frmNameSearchResultsHelp.h"
#include "prefs/frmOpts.h"
#include "prefs/frmSearchHelp.h"
#include "reports/PreviewDoc.h"
#include "reports/dlgPrintMgr.h"
#include "searchentry/NumberListRun.h"
#include "searchentry/frmAccounting.h"
#include "searchentry/frmNumberList.h"
#include "searchentry/frmPasteList.h"
#include "session/frmConnect.h"
#include "session/frmConnectionStatus.h"
#include "session/frmElapsedTime.h"
#include "session/frmInactivity.h"
#include "session/frmLogin.h"
#include "session/frmMsg.h"
#include "session/frmWaiting.h"
#include "support/HalvaneTest.h"
#include "support/TestFolder.h"

#include <QAccessible>
#include <QApplication>
#include <QTest>
#include <QTimer>

#include <array>
#include <memory>

using namespace Qt::StringLiterals;

namespace {
template<typename Window>
QWidget *make()
{
    return new Window;
}

template<>
QWidget *make<frmNameSearchResults>()
{
    return new frmNameSearchResults(u"WA"_s, true);
}

template<>
QWidget *make<frmLogin>()
{
    frmLogin::ShowForm(nullptr);
    const QWidgetList windows = QApplication::topLevelWidgets();
    for (QWidget *window : windows) {
        if (auto *login = qobject_cast<frmLogin *>(window)) {
            // There is no server to be looked for.
            login->tmrUI->stop();
            return login;
        }
    }
    return nullptr;
}

template<>
QWidget *make<frmWaiting>()
{
    // It goes with the program.
    static WaitingList list;
    return new frmWaiting(&list);
}

template<>
QWidget *make<PreviewDoc>()
{
    auto *preview = new PreviewDoc(nullptr);
    Report report;
    constexpr int lines = 200;
    for (int i = 0; i < lines; ++i)
        report.Add(BlockKind::Text, {u"text"_s});
    preview->ShowReport(report);
    while (preview->tmrPrepare->isActive())
        QCoreApplication::processEvents();
    return preview;
}

template<>
QWidget *make<frmPasteList>()
{
    return new frmPasteList({CourtFamily::Superior, false, {u"King"_s}, u"King"_s},
                            u"05-2-02029-1\nno number"_s);
}

template<>
QWidget *make<frmNumberList>()
{
    frmNumberList::Follow(NumberListRun::Start({}, {}, {}, false));
    const QWidgetList windows = QApplication::topLevelWidgets();
    for (QWidget *window : windows) {
        if (qobject_cast<frmNumberList *>(window))
            return window;
    }
    return nullptr;
}

struct WindowRow
{
    const char *name;
    QWidget *(*make)();
};
constexpr std::array<WindowRow, 30> windows{{
    {"dlgPrintMgr", make<dlgPrintMgr>},
    {"frmAbout", make<frmAbout>},
    {"frmAccounting", make<frmAccounting>},
    {"frmAllDocuments", make<frmAllDocuments>},
    {"frmArbPrompt", make<frmArbPrompt>},
    {"frmCaseDetails", make<frmCaseDetails>},
    {"frmCaseDetailsHelp", make<frmCaseDetailsHelp>},
    {"frmCivilCaseDetails", make<frmCivilCaseDetails>},
    {"frmConnect", make<frmConnect>},
    {"frmConnectionStatus", make<frmConnectionStatus>},
    {"frmDiscisNCNameResults", make<frmDiscisNCNameResults>},
    {"frmDiscisNameResults", make<frmDiscisNameResults>},
    {"frmDocTransfer", make<frmDocTransfer>},
    {"frmElapsedTime", make<frmElapsedTime>},
    {"frmHelp", make<frmHelp>},
    {"frmHistory", make<frmHistory>},
    {"frmInactivity", make<frmInactivity>},
    {"frmInfo", make<frmInfo>},
    {"frmLogin", make<frmLogin>},
    {"frmMsg", make<frmMsg>},
    {"frmNCCaseDetails", make<frmNCCaseDetails>},
    {"frmNameSearchResults", make<frmNameSearchResults>},
    {"frmNameSearchResultsHelp", make<frmNameSearchResultsHelp>},
    {"frmNumberList", make<frmNumberList>},
    {"frmOpts", make<frmOpts>},
    {"frmPasteList", make<frmPasteList>},
    {"frmSearchHelp", make<frmSearchHelp>},
    {"frmUsage", make<frmUsage>},
    {"frmWaiting", make<frmWaiting>},
    {"PreviewDoc", make<PreviewDoc>},
}};

/// Whether the Tab key shall come to it.
bool isTabStop(const QWidget *widget)
{
    return widget->isVisible() && widget->isEnabled() && !widget->focusProxy()
           && (widget->focusPolicy() & Qt::TabFocus) == Qt::TabFocus;
}

QString nameOf(QWidget *widget)
{
    QAccessibleInterface *heard = QAccessible::queryAccessibleInterface(widget);
    return heard ? heard->text(QAccessible::Name) : QString();
}
} // namespace

class tst_EveryWindow : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup();

    void aScreenReaderHasANameForEveryControl_data() { addWindows(); }
    void aScreenReaderHasANameForEveryControl();
    void theTabKeyComesToEveryControl_data() { addWindows(); }
    void theTabKeyComesToEveryControl();
    void whoHasAReport_data() { addWindows(); }
    void whoHasAReport();

private:
    static void addWindows();

    std::unique_ptr<TestFolder> folder;
    std::unique_ptr<QWidget> window;
};

void tst_EveryWindow::addWindows()
{
    QTest::addColumn<int>("row");
    for (size_t i = 0; i < windows.size(); ++i)
        QTest::newRow(windows.at(i).name) << static_cast<int>(i);
}

void tst_EveryWindow::init()
{
    QFETCH(int, row);
    folder = std::make_unique<TestFolder>();
    window.reset(windows.at(static_cast<size_t>(row)).make());
    window->show();
    QVERIFY(QTest::qWaitForWindowActive(window.get()));
}

void tst_EveryWindow::cleanup()
{
    window.reset();
    folder.reset();
}

void tst_EveryWindow::aScreenReaderHasANameForEveryControl()
{
    QVERIFY(!window->windowTitle().isEmpty());
    QStringList nameless;
    const QList<QWidget *> widgets = window->findChildren<QWidget *>();
    for (QWidget *widget : widgets) {
        if (isTabStop(widget) && nameOf(widget).isEmpty())
            nameless.append(widget->objectName() + u' '
                            + QString::fromLatin1(widget->metaObject()->className()));
    }
    QCOMPARE(nameless, QStringList());
}

void tst_EveryWindow::theTabKeyComesToEveryControl()
{
    constexpr int mostSteps = 100;
    QStringList expected;
    const QList<QWidget *> widgets = window->findChildren<QWidget *>();
    for (const QWidget *widget : widgets) {
        if (isTabStop(widget))
            expected.append(widget->objectName());
    }
    // Where nobody has the keyboard yet, the first key goes to the first control.
    if (QApplication::focusWidget() == window.get())
        QTest::keyClick(window->windowHandle(), Qt::Key_Tab);
    QStringList visited;
    for (int step = 0; step < mostSteps && QApplication::focusWidget(); ++step) {
        const QString here = QApplication::focusWidget()->objectName();
        if (!visited.isEmpty() && here == visited.first())
            break;
        visited.append(here);
        QTest::keyClick(window->windowHandle(), Qt::Key_Tab);
    }
    expected.sort();
    visited.sort();
    QCOMPARE(visited, expected);
}

/// Save and Print of the main window are there for these, and for no other.
void tst_EveryWindow::whoHasAReport()
{
    const QStringList reporting{u"frmNameSearchResults"_s,
                                u"frmDiscisNameResults"_s,
                                u"frmDiscisNCNameResults"_s,
                                u"frmCaseDetails"_s,
                                u"frmCivilCaseDetails"_s,
                                u"frmNCCaseDetails"_s,
                                u"frmUsage"_s};
    const auto *form = qobject_cast<const FormWindow *>(window.get());
    QCOMPARE(form && form->HasReport(), reporting.contains(window->objectName()));
}

HALVANE_TEST(tst_EveryWindow)
#include "tst_EveryWindow.moc"
