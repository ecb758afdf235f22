#pragma once

#include <QObject>
#include <QPointer>
#include <QRect>

class FormWindow;
class QMdiArea;
class QMdiSubWindow;

/// Gives the frame of a child window the size that its contents want, as far as the main window has
/// room for it, until the user moves or sizes the frame.
///
/// The room is not known when a child is shown: the desktop answers later that the main window is
/// maximised now, and the first child is shown before that. Nor is what the child wants, when it
/// shows more of itself afterwards. A frame grows with its child and does not shrink again: what
/// comes and goes would make it restless. One object a frame, which owns it.
class FrameSize : public QObject
{
    Q_OBJECT
public:
    /// `designed` is the size in pixels that the child was designed with: its contents alone would
    /// ask for less.
    FrameSize(QMdiArea *area, QMdiSubWindow *frame, QSize designed);

    /// Gives the size, and moves a frame that stands out over the right or lower edge back in.
    void Give();

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    /// The size of the frame at which nothing of its child is cut or has to scroll.
    QSize wanted() const;
    bool isLeftAlone() const;

    QWidget *const viewport; ///< the room that the area has for its frames
    QMdiSubWindow *const frame;
    const QPointer<QWidget> child;
    QSize asked; ///< what the child has wanted so far
    QRect given; ///< where the frame was put; somewhere else it is where the user wants it
};
