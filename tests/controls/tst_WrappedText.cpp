#include "controls/WrappedText.h"
#include "support/HalvaneTest.h"
#include "support/ProcessorTime.h"

#include <QApplication>
#include <QImage>
#include <QPainter>
#include <QTest>
#include <QTextLayout>

using namespace Qt::StringLiterals;

namespace {
constexpr int width = 120;

/// In one layout, however long the text is.
int heightInOne(const QString &text)
{
    QTextLayout layout(QString(text).replace(u'\n', QChar::LineSeparator), QApplication::font());
    QTextOption option;
    option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    layout.setTextOption(option);
    double height = 0.0;
    layout.beginLayout();
    for (QTextLine line = layout.createLine(); line.isValid(); line = layout.createLine()) {
        line.setLineWidth(width);
        height += std::ceil(line.height());
    }
    layout.endLayout();
    return static_cast<int>(height);
}

double secondsFor(const QString &text)
{
    const double before = ProcessorSeconds();
    WrappedTextHeight(text, QApplication::font(), width);
    return ProcessorSeconds() - before;
}

/// Of the lines of so many words.
int heightOf(qsizetype words)
{
    return WrappedTextHeight(QString(u"COMPLAINT "_s).repeated(words), QApplication::font(), width);
}

QImage drawn(const QString &text, Qt::Alignment alignment)
{
    QImage image(width, 200, QImage::Format_RGB32);
    image.fill(Qt::white);
    QPainter painter(&image);
    DrawWrappedText(&painter, image.rect(), text, QApplication::font(), alignment);
    painter.end();
    return image;
}
} // namespace

class tst_WrappedText : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void linesAreThoseOfOneLayout_data();
    void linesAreThoseOfOneLayout();
    void nothingIsBrokenBeyondTheMost();
    void aWordWithoutEndTakesNoTimeInSquares();
    void whatIsBehindThePlaceChangesNothingInIt_data();
    void whatIsBehindThePlaceChangesNothingInIt();
    void aLongTextIsShownWhole();
    void ofATextWithoutEndTheBeginningIsShown();
    void theTitleOfAWindowIsOneLineAndEnds();
};

void tst_WrappedText::linesAreThoseOfOneLayout_data()
{
    QTest::addColumn<QString>("text");
    QTest::newRow("none") << QString();
    QTest::newRow("a line end at the end") << u"a\n"_s;
    QTest::newRow("line ends") << QString(5'000, u'\n');
    QTest::newRow("words") << QString(u"some words of a docket "_s).repeated(1'000);
    QTest::newRow("a long word") << QString(20'000, u'x');
    QTest::newRow("long words") << QString(QString(3'000, u'W') + u' ').repeated(5);
    QTest::newRow("words and line ends") << QString(u"first part of it\nthen\n\n"_s).repeated(800);
}

void tst_WrappedText::linesAreThoseOfOneLayout()
{
    QFETCH(QString, text);
    QCOMPARE(WrappedTextHeight(text, QApplication::font(), width), heightInOne(text));
}

void tst_WrappedText::nothingIsBrokenBeyondTheMost()
{
    const QString text = QString(u"word "_s).repeated(100'000);
    constexpr int most = 500;
    const int height = WrappedTextHeight(text, QApplication::font(), width, most);
    QVERIFY(height >= most);
    QVERIFY(height < most + 100);
}

void tst_WrappedText::aWordWithoutEndTakesNoTimeInSquares()
{
    constexpr int times = 8;
    constexpr double slack = 3.0;
    const double few = secondsFor(QString(6'000, u'W'));
    const double many = secondsFor(QString(times * 6'000, u'W'));
    QVERIFY2(many < few * times * slack, qPrintable(u"%1 for %2"_s.arg(many).arg(few)));
}

void tst_WrappedText::whatIsBehindThePlaceChangesNothingInIt_data()
{
    QTest::addColumn<Qt::Alignment>("alignment");
    QTest::newRow("left") << Qt::Alignment(Qt::AlignLeft | Qt::AlignTop);
    QTest::newRow("right") << Qt::Alignment(Qt::AlignRight | Qt::AlignTop);
    QTest::newRow("centre") << Qt::Alignment(Qt::AlignHCenter | Qt::AlignVCenter);
    QTest::newRow("foot") << Qt::Alignment(Qt::AlignLeft | Qt::AlignBottom);
}

void tst_WrappedText::whatIsBehindThePlaceChangesNothingInIt()
{
    QFETCH(Qt::Alignment, alignment);
    const QString text = QString(u"some words "_s).repeated(100);
    QCOMPARE(drawn(text, alignment), drawn(text.repeated(1'000), alignment));
    QVERIFY(drawn(text, alignment) != drawn(u"other words"_s, alignment));
}

void tst_WrappedText::aLongTextIsShownWhole()
{
    const int one = heightOf(1);
    QVERIFY(heightOf(5'000) > 300 * one);
}

void tst_WrappedText::ofATextWithoutEndTheBeginningIsShown()
{
    QVERIFY(heightOf(6'000) > heightOf(5'900));
    // Two points behind it, which may take a line.
    QVERIFY(heightOf(100'000) - heightOf(6'000) <= heightOf(1));
}

void tst_WrappedText::theTitleOfAWindowIsOneLineAndEnds()
{
    QCOMPARE(TitleText(u"94-1-00001-1 -- King Co Superior Ct"_s),
             u"94-1-00001-1 -- King Co Superior Ct"_s);
    QCOMPARE(TitleText(u"94-1\r\n[Login]\tPW\u0081"_s), u"94-1  [Login] PW "_s);
    const QString longest(500, u'9');
    QCOMPARE(TitleText(longest), longest);
    QCOMPARE(TitleText(longest + u'9'), QString(longest + u" .."_s));
}

HALVANE_TEST(tst_WrappedText)
#include "tst_WrappedText.moc"
