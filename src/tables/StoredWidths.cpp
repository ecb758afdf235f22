#include "tables/StoredWidths.h"

#include <QStringList>
#include <QUrl>

namespace {
constexpr int leastTwips = 30;
constexpr int mostTwips = 60'000;
} // namespace

QString WidthsText(const StoredWidths &widths)
{
    QStringList parts;
    for (auto one = widths.begin(); one != widths.end(); ++one)
        parts.append(QString::fromLatin1(QUrl::toPercentEncoding(one.key())) + u'='
                     + QString::number(one.value()));
    return parts.join(u' ');
}

StoredWidths WidthsOfText(const QString &text)
{
    StoredWidths widths;
    const QStringList parts = text.split(u' ', Qt::SkipEmptyParts);
    for (const QString &part : parts) {
        const qsizetype equals = part.indexOf(u'=');
        if (equals < 0)
            continue;
        bool isNumber = false;
        const int twips = QStringView(part).mid(equals + 1).toInt(&isNumber);
        if (isNumber && twips >= leastTwips && twips <= mostTwips)
            widths.insert(QUrl::fromPercentEncoding(part.left(equals).toLatin1()), twips);
    }
    return widths;
}
