#include "history/HistoryStore.h"

#include "core/Clock.h"
#include "history/HistoryCommands.h"
#include "history/HistoryTrouble.h"
#include "history/HistoryWriter.h"

#include <QCoreApplication>

#include <utility>

namespace {
/// How long a reader waits: for the file to be open, and for a program that holds it.
constexpr int readMilliseconds = 50;
constexpr int changeMilliseconds = 250;
/// How many items are looked through at once: with five words, each of which stands in all of them,
/// that takes some four milliseconds.
constexpr int rowsOfStretch = 4'000;

/// An id is the moment of asking, in microseconds: known at once, without a look into the file, and
/// greater than every one before.
qint64 nextId()
{
    constexpr qint64 microseconds = 1000;
    static qint64 last = 0;
    last = qMax(last + 1, QDateTime::currentMSecsSinceEpoch() * microseconds);
    return last;
}
} // namespace

HistoryStore &HistoryStore::Of()
{
    static HistoryStore store;
    // What Qt keeps of a connection goes with the application, before this object does.
    static const bool closesInTime = [] {
        qAddPostRoutine([] { HistoryStore::Of().Close(); });
        return true;
    }();
    static_cast<void>(closesInTime);
    return store;
}

HistoryStore::HistoryStore()
{
    pause.setSingleShot(true);
    pause.setInterval(changeMilliseconds);
    connect(&pause, &QTimer::timeout, this, [this] {
        if (changed)
            announceChange();
    });
}

HistoryStore::~HistoryStore()
{
    Close();
}

void HistoryStore::Open(const QString &file)
{
    Close();
    path = file;
    said.clear();
    writer = std::make_unique<HistoryWriter>(file);
    connect(writer.get(), &HistoryWriter::Wrote, this, &HistoryStore::noteChange);
    connect(writer.get(), &HistoryWriter::InTrouble, this, &HistoryStore::sayTrouble);
    connect(writer.get(), &HistoryWriter::GivenUp, this, &HistoryStore::Close);
    writer->start(QThread::LowPriority);
}

void HistoryStore::Close()
{
    reader.Close();
    readerFile = 0;
    knownCount = {};
    // What the thread has still to say is of a file that is closed now.
    if (const std::unique_ptr<HistoryWriter> closing = std::move(writer))
        disconnect(closing.get(), nullptr, this, nullptr);
    path.clear();
}

bool HistoryStore::WaitUntilWritten(int milliseconds)
{
    return writer && writer->WaitUntilWritten(milliseconds);
}

void HistoryStore::put(HistoryCommand command)
{
    if (writer)
        writer->Put(std::move(command));
}

qint64 HistoryStore::Begin(AskedItem item)
{
    if (!writer)
        return 0;
    item.Id = nextId();
    if (!item.When.isValid())
        item.When = Clock::Current().Now();
    put(WriteBegin(item));
    return item.Id;
}

void HistoryStore::Runs(qint64 id)
{
    put(WriteState(id, AskedState::Running));
}

void HistoryStore::End(qint64 id, const QString &outcome, int count)
{
    put(WriteEnd(id, outcome, count));
}

void HistoryStore::Again(qint64 id)
{
    put(WriteState(id, AskedState::Waiting));
}

void HistoryStore::Sent(qint64 id, SentKind kind, const QString &clientCode, const QDateTime &when)
{
    put(WriteSent(id, kind, clientCode, when));
}

quint64 HistoryStore::HashOfRow(const QStringList &cells)
{
    return HashOfCells(cells);
}

std::optional<HistoryStore::Look> HistoryStore::LastLook(const QString &caseKey,
                                                         const QString &tab) const
{
    HistoryDatabase *database = reading();
    const std::optional<SeenRows> seen =
        database ? ReadLook(*database, caseKey, tab) : std::nullopt;
    if (!seen)
        return std::nullopt;
    return Look{seen->When, seen->Rows};
}

