#include "SessionFixture.h"

#include "controls/SaveDialog.h"
#include "core/GlobalState.h"
#include "core/TurnHold.h"
#include "prefs/frmOpts.h"
#include "session/SessionEvents.h"
#include "session/frmMain.h"
#include "support/HalvaneTest.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDir>
#include <QLabel>
#include <QLineEdit>
#include <QRadioButton>
#include <QSignalSpy>
#include <QTabWidget>

using namespace Qt::StringLiterals;

namespace {
const QString mine = u"; mine\r\n[Communications]\r\nHVServerIP1=a\r\nHVServerIP2=b\r\n"
                     "HVServerIP3=c\r\n[Searching]\r\nSearchTimeout=\"3\"\r\nMyKey=1\r\n"_s;

QByteArray optionsFile()
{
    return mine.toLatin1();
}

/// Changes a control as a user does who wants another value, and gives the value as it is kept.
QString change(QDialog *window, const OptionRow &row)
{
    const QByteArray name = row.Control.toString().toLatin1();
    if (row.Kind == OptionKind::Check) {
        auto *box = Child<QCheckBox>(window, name.constData());
        box->click();
        return box->isChecked() ? u"1"_s : u"0"_s;
    }
    if (row.Kind == OptionKind::List) {
        auto *list = Child<QComboBox>(window, name.constData());
        list->setCurrentIndex(list->currentIndex() == list->count() - 1 ? 0 : list->count() - 1);
        return list->currentText();
    }
    if (row.Kind == OptionKind::Buttons) {
        Child<QRadioButton>(window, "optDefaultState_4")->click();
        return u"ID"_s;
    }
    if (row.Kind == OptionKind::Folder) {
        ReplaceFolderDialog([](const QString &) { return QDir::tempPath(); });
        Click(window, "cmdChangeRptFolder");
        ReplaceFolderDialog({});
        return QDir::toNativeSeparators(QDir::tempPath());
    }
    if (row.Control == u"txtPrintName")
        Child<QCheckBox>(window, "chkPrintoutName")->setChecked(true);
    const QString text = row.Control == u"txtPort" ? u"85"_s : u"Smith & Jones"_s;
    TypeInto(window, name.constData(), text);
    return text;
}

} // namespace

class tst_frmOpts : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup();

    void theMenuAsksForIt();
    void whatItShows();
    void everyControlIsThere_data();
    void everyControlIsThere();
    void everyControlIsKept_data();
    void everyControlIsKept();
    void leftWithoutOk_data();
    void leftWithoutOk();
    void okTellsTheOtherWindows();
    void aBadPort_data();
    void aBadPort();
    void aPhraseThatCannotBeKept();
    void aPhraseOfTheFileIsLeftAlone_data();
    void aPhraseOfTheFileIsLeftAlone();
    void whatTheFileSaysMeanwhileStays();
    void aFileThatCannotBeWritten();
    void theAddressIsKeptAtTheClick();
    void noAddress();

private:
    /// Opens the options, lets `act` do what the user does, and leaves with this button.
    void use(const std::function<void(QDialog *)> &act, const char *button);
    QByteArray file() const { return session->folder.Read(u"options.ini"_s); }
    QString kept(const QString &section, const QString &key) const;

    std::unique_ptr<SessionFixture> session;
};

void tst_frmOpts::init()
{
    session = std::make_unique<SessionFixture>();
    session->folder.Write(u"options.ini"_s, optionsFile());
}

void tst_frmOpts::cleanup()
{
    ReplaceFolderDialog({});
    const QString complaints = session->boxes.Complaints();
    session.reset();
    QCOMPARE(complaints, QString());
}

void tst_frmOpts::use(const std::function<void(QDialog *)> &act, const char *button)
{
    bool shown = false;
    session->boxes.ExpectDialog(u"frmOpts"_s, [&](QDialog *window) {
        shown = true;
        // A question holds the turn.
        QVERIFY(TurnHold::IsHeld());
        act(window);
        Click(window, button);
    });
    frmOpts::ShowModal(nullptr);
    QVERIFY(shown);
}

