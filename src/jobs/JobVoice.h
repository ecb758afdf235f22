#pragma once

#include <QList>
#include <QObject>
#include <QTimer>

class QLabel;
class QTableView;
class QWidget;

/// Tells how a window's job goes to people who do not look at it: a screen reader says its state
/// and the number of rows, and who works in another window is told of the end of a long job.
class JobVoice : public QObject
{
    Q_OBJECT
public:
    /// `status` is the label that shows the state, `rows` the table that the job fills, or null.
    JobVoice(QWidget *ownWindow, QLabel *status, QTableView *rows);

    /// The job fills this table, too: each says the state and the number of its own rows.
    void AlsoFills(QTableView *rows);

    /// The job has been started, or started again: what the user waits for begins here.
    void Started();
    /// The state may read otherwise now.
    void SayState();
    /// The job has come to its end. The desktop shows nobody a notice of what they did themselves.
    void Ended(bool stoppedByUser);

private:
    QWidget *window;
    QLabel *stateLabel;
    QList<QTableView *> tables;
    QTimer countTimer; ///< between two numbers of rows: nobody can listen to forty a second
    float startedAt = 0.0F;
};
