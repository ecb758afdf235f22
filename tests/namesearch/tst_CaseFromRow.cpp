#include "namesearch/CaseFromRow.h"

#include "courts/Counties.h"
#include "courts/DiscisCourts.h"
#include "support/HalvaneTest.h"
#include "support/TestFolder.h"

#include <QTest>

using namespace Qt::StringLiterals;

namespace {
QStringList rowOf(const QString &number, const QString &location, const QString &role = u"Role"_s)
{
    return {u"SMITH"_s, number, u"01/02/2002"_s, u"Civil"_s, location, role};
}

QStringList discisRow(const QString &number, const QString &court, const QString &type = u"IN"_s)
{
    return {u"SMITH"_s, number,   court,    u"Benton District"_s,
            type,       u"OPN"_s, u"DEF"_s, u"01/02/2002"_s};
}

CaseStart washington(const QString &number, const QString &location)
{
    return CaseOfRow(rowOf(number, location), ResultKind::Superior, u"WA"_s);
}
} // namespace

class tst_CaseFromRow : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup();

    void theOpenedMarkIsPutOnce_data();
    void theOpenedMarkIsPutOnce();
    void onlyCasesAreCases_data();
    void onlyCasesAreCases();
    void eachState_data();
    void eachState();
    void theLocationOfAnIndexSearchIsAnotherCell();
    void theNumberKeepsItsMarksForTheCaseWindow_data();
    void theNumberKeepsItsMarksForTheCaseWindow();
    void washingtonCounties_data();
    void washingtonCounties();
    void oregonCourts_data();
    void oregonCourts();
    void oregonCountiesAreReadWhenTheyAreNeeded();
    void idahoTypes_data();
    void idahoTypes();
    void bankruptcyCourts_data();
    void bankruptcyCourts();
    void bankruptcyGoesBeforeTheState();
    void discisCases_data();
    void discisCases();
    void aSuperiorCodeAmongTheNonCivilCases_data();
    void aSuperiorCodeAmongTheNonCivilCases();
    void aSuperiorCodeAmongTheCivilCasesIsCivil();
    void blanksAroundACourtCodeDoNotHideTheCourt();
    void anUnknownCourtReadsAsItsRow();
    void caseTypeOfARequest_data();
    void caseTypeOfARequest();
    void rowsWithTooFewCells_data();
    void rowsWithTooFewCells();
    void nothingBreaksTheLine();

private:
    std::unique_ptr<TestFolder> folder;
};

void tst_CaseFromRow::init()
{
    folder = std::make_unique<TestFolder>();
    LoadDiscisCourts();
    LoadOrCounties();
}

void tst_CaseFromRow::cleanup()
{
    folder.reset();
}

void tst_CaseFromRow::theOpenedMarkIsPutOnce_data()
{
    QTest::addColumn<QString>("cell");
    QTest::addColumn<QString>("marked");
    QTest::newRow("no mark") << u"02-2"_s << u">>02-2"_s;
    QTest::newRow("archived") << u"*02-2"_s << u">>*02-2"_s;
    QTest::newRow("opened") << u">>02-2"_s << u">>02-2"_s;
    QTest::newRow("opened and archived") << u">>*02-2"_s << u">>*02-2"_s;
}

void tst_CaseFromRow::theOpenedMarkIsPutOnce()
{
    QFETCH(QString, cell);
    QTEST(MarkedAsOpened(cell), "marked");
}

void tst_CaseFromRow::onlyCasesAreCases_data()
{
    QTest::addColumn<QStringList>("cells");
    QTest::addColumn<bool>("isCase");
    QTest::newRow("a case") << rowOf(u"02-2"_s, u"King"_s) << true;
    QTest::newRow("name and number") << QStringList{u"SMITH"_s, u"02-2"_s} << true;
    QTest::newRow("archived") << rowOf(u"*02-2"_s, {}) << true;
    QTest::newRow("the warning of too many results") << rowOf(u"**Warning**"_s, {}) << false;
    QTest::newRow("a tip") << QStringList{u"Tip: Be sure"_s} << false;
    QTest::newRow("no number") << rowOf({}, u"King"_s) << false;
    QTest::newRow("marks without a number") << rowOf(u">>*"_s, u"King"_s) << false;
    QTest::newRow("nothing") << QStringList() << false;
}

