#pragma once

#include <QFont>
#include <QRect>
#include <QString>

class QPainter;

// Plain text that is broken into lines of a width: between words where that is possible, inside a
// word that is too long for a line. One procedure breaks it for measuring and for painting, so that
// a place that was measured for a text shows all of it.

int WrappedTextHeight(const QString &text, const QFont &font, int width);

/// Draws with the painter's pen, from the top or, in one line or several, around the middle.
void DrawWrappedText(QPainter *painter, const QRect &place, const QString &text, const QFont &font,
                     Qt::Alignment alignment);
