// The race record: the golden bytes, files on disk, deep copies, and the record's own
// rules (advancement table, ages, ability adjustment).

#include "CharacterTestSupport.h"

#include "DChosenFeat.h"
#include "DChosenLanguage.h"
#include "DChosenSkill.h"
#include "DChosenSpeed.h"
#include "DFamiliarBonus.h"
#include "DRace.h"
#include "DRaceAdvance.h"
#include "DSpecialAttack.h"
#include "DSpecialAttackSpellCaster.h"
#include "DSpecialAttackSpells.h"
#include "DSpell.h"
#include "DTargetData.h"
#include "TestSupport.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <random>
#include <vector>

using namespace chartest;

namespace {

constexpr quint32 kRaceSignature = 0x01010101;

// Where the header of a saved layout race ends: file header 12, class name 2 + 5, name "Orc" 4 + 6,
// size 4, class 16, two sub types 4 + 8, size direction, hit dice, maximum, flags and challenge
// rating 4 each, one role 4 + 4, category 4.
constexpr qsizetype kHeaderEnd = 12 + 7 + 10 + 4 + 16 + 12 + 5 * 4 + 8 + 4;

// Values of the filled race that repeat per slot, so every slot differs from its neighbours.
int abilityValue(int i) {
    return 20 + i;
}
int heightOf(int g) {
    return 60 + g;
}
int weightOf(int g) {
    return 150 + g;
}

// Sets every stored field of the race itself to a value that differs from its default. The lists
// get one or two entries, the object lists one entry of the plain kind.
void fillScalars(DRace& race) {
    race.SetRaceName("Orc");
    race.SetSizeId(5);
    race.SetClassGuid(guid(0x10));
    race.AddSubType(7);
    race.AddSubType(8);
    race.SetSizeDirectionId(2);
    race.SetHitDieCount(1.5f);
    race.AddRaceFlag(0x800001);
    race.SetChallengeRating(0.5f);
    race.AddRole(3);
    race.SetRaceCategoryId(4);
    race.SetRaceFamilyId(6);
    for (int i = 0; i < DRace::kAbilityCount; ++i) {
        race.SetAbility(i, abilityValue(i));
        race.SetNoAbility(i, i == 2);
    }
    race.SetNaturalAC(3);
    for (int i = 0; i < DRace::kSaveCount; ++i) {
        race.SetSaveBonus(i, i + 1);
        race.SetHasGoodSaves(i, i == 1);
    }
    race.SetBaseSkillPoints(40);
    race.SetExtraSkillPointsFirstLevel(41);
    race.SetExtraSkillPointsPerLevel(42);
    race.SetExtraFeatPointsFirstLevel(43);
    race.SetExtraFeatPointsPerLevel(44);
    race.SetPortraitName("p");
    race.SetSoundName("s");
    race.AddAvailableLanguage(guid(0x20));
    race.AddClimate(9);
    race.SetAlignmentModId(11);
    race.SetAlignmentId(3);
    race.SetRaceSizeStat(0, 5.0f);
    race.SetRaceSizeStat(1, 10.0f);
    race.SetRaceSizeStat(2, 15.0f);
    for (int i = 0; i < DRace::kTreasureSlotCount; ++i) {
        race.SetTreasureType(i, 2 + i);
        race.SetTreasureData(i, 20 + i);
    }
    race.AddSpecialQuality(13);
    race.AddSpecialQuality(14);
    race.AddRaceFeature("Ferocity");
    for (int i = 0; i < DRace::kAgeCount; ++i)
        race.SetStartAge(i, 15 * (i + 1));
    for (int g = 0; g < DRace::kGenderSlotCount; ++g) {
        race.SetStartHeight(g, heightOf(g));
        race.SetStartWeight(g, weightOf(g));
        race.SetHeightMod(g, 2, 10 + g);
        race.SetWeightMod(g, 3, 20 + g);
    }
    race.AddWeaponProf(guid(0x40));
    race.AddAvailableGod(guid(0x50));
    race.AddAvailableGod(guid(0x60));
    for (int i = 0; i < DRace::kRaceTextCount; ++i)
        race.SetRaceText(i, QStringLiteral("t%1").arg(i));
}

template <typename T> void addReleased(T* object, auto&& add) {
    add(object);
    object->Release();
}

// The race whose bytes the golden file holds.
void fillLayoutRace(DRace& race) {
    fillScalars(race);
    addReleased(new DRaceAdvance(2, 4, 6), [&](DRaceAdvance* a) { race.AddAdvance(a); });
    race.SetMaxHitDieCount(12.0f);
    addReleased(new DSpecialAttack(12), [&](DSpecialAttack* a) { race.AddSpecialAttack(a); });
    auto* bonus = new DFamiliarBonus;
    bonus->SetBonusType(5);
    bonus->SetBonus(2);
    addReleased(bonus, [&](DFamiliarBonus* b) { race.AddFamiliarBonus(b); });
}

// The layout race plus the base's lists and the other kinds of special attack, so a round trip
// passes through every branch of the reader.
void fillFullRace(DRace& race) {
    fillLayoutRace(race);
    addReleased(new DRaceAdvance(5, 8, 7), [&](DRaceAdvance* a) { race.AddAdvance(a); });

    auto* spells = new DSpecialAttackSpells(21);
    for (int i = 0; i < 2; ++i) {
        auto* spell = new DSpell;
        spell->SetSpellGuid(guid(quint8(0x70 + i)));
        spell->SetSpellLevel(i + 1);
        spell->SetCasterLevel(7);
        spell->SetTimesPerDay(3 - i);
        addReleased(spell, [&](DSpell* s) { spells->AddSpell(s); });
    }
    addReleased(spells, [&](DSpecialAttack* a) { race.AddSpecialAttack(a); });
    addReleased(new DSpecialAttackSpellCaster(22, guid(0x80), 9),
                [&](DSpecialAttack* a) { race.AddSpecialAttack(a); });

    auto* bonus = new DFamiliarBonus;
    bonus->SetBonusType(8);
    bonus->SetBonus(-3);
    DTargetData target;
    target.SetTargetGuid(guid(0x90));
    target.SetTargetSubGuid(guid(0xA0));
    target.SetExtraData(4);
    bonus->SetTargetData(&target);
    addReleased(bonus, [&](DFamiliarBonus* b) { race.AddFamiliarBonus(b); });

    auto* skill = new DChosenSkill;
    skill->SetSkillId(guid(0xB0));
    skill->SetRaceMod(2);
    addReleased(skill, [&](DChosenSkill* s) { race.AddSkill(s); });
    auto* feat = new DChosenFeat;
    feat->SetFeatGuid(guid(0xC0));
    feat->SetCount(1);
    addReleased(feat, [&](DChosenFeat* f) { race.AddFeat(f); });
    addReleased(new DChosenLanguage(guid(0xD0)), [&](DChosenLanguage* l) { race.AddLanguage(l); });
    addReleased(new DChosenSpeed(1, 30, 0), [&](DChosenSpeed* s) { race.AddSpeed(s); });
}

// Header fields, which a header-only load must give.
void expectHeaderOf(const DRace& race, const DRace& want) {
    EXPECT_EQ(race.GetSizeId(), want.GetSizeId());
    EXPECT_EQ(race.GetClassGuid(), want.GetClassGuid());
    EXPECT_EQ(race.GetSubTypeArray(), want.GetSubTypeArray());
    EXPECT_EQ(race.GetSizeDirectionId(), want.GetSizeDirectionId());
    EXPECT_EQ(race.GetHitDieCount(), want.GetHitDieCount());
    EXPECT_EQ(race.GetMaxHitDieCount(), want.GetMaxHitDieCount());
    EXPECT_EQ(race.GetRaceFlags(), want.GetRaceFlags());
    EXPECT_EQ(race.GetChallengeRating(), want.GetChallengeRating());
    EXPECT_EQ(race.GetRoleArray(), want.GetRoleArray());
    EXPECT_EQ(race.GetRaceCategoryId(), want.GetRaceCategoryId());
}

// Equal field for field: the layout test pins the bytes of every stored field, so equal bytes
// mean equal fields. The object lists must hold objects of their own.
void expectSameRace(const DRace& race, const DRace& want) {
    EXPECT_EQ(storeObject(race).toHex(), storeObject(want).toHex());
    EXPECT_EQ(race.GetRaceName(), want.GetRaceName());
    EXPECT_EQ(race.IsFullyLoaded(), want.IsFullyLoaded());

    const auto distinct = [](const auto& have, const auto& wanted) {
        ASSERT_EQ(have.GetCount(), wanted.GetCount());
        EXPECT_EQ(have.GetOwnership(), kFCRetained);
        for (int i = 0; i < have.GetCount(); ++i)
            EXPECT_NE(have.At(i), wanted.At(i)) << i;
    };
    distinct(race.GetAdvanceArray(), want.GetAdvanceArray());
    distinct(race.GetSpecialAttackArray(), want.GetSpecialAttackArray());
    distinct(race.GetFamiliarBonusArray(), want.GetFamiliarBonusArray());
    distinct(race.GetSpeedArray(), want.GetSpeedArray());
    for (int i = 0; i < race.GetSpecialAttackArray().GetCount(); ++i) {
        const auto* spells =
            FCDynamicCast<DSpecialAttackSpells>(race.GetSpecialAttackArray().At(i));
        if (spells) {
            distinct(spells->GetSpellArray(),
                     static_cast<const DSpecialAttackSpells*>(want.GetSpecialAttackArray().At(i))
                         ->GetSpellArray());
        }
    }
    for (int i = 0; i < race.GetFamiliarBonusArray().GetCount(); ++i) {
        const FCObject* target = race.GetFamiliarBonusArray().At(i)->GetTargetData();
        if (target) {
            EXPECT_NE(target, want.GetFamiliarBonusArray().At(i)->GetTargetData());
        }
    }
}

// Reads a race from an object's bytes as the file reader would; null if the archive fails.
Ref<DRace> readRace(const QByteArray& bytes, bool headerOnly) {
    FCObject* object = nullptr;
    const bool ok = loadWith(bytes, [&](FCArchive& archive) {
        archive.mHeaderOnly = headerOnly;
        object = archive.ReadObject();
    });
    DRace* race = FCDynamicCast<DRace>(object);
    if (object && (!ok || !race)) {
        object->Release();
        race = nullptr;
    }
    return Ref<DRace>(race);
}

class DRaceFileTest : public ::testing::Test {
protected:
    void SetUp() override { ASSERT_TRUE(mDir.isValid()); }
    QString path(const QString& name) const { return mDir.filePath(name); }

