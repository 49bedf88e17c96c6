// Spell casters, classes, history entries and the class-skill pairs: counters, derived
// values and the exact widths of their stored forms.

#include "CharacterTestSupport.h"

#include "DCharHistory.h"
#include "DCharacterClass.h"
#include "DClassSkillType.h"
#include "DSpellCaster.h"
#include "DSpellsPerDayValues.h"
#include "FCSet.h"

#include <gtest/gtest.h>

#include <iterator>
#include <utility>

using namespace chartest;

namespace {

using Getter = int (DSpellCaster::*)(int) const;
using Setter = void (DSpellCaster::*)(int, int);

struct Counter {
    const char* name;
    Getter get;
    Setter set;
};

const Counter kCounters[] = {
    {"per day", &DSpellCaster::GetSpellsPerDay, &DSpellCaster::SetSpellsPerDay},
    {"bonus", &DSpellCaster::GetBonusSpellsPerDay, &DSpellCaster::SetBonusSpellsPerDay},
    {"extra per day", &DSpellCaster::GetExtraClassSpellsPerDay,
     &DSpellCaster::SetExtraClassSpellsPerDay},
    {"prepared", &DSpellCaster::GetSpellsPrepared, &DSpellCaster::SetSpellsPrepared},
    {"extra prepared", &DSpellCaster::GetExtraClassSpellsPrepared,
     &DSpellCaster::SetExtraClassSpellsPrepared},
    {"known", &DSpellCaster::GetSpellsKnown, &DSpellCaster::SetSpellsKnown},
    {"can know", &DSpellCaster::GetSpellsCanKnow, &DSpellCaster::SetSpellsCanKnow},
};

TEST(DSpellCasterTest, LevelsOutsideTheTableReadZeroAndAreNotWritten) {
    DSpellCaster caster;
    for (const Counter& counter : kCounters) {
        for (const int level : {-1, 10, 1000}) {
            (caster.*counter.set)(level, 5);
            EXPECT_EQ((caster.*counter.get)(level), 0) << counter.name << " " << level;
        }
        for (int level = 0; level < 10; ++level)
            EXPECT_EQ((caster.*counter.get)(level), 0) << counter.name << " " << level;
    }
    caster.AdjustSpellsKnown(-1, 3);
    EXPECT_EQ(caster.GetSpellsKnown(-1), 0);
}

TEST(DSpellCasterTest, RemainingCountsArePlainDifferences) {
    struct Case {
        int perDay, prepared, extraPerDay, extraPrepared, canKnow, known;
        int remaining, remainingExtra, remainingCanKnow;
    };
    const Case cases[] = {
        {3, 1, 1, 0, 4, 2, 2, 1, 2},
        {2, 2, 1, 1, 3, 3, 0, 0, 0},
        // More known or prepared than allowed: nothing clamps the result.
        {1, 4, 0, 1, 2, 5, -3, -1, -3},
    };
    for (const Case& c : cases) {
        DSpellCaster caster;
        caster.SetSpellsPerDay(2, c.perDay);
        caster.SetSpellsPrepared(2, c.prepared);
        caster.SetExtraClassSpellsPerDay(2, c.extraPerDay);
        caster.SetExtraClassSpellsPrepared(2, c.extraPrepared);
        caster.SetSpellsCanKnow(2, c.canKnow);
        caster.SetSpellsKnown(2, c.known);
        caster.SetBonusSpellsPerDay(2, 7); // bonus spells are not part of the remainder
        EXPECT_EQ(caster.GetRemainingSpellsPerDay(2), c.remaining);
        EXPECT_EQ(caster.GetRemainingExtraClassSpellsPerDay(2), c.remainingExtra);
        EXPECT_EQ(caster.GetRemainingSpellsCanKnow(2), c.remainingCanKnow);
        EXPECT_EQ(caster.GetRemainingSpellsPerDay(3), 0);
    }
}

TEST(DSpellCasterTest, AdjustersAddToOneLevel) {
    using Adjuster = void (DSpellCaster::*)(int, int);
    const std::pair<Adjuster, Getter> adjusters[] = {
        {&DSpellCaster::AdjustSpellsPrepared, &DSpellCaster::GetSpellsPrepared},
        {&DSpellCaster::AdjustExtraClassSpellsPrepared, &DSpellCaster::GetExtraClassSpellsPrepared},
        {&DSpellCaster::AdjustSpellsKnown, &DSpellCaster::GetSpellsKnown},
    };
    for (const auto& [adjust, get] : adjusters) {
        DSpellCaster caster;
        (caster.*adjust)(4, 3);
        (caster.*adjust)(4, 2);
        (caster.*adjust)(4, -6);
        EXPECT_EQ((caster.*get)(4), -1);
        EXPECT_EQ((caster.*get)(3), 0);
        EXPECT_EQ((caster.*get)(5), 0);
    }
}

TEST(DSpellCasterTest, ClearingTouchesOnlyItsCounters) {
    DSpellCaster caster;
    for (const Counter& counter : kCounters)
        (caster.*counter.set)(1, 6);

    caster.ClearSpellsPerDay();
    EXPECT_EQ(caster.GetSpellsPerDay(1), 0);
    EXPECT_EQ(caster.GetExtraClassSpellsPerDay(1), 0);
    EXPECT_EQ(caster.GetBonusSpellsPerDay(1), 6);
    EXPECT_EQ(caster.GetSpellsPrepared(1), 6);
    EXPECT_EQ(caster.GetSpellsCanKnow(1), 6);

    caster.ClearSpellsCanKnow();
    EXPECT_EQ(caster.GetSpellsCanKnow(1), 0);
    EXPECT_EQ(caster.GetSpellsKnown(1), 6);
}

TEST(DCharacterClassTest, PointsAndLevelUp) {
    DCharacterClass characterClass;
    EXPECT_EQ(characterClass.GetMaxSpellLevel(), -1);
    characterClass.SetBaseSkillPoints(8);
    characterClass.SetSpentSkillPoints(3);
    characterClass.AdjustSpentSkillPoints(2);
    EXPECT_EQ(characterClass.GetRemainingSkillPoints(), 3);
    characterClass.AdjustSpentSkillPoints(6);
    EXPECT_EQ(characterClass.GetRemainingSkillPoints(), -3);

    characterClass.SetSpentBonusFeatures(1);
    characterClass.AdjustSpentBonusFeatures(2);
    EXPECT_EQ(characterClass.GetSpentBonusFeatures(), 3);
    characterClass.AdjustSpentClassSkills(2);
    characterClass.AdjustSpentClassSkills(-5);
    EXPECT_EQ(characterClass.GetSpentClassSkills(), -3);

    characterClass.SetLevel(4.5f);
    EXPECT_EQ(characterClass.GetPreviousLevel(), 0.0f);
    characterClass.PrepareForLevelUp();
    characterClass.SetLevel(5.5f);
    EXPECT_EQ(characterClass.GetPreviousLevel(), 4.5f);
}

TEST(DCharacterClassTest, AtonementAndSpentClassSkillsAreNotStored) {
    DCharacterClass characterClass;
    characterClass.SetHasAtoned(true);
    characterClass.SetSpentClassSkills(4);
    const QByteArray bytes = storeObject(characterClass);
    const Ref<FCObject> loaded = loadObject(bytes);
    const auto* loadedClass = FCDynamicCast<DCharacterClass>(loaded.get());
    ASSERT_NE(loadedClass, nullptr);
    EXPECT_FALSE(loadedClass->hasAtoned());
    EXPECT_EQ(loadedClass->GetSpentClassSkills(), 0);
    // Nothing of either reaches the file: it equals the one of a fresh class.
    EXPECT_EQ(bytes, storeObject(DCharacterClass()));
}

TEST(DCharacterClassTest, StoredSizeAndReservedSlots) {
    // Class name record; GUID; level, previous level, reserved, base skill points, unused,
    // spent skill points, bonus feat points, spent bonus feat points; spell data; one byte
    // for the ex-class mark; bonus features, spent bonus features, class flags.
    const int nameBytes = 2 + 15;
    const int reservedAt = nameBytes + 16 + 4 + 4;
    const int unusedAt = reservedAt + 4 + 4;
    const QByteArray bytes = storeObject(DCharacterClass());
    ASSERT_EQ(bytes.size(), nameBytes + 16 + 8 * 4 + (70 * 4 + 3 * 4) + 1 + 3 * 4);

    // A file with values in both slots: the reserved one is kept, copied and written back;
    // the unused one is dropped and written as 0.
    QByteArray patched = bytes;
    patched.replace(reservedAt, 4, QByteArray::fromHex("01020304"));
    patched.replace(unusedAt, 4, QByteArray::fromHex("0a0b0c0d"));
    const Ref<FCObject> loaded = loadObject(patched);
    ASSERT_NE(loaded, nullptr);
    const Ref<FCObject> clone(loaded->Clone());
    for (const FCObject* record : {loaded.get(), clone.get()}) {
        const QByteArray written = storeObject(*record);
        EXPECT_EQ(written.mid(reservedAt, 4).toHex(), "01020304");
        EXPECT_EQ(written.mid(unusedAt, 4).toHex(), "00000000");
    }
}

TEST(DCharHistoryTest, DefaultsAndExClassBit) {
    DCharHistory history;
    EXPECT_EQ(history.GetCustomData(), -1);
    EXPECT_FALSE(history.GetIsExClass());

    history.AddHistoryFlag(DCharHistory::kHistoryRaceClass | DCharHistory::kHistoryApplied);
    history.SetIsExClass(true);
    EXPECT_EQ(history.GetHistoryFlags(), 0x7u);
    EXPECT_TRUE(history.GetIsExClass());
    history.SetIsExClass(false);
    EXPECT_EQ(history.GetHistoryFlags(), 0x6u);
    EXPECT_FALSE(history.GetIsExClass());
}

TEST(DClassSkillTypeTest, OrdersByClassBytesThenSkill) {
    // 00... against 10...: the first byte decides, whatever the variant bits say.
    const QUuid low = QUuid::fromString(QStringLiteral("{00000000-0000-0000-c000-000000000000}"));
    const QUuid high = QUuid::fromString(QStringLiteral("{10000000-0000-0000-0000-000000000000}"));
    struct Case {
        DClassSkillType a, b;
        bool less, greater;
    };
    const Case cases[] = {
        {{low, guid(0x90)}, {high, guid(0x10)}, true, false},
        {{guid(0x20), guid(0x10)}, {guid(0x20), guid(0x11)}, true, false},
        {{guid(0x21), guid(0x10)}, {guid(0x20), guid(0x90)}, false, true},
        {{guid(0x20), guid(0x10)}, {guid(0x20), guid(0x10)}, false, false},
    };
    for (size_t i = 0; i < std::size(cases); ++i) {
        SCOPED_TRACE(i);
        EXPECT_EQ(cases[i].a < cases[i].b, cases[i].less);
        EXPECT_EQ(cases[i].b < cases[i].a, cases[i].greater);
        EXPECT_EQ(cases[i].a == cases[i].b, !cases[i].less && !cases[i].greater);
    }
}

TEST(DClassSkillTypeTest, SetStoresEachPairOnceInOrder) {
    FCSet<DClassSkillType> set;
    EXPECT_TRUE(set.Add({guid(0x50), guid(0x01)}));
    EXPECT_TRUE(set.Add({guid(0x20), guid(0x02)}));
    EXPECT_FALSE(set.Add({guid(0x50), guid(0x01)}));

    const QByteArray bytes = storeWith([&](FCArchive& archive) { set.Serialize(archive); });
    EXPECT_EQ(bytes.toHex(' '),
              Bytes().i32(2).guid(0x20).guid(0x02).guid(0x50).guid(0x01).get().toHex(' '));

    FCSet<DClassSkillType> loaded;
    EXPECT_TRUE(loadWith(bytes, [&](FCArchive& archive) { loaded.Serialize(archive); }));
    EXPECT_TRUE(loaded == set);

    for (qsizetype length = 0; length < bytes.size(); ++length) {
        FCSet<DClassSkillType> cut;
        EXPECT_FALSE(loadWith(bytes.left(length), [&](FCArchive& archive) {
            cut.Serialize(archive);
        })) << length;
    }
}

TEST(DSpellsPerDayValuesTest, StoresOneIntThenTwoRowsOfTen) {
    DSpellsPerDayValues values;
    values.mMaxSpellLevel = 4;
    for (int l = 0; l < 10; ++l) {
        values.mSpellsPerDay[size_t(l)] = l + 1;
        values.mBonusSpellsPerDay[size_t(l)] = 20 + l;
    }
    const QByteArray bytes = storeWith([&](FCArchive& archive) { values.Serialize(archive); });
    Bytes expected;
    expected.i32(4);
    for (int l = 0; l < 10; ++l)
        expected.i32(l + 1);
    for (int l = 0; l < 10; ++l)
        expected.i32(20 + l);
    EXPECT_EQ(bytes.toHex(' '), expected.get().toHex(' '));

    DSpellsPerDayValues loaded;
    EXPECT_TRUE(loadWith(bytes, [&](FCArchive& archive) { loaded.Serialize(archive); }));
    EXPECT_TRUE(loaded == values);
    EXPECT_FALSE(loadWith(bytes.left(83), [&](FCArchive& archive) { loaded.Serialize(archive); }));
}

} // namespace
