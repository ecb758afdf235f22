#include "support/BoxAnswers.h"

#include <QApplication>
#include <QDebug>
#include <QMessageBox>
#include <QPointer>
#include <QPushButton>

#include <utility>

using namespace Qt::StringLiterals;

namespace {
QMessageBox::StandardButton buttonOf(MsgAnswer answer)
{
    switch (answer) {
    case MsgAnswer::Cancel:
        return QMessageBox::Cancel;
    case MsgAnswer::Yes:
        return QMessageBox::Yes;
    case MsgAnswer::No:
        return QMessageBox::No;
    case MsgAnswer::Ok:
        break;
    }
    return QMessageBox::Ok;
}

MsgButtons buttonsWith(MsgAnswer answer)
{
    switch (answer) {
    case MsgAnswer::Cancel:
        return MsgButtons::OkCancel;
    case MsgAnswer::Yes:
    case MsgAnswer::No:
        return MsgButtons::YesNo;
    case MsgAnswer::Ok:
        break;
    }
    return MsgButtons::Ok;
}

MsgIcon iconWith(MsgButtons buttons)
{
    return buttons == MsgButtons::YesNo ? MsgIcon::Question : MsgIcon::Information;
}

QMessageBox::Icon shownIcon(MsgIcon icon)
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

/// The button of a box with this caption, null when it has none.
QAbstractButton *buttonWith(const QMessageBox *box, const QString &caption)
{
    const QList<QAbstractButton *> buttons = box->buttons();
    for (QAbstractButton *button : buttons) {
        if (button->text().remove(u'&') == caption)
            return button;
    }
    return nullptr;
}

QMessageBox::StandardButtons shownButtons(MsgButtons buttons)
{
    switch (buttons) {
    case MsgButtons::OkCancel:
        return QMessageBox::Ok | QMessageBox::Cancel;
    case MsgButtons::YesNo:
        return QMessageBox::Yes | QMessageBox::No;
    case MsgButtons::Ok:
        break;
    }
    return QMessageBox::Ok;
}
} // namespace

BoxAnswers::BoxAnswers()
{
    timer.setInterval(1);
    connect(&timer, &QTimer::timeout, this, &BoxAnswers::look);
    timer.start();
}

BoxAnswers::~BoxAnswers() = default;

void BoxAnswers::Expect(const QString &text, const QString &title, MsgAnswer answer)
{
    const MsgButtons buttons = buttonsWith(answer);
    Expect(text, title, iconWith(buttons), answer, buttons);
}

void BoxAnswers::Expect(const QString &text, const QString &title, MsgIcon icon, MsgAnswer answer)
{
    Expect(text, title, icon, answer, buttonsWith(answer));
}

void BoxAnswers::Expect(const QString &text, const QString &title, MsgIcon icon, MsgAnswer answer,
                        MsgButtons buttons)
{
    Announced one;
    one.name = u"MsgBox"_s;
    one.text = QString(text).replace(u"\r\n"_s, u"\n"_s);
    one.title = title;
    one.answer = answer;
    one.icon = icon;
    one.buttons = buttons;
    one.meanwhile = std::exchange(pendingMeanwhile, {});
    announced.append(one);
}

void BoxAnswers::ExpectChoice(const QString &text, const QString &title, const QString &caption)
{
    Expect(text, title, MsgIcon::Question, MsgAnswer::Cancel);
    announced.last().caption = caption;
}

void BoxAnswers::ExpectDialog(const QString &objectName, std::function<void(QDialog *)> act)
{
    Announced one;
    one.name = objectName;
    one.act = std::move(act);
    announced.append(one);
}

void BoxAnswers::Whenever(const QString &objectName, const std::function<void(QDialog *)> &act)
{
    standing.insert(objectName, act);
}

void BoxAnswers::Meanwhile(std::function<void()> act)
{
    pendingMeanwhile = std::move(act);
}

QString BoxAnswers::Complaints() const
{
    QStringList all = complaints;
    for (const Announced &one : announced)
        all.append(u"never shown: "_s + one.name + u' ' + one.text);
    return all.join(u"; "_s);
}

void BoxAnswers::look()
{
    auto *dialog = qobject_cast<QDialog *>(QApplication::activeModalWidget());
    if (!dialog || looking)
        return;
    looking = true;
    answerBox(dialog);
    looking = false;
}

void BoxAnswers::answerBox(QDialog *dialog)
{
    auto *box = qobject_cast<QMessageBox *>(dialog);
    const QString text = box ? box->text() : QString();
    if (announced.isEmpty() || announced.first().name != dialog->objectName()
        || (box && !announced.first().act && announced.first().text != text)) {
        if (const auto act = standing.value(dialog->objectName())) {
            act(dialog);
            return;
        }
        complaints.append(u"unexpected "_s + dialog->objectName() + u": "_s + text);
        dialog->reject();
        return;
    }
    const Announced one = announced.takeFirst();
    ++answered;
    if (one.act) {
        one.act(dialog);
        return;
    }
    compare(box, one);
    const QPointer<QMessageBox> stillOpen(box);
    if (one.meanwhile)
        one.meanwhile();
    if (!stillOpen)
        return;
    QAbstractButton *button =
        one.caption.isEmpty() ? box->button(buttonOf(one.answer)) : buttonWith(box, one.caption);
    if (button) {
        button->click();
    } else {
        complaints.append(u"no such button in: "_s + text);
        dialog->reject();
    }
}

void BoxAnswers::compare(const QMessageBox *box, const Announced &one)
{
    const auto same = [&](const QString &what, const auto &shown, const auto &expected) {
        if (shown != expected)
            complaints.append(what + u' ' + QDebug::toString(shown) + u" instead of "_s
                              + QDebug::toString(expected) + u" in: "_s + one.text);
    };
    same(u"title"_s, box->windowTitle(), one.title);
    same(u"icon"_s, box->icon(), shownIcon(one.icon));
    if (one.caption.isEmpty())
        same(u"buttons"_s, box->standardButtons(), shownButtons(one.buttons));
    else
        same(u"buttons"_s, box->standardButtons(),
             QMessageBox::StandardButtons(QMessageBox::Cancel));
}
