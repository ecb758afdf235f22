// What the main window asks for, and where it arrives.

#include "app/Startup.h"
#include "controls/SaveDialog.h"
#include "core/GlobalState.h"
#include "core/Options.h"
#include "namesearch/SearchDesk.h"
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
