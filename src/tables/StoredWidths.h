#pragma once

#include <QMap>
#include <QString>

/// The widths in twips that a user gave to columns, by the columns' names.
using StoredWidths = QMap<QString, int>;

/// The widths as one line of text, and back. What cannot be read, or is no width that a column on a
/// screen can have, is left out.
QString WidthsText(const StoredWidths &widths);
StoredWidths WidthsOfText(const QString &text);
