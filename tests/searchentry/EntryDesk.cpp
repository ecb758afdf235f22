#include "searchentry/EntryDesk.h"

#include "app/Startup.h"
#include "controls/CheckListBox.h"
#include "core/GlobalState.h"
#include "jobs/JobWindow.h"
#include "jobs/frmQueue.h"
#include "namesearch/NameResultsWindow.h"
#include "session/frmMain.h"

#include <QApplication>
#include <QComboBox>
#include <QDialog>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>

#include <algorithm>

namespace {
QString disclaimerOf(const QString &state)
{
    return u"Neither the court nor clerk makes any representation as to the accuracy and "
           "completeness of the "_s
           + state + u" Court data except for court purposes. \r\n\r\nDo you want to continue?"_s;
}
} // namespace

const QStringList smithJohnQ{u"type txtSearchName_0 Smith"_s, u"type txtSearchName_1 John"_s,
                             u"type txtSearchName_2 q"_s};

const QString washingtonDisclaimer = disclaimerOf(u"Washington"_s);
const QString oregonDisclaimer = disclaimerOf(u"Oregon"_s);
const QString idahoDisclaimer = disclaimerOf(u"Idaho"_s);
const QString notLoggedIn = u"This Search Cannot be Started!\r\n\r\nThis is because you are not "
                            "currently Logged-In to the Halvane Server.\r\n\r\nDo you want to "
                            "Login Now?"_s;
const QString notLoggedInTitle = u"Cannot Perform Search! Not Logged In to Halvane"_s;
const QString noRequests =
    u"Search Stopped. Unable to continue with this search.\r\n\r\nAfter Skipping all invalid "
    "search requests there were ZERO requests left to submit.\r\n\r\nPlease review the Search "
    "Criteria entered before trying again."_s;
const QString noRequestsTitle = u"No Valid Search Requests to Submit .."_s;

EntryDesk::EntryDesk()
{
    static const bool wired = [] {
        WireWindows();
        return true;
    }();
    Q_UNUSED(wired)
    Global.bLoggedIn = true;
    frmSearchWA::ShowForm();
    form = &frmSearchWA::Form();
    form->resize(1000, 1400);
}

EntryDesk::~EntryDesk()
{
    if (frmSearchWA::IsLoaded())
        frmSearchWA::Form().Unload();
}

void EntryDesk::Do(const QStringList &steps)
{
    for (const QString &step : steps)
        doStep(step);
}

void EntryDesk::doStep(const QString &step)
{
    const QString verb = step.section(u' ', 0, 0);
    const QString name = step.section(u' ', 1, 1);
    const QString text = step.section(u' ', 2);
    if (verb == u"start") {
        click(u"cmdBeginSearch"_s);
    } else if (verb == u"click") {
        click(name);
    } else if (verb == u"tick") {
        tick(name, text);
    } else if (verb == u"choose") {
        choose(name, text);
    } else if (auto *box = qobject_cast<QLineEdit *>(usable(name)); verb == u"type" && box) {
        box->clear();
        QTest::keyClicks(box, text);
    } else {
        complaints.append(u"no such step: "_s + step);
    }
}

QWidget *EntryDesk::usable(const QString &name)
{
    auto *control = form->findChild<QWidget *>(name);
    if (control && control->isVisible() && control->isEnabled())
        return control;
    complaints.append(name + u" cannot be used"_s);
    return nullptr;
}

void EntryDesk::click(const QString &name)
{
    if (QWidget *control = usable(name))
        QTest::mouseClick(control, Qt::LeftButton, {}, {10, control->height() / 2});
}

void EntryDesk::tick(const QString &name, const QString &item)
{
    auto *list = qobject_cast<QListWidget *>(usable(name));
    const QList<QListWidgetItem *> items =
        list ? list->findItems(item, Qt::MatchExactly) : QList<QListWidgetItem *>();
    if (items.isEmpty()) {
        complaints.append(name + u" has no "_s + item);
        return;
    }
    list->scrollToItem(items.first());
    QTest::mouseClick(list->viewport(), Qt::LeftButton, {},
                      list->visualItemRect(items.first()).center());
}

