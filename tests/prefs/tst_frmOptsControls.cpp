#include "SessionFixture.h"

#include "controls/SaveDialog.h"
#include "core/CSetting.h"
#include "core/GlobalState.h"
#include "core/TurnHold.h"
#include "link/frmWinsock.h"
#include "prefs/frmOpts.h"
#include "support/HalvaneTest.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDir>
#include <QFileDialog>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QRegularExpression>
#include <QScrollArea>
#include <QScrollBar>
#include <QSignalSpy>
#include <QTabWidget>
#include <QToolButton>

using namespace Qt::StringLiterals;

namespace {
const QByteArray addressOnly = "[Communications]\r\nHVServerIP1=a\r\n[Searching]\r\n";

/// The letter of a mnemonic, "" without one.
QString mnemonicOf(const QString &text)
{
    static const QRegularExpression letter(u"(?<!&)&([^&])"_s);
    return letter.match(text).captured(1).toUpper();
}
} // namespace

/// What the controls of the options do by themselves, and whether everybody can use them.
class tst_frmOptsControls : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup();

    void theFolder_data();
    void theFolder();
    void theFolderDialog_data();
    void theFolderDialog();
    void theFolderDialogOnAFolderThatIsGone();
    void theStandardFolder();
    void thePhraseNeedsItsBox();
    void restoreButtons_data();
    void restoreButtons();
    void onlyTheSummary();
    void aValueOfTheFileJoinsItsList();
    void idleMinutes_data();
    void idleMinutes();
    void theIdleMinutesAreShown();
    void imageCounties();
    void aPracticeSessionHasItsServer();
    void theHistoryIsClearedAfterAQuestion_data();
    void theHistoryIsClearedAfterAQuestion();
    void mnemonicsDoNotClash();
    void everyControlSaysWhatItDoes();
    void noPageIsCut();

private:
    QByteArray file() const { return session->folder.Read(u"options.ini"_s); }
    QString kept(const QString &section, const QString &key) const;

    std::unique_ptr<SessionFixture> session;
};

void tst_frmOptsControls::init()
{
    session = std::make_unique<SessionFixture>();
    session->folder.Write(u"options.ini"_s, addressOnly);
}

void tst_frmOptsControls::cleanup()
{
    ReplaceFolderDialog({});
    const QString complaints = session->boxes.Complaints();
    session.reset();
    QCOMPARE(complaints, QString());
}

QString tst_frmOptsControls::kept(const QString &section, const QString &key) const
{
    CSetting setting;
    setting.Init(u"options.ini"_s, true);
    return setting.GetSettingStr(section, key, u"(missing)"_s);
}

void tst_frmOptsControls::theFolder_data()
{
    QTest::addColumn<QString>("chosen");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("title");
    QTest::newRow("a folder") << QDir::tempPath() << QString() << QString();
    QTest::newRow("none") << QString() << u"No Report Folder was Selected. No change was made."_s
                          << u"Report Folder Not Selected.."_s;
    QTest::newRow("one that is not there")
        << u"/no/such/folder"_s << u"Invalid Folder Selection. Restoring to default setting."_s
        << u"Halvane"_s;
    QTest::newRow("one whose letters the file lacks")
        << u"Łódź"_s
        << u"The name of this folder cannot be kept. The settings file has no letter for Ł ź. "
           u"Please "
           "choose a folder with another name. No change was made."_s
        << u"Report Folder Not Selected.."_s;
    QTest::newRow("one with a blank at its end")
        << u"reports "_s
        << u"The name of this folder cannot be kept. The settings file keeps no blank at an end, "
           u"and "
           "no line end. Please choose a folder with another name. No change was made."_s
        << u"Report Folder Not Selected.."_s;
}

void tst_frmOptsControls::theFolder()
{
    QFETCH(QString, chosen);
    QFETCH(QString, text);
    QFETCH(QString, title);
    const bool inFolder = !chosen.isEmpty() && !chosen.startsWith(u'/');
    const QString folder = inFolder ? session->folder.Path(chosen) : chosen;
    if (inFolder)
        QVERIFY(QDir().mkpath(folder));
    QString suggested;
    ReplaceFolderDialog([&](const QString &path) {
        suggested = path;
        return folder;
    });
    const QString standard = StandardReportFolder();
    frmOpts window;
    window.setVisible(true);
    if (!text.isEmpty())
        session->boxes.Expect(text, title,
                              chosen.isEmpty() ? MsgIcon::Information : MsgIcon::Exclamation);
    Click(&window, "cmdChangeRptFolder");
    QCOMPARE(TextOf(&window, "Text1"),
             text.isEmpty() ? QDir::toNativeSeparators(folder) : standard);
    Click(&window, "cmdOK");
    QCOMPARE(QDir::toNativeSeparators(suggested), standard);
    QCOMPARE(Global.strReportFolder,
             QDir::fromNativeSeparators(text.isEmpty() ? folder : standard));
}

