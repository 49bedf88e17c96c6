// The race builder as the build runs it: good sources become readable race files, and every
// fault stops it with the file and line named.
#include "DAttackInfo.h"
#include "DChosenFeat.h"
#include "DChosenSkill.h"
#include "DChosenSpeed.h"
#include "DFamiliarBonus.h"
#include "DGuid.h"
#include "DNaturalAttackKind.h"
#include "DOffenseGroup.h"
#include "DOffenseItem.h"
#include "DRace.h"
#include "DRaceAdvance.h"
#include "DTargetData.h"
#include "TestSupport.h"

#include <QFileInfo>
#include <QProcess>
#include <QSqlDatabase>
#include <QSqlQuery>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace {

struct ToolRun {
    int exitCode = -1;
    QString errorText;
};

// The builder lands next to the rules database tool.
QString toolPath() {
    return QFileInfo(QStringLiteral(HOARD_RULESDB_TOOL)).dir().filePath("hoard-coredata");
}

QString rulesDb() {
    return hoardtest::builtDataDir() + "/rules.db";
}

ToolRun runTool(const QString& sourceDir, const QString& outputDir) {
    QProcess process;
    process.start(toolPath(), {"races", rulesDb(), sourceDir, outputDir});
    ToolRun result;
    if (!process.waitForFinished(60000))
        return result;
    result.exitCode = process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -1;
    result.errorText = QString::fromUtf8(process.readAllStandardError()).trimmed();
    return result;
}

QUuid guidOf(const QString& table, const QString& name,
             const QString& column = QStringLiteral("Guid")) {
    QUuid guid;
    {
        QSqlDatabase db = QSqlDatabase::addDatabase("QSQLITE", "coredata-test");
        db.setDatabaseName(rulesDb());
        if (db.open()) {
            QSqlQuery query(db);
            query.prepare(QStringLiteral("SELECT %1 FROM %2 WHERE Name = ?").arg(column, table));
            query.addBindValue(name);
            if (query.exec() && query.next())
                guid = QUuid::fromString(query.value(0).toString());
        }
    }
    QSqlDatabase::removeDatabase("coredata-test");
    return guid;
}

const char* const kGoodSource = "# a hill-giant-like test creature\n"
                                "type: Giant\n"
                                "size: Large\n"
                                "hit_dice: 12\n"
                                "advancement: 13-18 Large; 19-24 Huge\n"
                                "abilities: Str 25, Dex 8, Con -, Int 6, Wis 10, Cha 7\n"
                                "speed: land 40, fly 60 good\n"
                                "languages: Common, Giant\n"
                                "challenge_rating: 1/2\n"
                                "alignment: Chaotic Evil\n"
                                "good_saves: Ref, Will\n"
                                "save_bonus: Fort +1, Will -2\n"
                                "skills: Listen +2, craft  (alchemy) +4\n"
                                "skills: Move Silently +1\n"
                                "skill_ranks: Listen 5, Spot 0\n"
                                "attacks: 2 claw 1d6, Bite 2d8\n"
                                "attacks: touch touch ranged\n"
                                "attacks: weapon, gore 1d8\n"
                                "gear: greatclub; Shield, heavy wooden\n"
                                "familiar_bonus: Move Silently +3, Ref +2, hit points +3, Cha +1\n"
                                "feats: Alertness, Skill Focus (Craft (Alchemy))\n"
                                "feats: \"Weapon Focus (Longbow, composite)\", "
                                "Spell Focus (Evocation), Armor Proficiency (Light)\n"
                                "feats: Toughness x3, Weapon Focus (claw)\n";

} // namespace

