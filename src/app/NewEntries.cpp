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
#include <QVarLengthArray>

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

/// The number of a row that is no case.
constexpr quint64 noCase = 0;

/// The number under which a row is known again, without what the list and the user have made of it.
/// No texts are made of its cells but of the number of the case.
quint64 numberOf(const RowTable &table, int place, const QList<bool> &compared)
{
    constexpr qsizetype number = 1;
    constexpr qsizetype usualColumns = 16;
    QVarLengthArray<QByteArrayView, usualColumns> cells(compared.size());
    table.ViewCells(place, cells);
    const QString numberCell = QString::fromUtf8(cells[number]);
    if (!NamesCase(numberCell))
        return noCase;
    RowHash row;
    for (qsizetype column = 0; column < compared.size(); ++column) {
        if (column == number)
            row.Add(QStringView(CaseNumberOf(numberCell)));
        else if (compared[column])
            row.Add(cells[column]);
    }
    return row.Value();
}

/// One search, for as long as its job lives. Its rows get their numbers as they come: behind the
/// last of a million nobody would want to wait for all of them.
class SearchFollower : public QObject
{
public:
    explicit SearchFollower(NameSearch *followed)
        : QObject(followed), job(followed), firstLines(followed->lboxQueue.Lines()),
          compared(comparedColumns(followed->Record.Kind))
    {
        const RowTable *rows = &job->Record.Rows;
        for (int row = 0; row < rows->Count(); ++row)
            take(row);
        connect(rows, &RowTable::RowAdded, this, [this, rows] { take(rows->Count() - 1); });
        connect(rows, &RowTable::Cleared, this, [this] { numbers.clear(); });
        connect(job, &NameSearch::RunEnded, this, &SearchFollower::runEnded);
    }

private:
    using Run = std::optional<HistoryStore::Run>;

    void take(int row) { numbers.append(numberOf(job->Record.Rows, row, compared)); }

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
        if (const Run &run = runBefore(ownKey))
            mark(*run);
        if (whole && !sentPeopleAlone())
            HistoryStore::Of().SaveRun(ownKey, Clock::Current().Now(), numbersOfCases());
    }

    void mark(const HistoryStore::Run &run)
    {
        RowTable &rows = job->Record.Rows;
        rows.SetMarks(run.When.date(), [this, &rows, &run](int row) {
            const quint64 number = numbers[rows.Arrival(row)];
            return number != noCase && !run.Rows.Contains(number);
        });
    }

    QList<quint64> numbersOfCases() const
    {
        QList<quint64> ofCases = numbers;
        ofCases.removeAll(noCase);
        return ofCases;
    }

    /// People were listed in place of cases: the cases are yet to be asked for.
    bool sentPeopleAlone() const
    {
        const auto *search = qobject_cast<const NonCivilSearch *>(job);
        return search && search->DupesFound && search->RowCount() == 0;
    }

    NameSearch *job;
    QStringList firstLines;
    const QList<bool> compared;
    QList<quint64> numbers; ///< of the rows, in the order of their coming
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