    QTemporaryDir mDir;
};

} // namespace

// The golden bytes are worked out field by field; equal bytes after a load mean every stored
// field was read into its place.
TEST(DRaceTest, SavesAndReadsTheGoldenBytes) {
    const QByteArray golden = goldenBytes("DRace");
    ASSERT_FALSE(golden.isEmpty());
    DRace race;
    fillLayoutRace(race);
    EXPECT_EQ(storeObject(race).toHex(' '), golden.toHex(' '));
    const Ref<DRace> loaded = readRace(golden, false);
    ASSERT_NE(loaded, nullptr);
    expectHeaderOf(*loaded, race);
    EXPECT_EQ(storeObject(*loaded).toHex(' '), golden.toHex(' '));
}

TEST_F(DRaceFileTest, SaveAndLoadKeepEveryField) {
    DRace race;
    fillFullRace(race);
    const QString file = path("Stone Giant.rac");
    ASSERT_TRUE(race.SaveToFile(file));
    // Saving renames the race after its file.
    EXPECT_EQ(race.GetRaceName(), QString("Stone Giant"));

    const QByteArray bytes = hoardtest::readFile(file);
    EXPECT_EQ(bytes.left(12).toHex(), QByteArray("484f41520101010100010001"));

    Ref<DRace> loaded(DRace::CreateFromFile(file, false));
    ASSERT_NE(loaded, nullptr);
    EXPECT_EQ(loaded->GetRetainCount(), 1);
    expectSameRace(*loaded, race);

    // A copy of the file under another name loads under that name, whatever the file says.
    const QString renamed = path("Hill Giant.rac");
    ASSERT_TRUE(QFile::copy(file, renamed));
    Ref<DRace> other(DRace::CreateFromFile(renamed, false));
    ASSERT_NE(other, nullptr);
    EXPECT_EQ(other->GetRaceName(), QString("Hill Giant"));
    // So does a race that the catalogue reads through the archive directly.
    Ref<FCObject> direct(
        FCArchive::ReadFile(renamed, kRaceSignature, false, nullptr, DRace::GetStaticClassInfo()));
    ASSERT_NE(FCDynamicCast<DRace>(direct.get()), nullptr);
    EXPECT_EQ(static_cast<DRace*>(direct.get())->GetRaceName(), QString("Hill Giant"));
}

