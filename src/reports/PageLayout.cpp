#include "reports/PageLayout.h"

#include "core/TextUtilities.h"

#include <algorithm>
#include <array>
#include <cmath>

using namespace Qt::StringLiterals;

namespace {
/// What a kind of block looks like on paper.
struct BlockLook
{
    enum Size { Title, Heading, Body };

    BlockKind Kind;
    Size Points;
    bool Bold;
    Qt::AlignmentFlag Alignment;
};

constexpr std::array<BlockLook, 11> looks{{
    {BlockKind::Title, BlockLook::Title, true, Qt::AlignHCenter},
    {BlockKind::HeadRow, BlockLook::Body, false, Qt::AlignLeft},
    {BlockKind::Warning, BlockLook::Body, true, Qt::AlignLeft},
    {BlockKind::Heading, BlockLook::Heading, true, Qt::AlignLeft},
    {BlockKind::ColumnHeads, BlockLook::Body, true, Qt::AlignLeft},
    {BlockKind::Row, BlockLook::Body, false, Qt::AlignLeft},
    {BlockKind::RowLine, BlockLook::Body, false, Qt::AlignLeft},
    {BlockKind::Text, BlockLook::Body, false, Qt::AlignLeft},
    {BlockKind::Total, BlockLook::Body, true, Qt::AlignLeft},
    {BlockKind::Blank, BlockLook::Body, false, Qt::AlignLeft},
    {BlockKind::Closing, BlockLook::Body, false, Qt::AlignLeft},
}};

constexpr bool looksAreInOrder()
{
    for (size_t i = 0; i < looks.size(); ++i)
        if (looks[i].Kind != static_cast<BlockKind>(i))
            return false;
    return true;
}
static_assert(looksAreInOrder(), "a look is found by the number of its kind");

constexpr const BlockLook &lookOf(BlockKind kind)
{
    return looks[static_cast<size_t>(kind)];
}

constexpr ReportFont pageHeadFont{10, true};
constexpr ReportFont footerFont{9, false};
constexpr ReportFont emptyLineFont{9, false};
constexpr int emptyLinesLeft = 12;

/// How far a rule stands out over the outer columns.
constexpr int gridMargin = 40;
/// Between a rule and the text below or above it.
constexpr int gridPadding = 30;

bool isKeptWithNext(BlockKind kind)
{
    return kind == BlockKind::Heading || kind == BlockKind::ColumnHeads;
}

/// Signs that would not be printed, or not as one line, become blanks.
QString printable(const QString &text)
{
    QString line = OneLine(text);
    while (line.endsWith(u' '))
        line.chop(1);
    return line;
}

qsizetype leadingBlanks(const QString &text)
{
    const auto first = std::find_if(text.begin(), text.end(), [](QChar c) { return c != u' '; });
    return first - text.begin();
}
/// The tables with room for the heads of columns that yield. Such a column is as wide as its
/// longest cell, and its head would be broken within a word above nothing but short ones.
QList<QList<ColumnFormat>> withRoomForHeads(const Report &report, const FontRuler &ruler)
{
    const ReportFont font{report.BodyPoints, lookOf(BlockKind::ColumnHeads).Bold};
    QList<QList<ColumnFormat>> tables = report.Tables;
    for (const ReportBlock &block : report.Blocks) {
        if (block.Kind != BlockKind::ColumnHeads || block.Table < 0)
            continue;
        QList<ColumnFormat> &formats = tables[block.Table];
        for (qsizetype i = 0; i < std::min(formats.size(), block.Cells.size()); ++i) {
            const double head = formats[i].Yields ? ruler.Width(block.Cells[i], font) : 0.0;
            formats[i].Width = std::max(formats[i].Width, static_cast<int>(std::ceil(head)));
        }
    }
    return tables;
}
} // namespace

/// A line of a block, with what stands on it in twips from its own left and upper end.
struct PageLayout::SetLine
{
    int Height = 0;
    QList<PlacedText> Texts;
    QList<PlacedRule> Rules;
};

