#pragma once

#include "namesearch/DiscisResultsWindow.h"

#include <memory>

namespace Ui {
class frmDiscisNCNameResults;
}

/// The results of a non-civil name search in the District and Municipal Courts.
///
/// People of one name have a list of their own, in the same place as the cases: one of the two is
/// in front.
class frmDiscisNCNameResults : public DiscisResultsWindow
{
    Q_OBJECT
public:
    explicit frmDiscisNCNameResults(DiscisDndSearch defendants = DiscisDndSearch::No,
                                    QWidget *parent = nullptr);
    ~frmDiscisNCNameResults() override;

    void InitListView() override;
    /// ShowHeaderIcon, for the list of names.
    void ShowHeaderIconNC(int column, Qt::SortOrder order, bool show);

    void AddDupeRow(const QString &row) { search->AddDupeRow(row); }
    /// Adds a case of the server to the list. Throws error 9 when it has too few fields.
    void AddDiscisRow(const QString &row) { search->DiscisSearch::AddRow(row); }
    void ToggleDupesView() { search->ToggleDupesView(); }
    /// Asks for the cases of the people who are checked, as a new job of this window. The user is
    /// asked first when some of them are out of sight.
    void RetrieveCheckedNames();
    void PrintResults() override;

private:
    frmDiscisNCNameResults(NonCivilSearch *ownSearch, QWidget *parent);

    NonCivilSearch *const search;

public:
    const QString &lblDNDorSNCI;
    bool &DupesFound;
    bool &ShowingDupes;

protected:
    void RetrieveDetails() override;
    void UpdateRetrieveButton() override;
    void FlushRows() override;
    ResultListView *LastList() const override;
    ReportedList Reported() const override;
    void ShowStatus() override;
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
    void showToggled();

    const std::unique_ptr<Ui::frmDiscisNCNameResults> ui;
};
