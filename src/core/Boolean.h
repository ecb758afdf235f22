#pragma once

#include <QtGlobal>

/// A truth value stored as the settings and the wire know it: a 16-bit integer, 0 or -1.
///
/// Some values come from files and old texts as numbers and are compared with -1 or with "not 0";
/// both readings and the plain C++ one have to agree, so the type carries all three.
class Boolean
{
public:
    constexpr Boolean(bool truth = false) : stored(truth ? -1 : 0) {}

    constexpr operator bool() const { return stored != 0; }

    /// The number as it is stored: -1 for True, 0 for False.
    constexpr qint16 Stored() const { return stored; }

    friend constexpr bool operator==(Boolean left, Boolean right)
    {
        return left.stored == right.stored;
    }
    friend constexpr bool operator==(Boolean left, bool right) { return bool(left) == right; }
    friend constexpr bool operator==(Boolean left, int right) { return left.stored == right; }

private:
    qint16 stored;
};
