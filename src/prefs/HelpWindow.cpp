#include "prefs/HelpWindow.h"

#include "controls/ScreenFit.h"
#include "session/frmMain.h"

#include <QPushButton>
#include <QScrollBar>
#include <QTextBlock>
#include <QTextEdit>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {
constexpr QStringView headingMark = u"= ";
constexpr QStringView pointMark = u"\u2022 ";
constexpr qreal paragraphGap = 6;
constexpr qreal headingGap = 8;
} // namespace

HelpWindow::HelpWindow(const HelpWindowLook &look, QWidget *parent)
    : QDialog(parent), textBox(new QTextEdit(this)), rows(new QVBoxLayout(this))
{
    setObjectName(look.name);
    setWindowTitle(look.caption.toString());
    setAttribute(Qt::WA_DeleteOnClose);
    setSizeGripEnabled(true);
    textBox->setObjectName(look.text);
    textBox->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    textBox->setTabChangesFocus(true);
    textBox->setAccessibleName(u"Help text"_s);
    rows->addWidget(textBox);
    if (!look.close.isEmpty()) {
        closeButton = new QPushButton(u"&Close"_s, this);
        closeButton->setObjectName(look.close);
        closeButton->setDefault(true);
        connect(closeButton, &QPushButton::clicked, this, &QDialog::close);
        rows->addWidget(closeButton, 0, Qt::AlignRight);
    }
    FitOnScreen(this, look.wanted);
}

void HelpWindow::ShowHelpText(QStringView heading, QStringView text)
{
    QTextCursor cursor(textBox->document());
    cursor.select(QTextCursor::Document);
    cursor.removeSelectedText();
    // Lines of a point stand below its first word.
    const qreal indent = QFontMetricsF(textBox->font()).horizontalAdvance(pointMark.toString());
    QTextCharFormat plain;
    QTextCharFormat bold;
    bold.setFontWeight(QFont::Bold);
    const auto addLine = [&](QStringView line, const QTextCharFormat &look) {
        QTextBlockFormat paragraph;
        paragraph.setBottomMargin(paragraphGap);
        if (line.startsWith(pointMark)) {
            paragraph.setLeftMargin(indent);
            paragraph.setTextIndent(-indent);
        }
        if (look.fontWeight() == QFont::Bold && !textBox->document()->isEmpty())
            paragraph.setTopMargin(headingGap);
        if (textBox->document()->isEmpty())
            cursor.setBlockFormat(paragraph);
        else
            cursor.insertBlock(paragraph);
        cursor.insertText(line.toString(), look);
    };
    if (!heading.isEmpty())
        addLine(heading, bold);
    for (const QStringView line : text.split(u'\n', Qt::SkipEmptyParts)) {
        if (line.startsWith(headingMark))
            addLine(line.sliced(headingMark.size()), bold);
        else
            addLine(line, plain);
    }
    cursor.movePosition(QTextCursor::Start);
    textBox->setTextCursor(cursor);
    textBox->verticalScrollBar()->setValue(0);
}

void HelpWindow::showEvent(QShowEvent *event)
{
    QDialog::showEvent(event);
    if (closeButton)
        closeButton->setFocus();
}

QWidget *HelpWindowParent()
{
    return frmMain::Form();
}
