#pragma once

#include "practice/Population.h"

namespace Practice {
/// How many people and businesses the court makes up, those of fixed name not counted.
inline constexpr int madeUpPeople = 50'000;

/// People who do not exist, with cases that were never filed. The same seed makes the same people
/// and cases; `today` ends the years, and settles nothing else but the days of the running year.
///
/// Some are there whatever the seed, because the guide and the tests count on them:
/// SMITH, JOHN Q has exactly one Criminal and one Civil case in King.
Population MakePopulation(quint32 seed, QDate today);
} // namespace Practice
