#include "app/PracticeUser.h"

#include "app/PracticeCourt.h"
#include "casedetails/CaseWindow.h"
#include "controls/TabStrip.h"
#include "core/CSetting.h"
#include "core/GlobalState.h"
#include "core/Options.h"
#include "namesearch/NameResultsWindow.h"
#include "searchentry/frmSearchWA.h"
#include "session/frmLogin.h"
#include "support/Places.h"
#include "tables/ResultListView.h"

#include <QAbstractButton>
#include <QApplication>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QTest>

namespace {
constexpr int longestLoginMilliseconds = 10'000;
constexpr QSize resultsSize(900, 600);

/// What a millisecond of a run counts, in seconds: the pauses between the tabs are short, and an
/// answer has seconds to come all the same.
constexpr double pace = 0.02;

QWidget *shownLogin()
{
    const QWidgetList widgets = QApplication::allWidgets();
    for (QWidget *widget : widgets) {
        if (widget->objectName() == u"frmLogin" && widget->isVisible())
            return widget;
    }
    return nullptr;
}
} // namespace

PracticeUser::PracticeUser(quint16 port)
{
    PointSessionAt(port);
    LoadAppOptions();
    Global.bLoggedIn = false;
}

NameResultsWindow *PracticeUser::Search(const QStringList &steps)
{
    Do(steps);
    auto *window = StartOne<NameResultsWindow>();
    if (!window)
        return nullptr;
    Hurry(window);
    return Desk.Finish(window) ? window : nullptr;
}

CaseWindow *PracticeUser::OpenRow(NameResultsWindow *results, int row)
{
    results->resize(resultsSize);
    auto *list = results->findChild<ResultListView *>(u"listview1"_s);
    const QModelIndex index = list->List()->index(row, 1);
    list->scrollTo(index);
    const QPoint where = list->visualRect(index).center();
    const QList<JobWindow *> windows = NewWindows([&] {
        QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, where);
        QTest::mouseDClick(list->viewport(), Qt::LeftButton, {}, where);
    });
    return windows.size() == 1 ? qobject_cast<CaseWindow *>(windows.first()) : nullptr;
}

CaseWindow *PracticeUser::OpenRowAgain(NameResultsWindow *results, int row)
{
    Desk.Boxes.ExpectDialog(u"MsgBox"_s, [](QDialog *box) {
        const QList<QAbstractButton *> buttons = qobject_cast<QMessageBox *>(box)->buttons();
        for (QAbstractButton *button : buttons) {
            if (button->text() == u"&Open Again") {
                button->click();
                return;
            }
        }
        box->reject();
    });
    return OpenRow(results, row);
}

bool PracticeUser::Run(CaseWindow *window)
{
    Desk.Time.Run(pace);
    Hurry(window);
    const bool finished = Desk.Finish(window);
    Desk.Time.Stop();
    return finished;
}

bool PracticeUser::FetchOnDemand(CaseWindow *window)
{
    QPushButton *button = ButtonOf(window, "cmdSearchNow");
    if (!button->isVisible() || !button->isEnabled())
        return false;
    QTest::mouseClick(button, Qt::LeftButton);
    return Run(window);
}

void PracticeCourts::AddRows()
{
    QTest::addColumn<bool>("straysFollow");
    QTest::newRow("tidy court") << false;
    QTest::newRow("stray replies") << true;
}

QString PracticeCourts::Start(const QStringList &switches)
{
    const QString program = ProgramPath(u"halvane-practice"_s);
    if (!tidy.Start(program, switches))
        return tidy.Error();
    return untidy.Start(program, switches + QStringList{u"--leave-behind"_s}) ? QString()
                                                                              : untidy.Error();
}

quint16 PracticeCourts::Port() const
{
    QFETCH_GLOBAL(bool, straysFollow);
    return straysFollow ? untidy.Port() : tidy.Port();
}

void PracticeTest::initTestCase()
{
    QCOMPARE(court.Start(), QString());
}

void PracticeTest::init()
{
    user = std::make_unique<PracticeUser>(court.Port());
}

void PracticeTest::cleanup()
{
    const QString complaints = user->Complaints();
    user.reset();
    QCOMPARE(complaints, QString());
}

bool LogInAs(const QString &user)
{
    frmLogin::ShowForm(nullptr);
    QWidget *login = shownLogin();
    if (!login)
        return false;
    login->findChild<QTimer *>(u"tmrUI"_s)->setInterval(1);
    if (!QTest::qWaitFor([&] { return ButtonOf(login, "cmdLogin")->isEnabled(); },
                         longestLoginMilliseconds))
        return false;
    login->findChild<QLineEdit *>(u"txtUsername"_s)->setText(user);
    login->findChild<QLineEdit *>(u"txtPassword"_s)->setText(u"secret"_s);
    QTest::mouseClick(ButtonOf(login, "cmdLogin"), Qt::LeftButton);
    return QTest::qWaitFor([] { return !frmLogin::IsLoaded(); }, longestLoginMilliseconds)
           && Global.bLoggedIn && frmSearchWA::Form().isVisible();
}

void FetchAtOnce(const QStringList &captions)
{
    CSetting settings;
    settings.Init(u"options.ini"_s);
    for (const QString &section :
         {u"CaseSearchTabs"_s, u"OrCaseSearchTabs"_s, u"IdCaseSearchTabs"_s, u"NonCivilCaseTabs"_s,
          u"CivilCaseTabs"_s}) {
        for (int i = 0; i < caseTabCount; ++i) {
            const QString caption = CaseTabRowOf(static_cast<CaseTab>(i)).caption.toString();
            settings.SaveSettingStr(section, caption, captions.contains(caption) ? u"1"_s : u"0"_s);
        }
    }
}

void Hurry(JobWindow *window)
{
    window->Timer1->setInterval(1);
    if (auto *details = qobject_cast<CaseWindow *>(window))
        details->TmrSearchOnDemand->setInterval(1);
}

TabStrip *StripOf(const CaseWindow *window)
{
    return window->findChild<TabStrip *>(u"TabStrip1"_s);
}

bool ClickTab(const CaseWindow *window, const QString &caption)
{
    TabStrip *strip = StripOf(window);
    const qsizetype index = strip->Captions().indexOf(caption);
    if (index < 0)
        return false;
    QTest::mouseClick(strip, Qt::LeftButton, {}, strip->tabRect(static_cast<int>(index)).center());
    return true;
}

bool ShowsPanel(const CaseWindow *window)
{
    return ButtonOf(window, "cmdSearchNow")->isVisible();
}
