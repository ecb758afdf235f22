#pragma once

#include "namesearch/NameSearch.h"

/// A search of the District and Municipal Courts.
class DiscisSearch : public NameSearch
{
    Q_OBJECT
public:
    void ShowSearchCriteria(int lineIndex) override;
    void AddRow(const QString &row) override;
    CaseStart CaseOf(const QStringList &cells) const override;
    /// The name, and the caption with it.
    void SetNameVal(const QString &text) override;

protected:
    using NameSearch::NameSearch;
};

/// A search for civil cases.
class CivilSearch : public DiscisSearch
{
    Q_OBJECT
public:
    CivilSearch();
    void ShowSearchCriteria(int lineIndex) override;
};

/// Whether a search for other cases than civil ones asks for defendants, with their addresses.
enum class DiscisDndSearch : bool { No, Yes };

/// A search for other cases than civil ones.
///
/// When several people have the name, the server sends them in place of cases, or beside cases. One
/// of the two lists is in front. The cases of the people who are checked are retrieved by a second
/// run.
class NonCivilSearch : public DiscisSearch
{
    Q_OBJECT
public:
    explicit NonCivilSearch(DiscisDndSearch defendants);

    void AddRow(const QString &row) override;
    /// Adds a person of the server to the list of names. Throws error 9 when the row has too few
    /// fields.
    void AddDupeRow(const QString &row);
    /// Brings the list that is behind to the front.
    void ToggleDupesView();
    /// Asks for the cases of the people who are checked, as a new job.
    void RetrieveCheckedNames();
    /// No run of this search waits or goes on: its request lines may be replaced.
    bool NamesRetrievable() const { return namesRetrievable; }
    /// Whether a run has ended and the list that is behind has something to show.
    bool CanToggle() const { return canToggle; }
    ResultKind KindOfNames() const;

    const QString lblDNDorSNCI; ///< "SNCI", or "DND" for defendants with addresses
    RowTable Names;             ///< the people of one name
    bool DupesFound = false;    ///< the server has sent people
    bool ShowingDupes = false;  ///< the names are in front

Q_SIGNALS:
    /// The other list is in front now.
    void Toggled();
    /// The cases of the people will come below those that are there, unsorted.
    void SortForgotten();

protected:
    void ShowStopped(StopCase stopCase) override;
    void ShowCompletion() override;
    void EndSearch(SearchOutcome outcome) override;
    bool NamesPerson(const QString &row) const override;
    void BeginRetry() override { allowRetrieval(false); }
    void EndRetry(SearchOutcome outcome) override;

private:
    void allowLists();
    void allowRetrieval(bool allowed);
    void bringToFront(bool names);

    bool namesRetrievable = false;
    bool canToggle = false;
    QString searchedFor; ///< the name, as the first search showed it
};