TEST_F(DRaceFileTest, SavingWhereNoFileCanBeMadeFailsAndKeepsTheName) {
    DRace race;
    race.SetRaceName("Kobold");
    // A folder of the file's name cannot be replaced by a file.
    ASSERT_TRUE(QDir(mDir.path()).mkdir("Kobold Chief.rac"));
    EXPECT_FALSE(race.SaveToFile(path("Kobold Chief.rac")));
    EXPECT_EQ(race.GetRaceName(), QString("Kobold"));
}

TEST_F(DRaceFileTest, HeaderOnlyLoadStopsAfterTheCategory) {
    DRace race;
    fillFullRace(race);
    const QString file = path("Orc.rac");
    ASSERT_TRUE(race.SaveToFile(file));

    Ref<DRace> header(DRace::CreateFromFile(file, true));
    ASSERT_NE(header, nullptr);
    EXPECT_FALSE(header->IsFullyLoaded());
    EXPECT_EQ(header->GetRaceName(), QString("Orc"));
    expectHeaderOf(*header, race);
    // Everything after the category keeps its default.
    const DRace fresh;
    EXPECT_EQ(header->GetRaceFamilyId(), fresh.GetRaceFamilyId());
    EXPECT_EQ(header->GetAbility(0), 0);
    EXPECT_EQ(header->GetAlignmentId(), 9);
    EXPECT_EQ(header->GetAdvanceArray().GetCount(), 0);
    EXPECT_EQ(header->GetSpecialAttackArray().GetCount(), 0);
    EXPECT_EQ(header->GetSkillSet().GetCount(), 0);
    EXPECT_TRUE(header->GetPortraitName().isEmpty());
    EXPECT_TRUE(header->GetRaceText(0).isEmpty());

    // Cut right after the category, the file still serves a header-only load but no full one.
    const QByteArray bytes = hoardtest::readFile(file);
    // The family id, the first field after the header, is where the cut falls.
    ASSERT_EQ(goldenBytes("DRace").mid(kHeaderEnd - 12, 4).toHex(), QByteArray("00000006"));
    const QString cut = path("Cut.rac");
    ASSERT_TRUE(hoardtest::writeFile(cut, bytes.left(kHeaderEnd)));
    Ref<DRace> cutHeader(DRace::CreateFromFile(cut, true));
    ASSERT_NE(cutHeader, nullptr);
    EXPECT_EQ(cutHeader->GetRaceName(), QString("Cut"));
    expectHeaderOf(*cutHeader, race);
    EXPECT_EQ(DRace::CreateFromFile(cut, false), nullptr);

    // A full load into a header-only race completes it.
    EXPECT_EQ(
        FCArchive::ReadFile(file, kRaceSignature, false, header.get(), DRace::GetStaticClassInfo()),
        header.get());
    EXPECT_TRUE(header->IsFullyLoaded());
    EXPECT_EQ(header->GetAdvanceArray().GetCount(), 2);
    EXPECT_EQ(header->GetPortraitName(), QString("p"));
}

