#pragma once

#include <QString>
#include <QStringView>

/// What a message of the server in an index search is shown as. "%m" stands for the number of rows
/// that are still to be had. An empty text leaves the label as it is.
struct ServerMessageRow
{
    bool error;        ///< for the text of an error, otherwise of a warning
    QStringView words; ///< both have to stand in the message, in any case
    QStringView furtherWords;
    QStringView status;       ///< lblStatus
    QStringView searchStatus; ///< lblSearchStatus
    bool pageLimit = false;   ///< the list has a next page
};

/// The row for a search that got this error, "" when it got none, and this warning. An error goes
/// before the warning that ended the search.
const ServerMessageRow &ServerMessageRowOf(const QString &error, const QString &warning);

/// The rows of the next page, counted from 1.
struct NextPage
{
    qint16 Lower = 0;
    qint16 Upper = 0;
    QString Count; ///< how many there are, as the button reads it
};

/// Field 3 of a page limit warning: how many rows are still to be had. Throws error 9 when there is
/// no such field.
QString RowsStillToCome(const QString &warning);

/// The page that follows a page limit warning, of at most `pageLimit` rows. Throws errors 6, 9 and
/// 13 when the warning's numbers are too great, missing or no numbers.
NextPage NextPageOf(const QString &warning, qint16 pageLimit);

/// The request line for that page, made from the line of the page before. Throws error 5 when that
/// line has no page in it.
QString PageRequest(const QString &line, const NextPage &page);
