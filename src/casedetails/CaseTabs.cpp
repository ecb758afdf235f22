#include "casedetails/CaseTabs.h"

#include "core/TextUtilities.h"
#include "courts/CaseMarks.h"

#include <algorithm>
#include <span>

using namespace Qt::StringLiterals;

namespace {
/// The one text of a tab that does not follow from its word.
struct OddText
{
    CaseTab tab;
    QString TabTexts::*text;
    QStringView words;
};
constexpr std::array oddTexts{
    OddText{CaseTab::Summary, &TabTexts::Incomplete, u"Search Warnings - See Summary"},
    OddText{CaseTab::Summary, &TabTexts::Warning,
            u"Summary Information Incomplete! Please Retry Search."},
    OddText{CaseTab::Summary, &TabTexts::AllReceived, u"All Responses For SUMMARY were Received: "},
    OddText{CaseTab::Documents, &TabTexts::Retrieving, u"Retrieving Documents Available List .."},
    OddText{CaseTab::Documents, &TabTexts::Complete, u"Documents Complete .."},
    OddText{CaseTab::Documents, &TabTexts::Warning,
            u"Document Info Incomplete! Click Tab to Retry."},
    OddText{CaseTab::Documents, &TabTexts::ProcError,
            u"Exiting frmCaseDetails:DoDocumentSearch() via PROCERR in Case Details. Error: "},
};

/// The tabs of a case of the Superior Courts behind Summary and Names.
struct TypeRow
{
    QStringView digits;
    std::span<const CaseTab> current;
    std::span<const CaseTab> archived;
};
constexpr std::array criminalTabs{CaseTab::Docket,   CaseTab::Judgments,  CaseTab::Charges,
                                  CaseTab::Sentence, CaseTab::Accounting, CaseTab::Schedule,
                                  CaseTab::Documents};
constexpr std::array oldCriminalTabs{CaseTab::Judgments, CaseTab::Charges, CaseTab::Sentence,
                                     CaseTab::Schedule, CaseTab::Documents};
constexpr std::array civilTabs{CaseTab::Docket, CaseTab::Judgments, CaseTab::Accounting,
                               CaseTab::Schedule, CaseTab::Documents};
constexpr std::array oldCivilTabs{CaseTab::Judgments, CaseTab::Accounting, CaseTab::Documents};
constexpr std::array judgmentTabs{CaseTab::Docket, CaseTab::Documents};
constexpr std::array otherTabs{CaseTab::Docket};
constexpr std::array<TypeRow, 4> types{{
    {u"18", criminalTabs, oldCriminalTabs},
    {u"234", civilTabs, oldCivilTabs},
    {u"9", judgmentTabs, judgmentTabs},
    {u"0567", otherTabs, {}},
}};

constexpr std::array oregonTabs{CaseTab::Summary,   CaseTab::Names,      CaseTab::Docket,
                                CaseTab::Judgments, CaseTab::Accounting, CaseTab::Finance,
                                CaseTab::Charges,   CaseTab::Sentence};
constexpr std::array idahoTabs{CaseTab::Summary, CaseTab::Names, CaseTab::Docket,
                               CaseTab::Judgments, CaseTab::Charges};
constexpr std::array discisCivilTabs{CaseTab::Summary, CaseTab::Names, CaseTab::Docket,
                                     CaseTab::Judgments};
constexpr std::array discisNonCivilTabs{CaseTab::Summary, CaseTab::Names, CaseTab::Docket,
                                        CaseTab::Violations};

/// In the order in which a summary's first line is searched for their names.
constexpr std::array namedTabs{CaseTab::Names,   CaseTab::Docket,     CaseTab::Judgments,
                               CaseTab::Charges, CaseTab::Accounting, CaseTab::Finance,
                               CaseTab::Sentence};

constexpr std::array idahoOrder{CaseTab::Names, CaseTab::Docket, CaseTab::Judgments,
                                CaseTab::Charges};
constexpr std::array commonOrder{CaseTab::Names,    CaseTab::Docket,    CaseTab::Accounting,
                                 CaseTab::Finance,  CaseTab::Judgments, CaseTab::Charges,
                                 CaseTab::Sentence, CaseTab::Schedule,  CaseTab::Documents};

constexpr qsizetype superiorDigits = 9;
constexpr qsizetype typeDigit = 2;

QStringList captionsOf(std::span<const CaseTab> shown)
{
    QStringList captions;
    for (const CaseTab tab : shown)
        captions += CaseTabRowOf(tab).caption.toString();
    return captions;
}

bool isDigit(QChar character)
{
    return character >= u'0' && character <= u'9';
}

/// The character that tells the type: the third digit of a whole number, else the first character.
QChar typeOf(const QString &number)
{
    QString digits = number;
    digits.remove(u'-');
    if (digits.size() == superiorDigits && std::all_of(digits.begin(), digits.end(), isDigit))
        return digits[typeDigit];
    return number.isEmpty() ? QChar() : number.front();
}
} // namespace

