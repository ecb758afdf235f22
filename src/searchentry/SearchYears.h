#pragma once

#include <QObject>

struct SearchControls;

/// The years of a search, which the bankruptcy courts have boxes of their own for.
class SearchYears : public QObject
{
public:
    explicit SearchYears(SearchControls &controls);

    /// Fills the boxes with the years up to this one, and chooses all of them.
    void Load();

private:
    void optSearchYears_Click();

    SearchControls &ui;
};
