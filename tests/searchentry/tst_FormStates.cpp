#include "searchentry/FormStates.h"

#include "searchentry/SearchFormPlaces.h"
#include "support/HalvaneTest.h"

#include <QTest>

using namespace Qt::StringLiterals;

namespace {
struct PartName
{
    FormPart part;
    const char *control;
};
constexpr std::array<PartName, 21> partNames{{
    {FormPart::CourtSelection, "Frame14"},
    {FormPart::OrCDcourts, "frameOrCDcourts"},
    {FormPart::UseIndex, "chkUseIndex"},
    {FormPart::BatchEntry, "chkBulkSearch"},
    {FormPart::BankruptcyTypes, "optSearchType_3 optSearchType_4"},
    {FormPart::Name, "Frame2"},
    {FormPart::Batch, "frameBulkSearch"},
    {FormPart::Jurisdictions, "Frame11"},
    {FormPart::OneJurisdiction, "Frame12"},
    {FormPart::CountyButtons, "Frame6"},
    {FormPart::DiscisCaseType, "Frame8"},
    {FormPart::DiscisCourtList, "Frame9"},
    {FormPart::BankruptcyCourts, "frameBK1"},
    {FormPart::CaseTypes, "Frame4"},
    {FormPart::JudgmentsOnly, "optORjgmtsONLY"},
    {FormPart::Years, "Frame5"},
    {FormPart::BankruptcyYears, "frameBK2"},
    {FormPart::NumberExample, "lblCaseNumEx"},
    {FormPart::NameRecents, "cboxLastBizOrCase"},
    {FormPart::NumberRecents, "cboxCaseMRUs"},
    {FormPart::CountyList, "lboxCountyOrProfile"},
}};

QList<QByteArray> namesOf(FormParts parts)
{
    QList<QByteArray> names;
    for (const PartName &row : partNames) {
        if (parts.testFlag(row.part))
            names += QByteArray(row.control).split(' ');
    }
    if (parts.testFlag(FormPart::TemplateList))
        names.append("lboxSearchProfiles");
    // The heading stands over whichever list of recent entries there is.
    if (parts & (FormParts(FormPart::NameRecents) | FormPart::NumberRecents))
        names.append("lblMruList");
    std::sort(names.begin(), names.end());
    return names;
}

FormState stateOf(const Place &place)
{
    FormState state;
    state.Court = static_cast<CourtFamily>(place.Court);
    state.Kind = static_cast<SearchKind>(place.Type);
    state.Where = static_cast<SearchScope>(place.Where);
    state.Batch = place.Batch;
    return state;
}
} // namespace

class tst_FormStates : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void viewOfEveryState_data();
    void viewOfEveryState();
    void whatCannotBeIsPutRight_data();
    void whatCannotBeIsPutRight();
    void settlingTwiceChangesNothingMore();
    void anAppliedTemplateShowsTheCountiesItChose();
    void aTemplateCountsOnlyWhileTemplatesAreChosen_data();
    void aTemplateCountsOnlyWhileTemplatesAreChosen();
    void courtRows_data();
    void courtRows();
    void kindRows_data();
    void kindRows();
    void scopeRows_data();
    void scopeRows();
    void firstCourtOfAState_data();
    void firstCourtOfAState();
};

void tst_FormStates::viewOfEveryState_data()
{
    QTest::addColumn<int>("court");
    QTest::addColumn<int>("type");
    QTest::addColumn<int>("where");
    QTest::addColumn<bool>("batch");
    for (int court = Superior; court <= Federal; ++court) {
        for (int type = 0; type < 5; ++type) {
            for (int where = 1; where <= 3; ++where) {
                for (const bool batch : {false, true})
                    QTest::newRow(NameOf({court, type, where, 5, batch}).constData())
                        << court << type << where << batch;
            }
        }
    }
}

void tst_FormStates::viewOfEveryState()
{
    QFETCH(int, court);
    QFETCH(int, type);
    QFETCH(int, where);
    QFETCH(bool, batch);
    const FormState settled = Settled(stateOf({court, type, where, 5, batch}));
    // Identifiers that a court does not know become a person's name, a batch where there is none
    // the single entry.
    Place place{court, type, where, 5, batch};
    if (court != Federal && type > 2)
        place.Type = 0;
    if (!ShownRowOf(place))
        place.Batch = false;
    QVERIFY(ShownRowOf(place));
    QCOMPARE(settled, stateOf(place));
    QCOMPARE(namesOf(ViewOf(settled)), ShownAt(place));
}

