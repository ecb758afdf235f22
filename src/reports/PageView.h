#pragma once

#include "reports/PageGrid.h"

#include <QAbstractScrollArea>
#include <QCache>
#include <QPixmap>

#include <memory>

class PageLayout;
class ReportPainter;

/// Shows the pages of a report as far as they have been found. Only what is in sight is laid out
/// and painted.
class PageView : public QAbstractScrollArea
{
    Q_OBJECT
public:
    explicit PageView(QWidget *parent = nullptr);
    ~PageView() override;

    /// Shows these pages from the first one on; none for nullptr. The painter is the one that they
    /// are measured with.
    void Show(std::shared_ptr<const PageLayout> layout, const ReportPainter *painter);
    /// The layout has found more pages.
    void PagesAdded();

    void Arrange(PageArrangement arrangement);
    PageArrangement Arrangement() const { return arrangement; }
    void SetZoom(PageZoom zoom);
    PageZoom Zoom() const { return zoom; }
    void ZoomIn();
    void ZoomOut();
    /// Pixels a twip.
    double Scale() const { return grid().Scale(); }

    /// Brings a page into view; an index that is out of bounds means the page next to it.
    void GoTo(int page);
    /// The page that is gone to or, after scrolling, the one of which most is in sight.
    int CurrentPage() const { return current; }

Q_SIGNALS:
    void CurrentPageChanged();
    void ZoomChanged();

protected:
    void paintEvent(QPaintEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void scrollContentsBy(int dx, int dy) override;
    void keyPressEvent(QKeyEvent *event) override;
    void wheelEvent(QWheelEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;

private:
    PageGrid grid() const;
    int pageCount() const;
    QPoint offset() const;
    void adjustBars();
    void layOutAgain();
    void zoomBy(double factor);
    void setCurrent(int page);
    int mostInSight() const;

    void paintPage(QPainter &painter, int page, const QRect &place, double scale);
    bool paintFromStore(QPainter &painter, int page, const QRect &place, double scale);
    void drawPage(QPainter &painter, int page, double scale) const;

    std::shared_ptr<const PageLayout> layout;
    const ReportPainter *pages = nullptr;
    PageArrangement arrangement = PageArrangement::OneBelowOther;
    PageZoom zoom = PageZoom::FitWidth;
    double freeScale = 0.0;
    int current = 0;
    bool going = false; ///< the view scrolls by itself
    QCache<int, QPixmap> store;
    QSize storedSize; ///< in pixels, of each of them
};
