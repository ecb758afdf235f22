#include "searchentry/NumberListBox.h"

#include "searchentry/NumberList.h"

#include <QMimeData>

bool NumberListBox::canInsertFromMimeData(const QMimeData *source) const
{
    return source->hasText();
}

void NumberListBox::insertFromMimeData(const QMimeData *source)
{
    insertPlainText(ReadablePart(source->text()));
}
