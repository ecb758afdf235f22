#include "casedetails/DistrictDesk.h"

#include "casedetails/frmCivilCaseDetails.h"
#include "casedetails/frmNCCaseDetails.h"
#include "jobs/frmQueue.h"

#include <QTest>

QStringList DistrictSummary(CaseKind kind, const QStringList &items)
{
    if (kind == CaseKind::NonCivil)
        return QStringList{u"Name~SMITH, JOHN Q~"_s,    u"Sex~M~"_s,
                           u"Case Number~Y00012345~"_s, u"Court~Southeast District~"_s,
                           u"Court Type~District~"_s,   u"Date Filed~01/11/2005~"_s}
               + items;
    return QStringList{u"Title~SMITH  & SONS VS DOE~"_s, u"Case Number~Y00012345~"_s,
                       u"Court~Southeast District~"_s,   u"Date Filed~01/11/2005~"_s,
                       u"Cause~Small Claims~"_s,         u"Suit Amount~1,250.00~"_s}
           + items;
}

DiscisCaseWindow *DistrictTest::Make(CaseKind kind, const QString &number)
{
    if (kind == CaseKind::NonCivil)
        return NonCivil(number);
    return Civil(number);
}

void DistrictTest::ExpectSummary(CaseKind kind, const QStringList &reply)
{
    court->Expect(DistrictLineOf(kind, DistrictOf(kind).summaryWord))
        .Reply(reply + QStringList{u"EOF~"_s});
}

DiscisCaseWindow *DistrictTest::AfterSummary(CaseKind kind, const QStringList &summary)
{
    ExpectSummary(kind, summary);
    DiscisCaseWindow *window = Make(kind);
    Run(window);
    return window;
}

DiscisCaseWindow *DistrictTest::AfterTab(CaseKind kind, const DistrictTab &tab,
                                         const QStringList &reply)
{
    FetchAtOnce(DistrictOf(kind).section.toString(), {CaseTabRowOf(tab.tab).caption.toString()});
    ExpectSummary(kind, DistrictSummary(kind));
    court->Expect(DistrictLineOf(kind, tab.word)).Reply(reply);
    DiscisCaseWindow *window = Make(kind);
    Run(window);
    return window;
}

void DistrictTest::ExpectEveryLine(CaseKind kind, const QString &number, const QString &type,
                                   const QString &courtCode)
{
    const DistrictWindow &window = DistrictOf(kind);
    const auto line = [&](QStringView word) {
        return u"WADISCIS¦¦¦¦%1¦%2¦%3¦%4¦%5¦¦"_s.arg(number, type, courtCode,
                                                     window.family.toString(), word.toString());
    };
    court->Expect(line(window.summaryWord)).Reply(DistrictSummary(kind) + QStringList{u"EOF~"_s});
    for (const DistrictTab &tab : window.tabs)
        court->Expect(line(tab.word)).Reply(GridDef({u"1~"_s + tab.word.toString() + u'~'}));
}

void DistrictTest::CheckEveryTab(const CaseWindow *window, CaseKind kind)
{
    for (const DistrictTab &tab : DistrictOf(kind).tabs) {
        QCOMPARE(CellsOf(window, tab.tab),
                 (QList<QStringList>{{u"Date"_s, u"Entry"_s}, {u"1"_s, tab.word.toString()}}));
        QVERIFY(window->Tab(tab.tab).TabDone);
    }
    QCOMPARE(TextOf(window, "lblStatus"), u"Search Complete"_s);
    QCOMPARE(CaptionsOf(window), QStringList{u"Summary"_s} + CaptionsOfKind(kind));
    QCOMPARE(frmQueue::Form().FIFO.ListCount(), 0);
}

QStringList DistrictTest::CaptionsOfKind(CaseKind kind)
{
    QStringList captions;
    for (const DistrictTab &tab : DistrictOf(kind).tabs)
        captions.append(CaseTabRowOf(tab.tab).caption.toString());
    return captions;
}

void DistrictTest::EachWindow()
{
    QTest::addColumn<CaseKind>("kind");
    for (const DistrictWindow &window : districtWindows)
        QTest::newRow(window.name) << window.kind;
}

bool DistrictTest::IsSeen(const QWidget *window, const char *name)
{
    return !window->findChild<QWidget *>(QLatin1StringView(name))->isHidden();
}
