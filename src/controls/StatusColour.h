#pragma once

class QLabel;

/// The two colours in which the windows report: a dark blue while all is well, red for trouble.
enum class StatusColour { Normal, Trouble };

/// Makes a label's text bold and of this colour. The colours are as they have always been where the
/// window is light, and lighter shades of the same where it is dark, also when that changes later.
void SetStatusStyle(QLabel *label, StatusColour colour);
