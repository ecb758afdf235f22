#pragma once

#include <QScrollArea>

/// A page that asks for the room of all that is on it, and scrolls where a screen has less. What it
/// shows may be brought into view by the Tab key too.
class PageScroller : public QScrollArea
{
    Q_OBJECT
public:
    explicit PageScroller(QWidget *parent = nullptr);

    /// Not what a scroll area finds enough, but the size at which nothing has to scroll.
    QSize sizeHint() const override;

protected:
    /// Whoever shows it hears that the page wants another size, as of a page that does not scroll.
    bool eventFilter(QObject *watched, QEvent *event) override;
    void showEvent(QShowEvent *event) override;
};
