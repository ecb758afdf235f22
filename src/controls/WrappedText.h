#pragma once

#include <QFont>
#include <QRect>
#include <QString>

class QPainter;

// Plain text that is broken into lines of a width: between words where that is possible, inside a
// word that is too long for a line. One procedure breaks it for measuring and for painting, so that
// a place that was measured for a text shows all of it.

/// What the cells and headers of a grid leave free around their text, in pixels.
constexpr int wrappedTextSide = 4;
constexpr int wrappedTextEdge = 3;

/// The height in pixels of all lines of the text in this width.
int WrappedTextHeight(const QString &text, const QFont &font, int width);

/// Draws with the painter's pen. The alignment is that of each line in the width of the place and
/// of all lines together in its height; what has no room there is cut off.
void DrawWrappedText(QPainter *painter, const QRect &place, const QString &text, const QFont &font,
                     Qt::Alignment alignment);

/// The text for a tool tip: shown as it stands, markup too, broken into lines inside a word as
/// well, and ended after 2000 characters. A tip grows with its text, beyond any screen.
QString ToolTipText(const QString &text);