TEST(CoreDataTool, BuildsARaceFileTheLibraryReads) {
    ASSERT_TRUE(QFileInfo(toolPath()).isExecutable()) << toolPath().toStdString();
    QTemporaryDir sources, output;
    ASSERT_TRUE(hoardtest::writeFile(sources.filePath("Test Giant.race"), kGoodSource));
    ASSERT_TRUE(hoardtest::writeFile(sources.filePath("Dwarfish.race"),
                                     "type: Humanoid (player race)\nsize: Medium\nhit_dice: 0\n"
                                     "ability_adjustments: Con +2, Cha -2\nspeed: land 20\n"
                                     "good_saves: none\n"));
    const ToolRun run = runTool(sources.path(), output.path());
    ASSERT_EQ(run.exitCode, 0) << run.errorText.toStdString();

    DRace* giant = DRace::CreateFromFile(output.filePath("Test Giant.rac"), false);
    ASSERT_NE(giant, nullptr);
    EXPECT_EQ(giant->GetRaceName(), "Test Giant");
    EXPECT_EQ(giant->GetClassGuid(), guidOf("[info Class]", "Giant"));
    EXPECT_EQ(giant->GetSizeId(), 5); // Large: Fine is 0, Medium 4
    EXPECT_FLOAT_EQ(giant->GetHitDieCount(), 12.0f);
    ASSERT_EQ(giant->GetAdvanceArray().GetCount(), 2);
    const DRaceAdvance* second = giant->GetAdvanceArray().At(1);
    EXPECT_EQ(second->GetMinHitDie(), 19);
    EXPECT_EQ(second->GetMaxHitDie(), 24);
    EXPECT_EQ(second->GetSizeId(), 6); // Huge
    EXPECT_FLOAT_EQ(giant->GetMaxHitDieCount(), 24.0f);
    // Str 25 stands for +14 against a 10 (odd values round down to even); Con is a nonability.
    EXPECT_EQ(giant->GetAbility(0), 25);
    EXPECT_EQ(giant->GetAbilityMod(0), 14);
    EXPECT_TRUE(giant->GetNoAbility(2));
    EXPECT_FALSE(giant->GetNoAbility(1));
    EXPECT_FLOAT_EQ(giant->GetChallengeRating(), 0.5f);
    EXPECT_EQ(giant->GetAlignmentId(), 36); // chaotic 4 | evil 32
    ASSERT_EQ(giant->GetSpeedArray().GetCount(), 2);
    EXPECT_EQ(giant->GetSpeedArray().At(0)->GetSpeedValue(), 40);
    const DChosenSpeed* fly = giant->GetSpeedArray().At(1);
    EXPECT_EQ(fly->GetSpeedValue(), 60);
    EXPECT_EQ(fly->GetSpeedModId(), 4); // good maneuverability
    // The good saves named replace the giant's own good Fortitude.
    EXPECT_FALSE(giant->GetHasGoodSaves(0));
    EXPECT_TRUE(giant->GetHasGoodSaves(1));
    EXPECT_TRUE(giant->GetHasGoodSaves(2));
    EXPECT_EQ(giant->GetSaveBonus(0), 1);
    EXPECT_EQ(giant->GetSaveBonus(1), 0);
    EXPECT_EQ(giant->GetSaveBonus(2), -2);
    EXPECT_EQ(giant->GetLanguageMap().GetCount(), 2);
    EXPECT_NE(giant->GetLanguagePointer(QUuid("{E3628EF2-A099-49F1-BB56-B996F64B04E9}")), nullptr);

    // Racial skill bonuses, a sub-skill by its own GUID; both lines of the repeated key count.
    const QUuid craft = guidOf("[info Skill]", "Craft");
    const QUuid alchemy = guidOf("[info Skill Sub]", "Alchemy", "SubGuid");
    ASSERT_FALSE(alchemy.isNull());
    const struct {
        QUuid skill;
        QUuid subSkill;
        int bonus;
        float ranks;
    } skills[] = {{guidOf("[info Skill]", "Listen"), {}, 2, 5.0f},
                  {craft, alchemy, 4, 0.0f},
                  {guidOf("[info Skill]", "Move Silently"), {}, 1, 0.0f},
                  {guidOf("[info Skill]", "Spot"), {}, 0, 0.0f}};
    // Ranks stand in the giant's class: the hit dice that buy them.
    EXPECT_EQ(giant->GetSkillSet().GetCount(), 4);
    for (const auto& expected : skills) {
        const DChosenSkill* skill = giant->GetSkillPointer(expected.skill, expected.subSkill);
        ASSERT_NE(skill, nullptr) << expected.bonus;
        EXPECT_EQ(skill->GetRaceMod(), expected.bonus);
        EXPECT_EQ(skill->GetTotalRanks(), expected.ranks);
        EXPECT_EQ(skill->GetRanks(giant->GetClassGuid()), expected.ranks);
    }
    EXPECT_EQ(giant->GetSkillPointer(craft, QUuid()), nullptr);

    // Each attack routine is an offense group of natural attacks: "[types Race Attack]" Claw
    // is 1, Bite 0, Touch 10; a die's id is its sides.
    const struct {
        int group, count, type, dice, die;
        bool touch;
        int range;
    } attacks[] = {{0, 2, 1, 1, 6, false, 0}, {0, 1, 0, 2, 8, false, 0}, {1, 1, 10, 0, 0, true, 1}};
    ASSERT_EQ(giant->GetOffenseGroupArray().GetCount(), 3);
    ASSERT_EQ(giant->GetAttackMap().GetCount(), 4);
    int seen[2] = {};
    for (const auto& expected : attacks) {
        const DOffenseGroup* group = giant->GetOffenseGroupArray().At(expected.group);
        const DOffenseItem& item = group->GetOffenseItemArray().At(seen[expected.group]++);
        const DAttackInfo* attack = giant->GetAttack(item.GetOffenseId());
        ASSERT_NE(attack, nullptr);
        EXPECT_EQ(attack->GetOffenseCount(), expected.count);
        EXPECT_EQ(attack->GetAttackTypeId(), expected.type);
        EXPECT_EQ(attack->GetItemId(), DNaturalAttackKind::ItemId(expected.type));
        EXPECT_EQ(attack->GetDamageDieCount(), expected.dice);
        EXPECT_EQ(attack->GetDamageDieId(), expected.die);
        EXPECT_EQ(attack->GetAttackRangeIsTouch(), expected.touch);
        EXPECT_EQ(attack->GetRangeType(), expected.range);
    }
    // "weapon, gore 1d8": a routine fought beside the creature's weapon, which joins it when
    // a monster is built with its gear.
    EXPECT_TRUE(giant->GetOffenseGroupArray().At(2)->GetOffenseItemArray().At(0).HasOffenseFlag(
        DOffenseItem::kOffenseBesideWeapon));
    EXPECT_FALSE(giant->GetOffenseGroupArray().At(0)->GetOffenseItemArray().At(0).HasOffenseFlag(
        DOffenseItem::kOffenseBesideWeapon));
    // The group's first attack is its primary one.
    EXPECT_TRUE(giant->GetOffenseGroupArray().At(0)->GetOffenseItemArray().At(0).HasOffenseFlag(
        DOffenseItem::kOffensePrimary));
    EXPECT_FALSE(giant->GetOffenseGroupArray().At(0)->GetOffenseItemArray().At(1).HasOffenseFlag(
        DOffenseItem::kOffensePrimary));

    // Gear is kept in words as the tables spell it; the creature knows the weapons it wields.
    const QStringList features = {giant->GetRaceFeatureArray().begin(),
                                  giant->GetRaceFeatureArray().end()};
    EXPECT_TRUE(features.contains(QStringLiteral("Gear: Greatclub")));
    EXPECT_TRUE(features.contains(QStringLiteral("Gear: Shield, heavy wooden")));
    EXPECT_TRUE(giant->HasWeaponProf(guidOf("[info Weapons]", "Greatclub")));

    // Feats with each kind of target: none, a sub-skill, a weapon (sub-target 1 marks the
    // weapon table), a school by its id (Evocation is 5), and a name that holds parentheses.
    QUuid weaponTable;
    DGuid::SetLong(weaponTable, 1);
    QUuid evocation;
    DGuid::SetLong(evocation, 5);
    EXPECT_EQ(giant->GetFeatSet().GetCount(), 7);
    // A natural weapon as the target: every claw ("[types Race Attack]" 1), as a natural attack
    // (sub-target 0) names it.
    EXPECT_TRUE(giant->HasFeat(guidOf("[info Feat]", "Weapon Focus"), DNaturalAttackKind::ItemId(1),
                               DOffenseItem::kOffenseNatural));
    EXPECT_TRUE(giant->HasFeat(guidOf("[info Feat]", "Alertness")));
    EXPECT_TRUE(giant->HasFeat(guidOf("[info Feat]", "Skill Focus"), craft, alchemy));
    EXPECT_TRUE(giant->HasFeat(guidOf("[info Feat]", "Weapon Focus"),
                               guidOf("[info Weapons]", "Longbow, composite"), weaponTable));
    EXPECT_TRUE(giant->HasFeat(guidOf("[info Feat]", "Spell Focus"), evocation));
    EXPECT_TRUE(giant->HasFeat(guidOf("[info Feat]", "Armor Proficiency (Light)")));

    // What it gives a master as a familiar: rows 10 (a skill, its GUID the target), 7 (the
    // second save), 9 (hit points) and 5 (the sixth ability) of "[types Familiar Bonus]".
    const FCPointerArray<DFamiliarBonus>& bonuses = giant->GetFamiliarBonusArray();
    ASSERT_EQ(bonuses.GetCount(), 4);
    const int types[] = {10, 7, 9, 5};
    const int values[] = {3, 2, 3, 1};
    for (int i = 0; i < 4; ++i) {
        EXPECT_EQ(bonuses.At(i)->GetBonusType(), types[i]) << i;
        EXPECT_EQ(bonuses.At(i)->GetBonus(), values[i]) << i;
    }
    const auto* target = FCDynamicCast<DTargetData>(bonuses.At(0)->GetTargetData());
    ASSERT_NE(target, nullptr);
    EXPECT_EQ(target->GetTargetGuid(), guidOf("[info Skill]", "Move Silently"));
    EXPECT_EQ(giant->GetFeatCount(guidOf("[info Feat]", "Toughness")), 3) << "taken three times";
    EXPECT_EQ(giant->GetFeatCount(guidOf("[info Feat]", "Alertness")), 1);
    giant->Release();

    DRace* dwarfish = DRace::CreateFromFile(output.filePath("Dwarfish.rac"), false);
    ASSERT_NE(dwarfish, nullptr);
    const int expected[] = {10, 10, 12, 10, 10, 8};
    for (int ability = 0; ability < 6; ++ability)
        EXPECT_EQ(dwarfish->GetAbility(ability), expected[ability]) << ability;
    EXPECT_EQ(dwarfish->GetAbilityMod(2), 2);
    EXPECT_EQ(dwarfish->GetAbilityMod(5), -2);
    for (int save = 0; save < 3; ++save)
        EXPECT_FALSE(dwarfish->GetHasGoodSaves(save)) << "none, not the humanoid's Fortitude";
    dwarfish->Release();
}

