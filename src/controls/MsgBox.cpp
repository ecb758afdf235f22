#include "controls/MsgBox.h"

#include "controls/FormWindow.h"
#include "controls/ModalDialog.h"

#include <QApplication>
#include <QMessageBox>
#include <QPointer>
#include <QPushButton>

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

/// A question that stands open, and what it is about.
struct OpenQuestion
{
    QPointer<QDialog> box;
    const QObject *matter;
};

QList<OpenQuestion> &openQuestions()
{
    static QList<OpenQuestion> open;
    return open;
}

bool isGone(const QWidget *window)
{
    const auto *form = qobject_cast<const FormWindow *>(window);
    return form && form->IsUnloaded();
}

/// A message about a window that has gone is shown all the same.
QWidget *parentFor(QWidget *window)
{
    return window && !isGone(window) ? window : QApplication::activeWindow();
}

void fill(QMessageBox *box, const QString &text, const QString &title, MsgIcon icon)
{
    QString shown = text;
    shown.replace(u"\r\n"_s, u"\n"_s);
    box->setObjectName(u"MsgBox"_s);
    box->setTextFormat(Qt::PlainText);
    box->setText(shown);
    box->setWindowTitle(title.isEmpty() ? u"Halvane"_s : title);
    box->setIcon(iconOf(icon));
}

MsgAnswer answerOf(QMessageBox::StandardButton button)
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
                 MsgIcon icon, const QObject *matter)
{
    const ButtonSet set = buttonSet(buttons);
    if (isGone(parent) && buttons != MsgButtons::Ok)
        return answerOf(set.escape);
    ModalDialog<QMessageBox> box(parentFor(parent));
    fill(&*box, text, title, icon);
    box->setStandardButtons(set.buttons);
    box->setEscapeButton(set.escape);
    if (matter)
        openQuestions().append({QPointer<QDialog>(&*box), matter});
    box.Run();
    if (box.IsGone())
        return answerOf(set.escape);
    // Rejected from outside, no button was pressed.
    QAbstractButton *pressed = box->clickedButton();
    return answerOf(pressed ? box->standardButton(pressed) : set.escape);
}

bool MsgBoxOffering(QWidget *parent, const QString &text, const QString &title, MsgIcon icon,
                    const QString &offer)
{
    ModalDialog<QMessageBox> box(parentFor(parent));
    fill(&*box, text, title, icon);
    box->setStandardButtons(QMessageBox::Ok);
    box->setDefaultButton(QMessageBox::Ok);
    box->setEscapeButton(QMessageBox::Ok);
    const QPushButton *offered = box->addButton(offer, QMessageBox::ActionRole);
    box.Run();
    return !box.IsGone() && box->clickedButton() == offered;
}

int MsgBoxChoice(QWidget *parent, const QString &text, const QString &title, MsgIcon icon,
                 const QStringList &answers)
{
    if (isGone(parent))
        return -1;
    ModalDialog<QMessageBox> box(parentFor(parent));
    fill(&*box, text, title, icon);
    QList<QAbstractButton *> buttons;
    for (const QString &answer : answers)
        buttons.append(box->addButton(answer, QMessageBox::ActionRole));
    box->setStandardButtons(QMessageBox::Cancel);
    box->setEscapeButton(QMessageBox::Cancel);
    box->setDefaultButton(qobject_cast<QPushButton *>(buttons.value(0)));
    box.Run();
    return box.IsGone() ? -1 : static_cast<int>(buttons.indexOf(box->clickedButton()));
}

void SettleQuestions(const QObject *matter)
{
    openQuestions().removeIf([](const OpenQuestion &one) { return one.box.isNull(); });
    const QList<OpenQuestion> open = openQuestions();
    for (const OpenQuestion &one : open) {
        if (one.matter == matter && one.box)
            one.box->reject();
    }
}
