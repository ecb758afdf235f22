#include "controls/LinkLabel.h"
#include "support/HalvaneTest.h"

#include <QAccessible>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QSignalSpy>
#include <QTest>

using namespace Qt::StringLiterals;

class tst_LinkLabel : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup() { window.reset(); }

    void aClickActsAndLeavesTheFocusWhereItIs();
    void aClickBesideItDoesNothing();
    void keys_data();
    void keys();
    void enterGoesNoFurther();
    void tabReachesIt();
    void aDisabledOneDoesNothing();
    void itIsAButtonForThoseWhoHearIt();
    void itKeepsItsSize();

private:
    /// Counts the Enter keys that nothing in it has taken.
    class Window : public QWidget
    {
    public:
        int enters = 0;

    protected:
        void keyPressEvent(QKeyEvent *event) override
        {
            if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)
                ++enters;
            QWidget::keyPressEvent(event);
        }
    };

    std::unique_ptr<Window> window;
    QLineEdit *box = nullptr;
    LinkLabel *link = nullptr;
};

void tst_LinkLabel::init()
{
    window = std::make_unique<Window>();
    auto *row = new QHBoxLayout(window.get());
    box = new QLineEdit;
    link = new LinkLabel;
    link->setText(u"Click Here For Search Tips"_s);
    row->addWidget(box);
    row->addWidget(link);
    window->show();
    QVERIFY(QTest::qWaitForWindowActive(window.get()));
    box->setFocus();
}

void tst_LinkLabel::aClickActsAndLeavesTheFocusWhereItIs()
{
    const QSignalSpy clicked(link, &QAbstractButton::clicked);
    QTest::mouseClick(link, Qt::LeftButton);
    QCOMPARE(clicked.size(), 1);
    QVERIFY(box->hasFocus());
    QTest::mouseClick(link, Qt::RightButton);
    QCOMPARE(clicked.size(), 1);
}

void tst_LinkLabel::aClickBesideItDoesNothing()
{
    const QSignalSpy clicked(link, &QAbstractButton::clicked);
    QTest::mousePress(link, Qt::LeftButton);
    QTest::mouseRelease(link, Qt::LeftButton, {}, {-5, -5});
    QCOMPARE(clicked.size(), 0);
}

void tst_LinkLabel::keys_data()
{
    QTest::addColumn<int>("key");
    QTest::addColumn<int>("clicks");
    QTest::newRow("Space") << int(Qt::Key_Space) << 1;
    QTest::newRow("Return") << int(Qt::Key_Return) << 1;
    QTest::newRow("Enter") << int(Qt::Key_Enter) << 1;
    QTest::newRow("a letter") << int(Qt::Key_A) << 0;
    QTest::newRow("Escape") << int(Qt::Key_Escape) << 0;
}

void tst_LinkLabel::keys()
{
    QFETCH(int, key);
    const QSignalSpy clicked(link, &QAbstractButton::clicked);
    link->setFocus();
    QTest::keyClick(link, static_cast<Qt::Key>(key));
    QTEST(static_cast<int>(clicked.size()), "clicks");
}

void tst_LinkLabel::enterGoesNoFurther()
{
    link->setFocus();
    QTest::keyClick(link, Qt::Key_Return);
    QTest::keyClick(link, Qt::Key_Enter);
    QCOMPARE(window->enters, 0);
}

void tst_LinkLabel::tabReachesIt()
{
    QTest::keyClick(box, Qt::Key_Tab);
    QVERIFY(link->hasFocus());
}

void tst_LinkLabel::aDisabledOneDoesNothing()
{
    const QSignalSpy clicked(link, &QAbstractButton::clicked);
    link->setEnabled(false);
    QTest::mouseClick(link, Qt::LeftButton);
    QCOMPARE(clicked.size(), 0);
}

void tst_LinkLabel::itIsAButtonForThoseWhoHearIt()
{
    QAccessibleInterface *heard = QAccessible::queryAccessibleInterface(link);
    QVERIFY(heard);
    QCOMPARE(heard->role(), QAccessible::Button);
    QCOMPARE(heard->text(QAccessible::Name), u"Click Here For Search Tips"_s);
    link->setAccessibleName(u"Help: STEP 2: Select Search Type"_s);
    QCOMPARE(heard->text(QAccessible::Name), u"Help: STEP 2: Select Search Type"_s);
}

void tst_LinkLabel::itKeepsItsSize()
{
    const QRect place = link->geometry();
    QVERIFY(place.width() >= QFontMetrics(link->font()).horizontalAdvance(link->text()));
    link->setFocus();
    QCoreApplication::processEvents();
    QCOMPARE(link->geometry(), place);
    QTest::mousePress(link, Qt::LeftButton);
    QCoreApplication::processEvents();
    QCOMPARE(link->geometry(), place);
    QTest::mouseRelease(link, Qt::LeftButton);
    box->setFocus();
    QCoreApplication::processEvents();
    QCOMPARE(link->geometry(), place);
}

HALVANE_TEST(tst_LinkLabel)
#include "tst_LinkLabel.moc"
