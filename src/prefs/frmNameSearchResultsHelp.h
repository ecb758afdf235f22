#pragma once

#include "prefs/HelpWindow.h"

/// Help on the windows that list the results of a search.
class frmNameSearchResultsHelp : public HelpWindow
{
    Q_OBJECT
public:
    explicit frmNameSearchResultsHelp(QWidget *parent = nullptr);

    /// Shows the one window of its kind.
    static void ShowForm() { ShowOnlyWindow<frmNameSearchResultsHelp>(); }
};
