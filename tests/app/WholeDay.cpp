#include "app/WholeDay.h"

#include "app/PracticeUser.h"
#include "casedetails/MadeCases.h"
#include "casedetails/frmCivilCaseDetails.h"
#include "casedetails/frmNCCaseDetails.h"
#include "controls/TabStrip.h"
#include "core/EventLoop.h"
#include "core/GlobalState.h"
#include "courts/DiscisCourts.h"
#include "jobs/frmQueue.h"
#include "link/Router.h"
#include "link/ServerSocket.h"
#include "namesearch/frmDiscisNCNameResults.h"
#include "namesearch/frmDiscisNameResults.h"
#include "namesearch/frmNameSearchResults.h"
#include "practice/SpecialCases.h"

#include <QApplication>
#include <QDeadlineTimer>
#include <QDialog>
#include <QMessageBox>
#include <QPushButton>
#include <QTest>

#include <algorithm>
#include <array>

namespace {
constexpr int windowsARound = 30;
constexpr int longestRoundMilliseconds = 20'000;
constexpr double napSeconds = 0.02;
/// Seconds that count as gone by in a millisecond.
constexpr double pace = 0.1;

using Practice::CourtFamily;
using Practice::SpecialCase;

NameResultsWindow *makeIndex()
{
    auto *window = new frmNameSearchResults(u"WA"_s, true);
    window->chkIndexSearch = true;
    return window;
}

NameResultsWindow *makeBankruptcy()
{
    return new frmNameSearchResults(u"ORBK"_s);
}

template<const char16_t *state>
NameResultsWindow *makeState()
{
    return new frmNameSearchResults(QString::fromUtf16(state));
}

template<typename Window>
NameResultsWindow *makeDistrict()
{
    return new Window;
}

constexpr char16_t washington[] = u"WA";
constexpr char16_t oregon[] = u"OR";
constexpr char16_t idaho[] = u"ID";

/// A search and its request line.
struct DaySearch
{
    NameResultsWindow *(*make)();
    const char16_t *line;
};
constexpr std::array<DaySearch, 10> daySearches{{
    {makeState<washington>, u"WASUP¦SEARCH¦SMITH¦JOHN¦Q¦¦King,¦Civil,Criminal,¦¦¦"},
    {makeState<washington>, u"WASUP¦SEARCH¦TOOMANY¦¦¦¦King,¦Civil,¦¦¦"},
    {makeState<washington>, u"WASUP¦SEARCH¦BADROW¦¦¦¦King,¦Civil,¦¦¦"},
    {makeState<oregon>, u"OREGON¦SEARCH¦SMITH¦JOHN¦Q¦¦MCR C¦CV,DO,¦1990¦2008¦"},
    {makeState<idaho>, u"IDSUP¦SEARCH¦SMITH¦JOHN¦Q¦¦*ALL¦CR,¦¦¦"},
    {makeIndex, u"INDEX~SEARCH~SMITH~JOHN~Q~~King,~Criminal,Judgment,~1970~2005~LL=1~UL=500~"},
    {makeBankruptcy, u"BKRPT~SEARCH~SMITH~JOHN~Q~~OR~*ALL~1980~2005~"},
    {makeDistrict<frmDiscisNameResults>, u"WADISCIS¦SEARCH¦SMITH¦JOHN¦Q¦KSD¦CV¦CNCI¦"},
    {makeDistrict<frmDiscisNCNameResults>, u"WADISCIS¦SEARCH¦SMITH¦JOHN¦Q¦KSD¦IN¦CNCI¦"},
    {makeDistrict<frmDiscisNCNameResults>, u"WADISCIS¦SEARCH¦DUPES¦JOHN¦¦*SW¦IN¦SNCI¦"},
}};

/// What a case does that is not found by a search.
constexpr std::array<SpecialCase, 5> specialMeanings{
    SpecialCase::TabErrorOnce, SpecialCase::TabDropOnce, SpecialCase::EmptyTabs,
    SpecialCase::Breaks, SpecialCase::Arbitration};

QString numberOf(CourtFamily family, SpecialCase meaning)
{
    for (const Practice::SpecialCaseRow &row : Practice::specialCases) {
        if (row.meaning == meaning && (row.families & Practice::FamilyBit(family)) != 0)
            return Practice::SpecialCaseNumber(family, row);
    }
    return numberOf(family, SpecialCase::TabErrorOnce);
}

/// A case window of each kind.
CaseWindow *makeCase(int kind, SpecialCase meaning)
{
    switch (kind) {
    case 0:
        return MadeStateCase(u"WA"_s, numberOf(CourtFamily::Superior, meaning), u"King"_s);
    case 1:
        return MadeStateCase(u"OR"_s, numberOf(CourtFamily::Oregon, meaning), u"Multnomah"_s);
    case 2:
        return MadeStateCase(u"ID"_s, numberOf(CourtFamily::Idaho, meaning), u"Ada"_s);
    case 3:
        return MadeDistrictCase<frmCivilCaseDetails>(numberOf(CourtFamily::District, meaning),
                                                     u"CV"_s);
    case 4:
        return MadeDistrictCase<frmNCCaseDetails>(numberOf(CourtFamily::District, meaning),
                                                  u"IN"_s);
    default:
        return MadeBankruptcyCase(numberOf(CourtFamily::Bankruptcy, meaning));
    }
}
constexpr int caseKinds = 6;

bool waits(const JobWindow *window)
{
    const auto *details = qobject_cast<const CaseWindow *>(window);
    return window->Timer1->isActive() || (details && details->TmrSearchOnDemand->isActive());
}

bool linkIsUp()
{
    return Global.sckServer && Global.sckServer->State() == SocketState::Connected;
}
} // namespace