TEST_F(DRaceFileTest, BadFilesGiveNullWithoutACrash) {
    DRace race;
    fillFullRace(race);
    const QString good = path("Good.rac");
    ASSERT_TRUE(race.SaveToFile(good));
    const QByteArray bytes = hoardtest::readFile(good);
    ASSERT_GT(bytes.size(), 12);

    // A character's signature, and an object of another class under the race's signature.
    const QString character = path("Character.rac");
    ASSERT_TRUE(FCArchive::WriteFile(character, 0x08080808, 0x10001, &race));
    const QString advance = path("Advance.rac");
    const DRaceAdvance row(1, 2, 3);
    ASSERT_TRUE(FCArchive::WriteFile(advance, kRaceSignature, 0x10001, &row));
    const QString empty = path("Empty.rac");
    ASSERT_TRUE(hoardtest::writeFile(empty, QByteArray()));
    const QString named[] = {character, advance, empty, path("Missing.rac")};
    for (const QString& file : named) {
        SCOPED_TRACE(file.toStdString());
        EXPECT_EQ(DRace::CreateFromFile(file, false), nullptr);
        EXPECT_EQ(DRace::CreateFromFile(file, true), nullptr);
    }

    // Files cut inside the header and inside the last field.
    const qsizetype cuts[] = {12, kHeaderEnd - 1, bytes.size() - 1};
    for (const qsizetype size : cuts) {
        const QString cut = path(QStringLiteral("Cut %1.rac").arg(size));
        ASSERT_TRUE(hoardtest::writeFile(cut, bytes.left(size)));
        EXPECT_EQ(DRace::CreateFromFile(cut, false), nullptr) << "cut at " << size;
    }
}

