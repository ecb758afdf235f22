#pragma once

#include <QByteArrayView>
#include <QString>
#include <QStringList>

namespace Practice {
/// What a client asks, taken apart: "WASUP¦SEARCH¦SMITH¦...¦" has the keyword "WASUP" and the
/// fields "SEARCH", "SMITH" and so on.
struct Request
{
    QChar delimiter; ///< "¦", "~" or "@"; null when the text ends in none of them
    QString keyword;
    QStringList fields;     ///< what follows the keyword
    bool tagged = false;    ///< carried an accounting tag
    QString accountingCode; ///< what stood in it
};

/// The field delimiter of all requests but those of the index and the bankruptcy courts.
inline constexpr QChar brokenBar(u'\u00A6');
inline constexpr QChar tilde(u'~');

/// The delimiter of requests for the cases of Oregon.
inline constexpr QChar atSign(u'@');

/// Takes the text between the bars apart. The last character is the delimiter; the accounting tag
/// "^^CAC:code^^", which may stand directly before it, is taken out.
Request ParseRequest(QByteArrayView text);

/// Takes the running reply to its end: "STOP¦" or "BKRPT~STOP~", and of a case "¦STOP".
bool IsStop(const Request &request);

/// The answer to a ping: "IMALIVE¦".
bool IsAlive(const Request &request);
} // namespace Practice
