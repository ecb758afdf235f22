#pragma once

#include "sweeps/ReplyCuts.h"

#include <QString>
#include <QStringList>

#include <functional>
#include <memory>

class BoxAnswers;
class ExchangeDesk;
class JobWindow;

/// The job that makes one exchange of the program, and what the user sees of it.
class ExchangeRun
{
public:
    ExchangeRun() = default;
    virtual ~ExchangeRun() = default;
    Q_DISABLE_COPY_MOVE(ExchangeRun)

    /// Announces the boxes that belong to what has come of the reply.
    virtual void Announce(const Came &, BoxAnswers &) {}
    /// Begins, and comes back when the job is over. False when it never is.
    virtual bool Go() = 0;
    /// The window of the job, while it is there; nullptr for a job without one.
    virtual JobWindow *Window() const { return nullptr; }
    /// Whether the program has stopped waiting for the exchange that is swept.
    virtual bool IsOver() const = 0;
    /// Does what the user has to before another job can begin.
    virtual void Leave() {}
    /// What the user sees, and what the log says, a line each.
    virtual QStringList Seen() const = 0;
    /// The same as it has to be.
    virtual QStringList Expected(const Came &came) const = 0;
};

/// One exchange of the program: a row of the table that the sweep goes through.
struct Exchange
{
    QString Name;
    QString Request; ///< without its bars
    QByteArray Reply;
    QByteArrayList Before = {};  ///< the replies that lead to it
    QByteArray After = "|EOF~|"; ///< the reply to whatever is asked behind it
    qsizetype NeededTokens = 0;  ///< of the reply; with so many the exchange is over
    double LimitSeconds = 60.0;
    bool PartHolds = true;   ///< part of a token keeps the limit away
    bool BytesCount = false; ///< it is read as bytes: where it is divided may matter
    bool Connects = false;   ///< its window makes the connection itself
    std::function<std::unique_ptr<ExchangeRun>(ExchangeDesk &desk)> Make;
};

/// Every exchange that the program can make.
const QList<Exchange> &Exchanges();

// The parts of the table
QList<Exchange> SessionExchanges();
QList<Exchange> SearchExchanges();
QList<Exchange> CaseExchanges();
QList<Exchange> DocumentExchanges();

/// A line of what is seen, "name: text".
QString Line(const char *name, const QString &text);
/// The lines that are not as they have to be.
QStringList Differences(const QStringList &seen, const QStringList &expected);
