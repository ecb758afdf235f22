#include "searchentry/BatchEntries.h"

#include "controls/MsgBox.h"
#include "core/GlobalState.h"
#include "core/Settings.h"
#include "searchentry/CountyChoice.h"
#include "searchentry/NumberRequests.h"
#include "searchentry/SearchControls.h"

using namespace Qt::StringLiterals;

namespace {
/// A court that has a batch, and its default county.
struct DefaultCountyRow
{
    CourtFamily court;
    Setting setting;
    QString GlobalState::*county;
};
constexpr std::array<DefaultCountyRow, 3> defaultCounties{{
    {CourtFamily::Superior, Setting::DefaultWaCounty, &GlobalState::strDefaultWaCounty},
    {CourtFamily::Oregon, Setting::DefaultOrCounty, &GlobalState::strDefaultOrCounty},
    {CourtFamily::Idaho, Setting::DefaultIdCounty, &GlobalState::strDefaultIDCounty},
}};

const DefaultCountyRow *rowOf(CourtFamily court)
{
    for (const DefaultCountyRow &row : defaultCounties) {
        if (row.court == court)
            return &row;
    }
    return nullptr;
}
} // namespace

QString DefaultCountyOf(CourtFamily court)
{
    const DefaultCountyRow *row = rowOf(court);
    return row ? Global.*row->county : QString();
}

void BatchEntries::LoadCounties(CourtFamily court)
{
    const DefaultCountyRow *row = rowOf(court);
    if (!row)
        return;
    const QStringList counties = CountiesOf(court);
    for (QComboBox *box : ui.cbCty1) {
        box->clear();
        box->addItem(noCountySelected.toString());
        box->addItems(counties);
        box->setCurrentIndex(std::max(0, box->findText(Global.*row->county)));
    }
}

void BatchEntries::ResetBatchFields(CourtFamily court)
{
    for (QLineEdit *number : ui.Text1)
        number->clear();
    LoadCounties(court);
}

void BatchEntries::SetSameCounties()
{
    for (QComboBox *box : ui.cbCty1)
        box->setCurrentIndex(ui.cbCty1[0]->currentIndex());
}

void BatchEntries::SetDefaultCounty(CourtFamily court, QWidget *parent)
{
    if (ui.cbCty1[0]->currentIndex() <= 0) {
        MsgBox(parent, u"You must select a valid county!"_s, u"Invalid County Selected .."_s,
               MsgButtons::Ok, MsgIcon::Critical);
        return;
    }
    if (const DefaultCountyRow *row = rowOf(court)) {
        Global.*row->county = ui.cbCty1[0]->currentText();
        SaveSetting(row->setting, SettingWriter::BatchEntry, Global.*row->county);
    }
}
