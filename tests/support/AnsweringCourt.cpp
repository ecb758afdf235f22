#include "support/AnsweringCourt.h"

#include "support/FakeSocket.h"
#include "support/ScriptedCourt.h"

AnsweringCourt::AnsweringCourt(FakeSocket *ownSocket) : QObject(ownSocket), socket(ownSocket)
{
    socket->completesSends = false;
    socket->heard = [this](const QByteArray &frame) { hear(frame); };
    // A timer, since all that is posted would be handled in one turn.
    connect(&turns, &QTimer::timeout, this, &AnsweringCourt::takeStep);
}

void AnsweringCourt::Install(const Answers &answers, const std::function<void()> &onRequest,
                             EndMark endMark)
{
    FakeSocket::Install([answers, onRequest, endMark](FakeSocket *socket) {
        auto *court = new AnsweringCourt(socket);
        court->answersOf = answers;
        court->requested = onRequest;
        court->endMarkComes = endMark;
    });
}

AnsweringCourt *AnsweringCourt::Behind(ServerSocket *socket)
{
    return socket->findChild<AnsweringCourt *>();
}

void AnsweringCourt::hear(const QByteArray &frame)
{
    turns.start(0);
    // An empty step is the end of the send; it goes before what is still to come.
    steps.prepend({});
    if (frame.contains("STOP"))
        return;
    if (requested)
        requested();
    QStringList answers = answersOf(frame);
    const QByteArray last = ScriptedCourt::Tokens({answers.takeLast()});
    for (const QString &answer : answers)
        steps.append(ScriptedCourt::Tokens({answer}));
    if (endMarkComes == EndMark::Whole)
        steps.append(last);
    else
        steps.append({last.left(2), last.mid(2)});
}

void AnsweringCourt::takeStep()
{
    const QByteArray step = steps.takeFirst();
    if (steps.isEmpty())
        turns.stop();
    if (step.isEmpty()) {
        Q_EMIT socket->SendComplete();
        return;
    }
    owes = owes || (silent && step.startsWith('|'));
    if (!owes)
        socket->Arrive(step);
}