QString tst_frmOpts::kept(const QString &section, const QString &key) const
{
    CSetting setting;
    setting.Init(u"options.ini"_s, true);
    return setting.GetSettingStr(section, key, u"(missing)"_s);
}

void tst_frmOpts::theMenuAsksForIt()
{
    const frmMain *main = session->ShowMain();
    const QSignalSpy wanted(&SessionEvents::Of(), &SessionEvents::OptionsWanted);
    Choose(main, "mnuViewOptions");
    QCOMPARE(wanted.count(), 1);
}

void tst_frmOpts::whatItShows()
{
    frmOpts window;
    window.setVisible(true);
    QCOMPARE(window.windowTitle(), u"Halvane Options/Preferences"_s);
    const auto *tabs = Child<QTabWidget>(&window, "SSTab1");
    QStringList captions;
    for (int i = 0; i < tabs->count(); ++i)
        captions.append(tabs->tabText(i).remove(u'&'));
    QCOMPARE(captions.join(u'|'), u"Case Details|Search|Session|Reports|Server"_s);
    QCOMPARE(TextOf(&window, "lblInactiveMins").remove(u'&'), u"Minutes (2-30):"_s);
    QCOMPARE(TextOf(&window, "lblInactiveDefault"), u"(Default = 4 minutes)"_s);
    QCOMPARE(TextOf(&window, "lblPortNote"), u"Server Port (80=default 85=Alternate)"_s);
    QCOMPARE(Child<QCheckBox>(&window, "chkEnableAcctg")->text().remove(u'&'),
             u"Enable Client ID Code"_s);
    QStringList messages;
    const auto *list = Child<QComboBox>(&window, "cboxMaxSearchingMsgs");
    for (int i = 0; i < list->count(); ++i)
        messages.append(list->itemText(i));
    QCOMPARE(messages.join(u' '), u"10 12 14 18 25"_s);
}

void tst_frmOpts::everyControlIsThere_data()
{
    QTest::addColumn<QString>("name");
    for (const OptionRow &row : OptionRows()) {
        if (row.Kind != OptionKind::Buttons)
            QTest::newRow(qPrintable(row.Control.toString())) << row.Control.toString();
    }
    for (const char *name :
         {"optDefaultState_0", "optDefaultState_1", "optDefaultState_2", "optDefaultState_4",
          "frameWaSup", "frameWaDiscis", "chkCaseDefault", "cmdChangeRptFolder", "Command1",
          "cmdSetDefaultTabs", "cmdRestDefaultTabsNCCV", "cmdResetOrDefaults",
          "cmdIdRestoreDefaultOpt", "cmdOK", "cmdCancel"})
        QTest::newRow(name) << QString::fromLatin1(name);
}

void tst_frmOpts::everyControlIsThere()
{
    QFETCH(QString, name);
    const frmOpts window;
    QVERIFY(window.findChild<QWidget *>(name));
}

void tst_frmOpts::everyControlIsKept_data()
{
    QTest::addColumn<QString>("control");
    for (const OptionRow &row : OptionRows()) {
        if (row.Save == OptionSave::WithOk)
            QTest::newRow(qPrintable(row.Control.toString())) << row.Control.toString();
    }
}

/// Changed, and kept with OK: the file has it, and the window shows it when it comes again.
void tst_frmOpts::everyControlIsKept()
{
    QFETCH(QString, control);
    const OptionRow &row = OptionRowOf(control);
    QString wanted;
    use([&](QDialog *window) { wanted = change(window, row); }, "cmdOK");
    QCOMPARE(kept(row.SavedSection.isEmpty() ? OptionSection(row) : row.SavedSection.toString(),
                  OptionKey(row)),
             wanted);
    QString shown;
    use([&](QDialog *window) { shown = qobject_cast<frmOpts *>(window)->Values()[control]; },
        "cmdCancel");
    // What non-civil cases fetch is not read where it is kept.
    QCOMPARE(shown, row.Group == OptionGroup::NonCivil ? u"0"_s : wanted);
    QVERIFY(file().startsWith("; mine\r\n"));
    QVERIFY(file().contains("MyKey=1\r\n"));
}