void tst_CaseFromRow::onlyCasesAreCases()
{
    QFETCH(QStringList, cells);
    QTEST(IsCaseRow(cells), "isCase");
}

void tst_CaseFromRow::eachState_data()
{
    QTest::addColumn<QString>("state");
    QTest::addColumn<QString>("location");
    QTest::addColumn<QString>("county");
    QTest::addColumn<QString>("line");
    QTest::addColumn<QString>("log");
    QTest::addColumn<QString>("caption");
    QTest::addColumn<QString>("court");
    QTest::addColumn<QString>("courtType");
    QTest::newRow("Washington") << u"WA"_s << u"WA Superior Ct King County"_s << u"King"_s
                                << u"WASUP¦SUMMARY¦02-2¦King¦¦"_s
                                << u"Washington Summary Request: "_s
                                << u"02-2 - King County Superior Courts"_s
                                << u"King County, Washington Superior Courts"_s << QString();
    QTest::newRow("Oregon, circuit")
        << u"OR"_s << u"OR Linn Co Cir Ct"_s << u"Linn"_s
        << u"OREGON¦SUMMARY,NAMES,DOCKET,¦02-2¦LIN C¦"_s << u"Oregon Summary Request: "_s
        << u"Case Details (02-2)"_s << u"Linn County, Oregon Circuit Courts"_s << u"C"_s;
    QTest::newRow("Oregon, district")
        << u"OR"_s << u"OR Linn Co Dist Ct"_s << u"Linn"_s
        << u"OREGON¦SUMMARY,NAMES,DOCKET,¦02-2¦LIN D¦"_s << u"Oregon Summary Request: "_s
        << u"Case Details (02-2)"_s << u"Linn County, Oregon District Courts"_s << u"D"_s;
    QTest::newRow("Idaho") << u"ID"_s << u"ID District Ct Ada County"_s << u"Ada"_s
                           << u"IDSUP¦SUMMARY,NAMES,DOCKET,¦02-2¦Ada¦"_s
                           << u"Idaho Summary Request: "_s << u"Case Details (02-2)"_s
                           << u"Ada County, Idaho District Courts"_s << QString();
}

void tst_CaseFromRow::eachState()
{
    QFETCH(QString, state);
    QFETCH(QString, location);
    QFETCH(QString, line);
    QFETCH(QString, log);
    const ResultKind kind = ResultKindOf(state, false, false);
    const CaseStart fields = CaseOfRow(rowOf(u"*02-2"_s, location), kind, state);
    QCOMPARE(fields.Kind, CaseKind::State);
    QCOMPARE(fields.lblState, state);
    QCOMPARE(fields.tboxCaseNumberQueue, line);
    QCOMPARE(fields.Log, QString(log + line));
    QTEST(fields.txtCountyName, "county");
    QTEST(fields.Caption, "caption");
    QTEST(fields.lblCourtName, "court");
    QTEST(fields.lblOrCourtType, "courtType");
    QCOMPARE(fields.lblDateFiled, u"01/02/2002"_s);
    QCOMPARE(fields.lblTopFrameCaseType, QString());
    QVERIFY(!fields.chkBK);
    QVERIFY(fields.TabRequests.isEmpty());
}

void tst_CaseFromRow::theLocationOfAnIndexSearchIsAnotherCell()
{
    const QStringList cells{u"SMITH"_s, u"02-2"_s,      u"01/02/2002"_s,
                            u"Civil"_s, u"A title"_s,   u"WA Superior Ct King County"_s,
                            u"Role"_s,  u"01/03/2002"_s};
    const CaseStart fields = CaseOfRow(cells, ResultKind::Index, u"WA"_s);
    QCOMPARE(fields.txtCountyName, u"King"_s);
    QCOMPARE(fields.lblDateFiled, u"01/02/2002"_s);
}

