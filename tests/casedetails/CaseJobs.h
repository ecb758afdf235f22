#pragma once

#include "casedetails/CaseJob.h"
#include "casedetails/CaseLines.h"
#include "casedetails/CaseTalk.h"
#include "support/LinkDesk.h"

#include <QStringList>

#include <functional>

class StateCaseJob;
class DiscisCaseJob;

/// A test of cases without a window.
class CaseJobTest : public LinkTest, protected CaseLines
{
    Q_OBJECT
protected Q_SLOTS:
    void cleanup() override;

protected:
    /// Gives a case a key at the end of the queue. It goes at the end of the test function.
    template<class OfCase>
    OfCase *Enqueued(OfCase *job)
    {
        enqueue(job);
        return job;
    }
    /// A case of the Superior Courts of King county, in the queue.
    StateCaseJob *Superior(const QString &number = QStringLiteral("02-1-00123-4"));
    /// A case of this state's courts: "OR" (Baker, Circuit), "ID" (Ada), or a bankruptcy court.
    StateCaseJob *OfState(const QString &state, const QString &number);
    DiscisCaseJob *District(CaseKind kind);

    /// Connects, lets the case take its turn, and waits until its run is over.
    void Run(CaseJob *job);
    /// Lets it ask for its turn.
    static void Begin(CaseJob *job);
    /// Runs what is chosen on the panel, and nothing else.
    void RunLater(CaseJob *job, const QList<CaseTab> &tabs);
    /// True once the run has left the stack.
    static bool Finished(const CaseJob *job);

    static QStringList Whole(const QStringList &lines) { return lines + QStringList{u"EOF~"_s}; }
    /// The captions of the tabs for which this holds.
    static QStringList TabsWith(const CaseJob *job, bool CaseTabRecord::*what);

private:
    void enqueue(CaseJob *job);

    QList<CaseJob *> jobs;
};

/// Answers what a case asks, and takes note of it.
class CaseListener : public CaseTalk
{
public:
    explicit CaseListener(CaseJob *talking) : job(talking) { job->UseTalk(this); }

    bool AskArbitration() override
    {
        said.append(u"arbitration"_s);
        Meanwhile();
        return Arbitration;
    }
    std::optional<bool> AskOnDemand() override
    {
        said.append(u"on demand"_s);
        Meanwhile();
        return Retry;
    }
    void TellEmptyQueue() override
    {
        said.append(u"empty"_s);
        Meanwhile();
    }
    void Print() override { said.append(u"print"_s); }

    const QStringList &Said() const { return said; }

    bool Arbitration = false;
    std::optional<bool> Retry = false;
    /// Happens while it asks.
    std::function<void()> Meanwhile = [] {};

private:
    CaseJob *job;
    QStringList said;
};

/// A request line of the District and Municipal Courts for the case that CaseJobTest opens.
QString DistrictLine(CaseKind kind, const QString &word);
