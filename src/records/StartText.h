#pragma once

#include "records/CaseStart.h"
#include "records/DocumentStart.h"

#include <QByteArray>
#include <QList>

#include <optional>

// Cases and documents as they were opened, in a form that can be kept, and from which each can be
// opened again: JSON, which names what it is and what differs from a plain start.

QByteArray TextOfCaseStart(const CaseStart &start);
/// Nothing when the text is damaged, is no case, or has something that this program does not know:
/// half a case would ask the court for another one.
std::optional<CaseStart> CaseStartOf(const QByteArray &text);

QByteArray TextOfDocuments(const QList<DocumentStart> &starts);
/// Nothing as above. There is one document at least.
std::optional<QList<DocumentStart>> DocumentsOf(const QByteArray &text);
