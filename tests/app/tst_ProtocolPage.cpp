#include "app/ProtocolPage.h"
#include "casedetails/CaseRequests.h"
#include "casedetails/frmCaseDetails.h"
#include "core/GlobalState.h"
#include "core/Windows1252.h"
#include "courts/DiscisCourts.h"
#include "documents/DocumentName.h"
#include "link/ConnectState.h"
#include "link/RequestLine.h"
#include "link/frmWinsock.h"
#include "namesearch/DuplicateNames.h"
#include "namesearch/ServerMessages.h"
#include "namesearch/frmNameSearchResults.h"
#include "searchentry/BankruptcyRequests.h"
#include "searchentry/DiscisRequests.h"
#include "searchentry/NameRequests.h"
#include "searchentry/RequestGrammar.h"
#include "session/LoginExchange.h"
#include "support/AnsweringCourt.h"
#include "support/FakeSocket.h"
#include "support/HalvaneTest.h"
#include "support/TestFolder.h"

#include <QSet>
#include <QTest>

#include <array>
#include <functional>
#include <memory>

using namespace Qt::StringLiterals;

// The page of the wire shows what the program sends: each request on it is made here by the program
// itself, of what the page says of it.

namespace {
/// What is said of an example: a kind, a colon, and particulars between semicolons.
struct Meaning
{
    explicit Meaning(const QString &text)
        : Kind(text.section(u": "_s, 0, 0)), Parts(text.section(u": "_s, 1).split(u"; "_s))
    {
    }
    QString Part(int index) const { return Parts.value(index); }
    /// The part that begins so, without its beginning.
    QString After(const QString &head) const
    {
        const QStringList found = Parts.filter(QRegularExpression(u'^' + head));
        return found.isEmpty() ? QString() : found.first().mid(head.size());
    }

