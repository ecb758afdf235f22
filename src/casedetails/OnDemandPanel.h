#pragma once

#include <QGroupBox>

#include <array>
#include <memory>

class QCheckBox;
class QLabel;

namespace Ui {
class OnDemandPanel;
}

/// The panel that stands in the place of a tab which has not been retrieved: the user ticks what
/// shall be fetched. Element n of the boxes is chkTab_n.
class OnDemandPanel : public QGroupBox
{
    Q_OBJECT
public:
    static constexpr int BoxCount = 10;

    explicit OnDemandPanel(QWidget *parent = nullptr);
    ~OnDemandPanel() override;

    /// Only these boxes are there; the caption of one that stands for another tab is changed.
    void UseBox(int index, const QString &caption);
    void HideBoxes();

    /// Shows whether a box can be ticked, and is.
    void Offer(int index, bool offered, bool chosen);

    /// Says beside a box what has become of its tab.
    void Say(int index, const QString &words);

    /// The Tab key comes to the panel from this widget.
    void FollowInTabOrder(QWidget *widget);

    /// While a run waits or goes on nothing can be chosen for another.
    void SetCommandsEnabled(bool enabled);

Q_SIGNALS:
    /// A box has a tick now, or none, whether the user or the program did it.
    void BoxToggled(int index, bool on);
    void SearchNow();

private:
    const std::unique_ptr<Ui::OnDemandPanel> ui;
    std::array<QCheckBox *, BoxCount> chkTab;
    std::array<QLabel *, BoxCount> lblTab;
};
