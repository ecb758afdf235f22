#pragma once

#include <QObjectCleanupHandler>
#include <QPointer>
#include <QStringList>
#include <QTabBar>

/// The tabs of a case. TabClicked reports what the user does to them, and nothing that the
/// program does to them.
///
/// Ctrl+Tab and Ctrl+Shift+Tab go to the next and the previous tab, Ctrl+1 to Ctrl+9 to the first
/// nine, wherever in its window the focus is.
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

    /// Selects the first tab whose caption ends in this one, in capitals or not, with or without
    /// "&" before it. No such tab: nothing happens.
    void SelectCaption(const QString &caption);
    /// Empty without tabs.
    QString SelectedCaption() const;

Q_SIGNALS:
    /// The user chose a tab, by mouse or key; perhaps the one that is selected.
    void TabClicked(const QString &caption);

protected:
    void showEvent(QShowEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void wheelEvent(QWheelEvent *event) override;

private:
    void listenForKeys();
    void step(int by);
    void choose(int index);
    void tellClickOn(int index);

    bool quiet = false; ///< what changes now is not the user's doing, or is reported later
    int pressed = -1;
    QObjectCleanupHandler shortcuts;
    QPointer<QWidget> listeningIn;
};
