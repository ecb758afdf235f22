#pragma once

#include <QHeaderView>

/// The headers of a grid: they wrap, as its cells do, and no click does anything to them.
class GridHeader : public QHeaderView
{
    Q_OBJECT
public:
    explicit GridHeader(QWidget *parent = nullptr);

    /// Gives a last column that stretches its width now, which otherwise happens later.
    void StretchLast() { resizeSections(); }

protected:
    QSize sectionSizeFromContents(int column) const override;
    void initStyleOptionForIndex(QStyleOptionHeader *option, int column) const override;
    void paintSection(QPainter *painter, const QRect &place, int column) const override;

private:
    QString textOf(int column) const;
    bool isQuiet() const;
};
