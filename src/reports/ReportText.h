#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <QString>
#include <QStringList>

#include <span>

/// The lines of a text report, gathered as the bytes that the file will hold: Windows-1252, each
/// line ended by CR LF. A line end or another control character within a line would make lines of
/// its own, and is a blank here.
///
/// Lists of a hundred thousand rows are saved. Making a text of each of their cells would cost many
/// times as much as writing the file.
class ReportText
{
public:
    ReportText() = default;
    ReportText(const QStringList &lines);

    void AddLine(const QString &text);
    /// A line of cells in UTF-8, each filled up to the width of its column in characters, with two
    /// blanks between them. A cell that is longer is not cut.
    void AddCells(std::span<const QByteArrayView> cells, std::span<const int> widths);
    /// Makes room for so many lines of so many characters.
    void Reserve(qsizetype lines, qsizetype characters);

    const QByteArray &Bytes() const { return bytes; }
    QStringList Lines() const;

private:
    void addOtherCells(std::span<const QByteArrayView> cells, std::span<const int> widths);

    QByteArray bytes;
};
