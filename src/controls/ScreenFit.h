#pragma once

#include <QSize>

class QWidget;

/// Gives a window the size it wants, or as much of it as its screen has. What does not fit has to
/// scroll.
void FitOnScreen(QWidget *window, QSize wanted);
