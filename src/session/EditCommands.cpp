#include "session/EditCommands.h"

#include <QApplication>
#include <QClipboard>
#include <QLineEdit>
#include <QMimeData>
#include <QPlainTextEdit>
#include <QTextDocumentFragment>

namespace {
/// The text that is selected in the field and may be taken from it.
QString selectedIn(QWidget *field)
{
    if (const auto *line = qobject_cast<const QLineEdit *>(field))
        return line->echoMode() == QLineEdit::Normal ? line->selectedText() : QString();
    if (const auto *text = qobject_cast<const QPlainTextEdit *>(field))
        return text->textCursor().selection().toPlainText();
    return {};
}

bool isWritable(QWidget *field)
{
    if (const auto *line = qobject_cast<const QLineEdit *>(field))
        return line->isEnabled() && !line->isReadOnly();
    if (const auto *text = qobject_cast<const QPlainTextEdit *>(field))
        return text->isEnabled() && !text->isReadOnly();
    return false;
}

bool clipboardHasText()
{
    const QMimeData *data = QApplication::clipboard()->mimeData();
    return data && data->hasText();
}
} // namespace

EditCommands::EditCommands(QObject *parent) : QObject(parent)
{
    connect(qApp, &QApplication::focusChanged, this,
            [this](QWidget * /*before*/, QWidget *now) { follow(now); });
    connect(QApplication::clipboard(), &QClipboard::dataChanged, this, &EditCommands::look);
    follow(QApplication::focusWidget());
}

void EditCommands::follow(QWidget *focus)
{
    if (followed)
        followed->disconnect(this);
    followed = focus;
    if (const auto *line = qobject_cast<const QLineEdit *>(focus))
        connect(line, &QLineEdit::selectionChanged, this, &EditCommands::look);
    else if (const auto *text = qobject_cast<const QPlainTextEdit *>(focus))
        connect(text, &QPlainTextEdit::selectionChanged, this, &EditCommands::look);
    look();
}

void EditCommands::look()
{
    const bool writable = isWritable(followed);
    canCopy = !selectedIn(followed).isEmpty();
    canCut = canCopy && writable;
    canPaste = writable && clipboardHasText();
    Q_EMIT Changed();
}

void EditCommands::Cut()
{
    QWidget *field = QApplication::focusWidget();
    const bool taken = !selectedIn(field).isEmpty() && isWritable(field);
    Copy();
    if (!taken)
        return;
    if (auto *line = qobject_cast<QLineEdit *>(field))
        line->insert(QString());
    else if (auto *text = qobject_cast<QPlainTextEdit *>(field))
        text->insertPlainText(QString());
}

void EditCommands::Copy()
{
    const QString selected = selectedIn(QApplication::focusWidget());
    if (!selected.isEmpty())
        QApplication::clipboard()->setText(selected);
}

void EditCommands::Paste()
{
    QWidget *field = QApplication::focusWidget();
    if (!isWritable(field))
        return;
    if (auto *line = qobject_cast<QLineEdit *>(field))
        line->paste();
    else if (auto *text = qobject_cast<QPlainTextEdit *>(field))
        text->paste();
}
