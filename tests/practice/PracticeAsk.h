#pragma once

#include "core/Windows1252.h"
#include "practice/Conversation.h"
#include "practice/MadeUpPeople.h"
#include "practice/PracticeScript.h"

#include <QDate>
#include <QString>
#include <QStringList>

// Asks the court without a socket.

/// The day on which the court of the tests is open.
inline const QDate someDay(2026, 8, 19);

/// Everybody of seed 1.
inline const Practice::Population &People()
{
    static const Practice::Population population = Practice::MakePopulation(1, someDay);
    return population;
}

/// A conversation that `user` has logged in to, or has tried to.
inline Practice::Conversation LoggedIn(const QString &user = QStringLiteral("ann"),
                                       const Practice::Population &population = People())
{
    Practice::Conversation conversation(population, someDay);
    conversation.Answer(ToWindows1252(QStringLiteral("LOGON¦%1¦pw¦AppVer-9.00¦").arg(user)));
    return conversation;
}

inline QStringList Ask(Practice::Conversation &conversation, const QString &request,
                       qsizetype most = 1'000)
{
    return ScriptOf(conversation.Answer(ToWindows1252(request)), most);
}

/// What a search brings, without progress.
inline QStringList Search(const QString &request, qsizetype most = 1'000)
{
    Practice::Conversation conversation = LoggedIn();
    return WithoutProgress(Ask(conversation, request, most));
}
