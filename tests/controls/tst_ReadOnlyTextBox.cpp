#include "controls/ReadOnlyTextBox.h"
#include "support/HalvaneTest.h"

#include <QApplication>
#include <QClipboard>
#include <QSignalSpy>
#include <QTest>

using namespace Qt::StringLiterals;

class tst_ReadOnlyTextBox : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void key_data();
    void key();
    void copying();
};

void tst_ReadOnlyTextBox::key_data()
{
    QTest::addColumn<int>("key");
    QTest::addColumn<int>("modifiers");
    QTest::addColumn<bool>("refused");
    const int none = Qt::NoModifier;
    const int control = Qt::ControlModifier;
    QTest::newRow("a letter") << int(Qt::Key_X) << none << true;
    QTest::newRow("a capital") << int(Qt::Key_X) << int(Qt::ShiftModifier) << true;
    QTest::newRow("a blank") << int(Qt::Key_Space) << none << true;
    QTest::newRow("backspace") << int(Qt::Key_Backspace) << none << true;
    QTest::newRow("delete") << int(Qt::Key_Delete) << none << true;
    QTest::newRow("paste") << int(Qt::Key_V) << control << true;
    QTest::newRow("cut") << int(Qt::Key_X) << control << true;
    QTest::newRow("copy") << int(Qt::Key_C) << control << false;
    QTest::newRow("a menu's letter") << int(Qt::Key_F) << int(Qt::AltModifier) << false;
    QTest::newRow("left") << int(Qt::Key_Left) << none << false;
    QTest::newRow("end") << int(Qt::Key_End) << none << false;
    QTest::newRow("escape") << int(Qt::Key_Escape) << none << false;
    QTest::newRow("return") << int(Qt::Key_Return) << none << false;
    QTest::newRow("F1") << int(Qt::Key_F1) << none << false;
}

void tst_ReadOnlyTextBox::key()
{
    QFETCH(int, key);
    QFETCH(int, modifiers);
    ReadOnlyTextBox box;
    box.setText(u"Benton District"_s);
    box.selectAll();
    const QSignalSpy refused(&box, &ReadOnlyTextBox::EditRefused);
    QTest::keyClick(&box, Qt::Key(key), Qt::KeyboardModifiers(modifiers));
    QTEST(refused.size() == 1, "refused");
    QCOMPARE(box.text(), u"Benton District"_s);
}

void tst_ReadOnlyTextBox::copying()
{
    ReadOnlyTextBox box;
    box.setText(u"Benton District"_s);
    QTest::keyClick(&box, Qt::Key_A, Qt::ControlModifier);
    QTest::keyClick(&box, Qt::Key_C, Qt::ControlModifier);
    QCOMPARE(QApplication::clipboard()->text(), u"Benton District"_s);
}

HALVANE_TEST(tst_ReadOnlyTextBox)
#include "tst_ReadOnlyTextBox.moc"