void tst_frmOpts::leftWithoutOk_data()
{
    QTest::addColumn<bool>("byKey");
    QTest::newRow("Cancel") << false;
    QTest::newRow("Esc") << true;
}

void tst_frmOpts::leftWithoutOk()
{
    QFETCH(bool, byKey);
    const QSignalSpy saved(&OptionsEvents::Of(), &OptionsEvents::Saved);
    const auto before = Global.intSearchTimeout;
    session->boxes.ExpectDialog(u"frmOpts"_s, [byKey](QDialog *window) {
        for (const OptionRow &row : OptionRows()) {
            if (row.Save == OptionSave::WithOk)
                change(window, row);
        }
        if (byKey)
            QTest::keyClick(window, Qt::Key_Escape);
        else
            Click(window, "cmdCancel");
    });
    frmOpts::ShowModal(nullptr);
    QVERIFY(!Shown(u"frmOpts"_s));
    QCOMPARE(file(), optionsFile());
    QCOMPARE(Global.intSearchTimeout, before);
    QCOMPARE(saved.count(), 0);
}

void tst_frmOpts::okTellsTheOtherWindows()
{
    bool inForce = false;
    QObject context;
    connect(&OptionsEvents::Of(), &OptionsEvents::Saved, &context,
            [&] { inForce = Global.bEnableAcctg; });
    use([](QDialog *window) { Child<QCheckBox>(window, "chkEnableAcctg")->click(); }, "cmdOK");
    QVERIFY(inForce);
}

void tst_frmOpts::aBadPort_data()
{
    QTest::addColumn<QString>("port");
    for (const QString &port : {u""_s, u"0"_s, u"http"_s, u"65536"_s, u"-80"_s})
        QTest::newRow(port.isEmpty() ? "empty" : qPrintable(port)) << port;
}

void tst_frmOpts::aBadPort()
{
    QFETCH(QString, port);
    frmOpts window;
    window.setVisible(true);
    TypeInto(&window, "txtPort", port);
    session->boxes.Expect(u"Invalid Port Selection - Port changed to Default Setting! Check "
                          "setting before continuing.."_s,
                          u"Halvane - Invalid Port Selection"_s, MsgIcon::Critical);
    Click(&window, "cmdOK");
    QVERIFY(window.isVisible());
    QCOMPARE(TextOf(&window, "txtPort"), u"80"_s);
    QVERIFY(Child<QLineEdit>(&window, "txtPort")->isVisible());
    QCOMPARE(window.focusWidget(), Child<QWidget>(&window, "txtPort"));
    QCOMPARE(file(), optionsFile());
    Click(&window, "cmdOK");
    QVERIFY(!window.isVisible());
    QCOMPARE(kept(u"Communications"_s, u"HVServerPort"_s), u"80"_s);
}

void tst_frmOpts::aPhraseThatCannotBeKept()
{
    frmOpts window;
    window.setVisible(true);
    Child<QCheckBox>(&window, "chkPrintoutName")->click();
    Child<QLineEdit>(&window, "txtPrintName")->setText(u"Łódź"_s);
    session->boxes.Expect(u"The name or phrase cannot be kept. The settings file has no letter "
                          "for Ł ź. Please change it."_s,
                          u"Halvane Options/Preferences"_s, MsgIcon::Exclamation);
    Click(&window, "cmdOK");
    QVERIFY(window.isVisible());
    QCOMPARE(window.focusWidget(), Child<QWidget>(&window, "txtPrintName"));
    QCOMPARE(TextOf(&window, "txtPrintName"), u"Łódź"_s);
    QCOMPARE(file(), optionsFile());
}

