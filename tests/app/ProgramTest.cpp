#include "app/ProgramTest.h"

#include "app/Startup.h"
#include "core/GlobalState.h"
#include "namesearch/frmNameSearchResults.h"
#include "session/frmLogin.h"
#include "session/frmMain.h"

#include <QAction>
#include <QDialog>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QTest>
#include <QTimer>

void TickItems(const QWidget *window, const char *list, const QStringList &items)
{
    auto *box = window->findChild<QListWidget *>(QLatin1StringView(list));
    for (int i = 0; i < box->count(); ++i) {
        if (!items.contains(box->item(i)->text()))
            continue;
        box->scrollToItem(box->item(i));
        QTest::mouseClick(box->viewport(), Qt::LeftButton, {},
                          box->visualItemRect(box->item(i)).center());
    }
}

void ChooseEntry(const QString &action)
{
    frmMain::Form()->findChild<QAction *>(action)->trigger();
}

void ProgramTest::initTestCase()
{
    WireWindows();
}

void ProgramTest::init()
{
    SearchTest::init();
    court->PointSettingsHere();
}

void ProgramTest::StartProgram()
{
    desk->Boxes.ExpectDialog(u"frmConnect"_s, [](QDialog *dialog) { Click(dialog, "cmdConnect"); });
    ::Main(false);
    Main = frmMain::Form();
}

void ProgramTest::LogIn()
{
    QTRY_VERIFY(frmLogin::IsLoaded());
    auto *login = Shown(u"frmLogin"_s);
    QVERIFY(login);
    QTRY_VERIFY(ButtonOf(login, "cmdLogin")->isEnabled());
    TypeInto(login, "txtUsername", u"paralegal"_s);
    TypeInto(login, "txtPassword", u"secret"_s);
    const QPointer<QWidget> open(login);
    Click(login, "cmdLogin");
    QTRY_VERIFY(open.isNull());
    QVERIFY(Global.bLoggedIn);
}

void ProgramTest::BeginSession()
{
    court->ExpectLogin(u"paralegal"_s, u"secret"_s);
    StartProgram();
    LogIn();
}

QString ProgramTest::SearchRequest()
{
    return u"WASUP¦SEARCH¦SMITH¦JOHN¦Q¦¦King,¦"
           "Civil,Criminal,¦¦¦"_s;
}

void ProgramTest::FillForm()
{
    const QWidget *form = Shown(u"frmSearchWA"_s);
    TickItems(form, "lboxCountyOrProfile", {u"King"_s});
    TickItems(form, "lboxCaseTypes", {u"Civil"_s, u"Criminal"_s});
}

frmNameSearchResults *ProgramTest::StartSearch()
{
    QWidget *form = Shown(u"frmSearchWA"_s);
    TypeInto(form, "txtSearchName_0", u"Smith"_s);
    TypeInto(form, "txtSearchName_1", u"John"_s);
    TypeInto(form, "txtSearchName_2", u"q"_s);
    const QWidgetList before = QApplication::allWidgets();
    Click(form, "cmdBeginSearch");
    const QWidgetList after = QApplication::allWidgets();
    for (QWidget *widget : after) {
        auto *window = qobject_cast<frmNameSearchResults *>(widget);
        if (!window || before.contains(widget))
            continue;
        window->Timer1->setInterval(1);
        return window;
    }
    return nullptr;
}
