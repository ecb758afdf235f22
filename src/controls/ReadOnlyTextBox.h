#pragma once

#include <QLineEdit>

/// A text that can be read, scrolled, selected and copied, and that says so when someone types into
/// it.
class ReadOnlyTextBox : public QLineEdit
{
    Q_OBJECT
public:
    explicit ReadOnlyTextBox(QWidget *parent = nullptr);

Q_SIGNALS:
    /// A key was pressed that would have changed the text.
    void EditRefused();

protected:
    void keyPressEvent(QKeyEvent *event) override;
};
