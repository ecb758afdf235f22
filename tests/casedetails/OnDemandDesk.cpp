#include "casedetails/OnDemandDesk.h"

#include "casedetails/frmCaseDetails.h"
#include "casedetails/frmCivilCaseDetails.h"
#include "casedetails/frmNCCaseDetails.h"

#include <QDialog>
#include <QPushButton>
#include <QTest>

namespace {
CaseKind districtOf(CaseWindowKind kind)
{
    return kind == CaseWindowKind::Civil ? CaseKind::Civil : CaseKind::NonCivil;
}

QString sectionOf(CaseWindowKind kind)
{
    return kind == CaseWindowKind::Superior ? u"CaseSearchTabs"_s
                                            : DistrictOf(districtOf(kind)).section.toString();
}
} // namespace

QList<CaseTab> OnDemandTest::TabsOf(CaseWindowKind kind)
{
    if (kind == CaseWindowKind::Superior)
        return {CaseTab::Names,    CaseTab::Docket,     CaseTab::Judgments, CaseTab::Charges,
                CaseTab::Sentence, CaseTab::Accounting, CaseTab::Schedule,  CaseTab::Documents};
    QList<CaseTab> tabs;
    for (const DistrictTab &row : DistrictOf(districtOf(kind)).tabs)
        tabs.append(row.tab);
    return tabs;
}

QString OnDemandTest::LineOf(CaseWindowKind kind, CaseTab tab)
{
    if (kind == CaseWindowKind::Superior) {
        if (tab == CaseTab::Documents)
            return u"WASUPDOC¦GETDOCTAB¦King¦02-1-00123-4¦"_s;
        return SuperiorLine(CaptionOf(tab).toUpper());
    }
    const CaseKind district = districtOf(kind);
    if (tab == CaseTab::Summary)
        return DistrictLineOf(district, DistrictOf(district).summaryWord);
    for (const DistrictTab &row : DistrictOf(district).tabs) {
        if (row.tab == tab)
            return DistrictLineOf(district, row.word);
    }
    return {};
}

QStringList OnDemandTest::ReplyOf(CaseTab tab)
{
    const QString row = u"01/02/2003~"_s + CaptionOf(tab) + u'~';
    return tab == CaseTab::Documents ? TableForm({row}) : GridDef({row});
}

void OnDemandTest::EachCaseWindow()
{
    QTest::addColumn<CaseWindowKind>("kind");
    for (size_t i = 0; i < caseWindowNames.size(); ++i)
        QTest::newRow(caseWindowNames.at(i)) << static_cast<CaseWindowKind>(i);
}

CaseWindow *OnDemandTest::MakeCase(CaseWindowKind kind)
{
    if (kind == CaseWindowKind::Superior)
        return Superior();
    return Make(districtOf(kind));
}

CaseWindow *OnDemandTest::Pending(CaseWindowKind kind, const QStringList &fetched,
                                  const QStringList &failing)
{
    FetchAtOnce(sectionOf(kind), fetched + failing);
    const QStringList summary =
        kind == CaseWindowKind::Superior ? SuperiorSummary() : DistrictSummary(districtOf(kind));
    court->Expect(LineOf(kind, CaseTab::Summary)).Reply(summary + QStringList{u"EOF~"_s});
    for (const CaseTab tab : TabsOf(kind)) {
        if (failing.contains(CaptionOf(tab)))
            ExpectFailingTab(kind, tab);
        else if (fetched.contains(CaptionOf(tab)))
            ExpectTab(kind, tab);
    }
    return MakeCase(kind);
}

CaseWindow *OnDemandTest::AfterFirstRun(CaseWindowKind kind, const QStringList &fetched,
                                        const QStringList &failing)
{
    CaseWindow *window = Pending(kind, fetched, failing);
    Run(window);
    return window;
}

void OnDemandTest::ExpectTab(CaseWindowKind kind, CaseTab tab)
{
    court->Expect(LineOf(kind, tab)).Reply(ReplyOf(tab));
}

void OnDemandTest::ExpectFailingTab(CaseWindowKind kind, CaseTab tab)
{
    court->Expect(LineOf(kind, tab)).Reply({u"ERROR The court is busy~"_s, u"EOF~"_s});
}

void OnDemandTest::AnswerPrompt(bool yes)
{
    desk->Boxes.ExpectDialog(u"frmOnDemand"_s, [yes](QDialog *dialog) {
        ButtonOf(dialog, yes ? "Command1" : "Command2")->click();
    });
}

QAbstractButton *OnDemandTest::BoxOf(const CaseWindow *window, CaseTab tab)
{
    return window->findChild<QAbstractButton *>(u"chkTab_%1"_s.arg(CaseTabRowOf(tab).check));
}

void OnDemandTest::Tick(const CaseWindow *window, const QList<CaseTab> &tabs)
{
    QCOMPARE(ShownFrame(window), u"frameTabs_8"_s);
    ButtonOf(window, "cmdClearAll")->click();
    for (const CaseTab tab : tabs)
        BoxOf(window, tab)->click();
}

void OnDemandTest::SearchNow(CaseWindow *window)
{
    ButtonOf(window, "cmdSearchNow")->click();
    window->TmrSearchOnDemand->stop();
}

void OnDemandTest::SearchNowToTheEnd(CaseWindow *window)
{
    SearchNow(window);
    window->TmrSearchOnDemand->start(1);
    QVERIFY(Finished(window));
}

bool OnDemandTest::CommandsEnabled(const CaseWindow *window)
{
    // Of their own: while the panel is not on the screen, nothing on it is.
    const auto *panel = window->findChild<QWidget *>(u"frameTabs_8"_s);
    const bool enabled = ButtonOf(window, "cmdSearchNow")->isEnabledTo(panel);
    for (const char *name : {"cmdClearAll", "cmdSelectAll"}) {
        // They go together.
        if (ButtonOf(window, name)->isEnabledTo(panel) != enabled)
            qFatal("%s differs", name);
    }
    return enabled;
}

QString OnDemandTest::FrameOf(CaseTab tab)
{
    return u"frameTabs_%1"_s.arg(CaseTabRowOf(tab).frame);
}

QStringList OnDemandTest::SummaryReplyOf(CaseWindowKind kind)
{
    if (kind == CaseWindowKind::Superior)
        return SuperiorSummary() + QStringList{u"EOF~"_s};
    return DistrictSummary(districtOf(kind)) + QStringList{u"EOF~"_s};
}

void OnDemandTest::UntilTimeOut(CaseWindow *window)
{
    desk->Time.Run(10.0);
    QVERIFY(Finished(window));
    desk->Time.Stop();
}

CaseWindow *OnDemandTest::WithoutSummary(CaseWindowKind kind)
{
    CaseWindow *window = MakeCase(kind);
    court->Expect(LineOf(kind, CaseTab::Summary)).Reply({});
    desk->ConnectTo(*court);
    Begin(window);
    UntilTimeOut(window);
    return window;
}
