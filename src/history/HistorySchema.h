#pragma once

#include "history/HistoryDatabase.h"

/// The version of the schema that this program writes.
int HistoryVersion();

/// Newer when a later version of this program has made the file that is open, Damaged when another
/// program has. It is not touched.
HistoryTrouble RefuseStrangers(HistoryDatabase &database);

/// Brings the file that is open to this program's version, step by step, all or nothing. None when
/// it is there.
HistoryTrouble BringToVersion(HistoryDatabase &database);

/// Reads the whole file for damage: None or Damaged, or what kept it from being read.
HistoryTrouble CheckIntegrity(HistoryDatabase &database);
