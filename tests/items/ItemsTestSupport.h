#pragma once

#include "TestSupport.h"

#include "FCArchive.h"
#include "FCObject.h"
#include "FCReleaser.h"

#include <QByteArray>
#include <QUuid>

#include <memory>

namespace itemstest {

// Stands in for the records of the layers above items (targets, spells, intelligent and cursed
// data), which items hold untyped. Counts its live instances so tests can see leaks.
class TestRecord : public FCObject {
    FC_DECLARE_CLASS(TestRecord)
public:
    TestRecord();
    TestRecord(const QUuid& guid, qint32 value);
    TestRecord(const TestRecord& other);
    TestRecord& operator=(const TestRecord&) = default;
    ~TestRecord() override;

    TestRecord* Clone() const override { return new TestRecord(*this); }
    void Serialize(FCArchive& archive) override;

    QUuid mGuid;
    qint32 mValue = 0;

    static int sLive;
};

template <typename T> using Ref = FCRef<T>;

// A new TestRecord with one reference, as the loaders hand them out.
Ref<TestRecord> makeRecord(int n);
// The record's fields, for comparing untyped slots; false for null or another class.
bool sameRecord(const FCObject* a, const FCObject* b);

using hoardtest::loadObject;
using hoardtest::storeFields;
using hoardtest::storeObject;

// Writes and reads back; null if the read failed or gave another class.
template <typename T> Ref<T> roundTrip(const T& object) {
    FCObject* read = loadObject(storeObject(&object));
    if (read && read->GetClassInfoA() != object.GetClassInfoA()) {
        read->Release();
        return nullptr;
    }
    return Ref<T>(static_cast<T*>(read));
}

QUuid guid(int n);

} // namespace itemstest
