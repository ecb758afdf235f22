#include "core/GlobalState.h"
#include "reports/PageView.h"
#include "reports/PreviewUser.h"
#include "reports/ReportPaper.h"
#include "reports/SampleReports.h"
#include "support/BoxAnswers.h"
#include "support/HalvaneTest.h"
#include "support/TestFolder.h"
#include "support/Ticks.h"

#include <QDialog>
#include <QPushButton>
#include <QScrollBar>
#include <QWheelEvent>
#include <QWindow>

using namespace Qt::StringLiterals;

// The preview of a report as its user meets it.

namespace {
constexpr int manyRows = 10'000;

/// Laying out a page measures some of its texts.
class CountingPainter : public ReportPainter
{
public:
    double Width(const QString &text, ReportFont font) const override
    {
        ++Asked;
        return ReportPainter::Width(text, font);
    }
    mutable int Asked = 0;
};
} // namespace

class tst_PreviewDoc : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup();

    void itsTexts();
    void firstPageComesAtOnce();
    void pagesComeBehindIt();
    void cancelLeavesWhatIsThere();
    void pagesByButton();
    void pagesByKey();
    void pageByScrolling();
    void zoom();
    void zoomByWheel();
    void arrangements();
    void pagesArePainted();
    void onlyPagesInSightArePainted();
    void pagesGetSmallerWhenThereAreMore();
    void anotherReport();
    void ways_data();
    void ways();
    void standsInNobodysWay();
    void comesAgain();
    void otherPaperIsLaidOutAnew();
    void modalOnlyOverAModalDialog();
    void goesWithItsOwner();
    void goesWithAnOwnerThatIsDeleted();
    void onePreviewForAWindow();

private:
    PageView *view() const { return Child<PageView>(user->Preview(), "Pages"); }
    /// Whether a page has letters in the view's pixels.
    bool hasLetters(const QRect &place) const;

    std::unique_ptr<TestFolder> folder;
    std::unique_ptr<BoxAnswers> boxes;
    std::unique_ptr<PreviewUser> user;
};

void tst_PreviewDoc::init()
{
    folder = std::make_unique<TestFolder>();
    boxes = std::make_unique<BoxAnswers>();
    ReportPaper::Of().Set(letter);
    user = std::make_unique<PreviewUser>();
}

void tst_PreviewDoc::cleanup()
{
    user.reset();
    Ticks(2);
    const QString complaints = boxes->Complaints();
    boxes.reset();
    folder.reset();
    QCOMPARE(complaints, QString());
}

bool tst_PreviewDoc::hasLetters(const QRect &place) const
{
    const QImage shown = view()->viewport()->grab().toImage();
    for (int y = place.top() + place.height() / 20; y < place.bottom() - 2; ++y)
        for (int x = place.left() + 4; x < place.right() - 4; ++x)
            if (shown.rect().contains(x, y) && qGray(shown.pixel(x, y)) < 120)
                return true;
    return false;
}

void tst_PreviewDoc::itsTexts()
{
    PreviewDoc *preview = user->Look(SampleResults(1));
    QCOMPARE(preview->objectName(), u"PreviewDoc"_s);
    QCOMPARE(TextOf(preview, "cmdPrint"), u"&Print.."_s);
    QCOMPARE(TextOf(preview, "cmdSavePdf"), u"Save as PD&F.."_s);
    QCOMPARE(TextOf(preview, "cmdClose"), u"&Close"_s);
    QCOMPARE(user->Page(), u"Page 1 of 1"_s);
}

void tst_PreviewDoc::firstPageComesAtOnce()
{
    user->Preview()->ShowReport(SampleResults(manyRows));
    QVERIFY(user->Preview()->isVisible());
    QCOMPARE(user->Preview()->windowTitle(), u"Print Preview - ADAMS, JOHN in King/Pierce"_s);
    QVERIFY(user->Page().startsWith(u"Page 1 of "));
    QVERIFY(user->Preview()->tmrPrepare->isActive());
    const int there = user->Page().section(u' ', 3).toInt();
    QCOMPARE(user->Note(), u"Preparing page %1 .."_s.arg(there + 1));
    QVERIFY(Child(user->Preview(), "cmdCancel")->isVisible());
    QVERIFY(user->IsOn("cmdPrint"));
    QVERIFY(hasLetters({0, 0, 600, 600}));
}

void tst_PreviewDoc::pagesComeBehindIt()
{
    user->Preview()->ShowReport(SampleResults(manyRows));
    const int before = user->Page().section(u' ', 3).toInt();
    user->FinishPages();
    QVERIFY(user->Page().section(u' ', 3).toInt() > before);
    QCOMPARE(user->Note(), QString());
    QVERIFY(!Child(user->Preview(), "cmdCancel")->isVisible());
    user->Press("cmdLast");
    QVERIFY(hasLetters({100, 0, 700, 500}));
}

