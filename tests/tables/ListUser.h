#pragma once

#include "tables/ResultListView.h"
#include "tables/TableTools.h"
#include "tables/TableUser.h"

#include <QApplication>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QLabel>
#include <QMenu>

using namespace Qt::StringLiterals;

/// A window with a list and a button, and a user at it.
class ListUser : public TableUser
{
public:
    ListUser()
    {
        Table = List = new ResultListView(&Window);
        Other = new QLineEdit(&Window);
        stack->addWidget(List);
        stack->addWidget(Other);
        Window.resize(700, 400);
        Window.setWindowTitle(u"SMITH, JOHN in King County"_s);
        List->SetColumns({{u"Name"_s, 3000}, {u"Case Number"_s, 1500}, {u"Secret"_s, 30}});
    }

    /// Rows of these names, numbered from 1 on.
    void Fill(const QStringList &names)
    {
        for (const QString &name : names)
            List->List()->AddRow({name, u"02-2-"_s + QString::number(++numbered), u"SECRET"_s});
        List->List()->Flush();
    }

    void AskForMenu(int row)
    {
        const QPoint place = Place(row);
        QContextMenuEvent event(QContextMenuEvent::Mouse, place,
                                List->viewport()->mapToGlobal(place));
        QCoreApplication::sendEvent(List->viewport(), &event);
    }
    QMenu *Menu() const { return List->findChild<QMenu *>(u"mnuList"_s); }
    QAction *Item(const QString &name) const { return List->findChild<QAction *>(name); }

    /// Opens find and types into it.
    void Find(const QString &text)
    {
        QTest::keySequence(QApplication::focusWidget(), QKeySequence::Find);
        QTest::keyClicks(Window.focusWidget(), text);
    }
    QWidget *Bar() const { return Window.findChild<QWidget *>(u"FindBar"_s); }
    QLineEdit *Field() const { return Window.findChild<QLineEdit *>(u"txtFind"_s); }
    QString Count() const { return Window.findChild<QLabel *>(u"lblFindCount"_s)->text(); }

    ResultListView *List;
    QLineEdit *Other;

private:
    int numbered = 0;
};
