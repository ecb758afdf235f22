#include "app/NewEntries.h"

#include "casedetails/CaseIdentity.h"
#include "casedetails/CaseJob.h"
#include "core/Clock.h"
#include "core/TextUtilities.h"
#include "courts/CaseMarks.h"
#include "history/HistoryStore.h"
#include "history/NewRows.h"
#include "namesearch/CaseMemory.h"
#include "namesearch/DiscisSearch.h"
#include "namesearch/ResultColumns.h"

#include <QCryptographicHash>

#include <algorithm>
#include <array>
#include <map>

using namespace Qt::StringLiterals;

namespace {
/// What is added to a case while it goes on. The rows of the other tabs are the state of things.
constexpr std::array<CaseTab, 5> comparedTabs{
    CaseTab::Docket, CaseTab::Charges, CaseTab::Violations, CaseTab::Judgments, CaseTab::Documents};

/// One case, for as long as its job lives. What it is compared with is the last look before it,
/// however often a tab comes.
class CaseFollower : public QObject
{
public:
    explicit CaseFollower(CaseJob *followed) : QObject(followed), job(followed)
    {
        connect(job, &CaseJob::TabCame, this, &CaseFollower::tabCame);
        connect(job, &CaseJob::Ended, this, &CaseFollower::noteOpened);
    }

private:
    using Look = std::optional<HistoryStore::Look>;

    const Look &lookBefore(CaseTab tab, const QString &identity)
    {
        const auto known = before.find(tab);
        if (known != before.end())
            return known->second;
        return before[tab] =
                   HistoryStore::Of().LastLook(identity, CaseTabRowOf(tab).caption.toString());
    }

    void tabCame(CaseTab tab, bool whole)
    {
        const QString identity = CaseIdentity(job->Record);
        if (identity.isEmpty()
            || std::find(comparedTabs.begin(), comparedTabs.end(), tab) == comparedTabs.end())
            return;
        const GridTable &table = job->Record.Tab(tab).Table;
        const Look &look = lookBefore(tab, identity);
        const QList<quint64> rows = table.IsMessage() ? QList<quint64>() : HashesOf(table.Rows);
        if (look)
            job->Sheet.MarkNew(tab, {RowsNotIn(rows, look->Rows), look->When.date()});
        save(tab, identity, rows, whole);
    }

    /// A first look that is a part is none: what it lacks would count as new the next time.
    void save(CaseTab tab, const QString &identity, const QList<quint64> &rows, bool whole)
    {
        if (!whole && !before[tab])
            return;
        HistoryStore::Of().SaveLook(identity, CaseTabRowOf(tab).caption.toString(),
                                    Clock::Current().Now(), rows, whole);
    }

    /// A case was opened when its Summary came, whatever other tabs the user wants.
    void noteOpened()
    {
        const QString identity = CaseIdentity(job->Record);
        if (!identity.isEmpty() && job->Record.Tab(CaseTab::Summary).TabDone)
            HistoryStore::Of().SaveLook(identity, CaseTabRowOf(CaseTab::Summary).caption.toString(),
                                        Clock::Current().Now(), {}, true);
    }

    CaseJob *job;
    std::map<CaseTab, Look> before;
};

/// Whether a column tells how a case stands today. A case whose status becomes another is not a new
/// one.
bool isState(QStringView header)
{
    return header == u"Status" || header == u"Eff. Dt.";
}

/// The columns that make a row what it is.
QList<bool> comparedColumns(ResultKind kind)
{
    QList<bool> compared;
    for (const ResultColumn &column : ResultColumnsOf(kind))
        compared.append(!isState(column.header));
    return compared;
}

/// The rows of a list that are cases, without what the list and the user have made of them.
struct CaseRows
{
    QList<quint64> Hashes;
    QList<int> Places; ///< of each of them in the list
};

/// A hundred thousand rows are compared between two events: no texts are made of their cells but of
/// the numbers.
CaseRows caseRowsOf(const RowTable &table, ResultKind kind)
{
    constexpr qsizetype number = 1;
    const QList<bool> compared = comparedColumns(kind);
    std::vector<QByteArrayView> cells(static_cast<size_t>(compared.size()));
    CaseRows rows;
    rows.Hashes.reserve(table.Count());
    rows.Places.reserve(table.Count());
    for (int place = 0; place < table.Count(); ++place) {
        table.ViewCells(place, cells);
        const QString numberCell = QString::fromUtf8(cells[number]);
        if (!NamesCase(numberCell))
            continue;
        RowHash row;
        for (qsizetype column = 0; column < compared.size(); ++column) {
            if (column == number)
                row.Add(QStringView(CaseNumberOf(numberCell)));
            else if (compared[column])
                row.Add(cells[static_cast<size_t>(column)]);
        }
        rows.Hashes.append(row.Value());
        rows.Places.append(place);
    }
    return rows;
}

/// One search, for as long as its job lives.
class SearchFollower : public QObject
{
public:
    explicit SearchFollower(NameSearch *followed)
        : QObject(followed), job(followed), firstLines(followed->lboxQueue.Lines())
    {
        connect(job, &NameSearch::RunEnded, this, &SearchFollower::runEnded);
    }

private:
    using Run = std::optional<HistoryStore::Run>;

    /// What was searched for, whoever pays for it. The pages of an index are one search; what was
    /// asked for beside the first lines, people of a name, makes it another.
    QString key() const
    {
        QStringList lines = firstLines;
        if (!job->Record.chkIndexSearch && job->lboxQueue.Lines() != firstLines)
            lines += job->lboxQueue.Lines();
        for (QString &line : lines)
            line = TrimBlanks(line);
        const QByteArray hash =
            QCryptographicHash::hash(lines.join(u'\n').toUtf8(), QCryptographicHash::Sha256);
        return QString::fromLatin1(hash.toHex());
    }

    const Run &runBefore(const QString &key)
    {
        const auto known = before.find(key);
        if (known != before.end())
            return known->second;
        return before[key] = HistoryStore::Of().LastRun(key);
    }

    void runEnded(bool whole)
    {
        const QString ownKey = key();
        const CaseRows rows = caseRowsOf(job->Record.Rows, job->Record.Kind);
        if (const Run &run = runBefore(ownKey))
            mark(rows, *run);
        if (whole && !sentPeopleAlone())
            HistoryStore::Of().SaveRun(ownKey, Clock::Current().Now(), rows.Hashes);
    }

    void mark(const CaseRows &rows, const HistoryStore::Run &run)
    {
        RowMarks marks{.Rows = {}, .Since = run.When.date()};
        const QSet<int> added = RowsNotIn(rows.Hashes, run.Rows);
        for (const int row : added)
            marks.Rows.insert(rows.Places[row]);
        job->Record.Rows.SetMarks(marks);
    }

    /// People were listed in place of cases: the cases are yet to be asked for.
    bool sentPeopleAlone() const
    {
        const auto *search = qobject_cast<const NonCivilSearch *>(job);
        return search && search->DupesFound && search->RowCount() == 0;
    }

    NameSearch *job;
    QStringList firstLines;
    std::map<QString, Run> before;
};

void follow(Job *job)
{
    if (auto *ofCase = qobject_cast<CaseJob *>(job))
        new CaseFollower(ofCase);
    else if (auto *search = qobject_cast<NameSearch *>(job))
        new SearchFollower(search);
}
} // namespace

void WireNewEntries()
{
    JobEvents *jobs = &JobEvents::Of();
    QObject::connect(jobs, &JobEvents::Launched, jobs, &follow);
    UseCaseMemory([](const QString &identity) { return HistoryStore::Of().LastOpened(identity); });
}
