#pragma once

#include "prefs/HelpWindow.h"

/// The help file Helpstep2.Rtf of the application folder, which can be changed without a new
/// version of the program.
class frmHelp : public HelpWindow
{
    Q_OBJECT
public:
    explicit frmHelp(QWidget *parent = nullptr);

    /// Shows the one window of its kind on this topic.
    static void ShowTopic(const QString &topic);

    /// Loads the file, and goes to the first paragraph that begins with the topic, if there is one.
    void SetTopic(const QString &topic);

private:
    void loadFile();
};
