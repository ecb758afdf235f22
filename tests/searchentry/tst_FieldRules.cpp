#include "searchentry/FieldRules.h"

#include "courts/Counties.h"
#include "searchentry/TalkRecorder.h"
#include "support/FaultyFile.h"
#include "support/HalvaneTest.h"
#include "support/TestFolder.h"

#include <QTest>

#include <algorithm>
#include <memory>

using namespace Qt::StringLiterals;

Q_DECLARE_METATYPE(SearchEntry)

namespace {
const QString required = u"This is a required field and Has a Minimum Length of 1 Character."_s;

const QString noLastName =
    TalkRecorder::FieldError(u"The LAST NAME Field Is Empty!"_s, required,
                             u"Please enter a Last Name or Select Cancel to Continue."_s);
const QString noBusinessName =
    TalkRecorder::FieldError(u"The BUSINESS NAME Field Is Empty!"_s, required,
                             u"Please enter a Business Name or Select Cancel to Continue."_s);
const QString initialWithoutFirstName = TalkRecorder::FieldError(
    u"The FIRST NAME Field Is Empty!"_s,
    u"This is a required field when a MIDDLE INITIAL is entered."_s,
    u"Please enter a First Name or Remove the Middle Initial to Continue."_s);
const QString suffixWithoutFirstName = TalkRecorder::FieldError(
    u"The FIRST NAME Field Is Empty!"_s, u"This is a required field when a SUFFIX is entered."_s,
    u"Please enter a First Name or Remove the Suffix to Continue."_s);
const QString noCounty = TalkRecorder::FieldError(
    u"You Have Not Selected a County!"_s,
    u"At least one selection is required when searching County Jurisdictions."_s,
    u"Please Select a County(s) or Change Jurisidiction to Continue."_s);
const QString noCaseType = TalkRecorder::FieldError(
    u"You Have Not Selected a Case Type!"_s, u"At least one Case Type Must be Selected"_s,
    u"Please Select a Case Type(s) to Continue with this Search."_s);
const QString noNumber =
    TalkRecorder::FieldError(u"The NUMBER Field Is Empty!"_s, required,
                             u"Please enter a NUMBER or Select Cancel to Continue."_s);
const QString noNumberCounty =
    TalkRecorder::FieldError(u"You Have Not Selected a County!"_s,
                             u"A County selection is required for this type of search."_s,
                             u"Please Select a County or Change Jurisidiction to Continue."_s);
const QString askNonScomis = TalkRecorder::Question(
    u"This case number appears to be a non-SCOMIS number.\r\n\r\nTo "
    "continue the search using this number click OK."_s,
    u"Halvane Form Field Validation"_s, QuestionButtons::OkCancel, MessageIcon::Exclamation);
const QString nonScomis = TalkRecorder::FieldError(
    u"This case number appears to be a non-SCOMIS number."_s,
    u"Searching of Non-Scomis Case Numbers is Supported, but you Must Answer OK When Prompted to "
    "Continue Searching With a Non-Scomis Case Number."_s,
    u"Please Correct the Case Number or Answer OK When Prompted to Continue Searching With a "
    "Non-Scomis Case Number."_s);
const QString wrongCheckDigit = TalkRecorder::FieldError(
    u"The case number is invalid for the county chosen."_s,
    u"Washington Superior Court cases have unique case numbers in each county."_s,
    u"Check the case number and the county."_s, u"Case Number not found in this county."_s);
const QString askNoDistrictCourt = TalkRecorder::Question(
    u"One or more of the Counties you selected does not support District Court searches. The "
    "following counties Do NOT have District Court support.\r\n\r\nBaker, Gilliam, Grant, Harney, "
    "Sherman, and Wheeler.\r\n\r\nSelect Yes to continue with the currrent search criteria "
    "(skipping counties without District Court).  Select No to refine the search criteria "
    "entered.\r\n\r\nContinue?"_s,
    u"Warning - No District Court Support .."_s, QuestionButtons::YesNo, MessageIcon::Exclamation);
const QString askNoJuvenile = TalkRecorder::Question(
    u"One or more of the Counties you selected does not support Juvenile Offender Searches. The "
    "following counties Do NOT support Juvenile Offender Searches.\r\n\r\nBenton, Crook, Gilliam, "
    "Harney, City of Hermiston, Jefferson, Morrow, Multinomah (civil), Sherman, Washington, and "
    "Wheeler.\r\n\r\nSelect Yes to continue with the currrent search criteria (skipping counties "
    "without Juvenile Offender Support).  Select No to refine the search criteria "
    "entered.\r\n\r\nContinue?"_s,
    u"Warning - No Juvenile Offender Support .."_s, QuestionButtons::YesNo,
    MessageIcon::Exclamation);

QString restricted(QChar digit)
{
    return TalkRecorder::FieldError(
        u"The Case Type Entered ("_s + digit
            + u") is Restricted and Cannot be Retrieved From This Court."_s,
        u"The Case Type Entered Cannot be '5' (Adoption), '6' (Mental Illness), or '7' (Juvenile "
        "Dependency)."_s,
        u"Please Correct the Case Type and Select Start Search to Continue."_s);
}

/// A person's name and all that a search in this court needs.
SearchEntry person(CourtFamily court)
{
    SearchEntry entry;
    entry.Court = court;
    entry.Names = {u"SMITH"_s, u"JOHN"_s, u"Q"_s, u"JR"_s};
    entry.Counties = {u"Lincoln"_s};
    entry.CaseTypes = {u"Civil"_s};
    if (court == CourtFamily::Discis) {
        entry.Where = SearchScope::DiscisCivil;
        entry.Counties.clear();
        entry.CaseTypes.clear();
        entry.DiscisSelected = {u"King County District (KCD)"_s};
    }
    return entry;
}

SearchEntry business(CourtFamily court)
{
    return With(person(court), [](SearchEntry &e) {
        e.Kind = SearchKind::Business;
        e.Names = {u"ACME"_s, {}, {}, {}};
    });
}

/// A number that is right in King.
SearchEntry caseNumber(CourtFamily court, const QString &number = u"092020294"_s,
                       const QString &county = u"King"_s)
{
    return With(person(court), [&](SearchEntry &e) {
        e.Kind = SearchKind::Number;
        e.Names = {number, {}, {}, {}};
        e.Counties.clear();
        e.CaseTypes.clear();
        e.NumberCounty = court == CourtFamily::Discis ? QString() : county;
    });
}

SearchEntry named(const SearchEntry &entry, const QStringList &names)
{
    return With(entry, [&](SearchEntry &e) {
        e.Names = {};
        std::copy(names.begin(), names.end(), e.Names.begin());
    });
}

SearchEntry inCounties(const SearchEntry &entry, const QStringList &counties)
{
    return With(entry, [&](SearchEntry &e) { e.Counties = counties; });
}

SearchEntry ofTypes(const SearchEntry &entry, const QStringList &types)
{
    return With(entry, [&](SearchEntry &e) { e.CaseTypes = types; });
}

SearchEntry inScope(const SearchEntry &entry, SearchScope where)
{
    return With(entry, [&](SearchEntry &e) { e.Where = where; });
}

SearchEntry inDistrictCourt(const SearchEntry &entry)
{
    return With(entry, [](SearchEntry &e) { e.DistrictCourt = true; });
}

SearchEntry withoutDiscisCourt(const SearchEntry &entry)
{
    return With(entry, [](SearchEntry &e) { e.DiscisSelected.clear(); });
}

SearchEntry judgmentsOnly(const SearchEntry &entry)
{
    return With(entry, [](SearchEntry &e) { e.JudgmentsOnly = true; });
}

/// One application folder for all rows of a table: making one costs more than the row.
std::unique_ptr<TestFolder> rowsFolder;

void startTable()
{
    rowsFolder = std::make_unique<TestFolder>();
    QTest::addColumn<SearchEntry>("entry");
    QTest::addColumn<QStringList>("expected");
    QTest::addColumn<bool>("passes");
    QTest::addColumn<QString>("boxAfter"); ///< what the first name box holds then
    QTest::addColumn<QList<bool>>("answers");
}

/// A row that every court has: its name and the court's number.
QByteArray rowName(const QByteArray &name, CourtFamily court)
{
    return name + ", court " + QByteArray::number(static_cast<int>(court));
}

void add(const QByteArray &name, const SearchEntry &entry, const QStringList &expected, bool passes,
         const QString &boxAfter, const QList<bool> &answers = {})
{
    QTest::newRow(name.constData()) << entry << expected << passes << boxAfter << answers;
}

void refused(const QByteArray &name, const SearchEntry &entry, const QString &expected)
{
    add(name, entry, {expected}, false, entry.Names[0]);
}

void accepted(const QByteArray &name, const SearchEntry &entry)
{
    add(name, entry, {}, true, entry.Names[0]);
}
} // namespace

