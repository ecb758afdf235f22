#include "controls/FormWindow.h"
#include "support/HalvaneTest.h"

#include <QLineEdit>
#include <QMainWindow>
#include <QMenuBar>
#include <QPointer>
#include <QPushButton>
#include <QSignalSpy>
#include <QTest>

#include <functional>
#include <memory>

namespace {
class Form : public FormWindow
{
public:
    using FormWindow::FormWindow;

    bool allows = true;
    QList<UnloadMode> asked;
    int unloadings = 0;
    std::function<void()> whileAsked;

protected:
    bool QueryUnload(UnloadMode mode) override
    {
        asked.append(mode);
        if (whileAsked)
            whileAsked();
        return allows;
    }
    void Unloading() override { ++unloadings; }
};

void deleteWhatIsDue()
{
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}
} // namespace

class tst_FormWindow : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void unloadTakesTheWindowAwayForGood();
    void aMnemonicClicksTheWindowsOwnButton();
    void unloadTellsItsMode_data();
    void unloadTellsItsMode();
    void closingAsksAsTheControlMenu();
    void refusedUnloadLeavesEverything();
    void refusedOnceAllowedLater();
    void secondUnloadDoesNothing();
    void unloadDuringARunWaitsForItsEnd();
    void nestedRunsDeleteOnlyAtTheLastEnd();
    void endOfARunLeavesALoadedWindow();
    void unloadedAgainWhileItIsAsked();
    void deletedWhileItIsAsked();
    void unloadedTellsWhenTheWindowIsHiddenAlready();
    void plainFormAllowsEverything();
};

void tst_FormWindow::aMnemonicClicksTheWindowsOwnButton()
{
    // As in the main window: a menu above the form has the same letter.
    QMainWindow main;
    main.menuBar()->addMenu(QStringLiteral("&Search"));
    auto *form = new Form;
    auto *button = new QPushButton(QStringLiteral("Start &Search"), form);
    auto *box = new QLineEdit(form);
    main.setCentralWidget(form);
    main.show();
    box->setFocus();
    const QSignalSpy clicks(button, &QPushButton::clicked);
    QTest::keyClick(box, Qt::Key_S, Qt::AltModifier);
    QCOMPARE(clicks.size(), 1);
    QCOMPARE(box->text(), QString());
    QTest::keyClick(box, Qt::Key_S);
    QCOMPARE(clicks.size(), 1);
    button->setEnabled(false);
    QTest::keyClick(box, Qt::Key_S, Qt::AltModifier);
    QCOMPARE(clicks.size(), 1);
}

void tst_FormWindow::unloadTakesTheWindowAwayForGood()
{
    const QPointer<Form> form(new Form);
    form->show();
    QSignalSpy unloaded(form, &FormWindow::Unloaded);
    QVERIFY(form->Unload());
    QVERIFY(form->IsUnloaded());
    QVERIFY(!form->isVisible());
    QCOMPARE(form->unloadings, 1);
    QCOMPARE(unloaded.count(), 1);
    deleteWhatIsDue();
    QVERIFY(!form);
}

void tst_FormWindow::unloadTellsItsMode_data()
{
    QTest::addColumn<int>("mode");
    QTest::newRow("control menu") << 0;
    QTest::newRow("code") << 1;
    QTest::newRow("session end") << 2;
    QTest::newRow("task manager") << 3;
    QTest::newRow("main window") << 4;
}

void tst_FormWindow::unloadTellsItsMode()
{
    QFETCH(int, mode);
    Form form;
    form.allows = false;
    QVERIFY(!form.Unload(static_cast<UnloadMode>(mode)));
    QCOMPARE(form.asked, QList<UnloadMode>{static_cast<UnloadMode>(mode)});
}

void tst_FormWindow::closingAsksAsTheControlMenu()
{
    const QPointer<Form> form(new Form);
    form->show();
    QVERIFY(form->close());
    QCOMPARE(form->asked, QList<UnloadMode>{UnloadMode::ControlMenu});
    deleteWhatIsDue();
    QVERIFY(!form);
}

