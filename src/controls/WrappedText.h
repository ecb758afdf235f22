#pragma once

#include <QFont>
#include <QRect>
#include <QString>

#include <limits>

class QPainter;

// Plain text that is broken into lines of a width: between words where that is possible, inside a
// word that is too long for a line. One procedure breaks it for measuring and for painting, so that
// a place that was measured for a text shows all of it. Of a text without end it shows the first
// 60,000 characters, and two points behind them.

/// What the cells and headers of a grid leave free around their text, in pixels.
constexpr int wrappedTextSide = 4;
constexpr int wrappedTextEdge = 3;

/// The height in pixels of all lines of the text in this width. Nothing is broken beyond `most`
/// pixels, for a place that is no higher: the last line that is begun below them counts.
int WrappedTextHeight(const QString &text, const QFont &font, int width,
                      int most = std::numeric_limits<int>::max());

/// Draws with the painter's pen. The alignment is that of each line in the width of the place and
/// of all lines together in its height; what has no room there is cut off.
void DrawWrappedText(QPainter *painter, const QRect &place, const QString &text, const QFont &font,
                     Qt::Alignment alignment);

/// The text for the title of a window: on one line, and ended after 500 characters. The platform
/// shows it, in its own list of windows too, and keeps to no bound of its own.
QString TitleText(const QString &text);

/// The text for a tool tip: shown as it stands, markup too, broken into lines inside a word as
/// well, and ended after 2000 characters. A tip grows with its text, beyond any screen.
QString ToolTipText(const QString &text);
