// The table of exchanges has a row for everything that the program can ask. A request that is in no
// row would be one whose reply nobody has cut.

#include "app/ProtocolPage.h"
#include "casedetails/CaseRequests.h"
#include "searchentry/RequestGrammar.h"
#include "support/HalvaneTest.h"
#include "support/Places.h"
#include "sweeps/Exchanges.h"

#include <QDirIterator>
#include <QFile>
#include <QMap>
#include <QRegularExpression>
#include <QTest>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {
/// The fields of a request, the one behind the last delimiter left out.
QStringList fieldsOf(const QString &request, QChar delimiter)
{
    QStringList fields = request.split(delimiter);
    fields.removeLast();
    return fields;
}

bool isEverywhere(const QString &place)
{
    return place.startsWith(u'*');
}

/// Whether this is a line of that kind: as many fields, the same words, and a place where one is.
bool isOfKind(const QString &request, const RequestRow &kind)
{
    const QStringList fields = fieldsOf(request, kind.Delimiter);
    // The line of a case number is what a case begins with; the case adds its court.
    const auto count = static_cast<qsizetype>(kind.Count);
    if (kind.Line == RequestLine::CaseNumber ? fields.size() < count : fields.size() != count)
        return false;
    for (qsizetype i = 0; i < count; ++i) {
        const RequestFieldSpec &field = kind.Fields.at(static_cast<size_t>(i));
        const bool ofPage = field.Text == u"LL=1" && fields[i].startsWith(u"LL=");
        if (field.Field == RequestField::Literal && field.Text != fields[i] && !ofPage)
            return false;
        if (field.Field == RequestField::Place && isEverywhere(fields[i]))
            return false;
    }
    return true;
}

qsizetype rowsWith(const QString &request)
{
    return std::count_if(Exchanges().begin(), Exchanges().end(),
                         [&request](const Exchange &row) { return row.Request == request; });
}

/// The cases that the sweep opens, as far as their requests go.
QList<CaseOfRequest> casesOfTheSweep()
{
    const CaseOfRequest ofState{.State = u"WA"_s,
                                .CaseNumber = u"02-1-00123-4"_s,
                                .CountyName = u"King"_s,
                                .OrCourtType = {},
                                .CaseType = {},
                                .CourtCode = {}};
    CaseOfRequest oregon = ofState;
    oregon.State = u"OR"_s;
    oregon.CaseNumber = u"CV0100001"_s;
    oregon.CountyName = u"Baker"_s;
    oregon.OrCourtType = u"C"_s;
    CaseOfRequest idaho = ofState;
    idaho.State = u"ID"_s;
    idaho.CaseNumber = u"CV-2001-1"_s;
    idaho.CountyName = u"Ada"_s;
    CaseOfRequest civil = ofState;
    civil.Kind = CaseKind::Civil;
    civil.CaseNumber = u"Y00012345"_s;
    civil.CaseType = u"CV"_s;
    civil.CourtCode = u"SED"_s;
    CaseOfRequest nonCivil = civil;
    nonCivil.Kind = CaseKind::NonCivil;
    nonCivil.CaseType = u"IN"_s;
    return {ofState, oregon, idaho, civil, nonCivil};
}

/// The tabs that a case of this kind can have.
QStringList tabsOf(const CaseOfRequest &ofCase)
{
    if (ofCase.Kind != CaseKind::State)
        return DiscisTabs(ofCase.Kind);
    if (ofCase.State == u"OR")
        return OregonTabs();
    if (ofCase.State == u"ID")
        return IdahoTabs();
    QStringList all;
    for (const QChar type : u"0123456789"_s)
        all += WashingtonTabs(u"02-%1-00123-4"_s.arg(type));
    all.removeDuplicates();
    return all;
}

/// What tells a kind of request from the others: its keyword, and the verb that stands in field 1,
/// of the district courts the word at the end.
QString kindOf(const QString &request)
{
    static const QRegularExpression delimiter(u"[¦~@]"_s);
    const qsizetype at = request.indexOf(delimiter);
    const QStringList fields = fieldsOf(request, at < 0 ? QChar() : request[at]);
    if (fields.value(0) == u"WADISCIS") {
        QStringList words = fields;
        words.removeAll(QString());
        return u"WADISCIS "_s + fields.value(1) + u' ' + words.last();
    }
    if (fields.size() == 4 && (fields[0] == u"LOGON" || fields[0] == u"GET_PRIV_MSG"))
        return fields[0];
    return fields.value(0) + u' ' + fields.value(1);
}

