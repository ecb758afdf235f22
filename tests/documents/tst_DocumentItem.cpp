// What is said of a document that could not be had.

#include "documents/DocumentItem.h"
#include "support/HalvaneTest.h"

#include <QTest>

using namespace Qt::StringLiterals;

class tst_DocumentItem : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void whatWentWrongWithAFile_data();
    void whatWentWrongWithAFile();
};

void tst_DocumentItem::whatWentWrongWithAFile_data()
{
    QTest::addColumn<int>("number");
    QTest::addColumn<QString>("reason");
    QTest::newRow("full") << 61 << u"Its file could not be written: the disk is full."_s;
    QTest::newRow("denied") << 70
                            << u"Its file cannot be written. It may be open in another program."_s;
    QTest::newRow("not to be read") << 75 << u"Its file could not be read or written."_s;
}

void tst_DocumentItem::whatWentWrongWithAFile()
{
    QFETCH(int, number);
    TransferResult result;
    result.End = TransferEnd::FileError;
    for (const RunTimeError &error : {RunTimeError::DiskFull(), RunTimeError::PermissionDenied(),
                                      RunTimeError::PathFileAccess()}) {
        if (error.Number() == number)
            result.Error = error;
    }
    QTEST(ReasonOf(result), "reason");
}

HALVANE_TEST(tst_DocumentItem)
#include "tst_DocumentItem.moc"
