#pragma once

#include "casedetails/CaseTabs.h"

#include <QStringList>
#include <QStringView>

#include <array>

// What each tab of a case says on its way, written out: a tab of a court is a row.

struct FamilyMember
{
    const char *name; ///< of its data row
    QStringView state;
    CaseTab tab;
    QStringView word; ///< in the status line and in the log
    QStringView procedure;
    QStringView request;
    bool lastFirst;   ///< the last line of the reply is the first row
    bool lastOfStrip; ///< no other tab of the case comes behind it
    QStringView empty;
    QStringView incomplete;
    QStringView emptyLog = u""; ///< with the request behind it
    QStringView incompleteLog = u"";
};

inline constexpr QStringView noDocuments = u"No Document Images Available For This Case.";
inline constexpr QStringView documentsIncomplete =
    u"Retrieval of Document Images Incomplete. Please Retry Search.";

// clang-format off
inline constexpr std::array<FamilyMember, 21> family{{
    {"Superior names", u"WA", CaseTab::Names, u"Names", u"DoNameSearch",
     u"WASUP¦NAMES¦02-1-00123-4¦King¦¦", false, false,
     u"No Names Were Found For This Case.", u"Name Search Incomplete. Please Retry Search.",
     u"NO Responses for this Names request: ", u"Search Incomplete for this Names request: "},
    {"Superior docket", u"WA", CaseTab::Docket, u"Docket", u"DoDocketSearch",
     u"WASUP¦DOCKET¦02-1-00123-4¦King¦¦", true, false,
     u"No Docket Information Found For This Case.",
     u"Docket Information Incomplete. Please Retry Search.",
     u"NO Responses for this Docket request: ", u"Incomplete Docket request: "},
    {"Superior accounting", u"WA", CaseTab::Accounting, u"Accounting", u"DoAcctgSearch",
     u"WASUP¦ACCOUNTING¦02-1-00123-4¦King¦¦", true, false,
     u"No Accounting Information Found For This Case.",
     u"Accounting Information Incomplete. Please Retry Search."},
    {"Superior judgments", u"WA", CaseTab::Judgments, u"Judgments", u"DoJudgmentsSearch",
     u"WASUP¦JUDGMENTS¦02-1-00123-4¦King¦¦", true, false,
     u"No Judgments Were Found For This Case.",
     u"Judgments Search Incomplete. Please Retry Search"},
    {"Superior charges", u"WA", CaseTab::Charges, u"Charges", u"DoChargesSearch",
     u"WASUP¦CHARGES¦02-1-00123-4¦King¦¦", false, false,
     u"No Charges Were Found For This Case.", u"Charges Search Incomplete. Please Retry Search."},
    {"Superior sentence", u"WA", CaseTab::Sentence, u"Sentence", u"DoSentenceSearch",
     u"WASUP¦SENTENCE¦02-1-00123-4¦King¦¦", false, false,
     u"No Sentence Information Found For This Case.",
     u"Sentence Information Incomplete. Please Retry Search."},
    {"Superior schedule", u"WA", CaseTab::Schedule, u"Schedule", u"DoScheduleSearch",
     u"WASUP¦SCHEDULE¦02-1-00123-4¦King¦¦", false, false,
     u"No Schedule Information Found For This Case.",
     u"Schedule Information Incomplete. Please Retry Search."},
    {"Superior documents", u"WA", CaseTab::Documents, u"Document", u"DoDocumentSearch",
     u"WASUPDOC¦GETDOCTAB¦King¦02-1-00123-4¦", false, true,
     noDocuments, documentsIncomplete,
     u"No Document Images Found For This Particular Case: ",
     u"Incomplete Document Images Available Request: "},
    {"Oregon names", u"OR", CaseTab::Names, u"Names", u"DoNameSearch",
     u"OREGON@NAMES,@CV0100001@BAK C@", false, false,
     u"No Names Information Found For This Case.",
     u"Name Information Incomplete. Please Retry Search.",
     u"NO Responses Were Found for This Names Request: ", u"Incomplete Names Request: "},
    {"Oregon docket", u"OR", CaseTab::Docket, u"Docket", u"DoDocketSearch",
     u"OREGON@DOCKET,@CV0100001@BAK C@", false, false,
     u"No Docket Information Found For This Case.",
     u"Docket Information Incomplete. Please Retry Search.",
     u"NO Responses for this Docket request: ", u"Incomplete Docket request: "},
    {"Oregon accounting", u"OR", CaseTab::Accounting, u"Accounting", u"DoAcctgSearch",
     u"OREGON@ACCOUNTING,@CV0100001@BAK C@", false, false,
     u"No Accounting Details Were Found For This Case.",
     u"Accounting Search Incomplete. Please Retry Search"},
    {"Oregon finance", u"OR", CaseTab::Finance, u"Finance", u"DoFinanceSearch",
     u"OREGON@FINANCE,@CV0100001@BAK C@", false, false,
     u"No Finance Details Were Found For This Case.",
     u"Finance Search Incomplete. Please Retry Search"},
    {"Oregon judgments", u"OR", CaseTab::Judgments, u"Judgments", u"DoJudgmentsSearch",
     u"OREGON@JUDGMENTS,@CV0100001@BAK C@", false, false,
     u"No Judgments Were Found For This Case.",
     u"Judgments Search Incomplete. Please Retry Search"},
    {"Oregon charges", u"OR", CaseTab::Charges, u"Charges", u"DoChargesSearch",
     u"OREGON@CHARGES,@CV0100001@BAK C@", false, false,
     u"No Charges Were Found For This Case.", u"Charges Search Incomplete. Please Retry Search."},
    {"Oregon sentence", u"OR", CaseTab::Sentence, u"Sentence", u"DoSentenceSearch",
     u"OREGON@SENTENCES,@CV0100001@BAK C@", false, true,
     u"No Sentence Information Found For This Case.",
     u"Sentence Information Incomplete. Please Retry Search."},
    {"Idaho names", u"ID", CaseTab::Names, u"Names", u"DoNameSearch",
     u"IDSUP¦NAMES,¦CV-2001-1¦Ada¦", false, false,
     u"No Names Information Found For This Case.",
     u"Name Information Incomplete. Please Retry Search.",
     u"NO Responses Were Found for This Names Request: ", u"Incomplete Names Request: "},
    {"Idaho docket", u"ID", CaseTab::Docket, u"Docket", u"DoDocketSearch",
     u"IDSUP¦DOCKET,¦CV-2001-1¦Ada¦", false, false,
     u"No Docket Information Found For This Case.",
     u"Docket Information Incomplete. Please Retry Search.",
     u"NO Responses for this Docket request: ", u"Incomplete Docket request: "},
    {"Idaho judgments", u"ID", CaseTab::Judgments, u"Judgments", u"DoJudgmentsSearch",
     u"IDSUP¦JUDGMENTS,¦CV-2001-1¦Ada¦", false, false,
     u"No Judgments Were Found For This Case.",
     u"Judgments Search Incomplete. Please Retry Search"},
    {"Idaho charges", u"ID", CaseTab::Charges, u"Charges", u"DoChargesSearch",
     u"IDSUP¦CHARGES,¦CV-2001-1¦Ada¦", false, true,
     u"No Charges Were Found For This Case.", u"Charges Search Incomplete. Please Retry Search."},
    {"bankruptcy names", u"WAWBK", CaseTab::Names, u"Names", u"DoNameSearch",
     u"BKRPT~NAMES~99-20077~", false, true,
     u"No Names Information Found For This Case.",
     u"Name Information Incomplete. Please Retry Search.",
     u"NO Responses Were Found for This Names Request: ", u"Incomplete Names Request: "},
    {"bankruptcy docket", u"WAWBK", CaseTab::Docket, u"Docket", u"DoDocketSearch",
     u"BKRPT~DOCKET~99-20077~", false, true,
     u"No Docket Information Found For This Case.",
     u"Docket Information Incomplete. Please Retry Search.",
     u"NO Responses for this Docket request: ", u"Incomplete Docket request: "},
}};
// clang-format on

