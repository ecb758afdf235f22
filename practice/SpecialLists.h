#pragma once

#include "practice/OtherSearch.h"
#include "practice/SuperiorCases.h"
#include "practice/TabRequest.h"

#include <QStringList>

#include <array>
#include <deque>
#include <optional>

namespace Practice {
/// The lists that names with a meaning have brought to one client. Their cases are made up on the
/// spot and are kept nowhere; what is remembered is the search, so that each row of it opens.
class SpecialLists
{
public:
    explicit SpecialLists(int thisYear) : lastYear(thisYear) {}

    /// Takes what follows the keyword of a search. Only a name with a meaning is remembered.
    void Note(CourtFamily family, const QStringList &fields);

    /// Whether the last search of the family was for such a name: then its rows are meant, even
    /// when somebody has a case of the same number.
    bool AreLatest(CourtFamily family) const;

    /// The row of this number, of the latest list that has it.
    std::optional<SuperiorRow> FindSuperior(const CaseNumber &number) const;
    std::optional<OtherHit> FindOther(OtherFamily family, const QString &number) const;

private:
    std::optional<OtherHit> findIn(OtherFamily family, const QStringList &fields,
                                   const QString &number) const;

    struct Noted
    {
        std::deque<QStringList> searches; ///< the latest first
        bool latest = false;
    };

    int lastYear;
    std::array<Noted, 5> noted;
};
} // namespace Practice
