#pragma once

#include "core/HelpTopic.h"
#include "prefs/HelpWindow.h"

class QListWidget;

/// Help on the steps of the search form: a topic for each, chosen from a list.
class frmSearchHelp : public HelpWindow
{
    Q_OBJECT
public:
    explicit frmSearchHelp(QWidget *parent = nullptr);

    /// Shows the one window of its kind on this topic; a number that is no topic is the first.
    static void ShowTopic(int topic);
    static void ShowTopic(HelpTopic topic) { ShowTopic(static_cast<int>(topic)); }

private:
    void showText(int row);

    QListWidget *lstTopics;
};