class tst_FieldRules : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void names_data();
    void names() { check(); }
    void numbers_data();
    void numbers() { check(); }
    void oregonWarnings_data();
    void oregonWarnings() { check(); }

    void cleanupTestCase() { rowsFolder.reset(); }

    void theFirstBrokenRuleOfANameIsReported();
    void theFirstBrokenRuleOfANumberIsReported();

    void aNumberTypedWithOrWithoutDashesIsTheSameNumber();
    void aNumberWithALetterPassesOnOkWithNoTypeOrCountyCheck();
    void threeCaseTypesAreRestricted();
    void aRestrictedTypeIsRefusedBeforeTheCheckDigitIsLookedAt();
    void aCountyWithCode0OrWithNoEntryAcceptsAnyCheckDigit();
    void anIdahoNumberPassesEveryTestOnceItIsNotEmpty();
    void withoutTheCodesFileTheCheckDigitTestFallsAwayInSilence();
    void anUnreadableCodesFileIsLoggedAndTheNumberPasses();
    void onlyTheRightCheckDigitPassesInEveryCounty();

    void aRunTimeErrorIsLoggedAndIsARefusal();
    void textsOfTenThousandCharacters();

private:
    static void check();
};

void tst_FieldRules::check()
{
    QFETCH(SearchEntry, entry);
    QFETCH(QStringList, expected);
    QFETCH(bool, passes);
    QFETCH(QString, boxAfter);
    QFETCH(QList<bool>, answers);
    TalkRecorder talk(answers);
    QCOMPARE(ValidateAllFormFields(entry, talk), passes);
    QCOMPARE(talk.Said, expected);
    QCOMPARE(talk.AnswersLeft(), qsizetype(0));
    QCOMPARE(entry.Names[0], boxAfter);
    QCOMPARE(rowsFolder->Log(), QStringList());
}