void tst_CaseFromRow::theNumberKeepsItsMarksForTheCaseWindow_data()
{
    QTest::addColumn<QString>("cell");
    QTest::addColumn<QString>("heading");
    QTest::newRow("no mark") << u"02-2"_s << u"Case Details (02-2)"_s;
    QTest::newRow("archived") << u"*02-2"_s << u"Case Details (*02-2)"_s;
    QTest::newRow("opened") << u">>02-2"_s << u"Case Details (02-2)"_s;
    QTest::newRow("opened and archived") << u">>*02-2"_s << u"Case Details (*02-2)"_s;
}

void tst_CaseFromRow::theNumberKeepsItsMarksForTheCaseWindow()
{
    QFETCH(QString, cell);
    const CaseStart fields = washington(cell, u"WA Superior Ct King County"_s);
    QCOMPARE(fields.txtCaseNumber, cell);
    QTEST(fields.lblCaseDetailsHdr, "heading");
    QCOMPARE(fields.tboxCaseNumberQueue, u"WASUP¦SUMMARY¦02-2¦King¦¦"_s);
}

void tst_CaseFromRow::washingtonCounties_data()
{
    QTest::addColumn<QString>("location");
    QTest::addColumn<QString>("county");
    QTest::newRow("one word") << u"WA Superior Ct King County"_s << u"King"_s;
    QTest::newRow("two words") << u"WA Superior Ct Walla Walla County"_s << u"Walla Walla"_s;
    QTest::newRow("no county behind it") << u"WA Superior Ct King"_s << u"King"_s;
    QTest::newRow("county in front of it") << u"King County Superior Ct "_s << QString();
    QTest::newRow("no court") << u"King County"_s << QString();
    QTest::newRow("empty") << QString() << QString();
}

void tst_CaseFromRow::washingtonCounties()
{
    QFETCH(QString, location);
    QTEST(washington(u"02-2"_s, location).txtCountyName, "county");
}

void tst_CaseFromRow::oregonCourts_data()
{
    QTest::addColumn<QString>("location");
    QTest::addColumn<QString>("county");
    QTest::addColumn<QString>("court");
    QTest::newRow("circuit") << u"OR Baker Co Cir Ct"_s << u"Baker"_s << u"BAK C"_s;
    QTest::newRow("in any case") << u"OR Baker CO CIR CT"_s << u"Baker"_s << u"BAK C"_s;
    QTest::newRow("district") << u"OR Baker Co Dist Ct"_s << u"Baker"_s << u"BAK D"_s;
    QTest::newRow("Hood River is Hood in the list")
        << u"OR Hood River Co Cir Ct"_s << u"Hood"_s << u"HOO C"_s;
    QTest::newRow("Linn is not Lincoln") << u"OR Linn Co Cir Ct"_s << u"Linn"_s << u"LIN C"_s;
    QTest::newRow("several words")
        << u"OR City of Hermiston Co Dist Ct"_s << u"City of Hermiston"_s << u"HER D"_s;
    QTest::newRow("nothing in front of it") << u"Baker Co Cir Ct"_s << u"Baker"_s << u"BAK C"_s;
    QTest::newRow("unknown county") << u"OR Bakers Co Cir Ct"_s << QString() << u" C"_s;
    QTest::newRow("empty") << QString() << QString() << u" D"_s;
}

void tst_CaseFromRow::oregonCourts()
{
    QFETCH(QString, location);
    QFETCH(QString, court);
    const CaseStart fields = CaseOfRow(rowOf(u"02-2"_s, location), ResultKind::Superior, u"OR"_s);
    QTEST(fields.txtCountyName, "county");
    QCOMPARE(fields.tboxCaseNumberQueue, u"OREGON¦SUMMARY,NAMES,DOCKET,¦02-2¦"_s + court + u'¦');
}

void tst_CaseFromRow::oregonCountiesAreReadWhenTheyAreNeeded()
{
    folder->Remove(u"OrCtyLst.txt"_s);
    LoadOrCounties();
    QVERIFY(OrCountyList().isEmpty());
    folder->Write(u"OrCtyLst.txt"_s, "Baker\r\n");
    const CaseStart fields =
        CaseOfRow(rowOf(u"02-2"_s, u"OR Baker Co Cir Ct"_s), ResultKind::Superior, u"OR"_s);
    QCOMPARE(fields.txtCountyName, u"Baker"_s);
}

