#include "DCharacterClass.h"

#include "FCArchive.h"

FC_IMPLEMENT_CLASS(DCharacterClass, "DSpellCaster", nullptr)

FCObject* DCharacterClass::Clone() const {
    return new DCharacterClass(*this);
}

void DCharacterClass::Serialize(FCArchive& archive) {
    // The class layout puts its own fields between the level and the spell data, so the
    // caster's Serialize cannot be reused.
    FCObject::Serialize(archive);
    archive.Transfer(mClassGuid);
    archive.Transfer(mLevel);
    archive.Transfer(mPreviousLevel);
    archive.Transfer(mClassReserved);
    archive.Transfer(mBaseSkillPoints);
    qint32 unused = 0; // a slot of the file layout that carries nothing
    archive.Transfer(unused);
    archive.Transfer(mSpentSkillPoints);
    archive.Transfer(mBonusFeatPoints);
    archive.Transfer(mSpentBonusFeatPoints);
    SerializeSpellData(archive);
    archive.Transfer(mIsExClass);
    archive.Transfer(mBonusFeatures);
    archive.Transfer(mSpentBonusFeatures);
    archive.Transfer(mClassFlags);
}
