#include "documents/AllDocumentsJob.h"

#include "core/AtomicFile.h"
#include "core/Clock.h"
#include "core/GlobalState.h"
#include "core/Log.h"
#include "core/RunTimeError.h"
#include "core/TextUtilities.h"
#include "documents/DocumentName.h"
#include "jobs/TurnTaking.h"
#include "jobs/frmQueue.h"
#include "link/Exchange.h"

#include <QFileInfo>
#include <QScopeGuard>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {
constexpr QStringView listName = u"/documents.csv";
constexpr QStringView windowClosed = u"It was stopped because the window was closed.";

QString whatItIs(const DocumentItem &item)
{
    const QString both = item.Start.Date + u' ' + item.Start.Description;
    return both.simplified();
}

QByteArray contentIfAny(const QString &path)
{
    try {
        return FileContent(path);
    } catch (const RunTimeError &) {
        return {};
    }
}
} // namespace

AllDocumentsJob::AllDocumentsJob() : TransferJob(JobKindName::AllDocuments) {}

void AllDocumentsJob::Take(const QList<DocumentStart> &starts)
{
    items = ItemsOf(starts);
    folder.clear();
    const DocumentStart first = starts.value(0);
    CaseNumber = first.CaseNumber;
    County = first.County;
    sClientMatterText = first.ClientMatterText;
    Q_EMIT Changed();
}

int AllDocumentsJob::CountOf(ItemState state) const
{
    return static_cast<int>(
        std::count_if(items.begin(), items.end(),
                      [state](const DocumentItem &item) { return item.State == state; }));
}

qint64 AllDocumentsJob::Bytes() const
{
    qint64 bytes = 0;
    for (const DocumentItem &item : items)
        bytes += item.IsHere() ? item.Bytes : 0;
    return bytes;
}

QStringList AllDocumentsJob::Missing() const
{
    QStringList lines;
    for (const DocumentItem &item : items) {
        if (item.State != ItemState::Waiting && !item.Reason.isEmpty())
            lines.append(whatItIs(item) + u": "_s + item.Reason);
    }
    if (listFailed)
        lines.append(u"The list documents.csv could not be written."_s);
    return lines;
}

/// The next tick comes at the usual pace again.
void AllDocumentsJob::BeginTick()
{
    Timer1->setInterval(Kind().Turn);
}

void AllDocumentsJob::ProcessSearchRequests()
{
    // The run of a window that has gone meanwhile is over.
    const auto atEnd = qScopeGuard([this] {
        if (IsGivenUp())
            Withdraw();
    });
    if (folder.isEmpty())
        prepare();
    if (DocumentItem *item = nextWaiting(); item && TransferWish() == Wish::Goes)
        retrieve(*item);
    if (TransferWish() != Wish::Goes)
        failRest(reasonNotWanted());
    writeList();
    if (nextWaiting())
        goOn();
    else
        finish();
}

void AllDocumentsJob::prepare()
{
    const QString ofCase = FolderOfCase();
    memory = DocumentMemory(contentIfAny(ofCase + listName));
    memory.NameItems(items);
    memory.FindPresent(ofCase, items);
    folder = ofCase;
}

DocumentItem *AllDocumentsJob::nextWaiting()
{
    const auto found = std::find_if(items.begin(), items.end(), [](const DocumentItem &item) {
        return item.State == ItemState::Waiting;
    });
    return found == items.end() ? nullptr : &*found;
}

void AllDocumentsJob::retrieve(DocumentItem &item)
{
    presentFile = item.Name;
    const TransferResult result = Transfer.GetDocument({.Line = item.Start.Command,
                                                        .PageQty = item.Start.PageCount,
                                                        .Folder = folder,
                                                        .Name = item.Name,
                                                        .WantsSha256 = true,
                                                        .AnotherFollows = true});
    presentFile.clear();
    DropRestOfReply();
    note(item, result);
    // Without a link the others cannot be had either, nor behind a reply that may still go on: its
    // rest would be taken for theirs.
    if (LostTheLink(result.End))
        failRest(ReasonOf(result));
    else if (!result.ReplyIsOver && TransferWish() == Wish::Goes)
        failRest(u"The server was still busy with the document before it."_s);
}

void AllDocumentsJob::note(DocumentItem &item, const TransferResult &result) const
{
    if (result.End != TransferEnd::Saved) {
        const QString reason = reasonOf(result);
        item.Fail(reason);
        const bool wanted = result.End != TransferEnd::NotWanted;
        WriteAppInfo((wanted ? u"ERROR *** "_s : QString()) + u"All Documents: "_s + item.Name
                     + u" Not Retrieved: "_s + reason);
        return;
    }
    item.State = ItemState::Retrieved;
    item.File = QFileInfo(result.Path).fileName();
    item.Bytes = result.Saved.Bytes;
    item.Sha256 = QString::fromLatin1(result.Saved.Sha256);
    item.When = Clock::Current().Now().toString(u"yyyy-MM-dd HH:mm:ss"_s);
    item.Reason.clear();
}

