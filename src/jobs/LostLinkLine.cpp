#include "jobs/LostLinkLine.h"

#include "core/GlobalState.h"
#include "jobs/Job.h"
#include "link/ConnectState.h"

#include <QBoxLayout>
#include <QLabel>
#include <QPushButton>

using namespace Qt::StringLiterals;

LostLinkLine::LostLinkLine(QWidget *window)
    : QWidget(window), connectButton(new QPushButton(u"Connect .."_s, this))
{
    setObjectName(u"lostLinkLine"_s);
    auto *text = new QLabel(u"There is no connection to the Halvane Server any more."_s, this);
    text->setObjectName(u"lblLostLink"_s);
    text->setTextFormat(Qt::PlainText);
    text->setWordWrap(true);
    connectButton->setObjectName(u"cmdConnect"_s);
    connectButton->setToolTip(u"Log in to the Halvane Server, as Connection > Connect does"_s);
    auto *row = new QHBoxLayout(this);
    row->setContentsMargins(0, 0, 0, 0);
    row->addWidget(text, 1);
    row->addWidget(connectButton);
    hide();
    if (auto *box = qobject_cast<QBoxLayout *>(window->layout()))
        box->addWidget(this);
    connect(connectButton, &QPushButton::clicked, &JobEvents::Of(), &JobEvents::ConnectWanted);
}

void LostLinkLine::ShowIfLost()
{
    if (Global.bConnectionClosed || Global.intConnectState != ConnectDone)
        show();
}

void LostLinkLine::Settle(QWidget *home)
{
    if (connectButton->hasFocus())
        home->setFocus(Qt::OtherFocusReason);
    hide();
}
