#pragma once

#include <QtGlobal>

// Code values that the character records store. Most are row ids of a "[types ...]" table of
// the rules database, so the set of values is data, not code.

// Row of "[types Skill Usability]": 0 not allowed, 1 class skill, 2 cross-class.
using DSkillUsabilityType = qint32;
// Feature group of "[info Features]"; groups other than the open ones hold one automatic
// feature at a time.
using DFeatureGroupType = qint32;
// Row of "[types Feature]"; decides how a feature's data is read.
using DFeatureType = qint32;
// Companion slot of a character, 0 to 5: 0 familiar, 1 mount, 2 fiendish companion.
using DAnimalType = qint32;
