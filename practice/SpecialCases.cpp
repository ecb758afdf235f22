#include "practice/SpecialCases.h"

#include "practice/CaseFile.h"
#include "practice/Counties.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace Practice {
namespace {
constexpr unsigned wa = FamilyBit(CourtFamily::Superior);
constexpr unsigned oregon = FamilyBit(CourtFamily::Oregon);
constexpr unsigned idaho = FamilyBit(CourtFamily::Idaho);
constexpr unsigned district = FamilyBit(CourtFamily::District);
constexpr unsigned bankruptcy = FamilyBit(CourtFamily::Bankruptcy);
constexpr unsigned state = oregon | idaho;
constexpr unsigned summaries = wa | state | bankruptcy;
constexpr unsigned all = summaries | district;

constexpr int criminal = 1;
constexpr int civil = 2;
constexpr int sealedType = 5;
constexpr int judgmentType = 9;

constexpr auto line = SpecialCase::OneLine;

// The serials of special cases: no made-up case has them, nor has a row of MANY below 99,000 rows.
constexpr int firstSerial = 99'000;
constexpr int specialYear = 1990;
constexpr int king = 17;
} // namespace

constexpr std::array<SpecialCaseRow, 44> specialCases{{
    {1, summaries, civil, line, u"ERROR~No connection to the court~"},
    {2, summaries, civil, line, u"ERROR~An error occured in the court's system~"},
    {3, summaries, civil, line, u"ERROR~An error occurred in the court's system~"},
    {4, summaries, civil, line, u"ERROR~Unknown error~"},
    {5, summaries, civil, line, u"ERROR~Unknown command~"},
    {6, summaries, civil, line, u"ERROR~Connection lost~"},
    {7, summaries, civil, line, u"ERROR~The connection to SCOMIS was lost~"},
    {8, summaries, civil, line, u"ERROR~No servers available~"},
    {9, summaries, civil, line, u"ERROR~SCOMIS failed~"},
    {10, wa, civil, line, u"ERROR -- This is not a valid case number"},
    {11, wa, civil, line, u"ERROR -- Case is not on file"},
    {12, all, civil, line, u"ERROR~The court record could not be read~"},
    {13, all, civil, SpecialCase::Nothing},
    {14, all, civil, SpecialCase::Silence},
    {15, all, civil, SpecialCase::DropLink},
    {16, wa | bankruptcy, civil, line, u"This court is currently unavailable, please try later~"},
    {17, oregon, civil, line, u"ERROR~Oregon courts are currently unavailable, please try later~"},
    {18, idaho, civil, line, u"ERROR~Idaho courts are currently unavailable, please try later~"},
    {19, state, civil, line, u"ERROR~Request case is not on file~"},
    {20, wa, civil, SpecialCase::Arbitration},
    {21, wa, civil, SpecialCase::Associated},
    {22, wa, judgmentType, SpecialCase::Associated},
    {23, all, civil, SpecialCase::LongDocket},
    {24, all, civil, SpecialCase::TabErrorOnce},
    {25, all, civil, SpecialCase::TabSilentOnce},
    {26, all, civil, SpecialCase::TabDropOnce},
    {27, all, civil, SpecialCase::EmptyTabs},
    {28, all, civil, SpecialCase::Breaks},
    {29, all, criminal, SpecialCase::NoDefinition},
    {30, all, civil, SpecialCase::SlowDocket},
    {31, wa, civil, SpecialCase::DocumentsLine, u"Court Documents N/A~"},
    {32, wa, civil, SpecialCase::DocumentsLine, u"Documents n/a for: King County~"},
    {33, wa, judgmentType, SpecialCase::DocumentsLine,
     u"Documents for this Judgment are available by searching its associated case~"},
    {34, wa, sealedType, SpecialCase::EmptyTabs},
    {35, wa, civil, SpecialCase::Documents},
    {40, district, civil, SpecialCase::SummaryLine,
     u"Archived case, Summary information is not available"},
    {41, district, civil, SpecialCase::SummaryLine,
     u"Non-JIS case. Summary information not available"},
    {42, district, civil, SpecialCase::NoNotes},
    {43, district, civil, SpecialCase::OneNote},
    {44, district, civil, SpecialCase::TwoNotes},
    {45, district, civil, SpecialCase::EmptyHeader},
    {46, district, civil, SpecialCase::HeaderOnly},
    {50, bankruptcy, civil, SpecialCase::Multiple},
    {51, bankruptcy, civil, line, u"ERROR~Illegal case number~"},
}};

