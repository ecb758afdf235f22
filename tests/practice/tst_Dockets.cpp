// The days of a docket.

#include "practice/DocketText.h"
#include "support/HalvaneTest.h"

#include <QTest>

#include <algorithm>
#include <array>

using namespace Practice;

class tst_Dockets : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void nothingIsFiledWhileTheCourtIsClosed();
};

void tst_Dockets::nothingIsFiledWhileTheCourtIsClosed()
{
    constexpr std::array holidays{101, 704, 1111, 1225};
    constexpr int natures = static_cast<int>(Nature::Arbitration) + 1;
    constexpr int cases = 3000;
    const QDate today(2024, 6, 3);
    int seen = 0;
    CaseFile file;
    for (int i = 0; i < cases; ++i) {
        file.nature = static_cast<Nature>(i % natures);
        file.filed = QDate(1990, 1, 2).addDays(i * 4);
        file.seed = static_cast<quint64>(i);
        for (const DocketEntry &entry : DocketOf(file, today)) {
            // The day of filing is the list's affair.
            if (entry.date == file.filed)
                continue;
            ++seen;
            const int day = entry.date.month() * 100 + entry.date.day();
            QVERIFY2(entry.date.dayOfWeek() <= Qt::Friday, qPrintable(entry.date.toString()));
            QVERIFY2(std::find(holidays.begin(), holidays.end(), day) == holidays.end(),
                     qPrintable(entry.date.toString()));
        }
    }
    QVERIFY(seen > cases);
}

HALVANE_TEST(tst_Dockets)
#include "tst_Dockets.moc"
