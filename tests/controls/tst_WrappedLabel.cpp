#include "controls/WrappedLabel.h"
#include "support/HalvaneTest.h"

#include <QApplication>
#include <QHelpEvent>
#include <QTest>
#include <QToolTip>

#include <algorithm>

using namespace Qt::StringLiterals;

/// A label whose text comes from outside.
class tst_WrappedLabel : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void heights_data();
    void heights();
    void neverWiderThanItMust_data();
    void neverWiderThanItMust();
    void whatIsCutOffIsInTheTip();
    void aTipWithoutEndFitsAScreen();
    void aTextThatIsShownHasNoTip();
    void aTextOfAMegabyteIsShownAtOnce();

private:
    static void ask(WrappedLabel &label);
};

void tst_WrappedLabel::ask(WrappedLabel &label)
{
    QToolTip::hideText();
    const QPoint where = label.rect().center();
    QHelpEvent help(QEvent::ToolTip, where, label.mapToGlobal(where));
    QCoreApplication::sendEvent(&label, &help);
}

void tst_WrappedLabel::heights_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("lines");
    QTest::newRow("nothing") << QString() << 1;
    QTest::newRow("a word") << u"SMITH"_s << 1;
    QTest::newRow("two lines") << u"SMITH\nJONES"_s << 2;
    QTest::newRow("four lines") << u"A\r\nB\rC\nD"_s << 4;
    QTest::newRow("five lines") << u"A\nB\nC\nD\nE"_s << 4;
    QTest::newRow("a word that has no room") << u"x"_s.repeated(1000) << 4;
}

void tst_WrappedLabel::heights()
{
    QFETCH(QString, text);
    QFETCH(int, lines);
    WrappedLabel label;
    label.setText(text);
    QCOMPARE(label.hasHeightForWidth(), !text.isEmpty());
    QCOMPARE(qRound(double(label.heightForWidth(200)) / label.fontMetrics().height()), lines);
    QCOMPARE(label.minimumSizeHint().height(), label.fontMetrics().height());
}

void tst_WrappedLabel::neverWiderThanItMust_data()
{
    QTest::addColumn<QString>("text");
    QTest::newRow("a word without an end") << u"x"_s.repeated(5000);
    QTest::newRow("very many words") << u"SMITH AND SONS "_s.repeated(500);
    QTest::newRow("markup") << u"<table width=9000>"_s.repeated(100);
}

void tst_WrappedLabel::neverWiderThanItMust()
{
    QFETCH(QString, text);
    WrappedLabel label;
    label.setText(text);
    QCOMPARE(label.textFormat(), Qt::PlainText);
    QVERIFY(label.minimumSizeHint().width() <= 10 * label.fontMetrics().averageCharWidth());
    QVERIFY(label.sizeHint().width() <= 70 * label.fontMetrics().averageCharWidth() + 1);
    QVERIFY(label.sizeHint().height() <= 4 * label.fontMetrics().height());
}

void tst_WrappedLabel::whatIsCutOffIsInTheTip()
{
    WrappedLabel label;
    label.setText(u"<b>SMITH</b> & SONS "_s.repeated(50));
    label.resize(100, label.heightForWidth(100));
    label.show();
    QVERIFY(!label.ShowsAll());
    ask(label);
    // As it was written, and not as markup.
    QVERIFY(QToolTip::text().contains(u"&lt;b&gt;SMITH&lt;/b&gt; &amp; SONS"));
    QToolTip::hideText();
}

void tst_WrappedLabel::aTipWithoutEndFitsAScreen()
{
    WrappedLabel label;
    label.setText(QString(50'000, u'W'));
    label.resize(400, 60);
    label.show();
    ask(label);
    const QList<QWidget *> windows = QApplication::topLevelWidgets();
    const auto tip = std::find_if(windows.begin(), windows.end(), [](const QWidget *widget) {
        return widget->inherits("QTipLabel") && widget->isVisible();
    });
    QVERIFY(tip != windows.end());
    QVERIFY2((*tip)->width() <= 1000 && (*tip)->height() <= 1000,
             qPrintable(u"%1 x %2"_s.arg((*tip)->width()).arg((*tip)->height())));
    QToolTip::hideText();
}

void tst_WrappedLabel::aTextThatIsShownHasNoTip()
{
    WrappedLabel label;
    label.setText(u"SMITH"_s);
    label.resize(label.sizeHint());
    label.show();
    QVERIFY(label.ShowsAll());
    ask(label);
    QVERIFY(!QToolTip::isVisible());
}

/// Each layout of it would take a second.
void tst_WrappedLabel::aTextOfAMegabyteIsShownAtOnce()
{
    WrappedLabel label;
    label.setText(u"SMITH AND SONS "_s.repeated(70'000));
    label.resize(400, 60);
    label.show();
    QVERIFY(!label.ShowsAll());
    ask(label);
    QVERIFY(QToolTip::text().size() < 10'000);
    QToolTip::hideText();
    QVERIFY(!label.grab().isNull());
}

HALVANE_TEST(tst_WrappedLabel)
#include "tst_WrappedLabel.moc"