void tst_FieldRules::names_data()
{
    using enum CourtFamily;
    startTable();
    for (const CourtFamily court : {Superior, Discis, Oregon, Idaho}) {
        const auto row = [court](const char *name) { return rowName(name, court); };
        const SearchEntry who = person(court);
        const SearchEntry firm = business(court);
        accepted(row("a person"), who);
        accepted(row("only a last name"), named(who, {u"SMITH"_s, {}, {}, {}}));
        accepted(row("a business"), firm);
        refused(row("no last name"), named(who, {{}, u"JOHN"_s, {}, {}}), noLastName);
        refused(row("a last name of blanks"), named(who, {u"   "_s, {}, {}, {}}), noLastName);
        refused(row("no business name"), named(firm, {}), noBusinessName);
        refused(row("a middle initial without a first name"),
                named(who, {u"SMITH"_s, {}, u"Q"_s, {}}), initialWithoutFirstName);
        refused(row("a suffix without a first name"), named(who, {u"SMITH"_s, {}, {}, u"JR"_s}),
                suffixWithoutFirstName);
        accepted(row("a suffix of blanks"), named(who, {u"SMITH"_s, {}, {}, u"  "_s}));
    }
    for (const CourtFamily court : {Superior, Oregon}) {
        const auto row = [court](const char *name) { return rowName(name, court); };
        const SearchEntry none = inCounties(person(court), {});
        refused(row("no county"), none, noCounty);
        refused(row("no county for a business"), inCounties(business(court), {}), noCounty);
        refused(row("no county by template"), inScope(none, SearchScope::Template), noCounty);
        accepted(row("no county statewide"), inScope(none, SearchScope::Statewide));
        accepted(row("two counties"), inCounties(none, {u"Lincoln"_s, u"Jackson"_s}));
        const SearchEntry noType = ofTypes(person(court), {});
        refused(row("no case type"), noType, noCaseType);
        refused(row("no case type for a business"), ofTypes(business(court), {}), noCaseType);
        refused(row("no case type statewide"), inScope(noType, SearchScope::Statewide), noCaseType);
        accepted(row("judgments only in place of a case type"), judgmentsOnly(noType));
    }
    refused("civil without a court", withoutDiscisCourt(person(Discis)), noCounty);
    refused("civil without a court, a business", withoutDiscisCourt(business(Discis)), noCounty);
    accepted("non-civil without a court",
             inScope(withoutDiscisCourt(person(Discis)), SearchScope::DiscisNonCivil));
    accepted("Idaho without a county or case type", ofTypes(inCounties(person(Idaho), {}), {}));
}

