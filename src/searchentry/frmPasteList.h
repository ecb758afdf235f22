#pragma once

#include "searchentry/NumberList.h"

#include <QDialog>
#include <QHash>
#include <QTimer>

#include <memory>

namespace Ui {
class frmPasteList;
}

/// Takes a list of case numbers, from the clipboard or typed, and shows what is made of each line.
/// What is ticked is to be asked for.
class frmPasteList : public QDialog
{
    Q_OBJECT
public:
    /// For numbers of these courts; `text` stands in the box at first.
    frmPasteList(const NumberListCourt &place, const QString &text, QWidget *parent = nullptr);
    ~frmPasteList() override;

    /// What has been ticked, in the order of the list.
    QList<ListedNumber> Ticked() const;
    /// Whether each case is to be printed as soon as it is there.
    bool Prints() const;
    /// The text in the box, for the next time.
    QString Text() const;

private:
    void listCounties();
    void paste();
    void readNow();
    void showNumbers();
    void checkChanged(int row);
    void tickAll(bool on);
    void showCount();
    static QString keyOf(const ListedNumber &listed);

    const std::unique_ptr<Ui::frmPasteList> ui;
    NumberListCourt court;
    QList<ListedNumber> numbers;
    QHash<QString, bool> choices; ///< what the user has ticked or not, against the usual
    bool filling = false;
    QTimer readTimer; ///< runs while the user types
};
