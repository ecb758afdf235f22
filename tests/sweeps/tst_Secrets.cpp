// A day's use with a known password and a known social security number: afterwards nobody but the
// owner can read what the program has written, neither secret is in a file that has no use for it,
// and no other program was given of them.

#include "casedetails/CaseWindow.h"
#include "controls/SaveDialog.h"
#include "core/AppFolder.h"
#include "core/EndProgram.h"
#include "core/GlobalState.h"
#include "core/Options.h"
#include "core/UserStore.h"
#include "history/HistoryStore.h"
#include "link/ConnectState.h"
#include "link/frmWinsock.h"
#include "namesearch/NameResultsWindow.h"
#include "reports/NotingViewer.h"
#include "searchentry/EntryDesk.h"
#include "session/frmLogin.h"
#include "support/HalvaneTest.h"
#include "support/MailProgram.h"
#include "support/Ticks.h"
#include "sweeps/FolderWatch.h"
#include "sweeps/LyingCourt.h"
#include "tables/ResultListView.h"
#include "tables/TableTools.h"

#include <QApplication>
#include <QCheckBox>
#include <QClipboard>
#include <QDir>
#include <QFileInfo>
#include <QLineEdit>
#include <QProcess>
#include <QRegularExpression>
#include <QTest>

#include <sys/stat.h>

namespace {
const QString password = u"Tr0ub4dor-Zq"_s;
const QString ssn = u"900-00-0001"_s;
constexpr int mostMilliseconds = 10'000;

/// Where a secret may stand: the password in the log and, as the user wants it remembered, in the
/// settings; the number in what is there to remember searches, and in what the user saves.
struct Holder
{
    const char16_t *files; ///< a pattern of paths in the application folder
    bool password;
    bool number;
};
constexpr std::array<Holder, 6> holders{{
    {u"^AppInfo\\.(txt|bak)$", true, true},
    {u"^options\\.ini$", true, false},
    {u"^MruIName\\.txt$", false, true},
    {u"^history\\.db(-wal|-shm)?$", false, true},
    {u"^Reports/[^/]+$", false, true},
    {u"^called/[^/]+$", false, false},
}};

/// The ways in which a secret is written.
QByteArrayList formsOf(const QString &secret)
{
    const QString bare = QString(secret).remove(u'-');
    return {secret.toLatin1(), bare.toLatin1(), EncodeCredential(secret).toLatin1(),
            QByteArray(reinterpret_cast<const char *>(secret.utf16()), secret.size() * 2)};
}

bool holds(const QByteArray &content, const QString &secret)
{
    const QByteArrayList forms = formsOf(secret);
    return std::any_of(forms.begin(), forms.end(),
                       [&](const QByteArray &form) { return content.contains(form); });
}

bool mayHold(const QString &file, bool Holder::*secret)
{
    return std::any_of(holders.begin(), holders.end(), [&](const Holder &holder) {
        return holder.*secret
               && QRegularExpression(QString::fromUtf16(holder.files)).match(file).hasMatch();
    });
}

QByteArray &messages()
{
    static QByteArray said;
    return said;
}

void noteMessage(QtMsgType, const QMessageLogContext &, const QString &text)
{
    messages().append(text.toUtf8()).append('\n');
}
} // namespace

class tst_Secrets : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup();
    void aDayKeepsItsSecrets();

private:
    void logIn();
    void tryToCopyThePassword(const QWidget *login);
    void searchForTheNumber();
    void mailAReport();
    void checkFiles(const QString &around) const;
    void checkChildren() const;
    /// Puts programs of the test's in the place of those of the desktop, which note what they are
    /// given.
    void replaceDesktop();
    bool finish(const JobWindow *window)
    {
        return LinkDesk::WaitUntil(
            [window] { return !Global.bSearchInProgress && !window->Timer1->isActive(); });
    }
    QString path(const QString &name) const { return user->Desk.Folder.Path(name); }

    std::unique_ptr<EntryDesk> user;
    std::unique_ptr<MailProgram> mail;
    QByteArray temporaryBefore;
    mode_t maskBefore = 0;
};