WholeDay::WholeDay(PracticeUser &atDesk, quint32 seed) : user(atDesk), random(seed)
{
    LoadDiscisCourts();
    FetchAtOnce({u"Names"_s, u"Docket"_s, u"Violations"_s});
    for (const QString &name : {u"MsgBox"_s, u"frmOnDemand"_s, u"frmArbPrompt"_s})
        user.Desk.Boxes.Whenever(name, [this](QDialog *dialog) { answer(dialog); });
    connect(&ticks, &QTimer::timeout, this, &WholeDay::act);
}

WholeDay::~WholeDay() = default;

void WholeDay::Round()
{
    ++round;
    opened = 0;
    acts = 0;
    Global.bStopRequested = false;
    user.Desk.Time.Run(pace);
    const QDeadlineTimer deadline(longestRoundMilliseconds);
    ticks.start(1);
    while (opened < windowsARound && !deadline.hasExpired()) {
        keepLink();
        freeHead();
        YieldUntilEvent(napSeconds);
    }
    ticks.stop();
    if (opened < windowsARound)
        complain(u"the windows were not opened in time"_s);
    settle();
    closeAll();
    user.Desk.Time.Stop();
    CloseServerLink();
    Global.bLoggedIn = false;
}

/// Logs in again when the link is gone, as soon as nothing runs any more.
void WholeDay::keepLink()
{
    if (linkIsUp() || Global.bSearchInProgress || QApplication::activeModalWidget())
        return;
    const bool acting = ticks.isActive();
    ticks.stop();
    CloseServerLink();
    Global.bLoggedIn = false;
    if (!LogInAs(u"quiet"_s))
        complain(u"the login failed"_s);
    note(u"logins"_s);
    if (acting)
        ticks.start();
}

void WholeDay::act()
{
    // Nobody gets at the windows behind a dialog.
    if (QApplication::activeModalWidget() || opened >= windowsARound)
        return;
    ++acts;
    const Act what = drawAct();
    perform(what);
    checkQueue(u"after act "_s + QString::number(static_cast<int>(what)));
}

WholeDay::Act WholeDay::drawAct()
{
    struct Weight
    {
        Act what;
        int weight;
    };
    constexpr std::array<Weight, 8> weights{{{Act::OpenSearch, 12},
                                             {Act::OpenRow, 12},
                                             {Act::OpenCase, 10},
                                             {Act::Stop, 10},
                                             {Act::OnDemand, 20},
                                             {Act::Close, 8},
                                             {Act::StopAll, 1},
                                             {Act::Wait, 40}}};
    int all = 0;
    for (const Weight &one : weights)
        all += one.weight;
    int drawn = below(all);
    for (const Weight &one : weights) {
        drawn -= one.weight;
        if (drawn < 0)
            return one.what;
    }
    return Act::Wait;
}

void WholeDay::perform(Act what)
{
    switch (what) {
    case Act::OpenSearch:
        openSearch();
        break;
    case Act::OpenRow:
        openRow();
        break;
    case Act::OpenCase:
        openCase();
        break;
    case Act::Stop:
        stopOne();
        break;
    case Act::OnDemand:
        fetchOnDemand();
        break;
    case Act::Close:
        closeOne();
        break;
    case Act::StopAll:
        Global.bStopRequested = true;
        note(u"stops of all jobs"_s);
        break;
    case Act::Wait:
        break;
    }
}

void WholeDay::start(JobWindow *window)
{
    Hurry(window);
    window->Timer1->start();
    Global.bStopRequested = false;
    window->setProperty("opened", ++opened);
    note(window->objectName(), window);
}

