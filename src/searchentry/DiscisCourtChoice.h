#pragma once

#include "searchentry/SearchEntry.h"

#include <QObject>

struct FormState;
struct SearchControls;

/// The choice among the District and Municipal Courts: the box of counties, the courts of the one
/// that is chosen there, and how many of them are selected.
class DiscisCourtChoice : public QObject
{
public:
    /// Works on the controls, and goes by the state that the form is in.
    DiscisCourtChoice(SearchControls &controls, const FormState &place);

    /// Fills the box with what this scope (civil or not) can be searched in. The county that was
    /// chosen stays; at first it is the user's own.
    void LoadDiscisCountyList(SearchScope where);

private:
    void cboxCountyList_Click();
    void clear();
    void showStats();

    SearchControls &ui;
    const FormState &state;
};
