#include "SessionFixture.h"

#include "core/Version.h"
#include "prefs/HelpTexts.h"
#include "prefs/frmAbout.h"
#include "prefs/frmCaseDetailsHelp.h"
#include "prefs/frmDocument.h"
#include "prefs/frmHelp.h"
#include "prefs/frmInfo.h"
#include "prefs/frmNameSearchResultsHelp.h"
#include "prefs/frmSearchHelp.h"
#include "session/frmMain.h"
#include "support/HalvaneTest.h"

#include <QGroupBox>
#include <QLabel>
#include <QListWidget>
#include <QMdiSubWindow>
#include <QPointer>
#include <QScreen>
#include <QScrollArea>
#include <QScrollBar>
#include <QSplitter>
#include <QTextEdit>

#include <algorithm>
#include <functional>

using namespace Qt::StringLiterals;

namespace {
using Maker = std::function<QDialog *()>;

/// The window of this name that is open, nullptr without one.
template<typename T>
T *OpenWindow()
{
    const QWidgetList windows = QApplication::allWidgets();
    for (QWidget *window : windows) {
        if (auto *found = qobject_cast<T *>(window); found && found->isVisible())
            return found;
    }
    return nullptr;
}

template<typename T>
int CountOf()
{
    const QWidgetList windows = QApplication::allWidgets();
    return static_cast<int>(std::count_if(windows.begin(), windows.end(), [](QWidget *window) {
        return qobject_cast<T *>(window) != nullptr;
    }));
}

template<typename T>
void CloseAll()
{
    while (T *window = OpenWindow<T>()) {
        window->close();
        Settle();
    }
}
} // namespace

Q_DECLARE_METATYPE(Maker)

class tst_HelpWindows : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init() { session = std::make_unique<SessionFixture>(); }
    void cleanup();

    void window_data();
    void window();
    void closes_data();
    void closes();
    void fitsOnTheScreen_data();
    void fitsOnTheScreen();
    void helpIsShownOnce_data();
    void helpIsShownOnce();
    void textIsPlainAndCanBeSelected_data();
    void textIsPlainAndCanBeSelected();
    void document();
    void documentFillsItsWindow();
    void documentWithoutAMainWindow();
    void infoFrames();
    void infoTakesACaption();
    void infoIsAsTallAsItsTexts();
    void showInfo_data();
    void showInfo();
    void topics_data();
    void topics();
    void everyTopicHasItsText();
    void topicsByKeyboard();
    void topicThatIsNoneIsTheFirst_data();
    void topicThatIsNoneIsTheFirst();
    void anotherTopicBringsTheSameWindowToTheFront();
    void aNewTopicBeginsAtItsBeginning();
    void helpBelongsToTheMainWindow();
    void theWindowsSayIt();
    void texts_data();
    void texts();

private:
    std::unique_ptr<SessionFixture> session;
};

void tst_HelpWindows::cleanup()
{
    CloseAll<HelpWindow>();
    const QString complaints = session->boxes.Complaints();
    session.reset();
    QCOMPARE(complaints, QString());
}

void tst_HelpWindows::window_data()
{
    QTest::addColumn<Maker>("make");
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("caption");
    QTest::addColumn<QString>("button"); ///< that closes; none: the title bar does
    QTest::newRow("about") << Maker([] { return new frmAbout; }) << u"frmAbout"_s << u"Halvane"_s
                           << u"cmdOK"_s;
    QTest::newRow("info") << Maker([] { return new frmInfo; }) << u"frmInfo"_s
                          << u"User Notification"_s << u"Command1"_s;
    QTest::newRow("search help") << Maker([] { return new frmSearchHelp; }) << u"frmSearchHelp"_s
                                 << u"Halvane - Search Help"_s << u"Command1"_s;
    QTest::newRow("case details help")
        << Maker([] { return new frmCaseDetailsHelp; }) << u"frmCaseDetailsHelp"_s
        << u"Halvane - Case Details Help"_s << u"cmdClose"_s;
    QTest::newRow("results help") << Maker([] { return new frmNameSearchResultsHelp; })
                                  << u"frmNameSearchResultsHelp"_s << u"Halvane - Help"_s
                                  << u"Command1"_s;
    QTest::newRow("help file") << Maker([] { return new frmHelp; }) << u"frmHelp"_s
                               << u"Halvane - Help"_s << QString();
}

