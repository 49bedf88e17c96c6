#pragma once

#include <QUuid>

// One row of "[info Feat Prerequisites]": what a feat asks of whoever takes it.
struct DFeatPrereq {
    // Row ids of "[types Feat Requirement]" that the rules test.
    enum Type : int {
        kFeat = 0,
        kSkillRanks = 1,
        kBaseAttack = 2,
        kAbility = 4,
        kCasterLevel = 5,
        kClassLevel = 6,
        kCharacterLevel = 9,
        kSpeed = 10,
    };

    QUuid featGuid; // the feat that asks ("Id")
    int type = 0;
    int data = 0;
    QUuid requiredFeat;
    QUuid requiredSkill;
    int ability = -1;
};
