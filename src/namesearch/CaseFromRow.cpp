#include "namesearch/CaseFromRow.h"

#include "core/TextUtilities.h"
#include "courts/CaseMarks.h"
#include "courts/Counties.h"
#include "courts/CourtTable.h"
#include "courts/DiscisCourts.h"
#include "link/RequestLine.h"

#include <array>

using namespace Qt::StringLiterals;

namespace {
// Cells, in the order of the columns
constexpr int numberCell = 1;
constexpr int dateCell = 2;
constexpr int locationCell = 4;
constexpr int indexLocationCell = 5;
constexpr int roleCell = 5;
constexpr int retrievalCell = 6;
constexpr int courtCodeCell = 2; ///< District and Municipal Courts, as are the next
constexpr int courtPlaceCell = 3;
constexpr int caseTypeCell = 4;
constexpr int discisDateCell = 7;
constexpr int requestTypeField = 6;

constexpr QStringView openedMark = u">>";
constexpr QStringView pendingTitle = u"Pending .. ";
constexpr QStringView warningCell = u"**Warning**";

/// The lines that open a case from a list have the bar, those of Oregon too.
QString lineOf(const QStringList &fields)
{
    return ComposeLine(fieldBar, fields);
}

/// "WA Superior Ct King County" gives "King".
QString washingtonCounty(const QString &location)
{
    const QString before = u"Ct "_s;
    const qsizetype start = location.indexOf(before);
    if (start < 0)
        return {};
    const QString county = location.sliced(start + before.size());
    const qsizetype end = county.indexOf(u" County"_s);
    return end < 0 ? county : county.first(end);
}

/// "OR Baker Co Cir Ct" gives "Baker".
QString oregonCounty(const QString &location)
{
    if (OrCountyList().isEmpty())
        LoadOrCounties();
    // A county at either end has no blank of its own there.
    return GetOrCountyFromList(u' ' + location + u' ');
}

/// "ID District Ct Ada County" gives "Ada".
QString idahoCounty(const QString &location)
{
    return TrimBlanks(QString(location).remove(u"ID District Ct "_s).remove(u" County"_s));
}

bool isCircuitCourt(const QString &location)
{
    return location.toLower().contains(u"co cir ct");
}

/// What a case of a state's courts reads and asks for.
struct StateRow
{
    QStringView state;
    QString (*countyOf)(const QString &location);
    QStringView words;
    QStringView log;
};
constexpr std::array<StateRow, 3> states{{
    {u"WA", washingtonCounty, u"SUMMARY", u"Washington Summary Request: "},
    {u"OR", oregonCounty, u"SUMMARY,NAMES,DOCKET,", u"Oregon Summary Request: "},
    {u"ID", idahoCounty, u"SUMMARY,NAMES,DOCKET,", u"Idaho Summary Request: "},
}};
struct IdahoType
{
    QStringView head; ///< of the case number
    QStringView type;
};
constexpr std::array<IdahoType, 3> idahoTypes{{
    {u"CV-", u"Civil/"},
    {u"CR-", u"Criminal/"},
    {u"JV-", u"Juvenile/"},
}};

/// The two windows of the District and Municipal Courts.
struct DiscisRow
{
    CaseKind of;
    QStringView kind;
    QStringView word;
    QStringView log;
};
constexpr DiscisRow civil{CaseKind::Civil, u"CV", u"CIVI", u"Discis CIVI Search Request: "};
constexpr DiscisRow nonCivil{CaseKind::NonCivil, u"IN", u"NCC", u"Discis NCC Search Request: "};

/// What all of these windows read of a number. An archived case has a "*" in its heading.
CaseStart caseOf(const QString &cell)
{
    const QString number = CaseNumberOf(cell);
    const bool archived = cell.startsWith(u'*') || cell.startsWith(u">>*");
    CaseStart fields;
    fields.Caption = u"Case Details ("_s + number + u')';
    fields.SetTitle(pendingTitle.toString());
    fields.SetHeading(u"Case Details ("_s + (archived ? u"*"_s : QString()) + number + u')');
    fields.txtCaseNumber = cell;
    return fields;
}

void fillBankruptcy(CaseStart &fields, const QStringList &cells)
{
    const QString cell = cells.value(numberCell);
    fields.chkBK = true;
    fields.tboxCaseNumberQueue = CaseNumberOf(cell);
    if (const CourtFacts *court = CourtOfState(fields.lblState))
        fields.lblCourtName = court->OfRow.toString();
    fields.TabRequests = {cells.value(retrievalCell)};
    fields.Log = u"Bankruptcy Request: "_s + cells.value(retrievalCell);
}

void fillWashington(CaseStart &fields, const StateRow &row, const QString &number,
                    const QString &county)
{
    fields.txtCountyName = county;
    fields.lblCourtName = CourtsOfCounty(county, CourtFamily::Superior);
    fields.Caption = number + u" - "_s + county + u" County Superior Courts"_s;
    fields.tboxCaseNumberQueue = lineOf(
        {CourtOfState(row.state)->Word.toString(), row.words.toString(), number, county, {}});
}

void fillState(CaseStart &fields, const StateRow &row, const QStringList &cells,
               const QString &location)
{
    const QString number = CaseNumberOf(cells.value(numberCell));
    const QString county = row.countyOf(location);
    if (row.state == u"WA") {
        fillWashington(fields, row, number, county);
    } else {
        QString court = county;
        fields.txtCountyName = county;
        fields.lblCourtName = CourtsOfCounty(county, FamilyOfState(row.state));
        if (row.state == u"OR") {
            fields.lblOrCourtType = isCircuitCourt(location) ? u"C"_s : u"D"_s;
            court = GetOrCountyCode(county) + u' ' + fields.lblOrCourtType;
            if (fields.lblOrCourtType == u"D")
                fields.lblCourtName = CourtsOfCounty(county, CourtFamily::Oregon, true);
        }
        fields.tboxCaseNumberQueue =
            lineOf({CourtOfState(row.state)->Word.toString(), row.words.toString(), number, court});
    }
    fields.Log = row.log.toString() + fields.tboxCaseNumberQueue;
}

QString idahoTypeOf(const QStringList &cells)
{
    const QString number = CaseNumberOf(cells.value(numberCell));
    for (const IdahoType &row : idahoTypes) {
        if (number.startsWith(row.head))
            return row.type.toString() + cells.value(roleCell);
    }
    return {};
}

CaseStart superiorCase(const QStringList &cells, const QString &county)
{
    const QString cell = cells.value(numberCell);
    CaseStart fields = caseOf(cell);
    fields.lblState = u"WA"_s;
    fields.lblDateFiled = cells.value(discisDateCell);
    fillWashington(fields, states.front(), CaseNumberOf(cell), county);
    fields.Log = u"Summary Request: "_s + fields.tboxCaseNumberQueue;
    return fields;
}

CaseStart discisCase(const QStringList &cells, const DiscisRow &row)
{
    const QString number = CaseNumberOf(cells.value(numberCell));
    const QString code = cells.value(courtCodeCell);
    const QString type = cells.value(caseTypeCell);
    CaseStart fields(row.of);
    fields.SetTitle(pendingTitle.toString());
    fields.lblCaseNo = number;
    fields.lblDateFiled = cells.value(discisDateCell);
    fields.txtCaseNumber = number;
    fields.txtCourtCode = code;
    fields.txtCaseType = type;
    if (const clsDiscisCourts *court = DiscisCourtByCode(TrimBlanks(code))) {
        fields.Caption = number + u" - "_s + court->CourtName + u" Cty. / "_s + court->CourtCounty;
        fields.lblCourtName = court->CourtCounty + u" Cty. - "_s + court->CourtName;
        fields.txtCountyName = court->CourtCounty;
    } else {
        // A court that the catalogue does not have reads as its row.
        fields.Caption = number + u" - "_s + cells.value(courtPlaceCell);
        fields.lblCourtName = cells.value(courtPlaceCell);
    }
    fields.tboxCaseNumberQueue = lineOf({CourtOf(CourtFamily::Discis).Word.toString(),
                                         {},
                                         {},
                                         {},
                                         number,
                                         type,
                                         code,
                                         row.kind.toString(),
                                         row.word.toString(),
                                         {}});
    fields.Log = row.log.toString() + fields.tboxCaseNumberQueue;
    return fields;
}
} // namespace

