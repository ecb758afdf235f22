#pragma once

#include <QMap>
#include <QObject>
#include <QPointer>
#include <QRandomGenerator>
#include <QStringList>
#include <QTimer>

class CaseWindow;
class JobWindow;
class NameResultsWindow;
class PracticeUser;
class QDialog;

/// Thirty windows a round: searches of every family and cases of every kind, opened, stopped,
/// retried and closed in an order that the seed settles. Every act happens in whatever wait is
/// running then. After each act, and at the end, the turn queue must hold the keys that it has to.
class WholeDay : public QObject
{
    Q_OBJECT
public:
    WholeDay(PracticeUser &atDesk, quint32 seed);
    ~WholeDay() override;

    /// From the login to the logout. Nothing is open afterwards.
    void Round();

    /// What was otherwise than it has to be; "" when nothing was.
    QString Complaints() const;
    /// How often each thing happened.
    QString Story() const;
    bool HadEverything() const;

private:
    enum class Act { OpenSearch, OpenRow, OpenCase, Stop, OnDemand, Close, StopAll, Wait };

    void act();
    Act drawAct();
    void perform(Act what);
    void openSearch();
    void openRow();
    void openCase();
    void stopOne();
    void fetchOnDemand();
    void closeOne();
    void close(JobWindow *window);
    void start(JobWindow *window);
    void answer(QDialog *dialog);
    void keepLink();
    void settle();
    bool freeHead();
    void closeAll();
    void checkQueue(const QString &when);
    void note(const QString &what, const JobWindow *window = nullptr);
    void complain(const QString &what);

    QList<JobWindow *> windows() const;
    template<typename Window>
    Window *any();
    int below(int bound) { return static_cast<int>(random.bounded(bound)); }

    PracticeUser &user;
    QRandomGenerator random;
    QTimer ticks;
    int opened = 0;
    int acts = 0;
    int round = 0;
    QStringList left;  ///< keys of results windows that were closed before their turn
    QStringList going; ///< keys of windows that were closed while their run was on the stack
    QMap<QString, int> story;
    QStringList recent;
    QString complaint;
};
