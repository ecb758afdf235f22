#pragma once

#include "core/RunTimeError.h"
#include "documents/DocumentFile.h"
#include "documents/DocumentStream.h"
#include "jobs/ListBox.h"
#include "link/Exchange.h"

#include <QString>

#include <optional>

/// How a transfer came out.
enum class TransferEnd {
    Saved,
    NotWanted,      ///< stopped by the user, or nobody looks any more
    NotSent,        ///< the request could not be sent
    Silent,         ///< the court fell silent
    Lost,           ///< the link was lost
    TooManyNotices, ///< the court searched for too long
    TooShort,       ///< not all of it came
    Unusable,       ///< the court did not say its length, or a type that can be used
    Empty,          ///< there was nothing in it
    FileError       ///< it could not be written
};

/// Whether it ended because there is no link.
constexpr bool LostTheLink(TransferEnd end)
{
    return end == TransferEnd::NotSent || end == TransferEnd::Lost;
}

struct TransferResult
{
    TransferEnd End = TransferEnd::Saved;
    std::optional<RunTimeError> Error; ///< what went wrong with a file
    QString Path;                      ///< of what was saved
    SavedDocument Saved;
    /// The court has come to the end of its reply. What it still sends otherwise would be taken for
    /// the reply to the next request.
    bool ReplyIsOver = false;

    /// The file, or its folder, cannot be written; it may be open in a program that shows it.
    bool IsDenied() const { return Error && Error->Number() == 70; }
};

/// What is to be had.
struct TransferOrder
{
    QString Line;    ///< the line of the list, with its command
    QString PageQty; ///< the count of pages as the list has it
    QString Folder;  ///< where it goes
    QString Name;    ///< without its type; "" for the name that the line gives
    bool WantsSha256 = false;
    bool AnotherFollows = false; ///< another document is asked for as soon as this one is over
};

/// Whoever a transfer is made for. Any of these may find that the window has gone meanwhile.
class TransferListener
{
public:
    enum class Wish {
        Goes,        ///< the document is wanted
        Stopped,     ///< it is not, and the court has been told
        NobodyLooks, ///< it is not, and the court has not been told
    };

    virtual ~TransferListener() = default;
    virtual Wish TransferWish() const = 0;
    /// The line of status reads this now. Not to be shown over what a stop has said.
    virtual void ShowTransferStatus(const QString &text) = 0;
    /// What the transfer shows besides may read otherwise now.
    virtual void TransferChanged() = 0;
    /// The request has gone out.
    virtual void TransferContacting() {}
};

/// The transfer of one document, in the turn of the job that makes it: asks for it, writes what
/// comes into the file of the stream, and saves the document under its name.
class DocumentTransfer
{
public:
    explicit DocumentTransfer(TransferListener *forJob) : listener(forJob) {}

    /// Does it all, and reads what is not wanted any more to its end mark. A court that does not
    /// come to one is not waited for: the result says so.
    TransferResult GetDocument(const TransferOrder &order);

    /// Adds the time to List1.
    void NoteTime();

    /// What stops the court now; "" when it has nothing to stop, as while a document is saved that
    /// has come.
    QString StopRequest() const;
    const DocumentStream &Stream() const { return stream; }

    // What is shown while it goes on
    QString Label1;      ///< a note to who waits for a large document
    QString lblProgress; ///< the bar in words
    QString lblFileType;
    int ProgressBar1 = 1; ///< from 1 to 100

    ListBox List1;    ///< times
    ListBox List2;    ///< what has come, and when
    QString Text1;    ///< how long it took
    qint64 Text2 = 0; ///< bytes of the last piece

private:
    void begin(const TransferOrder &order);
    TransferEnd ReadDocument();
    TransferEnd readStream();
    BytesStatus readBytes();
    bool takePiece(QByteArray piece);
    bool endsWith(const QByteArray &piece);
    void store(const QByteArray &piece);
    void showPiece(const QByteArray &piece);
    void showProgress();
    void showType();
    void showContact(const QString &text);
    void addStar();
    void notePiece(const QByteArray &piece);
    bool isStillWanted(const QByteArray &piece);
    bool giveUp(TransferEnd reason, bool tellCourt);
    void readRest();
    void noteEnd(const TransferOrder &order);
    float limitSeconds() const;
    TransferEnd save(const TransferOrder &order, TransferResult &result);
    TransferEnd testStream() const;
    void say(const QString &status) { listener->ShowTransferStatus(status); }

    TransferListener *listener;
    QString request;
    DocumentStream stream{0, 0};
    StreamFile file;
    std::optional<RunTimeError> error;
    TransferEnd end = TransferEnd::Saved; ///< why it was given up, or Saved while it goes on
    bool reading = false;
    bool draining = false; ///< given up: what still comes is read to its end and thrown away
    bool replyIsOver = false;
    qint64 received = 0; ///< bytes in the file of the stream
    qint64 drained = 0;  ///< bytes thrown away
    QString contact;     ///< the status until something comes, "" after that
    float starAt = 0.0F;
    float begunAt = 0.0F;
};
