#include "support/ObjectCount.h"

#include <QCoreApplication>
#include <QDir>
#include <QEvent>
#include <QMutex>
#include <QSet>
#include <QTimer>

#include <algorithm>

#include <malloc.h>

// What Qt calls for each object that comes and goes, for the sake of debuggers; declared in its
// private headers, and the same through all of Qt 5 and 6.
extern Q_CORE_EXPORT quintptr qtHookData[];

namespace {
constexpr int addHook = 3;
constexpr int removeHook = 4;

using Hook = void (*)(QObject *);

QMutex mutex;

QSet<QObject *> &living()
{
    static QSet<QObject *> objects;
    return objects;
}

void added(QObject *object)
{
    const QMutexLocker lock(&mutex);
    living().insert(object);
}

void removed(QObject *object)
{
    const QMutexLocker lock(&mutex);
    living().remove(object);
}

bool isEventLoop(const QObject *object)
{
    return object->inherits("QAbstractEventDispatcher");
}

quintptr addressOf(Hook hook)
{
    return reinterpret_cast<quintptr>(hook);
}
} // namespace

ObjectCount::ObjectCount()
{
    living().clear();
    qtHookData[addHook] = addressOf(added);
    qtHookData[removeHook] = addressOf(removed);
}

ObjectCount::~ObjectCount()
{
    qtHookData[addHook] = 0;
    qtHookData[removeHook] = 0;
}

ObjectCount::Holdings ObjectCount::Now()
{
    Holdings now = Objects();
    now.files = static_cast<int>(
        QDir(QStringLiteral("/proc/self/fd")).entryList(QDir::Files | QDir::System).size());
    // Threads that Qt keeps for a while have an event loop, which is woken by a descriptor.
    const QMutexLocker lock(&mutex);
    now.files -= static_cast<int>(std::count_if(living().cbegin(), living().cend(), isEventLoop));
    return now;
}

ObjectCount::Holdings ObjectCount::Objects()
{
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QCoreApplication::processEvents();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    Holdings now;
    const QMutexLocker lock(&mutex);
    for (QObject *object : std::as_const(living())) {
        // The gestures of a scroll area outlive it: Qt uses them again for the next.
        now.objects += object->inherits("QGesture") || isEventLoop(object) ? 0 : 1;
        now.timers += qobject_cast<QTimer *>(object) ? 1 : 0;
    }
    return now;
}

QMap<QByteArray, int> ObjectCount::Classes()
{
    QMap<QByteArray, int> counts;
    const QMutexLocker lock(&mutex);
    for (const QObject *object : std::as_const(living()))
        ++counts[object->metaObject()->className()];
    return counts;
}

long long ObjectCount::HeapBytes()
{
    const struct mallinfo2 info = mallinfo2();
    return static_cast<long long>(info.uordblks) + static_cast<long long>(info.hblkhd);
}
