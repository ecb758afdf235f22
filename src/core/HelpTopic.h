#pragma once

/// The topics of the search help, in the order of the steps of the search form. They stand here so
/// that the form can name the topic it wants shown without knowing the window that shows it.
enum class HelpTopic : int {
    Jurisdiction,
    SearchType,
    Name,
    Batch,
    Jurisdictions,
    NumberCounty,
    DiscisCaseType,
    DiscisCourts,
    BankruptcyCourts,
    CaseTypes,
    Years,
    BankruptcyYears,
};

inline constexpr int helpTopicCount = 12;
