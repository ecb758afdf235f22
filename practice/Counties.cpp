#include "practice/Counties.h"

namespace Practice {
QStringView CountyName(int number)
{
    return counties.at(static_cast<std::size_t>(number - 1)).name;
}

std::optional<int> CountyNumber(QStringView name)
{
    const QStringView wanted = name.trimmed();
    for (std::size_t i = 0; i < counties.size(); ++i) {
        if (wanted.compare(QStringView(counties[i].name), Qt::CaseInsensitive) == 0)
            return static_cast<int>(i) + 1;
    }
    return std::nullopt;
}
} // namespace Practice