void WholeDay::openSearch()
{
    const DaySearch &kind = daySearches.at(static_cast<size_t>(below(daySearches.size())));
    NameResultsWindow *window = kind.make();
    user.Desk.Enqueue(window, {QString::fromUtf16(kind.line)});
    start(window);
}

void WholeDay::openRow()
{
    auto *results = any<NameResultsWindow>();
    if (!results || results->RowCount() == 0)
        return;
    if (CaseWindow *window = user.OpenRow(results, below(results->RowCount()))) {
        start(window);
        note(u"rows"_s);
    }
}

void WholeDay::openCase()
{
    const SpecialCase meaning =
        specialMeanings.at(static_cast<size_t>(below(specialMeanings.size())));
    CaseWindow *window = makeCase(below(caseKinds), meaning);
    user.Desk.Enqueue(window);
    start(window);
}

void WholeDay::stopOne()
{
    auto *window = any<JobWindow>();
    QPushButton *button = window ? ButtonOf(window, "cmdStopSearching") : nullptr;
    if (!button || !button->isEnabled())
        return;
    note(waits(window) ? u"stops before the turn"_s : u"stops of a run"_s, window);
    QTest::mouseClick(button, Qt::LeftButton);
}

/// A tab that has not been fetched is clicked, then the button of its panel.
void WholeDay::fetchOnDemand()
{
    const QPointer<CaseWindow> window(any<CaseWindow>());
    if (!window)
        return;
    const QStringList captions = StripOf(window)->Captions();
    if (!ClickTab(window, captions.value(below(static_cast<int>(captions.size())))) || !window
        || window->IsUnloaded())
        return;
    QPushButton *button = ButtonOf(window, "cmdSearchNow");
    if (!button->isVisible() || !button->isEnabled() || waits(window)
        || (Global.bSearchInProgress && Keys().value(0) == window->txtMasterKey))
        return;
    note(u"later runs"_s, window);
    QTest::mouseClick(button, Qt::LeftButton);
}

void WholeDay::closeOne()
{
    if (auto *window = any<JobWindow>())
        close(window);
}

void WholeDay::close(JobWindow *window)
{
    const bool waited = waits(window);
    const QString key = window->txtMasterKey;
    const bool results = qobject_cast<NameResultsWindow *>(window);
    if (!window->Unload(below(2) == 0 ? UnloadMode::Code : UnloadMode::ControlMenu)) {
        note(u"refusals to close"_s, window);
        return;
    }
    note(u"closed"_s, window);
    if (!Keys().contains(key))
        return;
    // A search that is closed before its turn leaves its key, a case never does; what is closed
    // under its own run takes the key along when that ends.
    if (waited && results)
        left.append(key);
    else if (!waited)
        going.append(key);
    note(waited ? u"keys left"_s : u"closed under their run"_s, window);
}

void WholeDay::answer(QDialog *dialog)
{
    note(dialog->objectName());
    if (auto *box = qobject_cast<QMessageBox *>(dialog)) {
        // Of a case that is open already: any answer.
        if (box->standardButtons() == QMessageBox::Cancel) {
            box->buttons().at(below(static_cast<int>(box->buttons().size())))->click();
            return;
        }
        QAbstractButton *no = box->button(QMessageBox::No);
        (no ? no : box->button(QMessageBox::Ok))->click();
        return;
    }
    const QString button = below(2) == 0 ? u"Command1"_s : u"Command2"_s;
    QTest::mouseClick(dialog->findChild<QPushButton *>(button), Qt::LeftButton);
}

/// What holds up the queue for good goes: a case that broke down is closed, and the key of a search
/// that was closed before its turn ends with the program, which begins anew. True when it did.
bool WholeDay::freeHead()
{
    const QString head = Keys().value(0);
    if (head.isEmpty() || Global.bSearchInProgress || QApplication::activeModalWidget())
        return false;
    if (left.removeOne(head)) {
        frmQueue::Form().FIFO.RemoveItem(0);
        note(u"queues that began anew"_s);
        return true;
    }
    for (JobWindow *window : windows()) {
        if (window->txtMasterKey != head || waits(window))
            continue;
        if (!qobject_cast<CaseWindow *>(window))
            complain(u"a search kept its turn: "_s + TextOf(window, "lblStatus"));
        note(u"cases that broke down"_s, window);
        window->Unload();
        return true;
    }
    return false;
}

