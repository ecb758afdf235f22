#pragma once

#include "reports/ColumnPlaces.h"
#include "reports/Paper.h"
#include "reports/Report.h"
#include "reports/TextWidths.h"

#include <QSet>

/// A text on a page, its left end and base line in twips from the page's upper left corner.
struct PlacedText
{
    double Left = 0;
    int BaseLine = 0;
    QString Text;
    ReportFont Font;
};

/// A thin line on a page, from end to end in twips.
struct PlacedRule
{
    int Left = 0;
    int Top = 0;
    int Right = 0;
    int Bottom = 0;
};

struct ReportPage
{
    QList<PlacedText> Texts;
    QList<PlacedRule> Rules;
};

/// Lays a report out on paper, page after page. It keeps of a page only where it begins and lays it
/// out again when it is asked for: a report of 100,000 rows has thousands of pages, and few of them
/// are ever in sight.
///
/// A page ends where twelve empty lines more would reach its lower margin, behind a row and what
/// belongs to it. Each further page repeats the title, the warnings and the heads of the table that
/// goes on.
class PageLayout
{
public:
    /// The ruler has to outlive the layout.
    PageLayout(Report report, const Paper &paper, const FontRuler *ruler);

    /// Finds where the next page ends, and gives what is on it when there is somewhere to put it.
    /// False when the report is at its end: no page is added then. There is always a first page.
    bool AddPage(ReportPage *laid = nullptr);
    /// Of the pages that have been found so far.
    int PageCount() const { return static_cast<int>(starts.size()) - (complete ? 0 : 1); }
    bool IsComplete() const { return complete; }

    /// What is on the page of this index, which counts from 0 and is below PageCount.
    ReportPage Page(int index) const;

    const Report &Content() const { return report; }
    const Paper &Sheet() const { return paper; }

private:
    /// Where a page begins.
    struct PageStart
    {
        qsizetype Block = 0;
        int Line = 0;         ///< of the block, when it was too long for the page before
        qsizetype Heads = -1; ///< the block of the column heads in force
    };
    struct SetLine;
    struct Group;
    class Writer;

    PageStart lay(int index, ReportPage *page) const;
    void setPageHead(Writer &writer, PageStart start) const;
    void setFooter(int index, ReportPage *page) const;
    bool endsBefore(const Writer &writer, qsizetype block) const;
    bool endsBehindRow(const Writer &writer, qsizetype next) const;
    Group groupAt(qsizetype block) const;
    qsizetype groupEnd(qsizetype block) const;

    QList<SetLine> setBlock(const ReportBlock &block) const;
    QList<SetLine> setCells(const ReportBlock &block) const;
    QList<SetLine> setText(const QString &text, ReportFont font, Qt::Alignment alignment) const;
    QList<SetLine> setGridded(const ReportBlock &block, int table) const;
    void addGrid(QList<SetLine> &lines, const ReportBlock &block, int table) const;
    QStringList wrapped(const QString &text, double limit, ReportFont font) const;
    ReportFont fontOf(BlockKind kind) const;

    const Report report;
    const Paper paper;
    const FontRuler *const ruler;
    const ColumnPlaces columns;
    mutable TextWidths widths;
    QStringList warnings;
    QSet<int> griddedTables;
    qsizetype closing = -1; ///< the block that begins the end
    qsizetype end = 0;      ///< behind the last block that shows something
    QList<PageStart> starts{PageStart()};
    bool complete = false;
};