void tst_HelpWindows::window()
{
    QFETCH(Maker, make);
    QFETCH(QString, name);
    QFETCH(QString, caption);
    QFETCH(QString, button);
    const std::unique_ptr<QDialog> window(make());
    window->setAttribute(Qt::WA_DeleteOnClose, false);
    QCOMPARE(window->objectName(), name);
    QCOMPARE(window->windowTitle(), caption);
    window->show();
    window->activateWindow();
    QStringList buttons;
    const QList<QPushButton *> all = window->findChildren<QPushButton *>();
    for (const QPushButton *one : all) {
        if (one->isVisible())
            buttons.append(one->objectName());
    }
    QStringList expected = button.isEmpty() ? QStringList() : QStringList{button};
    if (name == u"frmAbout")
        expected.prepend(u"cmdCopy"_s);
    QCOMPARE(buttons, expected);
    if (!button.isEmpty()) {
        auto *close = window->findChild<QPushButton *>(button);
        QTRY_VERIFY(close->hasFocus());
        QVERIFY(close->isDefault());
    } else {
        QCOMPARE(Child<QLabel>(window.get(), "lblHint")->text(),
                 u"Use the 'X' in the Title Bar to Close this window .."_s);
    }
}

void tst_HelpWindows::closes_data()
{
    QTest::addColumn<Maker>("make");
    QTest::addColumn<QString>("button");
    QTest::addColumn<QString>("way");
    const std::array<std::tuple<const char *, Maker, QString>, 6> windows{{
        {"about", [] { return new frmAbout; }, u"cmdOK"_s},
        {"info", [] { return new frmInfo; }, u"Command1"_s},
        {"search help", [] { return new frmSearchHelp; }, u"Command1"_s},
        {"case details help", [] { return new frmCaseDetailsHelp; }, u"cmdClose"_s},
        {"results help", [] { return new frmNameSearchResultsHelp; }, u"Command1"_s},
        {"help file", [] { return new frmHelp; }, QString()},
    }};
    for (const auto &[name, make, button] : windows) {
        for (const QString &way : {u"button"_s, u"Esc"_s, u"title bar"_s}) {
            if (way != u"button" || !button.isEmpty())
                QTest::addRow("%s: %s", name, qPrintable(way)) << make << button << way;
        }
    }
}

void tst_HelpWindows::closes()
{
    QFETCH(Maker, make);
    QFETCH(QString, button);
    QFETCH(QString, way);
    const std::unique_ptr<QDialog> window(make());
    window->setAttribute(Qt::WA_DeleteOnClose, false);
    window->show();
    if (way == u"button")
        Click(window.get(), button.toLatin1().constData());
    else if (way == u"Esc")
        QTest::keyClick(window->focusWidget() ? window->focusWidget() : window.get(),
                        Qt::Key_Escape);
    else
        window->close();
    QVERIFY(!window->isVisible());
}

void tst_HelpWindows::fitsOnTheScreen_data()
{
    window_data();
}

void tst_HelpWindows::fitsOnTheScreen()
{
    QFETCH(Maker, make);
    const std::unique_ptr<QDialog> window(make());
    window->setAttribute(Qt::WA_DeleteOnClose, false);
    window->show();
    const QRect screen = window->screen()->availableGeometry();
    QVERIFY2(screen.contains(window->geometry()),
             qPrintable(u"%1 x %2"_s.arg(window->width()).arg(window->height())));
    const QList<QWidget *> children = window->findChildren<QWidget *>();
    for (const QWidget *child : children) {
        const QWidget *box = child->parentWidget();
        // What is inside a scrolling box may be larger than it.
        if (!child->isVisible() || box != window.get())
            continue;
        QVERIFY2(window->rect().contains(child->geometry()), qPrintable(child->objectName()));
    }
}

void tst_HelpWindows::helpIsShownOnce_data()
{
    QTest::addColumn<std::function<void()>>("show");
    QTest::newRow("search help") << std::function<void()>([] { frmSearchHelp::ShowTopic(0); });
    QTest::newRow("case details help")
        << std::function<void()>([] { frmCaseDetailsHelp::ShowForm(); });
    QTest::newRow("results help") << std::function<void()>(
        [] { frmNameSearchResultsHelp::ShowForm(); });
    QTest::newRow("help file") << std::function<void()>([] { frmHelp::ShowTopic(u"Step 2"_s); });
}

