#include "practice/SpecialNames.h"

namespace Practice {
namespace {
template<typename Row, std::size_t count>
const Row *findName(const std::array<Row, count> &rows, QStringView name)
{
    for (const Row &row : rows) {
        if (name.compare(QStringView(row.name), Qt::CaseInsensitive) == 0)
            return &row;
    }
    return nullptr;
}
} // namespace

const SpecialName *FindSpecialName(QStringView surname)
{
    return findName(specialNames, surname.trimmed());
}

UserKind KindOfUser(QStringView name, QStringView password)
{
    const QStringView user = name.trimmed();
    const QStringView secret = password.trimmed();
    if (user.isEmpty() || secret.isEmpty())
        return UserKind::Refused;
    if (secret.compare(QStringView(wrongPassword), Qt::CaseInsensitive) == 0)
        return UserKind::Refused;
    const SpecialUser *special = findName(specialUsers, user);
    return special == nullptr ? UserKind::Ordinary : special->kind;
}
} // namespace Practice
