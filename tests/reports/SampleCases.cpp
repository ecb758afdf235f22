#include "reports/SampleCases.h"

void Give(CaseRecord &record, CaseTab tab, const QList<GridColumn> &columns,
          const QList<QStringList> &rows)
{
    CaseTabRecord &ofTab = record.Tab(tab);
    ofTab.Table = {columns, rows, true};
    ofTab.TabDone = true;
    const QString caption = CaseTabRowOf(tab).caption.toString();
    if (!record.TabCaptions.contains(caption))
        record.TabCaptions.append(caption);
}

void GiveMessage(CaseRecord &record, CaseTab tab, const QString &words)
{
    Give(record, tab, {{QString(), 100}}, {{words}});
    record.Tab(tab).Table.HasHeader = false;
}

CaseRecord SuperiorCase()
{
    CaseRecord record(CaseKind::State);
    record.lblState = u"WA"_s;
    record.txtCaseNumber = u"02-1-00123-4"_s;
    record.SetHeading(u"Case Details (02-1-00123-4)"_s);
    record.SetTitle(u"STATE OF WASHINGTON VS SMITH && SONS, JOHN"_s);
    record.lblCourtName = u"King County, Washington Superior Courts"_s;
    record.lblDateFiled = u"01/15/2002"_s;
    Give(record, CaseTab::Summary, {{u"Summary Item"_s, 30}, {u"Item Description"_s, 70}},
         {{u"Case Type: "_s, u"Criminal"_s}, {u"Status: "_s, u"Closed"_s}});
    Give(record, CaseTab::Names, {{u"Name"_s, 50}, {u"Connection"_s, 30}, {u"Date"_s, 20}},
         {{u"SMITH, JOHN"_s, u"Defendant"_s, u"01/15/2002"_s}, {u"STATE OF WASHINGTON"_s}});
    Give(record, CaseTab::Docket,
         {{u"Sub#"_s, 10}, {u"Date"_s, 15}, {u"Description"_s, 60}, {u"Key"_s, 0}, {u"Misc"_s, 15}},
         {{u"1"_s, u"01/15/2002"_s, u"Information"_s, u"RETRIEVECOMMAND=1"_s, u""_s},
          {u"12"_s, u"02/01/2002"_s, u"Order for Arraignment"_s, u"RETRIEVECOMMAND=2"_s,
           u"Dept. 3"_s}});
    GiveMessage(record, CaseTab::Judgments, u"No Judgments Were Found For This Case."_s);
    Give(record, CaseTab::Charges, {{u"Count"_s, 10}, {u"Charge"_s, 90}}, {{u"1"_s, u"Theft"_s}});
    Give(record, CaseTab::Sentence, {{u"Sentence"_s, 50}, {u"Length"_s, 50}},
         {{u"Jail"_s, u"30 days"_s}});
    Give(record, CaseTab::Accounting, {{u"Item"_s, 70}, {u"Amount"_s, 30}},
         {{u"Filing fee"_s, u"$110.00"_s}});
    Give(record, CaseTab::Schedule, {{u"Date"_s, 30}, {u"Event"_s, 70}},
         {{u"03/01/2002"_s, u"Trial"_s}});
    Give(record, CaseTab::Documents, {{u"Sub#"_s, 20}, {u"Document"_s, 80}},
         {{u"1"_s, u"Information"_s}});
    return record;
}

CaseRecord CivilCase()
{
    CaseRecord record(CaseKind::Civil);
    record.txtCaseNumber = u"Y00012345"_s;
    record.SetTitle(u"ACME RENTALS VS DOE, JANE"_s);
    record.lblCourtName = u"Seattle Municipal Court"_s;
    record.lblDateFiled = u"06/30/2003"_s;
    record.ClientAcctgCode = u" smith-12 "_s;
    Give(record, CaseTab::Summary,
         {{u"Summary Item"_s, 25}, {u"Item Description"_s, 50}, {u"Notes"_s, 25}},
         {{u"Case Type: "_s, u"Civil"_s, u"WA State District/Municipal Cts."_s},
          {u"Court Location: "_s, u"Seattle Municipal Court"_s},
          {u"Date Filed: "_s, u"06/30/2003"_s},
          {u"Suit Amount: "_s, u"$3,000.00"_s}});
    Give(record, CaseTab::Names, {{u"Name"_s, 60}, {u"Role"_s, 40}},
         {{u"ACME RENTALS"_s, u"Plaintiff"_s}, {u"DOE, JANE"_s, u"Defendant"_s}});
    record.Tab(CaseTab::Names).Notes = {u"Names may be incomplete before 1990."_s,
                                        u"Minors are not listed."_s};
    GiveMessage(record, CaseTab::Docket, u"No Docket Entries Were Found For This Case."_s);
    Give(record, CaseTab::Judgments, {{u"Date"_s, 30}, {u"Judgment"_s, 70}},
         {{u"09/01/2003"_s, u"Default judgment"_s}});
    return record;
}

CaseRecord NonCivilCase()
{
    CaseRecord record(CaseKind::NonCivil);
    record.txtCaseNumber = u">>*CR0012345"_s;
    record.SetHeading(u"Case Details (*CR0012345)"_s);
    record.lblName = u"DOE, JOHN Q"_s;
    record.lblCourtName = u"King County District Court"_s;
    record.lblDateFiled = u"Not on File"_s;
    record.SearchStopped = true;
    Give(record, CaseTab::Summary,
         {{u"Item"_s, 15}, {u"Description"_s, 35}, {u"Item"_s, 15}, {u"Description"_s, 35}},
         {{u"Status"_s, u"Closed"_s, u"Plea"_s, u"Guilty"_s}});
    Give(record, CaseTab::Names, {{u"Name"_s, 60}, {u"Role"_s, 40}},
         {{u"DOE, JOHN Q"_s, u"Defendant"_s}});
    Give(record, CaseTab::Violations, {{u"Date"_s, 30}, {u"Violation"_s, 70}},
         {{u"05/05/1999"_s, u"Speeding"_s}});
    record.Tab(CaseTab::Violations).TabDone = false;
    record.Tab(CaseTab::Violations).TabIncomplete = true;
    return record;
}

CaseRecord BankruptcyList()
{
    CaseRecord record(CaseKind::State);
    record.lblState = u"WAWBK"_s;
    record.chkBK = true;
    record.txtCaseNumber = u"99-20077"_s;
    record.SetHeading(u"Case Details (99-20077)"_s);
    record.SetTitle(u"Multiple Matching Cases Found for the Number Entered"_s);
    record.lblCourtName = u"Western Washington Bankruptcy Court"_s;
    record.lblDateFiled = u"N/A"_s;
    record.chkBKYass = true;
    Give(record, CaseTab::Summary, {{u"Case#"_s, 15}, {u"Type"_s, 10}, {u"Title"_s, 74}},
         {{u"2:99-bk-20077"_s, u"bk"_s, u"John Doe and Jane Doe"_s},
          {u"3:99-bk-20077"_s, u"bk"_s, u"Acme Rentals, Inc."_s}});
    return record;
}

ReportSituation AtNoon()
{
    ReportSituation situation;
    situation.DatePrinted = u"3/15/2024 12:00:00 PM"_s;
    return situation;
}

CaseRecord SampleCase(const QString &name)
{
    if (name == u"civil")
        return CivilCase();
    if (name == u"non-civil")
        return NonCivilCase();
    if (name == u"bankruptcy")
        return BankruptcyList();
    return SuperiorCase();
}

QStringList SampleCaseNames()
{
    return {u"superior"_s, u"civil"_s, u"non-civil"_s, u"bankruptcy"_s};
}
