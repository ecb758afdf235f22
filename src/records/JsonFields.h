#pragma once

#include <QJsonArray>
#include <QJsonObject>
#include <QString>
#include <QStringList>

#include <variant>

/// A member of a structure and the key under which it is kept.
template<typename Struct>
struct JsonField
{
    QStringView key;
    std::variant<QString Struct::*, bool Struct::*, QStringList Struct::*> member;
};

// The three kinds of members, each to JSON and back; false, and nothing has changed, when the value
// is of another kind.

inline QJsonValue ToJson(const QString &text)
{
    return text;
}

inline QJsonValue ToJson(bool value)
{
    return value;
}

inline QJsonValue ToJson(const QStringList &list)
{
    return QJsonArray::fromStringList(list);
}

inline bool FromJson(const QJsonValue &json, QString &text)
{
    if (json.isString())
        text = json.toString();
    return json.isString();
}

inline bool FromJson(const QJsonValue &json, bool &value)
{
    if (json.isBool())
        value = json.toBool();
    return json.isBool();
}

inline bool FromJson(const QJsonValue &json, QStringList &list)
{
    if (!json.isArray())
        return false;
    QStringList texts;
    const QJsonArray array = json.toArray();
    for (const auto &one : array) {
        if (!one.isString())
            return false;
        texts.append(one.toString());
    }
    list = texts;
    return true;
}

/// Puts the members that differ from `plain` into the object, under their keys.
template<typename Struct, typename Fields>
void WriteFields(QJsonObject &object, const Struct &from, const Struct &plain, const Fields &fields)
{
    for (const JsonField<Struct> &field : fields) {
        const auto write = [&](auto member) {
            if (from.*member != plain.*member)
                object.insert(field.key.toString(), ToJson(from.*member));
        };
        std::visit(write, field.member);
    }
}

/// Takes the members out of the object, in which only what is none of them stays. A member without
/// a value keeps the one that it has. False when a value is of the wrong kind.
template<typename Struct, typename Fields>
bool TakeFields(QJsonObject &object, Struct &to, const Fields &fields)
{
    for (const JsonField<Struct> &field : fields) {
        const QJsonValue value = object.take(field.key.toString());
        const auto read = [&](auto member) { return FromJson(value, to.*member); };
        if (!value.isUndefined() && !std::visit(read, field.member))
            return false;
    }
    return true;
}
