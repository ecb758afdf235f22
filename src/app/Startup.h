#pragma once

/// Connects the signals of the lower layers to the windows that answer them. The only place where
/// windows are wired to each other.
void WireWindows();

/// A copy that runs already is asked for a new search: it shows the search form, with all that is
/// entered there. While a question stands, or the login's window, which is followed by the form
/// anyway, nothing moves beneath it.
void ShowSearchFormOnRequest();

/// The order of the start, from the first window to the search form. Boxes and the connect question
/// run inside it; it returns when the program is ready to live on its event loop. `practice` shows
/// throughout that the records are made up.
void Main(bool practice);
