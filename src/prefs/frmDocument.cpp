#include "prefs/frmDocument.h"

#include "session/frmMain.h"

#include <QTextEdit>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {
constexpr QSize designedSize(480, 320);
int documentCount = 0;
} // namespace

frmDocument::frmDocument(int number)
{
    setObjectName(u"frmDocument"_s);
    setWindowTitle(u"Document "_s + QString::number(number));
    resize(designedSize);
    auto *rtfText = new QTextEdit(this);
    rtfText->setObjectName(u"rtfText"_s);
    rtfText->setAccessibleName(u"Text"_s);
    auto *fills = new QVBoxLayout(this);
    fills->setContentsMargins({});
    fills->addWidget(rtfText);
    setFocusProxy(rtfText);
}

void frmDocument::ShowNew()
{
    frmMain *main = frmMain::Form();
    if (main)
        main->ShowChild(new frmDocument(++documentCount));
}