void tst_PreviewDoc::cancelLeavesWhatIsThere()
{
    user->Preview()->ShowReport(SampleResults(manyRows));
    Click(user->Preview(), "cmdCancel");
    const QString page = user->Page();
    const QString count = page.section(u' ', 3);
    QCOMPARE(user->Note(), u"Stopped behind page "_s + count
                               + u". The report is not whole, and cannot be printed or saved."_s);
    Ticks(5);
    QCOMPARE(user->Page(), page);
    QVERIFY(!user->IsOn("cmdPrint"));
    QVERIFY(!user->IsOn("cmdSavePdf"));
    QVERIFY(user->Preview()->isVisible());
    user->Press("cmdLast");
    QCOMPARE(user->Page(), u"Page "_s + count + u" of "_s + count);
    // Asked for again, it is prepared again.
    user->Look(SampleResults(10));
    QCOMPARE(user->Note(), QString());
    QVERIFY(user->IsOn("cmdPrint"));
}

void tst_PreviewDoc::pagesByButton()
{
    user->Look(SampleResults(60));
    QCOMPARE(user->Page(), u"Page 1 of 3"_s);
    QVERIFY(!user->IsOn("cmdFirst") && !user->IsOn("cmdPrevious"));
    user->Press("cmdNext");
    QCOMPARE(user->Page(), u"Page 2 of 3"_s);
    user->Press("cmdLast");
    QCOMPARE(user->Page(), u"Page 3 of 3"_s);
    QVERIFY(!user->IsOn("cmdNext") && !user->IsOn("cmdLast"));
    user->Press("cmdPrevious");
    QCOMPARE(user->Page(), u"Page 2 of 3"_s);
    user->Press("cmdFirst");
    QCOMPARE(user->Page(), u"Page 1 of 3"_s);
}

void tst_PreviewDoc::pagesByKey()
{
    PreviewDoc *preview = user->Look(SampleResults(60));
    for (QWidget *focus : {static_cast<QWidget *>(view()), Child(preview, "cmdClose")}) {
        QTest::keyClick(focus, Qt::Key_PageDown);
        QCOMPARE(user->Page(), u"Page 2 of 3"_s);
        QTest::keyClick(focus, Qt::Key_End);
        QCOMPARE(user->Page(), u"Page 3 of 3"_s);
        QTest::keyClick(focus, Qt::Key_PageDown);
        QCOMPARE(user->Page(), u"Page 3 of 3"_s);
        QTest::keyClick(focus, Qt::Key_PageUp);
        QCOMPARE(user->Page(), u"Page 2 of 3"_s);
        QTest::keyClick(focus, Qt::Key_Home);
        QCOMPARE(user->Page(), u"Page 1 of 3"_s);
    }
}

void tst_PreviewDoc::pageByScrolling()
{
    user->Look(SampleResults(60));
    QScrollBar *bar = view()->verticalScrollBar();
    bar->setValue(bar->maximum());
    QCOMPARE(user->Page(), u"Page 3 of 3"_s);
    bar->setValue(bar->maximum() / 2);
    QCOMPARE(user->Page(), u"Page 2 of 3"_s);
}

void tst_PreviewDoc::zoom()
{
    user->Look(SampleResults(60));
    QVERIFY(Child<QToolButton>(user->Preview(), "cmdFitWidth")->isChecked());
    const double wide = view()->Scale();
    QVERIFY(std::abs(wide * letter.Width - view()->viewport()->width()) < 40);
    user->Press("cmdFitPage");
    QVERIFY(Child<QToolButton>(user->Preview(), "cmdFitPage")->isChecked());
    QVERIFY(!Child<QToolButton>(user->Preview(), "cmdFitWidth")->isChecked());
    QVERIFY(std::abs(view()->Scale() * letter.Height - view()->viewport()->height()) < 40);
    const double whole = view()->Scale();
    user->Press("cmdZoomIn");
    QCOMPARE(view()->Scale(), whole * 1.25);
    QVERIFY(!Child<QToolButton>(user->Preview(), "cmdFitPage")->isChecked());
    user->Press("cmdZoomOut");
    user->Press("cmdZoomOut");
    QCOMPARE(view()->Scale(), whole / 1.25);
    user->Press("cmdFitWidth");
    QCOMPARE(view()->Scale(), wide);
    for (int i = 0; i < 60; ++i)
        user->Press("cmdZoomIn");
    QCOMPARE(view()->Scale(), 6.0 / 15);
    QVERIFY(hasLetters(view()->viewport()->rect()));
}

