#pragma once

#include "documents/DocumentItem.h"

#include <QByteArray>
#include <QList>
#include <QStringList>

/// What documents.csv says: what has become of each document of a case that any run has seen. A
/// document is known by its command, which its file name does not tell: two of the same day may
/// have the same one.
class DocumentMemory
{
public:
    DocumentMemory() = default;
    /// Reads such a list. What is broken in it, or names a file that no run would have named, is
    /// left out.
    explicit DocumentMemory(const QByteArray &csv);

    /// Gives each its file name, without its type: the one that its command had before, or that of
    /// a single document with a number behind it where another command has that one. Yields to the
    /// event loop.
    void NameItems(QList<DocumentItem> &items) const;
    /// Marks those that are in the folder with as many bytes as they had.
    void FindPresent(const QString &folder, QList<DocumentItem> &items) const;

    /// The list as a file of lines: what each of these is, and where, or why not; behind them what
    /// is remembered of others.
    QByteArray Csv(const QList<DocumentItem> &items) const;

private:
    QStringList rowOf(const DocumentItem &item) const;

    QList<QStringList> rows; ///< without the headers
};
