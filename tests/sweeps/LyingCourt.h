#pragma once

#include "practice/Conversation.h"

#include <QByteArrayList>
#include <QObject>
#include <QStringList>

#include <memory>

class FakeSocket;

/// What the court says otherwise than it should: the text that it writes into one field of a reply.
struct Lie
{
    enum class Where { EveryToken, FirstToken, LastToken };

    int request = -1; ///< counted from 0; -1 for an honest court
    int field = 0;    ///< of each token that is meant
    Where where = Where::EveryToken;
    bool behind = false; ///< the text stands behind what the field says, not in its place
    QByteArray text;
};

/// The practice court at the other end of every socket that frmWinsock makes, without a network. It
/// lies in one place, and is honest otherwise.
class LyingCourt
{
public:
    /// The court of everybody, which goes when the next one comes.
    static LyingCourt &Install(const Lie &lie);

    /// What was asked, without its bars.
    const QByteArrayList &Requests() const { return requests; }
    /// The number of fields in the tokens of the reply to each request, the most of them.
    const QList<int> &Fields() const { return fields; }
    /// The tokens in which the field was there to be written into, as they were sent.
    const QByteArrayList &Lied() const { return lied; }

private:
    explicit LyingCourt(const Lie &lie);

    void hear(FakeSocket *socket, const QByteArray &frame);
    QByteArrayList replyTo(const QByteArray &request);
    QByteArray bend(const QByteArray &token);

    Lie lie;
    Practice::Conversation conversation;
    QByteArrayList requests;
    QList<int> fields;
    QByteArrayList lied;
};
