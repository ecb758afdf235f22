#pragma once

#include <QPlainTextEdit>

/// The box that a list of numbers is pasted into. Of a line without end it takes no more than is
/// read of one, since laying out the rest would take the program's time.
class NumberListBox : public QPlainTextEdit
{
    Q_OBJECT
public:
    using QPlainTextEdit::QPlainTextEdit;

protected:
    bool canInsertFromMimeData(const QMimeData *source) const override;
    void insertFromMimeData(const QMimeData *source) override;
};
