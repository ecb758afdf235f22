#pragma once

#include "casedetails/CaseDesk.h"
#include "casedetails/frmCaseDetails.h"

#include <QLabel>
#include <QTest>

/// A test of what a Summary does to the window: a case of each state, none of whose other tabs is
/// fetched at once, and its first request.
class SummaryTest : public CaseTest
{
protected:
    frmCaseDetails *windowOf(const QString &state)
    {
        if (state == u"WA")
            return Superior();
        if (state == u"OR")
            return OfState(state, u"CV0100001"_s);
        if (state == u"ID")
            return OfState(state, u"CV-2001-1"_s);
        return Bankruptcy(u"BKRPT~SUMMARY~99-20077~"_s);
    }

    static QString requestOf(const QString &state)
    {
        if (state == u"WA")
            return SuperiorLine(u"SUMMARY"_s);
        if (state == u"OR")
            return u"OREGON@SUMMARY,NAMES,DOCKET,@CV0100001@BAK C@"_s;
        if (state == u"ID")
            return u"IDSUP¦SUMMARY,NAMES,DOCKET,¦CV-2001-1¦Ada¦"_s;
        return u"BKRPT~SUMMARY~99-20077~"_s;
    }

    /// A case of this state whose Summary was answered so.
    frmCaseDetails *summarised(const QString &state, const QStringList &reply)
    {
        for (const QString &section :
             {u"CaseSearchTabs"_s, u"OrCaseSearchTabs"_s, u"IdCaseSearchTabs"_s})
            FetchAtOnce(section, {});
        court->Expect(requestOf(state)).Reply(reply);
        frmCaseDetails *window = windowOf(state);
        Run(window);
        return window;
    }

    static QList<QStringList> summaryCells(const CaseWindow *window)
    {
        return CellsOf(window, CaseTab::Summary);
    }
    static bool isHidden(const QWidget *window, const char *name)
    {
        return window->findChild<QWidget *>(QLatin1StringView(name))->isHidden();
    }

    static QStringList superiorReply()
    {
        return {u"Case#:~02-1-00123-4~"_s,
                u"Court:~King  Co Superior Ct~"_s,
                u"Title:~A & B VS C && D~"_s,
                u"Date Filed:~03/04/2002~"_s,
                u"Orig cause: Theft~Theft~"_s,
                u"Status:~Active~"_s,
                u"EOF~"_s};
    }
    static QStringList stateReply()
    {
        return {u"SUMMARY~names~Docket~ACCOUNTING~schedule~"_s,
                u"Court~ Ada County~"_s,
                u"Case Number~CR-1998-0002546~"_s,
                u"Title~STATE & PEOPLE VS SMITH~"_s,
                u"Status~Closed~"_s,
                u"Judge"_s,
                u"Filed~05/08/1998~"_s,
                u"EOF~"_s};
    }
    static QStringList bankruptcyReply()
    {
        return {u"Case Title~SMITH & DOE~"_s,
                u"TabDef/RETRIEVECOMMAND=BKRPT~SUMMARY~99-20077~/RETRIEVECOMMAND=BKRPT~CLAIMS "
                "SUMMARY~99-20077~/retrievecommand=BKRPT~NAMES~99-20077~/Other/"
                "RETRIEVECOMMAND=BKRPT~DOCKET~99-20077~/"_s,
                u"Chapter~7~"_s,
                u"Date Filed~03/16/1999~"_s,
                u"Judge"_s,
                u"EOF~"_s};
    }
};
