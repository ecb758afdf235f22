// What leaves the search form as it is: controls without work, and the program coming back from the
// task bar.

#include "searchentry/SearchFormUser.h"
#include "support/HalvaneTest.h"

#include <QAbstractButton>
#include <QApplication>
#include <QLineEdit>
#include <QShowEvent>
#include <QTest>

class tst_SearchFormQuiet : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init() { user = std::make_unique<SearchFormUser>(); }
    void cleanup();

    void thereAreControlsThatNobodySees_data();
    void thereAreControlsThatNobodySees();
    void aButtonWithoutWorkChangesNothing_data();
    void aButtonWithoutWorkChangesNothing();
    void backFromTheTaskBarTheFormIsAsItWas();

private:
    std::unique_ptr<SearchFormUser> user;
};

void tst_SearchFormQuiet::cleanup()
{
    const QString complaints = user->Complaints();
    user.reset();
    QCOMPARE(complaints, QString());
}

void tst_SearchFormQuiet::thereAreControlsThatNobodySees_data()
{
    QTest::addColumn<QByteArray>("name");
    QTest::addColumn<QByteArray>("kind");
    QTest::newRow("cmdSelectJurisdiction")
        << QByteArray("cmdSelectJurisdiction") << QByteArray("QPushButton");
    QTest::newRow("cboxTemplates") << QByteArray("cboxTemplates") << QByteArray("QComboBox");
    QTest::newRow("cboxNameCode") << QByteArray("cboxNameCode") << QByteArray("QComboBox");
    QTest::newRow("lblNameCode") << QByteArray("lblNameCode") << QByteArray("QLabel");
}

void tst_SearchFormQuiet::thereAreControlsThatNobodySees()
{
    QFETCH(QByteArray, name);
    QFETCH(QByteArray, kind);
    const auto *control = user->Find(name.constData());
    QVERIFY(control->inherits(kind.constData()));
    QVERIFY(!control->isVisible());
    user->Click("optCourtSelection_1");
    QVERIFY(!control->isVisible());
}

void tst_SearchFormQuiet::aButtonWithoutWorkChangesNothing_data()
{
    QTest::addColumn<QByteArray>("name");
    QTest::newRow("cmdSelectJurisdiction") << QByteArray("cmdSelectJurisdiction");
    QTest::newRow("cmdAddToProfiles") << QByteArray("cmdAddToProfiles");
}

void tst_SearchFormQuiet::aButtonWithoutWorkChangesNothing()
{
    QFETCH(QByteArray, name);
    user->Box(0)->setText(u"SMITH"_s);
    user->Click("optSearchWhere_1");
    const auto stateOfAll = [this] {
        QStringList all;
        const QList<QWidget *> widgets = user->Form->findChildren<QWidget *>();
        for (const QWidget *widget : widgets) {
            const auto *button = qobject_cast<const QAbstractButton *>(widget);
            all.append(widget->objectName() + u' '
                       + TextOf(user->Form, qPrintable(widget->objectName()))
                       + (widget->isVisible() ? u" seen"_s : QString())
                       + (widget->isEnabled() ? u" on"_s : QString())
                       + (button && button->isChecked() ? u" checked"_s : QString()));
        }
        return all + user->Items("lboxSearchProfiles") + user->Items("lboxCountyOrProfile");
    };
    const QByteArray file = user->Desk.Folder.Read(u"templates.ini"_s);
    auto *button = user->Button(name);
    button->setEnabled(true);
    const QStringList before = stateOfAll();
    const auto windows = QApplication::topLevelWidgets().size();
    button->click();
    QCOMPARE(stateOfAll(), before);
    QCOMPARE(QApplication::topLevelWidgets().size(), windows);
    QCOMPARE(user->Desk.Folder.Read(u"templates.ini"_s), file);
}

void tst_SearchFormQuiet::backFromTheTaskBarTheFormIsAsItWas()
{
    user->Box(0)->setText(u"SMITH"_s);
    QTest::keyClicks(user->Box(1), u"JOHN"_s);
    user->Box(1)->setFocus();
    user->Box(1)->setSelection(1, 2);
    // The window system says by these that the program was put away and has come back.
    QHideEvent away;
    QShowEvent back;
    QSpontaneKeyEvent::setSpontaneous(&away);
    QSpontaneKeyEvent::setSpontaneous(&back);
    qApp->notify(user->Form, &away);
    qApp->notify(user->Form, &back);
    QVERIFY(user->Box(1)->hasFocus());
    QCOMPARE(user->Box(1)->selectedText(), u"OH"_s);
    QVERIFY(!user->Box(0)->hasSelectedText());
    // Shown anew it begins at the top.
    user->Form->hide();
    user->Form->show();
    QCOMPARE(user->Form->focusWidget(), user->Box(0));
    QCOMPARE(user->Box(0)->selectedText(), u"SMITH"_s);
}

HALVANE_TEST(tst_SearchFormQuiet)
#include "tst_SearchFormQuiet.moc"
