#include "searchentry/FieldRules.h"
#include "searchentry/TalkRecorder.h"
#include "support/HalvaneTest.h"
#include "support/TestFolder.h"

#include <QTest>

#include <memory>

using namespace Qt::StringLiterals;

Q_DECLARE_METATYPE(SearchEntry)

namespace {
const QString unset = noCountySelected.toString();

QString noCounty(int field)
{
    return TalkRecorder::FieldError(
        u"Invalid County Selection for field "_s + QString::number(field) + u"."_s,
        u"You must select a valid County for each number entered."_s,
        u"Remove the number entered or select a county for that number."_s);
}

QString askNonScomis(int field)
{
    return TalkRecorder::Question(u"The case/judgment number in FIELD "_s + QString::number(field)
                                      + u" appears to be a non-SCOMIS number.\r\n\r\nTo continue "
                                        "the search using this number click OK."_s,
                                  {}, QuestionButtons::OkCancel, MessageIcon::Exclamation);
}

QString nonScomis(int field)
{
    return TalkRecorder::FieldError(
        u"The number in FIELD "_s + QString::number(field)
            + u" appears to be a non-SCOMIS number."_s,
        u"Searching of Non-Scomis Case Numbers is Supported, but you Must Answer OK When Prompted "
        "to Continue Searching With a Non-Scomis Case Number."_s,
        u"Please Correct the Case Number or Answer OK When Prompted to Continue Searching With a "
        "Non-Scomis Case Number."_s);
}

QString restricted(QChar digit, int field)
{
    return TalkRecorder::FieldError(
        u"The Case Type Entered ("_s + digit + u") in FIELD "_s + QString::number(field)
            + u" is Restricted and Cannot be Retrieved From This Court."_s,
        u"The Case Type Entered Cannot be '5' (Adoption), '6' (Mental Illness), or '7' (Juvenile "
        "Dependency)."_s,
        u"Please Correct the Case Type and Try this Search Again."_s);
}

QString wrongCheckDigit(int field)
{
    return TalkRecorder::FieldError(
        u"The case/judgment number in FIELD "_s + QString::number(field)
            + u" is invalid for the county chosen."_s,
        u"Washington Superior Court cases have unique case/judgment numbers in each county."_s,
        u"Check the case number and the county."_s, u"Case Number not found in this county."_s);
}

const QString askNoDistrictCourt = TalkRecorder::Question(
    u"One or more of the Counties you selected does not support District Court searches. The "
    "following counties Do NOT have District Court support.\r\n\r\nBaker, Gilliam, Grant, Harney, "
    "Sherman, and Wheeler.\r\n\r\nSelect Yes to continue with the currrent search criteria "
    "(skipping counties without District Court).  Select No to refine the search criteria "
    "entered.\r\n\r\nContinue?"_s,
    u"Warning - No District Court Support .."_s, QuestionButtons::YesNo, MessageIcon::Exclamation);

/// One application folder for all rows of a table: making one costs more than the row.
std::unique_ptr<TestFolder> rowsFolder;

struct Row
{
    size_t index;
    QString number;
    QString county;
};

SearchEntry batch(CourtFamily court, const QList<Row> &rows)
{
    SearchEntry entry;
    entry.Court = court;
    entry.Kind = SearchKind::Number;
    entry.Batch.fill({QString(), unset});
    for (const Row &row : rows)
        entry.Batch[row.index] = {row.number, row.county};
    return entry;
}

/// One number in row 4, which the user counts as 5.
SearchEntry one(CourtFamily court, const QString &number, const QString &county)
{
    return batch(court, {{4, number, county}});
}

SearchEntry inDistrictCourt(const SearchEntry &entry)
{
    return With(entry, [](SearchEntry &e) { e.DistrictCourt = true; });
}

void add(const QByteArray &name, const SearchEntry &entry, const QStringList &expected, bool passes,
         const QString &numberAfter, const QList<bool> &answers = {})
{
    QTest::newRow(name.constData()) << entry << expected << passes << numberAfter << answers;
}
} // namespace

class tst_BatchFieldRules : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void cleanupTestCase() { rowsFolder.reset(); }

    void oneNumber_data();
    void oneNumber();
    void threeCaseTypesAreRestricted();
    void theFieldNumberIsTheRowCountedFromOne();
    void aBatchWithoutNumbersPasses();
    void emptyRowsInTheMiddleArePassedOver();
    void countiesOfAllRowsAreTestedBeforeTheFirstNumber();
    void numbersAreTestedRowByRow();
    void okMovesToTheNextRow();
    void tenRightNumbers();
    void theDistrictCourtWarningLooksAtAllTenCountyBoxes();
    void theDistrictCourtWarningComesAfterTheCounties();
    void withoutTheCodesFileTheCheckDigitTestFallsAwayInSilence();
    void aRunTimeErrorIsLoggedAndReportsFailure();
};

