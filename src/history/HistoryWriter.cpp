#include "history/HistoryWriter.h"

#include <QDeadlineTimer>
#include <QFileInfo>

#include <utility>

using namespace Qt::StringLiterals;

namespace {
/// How long one attempt waits for another program, and how long it lies still before the next.
constexpr int busyMilliseconds = 200;
constexpr int pauseMilliseconds = 200;
/// What is queued while the file is held grows to this many rows, about 40 MB; more is lost.
constexpr int mostWaiting = 5'000'000;
} // namespace

HistoryWriter::HistoryWriter(const QString &file) : path(file)
{
    setObjectName(u"history"_s);
}

HistoryWriter::~HistoryWriter()
{
    {
        const QMutexLocker locker(&mutex);
        finishing = true;
        somethingChanged.wakeAll();
    }
    wait();
}

void HistoryWriter::Put(HistoryCommand command)
{
    const QMutexLocker locker(&mutex);
    if (state == FileState::GivenUp || weight + command.Weight > mostWaiting) {
        lost = true;
        return;
    }
    weight += command.Weight;
    queue.push_back(std::move(command));
    somethingChanged.wakeAll();
}

bool HistoryWriter::WaitUntilWritten(int milliseconds)
{
    const QDeadlineTimer deadline(milliseconds);
    QMutexLocker locker(&mutex);
    while (state == FileState::Opening
           || (state == FileState::Open && (atWork || !queue.empty()))) {
        if (!somethingChanged.wait(&mutex, deadline))
            return false;
    }
    return state == FileState::Open && !std::exchange(lost, false);
}

bool HistoryWriter::WaitUntilOpen(int milliseconds)
{
    const QDeadlineTimer deadline(milliseconds);
    QMutexLocker locker(&mutex);
    while (state == FileState::Opening) {
        if (!somethingChanged.wait(&mutex, deadline))
            return false;
    }
    return state == FileState::Open;
}

void HistoryWriter::run()
{
    if (openFile()) {
        for (Batch batch = takeBatch(); !batch.empty(); batch = takeBatch())
            writeBatch(batch);
    }
    database.Close();
}

void HistoryWriter::setState(FileState newState)
{
    // Whoever waits for the state finds the signal on its way.
    if (newState == FileState::GivenUp)
        Q_EMIT GivenUp();
    const QMutexLocker locker(&mutex);
    state = newState;
    somethingChanged.wakeAll();
}

bool HistoryWriter::openFile()
{
    HistoryTrouble trouble = tryToOpen();
    while (trouble == HistoryTrouble::Busy) {
        Q_EMIT InTrouble(trouble, {});
        if (!pauseForOthers())
            break;
        trouble = tryToOpen();
    }
    if (trouble == HistoryTrouble::None) {
        setState(FileState::Open);
        return true;
    }
    if (trouble != HistoryTrouble::Busy)
        Q_EMIT InTrouble(trouble, {});
    setState(FileState::GivenUp);
    return false;
}

/// Only the first time is what the file has unfinished left behind: from then on this session adds
/// to it.
HistoryTrouble HistoryWriter::open()
{
    const HistoryTrouble trouble = OpenHistoryFile(database, path, busyMilliseconds, unfinished);
    if (trouble == HistoryTrouble::None)
        unfinished = Unfinished::IsOurs;
    return trouble;
}

/// A damaged file gives its place to a new one. A page that the disk does not give looks like
/// damage, too, and may be given the next time: one that is whole is not put aside for that.
HistoryTrouble HistoryWriter::tryToOpen()
{
    HistoryTrouble trouble = open();
    if (trouble == HistoryTrouble::Damaged)
        trouble = open();
    if (trouble == HistoryTrouble::Damaged)
        trouble = renewFile() ? HistoryTrouble::None : HistoryTrouble::CannotWrite;
    if (trouble == HistoryTrouble::None) {
        ++files;
        ++version;
        Q_EMIT Wrote();
    }
    return trouble;
}