    QString Kind;
    QStringList Parts;
};

QString textOf(const QByteArray &frame)
{
    return FromWindows1252(frame.mid(1, frame.size() - 2));
}

/// What goes out while the program does this, to a court that has nothing to say.
QString sentBy(const std::function<void()> &act)
{
    QByteArrayList frames;
    AnsweringCourt::Install(
        [&frames](const QByteArray &frame) {
            frames.append(frame);
            return QStringList{u"EOF~"_s};
        },
        {});
    frmWinsock::Form();
    Global.intConnectState = ConnectDone;
    act();
    frmWinsock::Unload();
    return frames.size() == 1 ? textOf(frames.first()) : u"not one request"_s;
}

QString login(const Meaning &meaning)
{
    return sentBy(
        [&] { Login(meaning.Part(0), meaning.Part(1), meaning.Part(2), [](const QString &) {}); });
}

QString privateMessages(const Meaning &meaning)
{
    return sentBy([&] {
        GetPrivateMessage(meaning.Part(0), meaning.Part(1), meaning.Part(2),
                          [](const QString &) {});
    });
}

template<typename Exchange>
QString exchange(Exchange run)
{
    return sentBy([run] { run([](const QString &) {}); });
}

QString pingAnswer()
{
    FakeSocket::Install();
    frmWinsock::Form();
    FakeSocket::Last()->Arrive("|DIAG001|");
    return textOf(FakeSocket::Last()->sent.value(0));
}

QString stopOf(JobWindow &window)
{
    FakeSocket::Install();
    frmWinsock::Form();
    Global.intConnectState = ConnectDone;
    window.StopCurrentSearch();
    return textOf(FakeSocket::Last()->sent.value(0));
}

QString stopOfSearch(const Meaning &meaning)
{
    QString state = u"WA"_s;
    if (meaning.Part(0) == u"bankruptcy, but not of Idaho")
        state = u"ORBK"_s;
    else if (meaning.Part(0) == u"bankruptcy of Idaho")
        state = u"IDBK"_s;
    frmNameSearchResults window(state);
    return stopOf(window);
}

QString stopOfCase(const Meaning &meaning)
{
    frmCaseDetails window;
    const bool bankruptcy = meaning.Part(0) == u"bankruptcy";
    window.chkBK = bankruptcy;
    window.lblState = bankruptcy ? u"IDBK"_s : u"OR"_s;
    return stopOf(window);
}

/// What stands for the entries of every search: whom or what it looks for, and the years.
SearchEntry entryOf(const Meaning &meaning)
{
    static const std::array<std::pair<QStringView, SearchKind>, 5> kinds{{
        {u"person ", SearchKind::Person},
        {u"business ", SearchKind::Business},
        {u"case number ", SearchKind::Number},
        {u"tax number ", SearchKind::TaxId},
        {u"social security number ", SearchKind::Ssn},
    }};
    SearchEntry entry;
    for (const auto &[head, kind] : kinds) {
        if (!meaning.Part(0).startsWith(head))
            continue;
        entry.Kind = kind;
        const QString what = meaning.Part(0).mid(head.size());
        const QStringList names =
            kind == SearchKind::Person ? what.split(u", "_s) : QStringList{what};
        std::copy(names.begin(), names.end(), entry.Names.begin());
    }
    const QString years =
        meaning.Parts.filter(QRegularExpression(u"^\\d{4} to \\d{4}$"_s)).value(0);
    entry.YearRange = !years.isEmpty();
    entry.FromYear = years.left(4);
    entry.ToYear = years.right(4);
    return entry;
}

/// A name search in the courts that are searched by county.
QString countySearch(const Meaning &meaning, CourtFamily court, bool district = false)
{
    SearchEntry entry = entryOf(meaning);
    entry.Court = court;
    entry.DistrictCourt = district;
    if (meaning.Part(1) == u"statewide")
        entry.Where = SearchScope::Statewide;
    else
        entry.Counties = meaning.Part(1).split(u", "_s);
    entry.CaseTypes = meaning.Part(2).split(u", "_s);
    entry.JudgmentsOnly = court == CourtFamily::Oregon && entry.CaseTypes.removeAll(u"Judgment"_s);
    const QString pages = meaning.After(u"pages of "_s);
    entry.UseIndex = !pages.isEmpty();
    RequestContext context;
    context.PageSize = pages.toInt();
    const QString line = NameRequests(entry, context).value(0);
    const QString code = meaning.After(u"client code "_s);
    return code.isEmpty() ? line : EmbedClientCode(line, code);
}

QString nextPage(const Meaning &meaning)
{
    const QString first = countySearch(meaning, CourtFamily::Superior);
    const auto limit = static_cast<qint16>(meaning.After(u"pages of "_s).toInt());
    return PageRequest(first, NextPageOf(meaning.Parts.last(), limit));
}

QString districtSearch(const Meaning &meaning, SearchScope scope)
{
    LoadDiscisCourts();
    SearchEntry entry = entryOf(meaning);
    entry.Court = CourtFamily::Discis;
    entry.Where = scope;
    const clsDiscisCourts *court = DiscisCourtByCode(meaning.Part(1));
    if (court) {
        entry.DiscisCountyIndex = 20;
        entry.DiscisItems = entry.DiscisSelected = {court->ListText()};
    } else {
        const bool addresses = meaning.Part(1) == u"statewide with addresses";
        entry.DiscisCountyIndex = addresses ? 1 : 0;
        entry.DiscisItems = {(addresses ? discisDefendantsItem : discisStatewideItem).toString()};
        entry.DiscisSelected = entry.DiscisItems;
    }
    return DiscisNameRequests(entry, {}).Lines.value(0);
}

QString casesOfPerson(const Meaning &meaning)
{
    const QString searched = meaning.Part(0).section(u" was searched for"_s, 0, 0);
    const int row = meaning.After(u"row "_s).section(u' ', 0, 0).toInt();
    const QString person = meaning.Parts.last();
    const NameRow name = ParseNameRow(person, row - 1);
    return CasesOfNameRequest(person.startsWith(u"NCDND") ? u"DND"_s : u"SNCI"_s, searched,
                              name.Cells, name.Key);
}

QString bankruptcySearch(const Meaning &meaning)
{
    SearchEntry entry = entryOf(meaning);
    entry.Court = CourtFamily::Bankruptcy;
    const QStringList courts{u"WAW"_s, u"WAE"_s, u"OR"_s, u"ID"_s};
    constexpr int anyYear = 2005;
    return BkRequest(entry, static_cast<int>(courts.indexOf(meaning.Part(1))), anyYear)
        .value_or(QString());
}

QString caseTab(const Meaning &meaning, CaseOfRequest ofCase)
{
    ofCase.CaseNumber = meaning.Part(0);
    const bool district = ofCase.Kind != CaseKind::State;
    if (district) {
        ofCase.CaseType = meaning.Part(1);
        ofCase.CourtCode = meaning.Part(2);
    } else {
        ofCase.CountyName = meaning.Part(1);
    }
    const std::optional<CaseTab> tab = CaseTabOf(meaning.Part(district ? 3 : 2));
    QString request = tab ? CaseTabRequest(ofCase, *tab) : QString();
    const QString answer = meaning.Parts.filter(u"arbitration"_s).value(0);
    const ArbitrationMode mode =
        answer.startsWith(u"no ") ? ArbitrationMode::NoArbitration : ArbitrationMode::Arbitration;
    // Once for the run of the case, and again when the tab is asked for later.
    for (int i = answer.isEmpty() ? 0 : answer.contains(u"later") ? 2 : 1; i > 0; --i)
        request = WithArbitration(request, mode);
    return request;
}

using Composer = std::function<QString(const Meaning &)>;

Composer county(CourtFamily court, bool district = false)
{
    return [=](const Meaning &meaning) { return countySearch(meaning, court, district); };
}

Composer caseOf(CaseKind kind, const QString &state = {}, const QString &oregonCourt = {})
{
    CaseOfRequest ofCase;
    ofCase.Kind = kind;
    ofCase.State = state;
    ofCase.OrCourtType = oregonCourt;
    return [ofCase](const Meaning &meaning) { return caseTab(meaning, ofCase); };
}

/// What the program makes the request of an example with, by its kind.
const QHash<QString, Composer> &composers()
{
    static const QHash<QString, Composer> all{
        {u"login"_s, login},
        {u"parameters"_s, [](const Meaning &) { return exchange(GetIniValues); }},
        {u"message"_s, [](const Meaning &) { return exchange(GetSystemMessage); }},
        {u"private messages"_s, privateMessages},
        {u"court status"_s, [](const Meaning &) { return exchange(GetCourtStatus); }},
        {u"accounting option"_s, [](const Meaning &) { return sentBy(GetClientAcctgOption); }},
        {u"answer to a ping"_s, [](const Meaning &) { return pingAnswer(); }},
        {u"Superior Courts"_s, county(CourtFamily::Superior)},
        {u"index"_s, county(CourtFamily::Superior)},
        {u"index, the next page"_s, nextPage},
        {u"Oregon Circuit Courts"_s, county(CourtFamily::Oregon)},
        {u"Oregon District Courts"_s, county(CourtFamily::Oregon, true)},
        {u"Idaho"_s, county(CourtFamily::Idaho)},
        {u"district courts, civil"_s,
         [](const Meaning &meaning) { return districtSearch(meaning, SearchScope::DiscisCivil); }},
        {u"district courts, non-civil"_s,
         [](const Meaning &meaning) {
             return districtSearch(meaning, SearchScope::DiscisNonCivil);
         }},
        {u"cases of a person"_s, casesOfPerson},
        {u"bankruptcy"_s, bankruptcySearch},
        {u"stop of a search"_s, stopOfSearch},
        {u"stop of a case"_s, stopOfCase},
        {u"case of the Superior Courts"_s, caseOf(CaseKind::State, u"WA"_s)},
        {u"document of a row"_s,
         [](const Meaning &meaning) { return RetrievalRequest(meaning.Part(0)); }},
        {u"case of Oregon Circuit Courts"_s, caseOf(CaseKind::State, u"OR"_s, u"C"_s)},
        {u"case of Oregon District Courts"_s, caseOf(CaseKind::State, u"OR"_s, u"D"_s)},
        {u"case of Idaho"_s, caseOf(CaseKind::State, u"ID"_s)},
        {u"case of the district courts, non-civil"_s, caseOf(CaseKind::NonCivil)},
        {u"case of the district courts, civil"_s, caseOf(CaseKind::Civil)},
    };
    return all;
}

// ---- the tables of patterns ----

const QString patternTitles = u"| Court | Tab | Request |"_s;
const QString wordTitles = u"| Tab | Superior | Oregon | Idaho | non-civil | civil |"_s;
const QString bankruptcyTitles = u"| Search by | Request |"_s;

/// The column of a court in the table of words, and what its requests are made of: words in
/// capitals, as the pattern has them.
struct PatternCourt
{
    QStringView name; ///< in the table of patterns
    int column;
    CaseKind kind;
    QStringView state;
};
constexpr std::array<PatternCourt, 5> patternCourts{{
    {u"Superior Courts", 1, CaseKind::State, u"WA"},
    {u"Oregon", 2, CaseKind::State, u"OR"},
    {u"Idaho", 3, CaseKind::State, u"ID"},
    {u"district and municipal, non-civil", 4, CaseKind::NonCivil, u""},
    {u"district and municipal, civil", 5, CaseKind::Civil, u""},
}};

CaseOfRequest patternCase(const PatternCourt &court)
{
    CaseOfRequest ofCase;
    ofCase.Kind = court.kind;
    ofCase.State = court.state.toString();
    ofCase.CaseNumber = u"*94-1-00042-1"_s;
    ofCase.CountyName = u"Lane"_s;
    ofCase.OrCourtType = u"C"_s;
    ofCase.CaseType = u"SC"_s;
    ofCase.CourtCode = u"KSD"_s;
    return ofCase;
}

QString filledIn(QString pattern, const QString &word)
{
    return pattern.replace(u"WORDS"_s, word)
        .replace(u"WORD"_s, word)
        .replace(u"CASE"_s, u"94-1-00042-1"_s)
        .replace(u"COUNTY"_s, u"Lane"_s)
        .replace(u"CODE"_s, u"LAN"_s)
        .replace(u"TYPE"_s, u"SC"_s)
        .replace(u"COURT"_s, u"KSD"_s);
}
} // namespace

