#include "support/AnsweringSocket.h"

#include "link/frmWinsock.h"
#include "support/ScriptedCourt.h"

AnsweringSocket::AnsweringSocket(QObject *parent) : FakeSocket(parent)
{
    completesSends = false;
    // A timer, since all that is posted would be handled in one turn.
    connect(&turns, &QTimer::timeout, this, &AnsweringSocket::takeStep);
}

void AnsweringSocket::Install(const Answers &answers, const std::function<void()> &onRequest,
                              EndMark endMark)
{
    frmWinsock::SetSocketFactory([answers, onRequest, endMark](QObject *parent) {
        auto *socket = new AnsweringSocket(parent);
        socket->answersOf = answers;
        socket->requested = onRequest;
        socket->endMarkComes = endMark;
        return socket;
    });
}

void AnsweringSocket::SendData(const QByteArray &data)
{
    FakeSocket::SendData(data);
    turns.start(0);
    // An empty step is the end of the send; it goes before what is still to come.
    steps.prepend({});
    if (data.contains("STOP"))
        return;
    if (requested)
        requested();
    QStringList answers = answersOf(data);
    const QByteArray last = ScriptedCourt::Tokens({answers.takeLast()});
    for (const QString &answer : answers)
        steps.append(ScriptedCourt::Tokens({answer}));
    if (endMarkComes == EndMark::Whole)
        steps.append(last);
    else
        steps.append({last.left(2), last.mid(2)});
}

void AnsweringSocket::takeStep()
{
    const QByteArray step = steps.takeFirst();
    if (steps.isEmpty())
        turns.stop();
    if (step.isEmpty()) {
        Q_EMIT SendComplete();
        return;
    }
    owes = owes || (silent && step.startsWith('|'));
    if (!owes)
        Arrive(step);
}
