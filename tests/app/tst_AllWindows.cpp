#include "app/WindowChecks.h"
#include "app/WindowRound.h"
#include "support/HalvaneTest.h"

#include <QAccessible>
#include <QApplication>
#include <QDir>
#include <QFile>
#include <QScreen>
#include <QSet>
#include <QSocketNotifier>
#include <QTest>
#include <QTimer>

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <utility>

namespace {
/// The colours of a dark desktop.
QPalette darkPalette()
{
    QPalette dark(QColor(0x31, 0x36, 0x3b), QColor(0x2a, 0x2e, 0x32));
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}) {
        dark.setColor(role, QColor(0xfc, 0xfc, 0xfc));
        dark.setColor(QPalette::Disabled, role, QColor(0x7f, 0x84, 0x88));
    }
    dark.setColor(QPalette::Base, QColor(0x1b, 0x1e, 0x20));
    dark.setColor(QPalette::AlternateBase, QColor(0x23, 0x26, 0x29));
    dark.setColor(QPalette::Highlight, QColor(0x3d, 0xae, 0xe9));
    dark.setColor(QPalette::Link, QColor(0x1d, 0x99, 0xf3));
    return dark;
}

/// What the windows are looked at on: "1920x1080 150 light", in pixels and per cent.
QString lookOf(const QScreen *screen)
{
    const double ratio = screen->devicePixelRatio();
    const QPalette colours = QApplication::palette();
    const bool dark = colours.color(QPalette::Window).lightness()
                      < colours.color(QPalette::WindowText).lightness();
    return u"%1x%2 %3 %4"_s.arg(qRound(screen->size().width() * ratio))
        .arg(qRound(screen->size().height() * ratio))
        .arg(ratio * 100)
        .arg(dark ? u"dark"_s : u"light"_s);
}

int endRound(const QString &complaints)
{
    if (!complaints.isEmpty())
        std::fprintf(stderr, "%s\n", qPrintable(complaints));
    return complaints.isEmpty() ? 0 : 1;
}

/// Saves a picture of each window into a folder: "pictures FOLDER [dark]".
int takePictures(const QStringList &arguments)
{
    const QDir folder(arguments.value(0));
    if (!QDir().mkpath(folder.path()))
        return 1;
    if (arguments.contains(u"dark"_s))
        QApplication::setPalette(darkPalette());
    int number = 0;
    WindowRound round([&](const QString &name, QWidget *window) {
        const QString file = u"%1-%2.png"_s.arg(++number, 3, 10, QChar(u'0')).arg(name);
        window->window()->grab().save(folder.filePath(file.simplified().replace(u' ', u'-')));
    });
    return endRound(round.Go());
}

/// The way from the program down to a window, as whoever is outside goes it. False without one.
bool findRoad(const QAccessibleInterface *window, QStringList *steps)
{
    const QAccessibleInterface *above = window->parent();
    if (!above)
        return true;
    // The viewport of an area is on the way up, and not on the way down.
    for (; above; above = above->parent()) {
        const int step = above->indexOfChild(window);
        if (step < 0 || !findRoad(above, steps))
            continue;
        steps->append(QString::number(step));
        return true;
    }
    return false;
}

/// "child/child/child"
QString roadTo(QWidget *window)
{
    QStringList steps;
    findRoad(QAccessible::queryAccessibleInterface(window), &steps);
    return steps.join(u'/');
}

/// Shows each window until its name comes back on standard input: "show". The name goes to standard
/// output before, with the title and the road to it, so that another process can look at it from
/// outside. A dialog may come up while another window is shown.
int showEach(const QStringList & /*arguments*/)
{
    QFile input;
    if (!input.open(0, QIODevice::ReadOnly | QIODevice::Unbuffered))
        return 1;
    QSet<QByteArray> answered;
    QByteArray line;
    QSocketNotifier answer(0, QSocketNotifier::Read);
    QObject::connect(&answer, &QSocketNotifier::activated, &answer, [&] {
        // Nothing but what is there: it may not wait for the rest of a line.
        char sign = 0;
        if (!input.getChar(&sign))
            std::_Exit(2);
        if (sign == '\n')
            answered.insert(std::exchange(line, {}));
        else
            line.append(sign);
    });
    WindowRound round([&](const QString &name, QWidget *window) {
        std::printf("%s\t%s\t%s\n", qPrintable(name), qPrintable(window->windowTitle()),
                    qPrintable(roadTo(window)));
        std::fflush(stdout);
        // Without a nap: who looks asks thousands of small things, one after the other.
        QTimer limit;
        limit.callOnTimeout([] { std::_Exit(2); });
        limit.start(std::chrono::minutes(1));
        while (!answered.contains(name.toUtf8()))
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    });
    return endRound(round.Go());
}
} // namespace

/// Every window of the program, as a session at the practice court fills it.
class tst_AllWindows : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void initTestCase();
    void theScreenIsTheOneWanted()
    {
        QCOMPARE(lookOf(QApplication::primaryScreen()), qEnvironmentVariable("HALVANE_TEST_LOOK"));
    }
    void everyWindowComes() { QCOMPARE(complaints, QString()); }
    void noneIsLargerThanItsPlace() { QCOMPARE(outOfSight.join(u'\n'), QString()); }
    void noTextIsCut() { QCOMPARE(cut.join(u'\n'), QString()); }
    void everyTextStandsOutFromItsGround() { QCOMPARE(faint.join(u'\n'), QString()); }
    void aScreenReaderHearsEveryControl() { QCOMPARE(unheard.join(u'\n'), QString()); }
    void theTabKeyComesToEveryControl() { QCOMPARE(offTheRoad.join(u'\n'), QString()); }
    void aLetterStandsForOneControl() { QCOMPARE(keys.join(u'\n'), QString()); }

private:
    void look(const QString &name, QWidget *window);

    QString complaints;
    QStringList outOfSight;
    QStringList cut;
    QStringList faint;
    QStringList unheard;
    QStringList offTheRoad;
    QStringList keys;
};

void tst_AllWindows::initTestCase()
{
    if (qEnvironmentVariable("HALVANE_TEST_LOOK").endsWith(u"dark"_s))
        QApplication::setPalette(darkPalette());
    WindowRound round([this](const QString &name, QWidget *window) { look(name, window); });
    complaints = round.Go();
}

void tst_AllWindows::look(const QString &name, QWidget *window)
{
    const auto note = [&name](QStringList *list, const QStringList &troubles) {
        for (const QString &trouble : troubles)
            list->append(name + u": "_s + trouble);
    };
    note(&outOfSight, OutOfSight(window));
    note(&cut, CutTexts(window));
    note(&faint, FaintTexts(window));
    note(&unheard, Unheard(window));
    note(&keys, KeyTrouble(window));
    note(&offTheRoad, OffTheTabRoad(window));
}

HALVANE_TEST(tst_AllWindows)
HALVANE_TEST_CHILD("pictures", takePictures)
HALVANE_TEST_CHILD("show", showEach)
#include "tst_AllWindows.moc"
