#pragma once

#include <QAbstractButton>

/// A button that looks like a line of underlined text.
class LinkLabel : public QAbstractButton
{
    Q_OBJECT
public:
    explicit LinkLabel(QWidget *parent = nullptr);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    void keyPressEvent(QKeyEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
};
