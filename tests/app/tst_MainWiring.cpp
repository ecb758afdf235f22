// What the main window asks for, and where it arrives.

#include "app/Startup.h"
#include "casedetails/frmCaseDetails.h"
#include "casedetails/frmCivilCaseDetails.h"
#include "casedetails/frmNCCaseDetails.h"
#include "controls/SaveDialog.h"
#include "core/GlobalState.h"
#include "core/Options.h"
#include "documents/frmAllDocuments.h"
#include "documents/frmDocTransfer.h"
#include "namesearch/SearchDesk.h"
#include "namesearch/frmDiscisNCNameResults.h"
#include "namesearch/frmDiscisNameResults.h"
#include "namesearch/frmNameSearchResults.h"
#include "reports/PreviewDoc.h"
#include "searchentry/frmSearchWA.h"
#include "session/SessionEvents.h"
#include "session/SessionState.h"
#include "session/frmElapsedTime.h"
#include "session/frmMain.h"
#include "support/HalvaneTest.h"

#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QDialog>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QScopeGuard>
#include <QTest>

#include <array>
#include <type_traits>

namespace {
/// A child that has a report, and writes down what becomes of it.
class ReportingChild : public FormWindow
{
public:
    ReportingChild() { setWindowTitle(u"A/B in King County"_s); }
    bool HasReport() const override { return true; }
    void PrintDirect() override { ++Prints; }
    void PrintToFile(const QString &path) override { SavedTo.append(path); }

    int Prints = 0;
    QStringList SavedTo;
};

template<typename Window>
FormWindow *make()
{
    if constexpr (std::is_same_v<Window, frmNameSearchResults>)
        return new frmNameSearchResults(u"WA"_s);
    else
        return new Window;
}

/// The children of the main window that are not the search form.
struct ChildRow
{
    const char *name;
    FormWindow *(*make)();
    bool hasReport;
};
constexpr std::array<ChildRow, 8> childRows{{
    {"frmNameSearchResults", make<frmNameSearchResults>, true},
    {"frmDiscisNameResults", make<frmDiscisNameResults>, true},
    {"frmDiscisNCNameResults", make<frmDiscisNCNameResults>, true},
    {"frmCaseDetails", make<frmCaseDetails>, true},
    {"frmCivilCaseDetails", make<frmCivilCaseDetails>, true},
    {"frmNCCaseDetails", make<frmNCCaseDetails>, true},
    {"frmDocTransfer", make<frmDocTransfer>, false},
    {"frmAllDocuments", make<frmAllDocuments>, false},
}};
} // namespace

class tst_MainWiring : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanup();

    void theSessionReportOpens();
    void thePaperIsAskedFor();
    void theActiveChildIsPrintedAndSaved_data();
    void theActiveChildIsPrintedAndSaved();
    void theSearchFormHasNoReport();
    void eachChildHasItsCommands_data();
    void eachChildHasItsCommands();
    void theOptionsReachTheSearchForm();
    void recentEntriesComeWithTheNextForm();

private:
    void offline();

    std::unique_ptr<SearchDesk> desk;
};

void tst_MainWiring::initTestCase()
{
    WireWindows();
}

void tst_MainWiring::init()
{
    desk = std::make_unique<SearchDesk>();
}

void tst_MainWiring::cleanup()
{
    QCOMPARE(EndDialogue(desk), QString());
}

void tst_MainWiring::offline()
{
    desk->Boxes.ExpectDialog(u"frmConnect"_s, [](QDialog *dialog) {
        QTest::mouseClick(ButtonOf(dialog, "cmdCancel"), Qt::LeftButton);
    });
    Main(false);
}

