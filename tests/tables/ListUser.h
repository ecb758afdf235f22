#pragma once

#include "tables/ResultListView.h"
#include "tables/TableTools.h"

#include <QApplication>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QTest>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

/// A window with a list and a button, and a user at it.
class ListUser
{
public:
    ListUser()
    {
        auto *column = new QVBoxLayout(&Window);
        List = new ResultListView(&Window);
        Other = new QLineEdit(&Window);
        column->addWidget(List);
        column->addWidget(Other);
        Window.resize(700, 400);
        Window.setWindowTitle(u"SMITH, JOHN in King County"_s);
        List->SetColumns({{u"Name"_s, 3000}, {u"Case Number"_s, 1500}, {u"Secret"_s, 30}});
    }

    void Show()
    {
        Window.show();
        QVERIFY(QTest::qWaitForWindowActive(&Window));
    }

    /// Rows of these names, numbered from 1 on.
    void Fill(const QStringList &names)
    {
        for (const QString &name : names)
            List->List()->AddRow({name, u"02-2-"_s + QString::number(++numbered), u"SECRET"_s});
        List->List()->Flush();
    }

    void Click(int row, Qt::KeyboardModifiers keys = {}, Qt::MouseButton button = Qt::LeftButton)
    {
        QTest::mouseClick(List->viewport(), button, keys, Place(row));
    }
    QPoint Place(int row) const { return List->visualRect(List->List()->index(row, 0)).center(); }

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

    /// The names in the rows that can be seen.
    QStringList Names() const
    {
        QStringList names;
        for (int row = 0; row < List->List()->rowCount(); ++row) {
            if (!List->isRowHidden(row))
                names.append(List->List()->Cell(row, 0));
        }
        return names;
    }

    QWidget Window;
    ResultListView *List;
    QLineEdit *Other;

private:
    int numbered = 0;
};
