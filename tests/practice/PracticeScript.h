#pragma once

#include "practice/Reply.h"

#include <QStringList>

/// A reply as a list that can be compared: its tokens, and what else it does in angle brackets,
/// such as "<silence>". Gives up behind `most` steps.
inline QStringList ScriptOf(Practice::Reply reply, qsizetype most = 1'000)
{
    using Kind = Practice::ReplyStep::Kind;
    QStringList script;
    while (script.size() < most) {
        const Practice::ReplyStep step = reply.Next();
        switch (step.kind) {
        case Kind::Token:
            script.append(step.text);
            break;
        case Kind::Bytes:
            script.append(QStringLiteral("<%1 bytes>").arg(step.bytes.size()));
            break;
        case Kind::Piece:
            script.append(u'<' + QString::fromLatin1(step.bytes) + u'>');
            break;
        case Kind::Pause:
            script.append(QStringLiteral("<pause %1>").arg(step.milliseconds));
            break;
        case Kind::Silence:
            script.append(QStringLiteral("<silence>"));
            break;
        case Kind::Drop:
            script.append(QStringLiteral("<drop>"));
            break;
        case Kind::End:
            return script;
        }
    }
    return script;
}

/// The script without its lines of progress.
inline QStringList WithoutProgress(QStringList script)
{
    script.removeIf(
        [](const QString &step) { return step.startsWith(QLatin1String("SEARCHING")); });
    return script;
}
