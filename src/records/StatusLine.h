#pragma once

#include <QString>

/// The two looks in which the windows report: all is well, or trouble.
enum class StatusStyle { Unchanged, NormalBold, TroubleBold };

/// A line of status: what it reads, and how. The record decides; a window only shows it.
struct StatusLine
{
    QString Text;
    bool Trouble = false;

    /// Another text; its look stays as it is when the style says so.
    void Set(const QString &text, StatusStyle style = StatusStyle::Unchanged)
    {
        Text = text;
        if (style != StatusStyle::Unchanged)
            Trouble = style == StatusStyle::TroubleBold;
    }
};
