// Rule records read from a small SQLite database built here with SRD 3.5 values. The records of
// the class, feat, skill and spell level tables keep column positions in statics for the whole
// process, so every table below has its columns in the order those records read them.
#include "DAgeChangeInfo.h"
#include "DAlignmentInfo.h"
#include "DClassInfo.h"
#include "DClassLevelInfo.h"
#include "DCoinInfo.h"
#include "DDamageChangeInfo.h"
#include "DDatabase.h"
#include "DDomainInfo.h"
#include "DFailureReporter.h"
#include "DFamiliarMountInfo.h"
#include "DFeatInfo.h"
#include "DFeatureInfo.h"
#include "DGodInfo.h"
#include "DLanguageInfo.h"
#include "DLoadInfo.h"
#include "DSchoolInfo.h"
#include "DSimpleGuidInfo.h"
#include "DSimpleInfo.h"
#include "DSizeInfo.h"
#include "DSkillInfo.h"
#include "DSpeedModTypeInfo.h"
#include "DSpeedTypeInfo.h"
#include "DSpellInfo.h"
#include "DSpellLevelInfo.h"
#include "DSpellsPerInfo.h"
#include "DSubSkillInfo.h"
#include "FCReleaser.h"
#include "TestSupport.h"

#include "Connection.h"
#include "DriverManager.h"
#include "ResultSet.h"
#include "SQLException.h"
#include "Statement.h"

#include <QSqlDatabase>
#include <QSqlError>
#include <QSqlQuery>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <array>
#include <functional>
#include <memory>
#include <tuple>
#include <vector>

