#pragma once

#include <QWidget>

class QPushButton;

/// A line in the window of a job whose run ended without a link: says so, and offers to connect.
class LostLinkLine : public QWidget
{
    Q_OBJECT
public:
    /// Stands at the end of `window`, out of sight.
    explicit LostLinkLine(QWidget *window);

    /// Comes into sight when there is no link now.
    void ShowIfLost();
    /// Goes out of sight. If it has the keyboard, `home` gets it.
    void Settle(QWidget *home);

private:
    QPushButton *connectButton;
};
