#pragma once

#include <QTimer>
#include <QWidget>

#include <memory>

class NameSearch;
class QPushButton;

namespace Ui {
class CourtStrip;
}

/// The strip below a list of results that tells what each court has answered: one line, and a table
/// below it when the user opens it or something has failed.
class CourtStrip : public QWidget
{
    Q_OBJECT
public:
    explicit CourtStrip(QWidget *parent = nullptr);
    ~CourtStrip() override;

    /// Shows how this search goes, from now on. Its changes are shown at most every 40 ms.
    void Follow(NameSearch *newSearch);
    /// The Tab key comes to the strip from this widget.
    void FollowInTabOrder(QWidget *widget);
    QPushButton *RetryButton() const;
    /// Has a screen reader say how it went.
    void Speak();

Q_SIGNALS:
    void RetryWanted();

protected:
    void resizeEvent(QResizeEvent *event) override;

private:
    void showSoon();
    void showNow();
    void openAtFailure();
    void showLines();
    void showButtons();
    void fitHeight();
    void setOpen(bool open);

    const std::unique_ptr<Ui::CourtStrip> ui;
    NameSearch *search = nullptr;
    QTimer showTimer;
    bool isOpen = false;
    bool usersChoice = false; ///< the user has opened or closed the table
};
