#pragma once

#include <QHeaderView>

/// The narrow first column of a table, with a dot at each row that is new. It stands in the place
/// of the row headers, so that nothing that goes by columns knows of it: copying, export, find,
/// widths, reports. It is out of sight while nothing is new.
class MarkColumn : public QHeaderView
{
    Q_OBJECT
public:
    explicit MarkColumn(QWidget *parent = nullptr);

    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent *event) override;
    void paintSection(QPainter *painter, const QRect &place, int row) const override;

private:
    int dotSize() const;
};