QString MarkedAsOpened(const QString &cell)
{
    return cell.startsWith(openedMark) ? cell : QString(openedMark.toString() + cell);
}

bool IsCaseRow(const QStringList &cells)
{
    return NamesCase(cells.value(numberCell));
}

bool NamesCase(const QString &cell)
{
    return cell != warningCell && !CaseNumberOf(cell).isEmpty();
}

CaseStart CaseOfRow(const QStringList &cells, ResultKind kind, const QString &state)
{
    CaseStart fields = caseOf(cells.value(numberCell));
    fields.lblState = state;
    fields.lblDateFiled = cells.value(dateCell);
    if (kind == ResultKind::Bankruptcy) {
        fillBankruptcy(fields, cells);
        return fields;
    }
    const QString location =
        cells.value(kind == ResultKind::Index ? indexLocationCell : locationCell);
    for (const StateRow &row : states) {
        if (row.state == state)
            fillState(fields, row, cells, location);
    }
    if (state == u"ID")
        fields.lblTopFrameCaseType = idahoTypeOf(cells);
    return fields;
}

CaseStart DiscisCaseOfRow(const QStringList &cells, ResultKind kind, const QString &requestType)
{
    if (kind == ResultKind::DiscisCivil)
        return discisCase(cells, civil);
    const QString county = CountyFromDiscisCode(TrimBlanks(cells.value(courtCodeCell)).toLower());
    if (!county.isEmpty())
        return superiorCase(cells, county);
    return discisCase(cells, requestType == u"CV" ? civil : nonCivil);
}

QString CaseTypeOfRequest(const QString &requestLine)
{
    return requestLine.split(QChar(fieldBar)).value(requestTypeField);
}