TEST(DRaceTest, CopiesAreDeepAndEqual) {
    DRace race;
    fillFullRace(race);

    const DRace copied(race);
    expectSameRace(copied, race);

    DRace assigned;
    assigned.SetAbility(0, 99);
    assigned.AddClimate(1);
    assigned = race;
    expectSameRace(assigned, race);

    Ref<FCObject> cloned(race.Clone());
    ASSERT_NE(FCDynamicCast<DRace>(cloned.get()), nullptr);
    expectSameRace(*static_cast<DRace*>(cloned.get()), race);

    // Changing the original leaves the copies alone.
    race.GetAdvanceArray().At(0)->SetSizeId(99);
    static_cast<DSpecialAttackSpells*>(race.GetSpecialAttackArray().At(1))->RemoveAllSpells();
    race.RemoveAllFamiliarBonuses();
    EXPECT_EQ(copied.GetAdvanceArray().At(0)->GetSizeId(), 6);
    EXPECT_EQ(static_cast<DSpecialAttackSpells*>(copied.GetSpecialAttackArray().At(1))
                  ->GetSpellArray()
                  .GetCount(),
              2);
    EXPECT_EQ(assigned.GetFamiliarBonusArray().GetCount(), 2);
}

TEST(DRaceTest, AdvancementTableKeepsTheMaximumHitDice) {
    // Each step adds a row (min, max) or removes the row at an index; after it the maximum hit dice
    // and the row count are as listed.
    struct Step {
        enum { Add, Remove, RemoveAll } op;
        int a;
        int b;
        float max;
        int rows;
    };
    struct Case {
        const char* label;
        std::vector<Step> steps;
    };
    const Case cases[] = {
        {"rising rows raise the maximum",
         {{Step::Add, 2, 4, 4.0f, 1}, {Step::Add, 5, 8, 8.0f, 2}, {Step::Add, 9, 12, 12.0f, 3}}},
        {"a lower row added later does not lower it",
         {{Step::Add, 5, 10, 10.0f, 1}, {Step::Add, 1, 3, 10.0f, 2}}},
        {"removing the last row takes the new last row's maximum",
         {{Step::Add, 1, 3, 3.0f, 1},
          {Step::Add, 4, 6, 6.0f, 2},
          {Step::Add, 7, 9, 9.0f, 3},
          {Step::Remove, 2, 0, 6.0f, 2},
          {Step::Remove, 1, 0, 3.0f, 1}}},
        {"the new last row may hold less than an earlier one",
         {{Step::Add, 1, 20, 20.0f, 1},
          {Step::Add, 2, 5, 20.0f, 2},
          {Step::Add, 6, 8, 20.0f, 3},
          {Step::Remove, 2, 0, 5.0f, 2}}},
        {"removing a middle or first row leaves the maximum",
         {{Step::Add, 1, 3, 3.0f, 1},
          {Step::Add, 4, 6, 6.0f, 2},
          {Step::Add, 7, 9, 9.0f, 3},
          {Step::Remove, 1, 0, 9.0f, 2},
          {Step::Remove, 0, 0, 9.0f, 1}}},
        {"removing the only row clears the maximum",
         {{Step::Add, 2, 4, 4.0f, 1}, {Step::Remove, 0, 0, 0.0f, 0}}},
        {"an index out of range changes nothing",
         {{Step::Add, 2, 4, 4.0f, 1},
          {Step::Remove, 1, 0, 4.0f, 1},
          {Step::Remove, -1, 0, 4.0f, 1}}},
        {"removing all clears the maximum",
         {{Step::Add, 2, 4, 4.0f, 1},
          {Step::Add, 5, 7, 7.0f, 2},
          {Step::RemoveAll, 0, 0, 0.0f, 0}}},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.label);
        DRace race;
        int n = 0;
        for (const Step& step : c.steps) {
            SCOPED_TRACE(n++);
            if (step.op == Step::Add)
                addReleased(new DRaceAdvance(step.a, step.b, 3),
                            [&](DRaceAdvance* a) { race.AddAdvance(a); });
            else if (step.op == Step::Remove)
                race.RemoveAdvance(step.a);
            else
                race.RemoveAllAdvances();
            EXPECT_EQ(race.GetMaxHitDieCount(), step.max);
            EXPECT_EQ(race.GetAdvanceArray().GetCount(), step.rows);
        }
    }
}

