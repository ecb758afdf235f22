#pragma once

#include <QStringList>
#include <QTabBar>

/// The tabs of a case. What the user does to them is told by TabClicked; what the program does to
/// them is not.
class TabStrip : public QTabBar
{
    Q_OBJECT
public:
    explicit TabStrip(QWidget *parent = nullptr);

    /// Gives the tabs these captions, with tabs added or taken from the end as needed. A caption is
    /// shown as it stands; only one that begins with "&" has a mnemonic, its first letter.
    void SetCaptions(const QStringList &captions);
    /// The captions as they were given.
    QStringList Captions() const;
    void RemoveAllButFirst();

    /// Selects the first tab whose caption ends in this one, in capitals or not, with or without
    /// "&" before it. No such tab: nothing happens.
    void SelectCaption(const QString &caption);
    /// Empty without tabs.
    QString SelectedCaption() const;

protected:
    // The selected tab can be chosen again, by a click or with Enter or the space bar.
    void mousePressEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;

Q_SIGNALS:
    /// The user chose a tab, by mouse or key; perhaps the one that is selected.
    void TabClicked(const QString &caption);

private:
    bool quiet = false;    ///< what changes now is not the user's doing
    int pressedAgain = -1; ///< the selected tab, while the button is down on it
};