/// The calls that begin an exchange, and what is sent there.
const QMap<QString, qsizetype> &beginnings()
{
    static const QMap<QString, qsizetype> all{
        {u"session/LoginExchange.cpp"_s, 1},    // the login
        {u"session/ServerExchanges.cpp"_s, 5},  // what is asked around it
        {u"namesearch/NameSearch.cpp"_s, 1},    // every search, page, person and retry
        {u"casedetails/CaseExchange.cpp"_s, 1}, // every tab
        {u"documents/DocumentTransfer.cpp"_s, 1},
    };
    return all;
}
} // namespace

class tst_ExchangeTable : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void everyKindOfSearchLine();
    void everyTabOfEveryCase();
    void everyCallThatBeginsAnExchange();
    void everyExampleOfTheProtocol();
    void everyRowHasANameOfItsOwn();
};

void tst_ExchangeTable::everyKindOfSearchLine()
{
    for (const RequestRow &kind : RequestRows()) {
        const bool found =
            std::any_of(Exchanges().begin(), Exchanges().end(),
                        [&kind](const Exchange &row) { return isOfKind(row.Request, kind); });
        QVERIFY2(found,
                 qPrintable(u"search line %1 has no row"_s.arg(static_cast<int>(kind.Line))));
    }
}

void tst_ExchangeTable::everyTabOfEveryCase()
{
    const QList<CaseOfRequest> cases = casesOfTheSweep();
    for (const CaseOfRequest &ofCase : cases) {
        const QStringList captions = tabsOf(ofCase);
        QVERIFY(captions.size() > 1);
        for (const QString &caption : captions) {
            const CaseTab tab = *CaseTabOf(caption);
            const QString request = CaseTabRequest(ofCase, tab);
            QVERIFY2(!request.isEmpty(), qPrintable(caption));
            // In the first run and in a later one.
            const qsizetype least = tab == CaseTab::Summary ? 1 : 2;
            QVERIFY2(rowsWith(request) >= least, qPrintable(request));
        }
    }
}

void tst_ExchangeTable::everyCallThatBeginsAnExchange()
{
    const QString source = DocsPath(u"../src"_s);
    QMap<QString, qsizetype> found;
    QDirIterator files(source, {u"*.cpp"_s}, QDir::Files, QDirIterator::Subdirectories);
    while (files.hasNext()) {
        QFile file(files.next());
        QVERIFY(file.open(QIODevice::ReadOnly));
        const qsizetype calls = file.readAll().count("BeginExchange(");
        const QString name = QDir(source).relativeFilePath(file.fileName());
        // Where it is written itself there is no call.
        if (calls > 0 && name != u"link/Exchange.cpp")
            found.insert(name, calls);
    }
    QCOMPARE(found, beginnings());
}

void tst_ExchangeTable::everyExampleOfTheProtocol()
{
    QStringList kinds{u"STOP "_s, u" STOP"_s, u"BKRPT STOP"_s, u"IMALIVE "_s}; // no exchanges
    for (const Exchange &row : Exchanges())
        kinds.append(kindOf(row.Request));
    const auto examples = ProtocolPage().Examples();
    QVERIFY(examples.size() > 40);
    for (const auto &[request, meaning] : examples) {
        const bool isStop = request == u"¦STOP";
        QVERIFY2(isStop || kinds.contains(kindOf(request)), qPrintable(request));
    }
}

void tst_ExchangeTable::everyRowHasANameOfItsOwn()
{
    QStringList names;
    for (const Exchange &row : Exchanges()) {
        names.append(row.Name);
        QVERIFY2(row.NeededTokens > 0 && row.NeededTokens <= row.Reply.count('|') / 2,
                 qPrintable(row.Name));
    }
    QCOMPARE(names.removeDuplicates(), 0);
}

HALVANE_TEST(tst_ExchangeTable)
#include "tst_ExchangeTable.moc"
