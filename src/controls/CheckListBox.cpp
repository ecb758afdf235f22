#include "controls/CheckListBox.h"

#include <QMouseEvent>

CheckListBox::CheckListBox(QWidget *parent) : QListWidget(parent)
{
    setUniformItemSizes(true);
    setSpacing(1);
    // Ticks are the selection; a second, coloured one beside them would only confuse.
    setSelectionMode(NoSelection);
}

void CheckListBox::SetItems(const QStringList &texts)
{
    clear();
    addItems(texts);
    SelectAll(false);
    if (count() > 0)
        setCurrentRow(0);
}

QStringList CheckListBox::Selected() const
{
    QStringList texts;
    for (int i = 0; i < count(); ++i) {
        if (item(i)->checkState() == Qt::Checked)
            texts.append(item(i)->text());
    }
    return texts;
}

void CheckListBox::SetSelected(int row, bool selected)
{
    if (row >= 0 && row < count())
        item(row)->setCheckState(selected ? Qt::Checked : Qt::Unchecked);
}

void CheckListBox::SelectAll(bool selected)
{
    for (int i = 0; i < count(); ++i)
        SetSelected(i, selected);
}

void CheckListBox::mousePressEvent(QMouseEvent *event)
{
    QListWidgetItem *pressed = itemAt(event->pos());
    if (!pressed || event->button() != Qt::LeftButton) {
        QListWidget::mousePressEvent(event);
        return;
    }
    // Handled whole here: the view would tick only by a press on the little box itself.
    setFocus(Qt::MouseFocusReason);
    setCurrentItem(pressed);
    SetSelected(row(pressed), pressed->checkState() != Qt::Checked);
}

void CheckListBox::mouseReleaseEvent(QMouseEvent *event)
{
    event->accept();
}

void CheckListBox::mouseDoubleClickEvent(QMouseEvent *event)
{
    mousePressEvent(event);
}
