#include "searchentry/NameRequests.h"

#include "courts/Counties.h"
#include "searchentry/OregonRequests.h"
#include "searchentry/RequestGrammar.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {
/// A word of the list and the code by which a court knows it.
struct CaseTypeCode
{
    CourtFamily court;
    QStringView word;
    QStringView code;
};

// In the order in which they are replaced, each over the whole field.
constexpr std::array<CaseTypeCode, 10> caseTypeCodes{{
    {CourtFamily::Oregon, u"Offense", u"OF"},
    {CourtFamily::Oregon, u"Civil", u"CV"},
    {CourtFamily::Oregon, u"Domestic", u"DO"},
    {CourtFamily::Oregon, u"Juvenile Offender", u"JU"},
    {CourtFamily::Oregon, u"Probate", u"PB"},
    {CourtFamily::Oregon, u"Small Claims", u"SC"},
    {CourtFamily::Oregon, u"Judgment", u"JG"},
    {CourtFamily::Idaho, u"Civil", u"CV"},
    {CourtFamily::Idaho, u"Criminal", u"CR"},
    {CourtFamily::Idaho, u"Juvenile", u"JU"},
}};

/// The only words that the index knows.
constexpr std::array<QStringView, 6> indexWords{u"Criminal", u"Civil",    u"Domestic",
                                                u"Probate",  u"Judgment", u"Juvenile Offender"};

/// A word that the index does not know repeats the one before it. With none before it there is
/// nothing to repeat.
QString indexCaseTypes(const QStringList &types)
{
    QStringList words;
    for (const QString &type : types) {
        if (std::find(indexWords.begin(), indexWords.end(), type) != indexWords.end())
            words.append(type);
        else if (!words.isEmpty())
            words.append(words.last());
    }
    return EachWithComma(words);
}

/// One name search while its lines are made.
class NameSearch
{
public:
    NameSearch(const SearchEntry &searchEntry, const RequestContext &requestContext)
        : entry(searchEntry), context(requestContext), caseTypes(CaseTypeField(searchEntry))
    {
    }

    QStringList Superior() const { return EachCounty(&NameSearch::LineByName); }

    QStringList Index() const { return {Compose(RequestLine::Index, Counties())}; }

    QStringList Oregon() const
    {
        return Statewide() ? QStringList{Compose(RequestLine::OregonStatewide, {})}
                           : EachCounty(&NameSearch::OregonLine);
    }

    QStringList Idaho() const
    {
        return Statewide() ? QStringList{Compose(RequestLine::IdahoStatewide, {})}
                           : EachCounty(&NameSearch::LineByName);
    }

private:
    bool Statewide() const { return entry.Where == SearchScope::Statewide; }

    const QStringList &Counties() const
    {
        return Statewide() ? context.StateCounties : entry.Counties;
    }

    QString Compose(RequestLine line, const QStringList &places) const
    {
        return ComposeRequest(line, entry, {places, caseTypes, context.PageSize, context.ThisYear});
    }

    QString LineByName(const QString &county) const
    {
        return Compose(entry.Court == CourtFamily::Idaho ? RequestLine::IdahoByCounty
                                                         : RequestLine::Superior,
                       {county});
    }

    /// The line of an Oregon county, "" when the county cannot answer it.
    QString OregonLine(const QString &county) const
    {
        const QString court = entry.DistrictCourt ? u" D"_s : u" C"_s;
        const QString line =
            Compose(RequestLine::OregonByCounty, {GetOrCountyCode(county) + court});
        if (IsOregonRequestValid(line))
            return line;
        const QString fixed = FixOregonRequest(line);
        return IsOregonRequestValid(fixed) ? fixed : QString();
    }

    QStringList EachCounty(QString (NameSearch::*lineOf)(const QString &) const) const
    {
        QStringList lines;
        // A copy: anything may happen to the lists during a turn of the event loop.
        const QStringList counties = Counties();
        for (const QString &county : counties) {
            const QString line = (this->*lineOf)(county);
            if (!line.isEmpty())
                lines.append(line);
            if (context.Turn)
                context.Turn();
        }
        return lines;
    }

    const SearchEntry &entry;
    const RequestContext &context;
    QString caseTypes;
};
} // namespace

bool IsIndexSearch(const SearchEntry &entry)
{
    return entry.Court == CourtFamily::Superior && entry.UseIndex
           && entry.Kind != SearchKind::Number;
}

QString CaseTypeField(const SearchEntry &entry)
{
    if (IsIndexSearch(entry))
        return indexCaseTypes(entry.CaseTypes);
    QString field = EachWithComma(entry.CaseTypes);
    if (entry.Court == CourtFamily::Oregon && entry.JudgmentsOnly)
        field += u"Judgment,"_s;
    for (const CaseTypeCode &row : caseTypeCodes) {
        if (row.court == entry.Court)
            field.replace(row.word.toString(), row.code.toString());
    }
    return field;
}

QStringList NameRequests(const SearchEntry &entry, const RequestContext &context)
{
    const NameSearch search(entry, context);
    switch (entry.Court) {
    case CourtFamily::Superior:
        return IsIndexSearch(entry) ? search.Index() : search.Superior();
    case CourtFamily::Oregon:
        return search.Oregon();
    case CourtFamily::Idaho:
        return search.Idaho();
    case CourtFamily::Discis:
    case CourtFamily::Bankruptcy:
        break;
    }
    return {};
}
