#pragma once

#include "searchentry/FormTalk.h"
#include "searchentry/SearchEntry.h"

// What is checked before a search is built. Each validator goes through its table of rules in
// order, tells the user of the first one that is broken, and is true when the search may go on.
//
// They do more than refuse: a number is rewritten in `entry` in the court's own form, also when a
// later rule refuses it. A run-time error on the way is logged and is a refusal.

/// The checks of the state courts, for a name or a number in entry.Names.
bool ValidateAllFormFields(SearchEntry &entry, FormTalk &talk);

/// The checks of the bankruptcy courts.
bool ValidateBkFormFields(SearchEntry &entry, FormTalk &talk);

/// The checks of the numbers and counties in entry.Batch.
bool ValidateBatchSearchFields(SearchEntry &entry, FormTalk &talk);

/// What the user reads about characters that were entered and cannot be sent: a sentence that names
/// them, and one that says what becomes of them.
QString LostCharactersText(const QStringList &characters);

/// True when one of these Oregon counties has no District Court.
bool HasCountyWithoutDistrictCourt(const QStringList &counties);

/// True when one of these Oregon counties cannot search for juvenile offenders.
bool HasCountyWithoutJuvenile(const QStringList &counties);
