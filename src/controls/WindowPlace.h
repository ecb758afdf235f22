#pragma once

#include <QRect>

class QWidget;

/// This place, if a user can get hold of a window there by its upper edge; otherwise the nearest on
/// the first screen, no larger than that: the screen that a window stood on may have gone.
QRect WithinReach(QRect place);

/// Puts a window in the middle of the screen it is on.
void CentreOnScreen(QWidget *window);

/// Keeps a window above all others, or lets it take its place among them. Its size, position and
/// visibility stay as they are.
void SetTopMostWindow(QWidget *window, bool topMost);

/// Shows a window, restores it when minimised, and gives it the focus.
void BringToFront(QWidget *window);
