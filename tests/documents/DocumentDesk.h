#pragma once

#include "documents/DocumentLines.h"
#include "support/WindowDesk.h"
#include "support/WindowUser.h"

#include <QPointer>
#include <QStringList>

class JobWindow;
class QPushButton;
class frmDocTransfer;

/// A program with a user who retrieves documents, and a shell that notes what it is asked to open.
class DocumentDesk : public WindowDesk
{
public:
    DocumentDesk();
    ~DocumentDesk() override;

    /// A transfer with its key in the queue, shown, not asking for its turn yet.
    static frmDocTransfer *Pending(const DocumentStart &start = StartOf());
    /// Lets it ask for its turn.
    static void Begin(JobWindow *window);
    /// Until no run is on the stack and nothing asks for a turn.
    static bool Finish(const QPointer<frmDocTransfer> &window);

    /// The files in Reports, sorted, without the stream.
    QStringList Documents(const QString &folder = {}) const;
    QByteArray Document(const QString &name) const { return Folder.Read(u"Reports/"_s + name); }

    QStringList Opened;     ///< paths that the shell was asked to open
    bool ShellOpens = true; ///< what it answers
};

/// A test of windows of documents: each function has a desk of its own, and a court that holds the
/// conversation written for it.
class DocumentTest : public QObject
{
    Q_OBJECT
protected Q_SLOTS:
    virtual void init();
    virtual void cleanup();

protected:
    /// Connects and retrieves a document, to the end of its window.
    void Retrieve(const DocumentStart &start = StartOf());
    void ExpectFailureBox(const std::function<void()> &meanwhile = {});

    void ExpectDeniedBox();

    std::unique_ptr<DocumentDesk> desk;
    std::unique_ptr<ScriptedCourt> court;
    QPointer<frmDocTransfer> window;
};
