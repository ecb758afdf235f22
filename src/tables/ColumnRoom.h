#pragma once

#include <QList>

/// A column as it is and as it would have to be for none of its texts to be cut, in pixels.
struct ColumnNeed
{
    int Width = 0;
    int Needed = 0; ///< no more than its width: nothing is cut
};

/// The widths of the columns after those whose text is cut were given this much room, in pixels.
/// The column that lacks least is served first, so that as many as possible are whole: one text
/// without end would take all the room and still be cut. No column becomes narrower, and none
/// wider than it needs.
QList<int> WithRoom(const QList<ColumnNeed> &columns, int room);
