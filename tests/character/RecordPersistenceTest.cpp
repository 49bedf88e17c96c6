// Every persistent record of the character model: the golden bytes, round trip through an
// archive, deep copies, and clean failure on truncated input.

#include "CharacterTestSupport.h"

#include "DAdjChosenSpeed.h"
#include "DCharHistory.h"
#include "DCharacterClass.h"
#include "DChosenAnimal.h"
#include "DChosenFeat.h"
#include "DChosenFeature.h"
#include "DChosenLanguage.h"
#include "DChosenSkill.h"
#include "DChosenSpeed.h"
#include "DChosenSpell.h"
#include "DFileObject.h"
#include "DSpell.h"
#include "DSpellCaster.h"
#include "DTargetData.h"

#include <gtest/gtest.h>

using namespace chartest;

namespace {

// Where a record under test came from: a file keeps only the stored fields.
enum class Origin { Copy, File };

template <typename T> struct Traits;

// Counter values of the filled caster: array k (0 = per day ... 6 = can know) at spell level
// l holds 10 * (k + 1) + l, so every slot differs from every other.
int casterCount(int array, int level) {
    return 10 * (array + 1) + level;
}

void fillCaster(DSpellCaster& caster) {
    caster.SetClassGuid(guid(0x30));
    caster.SetLevel(5.0f);
    for (int l = 0; l < 10; ++l) {
        caster.SetSpellsPerDay(l, casterCount(0, l));
        caster.SetBonusSpellsPerDay(l, casterCount(1, l));
        caster.SetExtraClassSpellsPerDay(l, casterCount(2, l));
        caster.SetSpellsPrepared(l, casterCount(3, l));
        caster.SetExtraClassSpellsPrepared(l, casterCount(4, l));
        caster.SetSpellsKnown(l, casterCount(5, l));
        caster.SetSpellsCanKnow(l, casterCount(6, l));
    }
    caster.SetMaxSpellLevel(3);
    caster.SetBonusSpellLevels(1);
    caster.AddCasterFlag(0x7);
}

template <> struct Traits<DSpellCaster> {
    static void fill(DSpellCaster& r) { fillCaster(r); }
    static void mutate(DSpellCaster& r) {
        r.SetSpellsKnown(4, -1);
        r.SetClassGuid(QUuid());
    }
};

template <> struct Traits<DCharacterClass> {
    static void fill(DCharacterClass& r) {
        fillCaster(r);
        r.SetLevel(2.0f);
        r.PrepareForLevelUp();
        r.SetLevel(3.0f);
        r.SetHasAtoned(true);
        r.SetBaseSkillPoints(12);
        r.SetSpentSkillPoints(5);
        r.SetBonusFeatPoints(2);
        r.SetSpentBonusFeatPoints(1);
        r.SetIsExClass(true);
        r.SetBonusFeatures(4);
        r.SetSpentBonusFeatures(3);
        r.SetSpentClassSkills(6);
        r.AddClassFlag(0x80000001u);
    }
    static void mutate(DCharacterClass& r) {
        r.SetSpellsPerDay(0, 99);
        r.AdjustSpentSkillPoints(4);
        r.SetHasAtoned(false);
    }
};

template <> struct Traits<DCharHistory> {
    static void fill(DCharHistory& r) {
        r.SetClassGuid(guid(0x10));
        r.SetLevel(3.0f);
        r.AddHistoryFlag(0x5);
        r.SetSpecialClassGuid(guid(0x20));
        r.SetCustomData(7);
        r.setHitpoints(18);
        r.setSkillpoints(4);
    }
    static void mutate(DCharHistory& r) {
        r.SetIsExClass(false);
        r.setHitpoints(1);
    }
};

template <> struct Traits<DChosenSkill> {
    static void fill(DChosenSkill& r) {
        r.SetSkillId(guid(0x40));
        r.SetSubSkillId(guid(0x50));
        r.SetRanks(guid(0x60), 1, 2.5f);
        r.SetRanks(guid(0x70), 2, 1.5f);
        r.GetSkillRankInfo(guid(0x60))->mLockedRanks = 4.0f;
        r.SetAbilityMod(1);
        r.SetRaceMod(2);
        r.SetFeatMod(3);
        r.SetFamiliarMod(4);
        r.SetMagicMod(5);
        r.SetSkillMod(6);
        r.SetMiscMod(7);
        r.SetUserMod(8);
        r.AddSkillFlag(0x108);
    }
    static void mutate(DChosenSkill& r) {
        r.SetRanks(guid(0x60), 2, 9.0f);
        r.SetRanks(guid(0x90), 1, 1.0f);
        r.SetUserMod(-3);
    }
};

template <> struct Traits<DChosenFeat> {
    static void fill(DChosenFeat& r) {
        r.SetFeatGuid(guid(0x80));
        r.SetCount(3);
        r.SetTargetGuid(guid(0x90));
        r.SetTargetSubLong(-2);
        r.SetClassGuid(guid(0xA0));
        r.AddFeatFlag(0x820);
    }
    static void mutate(DChosenFeat& r) {
        r.SetCount(1);
        r.SetTargetLong(77);
    }
};

template <> struct Traits<DChosenFeature> {
    static void fill(DChosenFeature& r) {
        r.SetFeatureGuid(guid(0xB0));
        r.SetFeatureGroup(13);
        r.SetFeatureType(4);
        r.SetFeatureData(42);
        r.SetClassGuid(guid(0xC0));
        r.AddFeatureFlag(0x8);
    }
    static void mutate(DChosenFeature& r) {
        r.SetFeatureDataGuid(guid(0x01));
        r.AddFeatureFlag(0x1);
    }
};

template <> struct Traits<DChosenLanguage> {
    static void fill(DChosenLanguage& r) {
        r.SetLanguageGuid(guid(0xD0));
        r.AddLanguageFlag(0x3);
    }
    static void mutate(DChosenLanguage& r) { r.SetLanguageGuid(QUuid()); }
};

template <> struct Traits<DChosenSpeed> {
    static void fill(DChosenSpeed& r) {
        r.SetSpeedId(2);
        r.SetSpeedValue(30);
        r.SetSpeedModId(3);
    }
    static void mutate(DChosenSpeed& r) { r.SetSpeedValue(60); }
};

template <> struct Traits<DAdjChosenSpeed> {
    static void fill(DAdjChosenSpeed& r) {
        Traits<DChosenSpeed>::fill(r);
        r.SetAdjSpeedValue(20);
    }
    static void mutate(DAdjChosenSpeed& r) { r.SetAdjSpeedValue(15); }
};

template <> struct Traits<DChosenSpell> {
    static void fill(DChosenSpell& r) {
        r.SetSpellGuid(guid(0xE0));
        r.SetSpellLevel(3);
        r.SetCasterClassGuid(guid(0xF0));
        r.SetCasterLevel(7);
        r.SetPurchaseType(10);
        r.AddSpellFlag(0x6);
        r.SetPreparedCount(2);
    }
    static void mutate(DChosenSpell& r) {
        r.AdjustPreparedCount(-2);
        r.SetSpellLevel(0);
    }
};

template <> struct Traits<DSpell> {
    static void fill(DSpell& r) {
        r.SetSpellGuid(guid(0x11));
        r.SetSpellLevel(2);
        r.SetCasterClassGuid(guid(0x21));
        r.SetCasterLevel(9);
        r.SetTimesPerDay(3);
    }
    static void mutate(DSpell& r) { r.SetTimesPerDay(0); }
};

const DFileObject& wolfEntry() {
    static const DFileObject entry(kObjectMonster, kFileUser, FCString("Wolf.mon"));
    return entry;
}

template <> struct Traits<DChosenAnimal> {
    static void fill(DChosenAnimal& r) {
        r.SetFileObject(wolfEntry());
        r.SetAnimalType(1);
        r.SetClassGuid(guid(0x31));
    }
    static void mutate(DChosenAnimal& r) {
        r.GetFileObject()->SetRelativeFilePath(FCString("Hawk.mon"));
        r.GetFileObject()->SetFileObjectType(kFileCore);
        r.SetAnimalType(0);
    }
};

template <> struct Traits<DTargetData> {
    static void fill(DTargetData& r) {
        r.SetTargetGuid(guid(0x41));
        r.SetTargetSubGuid(guid(0x51));
        r.SetTargetSubLong(5);
        r.SetExtraData(9);
        r.SetTargetString(FCString("Longsword"));
    }
    static void mutate(DTargetData& r) {
        r.SetExtraData(-1);
        r.SetTargetString(FCString("Dagger"));
    }
};

// Fields that live only in memory: a copy keeps them, a file does not.
void expectMemoryOnly(const FCObject&, Origin) {}
void expectMemoryOnly(const DCharacterClass& r, Origin origin) {
    EXPECT_EQ(r.hasAtoned(), origin == Origin::Copy);
    EXPECT_EQ(r.GetSpentClassSkills(), origin == Origin::Copy ? 6 : 0);
}
void expectMemoryOnly(const DTargetData& r, Origin origin) {
    EXPECT_EQ(r.GetTargetString(), origin == Origin::Copy ? QString("Longsword") : QString());
}

// The golden bytes pin every stored field, so a record that stores them again holds them all.
template <typename T> void expectFilled(const T& r, Origin origin) {
    const QByteArray golden = goldenBytes(T::GetStaticClassInfo()->GetClassName());
    EXPECT_EQ(storeObject(r).toHex(' '), golden.toHex(' '));
    expectMemoryOnly(r, origin);
}

template <typename T> class RecordPersistenceTest : public ::testing::Test {
protected:
    static Ref<T> filled() {
        Ref<T> record(new T);
        Traits<T>::fill(*record);
        return record;
    }
};

using RecordTypes =
    ::testing::Types<DSpellCaster, DCharacterClass, DCharHistory, DChosenSkill, DChosenFeat,
                     DChosenFeature, DChosenLanguage, DChosenSpeed, DAdjChosenSpeed, DChosenSpell,
                     DSpell, DChosenAnimal, DTargetData>;
TYPED_TEST_SUITE(RecordPersistenceTest, RecordTypes);

// The golden file holds each filled record's bytes, worked out field by field in the archive's
// layout (big-endian numbers, GUIDs as their sixteen bytes): what earlier saves wrote and later
// loads must read. A round trip alone would miss a field moved in both writer and reader. Read
// both as a new object of the stored class and into an existing record.
TYPED_TEST(RecordPersistenceTest, SavesAndReadsTheGoldenBytes) {
    const QByteArray golden = goldenBytes(TypeParam::GetStaticClassInfo()->GetClassName());
    ASSERT_FALSE(golden.isEmpty());
    EXPECT_EQ(storeObject(*this->filled()).toHex(' '), golden.toHex(' '));
    const Ref<FCObject> loaded = loadObject(golden);
    ASSERT_NE(loaded, nullptr);
    ASSERT_EQ(loaded->GetClassInfoA(), TypeParam::GetStaticClassInfo());
    EXPECT_EQ(loaded->GetRetainCount(), 1);
    expectFilled(static_cast<const TypeParam&>(*loaded), Origin::File);

    TypeParam into;
    FCObject* result = nullptr;
    EXPECT_TRUE(loadWith(golden, [&](FCArchive& archive) { result = archive.ReadObject(&into); }));
    EXPECT_EQ(result, &into);
    expectFilled(into, Origin::File);
}

TYPED_TEST(RecordPersistenceTest, CopiesCarryEveryFieldAndChangingOneLeavesTheOriginal) {
    const auto original = this->filled();
    {
        TypeParam constructed(*original);
        expectFilled(constructed, Origin::Copy);

        TypeParam assigned;
        Traits<TypeParam>::mutate(assigned);
        assigned = *original;
        expectFilled(assigned, Origin::Copy);

        const Ref<FCObject> clone(original->Clone());
        ASSERT_NE(clone, nullptr);
        ASSERT_EQ(clone->GetClassInfoA(), TypeParam::GetStaticClassInfo());
        EXPECT_NE(clone.get(), original.get());
        EXPECT_EQ(clone->GetRetainCount(), 1);
        expectFilled(static_cast<const TypeParam&>(*clone), Origin::Copy);

        Traits<TypeParam>::mutate(constructed);
        Traits<TypeParam>::mutate(assigned);
        Traits<TypeParam>::mutate(static_cast<TypeParam&>(*clone));
    }
    expectFilled(*original, Origin::Copy);
}

TEST(RecordRegistryTest, ClassesNameTheirBases) {
    struct Case {
        const FCClassInfo* info;
        const FCClassInfo* base;
        bool derived;
    };
    const Case cases[] = {
        {DCharacterClass::GetStaticClassInfo(), DSpellCaster::GetStaticClassInfo(), true},
        {DAdjChosenSpeed::GetStaticClassInfo(), DChosenSpeed::GetStaticClassInfo(), true},
        {DChosenSpell::GetStaticClassInfo(), FCObject::GetStaticClassInfo(), true},
        {DSpellCaster::GetStaticClassInfo(), DCharacterClass::GetStaticClassInfo(), false},
        {DChosenSpell::GetStaticClassInfo(), DSpell::GetStaticClassInfo(), false},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.info->GetClassName());
        EXPECT_EQ(c.info->IsDerivedFrom(c.base), c.derived);
    }
    EXPECT_STREQ(DChosenSpell::GetStaticClassInfo()->GetSecondBaseName(), "DSpellBase");
    EXPECT_STREQ(DSpell::GetStaticClassInfo()->GetSecondBaseName(), "DSpellBase");
}

} // namespace