TEST(CoreDataTool, FaultsNameFileAndLine) {
    const QString base = "type: Giant\nsize: Large\nhit_dice: 12\n"
                         "abilities: Str 25, Dex 8, Con 19, Int 6, Wis 10, Cha 7\n";
    const struct {
        const char* what;
        QString text;
        int line;
        const char* message;
    } cases[] = {
        {"missing required field", base, 4, "required field 'speed' is missing"},
        {"missing size",
         "type: Giant\nhit_dice: 1\nspeed: land 30\nabilities: Str 1, Dex 1, "
         "Con 1, Int 1, Wis 1, Cha 1\n",
         4, "required field 'size' is missing"},
        {"unknown size name", "type: Giant\nsize: Enormous\n", 2, "'Enormous' names no row"},
        {"unknown type name", "type: Dragonkin\n", 1, "'Dragonkin' names no row"},
        {"unknown language", base + "speed: land 30\nlanguages: Common, Klingon\n", 6,
         "'Klingon' names no row"},
        {"unknown special quality", base + "speed: land 30\nspecial_qualities: Darkvision, X-ray\n",
         6, "'X-ray' names no row"},
        {"malformed line", "type: Giant\nsize: Large\nhit dice 12\n", 3, "expected 'key: value'"},
        {"unknown key", "type: Giant\n\n# note\ncolour: red\n", 4, "unknown key 'colour'"},
        {"word for a number", "type: Giant\nhit_dice: twelve\n", 2, "'twelve' is not a number"},
        {"backwards advancement", "advancement: 18-13 Large\n", 1, "runs backwards"},
        {"malformed speed", base + "speed: 30 land\n", 5, "'30' names no row"},
        {"key given twice", "size: Large\nsize: Huge\n", 2, "'size' given twice"},
        {"five abilities", "abilities: Str 25, Dex 8, Con 19, Int 6, Wis 10\n", 1, "needs all six"},
        {"unknown skill", base + "speed: land 30\nskills: Listen +2, Basketry +2\n", 6,
         "'Basketry' names no row of [info Skill]"},
        {"unknown sub-skill", "skills: Craft (Cheesemaking) +2\n", 1,
         "'Craft (Cheesemaking)' names no row"},
        {"skill without sub-skill", "skills: Craft +2\n", 1, "Craft has sub-skills"},
        {"skill bonus a word", "skills: Listen two\n", 1, "expected a skill and a bonus"},
        {"skill without bonus", "skills: Spot\n", 1, "expected a skill and a bonus"},
        {"skill bonus zero", "skills: Spot +0\n", 1, "must be above 0, not 0"},
        {"skill bonus negative", "skills: Spot -2\n", 1, "must be above 0, not -2"},
        {"skill on two lines", "skills: Spot +2\n# more\nskills: Search +1, spot +1\n", 3,
         "skill 'Spot' given twice"},
        {"skill ranks before the type", "skill_ranks: Spot 2\n", 1,
         "give 'type' before 'skill_ranks'"},
        {"skill ranks negative", "type: Giant\nskill_ranks: Spot -2\n", 2,
         "expected a skill and its ranks"},
        {"skill ranks twice", "type: Giant\nskill_ranks: Spot 2, spot 1\n", 2,
         "skill 'Spot' given twice"},
        {"unknown natural attack", "attacks: 2 claw 1d6, headbutt 1d4\n", 1,
         "'headbutt' names no row of [types Race Attack]"},
        {"a weapon alone", "attacks: weapon\n", 1, "needs at least one natural attack"},
        {"attack made no times", "attacks: 0 claw 1d6\n", 1, "at least once, not 0 times"},
        {"attack with an odd die", "attacks: bite 1d7\n", 1, "'d7' names no row of [types Dice]"},
        {"unknown gear", "gear: Greatclub; Lightsaber\n", 1,
         "'Lightsaber' names no row of [info Weapons], [info Armor] or [info Shield]"},
        {"familiar bonus without a number", "familiar_bonus: Listen\n", 1,
         "expected what the master gains and a bonus"},
        {"familiar bonus to no skill", "familiar_bonus: Basketry +3\n", 1,
         "'Basketry' is no ability, save"},
        {"unknown feat", "feats: Alertness, Napping\n", 1, "'Napping' names no row of [info Feat]"},
        {"feat without its target", "feats: Weapon Focus\n", 1, "Weapon Focus needs a target"},
        {"feat with a target it does not take", "feats: Alertness (Longsword)\n", 1,
         "Alertness takes no target"},
        {"unknown weapon target", "feats: Weapon Focus (Lightsaber)\n", 1,
         "'Lightsaber' names no row of [info Weapons]"},
        {"unknown skill target", "feats: Skill Focus (Knitting)\n", 1, "'Knitting' names no skill"},
        {"unknown school target", "feats: Spell Focus (Chronomancy)\n", 1,
         "'Chronomancy' names no row of [info Spell Schools]"},
        {"feat twice", "feats: Weapon Focus (Longsword)\nfeats: weapon focus (longsword)\n", 2,
         "given twice"},
        {"a once-only feat repeated", "feats: Toughness x2, Alertness x2\n", 1,
         "Alertness cannot be taken 2 times"},
        {"a feat taken no times", "feats: Toughness x0\n", 1, "Toughness cannot be taken 0 times"},
    };
    for (const auto& c : cases) {
        QTemporaryDir sources, output;
        const QString file = sources.filePath("Bad.race");
        ASSERT_TRUE(hoardtest::writeFile(file, c.text.toUtf8()));
        const ToolRun run = runTool(sources.path(), output.path());
        EXPECT_EQ(run.exitCode, 1) << c.what;
        EXPECT_TRUE(run.errorText.startsWith(QStringLiteral("%1:%2: ").arg(file).arg(c.line)))
            << c.what << ": " << run.errorText.toStdString();
        EXPECT_TRUE(run.errorText.contains(QLatin1String(c.message)))
            << c.what << ": " << run.errorText.toStdString();
        EXPECT_FALSE(QFileInfo::exists(output.filePath("Bad.rac"))) << c.what;
    }
}