void tst_BatchFieldRules::oneNumber_data()
{
    using enum CourtFamily;
    rowsFolder = std::make_unique<TestFolder>();
    QTest::addColumn<SearchEntry>("entry");
    QTest::addColumn<QStringList>("expected");
    QTest::addColumn<bool>("passes");
    QTest::addColumn<QString>("numberAfter");
    QTest::addColumn<QList<bool>>("answers");
    const QString king = u"King"_s;
    for (const CourtFamily court : {Superior, Oregon, Idaho}) {
        const QByteArray c = QByteArray::number(static_cast<int>(court));
        add("no county, court " + c, one(court, u"092020294"_s, unset), {noCounty(5)}, false,
            u"092020294"_s);
        add("an empty county box, court " + c, one(court, u"092020294"_s, {}), {noCounty(5)}, false,
            u"092020294"_s);
        add("a number of blanks, court " + c, one(court, u"   "_s, unset), {}, true, u"   "_s);
        add("a county without a number, court " + c, one(court, {}, king), {}, true, {});
    }
    const QString right = u"09-2-02029-4"_s;
    const QString other = u"09-5-02029-A"_s;
    add("without dashes", one(Superior, u"092020294"_s, king), {}, true, right);
    add("with dashes", one(Superior, right, king), {}, true, right);
    add("blanks around", one(Superior, u" 092020294  "_s, king), {}, true, right);
    add("another form, OK", one(Superior, other, king), {askNonScomis(5)}, true, other, {true});
    add("another form, Cancel", one(Superior, other, king), {askNonScomis(5), nonScomis(5)}, false,
        other, {false});
    add("another form keeps its blanks", one(Superior, u" X "_s, king), {askNonScomis(5)}, true,
        u" X "_s, {true});
    add("10,000 characters", one(Superior, QString(10000, u'%'), king),
        {askNonScomis(5), nonScomis(5)}, false, QString(10000, u'%'), {false});
    // Their check digits are wrong as well.
    add("adoption", one(Superior, u"095020290"_s, king), {restricted(u'5', 5)}, false,
        u"09-5-02029-0"_s);
    add("mental illness", one(Superior, u"096020290"_s, king), {restricted(u'6', 5)}, false,
        u"09-6-02029-0"_s);
    add("dependency", one(Superior, u"097020290"_s, king), {restricted(u'7', 5)}, false,
        u"09-7-02029-0"_s);
    add("another county's check digit", one(Superior, u"092020290"_s, king), {wrongCheckDigit(5)},
        false, u"09-2-02029-0"_s);
    add("right in that county", one(Superior, u"092020290"_s, u"Pierce"_s), {}, true,
        u"09-2-02029-0"_s);
    add("a county without a code", one(Superior, u"092020290"_s, u"Elsewhere"_s), {}, true,
        u"09-2-02029-0"_s);
    add("an Oregon number is not tested", one(Oregon, other, u"Benton"_s), {}, true, other);
    add("an Oregon number is not rewritten", one(Oregon, u"095020290"_s, u"Benton"_s), {}, true,
        u"095020290"_s);
    add("an Idaho number is not tested", one(Idaho, u"CR-1998-0002546-IN"_s, u"Ada"_s), {}, true,
        u"CR-1998-0002546-IN"_s);
    const SearchEntry baker = one(Oregon, u"X"_s, u"Baker"_s);
    add("Oregon District, Yes", inDistrictCourt(baker), {askNoDistrictCourt}, true, u"X"_s, {true});
    add("Oregon District, No", inDistrictCourt(baker), {askNoDistrictCourt}, false, u"X"_s,
        {false});
    add("Oregon Circuit", baker, {}, true, u"X"_s);
    add("Oregon District where there is one", inDistrictCourt(one(Oregon, u"X"_s, u"Lane"_s)), {},
        true, u"X"_s);
    add("Washington's Grant", inDistrictCourt(one(Superior, u"X"_s, u"Grant"_s)), {askNonScomis(5)},
        true, u"X"_s, {true});
    add("Idaho", inDistrictCourt(one(Idaho, u"X"_s, u"Grant"_s)), {}, true, u"X"_s);
}

