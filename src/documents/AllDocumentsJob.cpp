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

QString whatItIs(const DocumentItem &item)
{
    const QString both = CellsOfDocument(item.Start.Command).Date + u' ' + item.Start.Description;
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

AllDocumentsJob::AllDocumentsJob() : Job(JobKindName::AllDocuments), Transfer(this) {}

void AllDocumentsJob::Take(const QList<DocumentStart> &starts)
{
    items = ItemsOf(starts);
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
        if (item.State == ItemState::Failed || item.State == ItemState::Unavailable)
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
        failRest(ReasonOf(TransferEnd::NotWanted));
    writeList();
    if (nextWaiting())
        goOn();
    else
        finish();
}

void AllDocumentsJob::prepare()
{
    NameItems(items);
    const QString ofCase = CaseFolder(County, CaseNumber);
    FindPresent(ofCase, contentIfAny(ofCase + listName), items);
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
        item.State = ItemState::Failed;
        item.Reason = ReasonOf(result);
        WriteAppInfo(u"ERROR *** All Documents: "_s + item.Name + u" Not Retrieved: "_s
                     + item.Reason);
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
        if (item.State != ItemState::Waiting)
            continue;
        item.State = ItemState::Failed;
        item.Reason = reason;
    }
}

void AllDocumentsJob::writeList()
{
    try {
        CreateReportsFolder(folder);
        listFailed = !ReplaceFileContent(folder + listName, DocumentsCsv(items));
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
        if (item.State == state)
            item.State = ItemState::Waiting;
    }
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

QString AllDocumentsJob::StopRequest() const
{
    return Transfer.StopRequest();
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
    failRest(u"It was stopped because the window was closed."_s);
    if (!folder.isEmpty())
        writeList();
}

TransferListener::Wish AllDocumentsJob::TransferWish() const
{
    if (StopRequested)
        return Wish::Stopped;
    return IsGivenUp() ? Wish::NobodyLooks : Wish::Goes;
}

void AllDocumentsJob::ShowTransferStatus(const QString &text)
{
    if (TransferWish() == Wish::Goes && text != Status.Text)
        SetStatus(text);
}
