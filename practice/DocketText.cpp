#include "practice/DocketText.h"

#include <algorithm>
#include <array>
#include <optional>
#include <span>

using namespace Qt::StringLiterals;

namespace Practice {
namespace {
/// Something that comes so many days after what was before it, in so many cases of a hundred.
struct Step
{
    const char16_t *code;
    const char16_t *text;
    int least;  ///< days, at the least
    int most;   ///< and at the most
    int chance; ///< in hundred cases
};

/// How a kind of case goes: how it begins, what happens in any order and so many times, how it
/// ends.
struct Course
{
    std::span<const Step> opening;
    std::span<const Step> middle;
    int leastInMiddle;
    int mostInMiddle;
    std::span<const Step> closing;
};

constexpr auto civilOpening = std::to_array<Step>({
    {u"SMCMP", u"Summons & Complaint", 0, 0, 100},
    {u"CICS", u"Case Information Cover Sheet", 0, 0, 90},
    {u"ORSCS", u"Order Setting Case Schedule", 0, 1, 80},
    {u"AFSR", u"Affidavit/Dclr/Cert Of Service", 4, 25, 85},
    {u"NTAPR", u"Notice Of Appearance", 5, 20, 75},
    {u"AN", u"Answer", 5, 30, 60},
});
constexpr auto civilMiddle = std::to_array<Step>({
    {u"NTMTDK", u"Note For Motion Docket", 5, 40, 100},
    {u"MT", u"Motion To Compel Discovery", 5, 40, 100},
    {u"DCLR", u"Declaration In Support Of Motion", 1, 10, 100},
    {u"RSP", u"Response", 3, 15, 100},
    {u"RPY", u"Reply", 2, 8, 100},
    {u"OR", u"Order On Motion", 5, 20, 100},
    {u"MTHRG", u"Motion Hearing", 5, 30, 100},
    {u"CRRSP", u"Correspondence", 3, 40, 100},
    {u"DSWT", u"Disclosure Of Witnesses", 10, 60, 100},
    {u"NTWDA", u"Notice Of Withdrawal And Substitution Of Attorney", 5, 60, 100},
    {u"STP", u"Stipulation", 5, 40, 100},
    {u"JCR", u"Joint Confirmation Of Trial Readiness", 20, 60, 100},
});
constexpr auto civilClosing = std::to_array<Step>({
    {u"NTSTL", u"Notice Of Settlement", 20, 90, 35},
    {u"NJTRIAL", u"Non-Jury Trial", 20, 120, 30},
    {u"FNFCL", u"Findings Of Fact & Conclusions Of Law", 1, 20, 30},
    {u"JD", u"Judgment", 1, 30, 55},
    {u"ORDSM", u"Order Of Dismissal", 5, 60, 45},
    {u"SATIS", u"Full Satisfaction Of Judgment", 30, 300, 30},
});
constexpr auto criminalOpening = std::to_array<Step>({
    {u"INFO", u"Information", 0, 0, 100},
    {u"AFPC", u"Affidavit Of Probable Cause", 0, 0, 90},
    {u"ORWRA", u"Order For Warrant Of Arrest", 0, 2, 45},
    {u"SHRTWA", u"Sheriff's Return On Warrant Of Arrest", 2, 30, 45},
    {u"ARRAIGN", u"Arraignment", 3, 14, 95},
    {u"ORECRP", u"Order Establishing Conditions Of Release", 0, 1, 80},
    {u"NTAPR", u"Notice Of Appearance", 1, 7, 85},
});
constexpr auto criminalMiddle = std::to_array<Step>({
    {u"OMNHRG", u"Omnibus Hearing", 10, 25, 100},
    {u"OROH", u"Order On Omnibus Hearing", 0, 2, 100},
    {u"ORCNT", u"Order Of Continuance", 7, 30, 100},
    {u"WVSPDT", u"Waiver Of Speedy Trial", 5, 20, 100},
    {u"MT", u"Motion To Suppress Evidence", 5, 25, 100},
    {u"SB", u"Subpoena", 3, 20, 100},
    {u"STAHRG", u"Status Conference", 7, 25, 100},
    {u"ORF", u"Order For Evaluation", 5, 20, 100},
    {u"AMINFO", u"Amended Information", 10, 40, 100},
});
constexpr auto criminalClosing = std::to_array<Step>({
    {u"STTDFG", u"Statement Of Defendant On Plea Of Guilty", 7, 40, 65},
    {u"JTRIAL", u"Jury Trial", 10, 60, 85},
    {u"VRD", u"Verdict", 1, 6, 25},
    {u"PSI", u"Presentence Investigation Report", 10, 30, 40},
    {u"SNTHRG", u"Sentencing Hearing", 7, 30, 80},
    {u"FJS", u"Judgment & Sentence", 0, 0, 80},
    {u"WRCD", u"Warrant Of Commitment", 0, 1, 50},
    {u"NTAPCA", u"Notice Of Appeal To Court Of Appeals", 5, 29, 12},
    {u"CTDSC", u"Certificate Of Discharge", 300, 900, 30},
});
constexpr auto juvenileOpening = std::to_array<Step>({
    {u"INFO", u"Information", 0, 0, 100},
    {u"NTHG", u"Notice Of Hearing To Parents", 0, 3, 90},
    {u"ARRAIGN", u"Arraignment", 3, 14, 95},
    {u"ORAPA", u"Order Appointing Attorney", 0, 1, 85},
});
constexpr auto juvenileMiddle = std::to_array<Step>({
    {u"PTHRG", u"Pretrial Hearing", 7, 25, 100},
    {u"ORCNT", u"Order Of Continuance", 5, 25, 100},
    {u"RPT", u"Report Of Probation Counselor", 5, 20, 100},
    {u"ORF", u"Order For Evaluation", 5, 20, 100},
});
constexpr auto juvenileClosing = std::to_array<Step>({
    {u"STJOPG", u"Statement Of Juvenile On Plea Of Guilty", 7, 30, 70},
    {u"DSPHRG", u"Disposition Hearing", 5, 25, 90},
    {u"ORD", u"Order On Adjudication And Disposition", 0, 0, 90},
    {u"ORTR", u"Order Terminating Supervision", 120, 400, 60},
});
constexpr auto domesticOpening = std::to_array<Step>({
    {u"SM", u"Summons", 0, 0, 100},
    {u"PT", u"Petition", 0, 0, 100},
    {u"CIF", u"Confidential Information Form", 0, 0, 90},
    {u"ORSCS", u"Order Setting Case Schedule", 0, 1, 75},
    {u"AFSR", u"Affidavit/Dclr/Cert Of Service", 3, 20, 80},
    {u"RSP", u"Response To Petition", 5, 30, 65},
});
constexpr auto domesticMiddle = std::to_array<Step>({
    {u"MTAF", u"Motion And Affidavit For Temporary Orders", 5, 30, 100},
    {u"TMO", u"Temporary Order", 5, 20, 100},
    {u"FNDCLR", u"Financial Declaration", 2, 20, 100},
    {u"PPP", u"Parenting Plan - Proposed", 5, 30, 100},
    {u"CSW", u"Child Support Worksheet", 1, 20, 100},
    {u"MTHRG", u"Motion Hearing", 7, 30, 100},
    {u"STLCON", u"Settlement Conference", 14, 40, 100},
});
constexpr auto domesticClosing = std::to_array<Step>({
    {u"FNFCL", u"Findings Of Fact & Conclusions Of Law", 30, 90, 85},
    {u"DCD", u"Decree Of Dissolution", 0, 0, 80},
    {u"PP", u"Parenting Plan - Final", 0, 0, 45},
    {u"ORS", u"Order Of Child Support", 0, 0, 45},
});
constexpr auto probateOpening = std::to_array<Step>({
    {u"PTLT", u"Petition For Letters", 0, 0, 100},
    {u"LWT", u"Last Will And Testament", 0, 0, 60},
    {u"ORAD", u"Order Admitting Will To Probate", 0, 3, 60},
    {u"OATH", u"Oath Of Personal Representative", 0, 4, 90},
    {u"LTRTS", u"Letters Testamentary", 0, 2, 90},
    {u"NTCRD", u"Notice To Creditors", 3, 20, 85},
});
constexpr auto probateMiddle = std::to_array<Step>({
    {u"AFPB", u"Affidavit Of Publication", 10, 40, 100},
    {u"CRC", u"Creditor's Claim", 10, 60, 100},
    {u"RJCL", u"Rejection Of Claim", 10, 40, 100},
    {u"INV", u"Inventory & Appraisement", 20, 80, 100},
    {u"RQSPN", u"Request For Special Notice", 5, 50, 100},
});
constexpr auto probateClosing = std::to_array<Step>({
    {u"DCLCP", u"Declaration Of Completion", 60, 250, 80},
    {u"RC", u"Receipt Of Heirs", 5, 40, 50},
    {u"ORDPR", u"Order Discharging Personal Representative", 10, 60, 40},
});
constexpr auto judgmentOpening = std::to_array<Step>({
    {u"ABJ", u"Abstract Of Judgment", 0, 0, 100},
    {u"AFJ", u"Affidavit Of Judgment Creditor", 0, 0, 60},
});
constexpr auto judgmentMiddle = std::to_array<Step>({
    {u"WRG", u"Writ Of Garnishment", 30, 200, 100},
    {u"ANWRG", u"Answer To Writ Of Garnishment", 10, 30, 100},
    {u"PSATIS", u"Partial Satisfaction Of Judgment", 30, 200, 100},
    {u"ORSPP", u"Order For Supplemental Proceedings", 30, 200, 100},
});
constexpr auto judgmentClosing = std::to_array<Step>({
    {u"SATIS", u"Full Satisfaction Of Judgment", 60, 700, 50},
});
constexpr auto infractionOpening = std::to_array<Step>({
    {u"CIT", u"Notice Of Infraction Filed", 0, 0, 100},
    {u"RSPHR", u"Defendant Requests Hearing", 5, 18, 70},
    {u"HRSET", u"Hearing Set", 0, 2, 70},
});
constexpr auto infractionMiddle = std::to_array<Step>({
    {u"HRCNT", u"Hearing Continued", 5, 30, 100},
    {u"FTA", u"Defendant Failed To Appear", 10, 30, 100},
    {u"NTSNT", u"Notice Sent To Defendant", 1, 10, 100},
});
constexpr auto infractionClosing = std::to_array<Step>({
    {u"HRHELD", u"Hearing Held", 5, 40, 70},
    {u"FNDCM", u"Finding: Committed", 0, 0, 70},
    {u"PAID", u"Penalty Paid In Full", 5, 60, 75},
    {u"CLO", u"Case Closed", 0, 5, 80},
});
constexpr auto bankruptcyOpening = std::to_array<Step>({
    {u"1", u"Voluntary Petition, Filing Fee Paid", 0, 0, 100},
    {u"2", u"Schedules A Through J And Statement Of Financial Affairs", 0, 14, 95},
    {u"3", u"Notice Of Meeting Of Creditors", 1, 5, 100},
    {u"4", u"Certificate Of Mailing", 1, 3, 90},
});
constexpr auto bankruptcyMiddle = std::to_array<Step>({
    {u"MTG", u"Meeting Of Creditors Held", 20, 40, 100},
    {u"RLF", u"Motion For Relief From Stay", 10, 40, 100},
    {u"ORLF", u"Order Granting Relief From Stay", 10, 30, 100},
    {u"RAF", u"Reaffirmation Agreement", 10, 40, 100},
    {u"POC", u"Proof Of Claim", 5, 30, 100},
    {u"TRR", u"Trustee's Report Of No Distribution", 10, 30, 100},
});
constexpr auto bankruptcyClosing = std::to_array<Step>({
    {u"DSC", u"Discharge Of Debtor", 30, 90, 85},
    {u"FDC", u"Final Decree, Case Closed", 5, 40, 80},
});
constexpr auto smallClaimsOpening = std::to_array<Step>({
    {u"NTSC", u"Notice Of Small Claim", 0, 0, 100},
    {u"AFSR", u"Affidavit Of Service", 4, 25, 90},
});
constexpr auto smallClaimsMiddle = std::to_array<Step>({
    {u"HRCNT", u"Hearing Continued", 10, 30, 100},
    {u"MEDN", u"Referred To Mediation", 5, 20, 100},
    {u"CTRCL", u"Counterclaim", 3, 15, 100},
});
constexpr auto smallClaimsClosing = std::to_array<Step>({
    {u"HRHELD", u"Small Claims Hearing Held", 10, 40, 90},
    {u"JD", u"Judgment", 0, 0, 60},
    {u"ORDSM", u"Order Of Dismissal", 1, 10, 80},
    {u"SATIS", u"Full Satisfaction Of Judgment", 30, 200, 40},
});
constexpr auto arbitrationOpening = std::to_array<Step>({
    {u"NTARB", u"Request For Arbitration", 0, 0, 100},
    {u"ORTRF", u"Order Transferring Case To Arbitration", 2, 20, 100},
    {u"NTAAR", u"Notice Of Appointment Of Arbitrator", 5, 20, 100},
});
constexpr auto arbitrationMiddle = std::to_array<Step>({
    {u"PHSP", u"Prehearing Statement Of Proof", 10, 30, 100},
    {u"ARBHRG", u"Arbitration Hearing", 10, 30, 100},
    {u"NTCA", u"Notice Of Change Of Arbitrator", 5, 20, 100},
});
constexpr auto arbitrationClosing = std::to_array<Step>({
    {u"ARBAW", u"Arbitration Award", 5, 14, 100},
    {u"RQTDN", u"Request For Trial De Novo", 5, 20, 40},
});

/// In the order of the natures.
constexpr std::array<Course, 10> courses{{
    {criminalOpening, criminalMiddle, 1, 9, criminalClosing},
    {juvenileOpening, juvenileMiddle, 1, 5, juvenileClosing},
    {infractionOpening, infractionMiddle, 0, 3, infractionClosing},
    {civilOpening, civilMiddle, 2, 18, civilClosing},
    {domesticOpening, domesticMiddle, 2, 12, domesticClosing},
    {probateOpening, probateMiddle, 1, 7, probateClosing},
    {judgmentOpening, judgmentMiddle, 0, 4, judgmentClosing},
    {bankruptcyOpening, bankruptcyMiddle, 1, 6, bankruptcyClosing},
    {smallClaimsOpening, smallClaimsMiddle, 0, 2, smallClaimsClosing},
    {arbitrationOpening, arbitrationMiddle, 1, 3, arbitrationClosing},
}};

/// Month and day.
constexpr std::array holidays{101, 704, 1111, 1225};

constexpr quint64 docketSalt = 0xD0;
constexpr QStringView judgmentCode = u"JD";
constexpr QStringView satisfiedCode = u"SATIS";
constexpr QStringView dismissedCode = u"ORDSM";
constexpr QStringView pleaCode = u"STTDFG";
constexpr QStringView trialCode = u"JTRIAL";
constexpr QStringView verdictCode = u"VRD";
constexpr QStringView warrantCode = u"ORWRA";
constexpr QStringView arrestedCode = u"SHRTWA";

/// The day itself, or the first one behind it on which a court is open.
QDate workingDay(QDate day)
{
    const auto isClosed = [&day] {
        const int code = day.month() * 100 + day.day();
        return day.dayOfWeek() > Qt::Friday
               || std::find(holidays.begin(), holidays.end(), code) != holidays.end();
    };
    while (isClosed())
        day = day.addDays(1);
    return day;
}

class DocketWriter
{
public:
    DocketWriter(const CaseFile &file, QDate lastDay)
        : random(DrawingFor(file, docketSalt)), day(file.filed), today(lastDay),
          judgmentGiven(file.judgment)
    {
    }

