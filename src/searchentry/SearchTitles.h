#pragma once

#include "searchentry/SearchEntry.h"

/// The words in which a results window names the jurisdictions of a search in Washington's
/// Superior Courts, Oregon or Idaho. "" for the other courts, whose windows list courts.
QString JurisdictionsTitle(const SearchEntry &entry);

/// What was searched for, in upper case: what the recent entries keep.
QString RecentEntryText(const SearchEntry &entry);

/// The list of recent entries that it goes to: "Individual Name", "Business Name", "Case Number".
QString RecentEntryType(const SearchEntry &entry);

/// What was searched for, as the windows of this court show it.
QString ShownName(const SearchEntry &entry);

/// What a results window of Washington's Superior Courts, Oregon or Idaho gets beside its lines.
struct NameResultsFields
{
    QString lblState;
    bool chkIndexSearch = false;
    bool OrStatewide = false;
    bool IdStatewide = false;
    bool ORchkboxJGMcasetype = false; ///< only cases with judgments
    QString txtCountyList;
};

NameResultsFields NameResultsFieldsOf(const SearchEntry &entry);
