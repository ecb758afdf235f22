#include "searchentry/NumberRequests.h"

#include "core/RunTimeError.h"
#include "core/TextUtilities.h"
#include "core/Windows1252.h"
#include "searchentry/BankruptcyRequests.h"
#include "searchentry/EntryText.h"
#include "searchentry/RequestGrammar.h"

using namespace Qt::StringLiterals;

namespace {
/// What a state's case windows read. A single number and a batch differ: only Washington says its
/// court and its line in both.
struct StateRow
{
    CourtFamily court;
    bool courtWithOneNumber;
    bool lineInBatch;
};
constexpr std::array<StateRow, 3> states{{
    {CourtFamily::Superior, true, true},
    {CourtFamily::Oregon, false, false},
    {CourtFamily::Idaho, false, false},
}};

const StateRow *stateRow(const SearchEntry &entry)
{
    for (const StateRow &row : states) {
        if (row.court == entry.Court)
            return &row;
    }
    return nullptr;
}

QString courtType(const SearchEntry &entry)
{
    if (entry.Court != CourtFamily::Oregon)
        return {};
    return entry.DistrictCourt ? u"D"_s : u"C"_s;
}

QString header(const QString &number)
{
    return u"Case Details ("_s + number + u')';
}

/// What one number and a row of a batch have in common.
CaseStart fieldsOf(const SearchEntry &entry, const QString &typedNumber, const QString &county)
{
    const QString number = FoldToUpper(TrimBlanks(typedNumber));
    CaseStart fields;
    fields.lblState = CourtOf(entry.Court).State.toString();
    fields.SetHeading(header(number));
    fields.txtCountyName = county;
    fields.lblCourtName = CourtsOfCounty(county, entry.Court, entry.DistrictCourt);
    fields.lblOrCourtType = courtType(entry);
    fields.txtCaseNumber = number;
    fields.tboxCaseNumberQueue = CaseNumberRequest(number);
    return fields;
}
} // namespace

QString CaseNumberRequest(const QString &number)
{
    SearchEntry entry;
    entry.Names[LastName] = FoldToUpper(number);
    return ComposeRequest(RequestLine::CaseNumber, entry, {});
}

CaseStart NumberFields(const SearchEntry &entry)
{
    const StateRow *row = stateRow(entry);
    if (!row)
        throw RunTimeError::SubscriptOutOfRange();
    CaseStart fields = fieldsOf(entry, entry.Names[LastName], entry.NumberCounty);
    if (!row->courtWithOneNumber)
        fields.lblCourtName.clear();
    return fields;
}

QList<CaseStart> BatchFields(const SearchEntry &entry)
{
    QList<CaseStart> all;
    const StateRow *row = stateRow(entry);
    if (!row)
        return all;
    for (size_t i = 0; i < entry.Batch.size(); ++i) {
        const BatchRow &typed = entry.Batch.at(i);
        if (TrimBlanks(typed.Number).isEmpty())
            continue;
        CaseStart fields = fieldsOf(entry, typed.Number, typed.County);
        fields.Origin = TextOfEntry(AsAskedInRow(entry, i));
        if (!row->lineInBatch)
            fields.tboxCaseNumberQueue.clear();
        all.append(fields);
    }
    return all;
}

CaseStart BkNumberFields(const SearchEntry &entry, int courtIndex)
{
    const CourtFacts &court = BkCourt(courtIndex);
    const QString number = FoldToUpper(TrimBlanks(entry.Names[LastName]));
    CaseStart fields;
    fields.lblState = court.State.toString();
    fields.SetHeading(header(number));
    fields.Caption = number + u" / " + court.OfNumber;
    fields.lblCourtName = court.OfNumber.toString();
    fields.txtCaseNumber = number;
    fields.chkBK = true;
    return fields;
}
