#pragma once

#include "DCharacterTypes.h"
#include "FCObject.h"

#include <QUuid>

#include <memory>

class DFileObject;

// A companion of a character: the file of the creature, its slot and the class that gives it.
class DChosenAnimal : public FCObject {
    FC_DECLARE_CLASS(DChosenAnimal)
public:
    DChosenAnimal();
    DChosenAnimal(const DChosenAnimal& other);
    DChosenAnimal& operator=(const DChosenAnimal& other);
    ~DChosenAnimal() override;

    FCObject* Clone() const override;
    // By slot alone: a character has one companion per slot.
    bool operator<(const FCObject& other) const override;
    void Serialize(FCArchive& archive) override;

    // Never null; the record owns it.
    DFileObject* GetFileObject() const { return mFileObject.get(); }
    // Takes a copy of the entry, as a catalogue entry is not the record's to keep.
    void SetFileObject(const DFileObject& entry);

    DAnimalType GetAnimalType() const { return mAnimalType; }
    void SetAnimalType(DAnimalType type) { mAnimalType = type; }
    QUuid GetClassGuid() const { return mClassGuid; }
    void SetClassGuid(const QUuid& guid) { mClassGuid = guid; }

private:
    struct Releaser {
        void operator()(FCObject* object) const { object->Release(); }
    };

    std::unique_ptr<DFileObject, Releaser> mFileObject;
    DAnimalType mAnimalType = 0;
    QUuid mClassGuid;
};
