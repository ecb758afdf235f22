// What the user finds in every case window, whatever the court has sent: the window keeps its size,
// and the keys of tabs and tables are heard wherever the keyboard is.

#include "casedetails/OnDemandDesk.h"
#include "casedetails/frmCaseDetails.h"
#include "casedetails/frmNCCaseDetails.h"
#include "controls/TabStrip.h"
#include "controls/WrappedLabel.h"
#include "controls/WrappedText.h"
#include "core/GlobalState.h"
#include "support/HalvaneTest.h"
#include "tables/FlexGrid.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>

namespace {
const QString endMark = u"EOF~"_s;
/// In pixels: what the labels and buttons of any case need beside each other.
constexpr int leastWidth = 470;
/// Two notes above the rows take their room; every screen has so much.
constexpr int lowestWithNotes = 320;

/// Texts that no court should send.
struct OddText
{
    const char *name;
    QString text;
};
QList<OddText> oddTexts()
{
    return {{"a word without an end", u"x"_s.repeated(3000)},
            {"very many words", u"SMITH AND SONS "_s.repeated(300)},
            {"line breaks", u"SMITH\r\nAND\nSONS\r"_s.repeated(100)},
            {"markup", u"<table width=9000><tr><td>&amp;<img src=x></td></tr>"_s.repeated(20)},
            {"control characters", u"\t\a\b\u00AD\u0001\u001B[31m"_s.repeated(200)}};
}

/// A Summary of which every header field is this.
QStringList summaryOf(CaseWindowKind kind, const QString &text)
{
    QStringList lines;
    const int headers = kind == CaseWindowKind::Superior ? 4 : 6;
    for (int i = 0; i < headers; ++i)
        lines.append(u"Item~"_s + text + u'~');
    return lines + QStringList{u"Status~"_s + text + u'~', endMark};
}
} // namespace

class tst_CaseLook : public OnDemandTest
{
    Q_OBJECT
private Q_SLOTS:
    void anyHeaderLeavesTheWindowItsSize_data();
    void anyHeaderLeavesTheWindowItsSize();
    void anyNoteLeavesTheWindowItsSize();
    void anyCaseNumberLeavesTheWindowItsSize_data();
    void anyCaseNumberLeavesTheWindowItsSize();
    void theKeysOfEveryTab_data();
    void theKeysOfEveryTab();
    void findIsHeardInTheWholeWindow_data();
    void findIsHeardInTheWholeWindow();
    void everyGridCanBeCopied_data();
    void everyGridCanBeCopied();

private:
    static void windowsAndTexts();
    /// Empty when the window can be used: it has this size, may be made small, down to this height
    /// at least, and its buttons are in it.
    static QString lookOf(CaseWindow *window, QSize size, int lowest);
    /// A case all of whose tabs have come, with a row in each.
    CaseWindow *withEveryTab(CaseWindowKind kind);
};

void tst_CaseLook::windowsAndTexts()
{
    QTest::addColumn<CaseWindowKind>("kind");
    QTest::addColumn<QString>("text");
    for (size_t i = 0; i < caseWindowNames.size(); ++i) {
        for (const OddText &odd : oddTexts())
            QTest::addRow("%s, %s", caseWindowNames.at(i), odd.name)
                << static_cast<CaseWindowKind>(i) << odd.text;
    }
}

QString tst_CaseLook::lookOf(CaseWindow *window, QSize size, int lowest)
{
    QCoreApplication::processEvents();
    QStringList seen;
    if (window->size() != size)
        seen.append(u"%1 x %2"_s.arg(window->width()).arg(window->height()));
    const QSize least = window->minimumSizeHint();
    if (least.width() > leastWidth || least.height() > lowest)
        seen.append(u"at least %1 x %2"_s.arg(least.width()).arg(least.height()));
    for (const char *name : {"cmdCloseDetails", "cmdStopSearching", "cmdPrintDetails",
                             "chkPrintGridLines", "lblHelp"}) {
        const auto *control = Child<QWidget>(window, name);
        const QRect place(control->mapTo(window, QPoint()), control->size());
        if (!control->isVisible() || !window->rect().contains(place))
            seen.append(QLatin1StringView(name));
    }
    return seen.join(u", "_s);
}

