#include "sweeps/CaseRuns.h"

#include "casedetails/frmCaseDetails.h"
#include "casedetails/frmCivilCaseDetails.h"
#include "casedetails/frmNCCaseDetails.h"
#include "core/GlobalState.h"
#include "sweeps/ExchangeDesk.h"

#include <QDialog>
#include <QPointer>
#include <QPushButton>

namespace {
const QString timedOut = u"Search Error! Reason: Timed Out Waiting For Response from Server."_s;

QString captionOf(CaseTab tab)
{
    return CaseTabRowOf(tab).caption.toString();
}

QString textOf(const QList<QStringList> &cells)
{
    QStringList lines;
    for (const QStringList &line : cells)
        lines.append(line.join(u'+'));
    return lines.join(u" / "_s);
}

/// A window of this court and kind, in the queue.
CaseWindow *makeWindow(ExchangeDesk &desk, const QString &court, CaseKind kind,
                       const QString &request)
{
    if (kind == CaseKind::NonCivil)
        return desk.NonCivil(u"Y00012345"_s);
    if (kind == CaseKind::Civil)
        return desk.Civil(u"Y00012345"_s);
    if (court == u"WA")
        return desk.Superior();
    if (court == u"OR")
        return desk.OfState(court, u"CV0100001"_s);
    if (court == u"ID")
        return desk.OfState(court, u"CV-2001-1"_s);
    return desk.Bankruptcy(request);
}

/// A case of which one tab is looked at.
class CaseRun : public ExchangeRun
{
public:
    CaseRun(ExchangeDesk &ownDesk, CaseWindow *ownWindow, CaseTab ownTab)
        : desk(ownDesk), window(ownWindow), tab(ownTab)
    {
    }
    ~CaseRun() override { delete window; }

    bool Go() override
    {
        ExchangeDesk::Begin(window);
        return desk.Finished(window);
    }
    JobWindow *Window() const override { return window; }
    bool IsOver() const override;
    QStringList Seen() const override;

protected:
    bool searchNow();

    ExchangeDesk &desk;
    QPointer<CaseWindow> window;
    CaseTab tab;
};

/// The run may go on behind the exchange, to tabs that nobody wants.
bool CaseRun::IsOver() const
{
    return !window || !Global.bSearchInProgress || window->Tab(tab).TabDone
           || window->Tab(tab).TabIncomplete;
}

/// Asks for the tab alone on the panel, which is in sight, and waits until its run is over.
bool CaseRun::searchNow()
{
    Click(window, "cmdClearAll");
    Child<QAbstractButton>(window, qPrintable(u"chkTab_%1"_s.arg(CaseTabRowOf(tab).check)))
        ->click();
    Click(window, "cmdSearchNow");
    return desk.Finished(window);
}

QStringList CaseRun::Seen() const
{
    const CaseTabState state = window->Tab(tab);
    QStringList flags;
    if (state.TabIncomplete)
        flags.append(u"incomplete"_s);
    if (state.TabNotRetrieved)
        flags.append(u"not retrieved"_s);
    if (state.TabDone)
        flags.append(u"done"_s);
    const QString title = captionOf(tab) == u"Documents" ? u"Document"_s : captionOf(tab);
    return {
        Line("status", TextOf(window, "lblStatus") + u'/' + ColourOf(window, "lblStatus")),
        Line("warning", TextOf(window, "lblWarning")),
        Line("cells", textOf(ExchangeDesk::CellsOf(window, tab))),
        Line("tab", flags.join(u'+')),
        Line("log",
             desk.Logged({LinkLostLine, title + u" Search Result Was: "_s + timedOut}).join(u'+')),
    };
}

/// The same, as it has to be where the exchange is over or failed.
QStringList seenOf(bool whole, const QString &warning, const QString &cells, const QString &flags,
                   CaseTab tab, const Came &came)
{
    QStringList log;
    if (!whole) {
        if (came.Lost || came.InPart)
            log.append(LinkLostLine);
        const QString title = tab == CaseTab::Documents ? u"Document"_s : captionOf(tab);
        log.append(title + u" Search Result Was: "_s + timedOut);
    }
    return {
        Line("status", whole ? u"Search Complete/blue"_s : u"Search Incomplete!/red"_s),
        Line("warning", whole ? QString() : warning),
        Line("cells", cells),
        Line("tab", flags),
        Line("log", log.join(u'+')),
    };
}

class SummaryRun : public CaseRun
{
public:
    SummaryRun(ExchangeDesk &ownDesk, const SummaryExchange &ownRow)
        : CaseRun(ownDesk, makeWindow(ownDesk, ownRow.Court, ownRow.Kind, ownRow.Request),
                  CaseTab::Summary),
          row(ownRow)
    {
        desk.FetchOnly({});
    }

    void Announce(const Came &came, BoxAnswers &boxes) override;
    bool Go() override;
    QStringList Expected(const Came &came) const override;

private:
    bool isWhole(const Came &came) const { return came.Tokens >= row.Reply.size(); }

