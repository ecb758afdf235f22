#pragma once

#include <QString>

// Where documents go, and under which names.

/// The head that marks the line of a document that can be retrieved.
inline constexpr QStringView RetrieveHead = u"RETRIEVEDOC=";

/// The line of the list without the head: what is asked for.
QString RetrievalRequest(const QString &line);

/// The folder of all documents, beneath the application folder.
QString ReportsFolder();
/// Makes a folder unless it is there. Throws error 70 ("Permission denied") when that fails.
void CreateReportsFolder(const QString &path);

/// The file name of a document, without its type, from the line of the list: two fields of the
/// case, date, pages and description. Date and time of now when the line does not have them. Yields
/// to the event loop for each character.
QString BuildDocFileName(const QString &line);
