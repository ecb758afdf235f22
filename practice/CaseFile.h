#pragma once

#include "practice/Population.h"
#include "practice/Random.h"

#include <QDate>
#include <QString>
#include <QStringView>

#include <optional>
#include <vector>

namespace Practice {
/// What a case is about, as far as its papers go.
enum class Nature : quint8 {
    Criminal,
    Juvenile,
    Infraction,
    Civil,
    Domestic,
    Probate,
    Judgment,
    Bankruptcy,
    SmallClaims,
    Arbitration, ///< the part of a civil case that went before an arbitrator
};

/// Whose statutes a charge names.
enum class LawBook : quint8 { Washington, Oregon, Idaho };

struct CaseParty
{
    Person person;
    QString role;
};

/// One case, whatever its court: what all of its tabs are made from. Nothing of the tabs is stored:
/// they come out of `seed`, so a case reads the same whenever it is opened.
struct CaseFile
{
    QString number; ///< as a list has it, without the mark of an archived case
    QString court;
    QString county;
    QString title;
    QString cause; ///< what a list says that the case is about
    QDate filed;
    Nature nature = Nature::Civil;
    LawBook laws = LawBook::Washington;
    bool archived = false;
    /// Whether somebody was given something, when a list has said so.
    std::optional<bool> judgment;
    bool stillOpen = false; ///< a list has said that it is not over, however old it is
    std::vector<CaseParty> parties;
    quint64 seed = 0;
};

/// What the papers of a case are drawn from; the same for the same case of the same people.
quint64 SeedOfCase(const Population &population, QStringView court, QStringView number);

/// The numbers that one tab of the case is drawn from. Each tab has a `salt` of its own, so that
/// none of them changes when another one does.
ShortRandom DrawingFor(const CaseFile &file, quint64 salt);

/// Nothing happens in a case any more.
bool IsOver(const CaseFile &file, QDate today);

/// The number as it is compared: without marks, dashes and blanks, in capitals.
QString BareNumber(QStringView number);

/// An amount of money in cents, as the courts write it: "1,250.00".
QString MoneyText(qint64 cents);

/// A judge who has the case.
QString JudgeOf(const CaseFile &file);
} // namespace Practice
