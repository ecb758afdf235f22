#include "practice/CaseRecords.h"

#include "practice/CourtTables.h"
#include "practice/DocketText.h"
#include "practice/NameTables.h"

#include <algorithm>
#include <array>
#include <span>

using namespace Qt::StringLiterals;

namespace Practice {
namespace {
// Each tab draws its own numbers.
enum Salt : quint64 {
    PartySalt = 0xA1,
    ChargeSalt,
    SentenceSalt,
    AccountSalt,
    JudgmentSalt,
    HearingSalt,
    DocumentSalt
};

constexpr std::array streets{
    u"MAIN ST",  u"PINE AVE", u"HARBOR RD",   u"ORCHARD LN",    u"SUNSET DR", u"CEDAR CT",
    u"RIVER RD", u"3RD AVE",  u"MADRONA WAY", u"LAKEVIEW BLVD", u"STATE HWY", u"CHERRY ST",
};

// By the book: what an offense is charged under.
constexpr std::array washingtonLaws{
    u"RCW 9A.36.021", u"RCW 9A.52.030", u"RCW 9A.56.040", u"RCW 9A.60.020",
    u"RCW 46.61.024", u"RCW 69.50.401", u"RCW 9A.48.070", u"RCW 9A.76.170",
};
constexpr std::array oregonLaws{
    u"ORS 163.160", u"ORS 164.055", u"ORS 164.225", u"ORS 165.013",
    u"ORS 811.540", u"ORS 813.010", u"ORS 164.354", u"ORS 162.205",
};
constexpr std::array idahoLaws{
    u"I.C. 18-1401", u"I.C. 18-2407", u"I.C. 18-3601", u"I.C. 18-907",
    u"I.C. 18-8004", u"I.C. 49-654",  u"I.C. 49-301",  u"I.C. 18-6409",
};
constexpr std::array infractionLaws{
    u"RCW 46.61.400", u"RCW 46.61.050", u"RCW 46.16.010",
    u"RCW 46.30.020", u"RCW 46.61.688", u"RCW 46.20.005",
};
constexpr std::array infractionTexts{
    u"Speeding 10 MPH Over Limit", u"Fail To Stop At Stop Sign", u"Expired Vehicle License",
    u"No Proof Of Insurance",      u"Fail To Wear Safety Belt",  u"No Valid Operator License",
};

constexpr std::array pleas{u"Not Guilty", u"Guilty", u"Guilty"};
constexpr std::array infractionPleas{u"Contested", u"Mitigation", u"Not Contested"};
constexpr std::array results{u"Guilty", u"Guilty", u"Guilty", u"Dismissed", u"Not Guilty"};
constexpr std::array infractionResults{u"Committed", u"Committed", u"Not Committed", u"Dismissed"};

constexpr std::array hearingTexts{u"Motion Hearing", u"Status Conference", u"Pretrial Hearing",
                                  u"Readiness Hearing", u"Trial Setting"};
constexpr std::array hearingTimes{u"08:30 AM", u"09:00 AM", u"10:15 AM", u"01:30 PM", u"03:00 PM"};

/// What a docket calls the papers with which something is given, or a sentence passed.
constexpr std::array<QStringView, 5> decidingCodes{u"JD", u"FJS", u"DCD", u"ORD", u"ABJ"};
constexpr std::array<QStringView, 3> sentencingCodes{u"FJS", u"ORD", u"FNDCM"};
constexpr std::array<QStringView, 4> disposingCodes{u"FJS", u"ORD", u"PAID", u"CLO"};
/// What happens in a room and leaves no paper behind.
constexpr std::array<QStringView, 13> hearingCodes{
    u"MTHRG",  u"ARRAIGN", u"OMNHRG", u"STAHRG", u"SNTHRG", u"PTHRG",  u"DSPHRG",
    u"STLCON", u"NJTRIAL", u"JTRIAL", u"HRHELD", u"MTG",    u"ARBHRG",
};

template<std::size_t count>
const DocketEntry *findEntry(const std::vector<DocketEntry> &docket,
                             const std::array<QStringView, count> &codes)
{
    const auto found = std::find_if(docket.begin(), docket.end(), [&](const DocketEntry &entry) {
        return std::find(codes.begin(), codes.end(), QStringView(entry.code)) != codes.end();
    });
    return found == docket.end() ? nullptr : &*found;
}

bool isOffense(const CaseFile &file)
{
    return file.nature == Nature::Criminal || file.nature == Nature::Juvenile
           || file.nature == Nature::Infraction;
}

QString text(const char16_t *literal)
{
    return QString::fromUtf16(literal);
}

std::span<const char16_t *const> lawsOf(const CaseFile &file)
{
    if (file.nature == Nature::Infraction && file.laws == LawBook::Washington)
        return infractionLaws;
    switch (file.laws) {
    case LawBook::Oregon:
        return oregonLaws;
    case LawBook::Idaho:
        return idahoLaws;
    case LawBook::Washington:
        break;
    }
    return washingtonLaws;
}

std::span<const char16_t *const> offensesOf(const CaseFile &file)
{
    if (file.nature == Nature::Infraction)
        return infractionTexts;
    constexpr int criminalDigit = 1;
    constexpr int juvenileDigit = 8;
    return CaseTypeOfDigit(file.nature == Nature::Juvenile ? juvenileDigit : criminalDigit)
        ->descriptions;
}

QString personDrawn(ShortRandom &random)
{
    const QString first = text(random.OneOf(FirstNames()));
    return u"%1, %2"_s.arg(text(random.OneOf(Surnames())), first);
}

/// Who was given something, and by whom.
std::pair<QString, QString> sidesOf(const CaseFile &file)
{
    const auto nameOf = [&](std::size_t place) {
        return place < file.parties.size() ? NameText(file.parties[place].person) : QString();
    };
    switch (file.nature) {
    case Nature::Criminal:
    case Nature::Juvenile:
    case Nature::Infraction:
        return {file.title.section(u" VS "_s, 0, 0), nameOf(0)};
    case Nature::Judgment: // the debtor is named first
        return {nameOf(1).isEmpty() ? u"STATE OF WASHINGTON"_s : nameOf(1), nameOf(0)};
    default:
        return {nameOf(0), nameOf(1)};
    }
}
} // namespace

std::vector<PartyRecord> PartiesOf(const CaseFile &file)
{
    ShortRandom random = DrawingFor(file, PartySalt);
    std::vector<PartyRecord> records;
    for (const CaseParty &party : file.parties) {
        PartyRecord record{NameText(party.person), party.role, {}, {}};
        const int house = random.Between(100, 9'899);
        record.address =
            u"%1 %2, %3"_s.arg(house).arg(text(random.OneOf(streets)), file.county.toUpper());
        record.attorney = personDrawn(random);
        if (random.Percent(30))
            record.attorney = u"Pro Se"_s;
        records.push_back(record);
    }
    return records;
}

std::vector<ChargeRecord> ChargesOf(const CaseFile &file, QDate today)
{
    std::vector<ChargeRecord> charges;
    if (!isOffense(file))
        return charges;
    ShortRandom random = DrawingFor(file, ChargeSalt);
    const std::vector<DocketEntry> docket = DocketOf(file, today);
    const bool decided = findEntry(docket, disposingCodes) != nullptr
                         || findEntry(docket, sentencingCodes) != nullptr;
    const int counts =
        file.nature == Nature::Infraction ? random.Between(1, 2) : random.Between(1, 4);
    for (int count = 1; count <= counts; ++count) {
        ChargeRecord &charge = charges.emplace_back();
        charge.count = count;
        charge.law = text(random.OneOf(lawsOf(file)));
        charge.text = text(random.OneOf(offensesOf(file)));
        // What the list says is what the first count says.
        if (count == 1 && !file.cause.isEmpty() && !file.cause.startsWith(u"Offense"))
            charge.text = file.cause;
        charge.date = file.filed.addDays(-random.Between(1, 60));
        const bool infraction = file.nature == Nature::Infraction;
        charge.plea = text(infraction ? random.OneOf(infractionPleas) : random.OneOf(pleas));
        const QString result =
            text(infraction ? random.OneOf(infractionResults) : random.OneOf(results));
        // A case that was sentenced has a count that it was sentenced for.
        const bool guilty = !infraction && (count == 1 || charge.plea == u"Guilty");
        if (decided)
            charge.result = guilty ? u"Guilty"_s : result;
    }
    return charges;
}

std::vector<SentenceRecord> SentenceOf(const CaseFile &file, QDate today)
{
    const std::vector<DocketEntry> docket = DocketOf(file, today);
    const DocketEntry *passed = findEntry(docket, sentencingCodes);
    if (!isOffense(file) || file.nature == Nature::Infraction || passed == nullptr)
        return {};
    ShortRandom random = DrawingFor(file, SentenceSalt);
    std::vector<SentenceRecord> lines{
        {u"Sentence Date"_s, passed->date.toString(u"MM/dd/yyyy"_s)},
        {u"Sentenced By"_s, JudgeOf(file)},
        {u"Count 1"_s, u"Guilty"_s},
    };
    const int months = random.Between(1, file.nature == Nature::Juvenile ? 3 : 36);
    lines.push_back({u"Confinement"_s, u"%1 Months"_s.arg(months)});
    lines.push_back({u"Credit For Time Served"_s, u"%1 Days"_s.arg(random.Between(0, 60))});
    if (random.Percent(60))
        lines.push_back({u"Community Supervision"_s, u"%1 Months"_s.arg(random.Between(6, 24))});
    if (random.Percent(40))
        lines.push_back({u"Community Service"_s, u"%1 Hours"_s.arg(random.Between(2, 24) * 10)});
    lines.push_back({u"Fine"_s, MoneyText(random.Between(2, 20) * 50'00)});
    lines.push_back({u"Victim Assessment"_s, MoneyText(500'00)});
    if (random.Percent(45))
        lines.push_back({u"Restitution"_s, MoneyText(random.Between(5'000, 900'000))});
    return lines;
}

std::vector<AccountRecord> AccountsOf(const CaseFile &file, QDate today)
{
    ShortRandom random = DrawingFor(file, AccountSalt);
    std::vector<AccountRecord> accounts;
    qint64 balance = 0;
    int receipt = random.Between(10'000, 80'000);
    const auto add = [&](QDate date, const QString &what, qint64 amount) {
        if (date > today)
            return;
        balance += amount;
        receipt += random.Between(1, 900);
        const QString number =
            u"%1-%2"_s.arg(date.year() % 100, 2, 10, QChar(u'0')).arg(receipt, 6, 10, QChar(u'0'));
        accounts.push_back({date, number, what, amount, balance});
    };
    if (isOffense(file)) {
        const std::vector<DocketEntry> docket = DocketOf(file, today);
        const DocketEntry *passed = findEntry(docket, sentencingCodes);
        if (passed == nullptr)
            return accounts;
        qint64 owed = random.Between(4, 40) * 25'00;
        add(passed->date, u"Fines And Costs Ordered"_s, owed);
        const qint64 rate = std::max<qint64>(owed / random.Between(1, 8), 10'00);
        for (QDate day = passed->date.addDays(30); owed > 0; day = day.addDays(30)) {
            add(day, u"Payment"_s, -std::min(owed, rate));
            owed -= std::min(owed, rate);
        }
        return accounts;
    }
    const qint64 fee = random.Between(6, 15) * 20'00;
    add(file.filed, u"Filing Fee"_s, fee);
    add(file.filed, u"Filing Fee Received"_s, -fee);
    QDate day = file.filed;
    for (int papers = random.Between(0, 4); papers > 0; --papers) {
        day = day.addDays(random.Between(5, 80));
        const qint64 cost = random.Between(2, 30) * 1'00;
        add(day, u"Copies And Certification"_s, cost);
        add(day, u"Copies And Certification Received"_s, -cost);
    }
    return accounts;
}

std::vector<JudgmentRecord> JudgmentsOf(const CaseFile &file, QDate today)
{
    const std::vector<DocketEntry> docket = DocketOf(file, today);
    const DocketEntry *given = findEntry(docket, decidingCodes);
    const bool listed = file.judgment.value_or(false);
    if ((given == nullptr && !listed) || (file.judgment && !listed))
        return {};
    ShortRandom random = DrawingFor(file, JudgmentSalt);
    const auto [creditor, debtor] = sidesOf(file);
    const bool small = file.nature == Nature::SmallClaims;
    const bool paid = findEntry(docket, std::array<QStringView, 2>{u"SATIS", u"CTDSC"}) != nullptr;
    std::vector<JudgmentRecord> records;
    records.push_back({given == nullptr ? docket.back().date : given->date, creditor, debtor,
                       random.Between(400'00, small ? 4'000'00 : 48'000'00),
                       paid ? u"Satisfied"_s : u"Unpaid"_s});
    if (random.Percent(25))
        records.push_back({records.front().date, creditor, debtor, random.Between(50'00, 900'00),
                           u"Costs Awarded"_s});
    return records;
}

std::vector<HearingRecord> HearingsOf(const CaseFile &file, QDate today)
{
    ShortRandom random = DrawingFor(file, HearingSalt);
    const auto room = [&random] { return u"Courtroom %1"_s.arg(random.Between(1, 12)); };
    std::vector<HearingRecord> hearings;
    for (const DocketEntry &entry : DocketOf(file, today)) {
        if (std::find(hearingCodes.begin(), hearingCodes.end(), QStringView(entry.code))
            != hearingCodes.end())
            hearings.push_back({entry.date, text(random.OneOf(hearingTimes)), entry.text, room()});
    }
    if (!IsOver(file, today)) {
        // Counted from the day of filing, so that they are the same tomorrow.
        for (QDate day = file.filed.addDays(random.Between(60, 120));
             day < file.filed.addDays(3 * 365); day = day.addDays(random.Between(60, 200))) {
            const QString what = text(random.OneOf(hearingTexts));
            const QString time = text(random.OneOf(hearingTimes));
            if (day > today)
                hearings.push_back({day, time, what, room()});
        }
    }
    return hearings;
}

std::vector<DocumentRecord> DocumentsOf(const CaseFile &file, QDate today)
{
    ShortRandom random = DrawingFor(file, DocumentSalt);
    std::vector<DocumentRecord> documents;
    int place = 0;
    for (const DocketEntry &entry : DocketOf(file, today)) {
        ++place;
        if (std::find(hearingCodes.begin(), hearingCodes.end(), QStringView(entry.code))
            != hearingCodes.end())
            continue;
        const int pages = random.Percent(4) ? random.Between(60, 140) : random.Between(1, 24);
        documents.push_back({place, entry.date, pages, entry.text, !random.Percent(12)});
    }
    return documents;
}

QString SexOf(const Person &person)
{
    // In the list of first names men and women take turns, down to the first that is named here.
    constexpr QStringView lastOfTurns = u"JOHNNY";
    bool isMan = true;
    for (const char16_t *name : FirstNames()) {
        if (person.first == QStringView(name))
            return isMan ? u"M"_s : u"F"_s;
        if (lastOfTurns == QStringView(name))
            break;
        isMan = !isMan;
    }
    return {};
}
} // namespace Practice
