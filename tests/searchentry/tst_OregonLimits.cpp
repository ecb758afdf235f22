#include "courts/Counties.h"
#include "searchentry/FieldRules.h"
#include "support/HalvaneTest.h"

#include <QTest>

using namespace Qt::StringLiterals;

class tst_OregonLimits : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void countiesWithoutDistrictCourt();
    void countiesWithoutJuvenile();
    void whatIsNoCountyIsInNoList();
};

void tst_OregonLimits::countiesWithoutDistrictCourt()
{
    QStringList found;
    for (const QString &county : OrCountyNames()) {
        if (HasCountyWithoutDistrictCourt({county}))
            found.append(county);
        QCOMPARE(HasCountyWithoutDistrictCourt({county.toUpper()}),
                 HasCountyWithoutDistrictCourt({county.toLower()}));
    }
    QCOMPARE(found, (QStringList{u"Baker"_s, u"Gilliam"_s, u"Grant"_s, u"Harney"_s, u"Sherman"_s,
                                 u"Wheeler"_s}));
}

void tst_OregonLimits::countiesWithoutJuvenile()
{
    QStringList found;
    for (const QString &county : OrCountyNames()) {
        if (HasCountyWithoutJuvenile({county}))
            found.append(county);
        QCOMPARE(HasCountyWithoutJuvenile({county.toUpper()}),
                 HasCountyWithoutJuvenile({county.toLower()}));
    }
    // Multnomah stands in the list under a spelling that no county has, and is not limited.
    QCOMPARE(found, (QStringList{u"Benton"_s, u"City of Hermiston"_s, u"Crook"_s, u"Gilliam"_s,
                                 u"Harney"_s, u"Jefferson"_s, u"Morrow"_s, u"Sherman"_s,
                                 u"Washington"_s, u"Wheeler"_s}));
}

void tst_OregonLimits::whatIsNoCountyIsInNoList()
{
    for (const QString &text : {QString(), u" "_s, u"   "_s, u"---- NO SELECTION ----"_s,
                                u"(Statewide)"_s, u"Gran"_s, u"eele"_s, QString(10000, u'B')}) {
        QVERIFY(!HasCountyWithoutDistrictCourt({text}));
        QVERIFY(!HasCountyWithoutJuvenile({text}));
    }
    QVERIFY(!HasCountyWithoutDistrictCourt({}));
    QVERIFY(!HasCountyWithoutJuvenile({}));
}

HALVANE_TEST(tst_OregonLimits)
#include "tst_OregonLimits.moc"