/// Blocks that stay together as long as a page holds them.
struct PageLayout::Group
{
    QList<SetLine> Lines;
    qsizetype End = 0;    ///< behind its last block
    qsizetype Heads = -1; ///< its column heads, if it has any
    bool HasHeading = false;
    bool EndsInRow = false;

    int HeightFrom(int line) const
    {
        int height = 0;
        for (qsizetype i = line; i < Lines.size(); ++i)
            height += Lines[i].Height;
        return height;
    }
};

/// Goes down a page.
class PageLayout::Writer
{
public:
    Writer(const Paper &paper, ReportPage *written)
        : bottom(paper.Height - Paper::BottomMargin), page(written)
    {
    }

    int Place() const { return y; }
    bool HasRoom(int height) const { return y + height <= bottom; }
    bool Reaches(int height) const { return y + height >= bottom; }

    void Put(const SetLine &line)
    {
        if (page)
            place(line);
        y += line.Height;
    }

    bool HasRows = false; ///< something stands below the head of the page

private:
    void place(const SetLine &line)
    {
        for (PlacedText text : line.Texts) {
            text.Left += Paper::LeftMargin;
            text.BaseLine += y;
            page->Texts.append(text);
        }
        for (const PlacedRule &rule : line.Rules)
            page->Rules.append({rule.Left + Paper::LeftMargin, rule.Top + y,
                                rule.Right + Paper::LeftMargin, rule.Bottom + y});
    }

    const int bottom;
    ReportPage *const page;
    int y = Paper::TopMargin;
};

PageLayout::PageLayout(Report content, const Paper &sheet, const FontRuler *fontRuler)
    : report(std::move(content)), paper(sheet), ruler(fontRuler),
      columns(withRoomForHeads(report, *fontRuler), sheet.PrintableWidth()), widths(fontRuler)
{
    for (qsizetype i = 0; i < report.Blocks.size(); ++i) {
        const ReportBlock &block = report.Blocks[i];
        if (block.Kind == BlockKind::Warning)
            warnings.append(block.Cells.value(0));
        if (block.Kind == BlockKind::Closing && closing < 0)
            closing = i;
        if (block.Kind == BlockKind::ColumnHeads && report.GridLines)
            griddedTables.insert(block.Table);
        if (block.Kind != BlockKind::Blank && block.Kind != BlockKind::Closing)
            end = i + 1;
    }
}

bool PageLayout::AddPage(ReportPage *laid)
{
    if (complete)
        return false;
    const int index = PageCount();
    const PageStart next = lay(index, laid);
    if (laid)
        setFooter(index, laid);
    if (next.Block >= end)
        complete = true;
    else
        starts.append(next);
    return true;
}

ReportPage PageLayout::Page(int index) const
{
    ReportPage page;
    lay(index, &page);
    setFooter(index, &page);
    return page;
}

PageLayout::PageStart PageLayout::lay(int index, ReportPage *page) const
{
    Writer writer(paper, page);
    PageStart at = starts.at(index);
    if (index > 0) {
        setPageHead(writer, at);
        while (at.Block < end && report.Blocks[at.Block].Kind == BlockKind::Blank)
            ++at.Block;
    }
    while (at.Block < end && !endsBefore(writer, at.Block)) {
        const Group group = groupAt(at.Block);
        if (writer.HasRows && !writer.HasRoom(group.HeightFrom(at.Line)))
            break;
        if (group.HasHeading || group.Heads >= 0)
            at.Heads = group.Heads;
        // One line at least, however small the page: each page has to come nearer to the end.
        for (bool first = true; at.Line < group.Lines.size(); first = false, ++at.Line) {
            const SetLine &line = group.Lines[at.Line];
            if (!first && !writer.HasRoom(line.Height))
                return at;
            writer.Put(line);
        }
        writer.HasRows = writer.HasRows || !group.Lines.isEmpty();
        at = {group.End, 0, at.Heads};
        if (group.EndsInRow && endsBehindRow(writer, at.Block))
            break;
    }
    return at;
}