void tst_FieldRules::numbers_data()
{
    using enum CourtFamily;
    startTable();
    for (const CourtFamily court : {Superior, Discis, Oregon, Idaho}) {
        refused(rowName("no number", court), caseNumber(court, {}), noNumber);
        refused(rowName("a number of blanks", court), caseNumber(court, u"  "_s), noNumber);
    }
    for (const CourtFamily court : {Superior, Discis, Oregon}) {
        const auto row = [court](const char *name) { return rowName(name, court); };
        const QString right = u"09-2-02029-4"_s;
        const QString other = u"3YH809020"_s;
        add(row("without dashes"), caseNumber(court), {}, true, right);
        add(row("with dashes"), caseNumber(court, right), {}, true, right);
        add(row("dashes elsewhere"), caseNumber(court, u"0-9202029-4"_s), {}, true, right);
        add(row("blanks around"), caseNumber(court, u"  092020294 "_s), {}, true, right);
        add(row("another form, OK"), caseNumber(court, other), {askNonScomis}, true, other, {true});
        add(row("another form, Cancel"), caseNumber(court, other), {askNonScomis, nonScomis}, false,
            other, {false});
        add(row("another form keeps its blanks"), caseNumber(court, u" X1 "_s), {askNonScomis},
            true, u" X1 "_s, {true});
        add(row("eight digits"), caseNumber(court, u"09202029"_s), {askNonScomis}, true,
            u"09202029"_s, {true});
        add(row("adoption"), caseNumber(court, u"095020295"_s), {restricted(u'5')}, false,
            u"09-5-02029-5"_s);
        add(row("mental illness"), caseNumber(court, u"096020299"_s), {restricted(u'6')}, false,
            u"09-6-02029-9"_s);
        add(row("dependency"), caseNumber(court, u"097020292"_s), {restricted(u'7')}, false,
            u"09-7-02029-2"_s);
    }
    // Whatever the court, a county that has a code is tested: six counties of Oregon share the
    // name of one in Washington.
    add("another county's check digit", caseNumber(Superior, u"092020295"_s), {wrongCheckDigit},
        false, u"09-2-02029-5"_s);
    add("right in King, wrong in Pierce", caseNumber(Superior, u"092020294"_s, u"Pierce"_s),
        {wrongCheckDigit}, false, u"09-2-02029-4"_s);
    add("right in Pierce", caseNumber(Superior, u"092020290"_s, u"Pierce"_s), {}, true,
        u"09-2-02029-0"_s);
    add("blanks around the county", caseNumber(Superior, u"092020295"_s, u" King "_s),
        {wrongCheckDigit}, false, u"09-2-02029-5"_s);
    add("Oregon's Benton, right in Washington's", caseNumber(Oregon, u"092020293"_s, u"Benton"_s),
        {}, true, u"09-2-02029-3"_s);
    add("Oregon's Benton, wrong in Washington's", caseNumber(Oregon, u"092020294"_s, u"Benton"_s),
        {wrongCheckDigit}, false, u"09-2-02029-4"_s);
    add("an Oregon county without a code", caseNumber(Oregon, u"092020290"_s, u"Multnomah"_s), {},
        true, u"09-2-02029-0"_s);
    refused("Oregon without a county", caseNumber(Oregon, u"CV08060677"_s, {}), noNumberCounty);
    accepted("Idaho without a county", caseNumber(Idaho, u"CR-1998-0002546-IN"_s, {}));
    refused("Superior without a county", caseNumber(Superior, u"092020294"_s, {}), noNumberCounty);
    refused("Superior with a county of blanks", caseNumber(Superior, u"092020294"_s, u"  "_s),
            noNumberCounty);
    add("a district court's number without a court", withoutDiscisCourt(caseNumber(Discis)),
        {noNumberCounty}, false, u"09-2-02029-4"_s);
    add("a district court's other number without a court",
        withoutDiscisCourt(caseNumber(Discis, u"3YH809020"_s)), {askNonScomis, noNumberCounty},
        false, u"3YH809020"_s, {true});
    add("Superior without a court", withoutDiscisCourt(caseNumber(Superior)), {}, true,
        u"09-2-02029-4"_s);
}

