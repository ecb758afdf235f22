#pragma once

#include <QStringView>

class QWidget;

// The notices of the states' courts: each is asked for once a session.

/// Shows the notice of a state of strSearchState ("WA", "OR" or "ID") on `parent`. True when the
/// user goes on; it is not asked for again then.
bool DisplayCourtDisclaimer(QWidget *parent, QStringView searchState);

/// Whether a search, or a batch, in the state of strSearchState may go on: the notice was accepted,
/// is accepted now, or there is none. When no notices are wanted, all count as accepted.
bool CourtDisclaimerAccepted(QWidget *parent, bool batch);
/// The same for a search that is not the one on the form.
bool CourtDisclaimerAccepted(QWidget *parent, bool batch, QStringView searchState);