TabTexts TextsOf(CaseTab tab)
{
    const CaseTabRow &row = CaseTabRowOf(tab);
    const QString title = row.title.toString();
    const QString procedure = row.procedure + u"()"_s;
    TabTexts texts{
        .Retrieving = u"Retrieving "_s + title + u" .."_s,
        .Complete = title + u" Complete .."_s,
        .Incomplete = title + u" Incomplete .."_s,
        .Warning = title + u" Information Incomplete! Click Tab to Retry."_s,
        .AllReceived = u"All Responses For "_s + title + u" were Received: "_s,
        .SearchIncomplete = title + u" Search Incomplete. Request: "_s,
        .SearchResult = title + u" Search Result Was: "_s,
        .ProcError = u"Exiting "_s + procedure + u" via PROCERR in Case Details. Error: "_s,
        .NormalExit = u"NORMAL EXIT - from "_s + procedure + u'.',
    };
    for (const OddText &odd : oddTexts) {
        if (odd.tab == tab)
            texts.*odd.text = odd.words.toString();
    }
    return texts;
}

QStringList GetTabsForCaseType(const QString &number, bool archived)
{
    QStringList captions{CaseTabRowOf(CaseTab::Summary).caption.toString()};
    const QChar type = typeOf(TrimBlanks(number));
    for (const TypeRow &row : types) {
        if (row.digits.contains(type)) {
            captions += CaseTabRowOf(CaseTab::Names).caption.toString();
            captions += captionsOf(archived ? row.archived : row.current);
        }
    }
    return captions;
}

QStringList WashingtonTabs(const QString &caseNumber)
{
    // Either mark makes the case an archived one here, ">>" too although it stands in front of
    // every case that has been opened before. Behind ">>" there may be a "*" or a blank, or the
    // number at once: the mark goes as what it is, since three characters cut at a fixed place
    // would take the first digit along, and with it the type.
    const bool archived = caseNumber.startsWith(u'*') || caseNumber.startsWith(u">>");
    return GetTabsForCaseType(CaseNumberOf(caseNumber), archived);
}

QStringList OregonTabs()
{
    return captionsOf(oregonTabs);
}

QStringList IdahoTabs()
{
    return captionsOf(idahoTabs);
}

QStringList TabsOfSummary(const QString &firstLine)
{
    QStringList captions{CaseTabRowOf(CaseTab::Summary).caption.toString()};
    for (const CaseTab tab : namedTabs) {
        const QString caption = CaseTabRowOf(tab).caption.toString();
        if (firstLine.contains(caption, Qt::CaseInsensitive))
            captions += caption;
    }
    return captions;
}

QStringList DiscisTabs(CaseKind kind)
{
    return kind == CaseKind::Civil ? captionsOf(discisCivilTabs) : captionsOf(discisNonCivilTabs);
}

QList<CaseTab> RequestOrder(const QString &state)
{
    if (state == u"ID")
        return {idahoOrder.begin(), idahoOrder.end()};
    if (state == u"WA" || state == u"OR")
        return {commonOrder.begin(), commonOrder.end()};
    return {};
}

QString NoticeOfTab(const CaseRecord &record)
{
    if (record.PanelInSight || record.Tab(record.InSight).Answer != AnswerState::Stopped)
        return {};
    return u"The retrieval of this tab was stopped: entries may be missing. Open the case again to "
           "retrieve all of them."_s;
}

QString NoticeOfBreakdown(const CaseRecord &record)
{
    if (record.Breakdown.isEmpty())
        return {};
    const QString happened =
        u"The retrieval of this case broke down (%1): what is shown may not be all."_s.arg(
            record.Breakdown);
    return happened
           + (record.HoldsQueue
                  ? u" Every search behind it waits until you select Stop Search, retrieve what is "
                    "missing with SEARCH NOW, or close this window."_s
                  : u" Retrieve what is missing with SEARCH NOW, or open the case again."_s);
}
