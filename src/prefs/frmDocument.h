#pragma once

#include "controls/FormWindow.h"

class QTextEdit;

/// A child window with nothing but a text of the user's own.
class frmDocument : public FormWindow
{
    Q_OBJECT
public:
    /// `number` is the one in the caption.
    explicit frmDocument(int number);

    /// Opens another one in the main window, numbered from 1 in the order of opening. Without a
    /// main window there is nothing to be a child of, and nothing happens.
    static void ShowNew();
};
