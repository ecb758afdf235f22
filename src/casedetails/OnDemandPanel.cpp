#include "casedetails/OnDemandPanel.h"

#include "ui_OnDemandPanel.h"

OnDemandPanel::OnDemandPanel(QWidget *parent)
    : QGroupBox(parent), ui(std::make_unique<Ui::OnDemandPanel>())
{
    ui->setupUi(this);
    chkTab = {ui->chkTab_0, ui->chkTab_1, ui->chkTab_2, ui->chkTab_3, ui->chkTab_4,
              ui->chkTab_5, ui->chkTab_6, ui->chkTab_7, ui->chkTab_8, ui->chkTab_9};
    lblTab = {ui->lblTab_0, ui->lblTab_1, ui->lblTab_2, ui->lblTab_3, ui->lblTab_4,
              ui->lblTab_5, ui->lblTab_6, ui->lblTab_7, ui->lblTab_8, ui->lblTab_9};
    const auto tickAll = [this](bool on) {
        for (QCheckBox *box : chkTab) {
            if (box->isEnabled())
                box->setChecked(on);
        }
    };
    for (int i = 0; i < BoxCount; ++i)
        connect(chkTab.at(static_cast<size_t>(i)), &QCheckBox::toggled, this,
                [this, i](bool on) { Q_EMIT BoxToggled(i, on); });
    connect(ui->cmdSelectAll, &QPushButton::clicked, this, [tickAll] { tickAll(true); });
    connect(ui->cmdClearAll, &QPushButton::clicked, this, [tickAll] { tickAll(false); });
    connect(ui->cmdSearchNow, &QPushButton::clicked, this, &OnDemandPanel::SearchNow);
}

OnDemandPanel::~OnDemandPanel() = default;

void OnDemandPanel::HideBoxes()
{
    for (QCheckBox *box : chkTab) {
        box->hide();
        box->setEnabled(false);
    }
}

void OnDemandPanel::UseBox(int index, const QString &caption)
{
    QCheckBox *box = chkTab.at(static_cast<size_t>(index));
    box->setText(caption);
    box->show();
}

void OnDemandPanel::Offer(int index, bool offered, bool chosen)
{
    QCheckBox *box = chkTab.at(static_cast<size_t>(index));
    box->setEnabled(offered);
    box->setChecked(chosen);
}

void OnDemandPanel::Say(int index, const QString &words)
{
    lblTab.at(static_cast<size_t>(index))->setText(words);
    chkTab.at(static_cast<size_t>(index))->setAccessibleDescription(words);
}

void OnDemandPanel::FollowInTabOrder(QWidget *widget)
{
    QWidget *last = widget;
    const auto follow = [&last](QWidget *next) {
        setTabOrder(last, next);
        last = next;
    };
    for (QCheckBox *box : chkTab)
        follow(box);
    for (QPushButton *button : {ui->cmdSelectAll, ui->cmdClearAll, ui->cmdSearchNow})
        follow(button);
}

void OnDemandPanel::SetCommandsEnabled(bool enabled)
{
    ui->cmdSearchNow->setEnabled(enabled);
    ui->cmdClearAll->setEnabled(enabled);
    ui->cmdSelectAll->setEnabled(enabled);
}