void tst_FieldRules::oregonWarnings_data()
{
    using enum CourtFamily;
    startTable();
    const auto warned = [](const QByteArray &name, const SearchEntry &entry,
                           const QString &expected) {
        for (const bool yes : {true, false})
            add(name + (yes ? ", Yes" : ", No"), entry, {expected}, yes, entry.Names[0], {yes});
    };
    const SearchEntry who = person(Oregon);
    const QStringList juvenile{u"Juvenile Offender"_s};
    for (const QString &county :
         {u"Baker"_s, u"Gilliam"_s, u"Grant"_s, u"Harney"_s, u"Sherman"_s, u"Wheeler"_s}) {
        const QByteArray name = county.toLatin1();
        warned("District in " + name, inDistrictCourt(inCounties(who, {county})),
               askNoDistrictCourt);
        accepted("Circuit in " + name, inCounties(who, {county}));
    }
    for (const QString &county :
         {u"Benton"_s, u"Crook"_s, u"Gilliam"_s, u"Harney"_s, u"City of Hermiston"_s,
          u"Jefferson"_s, u"Morrow"_s, u"Sherman"_s, u"Washington"_s, u"Wheeler"_s}) {
        const QByteArray name = county.toLatin1();
        warned("juvenile in " + name, ofTypes(inCounties(who, {county}), juvenile), askNoJuvenile);
        accepted("no juvenile in " + name, inCounties(who, {county}));
    }
    warned("one county of many", inDistrictCourt(inCounties(who, {u"Lane"_s, u"Baker"_s})),
           askNoDistrictCourt);
    warned("a business", inDistrictCourt(inCounties(business(Oregon), {u"Baker"_s})),
           askNoDistrictCourt);
    warned(
        "juvenile among the types",
        ofTypes(inCounties(who, {u"Benton"_s}), {u"Civil"_s, u"Juvenile Offender"_s, u"Probate"_s}),
        askNoJuvenile);
    // At most one of the two is asked.
    warned("both are missing", inDistrictCourt(ofTypes(inCounties(who, {u"Harney"_s}), juvenile)),
           askNoDistrictCourt);
    warned("District is there, juvenile is not",
           inDistrictCourt(ofTypes(inCounties(who, {u"Benton"_s}), juvenile)), askNoJuvenile);
    accepted("Multnomah is not limited",
             inDistrictCourt(ofTypes(inCounties(who, {u"Multnomah"_s}), juvenile)));
    accepted("District in a county that has it", inDistrictCourt(inCounties(who, {u"Lane"_s})));
    accepted("statewide",
             inDistrictCourt(inScope(inCounties(who, {u"(Statewide)"_s}), SearchScope::Statewide)));
    const SearchEntry number = inDistrictCourt(ofTypes(
        inCounties(caseNumber(Oregon, u"092020294"_s, u"Baker"_s), {u"Baker"_s}), juvenile));
    add("a number", number, {}, true, u"09-2-02029-4"_s);
    accepted("Washington's Grant",
             inDistrictCourt(
                 ofTypes(inCounties(person(Superior), {u"Grant"_s, u"Benton"_s}), juvenile)));
    accepted("an Idaho county",
             inDistrictCourt(ofTypes(inCounties(person(Idaho), {u"Jefferson"_s}), juvenile)));
}

void tst_FieldRules::theFirstBrokenRuleOfANameIsReported()
{
    // Each mend uncovers the next one, in the order of the checks.
    const TestFolder folder;
    SearchEntry entry;
    entry.Court = CourtFamily::Oregon;
    entry.DistrictCourt = true;
    entry.Names = {QString(), QString(), u"Q"_s, u"JR"_s};
    TalkRecorder talk({true});
    QVERIFY(!ValidateAllFormFields(entry, talk));
    entry.Names[LastName] = u"SMITH"_s;
    QVERIFY(!ValidateAllFormFields(entry, talk));
    entry.Names[MiddleInitial].clear();
    QVERIFY(!ValidateAllFormFields(entry, talk));
    entry.Names[Suffix].clear();
    QVERIFY(!ValidateAllFormFields(entry, talk));
    entry.Counties.append(u"Baker"_s);
    QVERIFY(!ValidateAllFormFields(entry, talk));
    entry.CaseTypes.append(u"Civil"_s);
    QVERIFY(ValidateAllFormFields(entry, talk));
    QCOMPARE(talk.Said, (QStringList{noLastName, initialWithoutFirstName, suffixWithoutFirstName,
                                     noCounty, noCaseType, askNoDistrictCourt}));
}