void tst_CaseFromRow::idahoTypes_data()
{
    QTest::addColumn<QString>("number");
    QTest::addColumn<QString>("type");
    QTest::newRow("civil") << u"CV-2002-17"_s << u"Civil/Defendant"_s;
    QTest::newRow("criminal") << u"CR-2002-17"_s << u"Criminal/Defendant"_s;
    QTest::newRow("juvenile") << u"JV-2002-17"_s << u"Juvenile/Defendant"_s;
    QTest::newRow("archived") << u"*CV-2002-17"_s << u"Civil/Defendant"_s;
    QTest::newRow("no hyphen") << u"CV2002"_s << QString();
    QTest::newRow("another") << u"SP-2002-17"_s << QString();
}

void tst_CaseFromRow::idahoTypes()
{
    QFETCH(QString, number);
    const CaseStart fields = CaseOfRow(
        rowOf(number, u"ID District Ct Ada County"_s, u"Defendant"_s), ResultKind::Idaho, u"ID"_s);
    QTEST(fields.lblTopFrameCaseType, "type");
}

void tst_CaseFromRow::bankruptcyCourts_data()
{
    QTest::addColumn<QString>("state");
    QTest::addColumn<QString>("court");
    QTest::newRow("ORBK") << u"ORBK"_s << u"Oregon Bankruptcy Court (Statewide)"_s;
    QTest::newRow("WAWBK") << u"WAWBK"_s << u"Washington Western Bankruptcy Courts"_s;
    QTest::newRow("WAEBK") << u"WAEBK"_s << u"Washington Eastern Bankruptcy Courts"_s;
    QTest::newRow("IDBK") << u"IDBK"_s << u"Idaho Bankruptcy Court (Statewide)"_s;
    QTest::newRow("another") << u"XXBK"_s << QString();
}

void tst_CaseFromRow::bankruptcyCourts()
{
    QFETCH(QString, state);
    const QStringList cells{u"SMITH"_s,
                            u">>05-10017"_s,
                            u"01/02/2005"_s,
                            u"Chapter 7"_s,
                            u"Seattle"_s,
                            u"Debtor / X"_s,
                            u"BKRPT~SUMMARY~05-10017~"_s};
    const CaseStart fields = CaseOfRow(cells, ResultKind::Bankruptcy, state);
    QVERIFY(fields.chkBK);
    QCOMPARE(fields.lblState, state);
    QTEST(fields.lblCourtName, "court");
    QCOMPARE(fields.tboxCaseNumberQueue, u"05-10017"_s);
    QCOMPARE(fields.TabRequests, QStringList{u"BKRPT~SUMMARY~05-10017~"_s});
    QCOMPARE(fields.Log, u"Bankruptcy Request: BKRPT~SUMMARY~05-10017~"_s);
    QCOMPARE(fields.lblDateFiled, u"01/02/2005"_s);
    QCOMPARE(fields.Caption, u"Case Details (05-10017)"_s);
}

void tst_CaseFromRow::bankruptcyGoesBeforeTheState()
{
    const CaseStart fields = CaseOfRow(rowOf(u"05-1"_s, u"WA Superior Ct King County"_s),
                                       ResultKind::Bankruptcy, u"WA"_s);
    QVERIFY(fields.chkBK);
    QCOMPARE(fields.tboxCaseNumberQueue, u"05-1"_s);
}

void tst_CaseFromRow::discisCases_data()
{
    QTest::addColumn<int>("kind");
    QTest::addColumn<QString>("requestType");
    QTest::addColumn<int>("form");
    QTest::addColumn<QString>("line");
    QTest::addColumn<QString>("log");
    const auto row = [](const char *name, ResultKind kind, const QString &type, bool civil) {
        const QString line = civil ? u"WADISCIS¦¦¦¦C0012345¦IT¦BED¦CV¦CIVI¦¦"_s
                                   : u"WADISCIS¦¦¦¦C0012345¦IT¦BED¦IN¦NCC¦¦"_s;
        QTest::newRow(name) << static_cast<int>(kind) << type
                            << static_cast<int>(civil ? CaseKind::Civil : CaseKind::NonCivil)
                            << line
                            << (civil ? u"Discis CIVI Search Request: "_s
                                      : u"Discis NCC Search Request: "_s);
    };
    row("civil window", ResultKind::DiscisCivil, u"CV"_s, true);
    row("civil window, whatever was asked", ResultKind::DiscisCivil, u"IN"_s, true);
    row("non-civil window", ResultKind::DiscisStatewide, u"IN"_s, false);
    row("non-civil window, addresses", ResultKind::DiscisAddresses, u"IN"_s, false);
    row("non-civil window, civil request", ResultKind::DiscisStatewide, u"CV"_s, true);
    row("non-civil window, request unknown", ResultKind::DiscisStatewide, {}, false);
}