namespace {

const QUuid kWizard("{DC103390-3378-411F-9A3A-CAB0CFD00B68}");
const QUuid kBard("{C5CFC8E8-2BA1-490F-AEDB-8142D07B8D22}");
const QUuid kCleric("{2F44209F-DA52-4037-83BB-7DDFD24D4CE1}");
const QUuid kPaladin("{369261F4-1D0C-473F-B053-59D862213469}");
const QUuid kDragon("{5E1A0C42-7D1B-4C59-9A0E-3F2B6C8D9E10}");
const QUuid kSwim("{3C9E5F1A-2B4D-4E6F-8A1B-7C2D3E4F5A6B}");
const QUuid kKnowledge("{D515ECE3-0A1F-43A8-9485-F43F9EBB1615}");
const QUuid kArcana("{8F2A6B3C-1D4E-4F5A-9B6C-0D1E2F3A4B5C}");
const QUuid kWeaponFocus("{CAADBD12-FF01-48E1-A1D4-217D58312AD3}");
const QUuid kToughness("{71C3D2E4-5F6A-4B7C-8D9E-0F1A2B3C4D5E}");
const QUuid kFavoredEnemy("{B4E1F0A2-6C3D-4E5F-8A9B-1C2D3E4F5A6B}");
const QUuid kSpellbook("{C7D8E9F0-1A2B-4C3D-9E4F-5A6B7C8D9E0F}");
const QUuid kDruidic("{E2F3A4B5-C6D7-4E8F-A901-B2C3D4E5F6A7}");
const QUuid kCommon("{F1E2D3C4-B5A6-4978-8695-A4B3C2D1E0F9}");
const QUuid kStoneskin("{9A8B7C6D-5E4F-4A3B-8C2D-1E0F9A8B7C6D}");
const QUuid kCureLight("{0B1C2D3E-4F5A-4B6C-9D7E-8F9A0B1C2D3E}");
const QUuid kHealingDomain("{1D2E3F4A-5B6C-4D7E-8F9A-0B1C2D3E4F5A}");
const QUuid kGoodDomain("{2E3F4A5B-6C7D-4E8F-9A0B-1C2D3E4F5A6B}");
const QUuid kEvilDomain("{3F4A5B6C-7D8E-4F9A-8B1C-2D3E4F5A6B7C}");
const QUuid kHeironeous("{4A5B6C7D-8E9F-4A0B-9C2D-3E4F5A6B7C8D}");
const QUuid kMoradin("{5B6C7D8E-9F0A-4B1C-8D3E-4F5A6B7C8D9E}");

struct Table {
    const char* name;
    const char* columns;
    std::vector<const char*> rows;
};

// SRD 3.5 facts where the rules have them; where a column has no rule meaning the value is only
// chosen to differ from its neighbours, so that a swapped column shows. Columns are untyped:
// SQLite keeps each literal's own type.
const std::vector<Table>& rulesTables() {
    static const std::vector<Table> tables = {
        {"[types Dice]", "Id, Name", {"4, 'd4'", "8, 'd8'"}},
        {"[info Coin]",
         "Id, Name, ShortName, CopperEx, SilverEx, GoldEx, PlatinumEx",
         {"2, 'Gold', 'gp', 100, 10, 1, 0.1"}},
        {"[info Class]",
         "Id, Guid, Name, ShortName, ClassType, DieId, AgeCat, HIFORT, HIREF, HIWILL, "
         "AttackBonusMultiplier, SkillPPL, BonusFP, LevelsForBonusFP, ClassSkills, "
         "ExclusiveClassSkills, GNumDie, GDieId, GMultiply, CastType, SpMinLevel, "
         "SpLevelMultiplier, LevelForAnimal, AnimalType, ProSimple, ProMartial, ProLArmor, "
         "ProMArmor, ProHArmor, ProShield, SpAbility, SpPrepares, SpKnows, BSPOperand1, "
         "BSPOperator, BSPOperand2, BSPAbilityId, BSPAbilityValueType, BSPMultiplyHD, "
         "BSPBonusPerEHD, SPAdvanceType, BFPBase, BFPIntBonus, BFPPerHD, BFPIsTotalHD",
         {"11, '{DC103390-3378-411F-9A3A-CAB0CFD00B68}', 'Wizard', 'Wiz', 0, 4, 2, 0, 0, 1, 0.5, "
          "2, 1, 5, 9, 1, 3, 4, 10, 2, 1, 1.0, 1, 0, 0, 0, 0, 0, 0, 0, 3, 1, 0, "
          "0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0",
          "3, '{C5CFC8E8-2BA1-490F-AEDB-8142D07B8D22}', 'Bard', 'Brd', 0, 6, 1, 0, 1, 1, 0.75, "
          "6, 0, 0, 24, 0, 4, 4, 10, 2, 1, 1.0, 0, 0, 1, 0, 1, 0, 0, 1, 5, 0, 1, "
          "0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0",
          "40, '{5E1A0C42-7D1B-4C59-9A0E-3F2B6C8D9E10}', 'Dragon', 'Drg', 2, 12, 0, 1, 1, 1, "
          "1.0, 6, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0.0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, "
          "6, 1, 8, 3, 2, 1, 5, 2, 1, 1, 3, 0"}},
        {"[info Alignment]",
         "ID, SORTNUM, NAME, ShortName, ONEOFF0, ONEOFF1, ONEOFF2",
         {"1, 10, 'Lawful Good', 'LG', 2, 4, -1", "2, 20, 'Neutral Good', 'NG', 1, 3, 5"}},
        {"[info Size]",
         "ID, NAME, CapMod, ArmorMod, DimMin, DimMax, WtMin, WtMax, ModStr, ModDex, ModCon, "
         "ModNatAC, EHDMod, CostMod, WeightMod, ArmorBonusMod, GrappleMod",
         {"6, 'Large', 2.0, -1, 8.0, 16.0, 500.0, 4000.0, 8, -2, 4, 2, 3, 2.0, 2.5, 1.0, 4"}},
        {"[info Level Gold]", "ID, STARTGOLD", {"5, 9000"}},
        {"[info Skill]",
         "Guid, ID, NAME, StatId, IsMulti, Untrain, ACPen, NPACPen, Exclusive, PenaltyPounds, "
         "HelpText",
         {"'{3C9E5F1A-2B4D-4E6F-8A1B-7C2D3E4F5A6B}', 38, 'Swim', 0, 0, 1, 1, 1, 0, 5, ''",
          "'{D515ECE3-0A1F-43A8-9485-F43F9EBB1615}', 20, 'Knowledge', 3, 1, 0, 0, 0, 1, 0, ''"}},
        {"[info Skill Sub]",
         "Guid, SubGuid, NAME, HelpText",
         {"'{D515ECE3-0A1F-43A8-9485-F43F9EBB1615}', '{8F2A6B3C-1D4E-4F5A-9B6C-0D1E2F3A4B5C}', "
          "'Arcana', 'Magic, runes and arcane creatures.'"}},
        {"[info Feat]",
         "Guid, Name, Type, StackType, Target, HelpText",
         {"'{CAADBD12-FF01-48E1-A1D4-217D58312AD3}', 'Weapon Focus', 2, 3, 1, ''",
          "'{71C3D2E4-5F6A-4B7C-8D9E-0F1A2B3C4D5E}', 'Toughness', 1, 2, 0, ''"}},
        {"[info Features]",
         "Guid, Name, [Group], Type, HelpText",
         {"'{B4E1F0A2-6C3D-4E5F-8A9B-1C2D3E4F5A6B}', 'Favored Enemy', 14, 5, ''",
          "'{C7D8E9F0-1A2B-4C3D-9E4F-5A6B7C8D9E0F}', 'Spellbook', 0, 3, ''"}},
        {"[info Ranger Favored Enemy]",
         "Id, Name",
         {"1, 'Aberration'", "7, 'Humanoid (goblinoid)'"}},
        {"[info Language]",
         "Guid, ID, Name, IsSecret, AutoOnly, HelpText",
         {"'{E2F3A4B5-C6D7-4E8F-A901-B2C3D4E5F6A7}', 12, 'Druidic', 1, 0, 'Druids only.'",
          "'{F1E2D3C4-B5A6-4978-8695-A4B3C2D1E0F9}', 1, 'Common', 0, 1, ''"}},
        {"[info Load]",
         "Id, Name, MaxDex, CheckPenalty, SpeedMultiplier, RunMultiplier",
         {"2, 'Heavy', 1, -6, 0.6666666666666666, 3"}},
        {"[info Spell]",
         "Guid, Id, Name, ShortName, SchoolId, CastTime, TimeType, Range, Duration, Save, "
         "MaterialCost, WandCost, Components, [Spell Resistance], Descriptors, HelpText",
         {"'{9A8B7C6D-5E4F-4A3B-8C2D-1E0F9A8B7C6D}', 512, 'Stoneskin', '', 1, 1, 3, 2, 5, 4, "
          "250, 12500, 7, 6, 0, ''",
          "'{0B1C2D3E-4F5A-4B6C-9D7E-8F9A0B1C2D3E}', 101, 'Cure Light Wounds', 'CLW', 4, 1, 3, 2, "
          "1, 8, 0, 0, 3, 6, 16, ''"}},
        {"[info Spell Level]",
         "Id, ClassId, DomainId, Level",
         {"'{9A8B7C6D-5E4F-4A3B-8C2D-1E0F9A8B7C6D}', '{DC103390-3378-411F-9A3A-CAB0CFD00B68}', "
          "NULL, 4",
          "'{0B1C2D3E-4F5A-4B6C-9D7E-8F9A0B1C2D3E}', NULL, "
          "'{1D2E3F4A-5B6C-4D7E-8F9A-0B1C2D3E4F5A}', 1"}},
        {"[info Spells Per Day]",
         "Id, SubId, [0], [1], [2], [3], [4], [5], [6], [7], [8], [9], LevelNeedingBonus",
         {"'{DC103390-3378-411F-9A3A-CAB0CFD00B68}', 3, 4, 2, 1, -1, -1, -1, -1, -1, -1, -1, -1",
          "'{369261F4-1D0C-473F-B053-59D862213469}', 4, -1, 0, -1, -1, -1, -1, -1, -1, -1, -1, 1"}},
        {"[info Spell Schools]", "Id, Name, Category", {"1, 'Abjuration', 2"}},
        {"[info Domain]",
         "Guid, Name, DomainAbility, RequiredAlignmentFlag, OpposingDomain, HelpText",
         {"'{2E3F4A5B-6C7D-4E8F-9A0B-1C2D3E4F5A6B}', 'Good', 'Good spells at +1 caster level.', "
          "1, '{3F4A5B6C-7D8E-4F9A-8B1C-2D3E4F5A6B7C}', ''"}},
        {"[info God]",
         "Guid, Name, AlignmentId, RestrictedAlignment, RestrictedByRace, HelpText",
         {"'{4A5B6C7D-8E9F-4A0B-9C2D-3E4F5A6B7C8D}', 'Heironeous', 1, 0, 0, ''",
          "'{5B6C7D8E-9F0A-4B1C-8D3E-4F5A6B7C8D9E}', 'Moradin', 1, 7, 1, ''"}},
        {"[info Speed]",
         "ID, NAME, LightArmorMult, MedArmorMult, HeavyArmorMult, LightLoadMult, MedLoadMult, "
         "HeavyLoadMult, OverLoadMult",
         {"3, 'Fly', 1.0, 0.5, 0.25, 0.875, 0.75, 0.625, 0.125"}},
        {"[types Speed]", "ID, NAME", {"2, 'Good'"}},
        {"[info Advancement Damage]",
         "FromDieId, UpDieCount, UpDieId, DownDieCount, DownDieId",
         {"8, 2, 6, 1, 6"}},
        {"[info Advancement Age]",
         "Id, AdjStr, AdjDex, AdjCon, AdjInt, AdjWis, AdjCha",
         {"1, -1, -1, -1, 1, 1, 1", "9, 1, 2, 3, 4, 5, 6"}},
        {"[info Mount]",
         "MasterLevelMin, MasterLevelMax, BonusHD, NaturalArmor, StrAdj, [Int]",
         {"5, 7, 2, 4, 1, 6"}},
    };
    return tables;
}

using RecordPtr = FCRef<DInfo>;
template <typename Record> RecordPtr makeRecord() {
    return RecordPtr(new Record);
}

class RuleRecords : public ::testing::Test {
protected:
    static void SetUpTestSuite() {
        sDir = std::make_unique<QTemporaryDir>();
        ASSERT_TRUE(sDir->isValid());
        sPath = sDir->filePath(QStringLiteral("records.db"));
        const QString connectionName = QStringLiteral("rule-records-setup");
        {
            QSqlDatabase database =
                QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), connectionName);
            database.setDatabaseName(sPath);
            ASSERT_TRUE(database.open()) << database.lastError().text().toStdString();
            QSqlQuery query(database);
            for (const Table& table : rulesTables()) {
                ASSERT_TRUE(query.exec(
                    QStringLiteral("CREATE TABLE %1 (%2)").arg(table.name, table.columns)))
                    << query.lastError().text().toStdString();
                for (const char* row : table.rows) {
                    ASSERT_TRUE(query.exec(
                        QStringLiteral("INSERT INTO %1 VALUES (%2)").arg(table.name, row)))
                        << table.name << ": " << query.lastError().text().toStdString();
                }
            }
            database.close();
        }
        QSqlDatabase::removeDatabase(connectionName);
        sConnection.reset(odbc::DriverManager::getConnection(sPath));
    }

    static void TearDownTestSuite() {
        sConnection.reset();
        sDir.reset();
    }

    // Fills `record` from the first row of `sql`; false when there is none.
    static bool fill(const QString& sql, DInfo& record) {
        const std::unique_ptr<odbc::Statement> statement(sConnection->createStatement());
        odbc::ResultSet* rows = statement->executeQuery(sql);
        if (!rows || !rows->next())
            return false;
        record.SetData(rows);
        return true;
    }

    static inline std::unique_ptr<QTemporaryDir> sDir;
    static inline QString sPath;
    static inline std::unique_ptr<odbc::Connection> sConnection;
};

