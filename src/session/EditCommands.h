#pragma once

#include <QObject>
#include <QPointer>

class QWidget;

/// Cut, copy and paste in whatever field has the keyboard, and which of them can do something now.
/// What a password box holds is not copied, nor cut, since it could not be got back; what may only
/// be read is not changed.
class EditCommands : public QObject
{
    Q_OBJECT
public:
    explicit EditCommands(QObject *parent);

    bool CanCut() const { return canCut; }
    bool CanCopy() const { return canCopy; }
    bool CanPaste() const { return canPaste; }

public Q_SLOTS:
    void Cut();
    void Copy();
    void Paste();

Q_SIGNALS:
    /// Something else can be done now.
    void Changed();

private:
    void follow(QWidget *focus);
    void look();

    QPointer<QWidget> followed; ///< the field that has the keyboard
    bool canCut = false;
    bool canCopy = false;
    bool canPaste = false;
};
