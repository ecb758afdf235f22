#include "controls/Twips.h"
#include "support/HalvaneTest.h"
#include "tables/ResultListView.h"

#include <QApplication>
#include <QFontMetrics>
#include <QHeaderView>
#include <QHelpEvent>
#include <QStyledItemDelegate>
#include <QTest>
#include <QToolTip>

#include <algorithm>

using namespace Qt::StringLiterals;

// What of a list is not cut although its columns have the widths of their table.

class tst_ListColumns : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void noTitleIsCutInItsOwnWidth();
    void aColumnWidensForACell();
    void tipOfACellWithoutEndFitsAScreen();
    void ofACellWithoutEndTheBeginningIsShown();
    void whatIsLeftGoesToTheLastColumnThatIsSeen();
    void columnsThatAreMadeAnewStandInTheirOrder();
    void rowsAndTitlesFollowTheFont_data();
    void rowsAndTitlesFollowTheFont();
};

void tst_ListColumns::noTitleIsCutInItsOwnWidth()
{
    ResultListView view;
    view.SetColumns({{u"Name"_s, 2000}, {u"Number"_s, 2000}});
    const QFont roomy = view.horizontalHeader()->font();
    // As narrow as nine tenths of the text's size are too wide for.
    const int advance = QFontMetrics(roomy).horizontalAdvance(u"Description"_s);
    view.SetColumns({{u"Name"_s, 2000}, {u"Description"_s, TwipsFromPixels(advance)}});
    QVERIFY(view.horizontalHeader()->font().pointSizeF() < roomy.pointSizeF());
    // A column that is not seen takes no part, and the next columns begin anew.
    view.SetColumns({{u"Name"_s, 2000}, {u"Description"_s, 30}});
    QCOMPARE(view.horizontalHeader()->font().pointSizeF(), roomy.pointSizeF());
}

void tst_ListColumns::aColumnWidensForACell()
{
    ResultListView view;
    view.SetColumns({{u"Name"_s, 1500}, {u"Number"_s, 600}, {u"Rest"_s, 1500}});
    view.List()->AddRow({u"A"_s, u"7"_s, u"x"_s});
    view.List()->AddRow({u"B"_s, u">>*CR-1998-0002546-IN"_s, u"x"_s});
    view.List()->Flush();
    view.WidenForCell(0, 1);
    QCOMPARE(view.columnWidth(1), 40);
    view.WidenForCell(1, 1);
    const int needed = view.sizeHintForIndex(view.List()->index(1, 1)).width();
    QVERIFY(needed > 40);
    QCOMPARE(view.columnWidth(1), needed);
    view.WidenForCell(0, 1);
    QCOMPARE(view.columnWidth(1), needed);
    QCOMPARE(view.columnWidth(0), 100);
    // A cell without end does not push the other columns out of reach.
    view.List()->AddRow({u"C"_s, QString(50'000, u'7'), u"x"_s});
    view.List()->Flush();
    view.WidenForCell(2, 1);
    QVERIFY(view.columnWidth(1) > needed);
    QVERIFY(view.columnWidth(1) <= view.viewport()->width());
}

void tst_ListColumns::whatIsLeftGoesToTheLastColumnThatIsSeen()
{
    ResultListView view;
    view.SetColumns({{u"Name"_s, 1500}, {u"Parties"_s, 1500}, {u"Command"_s, 30}});
    view.resize(700, 300);
    view.show();
    QCOMPARE(view.columnWidth(0), 100);
    QCOMPARE(view.columnWidth(2), 2);
    QCOMPARE(view.columnWidth(1), view.viewport()->width() - 102);
    view.SetColumns({{u"Name"_s, 1500}, {u"Parties"_s, 1500}});
    QCOMPARE(view.columnWidth(0), 100);
    QCOMPARE(view.columnWidth(1), view.viewport()->width() - 100);
    QCOMPARE(view.horizontalHeader()->visualIndex(1), 1);
}

void tst_ListColumns::columnsThatAreMadeAnewStandInTheirOrder()
{
    ResultListView view;
    const QHeaderView *header = view.horizontalHeader();
    const QList<ListColumn> hiddenLast{{u"Name"_s, 1500}, {u"Parties"_s, 1500}, {u"Secret"_s, 30}};
    view.SetColumns(hiddenLast);
    view.SetColumns(hiddenLast);
    QCOMPARE(header->visualIndex(1), 2);
    QCOMPARE(header->visualIndex(2), 1);
    view.SetColumns({{u"Name"_s, 1500}, {u"Parties"_s, 1500}, {u"Role"_s, 1500}});
    for (int column = 0; column < 3; ++column)
        QCOMPARE(header->visualIndex(column), column);
}

void tst_ListColumns::rowsAndTitlesFollowTheFont_data()
{
    QTest::addColumn<bool>("smallText");
    QTest::newRow("cells as large as the desktop's text") << false;
    QTest::newRow("small cells") << true;
}

void tst_ListColumns::rowsAndTitlesFollowTheFont()
{
    QFETCH(bool, smallText);
    ResultListView view;
    if (smallText)
        view.UseSmallText();
    view.SetColumns({{u"Name"_s, 6000}, {u"Number"_s, 6000}});
    view.List()->AddRow({u"A"_s, u"7"_s});
    view.List()->Flush();
    const double titles = view.horizontalHeader()->font().pointSizeF();
    const int before = view.rowHeight(0);
    QFont large = view.font();
    large.setPointSizeF(2.0 * large.pointSizeF());
    view.setFont(large);
    QVERIFY(view.rowHeight(0) > view.fontMetrics().height());
    QVERIFY(view.rowHeight(0) > before);
    QVERIFY(qAbs(view.horizontalHeader()->font().pointSizeF() - 2.0 * titles) < 0.1);
}

void tst_ListColumns::tipOfACellWithoutEndFitsAScreen()
{
    ResultListView view;
    view.SetColumns({{u"Name"_s, 1500}, {u"Number"_s, 600}});
    view.List()->AddRow({QString(50'000, u'W')});
    view.List()->Flush();
    view.resize(500, 100);
    view.show();
    QVERIFY(QTest::qWaitForWindowExposed(&view));
    const QPoint where = view.visualRect(view.List()->index(0, 0)).center();
    QHelpEvent help(QEvent::ToolTip, where, view.viewport()->mapToGlobal(where));
    QCoreApplication::sendEvent(view.viewport(), &help);
    const QList<QWidget *> windows = QApplication::topLevelWidgets();
    const auto tip = std::find_if(windows.begin(), windows.end(), [](const QWidget *widget) {
        return widget->inherits("QTipLabel") && widget->isVisible();
    });
    QVERIFY(tip != windows.end());
    QVERIFY2((*tip)->width() <= 1000 && (*tip)->height() <= 1000,
             qPrintable(u"%1 x %2"_s.arg((*tip)->width()).arg((*tip)->height())));
    QToolTip::hideText();
}

void tst_ListColumns::ofACellWithoutEndTheBeginningIsShown()
{
    const ResultListView view;
    const auto *delegate = qobject_cast<QStyledItemDelegate *>(view.itemDelegate());
    QVERIFY(delegate);
    const QString whole = u"SMITH"_s + QString(1'000'000, u'x');
    const QString shown = delegate->displayText(whole, QLocale());
    QVERIFY(shown.size() < 10'000);
    QVERIFY(whole.startsWith(shown));
    QCOMPARE(delegate->displayText(u"SMITH"_s, QLocale()), u"SMITH"_s);
}

HALVANE_TEST(tst_ListColumns)
#include "tst_ListColumns.moc"
