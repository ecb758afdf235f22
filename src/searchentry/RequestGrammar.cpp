#include "searchentry/RequestGrammar.h"

#include "core/TextUtilities.h"

using namespace Qt::StringLiterals;
using enum RequestField;

namespace {
constexpr char16_t bar = u'\u00A6';
constexpr char16_t tilde = u'~';

constexpr AllYears emptyYears{u"", false};
constexpr AllYears indexYears{u"1970", true};
constexpr AllYears bankruptcyYears{u"1980", true};

template<size_t N>
constexpr RequestRow row(RequestLine line, char16_t delimiter, AllYears years,
                         const RequestFieldSpec (&fields)[N])
{
    static_assert(N <= mostRequestFields);
    RequestRow made{line, delimiter, years, N, {}};
    for (size_t i = 0; i < N; ++i)
        made.Fields[i] = fields[i];
    return made;
}

// The keywords are exact, and so is the delimiter: it belongs to the family.
constexpr std::array<RequestRow, 16> rows{{
    row(RequestLine::Superior, bar, emptyYears,
        {u"WASUP", u"SEARCH", Last, First, MI, Empty, PlacesWithComma, CaseTypes, FromYear,
         ToYear}),
    row(RequestLine::Index, tilde, indexYears,
        {u"INDEX", u"SEARCH", Last, First, MI, Empty, PlacesWithComma, CaseTypes, FromYear, ToYear,
         u"LL=1", Limit}),
    row(RequestLine::OregonByCounty, bar, emptyYears,
        {u"OREGON", u"SEARCH", Last, First, MI, Empty, Place, CaseTypes, FromYear, ToYear}),
    row(RequestLine::OregonStatewide, bar, emptyYears,
        {u"OREGON", u"SEARCH", Last, First, MI, Empty, u"*ALL", CaseTypes, FromYear, ToYear}),
    row(RequestLine::IdahoByCounty, bar, emptyYears,
        {u"IDSUP", u"SEARCH", Last, First, MI, Empty, PlacesWithComma, CaseTypes, FromYear,
         ToYear}),
    row(RequestLine::IdahoStatewide, bar, emptyYears,
        {u"IDSUP", u"SEARCH", Last, First, MI, Empty, u"*ALL", CaseTypes, FromYear, ToYear}),
    row(RequestLine::DiscisStatewide, bar, emptyYears,
        {u"WADISCIS", u"SEARCH", Last, First, MI, u"*SW", u"IN", u"SNCI"}),
    row(RequestLine::DiscisDefendants, bar, emptyYears,
        {u"WADISCIS", u"SEARCH", Last, First, MI, u"*SW", u"IN", u"DND"}),
    row(RequestLine::DiscisNonCivil, bar, emptyYears,
        {u"WADISCIS", u"SEARCH", Last, First, MI, Place, u"IN", u"CNCI"}),
    row(RequestLine::DiscisCivil, bar, emptyYears,
        {u"WADISCIS", u"SEARCH", Last, First, MI, Place, u"CV", u"CNCI"}),
    row(RequestLine::BkPerson, tilde, bankruptcyYears,
        {u"BKRPT", u"SEARCH", Last, First, MI, Empty, Place, u"*ALL", FromYear, ToYear}),
    row(RequestLine::BkBusiness, tilde, bankruptcyYears,
        {u"BKRPT", u"SEARCHBUS", Last, Place, u"*ALL", FromYear, ToYear}),
    row(RequestLine::BkNumber, tilde, bankruptcyYears, {u"BKRPT", u"SUMMARY", Number, Place}),
    row(RequestLine::BkTaxId, tilde, bankruptcyYears,
        {u"BKRPT", u"SEARCHTID", Number, Place, u"*ALL", FromYear, ToYear}),
    row(RequestLine::BkSsn, tilde, bankruptcyYears,
        {u"BKRPT", u"SEARCHSSN", Number, Place, u"*ALL", FromYear, ToYear}),
    row(RequestLine::CaseNumber, bar, emptyYears, {u"WASUP", u"SUMMARY", Number}),
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

QString withoutFrameCharacters(QString text, char16_t delimiter)
{
    text.removeIf([delimiter](QChar c) {
        return c == delimiter || c == bar || c == u'|' || c == u'\r' || c == u'\n';
    });
    return text;
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
    QString request;
    for (size_t i = 0; i < row.Count; ++i) {
        const QString text = fieldText(row, row.Fields[i], entry, values);
        request += isTyped(row.Fields[i].Field) ? TypedFieldText(text, line)
                                                : withoutFrameCharacters(text, row.Delimiter);
        request += QChar(row.Delimiter);
    }
    return request;
}

QString TypedFieldText(const QString &text, RequestLine line)
{
    return TrimBlanks(withoutFrameCharacters(text, RequestRowOf(line).Delimiter));
}

QString EachWithComma(const QStringList &items)
{
    QString joined;
    for (const QString &item : items)
        joined += item + u',';
    return joined;
}
