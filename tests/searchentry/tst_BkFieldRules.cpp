#include "searchentry/FieldRules.h"
#include "searchentry/TalkRecorder.h"
#include "support/HalvaneTest.h"
#include "support/TestClock.h"
#include "support/TestFolder.h"

#include <QTest>

#include <memory>

using namespace Qt::StringLiterals;

Q_DECLARE_METATYPE(SearchEntry)

namespace {
const QString noLastName =
    TalkRecorder::NoticeBox(u"The LAST NAME Field Is Empty! Please enter a Last Name."_s,
                            u"Halvane - Search Entry Form Field Error.."_s);
const QString noFirstName = TalkRecorder::NoticeBox(
    u"The FIRST NAME Field Is Empty! This is a required field when a MIDDLE INITIAL is entered. "
    "Please enter a First Name or Remove the Middle Initial to Continue."_s,
    {});
const QString noBusinessName =
    TalkRecorder::NoticeBox(u"The BUSINESS NAME Field Is Empty! Please enter a NAME."_s, {});
const QString noNumber =
    TalkRecorder::NoticeBox(u"The NUMBER Field Is Empty! Please enter a NUMBER to continue."_s,
                            u"Halvane - Invalid Number Entered. Verify Number.."_s);
const QString askNumber = TalkRecorder::Question(
    u"The NUMBER entered appears invalid or incorrectly formatted! \r\n\r\nProper formats are "
    "like: YY-Nnnnn or n:yy-tt-Nnnnn.     NOTE: Dashes and colons are not required when entering "
    "numbers.\r\n\r\nTo try using this number anyway - select OK. To stop and check this number "
    "without searching - select Cancel."_s,
    u"Halvane - Invalid Number Entered. Please Verify Number.."_s, QuestionButtons::OkCancel,
    MessageIcon::Question);
const QString noTaxId = TalkRecorder::FieldError(u"The Tax ID Field Is Empty!"_s, {},
                                                 u"Please enter a Tax ID to Continue."_s);
const QString wrongTaxId = TalkRecorder::FieldError(
    u"The Tax ID or UBI Number Entered is Invalid or Improperly Formatted!"_s,
    u"Dashes are optional but the 1st 2 numbers in a Tax ID must be between 80 and last 2 digits "
    "of this year. If number is a UBI THEN IT MUST BE EXACT INCLUDING DASHES!!"_s,
    u"Please Correct the Number to Continue. (NN-Nnnnnnnn or NNN-NNN-NNN)"_s);
const QString noSsn = TalkRecorder::FieldError(u"The SSN Field Is Empty!"_s, {},
                                               u"Please enter a SSN to Continue."_s);
const QString wrongSsn = TalkRecorder::FieldError(
    u"The SSN Number Entered is Invalid or Improperly Formatted!"_s,
    u"Dashes are optional but there must be exactly 9 numbers in the SSN"_s,
    u"Please Correct the SSN to Continue. (000-00-0000 or 123456789)"_s);
const QString noCourt =
    TalkRecorder::NoticeBox(u"No Court Selected! Please select a U.S. Court to continue."_s, {});

/// One application folder for all rows of a table: making one costs more than the row.
std::unique_ptr<TestFolder> rowsFolder;

SearchEntry bankruptcy(SearchKind kind, const QString &box0, const QString &box1 = {},
                       const QString &box2 = {}, const QString &box3 = {})
{
    SearchEntry entry;
    entry.Court = CourtFamily::Bankruptcy;
    entry.Kind = kind;
    entry.Names = {box0, box1, box2, box3};
    entry.BkCourts = {false, true, false, false};
    return entry;
}

SearchEntry withoutCourt(const SearchEntry &entry)
{
    return With(entry, [](SearchEntry &e) { e.BkCourts = {}; });
}

void add(const char *name, const SearchEntry &entry, const QStringList &expected, bool passes,
         const QString &boxAfter, const QList<bool> &answers = {})
{
    QTest::newRow(name) << entry << expected << passes << boxAfter << answers;
}

void refused(const char *name, const SearchEntry &entry, const QString &expected)
{
    add(name, entry, {expected}, false, entry.Names[0]);
}

void accepted(const char *name, const SearchEntry &entry)
{
    add(name, entry, {}, true, entry.Names[0]);
}
} // namespace