QString SpecialCaseNumber(CourtFamily family, const SpecialCaseRow &row)
{
    const QString place = u"%1"_s.arg(row.place, 2, 10, QChar(u'0'));
    switch (family) {
    case CourtFamily::Superior:
        return CaseNumberText({king, specialYear, row.digit, firstSerial + row.place});
    case CourtFamily::Oregon: // there is no such month
        return u"CV900000"_s + place;
    case CourtFamily::Idaho:
        return u"CV-1990-09000%1-OC"_s.arg(place);
    case CourtFamily::District:
        return u"0KS9000"_s + place;
    case CourtFamily::Bankruptcy:
        break;
    }
    return u"90-990"_s + place;
}

QStringView SpecialCaseCourt(CourtFamily family)
{
    switch (family) {
    case CourtFamily::Superior:
        return CountyName(king);
    case CourtFamily::Oregon:
        return u"MCR C";
    case CourtFamily::Idaho:
        return u"Ada";
    case CourtFamily::District:
        return u"KSD";
    case CourtFamily::Bankruptcy:
        break;
    }
    return u"OR";
}

const SpecialCaseRow *FindSpecialCase(CourtFamily family, QStringView court, QStringView number)
{
    if (court.trimmed().compare(SpecialCaseCourt(family), Qt::CaseInsensitive) != 0)
        return nullptr;
    const QString bare = BareNumber(number);
    const auto *found =
        std::find_if(specialCases.begin(), specialCases.end(), [&](const SpecialCaseRow &row) {
            return (row.families & FamilyBit(family)) != 0
                   && BareNumber(SpecialCaseNumber(family, row)) == bare;
        });
    return found == specialCases.end() ? nullptr : found;
}

bool IsSpecialCaseNumber(CourtFamily family, const QString &number)
{
    // Asked for each case that is made up, so it must cost next to nothing.
    static const std::array<QSet<QString>, 5> taken = [] {
        std::array<QSet<QString>, 5> numbers;
        for (const SpecialCaseRow &row : specialCases) {
            for (std::size_t i = 0; i < numbers.size(); ++i) {
                const auto one = static_cast<CourtFamily>(i);
                if ((row.families & FamilyBit(one)) != 0)
                    numbers[i].insert(SpecialCaseNumber(one, row));
            }
        }
        return numbers;
    }();
    return taken[static_cast<std::size_t>(family)].contains(number);
}

bool TabMemory::FailsNow(const QString &key)
{
    if (failed.remove(key))
        return false;
    failed.insert(key);
    return true;
}

bool SaySpecialTab(const SpecialCaseRow &row, CaseTab tab, const QString &key, TabMemory &memory,
                   Reply &reply)
{
    switch (row.meaning) {
    case SpecialCase::OneLine:
        reply.Say(QString::fromUtf16(row.line));
        return true;
    case SpecialCase::SummaryLine:
        if (tab != CaseTab::Summary)
            return false;
        reply.Say(QString::fromUtf16(row.line));
        return true;
    case SpecialCase::Nothing:
        return true;
    case SpecialCase::Silence:
        reply.Silence();
        return true;
    case SpecialCase::DropLink:
        reply.Drop();
        return true;
    case SpecialCase::EmptyTabs:
        return tab != CaseTab::Summary;
    case SpecialCase::TabErrorOnce:
        if (tab == CaseTab::Summary || !memory.FailsNow(key))
            return false;
        reply.Say(u"ERROR~The court did not send this information~"_s);
        return true;
    case SpecialCase::DocumentsLine:
        if (tab != CaseTab::Documents)
            return false;
        reply.Say(QString::fromUtf16(row.line));
        return true;
    case SpecialCase::SlowDocket:
        if (tab == CaseTab::Docket) {
            for (int second = 1; second <= slowDocketSeconds; ++second)
                reply.Say(u"SEARCHING~the~docket~%1~of~%2~.."_s.arg(second).arg(slowDocketSeconds))
                    .Pause(1'000);
        }
        return false;
    default:
        return false;
    }
}
} // namespace Practice
