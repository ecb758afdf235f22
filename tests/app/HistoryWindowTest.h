#pragma once

#include "history/HistoryStore.h"
#include "history/frmHistory.h"
#include "searchentry/EntryDesk.h"
#include "support/WindowUser.h"

#include <QAction>
#include <QPointer>
#include <QTableView>

/// A test of the window of the history, with a history of its own.
class HistoryWindowTest : public EntryTest
{
    Q_OBJECT
protected Q_SLOTS:
    void init() override;
    void cleanup();

protected:
    /// Opens the window, when all that was asked for is in the history.
    void open();
    void written();
    QTableView *table() const { return Child<QTableView>(window, "tblHistory"); }
    QString cell(int row, int column) const
    {
        return table()->model()->index(row, column).data().toString();
    }
    QStringList column(int number) const;
    static HistoryStore &store() { return HistoryStore::Of(); }
    static QAction *action(const QWidget *of, const char *name) { return Child<QAction>(of, name); }

    /// A search in King county for this name.
    static SearchEntry smithInKing(const QString &name);
    /// Something that was asked for, and waits; its id.
    static qint64 askFor(const QString &name);
    static qint64 askForCase(const QString &number, const QByteArray &origin = {});

    QPointer<frmHistory> window;
};
