#include "documents/DocumentTransfer.h"

#include "core/Clock.h"
#include "core/EventLoop.h"
#include "core/GlobalState.h"
#include "core/Log.h"
#include "courts/CourtTable.h"
#include "documents/DocumentName.h"

#include <QScopeGuard>

using namespace Qt::StringLiterals;

namespace {
constexpr int largeDocumentPages = 99;
constexpr int longestReceiveLog = 10'000;
constexpr qsizetype longestContact = 150;
constexpr float starSeconds = 1.0F;
constexpr float secondsPerMinute = 60.0F;
/// How long a court that was asked to stop may keep silent.
constexpr float stopLimitSeconds = 14.0F;
/// What is around a document has at least so many bytes.
constexpr qint64 leastFrame = 6;

constexpr QStringView contacting = u"Status: Contacting Halvane Document Server.";

/// Only the Superior Courts of Washington give out documents.
QString stopOfCourt()
{
    return CourtOf(CourtFamily::Superior).CaseStop.toString();
}

QString timeOfDay()
{
    return Clock::Current().Now().toString(u"HH:mm:ss"_s);
}

QString asTime(float seconds)
{
    return QTime(0, 0).addSecs(static_cast<int>(seconds)).toString(u"HH:mm:ss"_s);
}
} // namespace

TransferResult DocumentTransfer::GetDocument(const TransferOrder &order)
{
    begin(order);
    TransferResult result;
    try {
        result.End = ReadDocument();
        if (result.End != TransferEnd::NotSent)
            noteEnd(order);
        if (result.End == TransferEnd::Saved)
            result.End = save(order, result);
    } catch (const RunTimeError &raised) {
        error = raised;
        result.End = TransferEnd::FileError;
    }
    file.Close();
    result.Error = error;
    result.ReplyIsOver = replyIsOver;
    if (result.End != TransferEnd::Saved) {
        if (result.End != TransferEnd::NotWanted)
            WriteAppInfo(u"ERROR *** in GetDocument(). Err is: "_s
                         + (error ? error->Description() : QString()) + u" #: "_s
                         + QString::number(error ? error->Number() : 0));
        say(u"Status: Document Retrieval Failed. Please try again at a later time."_s);
    }
    return result;
}

void DocumentTransfer::noteEnd(const TransferOrder &order)
{
    List1.AddItem(u"Pages Retrieved:        "_s + order.PageQty);
    List1.AddItem(u"End retrieval of doc:   "_s + timeOfDay());
    say(u"Status: Saving Document."_s);
}

void DocumentTransfer::NoteTime()
{
    List1.AddItem(timeOfDay());
}

QString DocumentTransfer::StopRequest() const
{
    return reading ? stopOfCourt() : QString();
}

void DocumentTransfer::begin(const TransferOrder &order)
{
    const int pages = PagesOf(order.PageQty);
    stream = DocumentStream(pages, Global.intSearchingMsgs);
    error.reset();
    end = TransferEnd::Saved;
    draining = false;
    replyIsOver = false;
    received = 0;
    drained = 0;
    Text2 = 0;
    List2.Clear();
    ProgressBar1 = 1;
    lblProgress.clear();
    lblFileType.clear();
    Label1 = pages > largeDocumentPages
                 ? u"Note: This is a very large document and may take a few minutes to retrieve."_s
                 : QString();
    contact.clear();
    request = RetrievalRequest(order.Line);
    listener->TransferChanged();
}

/// Sends the request and reads what comes. Saved when all of it has come.
TransferEnd DocumentTransfer::ReadDocument()
{
    // From here on there is something that a stop can stop.
    reading = true;
    const auto atEnd = qScopeGuard([this] {
        reading = false;
        file.Close();
    });
    if (BeginExchange(request) != SendStatus::Sent)
        return TransferEnd::NotSent;
    showContact(contacting.toString());
    listener->TransferContacting();
    NoteTime();
    begunAt = Clock::Current().SecondsOfDay();
    starAt = begunAt;
    try {
        CreateReportsFolder(ReportsFolder());
        file.Open();
    } catch (const RunTimeError &raised) {
        error = raised;
        giveUp(TransferEnd::FileError, true);
    }
    return readStream();
}

TransferEnd DocumentTransfer::readStream()
{
    const BytesStatus status = readBytes();
    if (end != TransferEnd::Saved)
        return end;
    switch (status) {
    case BytesStatus::Over:
        return TransferEnd::Saved;
    case BytesStatus::Silent:
        WriteAppInfo(u"Timed Out waiting for response from Document Server. In ReadDocument()"_s);
        // What it was about to send may still come.
        if (giveUp(TransferEnd::Silent, true))
            readBytes();
        return TransferEnd::Silent;
    case BytesStatus::Lost:
        break;
    }
    WriteAppInfo(u"Connection to Servers was dropped!. Document Download is Incomplete!"_s);
    return TransferEnd::Lost;
}

BytesStatus DocumentTransfer::readBytes()
{
    return ReadBytes([this](const QByteArray &piece) { return takePiece(piece); },
                     [this] { return limitSeconds(); });
}

float DocumentTransfer::limitSeconds() const
{
    return draining ? stopLimitSeconds
                    : static_cast<float>(Global.intSearchTimeout) * secondsPerMinute;
}