class tst_ProtocolPage : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init() { folder = std::make_unique<TestFolder>(); }
    void cleanup() { folder.reset(); }

    void anExampleIsWhatTheProgramSends_data();
    void anExampleIsWhatTheProgramSends();
    void theWordsOfTheTabs();
    void theBankruptcySearches();
    void noRequestOnThePageIsLeftOut();

private:
    std::unique_ptr<TestFolder> folder;
    const ProtocolPage page;
};

void tst_ProtocolPage::anExampleIsWhatTheProgramSends_data()
{
    QTest::addColumn<QString>("request");
    QTest::addColumn<QString>("meaning");
    for (const auto &[request, meaning] : page.Examples())
        QTest::newRow(qPrintable(meaning)) << request << meaning;
}

void tst_ProtocolPage::anExampleIsWhatTheProgramSends()
{
    QFETCH(QString, request);
    QFETCH(QString, meaning);
    const Meaning what(meaning);
    QVERIFY2(composers().contains(what.Kind), qPrintable(what.Kind));
    QCOMPARE(composers().value(what.Kind)(what), request);
}

void tst_ProtocolPage::theWordsOfTheTabs()
{
    const QList<QStringList> words = page.TableBelow(wordTitles);
    const QList<QStringList> patterns = page.TableBelow(patternTitles);
    int compared = 0;
    for (const PatternCourt &court : patternCourts) {
        const auto pattern = std::find_if(patterns.begin(), patterns.end(),
                                          [&](const auto &row) { return row[0] == court.name; });
        QVERIFY(pattern != patterns.end());
        for (const QStringList &row : words) {
            const std::optional<CaseTab> tab = CaseTabOf(row[0]);
            QVERIFY2(tab, qPrintable(row[0]));
            const QString word = ProtocolPage::CodeIn(row[court.column]);
            const QString request = CaseTabRequest(patternCase(court), *tab);
            QCOMPARE(request, word.isEmpty() ? QString()
                                             : filledIn(ProtocolPage::CodeIn((*pattern)[2]), word));
            compared += request.isEmpty() ? 0 : 1;
        }
    }
    // The documents have a pattern of their own, below that of the other tabs.
    QCOMPARE(CaseTabRequest(patternCase(patternCourts[0]), CaseTab::Documents),
             filledIn(ProtocolPage::CodeIn(patterns.value(1).value(2)), {}));
    QCOMPARE(compared, 30);
}