void HistoryStore::SaveLook(const QString &caseKey, const QString &tab, const QDateTime &when,
                            const QList<quint64> &rows, bool whole)
{
    put(WriteLook(caseKey, tab, when, rows, whole));
}

std::optional<QDateTime> HistoryStore::LastOpened(const QString &caseKey) const
{
    HistoryDatabase *database = reading();
    return database ? ReadLastOpened(*database, caseKey) : std::nullopt;
}

std::optional<HistoryStore::Run> HistoryStore::LastRun(const QString &searchKey) const
{
    HistoryDatabase *database = reading();
    return database ? ReadRun(*database, searchKey) : std::nullopt;
}

void HistoryStore::SaveRun(const QString &searchKey, const QDateTime &when,
                           const QList<quint64> &rows)
{
    put(WriteRun(searchKey, when, rows));
}

QList<AskedItem> HistoryStore::Items(const QString &filter, int offset, int count) const
{
    HistoryDatabase *database = reading();
    if (!database)
        return {};
    const int version = writer->Version();
    const QList<AskedItem> items = ReadItems(*database, filter, offset, count);
    if (offset == 0 && items.size() < count)
        knownCount = {filter, version, static_cast<int>(items.size())};
    return items;
}

int HistoryStore::CountOf(const QString &filter) const
{
    HistoryDatabase *database = reading();
    if (!database)
        return 0;
    const int version = writer->Version();
    if (knownCount.Version != version || knownCount.Filter != filter)
        knownCount = {filter, version, ReadCount(*database, filter)};
    return knownCount.Count;
}

FoundIds HistoryStore::Found(const QString &filter, qint64 below) const
{
    HistoryDatabase *database = reading();
    return database ? ReadFound(*database, filter, below, rowsOfStretch) : FoundIds();
}

QList<AskedItem> HistoryStore::ItemsOf(const QList<qint64> &ids) const
{
    HistoryDatabase *database = reading();
    return database ? ReadItemsOf(*database, ids) : QList<AskedItem>(ids.size());
}

QList<AskedItem> HistoryStore::Unfinished() const
{
    HistoryDatabase *database = reading();
    return database ? ReadUnfinished(*database) : QList<AskedItem>();
}

void HistoryStore::Settle(const QList<qint64> &ids, const QString &outcome)
{
    put(WriteSettled(ids, outcome));
}

QList<HistoryStore::UsageLine> HistoryStore::Usage() const
{
    HistoryDatabase *database = reading();
    return database ? ReadUsage(*database) : QList<UsageLine>();
}

QList<AskedItem> HistoryStore::UsageItems(const QString &code, const QString &month) const
{
    HistoryDatabase *database = reading();
    return database ? ReadUsageItems(*database, code, month) : QList<AskedItem>();
}

void HistoryStore::ClearAll()
{
    put(WriteNothingAnyMore());
}

void HistoryStore::ForgetBefore(const QDateTime &when)
{
    put(WriteForgotten(when));
}

/// The reader's connection, opened when it is first needed and whenever the file has become another
/// one; null while there is nothing to be read.
HistoryDatabase *HistoryStore::reading() const
{
    if (!writer || !writer->WaitUntilOpen(readMilliseconds))
        return nullptr;
    const int file = writer->Files();
    if (reader.IsOpen() && readerFile == file)
        return &reader;
    if (!reader.Open(path, HistoryDatabase::Access::ReadOnly, readMilliseconds))
        return nullptr;
    readerFile = file;
    return &reader;
}

void HistoryStore::sayTrouble(HistoryTrouble trouble, const QString &aside)
{
    if (said.contains(trouble))
        return;
    said.insert(trouble);
    Q_EMIT Problem(ProblemText(trouble, path, aside));
}

void HistoryStore::noteChange()
{
    if (pause.isActive())
        changed = true;
    else
        announceChange();
}

void HistoryStore::announceChange()
{
    changed = false;
    pause.start();
    Q_EMIT Changed();
}
