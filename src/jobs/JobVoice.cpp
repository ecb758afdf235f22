#include "jobs/JobVoice.h"

#include "controls/Notice.h"
#include "core/Clock.h"

#include <QAbstractItemModel>
#include <QLabel>
#include <QTableView>

using namespace Qt::StringLiterals;

namespace {
constexpr int countMilliseconds = 5000;
constexpr float longJobSeconds = 20.0F;
} // namespace

JobVoice::JobVoice(QWidget *ownWindow, QLabel *status, QTableView *rows)
    : QObject(ownWindow), window(ownWindow), stateLabel(status), countTimer(this)
{
    countTimer.setSingleShot(true);
    countTimer.setInterval(countMilliseconds);
    connect(&countTimer, &QTimer::timeout, this, &JobVoice::SayState);
    if (rows)
        AlsoFills(rows);
    Started();
}

void JobVoice::AlsoFills(QTableView *rows)
{
    tables.append(rows);
    connect(rows->model(), &QAbstractItemModel::rowsInserted, this, [this] {
        if (!countTimer.isActive())
            countTimer.start();
    });
    SayState();
}

void JobVoice::Started()
{
    startedAt = Clock::Current().SecondsOfDay();
    SayState();
}

/// The words become the description of each table, where the focus is while one waits: a change of
/// it is spoken, and it can be asked for. The label itself can be read at any time, even in the
/// moments in which it blinks.
void JobVoice::SayState()
{
    countTimer.stop();
    const QString state = stateLabel->text().simplified();
    stateLabel->setAccessibleName(state);
    for (QTableView *table : tables) {
        const int rows = table->model()->rowCount();
        table->setAccessibleDescription(state + u" - "_s + QString::number(rows)
                                        + (rows == 1 ? u" row"_s : u" rows"_s));
    }
}

void JobVoice::Ended(bool stoppedByUser)
{
    SayState();
    SpeakAlert(stateLabel);
    if (!stoppedByUser && ElapsedSeconds(startedAt) > longJobSeconds && !IsInFront(window))
        ShowDesktopNotice(window, window->windowTitle(), stateLabel->text().simplified());
}
