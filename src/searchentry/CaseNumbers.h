#pragma once

#include <QString>

// The forms in which the courts write their numbers. Where "digit" is said, 0 to 9 is meant: other
// scripts have digits of their own, which no court knows.

/// Rewrites a number of nine digits, with dashes anywhere or none, as YY-T-NNNNN-C. False, with the
/// text unchanged, when it is anything else.
bool FormatScomisNumber(QString &number);

/// A bankruptcy case number with its dashes and colon: YY-NNNNN, NNN-NNN-NNN or N:YY-TT-NNNNN, by
/// the count of characters. "" when the count fits none of them.
QString FormatBkCaseNumber(const QString &number);

/// True when the text begins with a year from 1980 to this one, in two digits, and is long enough.
bool IsTaxId(const QString &text);

/// A tax identifier as NN-N..., "" when it is none.
QString FormatTaxId(const QString &text);

/// A text of 1 to 15 characters as NNN-NNN-NNN: its first, middle and last three. "" for any other.
QString FormatUbi(const QString &text);

/// Nine digits, with dashes anywhere or none, as NNN-NN-NNNN; "" for anything else.
QString FormatSsn(const QString &text);

/// The check digit that a number in the form YY-T-NNNNN-C has in the county with this two-digit
/// code. Throws error 13 when either is in another form.
QChar ComputeScomisCheckDigit(const QString &countyCode, const QString &number);

/// The two-digit code of a Washington county, read now from waCtyCds.ini. "" when it has none: no
/// file, no entry, the code 0, or a value that is no code.
QString ScomisCountyCode(const QString &county);