void tst_CaseFromRow::discisCases()
{
    QFETCH(int, kind);
    QFETCH(QString, requestType);
    QFETCH(QString, line);
    QFETCH(QString, log);
    const CaseStart fields = DiscisCaseOfRow(discisRow(u">>*C0012345"_s, u"BED"_s, u"IT"_s),
                                             static_cast<ResultKind>(kind), requestType);
    QTEST(static_cast<int>(fields.Kind), "form");
    QCOMPARE(fields.tboxCaseNumberQueue, line);
    QCOMPARE(fields.Log, QString(log + line));
    QCOMPARE(fields.Caption, u"C0012345 - Benton District Cty. / Benton"_s);
    QCOMPARE(fields.lblCourtName, u"Benton Cty. - Benton District"_s);
    QCOMPARE(fields.lblCaseNo, u"C0012345"_s);
    QCOMPARE(fields.txtCaseNumber, u"C0012345"_s);
    QCOMPARE(fields.txtCourtCode, u"BED"_s);
    QCOMPARE(fields.txtCaseType, u"IT"_s);
    QCOMPARE(fields.txtCountyName, u"Benton"_s);
    QCOMPARE(fields.lblDateFiled, u"01/02/2002"_s);
    QCOMPARE(fields.lblState, u"WA"_s);
}

void tst_CaseFromRow::aSuperiorCodeAmongTheNonCivilCases_data()
{
    QTest::addColumn<QString>("code");
    QTest::addColumn<QString>("county");
    const QStringList names = WaCountyNames();
    for (qsizetype i = 1; i <= names.size(); ++i) {
        const QString number = QString::number(i);
        const QString code = u's' + number.rightJustified(2, u'0');
        QTest::newRow(qPrintable(code)) << code << names[i - 1];
        QTest::newRow(qPrintable(code.toUpper())) << code.toUpper() << names[i - 1];
        if (i < 10)
            QTest::newRow(qPrintable(u's' + number)) << QString(u's' + number) << names[i - 1];
    }
}

void tst_CaseFromRow::aSuperiorCodeAmongTheNonCivilCases()
{
    QFETCH(QString, code);
    QFETCH(QString, county);
    const CaseStart fields =
        DiscisCaseOfRow(discisRow(u"*02-1-00017-3"_s, code), ResultKind::DiscisStatewide, u"IN"_s);
    QCOMPARE(fields.Kind, CaseKind::State);
    const QString line = QString(u"WASUP¦SUMMARY¦02-1-00017-3¦"_s + county + u"¦¦"_s);
    QCOMPARE(fields.tboxCaseNumberQueue, line);
    QCOMPARE(fields.Log, QString(u"Summary Request: "_s + line));
    QCOMPARE(fields.txtCountyName, county);
    QCOMPARE(fields.lblState, u"WA"_s);
    QCOMPARE(fields.Caption, QString(u"02-1-00017-3 - "_s + county + u" County Superior Courts"_s));
    QCOMPARE(fields.lblCourtName, QString(county + u" County, Washington Superior Courts"_s));
    QCOMPARE(fields.lblDateFiled, u"01/02/2002"_s);
    QCOMPARE(fields.txtCaseNumber, u"*02-1-00017-3"_s);
}

void tst_CaseFromRow::aSuperiorCodeAmongTheCivilCasesIsCivil()
{
    const CaseStart fields =
        DiscisCaseOfRow(discisRow(u"02-2"_s, u"S17"_s), ResultKind::DiscisCivil, u"CV"_s);
    QCOMPARE(fields.Kind, CaseKind::Civil);
    QCOMPARE(fields.txtCourtCode, u"S17"_s);
}