void tst_ProtocolPage::theBankruptcySearches()
{
    constexpr std::array searches{RequestLine::BkPerson, RequestLine::BkBusiness,
                                  RequestLine::BkTaxId, RequestLine::BkSsn};
    const QList<QStringList> rows = page.TableBelow(bankruptcyTitles);
    QCOMPARE(rows.size(), qsizetype(searches.size()));
    for (size_t i = 0; i < searches.size(); ++i) {
        const QString shown = ProtocolPage::CodeIn(rows[static_cast<qsizetype>(i)].value(1));
        SearchEntry entry;
        entry.Names = {u"LAST"_s, u"FIRST"_s, u"MI"_s, {}};
        if (searches.at(i) != RequestLine::BkPerson)
            entry.Names = {shown.section(u'~', 2, 2), {}, {}, {}};
        entry.YearRange = true;
        entry.FromYear = u"1980"_s;
        entry.ToYear = u"2005"_s;
        RequestValues values;
        values.Places = {u"WAW"_s};
        QCOMPARE(ComposeRequest(searches.at(i), entry, values), shown);
    }
}

void tst_ProtocolPage::noRequestOnThePageIsLeftOut()
{
    QSet<QString> checked;
    for (const auto &[request, meaning] : page.Examples())
        checked.insert(request);
    for (const QString &titles : {patternTitles, bankruptcyTitles}) {
        for (const QStringList &row : page.TableBelow(titles))
            checked.insert(ProtocolPage::CodeIn(row.last()));
    }
    const QStringList requests = page.Requests();
    for (const QString &request : requests)
        QVERIFY2(checked.contains(request), qPrintable(request));
    // The table of examples, the patterns, and about as many again in the text.
    QVERIFY2(requests.size() > 90, qPrintable(QString::number(requests.size())));
}

HALVANE_TEST(tst_ProtocolPage)
#include "tst_ProtocolPage.moc"