void tst_frmOptsControls::theFolderDialog_data()
{
    QTest::addColumn<bool>("accepted");
    QTest::newRow("chosen") << true;
    QTest::newRow("left") << false;
}

/// The dialog itself.
void tst_frmOptsControls::theFolderDialog()
{
    QFETCH(bool, accepted);
    const QString folder = session->folder.Path(u"Mine"_s);
    QVERIFY(QDir().mkpath(folder));
    frmOpts window;
    window.setVisible(true);
    if (!accepted)
        session->boxes.Expect(u"No Report Folder was Selected. No change was made."_s,
                              u"Report Folder Not Selected.."_s);
    Click(&window, "cmdChangeRptFolder");
    auto *dialog = Child<QFileDialog>(&window, "FolderDialog");
    QCOMPARE(dialog->windowTitle(), u"Select Directory"_s);
    QVERIFY(dialog->isModal());
    QVERIFY(TurnHold::IsHeld());
    dialog->selectFile(folder);
    QDialog *shown = dialog;
    accepted ? shown->accept() : shown->reject();
    QVERIFY(WaitUntil([&] { return !window.findChild<QFileDialog *>(); }));
    QCOMPARE(TextOf(&window, "Text1"),
             accepted ? QDir::toNativeSeparators(folder) : StandardReportFolder());
    QVERIFY(!TurnHold::IsHeld());
}

/// The options say so, and not the dialog in words of its own.
void tst_frmOptsControls::theFolderDialogOnAFolderThatIsGone()
{
    frmOpts window;
    window.setVisible(true);
    session->boxes.Expect(u"Invalid Folder Selection. Restoring to default setting."_s,
                          u"Halvane"_s, MsgIcon::Exclamation);
    Click(&window, "cmdChangeRptFolder");
    QDialog *dialog = Child<QFileDialog>(&window, "FolderDialog");
    TypeInto(dialog, "fileNameEdit", session->folder.Path(u"gone"_s));
    dialog->accept();
    QVERIFY(WaitUntil([&] { return session->boxes.Answered() == 1; }));
    QCOMPARE(TextOf(&window, "Text1"), StandardReportFolder());
}

void tst_frmOptsControls::theStandardFolder()
{
    session->folder.Write(u"options.ini"_s,
                          addressOnly + "ReportFolder=" + QDir::tempPath().toLatin1() + "\r\n");
    const frmOpts window;
    QCOMPARE(TextOf(&window, "Text1"), QDir::toNativeSeparators(QDir::tempPath()));
    Click(&window, "Command1");
    QCOMPARE(TextOf(&window, "Text1"), StandardReportFolder());
    Click(&window, "cmdOK");
    QCOMPARE(kept(u"Searching"_s, u"ReportFolder"_s), StandardReportFolder());
    QCOMPARE(Global.strReportFolder, session->folder.Path(u"Reports"_s));
}

void tst_frmOptsControls::thePhraseNeedsItsBox()
{
    const frmOpts window;
    auto *box = Child<QCheckBox>(&window, "chkPrintoutName");
    const auto *phrase = Child<QLineEdit>(&window, "txtPrintName");
    QVERIFY(!phrase->isEnabled());
    box->click();
    QVERIFY(phrase->isEnabled());
    box->click();
    QVERIFY(!phrase->isEnabled());
    session->folder.Write(u"options.ini"_s, "[Searching]\r\nPrintHdr=1\r\n");
    const frmOpts another;
    QVERIFY(Child<QLineEdit>(&another, "txtPrintName")->isEnabled());
}

void tst_frmOptsControls::restoreButtons_data()
{
    QTest::addColumn<QString>("button");
    QTest::addColumn<QList<int>>("groups");
    const auto number = [](OptionGroup group) { return static_cast<int>(group); };
    QTest::newRow("Superior") << u"cmdSetDefaultTabs"_s
                              << QList<int>{number(OptionGroup::Superior)};
    QTest::newRow("District") << u"cmdRestDefaultTabsNCCV"_s
                              << QList<int>{number(OptionGroup::Civil),
                                            number(OptionGroup::NonCivil)};
    QTest::newRow("Oregon") << u"cmdResetOrDefaults"_s << QList<int>{number(OptionGroup::Oregon)};
    QTest::newRow("Idaho") << u"cmdIdRestoreDefaultOpt"_s << QList<int>{number(OptionGroup::Idaho)};
}

