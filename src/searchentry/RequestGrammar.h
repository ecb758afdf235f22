#pragma once

#include "searchentry/SearchEntry.h"

#include <span>

// What stands in which field of a search request is one table; nothing else in the program writes a
// search line.

/// The kinds of search line, in the order of their table.
enum class RequestLine {
    Superior,
    Index,
    OregonByCounty,
    OregonStatewide,
    IdahoByCounty,
    IdahoStatewide,
    DiscisStatewide,
    DiscisDefendants, ///< statewide, with addresses
    DiscisNonCivil,
    DiscisCivil,
    BkPerson,
    BkBusiness,
    BkNumber,
    BkTaxId,
    BkSsn,
    CaseNumber
};

/// What one field of a line holds.
enum class RequestField {
    Literal,
    Empty, ///< where a suffix would stand: it is asked for on the form and never sent
    Last,
    First,
    MI,
    Number,
    Place,           ///< one court or county code, as it stands
    PlacesWithComma, ///< every county, each with a comma
    CaseTypes,
    FromYear,
    ToYear,
    Limit ///< "UL=" and the page size
};

/// A field of the table. A word stands for itself.
struct RequestFieldSpec
{
    RequestField Field = RequestField::Empty;
    QStringView Text;

    constexpr RequestFieldSpec() = default;
    // Implicit, so that a row of the table reads like the line it makes.
    constexpr RequestFieldSpec(RequestField field) : Field(field) {}
    explicit constexpr RequestFieldSpec(QStringView word) : Field(RequestField::Literal), Text(word)
    {
    }
    template<size_t N>
    constexpr RequestFieldSpec(const char16_t (&word)[N])
        : Field(RequestField::Literal), Text(word, N - 1)
    {
    }
};

constexpr size_t mostRequestFields = 12;

/// The years that a line carries when the user gave no range.
struct AllYears
{
    QStringView From;
    bool ToThisYear;
};

/// One kind of line.
struct RequestRow
{
    RequestLine Line;
    char16_t Delimiter;
    AllYears Years;
    size_t Count;
    std::array<RequestFieldSpec, mostRequestFields> Fields;
};

/// The whole table.
std::span<const RequestRow> RequestRows();

const RequestRow &RequestRowOf(RequestLine line);

/// What goes into a line beside the entries themselves.
struct RequestValues
{
    QStringList Places; ///< counties, or the one code of a court
    QString CaseTypes;  ///< the finished field
    int PageSize = 0;
    int ThisYear = 0;
};

/// The line. A field never holds what frames it: the delimiter of its line, "|", the broken bar and
/// line ends are left out of what was entered, since a frame has no way to escape them.
QString ComposeRequest(RequestLine line, const SearchEntry &entry, const RequestValues &values);

/// What a text that was typed leaves for a field of this line: what would break the line's frame
/// goes, and then the blanks at either end.
QString TypedFieldText(const QString &text, RequestLine line);

/// Each item with a comma behind it, the last one too.
QString EachWithComma(const QStringList &items);