    const SummaryExchange &row;
};

void SummaryRun::Announce(const Came &came, BoxAnswers &boxes)
{
    if (row.Asks)
        boxes.ExpectDialog(u"frmArbPrompt"_s, [](QDialog *dialog) { Click(dialog, "Command1"); });
    if (!row.Later)
        return;
    // The tab that failed asks when it is looked at, and so does the one that fails again.
    boxes.ExpectDialog(u"frmOnDemand"_s, [](QDialog *dialog) { Click(dialog, "Command1"); });
    if (!isWhole(came))
        boxes.ExpectDialog(u"frmOnDemand"_s, [](QDialog *dialog) { Click(dialog, "Command2"); });
}

bool SummaryRun::Go()
{
    if (!CaseRun::Go())
        return false;
    if (!row.Later)
        return true;
    ExchangeDesk::ClickTab(window, u"Summary"_s);
    return searchNow();
}

QStringList SummaryRun::Expected(const Came &came) const
{
    if (isWhole(came))
        return seenOf(true, {}, textOf(row.Cells), u"done"_s, CaseTab::Summary, came);
    QStringList read = row.Reply.mid(0, came.Tokens);
    read.removeIf([](const QString &token) { return token.startsWith(u"Searching"); });
    // A later run looks at what it has asked for.
    const QString warning = row.Later ? CaseTabRowOf(CaseTab::Summary).review.toString()
                                      : u"Summary Information Incomplete! Please Retry Search."_s;
    return seenOf(false, warning, read.value(0), u"incomplete"_s, CaseTab::Summary, came);
}

class TabRun : public CaseRun
{
public:
    TabRun(ExchangeDesk &ownDesk, const CaseTabExchange &ownRow, bool isLater)
        : CaseRun(ownDesk,
                  makeWindow(ownDesk, ownRow.Court, ownRow.Kind, u"BKRPT~SUMMARY~99-20077~WAW~"_s),
                  ownRow.Tab),
          row(ownRow), later(isLater)
    {
        desk.FetchOnly(later ? QString() : captionOf(tab));
    }

    void Announce(const Came &came, BoxAnswers &boxes) override;
    bool Go() override;
    QStringList Expected(const Came &came) const override;

private:
    bool isWhole(const Came &came) const { return came.Tokens >= needed(); }
    qsizetype needed() const { return row.Notes.size() + row.Head.size() + row.Rows.size() + 1; }
    QString cells(qsizetype lines) const;
    QString warning() const;

    const CaseTabExchange &row;
    bool later;
};

void TabRun::Announce(const Came &came, BoxAnswers &boxes)
{
    if (later && !isWhole(came))
        boxes.ExpectDialog(u"frmOnDemand"_s, [](QDialog *dialog) { Click(dialog, "Command2"); });
}

bool TabRun::Go()
{
    if (!CaseRun::Go())
        return false;
    if (!later)
        return true;
    ExchangeDesk::ClickTab(window, captionOf(tab));
    return searchNow();
}

/// What the table shows when so many lines of it have come.
QString TabRun::cells(qsizetype lines) const
{
    const QList<QStringList> message{{QString()}, {row.Incomplete}};
    const bool gridDef = row.Head.size() == 1;
    const qsizetype ofTable = lines - row.Notes.size();
    const qsizetype rows = ofTable - row.Head.size();
    // One form of table can be empty, the other needs a row.
    if (gridDef ? ofTable < 1 : rows < 1)
        return textOf(message);
    QList<QStringList> table{{u"Date"_s, u"Entry"_s}};
    if (rows > 0)
        table.append({u"1"_s, u"a"_s});
    if (rows > 1)
        table.insert(row.LastFirst ? 1 : 2, {u"2"_s, u"b"_s});
    return textOf(table);
}

/// The line of a tab that failed, or of one that was looked at since.
QString TabRun::warning() const
{
    if (later)
        return CaseTabRowOf(tab).review.toString();
    return tab == CaseTab::Documents
               ? u"Document Info Incomplete! Click Tab to Retry."_s
               : captionOf(tab) + u" Information Incomplete! Click Tab to Retry."_s;
}

QStringList TabRun::Expected(const Came &came) const
{
    const bool whole = isWhole(came);
    const qsizetype lines = std::min(came.Tokens, needed() - 1);
    const QString failed = later ? u"incomplete"_s : u"incomplete+not retrieved"_s;
    return seenOf(whole, warning(), cells(lines), whole ? u"done"_s : failed, tab, came);
}
} // namespace

std::unique_ptr<ExchangeRun> MakeRun(ExchangeDesk &desk, const SummaryExchange &summary)
{
    return std::make_unique<SummaryRun>(desk, summary);
}

std::unique_ptr<ExchangeRun> MakeRun(ExchangeDesk &desk, const CaseTabExchange &tab, bool later)
{
    return std::make_unique<TabRun>(desk, tab, later);
}