void PageLayout::setPageHead(Writer &writer, PageStart start) const
{
    // Rows have to have a place on every page, whatever stands above them.
    const int atMost = paper.Height * 2 / 3;
    const auto put = [&writer, atMost](const QList<SetLine> &lines) {
        for (const SetLine &line : lines)
            if (writer.Place() < atMost)
                writer.Put(line);
    };
    put(setText(report.Title, pageHeadFont, Qt::AlignHCenter));
    for (const QString &warning : warnings) {
        put(setBlock({BlockKind::Blank, {}}));
        put(setBlock({BlockKind::Warning, {warning}}));
    }
    put(setBlock({BlockKind::Blank, {}}));
    const BlockKind next = report.Blocks[start.Block].Kind;
    if (start.Heads >= 0 && (start.Line > 0 || !isKeptWithNext(next)))
        put(setGridded(report.Blocks[start.Heads], report.Blocks[start.Heads].Table));
}

void PageLayout::setFooter(int index, ReportPage *page) const
{
    const QString text = QString(report.Footer).replace(u"??"_s, QString::number(index + 1));
    const double free = paper.PrintableWidth() - widths.Exact(text, footerFont);
    const int belowBaseLine = ruler->LineHeight(footerFont) - ruler->Ascent(footerFont);
    page->Texts.append({Paper::LeftMargin + free / 2,
                        paper.Height - Paper::FooterFromFoot - belowBaseLine, text, footerFont});
}

bool PageLayout::endsBefore(const Writer &writer, qsizetype block) const
{
    if (block != closing || !writer.HasRows)
        return false;
    if (writer.Reaches(emptyLinesLeft * ruler->LineHeight(emptyLineFont)))
        return true;
    int height = 0;
    for (qsizetype i = block; i < end; ++i)
        for (const SetLine &line : setBlock(report.Blocks[i]))
            height += line.Height;
    return !writer.HasRoom(height);
}

bool PageLayout::endsBehindRow(const Writer &writer, qsizetype next) const
{
    const bool isClosing = closing >= 0 && next > closing;
    return !isClosing && writer.Reaches(emptyLinesLeft * ruler->LineHeight(emptyLineFont));
}

qsizetype PageLayout::groupEnd(qsizetype block) const
{
    const auto kind = [this](qsizetype i) { return report.Blocks[i].Kind; };
    qsizetype last = block;
    if (isKeptWithNext(kind(block)))
        while (last + 1 < end && kind(last + 1) != BlockKind::Closing
               && (isKeptWithNext(kind(last)) || kind(last) == BlockKind::Blank))
            ++last;
    if (kind(last) == BlockKind::Row)
        while (last + 1 < end && kind(last + 1) == BlockKind::RowLine)
            ++last;
    return last + 1;
}

PageLayout::Group PageLayout::groupAt(qsizetype block) const
{
    Group group;
    group.End = groupEnd(block);
    int table = -1;
    for (qsizetype i = block; i < group.End; ++i) {
        const BlockKind kind = report.Blocks[i].Kind;
        if (kind != BlockKind::RowLine)
            table = report.Blocks[i].Table;
        group.Lines += setGridded(report.Blocks[i], table);
        group.EndsInRow = kind == BlockKind::Row || kind == BlockKind::RowLine;
        if (kind == BlockKind::ColumnHeads)
            group.Heads = i;
        if (kind == BlockKind::Heading)
            group.HasHeading = true;
    }
    return group;
}

QList<PageLayout::SetLine> PageLayout::setBlock(const ReportBlock &block) const
{
    switch (block.Kind) {
    case BlockKind::Closing:
        return {};
    case BlockKind::HeadRow:
    case BlockKind::ColumnHeads:
    case BlockKind::Row:
        if (columns.Has(block.Table))
            return setCells(block);
        break;
    default:
        break;
    }
    return setText(block.Cells.join(u"  "), fontOf(block.Kind), lookOf(block.Kind).Alignment);
}

