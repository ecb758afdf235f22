#pragma once

#include "documents/DocumentTransfer.h"
#include "records/DocumentStart.h"

#include <QList>
#include <QString>

/// What has become of one of all documents of a case.
enum class ItemState {
    Waiting,
    Unavailable, ///< the court does not give it out
    Present,     ///< it was here already, complete
    Retrieved,
    Failed
};

/// One of all documents of a case.
struct DocumentItem
{
    DocumentStart Start;
    ItemState State = ItemState::Waiting;
    QString Name; ///< of its file, without the type; no other document has it
    QString File; ///< with the type, once it is here; kept while it is retrieved again
    qint64 Bytes = 0;
    QString Sha256;
    QString When;   ///< it was retrieved
    QString Reason; ///< why it is not here, or not the one that was asked for

    bool IsHere() const { return State == ItemState::Present || State == ItemState::Retrieved; }
    /// A file of it is here, be it one that is being retrieved again.
    bool HasFile() const { return !File.isEmpty(); }
    /// It could not be had. What was here of it before is kept.
    void Fail(const QString &reason);
};

/// Why a document is not here whose transfer ended so.
QString ReasonOf(const TransferResult &result);
QString ReasonOf(TransferEnd end);

/// The documents of a list, in its order; those that cannot be had know it. A line that comes twice
/// asks for the same document, which is retrieved once.
QList<DocumentItem> ItemsOf(const QList<DocumentStart> &starts);

/// The case that a document is of, in words: its number and its county.
QString WhereOf(const DocumentStart &start);

/// The folder of a case beneath ReportsFolder().
QString CaseFolder(const QString &county, const QString &caseNumber);