void tst_HelpWindows::helpIsShownOnce()
{
    QFETCH(std::function<void()>, show);
    show();
    QCOMPARE(CountOf<HelpWindow>(), 1);
    const QPointer<HelpWindow> window(OpenWindow<HelpWindow>());
    QVERIFY(window);
    QVERIFY(!window->isModal());
    window->showMinimized();
    show();
    QCOMPARE(CountOf<HelpWindow>(), 1);
    QCOMPARE(OpenWindow<HelpWindow>(), window.data());
    QVERIFY(!window->isMinimized());
    // Closed, it is gone, and is made anew.
    QTest::keyClick(window, Qt::Key_Escape);
    QTRY_VERIFY(!window);
    show();
    QCOMPARE(CountOf<HelpWindow>(), 1);
    QVERIFY(OpenWindow<HelpWindow>());
}

void tst_HelpWindows::textIsPlainAndCanBeSelected_data()
{
    window_data();
}

void tst_HelpWindows::textIsPlainAndCanBeSelected()
{
    QFETCH(Maker, make);
    const std::unique_ptr<QDialog> window(make());
    window->setAttribute(Qt::WA_DeleteOnClose, false);
    const QList<QLabel *> labels = window->findChildren<QLabel *>();
    for (const QLabel *label : labels)
        QCOMPARE(label->textFormat(), Qt::PlainText);
    const QList<QTextEdit *> boxes = window->findChildren<QTextEdit *>();
    for (const QTextEdit *box : boxes) {
        QVERIFY(box->isReadOnly());
        QVERIFY(box->textInteractionFlags().testFlag(Qt::TextSelectableByMouse));
        QVERIFY(box->textInteractionFlags().testFlag(Qt::TextSelectableByKeyboard));
        QVERIFY(box->lineWrapMode() == QTextEdit::WidgetWidth);
    }
    if (qobject_cast<HelpWindow *>(window.get()))
        QCOMPARE(boxes.size(), 1);
}

void tst_HelpWindows::document()
{
    frmMain *main = session->ShowMain();
    frmDocument::ShowNew();
    auto *first = qobject_cast<frmDocument *>(main->ActiveChild());
    QVERIFY(first);
    QCOMPARE(first->objectName(), u"frmDocument"_s);
    const int number = first->windowTitle().section(u' ', 1).toInt();
    QVERIFY(number >= 1);
    QCOMPARE(first->windowTitle(), u"Document "_s + QString::number(number));
    QVERIFY(Child<QTextEdit>(first, "rtfText")->acceptRichText());
    frmDocument::ShowNew();
    auto *second = qobject_cast<frmDocument *>(main->ActiveChild());
    QVERIFY(second && second != first);
    QCOMPARE(second->windowTitle(), u"Document "_s + QString::number(number + 1));
    // The title bar closes it.
    const QPointer<frmDocument> closed(second);
    second->parentWidget()->close();
    QTRY_VERIFY(!closed);
}

void tst_HelpWindows::documentFillsItsWindow()
{
    frmDocument window(7);
    QCOMPARE(window.windowTitle(), u"Document 7"_s);
    window.show();
    const auto *text = Child<QTextEdit>(&window, "rtfText");
    QVERIFY(!text->isReadOnly());
    for (const QSize size : {QSize(300, 200), QSize(640, 480)}) {
        window.resize(size);
        Settle();
        QCOMPARE(text->geometry(), window.rect());
    }
}

void tst_HelpWindows::documentWithoutAMainWindow()
{
    frmDocument::ShowNew();
    QCOMPARE(CountOf<frmDocument>(), 0);
}

void tst_HelpWindows::infoFrames()
{
    const frmInfo window;
    QCOMPARE(Child<QLabel>(&window, "Label2")->text(),
             u"An Error Occurred During Validation of Form Field Entries!"_s);
    const std::array<std::tuple<const char *, const char *, QString, QString>, 3> frames{{
        {"Frame1", "Label1_0", u"Error Description:"_s, QString()},
        {"Frame2", "Label1_1", u"Rule:"_s, u"Rule Description Text Goes Here .."_s},
        {"Frame3", "Label1_2", u"Suggestion:"_s, u"Suggestion Text Goes Here .."_s},
    }};
    for (const auto &[frame, label, title, text] : frames) {
        QCOMPARE(Child<QGroupBox>(&window, frame)->title(), title);
        QCOMPARE(Child<QLabel>(&window, label)->text(), text);
        QCOMPARE(Child<QLabel>(&window, label)->parentWidget(), Child<QWidget>(&window, frame));
    }
}