/// A button puts its own group back and no other.
void tst_frmOptsControls::restoreButtons()
{
    QFETCH(QString, button);
    QFETCH(QList<int>, groups);
    frmOpts window;
    for (const OptionRow &row : OptionRows()) {
        if (row.Group != OptionGroup::None)
            window.findChild<QCheckBox *>(row.Control.toString())->setChecked(true);
    }
    QCOMPARE(ButtonOf(&window, button.toLatin1().constData())->text(), u"Restore Defaults"_s);
    Click(&window, button.toLatin1().constData());
    const OptionValues values = window.Values();
    for (const OptionRow &row : OptionRows()) {
        if (row.Group != OptionGroup::None)
            QCOMPARE(values[row.Control],
                     groups.contains(static_cast<int>(row.Group)) ? u"0"_s : u"1"_s);
    }
    QCOMPARE(file(), addressOnly);
}

/// One box takes all ticks away, and gives them back.
void tst_frmOptsControls::onlyTheSummary()
{
    session->folder.Write(u"options.ini"_s,
                          addressOnly
                              + "[CaseSearchTabs]\r\nNames=1\r\n[IdCaseSearchTabs]\r\n"
                                "Docket=1\r\n");
    const frmOpts window;
    auto *all = Child<QCheckBox>(&window, "chkCaseDefault");
    const auto *names = Child<QCheckBox>(&window, "chkSearchCaseTabs_0");
    auto *docket = Child<QCheckBox>(&window, "chkIdaho_1");
    QVERIFY(!all->isChecked());
    docket->click();
    all->click();
    QVERIFY(all->isChecked());
    QVERIFY(!names->isChecked());
    all->click();
    QVERIFY(!all->isChecked());
    QVERIFY(names->isChecked());
    QVERIFY(!docket->isChecked());
    // What the other way to the defaults took is given back, too.
    auto *charges = Child<QCheckBox>(&window, "chkSearchCaseTabs_3");
    charges->click();
    Click(&window, "cmdSetDefaultTabs");
    QVERIFY(all->isChecked());
    all->click();
    QVERIFY(names->isChecked());
    QVERIFY(charges->isChecked());
    QVERIFY(!docket->isChecked());
    Click(&window, "cmdSetDefaultTabs");
    QVERIFY(all->isChecked());
    docket->click();
    QVERIFY(!all->isChecked());
}

void tst_frmOptsControls::aValueOfTheFileJoinsItsList()
{
    session->folder.Write(u"options.ini"_s, addressOnly + "SearchingMsgs=15\r\n");
    const frmOpts window;
    QCOMPARE(Child<QComboBox>(&window, "cboxMaxSearchingMsgs")->currentText(), u"15"_s);
    Click(&window, "cmdOK");
    QCOMPARE(kept(u"Searching"_s, u"SearchingMsgs"_s), u"15"_s);
}

void tst_frmOptsControls::idleMinutes_data()
{
    QTest::addColumn<QString>("setting");
    constexpr int longest = 31;
    for (int minutes = 0; minutes <= longest; ++minutes)
        QTest::addRow("%d", minutes) << QString::number(minutes);
}

/// What is said of a setting is what the count of idle minutes does with it.
void tst_frmOptsControls::idleMinutes()
{
    QFETCH(QString, setting);
    session->folder.Write(u"options.ini"_s,
                          "[General]\r\nInactivityTimeOut=" + setting.toLatin1() + "\r\n");
    frmWinsock &link = frmWinsock::Form();
    const QSignalSpy reached(&LinkEvents::Of(), &LinkEvents::IdleLimitReached);
    int ticks = 0;
    link.TmrInactivity->setInterval(0);
    const QObject context;
    connect(link.TmrInactivity, &QTimer::timeout, &context, [&ticks] { ++ticks; });
    link.TmrInactivity->start();
    QVERIFY(WaitUntil([&reached] { return reached.count() == 1; }));
    QCOMPARE(IdleMinutes(setting), ticks);
}

void tst_frmOptsControls::theIdleMinutesAreShown()
{
    const frmOpts window;
    auto *list = Child<QComboBox>(&window, "cboxInactiveMins");
    QCOMPARE(list->count(), 29);
    QCOMPARE(list->currentText(), u"3"_s);
    QCOMPARE(TextOf(&window, "lblIdleMinutes"),
             u"The end of the session is announced after 4 minutes without use."_s);
    list->setCurrentText(u"5"_s);
    QCOMPARE(TextOf(&window, "lblIdleMinutes"),
             u"The end of the session is announced after 6 minutes without use."_s);
}

