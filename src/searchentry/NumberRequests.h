#pragma once

#include "records/CaseStart.h"
#include "searchentry/SearchEntry.h"

#include <QList>

/// The summary request of a state court's case number. It has Washington's head for Oregon and
/// Idaho too: the case window goes by its state.
QString CaseNumberRequest(const QString &number);

/// One number, of the courts of Washington (Superior), Oregon and Idaho. Throws error 9 for a court
/// that has no such search.
CaseStart NumberFields(const SearchEntry &entry);

/// The rows of a batch that hold a number, in order.
QList<CaseStart> BatchFields(const SearchEntry &entry);

/// One number of a bankruptcy court; its request is BkRequest.
CaseStart BkNumberFields(const SearchEntry &entry, int courtIndex);
