#pragma once

#include "support/BoxAnswers.h"
#include "support/TestClock.h"
#include "support/TestFolder.h"
#include "sweeps/LongCourt.h"

#include <QMap>
#include <QObject>
#include <QPointer>
#include <QRandomGenerator>
#include <QStringList>
#include <QTimer>

class CaseWindow;
class Job;
class JobWindow;
class QDialog;
class frmMain;
struct DocumentStart;

/// Somebody who works with the whole program, for as many exchanges as are wanted: windows of every
/// kind are opened, stopped, retried and closed inside whatever wait is running, over a link and to
/// a court that now and then fail. Which, the seed settles.
///
/// In the evening everything comes to rest and is closed; what is left then can be counted.
class LongDay : public QObject
{
    Q_OBJECT
public:
    /// One exchange in `rarity` goes wrong.
    LongDay(quint32 seed, int rarity);
    ~LongDay() override;

    /// Goes on until there were so many exchanges in all, then to the evening: everything is closed
    /// and the user has logged out, in one of the ways in which that happens.
    void WorkUntil(qint64 exchanges);

    qint64 Exchanges() const { return court.Exchanges(); }
    /// What was otherwise than it has to be; "" when nothing was.
    QString Complaints() const;
    /// How often each thing happened, and each fault.
    QString Story() const;
    /// What has not happened yet, of all that has to.
    QStringList Missing() const;

private:
    struct Act
    {
        void (LongDay::*what)();
        int weight;
    };
    static const QList<Act> &acts();

    // The life of the day
    void act();
    void follow(const Job *job);
    void hurry();
    void attendLogin();
    void skipWhatHolds();
    void answer(QDialog *dialog);
    void choose(const char *action);
    bool isAtRest() const;
    bool pass(const std::function<bool()> &until);
    void restForTheEvening();
    void leave();
    void waitForIdleLimit();
    void hurryWarning();
    void closeEverything();
    void note(const QString &what) { ++story[what]; }
    void complain(const QString &what);
    QList<JobWindow *> windows() const;
    int below(qsizetype bound) const { return static_cast<int>(random.bounded(bound)); }

    // What can be done in it
    bool mayOpen() const;
    static QList<DocumentStart> documentsOf(const CaseWindow *window);
    void openSearch();
    void openRow();
    void openCase();
    void openDocument();
    void openAllDocuments();
    void stopOne();
    void closeOne();
    void retryOne();
    void nextPage();
    void retrieveNames();
    void fetchOnDemand();
    void activateTab();
    void disconnectNow();
    void cancelLogin();
    void wait() {}
    template<class Window>
    Window *any() const;

    TestFolder folder;
    TestClock time;
    mutable QRandomGenerator random;
    LongCourt court;
    BoxAnswers boxes;
    QPointer<frmMain> main;
    QTimer turns;
    QList<QPointer<JobWindow>> opened;
    qint64 turnsSoFar = 0;
    bool working = false; ///< not in the evening
    bool idles = false;   ///< until the warning of the idle limit comes
    int evenings = 0;
    QMap<QString, int> story;
    QString complaint;
};
