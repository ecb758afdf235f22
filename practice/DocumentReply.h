#pragma once

#include "practice/DocumentBytes.h"
#include "practice/DocumentTroubles.h"
#include "practice/Reply.h"

#include <QString>

#include <optional>

namespace Practice {
/// The command with which the program asks for a scanned document: the first field of its row, and
/// in it the county, the number of the case, and the place of the document.
///
///     WASUPDOC¦GETDOC¦King¦98-2-00017-7¦4¦
QString DocumentCommand(const QString &county, const QString &number, int place);

/// A request for a document: the command, and behind it the cells of its row, which the program
/// sends along.
struct DocumentAsked
{
    QString county;
    QString number;
    int place = 0;
};
std::optional<DocumentAsked> ParseDocumentRequest(const QString &request);

/// A document of a list.
struct ListedDocument
{
    Paper paper;
    DocumentTrouble trouble = DocumentTrouble::None;
    qint64 number = 0; ///< what the trouble says
    QByteArray type;
};

/// The document as a stream: what tells of progress, the head, the bytes, the tail. Each but the
/// bytes is sent in one piece. `pace` is in bytes a second; 0 for as fast as the client reads.
Reply DocumentReply(const ListedDocument &document, qint64 pace);
} // namespace Practice
