#include "controls/MsgBox.h"
#include "support/BoxAnswers.h"
#include "support/HalvaneTest.h"

#include <QAbstractButton>
#include <QApplication>
#include <QLabel>
#include <QMessageBox>
#include <QPointer>
#include <QTest>

#include <memory>

using namespace Qt::StringLiterals;

Q_DECLARE_METATYPE(MsgButtons)
Q_DECLARE_METATYPE(MsgAnswer)
Q_DECLARE_METATYPE(MsgIcon)

class tst_MsgBox : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void textIsPlainWhateverItHolds_data();
    void textIsPlainWhateverItHolds();
    void titles_data();
    void titles();
    void icons_data();
    void icons();
    void answers_data();
    void answers();
    void anotherLookThanAnnouncedIsAComplaint_data();
    void anotherLookThanAnnouncedIsAComplaint();
    void waysOfEscape_data();
    void waysOfEscape();
    void parentThatEndsMeanwhileCountsAsEscape_data();
    void parentThatEndsMeanwhileCountsAsEscape();
    void eventsRunMeanwhile();
    void boxIsGoneAfterwards();
    void boxOverABox();
    void answersWithCaptionsOfTheirOwn_data();
    void answersWithCaptionsOfTheirOwn();
    void enterGivesTheFirstAnswer();
    void escapingFromAnswersOfTheirOwn();

private:
    /// Does this with the box as soon as it is up.
    static void whenUp(QObject *context, const std::function<void(QMessageBox *)> &act)
    {
        QTimer::singleShot(0, context, [act] {
            act(qobject_cast<QMessageBox *>(QApplication::activeModalWidget()));
        });
    }
    static void addButtonSets()
    {
        QTest::addColumn<MsgButtons>("buttons");
        QTest::addColumn<MsgAnswer>("escape");
        QTest::newRow("OK") << MsgButtons::Ok << MsgAnswer::Ok;
        QTest::newRow("OK and Cancel") << MsgButtons::OkCancel << MsgAnswer::Cancel;
        QTest::newRow("Yes and No") << MsgButtons::YesNo << MsgAnswer::No;
    }
};

void tst_MsgBox::textIsPlainWhateverItHolds_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("shown");
    QTest::newRow("plain") << u"Are you sure?"_s << u"Are you sure?"_s;
    QTest::newRow("markup") << u"<b>bold</b> &amp; <img src='file:///etc/passwd'>"_s
                            << u"<b>bold</b> &amp; <img src='file:///etc/passwd'>"_s;
    QTest::newRow("line ends") << u"one\r\n\r\ntwo"_s << u"one\n\ntwo"_s;
    QTest::newRow("ampersand") << u"Smith & Sons"_s << u"Smith & Sons"_s;
    QTest::newRow("empty") << QString() << QString();
}

void tst_MsgBox::textIsPlainWhateverItHolds()
{
    QFETCH(QString, text);
    QFETCH(QString, shown);
    QString seen;
    bool plain = false;
    whenUp(this, [&](QMessageBox *box) {
        seen = box->text();
        plain = box->textFormat() == Qt::PlainText
                && box->findChild<QLabel *>(u"qt_msgbox_label"_s)->textFormat() == Qt::PlainText;
        box->reject();
    });
    MsgBox(nullptr, text);
    QCOMPARE(seen, shown);
    QVERIFY(plain);
}

void tst_MsgBox::titles_data()
{
    QTest::addColumn<QString>("title");
    QTest::addColumn<QString>("shown");
    QTest::newRow("given") << u"Exit Halvane .."_s << u"Exit Halvane .."_s;
    QTest::newRow("none") << QString() << u"Halvane"_s;
}

void tst_MsgBox::titles()
{
    QFETCH(QString, title);
    QFETCH(QString, shown);
    QString seen;
    whenUp(this, [&](QMessageBox *box) {
        seen = box->windowTitle();
        box->reject();
    });
    MsgBox(nullptr, u"text"_s, title);
    QCOMPARE(seen, shown);
}

void tst_MsgBox::icons_data()
{
    QTest::addColumn<MsgIcon>("icon");
    QTest::addColumn<int>("shown");
    QTest::newRow("none") << MsgIcon::None << int(QMessageBox::NoIcon);
    QTest::newRow("information") << MsgIcon::Information << int(QMessageBox::Information);
    QTest::newRow("exclamation") << MsgIcon::Exclamation << int(QMessageBox::Warning);
    QTest::newRow("question") << MsgIcon::Question << int(QMessageBox::Question);
    QTest::newRow("critical") << MsgIcon::Critical << int(QMessageBox::Critical);
}

