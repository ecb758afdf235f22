#pragma once

#include <QString>

/// What whoever opens a document hands over: a row of a case's list of documents. The texts are
/// those of the list, without the headings that the window puts before them.
struct DocumentStart
{
    QString Command;     ///< the line of the list, with "RETRIEVEDOC=" in it
    QString CaseNumber;  ///< as the case window shows it
    QString County;      ///< as the case window shows it
    QString Description; ///< the cell of the row's column 3
    QString PageCount;   ///< the cell that counts the pages, as it stands
    QString Date;        ///< the cell that dates it, as it stands
    QString ClientMatterText;

    bool operator==(const DocumentStart &) const = default;
};