void tst_Secrets::init()
{
    // Whatever relies on what the shell grants is seen.
    maskBefore = ::umask(0);
    user = std::make_unique<EntryDesk>();
    LoadAppOptions();
    // As those of an older version were.
    for (const QString &name : {u"options.ini"_s, u"MruIName.txt"_s, u"templates.ini"_s})
        QFile::setPermissions(path(name), QFileDevice::Permissions(0x6666));
    QVERIFY(KeepFilesForOwner() > 0);
    QVERIFY(QDir().mkdir(path(u"temporary"_s)));
    temporaryBefore = qgetenv("TMPDIR");
    qputenv("TMPDIR", QFile::encodeName(path(u"temporary"_s)));
    replaceDesktop();
    messages().clear();
    qInstallMessageHandler(&noteMessage);
    QApplication::clipboard()->setText(u"mine"_s);
}

void tst_Secrets::cleanup()
{
    qInstallMessageHandler(nullptr);
    HistoryStore::Of().Close();
    ReplaceSaveDialog({});
    mail.reset();
    qputenv("TMPDIR", temporaryBefore);
    const QString complaints = user->Complaints();
    user.reset();
    ::umask(maskBefore);
    QCOMPARE(complaints, QString());
}

void tst_Secrets::replaceDesktop()
{
    QVERIFY(QDir().mkdir(path(u"called"_s)));
    const QString note = path(u"called/environment"_s);
    mail = std::make_unique<MailProgram>(
        user->Desk.Folder.Path(), u"umask 077\ntr '\\0' '\\n' < /proc/$$/environ > '"_s + note
                                      + u".new'\n"
                                        "tr '\\0' '\\n' < /proc/$$/cmdline >> '"_s
                                      + note
                                      + u".new'\n"
                                        "mv '"_s
                                      + note + u".new' '"_s + note + u"'\n"_s);
}

void tst_Secrets::logIn()
{
    LyingCourt::Install(Lie());
    Global.bLoggedIn = false;
    frmLogin::ShowForm(nullptr);
    const QPointer<QWidget> login(Shown(u"frmLogin"_s));
    QVERIFY(login);
    login->findChild<QTimer *>(u"tmrUI"_s)->setInterval(1);
    QVERIFY(LinkDesk::WaitUntil([&] { return ButtonOf(login, "cmdLogin")->isEnabled(); }));
    TypeInto(login, "txtUsername", u"quiet"_s);
    TypeInto(login, "txtPassword", password);
    Child<QCheckBox>(login, "Check1")->setChecked(true);
    tryToCopyThePassword(login);
    TypeInto(login, "txtPassword", password);
    Click(login, "cmdLogin");
    QVERIFY(LinkDesk::WaitUntil([] { return !frmLogin::IsLoaded(); }));
    QVERIFY(Global.bLoggedIn);
}

/// By the keys, and by selecting, which is a copy of its own on some desktops.
void tst_Secrets::tryToCopyThePassword(const QWidget *login)
{
    auto *field = Child<QLineEdit>(login, "txtPassword");
    field->setFocus();
    field->selectAll();
    field->copy();
    for (const auto key : {QKeySequence::Copy, QKeySequence::Cut})
        QTest::keySequence(field, key);
    QCOMPARE(QApplication::clipboard()->text(), u"mine"_s);
    if (QApplication::clipboard()->supportsSelection())
        QVERIFY(
            !holds(QApplication::clipboard()->text(QClipboard::Selection).toLatin1(), password));
}

void tst_Secrets::searchForTheNumber()
{
    user->Do({u"click optState_2"_s, u"click chkBKcourt_2"_s, u"click optSearchType_4"_s,
              u"type txtSearchName_0 "_s + ssn});
    auto *window = user->StartOne<NameResultsWindow>();
    QVERIFY(window);
    window->Timer1->start(1);
    QVERIFY(finish(window));
    QCOMPARE(window->RowCount(), 1);
    window->PrintToFile(path(u"Reports/report.txt"_s));
    ReplaceSaveDialog([this](const QString &) { return path(u"Reports/table.csv"_s); });
    ListOf(window)->Tools()->ExportCsv();
    QVERIFY(LinkDesk::WaitUntil([this] { return QFile::exists(path(u"Reports/table.csv"_s)); }));
    QVERIFY(holds(WholeFile(path(u"Reports/report.txt"_s)), ssn));
}

