#include "casedetails/CaseRequests.h"
#include "support/HalvaneTest.h"

#include <QTest>

using namespace Qt::StringLiterals;

namespace {
CaseOfRequest stateCase(const QString &state, const QString &number, const QString &county)
{
    return {CaseKind::State, state, number, county, u"C"_s, {}, {}};
}

CaseOfRequest washington()
{
    return stateCase(u"WA"_s, u"02-1-00123-4"_s, u"Walla Walla"_s);
}

CaseOfRequest oregon()
{
    return stateCase(u"OR"_s, u"CV08060677"_s, u"Multnomah"_s);
}

CaseOfRequest idaho()
{
    return stateCase(u"ID"_s, u"CR-1998-0002546-IN"_s, u"Ada"_s);
}

CaseOfRequest discis(CaseKind kind)
{
    return {kind,      u"WA"_s, u"5KS000123"_s,
            u"King"_s, {},      kind == CaseKind::Civil ? u"CV"_s : u"IN"_s,
            u"KSD"_s};
}

/// Each tab with its line, "" for a tab that the court does not have.
using Lines = QMap<CaseTab, QString>;
} // namespace

Q_DECLARE_METATYPE(CaseOfRequest)

class tst_CaseRequests : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void everyLine_data();
    void everyLine();
    void theNumberLosesItsMarksInEveryLine_data();
    void theNumberLosesItsMarksInEveryLine();
    void oregonCourts_data();
    void oregonCourts();
    void theTypeOfADistrictCaseIsTheOneOfItsRow();
    void nothingBreaksTheLine_data();
    void nothingBreaksTheLine();
    void sections_data();
    void sections();
    void arbitration_data();
    void arbitration();
};

void tst_CaseRequests::everyLine_data()
{
    QTest::addColumn<CaseOfRequest>("ofCase");
    QTest::addColumn<CaseTab>("tab");
    QTest::addColumn<QString>("line");
    const auto rows = [](const char *court, const CaseOfRequest &ofCase, const Lines &lines) {
        for (int tab = 0; tab < caseTabCount; ++tab) {
            const auto asked = static_cast<CaseTab>(tab);
            QTest::addRow("%s %s", court, qPrintable(CaseTabRowOf(asked).caption.toString()))
                << ofCase << asked << lines.value(asked);
        }
    };
    rows("Washington", washington(),
         {{CaseTab::Summary, u"WASUP¦SUMMARY¦02-1-00123-4¦Walla Walla¦¦"_s},
          {CaseTab::Names, u"WASUP¦NAMES¦02-1-00123-4¦Walla Walla¦¦"_s},
          {CaseTab::Docket, u"WASUP¦DOCKET¦02-1-00123-4¦Walla Walla¦¦"_s},
          {CaseTab::Accounting, u"WASUP¦ACCOUNTING¦02-1-00123-4¦Walla Walla¦¦"_s},
          {CaseTab::Judgments, u"WASUP¦JUDGMENTS¦02-1-00123-4¦Walla Walla¦¦"_s},
          {CaseTab::Charges, u"WASUP¦CHARGES¦02-1-00123-4¦Walla Walla¦¦"_s},
          {CaseTab::Sentence, u"WASUP¦SENTENCE¦02-1-00123-4¦Walla Walla¦¦"_s},
          {CaseTab::Schedule, u"WASUP¦SCHEDULE¦02-1-00123-4¦Walla Walla¦¦"_s},
          {CaseTab::Documents, u"WASUPDOC¦GETDOCTAB¦Walla Walla¦02-1-00123-4¦"_s}});
    rows("Oregon", oregon(),
         {{CaseTab::Summary, u"OREGON@SUMMARY,NAMES,DOCKET,@CV08060677@MCR C@"_s},
          {CaseTab::Names, u"OREGON@NAMES,@CV08060677@MCR C@"_s},
          {CaseTab::Docket, u"OREGON@DOCKET,@CV08060677@MCR C@"_s},
          {CaseTab::Accounting, u"OREGON@ACCOUNTING,@CV08060677@MCR C@"_s},
          {CaseTab::Finance, u"OREGON@FINANCE,@CV08060677@MCR C@"_s},
          {CaseTab::Judgments, u"OREGON@JUDGMENTS,@CV08060677@MCR C@"_s},
          {CaseTab::Charges, u"OREGON@CHARGES,@CV08060677@MCR C@"_s},
          {CaseTab::Sentence, u"OREGON@SENTENCES,@CV08060677@MCR C@"_s},
          {CaseTab::Schedule, u"OREGON@SCHEDULE,@CV08060677@MCR C@"_s}});
    rows("Idaho", idaho(),
         {{CaseTab::Summary, u"IDSUP¦SUMMARY,NAMES,DOCKET,¦CR-1998-0002546-IN¦Ada¦"_s},
          {CaseTab::Names, u"IDSUP¦NAMES,¦CR-1998-0002546-IN¦Ada¦"_s},
          {CaseTab::Docket, u"IDSUP¦DOCKET,¦CR-1998-0002546-IN¦Ada¦"_s},
          {CaseTab::Judgments, u"IDSUP¦JUDGMENTS,¦CR-1998-0002546-IN¦Ada¦"_s},
          {CaseTab::Charges, u"IDSUP¦CHARGES,¦CR-1998-0002546-IN¦Ada¦"_s}});
    rows("non-civil", discis(CaseKind::NonCivil),
         {{CaseTab::Summary, u"WADISCIS¦¦¦¦5KS000123¦IN¦KSD¦IN¦NCNCC¦¦"_s},
          {CaseTab::Names, u"WADISCIS¦¦¦¦5KS000123¦IN¦KSD¦IN¦NCPAR¦¦"_s},
          {CaseTab::Docket, u"WADISCIS¦¦¦¦5KS000123¦IN¦KSD¦IN¦NCCDK¦¦"_s},
          {CaseTab::Violations, u"WADISCIS¦¦¦¦5KS000123¦IN¦KSD¦IN¦NCVIO¦¦"_s}});
    rows("civil", discis(CaseKind::Civil),
         {{CaseTab::Summary, u"WADISCIS¦¦¦¦5KS000123¦CV¦KSD¦CV¦CIVI¦¦"_s},
          {CaseTab::Names, u"WADISCIS¦¦¦¦5KS000123¦CV¦KSD¦CV¦CVPAR¦¦"_s},
          {CaseTab::Docket, u"WADISCIS¦¦¦¦5KS000123¦CV¦KSD¦CV¦CVCDK¦¦"_s},
          {CaseTab::Judgments, u"WADISCIS¦¦¦¦5KS000123¦CV¦KSD¦CV¦CVJI¦¦"_s}});
    rows("bankruptcy", stateCase(u"WAWBK"_s, u"99-20077"_s, u"King"_s), {});
}

