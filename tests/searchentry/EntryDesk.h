#pragma once

#include "namesearch/Handed.h"
#include "namesearch/SearchDesk.h"
#include "searchentry/frmSearchWA.h"

#include <QPointer>

#include <memory>

class JobWindow;

/// A user who is logged in and has the search form open. What the user does is written down step by
/// step, each on a control that can be seen and used:
///
///     desk.Do({u"click optState_0"_s, u"type txtSearchName_0 Smith"_s, u"start"_s});
///
/// "click NAME", "type NAME TEXT", "tick LIST ITEM" (an item of a list), "choose BOX ITEM" (an item
/// of a drop-down box), and "start" for a click on Start Search. One a test function.
class EntryDesk
{
public:
    EntryDesk();
    ~EntryDesk();

    frmSearchWA *Form() const { return form; }

    /// A step that cannot be done is a complaint.
    void Do(const QStringList &steps);

    /// Starts the search, and gives the new windows in the order of their keys in the queue.
    QList<JobWindow *> Start();
    /// The same for a search that makes one window of this class; nullptr when it does not.
    template<typename Window>
    Window *StartOne()
    {
        const QList<JobWindow *> windows = Start();
        return windows.size() == 1 ? qobject_cast<Window *>(windows.first()) : nullptr;
    }
    /// The windows that `act` makes.
    QList<JobWindow *> NewWindows(const std::function<void()> &act);

    /// The client code window comes up next, gets this code and is confirmed.
    void ExpectCode(const QString &code);
    /// The box for refused entries comes up next; its three lines are put into `lines`.
    void ExpectRefusal(QStringList *lines = nullptr);

    /// What the user sees: the text of a control of the form.
    QString Text(const char *name) const;
    QStringList ItemsOf(const char *box) const;
    QWidget *Control(const char *name) const;

    /// What went otherwise than announced; "" when nothing did.
    QString Complaints() const;

    SearchDesk Desk;

private:
    void doStep(const QString &step);
    QWidget *usable(const QString &name);
    void click(const QString &name);
    void tick(const QString &name, const QString &item);
    void choose(const QString &name, const QString &item);

    QPointer<frmSearchWA> form;
    QStringList complaints;
};

/// A test whose functions each have a desk of their own. At the end of each, everything announced
/// must have happened, and nothing else.
class EntryTest : public QObject
{
    Q_OBJECT
protected Q_SLOTS:
    virtual void init();
    void cleanup();

protected:
    /// Starts the search of these steps, which asks for a client code, and has it run: the court
    /// must get these requests, and finds nothing.
    void SearchWithCode(const QStringList &steps, const QStringList &requests);

    std::unique_ptr<EntryDesk> desk;
};

/// All job windows that are open, in the order of their keys in the queue.
QList<JobWindow *> OpenJobs();

/// The keys of the turn queue.
QStringList Keys();

/// The steps that enter SMITH, JOHN Q.
extern const QStringList smithJohnQ;

extern const QString washingtonDisclaimer;
extern const QString oregonDisclaimer;
extern const QString idahoDisclaimer;
extern const QString notLoggedIn;
extern const QString notLoggedInTitle;
extern const QString noRequests;
extern const QString noRequestsTitle;
