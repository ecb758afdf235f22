#include "casedetails/CaseWindow.h"
#include "core/GlobalState.h"
#include "namesearch/DupesSearch.h"
#include "namesearch/IndexLines.h"
#include "support/HalvaneTest.h"
#include "tables/ResultListView.h"

#include <QAbstractButton>
#include <QApplication>
#include <QLabel>
#include <QPointer>
#include <QTest>

// The results windows when there is little room, and when a court sends texts that have no room in
// any window: what is there can be read and pressed, and no text makes the window grow.

namespace {
const QString longWord(50'000, u'W');
const QString manyWords = QStringList(10'000, u"Many"_s).join(u' ');

/// The least that the layout lets the window shrink to.
QSize leastOf(const QWidget *window)
{
    QCoreApplication::sendPostedEvents();
    return window->minimumSizeHint().expandedTo(window->minimumSize());
}
} // namespace

class tst_ResultsRoom : public DistrictSearchTest
{
    Q_OBJECT
private Q_SLOTS:
    void nothingIsCutAtTheSmallestSize_data();
    void nothingIsCutAtTheSmallestSize();
    void aLongProgressTextDoesNotWidenTheWindow_data();
    void aLongProgressTextDoesNotWidenTheWindow();
    void aLongNumberOfFurtherRowsDoesNotWidenTheWindow();
    void aLongNameOfAPersonDoesNotWidenTheWindow();
    void aLongCaseNumberLeavesTheOtherColumnsInReach_data() { EachResultsWindow(); }
    void aLongCaseNumberLeavesTheOtherColumnsInReach();
};

void tst_ResultsRoom::nothingIsCutAtTheSmallestSize_data()
{
    QTest::addColumn<Which>("which");
    QTest::addColumn<bool>("index");
    QTest::newRow("name search") << Which::Name << false;
    QTest::newRow("a page of an index") << Which::Name << true;
    QTest::newRow("civil") << Which::Civil << false;
    QTest::newRow("non-civil") << Which::NonCivil << false;
}

void tst_ResultsRoom::nothingIsCutAtTheSmallestSize()
{
    QFETCH(Which, which);
    QFETCH(bool, index);
    const QString line = index ? IndexLine() : LineOf(which);
    if (index)
        court->Expect(line).Reply({IndexRow(u"A"_s), LimitRow(500, 32000)});
    else
        court->Expect(line).Reply({RowOf(which), u"EOF~"_s});
    NameResultsWindow *window =
        Search(index ? new frmNameSearchResults(u"WA"_s, true) : MakeWindow(which), {line});
    if (which == Which::Name) {
        window->SetNameVal(u"SMITH AND SMYTHE HEATING PLUMBING AND ROOFING COMPANY OF TACOMA"_s);
        window->SetCaseTypeVals(u"Criminal, Civil, Domestic, Probate, Guardianship, Paternity, "
                                "Juvenile Offender, Judgment, Small Claims, Offense"_s);
    }
    window->resize(1, 1);
    QCoreApplication::processEvents();
    const QList<QWidget *> all = window->findChildren<QWidget *>();
    for (const QWidget *widget : all) {
        const auto *label = qobject_cast<const QLabel *>(widget);
        if (!widget->isVisible() || !(label || qobject_cast<const QAbstractButton *>(widget)))
            continue;
        if (qobject_cast<const QAbstractItemView *>(widget->parentWidget())
            || widget->objectName().startsWith(u"qt_"))
            continue;
        const QSize wanted = label && label->wordWrap()
                                 ? QSize(0, label->heightForWidth(label->width()))
                                 : widget->sizeHint();
        const QString size = u"%1 is %2 x %3 of %4 x %5"_s.arg(widget->objectName())
                                 .arg(widget->width())
                                 .arg(widget->height())
                                 .arg(wanted.width())
                                 .arg(wanted.height());
        QVERIFY2(widget->width() >= wanted.width() && widget->height() >= wanted.height(),
                 qPrintable(size));
        const QRect inWindow(widget->mapTo(window, QPoint()), widget->size());
        QVERIFY2(window->rect().contains(inWindow), qPrintable(size));
    }
    const ResultListView *list = ListOf(window);
    QVERIFY2(list->viewport()->height() >= list->rowHeight(0), "no row can be seen");
}

void tst_ResultsRoom::aLongProgressTextDoesNotWidenTheWindow_data()
{
    QTest::addColumn<Which>("which");
    QTest::addColumn<QString>("text");
    for (const auto &[name, which] :
         {std::pair{"name search", Which::Name}, std::pair{"civil", Which::Civil},
          std::pair{"non-civil", Which::NonCivil}}) {
        QTest::addRow("%s, one word", name) << which << longWord;
        QTest::addRow("%s, many words", name) << which << manyWords;
    }
}

void tst_ResultsRoom::aLongProgressTextDoesNotWidenTheWindow()
{
    QFETCH(Which, which);
    QFETCH(QString, text);
    court->Expect(LineOf(which)).Reply({u"SEARCHING~"_s + text, RowOf(which)});
    NameResultsWindow *window = Begin(MakeWindow(which), {LineOf(which)});
    const QSize least = leastOf(window);
    const QSize size = window->size();
    QSize leastMeanwhile;
    QSize sizeMeanwhile;
    desk->When([&] { return window->RowCount() == 1; },
               [&] {
                   leastMeanwhile = leastOf(window);
                   sizeMeanwhile = window->size();
                   court->SendTokens({u"EOF~"_s});
               });
    QVERIFY(desk->Finish(window));
    QCOMPARE(leastMeanwhile.width(), least.width());
    QCOMPARE(sizeMeanwhile, size);
}

void tst_ResultsRoom::aLongNumberOfFurtherRowsDoesNotWidenTheWindow()
{
    court->Expect(IndexLine()).Reply({u"WARNING~Reached Search Limit~500~"_s + longWord + u'~'});
    auto *window = Begin(new frmNameSearchResults(u"WA"_s, true), {IndexLine()});
    const QSize least = leastOf(window);
    QVERIFY(desk->Finish(window));
    QVERIFY(TextOf(window, "lblStatus").contains(longWord));
    QCOMPARE(leastOf(window).width(), least.width());
}

void tst_ResultsRoom::aLongNameOfAPersonDoesNotWidenTheWindow()
{
    const QString person = u"NCNMD~%1~M~01/02/1970~W~510~180~BRO~NONE~"_s;
    court->Expect(StatewideLine()).Reply({person.arg(longWord), PersonRow(u"A"_s), u"EOF~"_s});
    auto *window = Search(new frmDiscisNCNameResults, {StatewideLine()});
    const QSize least = leastOf(window);
    CheckRow(window, 1);
    CheckRow(window, 0);
    const QStringList lines{CasesLine(longWord, 1).replace(u"SMITH, W"_s, u"W"_s),
                            CasesLine(u"A"_s, 2)};
    court->Expect(lines[0]).Reply({u"EOF~"_s});
    court->Expect(lines[1]).Reply({u"EOF~"_s});
    ButtonOf(window, "cmdSearchResults_0")->click();
    QVERIFY(desk->Finish(window));
    window->ShowSearchCriteria(0);
    QVERIFY(TextOf(window, "lblNameVal").contains(longWord));
    QCOMPARE(leastOf(window).width(), least.width());
}

void tst_ResultsRoom::aLongCaseNumberLeavesTheOtherColumnsInReach()
{
    QFETCH(Which, which);
    QString row = RowOf(which);
    const QString number = row.section(u'~', 1, 1);
    row.replace(number, u"<b>\u0001\u00A0&amp;"_s + longWord);
    court->Expect(LineOf(which)).Reply({row, RowOf(which), u"EOF~"_s});
    NameResultsWindow *window = Search(MakeWindow(which), {LineOf(which)});
    const ResultListView *list = ListOf(window);
    window->OpenCaseFromRow(0);
    window->OpenCaseFromRow(1);
    QVERIFY(list->List()->Cell(0, 1).startsWith(u">><b>"));
    QVERIFY2(list->columnWidth(1) <= list->viewport()->width(),
             qPrintable(QString::number(list->columnWidth(1))));
    QList<int> widths;
    const QList<QWidget *> windows = QApplication::topLevelWidgets();
    for (const QWidget *one : windows) {
        if (qobject_cast<const CaseWindow *>(one) && one->isVisible())
            widths.append(one->minimumSizeHint().width());
    }
    QCOMPARE(widths.size(), 2);
    QCOMPARE(widths[0], widths[1]);
}

HALVANE_TEST(tst_ResultsRoom)
#include "tst_ResultsRoom.moc"
