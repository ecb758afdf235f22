#include "casedetails/CaseDesk.h"
#include "casedetails/frmCaseDetails.h"
#include "core/GlobalState.h"
#include "jobs/frmQueue.h"

#include <QPushButton>
#include <QTest>

/// A case from its first request to its last.
class tst_CaseRun : public CaseTest
{
    Q_OBJECT
private Q_SLOTS:
    void aCriminalCaseTabByTab();
    void theStatusIsInSightBehindATab();
};

void tst_CaseRun::aCriminalCaseTabByTab()
{
    const QStringList all{u"Names"_s,    u"Docket"_s,     u"Judgments"_s, u"Charges"_s,
                          u"Sentence"_s, u"Accounting"_s, u"Schedule"_s,  u"Documents"_s};
    FetchAtOnce(u"CaseSearchTabs"_s, all);
    court->Expect(SuperiorLine(u"SUMMARY"_s)).Reply(SuperiorSummary() + QStringList{u"EOF~"_s});
    for (const QString &word : {u"NAMES"_s, u"DOCKET"_s, u"JUDGMENTS"_s, u"CHARGES"_s,
                                u"SENTENCE"_s, u"ACCOUNTING"_s, u"SCHEDULE"_s})
        court->Expect(SuperiorLine(word))
            .Reply(GridDef({u"01/02/2003~"_s + word + u"~"_s, u"01/03/2003~Later~"_s}));
    court->Expect(u"WASUPDOC\u00A6GETDOCTAB\u00A6King\u00A602-1-00123-4\u00A6"_s)
        .Reply(TableForm({u"01/02/2003~Complaint~"_s}));
    frmCaseDetails *window = Superior();
    Run(window);
    QCOMPARE(TextOf(window, "lblStatus"), u"Search Complete"_s);
    QCOMPARE(CaptionsOf(window), QStringList{u"Summary"_s} + all.first(2) + all.sliced(2));
    QCOMPARE(CellsOf(window, CaseTab::Docket),
             (QList<QStringList>{{u"Date"_s, u"Entry"_s},
                                 {u"01/03/2003"_s, u"Later"_s},
                                 {u"01/02/2003"_s, u"DOCKET"_s}}));
    QCOMPARE(frmQueue::Form().FIFO.ListCount(), 0);
    QVERIFY(!Global.bSearchInProgress);
    QVERIFY(!ButtonOf(window, "cmdStopSearching")->isEnabled());
    QVERIFY(ButtonOf(window, "cmdPrintDetails")->isEnabled());
    delete window;
}

/// Whatever the blinking has left.
void tst_CaseRun::theStatusIsInSightBehindATab()
{
    FetchAtOnce(u"CaseSearchTabs"_s, {u"Names"_s, u"Docket"_s});
    court->Expect(SuperiorLine(u"SUMMARY"_s)).Reply(SuperiorSummary() + QStringList{u"EOF~"_s});
    court->Expect(SuperiorLine(u"NAMES"_s)).Reply({});
    court->Expect(SuperiorLine(u"DOCKET"_s)).Reply({});
    frmCaseDetails *window = Superior();
    auto *status = window->findChild<QWidget *>(u"lblStatus"_s);
    desk->When([this] { return court->Requests().size() == 2; },
               [&] {
                   window->tmrBlink->stop();
                   status->hide();
                   court->SendTokens(GridDef({u"01/02/2003~A~"_s}));
               });
    bool inSight = false;
    desk->When([this] { return court->Requests().size() == 3; },
               [&] {
                   inSight = status->isVisible();
                   court->SendTokens(GridDef({u"01/02/2003~A~"_s}));
               });
    Run(window);
    QVERIFY(inSight);
}

QTEST_MAIN(tst_CaseRun)
#include "tst_CaseRun.moc"
