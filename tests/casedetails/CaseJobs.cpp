#include "casedetails/CaseJobs.h"

#include "casedetails/DiscisCaseJob.h"
#include "casedetails/StateCaseJob.h"
#include "core/GlobalState.h"
#include "core/TextUtilities.h"
#include "jobs/TurnTaking.h"

#include <QTest>

#include <utility>

void CaseJobTest::cleanup()
{
    const QList<CaseJob *> gone = std::exchange(jobs, {});
    for (CaseJob *job : gone) {
        job->UseTalk(nullptr);
        job->Release();
    }
    LinkTest::cleanup();
}

void CaseJobTest::enqueue(CaseJob *job)
{
    jobs.append(job);
    job->txtMasterKey = MakeMasterKey();
    EnqueueKey(job->txtMasterKey);
}

StateCaseJob *CaseJobTest::Superior(const QString &number)
{
    CaseStart start;
    start.lblState = u"WA"_s;
    start.txtCaseNumber = number;
    start.txtCountyName = u"King"_s;
    start.SetHeading(u"Case Details ("_s + number + u')');
    auto *job = new StateCaseJob;
    job->Take(start);
    return Enqueued(job);
}

StateCaseJob *CaseJobTest::OfState(const QString &state, const QString &number)
{
    CaseStart start;
    start.lblState = state;
    start.txtCaseNumber = number;
    start.txtCountyName = state == u"OR" ? u"Baker"_s : u"Ada"_s;
    start.lblOrCourtType = state == u"OR" ? u"C"_s : QString();
    if (state.endsWith(u"BK"))
        start.TabRequests = {u"BKRPT~SUMMARY~"_s + number + u'~'};
    auto *job = new StateCaseJob;
    job->Take(start);
    return Enqueued(job);
}

DiscisCaseJob *CaseJobTest::District(CaseKind kind)
{
    CaseStart start(kind);
    start.txtCaseNumber = u"Y00012345"_s;
    start.txtCourtCode = u"SED"_s;
    start.txtCaseType = kind == CaseKind::Civil ? u"CV"_s : u"IN"_s;
    auto *job = new DiscisCaseJob(kind);
    job->Take(start);
    return Enqueued(job);
}

void CaseJobTest::Begin(CaseJob *job)
{
    job->Timer1->setInterval(1);
    job->TmrSearchOnDemand->setInterval(1);
    job->Timer1->start();
}

bool CaseJobTest::Finished(const CaseJob *job)
{
    return LinkDesk::WaitUntil(
        [job] { return job->State() == JobState::Over && !Global.bSearchInProgress; });
}

void CaseJobTest::Run(CaseJob *job)
{
    LinkDesk::ConnectTo(*court);
    // The pauses between the tabs; no reply may seem late by it.
    desk->Time.Run(0.02);
    Begin(job);
    QVERIFY(Finished(job));
    desk->Time.Stop();
}

void CaseJobTest::RunLater(CaseJob *job, const QList<CaseTab> &tabs)
{
    for (int i = 0; i < caseTabCount; ++i)
        job->Sheet.Choose(static_cast<CaseTab>(i), tabs.contains(static_cast<CaseTab>(i)));
    job->SearchNow();
    QVERIFY(Finished(job));
}

QStringList CaseJobTest::TabsWith(const CaseJob *job, bool CaseTabRecord::*what)
{
    QStringList captions;
    for (int i = 0; i < caseTabCount; ++i) {
        const auto tab = static_cast<CaseTab>(i);
        if (job->Record.Tab(tab).*what)
            captions.append(CaseTabRowOf(tab).caption.toString());
    }
    return captions;
}

QString DistrictLine(CaseKind kind, const QString &word)
{
    const QString family = kind == CaseKind::Civil ? u"CV"_s : u"IN"_s;
    return QStringList{u"WADISCIS"_s, {},   {}, {}, u"Y00012345"_s, family, u"SED"_s,
                       family,        word, {}, {}}
        .join(u'¦');
}