/// Lets everything that waits have its turn.
void WholeDay::settle()
{
    const QDeadlineTimer deadline(longestRoundMilliseconds);
    const auto busy = [this] {
        if (Global.bSearchInProgress || QApplication::activeModalWidget() || !going.isEmpty())
            return true;
        const QList<JobWindow *> open = windows();
        return std::any_of(open.begin(), open.end(), waits);
    };
    while (busy()) {
        if (deadline.hasExpired()) {
            QStringList states;
            for (const JobWindow *window : windows()) {
                if (waits(window))
                    states.append(window->objectName() + u' ' + window->txtMasterKey);
            }
            complain(u"it does not come to rest; waiting: "_s + states.join(u", "_s)
                     + u"; the queue: "_s + Keys().join(u", "_s));
            break;
        }
        keepLink();
        freeHead();
        YieldUntilEvent(napSeconds);
        checkQueue(u"on the way to rest"_s);
    }
}

void WholeDay::closeAll()
{
    for (JobWindow *window : windows())
        close(window);
    checkQueue(u"when all was closed"_s);
    if (Keys() != left)
        complain(u"the queue holds "_s + Keys().join(u", "_s) + u" instead of "_s
                 + left.join(u", "_s));
    frmQueue::Form().FIFO.Clear();
    left.clear();
    if (!windows().isEmpty())
        complain(u"a window stays"_s);
}

/// Every key is that of a window that is open, or one that had to be left; every window that waits
/// has its key in the queue, once.
void WholeDay::checkQueue(const QString &when)
{
    const QStringList keys = Keys();
    going.removeIf([&](const QString &key) { return !keys.contains(key); });
    QStringList owned = left + going;
    for (const JobWindow *window : windows()) {
        owned.append(window->txtMasterKey);
        if (waits(window) && keys.count(window->txtMasterKey) != 1)
            complain(when + u", "_s + window->objectName() + u" #"_s
                     + window->property("opened").toString() + u" waits with "_s
                     + QString::number(keys.count(window->txtMasterKey)) + u" keys"_s);
    }
    for (const QString &key : keys) {
        if (!owned.contains(key))
            complain(when + u", nobody has the key "_s + key);
    }
}

/// Counts what happens, and keeps the latest for a complaint.
void WholeDay::note(const QString &what, const JobWindow *window)
{
    constexpr qsizetype latest = 12;
    ++story[what];
    recent.append(window ? what + u" #"_s + window->property("opened").toString() : what);
    if (recent.size() > latest)
        recent.removeFirst();
}

/// The first complaint counts: the others follow from it.
void WholeDay::complain(const QString &what)
{
    if (!complaint.isEmpty())
        return;
    complaint = u"round "_s + QString::number(round) + u", act "_s + QString::number(acts) + u": "_s
                + what + u"; lately: "_s + recent.join(u", "_s);
}

QString WholeDay::Complaints() const
{
    return complaint;
}

QString WholeDay::Story() const
{
    QStringList lines;
    for (auto one = story.begin(); one != story.end(); ++one)
        lines.append(one.key() + u' ' + QString::number(one.value()));
    return lines.join(u", "_s);
}

bool WholeDay::HadEverything() const
{
    const QStringList all{u"frmNameSearchResults"_s,
                          u"frmDiscisNameResults"_s,
                          u"frmDiscisNCNameResults"_s,
                          u"frmCaseDetails"_s,
                          u"frmCivilCaseDetails"_s,
                          u"frmNCCaseDetails"_s,
                          u"rows"_s,
                          u"later runs"_s,
                          u"stops before the turn"_s,
                          u"stops of a run"_s,
                          u"stops of all jobs"_s,
                          u"refusals to close"_s,
                          u"keys left"_s,
                          u"cases that broke down"_s,
                          u"frmOnDemand"_s,
                          u"frmArbPrompt"_s};
    return std::all_of(all.begin(), all.end(),
                       [this](const QString &one) { return story.contains(one); })
           && story.value(u"logins"_s) > round;
}

QList<JobWindow *> WholeDay::windows() const
{
    QList<JobWindow *> open;
    const QWidgetList widgets = QApplication::topLevelWidgets();
    for (QWidget *widget : widgets) {
        auto *window = qobject_cast<JobWindow *>(widget);
        if (window && !window->IsUnloaded())
            open.append(window);
    }
    // The platform has them in no order, and the seed has to settle which is meant.
    std::sort(open.begin(), open.end(), [](const JobWindow *a, const JobWindow *b) {
        return a->property("opened").toInt() < b->property("opened").toInt();
    });
    return open;
}

/// An open window of the class, by the dice.
template<typename Window>
Window *WholeDay::any()
{
    QList<Window *> candidates;
    for (JobWindow *window : windows()) {
        if (auto *one = qobject_cast<Window *>(window))
            candidates.append(one);
    }
    const int drawn = below(100);
    return candidates.isEmpty() ? nullptr : candidates.at(drawn % candidates.size());
}
