#include "jobs/ClientCode.h"

#include "core/TextUtilities.h"

using namespace Qt::StringLiterals;

QString FormatClientCode(const QString &code)
{
    return u"^^CAC:"_s + TrimBlanks(code) + u"^^"_s;
}

QString EmbedClientCode(const QString &line, const QString &code)
{
    const QString trimmed = TrimBlanks(line);
    if (trimmed.isEmpty())
        return line;
    return trimmed.chopped(1) + FormatClientCode(code) + trimmed.back();
}
