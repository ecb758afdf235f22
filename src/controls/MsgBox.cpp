#include "controls/MsgBox.h"

#include <QApplication>
#include <QMessageBox>
#include <QPointer>

using namespace Qt::StringLiterals;

namespace {
struct ButtonSet
{
    QMessageBox::StandardButtons buttons;
    QMessageBox::StandardButton escape;
};

ButtonSet buttonSet(MsgButtons buttons)
{
    switch (buttons) {
    case MsgButtons::OkCancel:
        return {QMessageBox::Ok | QMessageBox::Cancel, QMessageBox::Cancel};
    case MsgButtons::YesNo:
        return {QMessageBox::Yes | QMessageBox::No, QMessageBox::No};
    case MsgButtons::Ok:
        break;
    }
    return {QMessageBox::Ok, QMessageBox::Ok};
}

QMessageBox::Icon iconOf(MsgIcon icon)
{
    switch (icon) {
    case MsgIcon::Information:
        return QMessageBox::Information;
    case MsgIcon::Exclamation:
        return QMessageBox::Warning;
    case MsgIcon::Question:
        return QMessageBox::Question;
    case MsgIcon::Critical:
        return QMessageBox::Critical;
    case MsgIcon::None:
        break;
    }
    return QMessageBox::NoIcon;
}

MsgAnswer answerOf(int button)
{
    switch (button) {
    case QMessageBox::Yes:
        return MsgAnswer::Yes;
    case QMessageBox::No:
        return MsgAnswer::No;
    case QMessageBox::Cancel:
        return MsgAnswer::Cancel;
    default:
        return MsgAnswer::Ok;
    }
}
} // namespace

MsgAnswer MsgBox(QWidget *parent, const QString &text, const QString &title, MsgButtons buttons,
                 MsgIcon icon)
{
    const ButtonSet set = buttonSet(buttons);
    QString shown = text;
    shown.replace(u"\r\n"_s, u"\n"_s);
    // On the heap and watched: its parent may be closed, and deleted, while the box is up.
    const QPointer<QMessageBox> box(
        new QMessageBox(parent ? parent : QApplication::activeWindow()));
    box->setObjectName(u"MsgBox"_s);
    box->setTextFormat(Qt::PlainText);
    box->setText(shown);
    box->setWindowTitle(title.isEmpty() ? u"Halvane"_s : title);
    box->setIcon(iconOf(icon));
    box->setStandardButtons(set.buttons);
    box->setEscapeButton(set.escape);
    const int answer = box->exec();
    if (!box)
        return answerOf(set.escape);
    delete box;
    return answerOf(answer);
}