void tst_FormWindow::refusedUnloadLeavesEverything()
{
    Form form;
    form.show();
    form.allows = false;
    QSignalSpy unloaded(&form, &FormWindow::Unloaded);
    QVERIFY(!form.close());
    QVERIFY(!form.Unload());
    deleteWhatIsDue();
    QVERIFY(form.isVisible());
    QVERIFY(!form.IsUnloaded());
    QCOMPARE(form.unloadings, 0);
    QCOMPARE(unloaded.count(), 0);
}

void tst_FormWindow::refusedOnceAllowedLater()
{
    const QPointer<Form> form(new Form);
    form->show();
    form->allows = false;
    QVERIFY(!form->close());
    form->allows = true;
    QVERIFY(form->close());
    deleteWhatIsDue();
    QVERIFY(!form);
}

void tst_FormWindow::secondUnloadDoesNothing()
{
    const QPointer<Form> form(new Form);
    form->show();
    QSignalSpy unloaded(form, &FormWindow::Unloaded);
    QVERIFY(form->Unload());
    QVERIFY(form->Unload());
    QVERIFY(form->close());
    QCOMPARE(form->asked.size(), 1);
    QCOMPARE(form->unloadings, 1);
    QCOMPARE(unloaded.count(), 1);
    deleteWhatIsDue();
    QVERIFY(!form);
}

void tst_FormWindow::unloadDuringARunWaitsForItsEnd()
{
    const QPointer<Form> form(new Form);
    form->show();
    {
        const FormWindow::RunScope run(form);
        QVERIFY(form->Unload());
        QVERIFY(form->IsUnloaded());
        QVERIFY(!form->isVisible());
        deleteWhatIsDue();
        QVERIFY(form);
    }
    QVERIFY(form);
    deleteWhatIsDue();
    QVERIFY(!form);
}

void tst_FormWindow::nestedRunsDeleteOnlyAtTheLastEnd()
{
    const QPointer<Form> form(new Form);
    {
        const FormWindow::RunScope outer(form);
        {
            const FormWindow::RunScope inner(form);
            form->Unload();
        }
        deleteWhatIsDue();
        QVERIFY(form);
    }
    deleteWhatIsDue();
    QVERIFY(!form);
}

void tst_FormWindow::endOfARunLeavesALoadedWindow()
{
    const auto form = std::make_unique<Form>();
    const QPointer<Form> watched(form.get());
    {
        const FormWindow::RunScope run(form.get());
    }
    deleteWhatIsDue();
    QVERIFY(watched);
}

void tst_FormWindow::unloadedAgainWhileItIsAsked()
{
    const QPointer<Form> form(new Form);
    QSignalSpy unloaded(form, &FormWindow::Unloaded);
    form->whileAsked = [&] {
        form->whileAsked = {};
        QVERIFY(form->Unload(UnloadMode::MdiParent));
    };
    QVERIFY(form->Unload());
    QCOMPARE(form->unloadings, 1);
    QCOMPARE(unloaded.count(), 1);
    deleteWhatIsDue();
    QVERIFY(!form);
}

void tst_FormWindow::deletedWhileItIsAsked()
{
    // The members of a window that is gone must not be read any more, its answer included.
    class Suicidal : public FormWindow
    {
    protected:
        bool QueryUnload(UnloadMode) override
        {
            delete this;
            return true;
        }
    };
    const QPointer<Suicidal> form(new Suicidal);
    QVERIFY(form->Unload());
    QVERIFY(!form);
}

void tst_FormWindow::unloadedTellsWhenTheWindowIsHiddenAlready()
{
    auto *form = new Form;
    form->show();
    bool hidden = false;
    connect(form, &FormWindow::Unloaded, this, [&] { hidden = !form->isVisible(); });
    form->Unload();
    QVERIFY(hidden);
    deleteWhatIsDue();
}

void tst_FormWindow::plainFormAllowsEverything()
{
    const QPointer<FormWindow> form(new FormWindow);
    QVERIFY(form->Unload(UnloadMode::TaskManager));
    deleteWhatIsDue();
    QVERIFY(!form);
}

HALVANE_TEST(tst_FormWindow)
#include "tst_FormWindow.moc"
