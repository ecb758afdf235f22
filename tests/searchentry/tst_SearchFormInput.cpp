// Entries and files that nobody should make: the form stays usable.

#include "searchentry/SearchFormUser.h"
#include "support/HalvaneTest.h"

#include <QAbstractButton>
#include <QClipboard>
#include <QComboBox>
#include <QGuiApplication>
#include <QLineEdit>
#include <QListWidget>
#include <QTest>

namespace {
const QByteArray rubbish = [] {
    QByteArray bytes;
    for (int i = 0; i < 40'000; ++i)
        bytes += static_cast<char>((i * 7919 + i / 251) % 256);
    return bytes;
}();

const QList<QByteArray> recents{"lblMruList", "cboxLastBizOrCase", "cboxCaseMRUs"};

QByteArray lines(const char *text, int count)
{
    QByteArray all;
    for (int i = 0; i < count; ++i)
        all += QByteArray(text) + ' ' + QByteArray::number(i) + "\r\n";
    return all;
}
} // namespace

class tst_SearchFormInput : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init() { user = std::make_unique<SearchFormUser>(); }
    void cleanup();

    void whatABoxTakes_data();
    void whatABoxTakes();
    void theTildeIsReservedWhereLinesAreDividedByIt_data();
    void theTildeIsReservedWhereLinesAreDividedByIt();
    void theTildeIsTakenOutWhenTheCourtChangesAfterTyping();
    void theTildeIsTakenOutWhenTheIndexIsChosenAfterTyping();
    void theTildeMayBeTypedAgainInAnotherCourt();
    void tenThousandCharacters_data();
    void tenThousandCharacters();
    void badFiles_data();
    void badFiles();

private:
    QLineEdit *box(const QByteArray &name) const { return user->Find<QLineEdit>(name.constData()); }
    /// Goes where the box is shown.
    void show(const QByteArray &name) const;

    std::unique_ptr<SearchFormUser> user;
};

void tst_SearchFormInput::cleanup()
{
    const QString complaints = user->Complaints();
    user.reset();
    QCOMPARE(complaints, QString());
}

void tst_SearchFormInput::show(const QByteArray &name) const
{
    user->GoTo({Superior, name.startsWith("Text1") ? 2 : 0, 1, 5, name.startsWith("Text1")});
    if (!box(name)->isVisible())
        qFatal("%s is not shown", name.constData());
}

void tst_SearchFormInput::whatABoxTakes_data()
{
    QTest::addColumn<QByteArray>("name");
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("taken");
    QList<QByteArray> boxes;
    for (int i = 0; i < 4; ++i)
        boxes.append("txtSearchName_" + QByteArray::number(i));
    for (int i = 0; i < 10; ++i)
        boxes.append("Text1_" + QByteArray::number(i));
    for (const QByteArray &name : boxes) {
        const auto row = [&name](const char *what, const QString &typed, const QString &taken) {
            QTest::addRow("%s in %s", what, name.constData()) << name << typed << taken;
        };
        row("bar", u"A|B"_s, u"AB"_s);
        row("broken bar", u"A¦B"_s, u"AB"_s);
        row("tilde", u"A~B"_s, u"A~B"_s);
        row("control characters", u"A\u0001\u0007\u001B\u007F\u0085B"_s, u"AB"_s);
        row("line ends and tabs", u"A\r\n\tB"_s, u"AB"_s);
        row("only what cannot travel", u"||¦\u0002"_s, QString());
        // They become question marks on the way, but the box shows what was typed.
        row("beyond the code page", u"\u4E2D\u0141\u03A9"_s, u"\u4E2D\u0141\u03A9"_s);
        row("letters with marks", u"M\u00DCLLER \u20AC"_s, u"M\u00DCLLER \u20AC"_s);
    }
}

void tst_SearchFormInput::whatABoxTakes()
{
    QFETCH(QByteArray, name);
    QFETCH(QString, typed);
    QFETCH(QString, taken);
    show(name);
    for (const QChar c : typed) {
        // Return, Tab and Escape are keys of the form and never come as text.
        if (c != u'\r' && c != u'\n' && c != u'\t')
            QTest::sendKeyEvent(QTest::Click, box(name), Qt::Key_unknown, QString(c), {});
    }
    QCOMPARE(box(name)->text(), taken);
    box(name)->clear();
    QGuiApplication::clipboard()->setText(typed);
    box(name)->paste();
    // A line end becomes a blank or nothing, never a line end.
    QCOMPARE(box(name)->text().remove(u' '), QString(taken).remove(u' '));
}

void tst_SearchFormInput::theTildeIsReservedWhereLinesAreDividedByIt_data()
{
    QTest::addColumn<int>("court");
    QTest::addColumn<bool>("index");
    QTest::addColumn<bool>("reserved");
    QTest::newRow("Superior") << int(Superior) << false << false;
    QTest::newRow("Superior by the index") << int(Superior) << true << true;
    QTest::newRow("District") << int(Discis) << false << false;
    QTest::newRow("Oregon") << int(Oregon) << false << false;
    QTest::newRow("Idaho") << int(Idaho) << false << false;
    QTest::newRow("bankruptcy") << int(Federal) << false << true;
}

void tst_SearchFormInput::theTildeIsReservedWhereLinesAreDividedByIt()
{
    QFETCH(int, court);
    QFETCH(bool, index);
    QFETCH(bool, reserved);
    user->GoTo({court, 0, 1, 5, false});
    if (index)
        user->Click("chkUseIndex");
    for (int i = 0; i < 4; ++i) {
        QTest::keyClicks(user->Box(i), u"A~B"_s);
        QCOMPARE(user->Box(i)->text(), reserved ? u"AB"_s : u"A~B"_s);
        user->Box(i)->clear();
        QGuiApplication::clipboard()->setText(u"~A~"_s);
        user->Box(i)->paste();
        QCOMPARE(user->Box(i)->text(), reserved ? u"A"_s : u"~A~"_s);
    }
}

