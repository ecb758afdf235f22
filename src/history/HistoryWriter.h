#pragma once

#include "history/HistoryDatabase.h"
#include "history/HistoryFile.h"

#include <QMutex>
#include <QThread>
#include <QWaitCondition>

#include <atomic>
#include <deque>
#include <functional>
#include <vector>

/// Something to be written: its statements, on the writer's connection. False is a failure, of
/// which the connection tells. It may be called again after one, and touches nothing but what it
/// has brought along: it runs in the writer's thread.
struct HistoryCommand
{
    std::function<bool(HistoryDatabase &)> Write;
    int Weight = 1;        ///< how much it holds in memory, in rows
    bool ThenTidy = false; ///< what it deletes is to be gone from the file, too
};

/// Writes the history in a thread of its own, in the order in which it was asked to. Whoever asks
/// never waits for the disk: a command is put into the queue, and that is all.
///
/// What cannot be written because another program holds the file is tried again; what fails for
/// another reason is lost, and is said.
class HistoryWriter : public QThread
{
    Q_OBJECT
public:
    explicit HistoryWriter(const QString &file);
    /// Writes what is queued, without waiting for another program that holds the file.
    ~HistoryWriter() override;

    void Put(HistoryCommand command);
    /// Waits until all that was asked for so far is in the file. False when that was not so after
    /// so many milliseconds, or never will be.
    bool WaitUntilWritten(int milliseconds);
    /// Waits until the file is open. False when that was not so after so many milliseconds, or
    /// never will be.
    bool WaitUntilOpen(int milliseconds);
    /// How often the file was begun anew or written: what was read under another number may be out
    /// of date.
    int Version() const { return version; }
    /// How often the file has become another one.
    int Files() const { return files; }

Q_SIGNALS:
    /// Something was written.
    void Wrote();
    /// `aside` is where a damaged file was put.
    void InTrouble(HistoryTrouble trouble, const QString &aside);
    /// The file cannot be used, and will not be used again.
    void GivenUp();

protected:
    void run() override;

private:
    enum class FileState { Opening, Open, GivenUp };
    using Batch = std::vector<HistoryCommand>;

    bool openFile();
    bool renewFile();
    bool fileIsThere();
    HistoryTrouble open();
    HistoryTrouble tryToOpen();
    Batch takeBatch();
    void writeBatch(const Batch &batch);
    HistoryTrouble tryToWrite(const Batch &batch);
    void writeEach(const Batch &batch);
    void batchIsWritten(const Batch &batch);
    bool pauseForOthers();
    void setState(FileState newState);

    const QString path;
    HistoryDatabase database; ///< of the thread
    Unfinished unfinished = Unfinished::IsLeftBehind;

    QMutex mutex;
    QWaitCondition somethingChanged;
    std::deque<HistoryCommand> queue;
    int weight = 0;      ///< of what is queued
    bool atWork = false; ///< a batch was taken and is not yet written
    bool lost = false;   ///< something asked for was not written
    bool finishing = false;
    FileState state = FileState::Opening;
    std::atomic<int> version = 0;
    std::atomic<int> files = 0;
};
