#pragma once

#include "jobs/WaitingList.h"

#include <QList>
#include <QObject>
#include <QPointer>

#include <memory>
#include <vector>

class CaseJob;
class SessionAnswers;

/// The user of the program below its windows: opens jobs, stops them, closes their windows, logs in
/// and out, by the rules that the windows have for it. A wish that no window would grant at that
/// moment does nothing.
class SessionUser : public QObject
{
    Q_OBJECT
public:
    SessionUser();
    ~SessionUser() override;

    /// Opens a window of this kind; `variant` chooses a name or a case with a meaning of its own.
    void Open(int kind, int variant);
    /// A case from a row of a search, a document from a row of a case, all documents of a case.
    void OpenRow(int job, int row);
    void OpenDocument(int job, int row);
    void OpenAllDocuments(int job);

    void Stop(int job);
    void Close(int job);
    void RetryFailed(int job);
    void NextPage(int job);
    void RetrieveNames(int job);
    void ToggleNames(int job);
    void ActivateTab(int job, int tab);
    /// Asks for the tabs whose bits are set in `tabs`.
    void SearchNow(int job, int tabs);
    void RetryDocuments(int job);
    void SkipHeld();

    /// The bits are the answers to the next questions, the last bit first.
    void AnswerWith(int bits) { answers = bits; }
    /// A question to the user: what the user says to it, after some turns.
    bool Ask();

    /// A session that has just begun, without any exchange.
    void BeLoggedIn();
    void LogIn();
    void CancelLogin();
    void Disconnect();
    void WantExit();
    /// What the main window sees of the link.
    void CheckConnection();

    /// Every job is over and its run has left the stack, and nobody logs in.
    bool AllIsOver() const;
    void CloseAll();

private:
    struct Opened
    {
        QPointer<Job> What;
        std::unique_ptr<SessionAnswers> Answers;
    };

    template<class Kind>
    Kind *jobAt(int number) const;
    void launch(Job *job, std::unique_ptr<SessionAnswers> spoken);
    void openCase(const struct CaseStart &start);
    void closeUnasked(Job *job);
    bool mayOpen() const;
    bool reachServer();
    void exchangeAfterLogin();

    std::vector<Opened> jobs;
    WaitingList waiting;
    int answers = 0;
    bool loggingIn = false;
    bool cancelled = false;
};
