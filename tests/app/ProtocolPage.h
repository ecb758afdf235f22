#pragma once

#include <QList>
#include <QString>
#include <QStringList>

#include <utility>

/// docs/protocol.md, as a test reads it: its tables, and the requests that it shows.
class ProtocolPage
{
public:
    /// Reads the page. It is empty when there is none.
    ProtocolPage();

    /// The rows below this row of titles, each as its cells.
    QList<QStringList> TableBelow(const QString &titles) const;

    /// The requests of the table of examples, each with what is said of it.
    QList<std::pair<QString, QString>> Examples() const;

    /// Every request on the page, wherever it stands: in a dialogue, in a block, in a line of text.
    /// What the server sends is none, nor is a keyword by itself.
    QStringList Requests() const;

    /// The text in the first code marks of a cell, without the bars of a frame.
    static QString CodeIn(const QString &cell);

private:
    QStringList lines;
};