void tst_CaseFromRow::blanksAroundACourtCodeDoNotHideTheCourt()
{
    const auto caption = [](const QString &code) {
        return DiscisCaseOfRow(discisRow(u"C1"_s, code), ResultKind::DiscisStatewide, u"IN"_s)
            .Caption;
    };
    QCOMPARE(caption(u" BED "_s), u"C1 - Benton District Cty. / Benton"_s);
    QCOMPARE(caption(u" S17 "_s), u"C1 - King County Superior Courts"_s);
}

void tst_CaseFromRow::anUnknownCourtReadsAsItsRow()
{
    const CaseStart fields =
        DiscisCaseOfRow(discisRow(u"C1"_s, u"ZZZ"_s), ResultKind::DiscisCivil, u"CV"_s);
    QCOMPARE(fields.Caption, u"C1 - Benton District"_s);
    QCOMPARE(fields.lblCourtName, u"Benton District"_s);
    QCOMPARE(fields.txtCountyName, QString());
    QCOMPARE(fields.tboxCaseNumberQueue, u"WADISCIS¦¦¦¦C1¦IN¦ZZZ¦CV¦CIVI¦¦"_s);
}

void tst_CaseFromRow::caseTypeOfARequest_data()
{
    QTest::addColumn<QString>("line");
    QTest::addColumn<QString>("type");
    QTest::newRow("civil") << u"WADISCIS¦SEARCH¦SMITH¦JOHN¦Q¦BED¦CV¦CNCI¦"_s << u"CV"_s;
    QTest::newRow("non-civil") << u"WADISCIS¦SEARCH¦SMITH¦JOHN¦Q¦*SW¦IN¦SNCI¦"_s << u"IN"_s;
    QTest::newRow("too short") << u"WADISCIS¦SEARCH¦"_s << QString();
    QTest::newRow("empty") << QString() << QString();
}

void tst_CaseFromRow::caseTypeOfARequest()
{
    QFETCH(QString, line);
    QTEST(CaseTypeOfRequest(line), "type");
}

void tst_CaseFromRow::rowsWithTooFewCells_data()
{
    QTest::addColumn<int>("cells");
    for (int cells = 0; cells < 8; ++cells)
        QTest::addRow("%d", cells) << cells;
}

void tst_CaseFromRow::rowsWithTooFewCells()
{
    QFETCH(int, cells);
    const QStringList row = discisRow(u"02-2"_s, u"BED"_s).first(cells);
    for (const QString &state : {u"WA"_s, u"OR"_s, u"ID"_s, u"ORBK"_s, u"??"_s}) {
        for (const ResultKind kind :
             {ResultKind::Superior, ResultKind::Idaho, ResultKind::Bankruptcy, ResultKind::Index}) {
            const CaseStart fields = CaseOfRow(row, kind, state);
            QCOMPARE(fields.txtCaseNumber, row.value(1));
            QCOMPARE(fields.lblDateFiled, row.value(2));
        }
    }
    for (const ResultKind kind :
         {ResultKind::DiscisCivil, ResultKind::DiscisStatewide, ResultKind::DiscisAddresses}) {
        const CaseStart fields = DiscisCaseOfRow(row, kind, u"IN"_s);
        QCOMPARE(fields.txtCaseNumber, row.value(1));
        QCOMPARE(fields.txtCaseType, row.value(4));
    }
    QCOMPARE(washington(u"02-2"_s, {}).tboxCaseNumberQueue, u"WASUP¦SUMMARY¦02-2¦¦¦"_s);
}

void tst_CaseFromRow::nothingBreaksTheLine()
{
    const CaseStart fields = washington(u"0¦2|-2"_s, u"WA Superior Ct Ki¦n|g County"_s);
    QCOMPARE(fields.tboxCaseNumberQueue, u"WASUP¦SUMMARY¦02-2¦King¦¦"_s);
}

HALVANE_TEST(tst_CaseFromRow)
#include "tst_CaseFromRow.moc"
