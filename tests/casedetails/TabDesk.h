#pragma once

#include "casedetails/CaseDesk.h"
#include "casedetails/StatusTrail.h"
#include "casedetails/TabFamily.h"

#include <memory>

/// A test of the exchange of one tab, for every tab of every court: its data rows are the family's.
class TabTest : public CaseTest
{
    Q_OBJECT
protected Q_SLOTS:
    void init() override;
    void cleanup();

protected:
    static void Members();
    /// The member of the data row.
    static const FamilyMember &Member();
    static QString CaptionOf(const FamilyMember &member);
    /// What the Summary of a member's case is asked by.
    static QString SummaryLineOf(const FamilyMember &member);
    /// A Summary that leaves the member's tab in the strip.
    static QStringList SummaryReplyOf(const FamilyMember &member);

    frmCaseDetails *WindowOf(const FamilyMember &member);
    /// A window of the court whose Summary comes, and which then asks for this tab alone; its
    /// request is the next exchange to be written.
    frmCaseDetails *CaseWith(const FamilyMember &member);
    /// The case, with this reply to the tab's request, run to its end.
    frmCaseDetails *Retrieved(const FamilyMember &member, const QStringList &reply);
    /// Asks for this tab alone once more.
    void Retry(frmCaseDetails *window, const FamilyMember &member);
    /// Lets the limit of the reply to this request run out.
    void KeepSilent(const QString &request);

    /// The log from the tab's first line to the end of the run.
    QStringList LogOf(const FamilyMember &member) const;
    /// What the log says of each line of a reply.
    static QStringList LoggedReply(const FamilyMember &member, const QStringList &reply);

    static QList<QStringList> Message(QStringView text) { return {{QString()}, {text.toString()}}; }
    /// A table of two rows as the court sends it, without its end mark, and as it is shown.
    static QStringList WholeTable(const FamilyMember &member);
    static QList<QStringList> WholeCells(const FamilyMember &member);

    /// What the status line read from the tab's beginning on. Behind the last tab of a strip nobody
    /// has the time to read how it ended.
    void VerifyStatus(const QString &retrieving, const QString &ended, const QString &runEnd,
                      const FamilyMember &member);
    void VerifyDone(const frmCaseDetails *window, const FamilyMember &member);
    void VerifyIncomplete(const frmCaseDetails *window, const FamilyMember &member);

    std::unique_ptr<StatusTrail> trail;
};
