// Cases and documents that are kept as a text, and come back from it.

#include "records/StartText.h"
#include "support/HalvaneTest.h"

#include <QTest>

#include <functional>

using namespace Qt::StringLiterals;

using ChangeCase = std::function<void(CaseStart &start)>;
using ChangeDocument = std::function<void(DocumentStart &start)>;
Q_DECLARE_METATYPE(ChangeCase)
Q_DECLARE_METATYPE(ChangeDocument)
Q_DECLARE_METATYPE(CaseKind)

namespace {
/// Whatever a court may send: quotes, line ends, bars, marks, what is no Latin letter.
const QString hostile = u"\"a\\b\"\r\n|~¦,^:\u00DC\u20AC\u4E2D &&"_s;

CaseStart changed(const ChangeCase &change)
{
    CaseStart start;
    change(start);
    return start;
}

ChangeCase text(QString CaseStart::*member)
{
    return [member](CaseStart &start) { start.*member = hostile; };
}

ChangeCase flag(bool CaseStart::*member)
{
    return [member](CaseStart &start) { start.*member = !(start.*member); };
}

ChangeDocument documentText(QString DocumentStart::*member)
{
    return [member](DocumentStart &start) { start.*member = hostile; };
}
} // namespace

class tst_StartText : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void everyFieldOfACaseComesBack_data();
    void everyFieldOfACaseComesBack();
    void everyFieldOfADocumentComesBack_data();
    void everyFieldOfADocumentComesBack();
    void severalDocumentsComeBackInOrder();
    void aKindHasItsOwnDefaults();
    void whatIsDamagedGivesNothing_data();
    void whatIsDamagedGivesNothing();
    void cutAtAnyPlaceItGivesNothing();
};

void tst_StartText::everyFieldOfACaseComesBack_data()
{
    // A member that is added needs a row below, and one in the table of what is kept.
    const CaseStart plain;
    const auto &[kind, caption, heading, archived, court, title, filed, topType, type, no, state,
                 number, county, oregon, code, discisType, request, requests, client, bankruptcy,
                 prints, origin, log] = plain;
    Q_UNUSED(kind)
    QTest::addColumn<ChangeCase>("change");
    const auto row = [](const char *name, const ChangeCase &change) {
        QTest::newRow(name) << change;
    };
    row("plain", [](CaseStart &) {});
    row("Caption", text(&CaseStart::Caption));
    row("no Caption", [](CaseStart &start) { start.Caption.clear(); });
    row("lblCaseDetailsHdr", text(&CaseStart::lblCaseDetailsHdr));
    row("Archived", flag(&CaseStart::Archived));
    row("lblCourtName", text(&CaseStart::lblCourtName));
    row("lblCaseTitle", text(&CaseStart::lblCaseTitle));
    row("lblDateFiled", text(&CaseStart::lblDateFiled));
    row("lblTopFrameCaseType", text(&CaseStart::lblTopFrameCaseType));
    row("lblCaseType", text(&CaseStart::lblCaseType));
    row("lblCaseNo", text(&CaseStart::lblCaseNo));
    row("lblState", text(&CaseStart::lblState));
    row("txtCaseNumber", text(&CaseStart::txtCaseNumber));
    row("txtCountyName", text(&CaseStart::txtCountyName));
    row("lblOrCourtType", text(&CaseStart::lblOrCourtType));
    row("txtCourtCode", text(&CaseStart::txtCourtCode));
    row("txtCaseType", text(&CaseStart::txtCaseType));
    row("tboxCaseNumberQueue", text(&CaseStart::tboxCaseNumberQueue));
    row("TabRequests", [](CaseStart &start) { start.TabRequests = {u"a"_s, {}, hostile}; });
    row("ClientAcctgCode", text(&CaseStart::ClientAcctgCode));
    row("chkBK", flag(&CaseStart::chkBK));
    row("chkAutoPrint", flag(&CaseStart::chkAutoPrint));
    row("Origin", [](CaseStart &start) { start.Origin = hostile.toUtf8(); });
    row("Log", text(&CaseStart::Log));
}

void tst_StartText::everyFieldOfACaseComesBack()
{
    QFETCH(ChangeCase, change);
    const CaseStart start = changed(change);
    const std::optional<CaseStart> back = CaseStartOf(TextOfCaseStart(start));
    QVERIFY(back);
    QVERIFY(*back == start);
}

void tst_StartText::everyFieldOfADocumentComesBack_data()
{
    const DocumentStart plain;
    const auto &[command, number, county, description, pages, date, code] = plain;
    Q_UNUSED(command)
    QTest::addColumn<ChangeDocument>("change");
    const auto row = [](const char *name, QString DocumentStart::*member) {
        QTest::newRow(name) << documentText(member);
    };
    row("Command", &DocumentStart::Command);
    row("CaseNumber", &DocumentStart::CaseNumber);
    row("County", &DocumentStart::County);
    row("Description", &DocumentStart::Description);
    row("PageCount", &DocumentStart::PageCount);
    row("Date", &DocumentStart::Date);
    row("ClientMatterText", &DocumentStart::ClientMatterText);
}

