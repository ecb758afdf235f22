#include "casedetails/CaseRequests.h"

#include "courts/CaseMarks.h"
#include "courts/Counties.h"
#include "courts/CourtTable.h"
#include "link/RequestLine.h"

#include <array>

using namespace Qt::StringLiterals;

namespace {
struct WordRow
{
    CourtSystem court;
    CaseTab tab;
    QStringView word;
};
constexpr std::array requestWords{
    WordRow{CourtSystem::Superior, CaseTab::Summary, u"SUMMARY"},
    WordRow{CourtSystem::Superior, CaseTab::Names, u"NAMES"},
    WordRow{CourtSystem::Superior, CaseTab::Docket, u"DOCKET"},
    WordRow{CourtSystem::Superior, CaseTab::Accounting, u"ACCOUNTING"},
    WordRow{CourtSystem::Superior, CaseTab::Judgments, u"JUDGMENTS"},
    WordRow{CourtSystem::Superior, CaseTab::Charges, u"CHARGES"},
    WordRow{CourtSystem::Superior, CaseTab::Sentence, u"SENTENCE"},
    WordRow{CourtSystem::Superior, CaseTab::Schedule, u"SCHEDULE"},
    WordRow{CourtSystem::Superior, CaseTab::Documents, u"GETDOCTAB"},
    // The summaries of Oregon and Idaho ask for three tabs, but the reply is read for the summary
    // alone: Names and Docket have lines of their own.
    WordRow{CourtSystem::Oregon, CaseTab::Summary, u"SUMMARY,NAMES,DOCKET,"},
    WordRow{CourtSystem::Oregon, CaseTab::Names, u"NAMES,"},
    WordRow{CourtSystem::Oregon, CaseTab::Docket, u"DOCKET,"},
    WordRow{CourtSystem::Oregon, CaseTab::Accounting, u"ACCOUNTING,"},
    WordRow{CourtSystem::Oregon, CaseTab::Finance, u"FINANCE,"},
    WordRow{CourtSystem::Oregon, CaseTab::Judgments, u"JUDGMENTS,"},
    WordRow{CourtSystem::Oregon, CaseTab::Charges, u"CHARGES,"},
    WordRow{CourtSystem::Oregon, CaseTab::Sentence, u"SENTENCES,"},
    WordRow{CourtSystem::Oregon, CaseTab::Schedule, u"SCHEDULE,"},
    WordRow{CourtSystem::Idaho, CaseTab::Summary, u"SUMMARY,NAMES,DOCKET,"},
    WordRow{CourtSystem::Idaho, CaseTab::Names, u"NAMES,"},
    WordRow{CourtSystem::Idaho, CaseTab::Docket, u"DOCKET,"},
    WordRow{CourtSystem::Idaho, CaseTab::Judgments, u"JUDGMENTS,"},
    WordRow{CourtSystem::Idaho, CaseTab::Charges, u"CHARGES,"},
    WordRow{CourtSystem::DiscisNonCivil, CaseTab::Summary, u"NCNCC"},
    WordRow{CourtSystem::DiscisNonCivil, CaseTab::Names, u"NCPAR"},
    WordRow{CourtSystem::DiscisNonCivil, CaseTab::Docket, u"NCCDK"},
    WordRow{CourtSystem::DiscisNonCivil, CaseTab::Violations, u"NCVIO"},
    WordRow{CourtSystem::DiscisCivil, CaseTab::Summary, u"CIVI"},
    WordRow{CourtSystem::DiscisCivil, CaseTab::Names, u"CVPAR"},
    WordRow{CourtSystem::DiscisCivil, CaseTab::Docket, u"CVCDK"},
    WordRow{CourtSystem::DiscisCivil, CaseTab::Judgments, u"CVJI"},
};

/// Nothing for the bankruptcy courts: their lines come from the server.
const CourtFacts *courtOf(CaseKind kind, QStringView state)
{
    if (kind == CaseKind::NonCivil)
        return &CourtOf(CourtSystem::DiscisNonCivil);
    if (kind == CaseKind::Civil)
        return &CourtOf(CourtSystem::DiscisCivil);
    const CourtFacts *court = CourtOfState(state);
    return court && court->Family != CourtFamily::Bankruptcy ? court : nullptr;
}

/// The county's three letters, a blank, and "C" for a Circuit or "D" for a District Court.
QString oregonCourt(const CaseOfRequest &ofCase)
{
    const bool circuit = ofCase.OrCourtType.toUpper() == u"C";
    return GetOrCountyCode(ofCase.CountyName) + (circuit ? u" C"_s : u" D"_s);
}

QStringList fieldsOf(const CourtFacts &court, CaseTab tab, const QString &word,
                     const CaseOfRequest &ofCase)
{
    // In a list of results the number has marks for the reader; the court knows none of them.
    const QString number = CaseNumberOf(ofCase.CaseNumber);
    const QString &county = ofCase.CountyName;
    const QString courtWord = court.Word.toString();
    switch (court.Family) {
    case CourtFamily::Superior:
        if (tab == CaseTab::Documents) // the county goes first here, and only here
            return {court.DocumentsWord.toString(), word, county, number};
        return {courtWord, word, number, county, {}};
    case CourtFamily::Oregon:
        return {courtWord, word, number, oregonCourt(ofCase)};
    case CourtFamily::Idaho:
        return {courtWord, word, number, county};
    case CourtFamily::Discis:
        return {courtWord,
                {},
                {},
                {},
                number,
                ofCase.CaseType,
                ofCase.CourtCode,
                court.System == CourtSystem::DiscisCivil ? u"CV"_s : u"IN"_s,
                word,
                {}};
    case CourtFamily::Bankruptcy:
        break;
    }
    return {};
}
} // namespace

QString CaseTabRequest(const CaseOfRequest &ofCase, CaseTab tab)
{
    const CourtFacts *court = courtOf(ofCase.Kind, ofCase.State);
    if (!court)
        return {};
    for (const WordRow &words : requestWords) {
        if (words.court == court->System && words.tab == tab)
            return ComposeLine(court->CaseDelimiter,
                               fieldsOf(*court, tab, words.word.toString(), ofCase));
    }
    return {};
}

QString CaseTabsSection(CaseKind kind, const QString &state)
{
    const CourtFacts *court = courtOf(kind, state);
    return court ? court->TabsSection.toString() : QString();
}

QString WithArbitration(const QString &request, ArbitrationMode mode)
{
    if (mode == ArbitrationMode::NotAsked)
        return request;
    return WithAnswer(request, mode == ArbitrationMode::Arbitration ? u" ARBITRATION"_s
                                                                    : u" NOARBITRATION"_s);
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