class tst_BkFieldRules : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void cleanupTestCase() { rowsFolder.reset(); }

    void rules_data();
    void rules();
    void anyOneCourtIsEnough();
    void theFirstBrokenRuleIsReported_data();
    void theFirstBrokenRuleIsReported();
    void aTaxIdBeginningWith79IsReadAsAUbi();
    void taxYearLaterThanThisYearIsReadAsAUbi();
    void aLongTaxIdIsReadAsAUbi();
    void aRunTimeErrorIsLoggedAndIsARefusal();
};

void tst_BkFieldRules::rules_data()
{
    using enum SearchKind;
    rowsFolder = std::make_unique<TestFolder>();
    QTest::addColumn<SearchEntry>("entry");
    QTest::addColumn<QStringList>("expected");
    QTest::addColumn<bool>("passes");
    QTest::addColumn<QString>("boxAfter");
    QTest::addColumn<QList<bool>>("answers");

    accepted("a person", bankruptcy(Person, u"SMITH"_s, u"JOHN"_s, u"Q"_s, u"JR"_s));
    accepted("a last name", bankruptcy(Person, u"SMITH"_s));
    accepted("a suffix alone", bankruptcy(Person, u"SMITH"_s, {}, {}, u"JR"_s));
    refused("no last name", bankruptcy(Person, {}, u"JOHN"_s), noLastName);
    refused("a last name of blanks", bankruptcy(Person, u" "_s), noLastName);
    refused("a middle initial without a first name", bankruptcy(Person, u"SMITH"_s, {}, u"Q"_s),
            noFirstName);
    refused("a person without a court", withoutCourt(bankruptcy(Person, u"SMITH"_s)), noCourt);

    accepted("a business", bankruptcy(Business, u"ACME"_s));
    refused("no business name", bankruptcy(Business, {}), noBusinessName);
    refused("a business without a court", withoutCourt(bankruptcy(Business, u"ACME"_s)), noCourt);

    refused("no number", bankruptcy(Number, {}), noNumber);
    refused("a number of blanks", bankruptcy(Number, u"  "_s), noNumber);
    add("7 characters", bankruptcy(Number, u"9920077"_s), {}, true, u"99-20077"_s);
    add("7 characters with a dash", bankruptcy(Number, u"99-20077"_s), {}, true, u"99-20077"_s);
    add("9 characters", bankruptcy(Number, u"123456789"_s), {}, true, u"123-456-789"_s);
    add("10 characters", bankruptcy(Number, u"1990220077"_s), {}, true, u"1:99-02-20077"_s);
    add("10 characters formatted", bankruptcy(Number, u"1:99-02-20077"_s), {}, true,
        u"1:99-02-20077"_s);
    add("blanks around", bankruptcy(Number, u"  9920077 "_s), {}, true, u"99-20077"_s);
    add("formatted, but no court", withoutCourt(bankruptcy(Number, u"9920077"_s)), {noCourt}, false,
        u"99-20077"_s);
    add("another form, OK", bankruptcy(Number, u"99-2007"_s), {askNumber}, true, u"99-2007"_s,
        {true});
    add("another form, Cancel", bankruptcy(Number, u"99-2007"_s), {askNumber}, false, u"99-2007"_s,
        {false});
    add("another form, OK, and nothing more is checked",
        withoutCourt(bankruptcy(Number, u"99-2007"_s)), {askNumber}, true, u"99-2007"_s, {true});
    add("10,000 characters", bankruptcy(Number, QString(10000, u'9')), {askNumber}, false,
        QString(10000, u'9'), {false});

    refused("no tax identifier", bankruptcy(TaxId, {}), noTaxId);
    refused("a tax identifier of blanks", bankruptcy(TaxId, u"   "_s), noTaxId);
    accepted("a tax identifier", bankruptcy(TaxId, u"91-1234567"_s));
    accepted("a tax identifier without its dash", bankruptcy(TaxId, u"911234567"_s));
    accepted("a UBI", bankruptcy(TaxId, u"601-234-567"_s));
    accepted("a UBI of 15 characters", bankruptcy(TaxId, u"601234567890123"_s));
    refused("neither, 16 characters", bankruptcy(TaxId, u"6012345678901234"_s), wrongTaxId);
    refused("a tax identifier that is too long", bankruptcy(TaxId, u"9112345678901234"_s),
            wrongTaxId);
    refused("a tax identifier of 10,000 characters", bankruptcy(TaxId, QString(10000, u'9')),
            wrongTaxId);
    refused("a tax identifier without a court", withoutCourt(bankruptcy(TaxId, u"91-1234567"_s)),
            noCourt);

    refused("no social security number", bankruptcy(Ssn, {}), noSsn);
    refused("a social security number of blanks", bankruptcy(Ssn, u" "_s), noSsn);
    accepted("nine digits", bankruptcy(Ssn, u"123456789"_s));
    accepted("nine digits with dashes", bankruptcy(Ssn, u"123-45-6789"_s));
    refused("eight digits", bankruptcy(Ssn, u"12345678"_s), wrongSsn);
    refused("ten digits", bankruptcy(Ssn, u"1234567890"_s), wrongSsn);
    refused("a letter", bankruptcy(Ssn, u"12345678X"_s), wrongSsn);
    refused("a masked number", bankruptcy(Ssn, u"***-**-6789"_s), wrongSsn);
    refused("a social security number without a court",
            withoutCourt(bankruptcy(Ssn, u"123456789"_s)), noCourt);
}