void tst_HelpWindows::infoTakesACaption()
{
    QStringList captions;
    for (const QString &caption : {u"Case Number not found in this county."_s, QString()}) {
        session->boxes.ExpectDialog(u"frmInfo"_s, [&captions](QDialog *dialog) {
            captions.append(dialog->windowTitle());
            Click(dialog, "Command1");
        });
        frmInfo::ShowFieldError(nullptr, u"what"_s, u"why"_s, u"action"_s, caption);
    }
    QCOMPARE(captions,
             (QStringList{u"Case Number not found in this county."_s, u"User Notification"_s}));
}

void tst_HelpWindows::infoIsAsTallAsItsTexts()
{
    const QString longest =
        u"Dashes are optional but the 1st 2 numbers in a Tax ID must be between 80 and last 2 "
        "digits of this year. If number is a UBI THEN IT MUST BE EXACT INCLUDING DASHES!!"_s;
    // The bold line above them and this one nearly fill a line.
    const QString nearlyALine =
        u"This is a required field and Has a Minimum Length of 1 Character."_s;
    for (const QString &text : {u"short"_s, nearlyALine, longest, QString(longest.repeated(20))}) {
        session->boxes.ExpectDialog(u"frmInfo"_s, [&](QDialog *dialog) {
            const auto *texts = Child<QScrollArea>(dialog, "scrollTexts");
            const bool scrolls = texts->verticalScrollBar()->maximum() > 0;
            const bool fillsTheScreen =
                dialog->height() >= dialog->screen()->availableGeometry().height() - 40;
            QCOMPARE(scrolls, fillsTheScreen);
            QVERIFY(dialog->screen()->availableGeometry().contains(dialog->geometry()));
            QVERIFY(dialog->rect().contains(Child<QWidget>(dialog, "Command1")->geometry()));
            Click(dialog, "Command1");
        });
        frmInfo::ShowFieldError(nullptr, text, text, text);
    }
}

void tst_HelpWindows::showInfo_data()
{
    QTest::addColumn<QStringList>("texts");
    QTest::addColumn<QString>("caption");
    const QString none;
    const QString own = u"User Notification"_s;
    QTest::newRow("the last of four wins") << QStringList{u"a"_s, u"b"_s, u"c"_s, u"d"_s} << u"d"_s;
    QTest::newRow("the last one that is not empty wins")
        << QStringList{u"a"_s, u"b"_s, none, none} << u"b"_s;
    QTest::newRow("the first alone") << QStringList{u"a"_s, none, none, none} << u"a"_s;
    QTest::newRow("trimmed") << QStringList{none, none, u"  c d "_s, none} << u"c d"_s;
    QTest::newRow("only blanks are a text") << QStringList{u"a"_s, none, none, u"  "_s} << none;
    QTest::newRow("none") << QStringList{none, none, none, none} << own;
}

void tst_HelpWindows::showInfo()
{
    QFETCH(QStringList, texts);
    QFETCH(QString, caption);
    frmInfo window;
    window.ShowInfo(texts[0], texts[1], texts[2], texts[3]);
    QCOMPARE(window.windowTitle(), caption);
    QCOMPARE(Child<QLabel>(&window, "Label1_1")->text(), u"Rule Description Text Goes Here .."_s);
    QCOMPARE(Child<QLabel>(&window, "Label1_2")->text(), u"Suggestion Text Goes Here .."_s);
    QVERIFY(window.isVisible());
}

