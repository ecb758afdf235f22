#include "controls/CheckListBox.h"
#include "support/HalvaneTest.h"

#include <QTest>

using namespace Qt::StringLiterals;

class tst_CheckListBox : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup() { list.reset(); }

    void itemsStartUnticked();
    void itemsAreReplaced();
    void clickAnywhereOnALineTicksIt_data();
    void clickAnywhereOnALineTicksIt();
    void otherButtonsDoNotTick();
    void clickBelowTheLinesTicksNothing();
    void doubleClickTicksTwice();
    void spaceBarTicksTheCurrentLine();
    void arrowsMoveWithoutTicking();
    void tickedLinesComeInListOrder();
    void selectAll();
    void rowsThatDoNotExistAreIgnored();
    void markupIsText();

private:
    QPoint onLine(int row, double across) const
    {
        const QRect line = list->visualItemRect(list->item(row));
        return {line.left() + static_cast<int>(across * line.width()), line.center().y()};
    }
    void click(const QPoint &where, Qt::MouseButton button = Qt::LeftButton)
    {
        QTest::mouseClick(list->viewport(), button, {}, where);
    }

    std::unique_ptr<CheckListBox> list;
};

void tst_CheckListBox::init()
{
    list = std::make_unique<CheckListBox>();
    list->SetItems({u"Adams"_s, u"King"_s, u"Pierce"_s});
    list->resize(300, 200);
    list->show();
    QVERIFY(QTest::qWaitForWindowExposed(list.get()));
}

void tst_CheckListBox::itemsStartUnticked()
{
    QCOMPARE(list->count(), 3);
    QCOMPARE(list->Selected(), QStringList());
    QCOMPARE(list->currentRow(), 0);
}

void tst_CheckListBox::itemsAreReplaced()
{
    list->SelectAll(true);
    list->SetItems({u"Ada"_s});
    QCOMPARE(list->count(), 1);
    QCOMPARE(list->Selected(), QStringList());
    list->SetItems({});
    QCOMPARE(list->count(), 0);
}

void tst_CheckListBox::clickAnywhereOnALineTicksIt_data()
{
    QTest::addColumn<double>("across");
    QTest::newRow("on the box") << 0.02;
    QTest::newRow("on the text") << 0.15;
    QTest::newRow("behind the text") << 0.9;
}

void tst_CheckListBox::clickAnywhereOnALineTicksIt()
{
    QFETCH(double, across);
    click(onLine(1, across));
    QCOMPARE(list->Selected(), QStringList{u"King"_s});
    QCOMPARE(list->currentRow(), 1);
    click(onLine(1, across));
    QCOMPARE(list->Selected(), QStringList());
}

void tst_CheckListBox::otherButtonsDoNotTick()
{
    for (const Qt::MouseButton button : {Qt::RightButton, Qt::MiddleButton}) {
        click(onLine(1, 0.5), button);
        QCOMPARE(list->Selected(), QStringList());
    }
}

void tst_CheckListBox::clickBelowTheLinesTicksNothing()
{
    click({20, list->viewport()->height() - 2});
    QCOMPARE(list->Selected(), QStringList());
}

void tst_CheckListBox::doubleClickTicksTwice()
{
    // The second press of a double click comes as an event of its own.
    click(onLine(2, 0.5));
    QCOMPARE(list->Selected(), QStringList{u"Pierce"_s});
    QTest::mouseDClick(list->viewport(), Qt::LeftButton, {}, onLine(2, 0.5));
    QCOMPARE(list->Selected(), QStringList());
}

void tst_CheckListBox::spaceBarTicksTheCurrentLine()
{
    list->setFocus();
    list->setCurrentRow(2);
    QTest::keyClick(list.get(), Qt::Key_Space);
    QCOMPARE(list->Selected(), QStringList{u"Pierce"_s});
    QTest::keyClick(list.get(), Qt::Key_Space);
    QCOMPARE(list->Selected(), QStringList());
}

void tst_CheckListBox::arrowsMoveWithoutTicking()
{
    list->setFocus();
    QTest::keyClick(list.get(), Qt::Key_Down);
    QCOMPARE(list->currentRow(), 1);
    QCOMPARE(list->Selected(), QStringList());
    QTest::keyClick(list.get(), Qt::Key_Space);
    QCOMPARE(list->Selected(), QStringList{u"King"_s});
}

void tst_CheckListBox::tickedLinesComeInListOrder()
{
    click(onLine(2, 0.5));
    click(onLine(0, 0.5));
    QCOMPARE(list->Selected(), (QStringList{u"Adams"_s, u"Pierce"_s}));
}

void tst_CheckListBox::selectAll()
{
    click(onLine(1, 0.5));
    list->SelectAll(true);
    QCOMPARE(list->Selected(), (QStringList{u"Adams"_s, u"King"_s, u"Pierce"_s}));
    list->SelectAll(false);
    QCOMPARE(list->Selected(), QStringList());
}

void tst_CheckListBox::rowsThatDoNotExistAreIgnored()
{
    list->SetSelected(-1, true);
    list->SetSelected(3, true);
    QCOMPARE(list->Selected(), QStringList());
}

void tst_CheckListBox::markupIsText()
{
    list->SetItems({u"<b>King</b>"_s});
    list->SelectAll(true);
    QCOMPARE(list->Selected(), QStringList{u"<b>King</b>"_s});
}

HALVANE_TEST(tst_CheckListBox)
#include "tst_CheckListBox.moc"
