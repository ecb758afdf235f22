#pragma once

#include "controls/WindowPlace.h"

#include <QDialog>
#include <QPointer>

class QPushButton;
class QTextEdit;
class QVBoxLayout;

/// How one help window differs from another.
struct HelpWindowLook
{
    QStringView name; ///< of the window
    QStringView caption;
    QStringView text;  ///< name of the box that shows the text
    QStringView close; ///< name of the one button; none: the window closes by its title bar
    QSize wanted;      ///< the size on a screen that is large enough
};

/// Fixed text on a form with one close button. The windows of this kind differ in their texts, so
/// they are made here and not each in a file of its own.
class HelpWindow : public QDialog
{
    Q_OBJECT
protected:
    HelpWindow(const HelpWindowLook &look, QWidget *parent);

    QTextEdit *TextBox() const { return textBox; }
    QVBoxLayout *Rows() const { return rows; }

    /// Shows a text in place of the one before, from its beginning. The heading may be empty.
    void ShowHelpText(QStringView heading, QStringView text);

    void showEvent(QShowEvent *event) override;

private:
    QTextEdit *textBox;
    QVBoxLayout *rows;
    QPushButton *closeButton = nullptr;
};

/// The parent of help windows: they stay above the main window and end with it.
QWidget *HelpWindowParent();

/// Shows the one window of a kind, in front, made now if there is none. It is gone when it closes.
template<typename Window>
Window *ShowOnlyWindow()
{
    static QPointer<Window> only;
    if (!only)
        only = new Window(HelpWindowParent());
    BringToFront(only);
    return only;
}
