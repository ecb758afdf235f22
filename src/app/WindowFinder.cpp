#include "app/WindowFinder.h"

#include <QAbstractButton>
#include <QLabel>

QWidget *WindowNamed(const QString &name)
{
    const QWidgetList widgets = QApplication::allWidgets();
    for (QWidget *widget : widgets) {
        if (widget->objectName() == name && widget->isVisible())
            return widget;
    }
    return nullptr;
}

bool CanClick(const QString &window, const QString &name)
{
    const auto *button = ControlOf<QAbstractButton>(window, name);
    return button && button->isEnabled() && button->isVisible();
}

void ClickOn(const QString &window, const QString &name)
{
    if (auto *button = ControlOf<QAbstractButton>(window, name))
        QMetaObject::invokeMethod(button, &QAbstractButton::click, Qt::QueuedConnection);
}

QString LabelText(const QString &window, const QString &name)
{
    const auto *label = ControlOf<QLabel>(window, name);
    return label ? label->text() : QString();
}