void tst_FormStates::whatCannotBeIsPutRight_data()
{
    QTest::addColumn<FormState>("state");
    QTest::addColumn<FormState>("settled");
    const auto row = [](const char *name, FormState state, FormState settled) {
        QTest::newRow(name) << state << settled;
    };
    using enum CourtFamily;
    using enum SearchKind;
    using enum SearchScope;
    for (const CourtFamily court :
         {CourtFamily::Superior, CourtFamily::Discis, CourtFamily::Oregon, CourtFamily::Idaho}) {
        row("tax identifier", {court, TaxId, Counties, false, false},
            {court, Person, Counties, false, false});
        row("social security number", {court, Ssn, Counties, false, false},
            {court, Person, Counties, false, false});
    }
    row("tax identifier of the U.S. Courts", {Bankruptcy, TaxId, Counties, false, false},
        {Bankruptcy, TaxId, Counties, false, false});
    row("batch of names", {CourtFamily::Superior, Person, Counties, true, false},
        {CourtFamily::Superior, Person, Counties, false, false});
    row("batch of businesses", {CourtFamily::Oregon, Business, Counties, true, false},
        {CourtFamily::Oregon, Business, Counties, false, false});
    row("batch of district courts", {CourtFamily::Discis, Number, Counties, true, false},
        {CourtFamily::Discis, Number, Counties, false, false});
    row("batch of the U.S. Courts", {Bankruptcy, Number, Counties, true, false},
        {Bankruptcy, Number, Counties, false, false});
    row("batch of numbers", {CourtFamily::Idaho, Number, Counties, true, false},
        {CourtFamily::Idaho, Number, Counties, true, false});
    row("batch of tax identifiers", {CourtFamily::Oregon, TaxId, Counties, true, false},
        {CourtFamily::Oregon, Person, Counties, false, false});
}

void tst_FormStates::whatCannotBeIsPutRight()
{
    QFETCH(FormState, state);
    QFETCH(FormState, settled);
    QVERIFY(Settled(state) == settled);
}

void tst_FormStates::settlingTwiceChangesNothingMore()
{
    for (int court = Superior; court <= Federal; ++court) {
        for (int type = 0; type < 5; ++type) {
            for (const bool batch : {false, true}) {
                for (const bool applied : {false, true}) {
                    FormState state = stateOf({court, type, 2, 5, batch});
                    state.TemplateApplied = applied;
                    QVERIFY(Settled(Settled(state)) == Settled(state));
                }
            }
        }
    }
}

void tst_FormStates::anAppliedTemplateShowsTheCountiesItChose()
{
    FormState state;
    state.Where = SearchScope::Template;
    QVERIFY(ViewOf(state).testFlag(FormPart::TemplateList));
    QVERIFY(!ViewOf(state).testFlag(FormPart::CountyList));
    state.TemplateApplied = true;
    QVERIFY(!ViewOf(state).testFlag(FormPart::TemplateList));
    QVERIFY(ViewOf(state).testFlag(FormPart::CountyList));
    // One county in the place of those of the template is not what was asked for.
    QVERIFY(!ViewOf(state).testFlag(FormPart::CountyButtons));
}

void tst_FormStates::aTemplateCountsOnlyWhileTemplatesAreChosen_data()
{
    QTest::addColumn<SearchScope>("where");
    QTest::addColumn<bool>("applied");
    QTest::newRow("by county") << SearchScope::Counties << false;
    QTest::newRow("by template") << SearchScope::Template << true;
    QTest::newRow("statewide") << SearchScope::Statewide << false;
}

void tst_FormStates::aTemplateCountsOnlyWhileTemplatesAreChosen()
{
    QFETCH(SearchScope, where);
    QFETCH(bool, applied);
    FormState state;
    state.Where = where;
    state.TemplateApplied = true;
    QCOMPARE(Settled(state).TemplateApplied, applied);
}

