#include "casedetails/CaseRequests.h"

#include "courts/CaseMarks.h"
#include "courts/Counties.h"

#include <array>

using namespace Qt::StringLiterals;

namespace {
constexpr QChar fieldBar(u'\u00A6');
constexpr QChar oregonMark(u'@');

/// The families of case request lines.
enum class Court { Washington, Oregon, Idaho, NonCivil, Civil };

struct WordRow
{
    Court court;
    CaseTab tab;
    QStringView word;
};
constexpr std::array requestWords{
    WordRow{Court::Washington, CaseTab::Summary, u"SUMMARY"},
    WordRow{Court::Washington, CaseTab::Names, u"NAMES"},
    WordRow{Court::Washington, CaseTab::Docket, u"DOCKET"},
    WordRow{Court::Washington, CaseTab::Accounting, u"ACCOUNTING"},
    WordRow{Court::Washington, CaseTab::Judgments, u"JUDGMENTS"},
    WordRow{Court::Washington, CaseTab::Charges, u"CHARGES"},
    WordRow{Court::Washington, CaseTab::Sentence, u"SENTENCE"},
    WordRow{Court::Washington, CaseTab::Schedule, u"SCHEDULE"},
    WordRow{Court::Washington, CaseTab::Documents, u"GETDOCTAB"},
    // The summaries of Oregon and Idaho ask for three tabs, but the reply is read for the summary
    // alone: Names and Docket have lines of their own.
    WordRow{Court::Oregon, CaseTab::Summary, u"SUMMARY,NAMES,DOCKET,"},
    WordRow{Court::Oregon, CaseTab::Names, u"NAMES,"},
    WordRow{Court::Oregon, CaseTab::Docket, u"DOCKET,"},
    WordRow{Court::Oregon, CaseTab::Accounting, u"ACCOUNTING,"},
    WordRow{Court::Oregon, CaseTab::Finance, u"FINANCE,"},
    WordRow{Court::Oregon, CaseTab::Judgments, u"JUDGMENTS,"},
    WordRow{Court::Oregon, CaseTab::Charges, u"CHARGES,"},
    WordRow{Court::Oregon, CaseTab::Sentence, u"SENTENCES,"},
    WordRow{Court::Oregon, CaseTab::Schedule, u"SCHEDULE,"},
    WordRow{Court::Idaho, CaseTab::Summary, u"SUMMARY,NAMES,DOCKET,"},
    WordRow{Court::Idaho, CaseTab::Names, u"NAMES,"},
    WordRow{Court::Idaho, CaseTab::Docket, u"DOCKET,"},
    WordRow{Court::Idaho, CaseTab::Judgments, u"JUDGMENTS,"},
    WordRow{Court::Idaho, CaseTab::Charges, u"CHARGES,"},
    WordRow{Court::NonCivil, CaseTab::Summary, u"NCNCC"},
    WordRow{Court::NonCivil, CaseTab::Names, u"NCPAR"},
    WordRow{Court::NonCivil, CaseTab::Docket, u"NCCDK"},
    WordRow{Court::NonCivil, CaseTab::Violations, u"NCVIO"},
    WordRow{Court::Civil, CaseTab::Summary, u"CIVI"},
    WordRow{Court::Civil, CaseTab::Names, u"CVPAR"},
    WordRow{Court::Civil, CaseTab::Docket, u"CVCDK"},
    WordRow{Court::Civil, CaseTab::Judgments, u"CVJI"},
};

struct CourtRow
{
    CaseKind kind;
    QStringView state; ///< "" for every state
    Court court;
    QStringView section;
};
constexpr std::array<CourtRow, 5> courts{{
    {CaseKind::State, u"WA", Court::Washington, u"CaseSearchTabs"},
    {CaseKind::State, u"OR", Court::Oregon, u"OrCaseSearchTabs"},
    {CaseKind::State, u"ID", Court::Idaho, u"IdCaseSearchTabs"},
    {CaseKind::NonCivil, u"", Court::NonCivil, u"NonCivilCaseTabs"},
    {CaseKind::Civil, u"", Court::Civil, u"CivilCaseTabs"},
}};

/// Nothing for the bankruptcy courts: their lines come from the server.
const CourtRow *courtRowOf(CaseKind kind, QStringView state)
{
    for (const CourtRow &row : courts) {
        if (row.kind == kind && (row.state.isEmpty() || row.state == state))
            return &row;
    }
    return nullptr;
}

/// Each field closed by the delimiter. A frame has no escape: what would break the line is left
/// out.
QString lineOf(QChar delimiter, const QStringList &fields)
{
    QString line;
    for (const QString &field : fields) {
        line += QString(field).remove(delimiter).remove(fieldBar).remove(u'|').remove(u'\r').remove(
                    u'\n')
                + delimiter;
    }
    return line;
}

/// The county's three letters, a blank, and "C" for a Circuit or "D" for a District Court.
QString oregonCourt(const CaseOfRequest &ofCase)
{
    const bool circuit = ofCase.OrCourtType.toUpper() == u"C";
    return GetOrCountyCode(ofCase.CountyName) + (circuit ? u" C"_s : u" D"_s);
}

QString lineFor(Court court, CaseTab tab, const QString &word, const CaseOfRequest &ofCase)
{
    // In a list of results the number has marks for the reader; the court knows none of them.
    const QString number = CaseNumberOf(ofCase.CaseNumber);
    const QString &county = ofCase.CountyName;
    switch (court) {
    case Court::Washington:
        if (tab == CaseTab::Documents) // the county goes first here, and only here
            return lineOf(fieldBar, {u"WASUPDOC"_s, word, county, number});
        return lineOf(fieldBar, {u"WASUP"_s, word, number, county, {}});
    case Court::Oregon:
        return lineOf(oregonMark, {u"OREGON"_s, word, number, oregonCourt(ofCase)});
    case Court::Idaho:
        return lineOf(fieldBar, {u"IDSUP"_s, word, number, county});
    case Court::NonCivil:
    case Court::Civil:
        return lineOf(fieldBar, {u"WADISCIS"_s,
                                 {},
                                 {},
                                 {},
                                 number,
                                 ofCase.CaseType,
                                 ofCase.CourtCode,
                                 court == Court::Civil ? u"CV"_s : u"IN"_s,
                                 word,
                                 {}});
    }
    return {};
}
} // namespace

QString CaseTabRequest(const CaseOfRequest &ofCase, CaseTab tab)
{
    const CourtRow *row = courtRowOf(ofCase.Kind, ofCase.State);
    if (!row)
        return {};
    for (const WordRow &words : requestWords) {
        if (words.court == row->court && words.tab == tab)
            return lineFor(row->court, tab, words.word.toString(), ofCase);
    }
    return {};
}

QString CaseTabsSection(CaseKind kind, const QString &state)
{
    const CourtRow *row = courtRowOf(kind, state);
    return row ? row->section.toString() : QString();
}

QString WithArbitration(const QString &request, ArbitrationMode mode)
{
    constexpr qsizetype tail = 2;
    if (mode == ArbitrationMode::NotAsked)
        return request;
    const QString answer =
        mode == ArbitrationMode::Arbitration ? u" ARBITRATION"_s : u" NOARBITRATION"_s;
    return request.chopped(qMin(tail, request.size())) + answer + fieldBar + fieldBar;
}

QString BankruptcyRequest(const QStringList &lines, CaseTab tab)
{
    const QStringView word = CaseTabRowOf(tab).caption;
    for (const QString &line : lines) {
        if (line.contains(word, Qt::CaseInsensitive))
            return line;
    }
    return {};
}
