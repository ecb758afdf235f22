#include "controls/SaveDialog.h"
#include "support/HalvaneTest.h"
#include "support/TestFolder.h"
#include "tables/NamesUser.h"
#include "tables/RowFilter.h"

#include <QFile>
#include <QLabel>
#include <QSignalSpy>

#include <memory>

// Find in a list of very many rows: it is looked through in slices, and anything can happen between
// two of them.

namespace {
constexpr int atOnce = 20'000; ///< rows
constexpr int many = 3 * atOnce;

/// "SMITH 0", "JONES 1", "SMITH 2" and so on.
QStringList namesFrom(int first, int count)
{
    QStringList names;
    for (int row = first; row < first + count; ++row)
        names.append((row % 2 == 0 ? u"SMITH "_s : u"JONES "_s) + QString::number(row));
    return names;
}

/// A list of sixty thousand rows, and a user at it.
class ManyNamesUser : public NamesUser
{
public:
    ManyNamesUser() : NamesUser(false)
    {
        List->List()->Clear();
        Fill(namesFrom(0, many));
    }

    RowFilter *Filter() const { return Tools()->Filter(); }
    QString Count() const { return Window.findChild<QLabel *>(u"lblFindCount"_s)->text(); }
    /// The rest comes between turns of the event loop, without anybody asking for it.
    void WaitUntilLooked() const { QTRY_VERIFY(!Filter()->IsLooking()); }
    /// How many of these rows are in sight.
    int InSightOf(int first, int count) const
    {
        int shown = 0;
        for (int row = first; row < first + count; ++row)
            shown += Table->isRowHidden(row) ? 0 : 1;
        return shown;
    }
};
} // namespace

class tst_FindInSlices : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void aListOfTwentyThousandIsLookedThroughAtOnce();
    void theFirstRowsComeAtOnceAndTheOthersBetweenTurns();
    void aNewerKeyEndsTheOlderLook();
    void whatOneKeyHidAndTheNextShowsIsNotSelected();
    void noWordsShowAllAgain();
    void closingTheBarMeanwhile();
    void everythingIsSelectedMeanwhile();
    void aShiftClickMeanwhile();
    void copyingMeanwhile();
    void exportingMeanwhile();
    void enterMeanwhile();
    void theSpaceBarMeanwhile();
    void aRowThatIsAskedAboutMeanwhile();
    void rowsThatArriveMeanwhile();
    void aRowThatChangesMeanwhile();
    void aSortedListMeanwhile();
    void aListThatIsEmptiedMeanwhile();
    void aListThatGoesMeanwhile();
};

void tst_FindInSlices::aListOfTwentyThousandIsLookedThroughAtOnce()
{
    const NamesUser user(false);
    user.List->List()->Clear();
    user.Fill(namesFrom(0, atOnce));
    user.Find(u"smith"_s);
    QVERIFY(!user.Tools()->Filter()->IsLooking());
    QCOMPARE(user.Tools()->Filter()->Shown(), atOnce / 2);
}

void tst_FindInSlices::theFirstRowsComeAtOnceAndTheOthersBetweenTurns()
{
    const ManyNamesUser user;
    const QSignalSpy changed(user.Filter(), &RowFilter::Changed);
    user.Find(u"smith"_s);
    QVERIFY(user.Filter()->IsLooking());
    QCOMPARE(user.InSightOf(0, atOnce), atOnce / 2);
    QCOMPARE(user.InSightOf(atOnce, atOnce), atOnce);
    QCOMPARE(user.Count(), u"Looking .."_s);
    user.WaitUntilLooked();
    QCOMPARE(user.Filter()->Shown(), many / 2);
    QCOMPARE(user.Count(), u"30000 of 60000 shown"_s);
    QCOMPARE(changed.size(), 3);
}

void tst_FindInSlices::aNewerKeyEndsTheOlderLook()
{
    const ManyNamesUser user;
    user.Find(u"smith"_s);
    QCoreApplication::processEvents();
    QVERIFY(user.Filter()->IsLooking());
    const QSignalSpy changed(user.Filter(), &RowFilter::Changed);
    user.Find(u"jones"_s);
    QCOMPARE(user.InSightOf(0, atOnce), atOnce / 2);
    QVERIFY(user.Table->isRowHidden(0));
    user.WaitUntilLooked();
    QCOMPARE(user.InSight(), QStringList(namesFrom(0, many).filter(u"JONES"_s)));
    QCOMPARE(changed.size(), 3);
}