void tst_MainWiring::theSessionReportOpens()
{
    offline();
    Session.strUserName = u"paralegal"_s;
    Session.strSessionTime = u"Lost Connection"_s;
    frmElapsedTime window(frmMain::Form());
    window.show();
    Click(&window, "cmdPrint");
    auto *preview = Shown<PreviewDoc>(u"PreviewDoc"_s);
    QVERIFY(preview);
    ReplaceSaveDialog([this](const QString &) { return desk->Folder.Path(u"session.pdf"_s); });
    Click(preview, "cmdSavePdf");
    ReplaceSaveDialog({});
    QVERIFY(desk->Folder.Read(u"session.pdf"_s).startsWith("%PDF-"));
    Click(&window, "Command1");
    QVERIFY(!preview->isVisible());
}

void tst_MainWiring::thePaperIsAskedFor()
{
    offline();
    bool shown = false;
    desk->Boxes.ExpectDialog(u"PageSetup"_s, [&shown](QDialog *dialog) {
        shown = dialog->windowTitle() == u"Page Setup";
        dialog->reject();
    });
    Choose(frmMain::Form(), "mnuFilePageSetup");
    QVERIFY(shown);
}

void tst_MainWiring::theActiveChildIsPrintedAndSaved_data()
{
    QTest::addColumn<QByteArray>("print");
    QTest::addColumn<QByteArray>("save");
    QTest::newRow("menu") << QByteArray("mnuFilePrint") << QByteArray("mnuFileSave");
    QTest::newRow("tool bar") << QByteArray("tbToolBar_Print") << QByteArray("tbToolBar_Save");
}

void tst_MainWiring::theActiveChildIsPrintedAndSaved()
{
    QFETCH(QByteArray, print);
    QFETCH(QByteArray, save);
    offline();
    Global.strReportFolder = desk->Folder.Path(u"Reports"_s);
    auto *other = new ReportingChild;
    auto *child = new ReportingChild;
    frmMain::Form()->ShowChild(other);
    frmMain::Form()->ShowChild(child);
    QStringList suggested;
    QString answer;
    const auto standard = qScopeGuard([] { ReplaceSaveDialog({}); });
    ReplaceSaveDialog([&](const QString &offered) {
        suggested.append(offered);
        return answer;
    });
    Choose(frmMain::Form(), print.constData());
    QCOMPARE(child->Prints, 1);
    Choose(frmMain::Form(), save.constData());
    QCOMPARE(child->SavedTo, QStringList());
    answer = desk->Folder.Path(u"mine.txt"_s);
    Choose(frmMain::Form(), save.constData());
    QCOMPARE(child->SavedTo, QStringList(answer));
    QCOMPARE(suggested, QStringList(2, desk->Folder.Path(u"Reports/A-B in King County.Txt"_s)));
    QCOMPARE(other->Prints, 0);
    QCOMPARE(other->SavedTo, QStringList());
}

void tst_MainWiring::theSearchFormHasNoReport()
{
    offline();
    frmSearchWA::ShowForm();
    QCOMPARE(frmMain::Form()->ActiveChild(), &frmSearchWA::Form());
    int asked = 0;
    const auto standard = qScopeGuard([] { ReplaceSaveDialog({}); });
    ReplaceSaveDialog([&asked](const QString &) {
        ++asked;
        return QString();
    });
    for (const char *entry : {"mnuFileSave", "mnuFilePrint", "tbToolBar_Save", "tbToolBar_Print"}) {
        QVERIFY(!Child<QAction>(frmMain::Form(), entry)->isEnabled());
        Choose(frmMain::Form(), entry);
    }
    QCOMPARE(asked, 0);
    // They are there for a child that has one, and go with it.
    auto *child = new ReportingChild;
    frmMain::Form()->ShowChild(child);
    QVERIFY(Child<QAction>(frmMain::Form(), "mnuFileSave")->isEnabled());
    QVERIFY(child->Unload());
    QVERIFY(!Child<QAction>(frmMain::Form(), "mnuFileSave")->isEnabled());
}

void tst_MainWiring::eachChildHasItsCommands_data()
{
    QTest::addColumn<int>("row");
    QTest::addColumn<bool>("loggedIn");
    QTest::addColumn<bool>("searching");
    for (size_t i = 0; i < childRows.size(); ++i) {
        const int row = static_cast<int>(i);
        QTest::addRow("%s, not logged in", childRows.at(i).name) << row << false << false;
        QTest::addRow("%s, logged in", childRows.at(i).name) << row << true << false;
        QTest::addRow("%s, searching", childRows.at(i).name) << row << true << true;
    }
}

