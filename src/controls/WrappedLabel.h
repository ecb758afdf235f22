#pragma once

#include <QLabel>

/// A label for a text that comes from elsewhere. It is broken into lines, inside a word too, and
/// has four lines at most: however long or broken a text is, the window around it keeps its size.
/// The tool tip has what is cut off.
class WrappedLabel : public QLabel
{
    Q_OBJECT
public:
    explicit WrappedLabel(QWidget *parent = nullptr);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;
    int heightForWidth(int width) const override;

    /// Whether all of the text is in sight.
    bool ShowsAll() const;

protected:
    bool event(QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private:
    QString shownText() const;
};
