#include "DChosenAnimal.h"

#include "DFileObject.h"
#include "FCArchive.h"

FC_IMPLEMENT_CLASS(DChosenAnimal, "FCObject", nullptr)

DChosenAnimal::DChosenAnimal() : mFileObject(new DFileObject) {}

DChosenAnimal::DChosenAnimal(const DChosenAnimal& other)
    : FCObject(other), mFileObject(new DFileObject(*other.mFileObject)),
      mAnimalType(other.mAnimalType), mClassGuid(other.mClassGuid) {}

DChosenAnimal& DChosenAnimal::operator=(const DChosenAnimal& other) {
    if (this != &other) {
        SetFileObject(*other.mFileObject);
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
