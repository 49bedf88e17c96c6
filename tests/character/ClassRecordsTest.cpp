// Spell casters, classes, history entries and the class-skill pairs: counters, derived
// values and the exact widths of their stored forms.

#include "CharacterTestSupport.h"

#include "DCharacterClass.h"
#include "DClassSkillType.h"
#include "DSpellCaster.h"

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

} // namespace
