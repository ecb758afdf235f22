#include "practice/ToldNames.h"

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

const ToldName *FindToldName(QStringView surname)
{
    return findName(toldNames, surname.trimmed());
}

UserKind KindOfUser(QStringView name, QStringView password)
{
    const QStringView user = name.trimmed();
    const QStringView secret = password.trimmed();
    if (user.isEmpty() || secret.isEmpty())
        return UserKind::Refused;
    if (secret.compare(QStringView(wrongPassword), Qt::CaseInsensitive) == 0)
        return UserKind::Refused;
    const ToldUser *told = findName(toldUsers, user);
    return told == nullptr ? UserKind::Ordinary : told->kind;
}
} // namespace Practice