QString where(const char* table, const char* column, const QUuid& guid) {
    return QStringLiteral("SELECT * FROM %1 WHERE (%2='%3')")
        .arg(table, column, guid.toString(QUuid::WithBraces).toUpper());
}
QString where(const char* table, const char* column, int id) {
    return QStringLiteral("SELECT * FROM %1 WHERE (%2=%3)").arg(table, column).arg(id);
}

} // namespace

TEST_F(RuleRecords, CasterFlagsComeFromPreparesAndKnows) {
    const std::pair<QUuid, unsigned> cases[] = {
        {kWizard, DClassInfo::kCasterPrepares}, // 1
        {kBard, DClassInfo::kCasterKnows},      // 2
        {kDragon, 0u},
    };
    static_assert(DClassInfo::kCasterPrepares == 1 && DClassInfo::kCasterKnows == 2);
    for (const auto& [guid, flags] : cases) {
        DClassInfo record;
        ASSERT_TRUE(fill(where("[info Class]", "Guid", guid), record));
        EXPECT_EQ(record.mCasterFlags, flags) << record.mName.toStdString();
    }
}

TEST_F(RuleRecords, CachedColumnPositionsServeASecondStatement) {
    struct Case {
        const char* what;
        RecordPtr (*make)();
        QString first;
        QString second;
        std::function<void(const DInfo&)> checkSecond;
    };
    const Case cases[] = {
        {"class", makeRecord<DClassInfo>, where("[info Class]", "Id", 11),
         where("[info Class]", "Id", 3),
         [](const DInfo& info) {
             const auto& bard = static_cast<const DClassInfo&>(info);
             EXPECT_EQ(bard.mGuid, kBard);
             EXPECT_EQ(bard.mSkillPointsPerLevel, 6);
             EXPECT_EQ(bard.mCasterFlags, unsigned(DClassInfo::kCasterKnows));
         }},
        {"feat", makeRecord<DFeatInfo>, where("[info Feat]", "Guid", kWeaponFocus),
         where("[info Feat]", "Guid", kToughness),
         [](const DInfo& info) {
             const auto& feat = static_cast<const DFeatInfo&>(info);
             EXPECT_EQ(feat.GetFeatName(), "Toughness");
             EXPECT_EQ(feat.GetFeatStackType(), 2);
         }},
        {"skill", makeRecord<DSkillInfo>, where("[info Skill]", "ID", 38),
         where("[info Skill]", "ID", 20),
         [](const DInfo& info) {
             const auto& skill = static_cast<const DSkillInfo&>(info);
             EXPECT_EQ(skill.GetSkillName(), "Knowledge");
             EXPECT_EQ(skill.GetAbilityModId(), 3);
         }},
        {"spell level", makeRecord<DSpellLevelInfo>, where("[info Spell Level]", "Id", kStoneskin),
         where("[info Spell Level]", "Id", kCureLight),
         [](const DInfo& info) {
             const auto& level = static_cast<const DSpellLevelInfo&>(info);
             EXPECT_EQ(level.GetSpellId(), kCureLight);
             EXPECT_EQ(level.GetDomainId(), kHealingDomain);
         }},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.what);
        const RecordPtr first = c.make();
        ASSERT_TRUE(fill(c.first, *first));
        const RecordPtr second = c.make();
        ASSERT_TRUE(fill(c.second, *second));
        c.checkSecond(*second);
    }
}

