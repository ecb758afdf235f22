#pragma once

#include "records/CaseStart.h"

#include <optional>

struct AskedItem;

// What was asked for before, asked for again: on the roads of the search form and of the windows
// that open cases and documents, with the client code that it had.

/// Puts a search on the search form and shows it; says when something of it is not offered any
/// more. Nothing is sent.
void FillSearchForm(const AskedItem &item);

/// Asks for it once more, as the user's own click did: the login question comes, and what the form
/// checks and asks.
void AskAgain(const AskedItem &item);

/// Puts what had waited when the program ended back into the queue. False when the user has
/// declined the notice of its courts, or it cannot be asked for any more.
bool PutBack(const AskedItem &item);

/// The number of a state's case that was entered, as a list of numbers takes it, with the client
/// code that it had; nothing for anything else.
std::optional<CaseStart> NumberOf(const AskedItem &item);
/// Whether the user has accepted the notice of the courts that this was entered for; asks once.
bool NoticeAccepted(const AskedItem &item);

/// Whether it is known how this was asked for.
bool CanBeAsked(const AskedItem &item);
