#pragma once

#include <QByteArray>
#include <QMap>

/// Counts what a program holds on to: objects, timers among them, file descriptors, memory. A test
/// takes a count before and after, and compares. In force for as long as it lives; one at a time.
class ObjectCount
{
public:
    ObjectCount();
    ~ObjectCount();
    ObjectCount(const ObjectCount &) = delete;
    ObjectCount &operator=(const ObjectCount &) = delete;

    struct Holdings
    {
        int objects = 0; ///< those that were made since the count began and are still there
        int timers = 0;
        int files = 0; ///< open file descriptors of the whole process

        bool operator==(const Holdings &) const = default;
    };
    /// After everything that waits to be deleted is.
    static Holdings Now();
    /// The same, but the descriptors are not counted, which takes longer than all the rest.
    static Holdings Objects();
    /// How many of each class they are, for whoever wants to know which were left.
    static QMap<QByteArray, int> Classes();

    /// Bytes in use on the heap; 0 where the allocator does not tell.
    static long long HeapBytes();
};