void EntryDesk::choose(const QString &name, const QString &item)
{
    auto *box = qobject_cast<QComboBox *>(usable(name));
    const int index = box ? box->findText(item) : -1;
    if (index < 0)
        complaints.append(name + u" has no "_s + item);
    else
        box->setCurrentIndex(index);
}

QList<JobWindow *> EntryDesk::NewWindows(const std::function<void()> &act)
{
    const QList<JobWindow *> before = OpenJobs();
    act();
    QList<JobWindow *> windows = OpenJobs();
    windows.removeIf([&](JobWindow *window) { return before.contains(window); });
    return windows;
}

QList<JobWindow *> EntryDesk::Start()
{
    return NewWindows([this] { click(u"cmdBeginSearch"_s); });
}

void EntryDesk::ExpectCode(const QString &code)
{
    Desk.Boxes.ExpectDialog(u"frmAccounting"_s, [code](QDialog *dialog) {
        dialog->findChild<QComboBox *>(u"cboxClientID"_s)->setEditText(code);
        QTest::mouseClick(ButtonOf(dialog, "cmdOK"), Qt::LeftButton);
    });
}

void EntryDesk::ExpectRefusal(QStringList *lines)
{
    Desk.Boxes.ExpectDialog(u"frmInfo"_s, [lines](QDialog *dialog) {
        if (lines)
            *lines = {TextOf(dialog, "Label1_0"), TextOf(dialog, "Label1_1"),
                      TextOf(dialog, "Label1_2")};
        QTest::mouseClick(ButtonOf(dialog, "Command1"), Qt::LeftButton);
    });
}

QString EntryDesk::Text(const char *name) const
{
    return TextOf(form, name);
}

QWidget *EntryDesk::Control(const char *name) const
{
    return form->findChild<QWidget *>(QLatin1StringView(name));
}

QStringList EntryDesk::ItemsOf(const char *box) const
{
    QStringList items;
    const auto *combo = form->findChild<QComboBox *>(QLatin1StringView(box));
    for (int i = 0; i < combo->count(); ++i)
        items.append(combo->itemText(i));
    return items;
}

QString EntryDesk::Complaints() const
{
    QStringList all = complaints;
    if (const QString ofDesk = Desk.Complaints(); !ofDesk.isEmpty())
        all.append(ofDesk);
    return all.join(u"; "_s);
}

QList<JobWindow *> OpenJobs()
{
    QList<JobWindow *> windows;
    const QWidgetList widgets = QApplication::allWidgets();
    for (QWidget *widget : widgets) {
        auto *window = qobject_cast<JobWindow *>(widget);
        if (window && !window->IsUnloaded())
            windows.append(window);
    }
    const QStringList keys = Keys();
    std::sort(windows.begin(), windows.end(), [&](const JobWindow *a, const JobWindow *b) {
        return keys.indexOf(a->txtMasterKey) < keys.indexOf(b->txtMasterKey);
    });
    return windows;
}

QStringList Keys()
{
    return frmQueue::Form().FIFO.Lines();
}

void EntryTest::init()
{
    desk = std::make_unique<EntryDesk>();
}

void EntryTest::cleanup()
{
    QCOMPARE(EndDialogue(desk), QString());
}

void EntryTest::SearchWithCode(const QStringList &steps, const QStringList &requests)
{
    ScriptedCourt court;
    for (const QString &request : requests)
        court.Expect(request).Reply({u"EOF~"_s});
    desk->Desk.ConnectTo(court);
    desk->Do(steps);
    desk->ExpectCode(u" abc "_s);
    auto *window = desk->StartOne<NameResultsWindow>();
    QVERIFY(window);
    QCOMPARE(window->ClientAcctgCode, u"ABC"_s);
    QVERIFY(!window->lboxQueue.Lines().join(u' ').contains(u"CAC"));
    window->Timer1->start(1);
    QVERIFY(desk->Desk.Finish(window));
    QCOMPARE(court.Complaints(), QString());
    QCOMPARE(TextOf(window, "lblStatus").simplified(), u"Search Complete: 0 Cases Retrieved."_s);
    QCOMPARE(Keys(), QStringList());
}
