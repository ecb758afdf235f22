#include "controls/StatusColour.h"
#include "support/HalvaneTest.h"

#include <QLabel>
#include <QTest>
#include <QWidget>

class tst_StatusColour : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void coloursAsStored_data();
    void coloursAsStored();
    void followsTheWindowIntoTheDarkAndBack();
    void theLatestStyleCounts();
    void bold();
};

namespace {
QPalette paletteOf(Qt::GlobalColor window)
{
    QPalette palette;
    palette.setColor(QPalette::Window, window);
    return palette;
}

QColor textColour(const QLabel &label)
{
    return label.palette().color(QPalette::WindowText);
}
} // namespace

void tst_StatusColour::coloursAsStored_data()
{
    QTest::addColumn<StatusColour>("colour");
    QTest::addColumn<QColor>("expected");
    QTest::newRow("normal") << StatusColour::Normal << QColor(0, 0, 0xC0);
    QTest::newRow("trouble") << StatusColour::Trouble << QColor(255, 0, 0);
}

void tst_StatusColour::coloursAsStored()
{
    QFETCH(StatusColour, colour);
    QLabel label;
    label.setPalette(paletteOf(Qt::white));
    SetStatusStyle(&label, colour);
    QTEST(textColour(label), "expected");
}

void tst_StatusColour::followsTheWindowIntoTheDarkAndBack()
{
    QWidget window;
    window.setPalette(paletteOf(Qt::white));
    QLabel label(&window);
    SetStatusStyle(&label, StatusColour::Trouble);
    const QColor onLight = textColour(label);
    window.setPalette(paletteOf(Qt::black));
    const QColor onDark = textColour(label);
    QVERIFY(onDark.lightness() > onLight.lightness());
    window.setPalette(paletteOf(Qt::white));
    QCOMPARE(textColour(label), onLight);
    // Made in the dark, it reads as one that has come there.
    window.setPalette(paletteOf(Qt::black));
    QLabel other(&window);
    SetStatusStyle(&other, StatusColour::Trouble);
    QCOMPARE(textColour(other), onDark);
}

void tst_StatusColour::theLatestStyleCounts()
{
    QWidget window;
    window.setPalette(paletteOf(Qt::white));
    QLabel label(&window);
    SetStatusStyle(&label, StatusColour::Normal);
    const QColor normal = textColour(label);
    SetStatusStyle(&label, StatusColour::Trouble);
    window.setPalette(paletteOf(Qt::black));
    window.setPalette(paletteOf(Qt::white));
    QCOMPARE(textColour(label), QColor(255, 0, 0));
    SetStatusStyle(&label, StatusColour::Normal);
    QCOMPARE(textColour(label), normal);
}

void tst_StatusColour::bold()
{
    QLabel label;
    SetStatusStyle(&label, StatusColour::Normal);
    QVERIFY(label.font().bold());
}

HALVANE_TEST(tst_StatusColour)
#include "tst_StatusColour.moc"
