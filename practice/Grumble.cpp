#include "practice/Grumble.h"

#include <cstdio>

using namespace Qt::StringLiterals;

namespace Practice {
void Grumble(const QString &text)
{
    const QByteArray line = QString(u"halvane-practice: "_s + text + u'\n').toLocal8Bit();
    std::fwrite(line.constData(), 1, static_cast<std::size_t>(line.size()), stderr);
    std::fflush(stderr);
}
} // namespace Practice