TEST(DRaceTest, SizeForHitDiceComesFromTheFirstCoveringRow) {
    // Rows: 2-4 size 5, 5-8 size 6, 7-12 size 7 (overlapping 7-8); the race's own size is 4.
    DRace race;
    race.SetSizeId(4);
    EXPECT_EQ(race.GetSizeForHitDie(3.0f), 4); // no rows at all
    addReleased(new DRaceAdvance(2, 4, 5), [&](DRaceAdvance* a) { race.AddAdvance(a); });
    addReleased(new DRaceAdvance(5, 8, 6), [&](DRaceAdvance* a) { race.AddAdvance(a); });
    addReleased(new DRaceAdvance(7, 12, 7), [&](DRaceAdvance* a) { race.AddAdvance(a); });
    const struct {
        float hitDice;
        int size;
    } cases[] = {
        {1.0f, 4}, {2.0f, 5}, {4.0f, 5}, {4.5f, 4},  {5.0f, 6},
        {7.0f, 6}, {8.0f, 6}, {9.0f, 7}, {12.0f, 7}, {13.0f, 4},
    };
    for (const auto& c : cases)
        EXPECT_EQ(race.GetSizeForHitDie(c.hitDice), c.size) << c.hitDice;
}

TEST(DRaceTest, AdjustedAgesAscend) {
    struct Case {
        int ages[4];
        int adjusted[4];
    };
    const Case cases[] = {
        {{0, 0, 60, 50}, {0, 0, 60, 61}},     {{15, 35, 53, 70}, {15, 35, 53, 70}},
        {{20, 20, 20, 20}, {20, 21, 22, 23}}, {{40, 10, 0, 90}, {40, 41, 42, 90}},
        {{0, 0, 0, 0}, {0, 0, 0, 0}},         {{-5, 3, 2, 7}, {0, 3, 4, 7}},
    };
    for (const Case& c : cases) {
        DRace race;
        for (int i = 0; i < 4; ++i)
            race.SetStartAge(i, c.ages[i]);
        race.AdjustAges();
        for (int i = 0; i < 4; ++i)
            EXPECT_EQ(race.GetStartAge(i), c.adjusted[i])
                << "ages " << c.ages[0] << ' ' << c.ages[1] << ' ' << c.ages[2] << ' ' << c.ages[3]
                << ", slot " << i;
    }
}