void tst_Secrets::mailAReport()
{
    user->Do({u"click optState_1"_s, u"click optCourtSelection_1"_s, u"click optSearchType_0"_s});
    user->Do(smithJohnQ);
    user->Do({u"choose cboxCountyList King"_s, u"click cmdClearCourtList"_s,
              u"tick lboxDiscisCourtNames King District Seattle (KSD)"_s});
    auto *window = user->StartOne<NameResultsWindow>();
    QVERIFY(window);
    window->Timer1->start(1);
    QVERIFY(finish(window));
    Click(window, "cmdEmail");
    QVERIFY(LinkDesk::WaitUntil([this] { return QFile::exists(path(u"called/environment"_s)); }));
    QVERIFY(LinkDesk::WaitUntil([] { return !qApp->findChild<QProcess *>(); }));
    const QFileInfo copy(mail->Arguments().value(6));
    QVERIFY2(copy.exists(), qPrintable(copy.filePath()));
    QVERIFY(copy.filePath().startsWith(path(u"temporary"_s)));
    checkFiles(path(u"temporary"_s));
}

void tst_Secrets::checkFiles(const QString &around) const
{
    constexpr QFile::Permissions others = QFile::ReadGroup | QFile::WriteGroup | QFile::ExeGroup
                                          | QFile::ReadOther | QFile::WriteOther | QFile::ExeOther;
    // What the program neither writes nor reads again: the data that the test put there.
    static const QRegularExpression data(
        u"^(bin/.*|[^/]+\\.(bmp|rtf)|w\\w+\\.txt|(Or|Id)CtyLst\\.txt)$"_s,
        QRegularExpression::CaseInsensitiveOption);
    for (const QString &file : FolderWatch::FilesIn(around)) {
        const QFileInfo info(around + u'/' + file);
        const QString shown = QDir(path({})).relativeFilePath(info.filePath());
        const QByteArray content = WholeFile(info.filePath());
        QVERIFY2(mayHold(shown, &Holder::password) || !holds(content, password),
                 qPrintable(u"the password is in "_s + shown));
        QVERIFY2(mayHold(shown, &Holder::number) || !holds(content, ssn),
                 qPrintable(u"the number is in "_s + shown));
        if (data.match(shown).hasMatch() || shown == u"called/environment")
            continue;
        QVERIFY2(!(info.permissions() & others), qPrintable(u"others may read "_s + shown));
        if (around == path(u"temporary"_s))
            QVERIFY2(!(QFileInfo(info.path()).permissions() & others), qPrintable(info.path()));
    }
}

void tst_Secrets::checkChildren() const
{
    const QByteArray given =
        WholeFile(path(u"called/environment"_s)) + mail->Arguments().join(u'\n').toLatin1();
    QVERIFY(given.contains("PATH="));
    QVERIFY(given.contains("xdg-email"));
    QVERIFY(!holds(given, password));
    QVERIFY(!holds(given, ssn));
}

void tst_Secrets::aDayKeepsItsSecrets()
{
    HistoryStore::Of().Open(path(u"history.db"_s));
    logIn();
    SaveUserStoreValue(u"Settings"_s, u"MainLeft"_s, u"0"_s);
    searchForTheNumber();
    mailAReport();
    QVERIFY(HistoryStore::Of().WaitUntilWritten(mostMilliseconds));
    // They are where they have to be, or they would be sought under the wrong name elsewhere.
    QVERIFY(holds(WholeFile(path(u"AppInfo.txt"_s)), password));
    QVERIFY(holds(WholeFile(path(u"options.ini"_s)), password));
    QVERIFY(holds(WholeFile(path(u"MruIName.txt"_s)), ssn));
    checkFiles(path({}));
    checkFiles(QDir::homePath());
    checkChildren();
    QVERIFY(!(QFileInfo(path(u"Reports"_s)).permissions() & QFile::ReadOther));
    QVERIFY2(!holds(messages(), password) && !holds(messages(), ssn), messages().constData());
    QCOMPARE(QApplication::clipboard()->text(), u"mine"_s);
    ReplaceEndProgram([](int) {});
    EndProgram();
    QCOMPARE(FolderWatch::FilesIn(path(u"temporary"_s)), QStringList());
}

HALVANE_TEST(tst_Secrets)
#include "tst_Secrets.moc"
