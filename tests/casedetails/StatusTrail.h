#pragma once

#include <QAbstractEventDispatcher>
#include <QApplication>
#include <QLabel>
#include <QPointer>
#include <QStringList>

/// Every text that a case window's label of this name has had at a turn of the event loop, in
/// order: what somebody who looks at the window could have read there.
class StatusTrail
{
public:
    explicit StatusTrail(const char *labelName) : name(QLatin1StringView(labelName))
    {
        const auto *dispatcher = QAbstractEventDispatcher::instance();
        const auto seen = [this] { look(); };
        QObject::connect(dispatcher, &QAbstractEventDispatcher::awake, &context, seen);
        QObject::connect(dispatcher, &QAbstractEventDispatcher::aboutToBlock, &context, seen);
    }

    /// What came behind the last of these texts, with what stands there now.
    QStringList Behind(const QString &text)
    {
        look();
        return texts.mid(texts.lastIndexOf(text) + 1);
    }

private:
    void look()
    {
        if (!label)
            findLabel();
        if (label && (texts.isEmpty() || texts.last() != label->text()))
            texts.append(label->text());
    }
    void findLabel()
    {
        const QWidgetList windows = QApplication::topLevelWidgets();
        for (const QWidget *window : windows) {
            if (window->objectName() == QLatin1StringView("frmCaseDetails"))
                label = window->findChild<const QLabel *>(name);
        }
    }

    const QString name;
    QPointer<const QLabel> label;
    QStringList texts;
    QObject context;
};
