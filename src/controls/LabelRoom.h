#pragma once

class QLabel;

/// Has a label whose text comes from elsewhere keep to the room that it is given: a word without
/// end is cut at its edge, where it would otherwise make the window as wide as itself.
void NeverWiden(QLabel *label);

/// The same, and the label is never higher than so many lines.
void NeverWiden(QLabel *label, int mostLines);
