#pragma once

#include "records/CaseStart.h"

/// What a case is known by, whoever opens it and however often: its court and its number, without
/// the marks of a list. Two cases never have the same; one that was opened in two ways may have
/// two. Empty when the starter does not say enough to tell the case from others.
QString CaseIdentity(const CaseStart &start);