void tst_FormStates::courtRows_data()
{
    QTest::addColumn<int>("court");
    QTest::addColumn<int>("courtIndex");
    QTest::addColumn<QString>("displayName");
    QTest::newRow("Superior") << 0 << 0 << u"WA Superior Courts"_s;
    QTest::newRow("District") << 1 << 1 << u"WA District & Municipal Courts"_s;
    QTest::newRow("Oregon") << 2 << -1 << u"OR Circuit/District Courts"_s;
    QTest::newRow("Idaho") << 3 << -1 << u"ID District Courts"_s;
    QTest::newRow("bankruptcy") << 4 << -1 << u"Federal Bankruptcy Courts"_s;
}

void tst_FormStates::courtRows()
{
    QFETCH(int, court);
    const CourtRow &row = CourtRowOf(static_cast<CourtFamily>(court));
    const FamilyText &expected = familyTexts[static_cast<size_t>(court)];
    QCOMPARE(static_cast<int>(row.court), court);
    QCOMPARE(&CourtRows()[static_cast<size_t>(court)], &row);
    QCOMPARE(row.stateIndex, expected.optState);
    QTEST(row.courtIndex, "courtIndex");
    QCOMPARE(CourtOf(row.court).SearchState.toString(), QString::fromLatin1(expected.searchState));
    QCOMPARE(CourtOf(row.court).CurrentCourt.toString(),
             QString::fromLatin1(expected.currentCourt));
    QCOMPARE(row.caption.toString(), QString::fromLatin1(expected.caption));
    QCOMPARE(row.courtLabel.toString(), QString::fromLatin1(expected.courtLabel));
    QCOMPARE(row.statewide.toString(), QString::fromLatin1(expected.statewide));
    QCOMPARE(row.numberExample.toString(), QString::fromLatin1(expected.example));
    QTEST(CourtOf(row.court).Display.toString(), "displayName");
}

void tst_FormStates::kindRows_data()
{
    QTest::addColumn<int>("type");
    QTest::addColumn<bool>("empties");
    QTest::newRow("person") << 0 << true;
    QTest::newRow("business") << 1 << true;
    QTest::newRow("number") << 2 << false;
    QTest::newRow("tax identifier") << 3 << false;
    QTest::newRow("social security number") << 4 << false;
}

void tst_FormStates::kindRows()
{
    QFETCH(int, type);
    const KindRow &row = KindRowOf(static_cast<SearchKind>(type));
    const TypeText &expected = typeTexts[static_cast<size_t>(type)];
    QCOMPARE(static_cast<int>(row.kind), type);
    QCOMPARE(row.type.toString(), QString::fromLatin1(expected.searchType));
    QCOMPARE(row.step.toString(), QString::fromLatin1(expected.step));
    for (size_t i = 0; i < row.labels.size(); ++i)
        QCOMPARE(row.labels[i].toString(), QString::fromLatin1(expected.labels[i]));
    QTEST(row.empties, "empties");
}

void tst_FormStates::scopeRows_data()
{
    QTest::addColumn<int>("where");
    QTest::newRow("by county") << 1;
    QTest::newRow("by template") << 2;
    QTest::newRow("statewide") << 3;
}

void tst_FormStates::scopeRows()
{
    QFETCH(int, where);
    const ScopeRow &row = ScopeRowOf(static_cast<SearchScope>(where));
    QCOMPARE(static_cast<int>(row.where), where);
    QCOMPARE(row.label.toString(),
             QString::fromLatin1(scopeLabels[static_cast<size_t>(where) - 1]));
}

void tst_FormStates::firstCourtOfAState_data()
{
    QTest::addColumn<int>("optState");
    QTest::addColumn<int>("court");
    QTest::newRow("Oregon") << 0 << int(Oregon);
    QTest::newRow("Washington") << 1 << int(Superior);
    QTest::newRow("U.S. Courts") << 2 << int(Federal);
    QTest::newRow("Idaho") << 3 << int(Idaho);
}

void tst_FormStates::firstCourtOfAState()
{
    QFETCH(int, optState);
    QTEST(static_cast<int>(FirstCourtOf(optState)), "court");
}

HALVANE_TEST(tst_FormStates)
#include "tst_FormStates.moc"