void tst_BatchFieldRules::oneNumber()
{
    QFETCH(SearchEntry, entry);
    QFETCH(QStringList, expected);
    QFETCH(bool, passes);
    QFETCH(QString, numberAfter);
    QFETCH(QList<bool>, answers);
    TalkRecorder talk(answers);
    QCOMPARE(ValidateBatchSearchFields(entry, talk), passes);
    QCOMPARE(talk.Said, expected);
    QCOMPARE(talk.AnswersLeft(), qsizetype(0));
    QCOMPARE(entry.Batch[4].Number, numberAfter);
    QCOMPARE(rowsFolder->Log(), QStringList());
}

void tst_BatchFieldRules::threeCaseTypesAreRestricted()
{
    const TestFolder folder;
    for (const QChar digit : u"0123456789"_s) {
        SearchEntry entry =
            one(CourtFamily::Superior, u"09"_s + digit + u"020290"_s, u"Elsewhere"_s);
        TalkRecorder talk;
        const bool closed = digit == u'5' || digit == u'6' || digit == u'7';
        QCOMPARE(ValidateBatchSearchFields(entry, talk), !closed);
        QCOMPARE(talk.Said, closed ? QStringList{restricted(digit, 5)} : QStringList());
    }
}

void tst_BatchFieldRules::theFieldNumberIsTheRowCountedFromOne()
{
    const TestFolder folder;
    for (size_t i = 0; i < 10; ++i) {
        const int field = static_cast<int>(i) + 1;
        const auto said = [&](const QString &number, const QString &county) {
            SearchEntry entry = batch(CourtFamily::Superior, {{i, number, county}});
            TalkRecorder talk({false});
            return ValidateBatchSearchFields(entry, talk) ? QStringList() : talk.Said;
        };
        QCOMPARE(said(u"092020294"_s, unset), QStringList{noCounty(field)});
        QCOMPARE(said(u"X"_s, u"King"_s), (QStringList{askNonScomis(field), nonScomis(field)}));
        QCOMPARE(said(u"097020290"_s, u"King"_s), QStringList{restricted(u'7', field)});
        QCOMPARE(said(u"092020290"_s, u"King"_s), QStringList{wrongCheckDigit(field)});
    }
}

void tst_BatchFieldRules::aBatchWithoutNumbersPasses()
{
    const TestFolder folder;
    for (const CourtFamily court :
         {CourtFamily::Superior, CourtFamily::Oregon, CourtFamily::Idaho}) {
        SearchEntry entry = inDistrictCourt(batch(court, {}));
        TalkRecorder talk;
        QVERIFY(ValidateBatchSearchFields(entry, talk));
        QCOMPARE(talk.Said, QStringList());
    }
}

void tst_BatchFieldRules::emptyRowsInTheMiddleArePassedOver()
{
    const TestFolder folder;
    SearchEntry entry = batch(
        CourtFamily::Superior,
        {{0, u"092020294"_s, u"King"_s}, {3, u"  "_s, unset}, {9, u"092020294"_s, u"Pierce"_s}});
    TalkRecorder talk;
    QVERIFY(!ValidateBatchSearchFields(entry, talk));
    QCOMPARE(talk.Said, QStringList{wrongCheckDigit(10)});
    entry.Batch[9].County = unset;
    QVERIFY(!ValidateBatchSearchFields(entry, talk));
    QCOMPARE(talk.Said.back(), noCounty(10));
}

void tst_BatchFieldRules::countiesOfAllRowsAreTestedBeforeTheFirstNumber()
{
    const TestFolder folder;
    SearchEntry entry = batch(CourtFamily::Superior,
                              {{0, u"X"_s, u"King"_s}, {1, u"Y"_s, unset}, {2, u"Z"_s, unset}});
    TalkRecorder talk;
    QVERIFY(!ValidateBatchSearchFields(entry, talk));
    QCOMPARE(talk.Said, QStringList{noCounty(2)});
}

void tst_BatchFieldRules::numbersAreTestedRowByRow()
{
    // All that is wrong with a row is reported before the next row is looked at.
    const TestFolder folder;
    SearchEntry entry = batch(
        CourtFamily::Superior,
        {{0, u"092020290"_s, u"King"_s}, {1, u"097020290"_s, u"King"_s}, {2, u"X"_s, u"King"_s}});
    TalkRecorder talk({false});
    QVERIFY(!ValidateBatchSearchFields(entry, talk));
    QCOMPARE(entry.Batch[0].Number, u"09-2-02029-0"_s);
    QCOMPARE(entry.Batch[1].Number, u"097020290"_s);
    entry.Batch[0].Number = u"092020294"_s;
    QVERIFY(!ValidateBatchSearchFields(entry, talk));
    entry.Batch[1].Number.clear();
    QVERIFY(!ValidateBatchSearchFields(entry, talk));
    QCOMPARE(talk.Said,
             (QStringList{wrongCheckDigit(1), restricted(u'7', 2), askNonScomis(3), nonScomis(3)}));
}