void tst_MainWiring::eachChildHasItsCommands()
{
    QFETCH(int, row);
    QFETCH(bool, loggedIn);
    QFETCH(bool, searching);
    offline();
    frmMain *main = frmMain::Form();
    Global.bShowAlerts = false;
    Global.bLoggedIn = loggedIn;
    Global.bSearchInProgress = searching;
    main->ShowChildAgain(&frmSearchWA::Form());
    const ChildRow &expected = childRows.at(static_cast<size_t>(row));
    FormWindow *child = expected.make();
    main->ShowChild(child);
    QCOMPARE(main->ActiveChild(), child);
    for (const char *name : {"mnuFileSave", "mnuFilePrint", "tbToolBar_Save", "tbToolBar_Print"})
        QCOMPARE(Child<QAction>(main, name)->isEnabled(), expected.hasReport);
    for (const char *name : {"tbToolBar_Back", "mnuWindowCascade", "mnuViewOptions"})
        QVERIFY2(Child<QAction>(main, name)->isEnabled(), name);
    Global.bSearchInProgress = false;
    // The search form comes up again, and has no report.
    QVERIFY(child->Unload());
    QVERIFY(!Child<QAction>(main, "mnuFilePrint")->isEnabled());
    QVERIFY(!Child<QAction>(main, "tbToolBar_Back")->isEnabled());
    Global.bLoggedIn = false;
}

/// What the options change shows on the search form at once.
void tst_MainWiring::theOptionsReachTheSearchForm()
{
    offline();
    frmSearchWA::ShowForm();
    const QPushButton *code = ButtonOf(&frmSearchWA::Form(), "cmdEditAcctID");
    for (const bool wanted : {true, false}) {
        desk->Boxes.ExpectDialog(u"frmOpts"_s, [wanted](QDialog *dialog) {
            dialog->findChild<QCheckBox *>(u"chkEnableAcctg"_s)->setChecked(wanted);
            Click(dialog, "cmdOK");
        });
        Choose(frmMain::Form(), "mnuViewOptions");
        QCOMPARE(code->isEnabled(), wanted);
    }
    // An account that must give a code keeps the button.
    Global.bClientAcctgOpt = true;
    desk->Boxes.ExpectDialog(u"frmOpts"_s, [](QDialog *dialog) { Click(dialog, "cmdOK"); });
    Choose(frmMain::Form(), "mnuViewOptions");
    QVERIFY(code->isEnabled());
}

/// The form keeps what it offers until it is loaded anew.
void tst_MainWiring::recentEntriesComeWithTheNextForm()
{
    offline();
    SaveOptionStr(u"Searching"_s, u"EnableMRU"_s, u"0"_s);
    LoadAppOptions();
    frmSearchWA::Form().Unload();
    frmSearchWA::ShowForm();
    const auto offered = [] {
        return Child<QLabel>(&frmSearchWA::Form(), "lblMruList")->isVisible();
    };
    QVERIFY(!offered());
    desk->Boxes.ExpectDialog(u"frmOpts"_s, [](QDialog *dialog) {
        dialog->findChild<QCheckBox *>(u"chkEnableMRU"_s)->setChecked(true);
        Child<QRadioButton>(dialog, "optDefaultState_0")->click();
        Click(dialog, "cmdOK");
    });
    Choose(frmMain::Form(), "mnuViewOptions");
    QVERIFY(!offered());
    QVERIFY(Child<QRadioButton>(&frmSearchWA::Form(), "optState_1")->isChecked());
    frmSearchWA::Form().Unload();
    frmSearchWA::ShowForm();
    QVERIFY(offered());
    QVERIFY(Child<QRadioButton>(&frmSearchWA::Form(), "optState_0")->isChecked());
}

HALVANE_TEST(tst_MainWiring)
#include "tst_MainWiring.moc"