    void Write(std::span<const Step> steps)
    {
        for (const Step &step : steps) {
            if (happens(step, random.Percent(step.chance)))
                add(step);
        }
    }

    void WriteSome(std::span<const Step> steps, int count)
    {
        for (int i = 0; i < count; ++i)
            add(random.OneOf(steps));
    }

    int Between(int least, int most) { return random.Between(least, most); }

    std::vector<DocketEntry> entries;

private:
    /// Chance decides, but there is no judgment where a list says that there is none, nothing to be
    /// paid without one, no dismissal beside one, and no arrest without a warrant.
    bool happens(const Step &step, bool drawn)
    {
        const QStringView code(step.code);
        if (code == judgmentCode) {
            judgmentGiven = judgmentGiven.value_or(drawn);
            return *judgmentGiven;
        }
        if (code == satisfiedCode)
            return drawn && judgmentGiven.value_or(true);
        if (code == dismissedCode)
            return drawn && !judgmentGiven.value_or(false);
        if (code == pleaCode)
            pleaded = drawn;
        // Who pleads guilty is not tried.
        if (code == trialCode)
            tried = !pleaded && drawn;
        if (code == trialCode || code == verdictCode)
            return tried;
        if (code == warrantCode)
            wanted = drawn;
        if (code == arrestedCode)
            return wanted;
        return drawn;
    }