/// Back to the end of the queue, so that whoever waits comes first; at once when nobody does.
void AllDocumentsJob::goOn()
{
    ReleaseTurnOf(txtMasterKey);
    const bool alone = frmQueue::Form().FIFO.ListCount() == 0;
    if (!alone)
        SetStatus(Kind().Pending.toString());
    Restart(JobKindName::AllDocuments, Timer1);
    if (alone)
        Timer1->start(0);
}

void AllDocumentsJob::failRest(const QString &reason)
{
    for (DocumentItem &item : items) {
        if (item.State == ItemState::Waiting)
            item.Fail(reason);
    }
}

QString AllDocumentsJob::reasonOf(const TransferResult &result) const
{
    return result.End == TransferEnd::NotWanted ? reasonNotWanted() : ReasonOf(result);
}

QString AllDocumentsJob::reasonNotWanted() const
{
    return TransferWish() == Wish::NobodyLooks ? windowClosed.toString()
                                               : ReasonOf(TransferEnd::NotWanted);
}

void AllDocumentsJob::writeList()
{
    try {
        CreateReportsFolder(folder);
        FileReplacement list(folder + listName);
        list.Write(memory.Csv(items));
        // A slow disk would hold up the window behind each document.
        list.Commit(FileReplacement::Survives::Crash);
        listFailed = false;
    } catch (const RunTimeError &) {
        listFailed = true;
    }
    if (listFailed)
        WriteAppInfo(u"ERROR *** All Documents: the list documents.csv was not written."_s);
}

void AllDocumentsJob::finish()
{
    SetOver();
    ReleaseTurnOf(txtMasterKey);
    showEnd();
    WriteAppInfo(u"ALL DOCUMENTS EXIT - "_s + Status.Text);
    Q_EMIT Ended(StopRequested);
}

void AllDocumentsJob::showEnd()
{
    const int here = CountOf(ItemState::Present) + CountOf(ItemState::Retrieved);
    const bool whole = here == Retrievable();
    const QString counted = QString::number(here) + u" of "_s + QString::number(Retrievable())
                            + u" Documents Are Here."_s;
    SetStatus((StopRequested ? u"Status: Stopped. "_s : u"Status: "_s) + counted,
              whole ? StatusStyle::NormalBold : StatusStyle::TroubleBold);
}

void AllDocumentsJob::RetrieveOthers(const QList<DocumentStart> &starts)
{
    if (!IsOver() || IsGivenUp())
        return;
    Take(starts);
    waitAgain();
}

void AllDocumentsJob::RetryFailed()
{
    startAnew(ItemState::Failed);
}

void AllDocumentsJob::RetrieveAgain()
{
    startAnew(ItemState::Present);
}

void AllDocumentsJob::startAnew(ItemState state)
{
    if (!IsOver() || IsGivenUp() || CountOf(state) == 0)
        return;
    for (DocumentItem &item : items) {
        if (item.State != state)
            continue;
        item.State = ItemState::Waiting;
        item.Reason.clear();
    }
    waitAgain();
}

void AllDocumentsJob::waitAgain()
{
    StopRequested = false;
    txtMasterKey = MakeMasterKey();
    SetStatus(Kind().Pending.toString(), StatusStyle::NormalBold);
    Restart(JobKindName::AllDocuments, Timer1);
}

void AllDocumentsJob::ShowStopped(StopCase stopCase)
{
    ShowStoppedStatus();
    if (stopCase != StopCase::AllJobs)
        return;
    LogStoppedByAll();
    failRest(u"It was stopped because the session was to end."_s);
    if (!folder.isEmpty())
        writeList();
    SetStatus(u"Search Stopped By User .. "_s);
}

/// A run that is on the stack ends in its own time.
void AllDocumentsJob::StopDone()
{
    if (HasTurn())
        return;
    failRest(ReasonOf(TransferEnd::NotWanted));
    if (!folder.isEmpty())
        writeList();
    showEnd();
    Q_EMIT Ended(true);
}

void AllDocumentsJob::GivenUp()
{
    if (HasTurn())
        return;
    Withdraw();
    if (CountOf(ItemState::Waiting) == 0)
        return;
    failRest(windowClosed.toString());
    if (!folder.isEmpty())
        writeList();
}
