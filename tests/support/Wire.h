#pragma once

#include <QString>

// Request lines are written with "/" in the tests, where the wire has the broken bar.

inline QString Wire(QString line)
{
    return line.replace(u'/', u'\u00A6');
}

/// The other way.
inline QString Readable(QString line)
{
    return line.replace(u'\u00A6', u'/');
}
