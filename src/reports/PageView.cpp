#include "reports/PageView.h"

#include "controls/Twips.h"
#include "reports/PageLayout.h"
#include "reports/ReportPainter.h"

#include <QAccessibleWidget>
#include <QElapsedTimer>
#include <QKeyEvent>
#include <QPaintEvent>
#include <QPainter>
#include <QScrollBar>
#include <QTimer>
#include <QWheelEvent>

#include <algorithm>
#include <utility>

namespace {
constexpr double zoomStep = 1.25;
constexpr double leastFreeScale = 0.1 / twipsPerPixel;
constexpr double greatestFreeScale = 6.0 / twipsPerPixel;
constexpr qint64 paintMilliseconds = 15;
constexpr int storeKilobytes = 64 * 1024;
/// A page of more pixels than this is painted as far as it is in sight, and not kept.
constexpr double greatestStored = 4e6;
constexpr int scrollStep = 40;

/// To a screen reader the pages are a document, and not the ground that the platform takes a widget
/// of one's own for.
QAccessibleInterface *heardAsDocument(const QString & /*className*/, QObject *object)
{
    auto *view = qobject_cast<PageView *>(object);
    return view ? new QAccessibleWidget(view, QAccessible::Document) : nullptr;
}
} // namespace

PageView::PageView(QWidget *parent) : QAbstractScrollArea(parent), store(storeKilobytes)
{
    static const bool heard = [] {
        QAccessible::installFactory(heardAsDocument);
        return true;
    }();
    Q_UNUSED(heard)
    setFocusPolicy(Qt::StrongFocus);
    viewport()->setBackgroundRole(QPalette::Dark);
    viewport()->setAutoFillBackground(true);
    horizontalScrollBar()->setSingleStep(scrollStep);
    verticalScrollBar()->setSingleStep(scrollStep);
}

PageView::~PageView() = default;

void PageView::Show(std::shared_ptr<const PageLayout> shown, const ReportPainter *painter)
{
    layout = std::move(shown);
    pages = painter;
    current = 0;
    layOutAgain();
    verticalScrollBar()->setValue(0);
    Q_EMIT CurrentPageChanged();
}

void PageView::PagesAdded()
{
    adjustBars();
    viewport()->update();
}

void PageView::Arrange(PageArrangement wanted)
{
    arrangement = wanted;
    layOutAgain();
    GoTo(current);
}

void PageView::SetZoom(PageZoom wanted)
{
    zoom = wanted;
    layOutAgain();
    GoTo(current);
    Q_EMIT ZoomChanged();
}

void PageView::ZoomIn()
{
    zoomBy(zoomStep);
}

void PageView::ZoomOut()
{
    zoomBy(1 / zoomStep);
}

void PageView::zoomBy(double factor)
{
    // Pages that are all to be seen have no other size.
    if (arrangement == PageArrangement::AllAtOnce)
        return;
    const double before = Scale();
    freeScale = std::clamp(before * factor, leastFreeScale, greatestFreeScale);
    zoom = PageZoom::Free;
    const int middle = verticalScrollBar()->value() + viewport()->height() / 2;
    layOutAgain();
    verticalScrollBar()->setValue(qRound(middle * freeScale / before) - viewport()->height() / 2);
    Q_EMIT ZoomChanged();
}

void PageView::GoTo(int page)
{
    const QRect place = grid().PlaceOf(std::clamp(page, 0, std::max(0, pageCount() - 1)));
    going = true;
    verticalScrollBar()->setValue(place.top()
                                  - (viewport()->height() > place.height()
                                         ? (viewport()->height() - place.height()) / 2
                                         : 0));
    going = false;
    setCurrent(page);
    viewport()->update();
}

PageGrid PageView::grid() const
{
    return {layout ? layout->Sheet() : Paper(),
            pageCount(),
            arrangement,
            zoom,
            freeScale,
            viewport()->size()};
}

int PageView::pageCount() const
{
    return layout ? layout->PageCount() : 0;
}

QPoint PageView::offset() const
{
    return {horizontalScrollBar()->value(), verticalScrollBar()->value()};
}

void PageView::adjustBars()
{
    // The page that the user is at stays so, wherever a bar has to go.
    going = true;
    const QSize size = grid().Size();
    const QSize room = viewport()->size();
    horizontalScrollBar()->setPageStep(room.width());
    horizontalScrollBar()->setRange(0, std::max(0, size.width() - room.width()));
    verticalScrollBar()->setPageStep(room.height());
    verticalScrollBar()->setRange(0, std::max(0, size.height() - room.height()));
    going = false;
}

void PageView::layOutAgain()
{
    store.clear();
    adjustBars();
    viewport()->update();
}

void PageView::setCurrent(int page)
{
    const int within = std::clamp(page, 0, std::max(0, pageCount() - 1));
    if (std::exchange(current, within) != within)
        Q_EMIT CurrentPageChanged();
}

