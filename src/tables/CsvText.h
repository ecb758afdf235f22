#pragma once

#include <QByteArray>
#include <QList>
#include <QString>
#include <QStringList>

/// What a list shows, as text: its headers, if any, and its rows cell by cell in the same order.
struct ShownTable
{
    QStringList Headers;
    QList<QStringList> Rows;
};

/// The text of a cell in a form that no spreadsheet takes for a formula: one that begins with
/// = + - @, blanks before it or not, gets an apostrophe in front. A number keeps its sign, since
/// there is nothing in it that could be carried out.
QString HarmlessCell(const QString &text);

/// Whether the column of this header holds case numbers.
bool HoldsCaseNumbers(const QString &header);

/// A case number in a form that a spreadsheet shows letter by letter. Left as it is, it would take
/// 1-2-03 for a date and drop the zeros of 0012345.
QString CaseNumberCell(const QString &text);

/// One cell of a CSV line: in quotes where it needs them, quotes inside doubled.
QString CsvCell(const QString &text);

/// The whole table as a CSV file: UTF-8 with its mark, headers first, lines ended by CR LF.
QByteArray CsvText(const ShownTable &table);

/// The table for the clipboard: cells with tabs between them, one line a row.
QString ClipboardText(const ShownTable &table, bool withHeaders);

/// A file name made of a caption: what a file system could refuse is left out.
QString FileNameOf(const QString &caption);
