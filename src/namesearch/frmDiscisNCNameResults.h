#pragma once

#include "namesearch/DiscisResultsWindow.h"

#include <memory>

namespace Ui {
class frmDiscisNCNameResults;
}

/// The results of a non-civil name search in the District and Municipal Courts.
///
/// When several people have the name, the server sends them in place of cases, or beside cases.
/// They have a list of their own, in the same place as the cases: one of the two is in front. The
/// cases of the people who are checked there are retrieved by a second search of the same window.
class frmDiscisNCNameResults : public DiscisResultsWindow
{
    Q_OBJECT
public:
    /// Global.DiscisDndSearch says what is searched for; it is cleared here.
    explicit frmDiscisNCNameResults(QWidget *parent = nullptr);
    ~frmDiscisNCNameResults() override;

    void InitListView() override;
    /// ShowHeaderIcon, for the list of names.
    void ShowHeaderIconNC(int column, Qt::SortOrder order, bool show);

    /// Adds a person of the server to the list of names. Throws error 9 when the row has too few
    /// fields.
    void AddDupeRow(const QString &row);
    /// Brings the list that is behind to the front, with the texts that belong to it.
    void ToggleDupesView();
    /// Asks for the cases of the people who are checked, as a new job of this window. The user is
    /// asked first when some of them are out of sight.
    void RetrieveCheckedNames();

    QString lblDNDorSNCI;      ///< "SNCI", or "DND" for defendants with addresses
    bool DupesFound = false;   ///< the server has sent people
    bool ShowingDupes = false; ///< the names are in front

protected:
    ResultKind Kind() const override;
    void AddRow(const QString &row) override;
    void ShowStopped(StopCase stopCase) override;
    void ShowCompletion() override;
    void EndSearch(SearchOutcome outcome) override;
    void RetrieveDetails() override;
    void UpdateRetrieveButton() override;
    QWidget *HomeOfFocus() const override;

private:
    /// The keys of the people who are checked, and of those of them whom Find hides.
    struct CheckedNames
    {
        QStringList All;
        QStringList OutOfSight;
        bool operator==(const CheckedNames &) const = default;
    };

    CheckedNames checkedNames() const;
    bool mayRetrieve();
    int nameCount() const;
    void showCaseColumnsAgain();
    void allowRetrieval(bool allowed);

    const std::unique_ptr<Ui::frmDiscisNCNameResults> ui;
    bool namesRetrievable = false; ///< no job of this window is waiting or running
    QString searchedFor;           ///< the name, as the first search showed it
};