struct FamilyTexts
{
    QString Retrieving;
    QString Complete;
    QString Incomplete;
    QString Warning;
    QString ProcError;
    QString NormalExit;
};

inline FamilyTexts TextsOfMember(const FamilyMember &member)
{
    const QString word = member.word.toString();
    const QString procedure = member.procedure.toString();
    if (member.tab == CaseTab::Documents) {
        return {
            QStringLiteral("Retrieving Documents Available List .."),
            QStringLiteral("Documents Complete .."),
            QStringLiteral("Document Incomplete .."),
            QStringLiteral("Document Info Incomplete! Click Tab to Retry."),
            QStringLiteral(
                "Exiting frmCaseDetails:DoDocumentSearch() via PROCERR in Case Details. Error: "),
            QStringLiteral("NORMAL EXIT - from DoDocumentSearch().")};
    }
    return {QStringLiteral("Retrieving %1 ..").arg(word),
            QStringLiteral("%1 Complete ..").arg(word),
            QStringLiteral("%1 Incomplete ..").arg(word),
            QStringLiteral("%1 Information Incomplete! Click Tab to Retry.").arg(word),
            QStringLiteral("Exiting %1() via PROCERR in Case Details. Error: ").arg(procedure),
            QStringLiteral("NORMAL EXIT - from %1().").arg(procedure)};
}

/// The head of a table of two columns, Date and Entry, in the form that the court sends.
inline QStringList TableHead(const FamilyMember &member)
{
    if (member.state == u"WA" && member.tab != CaseTab::Documents)
        return {QStringLiteral("GRIDDEF~Date~Entry~20~80~")};
    return {QStringLiteral("TABNAME~Tab~"), QStringLiteral("TABDEF~Tab~"),
            QStringLiteral("COLDEF~Date~Entry~20~80~"), QStringLiteral("COLALIGNMENT~L~L~")};
}

/// A row of it. A document has its command in front.
inline QString TableRow(const FamilyMember &member, const QString &row)
{
    return member.tab == CaseTab::Documents ? u"RETRIEVEDOC=x/y/~" + row : row;
}