TEST(CoreDataTool, AFaultLeavesTheLastGoodOutputAndARemovedSourceTakesItsFile) {
    QTemporaryDir sources, output;
    ASSERT_TRUE(hoardtest::writeFile(sources.filePath("Good.race"), kGoodSource));
    ASSERT_TRUE(hoardtest::writeFile(sources.filePath("Other.race"), kGoodSource));
    ASSERT_EQ(runTool(sources.path(), output.path()).exitCode, 0);
    const QByteArray before = hoardtest::readFile(output.filePath("Good.rac"));
    ASSERT_FALSE(before.isEmpty());

    ASSERT_TRUE(hoardtest::writeFile(sources.filePath("Worse.race"), "size: Vast\n"));
    EXPECT_EQ(runTool(sources.path(), output.path()).exitCode, 1);
    EXPECT_EQ(hoardtest::readFile(output.filePath("Good.rac")), before);

    ASSERT_TRUE(QFile::remove(sources.filePath("Worse.race")));
    ASSERT_TRUE(QFile::remove(sources.filePath("Other.race")));
    ASSERT_EQ(runTool(sources.path(), output.path()).exitCode, 0);
    EXPECT_TRUE(QFileInfo::exists(output.filePath("Good.rac")));
    EXPECT_FALSE(QFileInfo::exists(output.filePath("Other.rac")));
}