void tst_frmOpts::aPhraseOfTheFileIsLeftAlone_data()
{
    QTest::addColumn<QByteArray>("phrase");
    QTest::newRow("of 300 letters") << QByteArray(300, 'p');
    QTest::newRow("with a tab in it") << QByteArray("Smith\tJones");
}

/// What the user has not touched is not looked at, nor cut.
void tst_frmOpts::aPhraseOfTheFileIsLeftAlone()
{
    QFETCH(QByteArray, phrase);
    const QByteArray line = "PrintHdrVal=" + phrase + "\r\n";
    session->folder.Write(u"options.ini"_s, optionsFile() + "PrintHdr=1\r\n" + line);
    use([](QDialog *) {}, "cmdOK");
    QVERIFY(file().contains(line));
}

void tst_frmOpts::whatTheFileSaysMeanwhileStays()
{
    use(
        [this](QDialog *window) {
            Child<QComboBox>(window, "cboxSearchTimeout")->setCurrentText(u"5"_s);
            session->folder.Write(u"options.ini"_s,
                                  optionsFile().replace("[Searching]", "HVServerPort=85\r\n"
                                                                       "[Searching]"));
        },
        "cmdOK");
    QCOMPARE(kept(u"Communications"_s, u"HVServerPort"_s), u"85"_s);
    QCOMPARE(kept(u"Searching"_s, u"SearchTimeout"_s), u"5"_s);
}

void tst_frmOpts::aFileThatCannotBeWritten()
{
    const OptionValues values = LoadOpts();
    session->folder.Remove(u"options.ini"_s);
    QVERIFY(QDir().mkpath(session->folder.Path(u"options.ini"_s)));
    frmOpts window(nullptr, values);
    window.setVisible(true);
    Child<QComboBox>(&window, "cboxSearchTimeout")->setCurrentText(u"5"_s);
    session->boxes.Expect(
        u"The options could not be written to options.ini, and are not kept. Some "
        "of them are in use until you leave Halvane."_s,
        u"Halvane Options/Preferences"_s, MsgIcon::Exclamation);
    Click(&window, "cmdOK");
    QVERIFY(!window.isVisible());
    QCOMPARE(Global.intSearchTimeout, 5);
}

void tst_frmOpts::theAddressIsKeptAtTheClick()
{
    QString before;
    use(
        [&](QDialog *window) {
            auto *list = Child<QComboBox>(window, "cboxHvServerIPs");
            before = list->currentText();
            list->setFocus();
            QTest::keyClick(list, Qt::Key_Down);
            QCOMPARE(kept(u"Communications"_s, u"DefaultIP"_s), u"b"_s);
        },
        "cmdCancel");
    QCOMPARE(before, u"a"_s);
    QString after;
    use(
        [&](QDialog *window) {
            after = Child<QComboBox>(window, "cboxHvServerIPs")->currentText();
        },
        "cmdCancel");
    QCOMPARE(after, u"b"_s);
    // Only the choice itself writes it.
    QCOMPARE(file(),
             QByteArray(optionsFile()).replace("[Searching]", "DefaultIP=b\r\n[Searching]"));
}

void tst_frmOpts::noAddress()
{
    session->folder.Write(u"options.ini"_s, "[Communications]\r\nHVServerIP2=b\r\n");
    session->boxes.Expect(u"An IP Address for the Halvane Server was not found in the Options.Ini "
                          "configuration file. Please contact Halvane to Correct this."_s,
                          u"Error Reading Configuration File .."_s, MsgIcon::Exclamation);
    QStringList listed;
    use(
        [&](QDialog *window) {
            const auto *list = Child<QComboBox>(window, "cboxHvServerIPs");
            for (int i = 0; i < list->count(); ++i)
                listed.append(list->itemText(i));
        },
        "cmdOK");
    QCOMPARE(listed, (QStringList{u"192.0.2.1"_s, u"192.0.2.2"_s}));
    QVERIFY(!file().contains("192.0.2"));
}

HALVANE_TEST(tst_frmOpts)
#include "tst_frmOpts.moc"