void tst_FieldRules::theFirstBrokenRuleOfANumberIsReported()
{
    const TestFolder folder;
    SearchEntry entry = caseNumber(CourtFamily::Superior, {}, {});
    TalkRecorder talk({false});
    QVERIFY(!ValidateAllFormFields(entry, talk));
    entry.Names[0] = u"09502029"_s;
    QVERIFY(!ValidateAllFormFields(entry, talk));
    entry.NumberCounty = u"King"_s;
    QVERIFY(!ValidateAllFormFields(entry, talk));
    entry.Names[0] = u"095020290"_s;
    QVERIFY(!ValidateAllFormFields(entry, talk));
    entry.Names[0] = u"092020290"_s;
    QVERIFY(!ValidateAllFormFields(entry, talk));
    entry.Names[0] = u"092020294"_s;
    QVERIFY(ValidateAllFormFields(entry, talk));
    QCOMPARE(talk.Said, (QStringList{noNumber, noNumberCounty, askNonScomis, nonScomis,
                                     restricted(u'5'), wrongCheckDigit}));
}

void tst_FieldRules::aNumberTypedWithOrWithoutDashesIsTheSameNumber()
{
    const TestFolder folder;
    for (const QString &typed : {u"092020294"_s, u"09-2-02029-4"_s, u"09-202029-4"_s}) {
        SearchEntry entry = caseNumber(CourtFamily::Superior, typed);
        TalkRecorder talk;
        QVERIFY(ValidateAllFormFields(entry, talk));
        QCOMPARE(entry.Names[0], u"09-2-02029-4"_s);
        QCOMPARE(talk.Said, QStringList());
    }
}

void tst_FieldRules::aNumberWithALetterPassesOnOkWithNoTypeOrCountyCheck()
{
    // It has a restricted type and no check digit, in a county that is tested.
    const TestFolder folder;
    SearchEntry entry = caseNumber(CourtFamily::Superior, u"09-5-02029-A"_s);
    TalkRecorder talk({true});
    QVERIFY(ValidateAllFormFields(entry, talk));
    QCOMPARE(talk.Said, QStringList{askNonScomis});
    QCOMPARE(entry.Names[0], u"09-5-02029-A"_s);
}

void tst_FieldRules::threeCaseTypesAreRestricted()
{
    const TestFolder folder;
    for (const QChar digit : u"0123456789"_s) {
        SearchEntry entry =
            caseNumber(CourtFamily::Superior, u"09"_s + digit + u"020290"_s, u"Elsewhere"_s);
        TalkRecorder talk;
        const bool closed = digit == u'5' || digit == u'6' || digit == u'7';
        QCOMPARE(ValidateAllFormFields(entry, talk), !closed);
        QCOMPARE(talk.Said, closed ? QStringList{restricted(digit)} : QStringList());
    }
}

void tst_FieldRules::aRestrictedTypeIsRefusedBeforeTheCheckDigitIsLookedAt()
{
    const TestFolder folder;
    // The check digit is wrong too, and nobody so much as reads the county's code.
    MakeUnreadable(folder.Path(u"waCtyCds.ini"_s));
    SearchEntry entry = caseNumber(CourtFamily::Superior, u"095020290"_s);
    TalkRecorder talk;
    QVERIFY(!ValidateAllFormFields(entry, talk));
    QCOMPARE(talk.Said, QStringList{restricted(u'5')});
    QCOMPARE(folder.Log(), QStringList());
}

void tst_FieldRules::aCountyWithCode0OrWithNoEntryAcceptsAnyCheckDigit()
{
    const TestFolder folder;
    folder.Write(u"waCtyCds.ini"_s, "[Cty2Code]\r\nAdams=0\r\nFerry=00\r\nPierce=27\r\n");
    for (const QString &county : {u"Adams"_s, u"Ferry"_s, u"King"_s}) {
        for (const QChar digit : u"0123456789"_s) {
            SearchEntry entry = caseNumber(CourtFamily::Superior, u"09202029"_s + digit, county);
            TalkRecorder talk;
            QVERIFY(ValidateAllFormFields(entry, talk));
            QCOMPARE(talk.Said, QStringList());
        }
    }
    SearchEntry entry = caseNumber(CourtFamily::Superior, u"092020294"_s, u"Pierce"_s);
    TalkRecorder talk;
    QVERIFY(!ValidateAllFormFields(entry, talk));
    QCOMPARE(talk.Said, QStringList{wrongCheckDigit});
}

