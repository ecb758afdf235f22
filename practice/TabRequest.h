#pragma once

#include "practice/OtherCourts.h"

#include <QString>
#include <QStringList>

#include <optional>

namespace Practice {
/// All court families; behind the Superior Courts the others in their order.
enum class CourtFamily : quint8 { Superior, Oregon, Idaho, District, Bankruptcy };

/// The family of a search.
constexpr CourtFamily CourtFamilyOf(OtherFamily family)
{
    return static_cast<CourtFamily>(static_cast<int>(family) + 1);
}

enum class CaseTab : quint8 {
    Summary,
    Names,
    Docket,
    Accounting,
    Judgments,
    Charges,
    Sentence,
    Schedule,
    Documents,
    Finance,
    Violations,
};

/// What the client said when it was asked which part of the case is meant.
enum class ArbitrationAnswer : quint8 { NotGiven, Arbitration, NoArbitration };

/// A request for one tab of a case.
struct TabAsked
{
    CourtFamily family = CourtFamily::Superior;
    CaseTab tab = CaseTab::Summary;
    QString number;    ///< as the client has it, perhaps with the marks of its list
    QString court;     ///< county, court or code; empty when the request names none
    bool civil = true; ///< of a district court: the civil side of it
    ArbitrationAnswer arbitration = ArbitrationAnswer::NotGiven;
};

/// What follows the keyword of a request, read as a request for a tab; nullopt when it is none. Of
/// a list of tabs the first is meant.
std::optional<TabAsked> ParseTabRequest(CourtFamily family, QStringList fields);

/// What follows "WASUPDOC": GETDOCTAB, the county, the number.
std::optional<TabAsked> ParseDocumentsRequest(const QStringList &fields);

/// The number without the marks "*" and ">>" of a list.
QString WithoutMarks(const QString &number);
} // namespace Practice