void tst_BkFieldRules::rules()
{
    QFETCH(SearchEntry, entry);
    QFETCH(QStringList, expected);
    QFETCH(bool, passes);
    QFETCH(QString, boxAfter);
    QFETCH(QList<bool>, answers);
    const TestClock clock;
    TalkRecorder talk(answers);
    QCOMPARE(ValidateBkFormFields(entry, talk), passes);
    QCOMPARE(talk.Said, expected);
    QCOMPARE(talk.AnswersLeft(), qsizetype(0));
    QCOMPARE(entry.Names[0], boxAfter);
    QCOMPARE(rowsFolder->Log(), QStringList());
}

void tst_BkFieldRules::anyOneCourtIsEnough()
{
    const TestFolder folder;
    for (size_t i = 0; i < 4; ++i) {
        SearchEntry entry = withoutCourt(bankruptcy(SearchKind::Person, u"SMITH"_s));
        TalkRecorder talk;
        QVERIFY(!ValidateBkFormFields(entry, talk));
        entry.BkCourts[i] = true;
        QVERIFY(ValidateBkFormFields(entry, talk));
        QCOMPARE(talk.Said, QStringList{noCourt});
    }
}

void tst_BkFieldRules::theFirstBrokenRuleIsReported_data()
{
    using enum SearchKind;
    QTest::addColumn<int>("kind");
    QTest::addColumn<QStringList>("boxes"); ///< one after the other in the first box
    QTest::addColumn<QStringList>("expected");
    QTest::newRow("person") << int(Person) << QStringList{u""_s, u"SMITH"_s}
                            << QStringList{noLastName, noFirstName};
    QTest::newRow("business") << int(Business) << QStringList{u""_s, u"ACME"_s}
                              << QStringList{noBusinessName, noCourt};
    QTest::newRow("number") << int(Number) << QStringList{u""_s, u"1"_s, u"9920077"_s}
                            << QStringList{noNumber, askNumber, noCourt};
    QTest::newRow("tax") << int(TaxId) << QStringList{u""_s, u"7777777777777777"_s, u"91-1234567"_s}
                         << QStringList{noTaxId, wrongTaxId, noCourt};
    QTest::newRow("ssn") << int(Ssn) << QStringList{u""_s, u"1"_s, u"123456789"_s}
                         << QStringList{noSsn, wrongSsn, noCourt};
}

