#pragma once

// Index and value types of the rules engine. The numbers are stored in files or name rows of
// the rules database, so they never move.

#include "DCharacterTypes.h"

#include <QString>
#include <QUuid>

// The six abilities, in the order of every per-ability array of the character.
enum DAbilityStatType : int {
    kAbilityStrength = 0,
    kAbilityDexterity = 1,
    kAbilityConstitution = 2,
    kAbilityIntelligence = 3,
    kAbilityWisdom = 4,
    kAbilityCharisma = 5,
    kAbilityCount = 6,
};

// The short names of the abilities as sheets and dialogs print them.
inline constexpr const char* kAbilityShortNames[kAbilityCount] = {"STR", "DEX", "CON",
                                                                  "INT", "WIS", "CHA"};

enum DSaveType : int {
    kSaveFortitude = 0,
    kSaveReflex = 1,
    kSaveWill = 2,
    kSaveCount = 3,
};

// Row id of "[types Roll Methods]": how ability scores are made.
enum DRollMethodType : int {
    kRoll4d6DropLowest = 0,
    kRoll4d6InOrderRerollOne = 1, // in order, one slot rerolled, two switched
    kRoll3d6 = 2,
    kRoll3d6InOrder = 3,
    kRoll5d6DropTwoLowest = 4,
    kRoll4d6ReplaceLowest = 5, // the lowest die of a slot may be rolled again
    kRollPointBuy = 6,
    kRollPointBuyCampaign = 7, // the budget comes from "[types Roll Campaigns]"
    kRollFixedArray = 8,
    kRollFreeEntry = 9,
    kRollMonster = 10, // no rolling at all: a monster keeps its race's scores
};

// The parts of armor class, each standing alone so that a source can be shown by itself.
struct DACValues {
    int base = 10;
    int natural = 0;
    int dexterity = 0;
    int size = 0;
    int armor = 0;
    int shield = 0;
    int magic = 0;
    int feature = 0;
    int misc = 0;
    int user = 0;
    int Total() const {
        return base + natural + dexterity + size + armor + shield + magic + feature + misc + user;
    }
};

struct DInitiativeValues {
    int ability = 0;
    int feat = 0;
    int magic = 0;
    int user = 0;
    int Total() const { return ability + feat + magic + user; }
};

struct DSavingThrowValues {
    int base = 0;
    int ability = 0;
    int race = 0;
    int feat = 0;
    int magic = 0;
    int familiar = 0;
    int feature = 0;
    int user = 0;
    int Total() const { return base + ability + race + feat + magic + familiar + feature + user; }
};

// One item a class's feature picker offers: a feature of a picked group with its data.
struct DFeatureOffer {
    QUuid feature;
    QString name;
    DFeatureGroupType group = 0;
    DFeatureType type = 0;
    int data = -1;
    QUuid dataGuid;
    // The Loremaster's list shows the level a secret needs.
    int level = 0;
    bool enabled = true;
};
