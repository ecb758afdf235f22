#pragma once

#include <QCoreApplication>
#include <QEvent>
#include <QTimer>

/// Lets a timer of one millisecond come round so often, and with it every timer of the program that
/// is as fast. What was about to happen has happened then, on a machine that is slow or busy too,
/// where so many milliseconds may pass without a single turn of the event loop.
inline void Ticks(int count)
{
    QTimer timer;
    QObject::connect(&timer, &QTimer::timeout, &timer, [&count] { --count; });
    timer.start(1);
    while (count > 0) {
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
}
