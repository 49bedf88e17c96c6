// The familiar bonus's target is a DTargetData of the character layer; this test names it only by
// its registered class and its stored bytes, as the bonus itself does.
#include "DFamiliarBonus.h"

#include "DSimpleInfo.h"
#include "FCArchive.h"
#include "FCReleaser.h"

#include <QByteArray>
#include <QDataStream>
#include <QIODevice>
#include <QUuid>

#include <gtest/gtest.h>

#include <cstring>
#include <memory>

namespace {

using ObjectPtr = FCRef<FCObject>;

const QUuid kSpot("{6A1F3C2E-8B4D-4E5F-9A0B-1C2D3E4F5A6B}");
const QUuid kSubSkill("{7B2E4D3F-9C5E-4F6A-8B1C-2D3E4F5A6B7C}");

QByteArray int32(qint32 value) {
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    stream.setByteOrder(QDataStream::BigEndian);
    stream << value;
    return bytes;
}

// An object as an archive holds it: u16 name length, the name, the fields.
QByteArray object(const char* className, const QByteArray& fields) {
    const auto length = quint16(std::strlen(className));
    QByteArray bytes;
    bytes.append(char(length >> 8)).append(char(length & 0xFF)).append(className);
    return bytes + fields;
}

const QByteArray kNoObject("\0\0", 2);

QByteArray targetObject(const QUuid& guid, const QUuid& subGuid, qint32 extra) {
    return object("DTargetData", guid.toRfc4122() + subGuid.toRfc4122() + int32(extra));
}

QByteArray bonusObject(qint32 type, qint32 value, const QByteArray& target) {
    return object("DFamiliarBonus", int32(type) + int32(value) + target);
}

QByteArray store(const FCObject* stored) {
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    FCArchive archive(&stream, FCArchive::Store);
    EXPECT_TRUE(archive.WriteObject(stored));
    return bytes;
}

// The object read from `bytes`, or null; `ok` tells whether the archive stayed sound.
ObjectPtr load(const QByteArray& bytes, bool* ok = nullptr) {
    QDataStream stream(bytes);
    FCArchive archive(&stream, FCArchive::Load);
    ObjectPtr result(archive.ReadObject());
    if (ok)
        *ok = archive.IsOk();
    return result;
}

DFamiliarBonus* asBonus(const ObjectPtr& loaded) {
    return FCDynamicCast<DFamiliarBonus>(loaded.get());
}

class FamiliarBonus : public ::testing::Test {
protected:
    void SetUp() override {
        ASSERT_NE(FCClassInfo::Find("DTargetData"), nullptr)
            << "the character layer's DTargetData must be linked in";
    }
};

} // namespace

TEST_F(FamiliarBonus, ReadingIntoABonusReplacesItsTarget) {
    const ObjectPtr withTarget = load(bonusObject(10, 3, targetObject(kSpot, kSubSkill, 7)));
    DFamiliarBonus* bonus = asBonus(withTarget);
    ASSERT_NE(bonus, nullptr);
    const QByteArray replacement = bonusObject(1, 5, kNoObject);
    QDataStream stream(replacement);
    FCArchive archive(&stream, FCArchive::Load);
    ASSERT_EQ(archive.ReadObject(bonus), bonus);
    EXPECT_EQ(bonus->GetBonusType(), 1);
    EXPECT_EQ(bonus->GetBonus(), 5);
    EXPECT_EQ(bonus->GetTargetData(), nullptr);
}

TEST_F(FamiliarBonus, BadTargetsFailTheArchive) {
    const QByteArray full = bonusObject(10, 3, targetObject(kSpot, kSubSkill, 7));
    const std::pair<const char*, QByteArray> cases[] = {
        // A registered class, but not a target.
        {"wrong class", bonusObject(10, 3, object("DSimpleInfo", {}))},
        {"unknown class", bonusObject(10, 3, object("NoSuchClass", {}))},
        {"cut in the target", full.left(full.size() - 3)},
        {"cut before the target", full.left(object("DFamiliarBonus", {}).size() + 8)},
    };
    for (const auto& [what, bytes] : cases) {
        SCOPED_TRACE(what);
        bool ok = true;
        EXPECT_EQ(load(bytes, &ok), nullptr);
        EXPECT_FALSE(ok);
    }
}

TEST_F(FamiliarBonus, CopiesOwnTheirTarget) {
    const QByteArray bytes = bonusObject(10, 3, targetObject(kSpot, kSubSkill, 7));
    const ObjectPtr loaded = load(bytes);
    const DFamiliarBonus* original = asBonus(loaded);
    ASSERT_NE(original, nullptr);
    ASSERT_NE(original->GetTargetData(), nullptr);

    const ObjectPtr cloned(original->Clone());
    const DFamiliarBonus* clone = asBonus(cloned);
    ASSERT_NE(clone, nullptr);
    ASSERT_NE(clone->GetTargetData(), nullptr);
    EXPECT_NE(clone->GetTargetData(), original->GetTargetData());
    EXPECT_EQ(store(clone), bytes);

    DFamiliarBonus assigned;
    assigned = *original;
    EXPECT_NE(assigned.GetTargetData(), original->GetTargetData());
    EXPECT_EQ(store(&assigned), bytes);

    // Only a target is kept; anything else clears.
    DFamiliarBonus set;
    set.SetTargetData(original->GetTargetData());
    EXPECT_NE(set.GetTargetData(), nullptr);
    EXPECT_NE(set.GetTargetData(), original->GetTargetData());
    DSimpleInfo notATarget;
    set.SetTargetData(&notATarget);
    EXPECT_EQ(set.GetTargetData(), nullptr);
    EXPECT_EQ(original->GetTargetData()->GetRetainCount(), 1);
}
