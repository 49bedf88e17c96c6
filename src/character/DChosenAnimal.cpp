#include "DChosenAnimal.h"

#include "DFileObject.h"
#include "FCArchive.h"

FC_IMPLEMENT_CLASS(DChosenAnimal, "FCObject", nullptr)

DChosenAnimal::DChosenAnimal() : mFileObject(new DFileObject) {}

namespace {

// A copy of a companion gets a creature of its own, so that a copied master's companion
// follows that master alone.
void CopyCreature(const DFileObject& from, DFileObject& to) {
    FCObject* creature = from.GetCoreObjectRaw() ? from.GetCoreObjectRaw()->Clone() : nullptr;
    to.SetCoreObject(creature);
    if (creature)
        creature->Release();
}

} // namespace

DChosenAnimal::DChosenAnimal(const DChosenAnimal& other)
    : FCObject(other), mFileObject(new DFileObject(*other.mFileObject)),
      mAnimalType(other.mAnimalType), mClassGuid(other.mClassGuid) {
    CopyCreature(*other.mFileObject, *mFileObject);
}

DChosenAnimal& DChosenAnimal::operator=(const DChosenAnimal& other) {
    if (this != &other) {
        SetFileObject(*other.mFileObject);
        CopyCreature(*other.mFileObject, *mFileObject);
        mAnimalType = other.mAnimalType;
        mClassGuid = other.mClassGuid;
    }
    return *this;
}

DChosenAnimal::~DChosenAnimal() = default;

FCObject* DChosenAnimal::Clone() const {
    return new DChosenAnimal(*this);
}

bool DChosenAnimal::operator<(const FCObject& other) const {
    const auto* animal = FCDynamicCast<DChosenAnimal>(&other);
    if (!animal)
        return FCObject::operator<(other);
    return mAnimalType < animal->mAnimalType;
}

void DChosenAnimal::SetFileObject(const DFileObject& entry) {
    mFileObject.reset(new DFileObject(entry));
}

void DChosenAnimal::Serialize(FCArchive& archive) {
    FCObject::Serialize(archive);
    mFileObject->Serialize(archive);
    archive.Transfer(mAnimalType);
    archive.Transfer(mClassGuid);
}
