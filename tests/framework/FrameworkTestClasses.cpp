#include "FrameworkTestClasses.h"

#include <cstring>

FC_IMPLEMENT_CLASS(TestCounted, "FCObject", nullptr)
FC_IMPLEMENT_CLASS(TestDerived, "TestCounted", nullptr)
FC_IMPLEMENT_CLASS(TestGrandChild, "TestDerived", "TestMixin")
FC_IMPLEMENT_ABSTRACT_CLASS(TestAbstract, "FCObject", nullptr)
FC_IMPLEMENT_CLASS(TestFields, "FCObject", nullptr)
FC_IMPLEMENT_CLASS(TestNode, "FCObject", nullptr)
FC_IMPLEMENT_CLASS(TestFailing, "FCObject", nullptr)
FC_IMPLEMENT_CLASS(TestText, "FCObject", nullptr)
FC_IMPLEMENT_CLASS(TestIntList, "FCObject", nullptr)
FC_IMPLEMENT_CLASS(TestIntSet, "FCObject", nullptr)
FC_IMPLEMENT_CLASS(TestObjList, "FCObject", nullptr)
FC_IMPLEMENT_CLASS(TestObjSet, "FCObject", nullptr)
FC_IMPLEMENT_CLASS(TestObjMap, "FCObject", nullptr)
FC_IMPLEMENT_CLASS(TestDerivedList, "FCObject", nullptr)

FCClassInfo TestMixinRoot::mClassTestMixinRoot("TestMixinRoot", nullptr, nullptr,
                                               int(sizeof(TestMixinRoot)), nullptr);
FCClassInfo TestMixin::mClassTestMixin("TestMixin", "TestMixinRoot", nullptr,
                                       int(sizeof(TestMixin)), nullptr);

void TestCounted::Serialize(FCArchive& archive) {
    FCObject::Serialize(archive);
    archive.Transfer(mValue);
}

void TestDerived::Serialize(FCArchive& archive) {
    TestCounted::Serialize(archive);
    archive.Transfer(mExtra);
}

TestFields::TestFields() {
    mArray.SetOwnership(kFCRetained);
    mSet.SetOwnership(kFCRetained);
    mMap.SetOwnership(kFCRetained);
    mGuidMap.SetOwnership(kFCRetained);
}

void TestFields::Serialize(FCArchive& archive) {
    FCObject::Serialize(archive);
    archive.Transfer(mInt32);
    archive.Transfer(mUInt32);
    archive.Transfer(mInt64);
    archive.Transfer(mInt16);
    archive.Transfer(mFloat);
    archive.Transfer(mDouble);
    archive.Transfer(mBool);
    archive.Transfer(mBoolFalse);
    archive.Transfer(mGuid);
    archive.Transfer(mEmpty);
    archive.Transfer(mNull);
    archive.Transfer(mText);
    archive.Transfer(mColor);
    archive.Transfer(mPlain);
    archive.TransferArray(mTriple);
    archive.TransferArray(mNames);
    mInts.Serialize(archive);
    mGuids.Serialize(archive);
    mTexts.Serialize(archive);
    mPairs.Serialize(archive);
    mIntSet.Serialize(archive);
    mGuidSet.Serialize(archive);
    mArray.Serialize(archive);
    mSet.Serialize(archive);
    mMap.Serialize(archive);
    mGuidMap.Serialize(archive);
}

TestNode::~TestNode() {
    if (mChild)
        mChild->Release();
    --sLive;
}

void TestNode::Serialize(FCArchive& archive) {
    FCObject::Serialize(archive);
    archive.Transfer(mValue);
    if (archive.IsStoring()) {
        archive.WriteObject(mChild);
        return;
    }
    if (mChild)
        mChild->Release();
    mChild = FCDynamicCast<TestNode>(archive.ReadObject());
}

void TestFailing::Serialize(FCArchive& archive) {
    qint32 filler = 0x11111111;
    archive.Transfer(filler);
    archive.SetFailed();
}

namespace fctest {

Bytes::Bytes() : mStream(&mData, QIODevice::WriteOnly) {
    mStream.setByteOrder(QDataStream::BigEndian);
}

Bytes& Bytes::u8(quint8 value) {
    mStream << value;
    return *this;
}

Bytes& Bytes::u16(quint16 value) {
    mStream << value;
    return *this;
}

Bytes& Bytes::u32(quint32 value) {
    mStream << value;
    return *this;
}

Bytes& Bytes::raw(const QByteArray& data) {
    mStream.writeRawData(data.constData(), int(data.size()));
    return *this;
}

Bytes& Bytes::name(const char* className) {
    const auto length = quint16(std::strlen(className));
    u16(length);
    mStream.writeRawData(className, length);
    return *this;
}

} // namespace fctest