void tst_PreviewDoc::zoomByWheel()
{
    user->Look(SampleResults(60));
    const double before = view()->Scale();
    const auto turn = [this](int eighths, Qt::KeyboardModifiers modifiers) {
        QWheelEvent event({50, 50}, view()->mapToGlobal(QPointF(50, 50)), {}, {0, eighths}, {},
                          modifiers, Qt::NoScrollPhase, false);
        QCoreApplication::sendEvent(view()->viewport(), &event);
    };
    turn(120, Qt::ControlModifier);
    QCOMPARE(view()->Scale(), before * 1.25);
    turn(-120, Qt::ControlModifier);
    QCOMPARE(view()->Scale(), before);
    turn(-120, {});
    QCOMPARE(view()->Scale(), before);
    QVERIFY(view()->verticalScrollBar()->value() > 0);
}

void tst_PreviewDoc::arrangements()
{
    user->Look(SampleResults(60));
    user->Press("cmdNext");
    user->Press("cmdFacing");
    QCOMPARE(view()->Arrangement(), PageArrangement::FacingPairs);
    QVERIFY(Child<QToolButton>(user->Preview(), "cmdFacing")->isChecked());
    QVERIFY(!Child<QToolButton>(user->Preview(), "cmdOnePage")->isChecked());
    QCOMPARE(user->Page(), u"Page 2 of 3"_s);
    user->Press("cmdAllPages");
    QVERIFY(!user->IsOn("cmdZoomIn") && !user->IsOn("cmdFitWidth"));
    QCOMPARE(view()->verticalScrollBar()->maximum(), 0);
    user->Press("cmdOnePage");
    QVERIFY(user->IsOn("cmdZoomIn") && user->IsOn("cmdFitWidth"));
    QCOMPARE(user->Page(), u"Page 2 of 3"_s);
}

void tst_PreviewDoc::pagesArePainted()
{
    user->Look(SampleResults(60));
    user->Press("cmdAllPages");
    const PageGrid places(letter, 3, PageArrangement::AllAtOnce, PageZoom::FitWidth, 0,
                          view()->viewport()->size());
    // The first grab may leave some for later.
    Ticks(3);
    for (int page = 0; page < 3; ++page)
        QVERIFY(hasLetters(places.PlaceOf(page)));
    QVERIFY(!hasLetters(QRect(places.PlaceOf(2).topRight() + QPoint(10, 0), QSize(40, 60))));
}

void tst_PreviewDoc::onlyPagesInSightArePainted()
{
    const CountingPainter painter;
    const auto layout = std::make_shared<PageLayout>(SampleResults(2000), letter, &painter);
    while (layout->AddPage())
        continue;
    QVERIFY(layout->PageCount() > 50);
    PageView pages;
    pages.resize(700, 700);
    pages.Show(layout, &painter);
    const int before = painter.Asked;
    pages.grab();
    const int forOne = painter.Asked - before;
    QVERIFY(forOne > 0);
    pages.GoTo(30);
    pages.grab();
    QVERIFY(painter.Asked - before <= 4 * forOne);
    // What was painted is kept.
    const int painted = painter.Asked;
    pages.grab();
    QCOMPARE(painter.Asked, painted);
}

/// What was painted while few pages had been found does not stand over those that came later.
void tst_PreviewDoc::pagesGetSmallerWhenThereAreMore()
{
    const ReportPainter painter;
    const auto layout = std::make_shared<PageLayout>(SampleResults(400), letter, &painter);
    layout->AddPage();
    const auto show = [&](PageView &view) {
        view.resize(700, 700);
        view.Arrange(PageArrangement::AllAtOnce);
        view.show();
        view.Show(layout, &painter);
    };
    const auto painted = [&](PageView &view) {
        // Each time one page at least.
        for (int page = 0; page < layout->PageCount(); ++page)
            view.viewport()->grab();
        return view.viewport()->grab().toImage();
    };
    PageView before;
    show(before);
    painted(before);
    while (layout->AddPage())
        continue;
    QVERIFY(layout->PageCount() > 4);
    before.PagesAdded();
    PageView after;
    show(after);
    QCOMPARE(painted(before), painted(after));
}

void tst_PreviewDoc::anotherReport()
{
    user->Look(SampleResults(60));
    user->Press("cmdLast");
    user->Look(SampleResults(70));
    QCOMPARE(user->Page(), u"Page 1 of 4"_s);
    QCOMPARE(view()->verticalScrollBar()->value(), 0);
    // Where nothing has to be scrolled, too.
    user->Press("cmdAllPages");
    user->Press("cmdLast");
    user->Look(SampleResults(71));
    QCOMPARE(user->Page(), u"Page 1 of 4"_s);
}