void tst_CaseLook::anyHeaderLeavesTheWindowItsSize_data()
{
    windowsAndTexts();
}

void tst_CaseLook::anyHeaderLeavesTheWindowItsSize()
{
    QFETCH(CaseWindowKind, kind);
    QFETCH(QString, text);
    CaseWindow *window = MakeCase(kind);
    QCoreApplication::processEvents();
    const QSize size = window->size();
    const int lowest = window->minimumSizeHint().height();
    FetchAtOnce(u"CaseSearchTabs"_s, {});
    FetchAtOnce(u"CivilCaseTabs"_s, {});
    FetchAtOnce(u"NonCivilCaseTabs"_s, {});
    court->Expect(LineOf(kind, CaseTab::Summary)).Reply(summaryOf(kind, text));
    Run(window);
    QCOMPARE(TextOf(window, "lblStatus"), u"Search Complete"_s);
    QVERIFY(TextOf(window, "lblDateFiled").size() > 100);
    QCOMPARE(lookOf(window, size, lowest), QString());
    window->resize(1, 1);
    QCOMPARE(lookOf(window, window->size(), lowest), QString());
}

void tst_CaseLook::anyNoteLeavesTheWindowItsSize()
{
    const QString text = oddTexts().first().text;
    const DistrictTab &violations = DistrictOf(CaseKind::NonCivil).tabs[2];
    CaseWindow *window = AfterTab(CaseKind::NonCivil, violations,
                                  {u"NCVIONOTE~"_s + text + u'~', u"NCVIONOTE~"_s + text + u'~',
                                   u"GRIDDEF~A~100~"_s, u"1~"_s, endMark});
    const QSize size = window->size();
    ClickTab(window, u"Violations"_s);
    QVERIFY(IsSeen(window, "lblNCVIONote2"));
    QCOMPARE(TextOf(window, "lblNCVIONote2"), text);
    QCOMPARE(lookOf(window, size, lowestWithNotes), QString());
    // Both notes leave the rows their place.
    QVERIFY(window->Tab(CaseTab::Violations).Grid->height() > size.height() / 4);
}

void tst_CaseLook::anyCaseNumberLeavesTheWindowItsSize_data()
{
    windowsAndTexts();
}

void tst_CaseLook::anyCaseNumberLeavesTheWindowItsSize()
{
    QFETCH(CaseWindowKind, kind);
    QFETCH(QString, text);
    CaseWindow *window = MakeCase(kind);
    QCoreApplication::processEvents();
    const QSize size = window->size();
    const int lowest = window->minimumSizeHint().height();
    // As a row of a list of results may have it; another job has the link.
    window->txtCaseNumber = text;
    window->SetCaseDetailsHdr(u"Case Details ("_s + text + u')');
    Global.bSearchInProgress = true;
    Begin(window);
    QTRY_COMPARE(window->tmrBlink->interval(), 900);
    Global.bSearchInProgress = false;
    window->Timer1->stop();
    QCOMPARE(window->windowTitle(), TitleText(u"Case Details ("_s + text + u')'));
    QCOMPARE(lookOf(window, size, lowest), QString());
}

CaseWindow *tst_CaseLook::withEveryTab(CaseWindowKind kind)
{
    QStringList captions;
    for (const CaseTab tab : TabsOf(kind))
        captions.append(CaptionOf(tab));
    CaseWindow *window = AfterFirstRun(kind, captions);
    window->activateWindow();
    return window;
}

void tst_CaseLook::theKeysOfEveryTab_data()
{
    EachCaseWindow();
}

