#pragma once

#include "searchentry/SearchEntry.h"

#include <QObject>
#include <QStringList>

struct FormState;
struct SearchControls;

/// The counties of a state's own courts, as its lists are loaded. None for the courts that are not
/// chosen by county.
QStringList CountiesOf(CourtFamily court);

/// The counties of a search by name (the list with ticks, and the buttons that choose one), and the
/// one county of a number.
class CountyChoice : public QObject
{
public:
    /// Works on the controls, and goes by the state that the form is in.
    CountyChoice(SearchControls &controls, const FormState &place);

    /// Makes the buttons, one for each county of Washington. Called once.
    void InitButtons();

    /// Fills the lists with the counties of the court; nothing but "(Statewide)" is ticked then.
    void Load();

private:
    void optCounties_Click(int index);
    void showChosenCounty();

    SearchControls &ui;
    const FormState &state;
};
