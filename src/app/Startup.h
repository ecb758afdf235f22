#pragma once

/// Connects what the layers tell upward to the windows that answer it. The only place where windows
/// are wired to each other.
void WireWindows();

/// The order of the start, from the first window to the search form. Boxes and the connect question
/// run inside it; it returns when the program is ready to live on its event loop. `practice` shows
/// throughout that the records are made up.
void Main(bool practice);
