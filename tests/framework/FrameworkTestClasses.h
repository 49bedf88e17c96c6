#pragma once

#include "TestSupport.h"

#include "FCArchive.h"
#include "FCArray.h"
#include "FCObject.h"
#include "FCPointerArray.h"
#include "FCPointerMap.h"
#include "FCPointerSet.h"
#include "FCSet.h"

#include <QByteArray>
#include <QDataStream>
#include <QIODevice>
#include <QString>
#include <QUuid>

// Classes that exist only to observe the framework: each counts its live instances so a test
// can tell a release from a delete and prove that nothing leaked.

// One number, ordered by it; the element type of every container test.
class TestCounted : public FCObject {
    FC_DECLARE_CLASS(TestCounted)
public:
    explicit TestCounted(qint32 value = 0) : mValue(value) { ++sLive; }
    TestCounted(const TestCounted& other) : FCObject(other), mValue(other.mValue) { ++sLive; }
    TestCounted& operator=(const TestCounted& other) {
        FCObject::operator=(other);
        mValue = other.mValue;
        return *this;
    }
    ~TestCounted() override { --sLive; }

    FCObject* Clone() const override { return new TestCounted(*this); }
    bool operator<(const FCObject& other) const override {
        return mValue < static_cast<const TestCounted&>(other).mValue;
    }
    void Serialize(FCArchive& archive) override;

    qint32 mValue;
    inline static int sLive = 0;
};

// A subclass with a field of its own, to show that a container keeps each element's class.
class TestDerived : public TestCounted {
    FC_DECLARE_CLASS(TestDerived)
public:
    explicit TestDerived(qint32 value = 0, const QString& extra = QString())
        : TestCounted(value), mExtra(extra) {}
    FCObject* Clone() const override { return new TestDerived(*this); }
    void Serialize(FCArchive& archive) override;

    QString mExtra;
};

// A registered second base that is not an FCObject, with a base of its own.
class TestMixinRoot {
public:
    static FCClassInfo mClassTestMixinRoot;
};
class TestMixin : public TestMixinRoot {
public:
    static FCClassInfo mClassTestMixin;
};

// Third link of the chain FCObject - TestCounted - TestDerived, plus the second base.
class TestGrandChild : public TestDerived, public TestMixin {
    FC_DECLARE_CLASS(TestGrandChild)
public:
    FCObject* Clone() const override { return new TestGrandChild(*this); }
};

class TestAbstract : public FCObject {
    FC_DECLARE_CLASS(TestAbstract)
public:
    virtual int Kind() const = 0;
};

enum class TestColor : qint32 { Red = 1, Green = 2, Blue = -7 };
enum TestPlainEnum { kTestFirst = 0, kTestSecond = 1, kTestLast = 1000 };

// A value struct stored through its own Serialize inside an FCArray.
struct TestPair {
    qint32 mNumber = 0;
    QString mName;
    void Serialize(FCArchive& archive) {
        archive.Transfer(mNumber);
        archive.Transfer(mName);
    }
    bool operator==(const TestPair&) const = default;
};

// Every kind of field an archive can hold, with the pointer containers set to the owning
// mode as owning classes do.
class TestFields : public FCObject {
    FC_DECLARE_CLASS(TestFields)
public:
    TestFields();
    void Serialize(FCArchive& archive) override;

    qint32 mInt32 = 0;
    quint32 mUInt32 = 0;
    qint64 mInt64 = 0;
    qint16 mInt16 = 0;
    float mFloat = 0;
    double mDouble = 0;
    bool mBool = false;
    bool mBoolFalse = false;
    QUuid mGuid;
    QString mEmpty;
    QString mNull;
    QString mText;
    TestColor mColor = TestColor::Red;
    TestPlainEnum mPlain = kTestFirst;
    qint32 mTriple[3] = {};
    QString mNames[2];
    FCArray<int> mInts;
    FCArray<QUuid> mGuids;
    FCArray<QString> mTexts;
    FCArray<TestPair> mPairs;
    FCSet<int> mIntSet;
    FCSet<QUuid> mGuidSet;
    FCPointerArray<TestCounted> mArray;
    FCPointerSet<TestCounted> mSet;
    FCPointerMap<int, TestCounted> mMap;
    FCPointerMap<QUuid, TestCounted> mGuidMap;
};

// A chain of objects, each owning the next: for nesting depth.
class TestNode : public FCObject {
    FC_DECLARE_CLASS(TestNode)
public:
    TestNode() { ++sLive; }
    ~TestNode() override;
    void Serialize(FCArchive& archive) override;

    qint32 mValue = 0;
    TestNode* mChild = nullptr;
    inline static int sLive = 0;
};

// Writes a little, then reports a failed write, as a Serialize would on a bad state.
class TestFailing : public FCObject {
    FC_DECLARE_CLASS(TestFailing)
public:
    void Serialize(FCArchive& archive) override;
};

// Single-field holders, so that hostile bytes can be written by hand.
class TestText : public FCObject {
    FC_DECLARE_CLASS(TestText)
public:
    void Serialize(FCArchive& archive) override { archive.Transfer(mText); }
    QString mText;
};

class TestIntList : public FCObject {
    FC_DECLARE_CLASS(TestIntList)
public:
    void Serialize(FCArchive& archive) override { mInts.Serialize(archive); }
    FCArray<int> mInts;
};

class TestIntSet : public FCObject {
    FC_DECLARE_CLASS(TestIntSet)
public:
    void Serialize(FCArchive& archive) override { mInts.Serialize(archive); }
    FCSet<int> mInts;
};

class TestObjList : public FCObject {
    FC_DECLARE_CLASS(TestObjList)
public:
    TestObjList() { mItems.SetOwnership(kFCRetained); }
    void Serialize(FCArchive& archive) override { mItems.Serialize(archive); }
    FCPointerArray<TestCounted> mItems;
};

class TestObjSet : public FCObject {
    FC_DECLARE_CLASS(TestObjSet)
public:
    TestObjSet() { mItems.SetOwnership(kFCRetained); }
    void Serialize(FCArchive& archive) override { mItems.Serialize(archive); }
    FCPointerSet<TestCounted> mItems;
};

class TestObjMap : public FCObject {
    FC_DECLARE_CLASS(TestObjMap)
public:
    TestObjMap() { mItems.SetOwnership(kFCRetained); }
    void Serialize(FCArchive& archive) override { mItems.Serialize(archive); }
    FCPointerMap<int, TestCounted> mItems;
};

class TestDerivedList : public FCObject {
    FC_DECLARE_CLASS(TestDerivedList)
public:
    TestDerivedList() { mItems.SetOwnership(kFCRetained); }
    void Serialize(FCArchive& archive) override { mItems.Serialize(archive); }
    FCPointerArray<TestDerived> mItems;
};

namespace fctest {

using hoardtest::loadObject;
using hoardtest::storeObject;

// Builds archive bytes by hand, big-endian.
class Bytes {
public:
    Bytes();
    Bytes& u8(quint8 value);
    Bytes& u16(quint16 value);
    Bytes& u32(quint32 value);
    Bytes& i32(qint32 value) { return u32(quint32(value)); }
    Bytes& raw(const QByteArray& data);
    // A class-name record: u16 length, then the name.
    Bytes& name(const char* className);
    const QByteArray& data() const { return mData; }

private:
    QByteArray mData;
    QDataStream mStream;
};

} // namespace fctest
