// Orders, packed GUID fields and the small behaviours of the chosen records.

#include "CharacterTestSupport.h"

#include "DChosenAnimal.h"
#include "DChosenFeat.h"
#include "DChosenFeature.h"
#include "DChosenSpell.h"
#include "DFileObject.h"
#include "DGuid.h"
#include "DSpell.h"
#include "DTargetData.h"
#include "FCPointerSet.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <iterator>
#include <vector>

using namespace chartest;

namespace {

QUuid fromText(const char* text) {
    return QUuid::fromString(QString::fromLatin1(text));
}

TEST(DGuidTest, ComparesTheStoredBytesFirstByteFirst) {
    struct Case {
        const char* a;
        const char* b;
        int sign;
    };
    const Case cases[] = {
        {"{00000000-0000-0000-0000-000000000000}", "{00000000-0000-0000-0000-000000000000}", 0},
        // Byte 0 decides before the variant bits in byte 8, unlike QUuid's own order.
        {"{00000001-0000-0000-c000-000000000000}", "{10000000-0000-0000-0000-000000000000}", -1},
        {"{ff000000-0000-0000-0000-000000000000}", "{0fffffff-ffff-ffff-ffff-ffffffffffff}", 1},
        // Bytes 4 and 5, then 6 and 7, are read high byte first.
        {"{00000000-0100-0000-0000-000000000000}", "{00000000-00ff-0000-0000-000000000000}", 1},
        {"{00000000-0000-00ff-0000-000000000000}", "{00000000-0000-0100-0000-000000000000}", -1},
        {"{00000000-0000-0000-0000-000000000001}", "{00000000-0000-0000-0000-000000000002}", -1},
        {"{00000000-0000-0000-0100-000000000000}", "{00000000-0000-0000-00ff-ffffffffffff}", 1},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(std::string(c.a) + " " + c.b);
        const int result = DGuid::Compare(fromText(c.a), fromText(c.b));
        EXPECT_EQ((result > 0) - (result < 0), c.sign);
        const int reverse = DGuid::Compare(fromText(c.b), fromText(c.a));
        EXPECT_EQ((reverse > 0) - (reverse < 0), -c.sign);
    }
}

// Each packed field: its whole-number and GUID accessors on one record type.
struct PackedField {
    const char* name;
    std::function<void(QUuid)> setGuid;
    std::function<QUuid()> getGuid;
    std::function<void(int)> setLong;
    std::function<int()> getLong;
};

TEST(PackedGuidFieldTest, WholeNumberLivesInTheFirstFourBytes) {
    DChosenFeat feat;
    DChosenFeature feature;
    DTargetData target;
    const PackedField fields[] = {
        {"feat target", [&](QUuid g) { feat.SetTargetGuid(g); },
         [&] { return feat.GetTargetGuid(); }, [&](int v) { feat.SetTargetLong(v); },
         [&] { return feat.GetTargetLong(); }},
        {"feat sub-target", [&](QUuid g) { feat.SetTargetSubGuid(g); },
         [&] { return feat.GetTargetSubGuid(); }, [&](int v) { feat.SetTargetSubLong(v); },
         [&] { return feat.GetTargetSubLong(); }},
        {"feature data", [&](QUuid g) { feature.SetFeatureDataGuid(g); },
         [&] { return feature.GetFeatureDataGuid(); }, [&](int v) { feature.SetFeatureData(v); },
         [&] { return feature.GetFeatureData(); }},
        {"bonus target", [&](QUuid g) { target.SetTargetGuid(g); },
         [&] { return target.GetTargetGuid(); }, [&](int v) { target.SetTargetLong(v); },
         [&] { return target.GetTargetLong(); }},
        {"bonus sub-target", [&](QUuid g) { target.SetTargetSubGuid(g); },
         [&] { return target.GetTargetSubGuid(); }, [&](int v) { target.SetTargetSubLong(v); },
         [&] { return target.GetTargetSubLong(); }},
    };
    for (const PackedField& field : fields) {
        SCOPED_TRACE(field.name);
        EXPECT_TRUE(field.getGuid().isNull());
        EXPECT_EQ(field.getLong(), 0);

        field.setLong(-5);
        EXPECT_EQ(field.getLong(), -5);
        EXPECT_EQ(field.getGuid().toRfc4122().toHex(), "fffffffb000000000000000000000000");

        field.setGuid(guid(0x40));
        EXPECT_EQ(field.getLong(), 0x40414243);
        field.setLong(258);
        EXPECT_EQ(field.getGuid().toRfc4122().toHex(), "000001024445464748494a4b4c4d4e4f");
    }
}

DChosenFeat makeFeat(quint8 featSeed, quint8 classSeed, quint8 targetSeed, quint8 subSeed,
                     unsigned flags) {
    DChosenFeat feat;
    feat.SetFeatGuid(guid(featSeed));
    feat.SetClassGuid(guid(classSeed));
    feat.SetTargetGuid(guid(targetSeed));
    feat.SetTargetSubGuid(guid(subSeed));
    feat.AddFeatFlag(flags);
    return feat;
}

TEST(DChosenFeatTest, OrderByFeatClassTargetSubTargetThenFlags) {
    // In each case `a` is smaller in one key and larger in every later key, so only the
    // right precedence sorts it first.
    struct Case {
        const char* name;
        DChosenFeat a, b;
    };
    const Case cases[] = {
        {"feat", makeFeat(0x10, 0x90, 0x90, 0x90, 9), makeFeat(0x20, 0x10, 0x10, 0x10, 1)},
        {"class", makeFeat(0x10, 0x10, 0x90, 0x90, 9), makeFeat(0x10, 0x20, 0x10, 0x10, 1)},
        {"target", makeFeat(0x10, 0x10, 0x10, 0x90, 9), makeFeat(0x10, 0x10, 0x20, 0x10, 1)},
        {"sub-target", makeFeat(0x10, 0x10, 0x10, 0x10, 9), makeFeat(0x10, 0x10, 0x10, 0x20, 1)},
        {"flags", makeFeat(0x10, 0x10, 0x10, 0x10, 0x20), makeFeat(0x10, 0x10, 0x10, 0x10, 0x800)},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        EXPECT_TRUE(c.a < c.b);
        EXPECT_FALSE(c.b < c.a);
    }
    // Flags compare as unsigned: the top bit is the largest.
    EXPECT_TRUE(makeFeat(1, 1, 1, 1, 0x1) < makeFeat(1, 1, 1, 1, 0x80000000u));
}

TEST(DChosenFeatTest, FeatsDifferingOnlyInFlagsAreBothKept) {
    FCPointerSet<DChosenFeat> set;
    set.SetOwnership(kFCRetained);
    auto* bought = new DChosenFeat(makeFeat(0x10, 0x20, 0x30, 0x40, DChosenFeat::kFeatLocked));
    auto* granted = new DChosenFeat(makeFeat(0x10, 0x20, 0x30, 0x40, DChosenFeat::kFeatGranted));
    auto* again = new DChosenFeat(makeFeat(0x10, 0x20, 0x30, 0x40, DChosenFeat::kFeatGranted));
    EXPECT_TRUE(set.Add(bought));
    EXPECT_TRUE(set.Add(granted));
    EXPECT_FALSE(set.Add(again));
    EXPECT_EQ(set.GetCount(), 2);
    EXPECT_EQ(again->GetRetainCount(), 1);
    for (DChosenFeat* feat : {bought, granted, again})
        feat->Release();
}

TEST(DChosenSpellTest, OrderBySpellCasterClassThenFlags) {
    const auto make = [](quint8 spell, quint8 caster, unsigned flags, int level) {
        DChosenSpell chosen;
        chosen.SetSpellGuid(guid(spell));
        chosen.SetCasterClassGuid(guid(caster));
        chosen.AddSpellFlag(flags);
        chosen.SetSpellLevel(level);
        return chosen;
    };
    struct Case {
        const char* name;
        DChosenSpell a, b;
        bool less, greater;
    };
    const Case cases[] = {
        {"spell", make(0x10, 0x90, 4, 9), make(0x20, 0x10, 1, 0), true, false},
        {"caster class", make(0x10, 0x10, 4, 9), make(0x10, 0x20, 1, 0), true, false},
        {"flags", make(0x10, 0x10, 1, 9), make(0x10, 0x10, 2, 0), true, false},
        // The level is no key: the same spell of the same caster is one entry.
        {"level only", make(0x10, 0x10, 2, 1), make(0x10, 0x10, 2, 3), false, false},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        EXPECT_EQ(c.a < c.b, c.less);
        EXPECT_EQ(c.b < c.a, c.greater);
    }
}

TEST(DChosenSpellTest, CompareByIdSortsBySpellBytes) {
    std::vector<Ref<FCObject>> owned;
    std::vector<FCPointer<FCObject>> pointers;
    for (const quint8 seed : {0x30, 0x10, 0x20}) {
        auto* spell = new DChosenSpell;
        spell->SetSpellGuid(guid(seed));
        spell->SetSpellLevel(0x40 - seed); // the opposite order, which must not matter
        owned.emplace_back(spell);
        pointers.emplace_back(spell);
    }
    auto* granted = new DSpell; // a race's spell sorts among them by its GUID too
    granted->SetSpellGuid(guid(0x18));
    owned.emplace_back(granted);
    pointers.emplace_back(granted);

    std::sort(pointers.begin(), pointers.end(), CompareDChosenSpellById);
    std::vector<QUuid> order;
    for (const FCPointer<FCObject>& pointer : pointers)
        order.push_back(dynamic_cast<const DSpellBase*>(pointer.Get())->GetSpellGuid());
    EXPECT_EQ(order, (std::vector<QUuid>{guid(0x10), guid(0x18), guid(0x20), guid(0x30)}));
}

TEST(DChosenAnimalTest, OneCompanionPerSlot) {
    DChosenAnimal wolf;
    wolf.SetAnimalType(1);
    wolf.SetFileObject(DFileObject(kObjectMonster, kFileCore, FCString("Wolf.mon")));
    DChosenAnimal horse;
    horse.SetAnimalType(1);
    horse.SetFileObject(DFileObject(kObjectMonster, kFileCore, FCString("Horse.mon")));
    DChosenAnimal familiar;
    familiar.SetAnimalType(0);
    familiar.SetFileObject(DFileObject(kObjectMonster, kFileCore, FCString("Wolf.mon")));

    EXPECT_FALSE(wolf < horse);
    EXPECT_FALSE(horse < wolf);
    EXPECT_TRUE(familiar < wolf);
    EXPECT_FALSE(wolf < familiar);
}

TEST(DChosenAnimalTest, HoldsItsOwnCopyOfTheEntry) {
    DChosenAnimal animal;
    ASSERT_NE(animal.GetFileObject(), nullptr);

    DFileObject entry(kObjectMonster, kFileUser, FCString("Wolf.mon"));
    animal.SetFileObject(entry);
    ASSERT_NE(animal.GetFileObject(), &entry);
    entry.SetRelativeFilePath(FCString("Bear.mon"));
    EXPECT_EQ(animal.GetFileObject()->GetRelativeFilePath(), QString("Wolf.mon"));

    // Copies are deep (RecordPersistenceTest); assigning a record to itself keeps the entry.
    const DChosenAnimal& same = animal;
    animal = same;
    EXPECT_EQ(animal.GetFileObject()->GetRelativeFilePath(), QString("Wolf.mon"));
}

TEST(DTargetDataTest, EqualityIgnoresTheText) {
    DTargetData base;
    base.SetTargetGuid(guid(0x10));
    base.SetTargetSubGuid(guid(0x20));
    base.SetExtraData(3);
    base.SetTargetString(FCString("Longsword"));
    EXPECT_EQ(DTargetData().GetExtraData(), -1);

    struct Case {
        const char* name;
        std::function<void(DTargetData&)> change;
        bool equal;
    };
    const Case cases[] = {
        {"nothing", [](DTargetData&) {}, true},
        {"text", [](DTargetData& d) { d.SetTargetString(FCString("Dagger")); }, true},
        {"target", [](DTargetData& d) { d.SetTargetLong(1); }, false},
        {"sub-target", [](DTargetData& d) { d.SetTargetSubGuid(QUuid()); }, false},
        {"extra data", [](DTargetData& d) { d.SetExtraData(-1); }, false},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        DTargetData other(base);
        c.change(other);
        EXPECT_EQ(static_cast<const DTargetDataBase&>(other) == base, c.equal);
    }
}

} // namespace
