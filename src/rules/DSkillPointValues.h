#pragma once

// How a creature class hands out skill points per hit die: the "BSP..." and "SPAdvanceType"
// columns of "[info Class]", in that order. All 0 when the class has no row.
// How the two operands of a race's skill-point allowance combine.
enum DSkillPointOperator : int {
    kSkillPointOpAdd = 1,
    kSkillPointOpSubtract = 2,
    kSkillPointOpMultiply = 3,
    kSkillPointOpMiddle = 5, // the middle of operand1 and operand2
};

struct DSkillPointValues {
    int operand1 = 0;
    int op = 0; // 1 add, 2 subtract, 3 multiply, 5 the middle of the two operands
    int operand2 = 0;
    int abilityId = 0;        // -1: no ability part
    int abilityValueType = 0; // 1 the score itself, 2 its modifier
    int multiplyHD = 0;
    int bonusPerEHD = 0; // per hit die above the size's allowance
    int advanceType = 0; // advanced hit dice: 1 bonusPerEHD each, 2 the full formula
};
