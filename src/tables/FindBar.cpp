#include "tables/FindBar.h"

#include "tables/BesideTable.h"
#include "tables/RowFilter.h"

#include <QBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QStyle>
#include <QTableView>
#include <QToolButton>

#include <utility>

using namespace Qt::StringLiterals;

FindBar::FindBar(QTableView *table, RowFilter *rowFilter)
    : QWidget(table), view(table), filter(rowFilter), txtFind(new QLineEdit(this)),
      lblFindCount(new QLabel(this))
{
    setObjectName(u"FindBar"_s);
    setAutoFillBackground(true);
    auto *lblFind = new QLabel(u"Find:"_s, this);
    lblFind->setTextFormat(Qt::PlainText);
    lblFind->setBuddy(txtFind);
    txtFind->setObjectName(u"txtFind"_s);
    txtFind->setAccessibleName(u"Find in the loaded rows"_s);
    txtFind->setPlaceholderText(u"Words in any column"_s);
    txtFind->setClearButtonEnabled(true);
    lblFindCount->setObjectName(u"lblFindCount"_s);
    lblFindCount->setTextFormat(Qt::PlainText);
    auto *cmdCloseFind = new QToolButton(this);
    cmdCloseFind->setObjectName(u"cmdCloseFind"_s);
    cmdCloseFind->setIcon(style()->standardIcon(QStyle::SP_TitleBarCloseButton));
    cmdCloseFind->setAutoRaise(true);
    cmdCloseFind->setToolTip(u"Close and show all rows (Esc)"_s);
    cmdCloseFind->setAccessibleName(u"Close find"_s);
    auto *line = new QHBoxLayout(this);
    line->setContentsMargins(0, 0, 0, 0);
    line->addWidget(lblFind);
    line->addWidget(txtFind, 1);
    line->addWidget(lblFindCount);
    line->addWidget(cmdCloseFind);
    hide();
    connect(txtFind, &QLineEdit::textChanged, filter, &RowFilter::SetText);
    connect(txtFind, &QLineEdit::returnPressed, this, &FindBar::goToTable);
    connect(cmdCloseFind, &QToolButton::clicked, this, &FindBar::Close);
    connect(filter, &RowFilter::Changed, this, &FindBar::showCount);
}

void FindBar::Open()
{
    if (parentWidget() == view) {
        PlaceBesideTable(view, this, TableEdge::Below);
        setTabOrder(view, txtFind);
    }
    show();
    showCount();
    txtFind->setFocus(Qt::ShortcutFocusReason);
    txtFind->selectAll();
}

void FindBar::Close()
{
    const bool hadFocus = isAncestorOf(window()->focusWidget());
    txtFind->clear();
    hide();
    if (hadFocus)
        view->setFocus(Qt::OtherFocusReason);
}

void FindBar::GoWithTable(bool tableShown)
{
    if (!tableShown) {
        withTable = !isHidden();
        hide();
    } else if (std::exchange(withTable, false)) {
        show();
        showCount();
    }
}

void FindBar::goToTable()
{
    view->setFocus(Qt::OtherFocusReason);
    const int first = filter->CurrentRow() >= 0 ? -1 : filter->FirstShown();
    if (first < 0)
        return;
    // The cursor goes to what is selected, and leaves it so.
    const int selected = filter->ChosenRow();
    if (selected >= 0)
        view->selectionModel()->setCurrentIndex(view->model()->index(selected, 0),
                                                QItemSelectionModel::NoUpdate);
    else
        view->setCurrentIndex(view->model()->index(first, 0));
}

void FindBar::keyPressEvent(QKeyEvent *event)
{
    if (event->key() == Qt::Key_Escape)
        Close();
    else if (event->key() == Qt::Key_Down)
        goToTable();
    else
        QWidget::keyPressEvent(event);
}

void FindBar::showCount()
{
    if (isHidden())
        return;
    if (filter->IsLooking()) {
        lblFindCount->setText(u"Looking .."_s);
        return;
    }
    const QString count = QString::number(filter->Shown()) + u" of "_s
                          + QString::number(filter->Loaded()) + u" shown"_s;
    lblFindCount->setText(count);
    // Of the widget with the focus, so that a screen reader says it while the user types.
    txtFind->setAccessibleDescription(count);
}