void tst_FieldRules::anIdahoNumberPassesEveryTestOnceItIsNotEmpty()
{
    const TestFolder folder;
    for (const QString &number : {u"CR-1998-0002546-IN"_s, u"095020290"_s, u"X"_s, u"-"_s}) {
        SearchEntry entry = caseNumber(CourtFamily::Idaho, number, {});
        TalkRecorder talk;
        QVERIFY(ValidateAllFormFields(entry, talk));
        QCOMPARE(talk.Said, QStringList());
        QCOMPARE(entry.Names[0], number);
    }
}

void tst_FieldRules::withoutTheCodesFileTheCheckDigitTestFallsAwayInSilence()
{
    const TestFolder folder;
    folder.Remove(u"waCtyCds.ini"_s);
    SearchEntry entry = caseNumber(CourtFamily::Superior, u"092020290"_s);
    TalkRecorder talk;
    QVERIFY(ValidateAllFormFields(entry, talk));
    QCOMPARE(talk.Said, QStringList());
    QCOMPARE(folder.Log(), QStringList());
    QCOMPARE(entry.Names[0], u"09-2-02029-0"_s);
}

void tst_FieldRules::anUnreadableCodesFileIsLoggedAndTheNumberPasses()
{
    const TestFolder folder;
    MakeUnreadable(folder.Path(u"waCtyCds.ini"_s));
    SearchEntry entry = caseNumber(CourtFamily::Superior, u"092020290"_s);
    TalkRecorder talk;
    QVERIFY(ValidateAllFormFields(entry, talk));
    QCOMPARE(talk.Said, QStringList());
    QCOMPARE(folder.TimesLogged(u"Error reading Setting Cty2Code, King - CSetting.GetSettingStr"_s),
             1);
}

void tst_FieldRules::onlyTheRightCheckDigitPassesInEveryCounty()
{
    // The digits that 09-2-02029 has in the counties 1 to 39: the sum is 84 without a county, 5
    // more for its tens and 4 more for its ones.
    const TestFolder folder;
    const QString digits = u"173062951062951841751841730621730629518"_s;
    const QStringList counties = WaCountyNames();
    QCOMPARE(digits.size(), counties.size());
    for (int i = 0; i < counties.size(); ++i) {
        for (const QChar digit : u"0123456789"_s) {
            SearchEntry entry =
                caseNumber(CourtFamily::Superior, u"09202029"_s + digit, counties[i]);
            TalkRecorder talk;
            const bool passed = ValidateAllFormFields(entry, talk);
            if (passed != (digit == digits[i]))
                QFAIL(qPrintable(counties[i] + u' ' + digit));
            QCOMPARE(talk.Said, passed ? QStringList() : QStringList{wrongCheckDigit});
        }
    }
}

void tst_FieldRules::aRunTimeErrorIsLoggedAndIsARefusal()
{
    const TestFolder folder;
    SearchEntry entry = caseNumber(CourtFamily::Superior, u"X"_s);
    TalkRecorder talk({true});
    talk.Throws = RunTimeError::SubscriptOutOfRange();
    QVERIFY(!ValidateAllFormFields(entry, talk));
    QCOMPARE(folder.Log(), QStringList{u"Error in ValidateAllFormFields() - Error was: Subscript "
                                       "out of range. Number: 9"_s});
}

void tst_FieldRules::textsOfTenThousandCharacters()
{
    const TestFolder folder;
    const QString text(10000, u'%');
    for (const CourtFamily court : {CourtFamily::Superior, CourtFamily::Oregon}) {
        SearchEntry entry = caseNumber(court, text, text);
        TalkRecorder talk({false});
        QVERIFY(!ValidateAllFormFields(entry, talk));
        QCOMPARE(talk.Said, (QStringList{askNonScomis, nonScomis}));
        QCOMPARE(entry.Names[0], text);
        SearchEntry who = inDistrictCourt(inCounties(person(court), {text}));
        who.Names.fill(text);
        QVERIFY(ValidateAllFormFields(who, talk));
    }
}

HALVANE_TEST(tst_FieldRules)
#include "tst_FieldRules.moc"
