#pragma once

/// Connects the signals of the lower layers to the windows that answer them. The only place where
/// windows are wired to each other.
void WireWindows();

/// The order of the start, from the first window to the search form. Boxes and the connect question
/// run inside it; it returns when the program is ready to live on its event loop. `practice` shows
/// throughout that the records are made up.
void Main(bool practice);
