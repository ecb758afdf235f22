#pragma once

#include <QStringList>

class QWidget;

// What must hold for every window, whatever it shows. Each check gives what is wrong, one line a
// control; nothing when all is well.

/// Whether the window lies within what its screen, or the main window, has for it.
QStringList OutOfSight(const QWidget *window);

/// Labels and buttons that have less room than their texts need, and pages that have to be scrolled
/// sideways although their dialog could be wider.
QStringList CutTexts(const QWidget *window);

/// Texts that hardly differ from the ground they stand on: a ratio of less than three to one.
QStringList FaintTexts(const QWidget *window);

/// What a screen reader hears: every control that takes the keyboard has a name and says what it
/// is.
QStringList Unheard(QWidget *window);

/// Controls that the Tab key does not come to, comes to twice, or in no reading order.
QStringList OffTheTabRoad(QWidget *window);

/// Letters that stand for two controls, and dialogs that Enter means nothing to.
QStringList KeyTrouble(const QWidget *window);