void tst_HelpWindows::topics_data()
{
    QTest::addColumn<HelpTopic>("topic");
    QTest::addColumn<int>("number");
    QTest::addColumn<QString>("label");
    QTest::addColumn<QString>("says"); ///< something that belongs into this text and no other
    const auto row = [](HelpTopic topic, int number, const QString &label, const QString &says) {
        QTest::addRow("%s", qPrintable(label)) << topic << number << label << says;
    };
    row(HelpTopic::Jurisdiction, 0, u"Selecting a Jurisdiction"_s, u"Federal Bankruptcy Courts"_s);
    row(HelpTopic::SearchType, 1, u"Selecting a Search Type"_s, u"Use Index (Updated Weekly)"_s);
    row(HelpTopic::Name, 2, u"Entering a Name"_s, u"The suffix (Jr., Sr., III)"_s);
    row(HelpTopic::Batch, 3, u"Entering a Batch of Numbers"_s, u"Retrieve and Print All"_s);
    row(HelpTopic::Jurisdictions, 4, u"Selecting Jurisdiction(s)"_s, u"templates.ini"_s);
    row(HelpTopic::NumberCounty, 5, u"Entering a Number and its County"_s, u"09-2-02029-9"_s);
    row(HelpTopic::DiscisCaseType, 6, u"Selecting Civil or Non-Civil"_s, u"infractions"_s);
    row(HelpTopic::DiscisCourts, 7, u"Selecting Court(s)"_s, u"173 requests"_s);
    row(HelpTopic::BankruptcyCourts, 8, u"Selecting Bankruptcy Court(s)"_s,
        u"Washington (Western)"_s);
    row(HelpTopic::CaseTypes, 9, u"Selecting Case Type(s)"_s,
        u"Check here to Only retrieve cases with Judgments"_s);
    row(HelpTopic::Years, 10, u"Selecting Search Years "_s, u"every year that the court has"_s);
    row(HelpTopic::BankruptcyYears, 11, u"Selecting Bankruptcy Search Years"_s,
        u"from 1980 to this year"_s);
}

void tst_HelpWindows::topics()
{
    QFETCH(HelpTopic, topic);
    QFETCH(int, number);
    QFETCH(QString, label);
    QFETCH(QString, says);
    QCOMPARE(static_cast<int>(topic), number);
    frmSearchHelp::ShowTopic(topic);
    auto *window = OpenWindow<frmSearchHelp>();
    auto *list = Child<QListWidget>(window, "lstTopics");
    const auto *text = Child<QTextEdit>(window, "txtHelp");
    QCOMPARE(list->currentRow(), number);
    QCOMPARE(list->currentItem()->text(), label);
    QVERIFY(text->toPlainText().startsWith(label + u'\n'));
    QVERIFY(text->toPlainText().contains(says));
    int holding = 0;
    for (const HelpText &help : SearchHelpTexts())
        holding += help.Text.contains(says) ? 1 : 0;
    QCOMPARE(holding, 1);
    // The same by a click on the label, from another topic.
    list->setCurrentRow((number + 1) % list->count());
    QVERIFY(!text->toPlainText().startsWith(label + u'\n'));
    list->scrollToItem(list->item(number));
    QTest::mouseClick(list->viewport(), Qt::LeftButton, {},
                      list->visualItemRect(list->item(number)).center());
    QVERIFY(text->toPlainText().startsWith(label + u'\n'));
}

void tst_HelpWindows::everyTopicHasItsText()
{
    const auto texts = SearchHelpTexts();
    QVERIFY(texts.size() >= helpTopicCount);
    QStringList labels;
    for (const HelpText &help : texts) {
        QVERIFY2(help.Text.size() > 100, qPrintable(help.Label.toString()));
        labels.append(help.Label.toString());
    }
    QCOMPARE(labels.removeDuplicates(), 0);
    frmSearchHelp::ShowTopic(HelpTopic::Name);
    QCOMPARE(Child<QListWidget>(OpenWindow<frmSearchHelp>(), "lstTopics")->count(),
             static_cast<int>(texts.size()));
}

void tst_HelpWindows::topicsByKeyboard()
{
    frmSearchHelp::ShowTopic(HelpTopic::Jurisdiction);
    auto *window = OpenWindow<frmSearchHelp>();
    auto *list = Child<QListWidget>(window, "lstTopics");
    QTRY_VERIFY(Child<QWidget>(window, "Command1")->hasFocus());
    QTest::keyClick(window->focusWidget(), Qt::Key_Tab);
    QVERIFY(list->hasFocus());
    QTest::keyClick(list, Qt::Key_Down);
    QVERIFY(Child<QTextEdit>(window, "txtHelp")
                ->toPlainText()
                .startsWith(u"Selecting a Search Type\n"_s));
    QTest::keyClick(list, Qt::Key_Tab);
    QVERIFY(Child<QTextEdit>(window, "txtHelp")->hasFocus());
    QTest::keyClick(window->focusWidget(), Qt::Key_Tab);
    QVERIFY(Child<QWidget>(window, "Command1")->hasFocus());
}

