#pragma once

#include "searchentry/SearchEntry.h"
#include "ui_frmSearchWA.h"

#include <array>

/// The controls of the search form: those of its .ui file by their names, and those that are
/// numbered there as arrays.
struct SearchControls : Ui::frmSearchWA
{
    /// Makes the controls on the form. All but the county buttons are there then.
    explicit SearchControls(QWidget *form);

    /// What is entered and chosen in them for a search in this court: everything in an entry but
    /// its court, search type and scope, which no control knows.
    SearchEntry Entered(CourtFamily court) const;

    std::array<QLineEdit *, 4> txtSearchName{};
    std::array<QRadioButton *, 4> optState{};
    std::array<QRadioButton *, 5> optCourtSelection{};
    std::array<QRadioButton *, 2> optOrCDcourts{};
    std::array<QRadioButton *, 5> optSearchType{};
    std::array<QRadioButton *, 3> optSearchWhere{};
    std::array<QRadioButton *, 2> optDiscisSearch{};
    std::array<QRadioButton *, 39> optCounties{}; ///< made by CountyChoice::InitButtons
    std::array<QCheckBox *, 4> chkBKcourt{};
    std::array<QLineEdit *, 10> Text1{};
    std::array<QComboBox *, 10> cbCty1{};
    std::array<QAbstractButton *, 5> cmdBatchSearch{};
};
