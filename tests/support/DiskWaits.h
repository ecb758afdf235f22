#pragma once

/// How often this program has asked to wait until a disk has what was written. A test never does
/// wait.
int DiskWaits();
