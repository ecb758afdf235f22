#include "controls/LabelRoom.h"

#include <QLabel>

void NeverWiden(QLabel *label)
{
    // Goes before what the label asks for itself, the width of its longest word.
    label->setMinimumWidth(1);
}

void NeverWiden(QLabel *label, int mostLines)
{
    NeverWiden(label);
    label->setMaximumHeight(mostLines * label->fontMetrics().lineSpacing());
}