void tst_SearchFormInput::theTildeIsTakenOutWhenTheCourtChangesAfterTyping()
{
    for (int i = 0; i < 4; ++i)
        QTest::keyClicks(user->Box(i), u"A~B"_s);
    user->Click("optState_2");
    for (int i = 0; i < 4; ++i)
        QCOMPARE(user->Box(i)->text(), u"AB"_s);
}

void tst_SearchFormInput::theTildeIsTakenOutWhenTheIndexIsChosenAfterTyping()
{
    for (int i = 0; i < 4; ++i)
        QTest::keyClicks(user->Box(i), u"~A~B~"_s);
    user->Click("chkUseIndex");
    for (int i = 0; i < 4; ++i)
        QCOMPARE(user->Box(i)->text(), u"AB"_s);
}

void tst_SearchFormInput::theTildeMayBeTypedAgainInAnotherCourt()
{
    user->Click("optState_2");
    user->Click("optState_0");
    QTest::keyClicks(user->Box(0), u"A~B"_s);
    QCOMPARE(user->Box(0)->text(), u"A~B"_s);
}

void tst_SearchFormInput::tenThousandCharacters_data()
{
    QTest::addColumn<QByteArray>("name");
    QTest::newRow("a name") << QByteArray("txtSearchName_0");
    QTest::newRow("a suffix") << QByteArray("txtSearchName_3");
    QTest::newRow("the first of a batch") << QByteArray("Text1_0");
    QTest::newRow("the last of a batch") << QByteArray("Text1_9");
}

void tst_SearchFormInput::tenThousandCharacters()
{
    QFETCH(QByteArray, name);
    show(name);
    const QSize size = user->Form->size();
    QGuiApplication::clipboard()->setText(QString(10'000, u'X'));
    box(name)->paste();
    QCOMPARE(box(name)->text(), QString(255, u'X'));
    box(name)->paste();
    QCOMPARE(box(name)->text().size(), 255);
    QCoreApplication::processEvents();
    QCOMPARE(user->Form->size(), size);
}

void tst_SearchFormInput::badFiles_data()
{
    QTest::addColumn<QString>("file");
    QTest::addColumn<QByteArray>("content");
    QTest::newRow("too many Washington counties") << u"wactylst.txt"_s << lines("County", 500);
    QTest::newRow("too many Oregon counties") << u"OrCtyLst.txt"_s << lines("County", 500);
    QTest::newRow("too many Idaho counties") << u"IdCtyLst.txt"_s << lines("County", 500);
    QTest::newRow("too many case types") << u"WaSCases.txt"_s << lines("Type", 500);
    QTest::newRow("a court of three fields")
        << u"wadisciscts.txt"_s
        << QByteArray("1,Adams,OTD,Othello,Othello District\r\n2,Adams,RID\r\n3,King,X,Y,Z\r\n");
    for (const char *file : {"wactylst.txt", "OrCtyLst.txt", "IdCtyLst.txt", "WaSCases.txt",
                             "wadisciscts.txt", "waCtyCds.ini", "templates.ini", "options.ini",
                             "MruIName.txt", "MruBName.txt", "MruCases.txt"}) {
        QTest::addRow("rubbish in %s", file) << QString::fromLatin1(file) << rubbish;
        QTest::addRow("nothing in %s", file) << QString::fromLatin1(file) << QByteArray();
    }
}

void tst_SearchFormInput::badFiles()
{
    QFETCH(QString, file);
    QFETCH(QByteArray, content);
    user->Form->Unload();
    user->Desk.Folder.Write(file, content);
    frmSearchWA::ShowForm();
    user->Form = &frmSearchWA::Form();
    const QSize size = user->Form->size();
    QStringList refused;
    connect(&SearchEvents::Of(), &SearchEvents::FieldErrorRaised, user->Form,
            [&refused](const QString &what) { refused.append(what); });
    const QList<Place> places = AllPlaces();
    for (const Place &place : places) {
        user->GoTo(place);
        QList<QByteArray> expected = ShownAt(place);
        // Recent entries are offered by a setting, which may have gone with its file.
        if (file == u"options.ini")
            expected.removeIf([](const QByteArray &name) { return recents.contains(name); });
        QCOMPARE(user->Shown(), expected);
        // The U.S. Courts refuse in a message box.
        if (place.Court == Federal)
            continue;
        refused.clear();
        user->Press("cmdBeginSearch");
        QCOMPARE(refused.size(), place.Batch ? 0 : 1);
    }
    QCoreApplication::processEvents();
    QVERIFY2(user->Form->width() <= size.width(), "a line of the file made the window grow");
    // What the program holds itself is there whatever the files say.
    user->GoTo({Superior, 0, 1, 5, false});
    QCOMPARE(user->Items("lboxCountyOrProfile").size(), 39);
    user->GoTo({Oregon, 0, 1, 5, false});
    QCOMPARE(user->Items("lboxCountyOrProfile").size(), 37);
    user->GoTo({Idaho, 0, 1, 5, false});
    QVERIFY(user->Items("lboxCountyOrProfile").size() <= 44);
    if (file == u"wadisciscts.txt" && content.startsWith("1,Adams")) {
        user->GoTo({Discis, 0, 1, 5, false});
        user->Find<QComboBox>("cboxCountyList")->setCurrentText(u"Adams"_s);
        QCOMPARE(user->Items("lboxDiscisCourtNames"), QStringList{u"Othello District (OTD)"_s});
    }
}

HALVANE_TEST(tst_SearchFormInput)
#include "tst_SearchFormInput.moc"
