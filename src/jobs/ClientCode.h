#pragma once

#include <QString>

/// The tag by which a request line carries a client accounting code: "^^CAC:", the trimmed code,
/// "^^". An empty code gives the tag with nothing in it.
QString FormatClientCode(const QString &code);

/// The trimmed line with the tag in front of its last character, which is its closing delimiter. A
/// line of only blanks comes back as it is.
QString EmbedClientCode(const QString &line, const QString &code);