void tst_FindInSlices::whatOneKeyHidAndTheNextShowsIsNotSelected()
{
    const ManyNamesUser user;
    user.Click(0);
    user.Find(u"jones"_s);
    QVERIFY(user.Filter()->IsLooking());
    QVERIFY(user.Table->isRowHidden(0));
    user.Find(u"smith"_s);
    QVERIFY(!user.Table->isRowHidden(0));
    QCOMPARE(user.Selected(), QString());
    user.WaitUntilLooked();
    QCOMPARE(user.Selected(), QString());
    QCOMPARE(user.List->SelectedRow(), -1);
}

void tst_FindInSlices::noWordsShowAllAgain()
{
    const ManyNamesUser user;
    user.Find(u"smith 59998"_s);
    user.WaitUntilLooked();
    user.Click(many - 2);
    user.Find({});
    QVERIFY(user.Filter()->IsLooking());
    QCOMPARE(user.InSightOf(0, atOnce), atOnce);
    user.WaitUntilLooked();
    QCOMPARE(user.Filter()->Shown(), many);
    // The row that was found is still the one, and in sight.
    QCOMPARE(user.List->SelectedRow(), many - 2);
    QVERIFY(user.Table->viewport()->rect().contains(user.Place(many - 2)));
}

void tst_FindInSlices::closingTheBarMeanwhile()
{
    const ManyNamesUser user;
    user.Find(u"smith"_s);
    user.Tools()->OpenFind();
    QTest::keyClick(user.Window.focusWidget(), Qt::Key_Escape);
    user.WaitUntilLooked();
    QCOMPARE(user.Filter()->Shown(), many);
}

void tst_FindInSlices::everythingIsSelectedMeanwhile()
{
    const ManyNamesUser user;
    user.Find(u"smith"_s);
    QTest::keySequence(user.Table, QKeySequence::SelectAll);
    QCOMPARE(user.Filter()->SelectedRows().size(), many / 2);
    // And of rows that are coming back all.
    user.Find({});
    QVERIFY(user.Filter()->IsLooking());
    QTest::keySequence(user.Table, QKeySequence::SelectAll);
    QVERIFY(!user.Filter()->IsLooking());
    QCOMPARE(user.Filter()->SelectedRows().size(), many);
}

void tst_FindInSlices::aShiftClickMeanwhile()
{
    const ManyNamesUser user;
    user.Find(u"smith"_s);
    user.Table->scrollToBottom();
    user.Click(many - 2);
    user.Find({});
    QVERIFY(user.Filter()->IsLooking());
    user.Table->scrollToTop();
    user.Click(0, Qt::ShiftModifier);
    QCOMPARE(user.Filter()->SelectedRows().size(), many - 1);
}

