#pragma once

#include "prefs/HelpWindow.h"

/// Help on the case windows.
class frmCaseDetailsHelp : public HelpWindow
{
    Q_OBJECT
public:
    explicit frmCaseDetailsHelp(QWidget *parent = nullptr);

    /// Shows the one window of its kind.
    static void ShowForm() { ShowOnlyWindow<frmCaseDetailsHelp>(); }
};