QList<PageLayout::SetLine> PageLayout::setCells(const ReportBlock &block) const
{
    const QList<ColumnPlace> &places = columns.Of(block.Table);
    ReportFont font = fontOf(block.Kind);
    const qsizetype count = std::min(places.size(), block.Cells.size());
    QList<SetLine> lines{{ruler->LineHeight(font), {}, {}}};
    for (qsizetype column = 0; column < count; ++column) {
        const ColumnPlace &place = places[column];
        font.Bold = lookOf(block.Kind).Bold || (block.Kind == BlockKind::HeadRow && column == 0);
        const QStringList pieces = wrapped(block.Cells[column], place.WrapAt, font);
        while (lines.size() < pieces.size())
            lines.append({ruler->LineHeight(font), {}, {}});
        for (qsizetype i = 0; i < pieces.size(); ++i) {
            if (pieces[i].isEmpty())
                continue;
            const bool right = place.Alignment.testFlag(Qt::AlignRight);
            const double left = right ? place.Right() - widths.Exact(pieces[i], font) : place.Left;
            lines[i].Texts.append({left, ruler->Ascent(font), pieces[i], font});
        }
    }
    return lines;
}

QList<PageLayout::SetLine> PageLayout::setText(const QString &text, ReportFont font,
                                               Qt::Alignment alignment) const
{
    QList<SetLine> lines;
    const double room = paper.PrintableWidth();
    const QStringList pieces = wrapped(text, room, font);
    for (const QString &piece : pieces) {
        SetLine line{ruler->LineHeight(font), {}, {}};
        const double left =
            alignment.testFlag(Qt::AlignHCenter) ? (room - widths.Exact(piece, font)) / 2 : 0.0;
        if (!piece.isEmpty())
            line.Texts.append({left, ruler->Ascent(font), piece, font});
        lines.append(line);
    }
    return lines;
}

QList<PageLayout::SetLine> PageLayout::setGridded(const ReportBlock &block, int table) const
{
    QList<SetLine> lines = setBlock(block);
    const bool inGrid = block.Kind == BlockKind::ColumnHeads || block.Kind == BlockKind::Row
                        || block.Kind == BlockKind::RowLine;
    if (inGrid && columns.Has(table) && griddedTables.contains(table))
        addGrid(lines, block, table);
    return lines;
}

void PageLayout::addGrid(QList<SetLine> &lines, const ReportBlock &block, int table) const
{
    const QList<ColumnPlace> &places = columns.Of(table);
    if (lines.isEmpty() || places.isEmpty())
        return;
    const int left = -gridMargin;
    const int right = qRound(places.last().Right()) + gridMargin;
    for (PlacedText &text : lines.first().Texts)
        text.BaseLine += gridPadding;
    lines.first().Height += gridPadding;
    lines.last().Height += gridPadding;
    for (SetLine &line : lines) {
        line.Rules.append({left, 0, left, line.Height});
        line.Rules.append({right, 0, right, line.Height});
        // What belongs to the row above stands across its columns.
        for (qsizetype i = 1; i < places.size() && block.Kind != BlockKind::RowLine; ++i) {
            const int between = qRound((places[i - 1].Right() + places[i].Left) / 2);
            line.Rules.append({between, 0, between, line.Height});
        }
    }
    if (block.Kind == BlockKind::ColumnHeads)
        lines.first().Rules.append({left, 0, right, 0});
    const int foot = lines.last().Height;
    lines.last().Rules.append({left, foot, right, foot});
}

QStringList PageLayout::wrapped(const QString &text, double limit, ReportFont font) const
{
    QStringList lines;
    const QStringList paragraphs = QString(text).replace(u"\r\n"_s, u"\n"_s).split(u'\n');
    for (const QString &paragraph : paragraphs) {
        const QString line = printable(paragraph);
        if (widths.Within(line, font, limit) <= limit) {
            lines.append(line);
            continue;
        }
        QString indent = line.left(leadingBlanks(line));
        if (widths.Within(indent, font, limit) > limit / 2)
            indent.clear();
        QStringList pieces;
        WrapTextByWidth(
            line, limit,
            [&](const QString &piece) { return widths.Within(indent + piece, font, limit); },
            pieces);
        for (const QString &piece : std::as_const(pieces))
            lines.append(indent + piece);
    }
    return lines;
}

ReportFont PageLayout::fontOf(BlockKind kind) const
{
    const BlockLook &look = lookOf(kind);
    constexpr int headingPoints = 10;
    const std::array<int, 3> points{report.TitlePoints, headingPoints, report.BodyPoints};
    return {points.at(look.Points), look.Bold};
}
