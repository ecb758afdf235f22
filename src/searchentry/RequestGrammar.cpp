#include "searchentry/RequestGrammar.h"

#include "core/TextUtilities.h"
#include "link/RequestLine.h"

using namespace Qt::StringLiterals;
using enum RequestField;

namespace {
constexpr AllYears emptyYears{u"", false};
constexpr AllYears indexYears{u"1970", true};
constexpr AllYears bankruptcyYears{u"1980", true};

// All bankruptcy courts have the same lines.
constexpr CourtSystem bankruptcy = CourtSystem::WesternBankruptcy;

/// The court's own word stands in front of the fields.
template<size_t N>
constexpr RequestRow row(RequestLine line, CourtSystem system, AllYears years,
                         const RequestFieldSpec (&fields)[N])
{
    static_assert(N < mostRequestFields);
    const CourtFacts &court = CourtOf(system);
    RequestRow made{line, court.SearchDelimiter, years, N + 1, {}};
    made.Fields[0] = RequestFieldSpec(court.Word);
    for (size_t i = 0; i < N; ++i)
        made.Fields[i + 1] = fields[i];
    return made;
}

// The keywords are exact.
constexpr std::array<RequestRow, 16> rows{{
    row(RequestLine::Superior, CourtSystem::Superior, emptyYears,
        {u"SEARCH", Last, First, MI, Empty, PlacesWithComma, CaseTypes, FromYear, ToYear}),
    row(RequestLine::Index, CourtSystem::Index, indexYears,
        {u"SEARCH", Last, First, MI, Empty, PlacesWithComma, CaseTypes, FromYear, ToYear, u"LL=1",
         Limit}),
    row(RequestLine::OregonByCounty, CourtSystem::Oregon, emptyYears,
        {u"SEARCH", Last, First, MI, Empty, Place, CaseTypes, FromYear, ToYear}),
    row(RequestLine::OregonStatewide, CourtSystem::Oregon, emptyYears,
        {u"SEARCH", Last, First, MI, Empty, u"*ALL", CaseTypes, FromYear, ToYear}),
    row(RequestLine::IdahoByCounty, CourtSystem::Idaho, emptyYears,
        {u"SEARCH", Last, First, MI, Empty, PlacesWithComma, CaseTypes, FromYear, ToYear}),
    row(RequestLine::IdahoStatewide, CourtSystem::Idaho, emptyYears,
        {u"SEARCH", Last, First, MI, Empty, u"*ALL", CaseTypes, FromYear, ToYear}),
    row(RequestLine::DiscisStatewide, CourtSystem::DiscisNonCivil, emptyYears,
        {u"SEARCH", Last, First, MI, u"*SW", u"IN", u"SNCI"}),
    row(RequestLine::DiscisDefendants, CourtSystem::DiscisNonCivil, emptyYears,
        {u"SEARCH", Last, First, MI, u"*SW", u"IN", u"DND"}),
    row(RequestLine::DiscisNonCivil, CourtSystem::DiscisNonCivil, emptyYears,
        {u"SEARCH", Last, First, MI, Place, u"IN", u"CNCI"}),
    row(RequestLine::DiscisCivil, CourtSystem::DiscisCivil, emptyYears,
        {u"SEARCH", Last, First, MI, Place, u"CV", u"CNCI"}),
    row(RequestLine::BkPerson, bankruptcy, bankruptcyYears,
        {u"SEARCH", Last, First, MI, Empty, Place, u"*ALL", FromYear, ToYear}),
    row(RequestLine::BkBusiness, bankruptcy, bankruptcyYears,
        {u"SEARCHBUS", Last, Place, u"*ALL", FromYear, ToYear}),
    row(RequestLine::BkNumber, bankruptcy, bankruptcyYears, {u"SUMMARY", Number, Place}),
    row(RequestLine::BkTaxId, bankruptcy, bankruptcyYears,
        {u"SEARCHTID", Number, Place, u"*ALL", FromYear, ToYear}),
    row(RequestLine::BkSsn, bankruptcy, bankruptcyYears,
        {u"SEARCHSSN", Number, Place, u"*ALL", FromYear, ToYear}),
    row(RequestLine::CaseNumber, CourtSystem::Superior, emptyYears, {u"SUMMARY", Number}),
}};

constexpr bool rowsStandInOrder()
{
    for (size_t i = 0; i < rows.size(); ++i) {
        if (rows[i].Line != static_cast<RequestLine>(i))
            return false;
    }
    return true;
}
static_assert(rowsStandInOrder());

QString fromYear(const RequestRow &row, const SearchEntry &entry)
{
    return entry.YearRange ? TrimBlanks(entry.FromYear) : row.Years.From.toString();
}

QString toYear(const RequestRow &row, const SearchEntry &entry, int thisYear)
{
    if (entry.YearRange)
        return TrimBlanks(entry.ToYear);
    return row.Years.ToThisYear ? QString::number(thisYear) : QString();
}

QString fieldText(const RequestRow &row, const RequestFieldSpec &field, const SearchEntry &entry,
                  const RequestValues &values)
{
    switch (field.Field) {
    case Literal:
        return field.Text.toString();
    case Empty:
        return {};
    case Last:
    case Number:
        return entry.Names[LastName];
    case First:
        return entry.Names[FirstName];
    case MI:
        return entry.Names[MiddleInitial];
    case Place:
        return values.Places.value(0);
    case PlacesWithComma:
        return EachWithComma(values.Places);
    case CaseTypes:
        return values.CaseTypes;
    case FromYear:
        return fromYear(row, entry);
    case ToYear:
        return toYear(row, entry, values.ThisYear);
    case Limit:
        return u"UL="_s + QString::number(values.PageSize);
    }
    return {};
}

/// The boxes that the user typed into: only they lose the blanks at their ends. A place keeps
/// them, " C" of a county without a code among them.
constexpr bool isTyped(RequestField field)
{
    return field == Last || field == First || field == MI || field == Number;
}
} // namespace

std::span<const RequestRow> RequestRows()
{
    return rows;
}

const RequestRow &RequestRowOf(RequestLine line)
{
    return rows[static_cast<size_t>(line)];
}

QString ComposeRequest(RequestLine line, const SearchEntry &entry, const RequestValues &values)
{
    const RequestRow &row = RequestRowOf(line);
    QStringList fields;
    for (size_t i = 0; i < row.Count; ++i) {
        const QString text = fieldText(row, row.Fields[i], entry, values);
        fields += isTyped(row.Fields[i].Field) ? TypedFieldText(text, line) : text;
    }
    return ComposeLine(row.Delimiter, fields);
}

QString TypedFieldText(const QString &text, RequestLine line)
{
    return TrimBlanks(FieldText(text, RequestRowOf(line).Delimiter));
}

QString EachWithComma(const QStringList &items)
{
    QString joined;
    for (const QString &item : items)
        joined += item + u',';
    return joined;
}
