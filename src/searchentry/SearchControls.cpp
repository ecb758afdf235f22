#include "searchentry/SearchControls.h"

using namespace Qt::StringLiterals;

namespace {
template<typename Widget, size_t count>
void findArray(const QWidget *form, const QString &name, std::array<Widget *, count> &widgets)
{
    for (size_t i = 0; i < count; ++i)
        widgets[i] = form->findChild<Widget *>(name + u'_' + QString::number(i));
}

/// An accent that was typed or pasted as a character of its own is one with its letter on the wire.
QString textOf(const QLineEdit *box)
{
    return box->text().normalized(QString::NormalizationForm_C);
}
} // namespace

SearchControls::SearchControls(QWidget *form)
{
    setupUi(form);
    findArray(form, u"txtSearchName"_s, txtSearchName);
    findArray(form, u"optState"_s, optState);
    findArray(form, u"optCourtSelection"_s, optCourtSelection);
    findArray(form, u"optOrCDcourts"_s, optOrCDcourts);
    findArray(form, u"optSearchType"_s, optSearchType);
    findArray(form, u"optSearchWhere"_s, optSearchWhere);
    findArray(form, u"optDiscisSearch"_s, optDiscisSearch);
    findArray(form, u"chkBKcourt"_s, chkBKcourt);
    findArray(form, u"Text1"_s, Text1);
    findArray(form, u"cbCty1"_s, cbCty1);
    findArray(form, u"cmdBatchSearch"_s, cmdBatchSearch);
}

SearchEntry SearchControls::Entered(CourtFamily court) const
{
    SearchEntry entry;
    for (size_t i = 0; i < entry.Names.size(); ++i)
        entry.Names[i] = textOf(txtSearchName[i]);
    entry.Counties = lboxCountyOrProfile->Selected();
    // The focus alone makes a row the current one; selected it is by the user only.
    const QList<QListWidgetItem *> chosen = lboxMultiJurisdiction->selectedItems();
    if (!chosen.isEmpty())
        entry.NumberCounty = chosen.first()->text();
    entry.CaseTypes = lboxCaseTypes->Selected();
    entry.JudgmentsOnly = optORjgmtsONLY->isChecked();
    entry.UseIndex = chkUseIndex->isChecked();
    entry.DistrictCourt = optOrCDcourts[1]->isChecked();
    entry.DiscisCountyIndex = cboxCountyList->currentIndex();
    entry.DiscisCounty = cboxCountyList->currentText();
    for (int i = 0; i < lboxDiscisCourtNames->count(); ++i)
        entry.DiscisItems.append(lboxDiscisCourtNames->item(i)->text());
    entry.DiscisSelected = lboxDiscisCourtNames->Selected();
    for (size_t i = 0; i < entry.BkCourts.size(); ++i)
        entry.BkCourts[i] = chkBKcourt[i]->isChecked();
    const bool bankruptcy = court == CourtFamily::Bankruptcy;
    const QRadioButton *range = bankruptcy ? optSearchYears1_1 : optSearchYears_1;
    const QComboBox *from = bankruptcy ? cboxSearchStartYear1 : cboxSearchStartYear;
    const QComboBox *to = bankruptcy ? cboxSearchEndYear1 : cboxSearchEndYear;
    entry.YearRange = range->isChecked();
    entry.FromYear = from->currentText();
    entry.ToYear = to->currentText();
    for (size_t i = 0; i < entry.Batch.size(); ++i)
        entry.Batch[i] = {textOf(Text1[i]), cbCty1[i]->currentText()};
    return entry;
}