void tst_CaseRequests::everyLine()
{
    QFETCH(CaseOfRequest, ofCase);
    QFETCH(CaseTab, tab);
    QTEST(CaseTabRequest(ofCase, tab), "line");
}

void tst_CaseRequests::theNumberLosesItsMarksInEveryLine_data()
{
    QTest::addColumn<CaseOfRequest>("ofCase");
    QTest::newRow("Washington") << washington();
    QTest::newRow("Oregon") << oregon();
    QTest::newRow("Idaho") << idaho();
    QTest::newRow("non-civil") << discis(CaseKind::NonCivil);
    QTest::newRow("civil") << discis(CaseKind::Civil);
}

void tst_CaseRequests::theNumberLosesItsMarksInEveryLine()
{
    QFETCH(CaseOfRequest, ofCase);
    for (const QString &mark : {u"*"_s, u">>"_s, u">>*"_s}) {
        CaseOfRequest marked = ofCase;
        marked.CaseNumber = mark + ofCase.CaseNumber;
        for (int tab = 0; tab < caseTabCount; ++tab) {
            const auto asked = static_cast<CaseTab>(tab);
            QCOMPARE(CaseTabRequest(marked, asked), CaseTabRequest(ofCase, asked));
        }
    }
}

void tst_CaseRequests::oregonCourts_data()
{
    QTest::addColumn<QString>("county");
    QTest::addColumn<QString>("courtType");
    QTest::addColumn<QString>("line");
    QTest::newRow("circuit") << u"Baker"_s << u"C"_s << u"OREGON@NAMES,@1@BAK C@"_s;
    QTest::newRow("circuit, small letter") << u"Baker"_s << u"c"_s << u"OREGON@NAMES,@1@BAK C@"_s;
    QTest::newRow("district") << u"Linn"_s << u"D"_s << u"OREGON@NAMES,@1@LIN D@"_s;
    QTest::newRow("anything else is a District Court")
        << u"Lincoln"_s << u"Circuit"_s << u"OREGON@NAMES,@1@LNN D@"_s;
    QTest::newRow("no type") << u"Hood"_s << QString() << u"OREGON@NAMES,@1@HOO D@"_s;
    QTest::newRow("an unknown county") << u"Nowhere"_s << u"C"_s << u"OREGON@NAMES,@1@ C@"_s;
}

void tst_CaseRequests::oregonCourts()
{
    QFETCH(QString, county);
    QFETCH(QString, courtType);
    CaseOfRequest ofCase = stateCase(u"OR"_s, u"1"_s, county);
    ofCase.OrCourtType = courtType;
    QTEST(CaseTabRequest(ofCase, CaseTab::Names), "line");
}

void tst_CaseRequests::theTypeOfADistrictCaseIsTheOneOfItsRow()
{
    CaseOfRequest ofCase = discis(CaseKind::NonCivil);
    ofCase.CaseType = u"CT"_s;
    QCOMPARE(CaseTabRequest(ofCase, CaseTab::Names), u"WADISCIS¦¦¦¦5KS000123¦CT¦KSD¦IN¦NCPAR¦¦"_s);
}

