#include "prefs/frmSearchHelp.h"

#include "prefs/HelpTexts.h"

#include <QListWidget>
#include <QSplitter>
#include <QTextEdit>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {
constexpr HelpWindowLook look{u"frmSearchHelp", u"Halvane - Search Help", u"txtHelp", u"Command1",
                              QSize(760, 500)};
constexpr int topicGap = 3;
/// The list takes a third of the window, and wraps what is longer.
constexpr int listShare = 1;
constexpr int textShare = 2;
} // namespace

frmSearchHelp::frmSearchHelp(QWidget *parent)
    : HelpWindow(look, parent), lstTopics(new QListWidget(this))
{
    lstTopics->setObjectName(u"lstTopics"_s);
    lstTopics->setAccessibleName(u"Topics"_s);
    lstTopics->setWordWrap(true);
    lstTopics->setSpacing(topicGap);
    lstTopics->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    for (const HelpText &help : SearchHelpTexts())
        lstTopics->addItem(help.Label.toString());
    auto *sides = new QSplitter(this);
    sides->setChildrenCollapsible(false);
    Rows()->insertWidget(0, sides, 1);
    sides->addWidget(lstTopics);
    sides->addWidget(TextBox());
    sides->setStretchFactor(0, listShare);
    sides->setStretchFactor(1, textShare);
    sides->setSizes({listShare * width(), textShare * width()});
    connect(lstTopics, &QListWidget::currentRowChanged, this, &frmSearchHelp::showText);
    lstTopics->setCurrentRow(0);
    setTabOrder(lstTopics, TextBox());
}

void frmSearchHelp::ShowTopic(int topic)
{
    auto *window = ShowOnlyWindow<frmSearchHelp>();
    const bool known = topic >= 0 && topic < window->lstTopics->count();
    window->lstTopics->setCurrentRow(known ? topic : 0);
}

void frmSearchHelp::showText(int row)
{
    const HelpText &help = SearchHelpTexts()[static_cast<size_t>(row)];
    ShowHelpText(help.Label, help.Text);
}
