#include "support/WindowUser.h"

#include <QAction>
#include <QColor>
#include <QLineEdit>
#include <QTest>
#include <QWindow>

using namespace Qt::StringLiterals;

void NoSuchControl(const QObject *window, const char *name)
{
    qFatal("%s has no %s", qPrintable(window->objectName()), name);
}

QString TextOf(const QWidget *window, const char *name)
{
    const auto *control = window->findChild<QWidget *>(QLatin1StringView(name));
    return control ? control->property("text").toString() : u"no such control"_s;
}

QPushButton *ButtonOf(const QWidget *window, const char *name)
{
    return window->findChild<QPushButton *>(QLatin1StringView(name));
}

QString ColourOf(const QWidget *window, const char *name)
{
    const QColor colour = Child(window, name)->palette().color(QPalette::WindowText);
    if (colour == QColor(0x00, 0x00, 0xC0))
        return u"blue"_s;
    return colour == QColor(0xFF, 0x00, 0x00) ? u"red"_s : colour.name();
}

bool IsBold(const QWidget *window, const char *name)
{
    return Child(window, name)->font().bold();
}

void Click(const QObject *window, const char *button)
{
    QTest::mouseClick(Child<QPushButton>(window, button), Qt::LeftButton);
}

void ClickOnScreen(const QObject *window, const char *button)
{
    const auto *target = Child<QPushButton>(window, button);
    QWidget *around = target->window();
    QTest::mouseClick(around->windowHandle(), Qt::LeftButton, {},
                      target->mapTo(around, target->rect().center()));
}

void Choose(const QObject *window, const char *action)
{
    Child<QAction>(window, action)->trigger();
}

void TypeInto(const QObject *window, const char *field, const QString &text)
{
    auto *line = Child<QLineEdit>(window, field);
    line->selectAll();
    QTest::keyClick(line, Qt::Key_Delete);
    QTest::keyClicks(line, text);
}