void tst_CaseRequests::nothingBreaksTheLine_data()
{
    QTest::addColumn<CaseOfRequest>("ofCase");
    QTest::addColumn<QChar>("delimiter");
    QTest::newRow("Washington") << washington() << QChar(u'¦');
    QTest::newRow("Oregon") << oregon() << QChar(u'@');
    QTest::newRow("Idaho") << idaho() << QChar(u'¦');
    QTest::newRow("non-civil") << discis(CaseKind::NonCivil) << QChar(u'¦');
    QTest::newRow("civil") << discis(CaseKind::Civil) << QChar(u'¦');
}

void tst_CaseRequests::nothingBreaksTheLine()
{
    QFETCH(CaseOfRequest, ofCase);
    QFETCH(QChar, delimiter);
    const QString evil = QString(delimiter) + u"|¦\r\n"_s;
    CaseOfRequest broken = ofCase;
    broken.CaseNumber += evil;
    broken.CaseType += evil;
    broken.CourtCode += evil;
    if (ofCase.State != u"OR") // whose counties go through their code
        broken.CountyName += evil;
    for (const CaseTab tab : {CaseTab::Summary, CaseTab::Names, CaseTab::Documents})
        QCOMPARE(CaseTabRequest(broken, tab), CaseTabRequest(ofCase, tab));
}

void tst_CaseRequests::sections_data()
{
    QTest::addColumn<CaseKind>("kind");
    QTest::addColumn<QString>("state");
    QTest::addColumn<QString>("section");
    QTest::newRow("Washington") << CaseKind::State << u"WA"_s << u"CaseSearchTabs"_s;
    QTest::newRow("Oregon") << CaseKind::State << u"OR"_s << u"OrCaseSearchTabs"_s;
    QTest::newRow("Idaho") << CaseKind::State << u"ID"_s << u"IdCaseSearchTabs"_s;
    QTest::newRow("non-civil") << CaseKind::NonCivil << u"WA"_s << u"NonCivilCaseTabs"_s;
    QTest::newRow("civil") << CaseKind::Civil << u"WA"_s << u"CivilCaseTabs"_s;
    QTest::newRow("bankruptcy has none") << CaseKind::State << u"IDBK"_s << QString();
}

void tst_CaseRequests::sections()
{
    QFETCH(CaseKind, kind);
    QFETCH(QString, state);
    QTEST(CaseTabsSection(kind, state), "section");
}

void tst_CaseRequests::arbitration_data()
{
    QTest::addColumn<QString>("request");
    QTest::addColumn<ArbitrationMode>("mode");
    QTest::addColumn<QString>("line");
    const QString summary = u"WASUP¦SUMMARY¦02-2-00123-4¦King¦¦"_s;
    QTest::newRow("not asked") << summary << ArbitrationMode::NotAsked << summary;
    QTest::newRow("yes, Summary") << summary << ArbitrationMode::Arbitration
                                  << u"WASUP¦SUMMARY¦02-2-00123-4¦King ARBITRATION¦¦"_s;
    QTest::newRow("no, Summary") << summary << ArbitrationMode::NoArbitration
                                 << u"WASUP¦SUMMARY¦02-2-00123-4¦King NOARBITRATION¦¦"_s;
    const QString docket = u"WASUP¦DOCKET¦02-2-00123-4¦King¦¦"_s;
    QTest::newRow("yes, Docket") << docket << ArbitrationMode::Arbitration
                                 << u"WASUP¦DOCKET¦02-2-00123-4¦King ARBITRATION¦¦"_s;
    QTest::newRow("no, Docket") << docket << ArbitrationMode::NoArbitration
                                << u"WASUP¦DOCKET¦02-2-00123-4¦King NOARBITRATION¦¦"_s;
    QTest::newRow("a line of the district courts")
        << u"WADISCIS¦¦¦¦5KS000123¦IN¦KSD¦IN¦NCVIO¦¦"_s << ArbitrationMode::Arbitration
        << u"WADISCIS¦¦¦¦5KS000123¦IN¦KSD¦IN¦NCVIO ARBITRATION¦¦"_s;
    QTest::newRow("a line that is too short")
        << u"¦"_s << ArbitrationMode::Arbitration << u" ARBITRATION¦¦"_s;
    QTest::newRow("no line") << QString() << ArbitrationMode::NoArbitration
                             << u" NOARBITRATION¦¦"_s;
}

void tst_CaseRequests::arbitration()
{
    QFETCH(QString, request);
    QFETCH(ArbitrationMode, mode);
    QFETCH(QString, line);
    QCOMPARE(WithArbitration(request, mode), line);
}

HALVANE_TEST(tst_CaseRequests)
#include "tst_CaseRequests.moc"
