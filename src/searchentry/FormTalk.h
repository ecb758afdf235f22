#pragma once

#include <QString>

enum class MessageIcon { Information, Exclamation, Question };
enum class QuestionButtons { OkCancel, YesNo };

/// How a check of the entries speaks to the user. The form does it with its windows; the checks
/// themselves know of none.
///
/// Each of these waits until the user has closed the box. An empty title is the program's name.
class FormTalk
{
public:
    FormTalk() = default;
    FormTalk(const FormTalk &) = delete;
    FormTalk &operator=(const FormTalk &) = delete;
    virtual ~FormTalk() = default;

    /// The information box: what is wrong, why, and what to do. An empty caption is the box's own.
    virtual void ShowFieldError(const QString &what, const QString &why, const QString &action,
                                const QString &caption) = 0;

    /// A message box with OK alone.
    virtual void Notice(const QString &text, const QString &title, MessageIcon icon) = 0;

    /// A message box with two buttons: true for OK or Yes.
    virtual bool Ask(const QString &text, const QString &title, QuestionButtons buttons,
                     MessageIcon icon) = 0;
};