void tst_CaseLook::theKeysOfEveryTab()
{
    QFETCH(CaseWindowKind, kind);
    CaseWindow *window = withEveryTab(kind);
    QVERIFY(QTest::qWaitForWindowActive(window));
    const QStringList captions = CaptionsOf(window);
    const auto *strip = window->findChild<TabStrip *>(u"TabStrip1"_s);
    const auto press = [window](int key, Qt::KeyboardModifiers keys) {
        QTest::keyClick(window->focusWidget(), static_cast<Qt::Key>(key), keys);
    };
    // From wherever the keyboard is.
    for (const char *name : {"cmdCloseDetails", "lblHelp"}) {
        ButtonOf(window, name)->setFocus();
        for (qsizetype i = captions.size() - 1; i >= 0; --i) {
            press(Qt::Key_1 + static_cast<int>(i), Qt::ControlModifier);
            QCOMPARE(strip->SelectedCaption(), captions[i]);
            const CaseTab tab = *CaseTabOf(captions[i]);
            QCOMPARE(ShownFrame(window), FrameOf(tab));
        }
        for (qsizetype i = 1; i <= captions.size(); ++i) {
            press(Qt::Key_Tab, Qt::ControlModifier);
            QCOMPARE(strip->SelectedCaption(), captions[i % captions.size()]);
        }
    }
}

void tst_CaseLook::findIsHeardInTheWholeWindow_data()
{
    EachCaseWindow();
}

void tst_CaseLook::findIsHeardInTheWholeWindow()
{
    QFETCH(CaseWindowKind, kind);
    CaseWindow *window = withEveryTab(kind);
    QVERIFY(QTest::qWaitForWindowActive(window));
    auto *strip = window->findChild<TabStrip *>(u"TabStrip1"_s);
    QList<CaseTab> tabs{CaseTab::Summary};
    tabs += TabsOf(kind);
    for (QWidget *from : QList<QWidget *>{strip, ButtonOf(window, "cmdCloseDetails")}) {
        for (const CaseTab tab : tabs) {
            ClickTab(window, CaptionOf(tab));
            from->setFocus();
            QTest::keySequence(from, QKeySequence::Find);
            const QWidget *frame = window->findChild<QWidget *>(FrameOf(tab));
            auto *words = qobject_cast<QLineEdit *>(window->focusWidget());
            QVERIFY2(words && frame->isAncestorOf(words), qPrintable(CaptionOf(tab)));
            // It sifts the rows of the tab that is in sight.
            const FlexGrid *grid = window->Tab(tab).Grid;
            QTest::keyClicks(words, u"no row has this"_s);
            QTRY_VERIFY(grid->isRowHidden(0));
            QTest::keyClick(words, Qt::Key_Escape);
            QTRY_VERIFY(!grid->isRowHidden(0));
        }
    }
}

void tst_CaseLook::everyGridCanBeCopied_data()
{
    EachCaseWindow();
}

void tst_CaseLook::everyGridCanBeCopied()
{
    QFETCH(CaseWindowKind, kind);
    CaseWindow *window = withEveryTab(kind);
    QVERIFY(QTest::qWaitForWindowActive(window));
    for (const CaseTab tab : TabsOf(kind)) {
        ClickTab(window, CaptionOf(tab));
        FlexGrid *grid = window->Tab(tab).Grid;
        QTest::mouseClick(grid->viewport(), Qt::LeftButton, {},
                          grid->visualRect(grid->model()->index(0, 0)).center());
        QGuiApplication::clipboard()->clear();
        QTest::keySequence(grid, QKeySequence::Copy);
        QVERIFY2(QGuiApplication::clipboard()->text().contains(CaptionOf(tab)),
                 qPrintable(CaptionOf(tab)));
        // The menu of the lists.
        QVERIFY(grid->findChild<QAction *>(u"mnuListExport"_s));
    }
}

HALVANE_TEST(tst_CaseLook)
#include "tst_CaseLook.moc"
