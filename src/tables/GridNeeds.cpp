#include "tables/GridNeeds.h"

#include "controls/WrappedText.h"

#include <algorithm>

namespace {
/// In a grid of more rows the widest text may be among the others: it wraps, as all of them do.
constexpr qsizetype mostRows = 20'000;
} // namespace

void GridNeeds::Begin(const QFont &font, const GridTable &table, const QSet<int> &bold)
{
    QFont boldFont = font;
    boldFont.setBold(true);
    widest = WidestTexts(font, table.Columns.size());
    widestBold = WidestTexts(boldFont, table.Columns.size());
    boldRows = bold;
    looked = 0;
    for (qsizetype column = 0; column < table.Columns.size(); ++column)
        widest.Note(column, QStringView(table.Columns[column].Header));
}

int GridNeeds::Needed(const GridTable &table, int column)
{
    for (; looked < std::min(table.Rows.size(), mostRows); ++looked) {
        const QStringList &cells = table.Rows[looked];
        WidestTexts &texts = boldRows.contains(static_cast<int>(looked)) ? widestBold : widest;
        for (qsizetype each = 0; each < std::min(cells.size(), widest.Columns()); ++each) {
            for (const QStringView line : QStringView(cells[each]).tokenize(u'\n'))
                texts.Note(each, line);
        }
    }
    return std::max(widest.Width(column), widestBold.Width(column)) + 2 * wrappedTextSide + 1;
}
