#pragma once

#include <QList>
#include <QString>
#include <QStringList>
#include <QStringView>

/// Where a column of a table stands on paper, in twips.
struct ColumnFormat
{
    Qt::Alignment Alignment = Qt::AlignLeft;
    int Width = 0; ///< of its text
    int Gap = 0;   ///< behind it
    /// The column that gives way: when the columns are wider than the page, it takes what the
    /// others leave.
    bool Yields = false;
    /// Where its text is broken when that is before the end of the column; 0 for its whole width.
    int WrapAt = 0;
    /// The printable width that Width and Gap are parts of: on other paper they are the same parts
    /// of that. 0 when they are what they are on any paper.
    int PartsOf = 0;

    bool operator==(const ColumnFormat &) const = default;
};

/// A column format as it is written: a letter for the side, a width, a gap. "r 1200;200" stands
/// right, 1200 twips wide, with 200 behind it; "l 3000;50" stands left.
ColumnFormat ColumnFormatOf(QStringView text);

/// What a block of a report is; its look follows from that.
enum class BlockKind {
    Title,       ///< one line, large
    HeadRow,     ///< a label and a value
    Warning,     ///< printed again at the head of each page
    Heading,     ///< of a section
    ColumnHeads, ///< of the rows below; printed again at the head of each page
    Row,
    RowLine, ///< one line more of the row above, which stays on its page
    Text,
    Total, ///< the sentence that counts
    Blank,
    /// What follows is the end of the report: it stands together, on a new page when it has to.
    Closing,
};

/// A piece of a report. Only rows of a table have more than one cell.
struct ReportBlock
{
    BlockKind Kind = BlockKind::Blank;
    QStringList Cells = {};
    int Table = -1; ///< of Report::Tables, for what stands in columns

    bool operator==(const ReportBlock &) const = default;
};

/// A report as it is composed, before it is known how much goes on a page. It holds all that it
/// says: what it was made from may change or go meanwhile.
struct Report
{
    QString Title; ///< at the head of each page, and the name of the document
    int TitlePoints = 14;
    int BodyPoints = 9;
    QList<QList<ColumnFormat>> Tables;
    QList<ReportBlock> Blocks;
    QString Footer = QStringLiteral("Page ??"); ///< "??" is the number of the page
    bool GridLines = false;                     ///< thin lines around the rows and their heads

    /// Adds a table, and gives its number.
    int AddTable(const QList<ColumnFormat> &columns);
    void Add(BlockKind kind, const QStringList &cells = {}, int table = -1);

    bool operator==(const Report &) const = default;
};

/// What a report says beyond its record.
struct ReportSituation
{
    QString DatePrinted; ///< "General Date"
    QString ReportedBy;  ///< "" for nobody
    bool StopRequested = false;
    bool GoesOn = false; ///< more may come: what is there is reported as incomplete
};

/// The situation now, with the name that the settings want on reports.
ReportSituation SituationNow(bool stopRequested, bool goesOn);

// What all reports say in the same words.

inline constexpr QStringView stoppedWarning =
    u"WARNING:  This Search was Stopped by the User. Some results may not have been retrieved.";
inline constexpr QStringView archivedNote =
    u"* Indicates the case is archived. Some details are offline and not available electronically "
    "at this time.";
inline constexpr QStringView legalHead =
    u"This output may contain results from the Federal, Idaho, Oregon or Washington State Courts. "
    "Please Note:";
inline constexpr QStringView legalSentence =
    u"Neither the court nor clerk makes any representation as to the accuracy and completeness of "
    "the Federal, Idaho, Oregon, or Washington Court data except for court purposes.";

/// The last line of a report.
QString ClosingLine(bool stopRequested);

/// The legal text and the last line, behind a mark that the end begins.
void AddLegalText(Report &report);
void AddClosingLine(Report &report, bool stopRequested);

/// The legal text and the last line, as lines of a text file.
void AppendClosingLines(QStringList &lines, bool stopRequested);
