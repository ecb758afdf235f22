#pragma once

#include <QStringView>

#include <array>
#include <optional>

namespace Practice {
/// A Washington county. Its number is its place in the alphabet, from 1 to 39, and goes into the
/// check digit of every Superior Court case number; its weight is about how many thousand people
/// live there, so that King has many cases and Garfield has few.
struct County
{
    const char16_t *name;
    int weight;
};

inline constexpr std::array<County, 39> counties{{
    {u"Adams", 20},    {u"Asotin", 22},       {u"Benton", 207},    {u"Chelan", 79},
    {u"Clallam", 77},  {u"Clark", 503},       {u"Columbia", 4},    {u"Cowlitz", 110},
    {u"Douglas", 43},  {u"Ferry", 7},         {u"Franklin", 97},   {u"Garfield", 2},
    {u"Grant", 99},    {u"Grays Harbor", 75}, {u"Island", 87},     {u"Jefferson", 33},
    {u"King", 2270},   {u"Kitsap", 276},      {u"Kittitas", 47},   {u"Klickitat", 23},
    {u"Lewis", 82},    {u"Lincoln", 11},      {u"Mason", 66},      {u"Okanogan", 42},
    {u"Pacific", 23},  {u"Pend Oreille", 13}, {u"Pierce", 921},    {u"San Juan", 18},
    {u"Skagit", 129},  {u"Skamania", 12},     {u"Snohomish", 828}, {u"Spokane", 539},
    {u"Stevens", 46},  {u"Thurston", 295},    {u"Wahkiakum", 4},   {u"Walla Walla", 62},
    {u"Whatcom", 227}, {u"Whitman", 48},      {u"Yakima", 257},
}};

/// The name of county `number` (1 to 39).
QStringView CountyName(int number);

/// The number of the county of that name, whatever its case; nullopt when there is none.
std::optional<int> CountyNumber(QStringView name);
} // namespace Practice