void tst_MsgBox::icons()
{
    QFETCH(MsgIcon, icon);
    QFETCH(int, shown);
    int seen = -1;
    whenUp(this, [&](QMessageBox *box) {
        seen = box->icon();
        box->reject();
    });
    MsgBox(nullptr, u"text"_s, u"title"_s, MsgButtons::Ok, icon);
    QCOMPARE(seen, shown);
}

void tst_MsgBox::answers_data()
{
    QTest::addColumn<MsgButtons>("buttons");
    QTest::addColumn<MsgAnswer>("answer");
    QTest::addColumn<int>("count");
    QTest::newRow("OK") << MsgButtons::Ok << MsgAnswer::Ok << 1;
    QTest::newRow("OK of two") << MsgButtons::OkCancel << MsgAnswer::Ok << 2;
    QTest::newRow("Cancel") << MsgButtons::OkCancel << MsgAnswer::Cancel << 2;
    QTest::newRow("Yes") << MsgButtons::YesNo << MsgAnswer::Yes << 2;
    QTest::newRow("No") << MsgButtons::YesNo << MsgAnswer::No << 2;
}

void tst_MsgBox::answers()
{
    QFETCH(MsgButtons, buttons);
    QFETCH(MsgAnswer, answer);
    QFETCH(int, count);
    BoxAnswers boxes;
    qsizetype seen = 0;
    boxes.Meanwhile([&] {
        seen = qobject_cast<QMessageBox *>(QApplication::activeModalWidget())->buttons().size();
    });
    boxes.Expect(u"text"_s, u"title"_s, MsgIcon::Information, answer, buttons);
    QCOMPARE(MsgBox(nullptr, u"text"_s, u"title"_s, buttons), answer);
    QCOMPARE(boxes.Complaints(), QString());
    QCOMPARE(seen, qsizetype(count));
}

void tst_MsgBox::anotherLookThanAnnouncedIsAComplaint_data()
{
    QTest::addColumn<MsgButtons>("buttons");
    QTest::addColumn<MsgIcon>("icon");
    QTest::addColumn<MsgAnswer>("announced");
    QTest::addColumn<QString>("complaint");
    QTest::newRow("as announced: OK")
        << MsgButtons::Ok << MsgIcon::Information << MsgAnswer::Ok << QString();
    QTest::newRow("as announced: Cancel")
        << MsgButtons::OkCancel << MsgIcon::Information << MsgAnswer::Cancel << QString();
    QTest::newRow("as announced: No")
        << MsgButtons::YesNo << MsgIcon::Question << MsgAnswer::No << QString();
    QTest::newRow("another icon") << MsgButtons::Ok << MsgIcon::Exclamation << MsgAnswer::Ok
                                  << u"icon"_s;
    QTest::newRow("another icon beside Yes and No")
        << MsgButtons::YesNo << MsgIcon::Exclamation << MsgAnswer::Yes << u"icon"_s;
    QTest::newRow("a button too many")
        << MsgButtons::OkCancel << MsgIcon::Information << MsgAnswer::Ok << u"buttons"_s;
    QTest::newRow("a button too few")
        << MsgButtons::Ok << MsgIcon::Information << MsgAnswer::Cancel << u"buttons"_s;
}

void tst_MsgBox::anotherLookThanAnnouncedIsAComplaint()
{
    QFETCH(MsgButtons, buttons);
    QFETCH(MsgIcon, icon);
    QFETCH(MsgAnswer, announced);
    QFETCH(QString, complaint);
    BoxAnswers boxes;
    boxes.Expect(u"text"_s, u"title"_s, announced);
    MsgBox(nullptr, u"text"_s, u"title"_s, buttons, icon);
    QCOMPARE(boxes.Complaints().isEmpty(), complaint.isEmpty());
    QVERIFY(boxes.Complaints().startsWith(complaint));
}

void tst_MsgBox::waysOfEscape_data()
{
    addButtonSets();
}