TEST(DRaceTest, AgeTypeIsTheHighestCategoryReached) {
    // Human ages: adult 15, middle 35, old 53, venerable 70.
    DRace race;
    const int starts[] = {15, 35, 53, 70};
    for (int i = 0; i < 4; ++i)
        race.SetStartAge(i, starts[i]);
    const struct {
        int age;
        int type;
    } cases[] = {
        {0, 0}, {14, 0}, {15, 0}, {34, 0}, {35, 1}, {52, 1}, {53, 2}, {69, 2}, {70, 3}, {400, 3},
    };
    for (const auto& c : cases)
        EXPECT_EQ(race.GetAgeType(c.age), c.type) << c.age;
}

TEST(DRaceTest, AbilityAdjustmentKeepsTheValueEven) {
    const struct {
        int value;
        int mod;
    } cases[] = {
        {10, 0}, {11, 0},  {12, 2},  {14, 4},   {15, 4},   {18, 8},   {9, -2},
        {8, -2}, {1, -10}, {0, -10}, {-1, -11}, {-3, -13}, {-4, -14},
    };
    DRace race;
    for (const auto& c : cases) {
        race.SetAbility(4, c.value);
        EXPECT_EQ(race.GetAbilityMod(4), c.mod) << c.value;
    }
}

TEST(DRaceTest, IndexedValuesIgnoreIndexesOutOfRange) {
    DRace race;
    race.SetRaceText(0, "General");
    race.SetRaceText(6, "Lore");
    race.SetRaceText(7, "ignored");
    race.SetRaceText(-1, "ignored");
    EXPECT_EQ(race.GetRaceText(6), QString("Lore"));
    EXPECT_EQ(race.GetRaceText(7), QString("General"));
    EXPECT_EQ(race.GetRaceText(-1), QString("General"));

    // A write past an array would land in the field after it.
    race.SetAbility(6, 30);
    race.SetStartAge(4, 30);
    race.SetSaveBonus(3, 30);
    EXPECT_EQ(race.GetAbility(6), 0);
    EXPECT_EQ(race.GetNaturalAC(), 0);
    EXPECT_EQ(race.GetStartHeight(0), 0);
    EXPECT_FALSE(race.GetHasGoodSaves(0));

    // Treasure counts as soon as any slot holds a type other than 1.
    race.SetTreasureType(2, 3);
    EXPECT_TRUE(race.HasTreasure());
    race.SetTreasureType(2, 1);
    EXPECT_FALSE(race.HasTreasure());

    race.AddRaceFlag(DRace::kFlagMount | DRace::kFlagShieldProf);
    EXPECT_TRUE(race.HasRaceFlag(DRace::kFlagFamiliar | DRace::kFlagMount));
    EXPECT_FALSE(race.HasRaceFlag(DRace::kFlagFamiliar | DRace::kFlagHeavyArmorProf));
    race.RemoveRaceFlag(DRace::kFlagMount);
    EXPECT_EQ(race.GetRaceFlags(), unsigned(DRace::kFlagShieldProf));
}
