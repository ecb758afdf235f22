#include "practice/RecordRows.h"

#include "practice/CaseRecords.h"
#include "practice/CaseTabs.h"
#include "practice/DocketText.h"
#include "practice/SearchFields.h"

using namespace Qt::StringLiterals;

namespace Practice {
CaseRows NameRows(const CaseFile &file)
{
    CaseRows rows;
    for (const PartyRecord &record : PartiesOf(file))
        rows.push_back({record.name, record.role, record.address, record.attorney});
    return rows;
}

CaseRows DocketRows(const CaseFile &file, QDate today)
{
    CaseRows rows;
    for (const DocketEntry &entry : DocketOf(file, today))
        rows.push_back(DocketCells(entry.date, entry.code, entry.text));
    return rows;
}

CaseRows AccountRows(const CaseFile &file, QDate today)
{
    CaseRows rows;
    for (const AccountRecord &one : AccountsOf(file, today)) {
        const QString amount =
            one.amount < 0 ? u'-' + MoneyText(-one.amount) : MoneyText(one.amount);
        rows.push_back({DateText(one.date), one.receipt, one.text, amount, MoneyText(one.balance)});
    }
    return rows;
}

CaseRows JudgmentRows(const CaseFile &file, const QString &inCase, QDate today)
{
    CaseRows rows;
    for (const JudgmentRecord &one : JudgmentsOf(file, today)) {
        rows.push_back({DateText(one.date), inCase, one.creditor, one.debtor, MoneyText(one.cents),
                        one.status});
    }
    return rows;
}

CaseRows ChargeRows(const CaseFile &file, QDate today)
{
    CaseRows rows;
    for (const ChargeRecord &one : ChargesOf(file, today))
        rows.push_back({QString::number(one.count), one.law, one.text, DateText(one.date), one.plea,
                        one.result});
    return rows;
}

CaseRows SentenceRows(const CaseFile &file, QDate today)
{
    CaseRows rows;
    for (const SentenceRecord &one : SentenceOf(file, today))
        rows.push_back({one.item, one.text});
    return rows;
}

CaseRows ScheduleRows(const CaseFile &file, QDate today)
{
    CaseRows rows;
    for (const HearingRecord &one : HearingsOf(file, today))
        rows.push_back({DateText(one.date), one.time, one.text, one.room});
    return rows;
}

CaseRows FinanceRows(const CaseFile &file, QDate today)
{
    qint64 charged = 0;
    qint64 paid = 0;
    for (const AccountRecord &one : AccountsOf(file, today))
        (one.amount < 0 ? paid : charged) += one.amount < 0 ? -one.amount : one.amount;
    if (charged == 0)
        return {};
    return {{u"Fees, Fines And Costs"_s, MoneyText(charged), MoneyText(paid),
             MoneyText(charged - paid)}};
}

} // namespace Practice
