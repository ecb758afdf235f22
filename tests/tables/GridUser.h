#pragma once

#include "core/UserStore.h"
#include "tables/FlexGrid.h"
#include "tables/TableTools.h"
#include "tables/TableUser.h"

#include <QApplication>
#include <QHeaderView>
#include <QScrollBar>

using namespace Qt::StringLiterals;

/// A table of these columns, every row a list of cells.
inline GridTable TableOf(const QList<GridColumn> &columns, const QList<QStringList> &rows,
                         bool hasHeader = true)
{
    return {columns, rows, hasHeader};
}

/// A docket whose entries have 20 to 400 characters.
inline GridTable DocketOf(int rows)
{
    GridTable table{{{u"Date"_s, 20}, {u"Entry"_s, 80}}, {}, true};
    const QString words = u"Notice of hearing filed by the clerk of the court in open session "_s;
    for (int row = 0; row < rows; ++row) {
        const int length = 20 + row * 37 % 381;
        table.Rows.append({u"01/02/2003"_s, words.repeated(7).left(length)});
    }
    return table;
}

/// A window with a grid and an entry field, and a user at it.
class GridUser : public TableUser
{
public:
    explicit GridUser(QSize size = {600, 400}, const QString &kind = u"GridDocket"_s)
    {
        stack->setContentsMargins(0, 0, 0, 0);
        Table = Grid = new FlexGrid(&Window);
        Grid->setObjectName(kind);
        Grid->setFrameShape(QFrame::NoFrame);
        stack->addWidget(Grid);
        Window.resize(size);
        Window.setWindowTitle(u"Case Details"_s);
    }

    static void ForgetWidths(const QStringList &kinds = {u"GridDocket"_s, u"GridNames"_s})
    {
        for (const QString &kind : kinds)
            SaveUserStoreValue(u"ColumnWidths"_s, kind, QString());
    }

    void Show()
    {
        TableUser::Show();
        Grid->setFocus();
    }

    QPoint Edge(int column) const
    {
        const QHeaderView *header = Grid->horizontalHeader();
        return {header->sectionViewportPosition(column) + header->sectionSize(column) - 1,
                header->height() / 2};
    }
    void PressAndMove(int column, int pixels)
    {
        const QPoint edge = Edge(column);
        dragged = edge + QPoint(pixels, 0);
        QTest::mousePress(headerPort(), Qt::LeftButton, {}, edge);
        QTest::mouseMove(headerPort(), edge + QPoint(pixels / 2, 0));
        QTest::mouseMove(headerPort(), dragged);
    }
    void Release() { QTest::mouseRelease(headerPort(), Qt::LeftButton, {}, dragged); }
    void Drag(int column, int pixels)
    {
        PressAndMove(column, pixels);
        Release();
    }

    QList<int> Widths() const
    {
        QList<int> widths;
        for (int column = 0; column < Grid->Cols(); ++column)
            widths.append(Grid->columnWidth(column));
        return widths;
    }

    /// As another program breaks the text of the row's cells; nothing when the row shows all of it
    /// and is not much higher.
    QString Misfit(int row) const
    {
        const QFontMetrics metrics(Grid->font());
        int lines = 1;
        for (int column = 0; column < Grid->Cols(); ++column) {
            const QRect cell(0, 0, Grid->columnWidth(column) - 8, 1'000'000);
            const QString text = Grid->model()->index(row, column).data().toString();
            const QRect broken =
                metrics.boundingRect(cell, Qt::TextWordWrap | Qt::TextWrapAnywhere, text);
            const QRect words = metrics.boundingRect(cell, Qt::TextWordWrap, text);
            const int height = words.width() > cell.width() ? broken.height() : words.height();
            lines = qMax(lines, qRound(double(height) / metrics.lineSpacing()));
        }
        const int height = Grid->rowHeight(row);
        const int least = lines * metrics.height();
        if (height >= least && height <= least + metrics.height() / 2 + 4)
            return {};
        return u"row %1 is %2 high, its %3 lines take %4"_s.arg(row).arg(height).arg(lines).arg(
            least);
    }
    QString MisfitInSight() const
    {
        const int bottom = Grid->viewport()->height();
        int row = Grid->rowAt(0);
        if (row < 0)
            return u"no row in sight"_s;
        for (; row < Grid->model()->rowCount() && Grid->rowViewportPosition(row) < bottom; ++row) {
            const QString misfit = Grid->isRowHidden(row) ? QString() : Misfit(row);
            if (!misfit.isEmpty())
                return misfit;
        }
        return {};
    }

    bool IsBusy() const
    {
        const QList<QTimer *> timers = Grid->findChildren<QTimer *>(Qt::FindDirectChildrenOnly);
        return std::any_of(timers.begin(), timers.end(),
                           [](const QTimer *timer) { return timer->isActive(); });
    }
    bool AllMeasured() const
    {
        return Grid->MeasuredRows() == Grid->model()->rowCount() && !IsBusy();
    }

    FlexGrid *Grid;

private:
    QWidget *headerPort() const { return Grid->horizontalHeader()->viewport(); }

    QPoint dragged;
};
