#pragma once

#include "practice/CaseFile.h"

#include <QDate>
#include <QString>

#include <vector>

namespace Practice {
// What the tabs of a case beside its docket tell, still without the columns of its court. All of it
// comes out of the case's seed, up to today.

struct PartyRecord
{
    QString name;
    QString role;
    QString address;
    QString attorney;
};

struct ChargeRecord
{
    int count = 0;
    QString law;
    QString text;
    QDate date;
    QString plea;
    QString result;
};

struct SentenceRecord
{
    QString item;
    QString text;
};

struct AccountRecord
{
    QDate date;
    QString receipt;
    QString text;
    qint64 amount = 0; ///< cents: what was charged, or with a minus what was paid
    qint64 balance = 0;
};

struct JudgmentRecord
{
    QDate date;
    QString creditor;
    QString debtor;
    qint64 cents = 0;
    QString status;
};

struct HearingRecord
{
    QDate date;
    QString time;
    QString text;
    QString room;
};

/// A paper that was scanned.
struct DocumentRecord
{
    int place = 0; ///< in the docket, from 1
    QDate date;
    int pages = 0;
    QString text;
    bool retrievable = true;
};

std::vector<PartyRecord> PartiesOf(const CaseFile &file);

/// Empty for a case that is not about an offense.
std::vector<ChargeRecord> ChargesOf(const CaseFile &file, QDate today);

/// Empty, too, while nobody was sentenced.
std::vector<SentenceRecord> SentenceOf(const CaseFile &file, QDate today);

/// The oldest first, with the balance behind each.
std::vector<AccountRecord> AccountsOf(const CaseFile &file, QDate today);

/// Empty when nobody was given anything.
std::vector<JudgmentRecord> JudgmentsOf(const CaseFile &file, QDate today);

/// Those that were held, and of a case that is not over those that are to come.
std::vector<HearingRecord> HearingsOf(const CaseFile &file, QDate today);

std::vector<DocumentRecord> DocumentsOf(const CaseFile &file, QDate today);

/// "M" or "F" after the first name; nothing when it does not tell.
QString SexOf(const Person &person);
} // namespace Practice
