#pragma once

#include "searchentry/SearchEntry.h"

class QWidget;
struct SearchControls;

/// The county that the user has made the usual one of this court's batches; "" without one.
QString DefaultCountyOf(CourtFamily court);

/// The ten rows of a batch, each with a number and a county.
class BatchEntries
{
public:
    explicit BatchEntries(SearchControls &controls) : ui(controls) {}

    /// Fills the boxes with the counties of the court and chooses the user's own in each. A court
    /// that has no batch leaves them as they are.
    void LoadCounties(CourtFamily court);
    /// Empties the numbers and loads the counties anew.
    void ResetBatchFields(CourtFamily court);
    /// Chooses the county of the first row in every row.
    void SetSameCounties();
    /// Makes the county of the first row the user's own in this court. Says so on `parent` when
    /// none is chosen there.
    void SetDefaultCounty(CourtFamily court, QWidget *parent);

private:
    SearchControls &ui;
};
