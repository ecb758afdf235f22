#pragma once

#include "core/RunTimeError.h"
#include "searchentry/FormTalk.h"

#include <QList>
#include <QStringList>

#include <optional>

/// Writes down what a check says to the user and gives the answers that the test prepared. Each box
/// is one text; one that asks without an answer at hand is a text that no test expects.
class TalkRecorder : public FormTalk
{
public:
    explicit TalkRecorder(QList<bool> answersInOrder = {}) : answers(std::move(answersInOrder)) {}

    void ShowFieldError(const QString &what, const QString &why, const QString &action,
                        const QString &caption) override
    {
        throwIfMeant();
        Said.append(FieldError(what, why, action, caption));
    }

    void Notice(const QString &text, const QString &title, MessageIcon icon) override
    {
        throwIfMeant();
        Said.append(NoticeBox(text, title, icon));
    }

    bool Ask(const QString &text, const QString &title, QuestionButtons buttons,
             MessageIcon icon) override
    {
        throwIfMeant();
        Said.append(Question(text, title, buttons, icon));
        if (!answers.isEmpty())
            return answers.takeFirst();
        Said.append(QStringLiteral("asked without an answer"));
        return false;
    }

    qsizetype AnswersLeft() const { return answers.size(); }

    static QString FieldError(const QString &what, const QString &why, const QString &action,
                              const QString &caption = {})
    {
        return QStringList{QStringLiteral("information box"), what, why, action, caption}.join(
            u'/');
    }

    static QString NoticeBox(const QString &text, const QString &title,
                             MessageIcon icon = MessageIcon::Information)
    {
        return QStringList{QStringLiteral("box"), iconName(icon), title, text}.join(u'/');
    }

    static QString Question(const QString &text, const QString &title, QuestionButtons buttons,
                            MessageIcon icon)
    {
        const QString pair = buttons == QuestionButtons::YesNo ? QStringLiteral("Yes and No")
                                                               : QStringLiteral("OK and Cancel");
        return QStringList{pair, iconName(icon), title, text}.join(u'/');
    }

    QStringList Said;
    std::optional<RunTimeError> Throws; ///< thrown by the next box in place of its showing

private:
    void throwIfMeant() const
    {
        if (Throws)
            throw RunTimeError(*Throws);
    }

    static QString iconName(MessageIcon icon)
    {
        switch (icon) {
        case MessageIcon::Information:
            return QStringLiteral("information");
        case MessageIcon::Exclamation:
            return QStringLiteral("exclamation");
        case MessageIcon::Question:
            return QStringLiteral("question");
        }
        return {};
    }

    QList<bool> answers;
};

/// A copy of `entry` with a change.
template<typename Entry, typename Change>
Entry With(Entry entry, Change change)
{
    change(entry);
    return entry;
}
