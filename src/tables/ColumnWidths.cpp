#include "tables/ColumnWidths.h"

#include "controls/Twips.h"
#include "core/UserStore.h"

#include <QEvent>
#include <QHeaderView>
#include <QTableView>

using namespace Qt::StringLiterals;

namespace {
constexpr qsizetype longestName = 80; ///< characters of a header that tell a column from others
QString storeSection()
{
    return u"ColumnWidths"_s;
}
} // namespace

int LastColumnInSight(const QTableView *table)
{
    const QHeaderView *header = table->horizontalHeader();
    int place = header->count() - 1;
    while (place >= 0 && header->isSectionHidden(header->logicalIndex(place)))
        --place;
    return header->logicalIndex(place);
}

ColumnWidths::ColumnWidths(QTableView *table) : QObject(table), view(table)
{
    view->horizontalHeader()->viewport()->installEventFilter(this);
    connect(view->horizontalHeader(), &QHeaderView::sectionHandleDoubleClicked, this,
            [this](int column) { fitted = column; });
}

void ColumnWidths::Begin(const QString &kind, const QList<int> &usual)
{
    kindName = kind;
    usualTwips = usual;
    atPress.clear();
    users = kind.isEmpty() ? StoredWidths()
                           : WidthsOfText(UserStoreValue(storeSection(), kind, QString()));
    for (int column = 0; column < usual.size(); ++column)
        SetUsual(column, usual[column]);
}

void ColumnWidths::SetUsual(int column, int twips)
{
    if (column < usualTwips.size())
        usualTwips[column] = twips;
    const int width = users.isEmpty() ? twips : users.value(nameOf(column), twips);
    view->setColumnWidth(column, PixelsFromTwips(width));
    // A column that changes by itself during a drag was not changed by the user.
    if (column < atPress.size())
        atPress[column] = view->columnWidth(column);
}

void ColumnWidths::Reset()
{
    users.clear();
    if (!kindName.isEmpty())
        SaveUserStoreValue(storeSection(), kindName, QString());
    for (int column = 0; column < usualTwips.size(); ++column)
        view->setColumnWidth(column, PixelsFromTwips(usualTwips[column]));
    Q_EMIT UserChanged(true);
}

bool ColumnWidths::IsUsers(int column) const
{
    return !users.isEmpty() && users.contains(nameOf(column));
}

bool ColumnWidths::eventFilter(QObject *watched, QEvent *event)
{
    switch (event->type()) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick:
        atPress = widths();
        break;
    case QEvent::MouseButtonRelease:
        takeUserWidths();
        atPress.clear();
        fitted = -1;
        Q_EMIT Released();
        break;
    default:
        break;
    }
    return QObject::eventFilter(watched, event);
}

void ColumnWidths::takeUserWidths()
{
    StoredWidths changed;
    for (int column = 0; column < atPress.size(); ++column) {
        const int width = view->columnWidth(column);
        // Who fits a column wants it so, whether it was so already or not.
        const bool wanted = width != atPress[column] || column == fitted;
        if (wanted && !isStretched(column))
            changed.insert(nameOf(column), TwipsFromPixels(width));
    }
    if (changed.isEmpty())
        return;
    users.insert(changed);
    if (!kindName.isEmpty()) {
        // Another window of this kind may have written since: only what changed here is put in.
        StoredWidths stored = WidthsOfText(UserStoreValue(storeSection(), kindName, QString()));
        stored.insert(changed);
        SaveUserStoreValue(storeSection(), kindName, WidthsText(stored));
    }
    Q_EMIT UserChanged(false);
}

/// A column is known by its header, so that a width stays with its column when others come or go. A
/// court can send a title without end, and every width is kept in the user's settings.
QString ColumnWidths::nameOf(int column) const
{
    const auto header = [this](int section) {
        return view->model()->headerData(section, Qt::Horizontal).toString().left(longestName);
    };
    const QString name = header(column);
    int earlier = 0;
    for (int section = 0; section < column; ++section) {
        if (header(section) == name)
            ++earlier;
    }
    return earlier == 0 ? name : QString(name + u'#' + QString::number(earlier));
}

/// The last column in sight takes the room that is left: its width follows from the others'.
bool ColumnWidths::isStretched(int column) const
{
    return view->horizontalHeader()->stretchLastSection() && column == LastColumnInSight(view);
}

QList<int> ColumnWidths::widths() const
{
    QList<int> all;
    for (int column = 0; column < view->model()->columnCount(); ++column)
        all.append(view->columnWidth(column));
    return all;
}
