#include "DClassInfo.h"

#include "DColumnPositions.h"
#include "ResultSet.h"

FC_IMPLEMENT_CLASS(DClassInfo, "DInfo", nullptr)

namespace {
enum Column : int {
    Id,
    Guid,
    Name,
    ShortName,
    ClassType,
    DieId,
    AgeCat,
    HiFort,
    HiRef,
    HiWill,
    AttackBonusMultiplier,
    SkillPPL,
    BonusFP,
    LevelsForBonusFP,
    ClassSkills,
    ExclusiveClassSkills,
    GNumDie,
    GDieId,
    GMultiply,
    CastType,
    SpMinLevel,
    SpLevelMultiplier,
    LevelForAnimal,
    AnimalType,
    ProSimple,
    ProMartial,
    ProLArmor,
    ProMArmor,
    ProHArmor,
    ProShield,
    SpAbility,
    SpPrepares,
    SpKnows,
    BSPOperand1,
    BSPOperator,
    BSPOperand2,
    BSPAbilityId,
    BSPAbilityValueType,
    BSPMultiplyHD,
    BSPBonusPerEHD,
    SPAdvanceType,
    BFPBase,
    BFPIntBonus,
    BFPPerHD,
    BFPIsTotalHD,
    ColumnCount
};

constexpr std::array<const char*, ColumnCount> kColumnNames = {
    "Id",
    "Guid",
    "Name",
    "ShortName",
    "ClassType",
    "DieId",
    "AgeCat",
    "HIFORT",
    "HIREF",
    "HIWILL",
    "AttackBonusMultiplier",
    "SkillPPL",
    "BonusFP",
    "LevelsForBonusFP",
    "ClassSkills",
    "ExclusiveClassSkills",
    "GNumDie",
    "GDieId",
    "GMultiply",
    "CastType",
    "SpMinLevel",
    "SpLevelMultiplier",
    "LevelForAnimal",
    "AnimalType",
    "ProSimple",
    "ProMartial",
    "ProLArmor",
    "ProMArmor",
    "ProHArmor",
    "ProShield",
    "SpAbility",
    "SpPrepares",
    "SpKnows",
    "BSPOperand1",
    "BSPOperator",
    "BSPOperand2",
    "BSPAbilityId",
    "BSPAbilityValueType",
    "BSPMultiplyHD",
    "BSPBonusPerEHD",
    "SPAdvanceType",
    "BFPBase",
    "BFPIntBonus",
    "BFPPerHD",
    "BFPIsTotalHD",
};
} // namespace

void DClassInfo::SetData(odbc::ResultSet* resultSet) {
    // The class table is always read with "SELECT *", so the positions found once hold for
    // every later row.
    static const auto column = DFindColumnPositions(resultSet, kColumnNames);

    mId = int(resultSet->getLong(column[Id]));
    mGuid = resultSet->getGUID(column[Guid]);
    mName = resultSet->getString(column[Name]);
    mShortName = resultSet->getString(column[ShortName]);
    mClassType = resultSet->getInt(column[ClassType]);
    mDieId = resultSet->getInt(column[DieId]);
    mAgeCat = resultSet->getInt(column[AgeCat]);
    mGoodSaves[0] = resultSet->getBoolean(column[HiFort]);
    mGoodSaves[1] = resultSet->getBoolean(column[HiRef]);
    mGoodSaves[2] = resultSet->getBoolean(column[HiWill]);
    mAttackMultiplier = resultSet->getFloat(column[AttackBonusMultiplier]);
    mSkillPointsPerLevel = resultSet->getInt(column[SkillPPL]);
    mBonusFeats = resultSet->getInt(column[BonusFP]);
    mLevelsForBonusFeat = resultSet->getInt(column[LevelsForBonusFP]);
    mClassSkills = resultSet->getInt(column[ClassSkills]);
    mExclusiveClassSkills = resultSet->getInt(column[ExclusiveClassSkills]);
    mStartingGoldDieCount = resultSet->getInt(column[GNumDie]);
    mStartingGoldDieId = resultSet->getInt(column[GDieId]);
    mStartingGoldMultiply = resultSet->getInt(column[GMultiply]);
    mCastType = resultSet->getInt(column[CastType]);
    mFirstCasterLevel = resultSet->getInt(column[SpMinLevel]);
    mCasterLevelMultiplier = resultSet->getFloat(column[SpLevelMultiplier]);
    mLevelForAnimal = resultSet->getInt(column[LevelForAnimal]);
    mAnimalType = resultSet->getInt(column[AnimalType]);
    for (int i = 0; i < 6; ++i)
        mProficiencies[i] = resultSet->getBoolean(column[ProSimple + i]);
    mCastingAbility = resultSet->getInt(column[SpAbility]);
    mCasterFlags = 0;
    if (resultSet->getBoolean(column[SpPrepares]))
        mCasterFlags |= kCasterPrepares;
    if (resultSet->getBoolean(column[SpKnows]))
        mCasterFlags |= kCasterKnows;

    mBSPOperand1 = resultSet->getInt(column[BSPOperand1]);
    mBSPOperator = resultSet->getInt(column[BSPOperator]);
    mBSPOperand2 = resultSet->getInt(column[BSPOperand2]);
    mBSPAbilityId = resultSet->getInt(column[BSPAbilityId]);
    mBSPAbilityValueType = resultSet->getInt(column[BSPAbilityValueType]);
    mBSPMultiplyHD = resultSet->getInt(column[BSPMultiplyHD]);
    mBSPBonusPerEHD = resultSet->getInt(column[BSPBonusPerEHD]);
    mSPAdvanceType = resultSet->getInt(column[SPAdvanceType]);

    mBFPBase = resultSet->getInt(column[BFPBase]);
    mBFPIntBonus = resultSet->getBoolean(column[BFPIntBonus]);
    mBFPPerHD = resultSet->getInt(column[BFPPerHD]);
    mBFPIsTotalHD = resultSet->getBoolean(column[BFPIsTotalHD]);
}
