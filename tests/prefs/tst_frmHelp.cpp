#include "prefs/RtfText.h"
#include "prefs/frmHelp.h"
#include "support/HalvaneTest.h"
#include "support/TestFolder.h"

#include <QDir>
#include <QElapsedTimer>
#include <QScrollBar>
#include <QTest>
#include <QTextBlock>
#include <QTextEdit>

#include <memory>

using namespace Qt::StringLiterals;

namespace {
constexpr qint64 mostMilliseconds = 20'000;
} // namespace

class tst_frmHelp : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup();

    void emptyWithoutATopic();
    void loadsTheFileOfTheApplicationFolder();
    void looksOfTheText();
    void theTopicIsAtTheTop();
    void aTopicThatIsNotThereIsTheBeginning();
    void theFileIsReadAgainWithEachTopic();
    void htmlIsShownAsItStands();
    void missingFile();
    void unreadableFile();
    void largeFile_data();
    void largeFile();

private:
    QTextEdit *box() const { return window->findChild<QTextEdit *>(u"RTF"_s); }

    std::unique_ptr<TestFolder> folder;
    std::unique_ptr<frmHelp> window;
};

void tst_frmHelp::init()
{
    folder = std::make_unique<TestFolder>();
    window = std::make_unique<frmHelp>();
    window->setAttribute(Qt::WA_DeleteOnClose, false);
    window->show();
}

void tst_frmHelp::cleanup()
{
    window.reset();
    folder.reset();
}

void tst_frmHelp::emptyWithoutATopic()
{
    QCOMPARE(box()->toPlainText(), QString());
    QVERIFY(box()->isReadOnly());
}

void tst_frmHelp::loadsTheFileOfTheApplicationFolder()
{
    window->SetTopic(u"Step 1"_s);
    QVERIFY(box()->toPlainText().startsWith(u"A search in steps\n"_s));
    // Its name is matched without regard to case, as all names of that folder are.
    folder->Remove(u"Helpstep2.Rtf"_s);
    folder->Write(u"HELPSTEP2.RTF"_s, R"({\rtf1 of the office})");
    window->SetTopic(u"Step 1"_s);
    QCOMPARE(box()->toPlainText(), u"of the office"_s);
}

void tst_frmHelp::looksOfTheText()
{
    folder->Write(u"Helpstep2.Rtf"_s, R"({\rtf1 a{\b\fs40 b}{\i c}{\ul d}\line e\par f})");
    window->SetTopic({});
    QCOMPARE(box()->document()->blockCount(), 2);
    QTextCursor cursor(box()->document());
    const auto lookOf = [&cursor](int position) {
        cursor.setPosition(position + 1);
        return cursor.charFormat();
    };
    QCOMPARE(lookOf(0).fontWeight(), int(QFont::Normal));
    QCOMPARE(lookOf(0).fontPointSize(), 12.0);
    QCOMPARE(lookOf(1).fontWeight(), int(QFont::Bold));
    QCOMPARE(lookOf(1).fontPointSize(), 20.0);
    QVERIFY(!lookOf(1).fontItalic());
    QVERIFY(lookOf(2).fontItalic());
    QVERIFY(lookOf(3).fontUnderline());
    QVERIFY(!lookOf(5).fontUnderline());
    QCOMPARE(box()->toPlainText(), u"abcd\ne\nf"_s);
}

void tst_frmHelp::theTopicIsAtTheTop()
{
    window->resize(420, 260);
    window->SetTopic(u"step 3"_s);
    QVERIFY(box()->textCursor().block().text().startsWith(u"Step 3:"_s));
    const int top = box()->cursorRect().top();
    QVERIFY2(top >= 0 && top < 2 * box()->cursorRect().height(), qPrintable(QString::number(top)));
}

void tst_frmHelp::aTopicThatIsNotThereIsTheBeginning()
{
    window->resize(420, 260);
    window->SetTopic(u"Step 3"_s);
    QVERIFY(box()->verticalScrollBar()->value() > 0);
    for (const QString &topic : {u"nothing begins so"_s, QString()}) {
        window->SetTopic(topic);
        QCOMPARE(box()->verticalScrollBar()->value(), 0);
        QCOMPARE(box()->textCursor().position(), 0);
    }
}

void tst_frmHelp::theFileIsReadAgainWithEachTopic()
{
    window->SetTopic(u"Step 1"_s);
    folder->Write(u"Helpstep2.Rtf"_s, R"({\rtf1 new})");
    window->SetTopic(u"Step 1"_s);
    QCOMPARE(box()->toPlainText(), u"new"_s);
}

void tst_frmHelp::htmlIsShownAsItStands()
{
    const QByteArray html = "<b>bold</b> &amp; <img src=\"file:///etc/passwd\">";
    for (const QByteArray &content : {html, QByteArray("{\\rtf1 " + html + "}")}) {
        folder->Write(u"Helpstep2.Rtf"_s, content);
        window->SetTopic({});
        QCOMPARE(box()->toPlainText(), QString::fromLatin1(html));
    }
}

void tst_frmHelp::missingFile()
{
    folder->Remove(u"Helpstep2.Rtf"_s);
    window->SetTopic(u"Step 1"_s);
    const QString said = box()->toPlainText();
    QVERIFY(said.startsWith(u"The help file Helpstep2.Rtf cannot be read: "_s));
    QVERIFY(said.endsWith(u'\n' + folder->Path(u"Helpstep2.Rtf"_s)));
    QVERIFY(folder->Logged(said.section(u'\n', 0, 0)));
    // The bold heading that stood there before leaves nothing behind.
    folder->Write(u"Helpstep2.Rtf"_s, R"({\rtf1\b bold})");
    window->SetTopic({});
    folder->Remove(u"Helpstep2.Rtf"_s);
    window->SetTopic({});
    QTextCursor cursor(box()->document());
    cursor.movePosition(QTextCursor::Right);
    QVERIFY(cursor.charFormat().fontWeight() != QFont::Bold);
}

void tst_frmHelp::unreadableFile()
{
    folder->Remove(u"Helpstep2.Rtf"_s);
    QVERIFY(QDir().mkdir(folder->Path(u"Helpstep2.Rtf"_s)));
    window->SetTopic(u"Step 1"_s);
    QVERIFY(box()->toPlainText().startsWith(u"The help file Helpstep2.Rtf cannot be read: "_s));
}

void tst_frmHelp::largeFile_data()
{
    QTest::addColumn<QByteArray>("piece");
    for (const char *piece : {"x", "word ", "\\par ", "\\b a\\b0 c", "{\\fs90 x"})
        QTest::newRow(piece) << QByteArray(piece);
}

void tst_frmHelp::largeFile()
{
    QFETCH(QByteArray, piece);
    constexpr qsizetype size = 10'000'000;
    folder->Write(u"Helpstep2.Rtf"_s, "{\\rtf1 one " + piece.repeated(size / piece.size()));
    QElapsedTimer timer;
    timer.start();
    window->SetTopic(u"Step 1"_s);
    QCoreApplication::processEvents();
    QVERIFY(timer.elapsed() < mostMilliseconds);
    const QString shown = box()->toPlainText();
    QVERIFY(shown.startsWith(u"one "_s));
    QVERIFY(shown.endsWith(u"\n(The file is longer than this window shows.)"_s));
}

HALVANE_TEST(tst_frmHelp)
#include "tst_frmHelp.moc"