/// True when the reading is over.
bool DocumentTransfer::takePiece(QByteArray piece)
{
    if (!isStillWanted(piece)) {
        drained += piece.size();
        return endsWith(piece);
    }
    if (piece.isEmpty()) {
        addStar();
        return false;
    }
    notePiece(piece);
    switch (stream.Take(piece)) {
    case DocumentStream::Next::TooManyNotices:
        giveUp(TransferEnd::TooManyNotices, !HoldsEnd(piece));
        return endsWith(piece);
    case DocumentStream::Next::Over:
        replyIsOver = true;
        store(piece);
        if (draining)
            return true;
        WriteAppInfo(u"All document data received."_s);
        ProgressBar1 = 100;
        showType();
        Text1 = asTime(ElapsedSeconds(begunAt));
        listener->TransferChanged();
        return true;
    case DocumentStream::Next::More:
        break;
    }
    showPiece(piece);
    store(piece);
    return false;
}

bool DocumentTransfer::endsWith(const QByteArray &piece)
{
    replyIsOver = HoldsEnd(piece);
    return replyIsOver;
}

/// The piece is what has just come: with an end mark in it there is nothing left to be stopped.
bool DocumentTransfer::isStillWanted(const QByteArray &piece)
{
    if (!draining) {
        const TransferListener::Wish wish = listener->TransferWish();
        if (wish != TransferListener::Wish::Goes)
            giveUp(TransferEnd::NotWanted,
                   wish == TransferListener::Wish::NobodyLooks && !HoldsEnd(piece));
    }
    return !draining;
}

/// What the court still sends is read to its end mark: the next job would take it for its reply.
/// False when the court was to be told and could not.
bool DocumentTransfer::giveUp(TransferEnd reason, bool tellCourt)
{
    draining = true;
    end = reason;
    file.Close();
    contact.clear();
    return !tellCourt || InterruptExchange(stopOfCourt()) == SendStatus::Sent;
}

/// Less has come than the court said: what looked like its end mark may have been part of the
/// document, whose rest is under way then. When nothing more comes, it was the end.
void DocumentTransfer::readRest()
{
    replyIsOver = false;
    if (!giveUp(TransferEnd::TooShort, true))
        return;
    const BytesStatus status = readBytes();
    if (status == BytesStatus::Silent && drained == 0)
        replyIsOver = true;
}

void DocumentTransfer::store(const QByteArray &piece)
{
    try {
        file.Write(piece);
        received += piece.size();
    } catch (const RunTimeError &raised) {
        error = raised;
        giveUp(TransferEnd::FileError, !HoldsEnd(piece));
    }
}

void DocumentTransfer::notePiece(const QByteArray &piece)
{
    if (List2.ListCount() > longestReceiveLog)
        List2.Clear();
    List2.AddItem(timeOfDay() + u"Rx: "_s + u"  Len:"_s + QString::number(piece.size()));
}

void DocumentTransfer::showPiece(const QByteArray &piece)
{
    Text2 = piece.size();
    contact.clear();
    showProgress();
    say(u"Status: Retrieving Document."_s);
    listener->TransferChanged();
}

/// The words say how far it was before this piece.
void DocumentTransfer::showProgress()
{
    lblProgress = u"  Progress: ("_s + QString::number(ProgressBar1) + u"%)"_s;
    ProgressBar1 = stream.Progress();
    showType();
}

void DocumentTransfer::showType()
{
    if (stream.TypeKnown())
        lblFileType = u"File Type: "_s
                      + (stream.FileType().isEmpty() ? u"N/A"_s : stream.FileType().toUpper());
}

void DocumentTransfer::showContact(const QString &text)
{
    contact = text;
    say(contact);
}

/// Shows that there is still somebody waiting.
void DocumentTransfer::addStar()
{
    if (contact.isEmpty() || ElapsedSeconds(starAt) < starSeconds)
        return;
    starAt = Clock::Current().SecondsOfDay();
    const QString longer = contact + u" *"_s;
    showContact(longer.size() > longestContact ? QString(contacting + u' ') : longer);
}

TransferEnd DocumentTransfer::testStream() const
{
    const qint64 length = stream.FileLength();
    if (length > 0 && received < length + leastFrame)
        return TransferEnd::TooShort;
    return stream.IsUsable() ? TransferEnd::Saved : TransferEnd::Unusable;
}

TransferEnd DocumentTransfer::save(const TransferOrder &order, TransferResult &result)
{
    const TransferEnd tested = testStream();
    if (tested == TransferEnd::TooShort) {
        if (order.AnotherFollows)
            readRest();
        return tested;
    }
    WriteAppInfo(u"Writing Document to File.."_s);
    say(u"Status: Saving File to Reports Folder.."_s);
    if (tested == TransferEnd::Unusable) {
        WriteAppInfo(u"ERROR *** Can't get size and/or type of document file. In GetDocument()"_s);
        WriteAppInfo(u"ERROR *** Document File was not written."_s);
        return tested;
    }
    CreateReportsFolder(order.Folder);
    const QString name = order.Name.isEmpty() ? BuildDocFileName(order.Line) : order.Name;
    result.Path = order.Folder + u'/' + name + u'.' + stream.FileType();
    result.Saved = SaveDocument(file.Path(), result.Path,
                                {.Head = stream.Head(),
                                 .FileLength = stream.FileLength(),
                                 .WantsSha256 = order.WantsSha256},
                                [] { Yield(); });
    if (result.Saved.Bytes == 0) {
        WriteAppInfo(u"ERROR *** Unable to Write Document File. File is zero length."_s);
        return TransferEnd::Empty;
    }
    WriteAppInfo(u"Saved document to file: "_s + result.Path);
    return TransferEnd::Saved;
}
