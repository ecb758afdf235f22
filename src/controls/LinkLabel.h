#pragma once

#include <QLabel>

/// A line of text that acts when it is clicked, or by the space bar or Enter while it has the
/// focus.
class LinkLabel : public QLabel
{
    Q_OBJECT
public:
    explicit LinkLabel(QWidget *parent = nullptr);

Q_SIGNALS:
    void Clicked();

protected:
    void mouseReleaseEvent(QMouseEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
    void focusInEvent(QFocusEvent *event) override;
    void focusOutEvent(QFocusEvent *event) override;
};
