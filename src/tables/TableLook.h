#pragma once

#include <QFont>

class QTableView;

/// What the tables of the program have in common: whole rows are selected, nothing is edited, rows
/// alternate, headers are a little smaller.
void SetTableLook(QTableView *table);

/// A column of no more than this width, in twips, holds what the program needs and nobody shall
/// see.
constexpr int unseenColumnTwips = 100;

/// The factor by which the titles of columns are smaller.
constexpr double smallFontScale = 0.9;

/// A font for what is to take little room.
QFont SmallerFont(QFont font, double scale = smallFontScale);