TEST_F(RuleRecords, AlignmentOneStepAway) {
    DAlignmentInfo neutralGood;
    ASSERT_TRUE(fill(where("[info Alignment]", "ID", 2), neutralGood));
    // 1 LG, 2 NG, 3 CG, 4 LN, 5 N, 6 CN, 7 LE, 8 NE, 9 CE.
    const std::pair<int, bool> cases[] = {{2, true},  {1, true},  {3, true},  {5, true},
                                          {4, false}, {6, false}, {8, false}, {9, false}};
    for (const auto& [id, oneOff] : cases)
        EXPECT_EQ(neutralGood.GetIsOneOffAlignment(id), oneOff) << "alignment " << id;
}

TEST_F(RuleRecords, SpellLevelOrderComparesRawGuidBytes) {
    // Literal rows in the column order of the spell level table, which the cached positions
    // assume. The first two spells differ in variant, so QUuid's own order would swap them.
    const auto row = [](const char* spell, const char* classId, const char* domain) {
        auto record = std::make_unique<DSpellLevelInfo>();
        const QString sql = QStringLiteral("SELECT %1 AS Id, %2 AS ClassId, %3 AS DomainId, 1 AS "
                                           "Level")
                                .arg(spell, classId, domain);
        EXPECT_TRUE(fill(sql, *record));
        return record;
    };
    const char* spellA = "'{10000000-0000-0000-C000-000000000000}'";
    const char* spellB = "'{20000000-0000-0000-8000-000000000000}'";
    const char* spellLow = "'{7F000000-0000-0000-8000-000000000000}'";
    const char* spellHigh = "'{80000000-0000-0000-8000-000000000000}'";
    const char* first = "'{00000000-0000-0000-8000-0000000000A1}'";
    const char* second = "'{00000000-0000-0000-8000-0000000000B2}'";
    struct Case {
        const char* what;
        std::unique_ptr<DSpellLevelInfo> left, right;
        bool less, greater;
    };
    Case cases[] = {
        {"by spell bytes", row(spellA, first, "NULL"), row(spellB, first, "NULL"), true, false},
        {"bytes are unsigned", row(spellLow, "NULL", first), row(spellHigh, "NULL", first), true,
         false},
        {"same spell, by class", row(spellA, first, second), row(spellA, second, first), true,
         false},
        {"same spell, no class: by domain", row(spellA, "NULL", first), row(spellA, "NULL", second),
         true, false},
        {"equal", row(spellB, first, "NULL"), row(spellB, first, "NULL"), false, false},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.what);
        EXPECT_EQ(*c.left < *c.right, c.less);
        EXPECT_EQ(*c.right < *c.left, c.greater);
    }
}
