#pragma once

#include "core/Clock.h"

#include <QLabel>
#include <QPointer>
#include <QStringList>

/// Every text that a label had when a line went into the log, in order: those too that were
/// replaced before anybody could have read them. The log asks the clock for the time of each line.
class TextTrail : public Clock
{
public:
    explicit TextTrail(const QLabel *watched) : label(watched), before(Replace(this)) {}
    ~TextTrail() override { Replace(before); }
    TextTrail(const TextTrail &) = delete;
    TextTrail &operator=(const TextTrail &) = delete;

    QDateTime Now() const override { return before->Now(); }
    float SecondsOfDay() const override { return before->SecondsOfDay(); }
    void SleepMilliseconds(int milliseconds) override { before->SleepMilliseconds(milliseconds); }
    qint64 EpochSeconds() const override
    {
        look();
        return before->EpochSeconds();
    }

    /// With what stands there now.
    QStringList Texts() const
    {
        look();
        return texts;
    }

private:
    void look() const
    {
        if (label && (texts.isEmpty() || texts.last() != label->text()))
            texts.append(label->text());
    }

    const QPointer<const QLabel> label;
    Clock *const before;
    mutable QStringList texts;
};