void tst_StartText::everyFieldOfADocumentComesBack()
{
    QFETCH(ChangeDocument, change);
    DocumentStart start;
    change(start);
    const std::optional<QList<DocumentStart>> back = DocumentsOf(TextOfDocuments({start}));
    QVERIFY(back);
    QCOMPARE(back->size(), 1);
    QVERIFY(back->first() == start);
}

void tst_StartText::severalDocumentsComeBackInOrder()
{
    QList<DocumentStart> starts(3);
    starts[0].Command = u"first"_s;
    starts[2].Command = u"third"_s;
    QVERIFY(DocumentsOf(TextOfDocuments(starts)) == starts);
}

void tst_StartText::aKindHasItsOwnDefaults()
{
    for (const CaseKind kind : {CaseKind::State, CaseKind::Civil, CaseKind::NonCivil}) {
        CaseStart start(kind);
        QVERIFY(CaseStartOf(TextOfCaseStart(start)) == start);
        // What the kind has set can have been taken away.
        start.lblCaseType.clear();
        start.lblState.clear();
        QVERIFY(CaseStartOf(TextOfCaseStart(start)) == start);
    }
}

void tst_StartText::whatIsDamagedGivesNothing_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::newRow("nothing") << QByteArray();
    QTest::newRow("no JSON") << QByteArray("Case 1");
    QTest::newRow("a list") << QByteArray("[1]");
    QTest::newRow("an empty object") << QByteArray("{}");
    QTest::newRow("a search") << QByteArray(R"({"Search":1})");
    QTest::newRow("of a newer version") << QByteArray(R"({"Case":2,"Kind":0})");
    QTest::newRow("without a kind") << QByteArray(R"({"Case":1})");
    QTest::newRow("of an unknown kind") << QByteArray(R"({"Case":1,"Kind":3})");
    QTest::newRow("of a negative kind") << QByteArray(R"({"Case":1,"Kind":-1})");
    QTest::newRow("a number for a text") << QByteArray(R"({"Case":1,"Kind":0,"Number":1})");
    QTest::newRow("a text for a flag") << QByteArray(R"({"Case":1,"Kind":0,"Archived":"x"})");
    QTest::newRow("a text for a list") << QByteArray(R"({"Case":1,"Kind":0,"TabRequests":"x"})");
    QTest::newRow("a list of numbers") << QByteArray(R"({"Case":1,"Kind":0,"TabRequests":[1]})");
    QTest::newRow("an origin that is no text") << QByteArray(R"({"Case":1,"Kind":0,"Origin":[]})");
    QTest::newRow("an unknown key") << QByteArray(R"({"Case":1,"Kind":0,"Court2":"x"})");
    QTest::newRow("documents without a list") << QByteArray(R"({"Documents":1})");
    QTest::newRow("no documents") << QByteArray(R"({"Documents":1,"List":[]})");
    QTest::newRow("documents of texts") << QByteArray(R"({"Documents":1,"List":["x"]})");
    QTest::newRow("a document with an unknown key")
        << QByteArray(R"({"Documents":1,"List":[{"Colour":"x"}]})");
    QTest::newRow("a document with a number")
        << QByteArray(R"({"Documents":1,"List":[{"Pages":3}]})");
    QTest::newRow("documents of a newer version") << QByteArray(R"({"Documents":2,"List":[{}]})");
    QTest::newRow("documents and more") << QByteArray(R"({"Documents":1,"List":[{}],"X":1})");
}

void tst_StartText::whatIsDamagedGivesNothing()
{
    QFETCH(QByteArray, text);
    QVERIFY(!CaseStartOf(text));
    QVERIFY(!DocumentsOf(text));
}

void tst_StartText::cutAtAnyPlaceItGivesNothing()
{
    CaseStart start;
    start.txtCaseNumber = hostile;
    start.TabRequests = {u"a"_s};
    const QByteArray ofCase = TextOfCaseStart(start);
    for (qsizetype size = 0; size < ofCase.size(); ++size)
        QVERIFY(!CaseStartOf(ofCase.first(size)));
    const QByteArray ofDocument = TextOfDocuments({{.Command = hostile,
                                                    .CaseNumber = {},
                                                    .County = {},
                                                    .Description = {},
                                                    .PageCount = {},
                                                    .Date = {},
                                                    .ClientMatterText = {}}});
    for (qsizetype size = 0; size < ofDocument.size(); ++size)
        QVERIFY(!DocumentsOf(ofDocument.first(size)));
}

HALVANE_TEST(tst_StartText)
#include "tst_StartText.moc"