void tst_FindInSlices::copyingMeanwhile()
{
    const ManyNamesUser user;
    user.Table->selectAll();
    user.Find(u"smith 5999"_s);
    QVERIFY(user.Filter()->IsLooking());
    QCOMPARE(user.Copied(u"mnuListCopy"_s),
             QStringList(namesFrom(59'990, 10).filter(u"SMITH"_s)).join(u'\n'));
}

void tst_FindInSlices::exportingMeanwhile()
{
    const TestFolder folder;
    const QString file = folder.Path(u"list.csv"_s);
    ReplaceSaveDialog([file](const QString &) { return file; });
    const ManyNamesUser user;
    user.Find(u"smith 5999"_s);
    QVERIFY(user.Filter()->IsLooking());
    user.Trigger(u"mnuListExport"_s);
    ReplaceSaveDialog({});
    QFile written(file);
    QVERIFY(written.open(QIODevice::ReadOnly));
    QCOMPARE(written.readAll().count('\n'), 6);
}

void tst_FindInSlices::enterMeanwhile()
{
    const ManyNamesUser user;
    user.Find(u"5999 smith"_s);
    user.Tools()->OpenFind();
    QVERIFY(user.Filter()->IsLooking());
    QTest::keyClick(user.Window.focusWidget(), Qt::Key_Return);
    QCOMPARE(user.List->SelectedRow(), 59'990);
    // A row that is in sight already is the first, whatever comes behind it.
    user.Find({});
    user.WaitUntilLooked();
    user.Table->clearSelection();
    user.Table->setCurrentIndex({});
    user.Find(u"smith"_s);
    user.Tools()->OpenFind();
    QTest::keyClick(user.Window.focusWidget(), Qt::Key_Return);
    QVERIFY(user.Filter()->IsLooking());
    QCOMPARE(user.List->SelectedRow(), 0);
}

void tst_FindInSlices::theSpaceBarMeanwhile()
{
    const ManyNamesUser user;
    user.List->List()->SetCheckBoxes(true);
    user.Find(u"jones 59999"_s);
    QVERIFY(user.Filter()->IsLooking());
    QTest::keyClick(user.Table, Qt::Key_Space);
    QCOMPARE(user.List->List()->CheckedRows(), QList<int>({59'999}));
}

void tst_FindInSlices::aRowThatIsAskedAboutMeanwhile()
{
    const ManyNamesUser user;
    user.Find(u"smith"_s);
    QVERIFY(!user.Table->isRowHidden(59'999));
    QVERIFY(!user.Filter()->Shows(59'999));
}

void tst_FindInSlices::rowsThatArriveMeanwhile()
{
    const ManyNamesUser user;
    user.Find(u"smith"_s);
    user.Fill(namesFrom(many, 10));
    QVERIFY(user.Filter()->IsLooking());
    user.WaitUntilLooked();
    QCOMPARE(user.Filter()->Shown(), many / 2 + 5);
    user.Find({});
    user.Fill(namesFrom(many + 10, 10));
    user.WaitUntilLooked();
    QCOMPARE(user.Filter()->Shown(), many + 20);
}

void tst_FindInSlices::aRowThatChangesMeanwhile()
{
    const ManyNamesUser user;
    user.Find(u"smith"_s);
    QVERIFY(user.Filter()->IsLooking());
    user.List->List()->SetCell(0, 0, u"BROWN"_s);
    user.List->List()->SetCell(many - 1, 0, u"SMITH"_s);
    QVERIFY(user.Table->isRowHidden(0));
    user.WaitUntilLooked();
    QCOMPARE(user.InSightOf(0, 2), 0);
    QCOMPARE(user.InSightOf(many - 2, 2), 2);
}

void tst_FindInSlices::aSortedListMeanwhile()
{
    const ManyNamesUser user;
    std::vector<QString> keys;
    for (const QString &name : namesFrom(0, many))
        keys.push_back(name);
    user.Find(u"smith"_s);
    user.List->SortRows(keys, Qt::AscendingOrder);
    QVERIFY(user.Filter()->IsLooking());
    user.WaitUntilLooked();
    QCOMPARE(user.InSightOf(0, many / 2), 0);
    QCOMPARE(user.InSightOf(many / 2, many / 2), many / 2);
    // While they come back, too: rows that were hidden have moved to where it has been looked.
    user.Find({});
    user.List->SortRows(keys, Qt::DescendingOrder);
    user.WaitUntilLooked();
    QCOMPARE(user.Filter()->Shown(), many);
}

void tst_FindInSlices::aListThatIsEmptiedMeanwhile()
{
    const ManyNamesUser user;
    user.Find(u"smith"_s);
    user.List->List()->Clear();
    QVERIFY(!user.Filter()->IsLooking());
    QCOMPARE(user.Count(), u"0 of 0 shown"_s);
    user.Fill(namesFrom(0, 2));
    QCOMPARE(user.InSight(), QStringList(u"SMITH 0"_s));
}

void tst_FindInSlices::aListThatGoesMeanwhile()
{
    auto user = std::make_unique<ManyNamesUser>();
    user->Find(u"smith"_s);
    QVERIFY(user->Filter()->IsLooking());
    user.reset();
    QCoreApplication::processEvents();
}

HALVANE_TEST(tst_FindInSlices)
#include "tst_FindInSlices.moc"
