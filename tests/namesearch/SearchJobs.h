#pragma once

#include "support/LinkDesk.h"

#include <QStringList>

class CourtSearch;
class NameSearch;

using namespace Qt::StringLiterals;

/// A test of searches without a window.
class SearchJobTest : public LinkTest
{
    Q_OBJECT
protected Q_SLOTS:
    void cleanup() override;

protected:
    /// Gives a search its lines and a key at the end of the queue, as the search form does, and has
    /// it ask for its turn. It goes at the end of the test function.
    template<class Search>
    Search *Start(Search *search, const QStringList &lines)
    {
        start(search, lines);
        return search;
    }
    CourtSearch *Start(const QStringList &lines);
    /// Waits until the search is over and its run has left the stack.
    static bool Finish(const NameSearch *search);

    /// The rows that have come, each with its cells.
    static QList<QStringList> RowsOf(const NameSearch *search);

private:
    void start(NameSearch *search, const QStringList &lines);

    QList<NameSearch *> searches;
};

/// A Superior request line, as the search form makes it.
QString RequestLine(const QString &last = u"SMITH"_s, const QString &county = u"King"_s);
/// A row of the Superior Courts for this name.
QString ResultLine(const QString &name, const QString &number = u"02-2-02029-9"_s);
