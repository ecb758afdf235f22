#include "prefs/frmHelp.h"

#include "core/AppFolder.h"
#include "core/Log.h"
#include "prefs/RtfText.h"

#include <QAbstractTextDocumentLayout>
#include <QFile>
#include <QLabel>
#include <QScrollBar>
#include <QTextBlock>
#include <QTextEdit>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {
constexpr HelpWindowLook look{u"frmHelp", u"Halvane - Help", u"RTF", u"", QSize(620, 520)};
constexpr QStringView fileName = u"Helpstep2.Rtf";
/// Far more than a page of help, and little enough to read in a moment.
constexpr qint64 mostBytes = 16'000'000;

void fill(QTextEdit *box, const QList<RtfRun> &runs)
{
    // One change of the document: laying it out after each run would be quadratic.
    QTextCursor cursor(box->document());
    cursor.beginEditBlock();
    qsizetype characters = 0;
    for (const RtfRun &run : runs) {
        QTextCharFormat format;
        format.setFontWeight(run.Bold ? QFont::Bold : QFont::Normal);
        format.setFontItalic(run.Italic);
        format.setFontUnderline(run.Underline);
        format.setFontPointSize(run.HalfPoints / 2.0);
        cursor.insertText(run.Text, format);
        characters += run.Text.size();
    }
    if (characters >= mostRtfCharacters)
        cursor.insertText(u"\n(The file is longer than this window shows.)"_s, QTextCharFormat());
    cursor.endEditBlock();
}
} // namespace

frmHelp::frmHelp(QWidget *parent) : HelpWindow(look, parent)
{
    TextBox()->setUndoRedoEnabled(false);
    auto *lblHint = new QLabel(u"Use the 'X' in the Title Bar to Close this window .."_s, this);
    lblHint->setObjectName(u"lblHint"_s);
    lblHint->setTextFormat(Qt::PlainText);
    lblHint->setWordWrap(true);
    Rows()->addWidget(lblHint);
}

void frmHelp::ShowTopic(const QString &topic)
{
    ShowOnlyWindow<frmHelp>()->SetTopic(topic);
}

void frmHelp::SetTopic(const QString &topic)
{
    loadFile();
    QTextDocument *document = TextBox()->document();
    QTextBlock found = document->begin();
    for (QTextBlock block = found; block.isValid() && !topic.isEmpty(); block = block.next()) {
        if (block.text().startsWith(topic, Qt::CaseInsensitive)) {
            found = block;
            break;
        }
    }
    TextBox()->setTextCursor(QTextCursor(found));
    // To the top of the window, not just into it; and the beginning with the margin above it.
    const QRectF place = document->documentLayout()->blockBoundingRect(found);
    TextBox()->verticalScrollBar()->setValue(found == document->begin() ? 0 : qRound(place.top()));
}

void frmHelp::loadFile()
{
    TextBox()->clear();
    QFile file(AppFile(fileName.toString()));
    if (file.open(QIODevice::ReadOnly)) {
        fill(TextBox(), ReadRtf(file.read(mostBytes)));
        return;
    }
    const QString message =
        u"The help file "_s + fileName + u" cannot be read: "_s + file.errorString();
    WriteAppInfo(message);
    fill(TextBox(), {{.Text = message + u'\n' + file.fileName()}});
}
