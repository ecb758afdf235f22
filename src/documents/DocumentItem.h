#pragma once

#include "documents/DocumentTransfer.h"
#include "records/DocumentStart.h"

#include <QByteArray>
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
    QString File; ///< with the type, once it is known
    qint64 Bytes = 0;
    QString Sha256;
    QString When;   ///< it was retrieved
    QString Reason; ///< why it is not here

    bool IsHere() const { return State == ItemState::Present || State == ItemState::Retrieved; }
};

/// Why a document is not here whose transfer ended so.
QString ReasonOf(const TransferResult &result);
QString ReasonOf(TransferEnd end);

/// The documents of a list, in its order; those that cannot be had know it.
QList<DocumentItem> ItemsOf(const QList<DocumentStart> &starts);

/// Gives each its file name, without its type: that of a single document, and a number behind it
/// for a second one of the same name. Yields to the event loop.
void NameItems(QList<DocumentItem> &items);

/// The folder of a case beneath ReportsFolder(). Yields to the event loop.
QString CaseFolder(const QString &county, const QString &caseNumber);

/// The list of all documents as a file of lines: what each is, and where, or why not.
QByteArray DocumentsCsv(const QList<DocumentItem> &items);
/// Marks those that such a list says are in the folder, and that are there with as many bytes.
void FindPresent(const QString &folder, const QByteArray &csv, QList<DocumentItem> &items);
