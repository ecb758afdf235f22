#pragma once

#include <QWidget>

/// Why a window is being unloaded, by the numbers that the log shows.
enum class UnloadMode : int {
    ControlMenu = 0, ///< the user closed it
    Code = 1,
    SessionEnd = 2,
    TaskManager = 3,
    MdiParent = 4, ///< the main window is being unloaded
};

/// A window that is loaded and unloaded by rules: it may refuse to close, and it is never deleted
/// while one of its own procedures is on the stack.
///
/// Procedures that wait for the server yield to the event loop, and inside that yield the user may
/// close the very window whose procedure is waiting. Such a procedure opens a RunScope; a window
/// that is unloaded meanwhile disappears at once and is deleted when the last scope ends.
class FormWindow : public QWidget
{
    Q_OBJECT
public:
    explicit FormWindow(QWidget *parent = nullptr, Qt::WindowFlags flags = {});

    /// Asks QueryUnload and, if it allows, takes the window away for good. False when refused.
    bool Unload(UnloadMode mode = UnloadMode::Code);

    /// True from the moment the window is gone for the user.
    bool IsUnloaded() const { return unloaded; }

    /// Whether there is a report of what the window shows. The main window's menus reach that of
    /// any child by the two that follow; a window without one does nothing in them.
    virtual bool HasReport() const { return false; }
    /// Makes the report and shows it as it will be printed.
    virtual void PrintDirect() {}
    /// Writes the report into the text file of this path.
    virtual void PrintToFile(const QString & /*path*/) {}

    /// The window that a widget is in: one of the screen's, or one inside the main window.
    static QWidget *Around(QWidget *widget);

    class RunScope
    {
    public:
        explicit RunScope(FormWindow *form) : window(form) { ++window->runs; }
        ~RunScope() { window->endRun(); }
        RunScope(const RunScope &) = delete;
        RunScope &operator=(const RunScope &) = delete;

    private:
        FormWindow *window;
    };

Q_SIGNALS:
    /// The window is gone for the user; whoever shows it lets go of it now.
    void Unloaded();

protected:
    /// Whether the window may be unloaded. May ask the user.
    virtual bool QueryUnload(UnloadMode mode);

    /// The last that the window does.
    virtual void Unloading();
    /// The window is gone, and so are all of its procedures: what they needed can be let go.
    virtual void Over() {}

    void closeEvent(QCloseEvent *event) override;
    /// A mnemonic of the window's own buttons goes before a menu with the same letter, which the
    /// platform would call ambiguous and give to neither. Seen before the widget with the focus
    /// sees it, since an entry field would take the letter.
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void endRun();
    void endForGood();

    int runs = 0;
    bool unloaded = false;
};
