#pragma once

#include "FCObject.h"

#include <QUuid>

#include <array>

// Spell counters of one casting source, kept per spell level: a class (through
// DCharacterClass) or casting that a race grants.
class DSpellCaster : public FCObject {
    FC_DECLARE_CLASS(DSpellCaster)
public:
    static constexpr int kSpellLevelCount = 10;

    // Caster flags.
    enum : unsigned {
        kCasterCasts = 0x1,
        kCasterKnowsList = 0x2,
        kCasterPrepares = 0x4,
    };

    DSpellCaster() = default;
    DSpellCaster(const DSpellCaster& other) = default;
    DSpellCaster& operator=(const DSpellCaster& other) = default;
    ~DSpellCaster() override = default;

    FCObject* Clone() const override;
    void Serialize(FCArchive& archive) override;

    QUuid GetClassGuid() const { return mClassGuid; }
    void SetClassGuid(const QUuid& guid) { mClassGuid = guid; }
    float GetLevel() const { return mLevel; }
    void SetLevel(float level) { mLevel = level; }

    // Spell levels outside 0 to 9 read as 0 and are never written: callers loop up to a
    // maximum spell level that may be -1.
    int GetSpellsPerDay(int level) const { return Read(mSpellsPerDay, level); }
    void SetSpellsPerDay(int level, int count) { Write(mSpellsPerDay, level, count); }
    // Zeroes the spells per day and the extra class spells per day.
    void ClearSpellsPerDay();

    int GetBonusSpellsPerDay(int level) const { return Read(mBonusSpellsPerDay, level); }
    void SetBonusSpellsPerDay(int level, int count) { Write(mBonusSpellsPerDay, level, count); }

    int GetExtraClassSpellsPerDay(int level) const { return Read(mExtraClassSpellsPerDay, level); }
    void SetExtraClassSpellsPerDay(int level, int count) {
        Write(mExtraClassSpellsPerDay, level, count);
    }

    int GetSpellsPrepared(int level) const { return Read(mSpellsPrepared, level); }
    void SetSpellsPrepared(int level, int count) { Write(mSpellsPrepared, level, count); }
    void AdjustSpellsPrepared(int level, int delta) { Adjust(mSpellsPrepared, level, delta); }

    int GetExtraClassSpellsPrepared(int level) const {
        return Read(mExtraClassSpellsPrepared, level);
    }
    void SetExtraClassSpellsPrepared(int level, int count) {
        Write(mExtraClassSpellsPrepared, level, count);
    }
    void AdjustExtraClassSpellsPrepared(int level, int delta) {
        Adjust(mExtraClassSpellsPrepared, level, delta);
    }

    int GetSpellsKnown(int level) const { return Read(mSpellsKnown, level); }
    void SetSpellsKnown(int level, int count) { Write(mSpellsKnown, level, count); }
    void AdjustSpellsKnown(int level, int delta) { Adjust(mSpellsKnown, level, delta); }

    int GetSpellsCanKnow(int level) const { return Read(mSpellsCanKnow, level); }
    void SetSpellsCanKnow(int level, int count) { Write(mSpellsCanKnow, level, count); }
    void ClearSpellsCanKnow() { mSpellsCanKnow.fill(0); }

    // Plain differences; they go negative when more is used than allowed.
    int GetRemainingSpellsPerDay(int level) const {
        return GetSpellsPerDay(level) - GetSpellsPrepared(level);
    }
    int GetRemainingExtraClassSpellsPerDay(int level) const {
        return GetExtraClassSpellsPerDay(level) - GetExtraClassSpellsPrepared(level);
    }
    int GetRemainingSpellsCanKnow(int level) const {
        return GetSpellsCanKnow(level) - GetSpellsKnown(level);
    }

    int GetMaxSpellLevel() const { return mMaxSpellLevel; }
    void SetMaxSpellLevel(int level) { mMaxSpellLevel = level; }
    int GetBonusSpellLevels() const { return mBonusSpellLevels; }
    void SetBonusSpellLevels(int levels) { mBonusSpellLevels = levels; }

    unsigned GetCasterFlags() const { return mCasterFlags; }
    void AddCasterFlag(unsigned flag) { mCasterFlags |= flag; }
    void RemoveCasterFlag(unsigned flag) { mCasterFlags &= ~flag; }
    bool HasCasterFlag(unsigned flag) const { return (mCasterFlags & flag) != 0; }

protected:
    using LevelCounts = std::array<qint32, kSpellLevelCount>;

    // Shared with DCharacterClass, whose layout puts it after its own fields.
    void SerializeSpellData(FCArchive& archive);

    QUuid mClassGuid;
    float mLevel = 0.0f;
    LevelCounts mSpellsPerDay{};
    LevelCounts mBonusSpellsPerDay{};
    LevelCounts mExtraClassSpellsPerDay{};
    LevelCounts mSpellsPrepared{};
    LevelCounts mExtraClassSpellsPrepared{};
    LevelCounts mSpellsKnown{};
    LevelCounts mSpellsCanKnow{};
    qint32 mMaxSpellLevel = -1;
    qint32 mBonusSpellLevels = 0;
    quint32 mCasterFlags = 0;

private:
    static bool IsSpellLevel(int level) { return level >= 0 && level < kSpellLevelCount; }
    static int Read(const LevelCounts& counts, int level) {
        return IsSpellLevel(level) ? counts[size_t(level)] : 0;
    }
    static void Write(LevelCounts& counts, int level, int value) {
        if (IsSpellLevel(level))
            counts[size_t(level)] = value;
    }
    static void Adjust(LevelCounts& counts, int level, int delta) {
        Write(counts, level, Read(counts, level) + delta);
    }
};
