#pragma once

#include "records/CaseRecord.h"

#include <QDialog>

#include <array>
#include <memory>

class QCheckBox;

namespace Ui {
class dlgPrintMgr;
}

/// Asks which tabs of a case go into a report. What has not been retrieved cannot be chosen: its
/// box is off and empty. Tabs that no case of this kind has are not shown.
class dlgPrintMgr : public QDialog
{
    Q_OBJECT
public:
    enum class Purpose { Print, Save };

    /// With every box ticked, and Tag empty.
    explicit dlgPrintMgr(QWidget *parent = nullptr);
    ~dlgPrintMgr() override;

    /// What the report is for.
    void SetPurpose(Purpose purpose);
    /// Offers what this case has at the moment, all of it ticked.
    void Offer(const CaseRecord &record);

    /// The answer: "true" behind OK with a box ticked, "false" behind OK without one, and still ""
    /// when the user does not want a report after all.
    QString Tag;
    /// The tabs whose boxes are ticked, in the order of a report.
    QList<CaseTab> Chosen() const;

private:
    static constexpr int boxCount = 10;

    void cmdSelectAll_Click();
    void cmdClearAll_Click();
    void OKButton_Click();

    const std::unique_ptr<Ui::dlgPrintMgr> ui;
    std::array<QCheckBox *, boxCount> chkTab;
    /// What the box in the place of Charges stands for.
    CaseTab inPlaceOfCharges = CaseTab::Charges;
};