void tst_frmOptsControls::imageCounties()
{
    const frmOpts window;
    QCOMPARE(TextOf(&window, "lblImageCounties"), u"(not set)"_s);
    session->folder.Write(u"options.ini"_s, addressOnly + "[Images]\r\nCounties=<b>King\r\n");
    const frmOpts another;
    QCOMPARE(TextOf(&another, "lblImageCounties"), u"<b>King"_s);
    Click(&another, "cmdOK");
    QCOMPARE(kept(u"Images"_s, u"Counties"_s), u"<b>King"_s);
}

void tst_frmOptsControls::aPracticeSessionHasItsServer()
{
    HoldSetting(Setting::ServerIP1, u"127.0.0.1"_s);
    HoldSetting(Setting::ServerPort, u"4711"_s);
    const frmOpts window;
    QVERIFY(!Child<QGroupBox>(&window, "frameServer")->isEnabled());
    QCOMPARE(TextOf(&window, "txtPort"), u"4711"_s);
    QCOMPARE(Child<QComboBox>(&window, "cboxHvServerIPs")->itemText(0), u"127.0.0.1"_s);
}

void tst_frmOptsControls::theHistoryIsClearedAfterAQuestion_data()
{
    QTest::addColumn<MsgAnswer>("answer");
    QTest::addColumn<int>("wanted");
    QTest::newRow("yes") << MsgAnswer::Yes << 1;
    QTest::newRow("no") << MsgAnswer::No << 0;
}

void tst_frmOptsControls::theHistoryIsClearedAfterAQuestion()
{
    QFETCH(const MsgAnswer, answer);
    QFETCH(const int, wanted);
    const QSignalSpy clear(&OptionsEvents::Of(), &OptionsEvents::ClearHistoryWanted);
    frmOpts window;
    window.setVisible(true);
    session->boxes.Expect(u"Forget all searches, cases and documents of the history, and the usage "
                          "by client code? This cannot be undone."_s,
                          u"Clear the History"_s, MsgIcon::Question, answer);
    Click(&window, "cmdClearHistory");
    QCOMPARE(session->boxes.Answered(), 1);
    QCOMPARE(clear.count(), wanted);
    QVERIFY(window.isVisible());
}

/// The letters of the captions, of a page and of what always stands beside it.
void tst_frmOptsControls::mnemonicsDoNotClash()
{
    frmOpts window;
    window.setVisible(true);
    auto *tabs = Child<QTabWidget>(&window, "SSTab1");
    QStringList always;
    for (int i = 0; i < tabs->count(); ++i)
        always.append(mnemonicOf(tabs->tabText(i)));
    for (int i = 0; i < tabs->count(); ++i) {
        QStringList letters = always;
        const QList<QWidget *> widgets = tabs->widget(i)->findChildren<QWidget *>();
        for (const QWidget *widget : widgets) {
            const QString letter = mnemonicOf(widget->property("text").toString()
                                              + widget->property("title").toString());
            if (!letter.isEmpty())
                letters.append(letter);
        }
        QVERIFY(letters.size() > always.size());
        QStringList once = letters;
        once.removeDuplicates();
        QCOMPARE(once, letters);
    }
}

/// One sentence for everything that can be set, and a name that a screen reader can say.
void tst_frmOptsControls::everyControlSaysWhatItDoes()
{
    const frmOpts window;
    const QList<QWidget *> widgets = window.findChildren<QWidget *>();
    int said = 0;
    for (const QWidget *widget : widgets) {
        if (!(widget->focusPolicy() & Qt::TabFocus) || qobject_cast<const QToolButton *>(widget)
            || widget->objectName().isEmpty() || widget->objectName() == u"SSTab1"
            || widget->objectName().startsWith(u"qt_"))
            continue;
        ++said;
        const QString name = widget->objectName() + u": "_s + widget->toolTip();
        QVERIFY2(widget->toolTip().endsWith(u'.'), qPrintable(name));
        QVERIFY2(!widget->toolTip().contains(u". "_s), qPrintable(name));
        constexpr int shortest = 20;
        QVERIFY2(widget->toolTip().size() > shortest, qPrintable(name));
    }
    constexpr int controls = 50;
    QVERIFY(said >= controls);
}

void tst_frmOptsControls::noPageIsCut()
{
    frmOpts window;
    window.setVisible(true);
    auto *tabs = Child<QTabWidget>(&window, "SSTab1");
    for (int i = 0; i < tabs->count(); ++i) {
        tabs->setCurrentIndex(i);
        Settle();
        const auto *area = tabs->widget(i)->findChild<QScrollArea *>();
        QVERIFY(area);
        QCOMPARE(area->horizontalScrollBar()->maximum(), 0);
        QCOMPARE(area->verticalScrollBar()->maximum(), 0);
    }
}

HALVANE_TEST(tst_frmOptsControls)
#include "tst_frmOptsControls.moc"
