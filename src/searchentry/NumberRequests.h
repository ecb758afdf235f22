#pragma once

#include "searchentry/SearchEntry.h"

#include <QList>

/// What a case window of the state courts or of a bankruptcy court gets for a number.
struct CaseFields
{
    QString lblState;
    QString lblCaseDetailsHdr;
    QString Caption; ///< bankruptcy only; "" leaves it as it is
    QString txtCountyName;
    QString lblCourtName;   ///< "" leaves it as it is
    QString lblOrCourtType; ///< "C" or "D", Oregon only
    QString txtCaseNumber;
    QString tboxCaseNumberQueue;
    bool chkBK = false;
};

/// The summary request of a state court's case number. It has Washington's head for Oregon and
/// Idaho too: the case window goes by its state.
QString CaseNumberRequest(const QString &number);

/// One number, of the courts of Washington (Superior), Oregon and Idaho. Throws error 9 for a court
/// that has no such search.
CaseFields NumberFields(const SearchEntry &entry);

/// The rows of a batch that hold a number, in order.
QList<CaseFields> BatchFields(const SearchEntry &entry);

/// One number of a bankruptcy court; its request is BkRequest.
CaseFields BkNumberFields(const SearchEntry &entry, int courtIndex);