    void add(const Step &step)
    {
        const int days = random.Between(step.least, step.most);
        if (days > 0)
            day = workingDay(day.addDays(days));
        // What lies ahead is drawn like the rest, and is not written yet.
        if (day <= today)
            entries.push_back({day, QString::fromUtf16(step.code), QString::fromUtf16(step.text)});
    }

    ShortRandom random;
    QDate day;
    QDate today;
    std::optional<bool> judgmentGiven;
    bool pleaded = false;
    bool tried = false;
    bool wanted = false;
};
} // namespace

std::vector<DocketEntry> DocketOf(const CaseFile &file, QDate today)
{
    const Course &course = courses[static_cast<std::size_t>(file.nature)];
    DocketWriter writer(file, today);
    writer.Write(course.opening);
    writer.WriteSome(course.middle, writer.Between(course.leastInMiddle, course.mostInMiddle));
    if (!file.stillOpen)
        writer.Write(course.closing);
    return std::move(writer.entries);
}

DocketEntry LongDocketEntry(const CaseFile &file, QDate today, qint64 number, qint64 count)
{
    const Course &course = courses[static_cast<std::size_t>(file.nature)];
    const qint64 days = std::max<qint64>(file.filed.daysTo(today), 0);
    const Step &step = number == 0
                           ? course.opening.front()
                           : course.middle[static_cast<std::size_t>(number) % course.middle.size()];
    return {file.filed.addDays(count > 1 ? days * number / (count - 1) : 0),
            QString::fromUtf16(step.code),
            number == 0 ? QString::fromUtf16(step.text)
                        : u"%1 No. %2"_s.arg(QStringView(step.text)).arg(number)};
}
} // namespace Practice
