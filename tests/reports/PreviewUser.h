#pragma once

#include "controls/FormWindow.h"
#include "reports/PreviewDoc.h"
#include "support/WindowUser.h"

#include <QLabel>
#include <QPointer>
#include <QToolButton>

#include <memory>

/// Somebody who looks at the reports of a window.
class PreviewUser
{
public:
    PreviewUser() : owner(new FormWindow)
    {
        owner->setWindowTitle(QStringLiteral("ADAMS, JOHN in King/Pierce"));
        owner->show();
    }
    ~PreviewUser()
    {
        if (owner)
            owner->Unload();
    }
    Q_DISABLE_COPY_MOVE(PreviewUser)

    PreviewDoc *Preview() const { return PreviewDoc::Of(owner); }
    /// Shows a report and waits until all of its pages are there.
    PreviewDoc *Look(const Report &report) const
    {
        Preview()->ShowReport(report);
        FinishPages();
        return Preview();
    }
    void FinishPages() const
    {
        while (Preview()->tmrPrepare->isActive())
            QCoreApplication::processEvents();
    }
    QString Page() const { return TextOf(Preview(), "lblPage"); }
    QString Note() const { return TextOf(Preview(), "lblNote"); }
    bool IsOn(const char *button) const
    {
        return Child<QAbstractButton>(Preview(), button)->isEnabled();
    }
    void Press(const char *button) const { Child<QAbstractButton>(Preview(), button)->click(); }

    QPointer<FormWindow> owner;
};
