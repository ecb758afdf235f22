#include "practice/TabRequest.h"

#include <algorithm>
#include <array>
#include <span>

using namespace Qt::StringLiterals;

namespace Practice {
namespace {
struct TabWord
{
    const char16_t *word;
    CaseTab tab;
    bool civil = true; ///< for the district courts
};

constexpr auto superiorWords = std::to_array<TabWord>({
    {u"SUMMARY", CaseTab::Summary},
    {u"NAMES", CaseTab::Names},
    {u"DOCKET", CaseTab::Docket},
    {u"ACCOUNTING", CaseTab::Accounting},
    {u"JUDGMENTS", CaseTab::Judgments},
    {u"CHARGES", CaseTab::Charges},
    {u"SENTENCE", CaseTab::Sentence},
    {u"SCHEDULE", CaseTab::Schedule},
});
constexpr auto oregonWords = std::to_array<TabWord>({
    {u"SUMMARY", CaseTab::Summary},
    {u"NAMES", CaseTab::Names},
    {u"DOCKET", CaseTab::Docket},
    {u"ACCOUNTING", CaseTab::Accounting},
    {u"FINANCE", CaseTab::Finance},
    {u"JUDGMENTS", CaseTab::Judgments},
    {u"CHARGES", CaseTab::Charges},
    {u"SENTENCES", CaseTab::Sentence},
    {u"SCHEDULE", CaseTab::Schedule},
});
constexpr auto idahoWords = std::to_array<TabWord>({
    {u"SUMMARY", CaseTab::Summary},
    {u"NAMES", CaseTab::Names},
    {u"DOCKET", CaseTab::Docket},
    {u"JUDGMENTS", CaseTab::Judgments},
    {u"CHARGES", CaseTab::Charges},
});
constexpr auto bankruptcyWords = std::to_array<TabWord>({
    {u"SUMMARY", CaseTab::Summary},
    {u"NAMES", CaseTab::Names},
    {u"DOCKET", CaseTab::Docket},
});
// The lists ask for a summary in words of their own.
constexpr auto districtWords = std::to_array<TabWord>({
    {u"NCNCC", CaseTab::Summary, false},
    {u"NCC", CaseTab::Summary, false},
    {u"NCPAR", CaseTab::Names, false},
    {u"NCCDK", CaseTab::Docket, false},
    {u"NCVIO", CaseTab::Violations, false},
    {u"CIVI", CaseTab::Summary},
    {u"CVPAR", CaseTab::Names},
    {u"CVCDK", CaseTab::Docket},
    {u"CVJI", CaseTab::Judgments},
});

/// Where the fields of a family stand, and how many there may be.
struct Shape
{
    std::span<const TabWord> words;
    qsizetype word;
    qsizetype number;
    qsizetype court;
    qsizetype least;
    qsizetype most;
};

constexpr std::array<Shape, 5> shapes{{
    {superiorWords, 0, 1, 2, 2, 4}, // the county may be missing
    {oregonWords, 0, 1, 2, 3, 3},
    {idahoWords, 0, 1, 2, 3, 3},
    {districtWords, 7, 3, 5, 9, 9},
    {bankruptcyWords, 0, 1, 2, 3, 3},
}};

constexpr auto arbitrationTail = u" ARBITRATION";
constexpr auto noArbitrationTail = u" NOARBITRATION";

bool takeTail(QString &field, QStringView tail)
{
    if (!field.endsWith(tail))
        return false;
    field.chop(tail.size());
    return true;
}

/// The answer stands behind the last field that holds something.
ArbitrationAnswer takeArbitration(QStringList &fields)
{
    for (QString &field : fields) {
        if (takeTail(field, arbitrationTail))
            return ArbitrationAnswer::Arbitration;
        if (takeTail(field, noArbitrationTail))
            return ArbitrationAnswer::NoArbitration;
    }
    return ArbitrationAnswer::NotGiven;
}
} // namespace

QString WithoutMarks(const QString &number)
{
    QStringView rest(number);
    while (rest.startsWith(u'>') || rest.startsWith(u'*') || rest.startsWith(u' '))
        rest = rest.mid(1);
    return rest.trimmed().toString();
}

std::optional<TabAsked> ParseTabRequest(CourtFamily family, QStringList fields)
{
    const Shape &shape = shapes[static_cast<std::size_t>(family)];
    if (fields.size() < shape.least || fields.size() > shape.most)
        return std::nullopt;
    TabAsked asked;
    asked.family = family;
    asked.arbitration = takeArbitration(fields);
    const QString word = fields[shape.word].section(u',', 0, 0);
    const auto known =
        std::find_if(shape.words.begin(), shape.words.end(),
                     [&](const TabWord &one) { return word == QStringView(one.word); });
    if (known == shape.words.end())
        return std::nullopt;
    asked.tab = known->tab;
    asked.civil = known->civil;
    asked.number = WithoutMarks(fields[shape.number]);
    asked.court = fields.value(shape.court).trimmed();
    return asked;
}

std::optional<TabAsked> ParseDocumentsRequest(const QStringList &fields)
{
    if (fields.size() != 3 || fields[0] != u"GETDOCTAB")
        return std::nullopt;
    TabAsked asked;
    asked.tab = CaseTab::Documents;
    asked.court = fields[1].trimmed();
    asked.number = WithoutMarks(fields[2]);
    return asked;
}
} // namespace Practice
