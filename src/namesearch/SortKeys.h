#pragma once

#include <QString>
#include <QStringView>

// What a list of results is sorted by. A list compares texts; where the cells' own texts would come
// in the wrong order (days before years, 10 before 9), each row gets a text that does not.

/// How the cells of a column are compared.
enum class SortAs { Text, Date, CaseNumber };

/// By the column's header; every column but those of dates and case numbers is sorted as text.
SortAs SortAsOf(QStringView header);

/// A date as the courts write it, MM/DD/YYYY with a time behind it or not, as YYYYMMDDhhmmss. Any
/// other text as it is.
QString DateSortText(const QString &cell);

/// A case number without its marks and hyphens; a number is filled up with zeros, a negative one
/// (in brackets) behind "&" and with its digits inverted, so that it comes before the others. A
/// number may have a "+" in front and commas between its thousands. Years from 2000 on, which begin
/// with "0", come after those before. Any other text stays.
QString CaseNumberSortText(const QString &cell);

/// Each digit d as 9 minus d, and each "-" as a blank: the text order of negative numbers becomes
/// that of their values.
QString InvertDigits(QString text);

/// The text that a row is compared by, blind to case.
QString SortKeyOf(const QString &cell, SortAs as);