void tst_PreviewDoc::ways_data()
{
    QTest::addColumn<int>("way");
    QTest::newRow("button") << 0;
    QTest::newRow("Esc") << 1;
    QTest::newRow("title bar") << 2;
    QTest::newRow("Alt+C") << 3;
}

void tst_PreviewDoc::ways()
{
    QFETCH(int, way);
    PreviewDoc *preview = user->Preview();
    preview->ShowReport(SampleResults(manyRows));
    if (way == 0)
        Click(preview, "cmdClose");
    else if (way == 1)
        QTest::keyClick(view(), Qt::Key_Escape);
    else if (way == 2)
        preview->close();
    else
        QTest::keyClick(view(), Qt::Key_C, Qt::AltModifier);
    QVERIFY(!preview->isVisible());
    QVERIFY(!preview->tmrPrepare->isActive());
    QVERIFY(user->owner->isVisible());
}

/// The desktop asks each window to close before its user is logged out, and stays when one refuses.
void tst_PreviewDoc::standsInNobodysWay()
{
    PreviewDoc *preview = user->Look(SampleResults(1));
    QVERIFY(preview->close());
    QVERIFY(!preview->IsUnloaded());
    QCOMPARE(user->Look(SampleResults(1)), preview);
    QVERIFY(preview->isVisible());
}

void tst_PreviewDoc::comesAgain()
{
    PreviewDoc *preview = user->Look(SampleResults(60));
    preview->close();
    QCOMPARE(user->Look(SampleResults(60)), preview);
    QVERIFY(preview->isVisible());
    QCOMPARE(user->Page(), u"Page 1 of 3"_s);
}

void tst_PreviewDoc::otherPaperIsLaidOutAnew()
{
    user->Preview()->ShowReport(SampleResults(60));
    Click(user->Preview(), "cmdClose");
    ReportPaper::Of().Set({15840, 12240});
    QVERIFY(!user->Preview()->tmrPrepare->isActive());
    user->Look(SampleResults(2000));
    const QString lying = user->Page();
    ReportPaper::Of().Set(letter);
    user->FinishPages();
    QVERIFY(user->Page().startsWith(u"Page 1 of "));
    QVERIFY(lying != user->Page());
}

void tst_PreviewDoc::modalOnlyOverAModalDialog()
{
    user->Look(SampleResults(1));
    QVERIFY(!user->Preview()->isModal());
    QDialog dialog(user->owner);
    dialog.setObjectName(u"Modal"_s);
    boxes->Whenever(u"Modal"_s, [](QDialog *) {});
    dialog.setModal(true);
    auto *button = new QPushButton(&dialog);
    button->setObjectName(u"cmdOfTheDialog"_s);
    int clicks = 0;
    connect(button, &QPushButton::clicked, &dialog, [&clicks] { ++clicks; });
    dialog.show();
    const QPointer<PreviewDoc> preview(PreviewDoc::Of(&dialog));
    preview->ShowReport(SampleResults(1));
    QCOMPARE(preview->windowModality(), Qt::WindowModal);
    // It can be reached, and what it stands over can not.
    QVERIFY(QTest::qWaitForWindowExposed(preview));
    ClickOnScreen(&dialog, "cmdOfTheDialog");
    QCOMPARE(clicks, 0);
    ClickOnScreen(preview, "cmdClose");
    QVERIFY(!preview->isVisible());
    ClickOnScreen(&dialog, "cmdOfTheDialog");
    QCOMPARE(clicks, 1);
    preview->ShowReport(SampleResults(1));
    dialog.reject();
    Ticks(2);
    QVERIFY(!preview);
}

void tst_PreviewDoc::goesWithItsOwner()
{
    const QPointer<PreviewDoc> preview(user->Preview());
    preview->ShowReport(SampleResults(manyRows));
    user->owner->Unload();
    QVERIFY(!preview->isVisible());
    Ticks(2);
    QVERIFY(!preview);
}

void tst_PreviewDoc::goesWithAnOwnerThatIsDeleted()
{
    auto window = std::make_unique<QWidget>();
    const QPointer<PreviewDoc> preview(PreviewDoc::Of(window.get()));
    preview->ShowReport(SampleResults(manyRows));
    window.reset();
    Ticks(2);
    QVERIFY(!preview);
}

void tst_PreviewDoc::onePreviewForAWindow()
{
    QWidget inside(user->owner);
    QCOMPARE(PreviewDoc::Of(&inside), user->Preview());
    QCOMPARE(user->owner->property("preview").value<QObject *>(), user->Preview());
    user->Preview()->Unload();
    Ticks(2);
    QVERIFY(!user->owner->property("preview").isValid());
    user->Look(SampleResults(1));
    QVERIFY(user->Preview()->isVisible());
}

HALVANE_TEST(tst_PreviewDoc)
#include "tst_PreviewDoc.moc"
