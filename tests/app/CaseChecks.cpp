#include "app/CaseChecks.h"

#include "casedetails/CaseWindow.h"
#include "controls/TabStrip.h"
#include "core/GlobalState.h"
#include "tables/FlexGrid.h"

#include <QTest>

#include <algorithm>

namespace {
bool isWord(const QString &header)
{
    return !header.trimmed().isEmpty() && header.front().isLetter() && !header.contains(u'~');
}

} // namespace

QString TroubleWith(const CaseWindow *window, CaseTab tab)
{
    const GridTable &table = window->Tab(tab).Grid->Table();
    const QString caption = CaseTabRowOf(tab).caption.toString();
    if (table.Columns.isEmpty())
        return caption + u" has no grid"_s;
    if (table.Columns.size() == 1) {
        const QString message = table.Rows.value(table.Rows.size() - 1).value(0);
        const bool empty = message.startsWith(u"No ") || message.startsWith(u"Documents ");
        return empty ? QString() : caption + u" reads "_s + message;
    }
    double width = 0;
    for (const GridColumn &column : table.Columns) {
        if (!isWord(column.Header))
            return caption + u" has the header "_s + column.Header;
        width += column.Percent;
    }
    constexpr double whole = 100;
    constexpr double slack = 1.5;
    if (width < whole - slack || width > whole + slack)
        return caption + u" is so wide: "_s + QString::number(width);
    if (table.Rows.isEmpty())
        return caption + u" has no row"_s;
    for (const QStringList &row : table.Rows) {
        if (row.size() > table.Columns.size())
            return caption + u" has a wider row: "_s + row.join(u'~');
    }
    return {};
}

bool HasCell(const CaseWindow *window, CaseTab tab, const QString &text)
{
    const QList<QStringList> &rows = window->Tab(tab).Grid->Table().Rows;
    return std::any_of(rows.begin(), rows.end(),
                       [&](const QStringList &row) { return row.contains(text); });
}

QList<CaseTab> TabsOf(const CaseWindow *window)
{
    QList<CaseTab> tabs;
    for (const QString &caption : StripOf(window)->Captions())
        tabs.append(CaseTabOf(caption).value_or(CaseTab::Summary));
    return tabs;
}

void CheckCase(const CaseWindow *window, const Expected &expected)
{
    QCOMPARE(TextOf(window, "lblStatus"), u"Search Complete"_s);
    QVERIFY(!window->AnyTabIncomplete());
    const QStringList captions = StripOf(window)->Captions();
    if (!expected.tabs.isEmpty())
        QCOMPARE(captions, expected.tabs);
    QCOMPARE(captions.mid(0, 3), firstTwo + QStringList{captions.value(2)});
    for (const CaseTab tab : TabsOf(window)) {
        const QString caption = CaseTabRowOf(tab).caption.toString();
        QVERIFY2(window->Tab(tab).TabDone, qPrintable(caption));
        QCOMPARE(TroubleWith(window, tab), QString());
        QVERIFY(ClickTab(window, caption));
        QVERIFY2(!ShowsPanel(window), qPrintable(caption));
        QVERIFY2(window->Tab(tab).Grid->isVisible(), qPrintable(caption));
    }
    QVERIFY2(HasCell(window, CaseTab::Names, expected.person), qPrintable(expected.person));
    QVERIFY2(window->lblCourtName().contains(expected.court), qPrintable(window->lblCourtName()));
    QCOMPARE(Keys(), QStringList());
    QVERIFY(!Global.bSearchInProgress);
}
