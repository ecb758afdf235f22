#include "controls/SearchTextBox.h"
#include "support/HalvaneTest.h"

#include <QApplication>
#include <QClipboard>
#include <QKeyEvent>
#include <QTest>

using namespace Qt::StringLiterals;

class tst_SearchTextBox : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init() { QApplication::clipboard()->clear(); }

    void whatIsTyped_data() { addTexts(); }
    void whatIsTyped();
    void whatIsPasted_data() { addTexts(); }
    void whatIsPasted();
    void pastedIntoTheMiddleLeavesTheCursorBehindIt();
    void everyCharacterOfTheCodePageButTheReserved();
    void furtherReservedCharacters();
    void entryEndsAtItsLongest();
    void setTextKeepsReservedCharactersOut();

private:
    /// Types character by character, those that no key of a plain keyboard gives included.
    static void type(QWidget *widget, const QString &text)
    {
        for (const QChar c : text) {
            QKeyEvent press(QEvent::KeyPress, 0, Qt::NoModifier, QString(c));
            QCoreApplication::sendEvent(widget, &press);
        }
    }
    static void addTexts()
    {
        QTest::addColumn<QString>("given");
        QTest::addColumn<QString>("taken");
        QTest::newRow("plain") << u"O'Neil & Sons, 100% <b>"_s << u"O'Neil & Sons, 100% <b>"_s;
        QTest::newRow("bar") << u"a|b"_s << u"ab"_s;
        QTest::newRow("broken bar") << u"a¦b"_s << u"ab"_s;
        QTest::newRow("several") << u"|¦a||b¦|"_s << u"ab"_s;
        QTest::newRow("only reserved") << u"||¦"_s << QString();
        QTest::newRow("tilde may stay") << u"a~b"_s << u"a~b"_s;
        QTest::newRow("high characters") << u"Jos\u00E9 \u20AC"_s << u"Jos\u00E9 \u20AC"_s;
    }
};

void tst_SearchTextBox::whatIsTyped()
{
    QFETCH(QString, given);
    QFETCH(QString, taken);
    SearchTextBox box;
    box.show();
    type(&box, given);
    QCOMPARE(box.text(), taken);
}

void tst_SearchTextBox::whatIsPasted()
{
    QFETCH(QString, given);
    QFETCH(QString, taken);
    SearchTextBox box;
    box.show();
    for (const auto &[around, expected] :
         {std::pair{given, taken},
          std::pair{QString(given + u"\r\n\t\x01x"), QString(taken + u'x')},
          std::pair{QString(u"\u0085\u007F" + given), taken}}) {
        box.clear();
        QApplication::clipboard()->setText(around);
        QTest::keySequence(&box, QKeySequence::Paste);
        QCOMPARE(box.text(), expected);
    }
}

void tst_SearchTextBox::pastedIntoTheMiddleLeavesTheCursorBehindIt()
{
    SearchTextBox box;
    box.show();
    type(&box, u"SMITH"_s);
    box.setCursorPosition(2);
    QApplication::clipboard()->setText(u"a|b¦c"_s);
    QTest::keySequence(&box, QKeySequence::Paste);
    QCOMPARE(box.text(), u"SMabcITH"_s);
    QCOMPARE(box.cursorPosition(), 5);
}

void tst_SearchTextBox::everyCharacterOfTheCodePageButTheReserved()
{
    SearchTextBox box;
    box.show();
    for (char16_t code = 0; code < 0x100; ++code) {
        const QString text{QChar(code)};
        const bool control = code < 0x20 || (code >= 0x7F && code <= 0x9F);
        const bool reserved = code == u'|' || code == u'¦';
        box.clear();
        QApplication::clipboard()->setText(u"a"_s + text + u"b"_s);
        QTest::keySequence(&box, QKeySequence::Paste);
        QCOMPARE(box.text(), control || reserved ? u"ab"_s : QString(u"a"_s + text + u"b"_s));
    }
}

void tst_SearchTextBox::furtherReservedCharacters()
{
    SearchTextBox box;
    box.show();
    box.SetReserved(u"~*"_s);
    type(&box, u"a~b*c|d¦e"_s);
    QCOMPARE(box.text(), u"abcde"_s);
}

void tst_SearchTextBox::entryEndsAtItsLongest()
{
    SearchTextBox box;
    box.show();
    QCOMPARE(SearchTextBox::longestEntry, 255);
    QApplication::clipboard()->setText(QString(300, u'x'));
    QTest::keySequence(&box, QKeySequence::Paste);
    QCOMPARE(box.text(), QString(255, u'x'));
    QTest::keyClick(&box, Qt::Key_Y);
    QCOMPARE(box.text(), QString(255, u'x'));
}

void tst_SearchTextBox::setTextKeepsReservedCharactersOut()
{
    SearchTextBox box;
    box.setText(u"a|b"_s);
    QCOMPARE(box.text(), u"ab"_s);
}

HALVANE_TEST(tst_SearchTextBox)
#include "tst_SearchTextBox.moc"
