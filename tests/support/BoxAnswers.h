#pragma once

#include "controls/MsgBox.h"

#include <QHash>
#include <QList>
#include <QObject>
#include <QString>
#include <QStringList>
#include <QTimer>

#include <functional>

class QDialog;
class QMessageBox;

/// Answers message boxes and modal dialogs while a test runs. Each one must have been announced;
/// one that nobody expected is a complaint, and is closed by its way of escape so that the test
/// comes to its end.
class BoxAnswers : public QObject
{
    Q_OBJECT
public:
    BoxAnswers();
    ~BoxAnswers() override;

    /// The next box has exactly this text and title; answer it so. It has the buttons that the
    /// answer belongs to (OK stands alone), and the icon that goes with them: information, or the
    /// question mark for Yes and No.
    void Expect(const QString &text, const QString &title, MsgAnswer answer = MsgAnswer::Ok);
    /// The same for a box with another icon.
    void Expect(const QString &text, const QString &title, MsgIcon icon,
                MsgAnswer answer = MsgAnswer::Ok);
    /// The same for a box whose buttons the answer does not tell either.
    void Expect(const QString &text, const QString &title, MsgIcon icon, MsgAnswer answer,
                MsgButtons buttons);

    /// The next box is a question with this text and title whose answers have captions of their
    /// own, beside Cancel; press the one with this caption, "&" left out.
    void ExpectChoice(const QString &text, const QString &title, const QString &caption);

    /// The next modal dialog has this object name ("MsgBox" for a box, whatever it reads); do this
    /// with it (it must be closed by it).
    void ExpectDialog(const QString &objectName, std::function<void(QDialog *)> act);

    /// Modal dialogs of this object name ("MsgBox" for a box) may come at any time, any number of
    /// times; do this with them. What is announced goes first.
    void Whenever(const QString &objectName, const std::function<void(QDialog *)> &act);

    /// Something to do while the next announced box is open, before it is answered.
    void Meanwhile(std::function<void()> act);

    /// "" when every announced box came and no other did.
    QString Complaints() const;
    int Answered() const { return answered; }

private:
    struct Announced
    {
        QString name;
        QString text;
        QString title;
        MsgAnswer answer = MsgAnswer::Ok;
        MsgIcon icon = MsgIcon::Information;
        MsgButtons buttons = MsgButtons::Ok;
        QString caption; ///< of the button to be pressed, where the answer does not tell it
        std::function<void(QDialog *)> act;
        std::function<void()> meanwhile;
    };

    void look();
    void answerBox(QDialog *dialog);
    void compare(const QMessageBox *box, const Announced &one);

    QList<Announced> announced;
    QHash<QString, std::function<void(QDialog *)>> standing;
    QStringList complaints;
    std::function<void()> pendingMeanwhile;
    QTimer timer;
    int answered = 0;
    bool looking = false;
};
