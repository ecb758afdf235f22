#pragma once

#include <QListWidget>
#include <QStringList>

/// A list whose items are ticked one by one: a click anywhere on a line, or the space bar, ticks it
/// and a second one unticks it. "Selected" means ticked throughout.
class CheckListBox : public QListWidget
{
    Q_OBJECT
public:
    explicit CheckListBox(QWidget *parent = nullptr);

    void SetItems(const QStringList &texts);

    /// The ticked items in list order.
    QStringList Selected() const;
    void SetSelected(int row, bool selected);
    void SelectAll(bool selected);

protected:
    void mousePressEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void mouseDoubleClickEvent(QMouseEvent *event) override;
};