void tst_BatchFieldRules::okMovesToTheNextRow()
{
    const TestFolder folder;
    SearchEntry entry = batch(CourtFamily::Superior, {{2, u"X"_s, u"King"_s},
                                                      {5, u"Y"_s, u"King"_s},
                                                      {6, u"092020294"_s, u"King"_s},
                                                      {7, u"Z"_s, u"Pierce"_s}});
    TalkRecorder talk({true, true, false});
    QVERIFY(!ValidateBatchSearchFields(entry, talk));
    QCOMPARE(talk.Said,
             (QStringList{askNonScomis(3), askNonScomis(6), askNonScomis(8), nonScomis(8)}));
    QCOMPARE(entry.Batch[6].Number, u"09-2-02029-4"_s);
    // The right number of the row before is not taken for the last row's, where it would be wrong.
    TalkRecorder consent({true, true, true});
    QVERIFY(ValidateBatchSearchFields(entry, consent));
    QCOMPARE(consent.AnswersLeft(), qsizetype(0));
}

void tst_BatchFieldRules::tenRightNumbers()
{
    const TestFolder folder;
    SearchEntry entry = batch(CourtFamily::Superior, {});
    entry.Batch.fill({u"092020294"_s, u"King"_s});
    TalkRecorder talk;
    QVERIFY(ValidateBatchSearchFields(entry, talk));
    QCOMPARE(talk.Said, QStringList());
    for (const BatchRow &row : entry.Batch)
        QCOMPARE(row.Number, u"09-2-02029-4"_s);
}

void tst_BatchFieldRules::theDistrictCourtWarningLooksAtAllTenCountyBoxes()
{
    const TestFolder folder;
    for (size_t i = 1; i < 10; ++i) {
        SearchEntry entry = inDistrictCourt(
            batch(CourtFamily::Oregon, {{0, u"X"_s, u"Lane"_s}, {i, QString(), u"Wheeler"_s}}));
        // Counties chosen in the list of a name search have no part in it.
        entry.Counties = {u"Baker"_s};
        TalkRecorder talk({true});
        QVERIFY(ValidateBatchSearchFields(entry, talk));
        QCOMPARE(talk.Said, QStringList{askNoDistrictCourt});
        entry.Batch[i].County = unset;
        QVERIFY(ValidateBatchSearchFields(entry, talk));
        QCOMPARE(talk.Said.size(), qsizetype(1));
    }
}

void tst_BatchFieldRules::theDistrictCourtWarningComesAfterTheCounties()
{
    const TestFolder folder;
    SearchEntry entry =
        inDistrictCourt(batch(CourtFamily::Oregon, {{0, u"X"_s, u"Baker"_s}, {1, u"Y"_s, unset}}));
    TalkRecorder talk;
    QVERIFY(!ValidateBatchSearchFields(entry, talk));
    QCOMPARE(talk.Said, QStringList{noCounty(2)});
}

void tst_BatchFieldRules::withoutTheCodesFileTheCheckDigitTestFallsAwayInSilence()
{
    const TestFolder folder;
    folder.Remove(u"waCtyCds.ini"_s);
    SearchEntry entry = one(CourtFamily::Superior, u"092020290"_s, u"King"_s);
    TalkRecorder talk;
    QVERIFY(ValidateBatchSearchFields(entry, talk));
    QCOMPARE(talk.Said, QStringList());
    QCOMPARE(folder.Log(), QStringList());
    // The types are still tested.
    entry = one(CourtFamily::Superior, u"095020290"_s, u"King"_s);
    QVERIFY(!ValidateBatchSearchFields(entry, talk));
    QCOMPARE(talk.Said, QStringList{restricted(u'5', 5)});
}

void tst_BatchFieldRules::aRunTimeErrorIsLoggedAndReportsFailure()
{
    const TestFolder folder;
    SearchEntry entry = one(CourtFamily::Superior, u"X"_s, u"King"_s);
    TalkRecorder talk({true});
    talk.Throws = RunTimeError::PathNotFound();
    QVERIFY(!ValidateBatchSearchFields(entry, talk));
    QCOMPARE(folder.Log(), QStringList{u"Error in ValidateBatchSearchFields() - Error was: Path "
                                       "not found. Number: 76"_s});
    talk.Throws.reset();
    QVERIFY(ValidateBatchSearchFields(entry, talk));
}

HALVANE_TEST(tst_BatchFieldRules)
#include "tst_BatchFieldRules.moc"