void tst_BkFieldRules::theFirstBrokenRuleIsReported()
{
    QFETCH(int, kind);
    QFETCH(QStringList, boxes);
    QFETCH(QStringList, expected);
    const TestFolder folder;
    const TestClock clock;
    TalkRecorder talk({false});
    for (const QString &box : boxes) {
        SearchEntry entry =
            withoutCourt(bankruptcy(static_cast<SearchKind>(kind), box, {}, u"Q"_s));
        if (static_cast<SearchKind>(kind) != SearchKind::Person)
            entry.Names[MiddleInitial].clear();
        QVERIFY(!ValidateBkFormFields(entry, talk));
    }
    QCOMPARE(talk.Said, expected);
}

void tst_BkFieldRules::aTaxIdBeginningWith79IsReadAsAUbi()
{
    const TestFolder folder;
    const TestClock clock;
    SearchEntry entry = bankruptcy(SearchKind::TaxId, u"79-1234567"_s);
    TalkRecorder talk;
    QVERIFY(ValidateBkFormFields(entry, talk));
    QCOMPARE(talk.Said, QStringList());
    // 16 characters make a tax identifier of 80 as well as of 79, but never a UBI.
    entry.Names[0] = u"80-------------1"_s;
    QVERIFY(ValidateBkFormFields(entry, talk));
    entry.Names[0] = u"79-------------1"_s;
    QVERIFY(!ValidateBkFormFields(entry, talk));
    QCOMPARE(talk.Said, QStringList{wrongTaxId});
}

void tst_BkFieldRules::taxYearLaterThanThisYearIsReadAsAUbi()
{
    const TestFolder folder;
    const TestClock clock(QDateTime({2010, 6, 1}, {12, 0}));
    TalkRecorder talk;
    SearchEntry entry = bankruptcy(SearchKind::TaxId, u"10-------------1"_s);
    QVERIFY(ValidateBkFormFields(entry, talk));
    entry.Names[0] = u"11-------------1"_s;
    QVERIFY(!ValidateBkFormFields(entry, talk));
    QCOMPARE(talk.Said, QStringList{wrongTaxId});
    entry.Names[0] = u"11-1234567"_s;
    QVERIFY(ValidateBkFormFields(entry, talk));
}

void tst_BkFieldRules::aLongTaxIdIsReadAsAUbi()
{
    // 15 digits are 16 characters with the dash, which is too long for a tax identifier.
    const TestFolder folder;
    const TestClock clock;
    SearchEntry entry = bankruptcy(SearchKind::TaxId, u"911234567890123"_s);
    TalkRecorder talk;
    QVERIFY(ValidateBkFormFields(entry, talk));
    entry.Names[0].append(u'4');
    QVERIFY(!ValidateBkFormFields(entry, talk));
    QCOMPARE(talk.Said, QStringList{wrongTaxId});
}

void tst_BkFieldRules::aRunTimeErrorIsLoggedAndIsARefusal()
{
    const TestFolder folder;
    SearchEntry entry = bankruptcy(SearchKind::Number, u"1"_s);
    TalkRecorder talk({true});
    talk.Throws = RunTimeError::TypeMismatch();
    QVERIFY(!ValidateBkFormFields(entry, talk));
    QCOMPARE(
        folder.Log(),
        QStringList{u"Error in ValidateBkFormFields() - Error was: Type mismatch. Number: 13"_s});
}

HALVANE_TEST(tst_BkFieldRules)
#include "tst_BkFieldRules.moc"