void tst_MsgBox::waysOfEscape()
{
    QFETCH(MsgButtons, buttons);
    QFETCH(MsgAnswer, escape);
    whenUp(this, [](QMessageBox *box) { QTest::keyClick(box, Qt::Key_Escape); });
    QCOMPARE(MsgBox(nullptr, u"text"_s, {}, buttons), escape);
    whenUp(this, [](QMessageBox *box) { box->close(); });
    QCOMPARE(MsgBox(nullptr, u"text"_s, {}, buttons), escape);
}

void tst_MsgBox::parentThatEndsMeanwhileCountsAsEscape_data()
{
    addButtonSets();
}

void tst_MsgBox::parentThatEndsMeanwhileCountsAsEscape()
{
    QFETCH(MsgButtons, buttons);
    QFETCH(MsgAnswer, escape);
    auto parent = std::make_unique<QWidget>();
    parent->show();
    whenUp(this, [&](QMessageBox *box) {
        QCOMPARE(box->parentWidget(), parent.get());
        parent.reset();
    });
    QCOMPARE(MsgBox(parent.get(), u"text"_s, {}, buttons), escape);
}

void tst_MsgBox::eventsRunMeanwhile()
{
    QTimer timer;
    int ticks = 0;
    connect(&timer, &QTimer::timeout, this, [&] {
        if (++ticks == 5)
            QApplication::activeModalWidget()->close();
    });
    timer.start(1);
    MsgBox(nullptr, u"text"_s);
    QCOMPARE(ticks, 5);
}

void tst_MsgBox::boxIsGoneAfterwards()
{
    QPointer<QMessageBox> seen;
    whenUp(this, [&](QMessageBox *box) {
        seen = box;
        QCOMPARE(box->objectName(), u"MsgBox"_s);
        box->reject();
    });
    MsgBox(nullptr, u"text"_s);
    QVERIFY(!seen);
    QVERIFY(!QApplication::activeModalWidget());
}

void tst_MsgBox::boxOverABox()
{
    MsgAnswer inner = MsgAnswer::Ok;
    whenUp(this, [&](QMessageBox *below) {
        whenUp(this, [](QMessageBox *above) { above->button(QMessageBox::Yes)->click(); });
        inner = MsgBox(nullptr, u"inner"_s, {}, MsgButtons::YesNo);
        below->button(QMessageBox::No)->click();
    });
    QCOMPARE(MsgBox(nullptr, u"outer"_s, {}, MsgButtons::YesNo), MsgAnswer::No);
    QCOMPARE(inner, MsgAnswer::Yes);
}

void tst_MsgBox::answersWithCaptionsOfTheirOwn_data()
{
    QTest::addColumn<QString>("caption");
    QTest::addColumn<int>("answer");
    QTest::newRow("first") << u"Go To It"_s << 0;
    QTest::newRow("second") << u"Open Again"_s << 1;
    QTest::newRow("cancel") << u"Cancel"_s << -1;
}

void tst_MsgBox::answersWithCaptionsOfTheirOwn()
{
    QFETCH(const QString, caption);
    BoxAnswers boxes;
    boxes.ExpectChoice(u"<b>What?</b>"_s, u"Title"_s, caption);
    QTEST(MsgBoxChoice(nullptr, u"<b>What?</b>"_s, u"Title"_s, MsgIcon::Question,
                       {u"&Go To It"_s, u"&Open Again"_s}),
          "answer");
    QCOMPARE(boxes.Complaints(), QString());
}

void tst_MsgBox::enterGivesTheFirstAnswer()
{
    whenUp(this, [](QMessageBox *box) { QTest::keyClick(box, Qt::Key_Return); });
    QCOMPARE(MsgBoxChoice(nullptr, u"What?"_s, u"Title"_s, MsgIcon::Question, {u"A"_s, u"B"_s}), 0);
}

void tst_MsgBox::escapingFromAnswersOfTheirOwn()
{
    whenUp(this, [](QMessageBox *box) { QTest::keyClick(box, Qt::Key_Escape); });
    QCOMPARE(MsgBoxChoice(nullptr, u"What?"_s, u"Title"_s, MsgIcon::Question, {u"A"_s, u"B"_s}),
             -1);
    auto parent = std::make_unique<QWidget>();
    whenUp(this, [&parent](QMessageBox *) { parent.reset(); });
    QCOMPARE(MsgBoxChoice(parent.get(), u"What?"_s, u"Title"_s, MsgIcon::Question, {u"A"_s}), -1);
}

HALVANE_TEST(tst_MsgBox)
#include "tst_MsgBox.moc"