bool HistoryWriter::renewFile()
{
    database.Close();
    const QString aside = PutAside(path);
    if (aside.isEmpty())
        return false;
    Q_EMIT InTrouble(HistoryTrouble::Damaged, aside);
    return open() == HistoryTrouble::None;
}

/// A file that was deleted while it is open takes what is written and keeps none of it: a new one
/// is begun. False when that cannot be done.
bool HistoryWriter::fileIsThere()
{
    if (QFileInfo::exists(path))
        return true;
    database.Close();
    const HistoryTrouble trouble = open();
    const bool opened = trouble == HistoryTrouble::None;
    Q_EMIT InTrouble(opened ? HistoryTrouble::Deleted : trouble, {});
    if (opened)
        ++files;
    else
        setState(FileState::GivenUp);
    return opened;
}

/// Waits a moment for another program. False when there is no time for that any more.
bool HistoryWriter::pauseForOthers()
{
    const QDeadlineTimer deadline(pauseMilliseconds);
    QMutexLocker locker(&mutex);
    while (!finishing && somethingChanged.wait(&mutex, deadline)) {
    }
    return !finishing;
}

HistoryWriter::Batch HistoryWriter::takeBatch()
{
    QMutexLocker locker(&mutex);
    atWork = false;
    somethingChanged.wakeAll();
    while (queue.empty() && !finishing && state == FileState::Open)
        somethingChanged.wait(&mutex);
    if (state != FileState::Open)
        return {};
    Batch batch(std::make_move_iterator(queue.begin()), std::make_move_iterator(queue.end()));
    queue.clear();
    weight = 0;
    atWork = !batch.empty();
    return batch;
}

void HistoryWriter::writeBatch(const Batch &batch)
{
    if (!fileIsThere())
        return;
    HistoryTrouble trouble = tryToWrite(batch);
    while (trouble == HistoryTrouble::Busy) {
        Q_EMIT InTrouble(trouble, {});
        if (!pauseForOthers())
            break;
        trouble = tryToWrite(batch);
    }
    if (trouble == HistoryTrouble::Damaged) {
        if (!openFile())
            return;
        trouble = tryToWrite(batch);
    }
    if (trouble == HistoryTrouble::Damaged) {
        if (!renewFile()) {
            Q_EMIT InTrouble(HistoryTrouble::CannotWrite, {});
            setState(FileState::GivenUp);
            return;
        }
        ++files;
        trouble = tryToWrite(batch);
    }
    if (trouble == HistoryTrouble::None)
        batchIsWritten(batch);
    else
        writeEach(batch);
}

/// All or nothing: many commands cost hardly more than one.
HistoryTrouble HistoryWriter::tryToWrite(const Batch &batch)
{
    if (!database.Run(u"BEGIN IMMEDIATE"_s))
        return database.Trouble();
    HistoryTrouble trouble = HistoryTrouble::None;
    for (const HistoryCommand &command : batch) {
        if (!command.Write(database)) {
            trouble = database.Trouble();
            break;
        }
    }
    if (trouble == HistoryTrouble::None && database.Run(u"COMMIT"_s))
        return HistoryTrouble::None;
    if (trouble == HistoryTrouble::None)
        trouble = database.Trouble();
    database.Run(u"ROLLBACK"_s);
    return trouble;
}

/// A command that cannot be written does not take the others with it.
void HistoryWriter::writeEach(const Batch &batch)
{
    for (const HistoryCommand &command : batch) {
        const Batch single{command};
        const HistoryTrouble trouble = tryToWrite(single);
        if (trouble == HistoryTrouble::None) {
            batchIsWritten(single);
            continue;
        }
        Q_EMIT InTrouble(trouble, {});
        const QMutexLocker locker(&mutex);
        lost = true;
    }
}

void HistoryWriter::batchIsWritten(const Batch &batch)
{
    for (const HistoryCommand &command : batch) {
        if (command.ThenTidy) {
            TidyHistoryFile(database);
            break;
        }
    }
    ++version;
    Q_EMIT Wrote();
}