int PageView::mostInSight() const
{
    const PageGrid places = grid();
    const QRect sight(offset(), viewport()->size());
    const auto [first, end] = places.PagesBetween(sight.top(), sight.bottom());
    const auto heightInSight = [&](int page) {
        return places.PlaceOf(page).intersected(sight).height();
    };
    int most = first;
    for (int page = first + 1; page < end; ++page)
        if (heightInSight(page) > heightInSight(most))
            most = page;
    return most;
}

void PageView::paintEvent(QPaintEvent *event)
{
    if (!layout)
        return;
    QPainter painter(viewport());
    const PageGrid places = grid();
    // The more pages are to be seen at once, the smaller they are; and screens differ.
    if (const QSize size = places.PlaceOf(0).size() * devicePixelRatioF();
        std::exchange(storedSize, size) != size)
        store.clear();
    const QRect sight = event->rect().translated(offset());
    const auto [first, end] = places.PagesBetween(sight.top(), sight.bottom());
    QElapsedTimer timer;
    timer.start();
    bool later = false;
    for (int page = first; page < std::min(end, pageCount()); ++page) {
        const QRect place = places.PlaceOf(page).translated(-offset());
        painter.fillRect(place, Qt::white);
        if (timer.elapsed() < paintMilliseconds || store.contains(page))
            paintPage(painter, page, place, places.Scale());
        else
            later = true;
        if (page == current && places.Columns() > 1) {
            painter.setPen(QPen(palette().color(QPalette::Highlight), 2));
            painter.drawRect(place.adjusted(-2, -2, 2, 2));
        }
    }
    if (later)
        QTimer::singleShot(0, viewport(), qOverload<>(&QWidget::update));
}

void PageView::paintPage(QPainter &painter, int page, const QRect &place, double scale)
{
    if (paintFromStore(painter, page, place, scale))
        return;
    painter.save();
    painter.setClipRect(place, Qt::IntersectClip);
    painter.translate(place.topLeft());
    drawPage(painter, page, scale);
    painter.restore();
}

bool PageView::paintFromStore(QPainter &painter, int page, const QRect &place, double scale)
{
    const double ratio = devicePixelRatioF();
    const QSize size = place.size() * ratio;
    if (size.isEmpty() || 1.0 * size.width() * size.height() > greatestStored)
        return false;
    if (const QPixmap *kept = store.object(page)) {
        painter.drawPixmap(place.topLeft(), *kept);
        return true;
    }
    auto drawn = std::make_unique<QPixmap>(size);
    drawn->setDevicePixelRatio(ratio);
    drawn->fill(Qt::white);
    {
        QPainter onPixmap(drawn.get());
        drawPage(onPixmap, page, scale);
    }
    painter.drawPixmap(place.topLeft(), *drawn);
    constexpr int bytesPerPixel = 4;
    store.insert(page, drawn.release(), size.width() * size.height() * bytesPerPixel / 1024);
    return true;
}

void PageView::drawPage(QPainter &painter, int page, double scale) const
{
    painter.setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing);
    painter.scale(scale, scale);
    pages->Draw(&painter, layout->Page(page));
}

void PageView::resizeEvent(QResizeEvent *)
{
    layOutAgain();
    if (zoom != PageZoom::Free)
        GoTo(current);
}

void PageView::scrollContentsBy(int, int)
{
    if (!going && layout)
        setCurrent(mostInSight());
    viewport()->update();
}

void PageView::keyPressEvent(QKeyEvent *event)
{
    switch (event->key()) {
    case Qt::Key_PageUp:
        GoTo(current - 1);
        break;
    case Qt::Key_PageDown:
        GoTo(current + 1);
        break;
    case Qt::Key_Home:
        GoTo(0);
        break;
    case Qt::Key_End:
        GoTo(pageCount() - 1);
        break;
    default:
        if (event->matches(QKeySequence::ZoomIn))
            ZoomIn();
        else if (event->matches(QKeySequence::ZoomOut))
            ZoomOut();
        else
            QAbstractScrollArea::keyPressEvent(event);
    }
}

void PageView::wheelEvent(QWheelEvent *event)
{
    if (!event->modifiers().testFlag(Qt::ControlModifier)) {
        QAbstractScrollArea::wheelEvent(event);
        return;
    }
    if (event->angleDelta().y() > 0)
        ZoomIn();
    else if (event->angleDelta().y() < 0)
        ZoomOut();
    event->accept();
}

void PageView::mousePressEvent(QMouseEvent *event)
{
    const PageGrid places = grid();
    const QPoint point = event->position().toPoint() + offset();
    const auto [first, end] = places.PagesBetween(point.y(), point.y());
    for (int page = first; page < std::min(end, pageCount()); ++page)
        if (places.PlaceOf(page).contains(point))
            setCurrent(page);
    viewport()->update();
}
