#pragma once

#include <QStringList>
#include <QStringView>

#include <array>

/// What the checks of a name search look at.
struct FormEntries
{
    bool Business = false;        ///< a business name, not a person's
    std::array<QString, 4> Names; ///< last or business name, first name, middle initial, suffix
    bool ByCounty = true;         ///< counties are to be chosen: not statewide
    QStringList Counties;         ///< the chosen ones
    QStringList CaseTypes;        ///< the chosen ones
};

/// One check: when it fails, and the three lines that tell the user so.
struct FieldRule
{
    bool (*fails)(const FormEntries &entries);
    QStringView what;
    QStringView why;
    QStringView action;
};

/// The first rule that the entries break, in the order of the table; nullptr when they break none.
const FieldRule *FirstBrokenRule(const FormEntries &entries);
