#include "reports/dlgPrintMgr.h"

#include "reports/CaseReport.h"
#include "ui_dlgPrintMgr.h"

using namespace Qt::StringLiterals;

namespace {
/// What each box stands for.
constexpr std::array boxTabs{CaseTab::Summary,    CaseTab::Names,   CaseTab::Docket,
                             CaseTab::Judgments,  CaseTab::Charges, CaseTab::Sentence,
                             CaseTab::Accounting, CaseTab::Finance, CaseTab::Schedule,
                             CaseTab::Documents};
} // namespace

dlgPrintMgr::dlgPrintMgr(QWidget *parent) : QDialog(parent), ui(std::make_unique<Ui::dlgPrintMgr>())
{
    ui->setupUi(this);
    chkTab = {ui->chkTab_0, ui->chkTab_1, ui->chkTab_2, ui->chkTab_3, ui->chkTab_4,
              ui->chkTab_5, ui->chkTab_6, ui->chkTab_7, ui->chkTab_8, ui->chkTab_9};
    connect(ui->cmdSelectAll, &QPushButton::clicked, this, &dlgPrintMgr::cmdSelectAll_Click);
    connect(ui->cmdClearAll, &QPushButton::clicked, this, &dlgPrintMgr::cmdClearAll_Click);
    connect(ui->OKButton, &QPushButton::clicked, this, &dlgPrintMgr::OKButton_Click);
    connect(ui->CancelButton, &QPushButton::clicked, this, &QDialog::reject);
    cmdSelectAll_Click();
}

dlgPrintMgr::~dlgPrintMgr() = default;

void dlgPrintMgr::SetPurpose(Purpose purpose)
{
    if (purpose == Purpose::Print) {
        setWindowTitle(u"Halvane - Print Report"_s);
        return;
    }
    setWindowTitle(u"Save Report To File"_s);
    ui->lblCaseDetailsHdr->setText(u"Halvane - Save Report to File"_s);
    ui->Label1->setText(u"Only Case Details that have been retrieved are available for Saving. "_s);
}

void dlgPrintMgr::Offer(const CaseRecord &record)
{
    inPlaceOfCharges =
        record.Tab(CaseTab::Violations).Exists ? CaseTab::Violations : CaseTab::Charges;
    for (size_t i = 0; i < boxTabs.size(); ++i) {
        const CaseTab tab = boxTabs.at(i) == CaseTab::Charges ? inPlaceOfCharges : boxTabs.at(i);
        QCheckBox *box = chkTab.at(i);
        const bool offered = CanBeReported(record, tab);
        box->setText(CaseTabRowOf(tab).caption.toString());
        box->setVisible(record.Tab(tab).Exists);
        box->setEnabled(offered);
        box->setChecked(offered);
    }
}

QList<CaseTab> dlgPrintMgr::Chosen() const
{
    QList<CaseTab> chosen;
    for (size_t i = 0; i < boxTabs.size(); ++i) {
        if (chkTab.at(i)->isChecked())
            chosen.append(boxTabs.at(i) == CaseTab::Charges ? inPlaceOfCharges : boxTabs.at(i));
    }
    return chosen;
}

void dlgPrintMgr::cmdSelectAll_Click()
{
    for (QCheckBox *box : chkTab) {
        if (box->isEnabled())
            box->setChecked(true);
    }
}

void dlgPrintMgr::cmdClearAll_Click()
{
    for (QCheckBox *box : chkTab) {
        if (box->isEnabled())
            box->setChecked(false);
    }
}

void dlgPrintMgr::OKButton_Click()
{
    Tag = Chosen().isEmpty() ? u"false"_s : u"true"_s;
    accept();
}