void tst_HelpWindows::topicThatIsNoneIsTheFirst_data()
{
    QTest::addColumn<int>("topic");
    QTest::newRow("negative") << -1;
    QTest::newRow("too large") << 1000;
}

void tst_HelpWindows::topicThatIsNoneIsTheFirst()
{
    QFETCH(int, topic);
    frmSearchHelp::ShowTopic(HelpTopic::Years);
    frmSearchHelp::ShowTopic(topic);
    QCOMPARE(Child<QListWidget>(OpenWindow<frmSearchHelp>(), "lstTopics")->currentRow(), 0);
}

void tst_HelpWindows::anotherTopicBringsTheSameWindowToTheFront()
{
    frmSearchHelp::ShowTopic(HelpTopic::Years);
    auto *window = OpenWindow<frmSearchHelp>();
    frmCaseDetailsHelp::ShowForm();
    QTRY_VERIFY(QApplication::activeWindow() == OpenWindow<frmCaseDetailsHelp>());
    frmSearchHelp::ShowTopic(HelpTopic::Batch);
    QTRY_COMPARE(QApplication::activeWindow(), window);
    QCOMPARE(CountOf<frmSearchHelp>(), 1);
    QVERIFY(Child<QTextEdit>(window, "txtHelp")
                ->toPlainText()
                .startsWith(u"Entering a Batch of Numbers\n"_s));
}

void tst_HelpWindows::aNewTopicBeginsAtItsBeginning()
{
    frmSearchHelp::ShowTopic(HelpTopic::NumberCounty);
    auto *window = OpenWindow<frmSearchHelp>();
    window->resize(400, 220);
    Settle();
    auto *bar = Child<QTextEdit>(window, "txtHelp")->verticalScrollBar();
    QVERIFY(bar->maximum() > 0);
    bar->setValue(bar->maximum());
    frmSearchHelp::ShowTopic(HelpTopic::Name);
    Settle();
    QVERIFY(bar->maximum() > 0);
    QCOMPARE(bar->value(), 0);
}

void tst_HelpWindows::helpBelongsToTheMainWindow()
{
    frmMain *main = session->ShowMain();
    frmSearchHelp::ShowTopic(HelpTopic::Name);
    QCOMPARE(OpenWindow<frmSearchHelp>()->parentWidget(), static_cast<QWidget *>(main));
    QVERIFY(OpenWindow<frmSearchHelp>()->isWindow());
}

void tst_HelpWindows::texts_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QStringList>("says");
    QTest::newRow("results: marks, ends, colours")
        << NameSearchResultsHelpText().toString()
        << QStringList{u"\u2022 *  The case is archived"_s,
                       u">>  You have already retrieved it"_s,
                       u"\"Search Complete\""_s,
                       u"\"The Max. Number of Names were retrieved.\""_s,
                       u"\"Search Stopped - Max Results Reached\""_s,
                       u"\"Search Incomplete!\""_s,
                       u"\"Search Stopped By User\""_s,
                       u"\"Search Stopped - Court Connection Lost!\""_s,
                       u"Dark blue"_s,
                       u"Red"_s};
    QTest::newRow("case details: tabs")
        << CaseDetailsHelpText().toString()
        << QStringList{u"Summary"_s,   u"Names"_s,   u"Docket"_s,    u"Accounting"_s,
                       u"Judgments"_s, u"Charges"_s, u"Sentence"_s,  u"Schedule"_s,
                       u"Documents"_s, u"Finance"_s, u"on demand"_s, u"(Unavail.)"_s};
}

void tst_HelpWindows::theWindowsSayIt()
{
    const frmCaseDetailsHelp details;
    QVERIFY(Child<QTextEdit>(&details, "txtHelp")->toPlainText().contains(u"Judgments"_s));
    const frmNameSearchResultsHelp results;
    QVERIFY(Child<QTextEdit>(&results, "txtHelp")->toPlainText().contains(u"Search Complete"_s));
}

void tst_HelpWindows::texts()
{
    QFETCH(QString, text);
    QFETCH(QStringList, says);
    for (const QString &words : says)
        QVERIFY2(text.contains(words), qPrintable(words));
}

HALVANE_TEST(tst_HelpWindows)
#include "tst_HelpWindows.moc"
